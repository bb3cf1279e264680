#pragma once
// A dictionary of a few dozen words for the printing tests, over an App with scripted ports.
#include "harness.h"

#include <cmath>

namespace nebkaro::uitest {

inline const std::vector<Sign> PrintSigns = {{"A1", 28, 40},  {"G17", 34, 40}, {"N5", 26, 26},
                                             {"N35", 40, 8},  {"X1", 28, 14},  {"Z1", 8, 36},
                                             {"D21", 30, 14}, {"M17", 12, 40}};

// A word of the test dictionary: meanings are unique words that pdftotext can find.
struct TestWord {
    const char* layout;
    const char* gardiner;
    const char* translit;
    const char* meaning;
    const char* comment;
};
inline const TestWord Words[] = {
    {"G17(0,0) - M17(510,0) ", "G17-M17", "mi", "likewise", "preposition"},
    {"N5(0,0) - Z1(390,0) ", "N5:Z1", "ra", "sunshine", "the sun god"},
    {"N35(0,0) ", "N35", "n", "belonging", "genitive"},
    {"X1(0,0) - D21(0,210) ", "X1:D21", "t", "breadloaf", "a loaf of bread"},
    {"D21(0,0) - N35(0,210) - A1(450,0) ", "D21:N35-A1", "rn", "namesake", "with a man"},
    {"A1(0,0) - Z1(420,0) ", "A1-Z1", "s", "gentleman", "determinative"},
    {"M17(0,0) - N35(180,150) - X1(180,300) ", "M17-N35:X1", "int", "valley", "a valley"},
    {"UNKNOWN(0,0) - N5(612,0) ", "Q99-N5", "xx", "mysterious", "missing picture"},
};

// The App with the given number of words, cycling through Words, meanings numbered from the
// second round: "likewise", ..., "likewise2".
struct Fixture {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    testing::CountingEvents events;
    FolderSignPictures pictures{folder.path()};
    AtomicFileWriter files;
    ScriptedWindows windows;
    std::unique_ptr<App> app = std::make_unique<App>(dialogs, clipboard, events, pictures, files);

    explicit Fixture(int wordCount = 24) {
        folder.addSigns("Basic", PrintSigns);
        app->home = folder.path();
        app->windows = &windows;
        app->store.dictionaryName = "Starter.nkd";
        for (int i = 0; i < wordCount; ++i) app->store.setRow(i, record(i));
        app->store.lastIndex = std::max(wordCount - 1, 0);
        app->store.currentIndex = 0;
    }

    static std::string meaningOf(int i) {
        const int n = static_cast<int>(std::size(Words));
        std::string m = Words[i % n].meaning;
        if (i >= n) m += std::to_string(i / n + 1);
        return m;
    }
    static WordRecord record(int i) {
        const TestWord& w = Words[i % static_cast<int>(std::size(Words))];
        return {"L", "B", w.layout, w.gardiner, w.translit, meaningOf(i), w.comment};
    }
    std::filesystem::path file(const std::string& name) const {
        return std::filesystem::path(folder.path()) / name;
    }
};

} // namespace nebkaro::uitest
