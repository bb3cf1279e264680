#pragma once
// Words leaving the program with their pictures: one HTML page to read and print in any
// browser, and a deck of flash cards for Anki. Both draw the sign pictures with Qt, so a Qt
// application object must exist (it finds the GIF reader).
#include <cstdint>
#include <string>
#include <vector>

namespace nebkaro {

struct App;

// One self-contained page: each word's picture as inline SVG (every sign picture embedded
// once and reused; browsers cannot yet lay out the Unicode format controls, so the page
// has no Unicode hieroglyphs), its transliteration in scholarly letters, meaning, Gardiner
// notation and comment.
std::string exportHtml(App& app, const std::vector<int>& words, const std::string& title);

// An Anki package (.apkg): a zip holding the SQLite collection ("collection.anki2"), the
// media map ("media") and one PNG per word, named by its number in the map. One note per
// word (picture, transliteration, meaning, comment, Gardiner notation), two cards per note
// (picture to meaning, meaning to picture), in a deck named deckName. nowMs, milliseconds
// since 1970, makes the identifiers; the same words and nowMs give the same notes and cards.
// Throws RunError PathFileAccess when the collection or the zip cannot be made.
std::string exportFlashCards(App& app, const std::vector<int>& words, const std::string& deckName,
                             std::int64_t nowMs);

// The deck name for a dictionary file name: the name without its extension.
std::string deckName(const std::string& dictionaryName);

} // namespace nebkaro
