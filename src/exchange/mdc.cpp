#include "exchange/mdc.h"

#include "core/app.h"
#include "display/layout.h"
#include "display/render.h"

#include <algorithm>

namespace nebkaro {

namespace {

// Positions come back from text and half twips occur: edges closer than this count as
// touching, not overlapping.
constexpr double Touching = 1.0;

struct Box {
    const PlacedSign* sign;
    double start, end, top, bottom;
};

using Row = std::vector<Box>;

// Splits boxes (sorted by lo) into runs whose [lo, hi) extents overlap, chaining through the
// run: a sign overlapping any sign of the run joins it.
template <typename Lo, typename Hi>
std::vector<std::vector<Box>> overlapRuns(std::vector<Box> boxes, Lo lo, Hi hi) {
    std::stable_sort(boxes.begin(), boxes.end(),
                     [&](const Box& a, const Box& b) { return lo(a) < lo(b); });
    std::vector<std::vector<Box>> runs;
    double runEnd = 0;
    for (const Box& b : boxes) {
        if (runs.empty() || lo(b) >= runEnd - Touching) {
            runs.push_back({b});
            runEnd = hi(b);
        } else {
            runs.back().push_back(b);
            runEnd = std::max(runEnd, hi(b));
        }
    }
    return runs;
}

} // namespace

std::string mdcOfSigns(const std::vector<PlacedSign>& signs, bool leftToRight) {
    std::vector<Box> boxes;
    for (const PlacedSign& s : signs) {
        if (s.code.empty()) continue;
        const double start = leftToRight ? s.x : -(s.x + s.width);
        boxes.push_back({&s, start, start + s.width, s.y, s.y + s.height});
    }
    auto start = [](const Box& b) { return b.start; };
    auto end = [](const Box& b) { return b.end; };
    auto top = [](const Box& b) { return b.top; };
    auto bottom = [](const Box& b) { return b.bottom; };
    std::string out;
    auto add = [&](char joiner, const std::string& code) {
        if (!out.empty()) out += joiner;
        out += code;
    };
    for (const auto& group : overlapRuns(std::move(boxes), start, end)) {
        std::vector<Row> rows = overlapRuns(group, top, bottom);
        for (Row& r : rows)
            std::stable_sort(r.begin(), r.end(),
                             [](const Box& a, const Box& b) { return a.start < b.start; });
        if (rows.size() == 1) {
            for (const Box& b : rows.front()) add('-', b.sign->code);
            continue;
        }
        for (std::size_t i = 0; i < rows.size(); ++i)
            for (std::size_t k = 0; k < rows[i].size(); ++k)
                add(k > 0 ? '*' : (i > 0 ? ':' : '-'), rows[i][k].sign->code);
    }
    return out;
}

std::vector<PlacedSign> placedSignsOfRecord(SignPictures& pictures, const WordRecord& word) {
    GlyphTable table;
    parseLayoutString(word[FieldLayout], table);
    const Library library = libraryOfLetter(word[FieldLibrary]);
    const Direction direction = directionOfLetter(word[FieldDirection]);
    std::vector<PlacedSign> out;
    for (const GlyphSlot& s : table.cells) {
        if (!s.used() || s.code->empty()) continue;
        const SignPicture p = pictures.picture(library, direction, *s.code);
        out.push_back(
            {*s.code, s.x, s.y, static_cast<double>(p.width), static_cast<double>(p.height)});
    }
    return out;
}

std::string mdcOfRecord(SignPictures& pictures, const WordRecord& word) {
    return mdcOfSigns(placedSignsOfRecord(pictures, word),
                      directionOfLetter(word[FieldDirection]) == Direction::Left);
}

std::string mdcOfWordOnShow(const App& app) {
    return mdcOfSigns(placedSigns(app.glyphs, app.view.mainGlyphPic), wordOnShowFacesLeft(app));
}

} // namespace nebkaro
