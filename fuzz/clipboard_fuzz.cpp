// Pasting any clipboard text: the store's indices stay consistent and errors are RunErrors;
// a word copied and pasted comes back field for field when no field holds "|" and the comment
// does not end in a line break.
#include "core/errors.h"
#include "display/render.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"
#include "fuzz_check.h"
#include "fuzz_ports.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzApp f;
    App& app = f.app;
    installEditing(app);
    app.store.setRow(0, {"L", "B", "A1(0,0) ", "A1", "i", "reed", ""});
    app.store.lastIndex = 0;
    app.store.currentIndex = 0;
    const std::string text(reinterpret_cast<const char*>(data), size);
    f.clipboard.content = text;
    try {
        pasteWord(app);
    } catch (const RunError&) {
    } catch (const StoreFull&) {
    }
    FUZZ_CHECK(app.store.lastIndex >= 0 && app.store.lastIndex <= 1);
    FUZZ_CHECK(app.store.currentIndex >= 0 && app.store.currentIndex <= app.store.lastIndex);

    // Round trip: the fields of the text, when it has no "|" in a field and starts with a
    // direction, come back through Copy and Paste.
    WordRecord w;
    std::size_t pos = 0;
    for (int i = 0; i < FieldCount; ++i) {
        auto bar = text.find('|', pos);
        w[static_cast<std::size_t>(i)] =
            text.substr(pos, i == FieldCount - 1 ? std::string::npos : bar - pos);
        if (i < FieldCount - 1 && bar == std::string::npos) return 0;
        pos = bar + 1;
    }
    if (w[6].find('|') != std::string::npos || (w[0] != "L" && w[0] != "R")) return 0;
    // A line break ending the text is the clipboard's, not the comment's: Paste drops it.
    if (!w[6].empty() && (w[6].back() == '\r' || w[6].back() == '\n')) return 0;
    fuzz::FuzzApp g;
    installEditing(g.app);
    g.app.store.setRow(0, w);
    g.app.store.lastIndex = 0;
    g.app.store.currentIndex = 0;
    try {
        renderWord(g.app);
    } catch (const RunError&) {
        return 0; // a layout that does not parse cannot be shown, but is still copied
    }
    copyWord(g.app);
    pasteWord(g.app);
    FUZZ_CHECK(g.app.store.lastIndex == 1);
    FUZZ_CHECK(g.app.store.row(1) == w);
    return 0;
}
