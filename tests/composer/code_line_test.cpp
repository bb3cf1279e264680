// A typed line of codes and phonetic values becomes a word: Get lays the signs out in a row,
// Arrange as hieroglyphic groups; OK then writes the layout as it would be stored.
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

using CodeLineTest = ComposerTest;

std::string repeat(const std::string& s, int count, const std::string& sep) {
    std::string out;
    for (int k = 0; k < count; ++k) out += (k ? sep : "") + s;
    return out;
}

// Sizes: N35 600x150, X1 450x225, Z1 150x450, A1 300x600, D21 450x225, G17 450x600,
// M17 225x600, Aa1 375x375. Each message is "text / title", joined by "; ".
TEST_F(CodeLineTest, TheLineIsReadLaidOutAndWrittenAsALayout) {
    const std::string tooMany = repeat("A1", 10, " ") + " zz " + repeat("A1", 12, " ") + " G17";
    const std::string zz = "zz was not found / Phonetic Not Found";
    struct Case {
        const char* how;            // G(et) or A(rrange), then L(eft) or R(ight)
        std::string line, gardiner; // "" when OK has nothing to accept
        const char* layout;         // nullptr: not checked
        std::string messages;
    };
    const Case cases[] = {
        // Get: a row on the middle line, each separator only ends a token.
        {"GL", "A1 G17", "A1-G17", "A1(0,0) - G17(300,0) ", ""},
        {"GL", "A1-G17", "A1-G17", nullptr, ""},
        {"GL", "A1*G17", "A1-G17", nullptr, ""},
        {"GL", "  A1:G17  ", "A1-G17", nullptr, ""},
        // The typed order is the reading order in both directions; low signs are centred.
        {"GR", "A1 G17", "A1-G17", "A1(450,0) - G17(0,0) ", ""},
        {"GR", "G17 X1 A2", "G17-X1-A2", "G17(750,0) - X1(300,187.5) - A2(0,0) ", ""},
        {"GL", "A1 N35 Z1", "A1-N35-Z1", "A1(0,0) - N35(300,225) - Z1(900,75) ", ""},
        {"GL", "Aa1 A1", "Aa1-A1", "Aa1(0,112.5) - A1(375,0) ", ""},
        // Phonetic values through the table; the first equal entry, the monoliteral, wins.
        {"GL", "i-n:t", "M17-N35-X1", "M17(0,0) - N35(225,225) - X1(825,187.5) ", ""},
        {"GL", "nfr x", "Z1-Aa1", nullptr, ""},
        // Unknown tokens are reported and skipped; other characters join their neighbours.
        {"GL", "-A1", "A1", "A1(0,0) ", ""},
        {"GL", "A1--G17", "A1-G17", nullptr, " was not found / Phonetic Not Found"},
        {"GL", "a1 G17", "G17", nullptr, "a1 was not found / Glyph Not Found"},
        {"GL", "z9 G17", "G17", nullptr, "z9 was not found / Glyph Not Found"},
        {"GL", "N35a", "", nullptr, "N35a was not found / Phonetic Not Found"},
        {"GL", "A1,G17", "", "", "A1G17 was not found / Glyph Not Found"},
        {"GL", "A1\xC3\xA9G17", "", "", "A1G17 was not found / Glyph Not Found"},
        {"GL", "nfx A1", "A1", nullptr, "nfx was not found / Phonetic Not Found"},
        {"GL", "p-t", "X1", nullptr, "Q3 was not found / Glyph Not Found"},
        {"GL", "A1 zz nfr", "A1-Z1", nullptr, zz},
        {"GL", "zz", "", "", zz},
        // At most twenty signs on a line.
        {"GL", repeat("G17", 20, " "), repeat("G17", 20, "-"), nullptr, ""},
        {"GL", tooMany, repeat("A1", 20, "-"), nullptr,
         zz + "; One line can place at most 20 signs. A1 and everything after it were not "
              "placed. / Too Many Signs"},
        // Arrange: ":" stacks, "*" sets side by side within a group and binds closer.
        {"AL", "N35:X1", "N35-X1", "N35(0,0) - X1(75,150) ", ""},
        {"AL", "X1*Z1", "X1-Z1", "X1(0,112.5) - Z1(450,0) ", ""},
        {"AL", "X1*Z1:N35", "X1-Z1-N35", "X1(0,112.5) - Z1(450,0) - N35(0,450) ", ""},
        // "-" and blanks separate groups, which stand in a row on the middle line.
        {"AL", "A1-N35:X1", "A1-N35-X1", "A1(0,0) - N35(300,112.5) - X1(375,262.5) ", ""},
        {"AL", "A1 N35:X1", "A1-N35-X1", "A1(0,0) - N35(300,112.5) - X1(375,262.5) ", ""},
        // Facing right, the groups run from the right, and so do signs side by side.
        {"AR", "A1-N35:X1", "A1-N35-X1", "A1(600,0) - N35(0,112.5) - X1(75,262.5) ", ""},
        {"AR", "X1*Z1", "X1-Z1", "X1(150,112.5) - Z1(0,0) ", ""},
        // Around a failed token the strongest separator decides.
        {"AL", "N35:zz-X1", "N35-X1", "N35(0,37.5) - X1(600,0) ", zz},
        {"AL", "N35:zz*X1", "N35-X1", "N35(0,0) - X1(75,150) ", zz},
        // A line without separators between groups is Get's row.
        {"AL", "A1 G17", "A1-G17", "A1(0,0) - G17(300,0) ", ""},
        {"AL", "zz", "", "", zz},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line.substr(0, 40) + " " + c.how);
        app.settings.direction = c.how[1] == 'L' ? Direction::Left : Direction::Right;
        composer.open();
        app.glyphs.clear();
        t.dialogs.prompts.clear();
        composer.codeLine = c.line;
        c.how[0] == 'G' ? composer.getSigns() : composer.arrange();
        std::string messages;
        for (const Prompt& p : t.dialogs.prompts)
            messages += (messages.empty() ? "" : "; ") + p.text + " / " + p.title;
        EXPECT_EQ(messages, c.messages);
        ASSERT_TRUE(composer.accept());
        EXPECT_EQ(app.store.composeAccepted, !c.gardiner.empty());
        EXPECT_EQ(app.composedGardiner, c.gardiner);
        if (c.layout) {
            EXPECT_EQ(app.layoutText, c.layout);
        }
    }
}

// Get and Arrange leave the canvas as it was when there is nothing to place.
TEST_F(CodeLineTest, AnEmptyLineOrOneWithoutSignsMovesNothing) {
    get("A1 G17");
    const int left = composer.images[0].left;
    for (const char* line : {"", "    ", "zz"}) {
        composer.codeLine = line;
        *line == 'z' ? composer.arrange() : composer.getSigns();
        EXPECT_EQ(code(0), "A1") << line;
        EXPECT_EQ(composer.images[0].left, left) << line;
    }
}

TEST_F(CodeLineTest, PicturesComeFromTheLibraryAndDirectionAMissingOneIsAnEmptySquare) {
    app.settings.library = Library::Extended;
    app.settings.direction = Direction::Right;
    t.pictures.sizes.erase("A1");
    get("G17 A1");
    EXPECT_EQ(composer.images[0].picture.file, "/pictures/Extended/Right/G17.GIF");
    EXPECT_FALSE(composer.images[1].picture.ok);
    EXPECT_EQ(composer.images[1].width, 612);
    EXPECT_EQ(composer.status, "Picture not found: /pictures/Extended/Right/A1.GIF");
    get("G17");
    EXPECT_EQ(composer.status, "");
}

} // namespace
} // namespace nebkaro::testing
