#pragma once
// The transliteration table: the letters in the Transliteration font above the same plain
// letters, in either order.
#include <string>

namespace nebkaro {

struct TransTableState {
    std::string caption = "Transliteration table: Egyptological order";
    std::string Label1; // plain letters
    std::string Label2; // the same, shown in the Transliteration font
    bool mnuEgyptChecked = true;
    bool mnuLatinChecked = false;
    TransTableState();
};

// mnuEgypt and mnuLatin.
void TransTableEgyptological(TransTableState& state);
void TransTableAlphabetical(TransTableState& state);

// Above the main window, or below it when the window is too close to the top: the table's top
// in twips.
int TransTableTop(int mainTop, int mainHeight, int tableHeight);

} // namespace nebkaro
