#include "display/unicode_text.h"

#include "core/app.h"
#include "core/text.h"
#include "display/unicode_signs.h"

#include <algorithm>
#include <cstring>

namespace nebkaro {

std::optional<char32_t> hieroglyphCodePoint(const std::string& code) {
    const auto it = std::lower_bound(UnicodeSigns.begin(), UnicodeSigns.end(), code,
                                     [](const UnicodeSign& s, const std::string& c) {
                                         return std::strcmp(s.code, c.c_str()) < 0;
                                     });
    if (it == UnicodeSigns.end() || code != it->code) return std::nullopt;
    return it->codePoint;
}

namespace {

// A sign in reading coordinates: x grows in the reading direction.
struct Box {
    const PlacedSign* sign;
    double start;
    double end;
    double top;
    double bottom;
};

// Two extents belong together when they share more than half of the shorter one; signs
// that merely touch or overlap at an edge stand apart.
bool shareMost(double a0, double a1, double b0, double b1) {
    const double overlap = std::min(a1, b1) - std::max(a0, b0);
    return overlap > 0 && 2 * overlap > std::min(a1 - a0, b1 - b0);
}

using Row = std::vector<Box>;
using Group = std::vector<Row>;

// Splits boxes, in order, into runs: a box joins the run before it when its extent from `lo`
// to `hi` shares most of the run's extent so far.
std::vector<Row> cluster(const Row& boxes, double Box::*lo, double Box::*hi) {
    std::vector<Row> runs;
    double runLo = 0, runHi = 0;
    for (const Box& b : boxes) {
        if (!runs.empty() && shareMost(runLo, runHi, b.*lo, b.*hi)) {
            runs.back().push_back(b);
            runLo = std::min(runLo, b.*lo);
            runHi = std::max(runHi, b.*hi);
        } else {
            runs.push_back({b});
            runLo = b.*lo;
            runHi = b.*hi;
        }
    }
    return runs;
}

// Signs whose horizontal extents share most of their width form a group (a column of the
// word); inside it, signs whose vertical extents share most of their height form a row.
std::vector<Group> groupSigns(std::vector<Box> boxes) {
    std::stable_sort(boxes.begin(), boxes.end(), [](const Box& a, const Box& b) {
        return a.start < b.start || (a.start == b.start && a.top < b.top);
    });
    std::vector<Group> groups;
    for (Row& col : cluster(boxes, &Box::start, &Box::end)) {
        std::stable_sort(col.begin(), col.end(), [](const Box& a, const Box& b) {
            return a.top < b.top || (a.top == b.top && a.start < b.start);
        });
        Group g = cluster(col, &Box::top, &Box::bottom);
        for (Row& r : g)
            std::stable_sort(r.begin(), r.end(),
                             [](const Box& a, const Box& b) { return a.start < b.start; });
        groups.push_back(std::move(g));
    }
    return groups;
}

} // namespace

UnicodeWord unicodeText(const std::vector<PlacedSign>& signs, bool leftToRight) {
    std::vector<Box> boxes;
    for (const PlacedSign& s : signs) {
        const double start = leftToRight ? s.x : -(s.x + s.width);
        boxes.push_back({&s, start, start + s.width, s.y, s.y + s.height});
    }
    UnicodeWord out;
    for (const Group& g : groupSigns(std::move(boxes))) {
        // Signs the block lacks are left out of their row; a row left empty disappears.
        std::vector<std::vector<char32_t>> rows;
        for (const Row& r : g) {
            std::vector<char32_t> row;
            for (const Box& b : r) {
                if (const auto cp = hieroglyphCodePoint(b.sign->code))
                    row.push_back(*cp);
                else if (std::find(out.missing.begin(), out.missing.end(), b.sign->code) ==
                         out.missing.end())
                    out.missing.push_back(b.sign->code);
            }
            if (!row.empty()) rows.push_back(std::move(row));
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (i > 0) out.text += VerticalJoiner;
            for (std::size_t k = 0; k < rows[i].size(); ++k) {
                if (k > 0) out.text += HorizontalJoiner;
                out.text += rows[i][k];
            }
        }
    }
    return out;
}

std::vector<PlacedSign> placedSigns(const GlyphTable& glyphs,
                                    const std::array<GlyphImage, GlyphTable::Slots>& images) {
    std::vector<PlacedSign> out;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        const GlyphSlot& s = glyphs[i];
        if (!s.used() || s.code->empty()) continue;
        const SignPicture& p = images[static_cast<std::size_t>(i)].picture;
        out.push_back(
            {*s.code, s.x, s.y, static_cast<double>(p.width), static_cast<double>(p.height)});
    }
    return out;
}

bool wordOnShowFacesLeft(const App& app) {
    const DictionaryStore& store = app.store;
    // A composed word not yet stored faces the way new words are stored.
    bool left = app.settings.direction == Direction::Left;
    if (!store.newWordPending && store.currentIndex >= 0 &&
        store.currentIndex <= DictionaryStore::MaxWordIndex)
        left =
            directionOfLetter(store.field(store.currentIndex, FieldDirection)) == Direction::Left;
    return left;
}

UnicodeWord unicodeWordText(const App& app) {
    return unicodeText(placedSigns(app.glyphs, app.view.mainGlyphPic), wordOnShowFacesLeft(app));
}

void copyWordAsUnicode(App& app) {
    const UnicodeWord w = unicodeWordText(app);
    if (w.text.empty() && w.missing.empty()) {
        app.dialogs.message("The word on show has no signs to copy.", "Copy as Unicode",
                            Buttons::OK, Icon::Exclamation);
        return;
    }
    if (!w.text.empty()) {
        app.clipboard.clear();
        app.clipboard.setText(text::toUtf8(w.text));
    }
    if (w.missing.empty()) return;
    std::string list;
    for (const std::string& code : w.missing) list += (list.empty() ? "" : ", ") + code;
    const std::string what =
        w.text.empty() ? "No sign of the word is in the Unicode block of Egyptian hieroglyphs, so "
                         "nothing was copied:"
                       : "These signs are not in the Unicode block of Egyptian hieroglyphs and "
                         "were left out of the copy:";
    app.dialogs.message(what + "\r\n" + list, "Copy as Unicode", Buttons::OK, Icon::Exclamation);
}

} // namespace nebkaro
