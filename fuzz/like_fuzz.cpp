// The pattern matcher on any value and pattern: errors are RunError 93 only; "*" matches
// everything, and every value matches itself written as a pattern with its special characters
// bracketed.
#include "bulk/like.h"
#include "core/errors.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string in(reinterpret_cast<const char*>(data), size);
    const auto cut = in.find('\n');
    const std::string value = in.substr(0, cut);
    const std::string pattern = cut == std::string::npos ? std::string() : in.substr(cut + 1);
    try {
        (void)matchesLike(value, pattern);
    } catch (const RunError& e) {
        FUZZ_CHECK(e.number() == InvalidPatternError);
    }
    FUZZ_CHECK(matchesLike(value, "*"));
    std::string literal;
    for (char c : value) {
        if (c == '[' || c == '*' || c == '?' || c == '#')
            literal += std::string("[") + c + "]";
        else
            literal += c;
    }
    FUZZ_CHECK(matchesLike(value, literal));
    return 0;
}
