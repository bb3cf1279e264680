#pragma once
// Text helpers. Strings are UTF-8 in memory; "characters" are Unicode code points, which
// compare in the same order as UTF-8 bytes, so plain std::string comparison is the
// character-code comparison the sorts and searches rely on.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nebkaro::text {

// Blanks (spaces only) removed from both ends, as the dictionary's users have always had it.
std::string trim(std::string_view s);

// 1-based position of needle in hay at or after start (1-based), 0 when absent. An empty
// needle is found at start when start is within the text.
std::size_t find(std::string_view hay, std::string_view needle, std::size_t start = 1);

std::string replaceAll(std::string_view s, std::string_view from, std::string_view to);
std::string removeAll(std::string_view s, char c);
// The text with & < > " written as HTML character references.
std::string escapeHtml(std::string_view s);
std::vector<std::string> split(std::string_view s, char sep);

// Upper-casing of ASCII, Latin-1, Latin Extended-A and the transliteration letters.
char32_t upperChar(char32_t c);
std::string upper(std::string_view s);

std::u32string toU32(std::string_view utf8);
std::string toUtf8(std::u32string_view s);
void appendUtf8(std::string& out, char32_t c);
// The code point at byte i, advancing i past it. Bytes that are not valid UTF-8 come back one
// at a time as themselves.
char32_t nextChar(std::string_view s, std::size_t& i);
// First code point of s, 0 for an empty text.
char32_t firstChar(std::string_view s);

// Bytes of a file: kept when valid UTF-8 (a leading byte-order mark dropped); a line that is
// not valid UTF-8 is read as Windows-1252, the code page dictionaries made on Windows are
// written in, and its number (from 1) is added to convertedLines. UTF-16 text (by its
// byte-order mark) throws RunError InvalidArgument with a message saying so.
std::string decodeFileText(std::string bytes, std::vector<int>* convertedLines = nullptr);

// Number-to-text with a leading blank for non-negative numbers and "-" for negative ones,
// "." as decimal point: 12 -> " 12", -3 -> "-3", 7.5 -> " 7.5".
std::string numberText(double v);
// The same without the leading blank.
std::string plainNumber(double v);

// The numeric value of the text read as far as it forms a number; text that starts with a
// letter is 0. Blanks are ignored, "&H" and "&O" prefixes read hex and octal.
double leadingNumber(std::string_view s);

// Strict conversion of a whole text to a number; throws TypeMismatch when it is none.
double toNumber(std::string_view s);
// Strict conversion to a 32-bit integer (rounded half to even); TypeMismatch or Overflow.
std::int32_t toLong(std::string_view s);

// Rounding to a 16-bit integer the way the dictionary's numbers always were: halves go to the
// even neighbour, and a result outside -32768..32767 is an Overflow error.
std::int16_t toInt16(double v);
std::int32_t toInt32(double v);

// "d mmmm yyyy", e.g. "21 November 2026".
std::string longDate(int year, int month, int day);
std::string todayLongDate();

} // namespace nebkaro::text
