#include "core/preferences.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {
struct CountingWindows : Windows {
    int browserUnloads = 0;
    void unloadBrowser() override { ++browserUnloads; }
};
} // namespace

TEST(Preferences, OkLoadsTheChosenSignListAndDropsTheBrowser) {
    TestApp t;
    TempDir home;
    CountingWindows windows;
    t.app.home = home.path();
    t.app.windows = &windows;
    home.write("Lists/BasicList.csv", "\"G17\",\"A1\"\r\n");
    home.write("Lists/Extendedlist.csv", "\"G17\",\"N35\",\"A1\",\"A1a\"\r\n");
    ASSERT_TRUE(ApplyPreferences(t.app, Library::Extended, Direction::Right));
    EXPECT_EQ(t.app.settings.library, Library::Extended);
    EXPECT_EQ(t.app.settings.direction, Direction::Right);
    EXPECT_EQ(t.app.lists.signCount, 4);
    EXPECT_EQ(windows.browserUnloads, 1);
    ASSERT_TRUE(ApplyPreferences(t.app, Library::Basic, Direction::Left));
    EXPECT_EQ(t.app.lists.signCount, 2);
    EXPECT_EQ(windows.browserUnloads, 2);
}

TEST(Preferences, AMissingSignListEndsTheProgram) {
    TestApp t;
    TempDir home;
    t.app.home = home.path();
    EXPECT_FALSE(ApplyPreferences(t.app, Library::Extended, Direction::Left));
    EXPECT_TRUE(t.app.endRequested);
    ASSERT_EQ(t.dialogs.prompts.size(), 1u);
    EXPECT_NE(t.dialogs.prompts[0].text.find("Extendedlist.csv"), std::string::npos);
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Critical);
}
