#include "editing/commands.h"

#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/startup.h"
#include "display/render.h"
#include "display/zoom.h"
#include "editing/navigation.h"
#include "editing/undo.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"

#include <algorithm>
#include <stdexcept>

namespace nebkaro {

namespace {

using C = CommandId;

// A change of direction needs a word to turn; the word is stored by SetDirection.
void turnWord(App& app, std::int16_t wanted, bool markEdited) {
    // The word turned is the stored word on show, not a new word that waits to be stored.
    if (app.store.newWordPending) OfferToStoreWord(app);
    if (!WordOnShow(app)) {
        ReportNoWordOnShow(app);
        return;
    }
    SetDirection(app, wanted);
    // Only Word > Flip > Left counts the word as being edited afterwards.
    if (markEdited) app.store.editPending = true;
    app.renderWord(app);
}

// The commands this library runs itself; false for the others.
bool runBuiltIn(App& app, CommandId id) {
    switch (id) {
    case C::NewDictionary:
        NewDictionaryCommand(app);
        return true;
    case C::OpenDictionary:
        OpenCommand(app);
        return true;
    case C::MergeDictionary: {
        // The word on show is left first, so that storing it is a step of its own.
        app.leaveWord(app);
        UndoStep step(app.history, app.store, "Merge", app.store.lastIndex + 1);
        MergeCommand(app);
        return true;
    }
    case C::SaveDictionary:
        SaveDictionary(app);
        return true;
    case C::SaveDictionaryAs:
        SaveAsCommand(app);
        return true;
    case C::Quit:
        QuitCommand(app);
        return true;
    case C::First:
        First(app);
        return true;
    case C::Previous:
        Previous(app);
        return true;
    case C::Next:
        Next(app);
        return true;
    case C::Last:
        Last(app);
        return true;
    case C::Go:
        Go(app, app.view.txtNumber);
        return true;
    case C::RandomWord:
        Random(app);
        return true;
    case C::NewWord:
        New(app);
        return true;
    case C::InsertWord:
        Insert(app);
        return true;
    case C::EditWord:
        Edit(app);
        return true;
    case C::StoreWord:
        StoreCommand(app);
        return true;
    case C::DeleteWord:
        Delete(app);
        return true;
    case C::DuplicateWord:
        Duplicate(app);
        return true;
    case C::CutWord:
        Cut(app);
        return true;
    case C::CopyWord:
        Copy(app);
        return true;
    case C::PasteWord:
        Paste(app);
        return true;
    // The Flip button redraws too: the user expects to see the word turned at once.
    case C::FlipWord:
        turnWord(app, 2, false);
        return true;
    case C::DirectionLeft:
        turnWord(app, 0, true);
        return true;
    case C::DirectionRight:
        turnWord(app, 1, false);
        return true;
    case C::DirectionInvert:
        turnWord(app, 2, false);
        return true;
    case C::AboutDictionary:
        app.windows->showHeaderDialog(app.store.header);
        return true;
    case C::Undo:
        UndoCommand(app);
        return true;
    case C::Redo:
        RedoCommand(app);
        return true;
    case C::ZoomIn:
        ZoomIn(app);
        return true;
    case C::ZoomOut:
        ZoomOut(app);
        return true;
    case C::ZoomReset:
        ZoomReset(app);
        return true;
    default:
        return false;
    }
}

const std::vector<CommandInfo>& commandTable() {
    static const std::vector<CommandInfo> table = {
        {C::NewDictionary, "NewDictionary", true},
        {C::OpenDictionary, "OpenDictionary", true},
        {C::MergeDictionary, "MergeDictionary", true},
        {C::SaveDictionary, "SaveDictionary", true},
        {C::SaveDictionaryAs, "SaveDictionaryAs", true},
        {C::PrintDictionary, "PrintDictionary", false},
        {C::PrintWord, "PrintWord", false},
        {C::FormFeed, "FormFeed", false},
        {C::PrintMultiple, "PrintMultiple", false},
        {C::Quit, "Quit", true},
        {C::First, "First", true},
        {C::Previous, "Previous", true},
        {C::Next, "Next", true},
        {C::Last, "Last", true},
        {C::Go, "Go", true},
        {C::RandomWord, "RandomWord", true},
        {C::NewWord, "NewWord", true},
        {C::InsertWord, "InsertWord", true},
        {C::EditWord, "EditWord", true},
        {C::StoreWord, "StoreWord", true},
        {C::DeleteWord, "DeleteWord", true},
        {C::DuplicateWord, "DuplicateWord", true},
        {C::CutWord, "CutWord", true},
        {C::CopyWord, "CopyWord", true},
        {C::PasteWord, "PasteWord", true},
        {C::FlipWord, "FlipWord", true},
        {C::DirectionLeft, "DirectionLeft", true},
        {C::DirectionRight, "DirectionRight", true},
        {C::DirectionInvert, "DirectionInvert", true},
        {C::ShowBorders, "ShowBorders", false},
        {C::CopyWordImage, "CopyWordImage", false},
        {C::SaveWordImage, "SaveWordImage", false},
        {C::PasteImageToPaint, "PasteImageToPaint", false},
        {C::Find, "Find", false},
        {C::FindNext, "FindNext", false},
        {C::FindPrevious, "FindPrevious", false},
        {C::SortButton, "SortButton", false},
        {C::SortMenu, "SortMenu", false},
        {C::SortGardiner, "SortGardiner", false},
        {C::Shuffle, "Shuffle", false},
        {C::FlipAllLeft, "FlipAllLeft", false},
        {C::FlipAllRight, "FlipAllRight", false},
        {C::FlipAllInvert, "FlipAllInvert", false},
        {C::Typewriter, "Typewriter", false},
        {C::TransTable, "TransTable", false},
        {C::TransGuess, "TransGuess", false},
        {C::Options, "Options", false},
        {C::AboutProgram, "AboutProgram", false},
        {C::AboutDictionary, "AboutDictionary", true},
        {C::Undo, "Undo", true},
        {C::Redo, "Redo", true},
        {C::ZoomIn, "ZoomIn", true},
        {C::ZoomOut, "ZoomOut", true},
        {C::ZoomReset, "ZoomReset", true},
    };
    return table;
}

void report(App& app, const std::string& text, Icon icon) {
    app.dialogs.message(text, "", Buttons::OK, icon);
}

} // namespace

const std::vector<CommandInfo>& AllCommands() {
    return commandTable();
}

const CommandInfo& Info(CommandId id) {
    const auto& table = commandTable();
    const auto it =
        std::find_if(table.begin(), table.end(), [id](const CommandInfo& c) { return c.id == id; });
    if (it == table.end()) throw std::out_of_range("unknown command");
    return *it;
}

void InstallCommandHandler(App& app, CommandId id, std::function<void(App&)> handler) {
    if (handler)
        app.commandHandlers[id] = std::move(handler);
    else
        app.commandHandlers.erase(id);
}

bool CommandAvailable(const App& app, CommandId id) {
    if (id == C::Undo) return app.history.canUndo();
    if (id == C::Redo) return app.history.canRedo();
    return app.commandHandlers.count(id) > 0 || Info(id).builtIn;
}

bool RunCommand(App& app, CommandId id) {
    const auto found = app.commandHandlers.find(id);
    if (found == app.commandHandlers.end() && !Info(id).builtIn) return false;
    // A copy: the handler may install or remove handlers while it runs.
    const std::function<void(App&)> handler =
        found != app.commandHandlers.end() ? found->second : nullptr;
    try {
        if (handler)
            handler(app);
        else
            runBuiltIn(app, id);
    } catch (const RunError& e) {
        report(app, e.report(), Icon::Critical);
    } catch (const StoreFull& e) {
        report(app, e.what(), Icon::Exclamation);
    } catch (const ProgramFileError& e) {
        // A sign list or transliteration table the program cannot work without.
        report(app, e.message(), Icon::Critical);
        app.requestEnd(1);
    } catch (const std::exception& e) {
        report(app, std::string("The command could not be completed: ") + e.what(), Icon::Critical);
    }
    app.windows->wordViewChanged();
    return true;
}

const std::vector<ToolButton>& ToolBar() {
    static const std::vector<ToolButton> buttons = {
        {0, "cmdTool0", "New Dictionary", C::NewDictionary, "document-new"},
        {1, "cmdTool1", "Open Dictionary", C::OpenDictionary, "document-open"},
        {2, "cmdTool2", "Save Dictionary", C::SaveDictionary, "document-save"},
        {3, "cmdTool3", "Print Dictionary", C::PrintDictionary, "document-print"},
        {4, "cmdTool4", "New Word", C::NewWord, "list-add"},
        {5, "cmdTool5", "Edit Word", C::EditWord, "accessories-text-editor"},
        {6, "cmdTool6", "Duplicate Word", C::DuplicateWord, "edit-copy"},
        {7, "cmdTool7", "Delete Word", C::DeleteWord, "edit-delete"},
        {8, "cmdTool8", "Find Word", C::Find, "edit-find"},
        {9, "cmdTool9", "Find Next", C::FindNext, "go-down"},
        {10, "cmdTool10", "Find Previous", C::FindPrevious, "go-up"},
        {11, "cmdTool11", "Random Word", C::RandomWord, "go-jump"},
        {12, "cmdTool12", "Copy Word Image", C::CopyWordImage, "insert-image"},
        {13, "cmdTool13", "Save Word Image", C::SaveWordImage, "document-save-as"},
        {14, "cmdTool14", "Sort Dictionary", C::SortButton, "view-sort-ascending"},
        {15, "cmdTool15", "Show Typewriter", C::Typewriter, "input-keyboard"},
        {16, "cmdTool16", "Show Transliteration Table", C::TransTable, "accessories-character-map"},
        {17, "cmdTool17", "Options", C::Options, "preferences-system"},
        {18, "cmdTool18", "About", C::AboutProgram, "help-about"},
        {19, "cmdTool19", "Shuffle Dictionary", C::Shuffle, "media-playlist-shuffle"},
    };
    return buttons;
}

const std::vector<std::pair<std::string_view, CommandId>>& ToolKeys() {
    static const std::vector<std::pair<std::string_view, CommandId>> keys = {
        {"NewDic", C::NewDictionary},
        {"Open", C::OpenDictionary},
        {"Save", C::SaveDictionary},
        {"Print", C::PrintDictionary},
        {"New", C::NewWord},
        {"Edit", C::EditWord},
        {"Duplicate", C::DuplicateWord},
        {"Delete", C::DeleteWord},
        {"Find", C::Find},
        {"FindNext", C::FindNext},
        {"FindPrevious", C::FindPrevious},
        {"Random", C::RandomWord},
        {"CopyImage", C::CopyWordImage},
        {"SaveImage", C::SaveWordImage},
        {"Sort", C::SortButton},
        {"Typewriter", C::Typewriter},
        {"ShowTable", C::TransTable},
        {"Options", C::Options},
        {"About", C::AboutProgram},
    };
    return keys;
}

std::optional<CommandId> CommandForKey(std::string_view key) {
    for (const auto& [k, id] : ToolKeys())
        if (k == key) return id;
    return std::nullopt;
}

bool RunKeyedCommand(App& app, std::string_view key) {
    const auto id = CommandForKey(key);
    return id && RunCommand(app, *id);
}

namespace {

MenuItem item(std::string name, std::string caption, CommandId id, bool separatorBefore = false) {
    MenuItem m;
    m.objectName = std::move(name);
    m.caption = std::move(caption);
    m.command = id;
    m.separatorBefore = separatorBefore;
    return m;
}

MenuItem menu(std::string name, std::string caption, std::vector<MenuItem> children,
              bool separatorBefore = false) {
    MenuItem m;
    m.objectName = std::move(name);
    m.caption = std::move(caption);
    m.children = std::move(children);
    m.separatorBefore = separatorBefore;
    return m;
}

std::vector<MenuItem> buildMenuBar() {
    MenuItem showBorder = item("mnuShowBorder", "Show Borders", C::ShowBorders, true);
    showBorder.checkable = true;
    return {
        menu("mnuFile", "&File",
             {
                 item("mnuNewDictionary", "&New", C::NewDictionary),
                 item("mnuOpen", "&Open", C::OpenDictionary),
                 item("mnuMerge", "Merge", C::MergeDictionary),
                 item("mnuSave", "&Save", C::SaveDictionary, true),
                 item("mnuSaveAs", "Save &As", C::SaveDictionaryAs),
                 item("mnuPrint1", "&Print 1", C::PrintWord, true),
                 item("mnuFF", "&Form Feed", C::FormFeed),
                 item("mnuPrintMultiple", "Print &Multiple", C::PrintMultiple),
                 item("mnuQuit", "&Quit", C::Quit, true),
             }),
        menu("mnuEditing", "&Edit",
             {
                 item("mnuUndo", "&Undo", C::Undo),
                 item("mnuRedo", "&Redo", C::Redo),
             }),
        menu("mnuView", "&View",
             {
                 item("mnuZoomIn", "Zoom &In", C::ZoomIn),
                 item("mnuZoomOut", "Zoom &Out", C::ZoomOut),
                 item("mnuZoomReset", "&Actual Size", C::ZoomReset),
             }),
        menu("mnuWord", "&Word",
             {
                 item("mnuNew", "&New", C::NewWord),
                 item("mnuInsert", "&Insert", C::InsertWord),
                 item("mnuEdit", "&Edit", C::EditWord),
                 showBorder,
                 menu("mnuDirection", "Flip",
                      {
                          item("mnuLeft", "Left", C::DirectionLeft),
                          item("mnuRight", "Right", C::DirectionRight),
                          item("mnuFlip", "Invert", C::DirectionInvert),
                      }),
                 item("mnuDuplicate", "&Duplicate", C::DuplicateWord, true),
                 item("mnuDelete", "Delete", C::DeleteWord),
                 item("cmdCut", "Cut", C::CutWord, true),
                 item("mnuCopy", "&Copy", C::CopyWord),
                 item("mnuPaste", "Insert &Paste", C::PasteWord),
                 item("mnuStore", "&Store", C::StoreWord, true),
                 item("mnuCopyGlyphImage", "Copy Glyph Image", C::CopyWordImage, true),
                 item("mnuSaveGlyphImage", "Save &Glyph Image", C::SaveWordImage),
                 item("mnuCopyToPaint", "Paste Glyph Image to MS Paint", C::PasteImageToPaint),
                 item("mnuFind", "&Find", C::Find, true),
                 item("mnuFindNext", "Find Ne&xt", C::FindNext),
                 item("mnuFindPrevious", "Find Previous", C::FindPrevious),
                 item("Random", "&Random", C::RandomWord, true),
             }),
        menu("mnuTools", "&Tools",
             {
                 item("mnuSort", "&Sort", C::SortMenu),
                 item("mnuShuffle", "Shuffle", C::Shuffle),
                 item("mnuSortGardiner", "Sort &Gardiner", C::SortGardiner),
                 menu("mnuChangeAllDir", "Flip All",
                      {
                          item("mnuAllFlip0", "Left", C::FlipAllLeft),
                          item("mnuAllFlip1", "Right", C::FlipAllRight),
                          item("mnuAllFlip2", "Invert", C::FlipAllInvert),
                      }),
                 item("mnuTypewriter", "Typewriter", C::Typewriter, true),
                 item("mnuTransTable", "&Trans Table", C::TransTable),
                 item("mnuOptions", "&Options", C::Options, true),
             }),
        menu("mnuAbout", "&About",
             {
                 item("mnuAboutProgram", "Program", C::AboutProgram),
                 item("mnuAboutDictionary", "Dictionary", C::AboutDictionary),
             }),
    };
}

} // namespace

const std::vector<MenuItem>& MenuBar() {
    static const std::vector<MenuItem> bar = buildMenuBar();
    return bar;
}

std::string CurrentCaption(const App& app, CommandId id, const std::string& caption) {
    if (id == C::Undo && app.history.canUndo()) return "&Undo " + app.history.undoName();
    if (id == C::Redo && app.history.canRedo()) return "&Redo " + app.history.redoName();
    return caption;
}

const MenuItem& PopupMenu() {
    static const MenuItem popup =
        menu("mnuFieldEdit", "FieldEdit",
             {
                 item("mnuFieldEditWord", "Edit Word", C::EditWord),
                 item("mnuFieldDuplicate", "Duplicate", C::DuplicateWord),
                 item("mnuFieldFlip", "Flip", C::DirectionInvert),
                 item("mnuFieldCopyImage", "Copy Image", C::CopyWordImage),
                 item("mnuFieldSaveImage", "Save Image", C::SaveWordImage),
             });
    return popup;
}

const std::vector<ViewButton>& WordViewButtons() {
    static const std::vector<ViewButton> buttons = {
        {"NewCmd", "New", "Create New Word", C::NewWord},
        {"cmdEdit", "Edit", "Edit current word", C::EditWord},
        {"cmdStore", "Store", "Store Current Word in memory", C::StoreWord},
        {"cmdDelete", "Delete", "Delete Cuttent Word", C::DeleteWord},
        {"Duplicatecmd", "Duplicate", "Duplecate Cuttent Word", C::DuplicateWord},
        {"cmdFlip", "Flip", "Invert the direction of the current Word", C::FlipWord},
        {"cmdFirst", "|<--", "Go to first Word", C::First},
        {"cmdPrev", "<--", "Go to previous Word", C::Previous},
        {"cmdNext", "-->", "Go to next Word", C::Next},
        {"cmdLast", "-->|", "Go to last Word", C::Last},
        {"cmdRandom", "Random", "Display a random Word", C::RandomWord},
        {"cmdGo", "Go", "Go to the word whose number is typed beside", C::Go},
        {"cmdSearch", "Find", "Find a Word", C::Find},
        {"cmdSearchNext", "Find Next", "Continue Searching", C::FindNext},
        {"cmdSearchPrevious", "Find Prev", "Continue Searching", C::FindPrevious},
        {"cmdSort", "Sort", "Sort the Dictionary", C::SortButton},
        {"cmdTransGuess", "Guess", "Attempt to guess the tranliteration", C::TransGuess},
        {"cmdTransTable", "Trans Table", "Display the MDC Transliteration table", C::TransTable},
        {"CmdLoad", "Load", "Load a Dictionary", C::OpenDictionary},
        {"cmdSave", "Save", "Save the current dictionary on disk", C::SaveDictionary},
        {"CmdSaveAs", "Save As", "Save the current dictionary on disk and choose a name",
         C::SaveDictionaryAs},
        {"cmdPreferences", "Options", "Show the Option form", C::Options},
        {"cmdAbout", "About", "Show information about the program", C::AboutProgram},
        {"cmdQuit", "Quit", "Terminate the program", C::Quit},
    };
    return buttons;
}

const std::vector<Shortcut>& Shortcuts() {
    using S = ShortcutScope;
    // No Ctrl+G and no Ctrl+M: Ctrl followed by G or M toggles the Gardiner and Meaning boxes.
    static const std::vector<Shortcut> shortcuts = {
        {"Ctrl+O", C::OpenDictionary, S::Window},
        {"Ctrl+Z", C::Undo, S::Window},
        {"Ctrl+Shift+Z", C::Redo, S::Window},
        {"Ctrl++", C::ZoomIn, S::Window},
        {"Ctrl+=", C::ZoomIn, S::Window},
        {"Ctrl+-", C::ZoomOut, S::Window},
        {"Ctrl+0", C::ZoomReset, S::Window},
        {"Ctrl+S", C::SaveDictionary, S::Window},
        {"Ctrl+Shift+S", C::SaveDictionaryAs, S::Window},
        {"Ctrl+Q", C::Quit, S::Window},
        {"Ctrl+N", C::NewWord, S::Window},
        {"Ctrl+F", C::Find, S::Window},
        {"F3", C::FindNext, S::Window},
        {"Shift+F3", C::FindPrevious, S::Window},
        {"PgUp", C::Previous, S::Window},
        {"PgDown", C::Next, S::Window},
        {"Home", C::First, S::DisplayArea},
        {"End", C::Last, S::DisplayArea},
        {"Ctrl+C", C::CopyWord, S::DisplayArea},
        {"Ctrl+X", C::CutWord, S::DisplayArea},
        {"Ctrl+V", C::PasteWord, S::DisplayArea},
        {"Del", C::DeleteWord, S::DisplayArea},
    };
    return shortcuts;
}

} // namespace nebkaro
