#pragma once
// The word on show as Unicode hieroglyph text: its signs in reading order, with the format
// controls that stack signs (vertical joiner) or set them side by side (horizontal joiner)
// inside a group, as they stand in the word's picture.
#include "core/glyph_table.h"
#include "core/word_view.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace nebkaro {

struct App;

inline constexpr char32_t VerticalJoiner = 0x13430;
inline constexpr char32_t HorizontalJoiner = 0x13431;

// The code point of a sign of the Unicode block, by its Gardiner code (exact spelling).
std::optional<char32_t> hieroglyphCodePoint(const std::string& code);

struct UnicodeWord {
    std::u32string text;
    // Codes of the signs the block does not have, in reading order, each once.
    std::vector<std::string> missing;
};

// One sign as drawn: its code and its box in twips.
struct PlacedSign {
    std::string code;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// leftToRight: signs facing left are read from the left (direction "L"); signs facing right
// from the right.
UnicodeWord unicodeText(const std::vector<PlacedSign>& signs, bool leftToRight);
// The signs of the GlyphTable with the sizes of the pictures now shown for them.
std::vector<PlacedSign> placedSigns(const GlyphTable& glyphs,
                                    const std::array<GlyphImage, GlyphTable::Slots>& images);
// Whether the word on show faces left (a composed word not yet stored faces the way new
// words are stored).
bool wordOnShowFacesLeft(const App& app);
// The word on show (the current word, or a composed one not yet stored).
UnicodeWord unicodeWordText(const App& app);
// Copy as Unicode: the word on show goes to the clipboard as Unicode hieroglyphs. Signs outside
// the block are left out and named in one message; a word with none in it copies nothing.
void copyWordAsUnicode(App& app);

} // namespace nebkaro
