#include "display/image_export.h"
#include "display/render.h"
#include "display/word_view_events.h"
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

// The signs come from the word's library and direction folders, anything but "L" and "B"
// being the other ones; a missing picture is an empty square, named for the status bar.
TEST_F(RenderTest, PicturesComeFromTheWordsFoldersAndMissingOnesAreNamed) {
    word(0, "x", "A1(0,0) - Q99(300,0) ", "b");
    renderWord(t.app);
    const WordView& v = t.app.view;
    EXPECT_EQ(v.mainGlyphPic[0].picture.file, "/pictures/Extended/Right/A1.GIF");
    EXPECT_TRUE(v.mainGlyphPic[1].visible);
    EXPECT_FALSE(v.mainGlyphPic[1].picture.ok);
    EXPECT_EQ(v.mainGlyphPic[1].picture.width, 612);
    EXPECT_EQ(v.missingPictures, std::vector<std::string>{"/pictures/Extended/Right/Q99.GIF"});
}

// Without a word to show (the only word deleted, a header-only file), or with one whose layout
// cannot be drawn, the previous word's signs and texts are never left on show: they would be
// taken for the word commands act on. A broken layout shows the word's own texts and says why.
TEST_F(RenderTest, NoWordOrABrokenLayoutLeavesNothingOfThePreviousWord) {
    struct Case {
        int last, current;
        const char* layout; // of word 1
    } cases[] = {{-1, -1, ""},       {-1, 0, ""},        {1, 1, "A1(0,0"},
                 {1, 1, "A1(0 0) "}, {1, 1, "A1(x,0) "}, {1, 1, "A1(40000,0) "}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.layout);
        word(0, "L", "A1(0,0) ");
        word(1, "L", c.layout);
        t.app.store.currentIndex = 0;
        renderWord(t.app);
        t.app.store.lastIndex = c.last;
        t.app.store.currentIndex = c.current;
        renderWord(t.app);
        const WordView& v = t.app.view;
        EXPECT_FALSE(v.mainGlyphPic[0].visible);
        EXPECT_EQ(v.richGardiner, c.layout);
        EXPECT_EQ(v.meaning, c.last < 0 ? "" : "m");
        if (c.last < 0) continue;
        EXPECT_EQ(v.wordNumber, "1");
        EXPECT_NE(v.drawProblem.find("word 1"), std::string::npos);
    }
}

// Turning a word mirrors its signs about the middle of the group and stores it; turning it
// back gives its first layout again. Which words each mode turns is for the flip-all tests.
TEST_F(RenderTest, SetDirectionMirrorsAndStores) {
    word(0, "L", "A1(0,60) - G17(300,0) ");
    // A1 is 300 wide, G17 420: X 0 and 300 become 510-(0+300)=210 and 510-(300+420)=-210,
    // then both move right by 210.
    const std::pair<const char*, const char*> turns[] = {{"R", "A1( 420, 60) - G17( 0, 0) "},
                                                         {"L", "A1( 0, 60) - G17( 300, 0) "}};
    for (auto [direction, layout] : turns) {
        renderWord(t.app);
        setDirection(t.app, FlipMode::Invert);
        EXPECT_EQ(t.app.store.field(0, FieldDirection), direction);
        EXPECT_EQ(t.app.store.field(0, FieldLayout), layout);
    }
    renderWord(t.app);
    setDirection(t.app, FlipMode::Left); // already facing left: left alone
    EXPECT_EQ(stores, 2);
}

// Drawing the word changed the boxes' texts, so textChanged is set when the user arrives.
// Typing and leaving marks the word edited; entering and leaving does so only for the
// transliteration, which does not forget the change on entry.
TEST(WordViewEvents, LeavingABoxMarksTheWordEditedWhenItWasTypedInto) {
    TestApp t;
    t.pictures.sizes = {{"A1", {300, 540}}};
    t.app.store.setRow(0, {"L", "B", "A1(0,0) ", "A1", "i", "reed", ""});
    renderWord(t.app);
    const std::tuple<TextBox, bool, bool> cases[] = {
        {TextBox::Gardiner, true, true},   {TextBox::TransLit, true, true},
        {TextBox::Meaning, true, true},    {TextBox::Comment, true, true},
        {TextBox::Gardiner, false, false}, {TextBox::Meaning, false, false},
        {TextBox::Comment, false, false},  {TextBox::TransLit, false, true},
    };
    for (auto [box, typed, edited] : cases) {
        SCOPED_TRACE(static_cast<int>(box));
        t.app.store.editPending = false;
        t.app.view.textChanged = true;
        textBoxGotFocus(t.app, box);
        if (typed) textBoxChanged(t.app, box, "typed");
        textBoxLostFocus(t.app, box);
        EXPECT_EQ(t.app.store.editPending, edited);
        // Only the transliteration reads scholarly letters as its plain ones.
        textBoxChanged(t.app, box, "ḥtp");
        EXPECT_EQ(textOf(t.app.view, box), box == TextBox::TransLit ? "Htp" : "ḥtp");
    }
}

// Save Image proposes the Gardiner notation as the name, writes the format the extension
// names whatever its case, and says in the status bar how it went.
TEST(ImageExport, SaveImageWritesTheChosenFormatAndSaysHowItWent) {
    const struct {
        std::optional<std::filesystem::path> chosen;
        bool written;
        ImageFormat format;
        const char* status; // nullptr: nothing written, nothing said
    } cases[] = {
        {std::nullopt, true, ImageFormat::Bmp, nullptr},
        {std::filesystem::path(), true, ImageFormat::Bmp, nullptr},
        {"/p/a.PnG", true, ImageFormat::Png, "Picture saved: /p/a.PnG"},
        {"/p/a.svg", false, ImageFormat::Svg, "The picture could not be saved: /p/a.svg"},
        {"/p/dir.png/a", true, ImageFormat::Bmp, "Picture saved: /p/dir.png/a"},
    };
    for (const auto& c : cases) {
        TestApp t;
        ScriptedWindows windows;
        t.app.windows = &windows;
        t.app.home = "/prog";
        t.app.view.gardiner = "G17*X1:N35";
        t.dialogs.files.push_back(c.chosen);
        std::vector<ImageFormat> writes;
        saveWordImage(t.app, [&](const std::filesystem::path& file, ImageFormat format) {
            EXPECT_EQ(file, *c.chosen);
            writes.push_back(format);
            return c.written;
        });
        EXPECT_EQ(t.dialogs.prompts.at(0).text, "/prog/Images/G17-X1-N35");
        if (!c.status) {
            EXPECT_TRUE(windows.status.empty() && writes.empty());
            continue;
        }
        EXPECT_EQ(windows.status, std::vector<std::string>{c.status});
        EXPECT_EQ(writes, std::vector{c.format});
    }
}
