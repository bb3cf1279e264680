#include "ui/exchange_commands.h"

#include "core/app.h"
#include "core/files.h"
#include "core/guarded.h"
#include "exchange/mdc.h"
#include "exchange/word_exchange.h"
#include "exchange/word_pages_qt.h"
#include "ui/search_dialog.h"
#include "ui/search_windows.h"

#include <QAction>
#include <QDateTime>
#include <QMenu>

#include <filesystem>

namespace nebkaro {

namespace {
struct FormatInfo {
    const char* caption;
    const char* objectName;
    const char* filter;
    const char* extension;
};
FormatInfo info(ExchangeCommands::Format f) {
    switch (f) {
    case ExchangeCommands::Format::Tsv:
        return {"&Unicode Text (TSV)...", "mnuExportTsv", "Unicode Text (*.tsv)|*.tsv", ".tsv"};
    case ExchangeCommands::Format::Html:
        return {"&Web Page (HTML)...", "mnuExportHtml", "Web Pages (*.html)|*.html", ".html"};
    case ExchangeCommands::Format::Mdc:
        return {"&Manuel de Codage Lines...", "mnuExportMdc", "MdC Lines (*.txt)|*.txt", ".txt"};
    case ExchangeCommands::Format::FlashCards:
        return {"&Flash Cards (Anki)...", "mnuExportFlashCards", "Anki Packages (*.apkg)|*.apkg",
                ".apkg"};
    }
    return {};
}
} // namespace

ExchangeCommands::ExchangeCommands(App& app, SearchWindows& tools, QWidget* window)
    : QObject(window), app_(app), tools_(tools), window_(window) {}

void ExchangeCommands::addFileItems(QMenu* file) {
    auto* import = new QAction(QStringLiteral("&Import..."), this);
    import->setObjectName(QStringLiteral("mnuImport"));
    import->setToolTip(QStringLiteral("Add words from lines of MdC, transliteration, meaning and "
                                      "comment, separated by tabs"));
    connect(import, &QAction::triggered, this,
            [this] { runGuarded(app_, [this] { importLines(); }); });
    file->addAction(import);
    QMenu* exportMenu = file->addMenu(QStringLiteral("E&xport"));
    exportMenu->setObjectName(QStringLiteral("mnuExport"));
    exportMenu->menuAction()->setObjectName(QStringLiteral("mnuExport"));
    for (Format f : {Format::Tsv, Format::Html, Format::Mdc, Format::FlashCards}) {
        const FormatInfo i = info(f);
        auto* a = new QAction(QString::fromLatin1(i.caption), this);
        a->setObjectName(QString::fromLatin1(i.objectName));
        connect(a, &QAction::triggered, this,
                [this, f] { runGuarded(app_, [this, f] { exportWords(f); }); });
        exportMenu->addAction(a);
    }
}

void ExchangeCommands::addWordItems(QMenu* word) {
    auto* a = new QAction(QStringLiteral("Copy as &MdC"), this);
    a->setObjectName(QStringLiteral("mnuCopyMdc"));
    a->setToolTip(QStringLiteral("Copy the signs of the word in the Manuel de Codage"));
    connect(a, &QAction::triggered, this, [this] { runGuarded(app_, [this] { copyAsMdc(); }); });
    word->addAction(a);
}

void ExchangeCommands::copyAsMdc() {
    const std::string mdc = mdcOfWordOnShow(app_);
    if (mdc.empty()) {
        app_.dialogs.message("The word on show has no signs to copy.", "Copy as MdC", Buttons::OK,
                             Icon::Exclamation);
        return;
    }
    app_.clipboard.clear();
    app_.clipboard.setText(mdc);
}

void ExchangeCommands::importLines() {
    DictionaryStore& s = app_.store;
    if (s.newWordPending || s.editPending || s.composeAccepted) {
        const Answer a = app_.dialogs.message("Do you want to store this word before importing?",
                                              "", Buttons::YesNoCancel, Icon::Question);
        if (a == Answer::Cancel) return;
        if (a == Answer::Yes) app_.storeWord(app_);
    }
    const auto file = app_.dialogs.openFile("MdC Lines (*.txt)|*.txt|All Files (*.*)|*.*",
                                            app_.userFolder() / "Dictionaries");
    if (!file) return;
    // Only a regular file, of a sensible size: a pipe would hold the window.
    const ImportReport report = importMdcLines(app_, readFileBytes(*file));
    Q_EMIT changed();
    app_.dialogs.message(importReportText(report), "Import", Buttons::OK,
                         report.refused.empty() ? Icon::Information : Icon::Exclamation);
}

std::vector<int> ExchangeCommands::wordsToExport(bool& cancelled) {
    cancelled = false;
    std::vector<int> found;
    if (SearchDialog* d = tools_.searchDialog()) found = d->foundWords();
    found.erase(
        std::remove_if(found.begin(), found.end(), [&](int w) { return w > app_.store.lastIndex; }),
        found.end());
    if (!found.empty()) {
        const Answer a = app_.dialogs.message(
            "Export only the " + std::to_string(found.size()) +
                " words of the Find All list? No exports the whole dictionary.",
            "Export", Buttons::YesNoCancel, Icon::Question);
        if (a == Answer::Cancel) {
            cancelled = true;
            return {};
        }
        if (a == Answer::Yes) return found;
    }
    return allWords(app_);
}

void ExchangeCommands::exportWords(Format format) {
    bool cancelled = false;
    const std::vector<int> words = wordsToExport(cancelled);
    if (cancelled) return;
    if (words.empty()) {
        app_.dialogs.message("There are no words to export.", "Export", Buttons::OK,
                             Icon::Exclamation);
        return;
    }
    const FormatInfo i = info(format);
    const std::string deck = deckName(app_.store.dictionaryName);
    const auto file =
        app_.dialogs.saveFile(i.filter, app_.userFolder() / "Dictionaries" / (deck + i.extension));
    if (!file) return;
    std::string bytes;
    std::vector<std::string> problems;
    switch (format) {
    case Format::Tsv:
    case Format::Mdc: {
        const ExportText t =
            format == Format::Tsv ? exportTsv(app_, words) : exportMdcLines(app_, words);
        bytes = t.text;
        problems = t.problems;
        break;
    }
    case Format::Html:
        bytes = exportHtml(app_, words, deck);
        break;
    case Format::FlashCards:
        bytes = exportFlashCards(app_, words, deck, QDateTime::currentMSecsSinceEpoch());
        break;
    }
    app_.files.write(*file, bytes);
    if (!problems.empty()) {
        std::string list;
        for (std::size_t k = 0; k < problems.size() && k < 20; ++k) list += "\r\n" + problems[k];
        if (problems.size() > 20)
            list += "\r\n... and " + std::to_string(problems.size() - 20) + " more";
        app_.dialogs.message("The words were exported, but not all of them whole:" + list, "Export",
                             Buttons::OK, Icon::Exclamation);
    }
}

} // namespace nebkaro
