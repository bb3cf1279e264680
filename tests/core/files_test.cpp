#include "core/errors.h"
#include "core/files.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
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
        const SignPicture p = pictures.picture(Library::Basic, Direction::Left, c.code);
        EXPECT_EQ(p.ok, c.ok) << c.code;
        EXPECT_EQ(p.width, c.width) << c.code;
        EXPECT_EQ(p.height, c.height) << c.code;
    }
    EXPECT_EQ(pictures.picture(Library::Basic, Direction::Left, "A1").file,
              home.path() / "Basic/Left/A/a1.gif");
    EXPECT_EQ(pictures.picture(Library::Basic, Direction::Left, "Q9").file,
              home.path() / "Basic/Left/Q/Q9.GIF");
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
    // The loaded dictionary keeps the buffer as its text: it must not be twice the file.
    const std::string whole = readFileBytes(big, 3000);
    EXPECT_EQ(whole.size(), 3000u);
    EXPECT_LT(whole.capacity(), 3500u);
}

// The window's saves cover a link to a file and a pipe, a folder or a device in its place;
// here the links that point at nothing yet, or at a pipe.
TEST(AtomicFileWriter, FollowsLinksToTheirTargetEvenWhereNothingIsYet) {
    TempDir dir;
    namespace fs = std::filesystem;
    fs::create_directory(dir.path() / "real");
    fs::create_symlink("real/new.nkd", dir.path() / "dangling.nkd");
    const auto fifo = dir.path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    fs::create_symlink(fifo, dir.path() / "to-pipe");
    AtomicFileWriter w;
    w.write(dir.path() / "dangling.nkd", "created");
    EXPECT_TRUE(fs::is_symlink(dir.path() / "dangling.nkd"));
    EXPECT_EQ(readFile(dir.path() / "real/new.nkd"), "created");
    EXPECT_THROW(w.write(dir.path() / "to-pipe", "x"), RunError);
    EXPECT_TRUE(fs::is_fifo(fifo));
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
        EXPECT_FALSE(pictures.picture(Library::Basic, Direction::Left, code).ok) << code;
    EXPECT_TRUE(pictures.picture(Library::Basic, Direction::Left, "A1").ok);
}
