#include "display/render.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"
#include "display/layout.h"
#include "display/main_layout.h"

#include <cmath>

namespace nebkaro {

int progressWidth(int containerWidth, int currentIndex, int lastIndex) {
    if (lastIndex <= 0) return 0;
    const double w =
        static_cast<double>(text::toInt16(containerWidth - 400)) * currentIndex / lastIndex;
    return static_cast<int>(std::lround(std::max(0.0, w)));
}

void placeGlyphGroup(App& app) {
    WordView& v = app.view;
    const GlyphTable& g = app.glyphs;
    v.bottomEdge = 0;
    v.rightEdge = 0;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        if (!g[i].used()) continue;
        const SignPicture& pic = v.mainGlyphPic[static_cast<std::size_t>(i)].picture;
        if (g[i].x + pic.width > v.rightEdge) v.rightEdge = text::toInt16(g[i].x + pic.width);
        const double bottom = g[i].y + text::toInt16(pic.height);
        if (bottom > v.bottomEdge) v.bottomEdge = bottom;
    }
    const Rect& area = v.geometry.displayArea;
    if (v.rightEdge > v.windowWidth) resizeMainWindow(v, v.rightEdge + area.left + 500);
    if (v.rightEdge < 6460) resizeMainWindow(v, MainGeometry::MinWidth);
    const double cx = v.geometry.displayArea.width / 2.0 + v.geometry.displayArea.left;
    const double cy = v.geometry.displayArea.height / 2.0 + v.geometry.displayArea.top;
    const double dy = text::toInt16(cy - v.bottomEdge / 2);
    const double dx = cx - v.rightEdge / 2.0;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        if (!g[i].used()) continue;
        GlyphImage& img = v.mainGlyphPic[static_cast<std::size_t>(i)];
        img.left = static_cast<int>(std::lround(g[i].x + dx));
        img.top = static_cast<int>(std::lround(g[i].y + dy));
    }
}

void drawWordImage(App& app) {
    WordView& v = app.view;
    WordPicture& pic = v.picture;
    pic.width = text::toInt16(v.rightEdge + 64.0);
    pic.height = text::toInt16(v.bottomEdge + 64);
    // The picture is rewritten in place: its signs' paths keep their buffers from word to word.
    std::size_t n = 0;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        const GlyphSlot& s = app.glyphs[i];
        if (!s.used()) continue;
        if (n == pic.pictures.size()) pic.pictures.emplace_back();
        PlacedPicture& placed = pic.pictures[n++];
        placed.picture = v.mainGlyphPic[static_cast<std::size_t>(i)].picture;
        placed.x = static_cast<int>(std::lround(s.x + 32));
        placed.y = static_cast<int>(std::lround(s.y + 32));
    }
    pic.pictures.resize(n);
}

namespace {
void setBox(WordView& v, std::string& box, const std::string& value) {
    // A box whose text changes fires its change event, as typing would.
    if (box != value) {
        box = value;
        v.textChanged = true;
    }
}
} // namespace

void renderWord(App& app) {
    DictionaryStore& store = app.store;
    WordView& v = app.view;
    // Without a word (none in the dictionary, or an index outside the table) the view is
    // empty: another word's signs or texts left on show would be taken for this one's.
    const bool inTable = store.lastIndex >= 0 && store.currentIndex >= 0 &&
                         store.currentIndex <= DictionaryStore::MaxWordIndex;
    static const WordRecord none{};
    const WordRecord& word = inTable ? store.row(store.currentIndex) : none;
    // The texts come first: whatever the signs do, the boxes hold this word's own texts, so
    // that Store and Save write back only what belongs to it.
    setBox(v, v.comment, word[FieldComment]);
    setBox(v, v.meaning, word[FieldMeaning]);
    setBox(v, v.transliteration, word[FieldTranslit]);
    setBox(v, v.gardiner, word[FieldGardiner]);
    v.richGardiner = word[FieldLayout];
    v.wordNumber = store.currentIndex >= 0 ? std::to_string(store.currentIndex) : std::string();
    v.progressWidth =
        progressWidth(v.geometry.progressContainerWidth, store.currentIndex, store.lastIndex);
    v.missingPictures.clear();
    v.drawProblem.clear();
    try {
        parseLayoutString(word[FieldLayout], app.glyphs);
        const Library library = libraryOfLetter(word[FieldLibrary]);
        const Direction direction = directionOfLetter(word[FieldDirection]);
        for (int i = 0; i < GlyphTable::Slots; ++i) {
            GlyphImage& img = v.mainGlyphPic[static_cast<std::size_t>(i)];
            const GlyphSlot& s = app.glyphs[i];
            if (s.used() && !s.code->empty()) {
                img.picture = app.pictures.picture(library, direction, *s.code);
                if (!img.picture.ok) v.missingPictures.push_back(img.picture.file.string());
                img.visible = true;
            } else {
                img.visible = false;
            }
        }
        placeGlyphGroup(app);
        drawWordImage(app);
    } catch (const RunError& e) {
        // A layout that cannot be drawn leaves an empty picture; the word stays on show with
        // its texts and its layout as stored, and the status bar says why.
        app.glyphs.clear();
        for (GlyphImage& img : v.mainGlyphPic) img.visible = false;
        v.missingPictures.clear();
        placeGlyphGroup(app);
        drawWordImage(app);
        v.drawProblem = "The signs of word " + std::to_string(store.currentIndex) +
                        " cannot be drawn (" + e.report() + ")";
    }
    if (!v.drawProblem.empty())
        app.windows->showStatus(v.drawProblem);
    else if (!v.missingPictures.empty())
        app.windows->showStatus("Missing sign picture: " + v.missingPictures.front());
    app.windows->wordViewChanged();
}

void setDirection(App& app, FlipMode mode) {
    DictionaryStore& store = app.store;
    const std::string& field = store.field(store.currentIndex, FieldDirection);
    if ((mode == FlipMode::Left && field == directionLetter(Direction::Left)) ||
        (mode == FlipMode::Right && field == directionLetter(Direction::Right)))
        return;
    const Direction current = directionOfLetter(field);
    // A layout that cannot be read or mirrored fails before the word is touched.
    parseLayout(app);
    UndoStep step(app.history, store, "Flip word " + std::to_string(store.currentIndex),
                  store.currentIndex, store.currentIndex + 1);
    GlyphTable& g = app.glyphs;
    int n = 0;
    int right = 0;
    for (int i = 0; i < GlyphTable::Slots && g[i].used(); ++i) {
        ++n;
        const int w = app.view.mainGlyphPic[static_cast<std::size_t>(i)].picture.width;
        // The test is on the full width, the assignment takes half of it: kept as it always
        // was; normalising below makes the result independent of it whenever a mirrored X
        // falls below 0.
        if (g[i].x + w > right) right = text::toInt16(g[i].x + w / 2.0);
    }
    double m = 0;
    for (int i = 0; i < n; ++i) {
        const int w = app.view.mainGlyphPic[static_cast<std::size_t>(i)].picture.width;
        g[i].x = right - (g[i].x + w);
        if (g[i].x < m) m = g[i].x;
    }
    if (m < 0)
        for (int i = 0; i < n; ++i) g[i].x -= m;
    std::string mirrored = mirrorLayoutString(g);
    store.setField(store.currentIndex, FieldDirection, directionLetter(opposite(current)));
    app.view.richGardiner = std::move(mirrored);
    app.storeWord(app);
}

} // namespace nebkaro
