// The Gardiner order on any two codes: it always answers, never both ways; and the rewriting of
// the caller's values is settled after one call (a second call changes them no further).
#include "core/sign_lists.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string in(reinterpret_cast<const char*>(data), size);
    const auto cut = in.find('\n');
    std::string a = in.substr(0, cut);
    std::string b = cut == std::string::npos ? std::string() : in.substr(cut + 1);
    std::string ra = a, rb = b;
    const bool after = gardinerGreater(a, b);
    const bool before = gardinerGreater(rb, ra);
    FUZZ_CHECK(!(after && before));
    std::string a2 = a, b2 = b;
    (void)gardinerGreater(a2, b2);
    FUZZ_CHECK(a2 == a && b2 == b);
    return 0;
}
