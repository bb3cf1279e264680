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
    };
    for (const auto& c : cases) EXPECT_EQ(readAll(c.text), c.want) << c.text;
}
