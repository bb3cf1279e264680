#include "bulk/search.h"
#include "bulk/sign_search.h"

#include "bulk/search_dialog.h"
#include "core/app.h"
#include "core/errors.h"
#include "core/guarded.h"
#include "core/text.h"

namespace nebkaro {

namespace {

bool isLetter(unsigned char c) {
    return c >= 'A' && c <= 'z';
} // the class [A-z]
bool isDigit(unsigned char c) {
    return c >= '0' && c <= '9';
}

// prepareValue into a buffer that the walk over the dictionary reuses for every word.
void prepareInto(std::string& out, std::string_view value, const SearchCriteria& c) {
    // Blanks go first and case after, in the order the pattern was prepared: only then do
    // both sides agree on texts that are not valid UTF-8.
    out.clear();
    bool ascii = true;
    for (char ch : value) {
        if (ch == ' ') continue;
        if (static_cast<unsigned char>(ch) >= 0x80) ascii = false;
        out += ch;
    }
    if (!c.caseSensitive) {
        if (ascii) {
            for (char& ch : out)
                if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 32);
        } else {
            out = text::upper(out);
        }
    }
    if (c.ignoreVariants) out = stripVariants(out);
}

// Whether the value, once prepared, holds the pattern of a plain substring search: 0 when it
// certainly does not, 1 when it does, -1 when only preparing it can tell. The pattern's case
// was folded once, with the criteria; an ASCII value is read in place, its blanks skipped and
// its letters folded as they are met, which is exactly what preparing it would do. Most words
// of a search do not match, and they cost no copy.
int plainOccurrence(std::string_view v, const SearchCriteria& c) {
    const std::string_view pat = c.pattern;
    if (c.hasWildcards || c.exact || c.ignoreVariants || pat.empty()) return -1;
    const bool fold = !c.caseSensitive;
    auto folded = [fold](unsigned char ch) {
        return fold && ch >= 'a' && ch <= 'z' ? static_cast<unsigned char>(ch - 32) : ch;
    };
    const auto first = static_cast<unsigned char>(pat[0]);
    for (std::size_t i = 0; i < v.size(); ++i) {
        const auto ch = static_cast<unsigned char>(v[i]);
        if (ch >= 0x80) return -1;
        if (folded(ch) != first) continue;
        std::size_t j = i + 1, k = 1;
        for (; k < pat.size(); ++j, ++k) {
            while (j < v.size() && v[j] == ' ') ++j;
            if (j >= v.size() ||
                folded(static_cast<unsigned char>(v[j])) != static_cast<unsigned char>(pat[k]))
                break;
        }
        if (k == pat.size()) return 1;
    }
    return 0;
}

} // namespace

SearchCriteria prepareCriteria(std::string_view text, bool exact, bool exactWord,
                               bool caseSensitive, bool ignoreVariants) {
    SearchCriteria c;
    c.exact = exact;
    c.exactWord = exactWord;
    c.pattern = text::removeAll(text::replaceAll(text, "/", "*"), ' ');
    c.hasWildcards = c.pattern.find_first_of("*?") != std::string::npos;
    c.caseSensitive = caseSensitive;
    c.ignoreVariants = ignoreVariants;
    if (!caseSensitive) c.pattern = text::upper(c.pattern);
    if (ignoreVariants) c.pattern = stripVariants(c.pattern);
    return c;
}

std::string prepareValue(std::string_view value, const SearchCriteria& criteria) {
    std::string out;
    prepareInto(out, value, criteria);
    return out;
}

std::string stripVariants(std::string_view s) {
    // Only texts with a digit followed by a letter somewhere ("*#[A-z]*") carry variants.
    bool variant = false;
    for (std::size_t i = 0; i + 1 < s.size() && !variant; ++i)
        variant = isDigit(static_cast<unsigned char>(s[i])) &&
                  isLetter(static_cast<unsigned char>(s[i + 1]));
    if (!variant) return std::string(s);
    std::string out;
    out.reserve(s.size());
    std::size_t start = 0;
    while (true) {
        const std::size_t dash = s.find('-', start);
        std::string_view piece =
            s.substr(start, dash == std::string_view::npos ? std::string_view::npos : dash - start);
        // A letter of [A-z] is one byte, so cutting one byte cuts one character.
        if (!piece.empty() && isLetter(static_cast<unsigned char>(piece.back())))
            piece.remove_suffix(1);
        out += piece;
        if (dash == std::string_view::npos) break;
        out += '-';
        start = dash + 1;
    }
    return out;
}

bool isWholeWord(std::size_t pos, std::string_view needle, std::string_view haystack) {
    // The rules are the patterns needle & "[!A-z]*", "*[!A-z]" & needle and
    // "*[!A-z]" & needle & "[!A-z]*" with the needle taken literally. A character outside
    // [A-z] is either one byte outside it or a multi-byte character, none of whose bytes is
    // in it, so looking at the single byte beside the needle decides.
    const std::size_t n = needle.size();
    const std::size_t h = haystack.size();
    auto nonLetterAt = [&](std::size_t i) {
        return !isLetter(static_cast<unsigned char>(haystack[i]));
    };
    if (n == h && pos == 1) return true;
    if (n < h && pos == 1) return haystack.substr(0, n) == needle && nonLetterAt(n);
    if (pos >= 2 && pos + n - 1 == h)
        return haystack.substr(h - n) == needle && nonLetterAt(h - n - 1);
    if (pos >= 2 && pos + n - 1 < h) {
        // Any occurrence with a character on each side, both non-letters.
        for (std::size_t at = haystack.find(needle, 1); at != std::string_view::npos && at + n < h;
             at = haystack.find(needle, at + 1))
            if (nonLetterAt(at - 1) && nonLetterAt(at + n)) return true;
    }
    return false;
}

SearchMatcher::SearchMatcher(SearchCriteria criteria) : criteria_(std::move(criteria)) {
    if (criteria_.hasWildcards) wildcard_.emplace(criteria_.pattern);
}

bool SearchMatcher::matches(std::string_view value) const {
    if (wildcard_) return wildcard_->matches(value);
    if (criteria_.exact) return value == criteria_.pattern;
    const std::size_t pos = text::find(value, criteria_.pattern);
    if (pos == 0) return false;
    return !criteria_.exactWord || isWholeWord(pos, criteria_.pattern, value);
}

int findMatch(const DictionaryStore& store, const SearchCriteria& criteria, int field, int start,
              int end, int step, const SearchProgress& progress) {
    if (step != 1 && step != -1) throw RunError(InvalidArgument);
    const SearchMatcher matcher(criteria);
    std::string value;
    for (int i = start; step > 0 ? i <= end : i >= end; i += step) {
        const std::string_view stored = store.view(i, field);
        if (plainOccurrence(stored, criteria) != 0) {
            prepareInto(value, stored, criteria);
            if (matcher.matches(value)) return i;
        }
        if (!criteria.hasWildcards && progress)
            progress(store.lastIndex > 0
                         ? static_cast<float>(i) / static_cast<float>(store.lastIndex)
                         : 0.0f);
    }
    return -1;
}

std::vector<int> findAll(const DictionaryStore& store, const SearchCriteria& criteria, int field) {
    std::vector<int> found;
    const SearchMatcher matcher(criteria);
    std::string value;
    for (int i = 0; i <= store.lastIndex; ++i) {
        const std::string_view stored = store.view(i, field);
        if (plainOccurrence(stored, criteria) == 0) continue;
        prepareInto(value, stored, criteria);
        if (matcher.matches(value)) found.push_back(i);
    }
    return found;
}

int findWord(App& app, int start, int end, int step, bool reuse) {
    if (!reuse && app.searchField == FieldLayout) {
        if (!prepareSignCriteria(app, app.searchCriteria)) return -1;
    } else if (!reuse) {
        const SearchDialogState& d = app.search;
        app.searchCriteria = prepareCriteria(d.searchText, d.exactChecked, d.exactWordChecked,
                                             d.caseChecked, d.ignoreVariantsChecked);
    }
    const int found = app.searchField == FieldLayout
                          ? findSignMatch(app.store, app.searchCriteria, start, end, step)
                          : findMatch(app.store, app.searchCriteria, app.searchField, start, end,
                                      step, [&app](float f) { app.windows->setProgress(f); });
    if (found < 0) {
        app.dialogs.message("Not Found!", "Not Found", Buttons::OK, Icon::Exclamation);
        return -1;
    }
    app.store.currentIndex = found;
    app.renderWord(app);
    return found;
}

void findCommand(App& app) {
    // A second Find while the first still waits for the dialog only brings nothing new: the
    // dialog is already up, and the waiting Find searches once it is left.
    if (app.search.waiting) return;
    runGuarded(app, [&] {
        app.leaveWord(app);
        app.typewriterTarget = TypewriterTarget::SearchText;
        if (!app.search.loaded) searchDialogLoad(app);
        app.search.visible = true;
        app.search.waiting = true;
        struct Done {
            SearchDialogState& d;
            ~Done() { d.waiting = false; }
        } done{app.search};
        app.windows->showSearchDialogAndWait();
        if (app.searchAccepted) findWord(app, 0, app.store.lastIndex, 1, false);
    });
}

namespace {

// Find Next (step 1) and Find Previous (step -1): the search starts from the word beside the
// one on show; at the end of the dictionary the end is reported and the last word tested
// again.
void findAgain(App& app, int step) {
    runGuarded(app, [&] {
        app.leaveWord(app);
        DictionaryStore& s = app.store;
        const std::int32_t onShow = s.currentIndex;
        const bool atEnd = step > 0 ? s.currentIndex >= s.lastIndex : s.currentIndex < 1;
        if (atEnd)
            app.dialogs.message("No more words to search", "END OF FILE", Buttons::OK,
                                Icon::Information);
        else
            s.currentIndex += step;
        // Nothing found: the word on show stays the word that commands act on.
        const int to = step > 0 ? s.lastIndex : 0;
        if (findWord(app, s.currentIndex, to, step, true) < 0) s.currentIndex = onShow;
    });
}

} // namespace

void findNextCommand(App& app) {
    findAgain(app, 1);
}

void findPreviousCommand(App& app) {
    findAgain(app, -1);
}

} // namespace nebkaro
