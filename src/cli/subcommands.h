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
// Pictures are drawn by a helper executable that links Qt, so that the tool itself starts
// fast. In the tool, this runs the whole command line again in the helper and does not return
// (Failure when the helper cannot be started); in the helper, or in a build that draws
// nothing, it returns at once.
void moveToDrawingTool();
// A word index argument within the loaded dictionary.
int wordIndex(const ConsoleApp& c, const std::string& text);

} // namespace nebkaro::cli
