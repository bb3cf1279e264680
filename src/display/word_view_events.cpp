#include "display/word_view_events.h"

#include "translit/unicode_translit.h"

#include "core/app.h"
#include "display/main_layout.h"

#include <cmath>

namespace nebkaro {

std::string& textOf(WordView& view, TextBox box) {
    switch (box) {
    case TextBox::Gardiner:
        return view.gardiner;
    case TextBox::TransLit:
        return view.transliteration;
    case TextBox::Meaning:
        return view.meaning;
    case TextBox::Comment:
        break;
    }
    return view.comment;
}

void textBoxChanged(App& app, TextBox box, const std::string& text) {
    // Transliterations are stored in plain letters; scholarly ones typed or pasted are read.
    textOf(app.view, box) = box == TextBox::TransLit ? plainFromScholarly(text) : text;
    app.view.textChanged = true;
}

void textBoxGotFocus(App& app, TextBox box) {
    if (box == TextBox::TransLit) {
        app.typewriterTarget = TypewriterTarget::MainTransLit;
        app.view.transLitCopy = app.view.transliteration;
        return;
    }
    app.view.textChanged = false;
}

void textBoxLostFocus(App& app, TextBox) {
    if (app.view.textChanged) app.store.editPending = true;
}

std::optional<HideBox> windowKeyDown(WordView& view, int keyCode) {
    const int before = view.previousKey;
    view.previousKey = keyCode;
    if (before != KeyControl) return std::nullopt;
    HideBox box;
    if (keyCode == KeyG)
        box = HideBox::Gardiner;
    else if (keyCode == KeyM)
        box = HideBox::Meaning;
    else
        return std::nullopt;
    bool& hidden = view.hidden[static_cast<std::size_t>(box)];
    hidden = !hidden;
    return box;
}

bool opensFieldMenu(const WordView& view, int button, int x, int y) {
    return button == RightButton && view.geometry.displayArea.contains(x, y);
}

void toggleShowBorders(WordView& view) {
    view.showBorders = !view.showBorders;
}

void resizeWordView(WordView& view, int windowWidth) {
    const int before = view.geometry.displayArea.width;
    resizeMainWindow(view, windowWidth);
    // The renderer centred the group on the old display area; the same offset from the new
    // centre keeps it centred.
    const int shift = static_cast<int>(std::lround(view.geometry.displayArea.width / 2.0) -
                                       std::lround(before / 2.0));
    if (shift == 0) return;
    for (GlyphImage& img : view.mainGlyphPic)
        if (img.visible) img.left += shift;
}

} // namespace nebkaro
