#pragma once
// What the main window shows of the current word, held as data so that every command can be
// run and checked without a window. Positions and sizes are twips (15 per pixel).
#include "core/glyph_table.h"
#include "core/ports.h"

#include <array>
#include <string>
#include <vector>

namespace nebkaro {

struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool contains(int x, int y) const {
        return x >= left && x <= left + width && y >= top && y <= top + height;
    }
};

struct GlyphImage {
    bool visible = false;
    SignPicture picture; // file, natural size in twips, whether it could be read
    int left = 0;
    int top = 0;
};

// One sign painted into the word's picture: the picture at (x, y) twips, natural size.
struct PlacedPicture {
    SignPicture picture;
    int x = 0;
    int y = 0;
};

// The off-screen picture of the word: its size and the signs painted in slot order.
struct WordPicture {
    int width = 64;
    int height = 64;
    std::vector<PlacedPicture> pictures;
};

// The main window's design geometry, in twips; the window only reflects it.
struct MainGeometry {
    static constexpr int MinWidth = 6960;
    Rect displayArea{250, 600, 6460, 2400};
    int progressContainerWidth = 6460;
};

struct WordView {
    std::string gardiner;
    std::string transliteration;
    std::string meaning;
    std::string comment;
    std::string richGardiner;
    std::string wordNumber;
    std::array<GlyphImage, GlyphTable::Slots> mainGlyphPic{};

    MainGeometry geometry;
    int windowWidth = MainGeometry::MinWidth;
    int progressWidth = 0;

    // Extent of the drawn group (largest right and bottom edges).
    int rightEdge = 0;
    double bottomEdge = 0;

    WordPicture picture;

    // One Boolean for all four text boxes: a box's text changed since it last took focus.
    bool textChanged = false;
    // Pictures that could not be read in the last drawing, for the status bar.
    std::vector<std::string> missingPictures;
    // Why the signs of the word on show could not be drawn; empty when they were.
    std::string drawProblem;

    // Switches of the window, not kept between runs: the key pressed before the last one (the
    // window sees keys before its controls), the five Hide check boxes (ChkHideEnriched,
    // ChkHideGardiner, ChkHideTrans, ChkHideMeaning, ChkHideComment), the Show Borders mark.
    int previousKey = 0;
    std::array<bool, 5> hidden{};
    bool showBorders = false;
    // transliteration's text when it last took the focus.
    std::string transLitCopy;
};

} // namespace nebkaro
