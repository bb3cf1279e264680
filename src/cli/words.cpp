// search, guess and compose: finding words, guessing a transliteration and composing a line of
// codes, exactly as the windows do.
#include "bulk/search.h"
#include "bulk/sign_search.h"
#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "composer/composer.h"
#include "core/errors.h"
#include "display/render.h"
#include "editing/word_editing.h"
#include "translit/guess.h"
#include "translit/unicode_translit.h"

#include <iostream>
#include <map>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {
int searchBySigns(const fs::path& home, const Args& a) {
    if (a.value("--field")) throw Usage("--signs searches the signs; --field does not apply");
    ConsoleApp c(home);
    loadPhonetic(c.app.lists, home);
    const SignQueryReading r =
        readSignQuery(c.app.lists, a.positional()[1], a.flag("--ignore-variants"));
    if (!r.unknown.empty()) throw Usage(r.unknown + " was not found");
    if (r.query.codes.empty()) throw Usage("You must write something in the search box");
    c.writes = false;
    loadDictionary(c, a.positional()[0], false);
    std::vector<int> found;
    if (a.flag("--all")) {
        found = findAllBySigns(c.app.store, r.query);
    } else if (int i = findBySigns(c.app.store, r.query, 0, c.app.store.lastIndex, 1); i >= 0) {
        found.push_back(i);
    }
    for (int i : found) std::cout << i << "\n";
    return found.empty() ? 1 : 0;
}
} // namespace

int runSearch(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(
        argv, {"--field"},
        {"--exact", "--word", "--case", "--ignore-case", "--ignore-variants", "--all", "--signs"});
    if (a.positional().size() != 2)
        throw Usage("search takes FILE --field FIELD TEXT, or FILE --signs SIGNS");
    if (a.flag("--signs")) return searchBySigns(home, a);
    static const std::map<std::string, int> fields = {{"meaning", FieldMeaning},
                                                      {"translit", FieldTranslit},
                                                      {"gardiner", FieldGardiner},
                                                      {"comment", FieldComment}};
    const std::string fieldName = a.required("--field");
    auto it = fields.find(fieldName);
    if (it == fields.end())
        throw Usage("--field takes meaning|translit|gardiner|comment, not '" + fieldName + "'");
    if (a.flag("--exact") && a.flag("--word")) throw Usage("--exact and --word exclude each other");
    // Transliterations are stored in plain letters; scholarly ones are read as the search
    // box reads them.
    const std::string textValue =
        it->second == FieldTranslit ? plainFromScholarly(a.positional()[1]) : a.positional()[1];
    if (textValue.empty()) throw Usage("You must write something in the search box");
    ConsoleApp c(home);
    c.writes = false;
    loadDictionary(c, a.positional()[0], false);
    if (a.flag("--case") && a.flag("--ignore-case"))
        throw Usage("--case and --ignore-case exclude each other");
    // As in the Search dialog, a transliteration search starts case-sensitive: h and H are
    // different letters.
    const bool caseSensitive =
        a.flag("--case") || (it->second == FieldTranslit && !a.flag("--ignore-case"));
    const SearchCriteria criteria = prepareCriteria(textValue, a.flag("--exact"), a.flag("--word"),
                                                    caseSensitive, a.flag("--ignore-variants"));
    std::vector<int> found;
    if (c.app.store.lastIndex >= 0) {
        if (a.flag("--all")) {
            found = findAll(c.app.store, criteria, it->second);
        } else if (int i =
                       findMatch(c.app.store, criteria, it->second, 0, c.app.store.lastIndex, 1);
                   i >= 0) {
            found.push_back(i);
        }
    }
    for (int i : found) std::cout << i << "\n";
    return found.empty() ? 1 : 0;
}

int runGuess(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {}, {});
    if (a.positional().size() != 2) throw Usage("guess takes FILE INDEX");
    ConsoleApp c(home);
    installEditing(c.app);
    loadPhonetic(c.app.lists, home);
    c.writes = false;
    loadDictionary(c, a.positional()[0], false);
    c.app.store.currentIndex = wordIndex(c, a.positional()[1]);
    renderWord(c.app);
    const std::string guess = guessTransliteration(c.app.glyphs, c.app.lists);
    std::cout << guess << "\n";
    return guess.empty() ? 1 : 0;
}

int runCompose(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"--library", "--direction"}, {});
    if (a.positional().size() != 1) throw Usage("compose takes one LINE (quote it)");
    const std::string library = a.value("--library").value_or("basic");
    const std::string direction = a.value("--direction").value_or("left");
    if (library != "basic" && library != "extended") throw Usage("--library takes basic|extended");
    if (direction != "left" && direction != "right") throw Usage("--direction takes left|right");
    ConsoleApp c(home);
    c.app.settings.library = libraryOfName(library);
    c.app.settings.direction = directionOfName(direction);
    loadSignList(c.app.lists, home, c.app.settings.library);
    loadPhonetic(c.app.lists, home);
    if (!composeLine(c.app, a.positional()[0], c.app.settings.library, c.app.settings.direction))
        return 1;
    std::cout << c.app.layoutText << "\n" << c.app.composedGardiner << "\n";
    return 0;
}

} // namespace nebkaro::cli
