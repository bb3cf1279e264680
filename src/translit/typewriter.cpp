#include "translit/typewriter.h"

#include "core/app.h"
#include "core/text.h"

namespace nebkaro {

std::vector<std::string> typewriterKeys(bool alphabetical) {
    std::string set = "1 2 3 4 5 6 7 8 9 0 ? / . , = ";
    set += alphabetical ? AlphabeticalLetters : EgyptologicalLetters;
    return text::split(set, ' ');
}

void typewriterLoad(const App& app, TypewriterState& state) {
    state.soundPath = app.home / "system" / "typewriter-key-1.wav";
    setTypewriterLayout(state, false);
}

void setTypewriterLayout(TypewriterState& state, bool alphabetical) {
    state.keys = typewriterKeys(alphabetical);
    state.alphabetical = alphabetical;
    state.latinChecked = alphabetical;
    state.egyptChecked = !alphabetical;
    state.caption = alphabetical ? "Typewriter - Alphabetical" : "Typewriter - Egyptological";
}

namespace {

// The text of the box the typewriter types into: transliteration of the main window, txtSearch of
// the Search dialog while it is loaded, or a box the browser or the composer hands over.
// nullptr when that box does not exist now.
std::string* targetText(App& app) {
    switch (app.typewriterTarget) {
    case TypewriterTarget::MainTransLit:
        return &app.view.transliteration;
    case TypewriterTarget::SearchText:
        return app.search.loaded ? &app.search.searchText : nullptr;
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

bool typewriterKey(App& app, std::string_view caption) {
    return append(app, caption);
}

bool typewriterSpace(App& app) {
    return append(app, " ");
}

bool typewriterBackspace(App& app) {
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

int typewriterLeftBeside(int callerLeft, int callerWidth, int typewriterWidth, int screenWidth) {
    const int right = callerLeft + callerWidth;
    if (right + typewriterWidth > screenWidth) return callerLeft - typewriterWidth;
    return right;
}

int typewriterLeftBesideMain(int mainLeft, int mainWidth, int typewriterWidth) {
    const int left =
        text::toInt16(static_cast<double>(mainLeft) - static_cast<double>(typewriterWidth));
    if (left >= 0) return left;
    return text::toInt16(static_cast<double>(mainLeft) + static_cast<double>(mainWidth));
}

} // namespace nebkaro
