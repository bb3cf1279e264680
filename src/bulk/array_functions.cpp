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
