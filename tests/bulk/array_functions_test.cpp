#include "bulk/array_functions.h"
#include "bulk_fixture.h"
#include "core/errors.h"
#include "core/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

using Rows = std::vector<WordRecord>;

// The comb sort as written, comparing fresh copies of the cells every time.
void literalCombSort(Rows& rows, int column, int upper, SortOrder order) {
    int gap = std::max(1, upper + 1);
    bool swapped;
    do {
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
            const bool greater = column == FieldGardiner ? GardinerGreater(a, b) : a > b;
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

std::vector<std::string> col(const Rows& rows, int column) {
    std::vector<std::string> out;
    for (const auto& r : rows) out.push_back(r[column]);
    return out;
}

} // namespace

TEST(ArrayFunctions, SwapRowsMovesWholeRowsAndChecksBounds) {
    Rows rows = {{"L", "B", "a", "A1", "t", "m", "c"}, {"R", "E", "b", "B1", "u", "n", "d"}};
    SwapRows(rows, 0, 1);
    EXPECT_EQ(rows[0], (WordRecord{"R", "E", "b", "B1", "u", "n", "d"}));
    EXPECT_EQ(rows[1], (WordRecord{"L", "B", "a", "A1", "t", "m", "c"}));
    std::vector<std::string> one = {"x", "y"};
    SwapRows(one, 1, 0);
    EXPECT_EQ(one, (std::vector<std::string>{"y", "x"}));
    EXPECT_THROW(SwapRows(rows, 0, 2), RunError);
}

TEST(ArrayFunctions, CombGapShrinksByOnePointThreeAndSkipsNineAndTen) {
    const std::pair<int, int> cases[] = {{100, 76}, {16, 12}, {15, 11}, {14, 11}, {13, 11},
                                         {12, 11},  {11, 8},  {3, 2},   {2, 1},   {1, 1}};
    for (auto [gap, next] : cases) EXPECT_EQ(NextCombGap(gap), next) << gap;
}

TEST(ArrayFunctions, CombSortKeepsTheExactOrderOfTheLiteralAlgorithm) {
    // Keys with duplicates and case variants, so that the order of equal keys shows; the
    // Gardiner column uses codes that the notation order can always compare.
    const std::vector<std::string> texts = {"ab",  "AB", "b",  "B", "a", "",
                                            "abc", "Ab", "ba", "é", "É"};
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
        const int upper = static_cast<int>(keys.size()) - 2;
        DictionaryStore store;
        for (std::size_t i = 0; i < actual.size(); ++i)
            store.setRow(static_cast<int>(i), actual[i]);
        store.lastIndex = upper + 1;
        literalCombSort(expected, column, upper, order);
        CombSort(t.app, actual, column, upper, order);
        ASSERT_EQ(actual, expected) << "round " << round;
        // The dictionary's own rows, sorted in place, come out the same.
        CombSort(t.app, store, column, upper, order);
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(store.row(static_cast<int>(i)), expected[i]) << "round " << round;
    }
}

TEST(ArrayFunctions, CombSortOrdersByColumnAndDirection) {
    struct Case {
        int column;
        SortOrder order;
        std::vector<std::string> in, out;
    } cases[] = {
        {FieldMeaning, {false, true}, {"b", "B", "a", "A"}, {"A", "B", "a", "b"}},
        {FieldMeaning, {true, true}, {"b", "B", "a", "A"}, {"b", "a", "B", "A"}},
        // Plain text for every column but the Gardiner notation.
        {FieldMeaning, {false, true}, {"A2", "A10", "A1"}, {"A1", "A10", "A2"}},
        {FieldGardiner, {false, true}, {"A2", "A10", "A1"}, {"A1", "A2", "A10"}},
        {FieldGardiner, {true, true}, {"A2", "A10", "A1"}, {"A10", "A2", "A1"}},
    };
    for (const auto& c : cases) {
        Rows rows = rowsOf(c.column, c.in);
        BulkApp t;
        CombSort(t.app, rows, c.column, static_cast<int>(rows.size()) - 2, c.order);
        EXPECT_EQ(col(rows, c.column), c.out);
    }
}

TEST(ArrayFunctions, CombSortWithoutCaseTreatsLettersOfBothCasesAlike) {
    std::vector<std::string> v = {"b", "A", "a", "B", "c"};
    BulkApp t;
    CombSort(t.app, v, 0, std::nullopt, {});
    std::vector<std::string> folded;
    for (const auto& s : v) folded.push_back(text::upper(s));
    EXPECT_EQ(folded, (std::vector<std::string>{"A", "A", "B", "B", "C"}));
}

TEST(ArrayFunctions, CombSortTouchesOnlyTheGivenRange) {
    // upper is where the last comparison starts: entries 0..upper+1 take part.
    std::vector<std::string> v = {"d", "c", "b", "a", "0"};
    BulkApp t;
    CombSort(t.app, v, 0, 1, {false, true});
    EXPECT_EQ(v, (std::vector<std::string>{"b", "c", "d", "a", "0"}));
    CombSort(t.app, v, 0, std::nullopt, {false, true});
    EXPECT_EQ(v, (std::vector<std::string>{"0", "a", "b", "c", "d"}));
}

TEST(ArrayFunctions, CombSortOfFewerThanTwoEntriesMakesOnePass) {
    for (int upper : {-1, -2}) {
        std::vector<std::string> v = {"z", "a"};
        BulkApp t;
        CombSort(t.app, v, 0, upper, {});
        EXPECT_EQ(t.events.yields, 1);
        EXPECT_EQ(v, (std::vector<std::string>{"z", "a"}));
    }
    std::vector<std::string> two = {"z", "a", "0"};
    BulkApp t;
    CombSort(t.app, two, 0, 0, {});
    EXPECT_EQ(two, (std::vector<std::string>{"a", "z", "0"}));
    EXPECT_EQ(t.events.yields, 2); // one pass that swapped, one that did not
}

TEST(ArrayFunctions, CombSortStopsAtOnceWhenCancelled) {
    std::vector<std::string> v;
    for (int i = 0; i < 200; ++i) v.push_back(std::to_string(1000 - i));
    const auto before = v;
    BulkApp t;
    t.events.onYield = [&] {
        if (t.events.yields == 2) t.app.sortCancelled = true;
    };
    CombSort(t.app, v, 0, std::nullopt, {});
    EXPECT_EQ(t.events.yields, 2);
    EXPECT_FALSE(std::is_sorted(v.begin(), v.end()));
    EXPECT_TRUE(std::is_permutation(v.begin(), v.end(), before.begin()));
}

TEST(ArrayFunctions, ExchangeSortShowsTheCounterEveryPassAndComparesPlainText) {
    Rows rows = rowsOf(FieldGardiner, {"A2", "B1", "A10", "A1"});
    BulkApp t;
    ExchangeSort(t.app, rows, FieldGardiner, 2, {false, true});
    EXPECT_EQ(col(rows, FieldGardiner), (std::vector<std::string>{"A1", "A10", "A2", "B1"}));
    EXPECT_EQ(t.windows.counter, (std::vector<int>{2, 2, 2, 2}));
    EXPECT_EQ(t.events.yields, 4);

    Rows rev = rowsOf(FieldMeaning, {"a", "C", "b"});
    ExchangeSort(t.app, rev, FieldMeaning, 1, {true, false});
    EXPECT_EQ(col(rev, FieldMeaning), (std::vector<std::string>{"C", "b", "a"}));
}

TEST(ArrayFunctions, ShuffleIsTheDescendingFisherYates) {
    // Rnd values scripted: i = 3 trades with Int(0.5 * 4) = 2 (a b d c), i = 2 with 0
    // (d b a c), i = 1 with Int(0.99 * 2) = 1, itself.
    std::vector<double> rnd = {0.5, 0.0, 0.99};
    std::size_t k = 0;
    std::vector<std::string> v = {"a", "b", "c", "d"};
    ShuffleRows(v, std::nullopt, [&] { return rnd.at(k++); });
    EXPECT_EQ(v, (std::vector<std::string>{"d", "b", "a", "c"}));
    EXPECT_EQ(k, 3u);
}

TEST(ArrayFunctions, ShuffleMovesOnlyRowsUpToUpper) {
    for (int upper : {0, 1, 5}) {
        Rows rows = rowsOf(FieldMeaning, {"a", "b", "c", "d", "e", "f", "g", "h"});
        const Rows before = rows;
        int calls = 0;
        const RandomSource rnd = SeededRandom(3);
        ShuffleRows(rows, upper, [&] {
            ++calls;
            return rnd();
        });
        EXPECT_EQ(calls, upper);
        EXPECT_TRUE(std::is_permutation(rows.begin(), rows.begin() + upper + 1, before.begin()));
        EXPECT_TRUE(std::equal(rows.begin() + upper + 1, rows.end(), before.begin() + upper + 1));
    }
}

TEST(ArrayFunctions, ShuffleReachesEveryOrderAndRepeatsForASeed) {
    std::set<std::vector<std::string>> seen;
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        std::vector<std::string> v = {"a", "b", "c"};
        ShuffleRows(v, std::nullopt, SeededRandom(seed));
        seen.insert(v);
        std::vector<std::string> again = {"a", "b", "c"};
        ShuffleRows(again, std::nullopt, SeededRandom(seed));
        EXPECT_EQ(v, again);
    }
    EXPECT_EQ(seen.size(), 6u);
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
        ASSERT_NO_THROW(full = GardinerGreater(ca, cb)) << a << " / " << b;
        ASSERT_EQ(*simple, full) << a << " / " << b;
    }
    EXPECT_GT(quick, 2000); // the quick path does carry the everyday notations
}
