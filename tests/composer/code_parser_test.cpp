#include "composer/code_parser.h"
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro {
namespace {

std::string tokensOf(const CodeLine& line) {
    std::string out;
    for (const auto& t : line.tokens) out += "[" + t.text + "]" + t.separator;
    return out;
}

TEST(TokenizeCodeLine, SplitsTheWayGetReadsALine) {
    struct Case {
        const char* line;
        const char* tokens;
        const char* separators;
    };
    const Case cases[] = {
        {"A1 G17", "[A1]-[G17]-", "--"},
        {"A1-G17", "[A1]-[G17]-", "--"},
        {"A1*G17", "[A1]*[G17]-", "*-"},
        {"A1:G17", "[A1]:[G17]-", ":-"},
        // Blanks around the line are trimmed; the closing blank still ends the token.
        {"  A1  ", "[A1]-", "-"},
        // Nothing is pending before the first letter or digit.
        {"-A1", "[A1]-", "-"},
        {":*- A1", "[A1]-", "-"},
        // Once pending, every separator ends a token, even an empty one.
        {"A1--G17", "[A1]-[]-[G17]-", "---"},
        {"A1-", "[A1]-[]-", "--"},
        // Other characters are skipped: they neither end a token nor join it.
        {"A1,G17", "[A1G17]-", "-"},
        {"n.f;r", "[nfr]-", "-"},
        {"A1\xC3\xA9G17", "[A1G17]-", "-"}, // an accented letter
        {"A1&G17", "[A1G17]-", "-"},
        {"", "", ""},
        {"   ", "", ""},
        {"---", "", ""},
    };
    for (const auto& c : cases) {
        const CodeLine line = TokenizeCodeLine(c.line);
        EXPECT_EQ(tokensOf(line), c.tokens) << c.line;
        EXPECT_EQ(line.separators, c.separators) << c.line;
    }
}

TEST(IsCodeShaped, FirstLetterAndLastDigitOfATokenLongerThanOne) {
    const std::pair<const char*, bool> cases[] = {
        {"G17", true}, {"Aa1", true},  {"a1", true},  {"A1G17", true}, {"z9", true},
        {"n", false},  {"A", false},   {"1", false},  {"nfr", false},  {"N35a", false},
        {"", false},   {"1A1", false}, {"17", false},
    };
    for (const auto& [token, shaped] : cases) EXPECT_EQ(IsCodeShaped(token), shaped) << token;
}

TEST(ResolveToken, CodesGoToTheSignListAndOtherTokensThroughThePhoneticTable) {
    SignLists lists;
    ParseSignList(lists, testing::ComposerSignList);
    ParsePhonetic(lists, testing::ComposerPhonetic);
    using O = TokenResolution::Outcome;
    struct Case {
        const char* token;
        O outcome;
        const char* code;
        int entry;
    };
    const Case cases[] = {
        {"G17", O::Found, "G17", 8},
        {"n", O::Found, "N35", 3},   // the first equal entry wins: the monoliteral
        {"nfr", O::Found, "Z1", 13}, // a phonetic value of three letters
        {"x", O::Found, "Aa1", 6},
        {"a1", O::GlyphNotFound, "a1", 0},  // codes compare case-sensitively
        {"N", O::PhoneticNotFound, "N", 0}, // phonetic values too
        {"p", O::GlyphNotFound, "Q3", 0},   // the phonetic code is not in the list
        {"", O::PhoneticNotFound, "", 0},
        {"N35a", O::PhoneticNotFound, "N35a", 0}, // a variant letter at the end is no code
    };
    for (const auto& c : cases) {
        const TokenResolution r = ResolveToken(lists, c.token);
        EXPECT_EQ(r.outcome, c.outcome) << c.token;
        EXPECT_EQ(r.code, c.code) << c.token;
        EXPECT_EQ(r.entry, c.entry) << c.token;
    }
}

TEST(SeparatorDiagnostic, ShowsTheSeparatorsOrWhetherAColonTouchesADash) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},           {"-", ""},          {"--", "-"},
        {"*-", "*"},        {":-", "True"}, // a lone ":"
        {"-:-", "True"},                    // "-:" at the end
        {"*:-", "False"},   {"::-", "False"},   {":*-", "False"},
        {":--", "True"},                        // begins with ":-"
        {"-:*-", "True"},                       // "-:" inside
        {"*:--", "True"},                       // ":-" inside
        {"*:**-", "False"}, {"-*:-:-", "True"}, // the last ":" decides
    };
    for (const auto& [seps, shown] : cases) EXPECT_EQ(SeparatorDiagnostic(seps), shown) << seps;
}

} // namespace
} // namespace nebkaro
