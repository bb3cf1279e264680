#pragma once
// Array_Functions: swapping, comb sort, exchange sort and shuffle over one-column arrays
// (std::vector<T>) and tables of rows (std::vector<std::array<T, N>>, such as the dictionary's
// words). Rows always move whole. The sorts compare keys made once per element: the element
// itself, or its upper-cased text when case does not count; each key travels with its row, so
// the order of comparisons and exchanges is exactly that of comparing the elements afresh.
#include "core/app.h"
#include "core/dictionary_store.h"
#include "core/errors.h"
#include "core/sign_lists.h"
#include "core/text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace nebkaro {

// How keys are compared: reverse order exchanges the two keys before comparing; without case
// sensitivity both are upper-cased first.
struct SortOrder {
    bool reverse = false;
    bool caseSensitive = false;
};

// A table of rows (the dictionary, or rows of std::array) rather than one column of values.
template <class T> inline constexpr bool HasRows = false;
template <class T, std::size_t N, class A>
inline constexpr bool HasRows<std::vector<std::array<T, N>, A>> = true;
template <> inline constexpr bool HasRows<DictionaryStore> = true;

// Exchanges rows i and j in every column.
template <class Row, class A> void swapRows(std::vector<Row, A>& table, int i, int j) {
    if (i < 0 || j < 0 || static_cast<std::size_t>(i) >= table.size() ||
        static_cast<std::size_t>(j) >= table.size())
        throw RunError(SubscriptOutOfRange);
    std::swap(table[static_cast<std::size_t>(i)], table[static_cast<std::size_t>(j)]);
}

// The dictionary's rows trade places without copying their texts.
inline void swapRows(DictionaryStore& store, int i, int j) {
    store.swapRows(i, j);
}

// The next gap of the comb sort: the gap shrinks by the factor 1.3, and 9 and 10 become 11,
// which leaves fewer stragglers for the final passes.
int nextCombGap(int gap);

namespace detail {

template <class Table> const auto& cell(const Table& table, int i, int column) {
    const auto& entry = table[static_cast<std::size_t>(i)];
    if constexpr (!HasRows<Table>) {
        (void)column;
        return entry;
    } else {
        if (column < 0 || static_cast<std::size_t>(column) >= entry.size())
            throw RunError(SubscriptOutOfRange);
        return entry[static_cast<std::size_t>(column)];
    }
}

template <class T> T makeKey(const T& value, bool caseSensitive) {
    if constexpr (std::is_same_v<T, std::string>)
        return caseSensitive ? value : text::upper(value);
    else
        return value;
}

// The keys of entries 0..last of one column.
inline std::vector<std::string> makeKeys(const DictionaryStore& store, int column, int last,
                                         bool caseSensitive) {
    std::vector<std::string> keys(static_cast<std::size_t>(std::max(last + 1, 0)));
    for (int i = 0; i <= last; ++i) {
        const std::string_view v = store.view(i, column);
        std::string& k = keys[static_cast<std::size_t>(i)];
        if (caseSensitive) {
            k.assign(v);
            continue;
        }
        // ASCII needs no table: its upper case is one subtraction.
        bool ascii = true;
        for (char c : v) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
        if (!ascii) {
            k = text::upper(std::string(v));
            continue;
        }
        k.assign(v);
        for (char& c : k)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    }
    return keys;
}

template <class Table> auto makeKeys(const Table& table, int column, int last, bool caseSensitive) {
    using Cell = std::decay_t<decltype(cell(table, 0, column))>;
    std::vector<Cell> keys;
    keys.reserve(static_cast<std::size_t>(last + 1));
    for (int i = 0; i <= last; ++i) keys.push_back(makeKey(cell(table, i, column), caseSensitive));
    return keys;
}

// The Gardiner-code order of two notations that start with the same character, worked out
// without allocating for the everyday notations (ASCII codes such as "A1", "N35a" joined by
// "-", ":" or "*", at most four digits, short); nullopt for anything else, which the full
// comparison then decides.
std::optional<bool> simpleGardinerGreater(std::string_view a, std::string_view b);

// The notations of a sort read once for all its comparisons: the parts simpleGardinerGreater
// would find in them on every call, each part as one number, kept side by side so that a
// comparison touches no text of its own.
class GardinerKeys {
public:
    explicit GardinerKeys(const std::vector<std::string>& notations);
    // For notations a and b (entries of the list given): a > b when their first bytes differ,
    // otherwise simpleGardinerGreater(a, b); nullopt where that gives up.
    std::optional<bool> greater(std::size_t a, std::size_t b) const;
    void swap(std::size_t a, std::size_t b) { std::swap(keys_[a], keys_[b]); }

private:
    struct Key {
        std::uint64_t head[2] = {0, 0}; // the first two parts
        std::uint32_t parts = 0;        // where all its parts begin in parts_
        std::uint32_t normal = 0;       // where its normalised text begins in normals_
        std::uint32_t normalLength = 0;
        std::uint16_t count = 0; // parts
        unsigned char first = 0; // the notation's first byte
        bool empty = true;       // the notation is empty
        bool simple = false;     // plain ASCII, short enough, not only blanks
    };
    std::uint64_t part(const Key& k, std::size_t p) const {
        return p < 2 ? k.head[p] : parts_[k.parts + p];
    }
    std::vector<Key> keys_;
    std::vector<std::uint64_t> parts_;
    std::string normals_;
};

// a > b, or for Gardiner notations a after b in Gardiner order. The notation comparison may
// rewrite its arguments, so it works on copies (kept in the scratch strings to save
// allocations).
struct Greater {
    bool gardiner = false;
    bool reverse = false;
    std::string sa, sb;

    template <class K> bool operator()(const K& x, const K& y) {
        const K& a = reverse ? y : x;
        const K& b = reverse ? x : y;
        if constexpr (std::is_same_v<K, std::string>) {
            if (gardiner) {
                // Different first bytes mean different first characters, for which the
                // notation order is the plain text order of the unchanged values.
                if (!a.empty() && !b.empty() && a[0] != b[0]) return a > b;
                if (const auto simple = simpleGardinerGreater(a, b)) return *simple;
                sa.assign(a);
                sb.assign(b);
                return gardinerGreater(sa, sb);
            }
        }
        return a > b;
    }
};

// The comb sort below for a text column of the dictionary, in plain text order: the keys lie
// side by side in one buffer, each led by its first sixteen bytes as two numbers that order as
// the text does, so that most comparisons are one integer comparison.
void combSortText(App& app, DictionaryStore& store, int column, int up, SortOrder order);

// Checks that entries lo..last exist.
template <class Table> void checkRange(const Table& table, int last) {
    if constexpr (std::is_same_v<Table, DictionaryStore>) {
        (void)table;
        if (last > DictionaryStore::MaxWordIndex) throw RunError(SubscriptOutOfRange);
    } else {
        if (last >= 0 && static_cast<std::size_t>(last) >= table.size())
            throw RunError(SubscriptOutOfRange);
    }
}

template <class Table> void swapEntries(Table& table, std::size_t a, std::size_t b) {
    if constexpr (std::is_same_v<Table, DictionaryStore>)
        table.swapRows(static_cast<int>(a), static_cast<int>(b));
    else
        std::swap(table[a], table[b]);
}

} // namespace detail

// Comb sort of entries 0..upper+1 by one column (ignored for a one-dimensional array), in
// place. upper is the last index at which a comparison starts, so the last word of the
// dictionary is lastIndex when upper is lastIndex - 1; nullopt means the whole array. A range
// of fewer than two entries makes one pass with gap 1 and compares nothing. For column 3 of a
// table of rows the Gardiner-code order decides. After every pass the window system gets to
// breathe, and a Cancel (app.sortCancelled) stops the sort at once, leaving it partly sorted.
template <class Table>
void combSort(App& app, Table& table, int column, std::optional<int> upper, SortOrder order) {
    const int lo = 0;
    int up = 0;
    if constexpr (std::is_same_v<Table, DictionaryStore>)
        up = upper ? *upper : table.lastIndex - 1;
    else
        up = upper ? *upper : static_cast<int>(table.size()) - 2;
    const int last = up + 1;
    detail::checkRange(table, last);
    if constexpr (std::is_same_v<Table, DictionaryStore>) {
        if (column != FieldGardiner) {
            detail::combSortText(app, table, column, up, order);
            return;
        }
    }
    auto keys = detail::makeKeys(table, column, last, order.caseSensitive);
    detail::Greater greater;
    greater.reverse = order.reverse;
    greater.gardiner = HasRows<Table> && column == FieldGardiner;
    // Gardiner notations are read into their parts once, not at every comparison.
    std::optional<detail::GardinerKeys> parsed;
    if constexpr (std::is_same_v<typename decltype(keys)::value_type, std::string>)
        if (greater.gardiner) parsed.emplace(keys);
    auto greaterAt = [&](std::size_t i, std::size_t j) {
        if (parsed) {
            const auto quick = order.reverse ? parsed->greater(j, i) : parsed->greater(i, j);
            if (quick) return *quick;
        }
        return greater(keys[i], keys[j]);
    };
    int gap = std::max(1, up - lo + 1);
    bool swapped = false;
    do {
        gap = nextCombGap(gap);
        swapped = false;
        for (int i = lo; i <= up - gap + 1; ++i) {
            const auto a = static_cast<std::size_t>(i);
            const auto b = static_cast<std::size_t>(i + gap);
            if (greaterAt(a, b)) {
                detail::swapEntries(table, a, b);
                std::swap(keys[a], keys[b]);
                if (parsed) parsed->swap(a, b);
                swapped = true;
            }
        }
        app.events.yield();
        if (app.sortCancelled) return;
    } while (gap != 1 || swapped);
}

// Rnd: a number uniform in [0, 1).
using RandomSource = std::function<double()>;
// A generator seeded from the clock, as the program shuffles.
RandomSource clockRandom();
// A generator with a fixed seed: the same seed gives the same shuffle.
RandomSource seededRandom(std::uint64_t seed);

// Puts entries 0..upper in random order (nullopt: the whole array), every order equally likely:
// from the top down, each entry trades places with one at or below it.
template <class Table>
void shuffleRows(Table& table, std::optional<int> upper, const RandomSource& rnd) {
    const int lo = 0;
    int up = 0;
    if constexpr (std::is_same_v<Table, DictionaryStore>)
        up = upper ? *upper : table.lastIndex;
    else
        up = upper ? *upper : static_cast<int>(table.size()) - 1;
    detail::checkRange(table, up);
    if (up < lo + 1) return;
    // The exchanges are made on row numbers first and the rows then moved once each into
    // their places: the same order as exchanging the rows themselves, without touching every
    // row twice at random places in memory.
    std::vector<int> order(static_cast<std::size_t>(up - lo + 1));
    for (int k = lo; k <= up; ++k) order[static_cast<std::size_t>(k - lo)] = k;
    for (int i = up; i >= lo + 1; --i) {
        int j = static_cast<int>(std::floor(rnd() * (i - lo + 1) + lo));
        if (j > i) j = i; // a source that returns 1 would otherwise reach past i
        std::swap(order[static_cast<std::size_t>(i - lo)], order[static_cast<std::size_t>(j - lo)]);
    }
    if constexpr (std::is_same_v<Table, DictionaryStore>) {
        table.permuteRows(order); // lo is 0: entry k is the row that goes to k
        return;
    } else {
        std::vector<typename Table::value_type> moved;
        moved.reserve(order.size());
        for (int k : order) moved.push_back(std::move(table[static_cast<std::size_t>(k)]));
        for (std::size_t k = 0; k < moved.size(); ++k)
            table[static_cast<std::size_t>(lo) + k] = std::move(moved[k]);
    }
}

} // namespace nebkaro
