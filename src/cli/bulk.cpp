// sort, shuffle, flip and reading-order: the whole-dictionary operations of the Tools menu,
// without their questions, written to a new file.
#include "bulk/array_functions.h"
#include "bulk/bulk_commands.h"
#include "bulk/reading_order.h"
#include "bulk/sort.h"
#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "core/errors.h"
#include "core/text.h"
#include "editing/word_editing.h"

#include <functional>
#include <map>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {

// Loads FILE with the program's sign list, tables, drawing and Store wired in.
void prepare(ConsoleApp& c, const std::string& file, bool needLists) {
    installEditing(c.app);
    if (needLists) {
        loadSignList(c.app.lists, c.app.home, c.app.settings.library);
        loadTrans2Code(c.app.lists, c.app.home);
    }
    loadDictionary(c, file, false);
}

template <class T>
T choice(const std::map<std::string, T>& table, const std::string& option,
         const std::string& value) {
    auto it = table.find(value);
    if (it == table.end()) {
        std::string names;
        for (const auto& [k, v] : table) names += (names.empty() ? "" : "|") + k;
        throw Usage(option + " takes " + names + ", not '" + value + "'");
    }
    return it->second;
}

bool empty(const ConsoleApp& c) {
    return c.app.store.lastIndex < 0;
}

// Runs a whole-dictionary change that works word by word over FILE and writes the result to
// OUT; a word it cannot change stops it, names the word, and nothing is written.
void changeEachWord(const fs::path& home, const Args& a, const std::string& failure,
                    const std::function<void(App&)>& change) {
    ConsoleApp c(home);
    prepare(c, a.positional()[0], false);
    if (!empty(c)) {
        try {
            change(c.app);
        } catch (const RunError& e) {
            throw Failure("word " + std::to_string(c.app.store.currentIndex) + " cannot be " +
                          failure + ": " + e.report() + "; nothing written");
        }
    }
    writeDictionary(c, a.required("-o"));
}

} // namespace

int runSort(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o", "--by", "--method"}, {"--reverse", "--case"});
    if (a.positional().size() != 1) throw Usage("sort takes FILE --by FIELD -o OUT");
    const SortField field = choice<SortField>({{"meaning", SortField::Meaning},
                                               {"translit", SortField::Translit},
                                               {"classic", SortField::Classic},
                                               {"gardiner", SortField::Gardiner},
                                               {"comment", SortField::Comment}},
                                              "--by", a.required("--by"));
    const bool comb = choice<bool>({{"comb", true}, {"toolbar", false}}, "--method",
                                   a.value("--method").value_or("comb"));
    const std::string out = a.required("-o");
    ConsoleApp c(home);
    prepare(c, a.positional()[0], field == SortField::Classic);
    const SortOrder order{a.flag("--reverse"), a.flag("--case")};
    if (!empty(c)) {
        try {
            if (comb)
                menuSort(c.app, field, order);
            else
                toolbarSort(c.app, field, order);
        } catch (const RunError& e) {
            throw Failure("the sort failed: " + e.report() + "; nothing written");
        }
    }
    writeDictionary(c, out);
    return 0;
}

int runShuffle(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o", "--seed"}, {});
    if (a.positional().size() != 1) throw Usage("shuffle takes FILE -o OUT");
    std::optional<std::uint64_t> seed;
    if (auto s = a.value("--seed")) {
        try {
            seed = static_cast<std::uint64_t>(std::stoull(*s));
        } catch (const std::exception&) {
            throw Usage("--seed takes a whole number, not '" + *s + "'");
        }
    }
    ConsoleApp c(home);
    prepare(c, a.positional()[0], false);
    if (!empty(c)) shuffleDictionary(c.app, seed);
    writeDictionary(c, a.required("-o"));
    return 0;
}

int runFlip(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o", "--to"}, {});
    if (a.positional().size() != 1) throw Usage("flip takes FILE --to left|right|invert -o OUT");
    const FlipMode mode = choice<FlipMode>(
        {{"left", FlipMode::Left}, {"right", FlipMode::Right}, {"invert", FlipMode::Invert}},
        "--to", a.required("--to"));
    changeEachWord(home, a, "flipped", [mode](App& app) { flipAll(app, mode); });
    return 0;
}

int runReadingOrder(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o", "--overlap"}, {});
    if (a.positional().size() != 1)
        throw Usage("reading-order takes FILE [--overlap PERCENT] -o OUT");
    // The answer is read as the input box reads it: a number as far as it goes.
    const double percent = text::leadingNumber(a.value("--overlap").value_or("20"));
    changeEachWord(home, a, "put in reading order",
                   [percent](App& app) { sortGardinerAll(app, percent); });
    return 0;
}

} // namespace nebkaro::cli
