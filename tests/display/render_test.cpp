#include "core/errors.h"
#include "display/image_export.h"
#include "display/layout.h"
#include "display/render.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <optional>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {
struct RenderTest : ::testing::Test {
    TestApp t;
    int stores = 0;
    void SetUp() override {
        t.pictures.sizes = {{"A1", {300, 540}}, {"G17", {420, 600}}, {"N35", {600, 90}}};
        t.app.storeWord = [this](App& a) {
            ++stores;
            a.store.setField(a.store.currentIndex, FieldLayout, a.view.richGardiner);
        };
    }
    void word(int i, const std::string& dir, const std::string& layout,
              const std::string& lib = "B") {
        t.app.store.setRow(i, {dir, lib, layout, "G", "t", "m", "c"});
        t.app.store.lastIndex = std::max(t.app.store.lastIndex, i);
    }
};
} // namespace

TEST_F(RenderTest, CentresTheGroupInTheDisplayArea) {
    word(0, "L", "A1(0,60) - G17(300,0) ");
    renderWord(t.app);
    const WordView& v = t.app.view;
    EXPECT_EQ(v.rightEdge, 720);
    EXPECT_EQ(v.bottomEdge, 600);
    const Rect a = v.geometry.displayArea;
    const int cx = a.left + a.width / 2, cy = a.top + a.height / 2;
    EXPECT_EQ(v.mainGlyphPic[0].left, cx - 360);
    EXPECT_EQ(v.mainGlyphPic[0].top, cy - 300 + 60);
    EXPECT_EQ(v.mainGlyphPic[1].left, cx - 360 + 300);
    EXPECT_TRUE(v.mainGlyphPic[1].visible);
    EXPECT_FALSE(v.mainGlyphPic[2].visible);
    EXPECT_EQ(v.mainGlyphPic[0].picture.file, "/pictures/Basic/Left/A1.GIF");
    // Anything but "L" and "B" is the other direction and library.
    word(0, "x", "A1(0,0) ", "b");
    renderWord(t.app);
    EXPECT_EQ(v.mainGlyphPic[0].picture.file, "/pictures/Extended/Right/A1.GIF");
    EXPECT_EQ(v.meaning, "m");
    EXPECT_EQ(v.wordNumber, "0");
}

// Without a word to show (the only word deleted, a header-only file) the view is empty:
// another word left on show would be taken for the word commands act on.
TEST_F(RenderTest, NothingToShowEmptiesTheView) {
    // The only word deleted; a header-only file.
    for (const auto& [last, current] : {std::pair{-1, -1}, std::pair{-1, 0}}) {
        word(0, "L", "A1(0,0) ");
        t.app.store.currentIndex = 0;
        renderWord(t.app);
        t.app.store.lastIndex = last;
        t.app.store.currentIndex = current;
        renderWord(t.app);
        EXPECT_EQ(t.app.view.meaning, "");
        EXPECT_EQ(t.app.view.richGardiner, "");
        EXPECT_FALSE(t.app.view.mainGlyphPic[0].visible);
    }
}

// A layout that cannot be drawn leaves an empty picture under the word's own texts, and the
// status bar says why; the previous word's signs and texts are never left on show.
TEST_F(RenderTest, AWordThatCannotBeDrawnShowsItsOwnTexts) {
    for (const char* layout : {"A1(0,0", "A1(0 0) ", "A1(x,0) ", "A1(40000,0) "}) {
        SCOPED_TRACE(layout);
        word(0, "L", "A1(0,0) ");
        t.app.store.lastIndex = 1;
        t.app.store.currentIndex = 0;
        renderWord(t.app);
        word(1, "L", layout);
        t.app.store.currentIndex = 1;
        renderWord(t.app);
        EXPECT_EQ(t.app.view.richGardiner, layout);
        EXPECT_EQ(t.app.view.wordNumber, "1");
        EXPECT_FALSE(t.app.view.mainGlyphPic[0].visible);
        EXPECT_NE(t.app.view.drawProblem.find("word 1"), std::string::npos);
    }
}

TEST_F(RenderTest, MissingPicturesAreEmptySquaresAndNamed) {
    word(0, "L", "A1(0,0) - Q99(300,0) ");
    renderWord(t.app);
    EXPECT_TRUE(t.app.view.mainGlyphPic[1].visible);
    EXPECT_FALSE(t.app.view.mainGlyphPic[1].picture.ok);
    EXPECT_EQ(t.app.view.mainGlyphPic[1].picture.width, 612);
    ASSERT_EQ(t.app.view.missingPictures.size(), 1u);
    EXPECT_EQ(t.app.view.missingPictures[0], "/pictures/Basic/Left/Q99.GIF");
}

TEST_F(RenderTest, WordPictureHasA32TwipMarginAndSlotOrder) {
    word(0, "L", "A1(0,60) - G17(300,0) ");
    renderWord(t.app);
    const WordPicture& p = t.app.view.picture;
    EXPECT_EQ(p.width, 720 + 64);
    EXPECT_EQ(p.height, 600 + 64);
    ASSERT_EQ(p.pictures.size(), 2u);
    EXPECT_EQ(p.pictures[0].x, 32);
    EXPECT_EQ(p.pictures[0].y, 92);
    EXPECT_EQ(p.pictures[1].x, 332);
    word(0, "L", "");
    renderWord(t.app);
    EXPECT_EQ(t.app.view.picture.width, 64);
    EXPECT_EQ(t.app.view.picture.height, 64);
    EXPECT_TRUE(t.app.view.picture.pictures.empty());
}

TEST_F(RenderTest, SetDirectionMirrorsAndStores) {
    // A1 is 300 wide, G17 420: R = Int(300 + 420/2) = 510 after G17 (300+420 > 300).
    word(0, "L", "A1(0,60) - G17(300,0) ");
    renderWord(t.app);
    setDirection(t.app, FlipMode::Invert);
    EXPECT_EQ(t.app.store.field(0, FieldDirection), "R");
    // X: 510-(0+300)=210, 510-(300+420)=-210 -> m=-210 -> 420, 0
    EXPECT_EQ(t.app.store.field(0, FieldLayout), "A1( 420, 60) - G17( 0, 0) ");
    EXPECT_EQ(stores, 1);
    // Flipping back returns to "L" but not necessarily to the first X values.
    renderWord(t.app);
    setDirection(t.app, FlipMode::Invert);
    EXPECT_EQ(t.app.store.field(0, FieldDirection), "L");
    EXPECT_EQ(t.app.store.field(0, FieldLayout), "A1( 0, 60) - G17( 300, 0) ");
}

TEST_F(RenderTest, SetDirectionTurnsOnlyAWordFacingTheOtherWay) {
    const struct {
        const char* from;
        FlipMode mode;
        const char* to;
    } cases[] = {
        {"L", FlipMode::Left, "L"},  {"R", FlipMode::Right, "R"},  {"R", FlipMode::Left, "L"},
        {"L", FlipMode::Right, "R"}, {"L", FlipMode::Invert, "R"}, {"R", FlipMode::Invert, "L"},
    };
    int turned = 0;
    for (const auto& c : cases) {
        word(0, c.from, "A1(0,0) ");
        renderWord(t.app);
        setDirection(t.app, c.mode);
        EXPECT_EQ(t.app.store.field(0, FieldDirection), c.to) << c.from;
        if (std::string(c.from) != c.to)
            ++turned;
        else
            EXPECT_EQ(t.app.store.field(0, FieldLayout), "A1(0,0) ") << c.from;
    }
    EXPECT_EQ(stores, turned);
}

TEST_F(RenderTest, FlippingAWordWithoutSignsFails) {
    word(0, "L", "");
    renderWord(t.app);
    EXPECT_THROW(setDirection(t.app, FlipMode::Invert), RunError);
}

TEST(ImageExport, NameFolderAndFormatOfASavedPicture) {
    const std::pair<const char*, const char*> names[] = {{"A1:D21*X1", "A1-D21-X1"},
                                                         {"::**", "----"},
                                                         {"N35 - D21", "N35 - D21"},
                                                         {"A1/B2?", "A1/B2?"}};
    for (auto [gardiner, name] : names) EXPECT_EQ(proposedImageName(gardiner), name);
    TestApp t;
    t.app.home = "/prog";
    t.app.view.gardiner = "G17*X1";
    EXPECT_EQ(proposedImagePath(t.app), std::filesystem::path("/prog/Images/G17-X1"));
    const std::pair<const char*, ImageFormat> formats[] = {
        {"a.BMP", ImageFormat::Bmp}, {"a.PnG", ImageFormat::Png}, {"a.svg", ImageFormat::Svg},
        {"a", ImageFormat::Bmp},     {"a.gif", ImageFormat::Bmp}, {"dir.png/a", ImageFormat::Bmp},
    };
    for (auto [file, format] : formats) EXPECT_EQ(imageFormatFor(file), format) << file;
}

TEST(ImageExport, SaveImageSaysInTheStatusBarHowItWent) {
    struct StatusWindows : WindowHost {
        std::vector<std::string> shown;
        void showStatus(const std::string& text) override { shown.push_back(text); }
    };
    const struct {
        std::optional<std::filesystem::path> chosen;
        bool written;
        const char* status; // nullptr: nothing written, nothing said
    } cases[] = {
        {std::nullopt, true, nullptr},
        {std::filesystem::path(), true, nullptr},
        {"/pics/a.PNG", true, "Picture saved: /pics/a.PNG"},
        {"/pics/a.svg", false, "The picture could not be saved: /pics/a.svg"},
    };
    for (const auto& c : cases) {
        TestApp t;
        StatusWindows windows;
        t.app.windows = &windows;
        t.dialogs.files.push_back(c.chosen);
        std::vector<ImageFormat> writes;
        saveWordImage(t.app, [&](const std::filesystem::path& file, ImageFormat format) {
            EXPECT_EQ(file, *c.chosen);
            writes.push_back(format);
            return c.written;
        });
        EXPECT_EQ(windows.shown.size(), c.status ? 1u : 0u);
        if (c.status) {
            EXPECT_EQ(windows.shown.front(), c.status);
            EXPECT_EQ(writes, std::vector<ImageFormat>{imageFormatFor(*c.chosen)});
        }
    }
}
