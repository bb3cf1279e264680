#include "bulk/array_functions.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>

namespace nebkaro {

int NextCombGap(int gap) {
    if (gap > 1) {
        gap = static_cast<int>(gap / 1.3);
        if (gap == 9 || gap == 10) gap = 11;
    }
    return gap;
}

namespace detail {

namespace {

constexpr std::size_t MaxSimpleLength = 64;

// The notation with blanks removed and ":" and "*" turned into "-", as the comparison
// normalises it; false when it is too long or not plain ASCII.
bool normalise(std::string_view s, char* out, std::size_t& n) {
    n = 0;
    for (const char c : s) {
        if (static_cast<unsigned char>(c) >= 0x80) return false;
        if (c == ' ') continue;
        if (n == MaxSimpleLength) return false;
        out[n++] = (c == ':' || c == '*') ? '-' : c;
    }
    return true;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A part's number and variant suffix when the number is one to four plain digits.
bool numberAndSuffix(std::string_view x, int& number, std::string_view& suffix) {
    if (x.size() < 2) return false;
    std::string_view digits;
    if (isDigit(x.back())) {
        digits = x.substr(1);
        suffix = {};
    } else {
        digits = x.substr(1, x.size() - 2);
        suffix = x.substr(x.size() - 1);
    }
    if (digits.empty() || digits.size() > 4) return false;
    number = 0;
    for (const char c : digits) {
        if (!isDigit(c)) return false;
        number = number * 10 + (c - '0');
    }
    return true;
}

// The next part of a normalised notation starting at pos; false when there is none.
bool nextPart(std::string_view s, std::size_t& pos, std::string_view& part) {
    if (pos > s.size()) return false;
    const std::size_t end = std::min(s.find('-', pos), s.size());
    part = s.substr(pos, end - pos);
    pos = end + 1;
    return true;
}

} // namespace

std::optional<bool> simpleGardinerGreater(std::string_view a, std::string_view b) {
    if (a.empty() || b.empty() || a[0] != b[0]) return std::nullopt;
    char bufA[MaxSimpleLength], bufB[MaxSimpleLength];
    std::size_t na = 0, nb = 0;
    if (!normalise(a, bufA, na) || !normalise(b, bufB, nb) || na == 0 || nb == 0)
        return std::nullopt;
    const std::string_view sa(bufA, na), sb(bufB, nb);
    std::size_t pa = 0, pb = 0;
    std::string_view x, y;
    while (true) {
        const bool hasX = nextPart(sa, pa, x);
        const bool hasY = nextPart(sb, pb, y);
        if (!hasX && !hasY) break;
        if (!hasX || !hasY || x.empty() || y.empty()) return std::nullopt;
        if (x[0] != y[0]) return x > y;
        int nx = 0, ny = 0;
        std::string_view fx, fy;
        if (!numberAndSuffix(x, nx, fx) || !numberAndSuffix(y, ny, fy)) return std::nullopt;
        if (nx != ny) return nx > ny;
        if (fx != fy) return fx > fy;
    }
    return sa > sb;
}

void combSortText(App& app, DictionaryStore& store, int column, int up, SortOrder order) {
    struct Key {
        std::uint64_t head = 0;
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
    };
    const int last = up + 1;
    std::vector<Key> keys(static_cast<std::size_t>(std::max(last + 1, 0)));
    std::string all;
    for (int i = 0; i <= last; ++i) {
        const std::string_view v = store.view(i, column);
        Key& k = keys[static_cast<std::size_t>(i)];
        k.offset = static_cast<std::uint32_t>(all.size());
        bool ascii = true;
        for (const char c : v) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
        if (order.caseSensitive) {
            all.append(v);
        } else if (ascii) {
            for (const char c : v)
                all.push_back(c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c);
        } else {
            all.append(text::upper(v));
        }
        k.length = static_cast<std::uint32_t>(all.size() - k.offset);
    }
    // Heads after the buffer stops growing: big-endian, missing bytes as 0, so that two heads
    // compare as the texts' first eight bytes do, and equal heads leave it to the texts.
    for (Key& k : keys) {
        for (std::uint32_t b = 0; b < 8; ++b)
            k.head =
                (k.head << 8) | (b < k.length ? static_cast<unsigned char>(all[k.offset + b]) : 0u);
    }
    const char* base = all.data();
    auto greater = [&](const Key& x, const Key& y) {
        const Key& a = order.reverse ? y : x;
        const Key& b = order.reverse ? x : y;
        if (a.head != b.head) return a.head > b.head;
        return std::string_view(base + a.offset, a.length) >
               std::string_view(base + b.offset, b.length);
    };
    int gap = std::max(1, up + 1);
    bool swapped = false;
    do {
        gap = NextCombGap(gap);
        swapped = false;
        for (int i = 0; i <= up - gap + 1; ++i) {
            const auto a = static_cast<std::size_t>(i);
            const auto b = static_cast<std::size_t>(i + gap);
            if (greater(keys[a], keys[b])) {
                store.swapRows(i, i + gap);
                std::swap(keys[a], keys[b]);
                swapped = true;
            }
        }
        app.events.yield();
        if (app.sortCancelled) return;
    } while (gap != 1 || swapped);
}

GardinerKey makeGardinerKey(std::string_view notation) {
    GardinerKey key;
    char buf[MaxSimpleLength];
    std::size_t n = 0;
    if (notation.empty() || !normalise(notation, buf, n) || n == 0) return key;
    key.simple = true;
    key.normal.assign(buf, n);
    const std::string_view s(key.normal);
    std::size_t pos = 0;
    std::string_view x;
    while (nextPart(s, pos, x)) {
        GardinerKey::Part& part = key.parts.emplace_back();
        if (x.empty()) continue;
        part.empty = false;
        part.first = x[0];
        std::string_view suffix;
        part.number = numberAndSuffix(x, part.value, suffix);
        if (part.number && !suffix.empty())
            part.suffix = static_cast<std::int16_t>(static_cast<unsigned char>(suffix[0]));
    }
    return key;
}

std::optional<bool> simpleGardinerGreater(const GardinerKey& a, const GardinerKey& b) {
    // The same walk as over the texts, in the same order of tests.
    const std::size_t na = a.parts.size(), nb = b.parts.size();
    for (std::size_t p = 0;; ++p) {
        const bool hasX = p < na, hasY = p < nb;
        if (!hasX && !hasY) break;
        if (!hasX || !hasY) return std::nullopt;
        const GardinerKey::Part& x = a.parts[p];
        const GardinerKey::Part& y = b.parts[p];
        if (x.empty || y.empty) return std::nullopt;
        // Parts whose first characters differ compare as texts, decided by that character.
        if (x.first != y.first)
            return static_cast<unsigned char>(x.first) > static_cast<unsigned char>(y.first);
        if (!x.number || !y.number) return std::nullopt;
        if (x.value != y.value) return x.value > y.value;
        if (x.suffix != y.suffix) return x.suffix > y.suffix;
    }
    return a.normal > b.normal;
}

} // namespace detail

RandomSource SeededRandom(std::uint64_t seed) {
    auto engine = std::make_shared<std::mt19937_64>(seed);
    // 53 random bits scaled into [0, 1): never 1, unlike some library distributions.
    return [engine]() { return static_cast<double>((*engine)() >> 11) * 0x1.0p-53; };
}

RandomSource ClockRandom() {
    return SeededRandom(static_cast<std::uint64_t>(
        std::chrono::high_resolution_clock::now().time_since_epoch().count()));
}

} // namespace nebkaro
