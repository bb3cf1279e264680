#pragma once
// The Sort dialog ("Sort by") as data: which field to sort by, reverse order, case
// sensitivity. The Qt window shows these values and writes every change of its controls back;
// the sort commands read them. The state lives in App::sortDialog.
#include "core/sort_field.h"

#include <array>
#include <string>

namespace nebkaro {

struct App;

struct SortOption {
    const char* name; // objectName of the option button
    const char* caption;
    const char* toolTip; // the letter order the option sorts by; empty when none is shown
    SortField value;     // what OK gives to sortField
};

// In the order OK reads them.
inline constexpr std::array<SortOption, 5> SortOptions{{
    {"optMeaning", "Meaning", "", SortField::Meaning},
    {"optTranslit", "Transliteration (mdc)", "A D H S T X a b d f g h i k q m n p r s t w x y z",
     SortField::Translit},
    {"optGardiner", "Gardiner's notation", "", SortField::Gardiner},
    {"optComment", "Comment", "", SortField::Comment},
    {"optTrClass", "Transliteration (classic)", "A i y a w b p f m n r h H x X z s S q k g t T d D",
     SortField::Classic},
}};

// Loading the dialog: no sort asked for yet (sortField None).
void loadSortDialog(App& app);
// OK: sortField from the option button that is on (None when none is); the dialog hides.
void sortDialogOk(App& app);
// Cancel (also closing the window): sortField None; the dialog hides, its controls keep their
// values.
void sortDialogCancel(App& app);
// Shows the dialog modally, loading it the first time, and returns sortField afterwards.
SortField showSortDialog(App& app);

} // namespace nebkaro
