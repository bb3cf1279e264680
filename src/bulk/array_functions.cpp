#include "bulk/array_functions.h"

#include <chrono>
#include <memory>
#include <random>

namespace nebkaro {

int NextCombGap(int gap) {
    if (gap > 1) {
        gap = static_cast<int>(gap / 1.3);
        if (gap == 9 || gap == 10) gap = 11;
    }
    return gap;
}

RandomSource SeededRandom(std::uint64_t seed) {
    auto engine = std::make_shared<std::mt19937_64>(seed);
    // 53 random bits scaled into [0, 1): never 1, unlike some library distributions.
    return [engine]() { return static_cast<double>((*engine)() >> 11) * 0x1.0p-53; };
}

RandomSource ClockRandom() {
    return SeededRandom(static_cast<std::uint64_t>(
        std::chrono::high_resolution_clock::now().time_since_epoch().count()));
}

} // namespace nebkaro
