#pragma once
// The Search dialog's behaviour on its model (App::search): loading, the option buttons and
// check boxes, OK and Cancel, and its width rule. The Qt window forwards its events here and
// shows the result.
#include <string>

namespace nebkaro {

struct App;

// Creating the dialog: fresh entries, the typewriter aimed at txtSearch, searchAccepted false.
// The option of the field searched last is chosen, with its effects.
void searchDialogLoad(App& app);
// txtSearch took the focus: the typewriter types into it again.
void searchTextFocused(App& app);
// One of the four option buttons, by the field it searches (5, 4, 3 or 6). Meaning and
// Comment use the dialog's font and disable the typewriter and Ignore Variants; Gardiner's
// notation does the same and then enables Ignore Variants; Transliteration uses the
// Transliteration font and enables the typewriter, leaving Ignore Variants as it was, checks
// Case sensitive (leaving it for another field unchecks it) and turns scholarly letters
// already in the search text into plain ones.
void searchChooseOption(App& app, int field);
// The search text was typed, pasted or typewritten. For the Transliteration field scholarly
// letters become the plain ones the words are stored in; the window shows txtSearch again
// when it differs from what was typed.
void searchTextChanged(App& app, const std::string& text);
// "Exact match" and "Exact word" exclude each other: checking one clears the other.
void searchSetExact(App& app, bool on);
void searchSetExactWord(App& app, bool on);
// OK: refuses an empty search text with the "Null String" message (false; the dialog stays
// open); otherwise accepts, records the field, gives the typewriter back to the main window's
// transliteration box and hides the dialog (true).
bool searchOk(App& app);
// Cancel: not accepted, and the dialog is closed; its entries are gone.
void searchCancel(App& app);

constexpr int SearchDialogMinWidth = 4488; // twips
// The dialog's width after a resize to `requested` twips, and the search box's width in it.
int searchDialogWidth(int requested);
int searchTextWidth(int dialogWidth);

} // namespace nebkaro
