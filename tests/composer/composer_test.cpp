// The composer window: typing a line of signs, choosing from the browser, the Delete key and
// Delete Last, Load and OK.
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

struct CanvasTest : ComposerTest {
    // The image of `slot` is the empty slot at its home, the one a sign is chosen into.
    void expectEmptySlot(int slot) {
        const CanvasImage& im = composer.images[slot];
        EXPECT_TRUE(im.visible && !im.hasPicture) << slot;
        EXPECT_EQ(im.background, SlotBackground::ButtonFace) << slot;
        EXPECT_EQ(im.left, ComposeGeometry::home(slot).left) << slot;
        EXPECT_EQ(im.top, ComposeGeometry::home(slot).top) << slot;
        EXPECT_EQ(im.width, 612) << slot;
    }
};

TEST_F(CanvasTest, ChoosingFillsTheEmptySlotAndShowsTheNextOne) {
    browser.choices.push_back(std::nullopt); // closed without a choice: nothing changes
    EXPECT_FALSE(composer.chooseSign(0));
    EXPECT_FALSE(composer.images[1].visible);
    for (const char* c : {"A1", "G17", "D21", "N35"}) choose(composer.firstFreeSlot, c);
    // The sign keeps the place of the empty slot it was chosen into, at its own size.
    EXPECT_EQ(composer.images[3].left, ComposeGeometry::home(3).left);
    EXPECT_EQ(composer.images[3].width, 600);
    EXPECT_EQ(composer.images[3].height, 150);
    expectEmptySlot(4);
    EXPECT_FALSE(composer.images[5].visible);
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: - A1- G17- D21- N35");
}

TEST_F(CanvasTest, DeleteOnTheMiddleOfThreeSignsMovesTheThirdIntoItsSlot) {
    for (const char* c : {"A1", "G17", "D21"}) choose(composer.firstFreeSlot, c);
    composer.moveSign(2, 2100, 2100);
    composer.keyPressed(1, Composer::DeleteKeyCode);
    EXPECT_EQ(code(1), "D21");
    EXPECT_EQ(app.glyphs[1].y, 2100);
    EXPECT_FALSE(app.glyphs[2].used());
    // The third sign stands where it stood, now as image 1; the slot after it is empty.
    EXPECT_EQ(composer.images[1].picture.file.filename(), "D21.GIF");
    EXPECT_EQ(composer.images[1].left, 2100);
    expectEmptySlot(2);
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: - A1- D21");
    composer.deleteLast(); // its first click takes the last sign left
    EXPECT_FALSE(app.glyphs[1].used());
}

// The gap before slot 20 also ends OK's reading-order sort: G17, left of A1, still comes last.
TEST_F(CanvasTest, DeleteOnImageTwentyEmptiesTheImageButKeepsTheSign) {
    choose(20, "G17");
    composer.moveSign(20, -1000, 3000);
    composer.keyPressed(20, Composer::DeleteKeyCode);
    expectEmptySlot(20);
    choose(0, "A1");
    ASSERT_TRUE(composer.accept());
    EXPECT_EQ(app.composedGardiner, "A1-G17") << "OK still takes the sign of slot 20";
}

TEST_F(CanvasTest, DeleteLastEmptiesAChosenSignButOnlyHidesOnePlacedByGet) {
    choose(0, "A1");
    choose(1, "G17");
    composer.moveSign(1, 3000, 3000);
    composer.deleteLast();
    EXPECT_EQ(composer.firstFreeSlot, 1);
    expectEmptySlot(1);
    EXPECT_FALSE(composer.images[2].visible);
    EXPECT_FALSE(app.glyphs[1].used());

    get("A1 G17 D21");
    composer.deleteLast();
    EXPECT_EQ(composer.firstFreeSlot, 1);
    EXPECT_FALSE(composer.images[2].visible);
    EXPECT_EQ(code(2), "D21") << "the hidden sign keeps its row";
    EXPECT_FALSE(app.glyphs[1].used());
}

TEST_F(CanvasTest, DeleteLastIsRefusedAtOneAndBelow) {
    for (const char* line : {"A1 G17", "A1", "zz", ""}) {
        composer.open();      // for a new word: an empty table
        if (*line) get(line); // "": a fresh canvas, firstFreeSlot 0
        const int last = composer.firstFreeSlot;
        composer.deleteLast();
        EXPECT_EQ(composer.firstFreeSlot, last) << line;
        EXPECT_EQ(code(0), *line == 'A' ? "A1" : "<free>") << line;
        EXPECT_EQ(code(1), std::string(line) == "A1 G17" ? "G17" : "<free>") << line;
        EXPECT_TRUE(composer.images[0].visible) << line;
    }
}

using ComposerWindowTest = ComposerTest;

TEST_F(ComposerWindowTest, LoadForAnEditedWordTakesOverTheMainWindowsSigns) {
    app.store.newWordPending = false;
    app.store.editPending = true;
    app.glyphs.clear();
    const char* codes[] = {"A1", "G17", "N35"};
    for (int k = 0; k < 3; ++k) {
        app.glyphs[k].code = codes[k];
        GlyphImage& main = app.view.mainGlyphPic[static_cast<std::size_t>(k)];
        main.visible = true;
        main.picture = t.pictures.picture(Library::Basic, Direction::Left, codes[k]);
        main.left = 3000 + 400 * k;
        main.top = 1400 + 10 * k;
    }
    app.view.gardiner = "A1-G17-N35";
    composer.open();
    EXPECT_EQ(composer.firstFreeSlot, 3);
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: A1-G17-N35");
    // Edited without a move, the word comes back as it was drawn, each sign at its place.
    ASSERT_TRUE(composer.accept());
    EXPECT_EQ(app.layoutText, "A1(0,0) - G17(400,10) - N35(800,20) ");
}

// A typed line of codes and phonetic values becomes a word: Get lays the signs out in a row,
// Arrange as hieroglyphic groups; OK then writes the layout as it would be stored.
using CodeLineTest = ComposerTest;

std::string repeat(const std::string& s, int count, const std::string& sep) {
    std::string out;
    for (int k = 0; k < count; ++k) out += (k ? sep : "") + s;
    return out;
}

// Sizes: N35 600x150, X1 450x225, Z1 150x450, A1 300x600, D21 450x225, G17 450x600,
// M17 225x600, Aa1 375x375. Each message is "text / title", joined by "; ". The last rows drag
// the signs Get placed before OK sorts them into reading order.
TEST_F(CodeLineTest, TheLineIsReadLaidOutAndWrittenAsALayout) {
    using At = std::vector<std::pair<double, double>>;
    const At a1g17 = {{1200, 800}, {1500, 760}}, n35a1 = {{1000, 1500}, {1000, 1000}};
    const std::string tooMany = repeat("A1", 10, " ") + " zz " + repeat("A1", 12, " ") + " G17";
    const std::string zz = "zz was not found / Phonetic Not Found";
    struct Case {
        const char* how;            // G(et) or A(rrange), then L(eft) or R(ight)
        std::string line, gardiner; // "" when OK has nothing to accept
        const char* layout;         // nullptr: not checked
        std::string messages;
        At at = {}; // where each sign is dragged before OK
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
        // OK: each sign at its place in the group, in reading order.
        {"GL", "A1 G17", "A1-G17", "A1(0,40) - G17(300,0) ", "", a1g17},
        {"GR", "A1 G17", "G17-A1", "G17(300,0) - A1(0,40) ", "", a1g17},
        // One column needs each sign to start before 92 % of the other's right edge: N35 is
        // 600 wide, A1 300, so 552 and 276 from their lefts.
        {"GL", "N35 A1", "N35-A1", nullptr, "", {{1000, 1500}, {1552, 1000}}},
        {"GL", "N35 A1", "A1-N35", nullptr, "", {{1000, 1500}, {1551, 1000}}},
        {"GL", "N35 A1", "A1-N35", nullptr, "", n35a1},
        {"GL", "N35 A1", "A1-N35", nullptr, "", {{1000, 1000}, {724, 1500}}},
        {"GL", "N35 A1", "N35-A1", nullptr, "", {{1000, 1000}, {725, 1500}}},
        // A sign under another follows it in both directions.
        {"GL", "X1 N35 A1", "N35-X1-A1", nullptr, "", {{1500, 1450}, {1400, 1000}, {2100, 1000}}},
        {"GR", "X1 N35 A1", "A1-N35-X1", nullptr, "", {{1500, 1450}, {1400, 1000}, {2100, 1000}}},
        // Same top: ",0)" after both; the lower edges play no part.
        {"GL", "A1 N35", "A1-N35", "A1(0,0) - N35(300,0) ", "", {{900, 500}, {1200, 500}}},
        // The minima start at 5000 and 10000: a group beyond them keeps its offset.
        {"GL", "A1 G17", "A1-G17", "A1(300,40) - G17(600,0) ", "", {{5300, 800}, {5600, 760}}},
        {"GL",
         "A1 G17",
         "A1-G17",
         "A1(1000,500) - G17(1300,400) ",
         "",
         {{6000, 10500}, {6300, 10400}}},
        // Negative places are kept as they are.
        {"GL", "A1 G17", "A1-G17", "A1(0,40) - G17(300,0) ", "", {{-600, 800}, {-300, 760}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line.substr(0, 40) + " " + c.how);
        app.settings.direction = c.how[1] == 'L' ? Direction::Left : Direction::Right;
        composer.open(); // for a new word: an empty table
        t.dialogs.prompts.clear();
        composer.codeLine = c.line;
        c.how[0] == 'G' ? composer.getSigns() : composer.arrange();
        for (std::size_t k = 0; k < c.at.size(); ++k)
            composer.moveSign(static_cast<int>(k), c.at[k].first, c.at[k].second);
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
        if (!c.gardiner.empty()) { // the label and the images follow the signs through the sort
            EXPECT_EQ(composer.gardinerLabel, c.gardiner);
            EXPECT_EQ(composer.images[0].picture.file.filename(), code(0) + ".GIF");
        }
    }
    EXPECT_EQ(app.view.rightEdge, 750); // the extent of the last group, A1 and G17
    EXPECT_EQ(app.view.bottomEdge, 640);
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
