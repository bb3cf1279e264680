// A session of the program's commands chosen by the input, with the input's answers to every
// question: after each step the store stays consistent, and every save leaves a file that holds
// every word the store held and loads back to them (up to a word that is no word, where a load
// stops by design). Dictionaries with layouts that do not parse, direction letters other than
// R and L and lines that are not UTF-8 are opened along the way.
#include "bulk/bulk_commands.h"
#include "bulk/sort.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/field_reader.h"
#include "core/files.h"
#include "core/quiet_ports.h"
#include "editing/commands.h"
#include "editing/word_editing.h"
#include "fuzz_check.h"
#include "fuzz_ports.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

using namespace nebkaro;
namespace fs = std::filesystem;

namespace {

FuzzedDataProvider* input = nullptr;
int pick(int n) {
    return input->ConsumeIntegralInRange(0, n - 1);
}

// One folder per process, removed on the way out.
struct Folder {
    fs::path dir = fs::temp_directory_path() / ("nebkaro-session-" + std::to_string(getpid()));
    fs::path dictionary = dir / "session.nkd";
    fs::path drawn = dir / "drawn.nkd";
    Folder() { fs::create_directories(dir); }
    ~Folder() {
        std::error_code ec;
        fs::remove_all(dir, ec);
    }
};
Folder& folder() {
    static Folder f;
    return f;
}

struct InputDialogs : Dialogs {
    Answer message(const std::string&, const std::string&, Buttons b, Icon) override {
        switch (b) {
        case Buttons::OK:
            return Answer::OK;
        case Buttons::OKCancel:
            return pick(2) ? Answer::OK : Answer::Cancel;
        case Buttons::YesNo:
            return pick(2) ? Answer::Yes : Answer::No;
        case Buttons::YesNoCancel:
            return std::array{Answer::Yes, Answer::No, Answer::Cancel}[pick(3)];
        }
        return Answer::Cancel;
    }
    std::optional<std::string> input(const std::string&, const std::string&,
                                     const std::string& d) override {
        return pick(4) ? std::optional<std::string>(d) : std::nullopt;
    }
    std::optional<fs::path> openFile(const std::string&, const fs::path&) override {
        if (pick(5) == 0) return std::nullopt;
        return pick(2) ? folder().dictionary : folder().drawn;
    }
    std::optional<fs::path> saveFile(const std::string&, const fs::path&) override {
        return pick(5) ? std::optional<fs::path>(folder().dictionary) : std::nullopt;
    }
    void beep() override {}
};

const char* const kCodes[] = {"A1", "G17", "N35", "D21", "X1", "Aa1", "G43", "M17", "Z1", "O1"};

// Layouts that cannot be drawn: cut short, a number missing or too large, a letter for one.
const char* const kBadLayouts[] = {
    "A1(0,0", "A1(0 0) ", "A1(x,0) ", "A1(40000,0) ", "A1(0,99999999999999999999) ",
    "(0,0) ", "A1(,) - "};

std::string randomLayout() {
    if (pick(4) == 0) return kBadLayouts[pick(7)];
    std::string layout;
    for (int i = pick(3); i >= 0; --i)
        layout += std::string(kCodes[pick(10)]) + "(" + std::to_string(300 * i) + ",0) " +
                  (i ? "- " : "");
    return layout;
}

// A composer that places one to four signs, or is cancelled.
struct InputComposer : WindowHost {
    App* app = nullptr;
    void runComposer() override {
        App& a = *app;
        a.store.composeAccepted = pick(4) != 0;
        a.glyphs.clear();
        if (!a.store.composeAccepted) return;
        const int n = 1 + pick(4);
        std::string layout, gardiner;
        for (int i = 0; i < n; ++i) {
            const char* code = kCodes[pick(10)];
            a.glyphs[i].code = code;
            a.glyphs[i].x = 300 * i;
            layout += std::string(code) + "(" + std::to_string(300 * i) + ",0) - ";
            gardiner += std::string(code) + "-";
        }
        a.layoutText = layout.substr(0, layout.size() - 2);
        if (pick(6) == 0) a.layoutText = kBadLayouts[pick(7)]; // one that cannot be drawn
        a.composedGardiner = gardiner.substr(0, gardiner.size() - 1);
    }
};

std::string randomText() {
    static const char* words[] = {"god",   "king", "reed", "water", "house",
                                  "bread", "Ra",   "nTr",  "Htp",   "a b"};
    std::string s;
    for (int i = pick(3); i >= 0; --i) s += std::string(words[pick(10)]) + (i ? " " : "");
    if (pick(8) == 0) s += "caf\xE9"; // typed on Windows: not UTF-8
    return s;
}

// A dictionary file as other programs and damaged copies have them.
std::string randomDictionary() {
    static const char* directions[] = {"L", "R", "L", "R", "L", "R", "X", "r", ""};
    std::string out = pick(2) ? "\"Drawn\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n" : "";
    for (int w = pick(12); w >= 0; --w) {
        const char* dir = directions[pick(9)];
        out += std::string("\"") + dir + "\",\"B\",\"" + randomLayout() + "\",\"A1\",\"" +
               randomText() + "\",\"" + randomText() + "\",\"\"\r\n";
    }
    return out;
}

// Whether the file holds, field for field, the header and every word of the store.
bool holdsTheStore(const std::string& bytes, const DictionaryStore& s) {
    FieldReader in(bytes);
    try {
        if (s.hasHeader)
            for (int f = 0; f < FieldCount; ++f)
                if (in.read() != s.header[static_cast<std::size_t>(f)]) return false;
        for (int w = 0; w <= s.lastIndex; ++w)
            for (int f = 0; f < FieldCount; ++f)
                if (in.read() != s.field(w, f)) return false;
    } catch (const RunError&) {
        return false;
    }
    return in.atEnd();
}

// The program's writer, then a look at what reached the disk.
struct CheckingWriter : FileWriter {
    AtomicFileWriter disk;
    App* app = nullptr;
    void write(const fs::path& path, const std::string& bytes) override {
        disk.write(path, bytes);
        const DictionaryStore& s = app->store;
        if (app->newDictionaryMode) return; // a header-only file by design
        const std::string back = readFileBytes(path);
        FUZZ_CHECK(holdsTheStore(back, s));
        const ParsedDictionary again = readDictionaryText(back, DictionaryStore::MaxWordIndex + 1);
        int k = 0;
        while (k <= s.lastIndex && (s.field(k, 0) == "L" || s.field(k, 0) == "R")) ++k;
        FUZZ_CHECK(static_cast<int>(again.words.size()) == k);
        for (int w = 0; w < k; ++w)
            FUZZ_CHECK(again.words[static_cast<std::size_t>(w)] == s.row(w));
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider provider(data, size);
    input = &provider;
    InputDialogs dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    fuzz::FixedPictures pictures;
    CheckingWriter files;
    App app(dialogs, clipboard, events, pictures, files);
    files.app = &app;
    InputComposer composer;
    composer.app = &app;
    app.windows = &composer;
    app.home = folder().dir;
    app.settings.showDictionaryInfo = false;
    installEditing(app);
    app.store.dictionaryPath = folder().dictionary.string();
    std::error_code ec;
    fs::remove(folder().dictionary, ec);

    const CommandId editing[] = {
        CommandId::NewWord,       CommandId::EditWord,       CommandId::StoreWord,
        CommandId::DeleteWord,    CommandId::DuplicateWord,  CommandId::CutWord,
        CommandId::CopyWord,      CommandId::PasteWord,      CommandId::InsertWord,
        CommandId::First,         CommandId::Next,           CommandId::Previous,
        CommandId::Last,          CommandId::RandomWord,     CommandId::FlipWord,
        CommandId::DirectionLeft, CommandId::SaveDictionary, CommandId::OpenDictionary};
    while (provider.remaining_bytes() > 0) {
        const int r = pick(24);
        try {
            if (r < 18) {
                if (editing[r] == CommandId::OpenDictionary && pick(2))
                    AtomicFileWriter().write(folder().drawn, randomDictionary());
                // Sometimes paste something that is no word.
                if (editing[r] == CommandId::PasteWord && pick(3) == 0)
                    clipboard.content = randomText();
                executeCommand(app, editing[r]);
                if (pick(3) == 0) { // typing into the boxes of the word on show
                    app.view.meaning = randomText();
                    app.store.editPending = true;
                }
            } else if (app.store.lastIndex >= 0) {
                const auto field = static_cast<SortField>(std::array{3, 4, 5, 6}[pick(4)]);
                const SortOrder order{pick(2) == 0, pick(2) == 0};
                switch (r) {
                case 18:
                    menuSort(app, field, order);
                    break;
                case 19:
                    toolbarSort(app, field, order);
                    break;
                case 20:
                    shuffleDictionary(app, provider.ConsumeIntegral<std::uint64_t>());
                    break;
                case 21:
                    flipAll(app, static_cast<FlipMode>(pick(3)));
                    break;
                default:
                    executeCommand(app, CommandId::SaveDictionary);
                    break;
                }
            }
        } catch (const RunError&) {
            // The sorts and Flip All report at their command boundary; a Gardiner notation that
            // cannot be ordered, or a word without signs, stops them as it stops a user's run.
        }
        const DictionaryStore& s = app.store;
        FUZZ_CHECK(s.lastIndex >= -1 && s.lastIndex <= DictionaryStore::MaxWordIndex);
        FUZZ_CHECK(s.currentIndex >= -1 && s.currentIndex <= std::max(s.lastIndex, 0));
    }
    return 0;
}
