#pragma once
// Finding a word by one of its text fields: the criteria, the matching rules, the walk over the
// dictionary, and the Find, Find Next and Find Previous commands of the main window.
#include "bulk/like.h"
#include "core/search_state.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

struct App;
class DictionaryStore;

// The criteria from the dialog's entries: "/" becomes "*", blanks go, "*" or "?" makes it a
// wildcard search, the text is upper-cased unless caseSensitive, and variant letters are cut
// when ignoreVariants.
SearchCriteria prepareCriteria(std::string_view text, bool exact, bool exactWord,
                               bool caseSensitive, bool ignoreVariants);

// A field value made comparable with the pattern: blanks removed, upper-cased unless the
// search is case-sensitive, variant letters cut when variants are ignored. Blanks go on both
// sides, so 'of god' finds 'ofgod' too.
std::string prepareValue(std::string_view value, const SearchCriteria& criteria);

// Gardiner codes without their variant letter ("A1a-G17-N35b" -> "A1-G17-N35"): applies only
// when a digit is followed by a letter somewhere; then every "-"-separated piece ending in a
// letter of [A-z] loses that one letter. "Aa1" has no variant and stays.
std::string stripVariants(std::string_view text);

// Whether the needle, whose first occurrence in haystack starts at pos (1-based, as
// text::find gives it), stands as a whole word. A letter is any character from "A" to "z",
// which takes in "[", "\", "]", "^", "_" and "`" as well. Only the first occurrence decides
// the case: at the start of the field only the character after it is looked at; otherwise
// any occurrence with a non-letter on both sides counts, and an occurrence at the very end
// needs a non-letter before it. The needle is matched literally ("#" or "[" in it are
// themselves).
bool isWholeWord(std::size_t pos, std::string_view needle, std::string_view haystack);

// Whether one prepared value matches the criteria.
// Without wildcards: "Exact match" wants the whole value equal to the pattern, otherwise the
// pattern has to occur in it, and with "Exact word" stand there as a whole word. With
// wildcards the whole value has to match the pattern; Exact match and Exact word do not apply.
class SearchMatcher {
public:
    explicit SearchMatcher(SearchCriteria criteria);
    bool matches(std::string_view preparedValue) const;
    const SearchCriteria& criteria() const { return criteria_; }

private:
    SearchCriteria criteria_;
    std::optional<LikePattern> wildcard_;
};

// Called after each word that did not match, with that word's place in the dictionary
// (index / lastIndex; 0 when the dictionary has one word). Wildcard searches do not call it.
using SearchProgress = std::function<void(float)>;

// The first index from start towards end (inclusive, step +1 or -1) whose field matches, or
// -1. Indices past the store's table are a SubscriptOutOfRange error; a malformed wildcard
// pattern is RunError 93.
int findMatch(const DictionaryStore& store, const SearchCriteria& criteria, int field, int start,
              int end, int step, const SearchProgress& progress = {});

// Every matching index from 0 to lastIndex, in order: the same test as findMatch.
std::vector<int> findAll(const DictionaryStore& store, const SearchCriteria& criteria, int field);

// The search routine: prepares new criteria from app.search unless reuse, walks from start to
// end by step, and at the first match makes that word current and shows it. Returns the index
// found, or -1 after the "Not Found!" message (the current index is then unchanged).
int findWord(App& app, int start, int end, int step, bool reuse);

// The commands of the main window (buttons cmdSearch, cmdSearchNext, cmdSearchPrevious and
// their menu entries). A run-time error inside one is reported in a message box.
void findCommand(App& app);
void findNextCommand(App& app);
void findPreviousCommand(App& app);

} // namespace nebkaro
