#include "translit/typewriter.h"

#include "core/app.h"
#include "core/text.h"

namespace nebkaro {

std::vector<std::string> TypewriterKeys(bool alphabetical) {
    std::string set = "1 2 3 4 5 6 7 8 9 0 ? / . , = ";
    set += alphabetical ? AlphabeticalLetters : EgyptologicalLetters;
    return text::split(set, ' ');
}

void TypewriterLoad(const App& app, TypewriterState& state) {
    state.soundPath = app.home / "system" / "typewriter-key-1.wav";
    SetTypewriterLayout(state, false);
}

void SetTypewriterLayout(TypewriterState& state, bool alphabetical) {
    state.keys = TypewriterKeys(alphabetical);
    state.alphabetical = alphabetical;
    state.mnuLatinChecked = alphabetical;
    state.mnuEgyptChecked = !alphabetical;
    state.caption = alphabetical ? "Typewriter - Alphabetical" : "Typewriter - Egyptological";
}

namespace {

// The text of the box the typewriter types into: TransLitTxt of the main window, txtSearch of
// the Search dialog while it is loaded, or a box the browser or the composer hands over.
// nullptr when that box does not exist now.
std::string* targetText(App& app) {
    switch (app.typewriterTarget) {
    case TypewriterTarget::MainTransLit:
        return &app.view.TransLitTxt;
    case TypewriterTarget::SearchText:
        return app.search.loaded ? &app.search.txtSearch : nullptr;
    case TypewriterTarget::BrowserTrans:
    case TypewriterTarget::ComposerMdC:
        return app.windows->typewriterText(app.typewriterTarget);
    case TypewriterTarget::None:
        break;
    }
    return nullptr;
}

// The target box's Change: the main window's box counts as typed into, like a key press would
// make it; every box shows its new text.
void changed(App& app) {
    if (app.typewriterTarget == TypewriterTarget::MainTransLit) {
        app.view.textChanged = true;
        app.windows->wordViewChanged();
    } else {
        app.windows->typewriterTextChanged(app.typewriterTarget);
    }
}

bool append(App& app, std::string_view s) {
    std::string* t = targetText(app);
    if (!t) {
        app.dialogs.beep();
        return false;
    }
    if (s.empty()) return true;
    *t += s;
    changed(app);
    return true;
}

} // namespace

bool TypewriterKey(App& app, std::string_view caption) {
    return append(app, caption);
}

bool TypewriterSpace(App& app) {
    return append(app, " ");
}

bool TypewriterBackspace(App& app) {
    std::string* t = targetText(app);
    if (!t) {
        app.dialogs.beep();
        return false;
    }
    if (t->empty()) return true;
    // One character, which in UTF-8 may be several bytes.
    std::size_t cut = t->size() - 1;
    while (cut > 0 && (static_cast<unsigned char>((*t)[cut]) & 0xC0) == 0x80) --cut;
    t->erase(cut);
    changed(app);
    return true;
}

int TypewriterLeftBeside(int callerLeft, int callerWidth, int typewriterWidth, int screenWidth) {
    const int right = callerLeft + callerWidth;
    if (right + typewriterWidth > screenWidth) return callerLeft - typewriterWidth;
    return right;
}

int TypewriterLeftBesideMain(int mainLeft, int mainWidth, int typewriterWidth) {
    const int left =
        text::toInt16(static_cast<double>(mainLeft) - static_cast<double>(typewriterWidth));
    if (left >= 0) return left;
    return text::toInt16(static_cast<double>(mainLeft) + static_cast<double>(mainWidth));
}

} // namespace nebkaro
