#include "bulk/bulk_commands.h"
#include "bulk/reading_order.h"
#include "bulk_fixture.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Sort Gardiner over words given by their direction and layout, with this answer in the
// overlap box (nullopt: the box is cancelled).
struct ReadingOrder : BulkApp {
    ReadingOrder(std::vector<std::pair<std::string, std::string>> words,
                 std::optional<std::string> overlap) {
        pictures.sizes = {{"A1", {40, 40}}, {"G17", {40, 40}}, {"N35", {10, 10}},
                          {"B1", {10, 10}}, {"C1", {10, 10}},  {"D21", {300, 100}}};
        std::vector<WordRecord> rows;
        for (const auto& [dir, layout] : words)
            rows.push_back({dir, "B", layout, "old", "nfr", "good", "note"});
        setWords(rows);
        dialogs.inputs.push_back(overlap);
        sortGardinerCommand(app);
    }
};

} // namespace

TEST(ReadingOrderTest, OverlapDecidesBetweenTopFirstAndWritingDirection) {
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
        ReadingOrder t({{c.dir, c.layout}}, c.overlap);
        EXPECT_EQ(t.app.store.field(0, FieldLayout), c.expected)
            << c.overlap << " " << c.dir << " " << c.layout;
    }
}

TEST(ReadingOrderTest, AWordWithoutSignsStopsTheRunAndNoAnswerChangesNothing) {
    const std::string unordered = "B1(10,0) - A1(0,0) ";
    ReadingOrder t({{"L", unordered}, {"L", ""}, {"L", unordered}}, "100");
    EXPECT_EQ(t.column(FieldLayout),
              (std::vector<std::string>{"A1( 0, 0) - B1( 10, 0) ", "", unordered}));
    EXPECT_EQ(t.app.store.currentIndex, 1);
    EXPECT_EQ(t.dialogs.prompts.front().text, "How much % overlap do you want to allow?");
    EXPECT_EQ(t.dialogs.prompts.back().text, "5  Invalid procedure call or argument");
    EXPECT_EQ(t.dialogs.prompts.back().icon, Icon::Critical);
    for (const auto& answer : {std::optional<std::string>(""), std::optional<std::string>()}) {
        ReadingOrder n({{"L", unordered}}, answer);
        EXPECT_EQ(n.stores, 0);
        EXPECT_EQ(n.app.store.field(0, FieldLayout), unordered);
    }
}
