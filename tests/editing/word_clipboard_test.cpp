#include "editing/commands.h"
#include "editing/word_clipboard.h"
#include "editing_support.h"

using namespace nebkaro;
using namespace nebkaro::testing;

TEST_F(EditingTest, CopyThenPasteLeavesTwoEqualWordsTheSecondCurrent) {
    words(3);
    show(1);
    copyWord(app);
    EXPECT_EQ(t.clipboard.content, "L|B|N35(0,0) |N35|w1|meaning 1|");
    pasteWord(app);
    EXPECT_EQ(where(), Where(3, 2, true));
    EXPECT_EQ(app.store.row(1), app.store.row(2));
    EXPECT_EQ(translit(3), "w2");
    EXPECT_EQ(app.view.wordNumber, "2");
}

// Cutting the last word shows the new last word; any other, the one that moved up.
TEST_F(EditingTest, CutDeletesWithoutAsking) {
    for (const auto& [from, current] : {std::pair{3, 2}, {1, 1}}) {
        words(4);
        show(from);
        cutWord(app);
        EXPECT_TRUE(t.dialogs.prompts.empty());
        EXPECT_EQ(t.clipboard.content, "L|B|N35(0,0) |N35|w" + std::to_string(from) + "|meaning " +
                                           std::to_string(from) + "|");
        EXPECT_EQ(where(), Where(2, current, true));
        EXPECT_EQ(app.view.transliteration, "w2");
    }
    // After the Cut, Delete asks again.
    t.dialogs.answers.push_back(Answer::No);
    deleteWord(app);
    EXPECT_EQ(t.dialogs.prompts.size(), 1u);
}

TEST_F(EditingTest, AnInvalidItemIsRefusedAfterTheRowWasInserted) {
    words(3);
    show(1);
    for (const char* text : {"hello", "r|B|x|x|x|x|x", "|L|B"}) {
        SCOPED_TRACE(text);
        t.dialogs.prompts.clear();
        const auto [last, current, changed] = where();
        t.clipboard.content = text;
        pasteWord(app);
        EXPECT_EQ(t.dialogs.messages(), std::vector<std::string>{"Invalid Paste Item"});
        // The copy is on show, and part of the dictionary now.
        EXPECT_EQ(where(), Where(last + 1, current + 1, true));
        EXPECT_EQ(app.store.row(current + 1), app.store.row(current));
        EXPECT_EQ(app.view.wordNumber, std::to_string(current + 1));
    }
}

TEST_F(EditingTest, APastedItemFillsTheRowAfterTheWordOnShow) {
    // Parts after the seventh are ignored; a trailing line break is not part of the item.
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
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.item);
        words(c.count);
        show(c.shown);
        if (c.cutFirst) cutWord(app);
        t.clipboard.content = c.item;
        pasteWord(app);
        EXPECT_EQ(app.store.row(c.row), c.expected);
        EXPECT_EQ(where(), Where(c.cutFirst ? 0 : c.count, c.row, true));
        if (c.row < c.count && !c.cutFirst) {
            EXPECT_EQ(translit(c.row + 1), "w1"); // the later words move down
        }
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
