#pragma once
// Finding words by the signs they are written with: the user names signs by their codes or
// phonetic values, in any order, and gets every word whose layout holds all of them.
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro {

class DictionaryStore;
struct SignLists;

// The signs asked for, as codes. A sign named twice must stand twice in the word.
struct SignQuery {
    std::vector<std::string> codes;
    // A1a counts as A1: codes on both sides lose their variant letter.
    bool foldVariants = false;
};

struct SignQueryReading {
    SignQuery query;
    // The first name that is neither a code nor a phonetic value, or empty when all were read.
    std::string unknown;
};

// Reads "G17 D21", "m r", "g17,m" or "ḥ": anything but letters and digits separates names.
// A name with a digit is a code (its letters put into the usual case: g17 -> G17, AA1 -> Aa1,
// N35A -> N35a); any other name is a phonetic value looked up, case-sensitively, in the
// phonetic table (scholarly letters are read as their plain ones).
SignQueryReading readSignQuery(const SignLists& lists, std::string_view text, bool foldVariants);

// Whether the layout holds every sign of the query (each as often as it is asked for).
bool layoutHasSigns(std::string_view layout, const SignQuery& query);

// Every word from 0 to lastIndex whose layout holds the signs, in order. An empty query finds
// nothing.
std::vector<int> findAllBySigns(const DictionaryStore& store, const SignQuery& query);

// The first such word from start towards end (inclusive, step +1 or -1), or -1.
int findBySigns(const DictionaryStore& store, const SignQuery& query, int start, int end, int step);

// The query as the search remembers it ("G17-D21").
std::string signQueryText(const SignQuery& query);

} // namespace nebkaro

namespace nebkaro {

struct App;
struct SearchCriteria;

// The Signs search of the Search dialog as criteria Find Next and Find Previous can reuse:
// the codes read from the search box, joined by "-", in the pattern, and the variant folding
// in ignoreVariants. A name that cannot be read is told ("nfx was not found") and gives
// false; the criteria are then left as they were.
bool prepareSignCriteria(App& app, SearchCriteria& criteria);
// The walk of Find for such criteria.
int findSignMatch(const DictionaryStore& store, const SearchCriteria& criteria, int start, int end,
                  int step);

} // namespace nebkaro
