// Word editing, the word clipboard, moving between words and the commands' failure boundary,
// on a dictionary of a few words on show in a main window whose composer is scripted.
#include "bulk/bulk_commands.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "display/render.h"
#include "editing/commands.h"
#include "editing/navigation.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"
#include "fakes.h"
#include "translit/translit_commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <tuple>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

// Stands in for the composer: accepts with two signs, A1 and G17 side by side, or cancels.
struct ScriptedComposer : WindowHost {
    App* app = nullptr;
    bool accept = true;
    int runs = 0;
    bool openedForNew = false, openedForEdit = false;

    void runComposer() override {
        ++runs;
        openedForNew = app->store.newWordPending;
        openedForEdit = app->store.editPending;
        if (!accept) return;
        app->glyphs.clear();
        app->glyphs[0].code = "A1";
        app->glyphs[1].code = "G17";
        app->glyphs[1].x = 300;
        app->layoutText = "A1(0,0) - G17(300,0) ";
        app->composedGardiner = "A1-G17";
        app->store.composeAccepted = true;
    }
};

// The last word, the word on show and whether the dictionary changed.
using Where = std::tuple<int, int, bool>;

struct EditingTest : ::testing::Test {
    TestApp t;
    App& app = t.app;
    ScriptedComposer composer;
    TempDir dir;

    void SetUp() override {
        t.pictures.sizes = {{"A1", {300, 540}}, {"G17", {420, 600}}, {"N35", {600, 90}}};
        composer.app = &app;
        app.windows = &composer;
        installEditing(app);
        app.store.dictionaryPath = (dir.path() / "Words.nkd").string();
    }

    // Words 0..n-1: "w0", "w1", ... in the transliteration, unchanged, one of them on show.
    void words(int n, int shown = 0) {
        for (int i = 0; i < n; ++i)
            app.store.setRow(i, {"L", "B", "N35(0,0) ", "N35", "w" + std::to_string(i),
                                 "meaning " + std::to_string(i), ""});
        app.store.lastIndex = n - 1;
        app.store.isChanged = false;
        show(shown);
    }

    // The word at index on show, as every move leaves it.
    void show(int index) {
        app.store.currentIndex = index;
        renderWord(app);
    }

    Where where() const {
        return {app.store.lastIndex, app.store.currentIndex, app.store.isChanged};
    }
    std::string translit(int row) const { return app.store.field(row, FieldTranslit); }
};

WordRecord composed(const std::string& translit = "", const std::string& meaning = "") {
    return {"L", "B", "A1(0,0) - G17(300,0) ", "A1-G17", translit, meaning, ""};
}

// Every part's commands, as the program registers them.
CommandRegistry everyCommand() {
    CommandRegistry r;
    registerEditingCommands(r);
    registerBulkCommands(r);
    registerTranslitCommands(r);
    return r;
}

} // namespace

// An empty dictionary has its word 0 waiting; otherwise the word goes after the last.
TEST_F(EditingTest, NewThenStorePutsTheWordIntoTheNextRow) {
    for (const int count : {0, 3}) {
        SCOPED_TRACE(count);
        words(count);
        app.store.lastIndex = std::max(count - 1, 0);
        newWord(app);
        EXPECT_TRUE(composer.openedForNew);
        EXPECT_EQ(app.view.wordNumber, std::to_string(app.store.lastIndex + 1));
        app.view.transliteration = "jAb";
        EXPECT_TRUE(storeCurrentWord(app));
        EXPECT_EQ(where(), Where(count, count, true));
        EXPECT_EQ(app.store.row(count), composed("jAb"));
        EXPECT_FALSE(app.store.newWordPending || app.store.composeAccepted || app.insertPending);
    }
}

// Edit replaces only the signs and keeps the texts; a stored word keeps its direction and
// library whatever the preferences say, unless Extended was chosen for it.
TEST_F(EditingTest, EditReplacesOnlyTheSignsAndKeepsTheTextsDirectionAndLibrary) {
    for (const auto& [extendedChosen, library] : {std::pair{false, "B"}, {true, "E"}}) {
        words(3, 1);
        app.settings.direction = Direction::Right;
        app.settings.library = Library::Extended;
        app.extendedChosen = extendedChosen;
        editWord(app);
        EXPECT_TRUE(composer.openedForEdit && !composer.openedForNew);
        app.view.comment = "typed";
        storeCurrentWord(app);
        EXPECT_EQ(app.store.row(1), (WordRecord{"L", library, "A1(0,0) - G17(300,0) ", "A1-G17",
                                                "w1", "meaning 1", "typed"}));
        EXPECT_EQ(where(), Where(2, 1, true));
        EXPECT_FALSE(app.store.editPending);
    }
}

TEST_F(EditingTest, DeleteAsksThenMovesTheLaterWordsUp) {
    words(4, 1);
    t.dialogs.answers = {Answer::No, Answer::Yes};
    deleteWord(app);
    EXPECT_EQ(where(), Where(3, 1, false));
    deleteWord(app);
    ASSERT_EQ(t.dialogs.prompts.size(), 2u);
    EXPECT_EQ(t.dialogs.prompts[0].text, "Do you want to delete the current item?");
    EXPECT_EQ(where(), Where(2, 1, true));
    EXPECT_EQ(translit(2), "w3");
    EXPECT_EQ(translit(3), "w3"); // the old last row stays behind, beyond the dictionary
    EXPECT_EQ(app.view.transliteration, "w2");
}

TEST_F(EditingTest, DeletingTheOnlyWordLeavesNothingOnShow) {
    words(1);
    t.dialogs.answers.push_back(Answer::Yes);
    deleteWord(app);
    EXPECT_EQ(where(), Where(-1, -1, true));
    // Saving stores the word on show first: there is none, and nothing breaks.
    EXPECT_TRUE(saveDictionary(app));
    EXPECT_EQ(readFile(app.store.dictionaryPath), "");
    // The next new word becomes word 0 again.
    newWord(app);
    storeCurrentWord(app);
    EXPECT_EQ(where(), Where(0, 0, true));
    EXPECT_EQ(app.store.field(0, FieldGardiner), "A1-G17");
}

// Moving, copying and deleting need a word of the dictionary; editing and storing need a row
// of the table. A dictionary without words (a header-only file, the last word deleted) has
// none on show either, and an empty view stores nothing.
TEST_F(EditingTest, CommandsThatNeedAWordOnShowSaySoWhenThereIsNone) {
    const struct {
        const char* name;
        std::function<void(App&)> run;
        int index;
    } cases[] = {{"Delete", deleteWord, -1},       {"Delete", deleteWord, 2},
                 {"Duplicate", duplicateWord, -1}, {"Duplicate", duplicateWord, 5},
                 {"Copy", copyWord, -1},           {"Cut", cutWord, 2},
                 {"Edit", editWord, -1},           {"Edit", editWord, 100001},
                 {"Store", storeCommand, -1}};
    for (const int words : {2, 0}) {
        app.store.clear();
        this->words(words);
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(c.name) + " at " + std::to_string(c.index) + " of " +
                         std::to_string(words));
            app.store.currentIndex = words ? c.index : 0;
            t.dialogs.prompts.clear();
            c.run(app);
            ASSERT_EQ(t.dialogs.prompts.size(), 1u);
            EXPECT_EQ(t.dialogs.prompts[0].text, "No word of the dictionary is on show.");
        }
        EXPECT_EQ(app.store.lastIndex, words - 1);
        EXPECT_EQ(translit(1), words ? "w1" : "");
        EXPECT_FALSE(app.store.isChanged || app.cutPending);
        EXPECT_EQ(composer.runs, 0);
    }
}

// Insert stores into the row on show; given up, it leaves the next new word a new word.
TEST_F(EditingTest, InsertStoresIntoTheCurrentRowOrIsForgotten) {
    words(3, 1);
    composer.accept = false;
    insertWord(app);
    EXPECT_FALSE(app.insertPending);
    composer.accept = true;
    insertWord(app);
    EXPECT_TRUE(app.insertPending);
    storeCurrentWord(app);
    EXPECT_EQ(where(), Where(2, 1, true));
    EXPECT_EQ(app.store.row(1), composed());
    EXPECT_EQ(translit(2), "w2");
    EXPECT_FALSE(app.insertPending);
    insertWord(app);
    t.dialogs.answers.push_back(Answer::No);
    showNextWord(app);
    EXPECT_FALSE(app.insertPending);
    newWord(app);
    storeCurrentWord(app);
    EXPECT_EQ(app.store.lastIndex, 3);
    EXPECT_EQ(translit(2), "w2");
}

// Copy then Paste leaves two equal words, the second on show; Cut deletes the last word
// without asking and shows the new last one; Delete asks again after it.
TEST_F(EditingTest, CopyPasteAndCut) {
    words(3, 1);
    copyWord(app);
    EXPECT_EQ(t.clipboard.content, "L|B|N35(0,0) |N35|w1|meaning 1|");
    pasteWord(app);
    EXPECT_EQ(where(), Where(3, 2, true));
    EXPECT_EQ(app.store.row(1), app.store.row(2));
    EXPECT_EQ(translit(3), "w2");
    EXPECT_EQ(app.view.wordNumber, "2");
    show(3);
    cutWord(app);
    EXPECT_TRUE(t.dialogs.prompts.empty());
    EXPECT_EQ(t.clipboard.content, "L|B|N35(0,0) |N35|w2|meaning 2|");
    EXPECT_EQ(where(), Where(2, 2, true));
    EXPECT_EQ(app.view.transliteration, "w1");
    t.dialogs.answers.push_back(Answer::No);
    deleteWord(app);
    EXPECT_EQ(t.dialogs.prompts.size(), 1u);
}

// A valid item fills the row after the word on show; parts after the seventh are ignored, a
// trailing line break is not part of it. An invalid one is refused after the row was inserted,
// which keeps a copy of the word on show, and the copy is part of the dictionary now.
TEST_F(EditingTest, APastedItemFillsTheRowAfterTheWordOnShow) {
    const WordRecord w1 = {"L", "B", "N35(0,0) ", "N35", "w1", "meaning 1", ""};
    const struct {
        int count, shown;
        bool cutFirst;
        const char* item;
        int row;
        WordRecord expected;
    } cases[] = {
        {3, 0, false, "R|E|A1(0,0) |A1|j||n|x\r\n", 1, {"R", "E", "A1(0,0) ", "A1", "j", "", "n"}},
        {2, 40, false, "L|B|||new||", 2, {"L", "B", "", "", "new", "", ""}}, // past the end
        {1, 0, true, "L|B|||new||", 0, {"L", "B", "", "", "new", "", ""}},   // emptied dictionary
        {3, 1, false, "hello", 2, w1},
        {3, 1, false, "r|B|x|x|x|x|x", 2, w1},
        {3, 1, false, "|L|B", 2, w1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.item);
        words(c.count, c.shown);
        if (c.cutFirst) cutWord(app);
        t.dialogs.prompts.clear();
        t.clipboard.content = c.item;
        pasteWord(app);
        EXPECT_EQ(app.store.row(c.row), c.expected);
        EXPECT_EQ(where(), Where(c.cutFirst ? 0 : c.count, c.row, true));
        EXPECT_EQ(app.view.wordNumber, std::to_string(c.row));
        if (c.row < c.count && !c.cutFirst) {
            EXPECT_EQ(translit(c.row + 1),
                      "w" + std::to_string(c.row)); // the later words move down
        }
        const bool valid = c.item[0] == 'L' || c.item[0] == 'R';
        EXPECT_EQ(t.dialogs.messages(), valid ? std::vector<std::string>{}
                                              : std::vector<std::string>{"Invalid Paste Item"});
    }
}

// Paste, Duplicate and a new word's Store all need a row; a full dictionary has none.
TEST_F(EditingTest, NoRowCanBeOpenedInAFullDictionary) {
    words(2);
    app.store.lastIndex = DictionaryStore::MaxWordIndex;
    t.clipboard.content = "L|B|||||";
    EXPECT_TRUE(executeCommand(app, CommandId::PasteWord));
    EXPECT_TRUE(executeCommand(app, CommandId::DuplicateWord));
    newWord(app);
    EXPECT_FALSE(storeCurrentWord(app));
    EXPECT_EQ(t.dialogs.messages(), std::vector<std::string>(3, StoreFull().what()));
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
    EXPECT_EQ(where(), Where(DictionaryStore::MaxWordIndex, 0, false));
    EXPECT_TRUE(app.store.newWordPending);
}

// Whether a word is edited is read from its boxes, not from flags or focus: a box typed
// into, a box the typewriter or Guess changed, a new word waiting. Every move asks the same
// question then; Yes stores in memory, No shows the stored word again.
TEST_F(EditingTest, EveryMoveOffAnEditedWordAsksToStoreIt) {
    const std::pair<const char*, std::function<void(App&)>> moves[] = {
        {"First", showFirstWord},
        {"Last", showLastWord},
        {"Go", [](App& a) { goToWord(a, "1"); }},
        {"Next", showNextWord},
        {"Random", showRandomWord},
        {"Previous", showPreviousWord}};
    app.randomSeed = [] { return std::uint64_t{7}; };
    struct editWord {
        const char* name;
        std::function<void(App&)> make;
        bool asks;
    } edits[] = {
        {"nothing changed", [](App&) {}, false},
        {"edit flag with the stored text", [](App& a) { a.store.editPending = true; }, false},
        {"text typed", [](App& a) { a.view.meaning = "typed"; }, true},
        {"layout recomposed", [](App& a) { a.view.richGardiner = "A1(0,0) "; }, true},
        {"new word waiting", [](App& a) { a.store.newWordPending = true; }, true},
    };
    for (const auto& [move, run] : moves) {
        for (const editWord& e : edits) {
            for (const Answer answer : {Answer::Yes, Answer::No}) {
                SCOPED_TRACE(std::string(move) + ", " + e.name);
                words(4, 2);
                t.dialogs.prompts.clear();
                e.make(app);
                if (e.asks) t.dialogs.answers.push_back(answer);
                run(app);
                ASSERT_EQ(t.dialogs.prompts.size(), e.asks ? 1u : 0u);
                if (e.asks) {
                    const Prompt& p = t.dialogs.prompts[0];
                    EXPECT_EQ(p.text, StoreWordQuestion);
                    EXPECT_EQ(p.buttons, Buttons::YesNo);
                    EXPECT_EQ(p.icon, Icon::Question);
                    EXPECT_EQ(app.store.isChanged, answer == Answer::Yes);
                    // Yes stores the edit into the word it was made on.
                    EXPECT_EQ(app.store.field(2, FieldMeaning) == "typed",
                              answer == Answer::Yes && e.name == std::string("text typed"));
                }
                EXPECT_FALSE(app.store.newWordPending || app.store.editPending);
                EXPECT_FALSE(std::filesystem::exists(app.store.dictionaryPath));
                EXPECT_EQ(app.view.transliteration, translit(app.store.currentIndex));
            }
        }
    }
}

// Each row: the move, the word it starts from and the word it ends on, of words 0 to 3.
TEST_F(EditingTest, MovesStayWithinTheDictionary) {
    const std::tuple<void (*)(App&), int, int> cases[] = {
        {showNextWord, 3, 3},     {showNextWord, 1, 2},  {showPreviousWord, 0, 0},
        {showPreviousWord, 2, 1}, {showFirstWord, 2, 0}, {showLastWord, 0, 3}};
    words(4);
    for (const auto& [move, from, to] : cases) {
        show(from);
        move(app);
        EXPECT_EQ(app.store.currentIndex, to) << from;
        EXPECT_EQ(app.view.wordNumber, std::to_string(to)) << from;
    }
}

TEST_F(EditingTest, GoRefusesWhatIsNoWordOfTheDictionary) {
    words(4, 2);
    for (const char* typed : {"abc", "", "3x", "99999999999", "-1", "4", "100000"}) {
        SCOPED_TRACE(typed);
        t.dialogs.prompts.clear();
        EXPECT_FALSE(goToWord(app, typed));
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
        EXPECT_NE(t.dialogs.prompts[0].text.find("0 to 3"), std::string::npos);
        EXPECT_EQ(app.view.transliteration, "w2");
    }
    EXPECT_TRUE(goToWord(app, " 3 "));
    EXPECT_EQ(app.view.transliteration, "w3");
}

// One word (or none) is always word 0, the last of more is never drawn, and after the only
// word was deleted there is nothing to show.
TEST(RandomTest, IndexOfADraw) {
    const std::tuple<int, double, int> cases[] = {{0, 0.99, 0}, {1, 0.999, 0},    {4, 0.0, 0},
                                                  {4, 0.75, 3}, {4, 0.999999, 3}, {-1, 0.5, -1}};
    for (auto [last, r, want] : cases) EXPECT_EQ(randomIndex(last, r), want) << last << " " << r;
}

// The word clipboard keys act on words only where text boxes cannot claim them.
TEST(CommandTables, TheWordClipboardKeysLeaveTheTextBoxesAlone) {
    for (const Shortcut& s : allShortcuts(everyCommand())) {
        if (s.keys == "Ctrl+C" || s.keys == "Ctrl+X" || s.keys == "Ctrl+V") {
            EXPECT_EQ(s.scope, ShortcutScope::DisplayArea) << s.keys;
        }
    }
}

TEST_F(EditingTest, FailuresStopAtTheCommandBoundary) {
    // Each row: what the command throws, the message, its icon, whether the program ends.
    const std::tuple<std::function<void()>, std::string, Icon, bool> cases[] = {
        {[] { throw RunError(Overflow); }, "6  Overflow", Icon::Critical, false},
        {[] { throw StoreFull(); }, StoreFull().what(), Icon::Exclamation, false},
        {[] { throw ProgramFileError("Lists/Basic.lst"); },
         ProgramFileError("Lists/Basic.lst").message(), Icon::Critical, true},
        {[] { throw std::length_error("too long"); },
         "The command could not be completed: too long", Icon::Critical, false}};
    for (const auto& [fail, text, icon, ends] : cases) {
        t.dialogs.prompts.clear();
        app.endRequested = false;
        app.commands.provide(CommandId::Options, [&fail](App&) { fail(); });
        EXPECT_TRUE(executeCommand(app, CommandId::Options));
        ASSERT_EQ(t.dialogs.prompts.size(), 1u);
        EXPECT_EQ(t.dialogs.prompts[0].text, text);
        EXPECT_EQ(t.dialogs.prompts[0].icon, icon);
        EXPECT_EQ(app.endRequested, ends) << text;
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
    const std::string page = readFile(file);
    ASSERT_FALSE(page.empty()) << file;
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
