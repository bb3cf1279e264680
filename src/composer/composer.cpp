#include "composer/composer.h"

#include "composer/code_parser.h"
#include "core/text.h"

#include <algorithm>
#include <utility>

namespace nebkaro {

Rect ComposeGeometry::home(int slot) {
    const ComposeGeometry design;
    const int column = slot % 7;
    const int row = slot / 7;
    return {design.canvasFrame.left + 240 + column * 900, design.canvasFrame.top + 3060 + row * 640,
            EmptySize, EmptySize};
}

namespace {
constexpr int LastSlot = GlyphTable::Slots - 1;
// A line fills slots 0..19 at most: each placed sign shows the image after it as the next
// empty slot, and there is no image after slot 20.
constexpr int MaxSignsPerLine = 20;

int rank(char joiner) {
    return joiner == '-' ? 2 : joiner == ':' ? 1 : 0;
}
char stronger(char a, char b) {
    return rank(a) >= rank(b) ? a : b;
}
} // namespace

Composer::Composer(App& app) : app_(app) {
    for (int i = 0; i < Slots; ++i) resetImage(i, SlotBackground::Workspace, false);
    resetImage(0, SlotBackground::ButtonFace, true);
}

SignPicture Composer::pictureFor(const std::string& code) const {
    return app_.pictures.picture(app_.settings.library, app_.settings.direction, code);
}

void Composer::loadPicture(int i, const SignPicture& picture) {
    CanvasImage& image = images[static_cast<std::size_t>(i)];
    image.hasPicture = true;
    image.picture = picture;
    // An image takes the natural size of the picture it shows; a picture that cannot be read
    // comes as an empty-slot square.
    image.width = picture.width;
    image.height = picture.height;
    if (!picture.ok) status = "Picture not found: " + picture.file.string();
}

void Composer::clearPicture(int i) {
    CanvasImage& image = images[static_cast<std::size_t>(i)];
    image.hasPicture = false;
    image.picture = SignPicture{};
}

void Composer::resetImage(int i, SlotBackground bg, bool visible) {
    const Rect home = ComposeGeometry::home(i);
    CanvasImage& image = images[static_cast<std::size_t>(i)];
    image = CanvasImage{};
    image.left = home.left;
    image.top = home.top;
    image.width = home.width;
    image.height = home.height;
    image.background = bg;
    image.visible = visible;
}

void Composer::open() {
    firstFreeSlot = 0;
    app_.composedGardiner.clear();
    app_.layoutText.clear();
    app_.store.composeAccepted = false;
    activate();

    // A freshly loaded window: every image at its design place, image 0 the empty slot.
    codeLine.clear();
    debugText.clear();
    status.clear();
    gardinerLabel = "Gardiner: ";
    richGardinerLabel = "RichGardiner";
    for (int i = 0; i < Slots; ++i) resetImage(i, SlotBackground::Workspace, false);
    resetImage(0, SlotBackground::ButtonFace, true);
    for (int i = 0; i < Slots; ++i) {
        const CanvasImage& image = images[static_cast<std::size_t>(i)];
        HomePlace& home = homePlaces[static_cast<std::size_t>(i)];
        home.leftValue = image.left;
        home.topValue = image.top;
        home.left = text::toInt16(image.left);
        home.top = text::toInt16(image.top);
        home.width = text::toInt16(image.width);
        home.height = text::toInt16(image.height);
    }

    if (app_.store.newWordPending) app_.glyphs.clear();

    if (app_.store.editPending) {
        const Rect& frame = app_.view.geometry.displayArea;
        const int dx = geometry.canvasFrame.left - frame.left;
        const int dy = geometry.canvasFrame.top - frame.top;
        const SlotBackground bg = images[0].background;
        for (int i = 0; i < Slots; ++i) {
            GlyphSlot& slot = app_.glyphs[i];
            if (!slot.used()) continue;
            const GlyphImage& main = app_.view.mainGlyphPic[static_cast<std::size_t>(i)];
            CanvasImage& image = images[static_cast<std::size_t>(i)];
            loadPicture(i, main.picture);
            image.visible = true;
            image.top = main.top + dy;
            slot.y = image.top;
            image.left = main.left + dx;
            slot.x = image.left;
            image.background = bg;
            ++firstFreeSlot;
            if (i < LastSlot) {
                images[static_cast<std::size_t>(i) + 1].visible = true;
                images[static_cast<std::size_t>(i) + 1].background = bg;
            }
        }
        gardinerLabel = "Gardiner: " + app_.view.gardiner;
    }
}

bool Composer::readLine(std::vector<Placed>& placed) {
    if (text::trim(codeLine).empty()) return false;
    status.clear();
    const CodeLine line = tokenizeCodeLine(codeLine);
    std::string separators;
    int slot = 0;
    char join = '-';
    for (const CodeToken& token : line.tokens) {
        separators += token.separator;
        const TokenResolution r = resolveToken(app_.lists, token.text);
        if (r.outcome == TokenResolution::Outcome::PhoneticNotFound) {
            app_.dialogs.message(token.text + " was not found", "Phonetic Not Found", Buttons::OK,
                                 Icon::Exclamation);
            join = stronger(join, token.separator);
            continue;
        }
        if (r.outcome == TokenResolution::Outcome::GlyphNotFound) {
            app_.dialogs.message(r.code + " was not found", "Glyph Not Found", Buttons::OK,
                                 Icon::Exclamation);
            join = stronger(join, token.separator);
            continue;
        }
        if (slot >= MaxSignsPerLine) {
            app_.dialogs.message("One line can place at most 20 signs. " + r.code +
                                     " and everything after it were not placed.",
                                 "Too Many Signs", Buttons::OK, Icon::Exclamation);
            break;
        }
        placeSign(slot, r.code, r.entry);
        placed.push_back({slot, placed.empty() ? '-' : join});
        join = token.separator;
        ++slot;
    }
    firstFreeSlot = slot - 1;
    debugText = separatorDiagnostic(separators);
    return true;
}

void Composer::placeSign(int slot, const std::string& code, int entry) {
    loadPicture(slot, pictureFor(code));
    GlyphSlot& g = app_.glyphs[slot];
    g.entry = entry;
    g.code = code;
    CanvasImage& next = images[static_cast<std::size_t>(slot) + 1];
    next.visible = true;
    next.background = images[static_cast<std::size_t>(slot)].background;
}

void Composer::arrangeSigns(const std::vector<NamedSign>& signs) {
    status.clear();
    std::vector<Placed> placed;
    for (const NamedSign& sign : signs) {
        const int slot = static_cast<int>(placed.size());
        if (slot >= MaxSignsPerLine) break;
        placeSign(slot, sign.code, sign.entry);
        placed.push_back({slot, placed.empty() ? '-' : sign.joiner});
    }
    firstFreeSlot = static_cast<int>(placed.size()) - 1;
    layOutGroups(placed);
}

void Composer::getSigns() {
    std::vector<Placed> placed;
    if (!readLine(placed)) return;
    layOutRow();
}

void Composer::layOutRow() {
    const Rect& frame = geometry.canvasFrame;
    const double cx = frame.left + frame.width * 0.5;
    const double cy = text::toInt16(frame.top + frame.height * 0.5);
    double totalWidth = 0;
    for (int k = 0; k <= firstFreeSlot; ++k)
        totalWidth += images[static_cast<std::size_t>(k)].width;
    // The typed order is the reading order: signs facing right are read from the right, so
    // the first typed sign stands at the right end of the row.
    const bool left = app_.settings.direction == Direction::Left;
    double x = left ? cx - totalWidth * 0.5 : cx + totalWidth * 0.5 - images[0].width;
    double y = cy - images[0].height / 2.0;
    // Image 0 is placed even when no sign was found: it then stands centred on the frame.
    moveSign(0, x, y);
    for (int k = 1; k <= firstFreeSlot; ++k) {
        const CanvasImage& before = images[static_cast<std::size_t>(k) - 1];
        const CanvasImage& image = images[static_cast<std::size_t>(k)];
        x = left ? x + before.width : x - image.width;
        y = y + before.height * 0.5 - image.height * 0.5;
        moveSign(k, x, y);
    }
}

void Composer::arrange() {
    std::vector<Placed> placed;
    if (!readLine(placed)) return;
    layOutGroups(placed);
}

void Composer::layOutGroups(const std::vector<Placed>& placed) {
    if (placed.empty()) return;
    using Row = std::vector<int>;
    using Group = std::vector<Row>;
    std::vector<Group> groups;
    for (const Placed& p : placed) {
        if (groups.empty() || p.joiner == '-')
            groups.push_back(Group{Row{p.slot}});
        else if (p.joiner == ':')
            groups.back().push_back(Row{p.slot});
        else
            groups.back().back().push_back(p.slot);
    }
    auto image = [&](int slot) -> const CanvasImage& {
        return images[static_cast<std::size_t>(slot)];
    };
    auto rowWidth = [&](const Row& r) {
        double w = 0;
        for (int s : r) w += image(s).width;
        return w;
    };
    auto rowHeight = [&](const Row& r) {
        double h = 0;
        for (int s : r) h = std::max(h, static_cast<double>(image(s).height));
        return h;
    };
    auto groupWidth = [&](const Group& g) {
        double w = 0;
        for (const Row& r : g) w = std::max(w, rowWidth(r));
        return w;
    };
    auto groupHeight = [&](const Group& g) {
        double h = 0;
        for (const Row& r : g) h += rowHeight(r);
        return h;
    };

    const bool left = app_.settings.direction == Direction::Left;
    const Rect& frame = geometry.canvasFrame;
    const double cx = frame.left + frame.width * 0.5;
    const double cy = text::toInt16(frame.top + frame.height * 0.5);
    double total = 0;
    for (const Group& g : groups) total += groupWidth(g);
    // The writing edge: the left end of the line for left-facing signs, the right end for
    // right-facing ones; groups follow each other away from it.
    double edge = left ? cx - total * 0.5 : cx + total * 0.5;
    for (const Group& g : groups) {
        const double gw = groupWidth(g);
        const double groupLeft = left ? edge : edge - gw;
        edge = left ? edge + gw : edge - gw;
        double rowTop = cy - groupHeight(g) / 2;
        for (const Row& r : g) {
            const double rw = rowWidth(r);
            const double rh = rowHeight(r);
            double x = left ? groupLeft + (gw - rw) / 2 : groupLeft + (gw + rw) / 2;
            for (int s : r) {
                const CanvasImage& im = image(s);
                if (!left) x -= im.width;
                moveSign(s, x, rowTop + (rh - im.height) / 2);
                if (left) x += im.width;
            }
            rowTop += rh;
        }
    }
}

bool Composer::chooseSign(int i) {
    if (i < 0 || i > LastSlot) return false;
    if (!app_.windows->chooseSignFromBrowser()) return false;
    status.clear();
    const ChosenSign& chosen = app_.chosenSign;
    loadPicture(i, chosen.picture);
    if (i < LastSlot) {
        CanvasImage& next = images[static_cast<std::size_t>(i) + 1];
        next.visible = true;
        next.background = images[static_cast<std::size_t>(i)].background;
    }
    GlyphSlot& slot = app_.glyphs[i];
    slot.entry = chosen.entry;
    slot.code = chosen.code;
    ++firstFreeSlot;
    gardinerLabel += "- " + chosen.code;
    return true;
}

void Composer::showSigns() {
    // In the form the label grows in while signs are chosen, so later choices append to it.
    gardinerLabel = "Gardiner: ";
    for (int k = 0; k < Slots; ++k)
        if (app_.glyphs[k].used()) gardinerLabel += "- " + *app_.glyphs[k].code;
}

void Composer::moveSign(int i, double left, double top) {
    CanvasImage& image = images.at(static_cast<std::size_t>(i));
    image.left = left;
    image.top = top;
    app_.glyphs[i].x = left;
    app_.glyphs[i].y = top;
}

void Composer::keyPressed(int i, int keyCode) {
    if (keyCode == DeleteKeyCode) deleteSign(i);
}

void Composer::deleteSign(int i) {
    if (i < 0 || i > LastSlot) return;
    // An image that no longer shows a sign: the empty-slot square at its home place.
    auto toEmptySlot = [&](int k, SlotBackground background, bool visible) {
        CanvasImage& image = images[static_cast<std::size_t>(k)];
        image.visible = visible;
        image.background = background;
        image.width = ComposeGeometry::EmptySize;
        image.height = ComposeGeometry::EmptySize;
        image.left = homePlaces[static_cast<std::size_t>(k)].leftValue;
        image.top = homePlaces[static_cast<std::size_t>(k)].topValue;
    };
    if (i == LastSlot) {
        // The last image has no later one to take its place: it becomes an empty slot again,
        // while its row of the table stays (OK still takes that sign).
        clearPicture(i);
        toEmptySlot(i, SlotBackground::ButtonFace, true);
        showSigns();
        return;
    }
    // Every later sign moves down one slot but stays where it stands on the canvas.
    for (int k = i + 1; k <= LastSlot; ++k) {
        app_.glyphs[k - 1] = app_.glyphs[k];
        CanvasImage& to = images[static_cast<std::size_t>(k) - 1];
        const CanvasImage& from = images[static_cast<std::size_t>(k)];
        to.hasPicture = from.hasPicture;
        to.picture = from.picture;
        to.width = from.width;
        to.height = from.height;
        to.top = from.top;
        to.left = from.left;
    }
    int f = 0;
    for (int k = 1; k <= LastSlot; ++k)
        if (!app_.glyphs[k].used()) {
            f = k;
            break;
        }
    showSigns();
    // With every slot still in use there is no image to turn into the empty slot.
    if (f == 0) return;
    // The signs before the empty slot are what Delete Last works back from, so its next
    // click takes the last of them.
    firstFreeSlot = f;
    for (int k = f; k <= LastSlot; ++k) toEmptySlot(k, SlotBackground::Workspace, false);
    images[static_cast<std::size_t>(f)].visible = true;
    images[static_cast<std::size_t>(f)].background = SlotBackground::ButtonFace;
}

void Composer::deleteLast() {
    // With firstFreeSlot at 1 the first sign cannot be removed this way; below 1 there is no
    // image before the last one to empty.
    if (firstFreeSlot <= 1) return;
    if (firstFreeSlot <= LastSlot) {
        CanvasImage& image = images[static_cast<std::size_t>(firstFreeSlot)];
        image.background = SlotBackground::Workspace;
        image.visible = false;
    }
    --firstFreeSlot;
    if (firstFreeSlot > LastSlot) return;
    const HomePlace& home = homePlaces[static_cast<std::size_t>(firstFreeSlot)];
    CanvasImage& image = images[static_cast<std::size_t>(firstFreeSlot)];
    image.left = home.left;
    image.top = home.top;
    image.width = home.width;
    image.height = home.height;
    clearPicture(firstFreeSlot);
    app_.glyphs[firstFreeSlot] = GlyphSlot{};
    showSigns();
}

void Composer::imageClicked(int) {
    app_.typewriterTarget = TypewriterTarget::ComposerMdC;
}

bool Composer::accept() {
    // One placed sign is a word; with none, OK is Cancel.
    bool any = false;
    for (int i = 0; i < Slots; ++i) any = any || app_.glyphs[i].used();
    if (!any) {
        app_.store.composeAccepted = false;
        return true;
    }
    app_.store.composeAccepted = true;
    // The starting minima are fixed: a group lying wholly beyond them keeps its offset.
    double minLeft = 5000;
    double minTop = 10000;
    int maxRight = 0;
    double maxBottom = 0;
    for (int i = 0; i < Slots; ++i) {
        const GlyphSlot& g = app_.glyphs[i];
        if (!g.used()) continue;
        const CanvasImage& image = images[static_cast<std::size_t>(i)];
        if (g.x < minLeft) minLeft = g.x;
        if (g.y < minTop) minTop = g.y;
        if (g.x + image.width > maxRight) maxRight = text::toInt16(g.x + image.width);
        if (g.y + image.height > maxBottom) maxBottom = g.y + image.height;
    }
    for (int i = 0; i < Slots; ++i) {
        GlyphSlot& g = app_.glyphs[i];
        if (!g.used()) continue;
        g.x -= minLeft;
        g.y -= minTop;
    }
    app_.view.rightEdge = text::toInt16(maxRight - minLeft);
    app_.view.bottomEdge = maxBottom - minTop;

    readingOrderSort();

    // A second OK in the same load appends to what the first one built.
    for (int i = 0; i < Slots; ++i) {
        const GlyphSlot& g = app_.glyphs[i];
        if (!g.used()) continue;
        app_.layoutText +=
            *g.code + "(" + text::plainNumber(g.x) + "," + text::plainNumber(g.y) + ") - ";
        app_.composedGardiner += *g.code + "-";
    }
    // The blank of the last ") - " stays: a layout string ends in ") ".
    app_.layoutText.resize(app_.layoutText.size() - 2);
    app_.composedGardiner.resize(app_.composedGardiner.size() - 1);

    richGardinerLabel = app_.layoutText;
    gardinerLabel = app_.composedGardiner;
    app_.view.windowWidth = geometry.windowWidth;
    return true;
}

void Composer::readingOrderSort() {
    // Only the slots before the first gap take part.
    int n = LastSlot;
    for (int k = 1; k <= LastSlot; ++k)
        if (!app_.glyphs[k].used()) {
            n = k - 1;
            break;
        }
    const bool left = app_.settings.direction == Direction::Left;
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j <= n; ++j) {
            const double Li = app_.glyphs[i].x, Lj = app_.glyphs[j].x;
            const double Ti = app_.glyphs[i].y, Tj = app_.glyphs[j].y;
            const double Wi = images[static_cast<std::size_t>(i)].width;
            const double Wj = images[static_cast<std::size_t>(j)].width;
            // One column: each sign starts before 92 % of the other's right edge.
            const bool column = (Li + Wi) * 0.92 > Lj && (Lj + Wj) * 0.92 > Li;
            bool swap;
            if (column)
                swap = Ti > Tj;
            else
                swap = left ? Li > Lj : Li < Lj;
            if (swap) swapSlots(i, j);
        }
    }
}

void Composer::swapSlots(int a, int b) {
    std::swap(app_.glyphs[a], app_.glyphs[b]);
    CanvasImage& x = images[static_cast<std::size_t>(a)];
    CanvasImage& y = images[static_cast<std::size_t>(b)];
    std::swap(x.hasPicture, y.hasPicture);
    std::swap(x.picture, y.picture);
    std::swap(x.left, y.left);
    std::swap(x.top, y.top);
    std::swap(x.width, y.width);
    std::swap(x.height, y.height);
}

void Composer::cancel() {
    app_.store.composeAccepted = false;
}

void Composer::switchLibrary(Library library) {
    app_.settings.library = library;
    loadSignList(app_.lists, app_.home, library);
}

void Composer::basicOptionClicked() {
    basicChosen = true;
    switchLibrary(Library::Basic);
    app_.windows->unloadBrowser();
}

void Composer::extendedOptionClicked() {
    basicChosen = false;
    switchLibrary(Library::Extended);
    app_.extendedChosen = true;
    app_.windows->unloadBrowser();
}

void Composer::basicMenuChosen() {
    basicChecked = true;
    extendedChecked = false;
    switchLibrary(Library::Basic);
    app_.windows->unloadBrowser();
}

void Composer::extendedMenuChosen() {
    extendedChecked = true;
    basicChecked = false;
    switchLibrary(Library::Extended);
    app_.extendedChosen = true;
    app_.windows->unloadBrowser();
    app_.dialogs.beep();
}

void Composer::activate() {
    const bool basic = app_.settings.library == Library::Basic;
    basicChosen = basic;
    basicChecked = basic;
    extendedChecked = !basic;
}

void Composer::resize(int width, int height) {
    width = std::max(width, ComposeGeometry::MinWidth);
    height = std::max(height, ComposeGeometry::DesignHeight);
    geometry.windowWidth = width;
    geometry.windowHeight = height;
    geometry.canvasFrame.width = width - 500;
    geometry.getButtonLeft = width - 900;
    geometry.codeLineWidth = width - 1800;
    // The frame also takes what the window gains in height, so a tall window gives room.
    geometry.canvasFrame.height =
        ComposeGeometry::FrameHeight + height - ComposeGeometry::DesignHeight;
}

bool composeLine(App& app, const std::string& line, Library library, Direction direction) {
    app.settings.library = library;
    app.settings.direction = direction;
    const bool wasNew = app.store.newWordPending;
    const bool wasEdit = app.store.editPending;
    app.store.newWordPending = true;
    app.store.editPending = false;
    Composer composer(app);
    composer.open();
    composer.codeLine = line;
    composer.getSigns();
    composer.accept();
    app.store.newWordPending = wasNew;
    app.store.editPending = wasEdit;
    return app.store.composeAccepted;
}

} // namespace nebkaro
