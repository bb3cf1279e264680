#include "core/errors.h"
#include "core/sign_lists.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <array>

using namespace nebkaro;
using namespace nebkaro::testing;

// The codes before A1 are the preamble, category '@'; every category notes how many codes it
// has and where they start.
TEST(parseSignList, PreambleAndCategoryStarts) {
    SignLists l;
    parseSignList(
        l, "\"G1\",\"D58\",\"N35\"\r\n\"A1\"\r\n\"A2\",\"Aa1\"\r\nB1\r\nD21\r\nG17,G43\r\nZ1\r\n");
    EXPECT_EQ(l.preambleCount, 3);
    EXPECT_EQ(l.signCount, 11);
    EXPECT_EQ(l.signCodes[4], "A1");
    // Each row: the category ('@', A, D, G, Z), its count and its first sign.
    for (const auto& [cat, count, start] :
         {std::array{1, 3, 1}, {2, 3, 4}, {5, 1, 8}, {8, 2, 9}, {27, 1, 11}}) {
        EXPECT_EQ(l.categoryTable[cat][1], count) << cat;
        EXPECT_EQ(l.categoryTable[cat][2], start) << cat;
    }
    EXPECT_EQ(l.findSign("Z1"), 11); // the last sign
    EXPECT_EQ(l.findSign("g43"), 0);
}

TEST(parseSignList, MalformedListsAreErrorsAndAListWithoutA1KeepsThePreamble) {
    SignLists l;
    l.preambleCount = 2;
    parseSignList(l, "X,Y,B1\r\n");
    EXPECT_EQ(l.preambleCount, 2);
    std::string full;
    for (int i = 0; i < 7000; ++i) full += "A1\r\n";
    for (const std::string& bad :
         {std::string("A1\r\n1B\r\n"), std::string("A1\r\n[1\r\n"), full + "A1\r\n"}) {
        SignLists m;
        EXPECT_THROW(parseSignList(m, bad), RunError);
    }
    parseSignList(l, full);
    EXPECT_EQ(l.signCount, 7000);
}

TEST(loadSignList, TheFileNameIsLookedUpCaseBlind) {
    TempDir d;
    SignLists l;
    d.write("lists/extendedlist.CSV", "A1\r\n");
    EXPECT_NO_THROW(loadSignList(l, d.path(), Library::Extended));
    EXPECT_EQ(l.signCount, 1);
}

TEST(ParseTables, Trans2CodeNeeds225RecordsAndPhoneticAtMost501) {
    SignLists l;
    std::string t2c;
    for (int i = 31; i <= 255; ++i) t2c += "\"x\",\"y\"\r\n";
    parseTrans2Code(l, t2c);
    EXPECT_EQ(l.trans2Code[255][1], "y");
    EXPECT_THROW(parseTrans2Code(l, "\"a\",\"b\"\r\n"), RunError);

    parsePhonetic(l, "\"G17\",\"m\"\r\n\"N35\",\"n\"\r\n\"G17\",\"im\"\r\n");
    EXPECT_EQ(l.phoneticLast, 2);
    EXPECT_EQ(l.findPhonetic(0, "G17"), 0);
    EXPECT_EQ(l.findPhonetic(1, "n"), 1);
    std::string many;
    for (int i = 0; i < 502; ++i) many += "A1,a\r\n";
    EXPECT_THROW(parsePhonetic(l, many), RunError);
}

// Each pair in order: the second sorts after the first, never the other way round. Numbers
// count as numbers (beyond sixteen bits too); two-letter categories and different first
// letters compare as text, so Aa sorts before A1; the shorter notation sorts first; a part
// without a number compares as text, the bare letter before its codes. The separators do not
// count.
TEST(gardinerGreater, OrdersCodesByCategoryNumberAndVariant) {
    const auto inOrder = [](std::string a, std::string b) {
        EXPECT_FALSE(gardinerGreater(a, b)) << a << " < " << b;
        EXPECT_TRUE(gardinerGreater(b, a)) << b << " > " << a;
    };
    const std::pair<const char*, const char*> ordered[] = {
        {"A2", "A10"},    {"N35", "N35a"}, {"A1", "A1a"},  {"A1-G1", "A1-G17"},
        {"A1", "A99999"}, {"Aa15", "Aa2"}, {"Aa15", "A1"}, {"A10", "B1"},
        {"A1", "A1-G17"}, {"A1", "A1-"},   {"A", "A1"},    {"A1--G1", "A1-G1"}};
    for (auto [a, b] : ordered) inOrder(a, b);
    inOrder("M23-X1-N35", "M23-X1-N35-R4-X1-Q3-X8");
    inOrder("M23-X1-N35-N41-X1-B1", "M23-X1-N35-R4-X1-Q3-X8");
    const std::pair<std::string, std::string> equal[] = {
        {"A1", "A1"},          {"", ""}, {"A", "A"}, {"A1--G1", "A1--G1"}, {"G43:X1", "G43 - X1"},
        {"G43 - X1", "G43*X1"}};
    for (auto [a, b] : equal) EXPECT_FALSE(gardinerGreater(a, b) || gardinerGreater(b, a)) << a;
}
