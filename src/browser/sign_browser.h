#pragma once
// The sign-list browser: pages of up to 25 signs of one category of the current sign list,
// navigation by page and category, finding a sign by its code or a transliteration, and
// choosing a sign for the composer. The Lookup window only shows what this holds.
// Positions are twips.
#include "core/app.h"

#include <array>
#include <cstdint>
#include <string>

namespace nebkaro {

// One of the 25 places of a page: the picture, the code under it and, on request, its
// transliteration.
struct BrowserPicture {
    bool visible = false;
    SignPicture picture;
    double left = 0;
    double top = 0;
    std::string glyphLabel;
    bool translitVisible = false;
    std::string translitLabel;
    // The labels are centred under the picture on this line; their tops.
    double labelCentre = 0;
    double codeTop = 0;
    double translitTop = 0;
    // The code and its phonetic values, e.g. "D21: r".
    std::string tooltip;
};

// The Lookup window's design geometry: the page is a grid of 5 x 5 cells below the controls.
struct BrowserGeometry {
    static constexpr int Width = 7800;
    static constexpr int Height = 9300;
    static constexpr int GridLeft = 400;
    static constexpr int GridTop = 2250;
    static constexpr int CellWidth = 1400;
    static constexpr int CellHeight = 1380;
    // Pictures stand on a common base line this far below the cell's top, so the codes under
    // them line up.
    static constexpr int PictureBand = 720;
    static constexpr int LabelHeight = 240;
};

class SignBrowser {
public:
    static constexpr int PageSize = 25;
    static constexpr int CategoryCount = 27;

    // The categories in list order, index = character code of the letter - 64.
    static const std::array<std::string, CategoryCount>& categories();

    explicit SignBrowser(App& app);

    // Load: the page of the first entry.
    void open();
    void paint();

    void showFirstPage();
    void showPreviousPage();
    void showNextPage();
    void showLastPage();
    void showNextCategory();
    void showPreviousCategory();
    void showCategory(int listIndex);
    void goToCode();
    void goToTransliteration();
    void openTypewriter();
    // A click on a picture makes the typewriter type into txtTrans.
    void pictureClicked(int i);
    // Double-click on picture i: the sign is left in App::chosenSign for the composer. True
    // when a sign was chosen (the window is then hidden).
    bool choose(int i);

    std::string glyphText;
    std::string transText;
    bool showTransChecked = false;
    std::string libraryLabel;
    std::string categoryLabel;
    int categoryIndex = -1;

    // Entry number of the first sign on the page, and how many the page shows.
    std::int32_t pageStart = 1;
    int pageCount = 0;
    // The letter of the page's category ('@' for the monoliterals), 0 for an empty page.
    char32_t pageLetter = 0;
    std::array<BrowserPicture, PageSize> glyphPictures{};

private:
    bool onMonoliterals() const;
    // Shows the page starting at this entry; a place outside the list changes nothing.
    void goTo(std::int32_t start);
    std::int32_t categoryStart(int row) const;
    // Row of categoryTable that an entry belongs to: 1 for the monoliterals.
    int rowOfEntry(std::int32_t entry) const;
    std::string tooltipFor(const std::string& code) const;
    void notFound();

    App& app_;
};

} // namespace nebkaro
