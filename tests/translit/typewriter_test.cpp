#include "bulk/search_dialog.h"
#include "core/errors.h"
#include "fakes.h"
#include "translit/trans_table.h"
#include "translit/typewriter.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// The browser and the composer hand over their boxes through the windows port.
struct BoxWindows : WindowHost {
    std::map<TypewriterTarget, std::string> boxes;
    std::vector<TypewriterTarget> changed;
    int viewChanged = 0;
    std::string* typewriterText(TypewriterTarget t) override {
        auto it = boxes.find(t);
        return it == boxes.end() ? nullptr : &it->second;
    }
    void typewriterTextChanged(TypewriterTarget t) override { changed.push_back(t); }
    void wordViewChanged() override { ++viewChanged; }
};

struct TypewriterTest : ::testing::Test {
    TestApp t;
    BoxWindows windows;
    TypewriterTest() { t.app.windows = &windows; }
};

} // namespace

TEST_F(TypewriterTest, LayoutsSwitchWithoutLosingWhatWasTyped) {
    t.app.home = "/opt/nebkaro";
    TypewriterState s;
    typewriterLoad(t.app, s);
    EXPECT_EQ(s.soundPath, std::filesystem::path("/opt/nebkaro/system/typewriter-key-1.wav"));
    typewriterKey(t.app, s.keys[20]); // "w" in the Egyptological order
    setTypewriterLayout(s, true);
    typewriterKey(t.app, s.keys[20]); // "f" in the alphabetical order
    EXPECT_EQ(t.app.view.transliteration, "wf");
    EXPECT_EQ(s.caption, "Typewriter - Alphabetical");
}

TEST_F(TypewriterTest, KeysAppendAndBackspaceRemovesOneWholeCharacter) {
    t.app.view.transliteration = "a\u1e25";
    EXPECT_TRUE(typewriterKey(t.app, "\u0161"));
    EXPECT_TRUE(typewriterSpace(t.app));
    EXPECT_EQ(t.app.view.transliteration, "a\u1e25\u0161 ");
    EXPECT_TRUE(t.app.view.textChanged); // as if typed
    EXPECT_EQ(windows.viewChanged, 2);
    for (const char* left : {"a\u1e25\u0161", "a\u1e25", "a", "", ""}) {
        EXPECT_TRUE(typewriterBackspace(t.app)); // at the start: nothing happens, no beep
        EXPECT_EQ(t.app.view.transliteration, left);
    }
    EXPECT_EQ(t.dialogs.beeps, 0);
}

// The typewriter types into the search box while the search dialog is open, into the
// browser's or the composer's box when they hand one over, else it beeps.
TEST_F(TypewriterTest, TheTargetIsTheBoxOfTheWindowThatAskedForIt) {
    searchDialogLoad(t.app);
    typewriterKey(t.app, "S");
    EXPECT_EQ(t.app.search.searchText, "S");
    ASSERT_TRUE(searchOk(t.app));
    typewriterKey(t.app, "A");
    EXPECT_EQ(t.app.view.transliteration, "A");
    EXPECT_EQ(t.app.search.searchText, "S");
    windows.boxes[TypewriterTarget::BrowserTrans] = "n";
    t.app.typewriterTarget = TypewriterTarget::BrowserTrans;
    typewriterKey(t.app, "b");
    EXPECT_EQ(windows.boxes[TypewriterTarget::BrowserTrans], "nb");
    t.app.typewriterTarget = TypewriterTarget::ComposerMdC;
    EXPECT_FALSE(typewriterKey(t.app, "b")); // the composer is not open
    EXPECT_EQ(windows.changed, (std::vector<TypewriterTarget>{TypewriterTarget::SearchText,
                                                              TypewriterTarget::BrowserTrans}));
    searchDialogLoad(t.app);
    searchCancel(t.app); // the search box is gone
    EXPECT_FALSE(typewriterSpace(t.app));
    t.app.typewriterTarget = TypewriterTarget::None;
    EXPECT_FALSE(typewriterBackspace(t.app));
    EXPECT_EQ(t.dialogs.beeps, 3);
    EXPECT_EQ(t.app.view.transliteration, "A");
}

TEST(TypewriterPlacement, BesideTheCallerOnTheSideThatFitsTheScreen) {
    struct Row {
        int left, width, tw, screen, expected;
    };
    for (const Row& r : std::vector<Row>{
             {1000, 4488, 3000, 20000, 5488},   // to the right
             {12000, 4488, 3488, 19976, 16488}, // right edge exactly at the screen's edge
             {12000, 4488, 3489, 19976, 8511},  // one twip too far: to the left
             {500, 4488, 3000, 6000, -2500},    // to the left even if that is off screen
         })
        EXPECT_EQ(typewriterLeftBeside(r.left, r.width, r.tw, r.screen), r.expected);
}

TEST(TypewriterPlacement, BesideTheMainWindowIn16BitNumbers) {
    EXPECT_EQ(typewriterLeftBesideMain(5000, 7000, 3000), 2000);   // left of Main
    EXPECT_EQ(typewriterLeftBesideMain(3000, 7000, 3000), 0);      // just fits
    EXPECT_EQ(typewriterLeftBesideMain(2999, 7000, 3000), 9999);   // right of Main
    EXPECT_EQ(typewriterLeftBesideMain(35000, 7000, 3000), 32000); // still representable
    for (auto [left, width] : {std::pair{36000, 7000}, std::pair{1000, 32000}}) {
        try {
            typewriterLeftBesideMain(left, width, 3000);
            ADD_FAILURE() << left;
        } catch (const RunError& e) {
            EXPECT_EQ(e.number(), Overflow);
        }
    }
}

TEST(TransTable, AboveTheMainWindowOrBelowIt) {
    EXPECT_EQ(transTableTop(3000, 6000, 2000), 1000);
    EXPECT_EQ(transTableTop(2000, 6000, 2000), 0);
    EXPECT_EQ(transTableTop(1999, 6000, 2000), 7999);
}
