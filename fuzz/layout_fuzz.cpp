// The layout-string parser on any text: errors are RunErrors, never crashes; and whatever it
// reads, the composer's writer writes in a form that parses back to the same signs.
#include "core/errors.h"
#include "core/text.h"
#include "display/layout.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string s(reinterpret_cast<const char*>(data), size);
    GlyphTable t;
    try {
        parseLayoutString(s, t);
    } catch (const RunError&) {
        return 0;
    }
    for (const auto& g : t.cells) {
        if (!g.used()) continue;
        if (g.code->find_first_of("(),-") != std::string::npos) return 0;
        if (text::trim(*g.code) != *g.code) return 0;
        for (double v : {g.x, g.y})
            if (text::toNumber(text::plainNumber(v)) != v) return 0;
    }
    GlyphTable back;
    parseLayoutString(composerLayoutString(t), back);
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        FUZZ_CHECK(back[i].code == t[i].code);
        if (!t[i].used()) continue;
        FUZZ_CHECK(back[i].x == t[i].x);
        FUZZ_CHECK(back[i].y == t[i].y);
    }
    return 0;
}
