#include "print/print_layout.h"

#include "core/text.h"

#include <algorithm>
#include <cmath>

namespace nebkaro::print {

namespace {

int millimetresToTwips(double mm) {
    return static_cast<int>(std::lround(mm * TwipsPerInch / 25.4));
}
} // namespace

const std::vector<PaperSize>& paperSizes() {
    static const std::vector<PaperSize> sizes = {
        {"A4", millimetresToTwips(210), millimetresToTwips(297)},
        {"Letter", 12240, 15840}, // 8.5 x 11 in
        {"Legal", 12240, 20160},  // 8.5 x 14 in
        {"A5", millimetresToTwips(148), millimetresToTwips(210)},
        {"A3", millimetresToTwips(297), millimetresToTwips(420)},
    };
    return sizes;
}

namespace {

// The size of the named paper; an unknown name is A4.
PaperSize paperSize(const std::string& name) {
    for (const PaperSize& p : paperSizes())
        if (p.name == name) return p;
    return paperSizes().front();
}
} // namespace

int printResolution(int quality) {
    switch (quality) {
    case -2:
        return 200;
    case -3:
        return 300;
    case -4:
        return 600;
    default:
        break;
    }
    if (quality > 0) return std::clamp(quality, 72, 2400);
    return 150;
}

PageFrame framePage(const PrintOptions& options, int headerBand, int footerBand) {
    const PaperSize paper = paperSize(options.paper);
    PageFrame f;
    f.pageWidth = options.landscape ? paper.height : paper.width;
    f.pageHeight = options.landscape ? paper.width : paper.height;
    f.left = millimetresToTwips(options.margins.left);
    f.right = f.pageWidth - millimetresToTwips(options.margins.right);
    f.top = millimetresToTwips(options.margins.top);
    f.bottom = f.pageHeight - millimetresToTwips(options.margins.bottom);
    f.bodyTop = f.top + headerBand;
    f.columns = options.columns == 2 ? 2 : 1;
    f.gutter = f.columns > 1 ? ColumnGutter : 0;
    f.columnWidth = (f.right - f.left - f.gutter * (f.columns - 1)) / f.columns;
    f.columnHeight = f.bottom - footerBand - f.bodyTop;
    return f;
}

std::vector<Page> paginate(const std::vector<int>& heights, int columns, int columnHeight,
                           int gap) {
    std::vector<Page> pages;
    columns = std::max(columns, 1);
    int column = 0;
    int y = 0;         // where the next word would start in the current column
    bool empty = true; // the current column has no word yet
    for (int i = 0; i < static_cast<int>(heights.size()); ++i) {
        const int h = std::max(heights[static_cast<std::size_t>(i)], 0);
        if (pages.empty()) pages.emplace_back();
        if (!empty && y + gap + h > columnHeight) {
            ++column;
            y = 0;
            empty = true;
            if (column == columns) {
                pages.emplace_back();
                column = 0;
            }
        }
        const int top = empty ? 0 : y + gap;
        pages.back().push_back({i, column, top});
        y = top + h;
        empty = false;
    }
    return pages;
}

std::vector<int> wordsInRange(const PrintRange& range, const DictionaryStore& store) {
    std::vector<int> words;
    if (store.isEmpty()) return words;
    const int last = store.lastIndex;
    int from = 0;
    int to = last;
    switch (range.kind) {
    case RangeKind::CurrentWord:
        if (store.currentIndex < 0 || store.currentIndex > last) return words;
        from = to = store.currentIndex;
        break;
    case RangeKind::Words:
        from = std::clamp(std::min(range.from, range.to), 0, last);
        to = std::clamp(std::max(range.from, range.to), 0, last);
        break;
    case RangeKind::Pages:
    case RangeKind::All:
        break;
    }
    words.reserve(static_cast<std::size_t>(to - from + 1));
    for (int w = from; w <= to; ++w) words.push_back(w);
    return words;
}

std::pair<int, int> pagesInRange(const PrintRange& range, int pageCount) {
    if (pageCount <= 0) return {0, -1};
    if (range.kind != RangeKind::Pages) return {0, pageCount - 1};
    const int first = std::clamp(std::min(range.from, range.to), 1, pageCount);
    const int last = std::clamp(std::max(range.from, range.to), 1, pageCount);
    return {first - 1, last - 1};
}

std::string documentTitle(const DictionaryHeader& header, const std::string& dictionaryName) {
    const std::string name = text::trim(header[0]);
    if (!name.empty()) return name;
    const std::size_t dot = dictionaryName.rfind('.');
    if (dot == std::string::npos || dot == 0) return dictionaryName;
    return dictionaryName.substr(0, dot);
}

std::string pageFooter(int pageNumber, int pageCount) {
    std::string s = "Page " + std::to_string(pageNumber);
    if (pageCount > 0) s += " of " + std::to_string(pageCount);
    return s;
}

std::string pageWordsText(int firstNumber, int lastNumber) {
    if (firstNumber < 0) return {};
    if (firstNumber == lastNumber) return "Word " + std::to_string(firstNumber);
    return "Words " + std::to_string(firstNumber) + "\u2013" + std::to_string(lastNumber);
}

} // namespace nebkaro::print
