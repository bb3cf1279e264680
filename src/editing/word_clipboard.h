#pragma once
// Words travel through the system clipboard as one line of text: the seven fields joined by
// "|", without quoting or escaping (a field holding "|" breaks the item).
#include "core/dictionary_store.h"

#include <string>

namespace nebkaro {

struct App;

std::string clipboardItem(const WordRecord& word);

// Opens a row after the word on show: the words after it move down one row, the new row
// holds a copy of the word on show and becomes current. With no word on show the row opens
// after the last word (or at row 0 when there is none) and starts empty. A full dictionary
// throws StoreFull before anything changes.
void insertRow(App& app);

// Puts the word on show on the clipboard; run by Cut, it then deletes the word unasked.
void copyWord(App& app);
void cutWord(App& app);
// Inserts a row after the word on show and fills it from the clipboard's item. An item that
// does not begin with a direction is refused after the insertion (the inserted copy stays);
// one with fewer than seven parts raises SubscriptOutOfRange part-way through.
void pasteWord(App& app);
// A new word that will replace the word on show when stored.
void insertWord(App& app);

} // namespace nebkaro
