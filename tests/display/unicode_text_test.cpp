#include "display/render.h"
#include "display/unicode_signs.h"
#include "display/unicode_text.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {
constexpr char32_t A1 = 0x13000, G17 = 0x13153, N35 = 0x13216, D21 = 0x1308B, X1 = 0x133CF,
                   Z4 = 0x133ED;
constexpr char32_t V = VerticalJoiner, H = HorizontalJoiner;
} // namespace

TEST(unicodeText, EveryCodeOfTheSortedTableIsFoundAndNothingElse) {
    for (std::size_t i = 1; i < UnicodeSigns.size(); ++i)
        ASSERT_LT(std::strcmp(UnicodeSigns[i - 1].code, UnicodeSigns[i].code), 0) << i;
    for (const UnicodeSign& s : UnicodeSigns)
        EXPECT_EQ(hieroglyphCodePoint(s.code), s.codePoint) << s.code;
    EXPECT_EQ(hieroglyphCodePoint("Aa32"), 0x1342E);   // the last sign of the block
    for (const char* code : {"a1", "A1 ", "A999", ""}) // spelling is exact
        EXPECT_EQ(hieroglyphCodePoint(code), std::nullopt) << code;
}

TEST(unicodeText, GroupsBecomeJoinedSequencesInReadingOrder) {
    const PlacedSign a1{"A1", 0, 0, 300, 540}, g17{"G17", 300, 0, 420, 600},
        n35Low{"N35", 0, 320, 600, 90}, z4{"Z4", 320, 0, 250, 300}, x1{"X1", 0, 0, 280, 300};
    struct Case {
        const char* name;
        std::vector<PlacedSign> signs;
        bool leftToRight;
        std::u32string text;
    } cases[] = {
        {"one sign", {a1}, true, {A1}},
        {"two signs side by side stand apart", {g17, a1}, true, {A1, G17}},
        {"the same facing right read from the right", {g17, a1}, false, {G17, A1}},
        {"flat signs stacked",
         {{"D21", 0, 200, 600, 150}, {"N35", 0, 0, 600, 90}},
         true,
         {N35, V, D21}},
        {"two small signs over a flat one", {n35Low, z4, x1}, true, {X1, H, Z4, V, N35}},
        {"the small signs swap when read from the right",
         {n35Low, z4, x1},
         false,
         {Z4, H, X1, V, N35}},
        {"a tall sign, then a stacked group",
         {a1, {"N35", 320, 0, 600, 90}, {"D21", 320, 200, 600, 150}},
         true,
         {A1, N35, V, D21}},
        {"signs overlapping a little at an edge stand apart",
         {a1, {"G17", 280, 0, 420, 600}},
         true,
         {A1, G17}},
        {"no signs", {}, true, {}},
    };
    for (const Case& c : cases) {
        const UnicodeWord w = unicodeText(c.signs, c.leftToRight);
        EXPECT_EQ(w.text, c.text) << c.name;
        EXPECT_TRUE(w.missing.empty()) << c.name;
    }
}

TEST(unicodeText, CopyTakesWhatTheBlockHoldsAndNamesTheRest) {
    const struct {
        const char* direction;
        const char* layout;
        const char* copied; // the clipboard afterwards, which starts as "old"
        const char* message;
    } cases[] = {
        // The word on show is read in its own direction, at its pictures' sizes.
        {"L", "A1(0,0) - G17(300,0) ", "\U00013000\U00013153", nullptr},
        {"R", "A1(0,0) - G17(300,0) ", "\U00013153\U00013000", nullptr},
        {"L", "A1(0,0) - Zz1(300,0) ", "\U00013000",
         "These signs are not in the Unicode block of Egyptian hieroglyphs and were left out "
         "of the copy:\r\nZz1"},
        // Named once, and a stack that loses a sign leaves no stray joiner.
        {"L", "N35(0,0) - Q99x(0,200) - A1(700,0) - Q99x(1100,0) - Zz1(1500,0) ",
         "\U00013216\U00013000",
         "These signs are not in the Unicode block of Egyptian hieroglyphs and were left out "
         "of the copy:\r\nQ99x, Zz1"},
        {"L", "Zz1(0,0) - Q99x(300,0) ", "old",
         "No sign of the word is in the Unicode block of Egyptian hieroglyphs, so nothing was "
         "copied:\r\nZz1, Q99x"},
        {"L", "", "old", "The word on show has no signs to copy."},
    };
    for (const auto& c : cases) {
        TestApp t;
        t.pictures.sizes = {{"A1", {300, 540}},
                            {"G17", {420, 600}},
                            {"N35", {600, 90}},
                            {"Zz1", {300, 540}},
                            {"Q99x", {300, 540}}};
        t.app.store.setRow(0, {c.direction, "B", c.layout, "", "", "", ""});
        renderWord(t.app);
        t.clipboard.content = "old";
        copyWordAsUnicode(t.app);
        EXPECT_EQ(t.clipboard.content, c.copied) << c.layout;
        EXPECT_EQ(t.dialogs.messages(),
                  c.message ? std::vector<std::string>{c.message} : std::vector<std::string>{})
            << c.layout;
    }
}
