#pragma once
// What every benchmark shares: an App over quiet ports, loaded with the generated dictionary.
#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/files.h"
#include "core/quiet_ports.h"

#include <memory>

namespace nebkaro::bench {

struct BenchApp {
    QuietDialogs dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    FolderSignPictures pictures{NEBKARO_HOME};
    AtomicFileWriter files;
    App app{dialogs, clipboard, events, pictures, files};
    BenchApp() {
        app.home = NEBKARO_HOME;
        app.settings.showDictionaryInfo = false;
    }
    void load(const std::string& path = NEBKARO_BENCH_DICT) {
        app.mergeMode = false;
        app.store.dictionaryPath = path;
        loadDictionary(app);
    }
};

// One loaded dictionary for the benchmarks that only read it.
inline BenchApp& loaded() {
    static std::unique_ptr<BenchApp> b;
    if (!b) {
        b = std::make_unique<BenchApp>();
        b->load();
    }
    return *b;
}

} // namespace nebkaro::bench
