#include "translit/guess.h"

#include "core/app.h"
#include "core/text.h"

namespace nebkaro {

std::string guessTransliteration(const GlyphTable& glyphs, const SignLists& lists) {
    std::string t;
    for (int g = 0; g < GlyphTable::Slots; ++g) {
        const GlyphSlot& slot = glyphs[g];
        if (!slot.used()) continue; // an empty slot does not end the word
        const int row = lists.findPhonetic(0, *slot.code);
        if (row < 0) continue;
        const std::string& value = lists.phonetic.at(static_cast<std::size_t>(row))[1];
        // A plain substring test: a value already contained in the text so far is dropped.
        if (text::find(t, value) == 0) t += value;
    }
    return t;
}

void transGuess(App& app) {
    std::string& box = app.view.transliteration;
    const std::string guess = guessTransliteration(app.glyphs, app.lists);
    // Clearing the box changes it when it held something, and so does filling it.
    const bool changed = !box.empty() || !guess.empty();
    box = guess;
    if (changed) {
        app.view.textChanged = true;
        app.store.editPending = true;
    }
    app.windows->wordViewChanged();
}

} // namespace nebkaro
