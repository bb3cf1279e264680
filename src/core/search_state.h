#pragma once
// What a search remembers between commands: the criteria of the last Find (Find Next and Find
// Previous reuse them) and the controls of the Search dialog, which is hidden, not closed, on
// OK so that its entries are there for the next Find.
#include <string>

namespace nebkaro {

struct SearchCriteria {
    // The search text, prepared: "/" became "*", blanks removed, upper-cased unless the
    // search is case-sensitive, variant letters cut when variants are ignored.
    std::string pattern;
    bool exact = false;         // "Exact match"
    bool exactWord = false;     // "Exact word"
    bool hasWildcards = false;  // the pattern holds "*" or "?"
    bool caseSensitive = false; // "Case sensitive"
    bool ignoreVariants = false;
};

// The Search dialog's controls as data. The window shows them; the commands read them.
struct SearchDialogState {
    // Loaded: created and not cancelled since. Visible: shown (Find is waiting for it).
    bool loaded = false;
    bool visible = false;
    // A Find is waiting for the dialog to be hidden.
    bool waiting = false;

    std::string searchText;
    // The chosen option button, as the field it searches: 5 Meaning, 4 Transliteration,
    // 3 Gardiner's notation, 6 Comment; 2, the layout, for a search by signs.
    int option = 5;
    bool exactChecked = false;
    bool exactWordChecked = false;
    bool caseChecked = false;
    bool ignoreVariantsChecked = false;
    bool ignoreVariantsEnabled = false;
    bool typewriterEnabled = false;
    // txtSearch in the Transliteration font (size 10, blue) rather than the dialog's own.
    bool transliterationFont = false;
};

} // namespace nebkaro
