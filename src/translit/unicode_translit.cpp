#include "translit/unicode_translit.h"

#include <array>
#include <utility>

namespace nebkaro {

namespace {
// One table for both directions, so that they can never disagree. The first spelling of a
// plain letter is the one written; every spelling is read: the capitals (a name or a sentence
// starts with one), the letters built from a base letter and a combining mark (as some
// programs paste them), and the stand-ins older fonts used (yogh for aleph, the half ring for
// ayin, the Egyptological yod). "j" (the weak yod) is written i with the inverted breve below,
// and the typewriter's "o" is the plain q.
constexpr std::array<std::pair<char, std::string_view>, 45> Letters{{
    {'A', "\xea\x9c\xa3"}, // ꜣ U+A723
    {'a', "\xea\x9c\xa5"}, // ꜥ U+A725
    {'i', "\xe1\xbb\x89"}, // ỉ U+1EC9
    {'j', "i\xcc\xaf"},    // i̯ i + U+032F
    {'H', "\xe1\xb8\xa5"}, // ḥ U+1E25
    {'x', "\xe1\xb8\xab"}, // ḫ U+1E2B
    {'X', "\xe1\xba\x96"}, // ẖ U+1E96
    {'q', "\xe1\xb8\xb3"}, // ḳ U+1E33
    {'o', "q"},            // the other spelling of ḳ's sound
    {'S', "\xc5\xa1"},     // š U+0161
    {'T', "\xe1\xb9\xaf"}, // ṯ U+1E6F
    {'D', "\xe1\xb8\x8f"}, // ḏ U+1E0F
    {'A', "\xea\x9c\xa2"}, // Ꜣ U+A722
    {'a', "\xea\x9c\xa4"}, // Ꜥ U+A724
    {'i', "\xe1\xbb\x88"}, // Ỉ U+1EC8
    {'j', "I\xcc\xaf"},    // I̯
    {'H', "\xe1\xb8\xa4"}, // Ḥ U+1E24
    {'x', "\xe1\xb8\xaa"}, // Ḫ U+1E2A
    {'X', "H\xcc\xb1"},    // H̱ (no capital of its own)
    {'q', "\xe1\xb8\xb2"}, // Ḳ U+1E32
    {'S', "\xc5\xa0"},     // Š U+0160
    {'T', "\xe1\xb9\xae"}, // Ṯ U+1E6E
    {'D', "\xe1\xb8\x8e"}, // Ḏ U+1E0E
    {'H', "h\xcc\xa3"},    // h + dot below
    {'H', "H\xcc\xa3"},    //
    {'x', "h\xcc\xae"},    // h + breve below
    {'x', "H\xcc\xae"},    //
    {'X', "h\xcc\xb1"},    // h + macron below
    {'q', "k\xcc\xa3"},    // k + dot below
    {'q', "K\xcc\xa3"},    //
    {'S', "s\xcc\x8c"},    // s + caron
    {'S', "S\xcc\x8c"},    //
    {'T', "t\xcc\xb1"},    // t + macron below
    {'T', "T\xcc\xb1"},    //
    {'D', "d\xcc\xb1"},    // d + macron below
    {'D', "D\xcc\xb1"},    //
    {'i', "i\xcc\x89"},    // i + hook above
    {'i', "I\xcc\x89"},    //
    {'i', "\xea\x9e\xbd"}, // ꞽ U+A7BD
    {'i', "\xea\x9e\xbc"}, // Ꞽ U+A7BC
    {'i', "i\xcd\x97"},    // i + right half ring above
    {'A', "\xc8\x9d"},     // ȝ U+021D
    {'A', "\xc8\x9c"},     // Ȝ U+021C
    {'a', "\xca\xbf"},     // ʿ U+02BF
    {'q', "q\xcc\x87"},    // q̇
}};
} // namespace

std::string scholarlyFromPlain(std::string_view plain) {
    std::string out;
    out.reserve(plain.size() * 2);
    for (char c : plain) {
        std::string_view letter;
        for (const auto& [p, s] : Letters)
            if (p == c) {
                letter = s;
                break;
            }
        if (letter.empty())
            out += c;
        else
            out += letter;
    }
    return out;
}

std::string plainFromScholarly(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        char plain = 0;
        std::size_t length = 0;
        for (const auto& [p, s] : Letters) {
            // The plain q stays q: only the multi-byte letters are read back.
            if (s.size() > 1 && s.size() > length && text.substr(i, s.size()) == s) {
                plain = p;
                length = s.size();
            }
        }
        if (length == 0) {
            out += text[i++];
        } else {
            out += plain;
            i += length;
        }
    }
    return out;
}

} // namespace nebkaro
