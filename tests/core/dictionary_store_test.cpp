#include "core/dictionary_store.h"
#include "core/errors.h"

#include <gtest/gtest.h>

using namespace nebkaro;

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

TEST(DictionaryStore, The100001stWordFitsAndTheNextIsRefused) {
    DictionaryStore s;
    s.setField(0, FieldGardiner, "A1");
    s.lastIndex = 99999;
    EXPECT_EQ(s.takeRowForNewWord(), 100000);
    EXPECT_THROW(s.takeRowForNewWord(), StoreFull);
    EXPECT_EQ(s.lastIndex, 100000);
}
