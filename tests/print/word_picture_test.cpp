#include "core/errors.h"
#include "display/render.h"
#include "fakes.h"
#include "print/word_picture.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::testing;

namespace {
struct WordPictureTest : ::testing::Test {
    TestApp t;
    void SetUp() override {
        t.pictures.sizes = {{"A1", {300, 540}}, {"G17", {420, 600}}, {"N35", {600, 90}}};
    }
    static WordRecord word(const std::string& dir, const std::string& layout) {
        return {dir, "B", layout, "", "", "", ""};
    }
};

// The picture's size, then each sign's top left, file and whether it was read.
using Drawn = std::tuple<int, int, std::vector<std::tuple<int, int, std::string, bool>>>;
Drawn drawn(const WordPicture& p) {
    Drawn d{p.width, p.height, {}};
    for (const auto& s : p.pictures)
        std::get<2>(d).emplace_back(s.x, s.y, s.picture.file.string(), s.picture.ok);
    return d;
}

// Counts how often each sign is asked for.
struct CountingPictures : SignPictures {
    int calls = 0;
    SignPicture picture(Library library, Direction direction, const std::string& code) override {
        ++calls;
        return {libraryName(library) + "/" + directionName(direction) + "/" + code, 150, 150, true};
    }
};
} // namespace

TEST_F(WordPictureTest, SignsAtNaturalSizeInsideA32TwipMargin) {
    struct Case {
        const char* layout;
        int width, height;
        std::vector<std::pair<int, int>> at; // each sign's top left
    } cases[] = {
        {"A1(0,60) - G17(300,0) ", 720 + 64, 600 + 64, {{32, 92}, {332, 32}}},
        // Signs left of or above the origin move the group.
        {"A1(-100,0) - N35(300,-45) ", 1000 + 64, 540 + 45 + 64, {{32, 77}, {432, 32}}},
        // Empty codes and empty layouts draw no sign.
        {" (0,0) - A1(10,0) ", 310 + 64, 540 + 64, {{42, 32}}},
        {"", 64, 64, {}},
    };
    for (const Case& c : cases) {
        const WordPicture p = pictureOfRecord(t.pictures, word("L", c.layout));
        std::vector<std::pair<int, int>> at;
        for (const auto& pic : p.pictures) at.emplace_back(pic.x, pic.y);
        EXPECT_EQ(std::tuple(p.width, p.height, at), std::tuple(c.width, c.height, c.at))
            << c.layout;
    }
}

TEST_F(WordPictureTest, MatchesThePictureTheWordViewDraws) {
    for (const char* layout : {"A1(0,0) ", "A1(0,60) - G17(300,0) - N35( 40, 700) ",
                               "N35(0,0) - A1(600,90) - MISSING(1000,0) ", ""}) {
        t.app.store.setRow(0, word("R", layout));
        renderWord(t.app);
        EXPECT_EQ(drawn(pictureOfWord(t.app, 0)), drawn(t.app.view.picture)) << layout;
    }
}

TEST_F(WordPictureTest, CollectingWordsReadsEachSignOnce) {
    CountingPictures counting;
    CachedSignPictures cached(counting);
    for (int i = 0; i < 50; ++i) {
        pictureOfRecord(cached, word("L", "A1(0,0) - G17(100,0) - A1(200,0) "));
        pictureOfRecord(cached, word("R", "A1(0,0) "));
    }
    EXPECT_EQ(counting.calls, 3); // A1 left, G17 left, A1 right

    t.app.store.setRow(0, word("L", "A1(0,0) "));
    t.app.store.setRow(1, word("L", "broken"));
    t.app.store.setRow(2, word("L", "G17(0,0) "));
    t.app.store.lastIndex = 2;
    const auto words = collectWords(t.app, {2, 0, 1});
    ASSERT_EQ(words.size(), 3u);
    EXPECT_EQ(words[0].index, 2);
    EXPECT_EQ(words[0].picture.pictures.at(0).picture.file, "/pictures/Basic/Left/G17.GIF");
    EXPECT_EQ(words[1].index, 0);
    // A layout that cannot be read fails alone, and its word is printed without signs.
    EXPECT_THROW(pictureOfRecord(t.pictures, t.app.store.row(1)), RunError);
    EXPECT_TRUE(words[2].picture.pictures.empty());
    EXPECT_EQ(words[2].record[FieldLayout], "broken");
}
