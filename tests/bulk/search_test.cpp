#include "bulk/search.h"
#include "bulk/search_dialog.h"
#include "bulk/sign_search.h"
#include "bulk_fixture.h"
#include "core/sign_lists.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Records the words Find shows.
struct Searcher : BulkApp {
    std::vector<int> rendered;
    Searcher() {
        app.renderWord = [this](App& a) { rendered.push_back(a.store.currentIndex); };
    }

    // Find through the dialog, as a user would fill it in and press OK. Options: e Exact
    // Match, w Exact Word, c and u check and uncheck Match Case, v Ignore Variants and Exact.
    int find(int field, const std::string& text, const std::string& o = "") {
        windows.onSearchDialog = [=, this] {
            EXPECT_TRUE(app.search.visible);
            searchChooseOption(app, field);
            searchTextChanged(app, text);
            if (o == "e" || o == "v") searchSetExact(app, true);
            if (o == "w") searchSetExactWord(app, true);
            if (o == "c" || o == "u") app.search.caseChecked = o == "c";
            app.search.ignoreVariantsChecked = o == "v";
            EXPECT_TRUE(searchOk(app));
        };
        findCommand(app);
        return app.store.currentIndex;
    }
};

struct SearchTest : ::testing::Test, Searcher {};

} // namespace

TEST(stripVariants, CutsOneTrailingLetterOfEachPieceOnlyWhenADigitIsFollowedByALetter) {
    struct Row {
        const char *in, *out;
    };
    for (const Row& r : std::vector<Row>{
             {"A1a-G17-N35b", "A1-G17-N35"},
             {"Aa1", "Aa1"}, // no digit before a letter: unchanged
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
        const char *needle, *hay;
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
             {3, "god", "x@god", true},
             // 4: inside, any occurrence bounded on both sides counts
             {3, "god", "a,god,b", true},
             {3, "god", "a,godb", false},
             {2, "god", "agod,god,x", true},
             {2, "god", "agod,god", false}, // the bounded one is at the very end
             {2, "god", "agod\\god", false},
             // 5: not found
             {0, "god", "abc", false},
             // the needle is itself, not a pattern
             {1, "a#", "a#,b", true},
             {1, "\u1e25r", "\u1e25r-nfr", true},
         })
        EXPECT_EQ(isWholeWord(r.pos, r.needle, r.hay), r.whole)
            << r.pos << " '" << r.needle << "' in '" << r.hay << "'";
}

TEST_F(SearchTest, EachOptionDecidesWhatMatches) {
    struct Row {
        int field;
        std::vector<std::string> values;
        const char *text, *options;
        int found; // -1: "Not Found!" and the word on show stays
    };
    const Row rows[] = {
        {FieldMeaning, {"a", "abc", "ab"}, "a b", "e", 2}, // blanks go from both sides
        {FieldMeaning, {"godly god", "god, king"}, "god", "w", 1},
        {FieldMeaning, {"godly god", "of god"}, "god", "w", -1}, // the first occurrence decides
        {FieldMeaning, {"king", "of god", "godly"}, "ofgod", "", 1},
        {FieldMeaning, {"king", "of god", "godly"}, "dly", "", 2},
        {FieldTranslit, {"anfr", "nfrw", "nfr"}, "n/r", "c", 2}, // a wildcard takes it all
        {FieldMeaning, {"x", "good god"}, "g*d", "e", 1},
        {FieldMeaning, {"x", "good god"}, "?oodgod", "w", 1},
        // "#" and brackets are themselves unless the text has wildcards.
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "#1", "", 1},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "[1]", "", 3},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "x#/", "", 0},
        {FieldComment, {"x51", "x#1", "a1", "a[1]b"}, "[a]/", "", 2},
        // Transliteration tells letters apart by case ("H" and "h" are different sounds), so
        // choosing it checks the box; the user may uncheck it.
        {FieldTranslit, {"nfr", "ra"}, "RA", "", -1},
        {FieldTranslit, {"nfr", "ra"}, "RA", "u", 1},
        {FieldTranslit, {"Hr", "hr", "nTr"}, "n\u1e6fr", "c", 2}, // scholarly letters
        {FieldGardiner, {"A1b-G17", "A2", "A1a"}, "A1", "v", 2},
        {FieldGardiner, {"A1b-G17", "A2", "A1a"}, "A1-G17", "v", 0},
        {FieldGardiner, {"A1a"}, "A1", "e", -1},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.text);
        Searcher fresh;
        fresh.setField(r.field, r.values);
        const int last = static_cast<int>(r.values.size()) - 1;
        fresh.app.store.currentIndex = last;
        const bool hit = r.found >= 0;
        EXPECT_EQ(fresh.find(r.field, r.text, r.options), hit ? r.found : last);
        EXPECT_EQ(fresh.rendered, hit ? std::vector<int>{r.found} : std::vector<int>{});
        EXPECT_EQ(fresh.dialogs.messages(), hit ? Strings{} : Strings{"Not Found!"});
        for (const Prompt& p : fresh.dialogs.prompts) EXPECT_EQ(p.title, "Not Found");
        EXPECT_EQ(fresh.app.searchField, r.field);
    }
}

TEST_F(SearchTest, FindNextAndPreviousMoveOnFirstAndReportTheEnds) {
    const Strings suns = {"sun", "moon", "sun", "star", "sun"};
    struct Row {
        Strings values;
        int start;
        bool next;
        int found;
        Strings messages;
    };
    const Row rows[] = {
        {suns, 2, true, 4, {}},
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
        fresh.setField(FieldComment, r.values);
        fresh.find(FieldComment, "sun");
        fresh.app.search.searchText = "moon"; // typed but not accepted: not the criteria
        fresh.app.store.currentIndex = r.start;
        fresh.dialogs.prompts.clear();
        fresh.rendered.clear();
        (r.next ? findNextCommand : findPreviousCommand)(fresh.app);
        SCOPED_TRACE(::testing::Message() << r.start << (r.next ? " next" : " previous"));
        EXPECT_EQ(fresh.app.store.currentIndex, r.found);
        EXPECT_EQ(fresh.dialogs.messages(), r.messages);
        const bool missed = !r.messages.empty() && r.messages.back() == "Not Found!";
        EXPECT_EQ(fresh.rendered, missed ? std::vector<int>{} : std::vector<int>{r.found});
    }
}

// The question itself is the navigation tests'; Find must ask it before it moves.
TEST_F(SearchTest, FindAsksToStoreAnEditedWordFirst) {
    installEditing(app);
    setField(FieldMeaning, {"sun", "moon"});
    app.store.currentIndex = 1;
    renderWord(app);
    app.view.meaning = "moonlight";
    dialogs.answers = {Answer::Yes};
    EXPECT_EQ(find(FieldMeaning, "sun"), 0);
    EXPECT_EQ(dialogs.prompts.front().text, StoreWordQuestion);
    EXPECT_EQ(app.store.field(1, FieldMeaning), "moonlight");
}

// Cancel, or OK on an empty box (refused; the window closed then counts as Cancel), search
// nothing; a second Find while the dialog is up does nothing.
TEST_F(SearchTest, OnlyOkOnATextSearchesAndOnlyOnce) {
    setField(FieldMeaning, {"sun"});
    for (const char* text : {"sun", ""}) {
        windows.onSearchDialog = [&] {
            app.search.searchText = text;
            EXPECT_TRUE(*text || !searchOk(app)); // OK only on the empty box
            searchCancel(app);
        };
        findCommand(app);
    }
    EXPECT_EQ(dialogs.messages(), Strings{"You must write something in the search box"});
    int shown = 0;
    windows.onSearchDialog = [&] {
        if (++shown > 1) return;
        findCommand(app);
        app.search.searchText = "sun";
        searchOk(app);
    };
    findCommand(app);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(rendered, std::vector<int>{0}); // nothing shown before, once now
    EXPECT_FALSE(app.search.waiting);
}

TEST_F(SearchTest, RunTimeErrorsAreReported) {
    setField(FieldMeaning, {"sun"});
    find(FieldMeaning, "[a/");
    EXPECT_EQ(dialogs.messages(), Strings{"93  Invalid pattern string"});
    EXPECT_EQ(dialogs.prompts[0].icon, Icon::Critical);
    dialogs.prompts.clear();
    find(FieldMeaning, "sun");
    app.store.currentIndex = 200000; // gone to with Go, which checks nothing
    findPreviousCommand(app);
    EXPECT_EQ(dialogs.messages(), Strings{"9  Subscript out of range"});
}

// Found by fuzzing: a blank between the bytes of a broken multibyte character must be taken
// out of the value before upper-casing, as it is taken out of the pattern.
TEST(prepareValue, AgreesWithThePatternOnBrokenUtf8) {
    const std::string text = "\xe2\xe2 \xd0 \x95";
    const SearchCriteria c = prepareCriteria(text, true, false, false, false);
    EXPECT_EQ(prepareValue(text, c), c.pattern);
}

// Finding words by their signs: how a query is read, which layouts hold it, and the walk.
static SignLists phoneticLists() {
    SignLists lists;
    parsePhonetic(lists, "\"G17\",\"m\"\r\n\"D21\",\"r\"\r\n\"V28\",\"H\"\r\n\"O4\",\"h\"\r\n"
                         "\"G1\",\"A\"\r\n\"F35\",\"nfr\"\r\n");
    return lists;
}

TEST(readSignQuery, NamesBecomeCodesWhateverTheSeparatorOrSpelling) {
    const SignLists lists = phoneticLists();
    struct Case {
        const char* text;
        std::vector<std::string> codes;
        std::string unknown;
    } cases[] = {
        {"G17 D21", {"G17", "D21"}, ""},
        {"m r", {"G17", "D21"}, ""},
        {"g17,d21", {"G17", "D21"}, ""},
        {"G17-m:r*A1", {"G17", "G17", "D21", "A1"}, ""},
        {"aa1 n35A", {"Aa1", "N35a"}, ""},
        // Phonetic values are case-sensitive: H and h are different signs.
        {"H h", {"V28", "O4"}, ""},
        // Scholarly letters are read as the plain ones the table holds.
        {"\xe1\xb8\xa5 \xea\x9c\xa3", {"V28", "G1"}, ""},
        {"nfr", {"F35"}, ""},
        {"m nfx r xyz", {"G17", "D21"}, "nfx"},
        {"  ", {}, ""},
    };
    for (const Case& c : cases) {
        const SignQueryReading r = readSignQuery(lists, c.text, false);
        EXPECT_EQ(r.query.codes, c.codes) << c.text;
        EXPECT_EQ(r.unknown, c.unknown) << c.text;
    }
}

TEST(layoutHasSigns, EverySignInAnyOrderAndEachAsOftenAsNamed) {
    const std::string layout = "G17(0,0) - D21(300,0) - A1a( 600, -40) - G17(900,0) - Aa1(0,10) ";
    struct Case {
        std::vector<std::string> codes;
        bool fold, found;
    } cases[] = {
        {{"D21", "G17"}, false, true},
        {{"G17", "G17"}, false, true},
        {{"G17", "G17", "G17"}, false, false},
        {{"A1"}, false, false}, // A1a is another sign unless variants fold
        {{"A1"}, true, true},
        {{"A1b"}, true, true}, // both sides fold
        {{"A1a"}, false, true},
        {{"Aa1"}, true, true}, // Aa1 has no variant letter to lose
        {{"A"}, false, false}, // a code is matched whole, not as a prefix
        {{"D21", "X1"}, false, false},
        {{}, false, false},
    };
    for (const Case& c : cases) {
        SignQuery q{c.codes, c.fold};
        EXPECT_EQ(layoutHasSigns(layout, q), c.found)
            << ::testing::PrintToString(c.codes) << " fold " << c.fold;
    }
}

TEST_F(SearchTest, SignsFindAndFindNextWalkTheWordsHoldingTheSigns) {
    app.lists = phoneticLists();
    setField(FieldLayout,
             {"D21(0,0) ", "G17(0,0) - D21(300,0) ", "X1(0,0) ", "D21(0,0) - G17a(300,0) "});
    EXPECT_EQ(find(FieldLayout, "r m", "v"), 1);
    findNextCommand(app);
    EXPECT_EQ(app.store.currentIndex, 3);
    EXPECT_EQ(findBySigns(app.store, SignQuery{{"D21"}, false}, 2, 0, -1), 1);
    // A name that is neither a code nor a phonetic value is told, and nothing is searched.
    EXPECT_EQ(find(FieldLayout, "m qqq"), 3);
    EXPECT_EQ(dialogs.messages(), Strings{"qqq was not found"});
    EXPECT_EQ(dialogs.prompts.back().title, "Phonetic Not Found");
}
