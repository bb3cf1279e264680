// Words leaving and entering the program as text: the Manuel de Codage read from where the
// signs stand, the import of such lines, and the Unicode table.
#include "composer/composer_fixture.h"
#include "exchange/mdc.h"
#include "exchange/word_exchange.h"
#include "translit/unicode_translit.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

TEST(mdcOfSigns, GroupsRowsAndSidesComeFromWhereTheSignsStand) {
    const PlacedSign a1{"A1", 0, 0, 300, 600}, g17{"G17", 300, 0, 450, 600};
    struct Case {
        const char* name;
        std::vector<PlacedSign> signs;
        bool left;
        const char* mdc;
    } cases[] = {
        {"a row of touching signs is a row of groups", {a1, g17}, true, "A1-G17"},
        {"facing right, the row is read from the right", {a1, g17}, false, "G17-A1"},
        {"one sign above another is a stack",
         {{"N35", 0, 0, 600, 150}, {"X1", 75, 150, 450, 225}},
         true,
         "N35:X1"},
        {"two signs side by side above a third",
         {{"X1", 0, 112.5, 450, 225}, {"Z1", 450, 0, 150, 450}, {"N35", 0, 450, 600, 150}},
         true,
         "X1*Z1:N35"},
        {"a stack between two signs, slot order aside",
         {{"X1", 375, 262.5, 450, 225},
          a1,
          {"N35", 300, 112.5, 600, 150},
          {"G17", 900, 0, 450, 600}},
         true,
         "A1-N35:X1-G17"},
        {"overlapping signs in one row stay single signs",
         {a1, {"G17", 200, 0, 450, 600}},
         true,
         "A1-G17"},
        {"signs without a code are left out", {{"", 0, 0, 300, 600}}, true, ""},
        {"no signs", {}, true, ""},
    };
    for (const Case& c : cases) EXPECT_EQ(mdcOfSigns(c.signs, c.left), c.mdc) << c.name;
}

TEST(ScholarlyLetters, PlainLettersBecomeScholarlyAndBack) {
    const std::pair<const char*, const char*> both[] = {
        {"AaiHxXqSTD", "ꜣꜥỉḥḫẖḳšṯḏ"}, {"mrj", "mri̯"}, {"Dd mdw 3!", "ḏd mdw 3!"}};
    for (const auto& [plain, scholarly] : both) {
        EXPECT_EQ(scholarlyFromPlain(plain), scholarly) << plain;
        EXPECT_EQ(plainFromScholarly(scholarly), plain) << plain;
    }
    // The typewriter's o is the plain q: it goes out as q and comes back as q.
    EXPECT_EQ(scholarlyFromPlain("o"), "q");
    // Read, never written: capitals, base letters with combining marks, older stand-ins.
    const std::pair<const char*, const char*> read[] = {
        {"Ḥr Ꜣst Ḏḥwty Šw Ṯꜣty Ḫnmw H̱rt Ḳd Ỉmn", "Hr Ast DHwty Sw TAty xnmw Xrt qd imn"},
        {"h\xcc\xa3tp s\xcc\x8cms d\xcc\xb1"
         "d",
         "Htp Sms Dd"},
        {"ȝḫ ʿnḫ ꞽmn", "Ax anx imn"},
    };
    for (const auto& [text, plain] : read) EXPECT_EQ(plainFromScholarly(text), plain) << text;
}

struct ExchangeTest : ComposerTest {
    ExchangeTest() {
        parseSignList(app.lists, "G1,M17,N35,A1,A2,Aa1,D21,G17,G43,M17,N35,N35a,X1,Z1\r\n");
        t.pictures.sizes["N35a"] = {600, 150};
        app.store.newWordPending = false;
        app.store.lastIndex = 0;
    }
    std::string exported() { return exportMdcLines(app, allWords(app)).text; }
};

TEST_F(ExchangeTest, ExportedLinesImportBackToTheSameWordsAndNotations) {
    const std::string lines[] = {
        "A1-G17\tHtp\tpeace\toffering",     "N35:X1\tnt\tof\t",
        "X1*Z1:N35\tt\tbread\tthree signs", "A1-N35:X1-G17\tsnD\tfear\t",
        "N35a\tn\twater\tvariant",          "Aa1*D21:N35\txr\tunder\t",
    };
    std::string text;
    for (const auto& l : lines) text += l + "\r\n"; // as a WindowHost editor saves them
    const ImportReport r = importMdcLines(app, text);
    EXPECT_EQ(r.added, 6);
    EXPECT_TRUE(r.refused.empty()) << importReportText(r);
    EXPECT_EQ(exported(), text);
    EXPECT_EQ(app.store.row(0), (WordRecord{"L", "B", "A1(0,0) - G17(300,0) ", "A1-G17", "Htp",
                                            "peace", "offering"}));
    EXPECT_EQ(app.store.field(2, FieldGardiner), "X1-Z1-N35");
    EXPECT_TRUE(app.store.isChanged);

    // Facing right, the same lines come back the same too.
    app.store = DictionaryStore{};
    app.settings.direction = Direction::Right;
    EXPECT_EQ(importMdcLines(app, text).added, 6);
    EXPECT_EQ(app.store.field(0, FieldDirection), "R");
    EXPECT_EQ(exported(), text);
}

TEST_F(ExchangeTest, ImportRefusesLinesItCannotStoreAndSaysWhy) {
    const std::pair<const char*, const char*> cases[] = {
        // line, why it is refused
        {"A1\tsA", "3 or 4 fields separated by tabs were expected, not 2"},
        {"A1\ta\tb\tc\td", "3 or 4 fields separated by tabs were expected, not 5"},
        {"A1\tsA\t\"son\"", "a double quote cannot be stored in a dictionary file"},
        {"nfx\tnfx\tx", "nfx was not found"},
        {"Q99\tq\tx", "Q99 is not in the sign list"},
        {"A1(0,0)\ts\tx", "the notation has a character other than letters, digits, blanks, "
                          "\"-\", \":\" and \"*\""},
        {"A1--G17\ts\tx", "two separators stand together"},
        {"\ts\tx", "there is no sign"},
        {"A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1-A1\ts\tx",
         "a word holds at most 20 signs"},
    };
    for (auto [line, reason] : cases) {
        const ImportReport r = importMdcLines(app, std::string("\n") + line + "\r\n");
        EXPECT_EQ(r.added, 0) << line;
        EXPECT_EQ(r.refused, std::vector<std::string>{std::string("line 2: ") + reason});
    }
    // The same word twice: the second is refused, the dictionary keeps one.
    const ImportReport twice = importMdcLines(app, "A1\ts\tman\nA1\ts\tman\n");
    EXPECT_EQ(twice.added, 1);
    EXPECT_EQ(twice.refused,
              std::vector<std::string>{"line 2: the dictionary already has this word"});
    // Phonetic values name signs; scholarly letters are stored plain.
    const ImportReport r = importMdcLines(app, "n:t\t\xe1\xb8\xa5tp\tx\n");
    EXPECT_EQ(r.added, 1);
    EXPECT_EQ(app.store.field(1, FieldGardiner), "N35-X1");
    EXPECT_EQ(app.store.field(1, FieldTranslit), "Htp");
    // Twenty signs are still a word. Import keeps the word on show and the composer's results.
    std::string twenty = "N35";
    for (int i = 1; i < 20; ++i) twenty += "-N35";
    app.store.currentIndex = 0;
    app.layoutText = "kept";
    app.store.editPending = true;
    EXPECT_EQ(importMdcLines(app, twenty + "\ts\tx\n").added, 1);
    EXPECT_EQ(app.store.currentIndex, 0);
    EXPECT_EQ(app.layoutText, "kept");
    EXPECT_TRUE(app.store.editPending);
}

TEST_F(ExchangeTest, TsvHasUnicodeGlyphsScholarlyLettersAndQuotesWhatNeedsIt) {
    app.store.setRow(0, {"L", "B", "N35(0,0) - X1(75,150) ", "N35:X1", "Htp", "a\tb", "say \"x\""});
    const ExportText e = exportTsv(app, allWords(app));
    // N35 over X1: the two signs joined by the vertical control.
    const std::string stacked = "\xf0\x93\x88\x96\xf0\x93\x90\xb0\xf0\x93\x8f\x8f";
    EXPECT_EQ(e.text, "Hieroglyphs\tTransliteration\tGardiner\tMeaning\tComment\r\n" + stacked +
                          "\t\xe1\xb8\xa5tp\tN35:X1\t\"a\tb\"\t\"say \"\"x\"\"\"\r\n");
    EXPECT_TRUE(e.problems.empty());
}

} // namespace
} // namespace nebkaro::testing
