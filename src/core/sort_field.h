#pragma once
// What the Sort dialog gives to sort by.
#include "core/dictionary_store.h"

namespace nebkaro {

// A field (the value is its column), the classic transliteration order, or None when the
// dialog was cancelled.
enum class SortField : int {
    None = -1,
    Gardiner = FieldGardiner,
    Translit = FieldTranslit,
    Meaning = FieldMeaning,
    Comment = FieldComment,
    Classic = 9,
};

// The column a sort reorders by; the classic order sorts the transliteration column.
constexpr int sortColumn(SortField field) {
    return field == SortField::Classic ? FieldTranslit : static_cast<int>(field);
}

} // namespace nebkaro
