#pragma once
// The Gardiner code of every sign of the Unicode block of Egyptian hieroglyphs, with its code
// point, sorted by code (byte order). Generated from the Unicode character names.
#include <array>

namespace nebkaro {

struct UnicodeSign {
    const char* code;
    char32_t codePoint;
};

extern const std::array<UnicodeSign, 1071> UnicodeSigns;

} // namespace nebkaro
