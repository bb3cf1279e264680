#pragma once
// The reader of the comma-separated files the program uses (dictionaries, sign lists,
// transliteration tables): fields one at a time, commas and line ends both separating.
#include <cstddef>
#include <string>
#include <string_view>

namespace nebkaro {

class FieldReader {
public:
    explicit FieldReader(std::string_view text) : s_(text) {}

    // One field. Leading blanks are skipped; a field that begins with a double quote runs to
    // the next double quote and whatever follows it up to the separator is skipped; other
    // fields run to the next comma or line end and lose their trailing blanks. Reading at the
    // end of the text is InputPastEnd.
    std::string read();
    // The same field as a view into the text (valid as long as the text).
    std::string_view readView();
    // End of text; trailing blank lines and blanks do not count as a further record.
    bool atEnd() const;
    // 1-based line of the next character to read.
    int line() const { return line_; }
    std::size_t position() const { return pos_; }

private:
    void skipSeparator();
    std::string_view s_;
    std::size_t pos_ = 0;
    int line_ = 1;
};

} // namespace nebkaro
