#include "display/image_export.h"
#include "display/render.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(ImageExport, ProposedNameReplacesOnlyColonAndStar) {
    const std::pair<const char*, const char*> cases[] = {
        {"A1:D21*X1", "A1-D21-X1"}, {"G17", "G17"}, {"", ""}, {"::**", "----"},
        {"N35 - D21", "N35 - D21"}, // blanks and other characters stay
        {"A1/B2?", "A1/B2?"},
    };
    for (auto [gardiner, name] : cases) EXPECT_EQ(ProposedImageName(gardiner), name);
}

TEST(ImageExport, ProposedPathIsInTheImagesFolder) {
    TestApp t;
    t.app.home = "/prog";
    t.app.view.GardinerTxt = "G17*X1";
    EXPECT_EQ(ProposedImagePath(t.app), std::filesystem::path("/prog/Images/G17-X1"));
}

TEST(ImageExport, FormatFollowsTheExtensionWhateverItsCase) {
    const std::pair<const char*, ImageFormat> cases[] = {
        {"a.bmp", ImageFormat::Bmp}, {"a.BMP", ImageFormat::Bmp},     {"a.png", ImageFormat::Png},
        {"a.PnG", ImageFormat::Png}, {"a.svg", ImageFormat::Svg},     {"a", ImageFormat::Bmp},
        {"a.gif", ImageFormat::Bmp}, {"dir.png/a", ImageFormat::Bmp},
    };
    for (auto [file, format] : cases) EXPECT_EQ(ImageFormatFor(file), format) << file;
}

TEST(ImageExport, AWordWithoutSignsIsAnEmptyPictureOf64Twips) {
    TestApp t;
    t.app.store.setRow(0, {"L", "B", "", "", "", "", ""});
    RenderWord(t.app);
    EXPECT_EQ(t.app.view.TemPic.width, 64);
    EXPECT_EQ(t.app.view.TemPic.height, 64);
    EXPECT_TRUE(t.app.view.TemPic.pictures.empty());
}

TEST(ImageExport, SaveImageSaysInTheStatusBarHowItWent) {
    struct StatusWindows : Windows {
        std::vector<std::string> shown;
        void showStatus(const std::string& text) override { shown.push_back(text); }
    };
    const struct {
        std::optional<std::filesystem::path> chosen;
        bool written;
        const char* status; // nullptr: nothing written, nothing said
    } cases[] = {
        {std::nullopt, true, nullptr},
        {std::filesystem::path(), true, nullptr},
        {"/pics/a.PNG", true, "Picture saved: /pics/a.PNG"},
        {"/pics/a.svg", false, "The picture could not be saved: /pics/a.svg"},
    };
    for (const auto& c : cases) {
        TestApp t;
        StatusWindows windows;
        t.app.windows = &windows;
        t.dialogs.files.push_back(c.chosen);
        std::vector<ImageFormat> writes;
        saveWordImage(t.app, [&](const std::filesystem::path& file, ImageFormat format) {
            EXPECT_EQ(file, *c.chosen);
            writes.push_back(format);
            return c.written;
        });
        EXPECT_EQ(windows.shown.size(), c.status ? 1u : 0u);
        if (c.status) {
            EXPECT_EQ(windows.shown.front(), c.status);
            EXPECT_EQ(writes, std::vector<ImageFormat>{ImageFormatFor(*c.chosen)});
        }
    }
}
