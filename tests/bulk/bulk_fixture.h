#pragma once
// An App over the scripted fakes, wired to the real word renderer and Store, with a window stand-in
// that plays the user of the Sort and Search dialogs and records the progress dialog.
#include "bulk/sort_dialog_model.h"
#include "core/app.h"
#include "display/render.h"
#include "editing/word_editing.h"
#include "fakes.h"

#include <functional>
#include <string>
#include <vector>

namespace nebkaro::testing {

using Strings = std::vector<std::string>;

struct RecordingWindows : WindowHost {
    std::function<void()> onSortDialog;   // unset: the dialog is cancelled
    std::function<void()> onSearchDialog; // plays the Search dialog's user while Find waits
    std::vector<std::string> progress;    // "show:<text>" and "hide", in order
    void showSortDialog() override {
        if (onSortDialog) onSortDialog();
    }
    void showSearchDialogAndWait() override {
        if (onSearchDialog) onSearchDialog();
    }
    void showProgress(const std::string& text) override { progress.push_back("show:" + text); }
    void hideProgress() override { progress.push_back("hide"); }
};

struct BulkApp {
    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    CountingEvents events;
    FakeSignPictures pictures;
    MemoryFileWriter files;
    App app{dialogs, clipboard, events, pictures, files};
    RecordingWindows windows;

    BulkApp() {
        app.windows = &windows;
        app.renderWord = [](App& a) { renderWord(a); };
        app.storeWord = [](App& a) { storeCurrentWord(a); };
        app.store.dictionaryPath = "/dictionaries/Words.nkd";
    }

    void setWords(const std::vector<WordRecord>& words) {
        for (std::size_t i = 0; i < words.size(); ++i)
            app.store.setRow(static_cast<int>(i), words[i]);
        app.store.lastIndex = static_cast<int>(words.size()) - 1;
    }
    // Words that differ only in one field.
    void setField(int field, const std::vector<std::string>& values) {
        std::vector<WordRecord> words(values.size(), {"L", "B", "", "G", "t", "m", "c"});
        for (std::size_t i = 0; i < values.size(); ++i) words[i][field] = values[i];
        setWords(words);
    }
    std::vector<std::string> column(int field) const {
        std::vector<std::string> out;
        for (int w = 0; w <= app.store.lastIndex; ++w) out.push_back(app.store.field(w, field));
        return out;
    }

    // The user picks an option and check boxes in the Sort dialog, then OK.
    void choose(SortField option, bool reverse = false, bool caseSensitive = false) {
        windows.onSortDialog = [=, this] {
            app.sortDialog.option = option;
            app.sortDialog.reverse = reverse;
            app.sortDialog.caseSensitive = caseSensitive;
            sortDialogOk(app);
        };
    }
};

} // namespace nebkaro::testing
