#include "core/library_direction.h"

#include "core/text.h"

namespace nebkaro {

std::string libraryLetter(Library library) {
    return library == Library::Basic ? "B" : "E";
}

std::string directionLetter(Direction direction) {
    return direction == Direction::Left ? "L" : "R";
}

Library libraryOfLetter(std::string_view field) {
    return field == "B" ? Library::Basic : Library::Extended;
}

Direction directionOfLetter(std::string_view field) {
    return field == "L" ? Direction::Left : Direction::Right;
}

bool isLibraryLetter(std::string_view field) {
    return field == "B" || field == "E";
}

bool isDirectionLetter(std::string_view field) {
    return field == "R" || field == "L";
}

std::string libraryName(Library library) {
    return library == Library::Basic ? "Basic" : "Extended";
}

std::string directionName(Direction direction) {
    return direction == Direction::Left ? "Left" : "Right";
}

Library libraryOfName(std::string_view name) {
    return text::upper(name) == "EXTENDED" ? Library::Extended : Library::Basic;
}

Direction directionOfName(std::string_view name) {
    return text::upper(name) == "RIGHT" ? Direction::Right : Direction::Left;
}

Direction opposite(Direction direction) {
    return direction == Direction::Left ? Direction::Right : Direction::Left;
}

} // namespace nebkaro
