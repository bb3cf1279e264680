#include "bulk/search_dialog.h"
#include "core/app.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(SearchDialog, OptionEffectsKeepTheTransliterationAsymmetry) {
    struct Step {
        int field;
        bool font, typewriter, ignoreVariants;
    };
    // Transliteration leaves Ignore Variants as the choice before it left it.
    const std::vector<Step> steps = {
        {FieldGardiner, false, false, true}, {FieldTranslit, true, true, true},
        {FieldMeaning, false, false, false}, {FieldTranslit, true, true, false},
        {FieldGardiner, false, false, true}, {FieldComment, false, false, false},
        {FieldTranslit, true, true, false},  {FieldLayout, false, true, true},
    };
    TestApp t;
    searchDialogLoad(t.app);
    for (const Step& s : steps) {
        searchChooseOption(t.app, s.field);
        EXPECT_EQ(t.app.search.transliterationFont, s.font) << s.field;
        EXPECT_EQ(t.app.search.typewriterEnabled, s.typewriter) << s.field;
        EXPECT_EQ(t.app.search.ignoreVariantsEnabled, s.ignoreVariants) << s.field;
    }
    searchChooseOption(t.app, FieldDirection); // not an option of the dialog
    EXPECT_EQ(t.app.search.option, FieldLayout);
}

TEST(SearchDialog, ExactMatchAndExactWordExcludeEachOther) {
    TestApp t;
    SearchDialogState& d = t.app.search;
    searchSetExact(t.app, true);
    searchSetExactWord(t.app, true);
    EXPECT_FALSE(d.exactChecked);
    searchSetExact(t.app, true);
    EXPECT_FALSE(d.exactWordChecked);
    searchSetExactWord(t.app, true);
    searchSetExact(t.app, false); // unchecking leaves the other alone
    EXPECT_TRUE(d.exactWordChecked);
}

// An empty box is refused (see SearchTest); a blank is something, and OK takes the option.
TEST(SearchDialog, OkAcceptsABlankTakesTheOptionAndHides) {
    TestApp t;
    searchDialogLoad(t.app);
    t.app.search.visible = true;
    searchChooseOption(t.app, FieldGardiner);
    t.app.search.searchText = " ";
    EXPECT_TRUE(searchOk(t.app));
    EXPECT_EQ(t.app.searchField, FieldGardiner);
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
    EXPECT_FALSE(t.app.search.visible);
}
