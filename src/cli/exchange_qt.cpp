// The export formats that carry the words' pictures.
#include "cli/console.h"
#include "cli/subcommands.h"
#include "core/dictionary_store.h"
#include "exchange/word_pages_qt.h"

#include <QGuiApplication>

namespace nebkaro::cli {

// This is the executable that draws.
void moveToDrawingTool() {}

std::string exportWithPictures(ConsoleApp& c, const std::string& format,
                               const std::vector<int>& words, std::int64_t nowMs) {
    // The GIF reader is found through the application object; no window is opened.
    int argc = 1;
    char name[] = "nebkaro-cli";
    char* args[] = {name, nullptr};
    QCoreApplication qt(argc, args);
    const std::string title = deckName(c.app.store.dictionaryName);
    if (format == "html") return exportHtml(c.app, words, title);
    return exportFlashCards(c.app, words, title, nowMs);
}

} // namespace nebkaro::cli
