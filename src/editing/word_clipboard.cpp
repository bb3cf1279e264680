#include "editing/word_clipboard.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"
#include "editing/undo.h"
#include "editing/word_editing.h"

#include <algorithm>

namespace nebkaro {

std::string clipboardItem(const WordRecord& word) {
    std::string item;
    for (int f = 0; f < FieldCount; ++f) {
        if (f > 0) item += '|';
        item += word[static_cast<std::size_t>(f)];
    }
    return item;
}

void insertRow(App& app) {
    DictionaryStore& store = app.store;
    if (store.lastIndex >= DictionaryStore::MaxWordIndex) throw StoreFull();
    // The row opens after the word on show; from beyond the dictionary, after its last word.
    const int after = std::clamp(store.currentIndex, -1, store.lastIndex);
    const int last = store.lastIndex + 1;
    auto& rows = store.rowsForBulk(last + 1);
    const auto at = rows.begin() + (after + 1);
    std::move_backward(at, rows.begin() + last, rows.begin() + last + 1);
    *at = after >= 0 ? rows[static_cast<std::size_t>(after)] : WordRecord{};
    store.lastIndex = last;
    store.currentIndex = after + 1;
}

void copyWord(App& app) {
    // Whatever happens here, a Cut ends with this Copy.
    struct EndCut {
        bool& pending;
        ~EndCut() { pending = false; }
    };
    const bool cutting = app.cutPending;
    EndCut endCut{app.cutPending};
    // What is copied is the word as stored: edits on show are stored first or given up.
    offerToStoreWord(app);
    if (!wordOnShow(app)) {
        reportNoWordOnShow(app);
        return;
    }
    app.cutIndex = app.store.currentIndex;
    app.clipboard.clear();
    app.clipboard.setText(clipboardItem(app.store.row(app.cutIndex)));
    if (cutting) {
        UndoStep step(app.history, app.store, "Cut word " + std::to_string(app.cutIndex),
                      app.cutIndex);
        deleteWord(app);
    }
}

void cutWord(App& app) {
    app.cutPending = true;
    app.cutIndex = app.store.currentIndex;
    copyWord(app);
}

void pasteWord(App& app) {
    std::string item = app.clipboard.text();
    // Text copied from an editor or a spreadsheet usually ends with a line break; it is not
    // part of the comment.
    while (!item.empty() && (item.back() == '\n' || item.back() == '\r')) item.pop_back();
    if (item.empty()) {
        app.dialogs.message("Nothing to Paste", "", Buttons::OK, Icon::Exclamation);
        return;
    }
    offerToStoreWord(app);
    DictionaryStore& store = app.store;
    const std::vector<std::string> parts = text::split(item, '|');
    const bool valid = isDirectionLetter(parts[0]);
    const bool complete = parts.size() >= static_cast<std::size_t>(FieldCount);
    const int pasted =
        dictionaryHasNoWords(store) ? 0 : std::clamp(store.currentIndex, -1, store.lastIndex) + 1;
    UndoStep step(app.history, store, "Paste word " + std::to_string(pasted), pasted);
    if (dictionaryHasNoWords(store)) {
        // An empty dictionary has no word to copy after: a word pasted into it is its first
        // word, and an invalid one changes nothing.
        if (!valid) {
            app.dialogs.message("Invalid Paste Item", "", Buttons::OK, Icon::Exclamation);
            return;
        }
        if (!complete) throw RunError(SubscriptOutOfRange);
        store.lastIndex = 0;
        store.currentIndex = 0;
    } else {
        insertRow(app);
        if (!valid || !complete) {
            // Checked only after the row was opened: the inserted copy stays, and it is the
            // word on show that the next command acts on.
            store.isChanged = true;
            app.renderWord(app);
            if (valid) throw RunError(SubscriptOutOfRange); // too few fields
            app.dialogs.message("Invalid Paste Item", "", Buttons::OK, Icon::Exclamation);
            return;
        }
    }
    for (int f = 0; f < FieldCount; ++f)
        store.setField(store.currentIndex, f, parts[static_cast<std::size_t>(f)]);
    store.isChanged = true;
    app.renderWord(app);
}

void insertWord(App& app) {
    newWord(app, true);
}

} // namespace nebkaro
