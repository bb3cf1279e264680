// Loading and saving the full-size dictionary, and the sign-list load.
#include "bench_common.h"
#include "core/sign_lists.h"
#include "display/render.h"

#include <benchmark/benchmark.h>

#include <filesystem>

using namespace nebkaro;
using namespace nebkaro::bench;

static void BM_Load(benchmark::State& state) {
    BenchApp b;
    for (auto _ : state) {
        b.load();
        benchmark::DoNotOptimize(b.app.store.lastIndex);
    }
    state.counters["words"] = b.app.store.lastIndex + 1;
}
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond);

static void BM_Save(benchmark::State& state) {
    BenchApp& b = loaded();
    const auto out = std::filesystem::temp_directory_path() / "nebkaro-bench-save.nkd";
    b.app.store.dictionaryPath = out.string();
    for (auto _ : state) saveDictionary(b.app);
    std::filesystem::remove(out);
    b.app.store.dictionaryPath = NEBKARO_BENCH_DICT;
}
BENCHMARK(BM_Save)->Unit(benchmark::kMillisecond);

static void BM_LoadExtendedSignList(benchmark::State& state) {
    SignLists lists;
    for (auto _ : state) {
        loadSignList(lists, NEBKARO_HOME, Library::Extended);
        benchmark::DoNotOptimize(lists.signCount);
    }
    state.counters["signs"] = lists.signCount;
}
BENCHMARK(BM_LoadExtendedSignList)->Unit(benchmark::kMillisecond);

static void BM_RenderTwelveSignWord(benchmark::State& state) {
    BenchApp b;
    b.app.store.setRow(
        0, {"L", "B",
            "A1(0,0) - A2(300,0) - A3(600,0) - A4(900,0) - A5(1200,0) - A6(1500,0) - "
            "G17(1800,0) - G43(2100,0) - N35(2400,0) - D21(2700,0) - X1(3000,0) - Z1(3300,0) ",
            "A1-A2-A3-A4-A5-A6-G17-G43-N35-D21-X1-Z1", "", "", ""});
    for (auto _ : state) {
        renderWord(b.app);
        benchmark::DoNotOptimize(b.app.view.rightEdge);
    }
}
BENCHMARK(BM_RenderTwelveSignWord)->Unit(benchmark::kMicrosecond);
