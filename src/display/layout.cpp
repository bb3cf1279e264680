#include "display/layout.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"

namespace nebkaro {

namespace {
// Mid$ with 1-based start and a length that must not be negative.
std::string mid(const std::string& s, long start, long length) {
    if (start < 1 || length < 0) throw RunError(InvalidArgument);
    if (static_cast<std::size_t>(start) > s.size()) return {};
    return s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

long instr(long start, const std::string& s, const char* needle) {
    if (start < 1) throw RunError(InvalidArgument);
    return static_cast<long>(text::find(s, needle, static_cast<std::size_t>(start)));
}
} // namespace

void parseLayoutString(const std::string& s, GlyphTable& table) {
    table.clear();
    if (s.size() > 32767) throw RunError(Overflow);
    const long len = static_cast<long>(s.size());
    int slot = 0;
    for (long j = 1; j <= len; ++j) {
        const long p = instr(j, s, "(");
        const std::string code = text::trim(mid(s, j, p - j));
        if (slot >= GlyphTable::Slots) throw RunError(SubscriptOutOfRange);
        table[slot].code = code;
        j = p;
        const long q = instr(j, s, ",");
        table[slot].x = text::toNumber(text::trim(mid(s, j + 1, q - j - 1)));
        j = q;
        const long r = instr(j, s, ")");
        table[slot].y = text::toNumber(text::trim(mid(s, j + 1, r - j - 1)));
        // The separator is looked for from one character before ")", so a "-" inside a
        // negative Y is never taken for it.
        const long d = instr(r - 1, s, "-");
        j = d > 0 ? d + 1 : r + 1;
        ++slot;
    }
}

void parseLayout(App& app) {
    if (app.store.lastIndex < 0) return;
    parseLayoutString(app.store.field(app.store.currentIndex, FieldLayout), app.glyphs);
}

namespace {
template <typename Number> std::string writeLayout(const GlyphTable& table, Number number) {
    std::string out;
    for (const GlyphSlot& g : table.cells) {
        if (!g.used()) continue;
        out += *g.code + "(" + number(g.x) + "," + number(g.y) + ") - ";
    }
    return out;
}
} // namespace

std::string composerLayoutString(const GlyphTable& table) {
    std::string out = writeLayout(table, [](double v) { return text::plainNumber(v); });
    if (out.size() >= 2) out.resize(out.size() - 2);
    return out;
}

std::string mirrorLayoutString(const GlyphTable& table) {
    std::string out = writeLayout(table, [](double v) { return text::numberText(v); });
    // The cut of the last two characters is not guarded: a word without signs fails here.
    if (out.size() < 2) throw RunError(InvalidArgument);
    out.resize(out.size() - 2);
    return out;
}

} // namespace nebkaro
