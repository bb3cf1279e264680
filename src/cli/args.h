#pragma once
// A small parser for the tool's arguments: positionals, flags, and options with a value.
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace nebkaro::cli {

struct Usage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Args {
public:
    // valueOptions take the next argument ("-o OUT"); flags stand alone.
    Args(const std::vector<std::string>& argv, const std::set<std::string>& valueOptions,
         const std::set<std::string>& flags);
    const std::vector<std::string>& positional() const { return positional_; }
    bool flag(const std::string& name) const { return flags_.count(name) > 0; }
    std::optional<std::string> value(const std::string& name) const;
    std::string required(const std::string& name) const;

private:
    std::vector<std::string> positional_;
    std::set<std::string> flags_;
    std::map<std::string, std::string> values_;
};

} // namespace nebkaro::cli
