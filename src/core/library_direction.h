#pragma once
// The two choices every word and the settings carry: which sign library its pictures come
// from and which way its signs face (and how a flip changes that). The dictionary file keeps them
// as one letter each, the settings file and the picture folders as a word; those texts are made and
// read here only.
#include <string>
#include <string_view>

namespace nebkaro {

enum class Library { Basic, Extended };
enum class Direction { Left, Right };
// How a flip turns a word: to face left, to face right, or the other way round.
enum class FlipMode { Left, Right, Invert };

// The word's field letters: "B" or "E", "L" or "R".
std::string libraryLetter(Library library);
std::string directionLetter(Direction direction);
// A library field other than "B" is the Extended library, a direction field other than "L"
// faces right: words written by older versions hold nothing else.
Library libraryOfLetter(std::string_view field);
Direction directionOfLetter(std::string_view field);
bool isLibraryLetter(std::string_view field);
// "R" and "L" are the only letters a word's first field may hold; anything else in that place
// is not a word.
bool isDirectionLetter(std::string_view field);

// The settings' and picture folders' words: "Basic" or "Extended", "Left" or "Right".
std::string libraryName(Library library);
std::string directionName(Direction direction);
// Settings values, case-blind: only "Extended" and "Right" move off the defaults.
Library libraryOfName(std::string_view name);
Direction directionOfName(std::string_view name);

Direction opposite(Direction direction);

} // namespace nebkaro
