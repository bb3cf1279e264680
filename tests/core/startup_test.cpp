#include "core/dictionary_file.h"
#include "core/folders.h"
#include "core/startup.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <sys/stat.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Records the order in which start-up reaches the windows.
struct RecordingWindows : Windows {
    std::vector<std::string> calls;
    void setPrinterDefaults() override { calls.push_back("printer"); }
    void showAboutModal() override { calls.push_back("about"); }
    void showHeaderDialog(const DictionaryHeader& h) override { calls.push_back("header:" + h[0]); }
    void setCaption(const std::string& c) override { calls.push_back("caption:" + c); }
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

} // namespace

TEST_F(StartUpTest, StepsRunInOrderWithTheRememberedDictionary) {
    home.write("System/Settings.nks",
               "Library = Basic\r\nShow About = True\r\nShow Dictionary Info = True\r\n"
               "Dictionary Name = Words.nkd\r\n");
    ASSERT_TRUE(StartUp(t.app, ""));
    EXPECT_EQ(windows.calls,
              (std::vector<std::string>{"printer", "about", "header:Starter",
                                        "caption:Nebkaro Ver: 1.0.0    Dictionary: Words.nkd"}));
    EXPECT_EQ(t.app.lists.preambleCount, 1);
    EXPECT_EQ(t.app.lists.phoneticLast, 0);
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "reed");
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
}

TEST_F(StartUpTest, WithoutASettingsFileDefaultsApplyAfterANotice) {
    ASSERT_TRUE(StartUp(t.app, ""));
    ASSERT_FALSE(t.dialogs.prompts.empty());
    EXPECT_EQ(t.dialogs.prompts[0].title, "Settings not found");
    EXPECT_EQ(t.app.store.dictionaryName, "Words.nkd");
    EXPECT_EQ(t.app.store.lastIndex, 0);
}

TEST_F(StartUpTest, TheCommandLineWinsWithQuotesRemoved) {
    home.write("System/Settings.nks", "Show About = False\r\nShow Dictionary Info = False\r\n"
                                      "Dictionary Name = Words.nkd\r\n");
    auto other = home.write("elsewhere/My Other.nkd",
                            "\"R\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"water\",\"\"\r\n");
    ASSERT_TRUE(StartUp(t.app, "\"" + other.string() + "\""));
    EXPECT_EQ(t.app.store.dictionaryPath, other.string());
    EXPECT_EQ(t.app.store.dictionaryName, "My Other.nkd");
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "water");
}

TEST_F(StartUpTest, AMissingDictionaryAnsweredCancelEndsTheProgram) {
    home.write("System/Settings.nks", "Show About = False\r\nDictionary Name = Gone.nkd\r\n");
    t.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(StartUp(t.app, ""));
    EXPECT_TRUE(t.app.endRequested);
    EXPECT_EQ(t.dialogs.prompts.back().title, "Dictionary Not Found");
}

TEST_F(StartUpTest, AMissingListEndsTheProgramAfterItsMessage) {
    home.write("System/Settings.nks", "Show About = False\r\nDictionary Name = Words.nkd\r\n");
    std::filesystem::remove(home.path() / "Lists" / "Phonetic.csv");
    EXPECT_FALSE(StartUp(t.app, ""));
    EXPECT_TRUE(t.app.endRequested);
    EXPECT_EQ(t.dialogs.messages().back(), "The file: '" +
                                               (home.path() / "Lists" / "Phonetic.csv").string() +
                                               "' was not found. The program will stop");
}

// Files that would hold the start-up for ever (a pipe without a writer, /dev/zero) are refused
// at once: settings fall back to their defaults; a list that is not a file ends the program
// with the reason.
TEST_F(StartUpTest, SpecialFilesInThePlaceOfProgramFilesNeverHoldTheStart) {
    namespace fs = std::filesystem;
    fs::create_directories(home.path() / "System");
    fs::create_symlink("/dev/zero", home.path() / "System" / "Settings.nks");
    const auto phonetic = home.path() / "Lists" / "Phonetic.csv";
    fs::remove(phonetic);
    ASSERT_EQ(::mkfifo(phonetic.c_str(), 0600), 0);
    EXPECT_FALSE(StartUp(t.app, ""));
    EXPECT_EQ(t.dialogs.prompts[0].title, "Settings not found");
    EXPECT_EQ(t.dialogs.messages().back(),
              "The file: '" + phonetic.string() + "' could not be read (75  '" + phonetic.string() +
                  "' is not a regular file (a folder, a device or a pipe)). The program will stop");
}

TEST_F(StartUpTest, QuitAsksOnlyWithUnsavedWorkAndCancelWritesNoSettings) {
    const auto settings = home.path() / "System" / "Settings.nks";
    // Nothing unsaved: no question, the settings are written.
    EXPECT_TRUE(QuitCommand(t.app));
    EXPECT_TRUE(std::filesystem::exists(settings));
    std::filesystem::remove(settings);
    // Cancel keeps the program and writes nothing.
    TestApp t2;
    t2.app.home = home.path();
    t2.app.store.editPending = true;
    t2.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(QuitCommand(t2.app));
    EXPECT_FALSE(t2.app.endRequested);
    EXPECT_FALSE(std::filesystem::exists(settings));
    EXPECT_EQ(t2.dialogs.prompts[0].text, "Do you want to save before quitting?");
    EXPECT_EQ(t2.dialogs.prompts[0].title, "Quitting");
    EXPECT_EQ(t2.dialogs.prompts[0].buttons, Buttons::YesNoCancel);
}

TEST_F(StartUpTest, ClosingTheWindowOffersCancelAndCancelKeepsItOpen) {
    const auto settings = home.path() / "System" / "Settings.nks";
    t.app.store.composeAccepted = true; // composed work counts, as every edit does
    t.dialogs.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(CloseMainWindow(t.app));
    EXPECT_FALSE(std::filesystem::exists(settings));
    EXPECT_TRUE(CloseMainWindow(t.app));
    ASSERT_EQ(t.dialogs.prompts.size(), 2u);
    EXPECT_EQ(t.dialogs.prompts[0].buttons, Buttons::YesNoCancel);
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Question);
    EXPECT_TRUE(std::filesystem::exists(settings));
}

namespace {
// Every file under a folder with its bytes, to tell whether anything changed there.
std::map<std::string, std::string> snapshot(const std::filesystem::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& e : std::filesystem::recursive_directory_iterator(root))
        if (e.is_regular_file())
            files[std::filesystem::relative(e.path(), root).string()] = readFile(e.path());
    return files;
}
} // namespace

TEST(ProgramFoldersTest, OneFolderUnlessInstalledThenTheUsersDataFolder) {
    TempDir build;
    build.write("Lists/BasicList.csv", "");
    struct Case {
        const char* name;
        std::optional<std::filesystem::path> home;
        std::filesystem::path exe;
        std::optional<std::string> xdg;
        std::filesystem::path shipped, user;
    };
    const std::filesystem::path none = "/opt/neb/bin";
    const Case cases[] = {
        {"--home wins", "/data/neb/../neb", build.path(), "/x", "/data/neb", "/data/neb"},
        {"build folder", std::nullopt, build.path(), "/x", build.path(), build.path()},
        {"installed", std::nullopt, none, std::nullopt, "/opt/neb/share/nebkaro",
         "/home/ann/.local/share/nebkaro"},
        {"XDG_DATA_HOME", std::nullopt, none, "/data/ann", "/opt/neb/share/nebkaro",
         "/data/ann/nebkaro"},
        {"relative XDG_DATA_HOME is ignored", std::nullopt, none, "rel", "/opt/neb/share/nebkaro",
         "/home/ann/.local/share/nebkaro"},
    };
    for (const Case& c : cases) {
        const auto env = [&](const char* name) -> std::optional<std::string> {
            if (std::string(name) == "HOME") return "/home/ann";
            return c.xdg;
        };
        const ProgramFolders f = ResolveFolders(c.home, c.exe, "../share/nebkaro", env);
        EXPECT_EQ(f.shipped, c.shipped) << c.name;
        EXPECT_EQ(f.user, c.user) << c.name;
        EXPECT_EQ(f.separate(), c.shipped != c.user) << c.name;
    }
}

TEST_F(StartUpTest, InstalledTheUserFolderIsMadeOnceAndTheShippedOneNeverWritten) {
    home.write("System/Settings.nks", "Show About = False\r\nShow Dictionary Info = False\r\n"
                                      "Dictionary Name = Words.nkd\r\n");
    TempDir data;
    const ProgramFolders folders{home.path(), data.path() / "nebkaro"};
    const auto shipped = snapshot(home.path());
    ASSERT_TRUE(PrepareUserFolder(folders));
    EXPECT_FALSE(PrepareUserFolder(folders)); // said once
    t.app.userHome = folders.user;
    ASSERT_TRUE(StartUp(t.app, ""));
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "reed");
    EXPECT_EQ(t.app.store.dictionaryPath, (folders.user / "Dictionaries" / "Words.nkd").string());
    t.app.store.setField(0, FieldMeaning, "rush");
    t.app.store.isChanged = true;
    ASSERT_TRUE(SaveDictionary(t.app));
    EXPECT_TRUE(QuitCommand(t.app));
    EXPECT_EQ(snapshot(home.path()), shipped);
    const auto mine = snapshot(folders.user);
    EXPECT_NE(mine.at("Dictionaries/Words.nkd").find("rush"), std::string::npos);
    EXPECT_TRUE(mine.count("System/Settings.nks"));
    EXPECT_TRUE(std::filesystem::is_directory(folders.user / "Images"));
    // A settings file removed later comes back from the defaults; the dictionary is the user's.
    std::filesystem::remove(folders.user / "System" / "Settings.nks");
    std::filesystem::remove(folders.user / "Dictionaries" / "Words.nkd");
    EXPECT_FALSE(PrepareUserFolder(folders));
    EXPECT_TRUE(std::filesystem::exists(folders.user / "System" / "Settings.nks"));
    EXPECT_FALSE(std::filesystem::exists(folders.user / "Dictionaries" / "Words.nkd"));
}
