#pragma once
// A word's signs as a line of the Manuel de Codage notation that other Egyptological tools
// read and write: "-" between groups, ":" between the rows of a group stacked one above the
// other, "*" between signs side by side inside a row ("G17-D21:X1*X1").
#include "core/dictionary_store.h"
#include "core/ports.h"
#include "display/unicode_text.h"

#include <string>
#include <vector>

namespace nebkaro {

struct App;

// The notation read from where the signs stand. Signs whose widths overlap belong to one
// group; inside it, signs whose heights overlap form a row. Signs that merely touch stand
// apart, which is how Arrange lays a notation out, so a line read here and laid out again
// reads back the same. A group of one row is written as single signs joined by "-" (side by
// side in one row looks the same as one group after another). leftToRight: signs facing left
// are read from the left.
std::string mdcOfSigns(const std::vector<PlacedSign>& signs, bool leftToRight);

// The signs of a stored word with the sizes of their pictures. Throws RunError when the
// layout string cannot be read.
std::vector<PlacedSign> placedSignsOfRecord(SignPictures& pictures, const WordRecord& word);
std::string mdcOfRecord(SignPictures& pictures, const WordRecord& word);

// The word on show, as Copy as MdC puts it on the clipboard.
std::string mdcOfWordOnShow(const App& app);

} // namespace nebkaro
