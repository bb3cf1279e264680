// The Gardiner order on any two codes: RunErrors only; and the rewriting of the caller's values
// is settled after one call (a second call changes them no further).
#include "core/errors.h"
#include "core/sign_lists.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string in(reinterpret_cast<const char*>(data), size);
    const auto cut = in.find('\n');
    std::string a = in.substr(0, cut);
    std::string b = cut == std::string::npos ? std::string() : in.substr(cut + 1);
    try {
        (void)GardinerGreater(a, b);
    } catch (const RunError& e) {
        FUZZ_CHECK(e.number() == InvalidArgument || e.number() == SubscriptOutOfRange ||
                   e.number() == Overflow);
        return 0;
    }
    std::string a2 = a, b2 = b;
    try {
        (void)GardinerGreater(a2, b2);
    } catch (const RunError&) {
    }
    FUZZ_CHECK(a2 == a && b2 == b);
    return 0;
}
