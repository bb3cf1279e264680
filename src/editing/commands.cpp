#include "editing/commands.h"

#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/startup.h"
#include "core/text.h"
#include "display/render.h"
#include "display/zoom.h"
#include "editing/navigation.h"
#include "editing/undo.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"
#include "translit/unicode_translit.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace nebkaro {

namespace {

using C = CommandId;

// A change of direction needs a word to turn; the word is stored by SetDirection.
void turnWord(App& app, FlipMode mode, bool markEdited) {
    // The word turned is the stored word on show, not a new word that waits to be stored.
    if (app.store.newWordPending) OfferToStoreWord(app);
    if (!WordOnShow(app)) {
        ReportNoWordOnShow(app);
        return;
    }
    SetDirection(app, mode);
    // Only Word > Flip > Left counts the word as being edited afterwards.
    if (markEdited) app.store.editPending = true;
    app.renderWord(app);
}

// The commands this library runs itself; false for the others.
// The transliteration box as other programs and printed grammars write it: nTr aA gives
// nṯr ꜥꜣ.
void copyTranslitUnicode(App& app) {
    if (app.view.TransLitTxt.empty()) {
        app.dialogs.message("The word on show has no transliteration to copy.",
                            "Copy transliteration as Unicode", Buttons::OK, Icon::Exclamation);
        return;
    }
    app.clipboard.clear();
    app.clipboard.setText(ScholarlyFromPlain(app.view.TransLitTxt));
}

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
        turnWord(app, FlipMode::Invert, false);
        return true;
    case C::DirectionLeft:
        turnWord(app, FlipMode::Left, true);
        return true;
    case C::DirectionRight:
        turnWord(app, FlipMode::Right, false);
        return true;
    case C::DirectionInvert:
        turnWord(app, FlipMode::Invert, false);
        return true;
    case C::AboutDictionary:
        app.windows->showHeaderDialog(app.store.header);
        return true;
    case C::CopyTranslitUnicode:
        copyTranslitUnicode(app);
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
        {C::NewDictionary, "NewDictionary", true, "Start a new, empty dictionary"},
        {C::OpenDictionary, "OpenDictionary", true, "Open a dictionary file"},
        {C::MergeDictionary, "MergeDictionary", true,
         "Add the words of another dictionary file to this one"},
        {C::SaveDictionary, "SaveDictionary", true, "Save the dictionary"},
        {C::SaveDictionaryAs, "SaveDictionaryAs", true, "Save the dictionary under another name"},
        {C::PrintDictionary, "PrintDictionary", false,
         "Print the dictionary, or some of its words"},
        {C::PrintWord, "PrintWord", false, "Put the word on show on the page being collected"},
        {C::FormFeed, "FormFeed", false, "Print the page of collected words"},
        {C::PrintMultiple, "PrintMultiple", false, "Print several words, chosen by their numbers"},
        {C::Quit, "Quit", true, "End the program"},
        {C::First, "First", true, "Go to the first word"},
        {C::Previous, "Previous", true, "Go to the previous word"},
        {C::Next, "Next", true, "Go to the next word"},
        {C::Last, "Last", true, "Go to the last word"},
        {C::Go, "Go", true, "Go to the word whose number is typed beside the button"},
        {C::RandomWord, "RandomWord", true, "Show a word chosen at random"},
        {C::NewWord, "NewWord", true, "Compose a new word after the last one"},
        {C::InsertWord, "InsertWord", true, "Compose a new word before the word on show"},
        {C::EditWord, "EditWord", true, "Change the signs of the word on show in the composer"},
        {C::StoreWord, "StoreWord", true, "Keep the edited texts of the word in the dictionary"},
        {C::DeleteWord, "DeleteWord", true, "Delete the word on show"},
        {C::DuplicateWord, "DuplicateWord", true, "Add a copy of the word on show"},
        {C::CutWord, "CutWord", true, "Copy the word on show and delete it"},
        {C::CopyWord, "CopyWord", true, "Copy the word on show"},
        {C::PasteWord, "PasteWord", true, "Insert the copied word before the word on show"},
        {C::FlipWord, "FlipWord", true, "Turn the signs of the word to face the other way"},
        {C::DirectionLeft, "DirectionLeft", true, "Make the signs of the word face left"},
        {C::DirectionRight, "DirectionRight", true, "Make the signs of the word face right"},
        {C::DirectionInvert, "DirectionInvert", true,
         "Turn the signs of the word to face the other way"},
        {C::ShowBorders, "ShowBorders", false, "Frame every sign of the word"},
        {C::CopyWordImage, "CopyWordImage", false, "Copy the picture of the word"},
        {C::SaveWordImage, "SaveWordImage", false, "Save the picture of the word as a file"},
        {C::PasteImageToPaint, "PasteImageToPaint", false,
         "Open the picture of the word in the desktop's picture program"},
        {C::CopyTranslitUnicode, "CopyTranslitUnicode", true,
         "Copy the transliteration in scholarly letters"},
        {C::Find, "Find", false, "Find words by their texts or signs"},
        {C::FindNext, "FindNext", false, "Find the next word that matches"},
        {C::FindPrevious, "FindPrevious", false, "Find the previous word that matches"},
        {C::SortButton, "SortButton", false, "Sort the dictionary"},
        {C::SortMenu, "SortMenu", false, "Sort the dictionary, with progress and Cancel"},
        {C::SortGardiner, "SortGardiner", false, "Sort the dictionary by Gardiner's notation"},
        {C::Shuffle, "Shuffle", false, "Put the words in a random order"},
        {C::FlipAllLeft, "FlipAllLeft", false, "Make the signs of every word face left"},
        {C::FlipAllRight, "FlipAllRight", false, "Make the signs of every word face right"},
        {C::FlipAllInvert, "FlipAllInvert", false, "Turn the signs of every word"},
        {C::Typewriter, "Typewriter", false, "Type transliteration letters by clicking"},
        {C::TransTable, "TransTable", false, "Show the transliteration letters and their codes"},
        {C::TransGuess, "TransGuess", false, "Guess the transliteration from the signs"},
        {C::Options, "Options", false, "Change the settings"},
        {C::AboutProgram, "AboutProgram", false, "About the program"},
        {C::AboutDictionary, "AboutDictionary", true, "The information about the dictionary"},
        {C::Help, "Help", false, "This page"},
        {C::Undo, "Undo", true, "Take back the last change to the dictionary"},
        {C::Redo, "Redo", true, "Make again the change last taken back"},
        {C::ZoomIn, "ZoomIn", true, "Draw the word larger"},
        {C::ZoomOut, "ZoomOut", true, "Draw the word smaller"},
        {C::ZoomReset, "ZoomReset", true, "Draw the word at its actual size"},
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
                 item("mnuCopyTranslitUnicode", "Copy transliteration as Unicode",
                      C::CopyTranslitUnicode),
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
                 item("mnuHelp", "&Help", C::Help, true),
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
                 item("mnuFieldCopyTranslitUnicode", "Copy transliteration as Unicode",
                      C::CopyTranslitUnicode),
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
        {"F1", C::Help, S::Window},
    };
    return shortcuts;
}

std::vector<Shortcut> ShortcutsOf(CommandId id) {
    std::vector<Shortcut> out;
    for (const Shortcut& s : Shortcuts())
        if (s.command == id) out.push_back(s);
    return out;
}

namespace {

// A menu caption as it reads: the access-letter marks dropped, "&&" kept as one "&".
std::string readable(std::string_view caption) {
    std::string out;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        out += caption[i];
    }
    return out;
}

void menuPaths(const MenuItem& m, const std::string& above, CommandId id,
               std::vector<std::string>& out) {
    const std::string path =
        above.empty() ? readable(m.caption) : above + " > " + readable(m.caption);
    if (m.command && *m.command == id) out.push_back(path);
    for (const MenuItem& c : m.children) menuPaths(c, path, id, out);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string out;
    for (const std::string& p : parts) out += (out.empty() ? "" : "<br>") + text::escapeHtml(p);
    return out;
}

void replaceBlock(std::string& page, std::string_view name, const std::string& body) {
    const std::string open = "<!-- " + std::string(name) + " -->";
    const std::string close = "<!-- /" + std::string(name) + " -->";
    const std::size_t from = page.find(open);
    const std::size_t to = from == std::string::npos ? from : page.find(close, from);
    if (to == std::string::npos) {
        page += "\n" + open + "\n" + body + close + "\n";
        return;
    }
    page.replace(from + open.size(), to - from - open.size(), "\n" + body);
}

} // namespace

std::string CommandListHtml() {
    std::string html = "<table class=\"commands\">\n"
                       "<tr><th>Command</th><th>Menu</th><th>Button</th><th>Tool bar</th>"
                       "<th>Keys</th></tr>\n";
    for (const CommandInfo& c : AllCommands()) {
        std::vector<std::string> menus, buttons, tools, keys;
        for (const MenuItem& top : MenuBar()) menuPaths(top, "", c.id, menus);
        for (const MenuItem& item : PopupMenu().children)
            if (item.command == c.id) menus.push_back("Right click on the word > " + item.caption);
        for (const ViewButton& b : WordViewButtons())
            if (b.command == c.id) buttons.emplace_back(b.caption);
        for (const ToolButton& t : ToolBar())
            if (t.command == c.id) tools.emplace_back(t.toolTip);
        for (const Shortcut& s : ShortcutsOf(c.id))
            keys.push_back(std::string(s.keys) + (s.scope == ShortcutScope::DisplayArea
                                                      ? " (on the word's picture)"
                                                      : ""));
        html += "<tr><td>" + text::escapeHtml(c.help) + "</td><td>" + joined(menus) + "</td><td>" +
                joined(buttons) + "</td><td>" + joined(tools) + "</td><td>" + joined(keys) +
                "</td></tr>\n";
    }
    return html + "</table>\n";
}

std::string LetterCodeHtml() {
    std::string html = "<table class=\"letters\">\n"
                       "<tr><th>Type</th><th>to write</th></tr>\n";
    // Every plain letter the font draws as another letter.
    for (char c = 'A'; c <= 'z'; ++c) {
        if (!std::isalpha(static_cast<unsigned char>(c))) continue;
        const std::string scholarly = ScholarlyFromPlain(std::string(1, c));
        if (scholarly == std::string(1, c)) continue;
        html += std::string("<tr><td><code>") + c + "</code></td><td class=\"scholarly\">" +
                text::escapeHtml(scholarly) + "</td></tr>\n";
    }
    return html + "</table>\n";
}

std::string HelpPage(std::string_view page) {
    std::string out(page);
    replaceBlock(out, "commands", CommandListHtml());
    replaceBlock(out, "letters", LetterCodeHtml());
    return out;
}

} // namespace nebkaro
