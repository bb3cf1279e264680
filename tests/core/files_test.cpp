#include "core/errors.h"
#include "core/files.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(FolderSignPictures, NaturalSizeFromTheGifAndAnEmptySquareOtherwise) {
    TempDir home;
    const char gif[] = "GIF89a\x14\x00\x24\x00\x00\x00\x00;";
    home.write("Basic/Left/G/G17.GIF", std::string(gif, sizeof gif - 1));
    home.write("Basic/Left/A/a1.gif", std::string(gif, sizeof gif - 1)); // another letter case
    home.write("Basic/Left/N/N35.GIF", "\x89PNG\r\n\x1a\n not a gif");
    FolderSignPictures pictures(home.path());
    struct Case {
        const char* code;
        bool ok;
        int width, height;
    } cases[] = {
        {"G17", true, 300, 540},
        {"A1", true, 300, 540},
        {"N35", false, 612, 612},
        {"Q9", false, 612, 612},
    };
    for (const auto& c : cases) {
        const SignPicture p = pictures.picture("Basic", "Left", c.code);
        EXPECT_EQ(p.ok, c.ok) << c.code;
        EXPECT_EQ(p.width, c.width) << c.code;
        EXPECT_EQ(p.height, c.height) << c.code;
    }
    EXPECT_EQ(pictures.picture("Basic", "Left", "A1").file, home.path() / "Basic/Left/A/a1.gif");
    EXPECT_EQ(pictures.picture("Basic", "Left", "Q9").file, home.path() / "Basic/Left/Q/Q9.GIF");
}

TEST(AtomicFileWriter, ReplacesTheFileAndLeavesNoTemporaryBehind) {
    TempDir dir;
    const auto file = dir.write("d.nkd", "old");
    AtomicFileWriter w;
    w.write(file, "new contents");
    EXPECT_EQ(readFile(file), "new contents");
    int entries = 0;
    for (const auto& e : std::filesystem::directory_iterator(dir.path())) {
        (void)e;
        ++entries;
    }
    EXPECT_EQ(entries, 1);
}

// Only a regular file is read, and only up to the limit: a pipe, a device or a folder fails at
// once (a pipe without a writer would otherwise wait for ever, /dev/zero would never end).
TEST(ReadFileBytes, RefusesAtOnceWhatIsNotARegularFileOrIsTooLarge) {
    TempDir dir;
    const auto fifo = dir.path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const auto big = dir.write("big", std::string(3000, 'x'));
    const std::pair<std::filesystem::path, const char*> cases[] = {
        {fifo, "not a regular file"},
        {"/dev/zero", "not a regular file"},
        {dir.path(), "not a regular file"},
        {big, "larger than"},
    };
    for (const auto& [path, why] : cases) {
        try {
            readFileBytes(path, 2048);
            ADD_FAILURE() << path << " was read";
        } catch (const RunError& e) {
            EXPECT_EQ(e.number(), PathFileAccess) << path;
            EXPECT_NE(e.description().find(why), std::string::npos) << e.description();
            EXPECT_NE(e.description().find(path.string()), std::string::npos) << e.description();
        }
    }
    EXPECT_EQ(readFileBytes(big, 3000).size(), 3000u);
}

TEST(AtomicFileWriter, WritesThroughLinksAndNeverReplacesASpecialFile) {
    TempDir dir;
    namespace fs = std::filesystem;
    const auto target = dir.write("real/d.nkd", "old");
    fs::create_symlink("real/d.nkd", dir.path() / "link.nkd");
    fs::create_symlink(dir.path() / "real/new.nkd", dir.path() / "dangling.nkd");
    AtomicFileWriter w;
    w.write(dir.path() / "link.nkd", "new");
    w.write(dir.path() / "dangling.nkd", "created");
    EXPECT_TRUE(fs::is_symlink(dir.path() / "link.nkd"));
    EXPECT_EQ(readFile(target), "new");
    EXPECT_TRUE(fs::is_symlink(dir.path() / "dangling.nkd"));
    EXPECT_EQ(readFile(dir.path() / "real/new.nkd"), "created");

    const auto fifo = dir.path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    fs::create_directory(dir.path() / "folder");
    fs::create_symlink(fifo, dir.path() / "to-pipe");
    for (const fs::path& p :
         {fifo, dir.path() / "folder", dir.path() / "to-pipe", fs::path("/dev/null")}) {
        try {
            w.write(p, "x");
            ADD_FAILURE() << p << " replaced";
        } catch (const RunError& e) {
            EXPECT_NE(e.description().find("not a regular file"), std::string::npos) << p;
        }
    }
    EXPECT_TRUE(fs::is_fifo(fifo));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// A killed save leaves its temporary file; the next save in that folder removes it, unless
// the process that wrote it still runs.
TEST(AtomicFileWriter, RemovesTheTemporaryFilesOfSavesThatNoLongerRun) {
    TempDir dir;
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0); // a process id that no longer runs
    auto temp = [&](long pid) {
        std::string name = temporaryNamePattern("d.nkd", pid);
        name.replace(name.size() - 6, 6, "a1B2c3");
        return dir.write(name, "half a dictionary");
    };
    const auto dead = temp(child);
    const auto running = temp(static_cast<long>(::getppid()));
    const auto foreign = dir.write(".d.nkd.a1B2c3", "someone else's");
    AtomicFileWriter().write(dir.path() / "d.nkd", "saved");
    EXPECT_FALSE(std::filesystem::exists(dead));
    EXPECT_TRUE(std::filesystem::exists(running));
    EXPECT_TRUE(std::filesystem::exists(foreign));
    EXPECT_EQ(readFile(dir.path() / "d.nkd"), "saved");
}

TEST(FolderSignPictures, ACodeThatIsNotCodeShapedNeverBecomesAPath) {
    TempDir home;
    const char gif[] = "GIF89a\x14\x00\x24\x00\x00\x00\x00;";
    home.write("x.GIF", std::string(gif, sizeof gif - 1)); // where ../../../x leads
    home.write("Basic/Left/A/A1.GIF", std::string(gif, sizeof gif - 1));
    ASSERT_EQ(::mkfifo((home.path() / "Basic/Left/A/A2.GIF").c_str(), 0600), 0);
    FolderSignPictures pictures(home.path());
    for (const std::string& code : std::vector<std::string>{
             "./../../../x", "../../../x", std::string("A1\0x", 4), "A/1", "", "A2"})
        EXPECT_FALSE(pictures.picture("Basic", "Left", code).ok) << code;
    EXPECT_TRUE(pictures.picture("Basic", "Left", "A1").ok);
}
