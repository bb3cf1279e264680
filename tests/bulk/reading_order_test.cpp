#include "bulk/bulk_commands.h"
#include "bulk/reading_order.h"
#include "bulk_fixture.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

struct ReadingOrder : ::testing::Test {
    BulkApp t;
    void SetUp() override {
        t.pictures.sizes = {{"A1", {40, 40}}, {"G17", {40, 40}}, {"N35", {10, 10}},
                            {"B1", {10, 10}}, {"C1", {10, 10}},  {"D21", {300, 100}}};
    }
    // One word: its direction and layout, with meaning, transliteration and comment to keep.
    WordRecord word(const std::string& dir, const std::string& layout) {
        return {dir, "B", layout, "old", "nfr", "good", "note"};
    }
    // Runs Sort Gardiner with this answer in the overlap box.
    void sortGardiner(const std::string& answer) {
        t.dialogs.inputs.push_back(answer);
        sortGardinerCommand(t.app);
    }
};

} // namespace

TEST_F(ReadingOrder, OverlapDecidesBetweenTopFirstAndWritingDirection) {
    struct Case {
        std::string overlap, dir, layout, expected;
    } cases[] = {
        // 20 %: edges Int(50 * 0.8) = 40 and Int(40 * 0.8) = 32; 0 < 40 and 10 < 32, so the
        // two stand one above the other and the upper one comes first.
        {"20", "R", "A1(10,50) - G17(0,0) ", "G17( 0, 0) - A1( 10, 50) "},
        // 100 %: every edge is 0, nothing overlaps, the writing direction decides.
        {"100", "R", "A1(10,50) - G17(0,0) ", "A1( 10, 50) - G17( 0, 0) "},
        {"100", "L", "A1(10,50) - G17(0,0) ", "G17( 0, 0) - A1( 10, 50) "},
        // 20 %: X 31 is still under the first sign's edge 32, X 32 no longer is.
        {"20", "L", "A1(0,50) - G17(31,0) ", "G17( 31, 0) - A1( 0, 50) "},
        {"20", "L", "A1(0,50) - G17(32,0) ", "A1( 0, 50) - G17( 32, 0) "},
        // Not a number: no overlap is allowed (tolerance 1); the edges are X + width.
        {"many", "L", "A1(0,50) - G17(39,0) ", "G17( 39, 0) - A1( 0, 50) "},
        // Equal tops, one above the other: they keep their places.
        {"0", "L", "B1(0,0) - C1(5,0) ", "B1( 0, 0) - C1( 5, 0) "},
        {"0", "R", "C1(5,0) - B1(0,0) ", "C1( 5, 0) - B1( 0, 0) "},
        // Each sign's edge is taken once before its comparisons: C1 is compared with B1
        // (moved to slot 0) against the edge of N35 (110), which C1 (105) lies under.
        {"0", "L", "N35(100,0) - B1(0,50) - C1(105,0) ",
         "C1( 105, 0) - B1( 0, 50) - N35( 100, 0) "},
        // 0.7 in single precision lies just below 0.7: an edge of 10 twips scales to 6, not
        // 7, so a sign at X 6 (width 10) and one at X 0 no longer overlap.
        {"30", "L", "C1(6,0) - B1(0,50) ", "B1( 0, 50) - C1( 6, 0) "},
    };
    for (const auto& c : cases) {
        BulkApp fresh;
        fresh.pictures.sizes = t.pictures.sizes;
        fresh.setWords({word(c.dir, c.layout)});
        fresh.dialogs.inputs.push_back(c.overlap);
        sortGardinerCommand(fresh.app);
        EXPECT_EQ(fresh.app.store.field(0, FieldLayout), c.expected)
            << c.overlap << " " << c.dir << " " << c.layout;
    }
}

TEST_F(ReadingOrder, RebuiltTextsKeepTheirTrailingBlanksAndTheOtherFields) {
    t.setWords({word("L", "A1(0,0) "), word("L", "N35(0,-20) - D21(0,0) ")});
    sortGardiner("20");
    EXPECT_EQ(t.app.store.row(0),
              (WordRecord{"L", "B", "A1( 0, 0) ", "A1 ", "nfr", "good", "note"}));
    EXPECT_EQ(t.app.store.row(1), (WordRecord{"L", "B", "N35( 0,-20) - D21( 0, 0) ", "N35 - D21 ",
                                              "nfr", "good", "note"}));
    EXPECT_EQ(t.stores, 2);
    EXPECT_TRUE(t.app.store.isChanged);
    EXPECT_EQ(t.dialogs.prompts[0].text, "How much % overlap do you want to allow?");
}

TEST_F(ReadingOrder, AWordWithoutSignsStopsTheRunAfterTheWordsBeforeIt) {
    t.setWords({word("L", "B1(10,0) - A1(0,0) "), word("L", ""), word("L", "B1(10,0) - A1(0,0) ")});
    sortGardiner("100");
    EXPECT_EQ(t.app.store.field(0, FieldLayout), "A1( 0, 0) - B1( 10, 0) ");
    EXPECT_EQ(t.app.store.field(1, FieldLayout), "");
    EXPECT_EQ(t.app.store.field(2, FieldLayout), "B1(10,0) - A1(0,0) ");
    EXPECT_EQ(t.app.store.currentIndex, 1);
    const Prompt& p = t.dialogs.prompts.back();
    EXPECT_EQ(p.text, "5  Invalid procedure call or argument");
    EXPECT_EQ(p.icon, Icon::Critical);
}

TEST_F(ReadingOrder, AnEmptyOrCancelledAnswerChangesNothing) {
    for (std::optional<std::string> answer :
         {std::optional<std::string>(""), std::optional<std::string>()}) {
        BulkApp fresh;
        fresh.setWords({word("L", "B1(10,0) - A1(0,0) ")});
        fresh.dialogs.inputs.push_back(answer);
        sortGardinerCommand(fresh.app);
        EXPECT_EQ(fresh.stores, 0);
        EXPECT_EQ(fresh.app.store.field(0, FieldLayout), "B1(10,0) - A1(0,0) ");
    }
}
