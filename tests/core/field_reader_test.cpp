#include "core/field_reader.h"

#include <gtest/gtest.h>

using namespace nebkaro;

// Each row: the text, its fields, and the line the reader is on after each field (a line
// break inside quotes counts as one).
TEST(FieldReader, QuotedBareAndLineEndsSeparateAlike) {
    const std::tuple<const char*, std::vector<std::string>, std::string> cases[] = {
        {"\"a\",\"b\"\r\n\"c\"", {"a", "b", "c"}, "122"},
        {"a,b\nc\nd", {"a", "b", "c", "d"}, "1233"},
        {"  a  ,  b  \r\n", {"a", "b"}, "12"}, // blanks around bare fields go
        {"\" a \",b", {" a ", "b"}, "11"},     // blanks inside quotes stay
        {"\"a\"junk,b", {"a", "b"}, "11"},     // text after the closing quote is skipped
        {"\"a,b\",c", {"a,b", "c"}, "11"},     // a comma inside quotes is text
        {"a,,b", {"a", "", "b"}, "111"},       // an empty bare field
        {"\"\",\"\"", {"", ""}, "11"},         // empty quoted fields
        {"a\rb", {"a", "b"}, "22"},            // a lone CR ends a line too
        {"x\r\n\r\n", {"x"}, "2"},             // trailing blank lines are no record
        {"\"one\ntwo, three\nfive\",x\ny", {"one\ntwo, three\nfive", "x", "y"}, "344"},
        // Long quoted values are scanned eight bytes at a time: the closing quote and line
        // breaks at every place in a block, and a value that never closes.
        {"\"0123456\",\"01234567\",\"012345678\"", {"0123456", "01234567", "012345678"}, "111"},
        {"\"01234567\n9abcdef\n\",x", {"01234567\n9abcdef\n", "x"}, "33"},
        {"\"a value that never closes", {"a value that never closes"}, "1"},
    };
    for (const auto& [text, fields, lines] : cases) {
        FieldReader in(text);
        std::vector<std::string> read;
        std::string after;
        while (!in.atEnd()) {
            read.push_back(in.read());
            after += std::to_string(in.line());
        }
        EXPECT_EQ(read, fields) << text;
        EXPECT_EQ(after, lines) << text;
    }
}
