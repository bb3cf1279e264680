#include "display/render.h"
#include "display/word_view_events.h"
#include "fakes.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::testing;

// Drawing the word changed the boxes' texts, so textChanged is set when the user arrives.
// Typing and leaving marks the word edited; entering and leaving does so only for the
// transliteration, which does not forget the change on entry.
TEST(WordViewEvents, LeavingABoxMarksTheWordEditedWhenItWasTypedInto) {
    TestApp t;
    t.pictures.sizes = {{"A1", {300, 540}}};
    t.app.store.setRow(0, {"L", "B", "A1(0,0) ", "A1", "i", "reed", ""});
    renderWord(t.app);
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
