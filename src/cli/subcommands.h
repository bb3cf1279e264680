#pragma once
// The tool's subcommands. Each reads its arguments, runs the program's own logic and prints.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace nebkaro {
struct App;
}

namespace nebkaro::cli {

struct ConsoleApp;

// An operation that failed for a reason the user must hear about (exit status 2).
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Subcommand {
    std::string name;
    std::string synopsis;
    std::string help;
    int (*run)(const std::filesystem::path& home, const std::vector<std::string>& args);
};

const std::vector<Subcommand>& subcommands();
const Subcommand* findSubcommand(const std::string& name);

// Loads FILE into the console app the way Open (or Merge) does; Failure when it cannot.
void loadDictionary(ConsoleApp& c, const std::string& file, bool merge);
// Writes the store to OUT as the program writes dictionaries, through a temporary file.
void writeDictionary(ConsoleApp& c, const std::string& out);
// A word index argument within the loaded dictionary.
int wordIndex(const ConsoleApp& c, const std::string& text);

} // namespace nebkaro::cli
