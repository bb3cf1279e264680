#include "ui/print_options_dialog.h"

#include "core/app.h"
#include "print/word_picture.h"
#include "ui/print_preview.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

namespace nebkaro {

using namespace print;

namespace {

struct Spacing {
    const char* name;
    double value;
};
constexpr Spacing Spacings[] = {
    {"Single", 1.0}, {"1.15", 1.15}, {"1.5 lines", 1.5}, {"Double", 2.0}};

struct Quality {
    const char* name;
    int value; // as Preferences keeps it
    const char* objectName;
};
constexpr Quality Qualities[] = {{"Draft", 0, "optDraft"},
                                 {"Low", -2, "optLow"},
                                 {"Medium", -3, "optMedium"},
                                 {"High", -4, "optHigh"}};

// A dictionary this large takes a noticeable moment to lay out.
constexpr std::size_t ManyWords = 3000;

template <class W> W* named(W* w, const char* name) {
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

QDoubleSpinBox* marginBox(QWidget* parent, const char* name) {
    auto* box = named(new QDoubleSpinBox(parent), name);
    box->setRange(MinMargin, MaxMargin);
    box->setDecimals(0);
    box->setSingleStep(1);
    box->setSuffix(QStringLiteral(" mm"));
    return box;
}

// The options that change how words are laid out (not which, nor where they go).
PrintOptions layoutPart(PrintOptions o) {
    o.range = {};
    o.printer.clear();
    o.copies = 1;
    return o;
}

} // namespace

std::filesystem::path ProposedPdfFile(const std::string& name) {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty() || !QDir(folder).exists()) folder = QDir::homePath();
    return std::filesystem::path(folder.toStdString()) / (name + ".pdf");
}

PrintOptionsDialog::PrintOptionsDialog(App& app, const PrintOptions& initial, QWidget* parent)
    : QDialog(parent), app_(app) {
    setObjectName(QStringLiteral("frmPrintOptions"));
    setWindowTitle(tr("Print"));
    // Changes are laid out a moment after the last one, so that typing a margin does not lay
    // out a large dictionary once per key.
    timer_ = new QTimer(this);
    timer_->setSingleShot(true);
    timer_->setInterval(150);
    connect(timer_, &QTimer::timeout, this, &PrintOptionsDialog::refresh);
    build();
    load(initial);
    refresh();
}

PrintOptionsDialog::~PrintOptionsDialog() = default;

void PrintOptionsDialog::build() {
    auto* left = new QVBoxLayout;
    for (QWidget* w : {buildPrinterBox(), buildRangeBox(), buildFieldsBox(), buildLayoutBox(),
                       buildQualityBox()})
        left->addWidget(w);
    left->addStretch(1);
    QLayout* right = buildPreview();
    QLayout* buttons = buildButtons();

    auto* body = new QHBoxLayout;
    body->addLayout(left, 0);
    body->addLayout(right, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(body, 1);
    all->addLayout(buttons);

    connectControls();
}

QGroupBox* PrintOptionsDialog::buildPrinterBox() {
    auto* printerBox = new QGroupBox(tr("Printer"), this);
    cboPrinter_ = named(new QComboBox(printerBox), "cboPrinter");
    const QString defaultPrinter = QPrinterInfo::defaultPrinterName();
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        cboPrinter_->addItem(name == defaultPrinter ? tr("%1 (default)").arg(name) : name, name);
    cboPrinter_->addItem(tr(PdfPrinterName), QString::fromLatin1(PdfPrinterName));
    cboPaper_ = named(new QComboBox(printerBox), "cboPaper");
    for (const PaperSize& p : paperSizes())
        cboPaper_->addItem(QString::fromStdString(p.name), QString::fromStdString(p.name));
    cboOrientation_ = named(new QComboBox(printerBox), "cboOrientation");
    cboOrientation_->addItem(tr("Portrait"));
    cboOrientation_->addItem(tr("Landscape"));
    txtCopies_ = named(new QSpinBox(printerBox), "txtCopies");
    txtCopies_->setRange(1, 99);
    auto* printerForm = new QFormLayout(printerBox);
    printerForm->addRow(tr("&Name:"), cboPrinter_);
    printerForm->addRow(tr("P&aper:"), cboPaper_);
    printerForm->addRow(tr("&Orientation:"), cboOrientation_);
    printerForm->addRow(tr("Cop&ies:"), txtCopies_);
    return printerBox;
}

QGroupBox* PrintOptionsDialog::buildRangeBox() {
    auto* rangeBox = new QGroupBox(tr("Print range"), this);
    optAll_ = named(new QRadioButton(tr("&Whole dictionary"), rangeBox), "optAll");
    optCurrentWord_ = named(new QRadioButton(rangeBox), "optCurrentWord");
    optWords_ = named(new QRadioButton(tr("Wor&ds"), rangeBox), "optWords");
    optPages_ = named(new QRadioButton(tr("Pa&ges"), rangeBox), "optPages");
    const int last = std::max(app_.store.lastIndex, 0);
    txtWordFrom_ = named(new QSpinBox(rangeBox), "txtWordFrom");
    txtWordTo_ = named(new QSpinBox(rangeBox), "txtWordTo");
    for (QSpinBox* s : {txtWordFrom_, txtWordTo_}) s->setRange(0, last);
    txtPageFrom_ = named(new QSpinBox(rangeBox), "txtPageFrom");
    txtPageTo_ = named(new QSpinBox(rangeBox), "txtPageTo");
    for (QSpinBox* s : {txtPageFrom_, txtPageTo_}) s->setRange(1, 1);
    lblPageCount_ = named(new QLabel(rangeBox), "lblPageCount");
    auto* rangeGrid = new QGridLayout(rangeBox);
    rangeGrid->addWidget(optAll_, 0, 0, 1, 5);
    rangeGrid->addWidget(optCurrentWord_, 1, 0, 1, 5);
    rangeGrid->addWidget(optWords_, 2, 0);
    rangeGrid->addWidget(txtWordFrom_, 2, 1);
    rangeGrid->addWidget(new QLabel(tr("to"), rangeBox), 2, 2);
    rangeGrid->addWidget(txtWordTo_, 2, 3);
    rangeGrid->addWidget(optPages_, 3, 0);
    rangeGrid->addWidget(txtPageFrom_, 3, 1);
    rangeGrid->addWidget(new QLabel(tr("to"), rangeBox), 3, 2);
    rangeGrid->addWidget(txtPageTo_, 3, 3);
    rangeGrid->addWidget(lblPageCount_, 3, 4);
    rangeGrid->setColumnStretch(4, 1);
    return rangeBox;
}

QGroupBox* PrintOptionsDialog::buildFieldsBox() {
    auto* fieldsBox = new QGroupBox(tr("Fields"), this);
    chkSigns_ = named(new QCheckBox(tr("&Signs"), fieldsBox), "chkSigns");
    chkGardiner_ = named(new QCheckBox(tr("Gardiner's &notation"), fieldsBox), "chkGardiner");
    chkTransliteration_ =
        named(new QCheckBox(tr("&Transliteration"), fieldsBox), "chkTransliteration");
    chkMeaning_ = named(new QCheckBox(tr("&Meaning"), fieldsBox), "chkMeaning");
    chkComment_ = named(new QCheckBox(tr("&Comment"), fieldsBox), "chkComment");
    chkNumber_ = named(new QCheckBox(tr("Word n&umber"), fieldsBox), "chkNumber");
    auto* fieldsGrid = new QGridLayout(fieldsBox);
    fieldsGrid->addWidget(chkSigns_, 0, 0);
    fieldsGrid->addWidget(chkGardiner_, 1, 0);
    fieldsGrid->addWidget(chkTransliteration_, 2, 0);
    fieldsGrid->addWidget(chkMeaning_, 0, 1);
    fieldsGrid->addWidget(chkComment_, 1, 1);
    fieldsGrid->addWidget(chkNumber_, 2, 1);
    return fieldsBox;
}

QGroupBox* PrintOptionsDialog::buildLayoutBox() {
    auto* layoutBox = new QGroupBox(tr("Layout"), this);
    optOneColumn_ = named(new QRadioButton(tr("O&ne column"), layoutBox), "optOneColumn");
    optTwoColumns_ = named(new QRadioButton(tr("Two co&lumns"), layoutBox), "optTwoColumns");
    auto* columns = new QButtonGroup(layoutBox);
    columns->addButton(optOneColumn_);
    columns->addButton(optTwoColumns_);
    txtMarginTop_ = marginBox(layoutBox, "txtMarginTop");
    txtMarginBottom_ = marginBox(layoutBox, "txtMarginBottom");
    txtMarginLeft_ = marginBox(layoutBox, "txtMarginLeft");
    txtMarginRight_ = marginBox(layoutBox, "txtMarginRight");
    cboLineSpacing_ = named(new QComboBox(layoutBox), "cboLineSpacing");
    for (const Spacing& s : Spacings) cboLineSpacing_->addItem(tr(s.name), s.value);
    auto* layoutGrid = new QGridLayout(layoutBox);
    layoutGrid->addWidget(optOneColumn_, 0, 0, 1, 2);
    layoutGrid->addWidget(optTwoColumns_, 0, 2, 1, 2);
    layoutGrid->addWidget(new QLabel(tr("Margins: top"), layoutBox), 1, 0);
    layoutGrid->addWidget(txtMarginTop_, 1, 1);
    layoutGrid->addWidget(new QLabel(tr("bottom"), layoutBox), 1, 2);
    layoutGrid->addWidget(txtMarginBottom_, 1, 3);
    layoutGrid->addWidget(new QLabel(tr("left"), layoutBox), 2, 0, Qt::AlignRight);
    layoutGrid->addWidget(txtMarginLeft_, 2, 1);
    layoutGrid->addWidget(new QLabel(tr("right"), layoutBox), 2, 2);
    layoutGrid->addWidget(txtMarginRight_, 2, 3);
    layoutGrid->addWidget(new QLabel(tr("Line spacing"), layoutBox), 3, 0);
    layoutGrid->addWidget(cboLineSpacing_, 3, 1, 1, 3);
    return layoutBox;
}

QGroupBox* PrintOptionsDialog::buildQualityBox() {
    auto* qualityBox = new QGroupBox(tr("Print Quality"), this);
    quality_ = new QButtonGroup(qualityBox);
    auto* qualityRow = new QHBoxLayout(qualityBox);
    for (const Quality& q : Qualities) {
        auto* b = named(new QRadioButton(tr(q.name), qualityBox), q.objectName);
        b->setToolTip(tr("%1 dots per inch").arg(printResolution(q.value)));
        quality_->addButton(b, -q.value); // button ids cannot be -1 and below
        qualityRow->addWidget(b);
    }
    return qualityBox;
}

QLayout* PrintOptionsDialog::buildPreview() {
    // The preview with its page buttons, right of the choices.
    preview_ = new PrintPreview(this);
    cmdPreviousPage_ = named(new QPushButton(QStringLiteral("\u25C0"), this), "cmdPreviousPage");
    cmdPreviousPage_->setToolTip(tr("Previous page"));
    cmdNextPage_ = named(new QPushButton(QStringLiteral("\u25B6"), this), "cmdNextPage");
    cmdNextPage_->setToolTip(tr("Next page"));
    lblPreviewPage_ = named(new QLabel(this), "lblPreviewPage");
    lblPreviewPage_->setAlignment(Qt::AlignCenter);
    for (QPushButton* b : {cmdPreviousPage_, cmdNextPage_}) b->setFixedWidth(48);
    auto* pageRow = new QHBoxLayout;
    pageRow->addWidget(cmdPreviousPage_);
    pageRow->addWidget(lblPreviewPage_, 1);
    pageRow->addWidget(cmdNextPage_);
    auto* right = new QVBoxLayout;
    right->addWidget(preview_, 1);
    right->addLayout(pageRow);
    return right;
}

QLayout* PrintOptionsDialog::buildButtons() {
    lblStatus_ = named(new QLabel(this), "lblStatus");
    lblStatus_->setWordWrap(true);
    cmdPrint_ = named(new QPushButton(tr("&Print"), this), "cmdPrint");
    cmdPrint_->setDefault(true);
    cmdCancel_ = named(new QPushButton(tr("Cancel"), this), "cmdCancel");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblStatus_, 1);
    buttons->addWidget(cmdPrint_);
    buttons->addWidget(cmdCancel_);
    return buttons;
}

void PrintOptionsDialog::connectControls() {
    connect(cmdPrint_, &QPushButton::clicked, this, &PrintOptionsDialog::accept);
    connect(cmdCancel_, &QPushButton::clicked, this, &PrintOptionsDialog::reject);
    connect(cmdPreviousPage_, &QPushButton::clicked, preview_, &PrintPreview::previousPage);
    connect(cmdNextPage_, &QPushButton::clicked, preview_, &PrintPreview::nextPage);
    connect(preview_, &PrintPreview::pageChanged, this, &PrintOptionsDialog::showPreviewPage);

    const auto changed = [this] { scheduleRefresh(); };
    for (QComboBox* c : {cboPrinter_, cboPaper_, cboOrientation_, cboLineSpacing_})
        connect(c, &QComboBox::currentIndexChanged, this, changed);
    for (QRadioButton* r :
         {optAll_, optCurrentWord_, optWords_, optPages_, optOneColumn_, optTwoColumns_})
        connect(r, &QRadioButton::toggled, this, changed);
    for (QCheckBox* c :
         {chkSigns_, chkGardiner_, chkTransliteration_, chkMeaning_, chkComment_, chkNumber_})
        connect(c, &QCheckBox::toggled, this, changed);
    for (QSpinBox* s : {txtWordFrom_, txtWordTo_, txtPageFrom_, txtPageTo_, txtCopies_})
        connect(s, &QSpinBox::valueChanged, this, changed);
    for (QDoubleSpinBox* s : {txtMarginTop_, txtMarginBottom_, txtMarginLeft_, txtMarginRight_})
        connect(s, &QDoubleSpinBox::valueChanged, this, changed);
    // Typing a first word after the last, or the other way round, moves the other along.
    connect(txtWordFrom_, &QSpinBox::valueChanged, this, [this](int v) {
        if (txtWordTo_->value() < v) txtWordTo_->setValue(v);
    });
    connect(txtWordTo_, &QSpinBox::valueChanged, this, [this](int v) {
        if (txtWordFrom_->value() > v) txtWordFrom_->setValue(v);
    });
    connect(txtPageFrom_, &QSpinBox::valueChanged, this, [this](int v) {
        if (txtPageTo_->value() < v) txtPageTo_->setValue(v);
    });
    connect(txtPageTo_, &QSpinBox::valueChanged, this, [this](int v) {
        if (txtPageFrom_->value() > v) txtPageFrom_->setValue(v);
    });
}

void PrintOptionsDialog::load(const PrintOptions& o) {
    const int pdf = cboPrinter_->findData(QString::fromLatin1(PdfPrinterName));
    const int printer = cboPrinter_->findData(QString::fromStdString(o.printer));
    cboPrinter_->setCurrentIndex(printer >= 0 ? printer : pdf);
    const int paper = cboPaper_->findData(QString::fromStdString(o.paper));
    cboPaper_->setCurrentIndex(std::max(paper, 0));
    cboOrientation_->setCurrentIndex(o.landscape ? 1 : 0);
    txtCopies_->setValue(o.copies);

    const DictionaryStore& store = app_.store;
    optCurrentWord_->setText(store.isEmpty() ? tr("C&urrent word")
                                             : tr("C&urrent word (%1)").arg(store.currentIndex));
    switch (o.range.kind) {
    case RangeKind::CurrentWord:
        optCurrentWord_->setChecked(true);
        break;
    case RangeKind::Words:
        optWords_->setChecked(true);
        break;
    case RangeKind::Pages:
        optPages_->setChecked(true);
        break;
    case RangeKind::All:
        optAll_->setChecked(true);
        break;
    }
    if (o.range.kind == RangeKind::Words) {
        txtWordTo_->setValue(o.range.to);
        txtWordFrom_->setValue(o.range.from);
    } else {
        // Words from the one on show to the end of the dictionary, unless told otherwise.
        txtWordTo_->setValue(store.lastIndex);
        txtWordFrom_->setValue(std::clamp(store.currentIndex, 0, store.lastIndex));
    }
    if (o.range.kind == RangeKind::Pages) {
        txtPageFrom_->setRange(1, std::max(o.range.to, 1));
        txtPageTo_->setRange(1, std::max(o.range.to, 1));
        txtPageTo_->setValue(o.range.to);
        txtPageFrom_->setValue(o.range.from);
        pagesKnown_ = true;
    }

    chkSigns_->setChecked(o.fields.signs);
    chkGardiner_->setChecked(o.fields.gardiner);
    chkTransliteration_->setChecked(o.fields.transliteration);
    chkMeaning_->setChecked(o.fields.meaning);
    chkComment_->setChecked(o.fields.comment);
    chkNumber_->setChecked(o.fields.number);
    (o.columns == 2 ? optTwoColumns_ : optOneColumn_)->setChecked(true);
    txtMarginTop_->setValue(o.margins.top);
    txtMarginBottom_->setValue(o.margins.bottom);
    txtMarginLeft_->setValue(o.margins.left);
    txtMarginRight_->setValue(o.margins.right);
    int spacing = 0;
    for (int i = 0; i < cboLineSpacing_->count(); ++i)
        if (std::abs(cboLineSpacing_->itemData(i).toDouble() - o.lineSpacing) <
            std::abs(cboLineSpacing_->itemData(spacing).toDouble() - o.lineSpacing))
            spacing = i;
    cboLineSpacing_->setCurrentIndex(spacing);

    const int q = app_.settings.printQuality;
    QAbstractButton* b = quality_->button(-q);
    (b ? b : quality_->button(0))->setChecked(true);
    syncEnabled();
}

PrintOptions PrintOptionsDialog::options() const {
    PrintOptions o;
    o.printer = cboPrinter_->currentData().toString().toStdString();
    o.paper = cboPaper_->currentData().toString().toStdString();
    o.landscape = cboOrientation_->currentIndex() == 1;
    o.copies = txtCopies_->value();
    if (optCurrentWord_->isChecked())
        o.range = {RangeKind::CurrentWord, 0, 0};
    else if (optWords_->isChecked())
        o.range = {RangeKind::Words, txtWordFrom_->value(), txtWordTo_->value()};
    else if (optPages_->isChecked())
        o.range = {RangeKind::Pages, txtPageFrom_->value(), txtPageTo_->value()};
    else
        o.range = {RangeKind::All, 0, 0};
    o.fields.signs = chkSigns_->isChecked();
    o.fields.gardiner = chkGardiner_->isChecked();
    o.fields.transliteration = chkTransliteration_->isChecked();
    o.fields.meaning = chkMeaning_->isChecked();
    o.fields.comment = chkComment_->isChecked();
    o.fields.number = chkNumber_->isChecked();
    o.columns = optTwoColumns_->isChecked() ? 2 : 1;
    o.margins = {txtMarginLeft_->value(), txtMarginTop_->value(), txtMarginRight_->value(),
                 txtMarginBottom_->value()};
    o.lineSpacing = cboLineSpacing_->currentData().toDouble();
    return o;
}

int PrintOptionsDialog::quality() const {
    const int id = quality_->checkedId();
    return id > 0 ? -id : 0;
}

std::vector<int> PrintOptionsDialog::wordsToLayOut() const {
    return WordsInRange(options().range, app_.store);
}

std::pair<int, int> PrintOptionsDialog::pagesToPrint() const {
    if (!document_) return {0, -1};
    return PagesInRange(options().range, document_->pageCount());
}

QString PrintOptionsDialog::problem() const {
    if (app_.store.isEmpty()) return tr("The dictionary has no words to print.");
    const PrintOptions o = options();
    if (!o.fields.any()) return tr("Choose at least one thing to print.");
    if (document_ && !document_->fits())
        return tr("The margins leave too little room for the words.");
    if (o.range.kind == RangeKind::CurrentWord && WordsInRange(o.range, app_.store).empty())
        return tr("There is no word on show.");
    return {};
}

void PrintOptionsDialog::scheduleRefresh() {
    syncEnabled();
    timer_->start();
}

void PrintOptionsDialog::syncEnabled() {
    const bool pdf = cboPrinter_->currentData().toString() == QLatin1String(PdfPrinterName);
    txtCopies_->setEnabled(!pdf);
    if (pdf) txtCopies_->setValue(1);
    txtWordFrom_->setEnabled(optWords_->isChecked());
    txtWordTo_->setEnabled(optWords_->isChecked());
    txtPageFrom_->setEnabled(optPages_->isChecked());
    txtPageTo_->setEnabled(optPages_->isChecked());
    const bool empty = app_.store.isEmpty();
    for (QRadioButton* r : {optAll_, optCurrentWord_, optWords_, optPages_}) r->setEnabled(!empty);
}

void PrintOptionsDialog::refresh() {
    timer_->stop();
    const PrintOptions o = options();
    const std::vector<int> words = wordsToLayOut();
    if (!document_ || words != laidOutWords_ || layoutPart(o) != layoutPart(laidOutOptions_)) {
        const bool slow = words.size() > ManyWords;
        if (slow) QApplication::setOverrideCursor(Qt::WaitCursor);
        // Options that only change the layout keep the words already collected.
        auto collected =
            document_ && words == laidOutWords_
                ? document_->sharedWords()
                : std::make_shared<const std::vector<PrintWord>>(CollectWords(app_, words));
        document_ = std::make_unique<PrintDocument>(
            std::move(collected), o, DocumentTitle(app_.store.header, app_.store.dictionaryName));
        if (slow) QApplication::restoreOverrideCursor();
        laidOutWords_ = words;
        laidOutOptions_ = o;
    }
    const int count = document_->pageCount();
    if (o.range.kind == RangeKind::Pages || o.range.kind == RangeKind::All) {
        // The whole dictionary is laid out: its pages are the ones a page range counts.
        const QSignalBlocker a(txtPageFrom_), b(txtPageTo_);
        const bool wasAll = txtPageTo_->value() == txtPageTo_->maximum();
        txtPageFrom_->setRange(1, std::max(count, 1));
        txtPageTo_->setRange(1, std::max(count, 1));
        if (!pagesKnown_ || wasAll) txtPageTo_->setValue(count);
        pagesKnown_ = true;
        lblPageCount_->setText(count == 1 ? tr("of 1 page") : tr("of %1 pages").arg(count));
    } else {
        lblPageCount_->clear(); // the whole dictionary's pages are not counted for this choice
    }
    const auto [first, last] = PagesInRange(options().range, count);
    preview_->setDocument(document_.get(), first, last);
    showPreviewPage(preview_->currentPage());

    const QString why = problem();
    lblStatus_->setText(why);
    cmdPrint_->setEnabled(why.isEmpty() && first <= last);
}

void PrintOptionsDialog::showPreviewPage(int page) {
    const int count = document_ ? document_->pageCount() : 0;
    if (page < 0) {
        lblPreviewPage_->setText(tr("No pages"));
    } else {
        const int sheets = preview_->lastPage() - preview_->firstPage() + 1;
        QString text = tr("Page %1 of %2").arg(page + 1).arg(count);
        if (sheets != count)
            text += tr(" (printing %1 page%2)").arg(sheets).arg(sheets == 1 ? "" : "s");
        lblPreviewPage_->setText(text);
    }
    cmdPreviousPage_->setEnabled(page > preview_->firstPage());
    cmdNextPage_->setEnabled(page >= 0 && page < preview_->lastPage());
}

void PrintOptionsDialog::accept() {
    refresh();
    if (!cmdPrint_->isEnabled()) return;
    pdfFile_.reset();
    if (options().printer == PdfPrinterName) {
        auto file =
            app_.dialogs.saveFile("PDF files (*.pdf)|*.pdf", ProposedPdfFile(document_->title()));
        if (!file) return; // the dialog stays open: the user may choose another printer
        if (file->extension().empty()) file->replace_extension(".pdf");
        pdfFile_ = *file;
    }
    app_.settings.printQuality = quality();
    QDialog::accept();
}

} // namespace nebkaro
