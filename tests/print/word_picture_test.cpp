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
    WordRecord word(const std::string& dir, const std::string& lib, const std::string& layout) {
        return {dir, lib, layout, "", "", "", ""};
    }
};

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
        const WordPicture p = pictureOfRecord(t.pictures, word("L", "B", c.layout));
        SCOPED_TRACE(c.layout);
        EXPECT_EQ(p.width, c.width);
        EXPECT_EQ(p.height, c.height);
        std::vector<std::pair<int, int>> at;
        for (const auto& pic : p.pictures) at.emplace_back(pic.x, pic.y);
        EXPECT_EQ(at, c.at);
    }
}

TEST_F(WordPictureTest, MatchesThePictureTheWordViewDraws) {
    const char* layouts[] = {"A1(0,0) ", "A1(0,60) - G17(300,0) - N35( 40, 700) ",
                             "N35(0,0) - A1(600,90) - MISSING(1000,0) ", ""};
    for (const char* layout : layouts) {
        t.app.store.setRow(0, word("R", "B", layout));
        renderWord(t.app);
        const WordPicture& screen = t.app.view.picture;
        const WordPicture paper = pictureOfWord(t.app, 0);
        SCOPED_TRACE(layout);
        EXPECT_EQ(paper.width, screen.width);
        EXPECT_EQ(paper.height, screen.height);
        ASSERT_EQ(paper.pictures.size(), screen.pictures.size());
        for (std::size_t i = 0; i < paper.pictures.size(); ++i) {
            EXPECT_EQ(paper.pictures[i].x, screen.pictures[i].x);
            EXPECT_EQ(paper.pictures[i].y, screen.pictures[i].y);
            EXPECT_EQ(paper.pictures[i].picture.file, screen.pictures[i].picture.file);
            EXPECT_EQ(paper.pictures[i].picture.ok, screen.pictures[i].picture.ok);
        }
    }
}

TEST_F(WordPictureTest, CollectingWordsReadsEachSignOnce) {
    CountingPictures counting;
    CachedSignPictures cached(counting);
    for (int i = 0; i < 50; ++i) {
        pictureOfRecord(cached, word("L", "B", "A1(0,0) - G17(100,0) - A1(200,0) "));
        pictureOfRecord(cached, word("R", "B", "A1(0,0) "));
    }
    EXPECT_EQ(counting.calls, 3); // A1 left, G17 left, A1 right

    t.app.store.setRow(0, word("L", "B", "A1(0,0) "));
    t.app.store.setRow(1, word("L", "B", "broken"));
    t.app.store.setRow(2, word("L", "B", "G17(0,0) "));
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
