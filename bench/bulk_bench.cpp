// The whole-dictionary operations on 100,001 words. Each iteration starts from a fresh copy of
// the loaded words, made outside the timing.
#include "bench_common.h"
#include "bulk/bulk_commands.h"
#include "bulk/reading_order.h"
#include "bulk/sort.h"
#include "core/sign_lists.h"
#include "editing/word_editing.h"

#include <benchmark/benchmark.h>

using namespace nebkaro;
using namespace nebkaro::bench;

namespace {
BenchApp& fresh() {
    static std::unique_ptr<BenchApp> b;
    if (!b) {
        b = std::make_unique<BenchApp>();
        installEditing(b->app);
        loadSignList(b->app.lists, b->app.home, Library::Basic);
        loadTrans2Code(b->app.lists, b->app.home);
    }
    return *b;
}

template <class Work> void onFreshCopy(benchmark::State& state, Work work) {
    BenchApp& b = fresh();
    for (auto _ : state) {
        state.PauseTiming();
        b.load();
        state.ResumeTiming();
        work(b.app);
    }
}
} // namespace

static void BM_MenuSortMeaning(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { menuSort(a, SortField::Meaning, {}); });
}
BENCHMARK(BM_MenuSortMeaning)->Unit(benchmark::kMillisecond);

static void BM_MenuSortClassic(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { menuSort(a, SortField::Classic, {}); });
}
BENCHMARK(BM_MenuSortClassic)->Unit(benchmark::kMillisecond);

// Notations of different lengths that agree as far as the shorter goes cannot be ordered (the
// sort stops there, as it does for a user), and random notations meet such a pair within the
// first pass. So that the whole sort is measured, every notation is made twelve signs long by
// adding Z1 signs, outside the timing.
static void BM_MenuSortGardiner(benchmark::State& s) {
    BenchApp& b = fresh();
    for (auto _ : s) {
        s.PauseTiming();
        b.load();
        DictionaryStore& store = b.app.store;
        for (int w = 0; w <= store.lastIndex; ++w) {
            std::string g = store.field(w, FieldGardiner);
            int parts = 1;
            for (char c : g) parts += (c == '-' || c == ':' || c == '*');
            for (; parts < 12; ++parts) g += "-Z1";
            store.setField(w, FieldGardiner, g);
        }
        s.ResumeTiming();
        menuSort(b.app, SortField::Gardiner, {});
    }
}
BENCHMARK(BM_MenuSortGardiner)->Unit(benchmark::kMillisecond);

static void BM_ToolbarSortMeaning(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { toolbarSort(a, SortField::Meaning, {}); });
}
BENCHMARK(BM_ToolbarSortMeaning)->Unit(benchmark::kMillisecond);

static void BM_Shuffle(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { shuffleDictionary(a, 42); });
}
BENCHMARK(BM_Shuffle)->Unit(benchmark::kMillisecond);

static void BM_FlipAll(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { flipAll(a, FlipMode::Invert); });
}
BENCHMARK(BM_FlipAll)->Unit(benchmark::kMillisecond)->Iterations(1);

static void BM_SortGardinerReadingOrder(benchmark::State& s) {
    onFreshCopy(s, [](App& a) { sortGardinerAll(a, 20); });
}
BENCHMARK(BM_SortGardinerReadingOrder)->Unit(benchmark::kMillisecond)->Iterations(1);
