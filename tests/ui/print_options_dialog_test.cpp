// frmPrintOptions driven through its controls: what it opens with, how the range controls
// follow the choice, what the preview and page count show, when Print is refused, and what
// Print hands back.
#include "print_fixture.h"

#include "ui/print_options_dialog.h"
#include "ui/print_preview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::uitest;

namespace {

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

} // namespace

class PrintOptionsDialogTest : public QObject {
    Q_OBJECT
private slots:
    void opensWithTheGivenChoices();
    void qualityFollowsPreferences();
    void wordBoxesKeepFromBeforeTo();
    void pageRangeCountsTheWholeDictionary();
    void previewTurnsPages();
    void printIsRefusedWithNothingToPrint();
    void pdfPrintAsksForAFileAndHandsBackTheChoices();
};

void PrintOptionsDialogTest::opensWithTheGivenChoices() {
    PrintOptions o = Opened::pdfOptions();
    o.range = {RangeKind::Words, 3, 9};
    o.fields.comment = false;
    o.columns = 2;
    o.margins = {15, 25, 12, 30};
    o.lineSpacing = 1.5;
    o.paper = "Letter";
    o.landscape = true;
    Opened d(24, o);
    QCOMPARE(d.dialog->objectName(), QStringLiteral("frmPrintOptions"));
    QVERIFY(d.get<QRadioButton>("optWords")->isChecked());
    QVERIFY(d.get<QSpinBox>("txtWordFrom")->isEnabled());
    QVERIFY(!d.get<QSpinBox>("txtPageFrom")->isEnabled());
    QVERIFY(!d.get<QCheckBox>("chkComment")->isChecked());
    QCOMPARE(d.get<QComboBox>("cboLineSpacing")->currentText(), QStringLiteral("1.5 lines"));
    // The printer list always offers the PDF file, and it is the one chosen here.
    auto* printer = d.get<QComboBox>("cboPrinter");
    QVERIFY(printer->findData(QStringLiteral("PDF file")) >= 0);
    QCOMPARE(printer->currentData().toString(), QStringLiteral("PDF file"));
    QVERIFY(!d.get<QSpinBox>("txtCopies")->isEnabled());
    // What goes in comes out.
    QCOMPARE(d.dialog->options(), o);
    QVERIFY(d.get<QRadioButton>("optCurrentWord")->text().contains(QStringLiteral("(0)")));
}

void PrintOptionsDialogTest::qualityFollowsPreferences() {
    const std::pair<int, const char*> cases[] = {
        {0, "optDraft"}, {-1, "optDraft"}, {-2, "optLow"}, {-3, "optMedium"}, {-4, "optHigh"}};
    for (auto [quality, button] : cases) {
        Opened d(3, Opened::pdfOptions(), quality);
        QVERIFY2(d.get<QRadioButton>(button)->isChecked(), button);
        QCOMPARE(d.dialog->quality(), quality == -1 ? 0 : quality);
    }
    Opened d(3);
    d.get<QRadioButton>("optHigh")->click();
    QCOMPARE(d.dialog->quality(), -4);
    QCOMPARE(d.f.app->settings.printQuality, 0); // only Print hands it on
}

void PrintOptionsDialogTest::wordBoxesKeepFromBeforeTo() {
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

void PrintOptionsDialogTest::pageRangeCountsTheWholeDictionary() {
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

void PrintOptionsDialogTest::previewTurnsPages() {
    Opened d(40);
    d.dialog->refresh();
    auto* preview = d.dialog->findChild<PrintPreview*>(QStringLiteral("picPreview"));
    auto* previous = d.get<QPushButton>("cmdPreviousPage");
    auto* next = d.get<QPushButton>("cmdNextPage");
    auto* label = d.get<QLabel>("lblPreviewPage");
    const int count = d.dialog->document()->pageCount();
    QCOMPARE(preview->currentPage(), 0);
    QVERIFY(!previous->isEnabled());
    QVERIFY(next->isEnabled());
    QCOMPARE(label->text(), QStringLiteral("Page 1 of %1").arg(count));
    next->click();
    QCOMPARE(preview->currentPage(), 1);
    QCOMPARE(label->text(), QStringLiteral("Page 2 of %1").arg(count));
    QVERIFY(previous->isEnabled());
    QTest::keyClick(preview, Qt::Key_End);
    QCOMPARE(preview->currentPage(), count - 1);
    QVERIFY(!next->isEnabled());
    // The preview draws the page it shows.
    const QImage shot = preview->grab().toImage();
    QVERIFY(!shot.isNull());

    // The current word alone is one page.
    d.get<QRadioButton>("optCurrentWord")->click();
    d.dialog->refresh();
    QCOMPARE(d.dialog->document()->pageCount(), 1);
    QCOMPARE(label->text(), QStringLiteral("Page 1 of 1"));
    QVERIFY(!next->isEnabled());
}

void PrintOptionsDialogTest::printIsRefusedWithNothingToPrint() {
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

void PrintOptionsDialogTest::pdfPrintAsksForAFileAndHandsBackTheChoices() {
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

QTEST_MAIN(PrintOptionsDialogTest)
#include "print_options_dialog_test.moc"
