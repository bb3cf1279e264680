#include "browser/sign_browser.h"
#include "core/sign_lists.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace nebkaro::testing {
namespace {

// Three monoliterals; A with a two-letter code; 30 signs of G; no J; Y and Z last.
std::string browserList() {
    std::string s = "G1,M17,N35\r\nA1,A2,Aa1\r\nB1\r\n";
    for (int k = 1; k <= 30; ++k) s += "G" + std::to_string(k) + (k % 10 == 0 ? "\r\n" : ",");
    s += "I9\r\nK1\r\nM17\r\nN35\r\nY1\r\nZ1,Z2\r\n";
    return s;
}

struct SignBrowserTest : ::testing::Test {
    TestApp t;
    App& app = t.app;
    SignBrowser browser{t.app};

    SignBrowserTest() {
        parseSignList(app.lists, browserList());
        parsePhonetic(app.lists, "G17,m\r\nN35,n\r\nM17,i\r\nM17,y\r\nAa1,x\r\nG1,A\r\n");
        t.pictures.sizes = {{"G17", {450, 600}}, {"N35", {600, 150}}, {"A1", {300, 600}}};
        browser.open();
    }
    int start(char letter) const {
        return app.lists.categoryTable[static_cast<std::size_t>(letter - 63)][2];
    }
    std::string codes() const {
        std::string out;
        for (const auto& p : browser.glyphPictures)
            if (p.visible) out += (out.empty() ? "" : " ") + p.glyphLabel;
        return out;
    }
};

TEST_F(SignBrowserTest, NavigationStaysWithinCategoriesAndStopsAtBothEnds) {
    struct Case {
        const char* name;
        std::function<void()> before;
        std::function<void()> press;
        std::string shows;
    };
    std::string first25G = "G1";
    for (int k = 2; k <= 25; ++k) first25G += " G" + std::to_string(k);
    const Case cases[] = {
        {"Prevcat on @", [] {}, [&] { browser.showPreviousCategory(); }, "G1 M17 N35"},
        {"Prev on @", [] {}, [&] { browser.showPreviousPage(); }, "G1 M17 N35"},
        {"NextCat on Z", [&] { browser.showLastPage(); }, [&] { browser.showNextCategory(); },
         "Z1 Z2"},
        {"Next on the last page", [&] { browser.showLastPage(); }, [&] { browser.showNextPage(); },
         "Z1 Z2"},
        {"Last", [] {}, [&] { browser.showLastPage(); }, "Z1 Z2"},
        {"First", [&] { browser.showLastPage(); }, [&] { browser.showFirstPage(); }, "G1 M17 N35"},
        {"NextCat on @", [] {}, [&] { browser.showNextCategory(); }, "A1 A2 Aa1"},
        {"Prevcat on A", [&] { browser.showNextCategory(); },
         [&] { browser.showPreviousCategory(); }, "G1 M17 N35"},
        {"Next on @", [] {}, [&] { browser.showNextPage(); }, "A1 A2 Aa1"},
        // A long category runs over pages of 25 without crossing into the next.
        {"G", [] {}, [&] { browser.showCategory(7); }, first25G},
        {"Next in G", [&] { browser.showCategory(7); }, [&] { browser.showNextPage(); },
         "G26 G27 G28 G29 G30"},
        {"Next after G", [&] { browser.showCategory(7), browser.showNextPage(); },
         [&] { browser.showNextPage(); }, "I9"},
        // J has no signs: stepping and choosing it lands on a neighbour.
        {"Prevcat from K", [&] { browser.showCategory(11); },
         [&] { browser.showPreviousCategory(); }, "I9"},
        {"NextCat from I", [&] { browser.showCategory(9); }, [&] { browser.showNextCategory(); },
         "K1"},
        {"J itself", [] {}, [&] { browser.showCategory(10); }, "K1"},
    };
    for (const auto& c : cases) {
        browser.open();
        c.before();
        c.press();
        EXPECT_EQ(codes(), c.shows) << c.name;
    }
    browser.showCategory(10);
    EXPECT_EQ(browser.categoryLabel, "K - Fishes and Parts of Fishes");
}

TEST_F(SignBrowserTest, PreviousStepsBackByTheCategorysCountAtMostAPage) {
    struct Case {
        const char* name;
        int from;
        int to;
    };
    const Case cases[] = {
        {"second page of G", start('G') + 25, start('G')},
        {"I after G's 30", start('I'), start('I') - 25}, // G6 to G30
        {"B after A's 3", start('B'), start('A')},
        {"A after the monoliterals", start('A'), 1},
        {"first page of G after one B", start('G'), start('B')},
    };
    for (const auto& c : cases) {
        browser.pageStart = c.from;
        browser.paint();
        browser.showPreviousPage();
        EXPECT_EQ(browser.pageStart, c.to) << c.name;
    }
    browser.pageStart = start('I');
    browser.showPreviousPage();
    EXPECT_EQ(browser.glyphPictures[0].glyphLabel, "G6");
    EXPECT_EQ(browser.pageCount, 25);
}

TEST_F(SignBrowserTest, GoFindsCodesByTheirUpperCase) {
    struct Case {
        const char* typed;
        const char* first; // first code of the page, or "" when not found
    };
    const Case cases[] = {{"g17", "G17"}, {"G17", "G17"}, {"Aa1", ""}, {"aa1", ""},
                          {"Q1", ""},     {"z2", "Z2"},   {" G17", ""}};
    for (const auto& c : cases) {
        browser.open();
        t.dialogs.prompts.clear();
        browser.glyphText = c.typed;
        browser.goToCode();
        if (*c.first) {
            EXPECT_EQ(browser.glyphPictures[0].glyphLabel, c.first) << c.typed;
            EXPECT_TRUE(t.dialogs.prompts.empty()) << c.typed;
        } else {
            EXPECT_EQ(browser.pageStart, 1) << c.typed;
            EXPECT_EQ(t.dialogs.messages(), std::vector<std::string>{"Hieroglyph not found"});
        }
    }
    browser.glyphText = "g17";
    browser.goToCode();
    EXPECT_EQ(browser.categoryLabel, "G - Birds");
    // By transliteration: the phonetic code, upper-cased like a typed one.
    browser.transText = "m";
    browser.goToTransliteration();
    EXPECT_EQ(browser.glyphText, "G17");
    EXPECT_EQ(browser.glyphPictures[0].glyphLabel, "G17");
}

TEST_F(SignBrowserTest, TooltipsNameTheCodeAndEveryPhoneticValue) {
    EXPECT_EQ(browser.glyphPictures[0].tooltip, "G1: A");
    EXPECT_EQ(browser.glyphPictures[1].tooltip, "M17: i, y");
    browser.showNextCategory();
    EXPECT_EQ(browser.glyphPictures[0].tooltip, "A1");
}

TEST_F(SignBrowserTest, ChoosingLeavesTheSignForTheComposer) {
    browser.glyphText = "G16";
    browser.goToCode();
    ASSERT_TRUE(browser.choose(1));
    EXPECT_EQ(app.chosenSign.code, "G17");
    EXPECT_EQ(app.chosenSign.entry, start('G') + 16);
    EXPECT_EQ(app.lists.signCodes[static_cast<std::size_t>(app.chosenSign.entry)], "G17");
    EXPECT_EQ(app.chosenSign.pictureNumber, 1);
    EXPECT_EQ(app.chosenSign.picture.width, 450);
    browser.showLastPage();
    EXPECT_FALSE(browser.choose(5)) << "no sign in that place";
    EXPECT_EQ(app.chosenSign.code, "G17");
}

TEST_F(SignBrowserTest, AnEmptyListShowsAnEmptyPage) {
    parseSignList(app.lists, "");
    app.lists.preambleCount = 0;
    browser.open();
    EXPECT_EQ(browser.pageCount, 0);
    EXPECT_EQ(browser.categoryLabel, "");
    browser.showNextPage();
    browser.showLastPage();
    browser.showNextCategory();
    browser.showPreviousPage();
    EXPECT_EQ(browser.pageCount, 0);
}

} // namespace
} // namespace nebkaro::testing
