#include "fakes.h"
#include "translit/guess.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

struct GuessTest : ::testing::Test {
    TestApp t;
    GuessTest() {
        phonetic({{"N35", "n"},
                  {"I9", "f"},
                  {"G17", "m"},
                  {"Y5", "mn"},
                  {"V30", "nb"},
                  {"D58", "b"},
                  {"A1", "i"},
                  {"A1", "s"},
                  {"Z1", ""}});
    }
    void phonetic(const std::vector<std::pair<std::string, std::string>>& rows) {
        for (std::size_t k = 0; k < rows.size(); ++k)
            t.app.lists.phonetic[k] = {rows[k].first, rows[k].second};
        t.app.lists.phoneticLast = static_cast<int>(rows.size()) - 1;
    }
    // Codes by slot; an empty code is an empty slot.
    void glyphs(const std::vector<std::string>& codes) {
        t.app.glyphs.clear();
        for (std::size_t g = 0; g < codes.size(); ++g)
            if (!codes[g].empty()) t.app.glyphs[static_cast<int>(g)].code = codes[g];
    }
    std::string guess(const std::vector<std::string>& codes) {
        glyphs(codes);
        return guessTransliteration(t.app.glyphs, t.app.lists);
    }
};

} // namespace

TEST_F(GuessTest, ValuesInSlotOrderWithTheSubstringRule) {
    struct Row {
        std::vector<std::string> codes;
        const char* expected;
    };
    std::vector<std::string> lastSlotOnly(GlyphTable::Slots);
    lastSlotOnly.back() = "I9";
    for (const Row& r : std::vector<Row>{
             {{"N35", "I9", "N35"}, "nf"}, // a repeated value is dropped
             {{"G17", "Y5"}, "mmn"},       // 'mn' does not occur in 'm'
             {{"Y5", "G17"}, "mn"},        // 'm' occurs in 'mn'
             {{"N35", "V30"}, "nnb"},
             {{"V30", "N35", "D58"}, "nb"},     // contained in the text so far
             {{"A1"}, "i"},                     // the first row of a code wins
             {{"", "N35", "", "", "I9"}, "nf"}, // empty slots do not end the word
             {{"X99", "N35", "n35"}, "n"},      // unknown codes (exact case) add nothing
             {{"Z1", "N35"}, "n"},
             {{}, ""},
             {lastSlotOnly, "f"}, // the last of the 21 slots counts
         }) {
        std::string codes;
        for (const auto& c : r.codes) codes += c + ",";
        EXPECT_EQ(guess(r.codes), r.expected) << codes;
    }
}

// The guess replaces the box without a question and counts as an edit, unless it changes
// nothing: an empty guess into an empty box.
TEST_F(GuessTest, TheGuessReplacesTheBoxAndCountsAsAnEdit) {
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
        {"old", "N35", "nf", true}, {"", "X99", "", false}, {"x", "X99", "", true}};
    for (const auto& [before, code, after, edited] : cases) {
        t.app.view.transliteration = before;
        t.app.view.textChanged = t.app.store.editPending = false;
        glyphs({code, "I9"});
        if (std::string(code) == "X99") t.app.glyphs[1].code.reset();
        transGuess(t.app);
        EXPECT_EQ(t.app.view.transliteration, after) << before;
        EXPECT_EQ(t.app.view.textChanged, edited) << before;
        EXPECT_EQ(t.app.store.editPending, edited) << before;
    }
    EXPECT_TRUE(t.dialogs.prompts.empty());
}
