#include "composer/code_parser.h"

#include "core/text.h"

namespace nebkaro {

namespace {
bool joinsToken(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}
bool endsToken(char c) {
    return c == '-' || c == ' ' || c == '*' || c == ':';
}
} // namespace

CodeLine tokenizeCodeLine(const std::string& line) {
    CodeLine out;
    const std::string text = text::trim(line) + " ";
    if (text == " ") return out;
    std::string token;
    // Once the line has had a letter or digit, every separator ends a token, even an empty
    // one: the flag is never cleared.
    bool pending = false;
    // Bytes of multi-byte characters are never ASCII letters, digits or separators, so
    // walking bytes skips them whole.
    for (char c : text) {
        if (joinsToken(c)) {
            token += c;
            pending = true;
            continue;
        }
        if (!endsToken(c) || !pending) continue;
        const char sep = c == ' ' ? '-' : c;
        out.separators += sep;
        out.tokens.push_back({token, sep});
        token.clear();
    }
    return out;
}

bool looksLikeGardinerCode(const std::string& token) {
    if (token.size() == 1 || token.empty()) return false;
    const char first =
        static_cast<char>(text::upperChar(static_cast<unsigned char>(token.front())));
    const char last = static_cast<char>(text::upperChar(static_cast<unsigned char>(token.back())));
    return first >= 'A' && last <= '9';
}

TokenResolution resolveToken(const SignLists& lists, const std::string& token) {
    TokenResolution r;
    r.code = token;
    if (!looksLikeGardinerCode(token)) {
        const int row = lists.findPhonetic(1, token);
        if (row < 0) {
            r.outcome = TokenResolution::Outcome::PhoneticNotFound;
            return r;
        }
        r.code = lists.phonetic[static_cast<std::size_t>(row)][0];
    }
    r.entry = lists.findSign(r.code);
    if (r.entry == 0) r.outcome = TokenResolution::Outcome::GlyphNotFound;
    return r;
}

std::string separatorDiagnostic(const std::string& separators) {
    if (separators.empty()) return {};
    const std::string s = separators.substr(0, separators.size() - 1);
    const std::size_t len = s.size();
    // Two characters starting at 1-based position p, as far as the text reaches.
    auto pair = [&](std::size_t p) {
        return p >= 1 && p <= len ? s.substr(p - 1, 2) : std::string();
    };
    std::string shown = s;
    for (std::size_t i = 1; i <= len; ++i) {
        const std::size_t p = text::find(s, ":", i);
        if (p == 0) break;
        bool flag = len == 1;
        if (len >= 2 && p >= 2 && p < len) flag = pair(p - 1) == "-:" || pair(p) == ":-";
        bool value = (p == 1 && len > 1 && s.compare(0, 2, ":-") == 0) ? true : flag;
        if (len >= 2 && p == len && pair(p - 1) == "-:") value = true;
        shown = value ? "True" : "False";
    }
    return shown;
}

} // namespace nebkaro
