#include "display/render.h"
#include "display/word_view_events.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {
struct WordViewTest : ::testing::Test {
    TestApp t;
    void SetUp() override {
        t.pictures.sizes = {{"A1", {300, 540}}, {"N35", {600, 90}}};
        t.app.store.setRow(0, {"L", "B", "A1(0,0) ", "A1", "i", "reed", ""});
        renderWord(t.app);
    }
};

} // namespace

// Drawing the word changed the boxes' texts, so textChanged is set when the user arrives.
// Typing and leaving marks the word edited; entering and leaving does so only for the
// transliteration, which does not forget the change on entry.
TEST_F(WordViewTest, LeavingABoxMarksTheWordEditedWhenItWasTypedInto) {
    const std::tuple<TextBox, bool, bool> cases[] = {
        {TextBox::Gardiner, true, true},   {TextBox::TransLit, true, true},
        {TextBox::Meaning, true, true},    {TextBox::Comment, true, true},
        {TextBox::Gardiner, false, false}, {TextBox::Meaning, false, false},
        {TextBox::Comment, false, false},  {TextBox::TransLit, false, true},
    };
    for (auto [box, typed, edited] : cases) {
        SCOPED_TRACE(static_cast<int>(box));
        t.app.store.editPending = false;
        t.app.view.textChanged = true;
        textBoxGotFocus(t.app, box);
        if (typed) textBoxChanged(t.app, box, "typed");
        textBoxLostFocus(t.app, box);
        EXPECT_EQ(t.app.store.editPending, edited);
        // Only the transliteration reads scholarly letters as its plain ones.
        textBoxChanged(t.app, box, "ḥtp");
        EXPECT_EQ(textOf(t.app.view, box), box == TextBox::TransLit ? "Htp" : "ḥtp");
    }
}

TEST_F(WordViewTest, ControlThenGOrMTogglesTheirHideBoxes) {
    const std::tuple<std::vector<int>, bool, bool> cases[] = {
        // keys, Gardiner, meaning hidden
        {{KeyControl, KeyG}, true, false},
        {{KeyControl, KeyM}, false, true},
        {{KeyG}, false, false},                               // G alone
        {{KeyControl, 65, KeyG}, false, false},               // Ctrl, then another key, then G
        {{KeyControl, KeyG, KeyG}, true, false},              // the second G follows G, not Ctrl
        {{KeyControl, KeyG, KeyControl, KeyG}, false, false}, // toggled twice
        {{KeyControl, KeyControl, KeyM}, false, true},        // a held Ctrl repeats its code
        {{KeyM, KeyControl}, false, false},                   // wrong order
    };
    for (const auto& [keys, gardiner, meaning] : cases) {
        WordView v;
        for (int k : keys) windowKeyDown(v, k);
        EXPECT_EQ(std::pair(v.hidden[static_cast<int>(HideBox::Gardiner)],
                            v.hidden[static_cast<int>(HideBox::Meaning)]),
                  std::pair(gardiner, meaning))
            << ::testing::PrintToString(keys);
        EXPECT_EQ(v.previousKey, keys.back());
    }
}
