#include "core/errors.h"
#include "core/sign_lists.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <random>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(parseSignList, PreambleAndCategoryStarts) {
    SignLists l;
    parseSignList(
        l, "\"G1\",\"D58\",\"N35\"\r\n\"A1\"\r\n\"A2\",\"Aa1\"\r\nB1\r\nD21\r\nG17,G43\r\nZ1\r\n");
    EXPECT_EQ(l.preambleCount, 3);
    EXPECT_EQ(l.signCount, 11);
    EXPECT_EQ(l.signCodes[4], "A1");
    EXPECT_EQ(l.categoryTable[1][1], 3); // '@': the preamble
    EXPECT_EQ(l.categoryTable[1][2], 1);
    EXPECT_EQ(l.categoryTable[2][1], 3); // A1, A2, Aa1
    EXPECT_EQ(l.categoryTable[2][2], 4);
    EXPECT_EQ(l.categoryTable[5][2], 8); // D
    EXPECT_EQ(l.categoryTable[8][1], 2); // G
    EXPECT_EQ(l.categoryTable[8][2], 9);
    EXPECT_EQ(l.categoryTable[27][2], 11); // Z
    EXPECT_EQ(l.findSign("G43"), 10);
    EXPECT_EQ(l.findSign("g43"), 0);
}

TEST(parseSignList, MalformedListsAreErrorsAndAListWithoutA1KeepsThePreamble) {
    SignLists l;
    l.preambleCount = 2;
    parseSignList(l, "X,Y,B1\r\n");
    EXPECT_EQ(l.preambleCount, 2);
    std::string tooMany;
    for (int i = 0; i < 7001; ++i) tooMany += "A1\r\n";
    for (const std::string& bad :
         {std::string("A1\r\n1B\r\n"), std::string("A1\r\n[1\r\n"), tooMany}) {
        SignLists m;
        EXPECT_THROW(parseSignList(m, bad), RunError);
    }
    std::string exactly;
    for (int i = 0; i < 7000; ++i) exactly += "A1\r\n";
    SignLists full;
    EXPECT_NO_THROW(parseSignList(full, exactly));
    EXPECT_EQ(full.signCount, 7000);
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

namespace {
bool greater(std::string a, std::string b) {
    return gardinerGreater(a, b);
}
} // namespace

TEST(gardinerGreater, OrdersCodesByCategoryNumberAndVariant) {
    struct Case {
        const char* a;
        const char* b;
        bool want;
    } cases[] = {
        {"A1", "A1", false},
        {"A2", "A10", false},
        {"A10", "A2", true},
        {"N35a", "N35", true},
        {"N35", "N35a", false},
        {"A1a", "A1", true},
        {"Aa2", "Aa15", true}, // two-letter categories fall through to text order
        {"Aa15", "A1", false}, // and all sort before A1
        {"A10", "B1", false},
        {"B1", "A10", true}, // different first letters: text order
        {"G43:X1", "G43 - X1", false},
        {"G43 - X1", "G43*X1", false},
        {"A1-G17", "A1-G1", true},
        {"A1-G1", "A1-G17", false},
        {"", "", false},
        // Words of the starter dictionary: the shorter notation sorts first.
        {"M23-X1-N35", "M23-X1-N35-R4-X1-Q3-X8", false},
        {"M23-X1-N35-R4-X1-Q3-X8", "M23-X1-N35", true},
        {"M23-X1-N35-R4-X1-Q3-X8", "M23-X1-N35-N41-X1-B1", true},
        {"A1", "A1-G17", false},
        {"A1-G17", "A1", true},
        {"A1-", "A1", true},
        // A part without a number compares as text: the bare letter before its codes.
        {"A", "A1", false},
        {"A1", "A", true},
        {"A", "A", false},
        {"A1--G1", "A1--G1", false},
        {"A1--G1", "A1-G1", false},
        // Numbers beyond sixteen bits are still numbers.
        {"A1", "A99999", false},
        {"A99999", "A1", true},
    };
    for (const auto& c : cases) {
        bool got = false;
        ASSERT_NO_THROW(got = greater(c.a, c.b)) << c.a << " vs " << c.b;
        EXPECT_EQ(got, c.want) << c.a << " vs " << c.b;
    }
}

TEST(gardinerGreater, IsAConsistentOrderOnRandomNotations) {
    const std::vector<std::string> parts = {"A1", "A2",   "A10", "A1a", "A01",    "Aa15", "Aa2",
                                            "A",  "",     "G",   "G17", "G1b",    "N35",  "N35a",
                                            "Ab", "A1.5", "Aš1", "X1",  "A99999", "5",    "Z1"};
    const std::vector<std::string> seps = {"-", " - ", ":", "*"};
    std::mt19937 rng(11);
    for (int round = 0; round < 20; ++round) {
        std::vector<std::string> v;
        for (int k = 0; k < 40; ++k) {
            std::string s = parts[rng() % parts.size()];
            for (int more = static_cast<int>(rng() % 4); more > 0; --more)
                s += seps[rng() % seps.size()] + parts[rng() % parts.size()];
            v.push_back(s);
        }
        const std::size_t n = v.size();
        std::vector<std::vector<bool>> gt(n, std::vector<bool>(n));
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j) gt[i][j] = greater(v[i], v[j]);
        auto same = [&](std::size_t i, std::size_t j) { return !gt[i][j] && !gt[j][i]; };
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j) {
                ASSERT_FALSE(gt[i][j] && gt[j][i]) << v[i] << " / " << v[j];
                for (std::size_t k = 0; k < n; ++k) {
                    ASSERT_TRUE(!(gt[i][j] && gt[j][k]) || gt[i][k]) << v[i] << " > " << v[k];
                    ASSERT_TRUE(!(same(i, j) && same(j, k)) || same(i, k)) << v[i] << " ~ " << v[k];
                }
            }
    }
}
