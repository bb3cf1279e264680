#include "cli/subcommands.h"

#include "cli/args.h"
#include "cli/console.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/text.h"

#include <iostream>

namespace fs = std::filesystem;

namespace nebkaro::cli {

void loadDictionary(ConsoleApp& c, const std::string& file, bool merge) {
    App& app = c.app;
    app.settings.showDictionaryInfo = false;
    app.mergeMode = merge;
    app.store.dictionaryPath = file;
    app.store.dictionaryName = fs::path(file).filename().string();
    c.dialogs.echo = false;
    const std::size_t before = c.dialogs.shown.size();
    const LoadOutcome outcome = loadDictionary(app);
    c.dialogs.echo = true;
    if (outcome == LoadOutcome::NotFound) throw Failure("'" + file + "': no such dictionary file");
    if (outcome == LoadOutcome::Failed) {
        const std::string why =
            c.dialogs.shown.size() > before ? c.dialogs.shown[before] : "unreadable";
        throw Failure("'" + file + "' could not be read: " + why);
    }
    if (app.loadStoppedAtLine) {
        const std::string what =
            "'" + file + "' was only partly loaded: the word on line " +
            std::to_string(app.loadStoppedAtLine) +
            " has a direction other than R or L, and the words from there on were not read";
        // Writing the shorter dictionary anywhere would pass it off as the whole one.
        if (c.writes) throw Failure(what + "; nothing written");
        std::cerr << "nebkaro-cli: " << what << "\n";
    }
}

void writeDictionary(ConsoleApp& c, const std::string& out) {
    const UnwritableValue u = findUnwritableValue(c.app.store, true);
    if (u.found) {
        throw Failure(std::string(u.inHeader ? "header value " + std::to_string(u.field)
                                             : "word " + std::to_string(u.word) + " field " +
                                                   std::to_string(u.field)) +
                      " holds a double quote or a line break, which a dictionary file cannot hold; "
                      "nothing written");
    }
    c.files.write(fs::path(out), dictionaryFileText(c.app.store));
}

int wordIndex(const ConsoleApp& c, const std::string& textValue) {
    int index;
    try {
        index = text::toLong(textValue);
    } catch (const RunError&) {
        throw Usage("INDEX must be a whole number, not '" + textValue + "'");
    }
    if (index < 0 || index > c.app.store.lastIndex)
        throw Usage("no word " + textValue + ": the dictionary has words 0 to " +
                    std::to_string(c.app.store.lastIndex));
    return index;
}

int runInfo(const fs::path& home, const std::vector<std::string>& argv);
int runShow(const fs::path& home, const std::vector<std::string>& argv);
int runConvert(const fs::path& home, const std::vector<std::string>& argv);
int runMerge(const fs::path& home, const std::vector<std::string>& argv);
int runCheck(const fs::path& home, const std::vector<std::string>& argv);
int runSort(const fs::path& home, const std::vector<std::string>& argv);
int runShuffle(const fs::path& home, const std::vector<std::string>& argv);
int runFlip(const fs::path& home, const std::vector<std::string>& argv);
int runReadingOrder(const fs::path& home, const std::vector<std::string>& argv);
int runSearch(const fs::path& home, const std::vector<std::string>& argv);
int runGuess(const fs::path& home, const std::vector<std::string>& argv);
int runCompose(const fs::path& home, const std::vector<std::string>& argv);
int runExport(const fs::path& home, const std::vector<std::string>& argv);
int runImport(const fs::path& home, const std::vector<std::string>& argv);
#ifdef NEBKARO_HAVE_DRAW
int runRender(const fs::path& home, const std::vector<std::string>& argv);
#endif

namespace {

// Whole dictionary files: what they hold, converting, merging, checking.
std::vector<Subcommand> dictionarySubcommands() {
    return {
        {"info", "info FILE",
         "Prints the header values, the number of words, and whether the file has a header.\n",
         runInfo},
        {"show", "show FILE INDEX",
         "Prints the seven fields of word INDEX (counted from 0), one per line, as 'N: value'.\n",
         runShow},
        {"convert", "convert IN -o OUT",
         "Reads any dictionary the program reads (.nkd or .csv, UTF-8 or Windows-1252, CR LF\n"
         "or LF) and writes it as the program writes dictionaries.\n",
         runConvert},
        {"merge", "merge FILE... -o OUT",
         "Loads the first FILE, merges the others in argument order as the program's Merge\n"
         "does (the header is the last merged file's), and writes the result to OUT.\n",
         runMerge},
        {"check", "check FILE",
         "Reports every problem a user should know of: values the file format cannot hold,\n"
         "layouts that do not parse or cannot be drawn, codes not in the word's sign library,\n"
         "missing sign pictures, lines that are not UTF-8 (read as Windows-1252), and a record\n"
         "that ends the load early (with its line). Exit 1 when any.\n",
         runCheck},
    };
}

// The Tools menu's work on every word, and Find.
std::vector<Subcommand> bulkSubcommands() {
    return {
        {"sort",
         "sort FILE --by meaning|translit|classic|gardiner|comment [--reverse] [--case] [--method "
         "comb|toolbar] -o OUT",
         "Sorts the words by one field and writes the result to OUT. --method comb (the default)\n"
         "is the Tools menu's sort, in which Gardiner notations follow the sign list's order;\n"
         "--method toolbar is the Sort button's stable sort, comparing every field as text.\n"
         "'classic' orders transliterations A i y a w b p f m n r h H x X z s S q k g t T d D.\n"
         "Without --case, upper and lower case compare equal. Two Gardiner notations that cannot\n"
         "be ordered stop the sort with both named, and nothing is written.\n",
         runSort},
        {"shuffle", "shuffle FILE [--seed N] -o OUT",
         "Puts the words in random order; the same --seed gives the same order.\n", runShuffle},
        {"flip", "flip FILE --to left|right|invert -o OUT",
         "Turns every word to the left, to the right, or the other way, mirroring its signs.\n",
         runFlip},
        {"reading-order", "reading-order FILE [--overlap PERCENT] -o OUT",
         "Puts the signs of every word into reading order (Sort Gardiner) and rewrites its\n"
         "layout and Gardiner notation. Signs overlapping by more than PERCENT (default 20)\n"
         "of their right edge count as stacked. A word without signs stops the run.\n",
         runReadingOrder},
        {"search",
         "search FILE --field meaning|translit|gardiner|comment [--exact|--word] "
         "[--case|--ignore-case] [--ignore-variants] [--all] TEXT\n"
         "       search FILE --signs [--ignore-variants] [--all] SIGNS",
         "Searches from word 0 as Find does and prints the index of the first match, or of every\n"
         "match with --all, one per line; exit 1 when none. Blanks are ignored on both sides;\n"
         "without --case, case is ignored, except in transliterations (h and H are different\n"
         "letters) unless --ignore-case; a transliteration may be written in scholarly letters\n"
         "(n\xe1\xb9\xafr for nTr). '*' and '/' stand for any run of characters and '?'\n"
         "for one (then # is a digit and [list] one of a list), the whole field having to match.\n"
         "--exact: the whole field equals TEXT; --word: TEXT stands as a whole word;\n"
         "--ignore-variants: A1a counts as A1 (for Gardiner notations and signs).\n"
         "--signs: SIGNS are codes or phonetic values in any order (\"G17 D21\", \"m r\"); finds\n"
         "the words whose layout holds every one of them, a sign named twice twice.\n",
         runSearch},
    };
}

// One word at a time, and words leaving or entering the program.
std::vector<Subcommand> wordSubcommands() {
    return {
        {"guess", "guess FILE INDEX",
         "Prints the transliteration guessed from the phonetic values of word INDEX's signs, as\n"
         "the Guess button makes it; exit 1 when no sign has a phonetic value.\n",
         runGuess},
        {"compose", "compose [--library basic|extended] [--direction left|right] LINE",
         "Composes LINE (codes such as A1 or phonetic values such as n, separated by -, blank,\n"
         "* or :) as Get then OK in the composer do, and prints the layout string and the\n"
         "Gardiner notation on two lines. Signs are laid out in the reading order of the\n"
         "direction (right to left for right). Messages the composer would show go to stderr.\n"
         "When no sign was placed, nothing is printed and the exit status is 1.\n",
         runCompose},
        {"export", "export FILE --format tsv|html|mdc|apkg [--time MS] -o OUT",
         "Writes every word for other tools. tsv: UTF-8 tab-separated hieroglyphs in Unicode,\n"
         "transliteration in scholarly letters, Gardiner notation, meaning, comment, under a\n"
         "header line. html: one page with each word's picture. mdc: lines 'MdC TAB translit\n"
         "TAB meaning TAB comment', which import reads back. apkg: Anki flash cards, a deck\n"
         "named after FILE, two cards a word; --time fixes the identifiers (milliseconds since\n"
         "1970). Words that cannot be written whole are named on stderr.\n",
         runExport},
        {"import", "import FILE LINES [--library basic|extended] [--direction left|right] -o OUT",
         "Adds the lines of LINES ('MdC TAB translit TAB meaning [TAB comment]') to FILE as new\n"
         "words laid out as Arrange lays them, and writes the result to OUT. The count of words\n"
         "added and every refused line with its reason go to stderr; exit 1 when a line was\n"
         "refused.\n",
         runImport},
#ifdef NEBKARO_HAVE_DRAW
        {"render", "render FILE INDEX -o OUT.bmp|png|svg",
         "Draws word INDEX's signs as Save Glyph Image does (a 32-twip margin, 15 twips to the\n"
         "pixel), as a bitmap, PNG or SVG by OUT's extension. A missing sign picture is drawn as\n"
         "an empty framed square and named on stderr.\n",
         runRender},
#endif
    };
}

} // namespace

const std::vector<Subcommand>& subcommands() {
    static const std::vector<Subcommand> list = [] {
        std::vector<Subcommand> all;
        for (auto part : {dictionarySubcommands, bulkSubcommands, wordSubcommands})
            for (Subcommand& s : part()) all.push_back(std::move(s));
        return all;
    }();
    return list;
}

const Subcommand* findSubcommand(const std::string& name) {
    for (const Subcommand& s : subcommands())
        if (s.name == name) return &s;
    return nullptr;
}

int runInfo(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {}, {});
    if (a.positional().size() != 1) throw Usage("info takes one FILE");
    ConsoleApp c(home);
    c.writes = false;
    loadDictionary(c, a.positional()[0], false);
    const DictionaryStore& s = c.app.store;
    std::cout << "header: " << (s.hasHeader ? "yes" : "no") << "\n";
    for (int i = 0; i < FieldCount; ++i)
        std::cout << "header " << i << ": " << s.header[static_cast<std::size_t>(i)] << "\n";
    const int words = s.isEmpty() ? 0 : s.lastIndex + 1;
    std::cout << "words: " << words << "\n";
    return 0;
}

int runShow(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {}, {});
    if (a.positional().size() != 2) throw Usage("show takes FILE INDEX");
    ConsoleApp c(home);
    c.writes = false;
    loadDictionary(c, a.positional()[0], false);
    const int index = wordIndex(c, a.positional()[1]);
    for (int f = 0; f < FieldCount; ++f)
        std::cout << f << ": " << c.app.store.field(index, f) << "\n";
    return 0;
}

int runConvert(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o"}, {});
    if (a.positional().size() != 1) throw Usage("convert takes IN -o OUT");
    ConsoleApp c(home);
    loadDictionary(c, a.positional()[0], false);
    writeDictionary(c, a.required("-o"));
    return 0;
}

int runMerge(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o"}, {});
    if (a.positional().empty()) throw Usage("merge takes FILE... -o OUT");
    const std::string out = a.required("-o");
    ConsoleApp c(home);
    bool first = true;
    for (const auto& f : a.positional()) {
        loadDictionary(c, f, !first);
        first = false;
    }
    writeDictionary(c, out);
    return 0;
}

} // namespace nebkaro::cli
