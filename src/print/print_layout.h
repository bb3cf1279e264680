#pragma once
// Laying dictionary words out on printed pages: the print options, which words and pages a
// range selects, how words of measured heights fill the columns of a page, and the texts of
// the page header and footer. Sizes are twips (1/1440 inch), as everywhere in the program;
// margins are millimetres because that is how people set them.
#include "core/dictionary_store.h"

#include <string>
#include <utility>
#include <vector>

namespace nebkaro::print {

constexpr int TwipsPerInch = 1440;

// The printer choice that writes a PDF file instead of paper; always offered.
inline constexpr const char* PdfPrinterName = "PDF file";

struct PrintFields {
    bool signs = true;
    bool gardiner = true;
    bool transliteration = true;
    bool meaning = true;
    bool comment = true;
    bool number = true;
    bool any() const {
        return signs || gardiner || transliteration || meaning || comment || number;
    }
    bool operator==(const PrintFields&) const = default;
};

enum class RangeKind { CurrentWord, Words, Pages, All };

struct PrintRange {
    RangeKind kind = RangeKind::All;
    // Words: indices as the word view numbers them (the first word is 0). Pages: from 1.
    int from = 0;
    int to = 0;
    bool operator==(const PrintRange&) const = default;
};

struct Margins {
    double left = 20;
    double top = 20;
    double right = 20;
    double bottom = 20;
    bool operator==(const Margins&) const = default;
};

struct PaperSize {
    std::string name;
    int width = 0; // portrait, twips
    int height = 0;
};
// The paper sizes offered: A4, Letter, Legal, A5, A3.
const std::vector<PaperSize>& paperSizes();

struct PrintOptions {
    std::string printer = PdfPrinterName;
    PrintRange range;
    PrintFields fields;
    int columns = 1; // 1 or 2
    Margins margins;
    double lineSpacing = 1.0; // 1 = single, 2 = double
    std::string paper = "A4";
    bool landscape = false;
    int copies = 1;
    bool operator==(const PrintOptions&) const = default;
};

constexpr double MinMargin = 5;   // mm: most printers cannot print nearer the edge
constexpr double MaxMargin = 100; // mm
constexpr double MinLineSpacing = 1.0;
constexpr double MaxLineSpacing = 3.0;

// Print quality as Preferences keeps it (draft 0, low -2, medium -3, high -4) to printer dots
// per inch. Draft has always been stored as 0 rather than -1; both read as draft. A positive
// value is taken as dots per inch, as printers have always understood it.
int printResolution(int quality);

// The regions of a page, in twips from the paper's top-left corner.
struct PageFrame {
    int pageWidth = 0;
    int pageHeight = 0;
    int left = 0;   // left margin
    int right = 0;  // x of the right margin's inner edge
    int top = 0;    // top margin: the header starts here
    int bottom = 0; // y of the bottom margin's inner edge: the footer ends here
    int bodyTop = 0;
    int columns = 1;
    int gutter = 0;
    int columnWidth = 0;
    int columnHeight = 0;

    int columnLeft(int column) const { return left + column * (columnWidth + gutter); }
    // Room for at least an inch of words each way.
    bool usable() const { return columnWidth >= TwipsPerInch && columnHeight >= TwipsPerInch; }
};

// The space between two columns.
constexpr int ColumnGutter = 360;

// Paper, orientation, margins and columns of the options, with bands of the given heights
// (text and the space that parts it from the words) kept for the header and the footer.
PageFrame framePage(const PrintOptions& options, int headerBand, int footerBand);

// A word placed on a page: which one (its position in the list laid out), the column, and
// its top relative to the column's top.
struct Placement {
    int item = 0;
    int column = 0;
    int top = 0;
    bool operator==(const Placement&) const = default;
};
using Page = std::vector<Placement>;

// Words of the given heights, in order, down the columns of as many pages as they need: a
// column takes words while they fit, with gap between two words; the next word starts the
// next column, and after the last column a new page. A word is never split; one taller than
// a column stands alone in its column. No words give no pages.
std::vector<Page> paginate(const std::vector<int>& heights, int columns, int columnHeight, int gap);

// The words a range lays out, as word indices in order: the current word, words from-to
// (clamped to the dictionary, either order), or every word (whole dictionary and pages, whose
// pages are picked after laying out). An empty dictionary has none.
std::vector<int> wordsInRange(const PrintRange& range, const DictionaryStore& store);

// The pages a range prints out of pageCount laid out, 0-based and inclusive; first > last
// when there is none. Pages from-to are clamped and may be given in either order; every other
// range prints every page.
std::pair<int, int> pagesInRange(const PrintRange& range, int pageCount);

// The header's title: the dictionary's name as its information dialog holds it (header value
// 0), or its file name without the extension.
std::string documentTitle(const DictionaryHeader& header, const std::string& dictionaryName);
// "Page 3 of 12"; "Page 3" when pageCount is 0 (a sheet of the collected page).
std::string pageFooter(int pageNumber, int pageCount);
// The header's guide to the words on a page: "Word 7", "Words 3–17"; empty when firstNumber
// is negative (no words).
std::string pageWordsText(int firstNumber, int lastNumber);

} // namespace nebkaro::print
