#pragma once
// What every benchmark shares: an App over quiet ports, loaded with the generated dictionary.
#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/files.h"

#include <memory>

namespace nebkaro::bench {

struct QuietDialogs : Dialogs {
    Answer message(const std::string&, const std::string&, Buttons b, Icon) override {
        return b == Buttons::OK ? Answer::OK : Answer::No;
    }
    std::optional<std::string> input(const std::string&, const std::string&,
                                     const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> openFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> saveFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    void beep() override {}
};
struct NullClipboard : Clipboard {
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
};
struct NullEvents : EventPump {
    void yield() override {}
};

struct BenchApp {
    QuietDialogs dialogs;
    NullClipboard clipboard;
    NullEvents events;
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
        LoadDictionary(app);
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
