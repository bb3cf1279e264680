#pragma once
// The program-wide state and the ports through which the logic reaches the desktop. One App
// lives from start-up to exit and is passed by reference; nothing else is global.
#include "core/command_registry.h"
#include "core/dictionary_store.h"
#include "core/glyph_table.h"
#include "core/ports.h"
#include "core/search_state.h"
#include "core/settings.h"
#include "core/sign_lists.h"
#include "core/sort_field.h"
#include "core/undo_history.h"
#include "core/word_view.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace nebkaro {

constexpr int VersionMajor = 1;
constexpr int VersionMinor = 0;
constexpr int VersionRevision = 0;
std::string versionText(); // "1.0.0"

// The text box that the transliteration typewriter types into.
enum class TypewriterTarget { None, MainTransLit, SearchText, BrowserTrans, ComposerMdC };

// The other windows, as far as the logic needs them. Every call has a harmless default so
// that tests and the command-line tool only provide what they use.
struct WindowHost {
    virtual ~WindowHost() = default;
    // The word view (App::view) changed: the main window shows it again.
    virtual void wordViewChanged() {}
    virtual void setCaption(const std::string&) {}
    // The dictionary information dialog, modal, showing these boxes; its OK button runs
    // confirmHeader, which copies them into the header.
    virtual void showHeaderDialog(const DictionaryHeader& /*boxes*/) {}
    // The About box, modal (start-up).
    virtual void showAboutModal() {}
    // Drops the sign-list browser so that it is built for the current library next time.
    virtual void unloadBrowser() {}
    // Shows the sign-list browser without blocking and returns once it has been hidden. True
    // when the user chose a sign by double-clicking it (App::chosenSign then holds it), false
    // when the browser was closed without a choice.
    virtual bool chooseSignFromBrowser() { return false; }
    // The transliteration typewriter, shown without blocking; it types into typewriterTarget.
    virtual void showTypewriter() {}
    // The printing subsystem's defaults (default printer, print quality).
    virtual void setPrinterDefaults() {}
    // A line for the status bar.
    virtual void showStatus(const std::string&) {}
    // The Sort dialog, modal; it leaves its choices in App::sortDialog.
    virtual void showSortDialog() {}
    // The progress dialog (frmCancelDialog), modeless, with this text in lblProcess. Its
    // Cancel sets App::sortCancelled and hides it.
    virtual void showProgress(const std::string& /*text*/) {}
    virtual void hideProgress() {}
    // The main window's counter label, counting down the passes of the tool-bar sort.
    virtual void showCounter(int) {}
    // Opens the composer for the word that store.newWordPending or store.editPending names and
    // returns when it is closed. The composer leaves store.composeAccepted, layoutText,
    // composedGardiner and the signs in glyphs (placed from 0,0).
    virtual void runComposer() {}
    // The main window's progress bar at this fraction (0..1) of its length. Called once per
    // word a search passes over, so it should only repaint when the drawn length changes.
    virtual void setProgress(float /*fraction*/) {}
    // Shows the Search dialog (its controls are App::search) without blocking and returns
    // once it has been hidden (OK) or closed (Cancel), letting events through meanwhile.
    virtual void showSearchDialogAndWait() {}
    // The text of a typewriter target whose text another window holds (the browser's
    // transliteration box, the composer's code box); nullptr when that window is not open.
    // The main window's transliteration and the Search dialog's txtSearch are App's own.
    virtual std::string* typewriterText(TypewriterTarget) { return nullptr; }
    // The typewriter changed that target's text: its window shows it again.
    virtual void typewriterTextChanged(TypewriterTarget) {}
};

// The sign the browser's user chose last, as the browser leaves it for the composer.
struct ChosenSign {
    std::string code;
    int entry = 0;         // entry number in the sign list
    int pictureNumber = 0; // the browser picture (0..24) that showed it
    SignPicture picture;
};

// The Sort dialog's controls. The dialog is hidden, never unloaded, by OK and Cancel, so its
// choices survive from one sort to the next; the sorts read reverse and caseSensitive.
struct SortDialogState {
    bool loaded = false;
    // The field to sort by; None when the dialog was cancelled.
    SortField sortField = SortField::None;
    // The value of the option button that is on; None while none is. The dialog opens on the
    // field last used, Meaning the first time, so OK sorts at once.
    SortField option = SortField::Meaning;
    bool reverse = false;       // ChkReverse
    bool caseSensitive = false; // chkCase
};

struct App {
    App(Dialogs& d, Clipboard& c, EventPump& e, SignPictures& p, FileWriter& w)
        : dialogs(d), clipboard(c), events(e), pictures(p), files(w) {}
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    // The program folder: the shipped files (Lists, Fonts, Help, the picture libraries) and,
    // unless userHome names another folder, the user's (System, Dictionaries, Images).
    std::filesystem::path home;
    std::filesystem::path userHome;
    // Where settings, dictionaries and saved pictures are read and written.
    std::filesystem::path userFolder() const { return userHome.empty() ? home : userHome; }

    Settings settings;
    DictionaryStore store;
    SignLists lists;
    GlyphTable glyphs;
    WordView view;
    // The changes to the store that Undo can take back.
    UndoHistory history;

    // Results the composer leaves for the main window.
    std::string layoutText;
    std::string composedGardiner;
    // Left by the sign-list browser when the user double-clicks a sign.
    ChosenSign chosenSign;
    // Once the composer has been switched to the Extended library, every stored word is "E".
    bool extendedChosen = false;
    // Insert: the next stored new word goes into the current row.
    bool insertPending = false;
    // The main window's word clipboard: a Cut is running (the Copy it runs deletes the word
    // without asking), and the row copied last.
    bool cutPending = false;
    std::int32_t cutIndex = 0;
    // The seed of the random moves; unset, the time of day to the millisecond. Tests set it
    // to make the draws repeatable.
    std::function<std::uint64_t()> randomSeed;

    // The next load appends; the next save writes a header-only file.
    bool mergeMode = false;
    bool newDictionaryMode = false;

    // What the last load (open or merge) left out or changed: the line of the word whose
    // direction stopped it (0 when it read to the end), and the lines that were not UTF-8.
    int loadStoppedAtLine = 0;
    std::vector<int> loadConvertedLines;
    // The file the dictionary was read from or last saved to; a save that would replace any
    // other existing file asks first. While it holds more words than were loaded (the load
    // stopped early), saving over it asks too.
    std::string dictionaryFile;
    bool dictionaryFileLonger = false;
    // The dictionary as the settings file names it (a name in the Dictionaries folder or a
    // full path), kept for the next start while no dictionary could be opened.
    std::string rememberedDictionary;

    // Set by the progress dialog's Cancel; long loops test it after yielding.
    bool sortCancelled = false;
    SortDialogState sortDialog;

    TypewriterTarget typewriterTarget = TypewriterTarget::MainTransLit;

    // The word field Find searches (5 Meaning, 4 Transliteration, 3 Gardiner, 6 Comment), and
    // whether the Search dialog was left with OK.
    int searchField = FieldMeaning;
    bool searchAccepted = false;
    // The Search dialog's controls, and the criteria Find Next and Find Previous reuse.
    SearchDialogState search;
    SearchCriteria searchCriteria;

    // The program is to end now (without saving), with this status.
    bool endRequested = false;
    int exitCode = 0;

    Dialogs& dialogs;
    Clipboard& clipboard;
    EventPump& events;
    SignPictures& pictures;
    FileWriter& files;

    WindowHost* windows = &noWindows;

    // Drawing the current word and storing the word on show belong to the word view and the
    // editing commands; the file commands reach them through these.
    std::function<void(App&)> renderWord = [](App&) {};
    std::function<void(App&)> storeWord = [](App&) {};
    // Whether the word on show has edits not yet stored, and the question offering to store
    // them before a command leaves the word (the editing commands install both).
    std::function<bool(const App&)> wordEdited = [](const App& a) {
        return a.store.newWordPending || a.store.editPending || a.store.composeAccepted;
    };
    std::function<void(App&)> leaveWord = [](App&) {};
    // Every command of the main window, registered by the parts of the program that run them.
    CommandRegistry commands;

    void requestEnd(int code) {
        endRequested = true;
        exitCode = code;
    }

private:
    inline static WindowHost noWindows;
};

} // namespace nebkaro
