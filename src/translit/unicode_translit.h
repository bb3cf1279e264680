#pragma once
// Transliteration in plain letters, as the program stores it ("Htp", "Dd"), and in the
// scholarly letters other tools and printed grammars use ("ḥtp", "ḏd").
#include <string>
#include <string_view>

namespace nebkaro {

// Each plain letter that stands for a sound of its own becomes its scholarly letter
// (A ꜣ, a ꜥ, i ỉ, j i̯, H ḥ, x ḫ, X ẖ, q ḳ, o q, S š, T ṯ, D ḏ); everything else is kept.
std::string scholarlyFromPlain(std::string_view plain);

// The other way: scholarly letters (small or capital, precomposed or a base letter with its
// combining mark) back to the plain letters the program stores; text without them comes back
// unchanged. What a user pastes or types into a transliteration box goes through this.
std::string plainFromScholarly(std::string_view text);

} // namespace nebkaro
