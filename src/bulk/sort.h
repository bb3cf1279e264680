#pragma once
// Sorting the dictionary by one field: the tool-bar sort (stable, by plain text order) and the
// menu sort (comb sort, Gardiner order for the Gardiner notation, cancellable), and the
// classic transliteration order, reached by encoding the transliterations through the
// Trans2Code table before sorting and decoding them after.
#include "bulk/array_functions.h"
#include "core/dictionary_store.h"
#include "core/sort_field.h"

#include <string>
#include <vector>

namespace nebkaro {

struct App;

// The order the tool-bar sort's exchange passes produce on rows 0..last by one field: the
// stable order of "a > b" (after exchanging a and b for reverse order and upper-casing both
// when case does not count). Entry k is the old index of the row that goes to k.
std::vector<int> toolbarOrder(const std::vector<WordRecord>& rows, int last, int field,
                              SortOrder order);
std::vector<int> toolbarOrder(const DictionaryStore& store, int last, int field, SortOrder order);

// The tool-bar sort without its questions: classic order through the encoding, rows 0..lastIndex
// put into toolbarOrder, the counter label counting down to 0, the dictionary marked changed
// and the word at the unchanged current index shown again.
void toolbarSort(App& app, SortField field, SortOrder order);

// The menu sort without its questions: the progress dialog, the comb sort of rows
// 0..lastIndex (cancellable), the current word set to 0 and shown. Returns the seconds the sort
// took. A failure (a transliteration character the classic table lacks) leaves the rows as they are
// at that moment, marked changed, with the current word shown again and the progress dialog hidden,
// and goes to the caller.
double menuSort(App& app, SortField field, SortOrder order);

} // namespace nebkaro
