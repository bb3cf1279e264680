#include "core/dictionary_store.h"
#include "core/errors.h"

#include <gtest/gtest.h>

using namespace nebkaro;

TEST(DictionaryStore, EmptyAndOneWordBothHaveLastIndexZero) {
    DictionaryStore s;
    EXPECT_EQ(s.lastIndex, 0);
    EXPECT_TRUE(s.isEmpty());
    s.setField(0, FieldGardiner, "A1");
    EXPECT_EQ(s.lastIndex, 0);
    EXPECT_FALSE(s.isEmpty());
}

TEST(DictionaryStore, BoundsAreZeroTo100000AndZeroToSix) {
    DictionaryStore s;
    s.setField(100000, 6, "last");
    EXPECT_EQ(s.field(100000, 6), "last");
    for (auto [w, f] : {std::pair{-1, 0}, {100001, 0}, {0, 7}, {0, -1}}) {
        try {
            s.field(w, f);
            ADD_FAILURE() << w << "," << f;
        } catch (const RunError& e) {
            EXPECT_EQ(e.number(), SubscriptOutOfRange);
        }
    }
}

TEST(DictionaryStore, EmptyStoreCostsNoRowsAndRowsBeyondLastKeepTheirValues) {
    DictionaryStore s;
    EXPECT_EQ(s.allocatedRows(), 0u);
    EXPECT_EQ(s.field(50000, 3), "");
    EXPECT_EQ(s.allocatedRows(), 0u);
    s.setField(5, 2, "kept");
    s.lastIndex = 2;
    EXPECT_EQ(s.field(5, 2), "kept");
}

TEST(DictionaryStore, ClearEmptiesCellsButNotIndicesOrHeader) {
    DictionaryStore s;
    s.setField(3, 1, "x");
    s.lastIndex = 3;
    s.currentIndex = 2;
    s.header[0] = "H";
    s.clear();
    EXPECT_EQ(s.field(3, 1), "");
    EXPECT_EQ(s.lastIndex, 3);
    EXPECT_EQ(s.currentIndex, 2);
    EXPECT_EQ(s.header[0], "H");
}

TEST(DictionaryStore, NewWordGoesToRowZeroOfAnEmptyDictionaryElseAfterTheLast) {
    DictionaryStore s;
    EXPECT_EQ(s.takeRowForNewWord(), 0);
    EXPECT_EQ(s.lastIndex, 0);
    s.setField(0, FieldGardiner, "A1");
    EXPECT_EQ(s.takeRowForNewWord(), 1);
    EXPECT_EQ(s.lastIndex, 1);
    EXPECT_EQ(s.currentIndex, 1);
    s.lastIndex = -1; // the only word was deleted
    EXPECT_EQ(s.takeRowForNewWord(), 0);
}

TEST(DictionaryStore, The100001stWordFitsAndTheNextIsRefused) {
    DictionaryStore s;
    s.setField(0, FieldGardiner, "A1");
    s.lastIndex = 99999;
    EXPECT_EQ(s.takeRowForNewWord(), 100000);
    EXPECT_THROW(s.takeRowForNewWord(), StoreFull);
    EXPECT_EQ(s.lastIndex, 100000);
}

TEST(DictionaryStore, EmptyingAfterNewDictionaryResetsToWordZero) {
    DictionaryStore s;
    for (int w = 0; w < 3; ++w) s.setField(w, FieldMeaning, "m");
    s.lastIndex = 2;
    s.currentIndex = 2;
    s.emptyAfterNewDictionary();
    EXPECT_EQ(s.lastIndex, 0);
    EXPECT_EQ(s.currentIndex, 0);
    EXPECT_TRUE(s.isEmpty());
    EXPECT_EQ(s.field(2, FieldMeaning), "");
}
