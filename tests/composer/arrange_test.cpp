// Arrange: the typed line laid out as hieroglyphic groups.
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

struct ArrangeTest : ComposerTest {
    // Arrange, then OK: the word as it would be stored.
    std::string arranged(const std::string& line, bool left = true) {
        app.settings.direction = left ? Direction::Left : Direction::Right;
        composer.Load();
        composer.txtMdC = line;
        composer.Arrange();
        if (!composer.OK()) return "<not accepted>";
        return app.layoutText;
    }
};

TEST_F(ArrangeTest, OperatorsStackJoinAndSeparate) {
    struct Case {
        const char* line;
        bool left;
        const char* layout;
    };
    // Sizes: N35 600x150, X1 450x225, Z1 150x450, A1 300x600, D21 450x225.
    const Case cases[] = {
        // ":" stacks, each sign centred over the other.
        {"N35:X1", true, "N35(0,0) - X1(75,150) "},
        // "*" sets signs side by side within the group, centred on each other.
        {"X1*Z1", true, "X1(0,112.5) - Z1(450,0) "},
        // "*" binds closer than ":": a pair above a sign.
        {"X1*Z1:N35", true, "X1(0,112.5) - Z1(450,0) - N35(0,450) "},
        // "-" and blanks separate groups, which stand in a row on the middle line.
        {"A1-N35:X1", true, "A1(0,0) - N35(300,112.5) - X1(375,262.5) "},
        {"A1 N35:X1", true, "A1(0,0) - N35(300,112.5) - X1(375,262.5) "},
        // Facing right, the groups run from the right, and so do signs side by side.
        {"A1-N35:X1", false, "A1(600,0) - N35(0,112.5) - X1(75,262.5) "},
        {"X1*Z1", false, "X1(150,112.5) - Z1(0,0) "},
    };
    for (const auto& c : cases) EXPECT_EQ(arranged(c.line, c.left), c.layout) << c.line;
}

TEST_F(ArrangeTest, TheStrongestSeparatorAroundAFailedTokenDecides) {
    // zz is no sign: between N35 and X1 stand ":" and "-", so they are two groups.
    EXPECT_EQ(arranged("N35:zz-X1"), "N35(0,37.5) - X1(600,0) ");
    EXPECT_EQ(arranged("N35:zz*X1"), "N35(0,0) - X1(75,150) ");
    EXPECT_EQ(t.dialogs.messages().size(), 2u);
}

TEST_F(ArrangeTest, ReadsTheLineLikeGet) {
    composer.txtMdC = "A1 G17";
    composer.Arrange();
    EXPECT_EQ(composer.LastGlyph, 1);
    EXPECT_EQ(code(0), "A1");
    EXPECT_EQ(code(1), "G17");
    EXPECT_TRUE(composer.GlyphPic[2].visible);
    EXPECT_EQ(composer.Debuglbl, "-");
    // A line without separators between groups is Get's row.
    const auto byArrange = composer.GlyphPic;
    get("A1 G17");
    for (int k = 0; k < 2; ++k) {
        EXPECT_EQ(composer.GlyphPic[static_cast<std::size_t>(k)].left,
                  byArrange[static_cast<std::size_t>(k)].left);
        EXPECT_EQ(composer.GlyphPic[static_cast<std::size_t>(k)].top,
                  byArrange[static_cast<std::size_t>(k)].top);
    }
}

TEST_F(ArrangeTest, ALineWithoutSignsMovesNothing) {
    const double left = composer.GlyphPic[0].left;
    composer.txtMdC = "zz";
    composer.Arrange();
    EXPECT_EQ(composer.LastGlyph, -1);
    EXPECT_EQ(composer.GlyphPic[0].left, left);
}

} // namespace
} // namespace nebkaro::testing
