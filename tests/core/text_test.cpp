#include "core/errors.h"
#include "core/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

using namespace nebkaro;

namespace {

// What a call reports as it fails, or nothing when it does not.
template <class F> std::string raised(F f) {
    try {
        f();
    } catch (const RunError& e) {
        return e.report();
    }
    return "";
}

} // namespace

TEST(NumberText, NonNegativeNumbersGetALeadingBlank) {
    const std::pair<double, const char*> cases[] = {{0, " 0"},     {12, " 12"},  {-3, "-3"},
                                                    {7.5, " 7.5"}, {-40, "-40"}, {300, " 300"}};
    for (auto [v, want] : cases) EXPECT_EQ(text::numberText(v), want) << v;
    EXPECT_EQ(text::plainNumber(7.5), "7.5");
}

TEST(LeadingNumber, ReadsAsFarAsANumberGoes) {
    const std::pair<const char*, double> cases[] = {
        {"15", 15},      {"a15", 0},   {"", 0},      {"12abc", 12}, {" 1 2", 12},
        {"-4.5x", -4.5}, {"&H1F", 31}, {"&O17", 15}, {"1e3", 1000}, {".5", 0.5}};
    for (auto [s, want] : cases) EXPECT_DOUBLE_EQ(text::leadingNumber(s), want) << s;
}

TEST(ToInt16, RoundsHalvesToEvenAndOverflowsOutsideSixteenBits) {
    const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},       {2.5, 2},        {-2.5, -2},
                                            {3.49, 3}, {32767, 32767}, {-32768, -32768}};
    for (auto [v, want] : cases) EXPECT_EQ(text::toInt16(v), want) << v;
    for (double v : {32767.5, 40000.0, -32769.0})
        EXPECT_EQ(raised([v] { text::toInt16(v); }), RunError(Overflow).report()) << v;
}

// Whole numbers read as strtod reads them, sign of a zero and all; anything else is refused.
TEST(ToNumber, ReadsWholeNumbersAsStrtodAndRefusesTheRest) {
    for (const char* s : {"", "abc", "5x", "--1", " "})
        EXPECT_EQ(raised([s] { text::toNumber(s); }), RunError(TypeMismatch).report()) << s;
    EXPECT_EQ(raised([] { text::toNumber("1e999"); }), RunError(Overflow).report());
    EXPECT_EQ(text::toLong(" 5 "), 5);
    for (const char* s :
         {"0", "-0", "+0", "007", "-12", "+12", "999999999999999", "-999999999999999",
          "9999999999999999", "123456789012345678", "1.0", "5 "}) {
        const double want = std::strtod(s, nullptr), got = text::toNumber(s);
        EXPECT_EQ(got, want) << s;
        EXPECT_EQ(std::signbit(got), std::signbit(want)) << s;
    }
}

TEST(Upper, CoversLatinAndTransliterationLetters) {
    const std::pair<const char*, const char*> cases[] = {{"abc", "ABC"}, {"šḥꜣ", "ŠḤꜢ"},
                                                         {"éà", "ÉÀ"},   {"[\\]^_`", "[\\]^_`"},
                                                         {"ÿ", "Ÿ"},     {"1a", "1A"}};
    for (auto [s, want] : cases) EXPECT_EQ(text::upper(s), want) << s;
}

TEST(DecodeFileText, KeepsUtf8LinesAndReadsOnlyTheOtherLinesAsWindows1252) {
    const struct {
        std::string bytes, text;
        std::vector<int> converted;
    } cases[] = {
        {"caf\xC3\xA9", "café", {}},
        {"caf\xE9 \x80 \x96", "café € –", {1}},
        {"\xEF\xBB\xBFok", "ok", {}},
        // One Windows line among UTF-8 ones leaves the others as they are.
        {"\xC5\xA1n\r\ncaf\xE9\r\nr\xC3\xA9\nx\xFF", "šn\r\ncafé\r\nré\nxÿ", {2, 4}},
    };
    for (const auto& c : cases) {
        std::vector<int> converted;
        EXPECT_EQ(text::decodeFileText(c.bytes, &converted), c.text) << c.bytes;
        EXPECT_EQ(converted, c.converted) << c.bytes;
    }
    // UTF-16, either byte order, is refused rather than read as a few odd letters.
    for (const std::string bom : {"\xFF\xFE", "\xFE\xFF"})
        EXPECT_NE(
            raised([&] { text::decodeFileText(bom + std::string("L\0,\0", 4)); }).find("UTF-16"),
            std::string::npos);
}
