#pragma once
// Moving through the dictionary: the word on show is app.store.currentIndex, and every move
// ends by drawing it (app.renderWord). Every move first offers to store a word with unsaved
// edits in memory, one question whichever way the move was started, so that nothing typed is
// dropped unasked; afterwards nothing is pending.
#include <cstdint>
#include <string>

namespace nebkaro {

struct App;

void showFirstWord(App& app);
void showLastWord(App& app);
void showNextWord(App& app);
void showPreviousWord(App& app);
// currentIndex := text as a 32-bit number. Text that is not a number, or a number outside
// 0..lastIndex, is reported and changes nothing; false then.
bool goToWord(App& app, const std::string& text);
void showRandomWord(App& app);

// A draw in [0, 1) from a generator seeded with seed: the same seed, the same draw.
double randomDraw(std::uint64_t seed);
// The word Random shows for a draw r: the integer part of lastIndex * r, at most lastIndex.
// With two words or more it never reaches the last one.
int randomIndex(int lastIndex, double r);
// Milliseconds since local midnight: the seed Random uses when app.randomSeed is unset.
std::uint64_t timeOfDaySeed();

} // namespace nebkaro
