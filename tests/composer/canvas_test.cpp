// The canvas: choosing from the browser, dragging, the Delete key and Delete Last.
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
    EXPECT_EQ(app.glyphs[3].entry, 3);
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

TEST_F(CanvasTest, DeleteOnImageTwentyEmptiesTheImageButKeepsTheSign) {
    choose(20, "G17");
    composer.moveSign(20, 4000, 3000);
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
        composer.open();
        app.glyphs.clear();
        if (*line) get(line); // "": a fresh canvas, firstFreeSlot 0
        const int last = composer.firstFreeSlot;
        composer.deleteLast();
        EXPECT_EQ(composer.firstFreeSlot, last) << line;
        EXPECT_EQ(code(0), *line == 'A' ? "A1" : "<free>") << line;
        EXPECT_EQ(code(1), std::string(line) == "A1 G17" ? "G17" : "<free>") << line;
        EXPECT_TRUE(composer.images[0].visible) << line;
    }
}

} // namespace
} // namespace nebkaro::testing
