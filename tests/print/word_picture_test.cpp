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
    const WordPicture p = PictureOfRecord(t.pictures, word("L", "B", "A1(0,60) - G17(300,0) "));
    EXPECT_EQ(p.width, 720 + 64);
    EXPECT_EQ(p.height, 600 + 64);
    ASSERT_EQ(p.pictures.size(), 2u);
    EXPECT_EQ(p.pictures[0].x, 32);
    EXPECT_EQ(p.pictures[0].y, 92);
    EXPECT_EQ(p.pictures[0].picture.width, 300);
    EXPECT_EQ(p.pictures[1].x, 332);
    EXPECT_EQ(p.pictures[1].y, 32);
    EXPECT_EQ(p.pictures[1].picture.file, "/pictures/Basic/Left/G17.GIF");
}

TEST_F(WordPictureTest, MatchesThePictureTheWordViewDraws) {
    const char* layouts[] = {"A1(0,0) ", "A1(0,60) - G17(300,0) - N35( 40, 700) ",
                             "N35(0,0) - A1(600,90) - MISSING(1000,0) ", ""};
    for (const char* layout : layouts) {
        t.app.store.setRow(0, word("R", "B", layout));
        RenderWord(t.app);
        const WordPicture& screen = t.app.view.TemPic;
        const WordPicture paper = PictureOfWord(t.app, 0);
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

TEST_F(WordPictureTest, SignsLeftOfOrAboveTheOriginMoveTheGroup) {
    const WordPicture p = PictureOfRecord(t.pictures, word("L", "B", "A1(-100,0) - N35(300,-45) "));
    ASSERT_EQ(p.pictures.size(), 2u);
    EXPECT_EQ(p.pictures[0].x, 32);
    EXPECT_EQ(p.pictures[0].y, 32 + 45);
    EXPECT_EQ(p.pictures[1].x, 32 + 400);
    EXPECT_EQ(p.pictures[1].y, 32);
    EXPECT_EQ(p.width, 1000 + 64);
    EXPECT_EQ(p.height, 540 + 45 + 64);
}

TEST_F(WordPictureTest, EmptyCodesAndEmptyLayoutsDrawNoSign) {
    EXPECT_TRUE(PictureOfRecord(t.pictures, word("L", "B", "")).pictures.empty());
    const WordPicture p = PictureOfRecord(t.pictures, word("L", "B", " (0,0) - A1(10,0) "));
    ASSERT_EQ(p.pictures.size(), 1u);
    EXPECT_EQ(p.pictures[0].x, 42);
    EXPECT_EQ(PictureOfRecord(t.pictures, word("L", "B", "")).width, 64);
}

TEST_F(WordPictureTest, AnUnreadableLayoutFailsAloneButPrintsWithoutSigns) {
    EXPECT_THROW(PictureOfRecord(t.pictures, word("L", "B", "A1 0,0 ")), RunError);
    const PrintWord w = MakePrintWord(t.pictures, 7, word("L", "B", "A1 0,0 "));
    EXPECT_EQ(w.index, 7);
    EXPECT_TRUE(w.picture.pictures.empty());
    EXPECT_EQ(w.record[FieldLayout], "A1 0,0 ");
}

TEST_F(WordPictureTest, CollectingWordsReadsEachSignOnce) {
    CountingPictures counting;
    CachedSignPictures cached(counting);
    for (int i = 0; i < 50; ++i) {
        PictureOfRecord(cached, word("L", "B", "A1(0,0) - G17(100,0) - A1(200,0) "));
        PictureOfRecord(cached, word("R", "B", "A1(0,0) "));
    }
    EXPECT_EQ(counting.calls, 3); // A1 left, G17 left, A1 right

    t.app.store.setRow(0, word("L", "B", "A1(0,0) "));
    t.app.store.setRow(1, word("L", "B", "broken"));
    t.app.store.setRow(2, word("L", "B", "G17(0,0) "));
    t.app.store.lastIndex = 2;
    const auto words = CollectWords(t.app, {2, 0, 1});
    ASSERT_EQ(words.size(), 3u);
    EXPECT_EQ(words[0].index, 2);
    EXPECT_EQ(words[0].picture.pictures.at(0).picture.file, "/pictures/Basic/Left/G17.GIF");
    EXPECT_EQ(words[1].index, 0);
    EXPECT_TRUE(words[2].picture.pictures.empty());
}
