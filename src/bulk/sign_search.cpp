#include "bulk/sign_search.h"

#include "core/dictionary_store.h"
#include "core/errors.h"
#include "core/sign_lists.h"
#include "translit/unicode_translit.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace nebkaro {

namespace {

bool isAsciiAlnum(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
// The letters of the variant test are those the other searches use: "A" to "z".
bool isVariantLetter(char c) {
    return c >= 'A' && c <= 'z';
}

// A1a -> A1, N35b -> N35; Aa1 and A1 have no variant letter and stay.
std::string_view foldVariant(std::string_view code) {
    if (code.size() < 2 || !isVariantLetter(code.back())) return code;
    for (std::size_t i = 0; i + 1 < code.size(); ++i)
        if (isDigit(code[i]) && isVariantLetter(code[i + 1]))
            return code.substr(0, code.size() - 1);
    return code;
}

std::string_view trimBlanks(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// Gardiner codes are written with a capital category letter and small letters after it.
std::string canonicalCode(std::string_view token) {
    std::string code(token);
    for (std::size_t i = 0; i < code.size(); ++i)
        code[i] = static_cast<char>(i == 0 ? std::toupper(static_cast<unsigned char>(code[i]))
                                           : std::tolower(static_cast<unsigned char>(code[i])));
    return code;
}

// The codes of one layout into a fixed buffer; a layout never holds more than 21 signs, and
// a malformed one longer than the buffer is read only as far as it goes.
constexpr std::size_t MaxCodes = 64;
std::size_t scanCodes(std::string_view layout, std::array<std::string_view, MaxCodes>& out) {
    std::size_t n = 0;
    std::size_t j = 0;
    while (j < layout.size() && n < MaxCodes) {
        const std::size_t open = layout.find('(', j);
        if (open == std::string_view::npos) break;
        const std::string_view code = trimBlanks(layout.substr(j, open - j));
        const std::size_t close = layout.find(')', open);
        if (!code.empty()) out[n++] = code;
        if (close == std::string_view::npos) break;
        // The next entry starts after the " - " that follows the closing bracket.
        j = close + 1;
        while (j < layout.size() && (layout[j] == ' ' || layout[j] == '-')) ++j;
    }
    return n;
}

// The query prepared for the walk: each distinct code once, with how often it is wanted.
struct Wanted {
    std::string code;
    int count = 0;
};

std::vector<Wanted> prepare(const SignQuery& query) {
    std::vector<Wanted> wanted;
    for (const std::string& c : query.codes) {
        const std::string code(query.foldVariants ? foldVariant(c) : std::string_view(c));
        auto it = std::find_if(wanted.begin(), wanted.end(),
                               [&](const Wanted& w) { return w.code == code; });
        if (it == wanted.end())
            wanted.push_back({code, 1});
        else
            ++it->count;
    }
    return wanted;
}

bool holds(std::string_view layout, const std::vector<Wanted>& wanted, bool fold) {
    if (wanted.empty()) return false;
    // Most words lack one of the codes as text at all, and that test is cheap: a code (or
    // a variant folded to it) always appears in the layout as written.
    for (const Wanted& w : wanted)
        if (layout.find(w.code) == std::string_view::npos) return false;
    std::array<std::string_view, MaxCodes> codes;
    const std::size_t n = scanCodes(layout, codes);
    for (const Wanted& w : wanted) {
        int have = 0;
        for (std::size_t k = 0; k < n; ++k)
            if ((fold ? foldVariant(codes[k]) : codes[k]) == w.code) ++have;
        if (have < w.count) return false;
    }
    return true;
}

} // namespace

SignQueryReading readSignQuery(const SignLists& lists, std::string_view text, bool foldVariants) {
    SignQueryReading r;
    r.query.foldVariants = foldVariants;
    const std::string plain = plainFromScholarly(text);
    std::size_t i = 0;
    while (i < plain.size()) {
        if (!isAsciiAlnum(plain[i])) {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < plain.size() && isAsciiAlnum(plain[end])) ++end;
        const std::string token = plain.substr(i, end - i);
        i = end;
        if (std::any_of(token.begin(), token.end(), isDigit)) {
            r.query.codes.push_back(canonicalCode(token));
            continue;
        }
        const int row = lists.findPhonetic(1, token);
        if (row < 0) {
            if (r.unknown.empty()) r.unknown = token;
            continue;
        }
        r.query.codes.push_back(lists.phonetic[static_cast<std::size_t>(row)][0]);
    }
    return r;
}

bool layoutHasSigns(std::string_view layout, const SignQuery& query) {
    return holds(layout, prepare(query), query.foldVariants);
}

std::vector<int> findAllBySigns(const DictionaryStore& store, const SignQuery& query) {
    std::vector<int> found;
    const std::vector<Wanted> wanted = prepare(query);
    if (wanted.empty()) return found;
    for (int i = 0; i <= store.lastIndex; ++i)
        if (holds(store.view(i, FieldLayout), wanted, query.foldVariants)) found.push_back(i);
    return found;
}

int findBySigns(const DictionaryStore& store, const SignQuery& query, int start, int end,
                int step) {
    if (step != 1 && step != -1) throw RunError(InvalidArgument);
    const std::vector<Wanted> wanted = prepare(query);
    for (int i = start; step > 0 ? i <= end : i >= end; i += step)
        if (holds(store.view(i, FieldLayout), wanted, query.foldVariants)) return i;
    return -1;
}

std::string signQueryText(const SignQuery& query) {
    std::string out;
    for (const std::string& c : query.codes) {
        if (!out.empty()) out += '-';
        out += c;
    }
    return out;
}

namespace {

SignQuery signQueryFromText(std::string_view codes, bool foldVariants) {
    SignQuery q;
    q.foldVariants = foldVariants;
    std::size_t i = 0;
    while (i <= codes.size()) {
        std::size_t dash = codes.find('-', i);
        if (dash == std::string_view::npos) dash = codes.size();
        if (dash > i) q.codes.emplace_back(codes.substr(i, dash - i));
        i = dash + 1;
    }
    return q;
}
} // namespace

} // namespace nebkaro

#include "core/app.h"
#include "core/search_state.h"

namespace nebkaro {

bool prepareSignCriteria(App& app, SearchCriteria& criteria) {
    const SearchDialogState& d = app.search;
    const SignQueryReading r = readSignQuery(app.lists, d.searchText, d.ignoreVariantsChecked);
    if (!r.unknown.empty()) {
        app.dialogs.message(r.unknown + " was not found", "Phonetic Not Found", Buttons::OK,
                            Icon::Exclamation);
        return false;
    }
    criteria = SearchCriteria{};
    criteria.pattern = signQueryText(r.query);
    criteria.caseSensitive = true;
    criteria.ignoreVariants = r.query.foldVariants;
    return true;
}

int findSignMatch(const DictionaryStore& store, const SearchCriteria& criteria, int start, int end,
                  int step) {
    return findBySigns(store, signQueryFromText(criteria.pattern, criteria.ignoreVariants), start,
                       end, step);
}

} // namespace nebkaro
