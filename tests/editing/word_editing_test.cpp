#include "core/dictionary_file.h"
#include "editing/navigation.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"
#include "editing_support.h"

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

WordRecord composed(const std::string& translit = "", const std::string& meaning = "") {
    return {"L", "B", "A1(0,0) - G17(300,0) ", "A1-G17", translit, meaning, ""};
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
        EXPECT_EQ(translit(std::max(count - 1, 0)), count ? "w2" : "jAb");
        EXPECT_FALSE(app.store.newWordPending || app.store.composeAccepted || app.insertPending);
    }
}

TEST_F(EditingTest, AnExistingWordKeepsItsDirectionAndLibraryUnlessExtendedWasChosen) {
    for (const auto& [extendedChosen, library] : {std::pair{false, "B"}, {true, "E"}}) {
        words(2);
        app.settings.direction = Direction::Right;
        app.settings.library = Library::Extended;
        app.extendedChosen = extendedChosen;
        app.view.meaning = "new meaning";
        storeCurrentWord(app);
        EXPECT_EQ(app.store.row(0),
                  (WordRecord{"L", library, "N35(0,0) ", "N35", "w0", "new meaning", ""}));
        EXPECT_EQ(app.store.lastIndex, 1);
    }
}

TEST_F(EditingTest, EditReplacesOnlyTheSignsAndKeepsTheTexts) {
    words(3);
    show(1);
    editWord(app);
    EXPECT_TRUE(composer.openedForEdit && !composer.openedForNew);
    storeCurrentWord(app);
    EXPECT_EQ(app.store.row(1), composed("w1", "meaning 1"));
    EXPECT_EQ(where(), Where(2, 1, true));
    EXPECT_FALSE(app.store.editPending);
}

TEST_F(EditingTest, DeleteAsksThenMovesTheLaterWordsUp) {
    words(4);
    show(1);
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
    words(3);
    show(1);
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
