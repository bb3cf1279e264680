#include "bulk/search_dialog.h"
#include "core/app.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(SearchDialog, OptionEffectsKeepTheTransliterationAsymmetry) {
    struct Step {
        int field;
        bool font;
        bool typewriter;
        bool ignoreVariants;
    };
    // Transliteration leaves Ignore Variants as the choice before it left it.
    const std::vector<Step> steps = {
        {FieldGardiner, false, false, true}, {FieldTranslit, true, true, true},
        {FieldMeaning, false, false, false}, {FieldTranslit, true, true, false},
        {FieldGardiner, false, false, true}, {FieldComment, false, false, false},
        {FieldTranslit, true, true, false},  {FieldLayout, false, true, true},
    };
    TestApp t;
    SearchDialogLoad(t.app);
    for (const Step& s : steps) {
        SearchChooseOption(t.app, s.field);
        EXPECT_EQ(t.app.search.option, s.field);
        EXPECT_EQ(t.app.search.transliterationFont, s.font) << s.field;
        EXPECT_EQ(t.app.search.cmdTypewriterEnabled, s.typewriter) << s.field;
        EXPECT_EQ(t.app.search.chkIgnoreVariantsEnabled, s.ignoreVariants) << s.field;
    }
    SearchChooseOption(t.app, FieldDirection); // not an option of the dialog
    EXPECT_EQ(t.app.search.option, FieldLayout);
}

TEST(SearchDialog, ExactMatchAndExactWordExcludeEachOther) {
    TestApp t;
    SearchDialogState& d = t.app.search;
    SearchSetExact(t.app, true);
    SearchSetExactWord(t.app, true);
    EXPECT_FALSE(d.ChkExact);
    SearchSetExact(t.app, true);
    EXPECT_FALSE(d.chkExactWord);
    SearchSetExact(t.app, false); // unchecking leaves the other alone
    SearchSetExactWord(t.app, true);
    SearchSetExact(t.app, false);
    EXPECT_TRUE(d.chkExactWord);
}

TEST(SearchDialog, OkRefusesAnEmptyTextAndOtherwiseAcceptsAndHides) {
    TestApp t;
    SearchDialogLoad(t.app);
    t.app.search.visible = true;
    SearchChooseOption(t.app, FieldGardiner);
    EXPECT_FALSE(SearchOk(t.app));
    EXPECT_EQ(t.dialogs.messages(),
              std::vector<std::string>{"You must write something in the search box"});
    EXPECT_TRUE(t.app.search.visible);
    EXPECT_EQ(t.app.searchField, FieldMeaning);
    t.app.search.txtSearch = " "; // a blank is something
    EXPECT_TRUE(SearchOk(t.app));
    EXPECT_EQ(t.app.searchField, FieldGardiner);
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
    EXPECT_FALSE(t.app.search.visible);
}
