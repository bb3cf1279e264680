#include "bulk/array_functions.h"
#include "bulk/bulk_commands.h"
#include "bulk/sort.h"
#include "bulk_fixture.h"
#include "core/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

const std::string ClassicLetters = "AiyawbpfmnrhHxXzsSqkgtTdD";

// A classic-order table: the k-th letter of the classic order and the character 33 + k trade
// places, so the encoded words sort by character code in the classic order and decoding is
// the same exchange.
void loadClassicTable(App& app) {
    auto& t = app.lists.trans2Code;
    for (int c = 31; c < 256; ++c) {
        std::string s;
        text::appendUtf8(s, static_cast<char32_t>(c));
        t[c] = {s, s};
    }
    for (std::size_t k = 0; k < ClassicLetters.size(); ++k) {
        const char letter = ClassicLetters[k], mark = static_cast<char>(33 + k);
        t[static_cast<unsigned char>(letter)] = {std::string(1, mark), std::string(1, mark)};
        t[static_cast<unsigned char>(mark)] = {std::string(1, letter), std::string(1, letter)};
    }
}

// The tool-bar sort as written: lastIndex + 1 passes of neighbour exchanges.
void literalToolbarSort(std::vector<WordRecord>& rows, int last, int field, SortOrder order) {
    for (int pass = 0; pass <= last; ++pass)
        for (int j = 0; j <= last - 1; ++j) {
            std::string a = rows[j][field], b = rows[j + 1][field];
            if (order.reverse) std::swap(a, b);
            if (!order.caseSensitive) {
                a = text::upper(a);
                b = text::upper(b);
            }
            if (a > b) std::swap(rows[j], rows[j + 1]);
        }
}

enum class Which { Toolbar, Menu };

void runSort(BulkApp& t, Which which, SortField field, bool reverse = false, bool cs = true) {
    t.choose(field, reverse, cs);
    if (t.app.store.isChanged) t.dialogs.answers.push_back(Answer::No); // save first?
    if (which == Which::Menu) t.dialogs.answers.push_back(Answer::Yes); // proceed
    (which == Which::Toolbar ? sortCommand : menuSortCommand)(t.app);
}

using Rows = std::vector<WordRecord>;

// The comb sort as written, comparing fresh copies of the cells every time.
// It stops after `passes` passes, as a Cancel stops it.
void literalCombSort(Rows& rows, int column, int upper, SortOrder order, int passes = -1) {
    int gap = std::max(1, upper + 1);
    bool swapped;
    do {
        if (passes-- == 0) return;
        if (gap > 1) {
            gap = static_cast<int>(gap / 1.3);
            if (gap == 9 || gap == 10) gap = 11;
        }
        swapped = false;
        for (int i = 0; i <= upper - gap + 1; ++i) {
            std::string a = rows[i][column], b = rows[i + gap][column];
            if (!order.caseSensitive) {
                a = text::upper(a);
                b = text::upper(b);
            }
            if (order.reverse) std::swap(a, b);
            const bool greater = column == FieldGardiner ? gardinerGreater(a, b) : a > b;
            if (greater) {
                std::swap(rows[i], rows[i + gap]);
                swapped = true;
            }
        }
    } while (gap != 1 || swapped);
}

Rows rowsOf(int column, const std::vector<std::string>& keys) {
    Rows rows;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        WordRecord r{};
        r[column] = keys[i];
        r[6] = std::to_string(i); // tells equal keys apart
        rows.push_back(r);
    }
    return rows;
}

} // namespace

TEST(Sort, ToolbarOrderIsTheOrderOfTheExchangePasses) {
    const Strings pool = {"",   "a",  "A", "b", "B", "ab",  "Ab",
                          "aB", "ba", "é", "É", "z", "A10", "A2"};
    std::mt19937 rng(11);
    for (int round = 0; round < 500; ++round) {
        const int n = static_cast<int>(rng() % 12);
        std::vector<WordRecord> rows;
        for (int i = 0; i < n; ++i)
            rows.push_back({"L", "B", "", pool[rng() % pool.size()], pool[rng() % pool.size()],
                            pool[rng() % pool.size()], std::to_string(i)});
        const int field = 3 + static_cast<int>(rng() % 3);
        const SortOrder order{rng() % 2 == 1, rng() % 2 == 1};
        std::vector<WordRecord> expected = rows;
        literalToolbarSort(expected, n - 1, field, order);

        BulkApp t;
        t.setWords(rows);
        toolbarSort(t.app, static_cast<SortField>(field), order);
        for (int i = 0; i < n; ++i) ASSERT_EQ(t.app.store.row(i), expected[i]) << "round " << round;
    }
}

TEST(Sort, BothSortsOrderByTheChosenFieldAndDirection) {
    // The menu sorts Gardiner notations in Gardiner order (the tool bar's text order is the
    // exchange passes'). A row past the last word (left by a delete) must stay where it is.
    struct Case {
        Which which;
        SortField field;
        bool reverse;
        Strings in, out;
    } cases[] = {
        {Which::Menu, SortField::Gardiner, false, {"A2", "A10", "A1"}, {"A1", "A2", "A10"}},
        {Which::Menu, SortField::Gardiner, true, {"A2", "A10", "A1"}, {"A10", "A2", "A1"}},
        {Which::Toolbar, SortField::Comment, false, {"b", "a", "B", "A"}, {"A", "B", "a", "b"}},
        {Which::Menu, SortField::Comment, false, {"b", "a", "B", "A"}, {"A", "B", "a", "b"}},
        {Which::Toolbar, SortField::Meaning, false, {"b", "a"}, {"a", "b"}},
        {Which::Menu, SortField::Meaning, false, {"b"}, {"b"}},
        {Which::Menu, SortField::Meaning, false, {"b", "a"}, {"a", "b"}},
    };
    for (const auto& c : cases) {
        BulkApp t;
        const int column = sortColumn(c.field);
        t.setField(column, c.in);
        const int past = static_cast<int>(c.in.size());
        t.app.store.setRow(past, {"L", "B", "", "0", "0", "0", "0"});
        runSort(t, c.which, c.field, c.reverse);
        EXPECT_EQ(t.app.store.field(past, column), "0");
        EXPECT_EQ(t.column(column), c.out) << (c.which == Which::Menu) << column << c.reverse;
    }
}

TEST(Sort, ClassicOrderFollowsTheTableAndGivesTheWordsBackOrReportsACharacterBeyondIt) {
    const Strings classic = {"Abw", "iAw", "iwn", "anx", "wab",  "bA",  "pr",   "fnD", "mAat",
                             "nfr", "rn",  "hAb", "Htp", "xpr",  "Xrt", "zA",   "sDm", "Sms",
                             "qd",  "kA",  "gm",  "tA",  "TAty", "dwA", "DHwty"};
    for (Which which : {Which::Toolbar, Which::Menu})
        for (bool cs : {true, false}) {
            Strings shuffled = classic;
            std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(5));
            BulkApp t;
            loadClassicTable(t.app);
            t.setField(4, shuffled);
            runSort(t, which, SortField::Classic, false, cs);
            EXPECT_EQ(t.column(4), classic);
            runSort(t, which, SortField::Classic, true, cs);
            EXPECT_EQ(t.column(4), Strings(classic.rbegin(), classic.rend()));
            // A character beyond the table is reported and leaves every word as it was.
            t.setField(4, {"nfr", "Hꜣt", "anx"});
            t.app.store.isChanged = false;
            runSort(t, which, SortField::Classic, false, cs);
            EXPECT_EQ(t.dialogs.prompts.back().text, "9  Subscript out of range");
            EXPECT_EQ(t.column(4), (Strings{"nfr", "Hꜣt", "anx"}));
            EXPECT_FALSE(t.app.store.isChanged);
        }
}

// Both sorts ask to save first when an edit waits or the dictionary has changed; the menu's
// sort then asks to proceed. Prompts: S save first?, P proceed?, D done.
TEST(Sort, TheSortsAskToSaveAndToProceedAndReportWhenDone) {
    struct Case {
        Which which;
        int edit; // 0 none, 1 an edit pending, 2 a composed word accepted
        bool changed;
        std::vector<Answer> answers;
        const char* prompts;
        bool saved;
    } cases[] = {
        {Which::Toolbar, 0, false, {}, "D", false},
        {Which::Toolbar, 1, false, {Answer::Cancel}, "S", false},
        {Which::Toolbar, 1, true, {Answer::No}, "SD", false},
        {Which::Toolbar, 1, true, {Answer::Yes}, "SD", true},
        {Which::Toolbar, 0, true, {Answer::Yes}, "SD", true},
        {Which::Menu, 2, false, {Answer::Yes, Answer::Yes}, "SPD", true},
        {Which::Menu, 0, true, {Answer::Cancel}, "S", false},
        {Which::Menu, 0, false, {Answer::No}, "P", false},
        {Which::Menu, 0, false, {}, "", false}, // the Sort dialog cancelled
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.prompts << " " << c.edit << c.changed);
        const bool menu = c.which == Which::Menu, sorted = std::string(c.prompts).ends_with('D');
        BulkApp t;
        t.setField(5, {"c", "a", "b"});
        t.app.store.currentIndex = 2;
        renderWord(t.app);
        t.app.store.editPending = c.edit == 1;
        t.app.store.composeAccepted = c.edit == 2;
        t.app.store.isChanged = c.changed;
        t.dialogs.answers.assign(c.answers.begin(), c.answers.end());
        if (*c.prompts) t.choose(SortField::Meaning);
        (menu ? menuSortCommand : sortCommand)(t.app);
        std::string prompts;
        for (const Prompt& p : t.dialogs.prompts) {
            if (p.text == "Do you want to save before sorting?") {
                prompts += 'S';
                // the tool bar's question has neither icon nor title
                EXPECT_TRUE(menu || (p.icon == Icon::None && p.title.empty()));
            } else if (p.text == "Do you want to proceed?\r\nAction cannot be undone!") {
                prompts += 'P';
            } else {
                prompts += p.text.rfind(menu ? "Done in " : "Done!", 0) == 0 ? 'D' : '?';
            }
        }
        EXPECT_EQ(prompts, c.prompts);
        EXPECT_EQ(t.files.written.count("/dictionaries/Words.nkd"), c.saved ? 1u : 0u);
        EXPECT_EQ(t.column(5), (sorted ? Strings{"a", "b", "c"} : Strings{"c", "a", "b"}));
        EXPECT_EQ(t.app.store.isChanged, sorted || (c.changed && !c.saved));
        EXPECT_EQ(t.windows.progress,
                  (menu && sorted ? Strings{"show:Sorting Started", "hide"} : Strings{}));
        if (sorted) {
            // The menu's sort goes to the first word, the tool bar's keeps the index.
            EXPECT_EQ(t.app.store.currentIndex, menu ? 0 : 2);
            EXPECT_EQ(t.app.view.meaning, menu ? "a" : "c");
        }
    }
}

TEST(Sort, CancelledMenuSortStillDecodesAndReports) {
    BulkApp t;
    loadClassicTable(t.app);
    Strings words;
    for (int i = 0; i < 60; ++i)
        words.push_back(std::string(1, ClassicLetters[(i * 7) % 25]) + "nx");
    t.setField(4, words);
    t.events.onYield = [&] { t.app.sortCancelled = true; };
    runSort(t, Which::Menu, SortField::Classic);
    const Strings now = t.column(4); // decoded again: the same words, partly sorted
    EXPECT_TRUE(std::is_permutation(now.begin(), now.end(), words.begin()));
    EXPECT_EQ(t.dialogs.prompts.back().text.rfind("Done in ", 0), 0u);
}

TEST(ArrayFunctions, CombSortKeepsTheExactOrderOfTheLiteralAlgorithm) {
    // Keys with duplicates and case variants, so that the order of equal keys shows; the
    // Gardiner column uses codes that the notation order can always compare.
    std::vector<std::string> texts = {"ab", "AB", "b", "B", "a", "", "abc", "Ab", "ba", "é", "É"};
    // Long ones share their first 8 or 16 bytes, which the sort reads as numbers.
    for (const char* t :
         {"water, s", "water, sky", "Water, sky and sea", "water, sky and sun", "water, sky and"})
        texts.push_back(t);
    texts.push_back(std::string("water, s\0", 9));
    // Notations of several signs all start with M and have two parts, so that any two of
    // them can be compared sign by sign.
    const std::vector<std::string> codes = {
        "A1",   "A2",  "A10",   "a2",  "A1a",    "B3",      "G17",     "N35",     "N35a",
        "Aa15", "Aa2", "Aa15a", "D21", "M17-X1", "M17:X1a", "M1 * Y1", "m17-x1 ", "M17-X10"};
    std::mt19937 rng(7);
    BulkApp t;
    for (int round = 0; round < 400; ++round) {
        const int column = round % 2 ? FieldGardiner : FieldMeaning;
        const auto& pool = column == FieldGardiner ? codes : texts;
        std::vector<std::string> keys(rng() % 30);
        for (auto& k : keys) k = pool[rng() % pool.size()];
        const SortOrder order{(round / 2) % 2 == 1, (round / 4) % 2 == 1};
        Rows expected = rowsOf(column, keys);
        Rows actual = expected;
        // Now and then only a leading part of the rows takes part.
        const int size = static_cast<int>(keys.size());
        const int upper =
            round % 5 == 0 && size > 2 ? static_cast<int>(rng() % size) - 1 : size - 2;
        DictionaryStore store;
        for (std::size_t i = 0; i < actual.size(); ++i)
            store.setRow(static_cast<int>(i), actual[i]);
        store.lastIndex = size - 1;
        literalCombSort(expected, column, upper, order);
        combSort(t.app, actual, column, upper, order);
        ASSERT_EQ(actual, expected) << "round " << round;
        // The dictionary's own rows, sorted in place, come out the same; a Cancel after some
        // passes leaves them as those passes left them.
        DictionaryStore cancelled = store;
        combSort(t.app, store, column, upper, order);
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(store.row(static_cast<int>(i)), expected[i]) << "round " << round;
        const int passes = 1 + static_cast<int>(rng() % 3), yieldsBefore = t.events.yields;
        t.events.onYield = [&] {
            if (t.events.yields - yieldsBefore == passes) t.app.sortCancelled = true;
        };
        Rows partly = rowsOf(column, keys);
        literalCombSort(partly, column, upper, order, passes);
        combSort(t.app, cancelled, column, upper, order);
        t.events.onYield = nullptr;
        t.app.sortCancelled = false;
        for (std::size_t i = 0; i < partly.size(); ++i)
            ASSERT_EQ(cancelled.row(static_cast<int>(i)), partly[i]) << "round " << round;
    }
}

TEST(ArrayFunctions, ShuffleIsTheDescendingFisherYatesOverRowsUpToUpper) {
    // Rnd values scripted: i = 3 trades with Int(0.5 * 4) = 2 (a b d c), i = 2 with 0
    // (d b a c), i = 1 with Int(0.99 * 2) = 1, itself; "e" lies past upper.
    std::vector<double> rnd = {0.5, 0.0, 0.99};
    std::size_t k = 0;
    std::vector<std::string> v = {"a", "b", "c", "d", "e"};
    shuffleRows(v, 3, [&] { return rnd.at(k++); });
    EXPECT_EQ(v, (std::vector<std::string>{"d", "b", "a", "c", "e"}));
    EXPECT_EQ(k, 3u);
}

TEST(ArrayFunctions, QuickGardinerOrderAgreesWithTheFullComparison) {
    // Notations built from parts that the quick path reads and parts it leaves to the full
    // comparison (two-letter categories, empty parts, long numbers, blanks, other letters).
    const std::vector<std::string> parts = {"A1",   "A2", "A10",    "A1a", "A01", "Aa15",  "Aa2",
                                            "A",    "",   "A99999", "A 3", "G17", "G1b",   "N35",
                                            "N35a", "Ab", "A1.5",   "Aš1", "X1",  "A12345"};
    const std::vector<std::string> seps = {"-", " - ", ":", "*", "--"};
    std::mt19937 rng(3);
    auto notation = [&] {
        const std::string& first = parts[rng() % parts.size()];
        std::string s = "A" + (first.empty() ? "" : first.substr(1));
        const int more = static_cast<int>(rng() % 3);
        for (int k = 0; k < more; ++k) s += seps[rng() % seps.size()] + parts[rng() % parts.size()];
        if (rng() % 5 == 0) s += " ";
        return s;
    };
    int quick = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string a = notation(), b = notation();
        const auto simple = detail::simpleGardinerGreater(a, b);
        if (!simple) continue;
        ++quick;
        std::string ca = a, cb = b;
        bool full = false;
        ASSERT_NO_THROW(full = gardinerGreater(ca, cb)) << a << " / " << b;
        ASSERT_EQ(*simple, full) << a << " / " << b;
    }
    EXPECT_GT(quick, 2000); // the quick path does carry the everyday notations
}
