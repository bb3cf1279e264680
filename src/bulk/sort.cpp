#include "bulk/sort.h"

#include "bulk/array_functions.h"
#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"

#include <algorithm>
#include <chrono>
#include <numeric>

namespace nebkaro {

namespace {

// Rebuilds field 4 of words 0..lastIndex character by character through Trans2Code:
// direction 0 encodes (column 0), 1 decodes (column 1). It leaves sortField at 4. A character
// above code 255 is SubscriptOutOfRange: the words before it are rebuilt already, that word's
// field stays as it was.
void encodeTransliteration(App& app, int direction) {
    DictionaryStore& store = app.store;
    app.sortDialog.sortField = SortField::Translit;
    const auto column = static_cast<std::size_t>(direction);
    // Every word is coded before any is changed: a letter the table lacks leaves them all
    // as they were, never some coded and some not.
    std::vector<std::string> coded(static_cast<std::size_t>(std::max(store.lastIndex + 1, 0)));
    for (int w = 0; w <= store.lastIndex; ++w) {
        std::string& out = coded[static_cast<std::size_t>(w)];
        for (const char32_t c : text::toU32(std::string(store.view(w, FieldTranslit)))) {
            if (c > 255) throw RunError(SubscriptOutOfRange);
            out += app.lists.trans2Code[c][column];
        }
    }
    for (int w = 0; w <= store.lastIndex; ++w)
        store.setField(w, FieldTranslit, std::move(coded[static_cast<std::size_t>(w)]));
}
std::vector<int> orderOfKeys(const std::vector<std::string>& keys, int last, SortOrder order) {
    std::vector<int> index(static_cast<std::size_t>(std::max(last + 1, 0)));
    std::iota(index.begin(), index.end(), 0);
    if (last < 1) return index;
    // The exchange passes swap neighbours j, j+1 only when greater(j, j+1): equal keys never
    // pass each other, so the result is the stable order in which b precedes a whenever
    // greater(a, b).
    auto before = [&](int x, int y) {
        const std::string& a = keys[static_cast<std::size_t>(x)];
        const std::string& b = keys[static_cast<std::size_t>(y)];
        return order.reverse ? a > b : b > a;
    };
    std::stable_sort(index.begin(), index.end(), before);
    return index;
}
} // namespace

std::vector<int> toolbarOrder(const std::vector<WordRecord>& rows, int last, int field,
                              SortOrder order) {
    if (last < 1) return orderOfKeys({}, last, order);
    return orderOfKeys(detail::makeKeys(rows, field, last, order.caseSensitive), last, order);
}

std::vector<int> toolbarOrder(const DictionaryStore& store, int last, int field, SortOrder order) {
    if (last < 1) return orderOfKeys({}, last, order);
    return orderOfKeys(detail::makeKeys(store, field, last, order.caseSensitive), last, order);
}

namespace {

// The name Undo gives a sort by this field: "Sort by Meaning".
std::string sortStepName(SortField field) {
    switch (field) {
    case SortField::Meaning:
        return "Sort by Meaning";
    case SortField::Translit:
        return "Sort by Transliteration";
    case SortField::Classic:
        return "Sort by Transliteration (classic)";
    case SortField::Gardiner:
        return "Sort by Gardiner's notation";
    case SortField::Comment:
        return "Sort by Comment";
    default:
        return "Sort";
    }
}

// The classic order sorts coded transliterations; however the sort ends (done, cancelled, an
// error), the words are decoded again before anything else sees them.
class ClassicCoding {
public:
    ClassicCoding(App& app, bool classic) : app_(app), active_(classic) {
        if (active_) encodeTransliteration(app_, 0);
    }
    ClassicCoding(const ClassicCoding&) = delete;
    ClassicCoding& operator=(const ClassicCoding&) = delete;
    // The normal end: a failure to decode is reported like any other.
    void decode() {
        if (!active_) return;
        active_ = false;
        encodeTransliteration(app_, 1);
    }
    ~ClassicCoding() {
        try {
            decode();
        } catch (...) { // the error that ended the sort is the one reported
        }
    }

private:
    App& app_;
    bool active_;
};

// After a failure: once the words began to move, what the store holds counts as changed; the
// word view shows the word that is really at the current index.
void afterFailure(App& app, bool started) {
    if (started) app.store.isChanged = true;
    app.renderWord(app);
}

} // namespace

void toolbarSort(App& app, SortField field, SortOrder order) {
    DictionaryStore& store = app.store;
    UndoStep step(app.history, store, sortStepName(field), 0);
    bool started = false;
    try {
        ClassicCoding coding(app, field == SortField::Classic);
        started = true;
        const int last = store.lastIndex;
        // The passes count down from lastIndex to 0 in the counter; the order they produce is
        // computed at once, so the counter shows the start and the end of the count.
        if (last >= 0) {
            app.windows->showCounter(last);
            app.events.yield();
        }
        store.permuteRows(toolbarOrder(store, last, sortColumn(field), order));
        if (last > 0) {
            app.windows->showCounter(0);
            app.events.yield();
        }
        coding.decode();
    } catch (...) {
        afterFailure(app, started);
        throw;
    }
    store.isChanged = true;
    app.renderWord(app);
}

double menuSort(App& app, SortField field, SortOrder order) {
    DictionaryStore& store = app.store;
    UndoStep step(app.history, store, sortStepName(field), 0);
    app.windows->showProgress("Sorting Started");
    bool started = false;
    try {
        ClassicCoding coding(app, field == SortField::Classic);
        started = true;
        const int column = sortColumn(field);
        app.sortCancelled = false;
        const auto t0 = std::chrono::steady_clock::now();
        combSort(app, store, column, store.lastIndex - 1, order);
        coding.decode();
        store.isChanged = true;
        store.currentIndex = 0;
        app.renderWord(app);
        app.windows->hideProgress();
        app.sortCancelled = false;
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    } catch (...) {
        afterFailure(app, started);
        app.windows->hideProgress();
        app.sortCancelled = false;
        throw;
    }
}

} // namespace nebkaro
