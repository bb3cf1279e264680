#include "bulk/array_functions.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>

namespace nebkaro {

int nextCombGap(int gap) {
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
        if (!hasX || !hasY) return hasX; // the shorter notation sorts first
        if (x.empty() || y.empty()) return std::nullopt;
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
    // The exchanges move keys only, each carrying the row it came from; the rows are put in
    // their places once, at the end (or at a Cancel), in the order the exchanges left.
    struct Key {
        std::uint64_t head = 0;
        std::uint64_t next = 0; // bytes 8 to 15, the same way
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
        std::int32_t row = 0;
    };
    const int last = up + 1;
    std::vector<Key> keys(static_cast<std::size_t>(std::max(last + 1, 0)));
    std::string all;
    for (int i = 0; i <= last; ++i) {
        const std::string_view v = store.view(i, column);
        Key& k = keys[static_cast<std::size_t>(i)];
        k.row = i;
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
    // compare as the texts' first sixteen bytes do, and equal heads leave it to the texts.
    for (Key& k : keys) {
        for (std::uint32_t b = 0; b < 16; ++b) {
            std::uint64_t& h = b < 8 ? k.head : k.next;
            h = (h << 8) | (b < k.length ? static_cast<unsigned char>(all[k.offset + b]) : 0u);
        }
    }
    const char* base = all.data();
    auto greater = [&](const Key& x, const Key& y) {
        const Key& a = order.reverse ? y : x;
        const Key& b = order.reverse ? x : y;
        if (a.head != b.head) return a.head > b.head;
        if (a.next != b.next) return a.next > b.next;
        return std::string_view(base + a.offset, a.length) >
               std::string_view(base + b.offset, b.length);
    };
    auto placeRows = [&] {
        std::vector<int> order(keys.size());
        for (std::size_t i = 0; i < keys.size(); ++i) order[i] = keys[i].row;
        store.permuteRows(order);
    };
    int gap = std::max(1, up + 1);
    bool swapped = false;
    do {
        gap = nextCombGap(gap);
        swapped = false;
        for (int i = 0; i <= up - gap + 1; ++i) {
            const auto a = static_cast<std::size_t>(i);
            const auto b = static_cast<std::size_t>(i + gap);
            if (greater(keys[a], keys[b])) {
                std::swap(keys[a], keys[b]);
                swapped = true;
            }
        }
        app.events.yield();
        if (app.sortCancelled) {
            placeRows();
            return;
        }
    } while (gap != 1 || swapped);
    placeRows();
}

namespace {
// A part as one number whose order is the comparison's: first character, then number, then
// variant letter. An empty part, or one without a plain number, is marked: the comparison
// gives up there (after the first characters, for the latter).
constexpr std::uint64_t EmptyPart = ~std::uint64_t{0};
constexpr std::uint64_t NoNumber = std::uint64_t{1} << 31;

std::uint64_t partCode(std::string_view x) {
    if (x.empty()) return EmptyPart;
    const std::uint64_t first = static_cast<unsigned char>(x[0]);
    int value = 0;
    std::string_view suffix;
    if (!numberAndSuffix(x, value, suffix)) {
        // A code of two letters ("Aa15"): the number the full comparison reads after the
        // first letter starts with a letter, so it is 0, and only a last character that is
        // not a digit is a variant letter.
        const auto second = static_cast<unsigned char>(x.size() >= 2 ? x[1] : 0);
        if (!((second >= 'A' && second <= 'Z') || (second >= 'a' && second <= 'z')))
            return first << 32 | NoNumber;
        const char back = x.back();
        return first << 32 |
               (isDigit(back) ? 0 : std::uint64_t{static_cast<unsigned char>(back)} + 1);
    }
    const std::uint64_t letter =
        suffix.empty() ? 0 : std::uint64_t{static_cast<unsigned char>(suffix[0])} + 1;
    return first << 32 | static_cast<std::uint64_t>(value) << 9 | letter;
}
} // namespace

GardinerKeys::GardinerKeys(const std::vector<std::string>& notations) {
    keys_.resize(notations.size());
    char buf[MaxSimpleLength];
    for (std::size_t i = 0; i < notations.size(); ++i) {
        const std::string& s = notations[i];
        Key& k = keys_[i];
        k.empty = s.empty();
        if (k.empty) continue;
        k.first = static_cast<unsigned char>(s[0]);
        std::size_t n = 0;
        if (!normalise(s, buf, n) || n == 0) continue;
        k.simple = true;
        k.normal = static_cast<std::uint32_t>(normals_.size());
        k.normalLength = static_cast<std::uint32_t>(n);
        normals_.append(buf, n);
        k.parts = static_cast<std::uint32_t>(parts_.size());
        const std::string_view normal(buf, n);
        std::size_t pos = 0;
        std::string_view x;
        while (nextPart(normal, pos, x)) {
            const std::uint64_t code = partCode(x);
            if (k.count < 2) k.head[k.count] = code;
            parts_.push_back(code);
            ++k.count;
        }
    }
}

std::optional<bool> GardinerKeys::greater(std::size_t ia, std::size_t ib) const {
    const Key& a = keys_[ia];
    const Key& b = keys_[ib];
    // Texts whose first bytes differ compare by that byte.
    if (!a.empty && !b.empty && a.first != b.first) return a.first > b.first;
    if (!a.simple || !b.simple) return std::nullopt;
    // The same walk as simpleGardinerGreater, in the same order of tests.
    for (std::size_t p = 0;; ++p) {
        const bool hasX = p < a.count, hasY = p < b.count;
        if (!hasX && !hasY) break;
        if (!hasX || !hasY) return std::nullopt;
        const std::uint64_t x = part(a, p), y = part(b, p);
        if (x == y && x != EmptyPart && !(x & NoNumber)) continue;
        if (x == EmptyPart || y == EmptyPart) return std::nullopt;
        if (x >> 32 != y >> 32) return x >> 32 > y >> 32;
        if ((x | y) & NoNumber) return std::nullopt;
        return x > y;
    }
    return std::string_view(normals_.data() + a.normal, a.normalLength) >
           std::string_view(normals_.data() + b.normal, b.normalLength);
}

} // namespace detail

RandomSource seededRandom(std::uint64_t seed) {
    auto engine = std::make_shared<std::mt19937_64>(seed);
    // 53 random bits scaled into [0, 1): never 1, unlike some library distributions.
    return [engine]() { return static_cast<double>((*engine)() >> 11) * 0x1.0p-53; };
}

RandomSource clockRandom() {
    return seededRandom(static_cast<std::uint64_t>(
        std::chrono::high_resolution_clock::now().time_since_epoch().count()));
}

} // namespace nebkaro
