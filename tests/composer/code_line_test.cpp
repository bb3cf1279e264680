// A typed line of codes and phonetic values becomes a word: Get lays the signs out in a row,
// Arrange as hieroglyphic groups; OK then writes the layout as it would be stored.
#include "composer/code_parser.h"
#include "composer_fixture.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

enum class Tool { Get, Arrange };

struct CodeLineTest : ComposerTest {
    std::string lineOf(const std::string& sign, int count) {
        std::string line;
        for (int k = 0; k < count; ++k) line += sign + " ";
        return line;
    }
};

// Sizes: N35 600x150, X1 450x225, Z1 150x450, A1 300x600, D21 450x225, G17 450x600,
// M17 225x600, Aa1 375x375. A sign not in the list is reported with a title after " / ".
TEST_F(CodeLineTest, TheLineIsReadLaidOutAndWrittenAsALayout) {
    const std::string twenty = lineOf("G17", 20);
    std::string tooMany = lineOf("A1", 10) + "zz " + lineOf("A1", 12) + "G17";
    struct Case {
        std::string line;
        Tool tool;
        bool left;
        const char* gardiner; // "" when OK has nothing to accept
        const char* layout;   // nullptr: not checked
        std::vector<std::string> messages;
    };
    const Case cases[] = {
        // Get: a row on the middle line, each separator only ends a token.
        {"A1 G17", Tool::Get, true, "A1-G17", "A1(0,0) - G17(300,0) ", {}},
        {"A1-G17", Tool::Get, true, "A1-G17", nullptr, {}},
        {"A1*G17", Tool::Get, true, "A1-G17", nullptr, {}},
        {"  A1:G17  ", Tool::Get, true, "A1-G17", nullptr, {}},
        // The typed order is the reading order in both directions.
        {"A1 G17", Tool::Get, false, "A1-G17", "A1(450,0) - G17(0,0) ", {}},
        {"G17 X1 A2", Tool::Get, false, "G17-X1-A2", "G17(750,0) - X1(300,187.5) - A2(0,0) ", {}},
        {"A1 N35 Z1", Tool::Get, true, "A1-N35-Z1", "A1(0,0) - N35(300,225) - Z1(900,75) ", {}},
        // Phonetic values through the table; the first equal entry, the monoliteral, wins.
        {"i-n:t", Tool::Get, true, "M17-N35-X1", "M17(0,0) - N35(225,225) - X1(825,187.5) ", {}},
        {"nfr x", Tool::Get, true, "Z1-Aa1", nullptr, {}},
        // Unknown tokens are reported and skipped; other characters join their neighbours.
        {"-A1", Tool::Get, true, "A1", "A1(0,0) ", {}},
        {"A1--G17", Tool::Get, true, "A1-G17", nullptr, {" was not found / Phonetic Not Found"}},
        {"a1 G17", Tool::Get, true, "G17", nullptr, {"a1 was not found / Glyph Not Found"}},
        {"z9 G17", Tool::Get, true, "G17", nullptr, {"z9 was not found / Glyph Not Found"}},
        {"N35a", Tool::Get, true, "", nullptr, {"N35a was not found / Phonetic Not Found"}},
        {"A1,G17", Tool::Get, true, "", "", {"A1G17 was not found / Glyph Not Found"}},
        {"A1\xC3\xA9G17", Tool::Get, true, "", "", {"A1G17 was not found / Glyph Not Found"}},
        {"nfx A1", Tool::Get, true, "A1", nullptr, {"nfx was not found / Phonetic Not Found"}},
        {"p-t", Tool::Get, true, "X1", nullptr, {"Q3 was not found / Glyph Not Found"}},
        {"A1 zz nfr", Tool::Get, true, "A1-Z1", nullptr, {"zz was not found / Phonetic Not Found"}},
        {"zz", Tool::Get, true, "", "", {"zz was not found / Phonetic Not Found"}},
        // At most twenty signs on a line.
        {twenty,
         Tool::Get,
         true,
         "G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-G17-"
         "G17-G17-G17-G17-G17",
         nullptr,
         {}},
        {tooMany,
         Tool::Get,
         true,
         "A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1",
         nullptr,
         {"zz was not found / Phonetic Not Found",
          "One line can place at most 20 signs. A1 and everything after it were not placed. / "
          "Too Many Signs"}},
        // Arrange: ":" stacks, "*" sets side by side within a group and binds closer.
        {"N35:X1", Tool::Arrange, true, "N35-X1", "N35(0,0) - X1(75,150) ", {}},
        {"X1*Z1", Tool::Arrange, true, "X1-Z1", "X1(0,112.5) - Z1(450,0) ", {}},
        {"X1*Z1:N35",
         Tool::Arrange,
         true,
         "X1-Z1-N35",
         "X1(0,112.5) - Z1(450,0) - N35(0,450) ",
         {}},
        // "-" and blanks separate groups, which stand in a row on the middle line.
        {"A1-N35:X1",
         Tool::Arrange,
         true,
         "A1-N35-X1",
         "A1(0,0) - N35(300,112.5) - X1(375,262.5) ",
         {}},
        {"A1 N35:X1",
         Tool::Arrange,
         true,
         "A1-N35-X1",
         "A1(0,0) - N35(300,112.5) - X1(375,262.5) ",
         {}},
        // Facing right, the groups run from the right, and so do signs side by side.
        {"A1-N35:X1",
         Tool::Arrange,
         false,
         "A1-N35-X1",
         "A1(600,0) - N35(0,112.5) - X1(75,262.5) ",
         {}},
        {"X1*Z1", Tool::Arrange, false, "X1-Z1", "X1(150,112.5) - Z1(0,0) ", {}},
        // Around a failed token the strongest separator decides.
        {"N35:zz-X1",
         Tool::Arrange,
         true,
         "N35-X1",
         "N35(0,37.5) - X1(600,0) ",
         {"zz was not found / Phonetic Not Found"}},
        {"N35:zz*X1",
         Tool::Arrange,
         true,
         "N35-X1",
         "N35(0,0) - X1(75,150) ",
         {"zz was not found / Phonetic Not Found"}},
        // A line without separators between groups is Get's row.
        {"A1 G17", Tool::Arrange, true, "A1-G17", "A1(0,0) - G17(300,0) ", {}},
        {"zz", Tool::Arrange, true, "", "", {"zz was not found / Phonetic Not Found"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line.substr(0, 40) + (c.tool == Tool::Get ? " Get" : " Arrange"));
        app.settings.direction = c.left ? Direction::Left : Direction::Right;
        composer.open();
        app.glyphs.clear();
        t.dialogs.prompts.clear();
        composer.codeLine = c.line;
        c.tool == Tool::Get ? composer.getSigns() : composer.arrange();
        std::vector<std::string> messages;
        for (const Prompt& p : t.dialogs.prompts) messages.push_back(p.text + " / " + p.title);
        EXPECT_EQ(messages, c.messages);
        ASSERT_TRUE(composer.accept());
        EXPECT_EQ(app.store.composeAccepted, *c.gardiner != '\0');
        EXPECT_EQ(app.composedGardiner, c.gardiner);
        if (c.layout) {
            EXPECT_EQ(app.layoutText, c.layout);
        }
    }
}

// Get and Arrange leave the canvas as it was when there is nothing to place.
TEST_F(CodeLineTest, AnEmptyLineOrOneWithoutSignsMovesNothing) {
    get("A1 G17");
    const auto images = composer.images;
    for (const char* line : {"", "    "}) {
        t.dialogs.prompts.clear();
        get(line);
        EXPECT_EQ(code(0), "A1") << line;
        EXPECT_EQ(composer.images[0].left, images[0].left) << line;
    }
    composer.codeLine = "zz";
    composer.arrange();
    EXPECT_EQ(composer.images[0].left, images[0].left);
    EXPECT_EQ(composer.firstFreeSlot, -1);
}

TEST_F(CodeLineTest, PicturesComeFromTheLibraryAndDirectionAMissingOneIsAnEmptySquare) {
    struct Case {
        bool basic, left;
        const char* file;
    };
    const Case cases[] = {{true, true, "/pictures/Basic/Left/G17.GIF"},
                          {false, false, "/pictures/Extended/Right/G17.GIF"}};
    for (const auto& c : cases) {
        app.settings.library = c.basic ? Library::Basic : Library::Extended;
        app.settings.direction = c.left ? Direction::Left : Direction::Right;
        get("G17");
        EXPECT_EQ(composer.images[0].picture.file, c.file);
    }
    t.pictures.sizes.erase("A1");
    get("G17 A1");
    EXPECT_EQ(code(1), "A1");
    EXPECT_FALSE(composer.images[1].picture.ok);
    EXPECT_EQ(composer.images[1].width, 612);
    EXPECT_EQ(composer.status, "Picture not found: /pictures/Extended/Right/A1.GIF");
    get("G17");
    EXPECT_EQ(composer.status, "");
}

} // namespace
} // namespace nebkaro::testing
