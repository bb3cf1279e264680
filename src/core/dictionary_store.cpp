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

StoredRow& DictionaryStore::ensure(int w) {
    if (static_cast<std::size_t>(w) >= rows_.size()) rows_.resize(static_cast<std::size_t>(w) + 1);
    return rows_[static_cast<std::size_t>(w)];
}

const std::string& DictionaryStore::field(int w, int f) const {
    check(w, f);
    if (static_cast<std::size_t>(w) >= rows_.size()) return emptyRecord()[0];
    return rows_[static_cast<std::size_t>(w)].record()[static_cast<std::size_t>(f)];
}

std::string_view DictionaryStore::view(int w, int f) const {
    check(w, f);
    if (static_cast<std::size_t>(w) >= rows_.size()) return {};
    return rows_[static_cast<std::size_t>(w)].view(f);
}

void DictionaryStore::setField(int w, int f, std::string value) {
    check(w, f);
    if (value.empty() && static_cast<std::size_t>(w) >= rows_.size()) return;
    ensure(w).record()[static_cast<std::size_t>(f)] = std::move(value);
}

const WordRecord& DictionaryStore::row(int w) const {
    check(w, 0);
    if (static_cast<std::size_t>(w) >= rows_.size()) return emptyRecord();
    return rows_[static_cast<std::size_t>(w)].record();
}

void DictionaryStore::setRow(int w, WordRecord record) {
    check(w, 0);
    ensure(w) = StoredRow(std::move(record));
}

void DictionaryStore::adoptWords(PackedWords words, int start) {
    if (words.rows.empty()) return;
    check(start, 0);
    check(start + static_cast<int>(words.rows.size()) - 1, 0);
    texts_.push_back(std::move(words.text));
    const std::size_t first = static_cast<std::size_t>(start);
    if (first == 0 && rows_.empty()) {
        rows_ = std::move(words.rows); // a whole new dictionary: no row is copied
        return;
    }
    if (rows_.size() < first + words.rows.size()) rows_.resize(first + words.rows.size());
    std::move(words.rows.begin(), words.rows.end(), rows_.begin() + static_cast<long>(first));
}

void DictionaryStore::permuteRows(const std::vector<int>& order) {
    if (order.empty()) return;
    check(static_cast<int>(order.size()) - 1, 0);
    ensure(static_cast<int>(order.size()) - 1);
    std::vector<StoredRow> moved;
    moved.reserve(order.size());
    for (int k : order) moved.push_back(std::move(rows_[static_cast<std::size_t>(k)]));
    std::move(moved.begin(), moved.end(), rows_.begin());
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
    texts_.clear();
}

bool DictionaryStore::isEmpty() const {
    return lastIndex == 0 && view(0, FieldGardiner).empty();
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
        if (static_cast<std::size_t>(w) < rows_.size())
            rows_[static_cast<std::size_t>(w)] = StoredRow();
    }
    lastIndex = 0;
    currentIndex = 0;
}

std::vector<StoredRow>& DictionaryStore::rowsForBulk(int n) {
    if (n > 0) ensure(n - 1);
    return rows_;
}

} // namespace nebkaro
