// Get: a typed line becomes a row of signs on the canvas.
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

// The frame's centre: 250 + 6460 / 2 across, 1260 + 5000 / 2 down.
constexpr double CentreX = 3480;
constexpr double CentreY = 3760;

using GetTest = ComposerTest;

TEST_F(GetTest, EverySeparatorOnlyEndsAToken) {
    for (const char* line : {"A1 G17", "A1-G17", "A1*G17", "A1:G17", "  A1 G17  "}) {
        composer.Load();
        get(line);
        EXPECT_EQ(code(0), "A1") << line;
        EXPECT_EQ(code(1), "G17") << line;
        EXPECT_EQ(app.glyphs[0].entry, 4) << line;
        EXPECT_EQ(app.glyphs[1].entry, 8) << line;
        EXPECT_EQ(composer.LastGlyph, 1) << line;
        // Side by side, touching, the row centred on the frame: 300 + 450 wide.
        EXPECT_DOUBLE_EQ(app.glyphs[0].x, CentreX - 375) << line;
        EXPECT_DOUBLE_EQ(app.glyphs[1].x, CentreX - 75) << line;
        EXPECT_DOUBLE_EQ(app.glyphs[0].y, CentreY - 300) << line;
        EXPECT_DOUBLE_EQ(app.glyphs[1].y, CentreY - 300) << line;
        EXPECT_DOUBLE_EQ(composer.GlyphPic[1].left, app.glyphs[1].x) << line;
        EXPECT_TRUE(t.dialogs.prompts.empty()) << line;
    }
}

TEST_F(GetTest, SignsOfDifferentHeightsShareTheFramesMiddleLine) {
    get("A1 N35 Z1");
    ASSERT_EQ(composer.LastGlyph, 2);
    for (int k = 0; k <= 2; ++k) {
        const CanvasImage& im = composer.GlyphPic[static_cast<std::size_t>(k)];
        EXPECT_DOUBLE_EQ(im.top + im.height / 2.0, CentreY) << k;
        EXPECT_EQ(im.width, t.pictures.sizes[code(k)].first) << "natural size";
    }
    EXPECT_DOUBLE_EQ(composer.GlyphPic[0].left, CentreX - 525);
    EXPECT_DOUBLE_EQ(composer.GlyphPic[2].left + 150, CentreX + 525);
}

TEST_F(GetTest, UnknownTokensAreReportedAndSkipped) {
    struct Case {
        const char* line;
        std::vector<std::string> placed;
        std::vector<std::pair<std::string, std::string>> messages; // text, title
    };
    const Case cases[] = {
        {"-A1", {"A1"}, {}},
        {"A1--G17", {"A1", "G17"}, {{" was not found", "Phonetic Not Found"}}},
        {"n", {"N35"}, {}},
        {"a1 G17", {"G17"}, {{"a1 was not found", "Glyph Not Found"}}},
        {"A1,G17", {}, {{"A1G17 was not found", "Glyph Not Found"}}},
        {"nfx A1", {"A1"}, {{"nfx was not found", "Phonetic Not Found"}}},
        {"p-t", {"X1"}, {{"Q3 was not found", "Glyph Not Found"}}},
        {"A1 zz nfr", {"A1", "Z1"}, {{"zz was not found", "Phonetic Not Found"}}},
    };
    for (const auto& c : cases) {
        composer.Load();
        app.glyphs.clear();
        t.dialogs.prompts.clear();
        get(c.line);
        for (std::size_t k = 0; k < c.placed.size(); ++k)
            EXPECT_EQ(code(static_cast<int>(k)), c.placed[k]) << c.line;
        EXPECT_FALSE(app.glyphs[static_cast<int>(c.placed.size())].used()) << c.line;
        EXPECT_EQ(composer.LastGlyph, static_cast<int>(c.placed.size()) - 1) << c.line;
        ASSERT_EQ(t.dialogs.prompts.size(), c.messages.size()) << c.line;
        for (std::size_t k = 0; k < c.messages.size(); ++k) {
            EXPECT_EQ(t.dialogs.prompts[k].text, c.messages[k].first) << c.line;
            EXPECT_EQ(t.dialogs.prompts[k].title, c.messages[k].second) << c.line;
            EXPECT_EQ(t.dialogs.prompts[k].icon, Icon::Exclamation) << c.line;
            EXPECT_EQ(t.dialogs.prompts[k].buttons, Buttons::OK) << c.line;
        }
    }
}

TEST_F(GetTest, AnEmptyOrBlankLineChangesNothing) {
    get("A1 G17");
    const GlyphTable before = app.glyphs;
    const auto images = composer.GlyphPic;
    for (const char* line : {"", "    "}) {
        get(line);
        for (int k = 0; k < GlyphTable::Slots; ++k) {
            EXPECT_EQ(app.glyphs[k].code, before[k].code) << line;
            EXPECT_EQ(app.glyphs[k].x, before[k].x) << line;
        }
        EXPECT_EQ(composer.GlyphPic[0].left, images[0].left);
        EXPECT_EQ(composer.LastGlyph, 1);
    }
}

TEST_F(GetTest, ALineWhoseEveryTokenFailsStillCentresImageZero) {
    get("zz");
    EXPECT_EQ(composer.LastGlyph, -1);
    EXPECT_FALSE(app.glyphs[0].used());
    EXPECT_DOUBLE_EQ(composer.GlyphPic[0].left, CentreX);
    EXPECT_DOUBLE_EQ(composer.GlyphPic[0].top, CentreY - 306);
    EXPECT_DOUBLE_EQ(app.glyphs[0].x, CentreX);
}

TEST_F(GetTest, LaterSlotsOfAnEarlierGetAreKept) {
    get("A1 G17 D21");
    get("N35");
    EXPECT_EQ(code(0), "N35");
    EXPECT_EQ(code(1), "G17");
    EXPECT_EQ(code(2), "D21");
    EXPECT_EQ(composer.LastGlyph, 0);
    // The image after the new last sign is the next slot; it still shows its sign.
    EXPECT_TRUE(composer.GlyphPic[1].visible);
    EXPECT_EQ(composer.GlyphPic[1].picture.file.filename(), "G17.GIF");
}

TEST_F(GetTest, PicturesComeFromTheChosenLibraryAndDirection) {
    struct Case {
        bool basic, left;
        const char* file;
    };
    const Case cases[] = {{true, true, "/pictures/Basic/Left/G17.GIF"},
                          {false, true, "/pictures/Extended/Left/G17.GIF"},
                          {false, false, "/pictures/Extended/Right/G17.GIF"}};
    for (const auto& c : cases) {
        app.settings.library = c.basic ? Library::Basic : Library::Extended;
        app.settings.direction = c.left ? Direction::Left : Direction::Right;
        get("G17");
        EXPECT_EQ(composer.GlyphPic[0].picture.file, c.file);
    }
}

TEST_F(GetTest, AMissingPictureIsAnEmptySquareNamedInTheStatusLine) {
    t.pictures.sizes.erase("G17");
    get("A1 G17");
    EXPECT_EQ(code(1), "G17");
    EXPECT_FALSE(composer.GlyphPic[1].picture.ok);
    EXPECT_EQ(composer.GlyphPic[1].width, 612);
    EXPECT_EQ(composer.status, "Picture not found: /pictures/Basic/Left/G17.GIF");
    get("A1");
    EXPECT_EQ(composer.status, "");
}

TEST_F(GetTest, ALineOfMoreThanTwentySignsPlacesTwentyAndSaysSo) {
    std::string line;
    for (int k = 0; k < 23; ++k) line += k == 10 ? "zz " : "A1 ";
    line += "G17";
    get(line);
    EXPECT_EQ(composer.LastGlyph, 19);
    for (int k = 0; k < 20; ++k) EXPECT_EQ(code(k), "A1") << k;
    EXPECT_FALSE(app.glyphs[20].used());
    EXPECT_TRUE(composer.GlyphPic[20].visible) << "the next empty slot";
    const auto messages = t.dialogs.messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], "zz was not found");
    EXPECT_EQ(messages[1],
              "One line can place at most 20 signs. A1 and everything after it were not placed.");
    EXPECT_EQ(t.dialogs.prompts[1].title, "Too Many Signs");
}

TEST_F(GetTest, ExactlyTwentySignsNeedNoMessage) {
    std::string line;
    for (int k = 0; k < 20; ++k) line += "G17 ";
    get(line);
    EXPECT_EQ(composer.LastGlyph, 19);
    EXPECT_TRUE(t.dialogs.prompts.empty());
}

TEST_F(GetTest, TheDiagnosticLineShowsTheSeparators) {
    const std::pair<const char*, const char*> cases[] = {
        {"A1 G17", "-"}, {"A1*G17 D21", "*-"}, {"A1:G17", "True"}, {"A1*G17:D21", "False"}};
    for (const auto& [line, shown] : cases) {
        get(line);
        EXPECT_EQ(composer.Debuglbl, shown) << line;
    }
}

} // namespace
} // namespace nebkaro::testing
