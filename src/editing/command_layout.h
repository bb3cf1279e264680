#pragma once
// Where the commands are offered: the tool bar, the menu bar, the pop-up menu of the display
// area, the buttons beside the word and the keys. The window builds its controls from these
// and runs each through executeCommand; the code, help and keys of a command are its row in the
// registry.
#include "core/command_registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

// A button of the tool bar, fraToolbar with the buttons cmdTool0..cmdTool19, made from the
// commands' tool slots in the order of their index.
struct ToolButton {
    int index;
    std::string objectName;
    std::string_view toolTip;
    CommandId command;
    // A freedesktop icon name for the button's picture.
    std::string_view icon;
};
std::vector<ToolButton> toolBarButtons(const CommandRegistry& commands);

// An item of the menu bar or the pop-up menu. A submenu has children and no command.
struct MenuItem {
    std::string objectName;
    std::string caption; // "&" marks the access letter
    std::optional<CommandId> command;
    std::vector<MenuItem> children;
    bool separatorBefore = false;
    bool checkable = false;
    std::string toolTip; // none when empty
};
const std::vector<MenuItem>& menuBarItems();
// The caption a menu item shows now: Undo and Redo name the step they take ("&Undo Delete
// word 12"); every other item its own caption.
std::string currentCaption(const App& app, CommandId id, const std::string& caption);
// mnuFieldEdit: the pop-up menu of the display area (not shown in the bar).
const MenuItem& popupMenuItems();

// The buttons of the word view.
struct ViewButton {
    std::string_view objectName;
    std::string_view caption;
    std::string_view toolTip;
    CommandId command;
};
const std::vector<ViewButton>& wordViewButtons();

// Every key of every command, in the order of the commands.
struct Shortcut {
    std::string_view keys;
    CommandId command;
    ShortcutScope scope;
};
std::vector<Shortcut> allShortcuts(const CommandRegistry& commands);

} // namespace nebkaro
