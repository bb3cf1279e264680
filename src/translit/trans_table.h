#pragma once
// The transliteration table: the letters in the Transliteration font above the same plain
// letters, in either order.
#include <string>

namespace nebkaro {

struct TransTableState {
    std::string caption = "Transliteration table: Egyptological order";
    std::string plainLetters; // plain letters
    std::string fontLetters;  // the same, shown in the Transliteration font
    bool egyptChecked = true;
    bool latinChecked = false;
    TransTableState();
};

// Two keys draw something a reader of grammars does not expect from the letter alone; the table
// says so under its columns.
inline constexpr const char* TransTableNote =
    "j draws i\u032F, the weak yod of endings such as mri\u032F.\n"
    "o draws q, another way of writing the \u1E33 that q draws.";

// mnuEgypt and mnuLatin.
void transTableEgyptological(TransTableState& state);
void transTableAlphabetical(TransTableState& state);

// Above the main window, or below it when the window is too close to the top: the table's top
// in twips.
int transTableTop(int mainTop, int mainHeight, int tableHeight);

} // namespace nebkaro
