#include "cli/commands.h"

#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "core/app.h"
#include "core/errors.h"
#include "core/folders.h"

#include <climits>
#include <filesystem>
#include <iostream>
#include <optional>
#include <unistd.h>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {

char** givenArgs = nullptr;

void printUsage(std::ostream& out) {
    out << "usage: nebkaro-cli [--home DIR] COMMAND [ARGS]\n"
           "       nebkaro-cli --version\n\n"
           "The dictionary from the command line, through the same logic as the program.\n"
           "Exit status: 0 success, 1 nothing found (or problems found by check), 2 bad input\n"
           "or a failed operation.\n\ncommands:\n";
    for (const Subcommand& s : subcommands()) out << "  " << s.synopsis << "\n";
    out << "\n'nebkaro-cli COMMAND --help' describes a command. --home names the program\n"
           "folder; by default it is the one the program itself uses.\n";
}

} // namespace

char** commandLine() {
    return givenArgs;
}

int run(int argc, char** argv) {
    givenArgs = argv;
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        std::optional<fs::path> home;
        // --home may stand anywhere; it belongs to every command.
        for (std::size_t i = 0; i < args.size(); ++i) {
            if (args[i] == "--home") {
                if (i + 1 >= args.size()) throw Usage("--home needs a value");
                home = args[i + 1];
                args.erase(args.begin() + static_cast<long>(i),
                           args.begin() + static_cast<long>(i) + 2);
                --i;
            } else if (args[i].rfind("--home=", 0) == 0) {
                home = args[i].substr(7);
                args.erase(args.begin() + static_cast<long>(i));
                --i;
            }
        }
        if (args.empty()) {
            printUsage(std::cerr);
            return 2;
        }
        if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
            printUsage(std::cout);
            return 0;
        }
        if (args[0] == "--version") {
            std::cout << "nebkaro-cli " << versionText() << "\n";
            return 0;
        }
        const Subcommand* cmd = findSubcommand(args[0]);
        if (!cmd) throw Usage("unknown command '" + args[0] + "' (see nebkaro-cli --help)");
        std::vector<std::string> rest(args.begin() + 1, args.end());
        for (const auto& a : rest) {
            if (a == "--help" || a == "-h") {
                std::cout << "usage: nebkaro-cli [--home DIR] " << cmd->synopsis << "\n\n"
                          << cmd->help;
                return 0;
            }
        }
        // The tool reads only the shipped files (sign lists, pictures); the dictionaries it
        // works on are named on its command line.
        const ProgramFolders folders =
            resolveFolders(home, executableFolder(), NEBKARO_SHIPPED_FROM_BIN, environmentValue);
        return cmd->run(folders.shipped, rest);
    } catch (const Usage& e) {
        std::cerr << "nebkaro-cli: " << e.what() << "\n";
        return 2;
    } catch (const Failure& e) {
        std::cerr << "nebkaro-cli: " << e.what() << "\n";
        return 2;
    } catch (const RunError& e) {
        std::cerr << "nebkaro-cli: " << e.report() << "\n";
        return 2;
    } catch (const ProgramFileError& e) {
        std::cerr << "nebkaro-cli: " << e.message() << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << "nebkaro-cli: " << e.what() << "\n";
        return 2;
    }
}

} // namespace nebkaro::cli
