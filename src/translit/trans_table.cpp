#include "translit/trans_table.h"

#include "translit/typewriter.h"

namespace nebkaro {

TransTableState::TransTableState()
    : plainLetters(EgyptologicalLetters), fontLetters(EgyptologicalLetters) {}

void transTableEgyptological(TransTableState& s) {
    s.plainLetters = s.fontLetters = std::string(EgyptologicalLetters);
    s.egyptChecked = true;
    s.latinChecked = false;
    s.caption = "Transliteration Table: Egyptological order";
}

void transTableAlphabetical(TransTableState& s) {
    s.plainLetters = s.fontLetters = std::string(AlphabeticalLetters);
    s.egyptChecked = false;
    s.latinChecked = true;
    // The caption has always been spelled so, and users know the window by it.
    s.caption = "Transliteration Table: Alphabeticalcal order";
}

int transTableTop(int mainTop, int mainHeight, int tableHeight) {
    const int top = mainTop - tableHeight;
    return top < 0 ? mainTop + mainHeight : top;
}

} // namespace nebkaro
