// Saves that cannot be completed must leave the old file byte-identical, keep the dictionary
// marked as changed and say what went wrong. Where the test runs as root (CI does), a real
// read-only or full file system is mounted; otherwise folder permissions play that part.
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sys/mount.h>
#include <unistd.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

const std::string kOld = "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"reed\",\"old\"\r\n";

struct Mounted {
    std::filesystem::path dir;
    bool mounted = false;
    ~Mounted() {
        if (mounted) ::umount(dir.c_str());
    }
};

// A small file system of its own at dir when the process may mount one.
bool mountTmpfs(Mounted& m, const std::filesystem::path& dir, const char* options) {
    std::filesystem::create_directories(dir);
    m.dir = dir;
    m.mounted = ::mount("tmpfs", dir.c_str(), "tmpfs", 0, options) == 0;
    return m.mounted;
}

struct SaveFaults : ::testing::Test {
    TestApp t;
    TempDir tmp;
    void SetUp() override { t.app.settings.showDictionaryInfo = false; }
    void loadOld(const std::filesystem::path& file) {
        t.app.store.dictionaryPath = file.string();
        ASSERT_EQ(loadDictionary(t.app), LoadOutcome::Loaded);
        t.app.store.setField(0, FieldComment, std::string(200000, 'n')); // a big change
        t.app.store.isChanged = true;
    }
    // The message names the file and the reason, and says that nothing is lost.
    void expectFailedSave(const std::filesystem::path& file, const std::string& reason) {
        t.dialogs.prompts.clear();
        EXPECT_FALSE(saveDictionary(t.app));
        EXPECT_TRUE(t.app.store.isChanged);
        EXPECT_FALSE(t.app.endRequested);
        ASSERT_EQ(t.dialogs.messages().size(), 1u);
        EXPECT_EQ(t.dialogs.messages()[0],
                  "'" + file.string() + "' could not be saved: " + reason +
                      "\r\nThe dictionary is still open; nothing in it was lost.");
        if (std::filesystem::exists(file)) {
            EXPECT_EQ(readFile(file), kOld);
        }
        // No temporary file is left behind.
        std::error_code ec;
        int files = 0;
        for (auto& e : std::filesystem::directory_iterator(file.parent_path(), ec)) {
            (void)e;
            ++files;
        }
        EXPECT_LE(files, 1);
    }
};

} // namespace

TEST_F(SaveFaults, ReadOnlyFolder) {
    Mounted m;
    const auto dir = tmp.path() / "ro";
    std::filesystem::path file;
    if (mountTmpfs(m, dir, "size=1m")) {
        file = dir / "words.nkd";
        std::ofstream(file, std::ios::binary) << kOld;
        loadOld(file);
        ASSERT_EQ(::mount("tmpfs", dir.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=1m"), 0);
    } else {
        file = tmp.write("ro/words.nkd", kOld);
        loadOld(file);
        std::filesystem::permissions(dir, std::filesystem::perms::owner_read |
                                              std::filesystem::perms::owner_exec);
    }
    expectFailedSave(file, "Path/File access error: '" + file.string() + "' may be 'Read Only'");
}

TEST_F(SaveFaults, FullDisk) {
    Mounted m;
    const auto dir = tmp.path() / "full";
    if (mountTmpfs(m, dir, "size=64k")) {
        const auto file = dir / "words.nkd";
        std::ofstream(file, std::ios::binary) << kOld;
        loadOld(file);
        expectFailedSave(file, "Disk full: '" + file.string() + "' could not be written");
        return;
    }
    // Without a file system of our own: a writer that fails partway, as a full disk does.
    struct FailingMidway : FileWriter {
        void write(const std::filesystem::path&, const std::string&) override {
            throw RunError(DiskFull);
        }
    } failing;
    App app(t.dialogs, t.clipboard, t.events, t.pictures, failing);
    app.settings.showDictionaryInfo = false;
    const auto file = tmp.write("full/words.nkd", kOld);
    app.store.dictionaryPath = file.string();
    ASSERT_EQ(loadDictionary(app), LoadOutcome::Loaded);
    app.store.isChanged = true;
    EXPECT_FALSE(saveDictionary(app));
    EXPECT_TRUE(app.store.isChanged);
    EXPECT_NE(t.dialogs.messages().back().find("Disk full"), std::string::npos);
    EXPECT_EQ(readFile(file), kOld);
}

TEST_F(SaveFaults, VanishedFolder) {
    const auto file = tmp.write("gone/words.nkd", kOld);
    loadOld(file);
    std::filesystem::remove_all(tmp.path() / "gone");
    expectFailedSave(file, "Path not found: the folder of '" + file.string() + "' does not exist");
}
