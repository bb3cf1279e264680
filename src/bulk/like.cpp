#include "bulk/like.h"

#include "core/errors.h"
#include "core/text.h"

namespace nebkaro {

namespace {

[[noreturn]] void invalidPattern() {
    throw RunError(InvalidPatternError, "Invalid pattern string");
}

// Bytes that do not start a complete sequence count as one character each, so a stray byte
// can never make a value unmatchable by "?" or "*".
char32_t nextCodePoint(std::string_view s, std::size_t& i) {
    return text::nextChar(s, i);
}
} // namespace

LikePattern::LikePattern(std::string_view pattern) {
    const std::u32string p = text::toU32(pattern);
    const std::size_t n = p.size();
    for (std::size_t i = 0; i < n; ++i) {
        const char32_t c = p[i];
        if (c == U'*') {
            // A run of stars is one star; keeping one keeps the backtracking linear.
            if (tokens_.empty() || tokens_.back().kind != Kind::Star)
                tokens_.emplace_back(Kind::Star);
        } else if (c == U'?') {
            tokens_.emplace_back(Kind::Any);
        } else if (c == U'#') {
            tokens_.emplace_back(Kind::Digit);
        } else if (c == U'[') {
            std::size_t j = i + 1;
            bool negated = false;
            if (j < n && p[j] == U'!') {
                negated = true;
                ++j;
            }
            const std::size_t close = p.find(U']', j);
            if (close == std::u32string::npos) invalidPattern();
            const std::u32string_view list(p.data() + j, close - j);
            i = close;
            if (list.empty()) {
                if (negated) tokens_.emplace_back(Kind::Any); // "[!]": nothing excluded
                continue;                                     // "[]": matches the empty string
            }
            Token t(Kind::Set);
            t.negated = negated;
            for (std::size_t k = 0; k < list.size();) {
                if (k + 2 < list.size() && list[k + 1] == U'-') {
                    if (list[k + 2] < list[k]) invalidPattern();
                    t.ranges.push_back({list[k], list[k + 2]});
                    k += 3;
                } else {
                    t.ranges.push_back({list[k], list[k]});
                    ++k;
                }
            }
            tokens_.push_back(std::move(t));
        } else {
            tokens_.emplace_back(Kind::Char, c);
        }
    }
}

bool LikePattern::tokenMatches(const Token& t, char32_t c) const {
    switch (t.kind) {
    case Kind::Char:
        return c == t.ch;
    case Kind::Any:
        return true;
    case Kind::Digit:
        return c >= U'0' && c <= U'9';
    case Kind::Set: {
        bool in = false;
        for (const Range& r : t.ranges) {
            if (c >= r.low && c <= r.high) {
                in = true;
                break;
            }
        }
        return in != t.negated;
    }
    case Kind::Star:
        break;
    }
    return false;
}

bool LikePattern::matches(std::string_view value) const {
    // Every token but the star takes exactly one character, so a greedy walk that returns to
    // the last star on a mismatch (letting it take one character more) finds a match whenever
    // one exists.
    const std::size_t n = tokens_.size();
    std::size_t ti = 0;
    std::size_t vi = 0;
    std::size_t star = n; // none yet
    std::size_t starValue = 0;
    while (vi < value.size()) {
        if (ti < n && tokens_[ti].kind == Kind::Star) {
            star = ti++;
            starValue = vi;
            continue;
        }
        if (ti < n) {
            std::size_t after = vi;
            const char32_t c = nextCodePoint(value, after);
            if (tokenMatches(tokens_[ti], c)) {
                ++ti;
                vi = after;
                continue;
            }
        }
        if (star == n) return false;
        ti = star + 1;
        nextCodePoint(value, starValue);
        vi = starValue;
    }
    while (ti < n && tokens_[ti].kind == Kind::Star) ++ti;
    return ti == n;
}

bool matchesLike(std::string_view value, std::string_view pattern) {
    return LikePattern(pattern).matches(value);
}

} // namespace nebkaro
