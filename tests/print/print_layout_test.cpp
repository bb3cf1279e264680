#include "print/print_layout.h"

#include <gtest/gtest.h>

#include <random>

using namespace nebkaro;
using namespace nebkaro::print;

namespace {

std::vector<Page> pages(std::vector<int> heights, int columns, int columnHeight, int gap) {
    return paginate(heights, columns, columnHeight, gap);
}

// Every rule a laid-out list of words must keep, whatever the heights.
void expectWellLaidOut(const std::vector<int>& h, const std::vector<Page>& laid, int columns,
                       int columnHeight, int gap) {
    int next = 0;
    for (std::size_t p = 0; p < laid.size(); ++p) {
        ASSERT_FALSE(laid[p].empty()) << "page " << p << " is empty";
        int column = 0;
        int bottom = 0;
        bool first = true;
        for (const Placement& pl : laid[p]) {
            // Words keep their order: down a column, then the next column, then the next page.
            ASSERT_EQ(pl.item, next++);
            ASSERT_GE(pl.column, column);
            ASSERT_LT(pl.column, columns);
            const int height = h[static_cast<std::size_t>(pl.item)];
            if (pl.column != column || first) {
                if (!first) {
                    // It went on to the next column only because it did not fit.
                    EXPECT_GT(bottom + gap + height, columnHeight) << "word " << pl.item;
                }
                EXPECT_EQ(pl.top, 0);
                column = pl.column;
                first = false;
            } else {
                EXPECT_EQ(pl.top, bottom + gap) << "word " << pl.item;
                // Never split: a word that does not start its column ends inside it.
                EXPECT_LE(pl.top + height, columnHeight) << "word " << pl.item;
            }
            bottom = pl.top + height;
        }
        if (p + 1 < laid.size()) {
            // The page was given up only when its last column was full.
            EXPECT_EQ(laid[p].back().column, columns - 1);
            EXPECT_GT(bottom + gap + h[static_cast<std::size_t>(next)], columnHeight);
        }
    }
    EXPECT_EQ(next, static_cast<int>(h.size()));
}

} // namespace

TEST(paginate, WordsFillAColumnAndNeverSplit) {
    struct Case {
        const char* name;
        std::vector<int> heights;
        int columns, columnHeight;
        std::vector<std::vector<Placement>> expected;
    };
    const Case cases[] = {
        {"no words, no pages", {}, 2, 1000, {}},
        {"all fit", {300, 300}, 1, 1000, {{{0, 0, 0}, {1, 0, 400}}}},
        {"exact fit stays", {400, 500}, 1, 1000, {{{0, 0, 0}, {1, 0, 500}}}},
        {"one twip over goes on", {400, 501}, 1, 1000, {{{0, 0, 0}}, {{1, 0, 0}}}},
        {"the gap counts", {600, 350}, 1, 1000, {{{0, 0, 0}}, {{1, 0, 0}}}},
        {"a word too tall stands alone",
         {300, 5000, 300},
         1,
         1000,
         {{{0, 0, 0}}, {{1, 0, 0}}, {{2, 0, 0}}}},
        {"a word too tall first keeps its column",
         {5000, 300},
         1,
         1000,
         {{{0, 0, 0}}, {{1, 0, 0}}}},
        {"empty words take only the gap",
         {0, 0, 0},
         1,
         150,
         {{{0, 0, 0}, {1, 0, 100}}, {{2, 0, 0}}}},
        {"the left column fills first, then the right, then a new page",
         {500, 500, 500, 500, 500},
         2,
         1100,
         {{{0, 0, 0}, {1, 0, 600}, {2, 1, 0}, {3, 1, 600}}, {{4, 0, 0}}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(pages(c.heights, c.columns, c.columnHeight, 100), c.expected);
    }
}

TEST(paginate, KeepsEveryRuleForAnyHeights) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 200; ++round) {
        const int columns = 1 + static_cast<int>(rng() % 2);
        const int columnHeight = 2000 + static_cast<int>(rng() % 8000);
        const int gap = static_cast<int>(rng() % 300);
        std::vector<int> h(static_cast<std::size_t>(rng() % 60));
        for (int& x : h) x = static_cast<int>(rng() % (rng() % 10 == 0 ? 15000 : 3000));
        SCOPED_TRACE(round);
        expectWellLaidOut(h, paginate(h, columns, columnHeight, gap), columns, columnHeight, gap);
    }
}

namespace {
DictionaryStore storeOf(int words, int current) {
    DictionaryStore s;
    for (int i = 0; i < words; ++i)
        s.setRow(i, {"L", "B", "", "A" + std::to_string(i), "", "", ""});
    s.lastIndex = std::max(words - 1, 0);
    s.currentIndex = current;
    return s;
}
std::vector<int> span(int from, int to) {
    std::vector<int> v;
    for (int i = from; i <= to; ++i) v.push_back(i);
    return v;
}
} // namespace

TEST(wordsInRange, EachRangeChoosesItsWords) {
    const DictionaryStore store = storeOf(10, 4);
    const std::tuple<const char*, PrintRange, std::vector<int>> cases[] = {
        {"current word", {RangeKind::CurrentWord, 0, 0}, {4}},
        {"words from-to", {RangeKind::Words, 2, 5}, span(2, 5)},
        {"one word", {RangeKind::Words, 7, 7}, {7}},
        {"from-to backwards", {RangeKind::Words, 5, 2}, span(2, 5)},
        {"beyond the last word", {RangeKind::Words, 8, 50}, span(8, 9)},
        {"below the first word", {RangeKind::Words, -3, 1}, span(0, 1)},
        {"whole dictionary", {RangeKind::All, 0, 0}, span(0, 9)},
        {"pages lay out every word", {RangeKind::Pages, 2, 3}, span(0, 9)},
    };
    for (const auto& [name, range, words] : cases)
        EXPECT_EQ(wordsInRange(range, store), words) << name;
    // Nothing to print from an empty dictionary, nor a current word outside the dictionary.
    for (RangeKind k : {RangeKind::CurrentWord, RangeKind::Words, RangeKind::Pages, RangeKind::All})
        EXPECT_TRUE(wordsInRange({k, 0, 0}, DictionaryStore{}).empty());
    for (int current : {-1, 3})
        EXPECT_TRUE(wordsInRange({RangeKind::CurrentWord, 0, 0}, storeOf(3, current)).empty());
}

TEST(pagesInRange, PagesFromToAreClampedOtherRangesPrintAll) {
    const std::tuple<PrintRange, int, std::pair<int, int>> cases[] = {
        // range, pages laid out, first and last page printed (from 0)
        {{RangeKind::Pages, 2, 3}, 5, {1, 2}},  {{RangeKind::Pages, 3, 2}, 5, {1, 2}},
        {{RangeKind::Pages, 4, 99}, 5, {3, 4}}, {{RangeKind::Pages, 0, 1}, 5, {0, 0}},
        {{RangeKind::Pages, 9, 12}, 5, {4, 4}}, {{RangeKind::All, 2, 3}, 5, {0, 4}},
        {{RangeKind::Words, 2, 3}, 5, {0, 4}},  {{RangeKind::CurrentWord, 0, 0}, 1, {0, 0}},
        {{RangeKind::Pages, 1, 1}, 0, {0, -1}},
    };
    for (const auto& [range, count, pages] : cases)
        EXPECT_EQ(pagesInRange(range, count), pages)
            << range.from << "-" << range.to << " of " << count;
}

TEST(framePage, MarginsBandsAndColumnsShareThePaper) {
    PrintOptions o;
    o.paper = "Letter";                   // 12240 x 15840 twips
    o.margins = {25.4, 12.7, 25.4, 12.7}; // an inch each side, half an inch top and bottom
    // Bands of 300 and 200 twips: the words start at 720 + 300 and end 720 + 200 above the foot.
    const std::tuple<int, bool, std::tuple<int, int, int, int, int>> cases[] = {
        // columns, landscape: page width and height, column width and height, second column
        {1, false, {12240, 15840, 9360, 13900, 10800}},
        {2, false, {12240, 15840, 4500, 13900, 6300}}, // 360 twips between the columns
        {2, true, {15840, 12240, 6300, 10300, 8100}},
    };
    for (const auto& [columns, landscape, want] : cases) {
        o.columns = columns;
        o.landscape = landscape;
        const PageFrame f = framePage(o, 300, 200);
        EXPECT_EQ(
            std::tuple(f.pageWidth, f.pageHeight, f.columnWidth, f.columnHeight, f.columnLeft(1)),
            want)
            << columns << landscape;
        EXPECT_EQ(std::tuple(f.left, f.right, f.bodyTop),
                  std::tuple(1440, f.pageWidth - 1440, 1020));
    }
}

TEST(framePage, MarginsThatLeaveNoRoomAreNotUsable) {
    PrintOptions o;
    EXPECT_TRUE(framePage(o, 300, 300).usable());
    o.margins.left = o.margins.right = 100;
    EXPECT_FALSE(framePage(o, 300, 300).usable()); // A4 is 210 mm wide
    o = PrintOptions{};
    o.margins.top = o.margins.bottom = 140;
    EXPECT_FALSE(framePage(o, 300, 300).usable());
}

TEST(PrintResolution, QualityValuesBecomeDotsPerInch) {
    const std::pair<int, int> cases[] = {{0, 150},  {-1, 150},  {-2, 200}, {-3, 300},   {-4, 600},
                                         {-9, 150}, {720, 720}, {5, 72},   {9600, 2400}};
    for (auto [quality, dpi] : cases) EXPECT_EQ(printResolution(quality), dpi) << quality;
}

TEST(PageTexts, TitleFooterAndWordGuide) {
    DictionaryHeader header{};
    const std::pair<const char*, const char*> titles[] = {{"Words.nkd", "Words"},
                                                          {"my.words.csv", "my.words"},
                                                          {"NoExtension", "NoExtension"},
                                                          {".nkd", ".nkd"}};
    for (auto [file, title] : titles) EXPECT_EQ(documentTitle(header, file), title);
    header[0] = "  Middle Egyptian Verbs "; // the dictionary's own title wins
    EXPECT_EQ(documentTitle(header, "Words.nkd"), "Middle Egyptian Verbs");

    // The footer and the guide as printed are checked on paper; one word takes the singular.
    EXPECT_EQ(pageWordsText(7, 7), "Word 7");
    EXPECT_EQ(pageWordsText(-1, -1), "");
}
