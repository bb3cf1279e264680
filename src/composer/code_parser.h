#pragma once
// Reading a typed line of sign codes and phonetic values ("A1-G17", "n:t", "nfr A1"): the
// tokens, the separators between them, and what each token resolves to in the sign list.
#include "core/sign_lists.h"

#include <string>
#include <vector>

namespace nebkaro {

// One token as the separator after it ended it. The separator is '-', '*' or ':' (a blank
// counts as '-'). A token may be empty: two separators in a row after the first letter or
// digit of the line end an empty token, which is then looked up like any other.
struct CodeToken {
    std::string text;
    char separator = '-';
};

struct CodeLine {
    std::vector<CodeToken> tokens;
    // Every separator that ended a token, in order (the last one is the blank that closes
    // the line).
    std::string separators;
};

// Splits a line the way Get reads it: trimmed, one blank added so that the last token ends
// like every other. ASCII letters and digits join a token; "-", " ", "*" and ":" end one once
// the line has had a letter or digit; every other character is skipped. An empty or blank
// line gives no tokens.
CodeLine tokenizeCodeLine(const std::string& line);

// A token is taken for a Gardiner code when it is not one character long, its first
// character upper-cased is "A" or above and its last is "9" or below: "G17" and "Aa1" are
// codes, "n", "nfr" and "N35a" are phonetic values.
bool looksLikeGardinerCode(const std::string& token);

struct TokenResolution {
    enum class Outcome { Found, PhoneticNotFound, GlyphNotFound };
    Outcome outcome = Outcome::Found;
    std::string code; // the code looked up in the sign list (typed, or from the phonetic table)
    int entry = 0;    // its entry number in the sign list when found
};

// A code-shaped token is looked up in the sign list; any other token first in the phonetic
// table (first equal value, case-sensitive), then its code in the sign list.
TokenResolution resolveToken(const SignLists& lists, const std::string& token);

// The diagnostic line shown after Get: the separators without the closing one, then, when
// the line had a ":", whether a ":" stands next to a "-" ("True" or "False").
std::string separatorDiagnostic(const std::string& separators);

} // namespace nebkaro
