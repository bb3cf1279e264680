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

void SearchDialogLoad(App& app) {
    app.search = SearchDialogState{};
    app.search.loaded = true;
    app.typewriterTarget = TypewriterTarget::SearchText;
    app.searchAccepted = false;
    SearchChooseOption(app, isSearchField(app.searchField) ? app.searchField : FieldMeaning);
}

void SearchTextFocused(App& app) {
    app.typewriterTarget = TypewriterTarget::SearchText;
}

void SearchChooseOption(App& app, int field) {
    if (!isSearchField(field)) return;
    SearchDialogState& d = app.search;
    // Case carries meaning in plain-letter transliteration (h and H, s and S, t and T), so
    // that field starts case-sensitive and the others start as they were before it.
    if (field == FieldTranslit && d.option != FieldTranslit) d.chkCase = true;
    if (field != FieldTranslit && d.option == FieldTranslit) d.chkCase = false;
    d.option = field;
    if (field == FieldTranslit) {
        d.transliterationFont = true;
        d.cmdTypewriterEnabled = true;
        d.txtSearch = PlainFromScholarly(d.txtSearch);
        return;
    }
    d.transliterationFont = false;
    // Signs may be named by their phonetic values, which the typewriter types.
    d.cmdTypewriterEnabled = field == FieldLayout;
    d.chkIgnoreVariantsEnabled = field == FieldGardiner || field == FieldLayout;
}

void SearchTextChanged(App& app, const std::string& text) {
    app.search.txtSearch = app.search.option == FieldTranslit ? PlainFromScholarly(text) : text;
}

void SearchSetExact(App& app, bool on) {
    app.search.ChkExact = on;
    if (on) app.search.chkExactWord = false;
}

void SearchSetExactWord(App& app, bool on) {
    app.search.chkExactWord = on;
    if (on) app.search.ChkExact = false;
}

bool SearchOk(App& app) {
    if (app.search.txtSearch.empty()) {
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

void SearchCancel(App& app) {
    app.searchAccepted = false;
    const bool waiting = app.search.waiting;
    app.search = SearchDialogState{};
    app.search.waiting = waiting;
}

int SearchDialogWidth(int requested) {
    return std::max(requested, SearchDialogMinWidth);
}

int SearchTextWidth(int dialogWidth) {
    return dialogWidth - 400;
}

} // namespace nebkaro
