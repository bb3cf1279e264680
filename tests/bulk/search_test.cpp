#include "bulk/search.h"
#include "bulk/search_dialog.h"
#include "core/errors.h"
#include "display/render.h"
#include "editing/word_editing.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// The windows a search talks to: the progress bar and the Search dialog, whose user is a
// script run while Find waits.
struct SearchWindows : Windows {
    App* app = nullptr;
    std::vector<float> progress;
    int dialogShown = 0;
    std::function<void(App&)> user;
    void setProgress(float f) override { progress.push_back(f); }
    void showSearchDialogAndWait() override {
        ++dialogShown;
        EXPECT_TRUE(app->search.visible);
        if (user) user(*app);
    }
};

struct SearchTest : ::testing::Test {
    TestApp t;
    SearchWindows windows;
    std::vector<int> rendered;

    SearchTest() {
        windows.app = &t.app;
        t.app.windows = &windows;
        t.app.renderWord = [this](App& a) { rendered.push_back(a.store.currentIndex); };
    }

    // Words with the given values in one field, the others empty.
    void words(int field, const std::vector<std::string>& values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            t.app.store.setField(static_cast<int>(i), field, values[i]);
        t.app.store.lastIndex = static_cast<int>(values.size()) - 1;
    }

    // Find through the dialog, as a user would fill it in and press OK.
    int find(int field, const std::string& text, std::function<void(App&)> options = {}) {
        windows.user = [=](App& a) {
            SearchChooseOption(a, field);
            SearchTextChanged(a, text);
            if (options) options(a);
            EXPECT_TRUE(SearchOk(a));
        };
        FindCommand(t.app);
        return t.app.store.currentIndex;
    }

    std::vector<std::string> messages() const { return t.dialogs.messages(); }
};

} // namespace

TEST(PrepareCriteria, SlashIsAStarBlanksGoAndCaseFolds) {
    struct Row {
        const char* text;
        bool caseSensitive;
        bool ignoreVariants;
        const char* pattern;
        bool wildcards;
    };
    for (const Row& r : std::vector<Row>{
             {"n/r", 0, false, "N*R", true},
             {"n/r", 1, false, "n*r", true},
             {"a b", 0, false, "AB", false},
             {" of  god ", 1, false, "ofgod", false},
             {"ra?", 0, false, "RA?", true},
             {"a//b", 1, false, "a**b", true},
             {"[a]#", 1, false, "[a]#", false}, // no "*" or "?": searched literally
             {"\u0161d", 0, false, "\u0160D", false},
             {"a1a", 0, true, "A1", false}, // upper-cased first, then the variant goes
             {"a1a", 1, true, "a1", false},
             {"A1a-G17b", 1, false, "A1a-G17b", false},
         }) {
        const SearchCriteria c =
            PrepareCriteria(r.text, true, false, r.caseSensitive, r.ignoreVariants);
        EXPECT_EQ(c.pattern, r.pattern) << r.text;
        EXPECT_EQ(c.hasWildcards, r.wildcards) << r.text;
        EXPECT_TRUE(c.exact);
        EXPECT_FALSE(c.exactWord);
    }
}

TEST(PrepareValue, FollowsThePatternsPreparation) {
    SearchCriteria c;
    EXPECT_EQ(PrepareValue("of god", c), "OFGOD");
    EXPECT_EQ(PrepareValue("\u1e25r \u0161", c), "\u1e24R\u0160");
    c.caseSensitive = true;
    EXPECT_EQ(PrepareValue("of god", c), "ofgod");
    c.ignoreVariants = true;
    EXPECT_EQ(PrepareValue("A1a - G17 - N35b", c), "A1-G17-N35");
}

TEST(StripVariants, CutsOneTrailingLetterOfEachPieceOnlyWhenADigitIsFollowedByALetter) {
    struct Row {
        const char* in;
        const char* out;
    };
    for (const Row& r : std::vector<Row>{
             {"A1a-G17-N35b", "A1-G17-N35"},
             {"Aa1", "Aa1"}, // no digit before a letter: unchanged
             {"G17-N35", "G17-N35"},
             {"A1A", "A1"},
             {"A1ab", "A1a"},        // one letter only
             {"A1a-Aa", "A1-A"},     // a piece without a variant still loses its last letter
             {"A1a:D21", "A1a:D21"}, // only "-" separates pieces
             {"A1_", "A1"},          // "_" counts as a letter
             {"1a-", "1-"},
             {"", ""},
         })
        EXPECT_EQ(StripVariants(r.in), r.out) << r.in;
}

TEST(IsWholeWord, TheFourCasesChosenByTheFirstOccurrence) {
    struct Row {
        std::size_t pos;
        const char* needle;
        const char* hay;
        bool whole;
    };
    for (const Row& r : std::vector<Row>{
             // 1: the needle is the whole field
             {1, "god", "god", true},
             // 2: at the start, the next character decides
             {1, "god", "god,king", true},
             {1, "god", "godlygod", false}, // a later whole word is not looked at
             {1, "god", "god1", true},
             {1, "god", "god_", false},
             {1, "god", "god{", true},
             // 3: at the end, the character before decides
             {3, "god", "x,god", true},
             {2, "god", "xgod", false},
             {3, "god", "x^god", false},
             {3, "god", "x`god", false},
             {3, "god", "x@god", true},
             // 4: inside, any occurrence bounded on both sides counts
             {3, "god", "a,god,b", true},
             {3, "god", "a,godb", false},
             {2, "god", "agod,god,x", true},
             {2, "god", "agod,god", false}, // the bounded one is at the very end
             {2, "god", "agod\\god", false},
             {2, "god", "agod]god[x", false},
             // 5: not found
             {0, "god", "abc", false},
             // the needle is itself, not a pattern
             {1, "a#", "a#,b", true},
             {1, "[x", "[x b", true},
             {1, "\u1e25r", "\u1e25r-nfr", true},
         })
        EXPECT_EQ(IsWholeWord(r.pos, r.needle, r.hay), r.whole)
            << r.pos << " '" << r.needle << "' in '" << r.hay << "'";
}

TEST_F(SearchTest, ExactMatchWithBlanksFindsTheFieldWithoutThem) {
    words(FieldMeaning, {"a", "abc", "ab"});
    EXPECT_EQ(find(FieldMeaning, "a b", [](App& a) { SearchSetExact(a, true); }), 2);
    EXPECT_EQ(rendered, std::vector<int>{2});
}

TEST_F(SearchTest, ExactWordIsDecidedByTheFirstOccurrence) {
    words(FieldMeaning, {"godly god", "god, king"});
    EXPECT_EQ(find(FieldMeaning, "god", [](App& a) { SearchSetExactWord(a, true); }), 1);
    words(FieldMeaning, {"godly god", "of god"}); // "ofgod" once the blanks are gone
    t.app.store.currentIndex = 0;
    EXPECT_EQ(find(FieldMeaning, "god", [](App& a) { SearchSetExactWord(a, true); }), 0);
    EXPECT_EQ(messages(), std::vector<std::string>{"Not Found!"});
}

TEST_F(SearchTest, WithoutExactOptionsAPartOfTheFieldIsEnough) {
    words(FieldMeaning, {"king", "of god", "godly"});
    EXPECT_EQ(find(FieldMeaning, "ofgod"), 1);
    EXPECT_EQ(find(FieldMeaning, "dly"), 2);
}

TEST_F(SearchTest, SlashMakesAWildcardThatMustMatchTheWholeValue) {
    words(FieldTranslit, {"anfr", "nfrw", "nfr"});
    EXPECT_EQ(find(FieldTranslit, "n/r", [](App& a) { a.search.chkCase = true; }), 2);
}

TEST_F(SearchTest, WildcardsIgnoreExactMatchAndExactWord) {
    words(FieldMeaning, {"x", "good god"});
    EXPECT_EQ(find(FieldMeaning, "g*d", [](App& a) { SearchSetExact(a, true); }), 1);
    t.app.store.currentIndex = 0;
    EXPECT_EQ(find(FieldMeaning, "?oodgod", [](App& a) { SearchSetExactWord(a, true); }), 1);
}

TEST_F(SearchTest, HashAndBracketsAreLiteralUnlessTheTextHasWildcards) {
    words(FieldComment, {"x51", "x#1", "a1", "a[1]b"});
    EXPECT_EQ(find(FieldComment, "#1"), 1);
    EXPECT_EQ(find(FieldComment, "[1]"), 3);
    EXPECT_EQ(find(FieldComment, "x#/"), 0); // with "/" it is a digit
    EXPECT_EQ(find(FieldComment, "[a]/"), 2);
    EXPECT_TRUE(messages().empty());
}

TEST_F(SearchTest, CaseSensitivityIsTheCheckBox) {
    words(FieldTranslit, {"nfr", "ra"});
    // Transliteration tells letters apart by case ("H" and "h" are different sounds), so
    // choosing it checks the box; the user may uncheck it.
    EXPECT_EQ(find(FieldTranslit, "RA"), 0);
    EXPECT_EQ(messages(), std::vector<std::string>{"Not Found!"});
    EXPECT_EQ(find(FieldTranslit, "RA", [](App& a) { a.search.chkCase = false; }), 1);
    // Scholarly letters are the plain ones the words are stored in.
    words(FieldTranslit, {"Hr", "hr", "nTr"});
    t.app.store.currentIndex = 0;
    EXPECT_EQ(find(FieldTranslit, "nṯr", [](App& a) { a.search.chkCase = true; }), 2);
    EXPECT_EQ(find(FieldMeaning, "x", [](App& a) { EXPECT_FALSE(a.search.chkCase); }), 2);
}

TEST_F(SearchTest, IgnoreVariantsWithExactMatchFindsAVariant) {
    words(FieldGardiner, {"A1b-G17", "A2", "A1a"});
    EXPECT_EQ(find(FieldGardiner, "A1",
                   [](App& a) {
                       a.search.chkIgnoreVariants = true;
                       SearchSetExact(a, true);
                   }),
              2);
    t.app.store.currentIndex = 0;
    EXPECT_EQ(find(FieldGardiner, "A1-G17",
                   [](App& a) {
                       a.search.chkIgnoreVariants = true;
                       SearchSetExact(a, true);
                   }),
              0);
    words(FieldGardiner, {"A1a"});
    EXPECT_EQ(find(FieldGardiner, "A1", [](App& a) { a.search.chkIgnoreVariants = false; }), 0);
    EXPECT_EQ(messages(), std::vector<std::string>{"Not Found!"});
}

TEST_F(SearchTest, TheFieldSearchedIsTheChosenOption) {
    t.app.store.setField(0, FieldMeaning, "sun");
    t.app.store.setField(1, FieldComment, "sun");
    t.app.store.lastIndex = 1;
    EXPECT_EQ(find(FieldComment, "sun"), 1);
    EXPECT_EQ(t.app.searchField, FieldComment);
    EXPECT_EQ(find(FieldMeaning, "sun"), 0);
    EXPECT_EQ(t.app.searchField, FieldMeaning);
}

TEST_F(SearchTest, NotFoundLeavesTheCurrentWord) {
    words(FieldMeaning, {"a", "b", "c"});
    t.app.store.currentIndex = 1;
    EXPECT_EQ(find(FieldMeaning, "zz"), 1);
    ASSERT_EQ(t.dialogs.prompts.size(), 1u);
    EXPECT_EQ(t.dialogs.prompts[0].text, "Not Found!");
    EXPECT_EQ(t.dialogs.prompts[0].title, "Not Found");
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
    EXPECT_TRUE(rendered.empty());
}

TEST_F(SearchTest, FindNextAndPreviousReuseTheCriteriaAndMoveOnFirst) {
    words(FieldMeaning, {"sun", "moon", "sun", "star", "sun"});
    EXPECT_EQ(find(FieldMeaning, "sun"), 0);
    t.app.search.txtSearch = "moon"; // typed but not accepted: not the criteria
    FindNextCommand(t.app);
    EXPECT_EQ(t.app.store.currentIndex, 2);
    FindNextCommand(t.app);
    EXPECT_EQ(t.app.store.currentIndex, 4);
    FindPreviousCommand(t.app);
    EXPECT_EQ(t.app.store.currentIndex, 2);
    FindPreviousCommand(t.app);
    EXPECT_EQ(t.app.store.currentIndex, 0);
    EXPECT_EQ(rendered, (std::vector<int>{0, 2, 4, 2, 0}));
    EXPECT_TRUE(messages().empty());
}

TEST_F(SearchTest, FindNextOnTheLastWordReportsTheEndAndTestsItAgain) {
    words(FieldMeaning, {"sun", "moon", "sun"});
    find(FieldMeaning, "sun");
    t.app.store.currentIndex = 2;
    FindNextCommand(t.app); // the last word matches: reported, then found again
    EXPECT_EQ(messages(), std::vector<std::string>{"No more words to search"});
    EXPECT_EQ(t.dialogs.prompts[0].title, "END OF FILE");
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Information);
    EXPECT_EQ(t.app.store.currentIndex, 2);
    EXPECT_EQ(rendered.back(), 2);

    t.dialogs.prompts.clear();
    words(FieldMeaning, {"sun", "moon"});
    t.app.store.currentIndex = 1;
    FindNextCommand(t.app); // the last word does not match: both messages
    EXPECT_EQ(messages(), (std::vector<std::string>{"No more words to search", "Not Found!"}));
    EXPECT_EQ(t.app.store.currentIndex, 1);
}

TEST_F(SearchTest, FindPreviousOnTheFirstWordReportsTheEndAndTestsItAgain) {
    words(FieldMeaning, {"moon", "sun"});
    find(FieldMeaning, "moon");
    FindPreviousCommand(t.app);
    EXPECT_EQ(messages(), std::vector<std::string>{"No more words to search"});
    EXPECT_EQ(t.app.store.currentIndex, 0);
    EXPECT_EQ(rendered, (std::vector<int>{0, 0}));
}

// A miss returns to the word on show, which stays the word that commands act on.
TEST_F(SearchTest, AMissGoesBackToTheWordOnShow) {
    words(FieldMeaning, {"sun", "moon", "star", "comet"});
    find(FieldMeaning, "star");
    for (const auto& findAgain : {FindNextCommand, FindPreviousCommand}) {
        t.app.store.currentIndex = 2;
        findAgain(t.app);
        EXPECT_EQ(messages().back(), "Not Found!");
        EXPECT_EQ(t.app.store.currentIndex, 2);
    }
}

TEST_F(SearchTest, ProgressAfterEachMissButNotInWildcardSearches) {
    words(FieldMeaning, {"a", "b", "c", "sun", "e"});
    find(FieldMeaning, "sun");
    EXPECT_EQ(windows.progress, (std::vector<float>{0.0f, 0.25f, 0.5f}));
    windows.progress.clear();
    t.app.store.currentIndex = 4;
    FindPreviousCommand(t.app); // from 3: matches at once
    EXPECT_TRUE(windows.progress.empty());
    find(FieldMeaning, "s/n");
    EXPECT_TRUE(windows.progress.empty());
    words(FieldMeaning, {"a"}); // one word: the bar has nowhere to go
    find(FieldMeaning, "sun");
    EXPECT_EQ(windows.progress, std::vector<float>{0.0f});
}

TEST_F(SearchTest, FindAsksToStoreAnEditedWordFirst) {
    InstallEditing(t.app);
    words(FieldMeaning, {"sun", "moon"});
    t.app.store.currentIndex = 1;
    for (const Answer a : {Answer::No, Answer::Yes}) {
        RenderWord(t.app);
        t.app.view.MeaningTxt = "moonlight";
        t.dialogs.answers = {a};
        find(FieldMeaning, "sun");
        const Prompt& q = t.dialogs.prompts.front();
        EXPECT_EQ(q.text, StoreWordQuestion);
        EXPECT_EQ(q.buttons, Buttons::YesNo);
        EXPECT_EQ(t.app.store.field(1, FieldMeaning), a == Answer::Yes ? "moonlight" : "moon");
        t.dialogs.prompts.clear();
        t.app.store.currentIndex = 1;
    }
    EXPECT_EQ(windows.dialogShown, 2);
}

TEST_F(SearchTest, FindAimsTheTypewriterAtTheSearchBoxUntilOk) {
    words(FieldMeaning, {"sun"});
    std::vector<TypewriterTarget> whileOpen;
    windows.user = [&](App& a) {
        whileOpen.push_back(a.typewriterTarget);
        a.typewriterTarget = TypewriterTarget::MainTransLit; // the user clicked elsewhere
        SearchTextFocused(a);
        whileOpen.push_back(a.typewriterTarget);
        a.search.txtSearch = "sun";
        SearchOk(a);
    };
    FindCommand(t.app);
    EXPECT_EQ(whileOpen, (std::vector<TypewriterTarget>{TypewriterTarget::SearchText,
                                                        TypewriterTarget::SearchText}));
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
    EXPECT_FALSE(t.app.search.visible);
    EXPECT_TRUE(t.app.search.loaded); // hidden, kept for the next Find
}

TEST_F(SearchTest, CancelledOrEmptyDialogSearchesNothing) {
    words(FieldMeaning, {"sun"});
    windows.user = [](App& a) {
        a.search.txtSearch = "sun";
        SearchCancel(a);
    };
    FindCommand(t.app);
    EXPECT_TRUE(rendered.empty());
    EXPECT_TRUE(t.dialogs.prompts.empty());
    // OK on an empty box is refused; the window being closed then counts as Cancel.
    windows.user = [](App& a) {
        EXPECT_FALSE(SearchOk(a));
        SearchCancel(a);
    };
    FindCommand(t.app);
    EXPECT_EQ(messages(), std::vector<std::string>{"You must write something in the search box"});
    EXPECT_TRUE(rendered.empty());
}

TEST_F(SearchTest, TheDialogKeepsItsEntriesBetweenFinds) {
    words(FieldMeaning, {"moon", "sun"});
    find(FieldMeaning, "sun", [](App& a) { SearchSetExact(a, true); });
    windows.user = [](App& a) {
        EXPECT_EQ(a.search.txtSearch, "sun");
        EXPECT_TRUE(a.search.ChkExact);
        EXPECT_EQ(a.search.option, FieldMeaning);
        SearchOk(a);
    };
    t.app.store.currentIndex = 0;
    FindCommand(t.app);
    EXPECT_EQ(t.app.store.currentIndex, 1);
}

TEST_F(SearchTest, ASecondFindWhileTheDialogIsUpDoesNothing) {
    words(FieldMeaning, {"sun"});
    windows.user = [this](App& a) {
        FindCommand(a);
        EXPECT_EQ(windows.dialogShown, 1);
        a.search.txtSearch = "sun";
        SearchOk(a);
    };
    FindCommand(t.app);
    EXPECT_EQ(rendered, std::vector<int>{0});
    EXPECT_FALSE(t.app.search.waiting);
}

TEST_F(SearchTest, RunTimeErrorsAreReported) {
    words(FieldMeaning, {"sun"});
    find(FieldMeaning, "[a/");
    EXPECT_EQ(messages(), std::vector<std::string>{"93  Invalid pattern string"});
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Critical);
    t.dialogs.prompts.clear();
    find(FieldMeaning, "sun");
    t.app.store.currentIndex = 200000; // gone to with Go, which checks nothing
    FindPreviousCommand(t.app);
    EXPECT_EQ(messages(), std::vector<std::string>{"9  Subscript out of range"});
}

TEST(FindMatch, WalksEitherWayInclusiveOfBothEnds) {
    DictionaryStore s;
    for (int i = 0; i < 6; ++i) s.setField(i, FieldMeaning, i % 2 ? "sun" : "moon");
    s.lastIndex = 5;
    const SearchCriteria c = PrepareCriteria("sun", true, false, false, false);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 0, 5, 1), 1);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 2, 5, 1), 3);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 5, 0, -1), 5);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 4, 0, -1), 3);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 2, 2, 1), -1);
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, 3, 2, 1), -1); // an empty walk
    EXPECT_EQ(FindMatch(s, c, FieldMeaning, -1, 0, -1), -1);
    EXPECT_EQ(FindAll(s, c, FieldMeaning), (std::vector<int>{1, 3, 5}));
    EXPECT_THROW(FindMatch(s, c, FieldMeaning, 0, 5, 0), RunError);
}

TEST(FindAll, AgreesWithFindWordForWord) {
    DictionaryStore s;
    const std::vector<std::string> values = {"god, king", "godly god", "GOD",  "a god",
                                             "g-o-d",     "of gods",   "good", ""};
    for (std::size_t i = 0; i < values.size(); ++i)
        s.setField(static_cast<int>(i), FieldMeaning, values[i]);
    s.lastIndex = static_cast<int>(values.size()) - 1;
    for (const char* text : {"god", "g/d", "g?d", "GOD", "o/", "x"}) {
        for (bool exact : {false, true}) {
            for (bool word : {false, true}) {
                for (bool cs : {false, true}) {
                    const SearchCriteria c = PrepareCriteria(text, exact, word, cs, false);
                    std::vector<int> walked;
                    for (int i = FindMatch(s, c, FieldMeaning, 0, s.lastIndex, 1); i >= 0;
                         i = i < s.lastIndex ? FindMatch(s, c, FieldMeaning, i + 1, s.lastIndex, 1)
                                             : -1)
                        walked.push_back(i);
                    EXPECT_EQ(FindAll(s, c, FieldMeaning), walked) << text;
                }
            }
        }
    }
}

// Found by fuzzing: a blank between the bytes of a broken multibyte character must be taken
// out of the value before upper-casing, as it is taken out of the pattern.
TEST(PrepareValue, AgreesWithThePatternOnBrokenUtf8) {
    const std::string text = "\xe2\xe2 \xd0 \x95";
    const SearchCriteria c = PrepareCriteria(text, true, false, false, false);
    EXPECT_EQ(PrepareValue(text, c), c.pattern);
}
