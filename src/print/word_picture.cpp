#include "print/word_picture.h"

#include "core/app.h"
#include "core/errors.h"
#include "display/layout.h"
#include "display/render.h"

#include <algorithm>
#include <cmath>

namespace nebkaro::print {

namespace {
constexpr int PictureMargin = 32;
}

WordPicture pictureOfRecord(SignPictures& pictures, const WordRecord& word) {
    GlyphTable table;
    parseLayoutString(word[FieldLayout], table);
    const Library library = libraryOfLetter(word[FieldLibrary]);
    const Direction direction = directionOfLetter(word[FieldDirection]);
    WordPicture pic;
    double minX = 0, minY = 0, right = 0, bottom = 0;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        const GlyphSlot& s = table[i];
        if (!s.used() || s.code->empty()) continue;
        PlacedPicture placed;
        placed.picture = pictures.picture(library, direction, *s.code);
        placed.x = static_cast<int>(std::lround(s.x));
        placed.y = static_cast<int>(std::lround(s.y));
        minX = std::min(minX, s.x);
        minY = std::min(minY, s.y);
        right = std::max(right, s.x + placed.picture.width);
        bottom = std::max(bottom, s.y + placed.picture.height);
        pic.pictures.push_back(std::move(placed));
    }
    const int shiftX = PictureMargin - static_cast<int>(std::lround(minX));
    const int shiftY = PictureMargin - static_cast<int>(std::lround(minY));
    for (PlacedPicture& p : pic.pictures) {
        p.x += shiftX;
        p.y += shiftY;
    }
    pic.width = static_cast<int>(std::lround(right - minX)) + 2 * PictureMargin;
    pic.height = static_cast<int>(std::lround(bottom - minY)) + 2 * PictureMargin;
    return pic;
}

WordPicture pictureOfWord(App& app, int index) {
    return pictureOfRecord(app.pictures, app.store.row(index));
}

SignPicture CachedSignPictures::picture(Library library, Direction direction,
                                        const std::string& code) {
    auto key = std::make_tuple(library, direction, code);
    auto it = cache_.find(key);
    if (it == cache_.end())
        it = cache_.emplace(std::move(key), source_.picture(library, direction, code)).first;
    return it->second;
}

PrintWord makePrintWord(SignPictures& pictures, int index, const WordRecord& word) {
    PrintWord w;
    w.index = index;
    w.record = word;
    try {
        w.picture = pictureOfRecord(pictures, word);
    } catch (const RunError&) {
        w.picture = WordPicture{};
    }
    return w;
}

std::vector<PrintWord> collectWords(App& app, const std::vector<int>& indices) {
    CachedSignPictures pictures(app.pictures);
    std::vector<PrintWord> words;
    words.reserve(indices.size());
    for (int i : indices) words.push_back(makePrintWord(pictures, i, app.store.row(i)));
    return words;
}

} // namespace nebkaro::print
