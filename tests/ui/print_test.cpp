// Printing as it reaches the paper: a small dictionary printed to PDF and read back with the
// poppler tools, through the document, the Print dialog and the page collected word by word.
// Where the words go on a page is checked without Qt, by the layout's own tests.
#include "harness.h"
#include "print/print_document_qt.h"
#include "print/word_picture.h"
#include "ui/print_options_dialog.h"
#include "ui/printing.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::uitest;

namespace {

inline const std::vector<Sign> PrintSigns = {{"A1", 28, 40},  {"G17", 34, 40}, {"N5", 26, 26},
                                             {"N35", 40, 8},  {"X1", 28, 14},  {"Z1", 8, 36},
                                             {"D21", 30, 14}, {"M17", 12, 40}};

// A word of the test dictionary: meanings are unique words that pdftotext can find.
struct TestWord {
    const char *layout, *gardiner, *translit, *meaning, *comment;
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
        folder.addSigns(Library::Basic, PrintSigns);
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

PrintOptions pdfOptions() {
    PrintOptions o;
    o.printer = PdfPrinterName;
    return o;
}

std::unique_ptr<PrintDocument> documentOf(App& app, const PrintOptions& o) {
    return std::make_unique<PrintDocument>(
        collectWords(app, wordsInRange(o.range, app.store)), o,
        documentTitle(app.store.header, app.store.dictionaryName));
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

class PrintTest : public QObject {
    Q_OBJECT
private slots:
    // The whole dictionary: every field of every word, each page headed and numbered; then
    // pages 2 to 3 of it alone.
    void wholeDictionaryHasEveryFieldAndNumberedPages() {
        Fixture f(40);
        PrintOptions o;
        o.range = {RangeKind::Pages, 2, 3}; // pages are counted over every word
        auto doc = documentOf(*f.app, o);
        const int total = doc->pageCount();
        QVERIFY(total >= 4);
        const auto pdf = f.file("all.pdf");
        QVERIFY(printToPdf(*doc, pdf));
        QCOMPARE(pdfPageCount(pdf), total);

        const QString text = pdfText(pdf);
        const QStringList words = tokens(text);
        for (int i = 0; i < 40; ++i)
            QVERIFY2(words.contains(QString::fromStdString(Fixture::meaningOf(i))),
                     Fixture::meaningOf(i).c_str());
        for (const TestWord& w : Words) {
            QVERIFY2(text.contains(QString::fromUtf8(w.gardiner)), w.gardiner);
            QVERIFY2(text.contains(QString::fromUtf8(w.comment)), w.comment);
            QVERIFY2(words.contains(QString::fromUtf8(w.translit)), w.translit);
        }
        const QStringList pages = text.split(QLatin1Char('\f'), Qt::SkipEmptyParts);
        QCOMPARE(pages.size(), total);
        for (int p = 0; p < pages.size(); ++p) {
            QVERIFY2(pages[p].contains(QStringLiteral("Page %1 of %2").arg(p + 1).arg(total)),
                     qPrintable(pages[p]));
            QVERIFY(pages[p].contains(QLatin1String("Starter")));
        }
        // The header's guide names the first and the last word of the page.
        const int lastOnFirst =
            doc->words()[static_cast<std::size_t>(doc->pages()[0].back().item)].index;
        QVERIFY(pages[0].contains(QStringLiteral("Words 0\u2013%1").arg(lastOnFirst)));
        // The signs are pictures in the PDF; the missing one is a frame, not an error.
        QVERIFY(!pdfImageWidths(pdf).empty());

        const auto [first, last] = pagesInRange(o.range, total);
        const auto range = f.file("pages.pdf");
        QVERIFY(printToPdf(*doc, range, first, last));
        QCOMPARE(pdfPageCount(range), 2);
        const QString two = pdfText(range);
        QVERIFY(two.contains(QStringLiteral("Page 2 of %1").arg(total)));
        QVERIFY(two.contains(QStringLiteral("Page 3 of %1").arg(total)));
        QVERIFY(!two.contains(QStringLiteral("Page 1 of")));
        QVERIFY(!tokens(two).contains(QStringLiteral("likewise"))); // word 0 is on page 1
    }

    void everyFieldSwitchedOffInTurnLeavesThePaper() {
        Fixture f(8);
        const std::pair<bool PrintFields::*, const char * TestWord::*> fields[] = {
            {&PrintFields::gardiner, &TestWord::gardiner},
            {&PrintFields::transliteration, &TestWord::translit},
            {&PrintFields::meaning, &TestWord::meaning},
            {&PrintFields::comment, &TestWord::comment}};
        const TestWord& probe = Words[4]; // "D21:N35-A1", "rn", "namesake", "with a man"
        for (const auto& off : fields) {
            PrintOptions o;
            o.fields.number = false;
            o.fields.*(off.first) = false;
            const auto pdf = f.file("without.pdf");
            QVERIFY(printToPdf(*documentOf(*f.app, o), pdf));
            const QString text = pdfText(pdf);
            for (const auto& other : fields) {
                const QString t = QString::fromUtf8(probe.*(other.second));
                const bool found = t.contains(' ') ? text.contains(t) : tokens(text).contains(t);
                QVERIFY2(found == (&other != &off), qPrintable(t));
            }
            QVERIFY(!pdfImageWidths(pdf).empty());
        }
        // The word numbers: on, each word's number stands before it; off, none does.
        for (bool numbers : {true, false}) {
            PrintOptions o;
            o.fields = {false, false, false, true, false, numbers};
            const auto pdf = f.file("numbers.pdf");
            QVERIFY(printToPdf(*documentOf(*f.app, o), pdf));
            const QStringList body = tokens(bodyText(pdf));
            for (int i = 0; i < 8; ++i)
                QVERIFY2(body.contains(QString::number(i)) == numbers, qPrintable(body.join(' ')));
        }
        // The signs: off, the PDF holds no picture at all.
        PrintOptions o;
        o.fields.signs = false;
        const auto pdf = f.file("no-signs.pdf");
        QVERIFY(printToPdf(*documentOf(*f.app, o), pdf));
        QVERIFY(pdfImageWidths(pdf).empty());
        QVERIFY(tokens(pdfText(pdf)).contains(QStringLiteral("namesake")));
    }

    void thePrintDialogPrintsIntoTheChosenFile() {
        Fixture f(10);
        f.app->store.currentIndex = 3;
        f.app->settings.printQuality = 0;
        Printing printing;
        printing.setOptions(pdfOptions());
        // Cancelling the file name leaves the dialog open; a name without an extension gets ".pdf".
        f.dialogs.files = {std::nullopt, f.file("dialog")};
        QTimer::singleShot(0, [&f] {
            QWidget* dialog = QApplication::activeModalWidget();
            QVERIFY(dialog && dialog->objectName() == QLatin1String("frmPrintOptions"));
            child<QAbstractButton>(dialog, "optCurrentWord")->click();
            child<QAbstractButton>(dialog, "optMedium")->click();
            auto* print = child<QPushButton>(dialog, "cmdPrint");
            print->click();
            QVERIFY(dialog->isVisible());
            QCOMPARE(f.app->settings.printQuality, 0);
            print->click();
        });
        printing.printDictionaryDialog(*f.app, nullptr);
        QVERIFY(f.dialogs.files.empty());
        QVERIFY(f.dialogs.prompts.at(0).text.ends_with("Starter.pdf"));
        const QStringList words = tokens(pdfText(f.file("dialog.pdf")));
        QVERIFY(words.contains(QStringLiteral("breadloaf"))); // word 3
        QVERIFY(!words.contains(QStringLiteral("likewise")));
        QCOMPARE(printing.options().range.kind, RangeKind::CurrentWord);
        QCOMPARE(f.app->settings.printQuality, -3);
        QCOMPARE(f.windows.status.back(), std::string("1 page printed"));
    }

    // The dialog refuses what would print nothing or not fit, and says why in its status line.
    void printIsRefusedWhenNothingWouldPrint() {
        const std::pair<int, QStringList> cases[] = {
            {10,
             {"", "Choose at least one thing to print.",
              "The margins leave too little room for the words."}},
            {0, QStringList(3, QStringLiteral("The dictionary has no words to print."))}};
        for (const auto& [words, expected] : cases) {
            Fixture f(words);
            Printing printing;
            printing.setOptions(pdfOptions());
            QStringList said;
            QTimer::singleShot(0, [&] {
                auto* dialog = qobject_cast<PrintOptionsDialog*>(QApplication::activeModalWidget());
                QVERIFY(dialog);
                auto* print = child<QPushButton>(dialog, "cmdPrint");
                auto look = [&] {
                    dialog->refresh();
                    said << (print->isEnabled() ? QString()
                                                : child<QLabel>(dialog, "lblStatus")->text());
                };
                look();
                for (const char* box : {"chkSigns", "chkGardiner", "chkTransliteration",
                                        "chkMeaning", "chkComment", "chkNumber"})
                    child<QCheckBox>(dialog, box)->setChecked(false);
                look();
                child<QCheckBox>(dialog, "chkNumber")->setChecked(true);
                for (const char* m : {"txtMarginLeft", "txtMarginRight"})
                    child<QDoubleSpinBox>(dialog, m)->setValue(100);
                look();
                print->click(); // refused: the dialog stays
                QVERIFY(dialog->isVisible());
                dialog->reject();
            });
            printing.printDictionaryDialog(*f.app, nullptr);
            QCOMPARE(said, expected);
            QVERIFY(f.dialogs.prompts.empty());
        }
    }

    void printOneCollectsWordsAndFormFeedPrintsThem() {
        Fixture f(8);
        Printing printing;
        printing.setOptions(pdfOptions());
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
};

QTEST_MAIN(PrintTest)
#include "print_test.moc"
