// Finding words by their signs: how a query is read, which layouts hold it, and the walk over
// the dictionary.
#include "bulk/bulk_fixture.h"
#include "bulk/search.h"
#include "bulk/sign_search.h"
#include "core/sign_lists.h"

#include <gtest/gtest.h>

namespace nebkaro {
namespace {

using testing::BulkApp;

SignLists phoneticLists() {
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
        {{"G1"}, false, false},
        {{"D21", "X1"}, false, false},
        {{}, false, false},
    };
    for (const Case& c : cases) {
        SignQuery q{c.codes, c.fold};
        EXPECT_EQ(layoutHasSigns(layout, q), c.found)
            << ::testing::PrintToString(c.codes) << " fold " << c.fold;
    }
}

TEST(SignsFind, FindAndFindNextWalkTheWordsHoldingTheSigns) {
    BulkApp b;
    b.app.lists = phoneticLists();
    b.setField(FieldLayout,
               {"D21(0,0) ", "G17(0,0) - D21(300,0) ", "X1(0,0) ", "D21(0,0) - G17a(300,0) "});
    b.app.search.searchText = "r m";
    b.app.search.ignoreVariantsChecked = true;
    b.app.searchField = FieldLayout;
    EXPECT_EQ(findWord(b.app, 0, b.app.store.lastIndex, 1, false), 1);
    findNextCommand(b.app);
    EXPECT_EQ(b.app.store.currentIndex, 3);
    EXPECT_EQ(findBySigns(b.app.store, SignQuery{{"D21"}, false}, 2, 0, -1), 1);
    // A name that is neither a code nor a phonetic value is told, and nothing is searched.
    b.app.search.searchText = "m qqq";
    EXPECT_EQ(findWord(b.app, 0, b.app.store.lastIndex, 1, false), -1);
    EXPECT_EQ(b.dialogs.messages(), std::vector<std::string>{"qqq was not found"});
    EXPECT_EQ(b.dialogs.prompts.back().title, "Phonetic Not Found");
}

} // namespace
} // namespace nebkaro
