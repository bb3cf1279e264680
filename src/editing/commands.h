#pragma once
// Every command of the main window and the ways it is offered: the buttons beside the word,
// the tool bar, the keyed dispatcher, the menu bar, the pop-up menu of the display area and
// the keyboard shortcuts. The window builds its controls from these tables and runs every
// command through RunCommand, which reports a failure instead of letting it escape.
#include "core/app.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

enum class CommandId : int {
    // Dictionary file
    NewDictionary,
    OpenDictionary,
    MergeDictionary,
    SaveDictionary,
    SaveDictionaryAs,
    PrintDictionary,
    PrintWord,
    FormFeed,
    PrintMultiple,
    Quit,
    // Navigation
    First,
    Previous,
    Next,
    Last,
    Go,
    RandomWord,
    // Words
    NewWord,
    InsertWord,
    EditWord,
    StoreWord,
    DeleteWord,
    DuplicateWord,
    CutWord,
    CopyWord,
    PasteWord,
    // Direction of the word on show
    FlipWord,        // the Flip button
    DirectionLeft,   // Word > Flip > Left
    DirectionRight,  // Word > Flip > Right
    DirectionInvert, // Word > Flip > Invert, and Flip of the pop-up menu
    ShowBorders,
    // Picture of the word
    CopyWordImage,
    SaveWordImage,
    PasteImageToPaint,
    // The transliteration of the word on show in scholarly letters (nṯr for nTr)
    CopyTranslitUnicode,
    // Search
    Find,
    FindNext,
    FindPrevious,
    // Whole dictionary
    SortButton, // the Sort button and the tool bar: exchange sort
    SortMenu,   // Tools > Sort: comb sort with progress and Cancel
    SortGardiner,
    Shuffle,
    FlipAllLeft,
    FlipAllRight,
    FlipAllInvert,
    // Transliteration
    Typewriter,
    TransTable,
    TransGuess,
    // Other windows
    Options,
    AboutProgram,
    AboutDictionary,
    Help,
    // History of the changes to the dictionary
    Undo,
    Redo,
    // Zoom of the word view
    ZoomIn,
    ZoomOut,
    ZoomReset,
};

// Every command, in the order above, with a name for messages and logs.
struct CommandInfo {
    CommandId id;
    std::string_view name;
    // Run by the logic of this library; the others run the handler the program installs in
    // App::commandHandlers (see InstallCommandHandler).
    bool builtIn;
    // What it does, in a few words, for the help page.
    std::string_view help;
};
const std::vector<CommandInfo>& AllCommands();
const CommandInfo& Info(CommandId id);

// The program's own code for a command that lives elsewhere (search, sorting, printing, the
// other windows). An installed handler is also preferred to a built-in command.
void InstallCommandHandler(App& app, CommandId id, std::function<void(App&)> handler);
// A built-in command, or one whose handler is installed. A window disables the controls of
// commands that are not available.
bool CommandAvailable(const App& app, CommandId id);

// Runs a command at its boundary: a run-time error is shown in a critical message box as
// "<number>  <description>", a full dictionary as its message, and the program goes on with
// the state the command left. False when the command is not available (nothing ran). After
// Quit, app.endRequested says whether the program is to end.
bool RunCommand(App& app, CommandId id);

// The tool bar: fraToolbar with the buttons cmdTool0..cmdTool19.
struct ToolButton {
    int index;
    std::string_view objectName;
    std::string_view toolTip;
    CommandId command;
    // A freedesktop icon name for the button's picture.
    std::string_view icon;
};
const std::vector<ToolButton>& ToolBar();

// The keyed dispatcher: the same commands by a text key ("NewDic", "Open", ... "About").
std::optional<CommandId> CommandForKey(std::string_view key);
// Runs the command of key through RunCommand; a key matching none does nothing (false).
bool RunKeyedCommand(App& app, std::string_view key);
const std::vector<std::pair<std::string_view, CommandId>>& ToolKeys();

// An item of the menu bar or the pop-up menu. A submenu has children and no command.
struct MenuItem {
    std::string objectName;
    std::string caption; // "&" marks the access letter
    std::optional<CommandId> command;
    std::vector<MenuItem> children;
    bool separatorBefore = false;
    bool checkable = false;
};
const std::vector<MenuItem>& MenuBar();
// The caption a menu item shows now: Undo and Redo name the step they take ("&Undo Delete
// word 12"); every other item its own caption.
std::string CurrentCaption(const App& app, CommandId id, const std::string& caption);
// mnuFieldEdit: the pop-up menu of the display area (not shown in the bar).
const MenuItem& PopupMenu();

// The buttons of the word view.
struct ViewButton {
    std::string_view objectName;
    std::string_view caption;
    std::string_view toolTip;
    CommandId command;
};
const std::vector<ViewButton>& WordViewButtons();

// Keyboard shortcuts, in QKeySequence's portable text form. Shortcuts of the display area
// act only while it has the focus, so that the text boxes keep their own editing keys.
enum class ShortcutScope { Window, DisplayArea };
struct Shortcut {
    std::string_view keys;
    CommandId command;
    ShortcutScope scope;
};
const std::vector<Shortcut>& Shortcuts();
// The keys of a command, in the table's order (none for most).
std::vector<Shortcut> ShortcutsOf(CommandId id);

// The help page's generated parts: every command with its menu items, buttons and keys, and
// the plain letters that the Transliteration font draws as scholarly letters. HelpPage takes
// the shipped page and puts them afresh between its markers "<!-- commands -->" ...
// "<!-- /commands -->" and "<!-- letters -->" ... "<!-- /letters -->"; a page without the
// markers gets them appended.
std::string CommandListHtml();
std::string LetterCodeHtml();
std::string HelpPage(std::string_view page);

} // namespace nebkaro
