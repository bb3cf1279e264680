#include "cli/args.h"

namespace nebkaro::cli {

Args::Args(const std::vector<std::string>& argv, const std::set<std::string>& valueOptions,
           const std::set<std::string>& flags) {
    bool onlyPositional = false;
    for (std::size_t i = 0; i < argv.size(); ++i) {
        const std::string& a = argv[i];
        if (onlyPositional || a.size() < 2 || a[0] != '-' || (a[1] >= '0' && a[1] <= '9')) {
            positional_.push_back(a);
            continue;
        }
        if (a == "--") {
            onlyPositional = true;
            continue;
        }
        std::string name = a, inlineValue;
        bool hasInline = false;
        if (auto eq = a.find('='); eq != std::string::npos && a.rfind("--", 0) == 0) {
            name = a.substr(0, eq);
            inlineValue = a.substr(eq + 1);
            hasInline = true;
        }
        if (valueOptions.count(name)) {
            if (hasInline) {
                values_[name] = inlineValue;
            } else {
                if (i + 1 >= argv.size()) throw Usage(name + " needs a value");
                values_[name] = argv[++i];
            }
        } else if (flags.count(name) && !hasInline) {
            flags_.insert(name);
        } else {
            throw Usage("unknown option '" + a + "'");
        }
    }
}

std::optional<std::string> Args::value(const std::string& name) const {
    auto it = values_.find(name);
    if (it == values_.end()) return std::nullopt;
    return it->second;
}

std::string Args::required(const std::string& name) const {
    auto v = value(name);
    if (!v) throw Usage(name + " is required");
    return *v;
}

} // namespace nebkaro::cli
