// Printing: the page as drawn (nothing outside the margins, words that fit their columns, the
// heights that fields and line spacing give a word), the Print dialog driven through its
// controls, and a small dictionary printed to PDF and read back with the poppler tools.
#include "core/dictionary_file.h"
#include "harness.h"
#include "print/print_document_qt.h"
#include "print/word_picture.h"
#include "ui/print_options_dialog.h"
#include "ui/print_preview.h"
#include "ui/printing.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
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
    const char* layout;
    const char* gardiner;
    const char* translit;
    const char* meaning;
    const char* comment;
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

PrintDocument layoutOf(App& app, const PrintOptions& o) {
    return PrintDocument(collectWords(app, wordsInRange(o.range, app.store)), o, "Starter");
}

// A word of signs stacked far taller than any page.
WordRecord towerWord() {
    std::string layout;
    for (int i = 0; i < 21; ++i) layout += "A1(0," + std::to_string(i * 700) + ") - ";
    layout.resize(layout.size() - 2);
    return {"L", "B", layout, "A1*21", "tower", "skyscraper", "taller than a page"};
}

struct Opened {
    Fixture f;
    std::unique_ptr<PrintOptionsDialog> dialog;
    explicit Opened(int words = 24, PrintOptions o = pdfOptions(), int quality = 0) : f(words) {
        f.app->settings.printQuality = quality;
        dialog = std::make_unique<PrintOptionsDialog>(*f.app, o);
        dialog->show();
    }
    static PrintOptions pdfOptions() {
        PrintOptions o;
        o.printer = PdfPrinterName;
        return o;
    }
    template <class W> W* get(const char* name) { return child<W>(dialog.get(), name); }
};

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
    void nothingIsDrawnOutsideTheMargins();
    void everyWordFitsItsColumn();
    void eachFieldOffShortensTheWordsThatHaveIt();
    void lineSpacingSpreadsTheText();
    void aWideColumnPutsTheTextBesideTheSigns();
    void wordBoxesKeepFromBeforeTo();
    void pageRangeCountsTheWholeDictionary();
    void printIsRefusedWithNothingToPrint();
    void pdfPrintAsksForAFileAndHandsBackTheChoices();
    void wholeDictionaryHasEveryFieldAndNumberedPages();
    void everyFieldSwitchedOffInTurnLeavesThePaper();
    void twoColumnsFillTheLeftColumnFirst();
    void aPageRangePrintsOnlyThosePages();
    void qualitySetsTheResolutionOfTheSigns();
    void thePrintDialogPrintsIntoTheChosenFile();
    void printOneCollectsWordsAndFormFeedPrintsThem();
    void aFullPageGoesOutByItself();
    void theStarterDictionaryPrintsInTwoColumns();
};

void PrintTest::nothingIsDrawnOutsideTheMargins() {
    Fixture f(30);
    f.app->store.setRow(3, towerWord());
    for (int columns : {1, 2})
        for (bool landscape : {false, true}) {
            PrintOptions o;
            o.columns = columns;
            o.landscape = landscape;
            o.margins = {30, 15, 10, 25};
            const PrintDocument doc = layoutOf(*f.app, o);
            const double dpi = 40;
            const double k = dpi / 1440;
            const PageFrame& fr = doc.frame();
            for (int page = 0; page < doc.pageCount(); ++page) {
                const QImage img = doc.pageImage(page, dpi);
                QCOMPARE(img.width(), qRound(fr.pageWidth * k));
                int inked = 0;
                for (int y = 0; y < img.height(); ++y)
                    for (int x = 0; x < img.width(); ++x) {
                        if (img.pixel(x, y) == qRgb(255, 255, 255)) continue;
                        ++inked;
                        const bool inside = x >= fr.left * k - 2 && x <= fr.right * k + 1 &&
                                            y >= fr.top * k - 1 && y <= fr.bottom * k + 1;
                        QVERIFY2(inside, qPrintable(QStringLiteral("ink at %1,%2 of page %3, %4 %5")
                                                        .arg(x)
                                                        .arg(y)
                                                        .arg(page)
                                                        .arg(columns)
                                                        .arg(landscape)));
                    }
                QVERIFY(inked > 0);
            }
        }
}

void PrintTest::everyWordFitsItsColumn() {
    Fixture f(12);
    f.app->store.setRow(5, towerWord());
    WordRecord wide = Fixture::record(6);
    wide[FieldLayout].clear();
    for (int i = 0; i < 21; ++i) wide[FieldLayout] += "N35(" + std::to_string(i * 600) + ",0) - ";
    wide[FieldLayout].resize(wide[FieldLayout].size() - 2);
    f.app->store.setRow(6, wide);
    for (const char* paper : {"A4", "A5"})
        for (int columns : {1, 2}) {
            PrintOptions o;
            o.paper = paper;
            o.columns = columns;
            const PrintDocument doc = layoutOf(*f.app, o);
            for (const Page& page : doc.pages())
                for (const Placement& p : page)
                    QVERIFY2(p.top + doc.blockHeights()[static_cast<std::size_t>(p.item)] <=
                                 doc.frame().columnHeight,
                             qPrintable(QStringLiteral("word %1 on %2, %3 columns")
                                            .arg(p.item)
                                            .arg(paper)
                                            .arg(columns)));
            // The tower is scaled down to its column; words that fit keep their true size.
            QVERIFY(doc.blockHeights()[5] <= doc.frame().columnHeight);
            QVERIFY(doc.blockHeights()[5] > doc.frame().columnHeight / 2);
        }
}

void PrintTest::eachFieldOffShortensTheWordsThatHaveIt() {
    Fixture f(3);
    WordRecord noComment = Fixture::record(2);
    noComment[FieldComment].clear();
    f.app->store.setRow(2, noComment);
    PrintOptions o;
    o.columns = 2; // text under the signs
    const std::vector<int> all = layoutOf(*f.app, o).blockHeights();
    struct Case {
        const char* name;
        bool PrintFields::*flag;
        bool word2Has;
    };
    const Case cases[] = {{"signs", &PrintFields::signs, true},
                          {"gardiner", &PrintFields::gardiner, true},
                          {"transliteration", &PrintFields::transliteration, true},
                          {"meaning", &PrintFields::meaning, true},
                          {"comment", &PrintFields::comment, false}};
    for (const Case& c : cases) {
        PrintOptions off = o;
        off.fields.*(c.flag) = false;
        const std::vector<int> h = layoutOf(*f.app, off).blockHeights();
        QVERIFY2(h[0] < all[0], c.name);
        QVERIFY2(h[1] < all[1], c.name);
        if (c.word2Has)
            QVERIFY2(h[2] < all[2], c.name);
        else
            QVERIFY2(h[2] == all[2], c.name);
    }
    // The number alone still gives each word a line.
    o.fields = {false, false, false, false, false, true};
    const PrintDocument numbers = layoutOf(*f.app, o);
    for (int h : numbers.blockHeights()) QVERIFY(h > 0);
}

void PrintTest::lineSpacingSpreadsTheText() {
    Fixture f(20);
    PrintOptions o;
    o.fields.signs = false;
    const PrintDocument single = layoutOf(*f.app, o);
    o.lineSpacing = 2;
    const PrintDocument twice = layoutOf(*f.app, o);
    for (std::size_t i = 0; i < single.blockHeights().size(); ++i) {
        const int a = single.blockHeights()[i], b = twice.blockHeights()[i];
        QVERIFY(b >= 2 * a - 2 && b <= 2 * a + 2);
    }
    QVERIFY(twice.wordGap() > single.wordGap());
    QVERIFY(twice.pageCount() > single.pageCount());
    // Margins that leave no room leave no pages.
    o.margins.top = o.margins.bottom = 140;
    QVERIFY(!layoutOf(*f.app, o).fits());
    QCOMPARE(layoutOf(*f.app, o).pageCount(), 0);
}

void PrintTest::aWideColumnPutsTheTextBesideTheSigns() {
    Fixture f(4);
    PrintOptions o;
    const PrintDocument wide = layoutOf(*f.app, o);
    o.columns = 2;
    const PrintDocument narrow = layoutOf(*f.app, o);
    o.fields.signs = false;
    const PrintDocument text = layoutOf(*f.app, o);
    for (std::size_t i = 0; i < 4; ++i) {
        QVERIFY(wide.blockHeights()[i] < narrow.blockHeights()[i]);
        // Beside the signs, a word is as tall as its text (every test sign is shorter).
        QCOMPARE(wide.blockHeights()[i], text.blockHeights()[i]);
    }
}

void PrintTest::wordBoxesKeepFromBeforeTo() {
    PrintOptions o = Opened::pdfOptions();
    o.range.kind = RangeKind::Words;
    Opened d(24, o);
    auto* from = d.get<QSpinBox>("txtWordFrom");
    auto* to = d.get<QSpinBox>("txtWordTo");
    QCOMPARE(from->maximum(), 23);
    QCOMPARE(to->maximum(), 23);
    from->setValue(10);
    to->setValue(4); // below the first: the first follows
    QCOMPARE(from->value(), 4);
    to->setValue(8);
    from->setValue(12); // above the last: the last follows
    QCOMPARE(to->value(), 12);
    from->setValue(5);
    to->setValue(7);
    d.dialog->refresh();
    QCOMPARE(static_cast<int>(d.dialog->document()->words().size()), 3);
    QCOMPARE(d.dialog->document()->words().front().index, 5);
}

void PrintTest::pageRangeCountsTheWholeDictionary() {
    Opened d(40);
    d.get<QRadioButton>("optPages")->click();
    d.dialog->refresh();
    const int count = d.dialog->document()->pageCount();
    QVERIFY(count >= 4);
    QCOMPARE(static_cast<int>(d.dialog->document()->words().size()), 40);
    auto* from = d.get<QSpinBox>("txtPageFrom");
    auto* to = d.get<QSpinBox>("txtPageTo");
    QCOMPARE(to->maximum(), count);
    QCOMPARE(to->value(), count); // all pages until told otherwise
    QCOMPARE(d.get<QLabel>("lblPageCount")->text(), QStringLiteral("of %1 pages").arg(count));
    from->setValue(2);
    to->setValue(3);
    d.dialog->refresh();
    QCOMPARE(d.dialog->pagesToPrint(), std::make_pair(1, 2));
    auto* preview = d.dialog->findChild<PrintPreview*>(QStringLiteral("picPreview"));
    QCOMPARE(preview->firstPage(), 1);
    QCOMPARE(preview->lastPage(), 2);
    QCOMPARE(preview->currentPage(), 1);

    // Bigger margins mean more pages; the chosen range stays as it was.
    d.get<QDoubleSpinBox>("txtMarginTop")->setValue(60);
    d.dialog->refresh();
    QVERIFY(d.dialog->document()->pageCount() > count);
    QCOMPARE(to->value(), 3);
}

void PrintTest::printIsRefusedWithNothingToPrint() {
    Opened d(10);
    auto* print = d.get<QPushButton>("cmdPrint");
    auto* status = d.get<QLabel>("lblStatus");
    QVERIFY(print->isEnabled());
    QVERIFY(status->text().isEmpty());
    const char* boxes[] = {"chkSigns",   "chkGardiner", "chkTransliteration",
                           "chkMeaning", "chkComment",  "chkNumber"};
    for (const char* box : boxes) {
        d.get<QCheckBox>(box)->setChecked(false);
        d.dialog->refresh();
    }
    QVERIFY(!print->isEnabled());
    QCOMPARE(status->text(), QStringLiteral("Choose at least one thing to print."));
    d.get<QCheckBox>("chkNumber")->setChecked(true);
    d.dialog->refresh();
    QVERIFY(print->isEnabled());

    for (const char* m : {"txtMarginLeft", "txtMarginRight"})
        d.get<QDoubleSpinBox>(m)->setValue(100);
    d.dialog->refresh();
    QVERIFY(!print->isEnabled());
    QCOMPARE(status->text(), QStringLiteral("The margins leave too little room for the words."));
    print->click();
    QVERIFY(d.dialog->isVisible());
    QVERIFY(d.f.dialogs.prompts.empty());

    Opened empty(0);
    QVERIFY(!empty.get<QPushButton>("cmdPrint")->isEnabled());
    QCOMPARE(empty.get<QLabel>("lblStatus")->text(),
             QStringLiteral("The dictionary has no words to print."));
    QVERIFY(!empty.get<QRadioButton>("optWords")->isEnabled());
}

void PrintTest::pdfPrintAsksForAFileAndHandsBackTheChoices() {
    Opened d(10);
    d.get<QRadioButton>("optMedium")->click();
    d.get<QRadioButton>("optTwoColumns")->click();
    auto* print = d.get<QPushButton>("cmdPrint");

    // Cancelling the file name leaves the dialog open and hands nothing on.
    d.f.dialogs.files.push_back(std::nullopt);
    print->click();
    QCOMPARE(d.f.dialogs.prompts.size(), std::size_t(1));
    QVERIFY(d.f.dialogs.prompts[0].text.ends_with("Starter.pdf"));
    QCOMPARE(d.f.dialogs.prompts[0].title, std::string("PDF files (*.pdf)|*.pdf"));
    QVERIFY(d.dialog->isVisible());
    QCOMPARE(d.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(d.f.app->settings.printQuality, 0);

    // A name without an extension gets ".pdf".
    d.f.dialogs.files.push_back(d.f.file("out"));
    print->click();
    QVERIFY(!d.dialog->isVisible());
    QCOMPARE(d.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(d.dialog->pdfFile().value(), d.f.file("out.pdf"));
    QCOMPARE(d.f.app->settings.printQuality, -3);
    QCOMPARE(d.dialog->options().columns, 2);
    QCOMPARE(d.dialog->pagesToPrint().first, 0);
}

void PrintTest::wholeDictionaryHasEveryFieldAndNumberedPages() {
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

void PrintTest::everyFieldSwitchedOffInTurnLeavesThePaper() {
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

void PrintTest::twoColumnsFillTheLeftColumnFirst() {
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

void PrintTest::aPageRangePrintsOnlyThosePages() {
    Fixture f(40);
    PrintOptions o;
    o.range = {RangeKind::Pages, 2, 3};
    auto doc = documentOf(*f.app, o);
    const int total = doc->pageCount();
    QVERIFY(total >= 4);
    const auto [first, last] = pagesInRange(o.range, total);
    const auto pdf = f.file("pages.pdf");
    QVERIFY(printToPdf(*doc, pdf, first, last));
    QCOMPARE(pdfPageCount(pdf), 2);
    const QString text = pdfText(pdf);
    QVERIFY(text.contains(QStringLiteral("Page 2 of %1").arg(total)));
    QVERIFY(text.contains(QStringLiteral("Page 3 of %1").arg(total)));
    QVERIFY(!text.contains(QStringLiteral("Page 1 of")));
    QVERIFY(!tokens(text).contains(QStringLiteral("likewise"))); // word 0 is on page 1
}

void PrintTest::qualitySetsTheResolutionOfTheSigns() {
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

void PrintTest::thePrintDialogPrintsIntoTheChosenFile() {
    Fixture f(10);
    f.app->store.currentIndex = 3;
    Printing printing;
    printing.setOptions(Opened::pdfOptions());
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

void PrintTest::printOneCollectsWordsAndFormFeedPrintsThem() {
    Fixture f(8);
    Printing printing;
    printing.setOptions(Opened::pdfOptions());
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

void PrintTest::aFullPageGoesOutByItself() {
    Fixture f(40);
    Printing printing;
    printing.setOptions(Opened::pdfOptions());
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

void PrintTest::theStarterDictionaryPrintsInTwoColumns() {
    // The dictionary, sign pictures and transliteration font the program ships.
    const std::filesystem::path data = NEBKARO_DATA_DIR;
    QVERIFY(QFontDatabase::addApplicationFont(
                QString::fromStdString((data / "Fonts" / "Transliteration.ttf").string())) >= 0);
    QVERIFY(hasTransliterationFont());
    Fixture f(0);
    FolderSignPictures shipped(data);
    App app(f.dialogs, f.clipboard, f.events, shipped, f.files);
    app.home = data;
    const ParsedDictionary parsed = readDictionaryText(
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

QTEST_MAIN(PrintTest)
#include "print_test.moc"
