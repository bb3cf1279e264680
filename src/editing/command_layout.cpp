#include "editing/command_layout.h"

#include "core/app.h"

#include <algorithm>

namespace nebkaro {

using C = CommandId;

std::vector<ToolButton> toolBarButtons(const CommandRegistry& commands) {
    std::vector<ToolButton> buttons;
    for (const Command* c : commands.all())
        if (c->tool)
            buttons.push_back({c->tool->index, "cmdTool" + std::to_string(c->tool->index),
                               c->tool->toolTip, c->id, c->tool->icon});
    std::sort(buttons.begin(), buttons.end(),
              [](const ToolButton& a, const ToolButton& b) { return a.index < b.index; });
    return buttons;
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

MenuItem wordMenu() {
    MenuItem showBorder = item("mnuShowBorder", "Show Borders", C::ShowBorders, true);
    showBorder.checkable = true;
    // Copy as Unicode goes with the other ways a word's signs leave the program.
    MenuItem copyUnicode = item("mnuCopyUnicode", "Copy as &Unicode", C::CopyUnicode);
    copyUnicode.toolTip = "Copy the signs of the word as Unicode hieroglyphs";
    return menu("mnuWord", "&Word",
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
                    copyUnicode,
                    item("mnuCopyTranslitUnicode", "Copy transliteration as Unicode",
                         C::CopyTranslitUnicode),
                    item("mnuFind", "&Find", C::Find, true),
                    item("mnuFindNext", "Find Ne&xt", C::FindNext),
                    item("mnuFindPrevious", "Find Previous", C::FindPrevious),
                    item("Random", "&Random", C::RandomWord, true),
                });
}

std::vector<MenuItem> buildMenuBar() {
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
        wordMenu(),
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

const std::vector<MenuItem>& menuBarItems() {
    static const std::vector<MenuItem> bar = buildMenuBar();
    return bar;
}

std::string currentCaption(const App& app, CommandId id, const std::string& caption) {
    if (id == C::Undo && app.history.canUndo()) return "&Undo " + app.history.undoName();
    if (id == C::Redo && app.history.canRedo()) return "&Redo " + app.history.redoName();
    return caption;
}

const MenuItem& popupMenuItems() {
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

const std::vector<ViewButton>& wordViewButtons() {
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

std::vector<Shortcut> allShortcuts(const CommandRegistry& commands) {
    std::vector<Shortcut> out;
    for (const Command* c : commands.all())
        for (const Key& k : c->keys) out.push_back({k.keys, c->id, k.scope});
    return out;
}

} // namespace nebkaro
