#include "bulk/search_dialog.h"

#include "core/app.h"
#include "translit/unicode_translit.h"

#include <algorithm>

namespace nebkaro {

namespace {
bool isSearchField(int f) {
    return f == FieldMeaning || f == FieldTranslit || f == FieldGardiner || f == FieldComment ||
           f == FieldLayout;
}
} // namespace

void searchDialogLoad(App& app) {
    app.search = SearchDialogState{};
    app.search.loaded = true;
    app.typewriterTarget = TypewriterTarget::SearchText;
    app.searchAccepted = false;
    searchChooseOption(app, isSearchField(app.searchField) ? app.searchField : FieldMeaning);
}

void searchTextFocused(App& app) {
    app.typewriterTarget = TypewriterTarget::SearchText;
}

void searchChooseOption(App& app, int field) {
    if (!isSearchField(field)) return;
    SearchDialogState& d = app.search;
    // Case carries meaning in plain-letter transliteration (h and H, s and S, t and T), so
    // that field starts case-sensitive and the others start as they were before it.
    if (field == FieldTranslit && d.option != FieldTranslit) d.caseChecked = true;
    if (field != FieldTranslit && d.option == FieldTranslit) d.caseChecked = false;
    d.option = field;
    if (field == FieldTranslit) {
        d.transliterationFont = true;
        d.typewriterEnabled = true;
        d.searchText = plainFromScholarly(d.searchText);
        return;
    }
    d.transliterationFont = false;
    // Signs may be named by their phonetic values, which the typewriter types.
    d.typewriterEnabled = field == FieldLayout;
    d.ignoreVariantsEnabled = field == FieldGardiner || field == FieldLayout;
}

void searchTextChanged(App& app, const std::string& text) {
    app.search.searchText = app.search.option == FieldTranslit ? plainFromScholarly(text) : text;
}

void searchSetExact(App& app, bool on) {
    app.search.exactChecked = on;
    if (on) app.search.exactWordChecked = false;
}

void searchSetExactWord(App& app, bool on) {
    app.search.exactWordChecked = on;
    if (on) app.search.exactChecked = false;
}

bool searchOk(App& app) {
    if (app.search.searchText.empty()) {
        app.dialogs.message("You must write something in the search box", "Null String",
                            Buttons::OK, Icon::Exclamation);
        return false;
    }
    app.searchAccepted = true;
    if (isSearchField(app.search.option)) app.searchField = app.search.option;
    app.typewriterTarget = TypewriterTarget::MainTransLit;
    app.search.visible = false;
    return true;
}

void searchCancel(App& app) {
    app.searchAccepted = false;
    const bool waiting = app.search.waiting;
    app.search = SearchDialogState{};
    app.search.waiting = waiting;
}

int searchDialogWidth(int requested) {
    return std::max(requested, SearchDialogMinWidth);
}

int searchTextWidth(int dialogWidth) {
    return dialogWidth - 400;
}

} // namespace nebkaro
