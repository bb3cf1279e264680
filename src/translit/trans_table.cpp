#include "translit/trans_table.h"

#include "translit/typewriter.h"

namespace nebkaro {

TransTableState::TransTableState() : Label1(EgyptologicalLetters), Label2(EgyptologicalLetters) {}

void TransTableEgyptological(TransTableState& s) {
    s.Label1 = s.Label2 = std::string(EgyptologicalLetters);
    s.mnuEgyptChecked = true;
    s.mnuLatinChecked = false;
    s.caption = "Transliteration Table: Egyptological order";
}

void TransTableAlphabetical(TransTableState& s) {
    s.Label1 = s.Label2 = std::string(AlphabeticalLetters);
    s.mnuEgyptChecked = false;
    s.mnuLatinChecked = true;
    // The caption has always been spelled so, and users know the window by it.
    s.caption = "Transliteration Table: Alphabeticalcal order";
}

int TransTableTop(int mainTop, int mainHeight, int tableHeight) {
    const int top = mainTop - tableHeight;
    return top < 0 ? mainTop + mainHeight : top;
}

} // namespace nebkaro
