#include "core/dictionary_store.h"

#include "core/errors.h"

namespace nebkaro {

namespace {
const WordRecord& emptyRecord() {
    static const WordRecord empty{};
    return empty;
}
} // namespace

void DictionaryStore::check(int w, int f) const {
    if (w < 0 || w > MaxWordIndex || f < 0 || f >= FieldCount) throw RunError(SubscriptOutOfRange);
}

WordRecord& DictionaryStore::ensure(int w) {
    if (static_cast<std::size_t>(w) >= rows_.size()) rows_.resize(static_cast<std::size_t>(w) + 1);
    return rows_[static_cast<std::size_t>(w)];
}

const std::string& DictionaryStore::field(int w, int f) const {
    check(w, f);
    if (static_cast<std::size_t>(w) >= rows_.size()) return emptyRecord()[0];
    return rows_[static_cast<std::size_t>(w)][static_cast<std::size_t>(f)];
}

void DictionaryStore::setField(int w, int f, std::string value) {
    check(w, f);
    if (value.empty() && static_cast<std::size_t>(w) >= rows_.size()) return;
    ensure(w)[static_cast<std::size_t>(f)] = std::move(value);
}

const WordRecord& DictionaryStore::row(int w) const {
    check(w, 0);
    if (static_cast<std::size_t>(w) >= rows_.size()) return emptyRecord();
    return rows_[static_cast<std::size_t>(w)];
}

void DictionaryStore::setRow(int w, WordRecord record) {
    check(w, 0);
    ensure(w) = std::move(record);
}

void DictionaryStore::swapRows(int a, int b) {
    check(a, 0);
    check(b, 0);
    if (a == b) return;
    ensure(std::max(a, b));
    std::swap(rows_[static_cast<std::size_t>(a)], rows_[static_cast<std::size_t>(b)]);
}

void DictionaryStore::clear() {
    // Releasing the rows is the same as emptying every cell: unwritten rows read empty.
    rows_.clear();
    rows_.shrink_to_fit();
}

bool DictionaryStore::isEmpty() const {
    return lastIndex == 0 && field(0, FieldGardiner).empty();
}

int DictionaryStore::takeRowForNewWord() {
    if (isEmpty()) {
        currentIndex = 0;
        return 0;
    }
    if (lastIndex + 1 > MaxWordIndex) throw StoreFull();
    lastIndex += 1;
    currentIndex = lastIndex;
    return lastIndex;
}

void DictionaryStore::emptyAfterNewDictionary() {
    for (int w = 0; w <= lastIndex && w <= MaxWordIndex; ++w) {
        if (static_cast<std::size_t>(w) < rows_.size()) rows_[static_cast<std::size_t>(w)] = {};
    }
    lastIndex = 0;
    currentIndex = 0;
}

std::vector<WordRecord>& DictionaryStore::rowsForBulk(int n) {
    if (n > 0) ensure(n - 1);
    return rows_;
}

} // namespace nebkaro
