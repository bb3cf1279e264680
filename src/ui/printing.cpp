#include "ui/printing.h"

#include "core/app.h"
#include "print/word_picture.h"
#include "ui/print_options_dialog.h"

#include <QLocale>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>

#include <algorithm>
#include <system_error>

namespace nebkaro {

using namespace print;

namespace {

// Jobs of fewer pages print without a progress dialog flashing up.
constexpr int PagesWorthAProgressDialog = 3;

std::string defaultPaper() {
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    if (!printer.isNull()) {
        const QPageSize size = printer.defaultPageSize();
        for (const PaperSize& p : paperSizes())
            if (size.id() == qtPageSizeId(p.name)) return p.name;
    }
    const auto system = QLocale::system().measurementSystem();
    return system == QLocale::ImperialUSSystem ? "Letter" : "A4";
}

std::string titleOf(const App& app) {
    return documentTitle(app.store.header, app.store.dictionaryName);
}

} // namespace

void Printing::setDefaults(App& app) {
    const QString printer = QPrinterInfo::defaultPrinterName();
    options_.printer = printer.isEmpty() ? std::string(PdfPrinterName) : printer.toStdString();
    options_.paper = defaultPaper();
    app.settings.printQuality = 0;
}

void Printing::printDictionaryDialog(App& app, QWidget* parent, RangeKind range) {
    PrintOptions initial = options_;
    initial.range = {range, 0, 0};
    // Print Multiple offers the words from the one on show to the last.
    if (range == RangeKind::Words) {
        const DictionaryStore& store = app.store;
        const int last = std::max(store.lastIndex, 0);
        initial.range = {range, std::clamp(store.currentIndex, 0, last), last};
    }
    PrintOptionsDialog dialog(app, initial, parent);
    if (dialog.exec() != QDialog::Accepted || !dialog.document()) return;
    options_ = dialog.options();
    const auto [first, last] = dialog.pagesToPrint();
    if (printPages(app, *dialog.document(), first, last, dialog.pdfFile(), parent) ==
        PrintDocument::Outcome::Printed) {
        const int n = last - first + 1;
        app.windows->showStatus(n == 1 ? "1 page printed" : std::to_string(n) + " pages printed");
    }
}

void Printing::addCurrentWordToPage(App& app, QWidget* parent) {
    const DictionaryStore& store = app.store;
    if (store.isEmpty() || store.currentIndex < 0 || store.currentIndex > store.lastIndex) {
        app.dialogs.message("There is no word to print.", "Print", Buttons::OK, Icon::Exclamation);
        return;
    }
    QueuedWord word{store.currentIndex, store.row(store.currentIndex)};
    if (queue_.waiting() > 0) {
        std::vector<PrintWord> words;
        for (const QueuedWord& w : queue_.words())
            words.push_back(makePrintWord(app.pictures, w.index, w.record));
        words.push_back(makePrintWord(app.pictures, word.index, word.record));
        const PrintDocument doc(std::move(words), options_, titleOf(app));
        const PageFrame& f = doc.frame();
        if (sheetFullWith(doc.blockHeights(), f.columns, f.columnHeight, doc.wordGap()) &&
            !formFeed(app, parent))
            return; // the full page could not go out: the word waits for the next try
    }
    queue_.add(std::move(word));
    app.windows->showStatus(statusText());
}

bool Printing::formFeed(App& app, QWidget* parent) {
    if (queue_.waiting() == 0) {
        app.windows->showStatus("No words wait to be printed");
        return false;
    }
    std::vector<PrintWord> words;
    for (const QueuedWord& w : queue_.words())
        words.push_back(makePrintWord(app.pictures, w.index, w.record));
    PrintDocument doc(std::move(words), options_, titleOf(app));
    doc.numberPages(queue_.sheetNumber(), false);
    if (!doc.fits()) {
        app.dialogs.message("The margins leave too little room for the words. Choose smaller "
                            "margins in the print options.",
                            "Print", Buttons::OK, Icon::Exclamation);
        return false;
    }
    std::optional<std::filesystem::path> pdf;
    if (options_.printer == PdfPrinterName) {
        pdf = app.dialogs.saveFile(
            "PDF files (*.pdf)|*.pdf",
            proposedPdfFile(titleOf(app) + " page " + std::to_string(queue_.sheetNumber())));
        if (!pdf) return false;
        if (pdf->extension().empty()) pdf->replace_extension(".pdf");
    }
    const int sheets = doc.pageCount();
    if (printPages(app, doc, 0, sheets - 1, pdf, parent) != PrintDocument::Outcome::Printed)
        return false;
    queue_.sheetPrinted(sheets);
    app.windows->showStatus(sheets == 1 ? "The page was printed"
                                        : std::to_string(sheets) + " pages were printed");
    return true;
}

bool Printing::confirmQuit(App& app, QWidget* parent) {
    switch (askAboutWaitingWords(app.dialogs, queue_.waiting())) {
    case WaitingWordsChoice::NothingWaiting:
        return true;
    case WaitingWordsChoice::Print:
        return formFeed(app, parent);
    case WaitingWordsChoice::Discard:
        queue_.discard();
        return true;
    case WaitingWordsChoice::Cancel:
        break;
    }
    return false;
}

PrintDocument::Outcome Printing::printPages(App& app, const PrintDocument& doc, int first, int last,
                                            const std::optional<std::filesystem::path>& pdf,
                                            QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    if (pdf) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(pdf->string()));
    } else {
        printer.setPrinterName(QString::fromStdString(options_.printer));
        printer.setCopyCount(options_.copies);
    }
    printer.setFullPage(true);
    printer.setResolution(printResolution(app.settings.printQuality));
    printer.setDocName(QString::fromStdString(doc.title()));
    printer.setCreator(QStringLiteral("Nebkaro"));

    const int total = last - first + 1;
    std::optional<QProgressDialog> progress;
    if (total >= PagesWorthAProgressDialog) {
        progress.emplace(QObject::tr("Printing..."), QObject::tr("Cancel"), 0, total, parent);
        progress->setObjectName(QStringLiteral("frmPrintProgress"));
        progress->setWindowTitle(QObject::tr("Print"));
        progress->setWindowModality(Qt::WindowModal);
        progress->setMinimumDuration(400);
    }
    const auto outcome = doc.print(printer, first, last, [&](int done, int count) {
        if (!progress) return true;
        progress->setLabelText(QObject::tr("Printing page %1 of %2").arg(done).arg(count));
        progress->setValue(done);
        if (!progress->wasCanceled()) return true;
        printer.abort(); // while the job is still open, so that nothing reaches the paper
        return false;
    });
    switch (outcome) {
    case PrintDocument::Outcome::Printed:
        break;
    case PrintDocument::Outcome::Cancelled:
        if (pdf) {
            // A half-written file is no use to anyone.
            std::error_code ec;
            std::filesystem::remove(*pdf, ec);
        }
        app.windows->showStatus("Printing cancelled");
        break;
    case PrintDocument::Outcome::Failed:
        if (pdf)
            app.dialogs.message("The file " + pdf->string() + " could not be written.", "Print",
                                Buttons::OK, Icon::Critical);
        else
            app.dialogs.message("The printer " + options_.printer + " could not print.", "Print",
                                Buttons::OK, Icon::Critical);
        break;
    }
    return outcome;
}

} // namespace nebkaro
