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
struct SearchWindows : WindowHost {
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

struct Searcher {
    TestApp t;
    SearchWindows windows;
    std::vector<int> rendered;

    Searcher() {
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
            searchChooseOption(a, field);
            searchTextChanged(a, text);
            if (options) options(a);
            EXPECT_TRUE(searchOk(a));
        };
        findCommand(t.app);
        return t.app.store.currentIndex;
    }

    std::vector<std::string> messages() const { return t.dialogs.messages(); }
};

struct SearchTest : ::testing::Test, Searcher {};

} // namespace

TEST(prepareCriteria, SlashIsAStarBlanksGoAndCaseFolds) {
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
            prepareCriteria(r.text, true, false, r.caseSensitive, r.ignoreVariants);
        EXPECT_EQ(c.pattern, r.pattern) << r.text;
        EXPECT_EQ(c.hasWildcards, r.wildcards) << r.text;
        EXPECT_TRUE(c.exact);
        EXPECT_FALSE(c.exactWord);
    }
}

TEST(stripVariants, CutsOneTrailingLetterOfEachPieceOnlyWhenADigitIsFollowedByALetter) {
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
        EXPECT_EQ(stripVariants(r.in), r.out) << r.in;
}

TEST(isWholeWord, TheFourCasesChosenByTheFirstOccurrence) {
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
        EXPECT_EQ(isWholeWord(r.pos, r.needle, r.hay), r.whole)
            << r.pos << " '" << r.needle << "' in '" << r.hay << "'";
}

TEST_F(SearchTest, EachOptionDecidesWhatMatches) {
    using Options = void (*)(App&);
    const Options none = [](App&) {}, exact = [](App&a) { searchSetExact(a, true); },
                  word = [](App&a) { searchSetExactWord(a, true); },
                  cased = [](App&a) { a.search.caseChecked = true; },
                  uncased = [](App&a) { a.search.caseChecked = false; }, variants = [](App&a) {
                      a.search.ignoreVariantsChecked = true;
                      searchSetExact(a, true);
                  };
    struct Row {
        int field;
        std::vector<std::string> values;
        const char* text;
        Options options;
        int found; // -1: "Not Found!" and the word on show stays
    };
    const Row rows[] = {
        {FieldMeaning, {"a", "abc", "ab"}, "a b", exact, 2}, // blanks go from both sides
        {FieldMeaning, {"godly god", "god, king"}, "god", word, 1},
        {FieldMeaning, {"godly god", "of god"}, "god", word, -1}, // the first occurrence decides
        {FieldMeaning, {"king", "of god", "godly"}, "ofgod", none, 1},
        {FieldMeaning, {"king", "of god", "godly"}, "dly", none, 2},
        {FieldTranslit, {"anfr", "nfrw", "nfr"}, "n/r", cased, 2}, // a wildcard takes it all
        {FieldMeaning, {"x", "good god"}, "g*d", exact, 1},
        {FieldMeaning, {"x", "good god"}, "?oodgod", word, 1},
        // "#" and brackets are themselves unless the text has wildcards.
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "#1", none, 1},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "[1]", none, 3},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "x#/", none, 0},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "[a]/", none, 2},
        // Transliteration tells letters apart by case ("H" and "h" are different sounds), so
        // choosing it checks the box; the user may uncheck it.
        {FieldTranslit, {"nfr", "ra"}, "RA", none, -1},
        {FieldTranslit, {"nfr", "ra"}, "RA", uncased, 1},
        {FieldTranslit, {"Hr", "hr", "nTr"}, "n\u1e6fr", cased, 2}, // scholarly letters
        {FieldGardiner, {"A1b-G17", "A2", "A1a"}, "A1", variants, 2},
        {FieldGardiner, {"A1b-G17", "A2", "A1a"}, "A1-G17", variants, 0},
        {FieldGardiner, {"A1a"}, "A1", exact, -1},
    };
    for (const Row& r : rows) {
        Searcher fresh;
        fresh.words(r.field, r.values);
        fresh.t.app.store.currentIndex = static_cast<int>(r.values.size()) - 1;
        const int at = fresh.find(r.field, r.text, r.options);
        if (r.found >= 0) {
            EXPECT_EQ(at, r.found) << r.text;
            EXPECT_EQ(fresh.rendered, std::vector<int>{r.found}) << r.text;
            EXPECT_TRUE(fresh.messages().empty()) << r.text;
        } else {
            EXPECT_EQ(at, static_cast<int>(r.values.size()) - 1) << r.text;
            EXPECT_TRUE(fresh.rendered.empty()) << r.text;
            ASSERT_EQ(fresh.messages(), std::vector<std::string>{"Not Found!"}) << r.text;
            EXPECT_EQ(fresh.t.dialogs.prompts[0].title, "Not Found");
        }
        EXPECT_EQ(fresh.t.app.searchField, r.field);
    }
}

TEST_F(SearchTest, FindNextAndPreviousMoveOnFirstAndReportTheEnds) {
    const std::vector<std::string> suns = {"sun", "moon", "sun", "star", "sun"};
    struct Row {
        std::vector<std::string> values;
        int start;
        bool next;
        int found;
        std::vector<std::string> messages;
    };
    const Row rows[] = {
        {suns, 0, true, 2, {}},
        {suns, 2, true, 4, {}},
        {suns, 4, false, 2, {}},
        {suns, 2, false, 0, {}},
        // A miss goes back to the word on show, which stays the word that commands act on.
        {{"moon", "sun", "moon"}, 1, true, 1, {"Not Found!"}},
        {{"moon", "sun", "moon"}, 1, false, 1, {"Not Found!"}},
        // At either end the end is reported and the word there is tested again.
        {{"moon", "sun"}, 1, true, 1, {"No more words to search"}},
        {{"sun", "moon"}, 0, false, 0, {"No more words to search"}},
        {{"moon", "sun", "moon"}, 2, true, 2, {"No more words to search", "Not Found!"}},
    };
    for (const Row& r : rows) {
        Searcher fresh;
        fresh.words(FieldComment, r.values);
        fresh.find(FieldComment, "sun");
        fresh.t.app.search.searchText = "moon"; // typed but not accepted: not the criteria
        fresh.t.app.store.currentIndex = r.start;
        fresh.t.dialogs.prompts.clear();
        fresh.rendered.clear();
        (r.next ? findNextCommand : findPreviousCommand)(fresh.t.app);
        SCOPED_TRACE(::testing::Message() << r.start << (r.next ? " next" : " previous"));
        EXPECT_EQ(fresh.t.app.store.currentIndex, r.found);
        EXPECT_EQ(fresh.messages(), r.messages);
        const bool missed = !r.messages.empty() && r.messages.back() == "Not Found!";
        EXPECT_EQ(fresh.rendered, missed ? std::vector<int>{} : std::vector<int>{r.found});
    }
}

TEST_F(SearchTest, ProgressAfterEachMissButNotInWildcardSearches) {
    words(FieldMeaning, {"a", "b", "c", "sun", "e"});
    find(FieldMeaning, "sun");
    EXPECT_EQ(windows.progress, (std::vector<float>{0.0f, 0.25f, 0.5f}));
    windows.progress.clear();
    t.app.store.currentIndex = 4;
    findPreviousCommand(t.app); // from 3: matches at once
    EXPECT_TRUE(windows.progress.empty());
    find(FieldMeaning, "s/n");
    EXPECT_TRUE(windows.progress.empty());
    words(FieldMeaning, {"a"}); // one word: the bar has nowhere to go
    find(FieldMeaning, "sun");
    EXPECT_EQ(windows.progress, std::vector<float>{0.0f});
}

TEST_F(SearchTest, FindAsksToStoreAnEditedWordFirst) {
    installEditing(t.app);
    words(FieldMeaning, {"sun", "moon"});
    for (const Answer a : {Answer::No, Answer::Yes}) {
        t.app.store.currentIndex = 1;
        renderWord(t.app);
        t.app.view.meaning = "moonlight";
        t.dialogs.answers = {a};
        find(FieldMeaning, "sun");
        EXPECT_EQ(t.dialogs.prompts.front().text, StoreWordQuestion);
        EXPECT_EQ(t.app.store.field(1, FieldMeaning), a == Answer::Yes ? "moonlight" : "moon");
        t.dialogs.prompts.clear();
    }
}

TEST_F(SearchTest, CancelledOrEmptyDialogSearchesNothing) {
    words(FieldMeaning, {"sun"});
    windows.user = [](App& a) {
        a.search.searchText = "sun";
        searchCancel(a);
    };
    findCommand(t.app);
    EXPECT_TRUE(rendered.empty());
    EXPECT_TRUE(t.dialogs.prompts.empty());
    // OK on an empty box is refused; the window being closed then counts as Cancel.
    windows.user = [](App& a) {
        EXPECT_FALSE(searchOk(a));
        searchCancel(a);
    };
    findCommand(t.app);
    EXPECT_EQ(messages(), std::vector<std::string>{"You must write something in the search box"});
    EXPECT_TRUE(rendered.empty());
}

TEST_F(SearchTest, ASecondFindWhileTheDialogIsUpDoesNothing) {
    words(FieldMeaning, {"sun"});
    windows.user = [this](App& a) {
        findCommand(a);
        EXPECT_EQ(windows.dialogShown, 1);
        a.search.searchText = "sun";
        searchOk(a);
    };
    findCommand(t.app);
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
    findPreviousCommand(t.app);
    EXPECT_EQ(messages(), std::vector<std::string>{"9  Subscript out of range"});
}

TEST(findMatch, WalksEitherWayInclusiveOfBothEnds) {
    DictionaryStore s;
    for (int i = 0; i < 6; ++i) s.setField(i, FieldMeaning, i % 2 ? "sun" : "moon");
    s.lastIndex = 5;
    const SearchCriteria c = prepareCriteria("sun", true, false, false, false);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 0, 5, 1), 1);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 2, 5, 1), 3);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 5, 0, -1), 5);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 4, 0, -1), 3);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 2, 2, 1), -1);
    EXPECT_EQ(findMatch(s, c, FieldMeaning, 3, 2, 1), -1); // an empty walk
    EXPECT_EQ(findMatch(s, c, FieldMeaning, -1, 0, -1), -1);
    EXPECT_EQ(findAll(s, c, FieldMeaning), (std::vector<int>{1, 3, 5}));
    EXPECT_THROW(findMatch(s, c, FieldMeaning, 0, 5, 0), RunError);
}

// Found by fuzzing: a blank between the bytes of a broken multibyte character must be taken
// out of the value before upper-casing, as it is taken out of the pattern.
TEST(prepareValue, AgreesWithThePatternOnBrokenUtf8) {
    const std::string text = "\xe2\xe2 \xd0 \x95";
    const SearchCriteria c = prepareCriteria(text, true, false, false, false);
    EXPECT_EQ(prepareValue(text, c), c.pattern);
}
