// Settings, start-up and preferences: what the program reads before the first word is shown.
#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/folders.h"
#include "core/preferences.h"
#include "core/settings.h"
#include "core/startup.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <sys/stat.h>

using namespace nebkaro;
using namespace nebkaro::testing;
namespace fs = std::filesystem;

namespace {

// What a run takes from the settings, in one line: library, direction, the two start-up
// windows, zoom, picture scale and the dictionary.
std::string taken(const App& app) {
    const Settings& s = app.settings;
    return std::string(s.library == Library::Basic ? "Basic" : "Extended") +
           (s.direction == Direction::Left ? " Left" : " Right") + (s.showAbout ? " about" : "") +
           (s.showDictionaryInfo ? " info" : "") + " " + std::to_string(s.wordZoom) + "% x" +
           std::to_string(s.pictureScale) + " " + app.store.dictionaryName;
}

} // namespace

// Values are read case-blind, each with its own rule: only the words count for the windows,
// numbers out of range are brought into it, numbers that are not numbers are left out.
TEST(applySettings, ValuesAreReadCaseBlindWithTheirOwnRulesAndRanges) {
    const std::pair<std::string, std::string> cases[] = {
        {"library = extended", "Extended Left about info 100% x1 "},
        {"Direction =   Right  ", "Basic Right about info 100% x1 "},
        {"Show About = NO\r\nShow Dictionary Info = False", "Basic Left 100% x1 "},
        {"Show About = 0", "Basic Left about info 100% x1 "},
        {"Library = Extended Plus\r\nDictionary Name =  a.nkd ",
         "Basic Left about info 100% x1 a.nkd"},
        {"Word View Zoom = 250\r\nWord Picture Scale = 4", "Basic Left about info 250% x4 "},
        {"Word View Zoom = 900\r\nWord Picture Scale = 0", "Basic Left about info 400% x1 "},
        {"Word View Zoom = 2x\r\nWord Picture Scale = -3", "Basic Left about info 100% x1 "}};
    for (const auto& [file, want] : cases) {
        TestApp t;
        TempDir d;
        applySettings(t.app, d.write("System/Settings.nks", file + "\r\n"));
        EXPECT_EQ(taken(t.app), want) << file;
        EXPECT_TRUE(t.dialogs.prompts.empty());
    }
}

// A link to /dev/zero would never end if it were read as a file.
TEST(applySettings, AnUnreadableFileGivesTheDefaultsAndANotice) {
    TempDir d;
    fs::create_symlink("/dev/zero", d.path() / "zero.nks");
    for (const auto& f :
         {d.path() / "missing.nks", d.write("empty.nks", ""), d.path() / "zero.nks"}) {
        TestApp t;
        t.app.settings.library = Library::Extended;
        applySettings(t.app, f);
        EXPECT_EQ(taken(t.app), "Basic Left about info 100% x1 Words.nkd") << f;
        EXPECT_EQ(t.dialogs.messages(),
                  std::vector<std::string>{"Settings file not found, applying default settings"});
    }
}

TEST(writeSettingsFile, WritesTheExactTextAndReadsBack) {
    TestApp t;
    TempDir d;
    t.app.settings.library = Library::Extended;
    t.app.settings.showDictionaryInfo = false;
    t.app.store.dictionaryName = "Mine.nkd";
    const auto p = d.path() / "System" / "Settings.nks";
    writeSettingsFile(t.app, p);
    // A zoom and scale left at their defaults are not written.
    EXPECT_EQ(readFile(p), "Nebkaro Settings: \r\n\r\nLibrary = Extended\r\nDirection = Left\r\n"
                           "Dictionary Name = Mine.nkd\r\nShow About = True\r\n"
                           "Show Dictionary Info = False\r\n\r\n");
    t.app.settings.wordZoom = 300;
    t.app.settings.pictureScale = 8;
    writeSettingsFile(t.app, p);
    TestApp back;
    applySettings(back.app, p);
    EXPECT_EQ(taken(back.app), taken(t.app));
}

namespace {

// Records the order in which start-up reaches the windows.
struct RecordingWindows : WindowHost {
    std::vector<std::string> calls;
    int browserUnloads = 0;
    void setPrinterDefaults() override { calls.push_back("printer"); }
    void showAboutModal() override { calls.push_back("about"); }
    void showHeaderDialog(const DictionaryHeader& h) override { calls.push_back("header:" + h[0]); }
    void setCaption(const std::string& c) override { calls.push_back("caption:" + c); }
    void unloadBrowser() override { ++browserUnloads; }
};

struct StartUpTest : ::testing::Test {
    TestApp t;
    TempDir home;
    RecordingWindows windows;
    void SetUp() override {
        t.app.home = home.path();
        t.app.windows = &windows;
        home.write("Lists/BasicList.csv", "\"G17\"\r\n\"A1\"\r\n\"G43\"\r\n");
        home.write("Lists/Extendedlist.csv", "\"A1\"\r\n\"A1a\"\r\n");
        std::string t2c;
        for (int i = 31; i <= 255; ++i) t2c += "\"x\",\"x\"\r\n";
        home.write("Lists/Trans2Code.csv", t2c);
        home.write("Lists/Phonetic.csv", "\"G17\",\"m\"\r\n");
        home.write("Dictionaries/Words.nkd", "\"Starter\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n\"L\","
                                             "\"B\",\"A1(0,0) \",\"A1\",\"i\",\"reed\",\"\"\r\n");
    }
};

// Every file under a folder with its bytes, to tell whether anything changed there.
std::map<std::string, std::string> snapshot(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& e : fs::recursive_directory_iterator(root))
        if (e.is_regular_file()) files[fs::relative(e.path(), root).string()] = readFile(e.path());
    return files;
}

} // namespace

TEST_F(StartUpTest, StepsRunInOrderWithTheRememberedDictionary) {
    home.write("System/Settings.nks",
               "Library = Basic\r\nShow About = True\r\n"
               "Show Dictionary Info = True\r\nDictionary Name = Words.nkd\r\n");
    ASSERT_TRUE(startProgram(t.app, ""));
    EXPECT_EQ(windows.calls,
              (std::vector<std::string>{"printer", "about", "header:Starter",
                                        "caption:Nebkaro Ver: 1.0.0    Dictionary: Words.nkd"}));
    EXPECT_EQ(t.app.lists.preambleCount, 1);
    EXPECT_EQ(t.app.lists.phoneticLast, 0);
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "reed");
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
}

// Closing asks only with unsaved work (composed work counts, as every edit does); Cancel keeps
// the program and writes no settings.
TEST_F(StartUpTest, ClosingAsksOnlyWithUnsavedWorkAndCancelWritesNoSettings) {
    const auto settingsFile = home.path() / "System" / "Settings.nks";
    EXPECT_TRUE(quitCommand(t.app));
    EXPECT_TRUE(t.dialogs.prompts.empty());
    fs::remove(settingsFile);
    t.app.endRequested = false;
    t.app.store.composeAccepted = true;
    t.dialogs.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(closeMainWindow(t.app));
    EXPECT_FALSE(t.app.endRequested || fs::exists(settingsFile));
    EXPECT_EQ(t.dialogs.prompts.at(0).buttons, Buttons::YesNoCancel);
    EXPECT_TRUE(closeMainWindow(t.app));
    EXPECT_TRUE(fs::exists(settingsFile));
}

// A list that cannot be read ends the program with the reason; a pipe in its place, which
// would hold the program for ever, is refused at once.
TEST_F(StartUpTest, PreferencesLoadTheChosenSignListOrEndTheProgram) {
    ASSERT_TRUE(applyPreferences(t.app, Library::Extended, Direction::Right));
    EXPECT_EQ(t.app.settings.direction, Direction::Right);
    EXPECT_EQ(t.app.lists.signCount, 2);
    EXPECT_EQ(windows.browserUnloads, 1);
    ASSERT_TRUE(applyPreferences(t.app, Library::Basic, Direction::Left));
    EXPECT_EQ(t.app.lists.signCount, 3);
    const std::string list = (home.path() / "Lists" / "Extendedlist.csv").string();
    fs::remove(list);
    ASSERT_EQ(::mkfifo(list.c_str(), 0600), 0);
    EXPECT_FALSE(applyPreferences(t.app, Library::Extended, Direction::Left));
    EXPECT_TRUE(t.app.endRequested);
    EXPECT_EQ(t.dialogs.messages().back(),
              "The file: '" + list + "' could not be read (75  '" + list +
                  "' is not a regular file (a folder, a device or a pipe)). The program will stop");
}

// Each row: --home, the program's folder, XDG_DATA_HOME, then the shipped and user folders.
TEST(ProgramFoldersTest, OneFolderUnlessInstalledThenTheUsersDataFolder) {
    TempDir build;
    build.write("Lists/BasicList.csv", "");
    const fs::path bin = "/opt/neb/bin", shipped = "/opt/neb/share/nebkaro",
                   user = "/home/ann/.local/share/nebkaro";
    using Maybe = std::optional<std::string>;
    const std::tuple<std::optional<fs::path>, fs::path, Maybe, fs::path, fs::path> cases[] = {
        {"/data/neb/../neb", build.path(), "/x", "/data/neb", "/data/neb"}, // --home wins
        {std::nullopt, build.path(), "/x", build.path(), build.path()},     // the build folder
        {std::nullopt, bin, std::nullopt, shipped, user},                   // installed
        {std::nullopt, bin, "rel", shipped, user}}; // a relative XDG_DATA_HOME is ignored
    for (const auto& [home, exe, xdg, wantShipped, wantUser] : cases) {
        const auto env = [&](const char* name) {
            return std::string(name) == "HOME" ? Maybe("/home/ann") : xdg;
        };
        const ProgramFolders f = resolveFolders(home, exe, "../share/nebkaro", env);
        EXPECT_EQ(f.shipped, wantShipped) << exe;
        EXPECT_EQ(f.user, wantUser) << exe;
        EXPECT_EQ(f.separate(), wantShipped != wantUser) << exe;
    }
}

TEST_F(StartUpTest, InstalledTheUserFolderIsMadeOnceAndTheShippedOneNeverWritten) {
    home.write("System/Settings.nks", "Show About = False\r\nShow Dictionary Info = False\r\n"
                                      "Dictionary Name = Words.nkd\r\n");
    TempDir data;
    const ProgramFolders folders{home.path(), data.path() / "nebkaro"};
    const auto shipped = snapshot(home.path());
    ASSERT_TRUE(prepareUserFolder(folders));
    EXPECT_FALSE(prepareUserFolder(folders)); // said once
    t.app.userHome = folders.user;
    ASSERT_TRUE(startProgram(t.app, ""));
    EXPECT_EQ(t.app.store.dictionaryPath, (folders.user / "Dictionaries" / "Words.nkd").string());
    t.app.store.setField(0, FieldMeaning, "rush");
    t.app.store.isChanged = true;
    ASSERT_TRUE(saveDictionary(t.app));
    EXPECT_TRUE(quitCommand(t.app));
    EXPECT_EQ(snapshot(home.path()), shipped);
    EXPECT_NE(readFile(folders.user / "Dictionaries" / "Words.nkd").find("rush"),
              std::string::npos);
    // A settings file removed later comes back from the defaults; the dictionary is the user's.
    fs::remove(folders.user / "System" / "Settings.nks");
    fs::remove(folders.user / "Dictionaries" / "Words.nkd");
    EXPECT_FALSE(prepareUserFolder(folders));
    EXPECT_TRUE(fs::exists(folders.user / "System" / "Settings.nks"));
    EXPECT_FALSE(fs::exists(folders.user / "Dictionaries" / "Words.nkd"));
}
