// A long random walk through the program's commands with random answers to every question:
// after each step the store must be consistent, every save must leave a file that holds every
// word the store held, and a load must give back the words that were saved. Dictionaries with
// layouts that do not parse, direction letters other than R and L and lines that are not UTF-8
// are opened along the way. Not part of the normal suite (scripts/soak.sh runs it).
//
// usage: nebkaro_soak [STEPS] [SEED]
#include "bulk/bulk_commands.h"
#include "bulk/sort.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/field_reader.h"
#include "core/files.h"
#include "core/quiet_ports.h"
#include "display/render.h"
#include "editing/commands.h"
#include "editing/word_editing.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

using namespace nebkaro;
namespace fs = std::filesystem;

namespace {

std::mt19937_64 rng;
int pick(int n) {
    return static_cast<int>(rng() % static_cast<std::uint64_t>(n));
}

fs::path dictionaryFile;
// A dictionary drawn at random before some of the opens.
fs::path drawnFile;

struct RandomDialogs : Dialogs {
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
        return pick(2) ? dictionaryFile : drawnFile;
    }
    std::optional<fs::path> saveFile(const std::string&, const fs::path&) override {
        return pick(5) ? std::optional<fs::path>(dictionaryFile) : std::nullopt;
    }
    void beep() override {}
};

struct SizedPictures : SignPictures {
    SignPicture picture(Library, Direction, const std::string& code) override {
        return {code, 300 + 30 * static_cast<int>(code.size()), 540, true};
    }
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

// A composer that places one to four random signs, or is cancelled.
struct ScriptedComposer : WindowHost {
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

int failures = 0;
int currentStep = 0;
void check(bool ok, const char* what, int step) {
    if (!ok) {
        std::fprintf(stderr, "step %d: %s\n", step, what);
        ++failures;
    }
}

// The program's writer, then a look at what reached the disk: the file must hold every word
// the store holds, in order, whatever question was answered on the way.
struct CheckingWriter : FileWriter {
    AtomicFileWriter disk;
    App* app = nullptr;
    fs::path lastWritten;
    void write(const fs::path& path, const std::string& bytes) override {
        disk.write(path, bytes);
        lastWritten = path;
        const DictionaryStore& s = app->store;
        if (app->newDictionaryMode) return; // a header-only file by design
        const std::string back = readFileBytes(path);
        FieldReader in(back);
        bool same = true;
        try {
            if (s.hasHeader)
                for (int f = 0; f < FieldCount; ++f)
                    same = same && in.read() == s.header[static_cast<std::size_t>(f)];
            for (int w = 0; w <= s.lastIndex && same; ++w)
                for (int f = 0; f < FieldCount; ++f) same = same && in.read() == s.field(w, f);
            same = same && in.atEnd();
        } catch (const RunError&) {
            same = false;
        }
        check(same, "a saved file does not hold the words the store held", currentStep);
    }
};

} // namespace

int main(int argc, char** argv) {
    const int steps = argc > 1 ? std::atoi(argv[1]) : 10000;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
    rng.seed(seed);
    const fs::path dir = fs::temp_directory_path() / ("nebkaro-soak-" + std::to_string(seed));
    fs::create_directories(dir);
    dictionaryFile = dir / "soak.nkd";

    RandomDialogs dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    SizedPictures pictures;
    CheckingWriter files;
    App app(dialogs, clipboard, events, pictures, files);
    files.app = &app;
    drawnFile = dir / "drawn.nkd";
    AtomicFileWriter().write(drawnFile, randomDictionary());
    ScriptedComposer composer;
    composer.app = &app;
    app.windows = &composer;
    app.home = dir;
    app.settings.showDictionaryInfo = false;
    installEditing(app);
    app.store.dictionaryPath = dictionaryFile.string();

    const CommandId editing[] = {
        CommandId::NewWord,       CommandId::EditWord,       CommandId::StoreWord,
        CommandId::DeleteWord,    CommandId::DuplicateWord,  CommandId::CutWord,
        CommandId::CopyWord,      CommandId::PasteWord,      CommandId::InsertWord,
        CommandId::First,         CommandId::Next,           CommandId::Previous,
        CommandId::Last,          CommandId::RandomWord,     CommandId::FlipWord,
        CommandId::DirectionLeft, CommandId::SaveDictionary, CommandId::OpenDictionary};
    for (int step = 0; step < steps; ++step) {
        currentStep = step;
        const int r = pick(24);
        if (editing[r < 18 ? r : 0] == CommandId::OpenDictionary && pick(2))
            AtomicFileWriter().write(drawnFile, randomDictionary());
        try {
            if (r < 18) {
                if (editing[r] != CommandId::PasteWord || pick(3)) {
                    executeCommand(app, editing[r]);
                } else {
                    clipboard.content = randomText(); // sometimes paste something that is no word
                    executeCommand(app, CommandId::PasteWord);
                }
                // Typing into the boxes of the word on show.
                if (pick(3) == 0) {
                    app.view.meaning = randomText();
                    app.store.editPending = true;
                }
            } else if (app.store.lastIndex >= 0) {
                switch (r) {
                case 18:
                    menuSort(app, static_cast<SortField>(std::array{3, 4, 5, 6}[pick(4)]),
                             {pick(2) == 0, pick(2) == 0});
                    break;
                case 19:
                    toolbarSort(app, static_cast<SortField>(std::array{3, 4, 5, 6}[pick(4)]),
                                {pick(2) == 0, pick(2) == 0});
                    break;
                case 20:
                    shuffleDictionary(app, rng());
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
        check(s.lastIndex >= -1 && s.lastIndex <= DictionaryStore::MaxWordIndex,
              "lastIndex out of range", step);
        check(s.currentIndex >= -1 && s.currentIndex <= std::max(s.lastIndex, 0),
              "currentIndex out of range", step);

        // Every saved file reads back to the words that were saved (up to a word that is no
        // word, where a load stops by design).
        if (step % 50 == 0 && s.lastIndex >= 0) {
            app.storeWord = [](App&) {};
            const bool saved = saveDictionary(app);
            installEditing(app);
            if (saved) {
                const ParsedDictionary back = readDictionaryText(readFileBytes(files.lastWritten),
                                                                 DictionaryStore::MaxWordIndex + 1);
                int k = 0;
                while (k <= s.lastIndex && (s.field(k, 0) == "L" || s.field(k, 0) == "R")) ++k;
                check(static_cast<int>(back.words.size()) == k,
                      "a load gives a different number of words", step);
                for (int w = 0; w < k && w < static_cast<int>(back.words.size()); ++w)
                    check(back.words[static_cast<std::size_t>(w)] == s.row(w),
                          "a load gives a different word", step);
            }
        }
    }
    fs::remove_all(dir);
    std::printf("%d steps, seed %llu: %d failures\n", steps, static_cast<unsigned long long>(seed),
                failures);
    return failures ? 1 : 0;
}
