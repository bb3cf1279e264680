#include "core/app.h"
#include "core/settings.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(GetSettingValue, FirstCaseBlindOccurrenceUpToTheLineEndTrimmed) {
    const std::string t =
        "Nebkaro Settings: \r\n\r\nlibrary = extended\r\nDirection =   Right  \r\n"
        "Dictionary Name = My Words.nkd\r\nShow About = no\r\n";
    const std::pair<const char*, const char*> cases[] = {{"Library", "extended"},
                                                         {"DIRECTION", "Right"},
                                                         {"Dictionary Name", "My Words.nkd"},
                                                         {"Show About", "no"},
                                                         {"Show Dictionary Info", ""}};
    for (auto [key, want] : cases) EXPECT_EQ(GetSettingValue(t, key), want) << key;
    // Found anywhere, not only at a line start; the first occurrence wins.
    EXPECT_EQ(GetSettingValue("xxLibrary = A\r\nLibrary = B\r\n", "Library"), "A");
    EXPECT_EQ(GetSettingValue("Library = A\nDirection = Right\n", "Library"), "A");
}

TEST(ApplySettings, ValuesAreReadCaseBlindWithTheirOwnRules) {
    struct Case {
        std::string file;
        bool basic, left, about, info;
        std::string name;
    } cases[] = {
        {"library = extended\r\n", false, true, true, true, ""},
        {"Direction =   Right  \r\n", true, false, true, true, ""},
        {"Show About = no\r\nShow Dictionary Info = False\r\n", true, true, false, false, ""},
        {"Show About = NO\r\n", true, true, false, true, ""},
        {"Show About = 0\r\n", true, true, true, true, ""},
        {"Library = Extended Plus\r\nDictionary Name =  a.nkd \r\n", true, true, true, true,
         "a.nkd"},
    };
    for (const auto& c : cases) {
        TestApp t;
        TempDir d;
        auto p = d.write("System/Settings.nks", c.file);
        ApplySettings(t.app, p);
        EXPECT_EQ(t.app.settings.library == Library::Basic, c.basic) << c.file;
        EXPECT_EQ(t.app.settings.direction == Direction::Left, c.left) << c.file;
        EXPECT_EQ(t.app.settings.showAbout, c.about) << c.file;
        EXPECT_EQ(t.app.settings.showDictionaryInfo, c.info) << c.file;
        EXPECT_EQ(t.app.store.dictionaryName, c.name) << c.file;
        EXPECT_TRUE(t.dialogs.prompts.empty());
    }
}

TEST(ApplySettings, AnUnreadableFileGivesTheDefaultsAndANotice) {
    TempDir d;
    std::filesystem::create_directories(d.path() / "dir.nks");
    std::string garbage(10 * 1024 * 1024, '\0');
    for (std::size_t i = 0; i < garbage.size(); ++i)
        garbage[i] = static_cast<char>((i * 7919) % 251 + 1);
    const std::filesystem::path files[] = {d.path() / "missing.nks", d.write("empty.nks", ""),
                                           d.path() / "dir.nks", d.write("garbage.nks", garbage)};
    for (const auto& f : files) {
        TestApp t;
        t.app.settings.library = Library::Extended;
        ApplySettings(t.app, f);
        EXPECT_EQ(t.app.settings.library, Library::Basic) << f;
        EXPECT_EQ(t.app.settings.direction, Direction::Left) << f;
        EXPECT_TRUE(t.app.settings.showAbout) << f;
        if (f.filename() != "garbage.nks") {
            ASSERT_EQ(t.dialogs.prompts.size(), 1u) << f;
            EXPECT_EQ(t.dialogs.prompts[0].text,
                      "Settings file not found, applying default settings");
            EXPECT_EQ(t.dialogs.prompts[0].title, "Settings not found");
            EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
            EXPECT_EQ(t.app.store.dictionaryName, "Words.nkd");
        }
    }
}

TEST(WriteSettingsFile, WritesTheExactTextAndCreatesTheSystemFolder) {
    TestApp t;
    TempDir d;
    t.app.settings.library = Library::Extended;
    t.app.settings.showDictionaryInfo = false;
    t.app.store.dictionaryName = "Mine.nkd";
    const auto p = d.path() / "System" / "Settings.nks";
    WriteSettingsFile(t.app, p);
    EXPECT_EQ(readFile(p), "Nebkaro Settings: \r\n\r\nLibrary = Extended\r\nDirection = Left\r\n"
                           "Dictionary Name = Mine.nkd\r\nShow About = True\r\n"
                           "Show Dictionary Info = False\r\n\r\n");
    // And it reads back to the same values.
    TestApp back;
    ApplySettings(back.app, p);
    EXPECT_EQ(back.app.settings.library, Library::Extended);
    EXPECT_FALSE(back.app.settings.showDictionaryInfo);
    EXPECT_EQ(back.app.store.dictionaryName, "Mine.nkd");
}

TEST(ApplySettings, TheZoomAndPictureScaleAreReadWithinTheirRangesAndWrittenOnlyWhenSet) {
    const std::tuple<std::string, int, int> cases[] = {
        {"", 100, 1},
        {"Word View Zoom = 250\r\nWord Picture Scale = 4\r\n", 250, 4},
        {"Word View Zoom = 900\r\nWord Picture Scale = 0\r\n", 400, 1},
        {"Word View Zoom = 2x\r\nWord Picture Scale = -3\r\n", 100, 1},
    };
    for (const auto& [file, zoom, scale] : cases) {
        TestApp t;
        TempDir d;
        ApplySettings(t.app, d.write("System/Settings.nks", "Library = Basic\r\n" + file));
        EXPECT_EQ(t.app.settings.wordZoom, zoom) << file;
        EXPECT_EQ(t.app.settings.pictureScale, scale) << file;
    }
    TestApp t;
    TempDir d;
    const auto p = d.path() / "Settings.nks";
    WriteSettingsFile(t.app, p);
    EXPECT_EQ(readFile(p).find("Zoom"), std::string::npos); // a default file stays as it was
    t.app.settings.wordZoom = 300;
    t.app.settings.pictureScale = 8;
    WriteSettingsFile(t.app, p);
    TestApp back;
    ApplySettings(back.app, p);
    EXPECT_EQ(back.app.settings.wordZoom, 300);
    EXPECT_EQ(back.app.settings.pictureScale, 8);
}
