#include "cli/commands.h"

#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/files.h"
#include "core/text.h"

#include <cstring>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {

struct Usage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

ParsedDictionary readDictionary(const std::string& file) {
    const std::string bytes = readFileBytes(fs::path(file));
    return ReadDictionaryText(text::decodeFileText(bytes), DictionaryStore::MaxWordIndex + 1);
}

int cmdInfo(const std::vector<std::string>& args) {
    if (args.size() != 1) throw Usage("info takes one FILE");
    const ParsedDictionary d = readDictionary(args[0]);
    std::cout << "file: " << args[0] << "\n";
    std::cout << "header: " << (d.hasHeader ? "yes" : "no") << "\n";
    for (int i = 0; i < FieldCount; ++i)
        std::cout << "header " << i << ": " << d.header[static_cast<std::size_t>(i)] << "\n";
    std::cout << "words: " << d.words.size() << "\n";
    if (d.stoppedEarly)
        std::cout << "stopped at line " << d.stopLine
                  << ": a record whose direction is neither R nor L\n";
    return 0;
}

int cmdShow(const std::vector<std::string>& args) {
    if (args.size() != 2) throw Usage("show takes FILE INDEX");
    const ParsedDictionary d = readDictionary(args[0]);
    const int index = text::toLong(args[1]);
    if (index < 0 || index >= static_cast<int>(d.words.size()))
        throw Usage("no word " + args[1] + " (the dictionary has " +
                    std::to_string(d.words.size()) + " words)");
    for (int f = 0; f < FieldCount; ++f)
        std::cout << f << ": "
                  << d.words[static_cast<std::size_t>(index)][static_cast<std::size_t>(f)] << "\n";
    return 0;
}

const std::map<std::string, std::string>& helpTexts() {
    static const std::map<std::string, std::string> h = {
        {"info", "nebkaro-cli info FILE\n  Header values, word count, and whether the file has a "
                 "header.\n"},
        {"show", "nebkaro-cli show FILE INDEX\n  The seven fields of word INDEX (from 0), one per "
                 "line, as 'N: value'.\n"},
    };
    return h;
}

void printUsage(std::ostream& out) {
    out << "usage: nebkaro-cli [--home DIR] COMMAND [ARGS]\n"
           "commands:\n";
    for (const auto& [name, text] : helpTexts()) out << "  " << name << "\n";
    out << "'nebkaro-cli COMMAND --help' describes a command.\n";
}

} // namespace

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        if (args.empty() || args[0] == "--help" || args[0] == "-h") {
            printUsage(args.empty() ? std::cerr : std::cout);
            return args.empty() ? 2 : 0;
        }
        const std::string cmd = args[0];
        std::vector<std::string> rest(args.begin() + 1, args.end());
        for (const auto& a : rest) {
            if (a == "--help" || a == "-h") {
                auto it = helpTexts().find(cmd);
                if (it == helpTexts().end()) throw Usage("unknown command '" + cmd + "'");
                std::cout << it->second;
                return 0;
            }
        }
        if (cmd == "info") return cmdInfo(rest);
        if (cmd == "show") return cmdShow(rest);
        throw Usage("unknown command '" + cmd + "'");
    } catch (const Usage& e) {
        std::cerr << "nebkaro-cli: " << e.what() << "\n";
        return 2;
    } catch (const RunError& e) {
        std::cerr << "nebkaro-cli: " << e.report() << "\n";
        return 2;
    }
}

} // namespace nebkaro::cli
