#pragma once
// The program's commands, one row each: what it is called, what it does, its keys and the
// code that runs it. Each part of the program registers the rows of its own commands (the
// editing commands, the whole-dictionary commands, the transliteration ones); a command whose
// work is a window declares its row without code, and the window provides it. Menus, tool
// bar, pop-up menu, buttons and keys all run commands through this one table.
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace nebkaro {

struct App;

// Every command. The order is the order of the help page.
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
    // The signs of the word on show as Unicode hieroglyphs
    CopyUnicode,
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

// A keyboard shortcut, in QKeySequence's portable text form. Keys of the display area act
// only while it has the focus, so that the text boxes keep their own editing keys.
enum class ShortcutScope { Window, DisplayArea };
struct Key {
    std::string_view keys;
    ShortcutScope scope = ShortcutScope::Window;
};

// A command's button on the tool bar (fraToolbar, buttons cmdTool0..cmdTool19).
struct ToolSlot {
    int index;
    std::string_view toolTip;
    // A freedesktop icon name for the button's picture.
    std::string_view icon;
    // The text key of the keyed dispatcher ("NewDic", "Open" ... "About"); empty for none.
    std::string_view key;
};

using CommandHandler = std::function<void(App&)>;

struct Command {
    CommandId id;
    // For messages and logs.
    std::string_view name;
    // What it does, in a few words, for the help page; a command without it is not listed.
    std::string_view help;
    std::vector<Key> keys{};
    std::optional<ToolSlot> tool{};
    // Empty until the window that does the work provides it.
    CommandHandler run{};
    // When the command can run now, beyond having code (Undo only with a step to take back).
    std::function<bool(const App&)> enabled{};
};

class CommandRegistry {
public:
    // Adds a row, or replaces the row of the same command.
    void add(Command command);
    // Gives a registered command the code that runs it (empty takes it away) and returns the
    // code it had, so that a window can put it back when it goes.
    CommandHandler provide(CommandId id, CommandHandler run);
    // Null for a command nobody registered.
    const Command* find(CommandId id) const;
    // Every registered command, in the order of CommandId.
    std::vector<const Command*> all() const;

private:
    std::map<CommandId, Command> rows_;
};

// A command that is registered, has its code and is enabled now. A window disables the
// controls of commands that are not available.
bool commandAvailable(const App& app, CommandId id);

// Runs a command at the failure boundary (runGuarded) and then lets the windows show the
// state it left. False when the command has no code (nothing ran). After Quit,
// app.endRequested says whether the program is to end.
bool executeCommand(App& app, CommandId id);

// The keyed dispatcher: the tool bar's commands by their text key.
std::optional<CommandId> commandForKey(const CommandRegistry& commands, std::string_view key);
// Runs the command of key through executeCommand; a key matching none does nothing (false).
bool runKeyedCommand(App& app, std::string_view key);

} // namespace nebkaro
