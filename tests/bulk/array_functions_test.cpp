#include "bulk/array_functions.h"
#include "bulk_fixture.h"
#include "core/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

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
