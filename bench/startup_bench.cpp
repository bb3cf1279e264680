// Program start to the first drawn word, with the Extended sign list: the whole process, run
// offscreen with --screenshot, which exits once the word is drawn.
#include "bench_common.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

// dictionary: a file to open instead of the shipped one (empty: the shipped one).
static void startToFirstWord(benchmark::State& state, const std::string& dictionary) {
    const fs::path build = NEBKARO_HOME;
    if (!fs::exists(build / "nebkaro")) {
        state.SkipWithError("the program is not built");
        return;
    }
    const fs::path home = fs::temp_directory_path() / "nebkaro-bench-home";
    fs::remove_all(home);
    fs::create_directories(home / "System");
    for (const char* sub : {"Lists", "Basic", "Extended", "Dictionaries", "Fonts", "Images"})
        fs::create_directory_symlink(fs::canonical(build / sub), home / sub);
    std::ofstream(home / "System" / "Settings.nks", std::ios::binary)
        << "Nebkaro Settings: \r\n\r\nLibrary = Extended\r\nDirection = Left\r\nDictionary Name = "
           "Words.nkd\r\n"
           "Show About = False\r\nShow Dictionary Info = False\r\n\r\n";
    const std::string cmd =
        "QT_QPA_PLATFORM=offscreen '" + (build / "nebkaro").string() + "' --home '" +
        home.string() + "' --screenshot '" + (home / "shot.png").string() + "'" +
        (dictionary.empty() ? "" : " '" + dictionary + "'") + " >/dev/null 2>&1";
    for (auto _ : state) {
        if (std::system(cmd.c_str()) != 0) state.SkipWithError("the program did not start");
    }
    fs::remove_all(home);
}
static void BM_StartToFirstWordExtended(benchmark::State& state) {
    startToFirstWord(state, {});
}
BENCHMARK(BM_StartToFirstWordExtended)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10);

// The same start on the 100,001-word dictionary.
static void BM_StartToFirstWordFullDictionary(benchmark::State& state) {
    startToFirstWord(state, NEBKARO_BENCH_DICT);
}
BENCHMARK(BM_StartToFirstWordFullDictionary)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10);
