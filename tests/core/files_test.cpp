#include "core/files.h"
#include "fakes.h"

#include <gtest/gtest.h>

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
