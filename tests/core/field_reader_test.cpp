#include "core/errors.h"
#include "core/field_reader.h"

#include <gtest/gtest.h>

using namespace nebkaro;

namespace {
std::vector<std::string> readAll(const std::string& text) {
    FieldReader in(text);
    std::vector<std::string> out;
    while (!in.atEnd()) out.push_back(in.read());
    return out;
}
} // namespace

TEST(FieldReader, QuotedBareAndLineEndsSeparateAlike) {
    struct Case {
        const char* text;
        std::vector<std::string> want;
    } cases[] = {
        {"\"a\",\"b\"\r\n\"c\"", {"a", "b", "c"}},
        {"a,b\nc", {"a", "b", "c"}},
        {"  a  ,  b  \r\n", {"a", "b"}}, // blanks around bare fields go
        {"\" a \",b", {" a ", "b"}},     // blanks inside quotes stay
        {"\"a\"junk,b", {"a", "b"}},     // text after the closing quote is skipped
        {"\"a,b\",c", {"a,b", "c"}},     // a comma inside quotes is text
        {"a,,b", {"a", "", "b"}},        // an empty bare field
        {"\"\",\"\"", {"", ""}},         // empty quoted fields
        {"a\rb", {"a", "b"}},            // a lone CR ends a line too
        {"x\r\n\r\n", {"x"}},            // trailing blank lines are no record
        // Long quoted values are scanned eight bytes at a time: the closing quote and line
        // breaks at every place in a block, and a value that never closes.
        {"\"0123456\",\"01234567\",\"012345678\"", {"0123456", "01234567", "012345678"}},
        {"\"01234567\n9abcdef\n\",x", {"01234567\n9abcdef\n", "x"}},
        {"\"a value that never closes", {"a value that never closes"}},
    };
    for (const auto& c : cases) EXPECT_EQ(readAll(c.text), c.want) << c.text;
}

TEST(FieldReader, CountsLines) {
    FieldReader in("a,b\r\nc\nd");
    in.read();
    in.read();
    EXPECT_EQ(in.line(), 2);
    in.read();
    EXPECT_EQ(in.line(), 3);
    FieldReader quoted("\"one\ntwo, three and four\nfive\",x\ny");
    quoted.read();
    EXPECT_EQ(quoted.line(), 3);
    quoted.read();
    EXPECT_EQ(quoted.line(), 4);
}
