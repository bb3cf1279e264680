#include "bulk/search_dialog.h"
#include "core/app.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

TEST(SearchDialog, LoadingStartsFreshWithTheLastFieldChosen) {
    TestApp t;
    t.app.searchAccepted = true;
    t.app.search.txtSearch = "old";
    t.app.typewriterTarget = TypewriterTarget::MainTransLit;
    SearchDialogLoad(t.app);
    EXPECT_TRUE(t.app.search.loaded);
    EXPECT_FALSE(t.app.searchAccepted);
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::SearchText);
    EXPECT_EQ(t.app.search.txtSearch, "");
    EXPECT_EQ(t.app.search.option, FieldMeaning);
    EXPECT_FALSE(t.app.search.cmdTypewriterEnabled);
    EXPECT_FALSE(t.app.search.chkIgnoreVariantsEnabled);

    t.app.searchField = FieldTranslit;
    SearchDialogLoad(t.app);
    EXPECT_EQ(t.app.search.option, FieldTranslit);
    EXPECT_TRUE(t.app.search.transliterationFont);
    EXPECT_TRUE(t.app.search.cmdTypewriterEnabled);
}

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
    EXPECT_TRUE(d.ChkExact);
    SearchSetExactWord(t.app, true);
    EXPECT_TRUE(d.chkExactWord);
    EXPECT_FALSE(d.ChkExact);
    SearchSetExact(t.app, true);
    EXPECT_FALSE(d.chkExactWord);
    SearchSetExact(t.app, false); // unchecking leaves the other alone
    EXPECT_FALSE(d.ChkExact);
    EXPECT_FALSE(d.chkExactWord);
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
    ASSERT_EQ(t.dialogs.prompts.size(), 1u);
    EXPECT_EQ(t.dialogs.prompts[0].text, "You must write something in the search box");
    EXPECT_EQ(t.dialogs.prompts[0].title, "Null String");
    EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Exclamation);
    EXPECT_EQ(t.dialogs.prompts[0].buttons, Buttons::OK);
    EXPECT_TRUE(t.app.search.visible);
    EXPECT_FALSE(t.app.searchAccepted);
    EXPECT_EQ(t.app.searchField, FieldMeaning);
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::SearchText);

    t.app.search.txtSearch = " "; // a blank is something
    EXPECT_TRUE(SearchOk(t.app));
    EXPECT_TRUE(t.app.searchAccepted);
    EXPECT_EQ(t.app.searchField, FieldGardiner);
    EXPECT_EQ(t.app.typewriterTarget, TypewriterTarget::MainTransLit);
    EXPECT_FALSE(t.app.search.visible);
    EXPECT_TRUE(t.app.search.loaded);
}

TEST(SearchDialog, CancelUnloadsAndForgetsTheEntries) {
    TestApp t;
    SearchDialogLoad(t.app);
    t.app.search.txtSearch = "sun";
    SearchSetExact(t.app, true);
    t.app.searchAccepted = true;
    SearchCancel(t.app);
    EXPECT_FALSE(t.app.searchAccepted);
    EXPECT_FALSE(t.app.search.loaded);
    EXPECT_EQ(t.app.search.txtSearch, "");
    EXPECT_FALSE(t.app.search.ChkExact);
}

TEST(SearchDialog, NeverNarrowerThanItsMinimum) {
    EXPECT_EQ(SearchDialogWidth(3000), 4488);
    EXPECT_EQ(SearchDialogWidth(4487), 4488);
    EXPECT_EQ(SearchDialogWidth(4488), 4488);
    EXPECT_EQ(SearchDialogWidth(6000), 6000);
    EXPECT_EQ(SearchTextWidth(4488), 4088);
    EXPECT_EQ(SearchTextWidth(6000), 5600);
}
