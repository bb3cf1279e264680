#include "bulk/reading_order.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"

#include <cmath>

namespace nebkaro {

float overlapTolerance(double percent) {
    return static_cast<float>((100.0 - percent) / 100.0);
}

namespace {

// Exchanges two slots of the glyph table, all attributes, and the pictures of the two glyph
// images (each picture keeps its size, so widths follow their signs).
void swapGlyphSlots(App& app, int i, int j) {
    std::swap(app.glyphs[i], app.glyphs[j]);
    auto& pics = app.view.mainGlyphPic;
    std::swap(pics.at(static_cast<std::size_t>(i)).picture,
              pics.at(static_cast<std::size_t>(j)).picture);
}
// Int((X + width) * tol): the scaled right edge of the sign in slot i.
double scaledEdge(const App& app, int i, float tol) {
    const int w = app.view.mainGlyphPic[static_cast<std::size_t>(i)].picture.width;
    return std::floor((app.glyphs[i].x + w) * static_cast<double>(tol));
}

// Orders the used slots of app.glyphs (up to the first unused one) of the word on show. The
// right edge (X + picture width) is scaled by tol; each slot's own edge is taken once before
// its comparisons and not again after an exchange, as the order has always been computed.
void orderGlyphs(App& app, float tol) {
    GlyphTable& g = app.glyphs;
    int last = -1;
    while (last + 1 < GlyphTable::Slots && g[last + 1].used()) ++last;
    const bool leftward = directionOfLetter(app.store.field(app.store.currentIndex,
                                                            FieldDirection)) == Direction::Left;
    for (int i = 0; i <= last - 1; ++i) {
        const double ti = scaledEdge(app, i, tol);
        for (int j = i + 1; j <= last; ++j) {
            const double tj = scaledEdge(app, j, tol);
            const double xi = g[i].x;
            const double xj = g[j].x;
            bool exchange;
            if (xi < tj && xj < ti)
                exchange = g[j].y < g[i].y; // one above the other: the upper sign first
            else
                exchange = leftward ? xj < xi : xj > xi;
            if (exchange) swapGlyphSlots(app, i, j);
        }
    }
}

// The layout text ("A1( 0, 0) - G17( 300, 0) ") and the Gardiner notation ("A1 - G17 ") of
// the used slots in slot order, each with the trailing blank the cut leaves. A word without
// signs is an InvalidArgument error.
std::pair<std::string, std::string> readingOrderTexts(App& app) {
    std::string layout;
    std::string gardiner;
    for (int s = 0; s < GlyphTable::Slots; ++s) {
        const GlyphSlot& slot = app.glyphs[s];
        if (!slot.used()) continue;
        layout +=
            *slot.code + "(" + text::numberText(slot.x) + "," + text::numberText(slot.y) + ") - ";
        gardiner += *slot.code + " - ";
    }
    // Cutting the last two characters keeps the blank before them: the layout ends in ") ",
    // the notation in one blank. With no sign there is nothing to cut.
    if (layout.size() < 2 || gardiner.size() < 2) throw RunError(InvalidArgument);
    layout.resize(layout.size() - 2);
    gardiner.resize(gardiner.size() - 2);
    return {layout, gardiner};
}
} // namespace

void sortGardinerAll(App& app, double overlapPercent) {
    DictionaryStore& store = app.store;
    const float tol = overlapTolerance(overlapPercent);
    UndoStep step(app.history, store, "Sort Gardiner", 0);
    const RememberedPictures once(app.pictures);
    try {
        for (store.currentIndex = 0; store.currentIndex <= store.lastIndex; ++store.currentIndex) {
            app.renderWord(app);
            orderGlyphs(app, tol);
            auto [layout, gardiner] = readingOrderTexts(app);
            app.view.richGardiner = std::move(layout);
            if (app.view.gardiner != gardiner) {
                app.view.gardiner = std::move(gardiner);
                app.view.textChanged = true;
            }
            app.storeWord(app);
            app.events.yield();
        }
    } catch (...) {
        // The word view shows the word that stopped the run as it is stored.
        app.renderWord(app);
        throw;
    }
    store.currentIndex = store.lastIndex;
    app.renderWord(app);
}

} // namespace nebkaro
