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
float OverlapTolerance(double percent);

// Exchanges two slots of the glyph table, all attributes, and the pictures of the two glyph
// images (each picture keeps its size, so widths follow their signs).
void SwapGlyphSlots(App& app, int i, int j);

// Orders the used slots of app.glyphs (up to the first unused one) of the word on show. The
// right edge (X + picture width) is scaled by tol; each slot's own edge is taken once before
// its comparisons and not again after an exchange, as the order has always been computed.
void OrderGlyphs(App& app, float tol);

// The layout text ("A1( 0, 0) - G17( 300, 0) ") and the Gardiner notation ("A1 - G17 ") of
// the used slots in slot order, each with the trailing blank the cut leaves. A word without
// signs is an InvalidArgument error.
std::pair<std::string, std::string> ReadingOrderTexts(App& app);

// Sort Gardiner without its question: every word from 0 to lastIndex is shown, put into
// reading order, rewritten and stored; the last word is shown at the end. A word without
// signs stops the run with InvalidArgument: the words before it are already stored, and that
// word is shown.
void SortGardinerAll(App& app, double overlapPercent);

} // namespace nebkaro
