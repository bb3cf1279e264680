#include "bulk/bulk_commands.h"
#include "core/errors.h"
#include "editing/commands.h"
#include "editing_support.h"
#include "translit/translit_commands.h"

#include <filesystem>
#include <fstream>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Every part's commands, as the program registers them.
CommandRegistry everyCommand() {
    CommandRegistry r;
    registerEditingCommands(r);
    registerBulkCommands(r);
    registerTranslitCommands(r);
    return r;
}

} // namespace

// The word clipboard keys act on words only where text boxes cannot claim them.
TEST(CommandTables, TheWordClipboardKeysLeaveTheTextBoxesAlone) {
    for (const Shortcut& s : allShortcuts(everyCommand())) {
        if (s.keys == "Ctrl+C" || s.keys == "Ctrl+X" || s.keys == "Ctrl+V") {
            EXPECT_EQ(s.scope, ShortcutScope::DisplayArea) << s.keys;
        }
    }
}

TEST_F(EditingTest, FailuresStopAtTheCommandBoundary) {
    const struct {
        std::function<void()> fail;
        std::string text;
        Icon icon;
        bool ends;
    } cases[] = {
        {[] { throw RunError(Overflow); }, "6  Overflow", Icon::Critical, false},
        {[] { throw StoreFull(); }, StoreFull().what(), Icon::Exclamation, false},
        {[] { throw ProgramFileError("Lists/Basic.lst"); },
         ProgramFileError("Lists/Basic.lst").message(), Icon::Critical, true},
        {[] { throw std::length_error("too long"); },
         "The command could not be completed: too long", Icon::Critical, false},
    };
    for (const auto& c : cases) {
        t.dialogs.prompts.clear();
        app.endRequested = false;
        app.commands.provide(CommandId::Options, [&c](App&) { c.fail(); });
        EXPECT_TRUE(executeCommand(app, CommandId::Options));
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].text, c.text);
        EXPECT_EQ(t.dialogs.prompts[0].icon, c.icon);
        EXPECT_EQ(app.endRequested, c.ends) << c.text;
    }
}

// Each row: the item, the direction it leaves on a right-to-left word, whether it edited it.
TEST_F(EditingTest, OnlyTheLeftDirectionItemMarksTheWordEdited) {
    const std::tuple<CommandId, std::string, bool> cases[] = {
        {CommandId::DirectionLeft, "L", true},
        {CommandId::DirectionRight, "R", false},
        {CommandId::DirectionInvert, "L", false},
        {CommandId::FlipWord, "L", false}};
    for (const auto& [command, direction, edited] : cases) {
        words(1);
        app.store.setField(0, FieldDirection, "R");
        show(0);
        app.store.editPending = false;
        executeCommand(app, command);
        EXPECT_EQ(app.store.field(0, FieldDirection), direction);
        EXPECT_EQ(app.store.editPending, edited);
        EXPECT_EQ(app.view.mainGlyphPic[0].picture.file.parent_path().filename(),
                  direction == "L" ? "Left" : "Right");
    }
}

// The shipped help page carries the lists the program would make from its tables, so that
// it can be read offline and never tells of keys the program does not have.
TEST(CommandTables, TheShippedHelpPageListsEveryCommandKeyAndLetter) {
    const std::filesystem::path file = std::filesystem::path(NEBKARO_DATA_DIR) / "Help/index.html";
    std::ifstream in(file, std::ios::binary);
    ASSERT_TRUE(in) << file;
    const std::string page((std::istreambuf_iterator<char>(in)), {});
    const CommandRegistry commands = everyCommand();
    const std::string fresh = helpPage(commands, page);
    if (fresh != page) {
        const auto made = std::filesystem::temp_directory_path() / "nebkaro-help-index.html";
        std::ofstream(made, std::ios::binary) << fresh;
        FAIL() << "the help page is out of date: copy " << made << " over " << file;
    }
    for (const Shortcut& s : allShortcuts(commands))
        EXPECT_NE(page.find(s.keys), std::string::npos) << s.keys;
    for (const char* row : {"<code>j</code></td><td class=\"scholarly\">i\xcc\xaf<",
                            "<td>Save the dictionary under another name</td><td>File &gt; Save "
                            "As</td><td>Save As</td><td></td><td>Ctrl+Shift+S</td>"})
        EXPECT_NE(page.find(row), std::string::npos) << row;
}
