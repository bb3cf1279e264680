#include "core/errors.h"
#include "core/files.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace nebkaro;
using namespace nebkaro::testing;
namespace fs = std::filesystem;

// The natural size comes from the GIF; anything else, or a code that is not code-shaped and
// so could lead out of the folder, gives an empty square.
TEST(FolderSignPictures, NaturalSizeFromTheGifAndAnEmptySquareOtherwise) {
    TempDir home;
    const std::string gif("GIF89a\x14\x00\x24\x00\x00\x00\x00;", 14);
    home.write("Basic/Left/G/G17.GIF", gif);
    home.write("Basic/Left/A/a1.gif", gif); // another letter case
    home.write("Basic/Left/N/N35.GIF", "\x89PNG\r\n\x1a\n not a gif");
    home.write("x.GIF", gif); // where ../../../x leads
    ASSERT_EQ(::mkfifo((home.path() / "Basic/Left/A/A2.GIF").c_str(), 0600), 0);
    FolderSignPictures pictures(home.path());
    const std::pair<std::string, bool> cases[] = {{"G17", true},
                                                  {"A1", true},
                                                  {"N35", false},
                                                  {"Q9", false},
                                                  {"A2", false},
                                                  {"../../../x", false},
                                                  {"./../../../x", false},
                                                  {"A/1", false},
                                                  {"", false},
                                                  {std::string("A1\0x", 4), false}};
    for (const auto& [code, ok] : cases) {
        const SignPicture p = pictures.picture(Library::Basic, Direction::Left, code);
        EXPECT_EQ(p.ok, ok) << code;
        EXPECT_EQ(p.width, ok ? 300 : 612) << code;
        EXPECT_EQ(p.height, ok ? 540 : 612) << code;
    }
    EXPECT_EQ(pictures.picture(Library::Basic, Direction::Left, "A1").file,
              home.path() / "Basic/Left/A/a1.gif");
    EXPECT_EQ(pictures.picture(Library::Basic, Direction::Left, "Q9").file,
              home.path() / "Basic/Left/Q/Q9.GIF");
}

// Only a regular file is read, and only up to the limit. (Pipes and devices in the place of
// the program's files are refused where start-up and loading meet them.)
TEST(ReadFileBytes, RefusesAtOnceWhatIsNotARegularFileOrIsTooLarge) {
    TempDir dir;
    const auto big = dir.write("big", std::string(3000, 'x'));
    for (const auto& [path, why] :
         {std::pair{dir.path(), "not a regular file"}, {big, "larger than"}}) {
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

// Links are followed to their target even where nothing is there yet; a link to a pipe is
// refused and leaves the pipe.
TEST(AtomicFileWriter, FollowsLinksToTheirTargetEvenWhereNothingIsYet) {
    TempDir dir;
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
