#include "editing/undo.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace nebkaro {
namespace {

WordRecord word(const std::string& t) {
    return {"L", "B", "A1(0,0) ", "A1", t, "meaning of " + t, ""};
}

// What Undo must give back: the words, how many, the word on show and the header.
using Snapshot = std::tuple<std::vector<WordRecord>, int, int, DictionaryHeader>;

Snapshot snap(const DictionaryStore& s) {
    std::vector<WordRecord> rows;
    for (int w = 0; w <= s.lastIndex; ++w) rows.push_back(s.row(w));
    return {rows, s.lastIndex, s.currentIndex, s.header};
}

// Six words w0..w5, word 2 on show, as opened from a file.
void sixWords(DictionaryStore& s) {
    for (int i = 0; i < 6; ++i) s.setRow(i, word("w" + std::to_string(i)));
    s.lastIndex = 5;
    s.currentIndex = 2;
    s.isChanged = false;
}

// Each row: the change, the rows it declares it may touch (-1: to the end), the words the step
// keeps, and the change itself.
TEST(UndoHistory, EveryShapeOfChangeIsTakenBackAndDoneAgainKeepingOnlyTheRowsItChanged) {
    using Change = std::function<void(DictionaryStore&, UndoHistory&)>;
    const std::tuple<const char*, int, int, std::size_t, Change> cases[] = {
        {"one word rewritten in place", 2, 3, 1,
         [](auto& s, auto&) { s.setField(2, FieldMeaning, "x"); }},
        {"a word removed from the middle", 2, -1, 1,
         [](auto& s, auto&) {
             for (int i = 2; i < s.lastIndex; ++i) s.swapRows(i, i + 1);
             --s.lastIndex;
         }},
        {"the only words all removed", 0, -1, 6, [](auto& s, auto&) { s.lastIndex = -1; }},
        {"a word inserted at the front", 0, -1, 0,
         [](auto& s, auto&) {
             for (int i = s.lastIndex; i >= 0; --i) s.swapRows(i, i + 1);
             s.setRow(0, word("n"));
             ++s.lastIndex;
         }},
        {"the order reversed", 0, -1, 6,
         [](auto& s, auto&) {
             for (int i = 0, j = s.lastIndex; i < j; ++i, --j) s.swapRows(i, j);
         }},
        {"words appended, shown and the header replaced", 6, 6, 0,
         [](auto& s, auto&) {
             s.setRow(6, word("m1"));
             s.setRow(7, word("m2"));
             s.lastIndex = s.currentIndex = 7;
             s.header[0] = "Merged";
         }},
        {"a nested change below the declared rows widens the step", 6, 6, 5, [](auto& s, auto& h) {
             UndoStep inner(h, s, "inner", 1, 2);
             s.setField(1, FieldComment, "stored first");
             s.setRow(6, word("m"));
             s.lastIndex = 6;
         }}};
    for (const auto& [rule, from, to, held, change] : cases) {
        SCOPED_TRACE(rule);
        DictionaryStore store;
        sixWords(store);
        UndoHistory history;
        const Snapshot before = snap(store);
        {
            UndoStep step(history, store, rule, from, to);
            change(store, history);
            store.isChanged = true;
        }
        const Snapshot after = snap(store);
        ASSERT_TRUE(history.canUndo());
        EXPECT_EQ(history.undoName(), rule);
        EXPECT_EQ(history.rowsHeld(), held);
        ASSERT_TRUE(history.undo(store));
        EXPECT_EQ(snap(store), before);
        EXPECT_FALSE(store.isChanged);
        EXPECT_EQ(history.redoName(), rule);
        ASSERT_TRUE(history.redo(store));
        EXPECT_EQ(snap(store), after);
        EXPECT_TRUE(store.isChanged);
    }
}

TEST(UndoHistory, TheDictionaryIsChangedExactlyWhenItDiffersFromTheSavedFile) {
    DictionaryStore store;
    sixWords(store);
    UndoHistory history;
    auto change = [&](const std::string& meaning) {
        UndoStep step(history, store, "Store word 1", 1, 2);
        store.setField(1, FieldMeaning, meaning);
        store.isChanged = true;
    };
    change("a");
    change("b");
    history.markSaved(); // the file holds "b"
    change("c");
    // Each step: U for Undo or R for Redo, then whether the store differs from the file.
    for (const std::string step : {"U0", "U1", "U1", "R1", "R0", "R1"}) {
        ASSERT_TRUE(step[0] == 'U' ? history.undo(store) : history.redo(store));
        EXPECT_EQ(store.isChanged, step[1] == '1') << step;
    }
    // Back at "b" and then a new change: the saved state is gone from the redo side.
    history.undo(store);
    history.undo(store);
    change("d");
    EXPECT_FALSE(history.canRedo());
    EXPECT_TRUE(history.undo(store));
    EXPECT_TRUE(store.isChanged); // "a" is not what the file holds
}

TEST(UndoHistory, KeepsAtLeastFiftyStepsAndABulkStepCostsOneCopy) {
    DictionaryStore store;
    const int n = DictionaryStore::MaxWordIndex + 1;
    for (int i = 0; i < n; ++i) store.setRow(i, word(std::to_string(i)));
    store.lastIndex = n - 1;
    UndoHistory history;
    {
        UndoStep step(history, store, "Shuffle", 0);
        for (int i = 0; i + 1 < n; i += 2) store.swapRows(i, i + 1);
    }
    // The last word kept its place (an odd count) and is not held.
    EXPECT_EQ(history.rowsHeld(), static_cast<std::size_t>(n - 1));
    history.undo(store);
    EXPECT_EQ(history.rowsHeld(), static_cast<std::size_t>(n - 1)); // Redo holds the other order
    EXPECT_EQ(store.field(0, FieldTranslit), "0");
    for (int k = 0; k < 120; ++k) {
        UndoStep step(history, store, "Store word " + std::to_string(k), 7, 8);
        store.setField(7, FieldComment, std::to_string(k));
    }
    EXPECT_EQ(history.undoCount(), UndoHistory::Capacity);
    EXPECT_GE(UndoHistory::Capacity, 50u);
    EXPECT_EQ(history.rowsHeld(), UndoHistory::Capacity);
    for (std::size_t k = 0; k < UndoHistory::Capacity; ++k) history.undo(store);
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(store.field(7, FieldComment), std::to_string(119 - UndoHistory::Capacity));
}

} // namespace
} // namespace nebkaro
