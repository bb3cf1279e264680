#include "bulk/bulk_commands.h"
#include "bulk_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

const char* ShuffleQuestion =
    "Are you sure you want to shuffle the dictionary?\r\nThis cannot be undone";

std::vector<WordRecord> numberedWords(int n) {
    std::vector<WordRecord> words;
    for (int i = 0; i < n; ++i)
        words.push_back({"L", "B", "A1(0,0) - B1(40,0) ", "A1 - B1", "t", std::to_string(i), ""});
    return words;
}

} // namespace

TEST(Shuffle, AsksThenShufflesOnlyTheWords) {
    BulkApp t;
    t.setWords(numberedWords(30));
    t.app.store.setRow(30, {"L", "B", "", "", "", "past the end", ""});
    t.app.store.currentIndex = 7;
    t.dialogs.answers = {Answer::Yes};
    ShuffleCommand(t.app);
    ASSERT_EQ(t.dialogs.prompts.size(), 1u);
    EXPECT_EQ(t.dialogs.prompts[0].text, ShuffleQuestion);
    EXPECT_EQ(t.dialogs.prompts[0].title, "Confirm");
    EXPECT_EQ(t.dialogs.prompts[0].buttons, Buttons::YesNo);
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
    std::vector<std::string> meanings = t.column(FieldMeaning);
    std::vector<std::string> expected;
    for (int i = 0; i < 30; ++i) expected.push_back(std::to_string(i));
    EXPECT_NE(meanings, expected);
    std::sort(meanings.begin(), meanings.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(meanings, expected);
    EXPECT_EQ(t.app.store.field(30, FieldMeaning), "past the end");
    EXPECT_EQ(t.app.store.currentIndex, 0);
    EXPECT_EQ(t.app.view.MeaningTxt, t.app.store.field(0, FieldMeaning));
    EXPECT_TRUE(t.app.store.isChanged);
}

TEST(Shuffle, UnsavedWorkIsOfferedASaveAsFirst) {
    struct Case {
        std::vector<Answer> answers;
        bool saveDialog, shuffled;
    } cases[] = {
        {{Answer::No}, false, false},
        {{Answer::Yes, Answer::Cancel}, false, false},
        {{Answer::Yes, Answer::No}, false, true},
        {{Answer::Yes, Answer::Yes}, true, true},
    };
    for (const auto& c : cases) {
        BulkApp t;
        t.setWords(numberedWords(20));
        t.app.store.isChanged = true;
        t.dialogs.answers.assign(c.answers.begin(), c.answers.end());
        if (c.saveDialog) t.dialogs.files.push_back(std::filesystem::path("/elsewhere/New.nkd"));
        ShuffleCommand(t.app);
        if (c.answers.size() > 1) {
            const Prompt& p = t.dialogs.prompts[1];
            EXPECT_EQ(p.text, "Do you want so save the dictionary?");
            EXPECT_EQ(p.title, "Confirm");
            EXPECT_EQ(p.buttons, Buttons::YesNoCancel);
            EXPECT_EQ(p.icon, Icon::Question);
        }
        EXPECT_EQ(t.files.written.count("/elsewhere/New.nkd"), c.saveDialog ? 1u : 0u);
        EXPECT_EQ(t.app.store.field(0, FieldMeaning) != "0" ||
                      t.app.store.field(1, FieldMeaning) != "1",
                  c.shuffled);
    }
}

TEST(Shuffle, OneWordStaysButCountsAsChanged) {
    BulkApp t;
    t.setWords(numberedWords(1));
    t.app.store.setRow(1, {"L", "B", "", "", "", "past the end", ""});
    ShuffleDictionary(t.app, 1);
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "0");
    EXPECT_EQ(t.app.store.field(1, FieldMeaning), "past the end");
    EXPECT_TRUE(t.app.store.isChanged);
}

TEST(Shuffle, ASeedGivesARepeatableOrder) {
    BulkApp a, b;
    a.setWords(numberedWords(50));
    b.setWords(numberedWords(50));
    ShuffleDictionary(a.app, 42);
    ShuffleDictionary(b.app, 42);
    EXPECT_EQ(a.column(FieldMeaning), b.column(FieldMeaning));
}

TEST(FlipAllWords, WarningCountsTheWordsWithThousandsSeparators) {
    const std::pair<int, const char*> cases[] = {
        {0, "It may take a while to flip 1 words"},
        {12344, "It may take a while to flip 12,345 words"},
    };
    for (auto [last, text] : cases) {
        BulkApp t;
        t.app.store.lastIndex = last;
        t.dialogs.answers = {Answer::Cancel};
        FlipAllCommand(t.app, FlipMode::Invert);
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].text, text);
        EXPECT_EQ(t.dialogs.prompts[0].title, "Warning");
        EXPECT_EQ(t.dialogs.prompts[0].buttons, Buttons::OKCancel);
        EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
        EXPECT_TRUE(t.windows.progress.empty());
    }
}

TEST(FlipAllWords, FlipsEveryWordAndComesBackToTheCurrentOne) {
    struct Case {
        FlipMode mode;
        std::vector<std::string> before, after;
        bool editPending;
    } cases[] = {
        {FlipMode::Left, {"L", "R", "R"}, {"L", "L", "L"}, true},
        {FlipMode::Right, {"L", "R", "L"}, {"R", "R", "R"}, false},
        {FlipMode::Invert, {"L", "R", "L"}, {"R", "L", "R"}, false},
    };
    for (const auto& c : cases) {
        BulkApp t;
        t.pictures.sizes = {{"A1", {40, 40}}, {"B1", {20, 40}}};
        auto words = numberedWords(3);
        for (int i = 0; i < 3; ++i) words[i][0] = c.before[i];
        t.setWords(words);
        t.app.store.currentIndex = 1;
        t.dialogs.answers = {Answer::OK};
        FlipAllCommand(t.app, c.mode);
        EXPECT_EQ(t.column(FieldDirection), c.after);
        for (int i = 0; i < 3; ++i)
            if (c.before[i] != c.after[i]) {
                EXPECT_EQ(t.app.store.field(i, FieldLayout), "A1( 20, 0) - B1( 0, 0) ");
            }
        EXPECT_EQ(t.app.store.currentIndex, 1);
        EXPECT_EQ(t.app.view.txtNumber, "1");
        EXPECT_EQ(t.app.store.editPending, c.editPending);
        EXPECT_EQ(t.windows.progress, (std::vector<std::string>{"show:Flipping Started", "hide"}));
    }
}

TEST(FlipAllWords, CancelStopsAfterTheCurrentWord) {
    BulkApp t;
    t.pictures.sizes = {{"A1", {40, 40}}, {"B1", {20, 40}}};
    t.setWords(numberedWords(10));
    t.app.store.currentIndex = 6;
    t.app.sortCancelled = true; // left over from an earlier run: cleared at the start
    t.events.onYield = [&] {
        if (t.events.yields == 3) t.app.sortCancelled = true;
    };
    t.dialogs.answers = {Answer::OK};
    FlipAllCommand(t.app, FlipMode::Invert);
    // Words 0..2 were flipped before the third yield; word 3 is the one in hand when the
    // Cancel is seen.
    EXPECT_EQ(t.column(FieldDirection),
              (std::vector<std::string>{"R", "R", "R", "R", "L", "L", "L", "L", "L", "L"}));
    EXPECT_EQ(t.app.store.currentIndex, 6);
    EXPECT_EQ(t.app.view.MeaningTxt, "6");
}

TEST(FlipAllWords, AWordWithoutSignsIsReportedAndTheCurrentWordComesBack) {
    BulkApp t;
    t.pictures.sizes = {{"A1", {40, 40}}, {"B1", {20, 40}}};
    auto words = numberedWords(3);
    words[1][FieldLayout] = "";
    t.setWords(words);
    t.dialogs.answers = {Answer::OK};
    FlipAllCommand(t.app, FlipMode::Right);
    // The word that failed is left whole: its direction did not change without its signs.
    EXPECT_EQ(t.column(FieldDirection), (std::vector<std::string>{"R", "L", "L"}));
    EXPECT_EQ(t.dialogs.prompts.back().text, "5  Invalid procedure call or argument");
    EXPECT_EQ(t.app.store.currentIndex, 0);
}
