// Finding every word that holds a set of signs, on the 100,001-word dictionary: the answer
// has to come while the user is still typing (under 50 ms), for common signs (many words
// found), rare ones, variant folding, and a sign that is nowhere.
#include "bench_common.h"
#include "bulk/sign_search.h"
#include "core/sign_lists.h"

#include <benchmark/benchmark.h>

using namespace nebkaro;
using namespace nebkaro::bench;

namespace {
void signs(benchmark::State& state, const char* text, bool fold) {
    BenchApp& b = loaded();
    if (b.app.lists.phoneticLast < 0) loadPhonetic(b.app.lists, b.app.home);
    const SignQueryReading r = readSignQuery(b.app.lists, text, fold);
    std::size_t found = 0;
    for (auto _ : state) {
        const std::vector<int> all = findAllBySigns(b.app.store, r.query);
        found = all.size();
        benchmark::DoNotOptimize(all.data());
    }
    state.counters["found"] = static_cast<double>(found);
}
} // namespace

BENCHMARK_CAPTURE(signs, one_common_sign, "G17", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(signs, two_codes, "G17 D21", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(signs, phonetic_values, "m r n", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(signs, folded_variants, "A1 N35", true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(signs, sign_nowhere, "Q999", false)->Unit(benchmark::kMillisecond);
