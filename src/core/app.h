#pragma once
// The program-wide state and the ports through which the logic reaches the desktop. One App
// lives from start-up to exit and is passed by reference; nothing else is global.
#include "bulk/search_state.h"
#include "core/dictionary_store.h"
#include "core/glyph_table.h"
#include "core/ports.h"
#include "core/settings.h"
#include "core/sign_lists.h"
#include "core/word_view.h"

#include <filesystem>
#include <functional>
#include <string>

namespace nebkaro {

constexpr int VersionMajor = 1;
constexpr int VersionMinor = 0;
constexpr int VersionRevision = 0;
std::string versionText(); // "1.0.0"

// The text box that the transliteration typewriter types into.
enum class TypewriterTarget { None, MainTransLit, SearchText, BrowserTrans, ComposerMdC };

// The other windows, as far as the logic needs them. Every call has a harmless default so
// that tests and the command-line tool only provide what they use.
struct Windows {
    virtual ~Windows() = default;
    // The word view (App::view) changed: the main window shows it again.
    virtual void wordViewChanged() {}
    virtual void setCaption(const std::string&) {}
    // The dictionary information dialog, modal, showing these boxes; its OK button runs
    // ConfirmHeader, which copies them into the header.
    virtual void showHeaderDialog(const DictionaryHeader& /*boxes*/) {}
    // The About box, modal (start-up).
    virtual void showAboutModal() {}
    // Drops the sign-list browser so that it is built for the current library next time.
    virtual void unloadBrowser() {}
    // The printing subsystem's defaults (default printer, print quality).
    virtual void setPrinterDefaults() {}
    // A line for the status bar.
    virtual void showStatus(const std::string&) {}
    // The main window's progress bar at this fraction (0..1) of its length. Called once per
    // word a search passes over, so it should only repaint when the drawn length changes.
    virtual void setProgress(float /*fraction*/) {}
    // Shows the Search dialog (its controls are App::search) without blocking and returns
    // once it has been hidden (OK) or closed (Cancel), letting events through meanwhile.
    virtual void showSearchDialogAndWait() {}
    // The text of a typewriter target whose text another window holds (the browser's
    // transliteration box, the composer's code box); nullptr when that window is not open.
    // The main window's TransLitTxt and the Search dialog's txtSearch are App's own.
    virtual std::string* typewriterText(TypewriterTarget) { return nullptr; }
    // The typewriter changed that target's text: its window shows it again.
    virtual void typewriterTextChanged(TypewriterTarget) {}
};

struct App {
    App(Dialogs& d, Clipboard& c, EventPump& e, SignPictures& p, FileWriter& w)
        : dialogs(d), clipboard(c), events(e), pictures(p), files(w) {}
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    // The program folder: System, Lists, Dictionaries, Images and the picture libraries.
    std::filesystem::path home;

    Settings settings;
    DictionaryStore store;
    SignLists lists;
    GlyphTable glyphs;
    WordView view;

    // Results the composer leaves for the main window.
    std::string layoutText;
    std::string composedGardiner;
    // Once the composer has been switched to the Extended library, every stored word is "E".
    bool extendedChosen = false;
    // Insert: the next stored new word goes into the current row.
    bool insertPending = false;

    // The next load appends; the next save writes a header-only file.
    bool mergeMode = false;
    bool newDictionaryMode = false;

    // Set by the progress dialog's Cancel; long loops test it after yielding.
    bool sortCancelled = false;

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

    Windows* windows = &noWindows;

    // Drawing the current word and storing the word on show belong to the word view and the
    // editing commands; the file commands reach them through these.
    std::function<void(App&)> renderWord = [](App&) {};
    std::function<void(App&)> storeWord = [](App&) {};

    void requestEnd(int code) {
        endRequested = true;
        exitCode = code;
    }

private:
    inline static Windows noWindows;
};

} // namespace nebkaro
