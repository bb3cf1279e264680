#include "translit/unicode_translit.h"

#include <array>
#include <utility>

namespace nebkaro {

namespace {
// One table for both directions, so that they can never disagree. "j" (the weak yod) is
// written i with the inverted breve below, and the typewriter's "o" is the plain q.
constexpr std::array<std::pair<char, std::string_view>, 12> Letters{{
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
}};
} // namespace

std::string ScholarlyFromPlain(std::string_view plain) {
    std::string out;
    out.reserve(plain.size() * 2);
    for (char c : plain) {
        std::string_view letter;
        for (const auto& [p, s] : Letters)
            if (p == c) letter = s;
        if (letter.empty())
            out += c;
        else
            out += letter;
    }
    return out;
}

std::string PlainFromScholarly(std::string_view text) {
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
