// Whole-dictionary searches: every field, substring, exact word, wildcard, and a text that is
// nowhere, so that all 100,001 words are walked.
#include "bench_common.h"
#include "bulk/search.h"

#include <benchmark/benchmark.h>

using namespace nebkaro;
using namespace nebkaro::bench;

namespace {
void search(benchmark::State& state, int field, const char* text, int exact, int exactWord) {
    BenchApp& b = loaded();
    const SearchCriteria c = PrepareCriteria(text, exact, exactWord, 0, false);
    int found = 0;
    for (auto _ : state) {
        found = FindMatch(b.app.store, c, field, 0, b.app.store.lastIndex, 1, [](float) {});
        benchmark::DoNotOptimize(found);
    }
    state.counters["found"] = found;
}
} // namespace

BENCHMARK_CAPTURE(search, meaning_substring_nowhere, FieldMeaning, "zzzz", 0, 0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_exact_word_nowhere, FieldMeaning, "zzzz", 0, 1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_exact_nowhere, FieldMeaning, "zzzz", 1, 0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_wildcard_nowhere, FieldMeaning, "zz*q?", 0, 0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, translit_substring_nowhere, FieldTranslit, "qqqqqq", 0, 0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, gardiner_substring_nowhere, FieldGardiner, "Q999", 0, 0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, comment_substring_nowhere, FieldComment, "zzzz", 0, 0)
    ->Unit(benchmark::kMillisecond);
