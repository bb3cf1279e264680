// The canvas: choosing from the browser, dragging, the Delete key and Delete Last.
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

using CanvasTest = ComposerTest;

TEST_F(CanvasTest, ChoosingFillsTheEmptySlotAndShowsTheNextOne) {
    choose(0, "A1");
    choose(1, "G17");
    choose(2, "D21");
    const Rect home3 = ComposeGeometry::home(3);
    choose(3, "N35");
    EXPECT_EQ(code(3), "N35");
    EXPECT_EQ(app.glyphs[3].entry, 3);
    EXPECT_EQ(composer.firstFreeSlot, 4);
    // The sign keeps the place of the empty slot it was chosen into, at its own size.
    EXPECT_EQ(composer.images[3].left, home3.left);
    EXPECT_EQ(composer.images[3].width, 600);
    EXPECT_EQ(composer.images[3].height, 150);
    EXPECT_TRUE(composer.images[4].visible);
    EXPECT_EQ(composer.images[4].background, SlotBackground::ButtonFace);
    EXPECT_FALSE(composer.images[5].visible);
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: - A1- G17- D21- N35");
}

TEST_F(CanvasTest, ABrowserClosedWithoutAChoiceChangesNothing) {
    browser.choices.push_back(std::nullopt);
    EXPECT_FALSE(composer.chooseSign(0));
    EXPECT_FALSE(app.glyphs[0].used());
    EXPECT_EQ(composer.firstFreeSlot, 0);
    EXPECT_FALSE(composer.images[1].visible);
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: ");
}

TEST_F(CanvasTest, DeleteOnTheMiddleOfThreeSignsMovesTheThirdIntoItsSlot) {
    choose(0, "A1");
    choose(1, "G17");
    choose(2, "D21");
    composer.moveSign(0, 1000, 2000);
    composer.moveSign(1, 1500, 2000);
    composer.moveSign(2, 2100, 2100);
    composer.keyPressed(1, Composer::DeleteKeyCode);

    EXPECT_EQ(code(0), "A1");
    EXPECT_EQ(code(1), "D21");
    EXPECT_EQ(app.glyphs[1].x, 2100);
    EXPECT_EQ(app.glyphs[1].y, 2100);
    EXPECT_FALSE(app.glyphs[2].used());
    // The third sign stands where it stood, now as image 1.
    EXPECT_EQ(composer.images[1].picture.file.filename(), "D21.GIF");
    EXPECT_EQ(composer.images[1].left, 2100);
    // The image after the last sign is the empty slot at home; all later ones are hidden.
    const Rect home2 = ComposeGeometry::home(2);
    EXPECT_TRUE(composer.images[2].visible);
    EXPECT_EQ(composer.images[2].background, SlotBackground::ButtonFace);
    EXPECT_EQ(composer.images[2].left, home2.left);
    EXPECT_EQ(composer.images[2].width, 612);
    EXPECT_FALSE(composer.images[3].visible);
    // The label and Delete Last follow: its first click takes the last sign left.
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: - A1- D21");
    EXPECT_EQ(composer.firstFreeSlot, 2);
    composer.deleteLast();
    EXPECT_FALSE(app.glyphs[1].used());
    EXPECT_EQ(composer.gardinerLabel, "Gardiner: - A1");
}

TEST_F(CanvasTest, DeleteOnImageTwentyEmptiesTheImageButKeepsTheSign) {
    choose(20, "G17");
    composer.moveSign(20, 4000, 3000);
    composer.keyPressed(20, Composer::DeleteKeyCode);
    const CanvasImage& im = composer.images[20];
    const Rect home = ComposeGeometry::home(20);
    EXPECT_FALSE(im.hasPicture);
    EXPECT_TRUE(im.visible);
    EXPECT_EQ(im.background, SlotBackground::ButtonFace);
    EXPECT_EQ(im.width, 612);
    EXPECT_EQ(im.height, 612);
    EXPECT_EQ(im.left, home.left);
    EXPECT_EQ(im.top, home.top);
    EXPECT_EQ(code(20), "G17");
    choose(0, "A1");
    ASSERT_TRUE(composer.accept());
    EXPECT_EQ(app.composedGardiner, "A1-G17") << "OK still takes the sign of slot 20";
}

TEST_F(CanvasTest, DeleteLastAfterChoosingTurnsTheLastSignIntoTheEmptySlot) {
    choose(0, "A1");
    choose(1, "G17");
    composer.moveSign(1, 3000, 3000);
    ASSERT_EQ(composer.firstFreeSlot, 2);
    composer.deleteLast();
    EXPECT_EQ(composer.firstFreeSlot, 1);
    EXPECT_FALSE(composer.images[2].visible);
    EXPECT_EQ(composer.images[2].background, SlotBackground::Workspace);
    const Rect home1 = ComposeGeometry::home(1);
    EXPECT_EQ(composer.images[1].left, home1.left);
    EXPECT_EQ(composer.images[1].width, 612);
    EXPECT_FALSE(composer.images[1].hasPicture);
    EXPECT_FALSE(app.glyphs[1].used());
    EXPECT_EQ(code(0), "A1");
}

TEST_F(CanvasTest, DeleteLastAfterGetHidesTheLastSignAndEmptiesTheOneBefore) {
    get("A1 G17 D21");
    ASSERT_EQ(composer.firstFreeSlot, 2);
    composer.deleteLast();
    EXPECT_EQ(composer.firstFreeSlot, 1);
    EXPECT_FALSE(composer.images[2].visible);
    EXPECT_EQ(code(2), "D21") << "the hidden sign keeps its row";
    EXPECT_FALSE(app.glyphs[1].used());
    EXPECT_FALSE(composer.images[1].hasPicture);
}

TEST_F(CanvasTest, DeleteLastIsRefusedAtOneAndBelow) {
    for (const char* line : {"A1 G17", "A1", "zz"}) {
        composer.open();
        app.glyphs.clear();
        get(line);
        const auto glyphs = app.glyphs;
        const int last = composer.firstFreeSlot;
        composer.deleteLast();
        EXPECT_EQ(composer.firstFreeSlot, last) << line;
        for (int k = 0; k < GlyphTable::Slots; ++k) EXPECT_EQ(app.glyphs[k].code, glyphs[k].code);
        EXPECT_TRUE(composer.images[0].visible) << line;
    }
    composer.open();
    composer.deleteLast(); // a fresh canvas: firstFreeSlot 0
    EXPECT_EQ(composer.firstFreeSlot, 0);
    EXPECT_TRUE(composer.images[0].visible);
}

} // namespace
} // namespace nebkaro::testing
