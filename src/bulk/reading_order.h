#pragma once
// Reading order of the signs inside a word: signs that stand one above the other (they
// overlap horizontally by more than the allowed share) are read top first, the others in the
// word's writing direction. Sort Gardiner applies it to every word and rewrites the word's
// Gardiner notation and glyph layout from the new order.
#include <string>
#include <utility>

namespace nebkaro {

struct App;

// The tolerance for an allowed overlap in percent: (100 - percent) / 100, in single precision
// as it has always been computed (20 gives 0.8).
float overlapTolerance(double percent);

// Sort Gardiner without its question: every word from 0 to lastIndex is shown, put into
// reading order, rewritten and stored; the last word is shown at the end. A word without
// signs stops the run with InvalidArgument: the words before it are already stored, and that
// word is shown.
void sortGardinerAll(App& app, double overlapPercent);

} // namespace nebkaro
