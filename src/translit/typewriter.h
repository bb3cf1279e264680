#pragma once
// The on-screen transliteration typewriter: its key sets in the two letter orders, where its
// keys go, and where its window is placed.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

struct App;

// The transliteration letters, 27 each, in the order of the Latin alphabet and in the order
// Egyptologists list them.
inline constexpr std::string_view AlphabeticalLetters =
    "A a b d D f g h H x X i j k q m n p o r s S t T w y z";
inline constexpr std::string_view EgyptologicalLetters =
    "A i y j a w b p f m n r h H x X z s S q o k g t T d D";

constexpr int TypewriterKeyCount = 42;

// The 42 key captions: the ten digits, "?", "/", ".", ",", "=" and the letters in the order
// chosen.
std::vector<std::string> typewriterKeys(bool alphabetical);

// The typewriter window as data.
struct TypewriterState {
    std::vector<std::string> keys; // btnKey(0..41) captions
    int lastKey = TypewriterKeyCount - 1;
    bool alphabetical = false;
    bool latinChecked = false;
    bool egyptChecked = false;
    std::string caption = "Typewriter";
    // A key-click sound that the keys do not play; kept for a future sound option.
    std::filesystem::path soundPath;
};

// Loading the window: records the sound's path and applies the Egyptological order.
void typewriterLoad(const App& app, TypewriterState& state);
// Relabels the keys in one order, checks its menu entry and names it in the caption. Text
// already typed is not touched.
void setTypewriterLayout(TypewriterState& state, bool alphabetical);

// The keys act on the end of the target's text, whatever the caret. Each returns false (after
// a beep) when there is no target box to type into.
bool typewriterKey(App& app, std::string_view caption);
bool typewriterSpace(App& app);
// Removes the last character; nothing on an empty text.
bool typewriterBackspace(App& app);

// Where the typewriter goes beside the Search dialog or the sign browser: directly to the
// right of the caller, or directly to its left when it would stick out past the screen's
// right edge. All in twips.
int typewriterLeftBeside(int callerLeft, int callerWidth, int typewriterWidth, int screenWidth);
// Where it goes beside the main window: directly to its left, or to its right when that would
// be off screen. Worked out in 16-bit numbers, as window positions always were here: a
// position outside -32768..32767 is an Overflow error.
int typewriterLeftBesideMain(int mainLeft, int mainWidth, int typewriterWidth);

} // namespace nebkaro
