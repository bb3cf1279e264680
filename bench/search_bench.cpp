// Whole-dictionary searches: every field, substring, exact word, wildcard, and a text that is
// nowhere, so that all 100,001 words are walked.
#include "bench_common.h"
#include "bulk/search.h"

#include <benchmark/benchmark.h>

using namespace nebkaro;
using namespace nebkaro::bench;

namespace {
void search(benchmark::State& state, int field, const char* text, bool exact, bool exactWord) {
    BenchApp& b = loaded();
    const SearchCriteria c = prepareCriteria(text, exact, exactWord, false, false);
    int found = 0;
    for (auto _ : state) {
        found = findMatch(b.app.store, c, field, 0, b.app.store.lastIndex, 1, [](float) {});
        benchmark::DoNotOptimize(found);
    }
    state.counters["found"] = found;
}
} // namespace

BENCHMARK_CAPTURE(search, meaning_substring_nowhere, FieldMeaning, "zzzz", false, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_exact_word_nowhere, FieldMeaning, "zzzz", false, true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_exact_nowhere, FieldMeaning, "zzzz", true, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, meaning_wildcard_nowhere, FieldMeaning, "zz*q?", false, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, translit_substring_nowhere, FieldTranslit, "qqqqqq", false, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, gardiner_substring_nowhere, FieldGardiner, "Q999", false, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, comment_substring_nowhere, FieldComment, "zzzz", false, false)
    ->Unit(benchmark::kMillisecond);

// The Search dialog's Find All list as the user types "god of": one whole-dictionary search
// per keystroke, each on the text typed so far.
static void BM_FindAllAsYouType(benchmark::State& state) {
    BenchApp& b = loaded();
    const std::string typed = "god of";
    std::size_t found = 0;
    for (auto _ : state) {
        for (std::size_t n = 1; n <= typed.size(); ++n) {
            const SearchCriteria c =
                prepareCriteria(typed.substr(0, n), false, false, false, false);
            found = findAll(b.app.store, c, FieldMeaning).size();
            benchmark::DoNotOptimize(found);
        }
    }
    state.counters["keystrokes"] = static_cast<double>(typed.size());
    state.counters["found at the end"] = static_cast<double>(found);
}
BENCHMARK(BM_FindAllAsYouType)->Unit(benchmark::kMillisecond);
