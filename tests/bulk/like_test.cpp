#include "bulk/like.h"
#include "core/errors.h"

#include <gtest/gtest.h>

#include <string>

using namespace nebkaro;

TEST(matchesLike, PatternsAgainstValues) {
    struct Case {
        const char* value;
        const char* pattern;
        bool expected;
    };
    const Case cases[] = {
        // The whole value must match character exact
        {"abc", "abc", true},
        {"abc", "ab", false},
        {"ab", "abc", false},
        {"", "", true},
        {"a", "", false},
        {"F", "f", false},
        {"f", "F", false},
        {"F", "FFF", false},
        // Star takes any run including none
        {"", "*", true},
        {"aBBBa", "a*a", true},
        {"aa", "a*a", true},
        {"a", "a*a", false},
        {"abc", "**c", true},
        {"abc", "*a*b*c*", true},
        {"abcabd", "*ab?", true}, // the first "ab" is a false start
        {"mississippi", "m*iss*ppi", true},
        {"mississippi", "*sip*", true},
        {"mississippi", "m*x*", false},
        {"nfr", "n*r", true},
        {"nfrw", "n*r", false},
        {"anfr", "n*r", false},
        // Question mark and hash take exactly one character
        {"BAT123khg", "B?T*", true},
        {"CAT123khg", "B?T*", false},
        {"", "?", false},
        {"ab", "?", false},
        {"a2a", "a#a", true},
        {"a0a", "a#a", true},
        {"a9a", "a#a", true},
        {"aXa", "a#a", false},
        {"a22a", "a#a", false},
        {"a\u0663a", "a#a", false}, // an Arabic-Indic three is not one of the ten digits
        // Bracket lists and ranges
        {"F", "[A-Z]", true},
        {"f", "[A-Z]", false},
        {"F", "[!A-Z]", false},
        {"f", "[!A-Z]", true},
        {"aM5b", "a[L-P]#[!c-e]", true},
        {"aM5d", "a[L-P]#[!c-e]", false},
        {"b", "[a-cx-z]", true},
        {"y", "[a-cx-z]", true},
        {"m", "[a-cx-z]", false},
        {"q", "[pqr]", true},
        {"s", "[pqr]", false},
        {"a", "[a-a]", true},
        {"ab", "[ab]", false}, // one character only
        // Special characters match themselves only in brackets
        {"[", "[[]", true},
        {"*", "[*]", true},
        {"x", "[*]", false},
        {"?", "[?]", true},
        {"x", "[?]", false},
        {"#", "[#]", true},
        {"5", "[#]", false},
        {"a]", "a]", true}, // "]" outside a list is itself
        {"!", "!", true},   // so is "!"
        {"!", "[!!]", false},
        {"a", "[!!]", true},
        {"a#1", "a[#]#", true},
        // Hyphen at either end of a list is itself
        {"-", "[-a]", true},
        {"a", "[-a]", true},
        {"b", "[-a]", false},
        {"-", "[a-]", true},
        {"b", "[a-]", false},
        {"-", "[!-a]", false},
        {"b", "[!-a]", true},
        // Empty lists take nothing or anything
        {"ab", "a[]b", true},
        {"axb", "a[]b", false},
        {"x", "[!]", true},
        {"", "[!]", false},
        // Characters are code points not bytes
        {"\u0161m\u0161", "?m?", true}, // šmš
        {"\u0161m\u0161", "???", true},
        {"\u0161m\u0161", "????", false}, // six bytes, three characters
        {"\u0161", "[\u0161]", true},
        {"\u0161", "[\u015b-\u017e]", true}, // š within ś..ž
        {"s", "[\u015b-\u017e]", false},
        {"\u1e25", "[!a-z]", true}, // ḥ
        {"\u1e25r", "*r", true},
        {"\ua722", "?", true}, // a three-byte letter
        {"\U00013000", "?", true},
        {"a\u0161", "a[!s]", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(matchesLike(c.value, c.pattern), c.expected)
            << "'" << c.value << "' Like '" << c.pattern << "'";
}

TEST(matchesLike, TheLetterClassAToSmallZTakesSixPunctuationMarks) {
    for (const char* c : {"A", "Z", "[", "\\", "]", "^", "_", "`", "a", "z"})
        EXPECT_TRUE(matchesLike(c, "[A-z]")) << c;
    for (const char* c : {"@", "{", "0", " ", ",", "-", "\u00e9"})
        EXPECT_FALSE(matchesLike(c, "[A-z]")) << c;
}

TEST(matchesLike, MalformedPatternsAreInvalidPatternErrors) {
    for (const char* p : {"[abc", "a[", "*[!", "[z-a]", "x[9-0]"}) {
        try {
            matchesLike("abc", p);
            ADD_FAILURE() << p;
        } catch (const RunError& e) {
            EXPECT_EQ(e.number(), 93) << p;
            EXPECT_EQ(e.report(), "93  Invalid pattern string");
        }
    }
}

TEST(LikePattern, OneCompiledPatternServesManyValues) {
    const LikePattern p("G#*");
    EXPECT_TRUE(p.matches("G17"));
    EXPECT_TRUE(p.matches("G1"));
    EXPECT_FALSE(p.matches("Gx1"));
    EXPECT_FALSE(p.matches("A1"));
}

// Found by fuzzing: a byte that starts a multibyte sequence but is not followed by one must
// not swallow the bracket after it.
TEST(matchesLike, InvalidUtf8BytesStandForThemselves) {
    EXPECT_TRUE(matchesLike("\xff\x7f[\xff", "\xff\x7f[[]\xff"));
    EXPECT_TRUE(matchesLike("\xd7%", "\xd7%"));
    EXPECT_TRUE(matchesLike("\xd7%", "??"));
    // An overlong "#" is two plain bytes, not a digit wildcard.
    EXPECT_FALSE(matchesLike("\xc0\xa3", "#"));
    EXPECT_TRUE(matchesLike("\xc0\xa3", "\xc0\xa3"));
}
