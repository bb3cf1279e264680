// export and import: the dictionary as Unicode text, HTML, Manuel de Codage lines or flash
// cards, and lines of Manuel de Codage merged into a dictionary.
#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "core/errors.h"
#include "core/files.h"
#include "editing/word_editing.h"
#include "exchange/word_exchange.h"

#include <chrono>
#include <fstream>
#include <iostream>
#include <sstream>

namespace fs = std::filesystem;

namespace nebkaro::cli {

// The formats that draw pictures live with the drawing code.
std::string exportWithPictures(ConsoleApp& c, const std::string& format,
                               const std::vector<int>& words, std::int64_t nowMs);

#ifndef NEBKARO_HAVE_DRAW
std::string exportWithPictures(ConsoleApp&, const std::string& format, const std::vector<int>&,
                               std::int64_t) {
    throw Failure("this build draws no pictures, so it cannot write " + format);
}
void moveToDrawingTool() {}
#endif

namespace {

void loadTables(ConsoleApp& c, const fs::path& home) {
    loadSignList(c.app.lists, home, c.app.settings.library);
    loadPhonetic(c.app.lists, home);
}

std::string readText(const std::string& file) {
    try {
        return readFileBytes(fs::path(file));
    } catch (const RunError& e) {
        throw Failure("cannot read " + file + ": " + e.description());
    }
}

} // namespace

int runExport(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"--format", "-o", "--time"}, {});
    if (a.positional().size() != 1)
        throw Usage("export takes FILE --format tsv|html|mdc|apkg -o OUT");
    const std::string format = a.required("--format");
    const std::string out = a.required("-o");
    if (format != "tsv" && format != "html" && format != "mdc" && format != "apkg")
        throw Usage("--format takes tsv|html|mdc|apkg, not '" + format + "'");
    std::int64_t nowMs = std::chrono::duration_cast<std::chrono::milliseconds>(
                             std::chrono::system_clock::now().time_since_epoch())
                             .count();
    if (auto t = a.value("--time")) {
        try {
            nowMs = std::stoll(*t);
        } catch (const std::exception&) {
            throw Usage("--time takes milliseconds since 1970");
        }
    }
    if (format == "html" || format == "apkg") moveToDrawingTool();
    ConsoleApp c(home);
    installEditing(c.app);
    loadDictionary(c, a.positional()[0], false);
    const std::vector<int> words = allWords(c.app);
    std::string bytes;
    if (format == "tsv" || format == "mdc") {
        const ExportText t =
            format == "tsv" ? exportTsv(c.app, words) : exportMdcLines(c.app, words);
        for (const std::string& p : t.problems) std::cerr << p << "\n";
        bytes = t.text;
    } else {
        bytes = exportWithPictures(c, format, words, nowMs);
    }
    c.files.write(fs::path(out), bytes);
    return 0;
}

int runImport(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o", "--library", "--direction"}, {});
    if (a.positional().size() != 2) throw Usage("import takes FILE LINES -o OUT");
    const std::string out = a.required("-o");
    const std::string library = a.value("--library").value_or("basic");
    const std::string direction = a.value("--direction").value_or("left");
    if (library != "basic" && library != "extended") throw Usage("--library takes basic|extended");
    if (direction != "left" && direction != "right") throw Usage("--direction takes left|right");
    ConsoleApp c(home);
    installEditing(c.app);
    c.app.settings.library = libraryOfName(library);
    c.app.settings.direction = directionOfName(direction);
    loadTables(c, home);
    loadDictionary(c, a.positional()[0], false);
    const ImportReport report = importMdcLines(c.app, readText(a.positional()[1]));
    std::cerr << importReportText(report) << "\n";
    writeDictionary(c, out);
    return report.refused.empty() ? 0 : 1;
}

} // namespace nebkaro::cli
