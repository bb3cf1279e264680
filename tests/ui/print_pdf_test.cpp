// Printing a small dictionary to PDF and reading it back: the fields chosen are there and the
// others are not, the page numbers and the dictionary's name are on every page, two columns
// fill the left one first, a page range prints only its pages, and the collected page of
// Print 1 and Form Feed prints what was added.
#include "print_fixture.h"

#include "core/dictionary_file.h"

#include "print/print_document_qt.h"
#include "print/word_picture.h"
#include "ui/print_options_dialog.h"
#include "ui/printing.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::uitest;

namespace {

std::unique_ptr<PrintDocument> documentOf(App& app, const PrintOptions& o) {
    return std::make_unique<PrintDocument>(
        CollectWords(app, WordsInRange(o.range, app.store)), o,
        DocumentTitle(app.store.header, app.store.dictionaryName));
}

// Prints pages first..last of doc into a PDF file through QPrinter, as the program does.
bool printToPdf(const PrintDocument& doc, const std::filesystem::path& file, int first = 0,
                int last = -1) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(file.string()));
    printer.setFullPage(true);
    printer.setResolution(150);
    if (last < 0) last = doc.pageCount() - 1;
    return doc.print(printer, first, last) == PrintDocument::Outcome::Printed;
}

// Words of the text, so that "likewise" is not found inside "likewise2".
QStringList tokens(const QString& text) {
    return text.split(QRegularExpression(QStringLiteral("[\\s\\f]+")), Qt::SkipEmptyParts);
}

// The text of the words only: without the header line of each page and its footer.
QString bodyText(const std::filesystem::path& pdf) {
    QStringList kept;
    for (const QString& page : pdfText(pdf).split(QLatin1Char('\f'), Qt::SkipEmptyParts)) {
        QStringList lines = page.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        lines.removeIf([](const QString& l) {
            return l.startsWith(QLatin1String("Page ")) || l.startsWith(QLatin1String("Word")) ||
                   l == QLatin1String("Starter");
        });
        kept += lines;
    }
    return kept.join(QLatin1Char('\n'));
}

} // namespace

class PrintPdfTest : public QObject {
    Q_OBJECT
private slots:
    void wholeDictionaryHasEveryFieldAndNumberedPages();
    void everyFieldSwitchedOffInTurnLeavesThePaper();
    void twoColumnsFillTheLeftColumnFirst();
    void aPageRangePrintsOnlyThosePages();
    void qualitySetsTheResolutionOfTheSigns();
    void thePrintDialogPrintsIntoTheChosenFile();
    void printOneCollectsWordsAndFormFeedPrintsThem();
    void aFullPageGoesOutByItself();
    void quittingWithWordsWaitingAsks();
    void startUpChoosesTheDefaultPrinterAndDraft();
    void theStarterDictionaryPrintsInTwoColumns();
};

void PrintPdfTest::wholeDictionaryHasEveryFieldAndNumberedPages() {
    Fixture f(24);
    PrintOptions o;
    o.columns = 2;
    auto doc = documentOf(*f.app, o);
    QVERIFY(doc->pageCount() >= 2);
    const auto pdf = f.file("all.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    QCOMPARE(pdfPageCount(pdf), doc->pageCount());

    const QString text = pdfText(pdf);
    const QStringList words = tokens(text);
    for (int i = 0; i < 24; ++i)
        QVERIFY2(words.contains(QString::fromStdString(Fixture::meaningOf(i))),
                 Fixture::meaningOf(i).c_str());
    for (const TestWord& w : Words) {
        QVERIFY2(text.contains(QString::fromUtf8(w.gardiner)), w.gardiner);
        QVERIFY2(text.contains(QString::fromUtf8(w.comment)), w.comment);
        QVERIFY2(words.contains(QString::fromUtf8(w.translit)), w.translit);
    }
    const QStringList pages = text.split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    QCOMPARE(pages.size(), doc->pageCount());
    for (int p = 0; p < pages.size(); ++p) {
        QVERIFY2(
            pages[p].contains(QStringLiteral("Page %1 of %2").arg(p + 1).arg(doc->pageCount())),
            qPrintable(pages[p]));
        QVERIFY(pages[p].contains(QLatin1String("Starter")));
    }
    // The header's guide names the first and the last word of the page.
    const int lastOnFirst =
        doc->words()[static_cast<std::size_t>(doc->pages()[0].back().item)].index;
    QVERIFY(pages[0].contains(QStringLiteral("Words 0\u2013%1").arg(lastOnFirst)));
    // The signs are pictures in the PDF; the missing one is a frame, not an error.
    QVERIFY(!pdfImageWidths(pdf).empty());
}

void PrintPdfTest::everyFieldSwitchedOffInTurnLeavesThePaper() {
    Fixture f(8);
    struct Field {
        const char* name;
        bool PrintFields::*flag;
        std::function<QString(int)> textOf;
    };
    const Field fields[] = {
        {"gardiner", &PrintFields::gardiner,
         [](int i) { return QString::fromUtf8(Words[i].gardiner); }},
        {"transliteration", &PrintFields::transliteration,
         [](int i) { return QString::fromUtf8(Words[i].translit); }},
        {"meaning", &PrintFields::meaning,
         [](int i) { return QString::fromUtf8(Words[i].meaning); }},
        {"comment", &PrintFields::comment,
         [](int i) { return QString::fromUtf8(Words[i].comment); }},
    };
    const int probe = 4; // "D21:N35-A1", "rn", "namesake", "with a man"
    for (const Field& off : fields) {
        PrintOptions o;
        o.fields.number = false;
        o.fields.*(off.flag) = false;
        auto doc = documentOf(*f.app, o);
        const auto pdf = f.file(std::string("without-") + off.name + ".pdf");
        QVERIFY(printToPdf(*doc, pdf));
        const QString text = pdfText(pdf);
        const QStringList words = tokens(text);
        for (const Field& other : fields) {
            const QString t = other.textOf(probe);
            const bool found = t.contains(QLatin1Char(' ')) ? text.contains(t) : words.contains(t);
            QVERIFY2(found == (&other != &off),
                     qPrintable(QStringLiteral("%1 off, %2").arg(off.name, other.name)));
        }
        QVERIFY(!pdfImageWidths(pdf).empty());
    }

    // The word numbers: on, each word's number stands before it; off, none does.
    PrintOptions o;
    o.fields = {false, false, false, true, false, true};
    auto doc = documentOf(*f.app, o);
    auto pdf = f.file("numbers.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    QString body = bodyText(pdf);
    for (int i = 0; i < 8; ++i)
        QVERIFY2(tokens(body).contains(QString::number(i)), qPrintable(body));
    o.fields.number = false;
    doc = documentOf(*f.app, o);
    pdf = f.file("no-numbers.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    body = bodyText(pdf);
    for (int i = 0; i < 8; ++i)
        QVERIFY2(!tokens(body).contains(QString::number(i)), qPrintable(body));

    // The signs: off, the PDF holds no picture at all.
    o.fields = PrintFields{};
    o.fields.signs = false;
    doc = documentOf(*f.app, o);
    pdf = f.file("no-signs.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    QVERIFY(pdfImageWidths(pdf).empty());
    QVERIFY(tokens(pdfText(pdf)).contains(QStringLiteral("namesake")));
}

void PrintPdfTest::twoColumnsFillTheLeftColumnFirst() {
    Fixture f(24);
    PrintOptions o;
    o.columns = 2;
    auto doc = documentOf(*f.app, o);
    const Page& first = doc->pages().front();
    QVERIFY(first.back().column == 1);
    const auto pdf = f.file("columns.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    // pdftotext crops in points: the halves of the first page left and right of its middle.
    const int width = doc->frame().pageWidth / 20, height = doc->frame().pageHeight / 20;
    const QString left = pdfText(pdf, {"-f", "1", "-l", "1", "-x", "0", "-y", "0", "-W",
                                       QString::number(width / 2), "-H", QString::number(height)});
    const QString right =
        pdfText(pdf, {"-f", "1", "-l", "1", "-x", QString::number(width / 2), "-y", "0", "-W",
                      QString::number(width / 2), "-H", QString::number(height)});
    int lastLeft = -1;
    for (const Placement& p : first) {
        const QString meaning =
            QString::fromStdString(Fixture::meaningOf(doc->words()[p.item].index));
        const QString& half = p.column == 0 ? left : right;
        QVERIFY2(tokens(half).contains(meaning),
                 qPrintable(meaning + " in column " + QString::number(p.column)));
        if (p.column == 0) lastLeft = p.item;
    }
    // Down the left column in order, then on at the top of the right one.
    QVERIFY(lastLeft >= 1);
    QCOMPARE(first[static_cast<std::size_t>(lastLeft + 1)].column, 1);
    QVERIFY(left.indexOf(QString::fromStdString(Fixture::meaningOf(0))) <
            left.indexOf(QString::fromStdString(Fixture::meaningOf(lastLeft))));
}

void PrintPdfTest::aPageRangePrintsOnlyThosePages() {
    Fixture f(40);
    PrintOptions o;
    o.range = {RangeKind::Pages, 2, 3};
    auto doc = documentOf(*f.app, o);
    const int total = doc->pageCount();
    QVERIFY(total >= 4);
    const auto [first, last] = PagesInRange(o.range, total);
    const auto pdf = f.file("pages.pdf");
    QVERIFY(printToPdf(*doc, pdf, first, last));
    QCOMPARE(pdfPageCount(pdf), 2);
    const QString text = pdfText(pdf);
    QVERIFY(text.contains(QStringLiteral("Page 2 of %1").arg(total)));
    QVERIFY(text.contains(QStringLiteral("Page 3 of %1").arg(total)));
    QVERIFY(!text.contains(QStringLiteral("Page 1 of")));
    QVERIFY(!tokens(text).contains(QStringLiteral("likewise"))); // word 0 is on page 1
}

void PrintPdfTest::qualitySetsTheResolutionOfTheSigns() {
    // The signs are scaled to the printer's pixels: high quality embeds larger pictures.
    Fixture f(1); // one word: G17 (34 px wide) and M17 (12 px)
    PrintOptions o;
    auto doc = documentOf(*f.app, o);
    int widest[2] = {0, 0};
    const int dpi[2] = {printResolution(0), printResolution(-4)};
    for (int i = 0; i < 2; ++i) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        const auto pdf = f.file("quality" + std::to_string(i) + ".pdf");
        printer.setOutputFileName(QString::fromStdString(pdf.string()));
        printer.setFullPage(true);
        printer.setResolution(dpi[i]);
        QCOMPARE(doc->print(printer, 0, 0), PrintDocument::Outcome::Printed);
        const auto widths = pdfImageWidths(pdf);
        QVERIFY(!widths.empty());
        widest[i] = *std::max_element(widths.begin(), widths.end());
    }
    // 34 pixels of 1/96 inch at 150 and at 600 dots per inch.
    QCOMPARE(widest[0], 53);
    QCOMPARE(widest[1], 213);
}

void PrintPdfTest::thePrintDialogPrintsIntoTheChosenFile() {
    Fixture f(10);
    f.app->store.currentIndex = 3;
    Printing printing;
    PrintOptions o;
    o.printer = PdfPrinterName;
    printing.setOptions(o);
    const auto pdf = f.file("dialog.pdf");
    f.dialogs.files.push_back(pdf);
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog && dialog->objectName() == QLatin1String("frmPrintOptions"));
        dialog->findChild<QAbstractButton*>(QStringLiteral("optCurrentWord"))->click();
        dialog->findChild<QPushButton*>(QStringLiteral("cmdPrint"))->click();
    });
    printing.printDictionaryDialog(*f.app, nullptr);
    QVERIFY(std::filesystem::exists(pdf));
    const QStringList words = tokens(pdfText(pdf));
    QVERIFY(words.contains(QStringLiteral("breadloaf"))); // word 3
    QVERIFY(!words.contains(QStringLiteral("likewise")));
    QCOMPARE(printing.options().range.kind, RangeKind::CurrentWord);
    QCOMPARE(f.windows.status.back(), std::string("1 page printed"));
}

void PrintPdfTest::printOneCollectsWordsAndFormFeedPrintsThem() {
    Fixture f(8);
    Printing printing;
    PrintOptions o;
    o.printer = PdfPrinterName;
    printing.setOptions(o);
    for (int i : {5, 1, 6}) {
        f.app->store.currentIndex = i;
        printing.addCurrentWordToPage(*f.app);
    }
    QCOMPARE(printing.wordsWaiting(), 3);
    QCOMPARE(f.windows.status.back(),
             std::string("3 words wait to be printed (Form Feed prints the page)"));
    // A word changed after it was added prints as it was added.
    f.app->store.setField(1, FieldMeaning, "changed");

    const auto sheet1 = f.file("sheet1.pdf");
    f.dialogs.files.push_back(sheet1);
    QVERIFY(printing.formFeed(*f.app));
    QCOMPARE(printing.wordsWaiting(), 0);
    QCOMPARE(pdfPageCount(sheet1), 1);
    QString text = pdfText(sheet1);
    const QStringList words = tokens(text);
    for (const char* m : {"gentleman", "sunshine", "valley"}) QVERIFY2(words.contains(m), m);
    QVERIFY(!words.contains(QStringLiteral("changed")));
    QVERIFY(!words.contains(QStringLiteral("likewise")));
    QVERIFY(text.indexOf("gentleman") < text.indexOf("sunshine"));
    QVERIFY(text.contains(QStringLiteral("Page 1")) && !text.contains(QStringLiteral(" of ")));
    // Words collected out of order get no "Words 5–6" guide, which would mislead.
    QVERIFY(!words.contains(QStringLiteral("Words")));

    // The next sheet carries the next number; an empty sheet is not fed.
    QVERIFY(!printing.formFeed(*f.app));
    f.app->store.currentIndex = 2;
    printing.addCurrentWordToPage(*f.app);
    const auto sheet2 = f.file("sheet2.pdf");
    f.dialogs.files.push_back(sheet2);
    QVERIFY(printing.formFeed(*f.app));
    QVERIFY(pdfText(sheet2).contains(QStringLiteral("Page 2")));

    // Cancelling the file name keeps the words waiting.
    printing.addCurrentWordToPage(*f.app);
    f.dialogs.files.push_back(std::nullopt);
    QVERIFY(!printing.formFeed(*f.app));
    QCOMPARE(printing.wordsWaiting(), 1);

    // Nothing to add from an empty dictionary.
    Fixture empty(0);
    Printing p2;
    p2.addCurrentWordToPage(*empty.app);
    QCOMPARE(p2.wordsWaiting(), 0);
    QCOMPARE(empty.dialogs.messages().back(), std::string("There is no word to print."));
}

void PrintPdfTest::aFullPageGoesOutByItself() {
    Fixture f(40);
    Printing printing;
    PrintOptions o;
    o.printer = PdfPrinterName;
    printing.setOptions(o);
    const auto sheet = f.file("full.pdf");
    f.dialogs.files.push_back(sheet);
    int added = 0;
    while (!std::filesystem::exists(sheet) && added < 40) {
        f.app->store.currentIndex = added++;
        printing.addCurrentWordToPage(*f.app);
    }
    QVERIFY2(std::filesystem::exists(sheet), "the page never went out");
    // The word that did not fit waits alone on the new sheet; the full one printed the rest.
    QCOMPARE(printing.wordsWaiting(), 1);
    QCOMPARE(pdfPageCount(sheet), 1);
    const QStringList words = tokens(pdfText(sheet));
    QVERIFY(words.contains(QString::fromStdString(Fixture::meaningOf(added - 2))));
    QVERIFY(!words.contains(QString::fromStdString(Fixture::meaningOf(added - 1))));
}

void PrintPdfTest::quittingWithWordsWaitingAsks() {
    Fixture f(4);
    Printing printing;
    PrintOptions o;
    o.printer = PdfPrinterName;
    printing.setOptions(o);
    QVERIFY(printing.confirmQuit(*f.app)); // nothing waits: no question
    QVERIFY(f.dialogs.prompts.empty());

    printing.addCurrentWordToPage(*f.app);
    f.dialogs.answers.push_back(Answer::Cancel);
    QVERIFY(!printing.confirmQuit(*f.app));
    QCOMPARE(printing.wordsWaiting(), 1);
    QVERIFY(f.dialogs.prompts.back().text.find("Do you want to print it before quitting?") !=
            std::string::npos);

    f.dialogs.answers.push_back(Answer::Yes);
    const auto pdf = f.file("quit.pdf");
    f.dialogs.files.push_back(pdf);
    QVERIFY(printing.confirmQuit(*f.app));
    QVERIFY(std::filesystem::exists(pdf));
    QCOMPARE(printing.wordsWaiting(), 0);

    printing.addCurrentWordToPage(*f.app);
    f.dialogs.answers.push_back(Answer::No);
    QVERIFY(printing.confirmQuit(*f.app));
    QCOMPARE(printing.wordsWaiting(), 0);

    // Yes, but the file name is cancelled: the program stays open with the words.
    printing.addCurrentWordToPage(*f.app);
    f.dialogs.answers.push_back(Answer::Yes);
    f.dialogs.files.push_back(std::nullopt);
    QVERIFY(!printing.confirmQuit(*f.app));
    QCOMPARE(printing.wordsWaiting(), 1);
}

void PrintPdfTest::startUpChoosesTheDefaultPrinterAndDraft() {
    Fixture f(1);
    f.app->settings.printQuality = -4;
    Printing printing;
    printing.setDefaults(*f.app);
    QCOMPARE(f.app->settings.printQuality, 0);
    const QString system = QPrinterInfo::defaultPrinterName();
    QCOMPARE(QString::fromStdString(printing.options().printer),
             system.isEmpty() ? QStringLiteral("PDF file") : system);
    QVERIFY(printing.options().paper == "A4" || printing.options().paper == "Letter");
}

void PrintPdfTest::theStarterDictionaryPrintsInTwoColumns() {
    // The dictionary, sign pictures and transliteration font the program ships.
    const std::filesystem::path data = NEBKARO_DATA_DIR;
    QVERIFY(QFontDatabase::addApplicationFont(
                QString::fromStdString((data / "Fonts" / "Transliteration.ttf").string())) >= 0);
    QVERIFY(hasTransliterationFont());
    Fixture f(0);
    FolderSignPictures shipped(data);
    App app(f.dialogs, f.clipboard, f.events, shipped, f.files);
    app.home = data;
    const ParsedDictionary parsed = ReadDictionaryText(
        readFileBytes(data / "Dictionaries" / "Words.nkd"), DictionaryStore::MaxWordIndex + 1);
    QVERIFY(parsed.words.size() > 100);
    for (std::size_t i = 0; i < parsed.words.size(); ++i)
        app.store.setRow(static_cast<int>(i), parsed.words[i]);
    app.store.lastIndex = static_cast<int>(parsed.words.size()) - 1;
    app.store.header = parsed.header;
    app.store.dictionaryName = "Words.nkd";

    PrintOptions o;
    o.columns = 2;
    auto doc = documentOf(app, o);
    const auto pdf = f.file("starter.pdf");
    QVERIFY(printToPdf(*doc, pdf));
    const int pages = doc->pageCount();
    QCOMPARE(pdfPageCount(pdf), pages);
    const QString text = pdfText(pdf);
    QVERIFY(text.contains(QString::fromStdString(parsed.header[0])));
    QVERIFY(text.contains(QStringLiteral("Page 1 of %1").arg(pages)));
    QVERIFY(text.contains(QStringLiteral("Page %1 of %1").arg(pages)));
    for (const WordRecord& w : {parsed.words.front(), parsed.words.back()}) {
        QVERIFY2(text.contains(QString::fromStdString(w[FieldMeaning])), w[FieldMeaning].c_str());
        QVERIFY2(text.contains(QString::fromStdString(w[FieldGardiner])), w[FieldGardiner].c_str());
    }
    // Every sign of the dictionary has its picture: none prints as an empty frame.
    for (const PrintWord& w : doc->words())
        for (const PlacedPicture& p : w.picture.pictures)
            QVERIFY2(p.picture.ok, p.picture.file.c_str());
    // The shipped signs print as their outlines: vector paths, no picture at all.
    QVERIFY(pdfImageWidths(pdf).empty());
    // To look at it: NEBKARO_KEEP_PDF=/some/file.pdf keeps a copy.
    if (qEnvironmentVariableIsSet("NEBKARO_KEEP_PDF"))
        std::filesystem::copy_file(pdf, qEnvironmentVariable("NEBKARO_KEEP_PDF").toStdString(),
                                   std::filesystem::copy_options::overwrite_existing);
}

QTEST_MAIN(PrintPdfTest)
#include "print_pdf_test.moc"
