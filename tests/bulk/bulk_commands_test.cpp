// The bulk commands: shuffle, flip all words and the reading order of every word.
#include "bulk/bulk_commands.h"
#include "bulk/reading_order.h"
#include "bulk_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Words 0..n-1 with two signs each; their meanings are their numbers.
void numberedWords(BulkApp& t, int n) {
    t.pictures.sizes = {{"A1", {40, 40}}, {"B1", {20, 40}}};
    std::vector<WordRecord> words;
    for (int i = 0; i < n; ++i)
        words.push_back({"L", "B", "A1(0,0) - B1(40,0) ", "A1 - B1", "t", std::to_string(i), ""});
    t.setWords(words);
}

// Sort Gardiner over words given by their direction and layout, with this answer in the
// overlap box (nullopt: the box is cancelled).
struct ReadingOrder : BulkApp {
    ReadingOrder(std::vector<std::pair<std::string, std::string>> words,
                 std::optional<std::string> overlap) {
        pictures.sizes = {{"A1", {40, 40}},
                          {"G17", {40, 40}},
                          {"N35", {10, 10}},
                          {"B1", {10, 10}},
                          {"C1", {10, 10}}};
        std::vector<WordRecord> rows;
        for (const auto& [dir, layout] : words)
            rows.push_back({dir, "B", layout, "old", "nfr", "good", "note"});
        setWords(rows);
        dialogs.inputs.push_back(overlap);
        sortGardinerCommand(app);
    }
};

} // namespace

TEST(Shuffle, ConfirmedAndSavedFirstOnRequestItShufflesOnlyTheWords) {
    struct Case {
        bool changed;
        std::vector<Answer> answers; // the confirmation, then "save first?"
        bool saveAs, shuffled;
    } cases[] = {
        {false, {Answer::No}, false, false},
        {false, {Answer::Yes}, false, true},
        {true, {Answer::Yes, Answer::Cancel}, false, false},
        {true, {Answer::Yes, Answer::No}, false, true},
        {true, {Answer::Yes, Answer::Yes}, true, true},
    };
    for (const auto& c : cases) {
        BulkApp t;
        numberedWords(t, 30);
        t.app.store.setRow(30, {"L", "B", "", "", "", "past the end", ""});
        renderWord(t.app);
        t.app.store.isChanged = c.changed;
        t.dialogs.answers.assign(c.answers.begin(), c.answers.end());
        if (c.saveAs) t.dialogs.files.push_back(std::filesystem::path("/elsewhere/New.nkd"));
        shuffleCommand(t.app);
        EXPECT_EQ(t.dialogs.prompts[0].text,
                  "Are you sure you want to shuffle the dictionary?\r\nThis cannot be undone");
        EXPECT_EQ(t.files.written.count("/elsewhere/New.nkd"), c.saveAs ? 1u : 0u);
        Strings meanings = t.column(FieldMeaning), expected;
        for (int i = 0; i < 30; ++i) expected.push_back(std::to_string(i));
        EXPECT_EQ(meanings != expected, c.shuffled);
        EXPECT_TRUE(std::is_permutation(meanings.begin(), meanings.end(), expected.begin()));
        EXPECT_EQ(t.app.store.field(30, FieldMeaning), "past the end");
        EXPECT_EQ(t.app.view.meaning, t.app.store.field(0, FieldMeaning));
    }
}

TEST(FlipAllWords, FlipsEveryWordAndComesBackToTheCurrentOne) {
    struct Case {
        FlipMode mode;
        Strings before, after;
        bool editPending;
    } cases[] = {
        {FlipMode::Left, {"L", "R", "R"}, {"L", "L", "L"}, true},
        {FlipMode::Right, {"L", "R", "L"}, {"R", "R", "R"}, false},
        {FlipMode::Invert, {"L", "R", "L"}, {"R", "L", "R"}, false},
    };
    for (const auto& c : cases) {
        BulkApp t;
        numberedWords(t, 3);
        for (int i = 0; i < 3; ++i) t.app.store.setField(i, FieldDirection, c.before[i]);
        t.app.store.currentIndex = 1;
        t.dialogs.answers = {Answer::OK};
        flipAllCommand(t.app, c.mode);
        EXPECT_EQ(t.column(FieldDirection), c.after);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(t.app.store.field(i, FieldLayout), c.before[i] == c.after[i]
                                                             ? "A1(0,0) - B1(40,0) "
                                                             : "A1( 20, 0) - B1( 0, 0) ");
        EXPECT_EQ(t.app.store.currentIndex, 1);
        EXPECT_EQ(t.app.store.editPending, c.editPending);
        EXPECT_EQ(t.windows.progress, (Strings{"show:Flipping Started", "hide"}));
    }
}

TEST(FlipAllWords, CancelAndAWordWithoutSignsStopTheRun) {
    BulkApp t;
    numberedWords(t, 10);
    t.app.store.currentIndex = 6;
    t.app.sortCancelled = true; // left over from an earlier run: cleared at the start
    t.events.onYield = [&] {
        if (t.events.yields == 3) t.app.sortCancelled = true;
    };
    t.dialogs.answers = {Answer::OK};
    flipAllCommand(t.app, FlipMode::Invert);
    // Words 0..2 were flipped before the third yield; word 3 is the one in hand when the
    // Cancel is seen.
    EXPECT_EQ(t.column(FieldDirection),
              (Strings{"R", "R", "R", "R", "L", "L", "L", "L", "L", "L"}));
    EXPECT_EQ(t.app.view.meaning, "6");

    // The warning counts the words with thousands separators; Cancel there does nothing.
    BulkApp w;
    w.app.store.lastIndex = 12344;
    w.dialogs.answers = {Answer::Cancel};
    flipAllCommand(w.app, FlipMode::Invert);
    EXPECT_EQ(w.dialogs.messages(), Strings{"It may take a while to flip 12,345 words"});
    EXPECT_TRUE(w.windows.progress.empty());

    BulkApp e;
    numberedWords(e, 3);
    e.app.store.setField(1, FieldLayout, "");
    e.dialogs.answers = {Answer::OK};
    flipAllCommand(e.app, FlipMode::Right);
    // The word that failed is left whole: its direction did not change without its signs.
    EXPECT_EQ(e.column(FieldDirection), (Strings{"R", "L", "L"}));
    EXPECT_EQ(e.dialogs.prompts.back().text, "5  Invalid procedure call or argument");
    EXPECT_EQ(e.app.store.currentIndex, 0);
}

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
    EXPECT_EQ(t.column(FieldLayout), (Strings{"A1( 0, 0) - B1( 10, 0) ", "", unordered}));
    EXPECT_EQ(t.app.store.currentIndex, 1);
    EXPECT_EQ(t.dialogs.prompts.front().text, "How much % overlap do you want to allow?");
    EXPECT_EQ(t.dialogs.prompts.back().text, "5  Invalid procedure call or argument");
    EXPECT_EQ(t.dialogs.prompts.back().icon, Icon::Critical);
    for (const auto& answer : {std::optional<std::string>(""), std::optional<std::string>()})
        EXPECT_EQ(ReadingOrder({{"L", unordered}}, answer).column(FieldLayout), Strings{unordered});
}
