#include "browser/sign_browser.h"

#include "core/text.h"

#include <algorithm>

namespace nebkaro {

const std::array<std::string, SignBrowser::CategoryCount>& SignBrowser::categories() {
    // The blanks at the end of the L and Z entries are part of the names as users know them.
    static const std::array<std::string, CategoryCount> names = {
        "@ - Monoliterals",
        "A - Man and his occupations",
        "B - Woman and her occupations",
        "C - Anthropomorphic Deities",
        "D - Parts of the Human Body",
        "E - Mammals",
        "F - Parts of Mammals",
        "G - Birds",
        "H - Parts of Birds",
        "I - Amphibious Animals, Reptiles, etc.",
        "J - Unclassified (dubious meaning)",
        "K - Fishes and Parts of Fishes",
        "L - Invertebrata and Lesser Animals ",
        "M - Trees and Plants",
        "N - Sky, Earth, Water",
        "O - Buildings and Parts of Buildings",
        "P - Ships and Parts of Ships",
        "Q - Domestic and Funerary Furniture",
        "R - Temple Furniture and Sacred Emblems",
        "S - Crowns, Dress, Staves, etc.",
        "T - Warfare, Hunting, Butchery",
        "U - Agriculture, Crafts and Professions",
        "V - Rope, Fibre, Baskets, Bags, etc.",
        "W - Vessels of Stone and Earthenware",
        "X - Loaves and Cakes",
        "Y - Writing, Games, Music",
        "Z - Strokes, Geometrical Figures, etc. ",
    };
    return names;
}

SignBrowser::SignBrowser(App& app) : app_(app) {}

namespace {
char32_t letterOf(const std::string& code) {
    return text::upperChar(text::firstChar(code));
}
} // namespace

bool SignBrowser::onMonoliterals() const {
    return pageStart <= app_.lists.preambleCount;
}

std::int32_t SignBrowser::categoryStart(int row) const {
    return app_.lists.categoryTable[static_cast<std::size_t>(row)][2];
}

int SignBrowser::rowOfEntry(std::int32_t entry) const {
    if (entry <= app_.lists.preambleCount) return 1;
    const char32_t c = letterOf(app_.lists.signCodes[static_cast<std::size_t>(entry)]);
    if (c < 63 || c > 90) return 1;
    return static_cast<int>(c) - 63;
}

void SignBrowser::open() {
    pageStart = 1;
    paint();
}

std::string SignBrowser::tooltipFor(const std::string& code) const {
    std::string values;
    const SignLists& lists = app_.lists;
    for (int k = 0; k <= lists.phoneticLast; ++k) {
        const auto& row = lists.phonetic[static_cast<std::size_t>(k)];
        if (row[0] != code) continue;
        values += (values.empty() ? "" : ", ") + row[1];
    }
    return values.empty() ? code : code + ": " + values;
}

void SignBrowser::paint() {
    const SignLists& lists = app_.lists;
    const bool monoliterals = onMonoliterals();
    const bool inList = pageStart >= 1 && pageStart <= lists.signCount;
    if (monoliterals)
        pageLetter = U'@';
    else if (inList)
        pageLetter = letterOf(lists.signCodes[static_cast<std::size_t>(pageStart)]);
    else
        pageLetter = 0;

    const Library library = app_.settings.library;
    const Direction direction = app_.settings.direction;
    libraryLabel = libraryName(library) + " Library";

    const int category = pageLetter >= 64 ? static_cast<int>(pageLetter) - 64 : -1;
    if (category >= 0 && category < CategoryCount) {
        categoryLabel = categories()[static_cast<std::size_t>(category)];
        categoryIndex = category;
    } else {
        categoryLabel.clear();
        categoryIndex = -1;
    }

    int shown = 0;
    for (int i = 0; i < PageSize; ++i) {
        BrowserPicture& p = glyphPictures[static_cast<std::size_t>(i)];
        const std::int32_t entry = pageStart + i;
        bool belongs = pageLetter != 0 && entry >= 1 && entry <= lists.signCount;
        if (belongs) {
            const std::string& code = lists.signCodes[static_cast<std::size_t>(entry)];
            // A page never runs into the next category.
            belongs = monoliterals ? entry <= lists.preambleCount : letterOf(code) == pageLetter;
        }
        if (!belongs) {
            // The rest of the page is emptied.
            for (int k = i; k < PageSize; ++k)
                glyphPictures[static_cast<std::size_t>(k)] = BrowserPicture{};
            break;
        }
        const std::string& code = lists.signCodes[static_cast<std::size_t>(entry)];
        p.visible = true;
        p.picture = app_.pictures.picture(library, direction, code);
        p.glyphLabel = code;
        p.translitVisible = false;
        p.translitLabel.clear();
        if (showTransChecked) {
            const int row = lists.findPhonetic(0, code);
            if (row >= 0) {
                p.translitVisible = true;
                p.translitLabel = lists.phonetic[static_cast<std::size_t>(row)][1];
            }
        }
        const int column = i % 5;
        const int line = i / 5;
        const double cellLeft = BrowserGeometry::GridLeft + column * BrowserGeometry::CellWidth;
        const double cellTop = BrowserGeometry::GridTop + line * BrowserGeometry::CellHeight;
        p.left = cellLeft + (BrowserGeometry::CellWidth - p.picture.width) / 2.0;
        p.top = cellTop + std::max(0, BrowserGeometry::PictureBand - p.picture.height);
        p.labelCentre = p.left + p.picture.width / 2.0;
        p.codeTop = p.top + p.picture.height + 20;
        p.translitTop = p.codeTop + BrowserGeometry::LabelHeight + 20;
        p.tooltip = tooltipFor(code);
        ++shown;
    }
    pageCount = shown;
}

void SignBrowser::goTo(std::int32_t start) {
    if (start < 1 || start > app_.lists.signCount) return;
    pageStart = start;
    paint();
}

void SignBrowser::showFirstPage() {
    pageStart = 1;
    paint();
}

void SignBrowser::showNextPage() {
    // After the last page of the list there is nowhere further to go.
    goTo(pageStart + pageCount);
}

void SignBrowser::showPreviousPage() {
    if (onMonoliterals()) {
        pageStart = 1;
        paint();
        return;
    }
    const int row = rowOfEntry(pageStart - 1);
    const int step = std::min(app_.lists.categoryTable[static_cast<std::size_t>(row)][1], PageSize);
    pageStart = std::max(pageStart - step, 1);
    paint();
}

void SignBrowser::showLastPage() {
    goTo(categoryStart(27));
}

void SignBrowser::showNextCategory() {
    if (onMonoliterals()) {
        goTo(categoryStart(2));
        return;
    }
    // A page without a category letter (an empty list) has no next category to go to.
    if (pageLetter < 63 || pageLetter > 90) return;
    const int row = std::min(static_cast<int>(pageLetter) - 62, 27);
    goTo(categoryStart(row));
}

void SignBrowser::showPreviousCategory() {
    if (onMonoliterals()) {
        goTo(categoryStart(1));
        return;
    }
    int row = std::max(static_cast<int>(pageLetter) - 64, 1);
    // A category without signs starts where the next one does; stepping back onto it would
    // leave the page where it is, so the step goes on to the nearest category with signs.
    while (row > 1 && app_.lists.categoryTable[static_cast<std::size_t>(row)][1] == 0) --row;
    goTo(categoryStart(row));
}

void SignBrowser::showCategory(int listIndex) {
    if (listIndex < 0 || listIndex >= CategoryCount) return;
    categoryLabel = categories()[static_cast<std::size_t>(listIndex)];
    const std::int32_t start = categoryStart(listIndex + 1);
    if (start < 1 || start > app_.lists.signCount) {
        // No sign in this category or any after it: the page on show stays, and says so.
        paint();
        return;
    }
    goTo(start);
}

void SignBrowser::notFound() {
    app_.dialogs.message("Hieroglyph not found", "Glyph not found", Buttons::OK, Icon::Exclamation);
}

void SignBrowser::goToCode() {
    // The typed text is upper-cased as a whole, so codes with small letters (Aa1, A14a)
    // cannot be reached this way.
    const int entry = app_.lists.findSign(text::upper(glyphText));
    if (entry == 0) {
        notFound();
        return;
    }
    pageStart = entry;
    paint();
}

void SignBrowser::goToTransliteration() {
    const int row = app_.lists.findPhonetic(1, transText);
    if (row < 0) {
        notFound();
        return;
    }
    glyphText = app_.lists.phonetic[static_cast<std::size_t>(row)][0];
    goToCode();
}

void SignBrowser::openTypewriter() {
    app_.typewriterTarget = TypewriterTarget::BrowserTrans;
    app_.windows->showTypewriter();
}

void SignBrowser::pictureClicked(int) {
    app_.typewriterTarget = TypewriterTarget::BrowserTrans;
}

bool SignBrowser::choose(int i) {
    if (i < 0 || i >= PageSize) return false;
    const BrowserPicture& p = glyphPictures[static_cast<std::size_t>(i)];
    if (!p.visible) return false;
    app_.chosenSign = ChosenSign{p.glyphLabel, pageStart + i, i, p.picture};
    return true;
}

} // namespace nebkaro
