#pragma once
// The menu and tool-bar commands that work on the whole dictionary: the two sorts, Sort
// Gardiner, Shuffle and Flip All. Each asks its questions, runs the work (the question-free
// entry points of sort.h, reading_order.h and below, which the command-line tool calls too)
// and reports a failure in a critical message box, leaving the dictionary as the failure
// left it.
#include "bulk/array_functions.h"
#include "core/library_direction.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nebkaro {

struct App;
class CommandRegistry;

// Format(seconds, "0.###") without a dangling decimal point: "0.125", "2.5", "3".
std::string formatSeconds(double seconds);
// Format(n, "#,#"): thousands separated by commas, "" for 0.
std::string formatThousands(long long n);

// Shuffle without its questions: rows 0..lastIndex in random order (a fixed seed gives a
// repeatable order, none seeds from the clock), current word 0 shown, dictionary changed.
void shuffleDictionary(App& app, std::optional<std::uint64_t> seed = std::nullopt);

// Flip All without its question: every word is shown and its
// direction changed (and stored); the progress dialog's Cancel stops after the current word.
// The word that was current is shown again, and the progress dialog goes.
void flipAll(App& app, FlipMode mode);

// The tool-bar button "Sort" (cmdSort).
void sortCommand(App& app);
// Tools > Sort (mnuSort).
void menuSortCommand(App& app);
// Tools > Sort Gardiner (mnuSortGardiner).
void sortGardinerCommand(App& app);
// Tools > Shuffle (mnuShuffle) and the tool-bar button "Shuffle Dictionary".
void shuffleCommand(App& app);
// Tools > Flip All > Left, Right, Invert (mnuAllFlip).
void flipAllCommand(App& app, FlipMode mode);

// The rows of Find, Find Next, Find Previous, the sorts, Shuffle and Flip All.
void registerBulkCommands(CommandRegistry& commands);

} // namespace nebkaro
