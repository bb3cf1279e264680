// check: every problem of a dictionary a user should know of, one line each.
#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/files.h"
#include "core/library_direction.h"
#include "core/text.h"
#include "display/layout.h"
#include "display/render.h"

#include <functional>
#include <iostream>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {
struct CachedPictures : SignPictures {
    explicit CachedPictures(SignPictures& from) : from_(from) {}
    SignPicture picture(Library library, Direction direction, const std::string& code) override {
        const auto key = std::make_tuple(library, direction, code);
        auto it = cache_.find(key);
        if (it == cache_.end())
            it = cache_.emplace(key, from_.picture(library, direction, code)).first;
        return it->second;
    }

private:
    SignPictures& from_;
    std::map<std::tuple<Library, Direction, std::string>, SignPicture> cache_;
};

const char* const kFieldNames[] = {"direction",       "library", "layout", "Gardiner notation",
                                   "transliteration", "meaning", "comment"};

using Reporter = std::function<void(const std::string&)>;

// A value the writer would save broken.
bool unwritable(const std::string& v) {
    return v.find_first_of("\"\r\n") != std::string::npos;
}

// The reader's own verdict first, with the line where a load would stop.
ParsedDictionary readForCheck(const std::string& file, const Reporter& report) {
    ParsedDictionary parsed;
    std::vector<int> converted;
    try {
        parsed = readDictionaryText(text::decodeFileText(readFileBytes(fs::path(file)), &converted),
                                    DictionaryStore::MaxWordIndex + 1);
    } catch (const RunError& e) {
        throw Failure("'" + file + "' cannot be loaded: " + e.report());
    }
    for (int line : converted)
        report("line " + std::to_string(line) +
               ": not UTF-8 text, read as Windows-1252 (saving writes it as UTF-8)");
    if (parsed.stoppedEarly)
        report("line " + std::to_string(parsed.stopLine) + ": the load stops here: direction '" +
               parsed.stopRecord[0] + "' is neither R nor L; the words after it are not loaded");
    for (int f = 0; f < FieldCount; ++f)
        if (unwritable(parsed.header[static_cast<std::size_t>(f)]))
            report("header value " + std::to_string(f) + ": holds a double quote or a line break");
    return parsed;
}

// Each sign of a drawn word is in its sign list (when that loaded) and has a picture; a
// missing picture is named once however many words use it.
void checkSigns(const GlyphTable& table, const WordRecord& word, const SignLists* list,
                SignPictures& pictures, std::set<std::string>& missingReported,
                const std::string& where, const Reporter& report) {
    const Library library = libraryOfLetter(word[FieldLibrary]);
    const Direction direction = directionOfLetter(word[FieldDirection]);
    for (const GlyphSlot& g : table.cells) {
        if (!g.used()) continue;
        if (list && list->findSign(*g.code) == 0)
            report(where + ": code '" + *g.code + "' is not in the " + libraryName(library) +
                   " sign list");
        const SignPicture pic = pictures.picture(library, direction, *g.code);
        if (!pic.ok && missingReported.insert(pic.file.string()).second)
            report(where + ": sign picture missing or unreadable: " + pic.file.string());
    }
}
} // namespace

int runCheck(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {}, {});
    if (a.positional().size() != 1) throw Usage("check takes one FILE");
    const std::string file = a.positional()[0];
    int problems = 0;
    auto report = [&](const std::string& line) {
        std::cout << line << "\n";
        ++problems;
    };

    const ParsedDictionary parsed = readForCheck(file, report);

    ConsoleApp c(home);
    // Each word is drawn as the window draws it, which finds what parsing alone does not
    // (numbers that overflow once the signs are placed). A sign's picture is looked at once.
    CachedPictures pictures(c.pictures);
    App app(c.dialogs, c.clipboard, c.events, pictures, c.files);
    app.home = home;
    const std::size_t wordCount = parsed.words.size();
    for (std::size_t i = 0; i < wordCount; ++i)
        app.store.setRow(static_cast<int>(i), parsed.words[i]);
    app.store.lastIndex = static_cast<int>(wordCount) - 1;
    SignLists lists[2];
    bool listLoaded[2] = {false, false};
    std::string listError[2];
    auto listFor = [&](Library library) -> const SignLists* {
        const int k = library == Library::Basic ? 0 : 1;
        if (!listLoaded[k]) {
            listLoaded[k] = true;
            try {
                loadSignList(lists[k], home, library);
            } catch (const ProgramFileError& e) {
                listError[k] = e.problem();
                report(listError[k]);
            }
        }
        return listError[k].empty() ? &lists[k] : nullptr;
    };

    std::set<std::string> missingReported;
    for (std::size_t w = 0; w < wordCount; ++w) {
        const WordRecord& word = parsed.words[w];
        const std::string where = "word " + std::to_string(w);
        for (int f = 0; f < FieldCount; ++f)
            if (unwritable(word[static_cast<std::size_t>(f)]))
                report(where + ", " + kFieldNames[f] + ": holds a double quote or a line break");
        if (!isLibraryLetter(word[FieldLibrary]))
            report(where + ": library '" + word[FieldLibrary] +
                   "' is neither B nor E (drawn from Extended)");
        GlyphTable table;
        try {
            parseLayoutString(word[FieldLayout], table);
        } catch (const RunError& e) {
            report(where + ": the layout '" + word[FieldLayout] +
                   "' does not parse: " + e.report());
            continue;
        }
        app.store.currentIndex = static_cast<int>(w);
        renderWord(app);
        if (!app.view.drawProblem.empty()) {
            const std::string& why = app.view.drawProblem;
            const std::size_t open = why.rfind(" (");
            report(where + ": the layout '" + word[FieldLayout] + "' cannot be drawn: " +
                   (open == std::string::npos ? why : why.substr(open + 2, why.size() - open - 3)));
            continue;
        }
        const Library library = libraryOfLetter(word[FieldLibrary]);
        const SignLists* list = listFor(library);
        checkSigns(table, word, list, pictures, missingReported, where, report);
    }
    if (problems == 0) std::cout << "no problems found in " << wordCount << " words\n";
    return problems ? 1 : 0;
}

} // namespace nebkaro::cli
