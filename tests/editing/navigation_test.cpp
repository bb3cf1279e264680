#include "core/dictionary_file.h"
#include "editing/navigation.h"
#include "editing_support.h"

#include <functional>
#include <set>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

struct Move {
    const char* name;
    std::function<void(App&)> run;
    // The question asked when a word is unfinished; empty when the move asks nothing.
    const char* question;
    const char* title;
};

const Move moves[] = {
    {"First", First, "", ""},
    {"Last", Last, "", ""},
    {"Go", [](App& a) { Go(a, "1"); }, "", ""},
    {"Next", Next, "Do you want to save the current item?", "SAVE?"},
    {"Random", Random, "Do you want to save the current item?", "SAVE?"},
    {"Previous", Previous, "Do you want to store the current item?", ""},
};

struct NavigationTest : EditingTest {
    void SetUp() override {
        EditingTest::SetUp();
        words(4);
        app.randomSeed = [] { return std::uint64_t{7}; };
    }
};

} // namespace

TEST_F(NavigationTest, OnlyNextRandomAndPreviousAskAndClearTheFlags) {
    // Nothing unfinished: no move asks.
    for (const Move& m : moves) m.run(app);
    EXPECT_TRUE(t.dialogs.prompts.empty());
    for (const Move& m : moves) {
        for (const bool newWord : {false, true}) {
            SCOPED_TRACE(std::string(m.name) + (newWord ? " with a new word" : " with an edit"));
            t.dialogs.prompts.clear();
            app.store.currentIndex = 1;
            app.store.newWordPending = newWord;
            app.store.editPending = !newWord;
            if (*m.question) t.dialogs.answers.push_back(Answer::No);
            m.run(app);
            if (*m.question) {
                ASSERT_EQ(t.dialogs.prompts.size(), 1u);
                const Prompt& p = t.dialogs.prompts[0];
                EXPECT_EQ(p.text, m.question);
                EXPECT_EQ(p.title, m.title);
                EXPECT_EQ(p.buttons, Buttons::YesNo);
                EXPECT_EQ(p.icon, Icon::Question);
                EXPECT_FALSE(app.store.newWordPending || app.store.editPending);
            } else {
                EXPECT_TRUE(t.dialogs.prompts.empty());
                EXPECT_EQ(app.store.newWordPending, newWord);
                EXPECT_EQ(app.store.editPending, !newWord);
            }
        }
    }
}

TEST_F(NavigationTest, NextAnsweredYesSavesTheUnfinishedWordToTheFile) {
    app.store.currentIndex = 1;
    app.view.TransLitTxt = "changed";
    app.store.editPending = true;
    t.dialogs.answers.push_back(Answer::Yes);
    Next(app);
    EXPECT_EQ(translit(1), "changed");
    EXPECT_FALSE(app.store.isChanged);
    EXPECT_NE(readFile(app.store.dictionaryPath).find("\"changed\""), std::string::npos);
    EXPECT_EQ(app.store.currentIndex, 2);
    EXPECT_EQ(app.view.TransLitTxt, "w2");
}

TEST_F(NavigationTest, PreviousAnsweredYesStoresInMemoryOnly) {
    app.store.currentIndex = 2;
    app.view.MeaningTxt = "changed";
    app.store.editPending = true;
    t.dialogs.answers.push_back(Answer::Yes);
    Previous(app);
    EXPECT_EQ(app.store.field(2, FieldMeaning), "changed");
    EXPECT_TRUE(app.store.isChanged);
    EXPECT_FALSE(std::filesystem::exists(app.store.dictionaryPath));
    EXPECT_EQ(app.store.currentIndex, 1);
}

TEST_F(NavigationTest, AnsweringNoDropsTheUnfinishedWord) {
    for (const Move& m : moves) {
        if (!*m.question) continue;
        SCOPED_TRACE(m.name);
        app.store.currentIndex = 1;
        RenderWord(app);
        app.view.TransLitTxt = "typed";
        app.store.editPending = true;
        t.dialogs.answers.push_back(Answer::No);
        m.run(app);
        EXPECT_EQ(translit(1), "w1");
        EXPECT_FALSE(app.store.isChanged);
        EXPECT_EQ(app.view.TransLitTxt, translit(app.store.currentIndex));
    }
}

TEST_F(NavigationTest, MovesStayWithinTheDictionary) {
    struct Case {
        const char* name;
        std::function<void(App&)> run;
        int from;
        int expected;
    } cases[] = {
        {"Next on the last word", Next, 3, 3},
        {"Next", Next, 1, 2},
        {"Previous on word 0", Previous, 0, 0},
        {"Previous", Previous, 2, 1},
        {"First", First, 2, 0},
        {"Last", Last, 0, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        app.store.currentIndex = c.from;
        c.run(app);
        EXPECT_EQ(app.store.currentIndex, c.expected);
        EXPECT_EQ(app.view.txtNumber, std::to_string(c.expected));
    }
}

TEST_F(NavigationTest, GoMinusOneLeavesTheOldWordAndNextThenShowsWordZero) {
    Go(app, "2");
    EXPECT_EQ(app.view.TransLitTxt, "w2");
    Go(app, "-1");
    EXPECT_EQ(app.store.currentIndex, -1);
    EXPECT_EQ(app.view.TransLitTxt, "w2");
    Next(app);
    EXPECT_EQ(app.store.currentIndex, 0);
    EXPECT_EQ(app.view.TransLitTxt, "w0");
}

TEST_F(NavigationTest, GoPastTheLastWordShowsAnEmptyRow) {
    Go(app, " 7 ");
    EXPECT_EQ(app.store.currentIndex, 7);
    EXPECT_EQ(app.view.TransLitTxt, "");
    EXPECT_EQ(app.view.txtNumber, "7");
}

TEST_F(NavigationTest, GoWithTextThatIsNoNumberIsReportedAndChangesNothing) {
    app.store.currentIndex = 2;
    RenderWord(app);
    for (const char* typed : {"abc", "", "  ", "3x", "99999999999"}) {
        SCOPED_TRACE(typed);
        t.dialogs.prompts.clear();
        EXPECT_FALSE(Go(app, typed));
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
        EXPECT_NE(t.dialogs.prompts[0].text.find("0 to 3"), std::string::npos);
        EXPECT_EQ(app.store.currentIndex, 2);
        EXPECT_EQ(app.view.TransLitTxt, "w2");
    }
}

TEST_F(NavigationTest, RandomNeverReachesTheLastWord) {
    std::set<int> seen;
    std::uint64_t seed = 0;
    app.randomSeed = [&seed] { return seed; };
    for (seed = 0; seed < 4000; ++seed) {
        Random(app);
        ASSERT_GE(app.store.currentIndex, 0);
        ASSERT_LT(app.store.currentIndex, 3) << "seed " << seed;
        seen.insert(app.store.currentIndex);
    }
    EXPECT_EQ(seen, (std::set<int>{0, 1, 2}));
}

TEST(RandomTest, IndexOfADraw) {
    struct Case {
        int lastIndex;
        double r;
        int expected;
    } cases[] = {
        {0, 0.99, 0},  // one word (or none): always word 0
        {1, 0.999, 0}, // two words: never the last
        {4, 0.0, 0},      {4, 0.75, 3},
        {4, 0.999999, 3}, {-1, 0.5, -1}, // after the only word was deleted: nothing to show
    };
    for (const Case& c : cases)
        EXPECT_EQ(RandomIndex(c.lastIndex, c.r), c.expected) << c.lastIndex << " " << c.r;
}

TEST(RandomTest, DrawsAreRepeatableAndInTheUnitInterval) {
    for (std::uint64_t seed : {0ull, 1ull, 86399999ull}) {
        const double r = RandomDraw(seed);
        EXPECT_GE(r, 0.0);
        EXPECT_LT(r, 1.0);
        EXPECT_EQ(r, RandomDraw(seed));
    }
    EXPECT_NE(RandomDraw(1), RandomDraw(2));
    EXPECT_LT(TimeOfDaySeed(), 86400000u);
}
