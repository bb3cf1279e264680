#pragma once
// The signs of the word on show (or being composed): 21 slots, each with the sign's entry in
// the sign list, its place (X = left, Y = top, in twips) and its Gardiner code. A slot is in
// use when it holds a code; an unused slot's code is absent (the number 0 of old).
#include <array>
#include <optional>
#include <string>

namespace nebkaro {

struct GlyphSlot {
    int entry = 0; // entry number in the sign list
    double x = 0;  // left
    double y = 0;  // top
    std::optional<std::string> code;

    bool used() const { return code.has_value(); }
};

struct GlyphTable {
    static constexpr int Slots = 21;
    std::array<GlyphSlot, Slots> cells{};

    void clear() { cells.fill(GlyphSlot{}); }
    GlyphSlot& operator[](int i) { return cells.at(static_cast<std::size_t>(i)); }
    const GlyphSlot& operator[](int i) const { return cells.at(static_cast<std::size_t>(i)); }
};

} // namespace nebkaro
