#pragma once
// The glyph-layout string of a word ("A1(0,0) - G17(300,0) ") and the GlyphTable it parses
// into.
#include "core/glyph_table.h"

#include <string>

namespace nebkaro {

struct App;

// Parses s into table (cleared first). Errors: InvalidArgument when "(", "," or ")" is
// missing where one is expected, SubscriptOutOfRange for a 22nd entry, Overflow for a string
// longer than 32767 characters, TypeMismatch for a position that is not a number. The table
// is left as far as it was filled.
void parseLayoutString(const std::string& s, GlyphTable& table);
// The current word's layout into app.glyphs; nothing when lastIndex is negative.
void parseLayout(App& app);

// The composer's writer: numbers without blanks, "A1(0,0) - G17(300,0) ". Empty text for no
// used slot.
std::string composerLayoutString(const GlyphTable& table);
// The direction mirroring's writer: numbers as number-to-text, "A1( 0, 0) - G17( 300, 0) ".
// A table without signs is an InvalidArgument error (flipping a word without signs fails).
std::string mirrorLayoutString(const GlyphTable& table);

} // namespace nebkaro
