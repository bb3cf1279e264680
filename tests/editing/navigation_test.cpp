#include "core/dictionary_file.h"
#include "editing/navigation.h"
#include "editing_support.h"

#include <functional>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

struct Move {
    const char* name;
    std::function<void(App&)> run;
};

const Move moves[] = {
    {"First", showFirstWord}, {"Last", showLastWord},     {"Go", [](App& a) { goToWord(a, "1"); }},
    {"Next", showNextWord},   {"Random", showRandomWord}, {"Previous", showPreviousWord},
};

struct NavigationTest : EditingTest {
    void SetUp() override {
        EditingTest::SetUp();
        words(4);
        app.randomSeed = [] { return std::uint64_t{7}; };
    }
};

} // namespace

// Whether a word is edited is read from its boxes, not from flags or focus: a box typed
// into, a box the typewriter or Guess changed, a new word waiting. Every move asks the same
// question then; Yes stores in memory, No shows the stored word again.
TEST_F(NavigationTest, EveryMoveOffAnEditedWordAsksToStoreIt) {
    struct editWord {
        const char* name;
        std::function<void(App&)> make;
        bool asks;
    } edits[] = {
        {"nothing changed", [](App&) {}, false},
        {"edit flag with the stored text", [](App& a) { a.store.editPending = true; }, false},
        {"text typed", [](App& a) { a.view.meaning = "typed"; }, true},
        {"layout recomposed", [](App& a) { a.view.richGardiner = "A1(0,0) "; }, true},
        {"new word waiting", [](App& a) { a.store.newWordPending = true; }, true},
    };
    for (const Move& m : moves) {
        for (const editWord& e : edits) {
            for (const Answer answer : {Answer::Yes, Answer::No}) {
                SCOPED_TRACE(std::string(m.name) + ", " + e.name);
                words(4);
                show(2);
                t.dialogs.prompts.clear();
                e.make(app);
                if (e.asks) t.dialogs.answers.push_back(answer);
                m.run(app);
                ASSERT_EQ(t.dialogs.prompts.size(), e.asks ? 1u : 0u);
                if (e.asks) {
                    const Prompt& p = t.dialogs.prompts[0];
                    EXPECT_EQ(p.text, StoreWordQuestion);
                    EXPECT_EQ(p.buttons, Buttons::YesNo);
                    EXPECT_EQ(p.icon, Icon::Question);
                    EXPECT_EQ(app.store.isChanged, answer == Answer::Yes);
                    // Yes stores the edit into the word it was made on.
                    EXPECT_EQ(app.store.field(2, FieldMeaning) == "typed",
                              answer == Answer::Yes && e.name == std::string("text typed"));
                }
                EXPECT_FALSE(app.store.newWordPending || app.store.editPending);
                EXPECT_FALSE(std::filesystem::exists(app.store.dictionaryPath));
                EXPECT_EQ(app.view.transliteration, translit(app.store.currentIndex));
            }
        }
    }
}

TEST_F(NavigationTest, MovesStayWithinTheDictionary) {
    const struct {
        const char* name;
        std::function<void(App&)> run;
        int from, expected;
    } cases[] = {{"Next on the last word", showNextWord, 3, 3},
                 {"Next", showNextWord, 1, 2},
                 {"Previous on word 0", showPreviousWord, 0, 0},
                 {"Previous", showPreviousWord, 2, 1},
                 {"First", showFirstWord, 2, 0},
                 {"Last", showLastWord, 0, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        show(c.from);
        c.run(app);
        EXPECT_EQ(app.store.currentIndex, c.expected);
        EXPECT_EQ(app.view.wordNumber, std::to_string(c.expected));
    }
}

TEST_F(NavigationTest, GoRefusesWhatIsNoWordOfTheDictionary) {
    show(2);
    for (const char* typed : {"abc", "", "3x", "99999999999", "-1", "4", "100000"}) {
        SCOPED_TRACE(typed);
        t.dialogs.prompts.clear();
        EXPECT_FALSE(goToWord(app, typed));
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
        EXPECT_NE(t.dialogs.prompts[0].text.find("0 to 3"), std::string::npos);
        EXPECT_EQ(app.view.transliteration, "w2");
    }
    EXPECT_TRUE(goToWord(app, " 3 "));
    EXPECT_EQ(app.view.transliteration, "w3");
}

// One word (or none) is always word 0, the last of more is never drawn, and after the only
// word was deleted there is nothing to show.
TEST(RandomTest, IndexOfADraw) {
    const std::tuple<int, double, int> cases[] = {{0, 0.99, 0}, {1, 0.999, 0},    {4, 0.0, 0},
                                                  {4, 0.75, 3}, {4, 0.999999, 3}, {-1, 0.5, -1}};
    for (auto [last, r, want] : cases) EXPECT_EQ(randomIndex(last, r), want) << last << " " << r;
}
