#pragma once
// Pattern matching in the manner the dictionary's searches have always used:
//   *        any run of characters, also none
//   ?        any one character
//   #        any one digit 0-9
//   [list]   any one character of the list; a list may hold ranges "a-z" (ascending only)
//   [!list]  any one character not in the list
// Everything else matches itself, character-exact (no case folding). The whole value has to
// match, not a part of it. "[", "?", "#" and "*" match themselves only inside brackets ("[[]",
// "[*]"); "]" and "!" outside brackets are ordinary characters. Inside a list, "-" is itself
// when it comes first (after "!") or last, and "[" is an ordinary member. "[]" matches nothing
// and consumes nothing; "[!]" is any one character.
//
// Characters are Unicode code points of the UTF-8 text, so "?" takes "š" whole and a range
// compares code points. A bracket left open or a descending range ("[z-a]") is RunError 93,
// "Invalid pattern string".
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

constexpr int InvalidPatternError = 93;

// A pattern read once and matched against many values (a search over the whole dictionary).
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern);
    bool matches(std::string_view value) const;

private:
    enum class Kind { Char, Any, Digit, Set, Star };
    struct Range {
        char32_t low;
        char32_t high;
    };
    struct Token {
        explicit Token(Kind k, char32_t c = 0) : kind(k), ch(c) {}
        Kind kind;
        char32_t ch;
        bool negated = false;
        std::vector<Range> ranges;
    };
    bool tokenMatches(const Token& t, char32_t c) const;
    std::vector<Token> tokens_;
};

bool matchesLike(std::string_view value, std::string_view pattern);

} // namespace nebkaro
