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

std::filesystem::path proposedPdfFile(const std::string& name) {
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
    printerCombo_ = named(new QComboBox(printerBox), "cboPrinter");
    const QString defaultPrinter = QPrinterInfo::defaultPrinterName();
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        printerCombo_->addItem(name == defaultPrinter ? tr("%1 (default)").arg(name) : name, name);
    printerCombo_->addItem(tr(PdfPrinterName), QString::fromLatin1(PdfPrinterName));
    paperCombo_ = named(new QComboBox(printerBox), "cboPaper");
    for (const PaperSize& p : paperSizes())
        paperCombo_->addItem(QString::fromStdString(p.name), QString::fromStdString(p.name));
    orientationCombo_ = named(new QComboBox(printerBox), "cboOrientation");
    orientationCombo_->addItem(tr("Portrait"));
    orientationCombo_->addItem(tr("Landscape"));
    copiesBox_ = named(new QSpinBox(printerBox), "txtCopies");
    copiesBox_->setRange(1, 99);
    auto* printerForm = new QFormLayout(printerBox);
    printerForm->addRow(tr("&Name:"), printerCombo_);
    printerForm->addRow(tr("P&aper:"), paperCombo_);
    printerForm->addRow(tr("&Orientation:"), orientationCombo_);
    printerForm->addRow(tr("Cop&ies:"), copiesBox_);
    return printerBox;
}

QGroupBox* PrintOptionsDialog::buildRangeBox() {
    auto* rangeBox = new QGroupBox(tr("Print range"), this);
    allOption_ = named(new QRadioButton(tr("&Whole dictionary"), rangeBox), "optAll");
    currentWordOption_ = named(new QRadioButton(rangeBox), "optCurrentWord");
    wordsOption_ = named(new QRadioButton(tr("Wor&ds"), rangeBox), "optWords");
    pagesOption_ = named(new QRadioButton(tr("Pa&ges"), rangeBox), "optPages");
    const int last = std::max(app_.store.lastIndex, 0);
    wordFromBox_ = named(new QSpinBox(rangeBox), "txtWordFrom");
    wordToBox_ = named(new QSpinBox(rangeBox), "txtWordTo");
    for (QSpinBox* s : {wordFromBox_, wordToBox_}) s->setRange(0, last);
    pageFromBox_ = named(new QSpinBox(rangeBox), "txtPageFrom");
    pageToBox_ = named(new QSpinBox(rangeBox), "txtPageTo");
    for (QSpinBox* s : {pageFromBox_, pageToBox_}) s->setRange(1, 1);
    pageCountLabel_ = named(new QLabel(rangeBox), "lblPageCount");
    auto* rangeGrid = new QGridLayout(rangeBox);
    rangeGrid->addWidget(allOption_, 0, 0, 1, 5);
    rangeGrid->addWidget(currentWordOption_, 1, 0, 1, 5);
    rangeGrid->addWidget(wordsOption_, 2, 0);
    rangeGrid->addWidget(wordFromBox_, 2, 1);
    rangeGrid->addWidget(new QLabel(tr("to"), rangeBox), 2, 2);
    rangeGrid->addWidget(wordToBox_, 2, 3);
    rangeGrid->addWidget(pagesOption_, 3, 0);
    rangeGrid->addWidget(pageFromBox_, 3, 1);
    rangeGrid->addWidget(new QLabel(tr("to"), rangeBox), 3, 2);
    rangeGrid->addWidget(pageToBox_, 3, 3);
    rangeGrid->addWidget(pageCountLabel_, 3, 4);
    rangeGrid->setColumnStretch(4, 1);
    return rangeBox;
}

QGroupBox* PrintOptionsDialog::buildFieldsBox() {
    auto* fieldsBox = new QGroupBox(tr("Fields"), this);
    signsCheck_ = named(new QCheckBox(tr("&Signs"), fieldsBox), "chkSigns");
    gardinerCheck_ = named(new QCheckBox(tr("Gardiner's &notation"), fieldsBox), "chkGardiner");
    transliterationCheck_ =
        named(new QCheckBox(tr("&Transliteration"), fieldsBox), "chkTransliteration");
    meaningCheck_ = named(new QCheckBox(tr("&Meaning"), fieldsBox), "chkMeaning");
    commentCheck_ = named(new QCheckBox(tr("&Comment"), fieldsBox), "chkComment");
    numberCheck_ = named(new QCheckBox(tr("Word n&umber"), fieldsBox), "chkNumber");
    auto* fieldsGrid = new QGridLayout(fieldsBox);
    fieldsGrid->addWidget(signsCheck_, 0, 0);
    fieldsGrid->addWidget(gardinerCheck_, 1, 0);
    fieldsGrid->addWidget(transliterationCheck_, 2, 0);
    fieldsGrid->addWidget(meaningCheck_, 0, 1);
    fieldsGrid->addWidget(commentCheck_, 1, 1);
    fieldsGrid->addWidget(numberCheck_, 2, 1);
    return fieldsBox;
}

QGroupBox* PrintOptionsDialog::buildLayoutBox() {
    auto* layoutBox = new QGroupBox(tr("Layout"), this);
    oneColumnOption_ = named(new QRadioButton(tr("O&ne column"), layoutBox), "optOneColumn");
    twoColumnsOption_ = named(new QRadioButton(tr("Two co&lumns"), layoutBox), "optTwoColumns");
    auto* columns = new QButtonGroup(layoutBox);
    columns->addButton(oneColumnOption_);
    columns->addButton(twoColumnsOption_);
    marginTopBox_ = marginBox(layoutBox, "txtMarginTop");
    marginBottomBox_ = marginBox(layoutBox, "txtMarginBottom");
    marginLeftBox_ = marginBox(layoutBox, "txtMarginLeft");
    marginRightBox_ = marginBox(layoutBox, "txtMarginRight");
    lineSpacingCombo_ = named(new QComboBox(layoutBox), "cboLineSpacing");
    for (const Spacing& s : Spacings) lineSpacingCombo_->addItem(tr(s.name), s.value);
    auto* layoutGrid = new QGridLayout(layoutBox);
    layoutGrid->addWidget(oneColumnOption_, 0, 0, 1, 2);
    layoutGrid->addWidget(twoColumnsOption_, 0, 2, 1, 2);
    layoutGrid->addWidget(new QLabel(tr("Margins: top"), layoutBox), 1, 0);
    layoutGrid->addWidget(marginTopBox_, 1, 1);
    layoutGrid->addWidget(new QLabel(tr("bottom"), layoutBox), 1, 2);
    layoutGrid->addWidget(marginBottomBox_, 1, 3);
    layoutGrid->addWidget(new QLabel(tr("left"), layoutBox), 2, 0, Qt::AlignRight);
    layoutGrid->addWidget(marginLeftBox_, 2, 1);
    layoutGrid->addWidget(new QLabel(tr("right"), layoutBox), 2, 2);
    layoutGrid->addWidget(marginRightBox_, 2, 3);
    layoutGrid->addWidget(new QLabel(tr("Line spacing"), layoutBox), 3, 0);
    layoutGrid->addWidget(lineSpacingCombo_, 3, 1, 1, 3);
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
    previousPageButton_ = named(new QPushButton(QStringLiteral("\u25C0"), this), "cmdPreviousPage");
    previousPageButton_->setToolTip(tr("Previous page"));
    nextPageButton_ = named(new QPushButton(QStringLiteral("\u25B6"), this), "cmdNextPage");
    nextPageButton_->setToolTip(tr("Next page"));
    previewPageLabel_ = named(new QLabel(this), "lblPreviewPage");
    previewPageLabel_->setAlignment(Qt::AlignCenter);
    for (QPushButton* b : {previousPageButton_, nextPageButton_}) b->setFixedWidth(48);
    auto* pageRow = new QHBoxLayout;
    pageRow->addWidget(previousPageButton_);
    pageRow->addWidget(previewPageLabel_, 1);
    pageRow->addWidget(nextPageButton_);
    auto* right = new QVBoxLayout;
    right->addWidget(preview_, 1);
    right->addLayout(pageRow);
    return right;
}

QLayout* PrintOptionsDialog::buildButtons() {
    statusLabel_ = named(new QLabel(this), "lblStatus");
    statusLabel_->setWordWrap(true);
    printButton_ = named(new QPushButton(tr("&Print"), this), "cmdPrint");
    printButton_->setDefault(true);
    cancelButton_ = named(new QPushButton(tr("Cancel"), this), "cmdCancel");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(statusLabel_, 1);
    buttons->addWidget(printButton_);
    buttons->addWidget(cancelButton_);
    return buttons;
}

void PrintOptionsDialog::connectControls() {
    connect(printButton_, &QPushButton::clicked, this, &PrintOptionsDialog::accept);
    connect(cancelButton_, &QPushButton::clicked, this, &PrintOptionsDialog::reject);
    connect(previousPageButton_, &QPushButton::clicked, preview_, &PrintPreview::previousPage);
    connect(nextPageButton_, &QPushButton::clicked, preview_, &PrintPreview::nextPage);
    connect(preview_, &PrintPreview::pageChanged, this, &PrintOptionsDialog::showPreviewPage);

    const auto changed = [this] { scheduleRefresh(); };
    for (QComboBox* c : {printerCombo_, paperCombo_, orientationCombo_, lineSpacingCombo_})
        connect(c, &QComboBox::currentIndexChanged, this, changed);
    for (QRadioButton* r : {allOption_, currentWordOption_, wordsOption_, pagesOption_,
                            oneColumnOption_, twoColumnsOption_})
        connect(r, &QRadioButton::toggled, this, changed);
    for (QCheckBox* c : {signsCheck_, gardinerCheck_, transliterationCheck_, meaningCheck_,
                         commentCheck_, numberCheck_})
        connect(c, &QCheckBox::toggled, this, changed);
    for (QSpinBox* s : {wordFromBox_, wordToBox_, pageFromBox_, pageToBox_, copiesBox_})
        connect(s, &QSpinBox::valueChanged, this, changed);
    for (QDoubleSpinBox* s : {marginTopBox_, marginBottomBox_, marginLeftBox_, marginRightBox_})
        connect(s, &QDoubleSpinBox::valueChanged, this, changed);
    // Typing a first word after the last, or the other way round, moves the other along.
    connect(wordFromBox_, &QSpinBox::valueChanged, this, [this](int v) {
        if (wordToBox_->value() < v) wordToBox_->setValue(v);
    });
    connect(wordToBox_, &QSpinBox::valueChanged, this, [this](int v) {
        if (wordFromBox_->value() > v) wordFromBox_->setValue(v);
    });
    connect(pageFromBox_, &QSpinBox::valueChanged, this, [this](int v) {
        if (pageToBox_->value() < v) pageToBox_->setValue(v);
    });
    connect(pageToBox_, &QSpinBox::valueChanged, this, [this](int v) {
        if (pageFromBox_->value() > v) pageFromBox_->setValue(v);
    });
}

void PrintOptionsDialog::load(const PrintOptions& o) {
    const int pdf = printerCombo_->findData(QString::fromLatin1(PdfPrinterName));
    const int printer = printerCombo_->findData(QString::fromStdString(o.printer));
    printerCombo_->setCurrentIndex(printer >= 0 ? printer : pdf);
    const int paper = paperCombo_->findData(QString::fromStdString(o.paper));
    paperCombo_->setCurrentIndex(std::max(paper, 0));
    orientationCombo_->setCurrentIndex(o.landscape ? 1 : 0);
    copiesBox_->setValue(o.copies);

    const DictionaryStore& store = app_.store;
    currentWordOption_->setText(store.isEmpty() ? tr("C&urrent word")
                                                : tr("C&urrent word (%1)").arg(store.currentIndex));
    switch (o.range.kind) {
    case RangeKind::CurrentWord:
        currentWordOption_->setChecked(true);
        break;
    case RangeKind::Words:
        wordsOption_->setChecked(true);
        break;
    case RangeKind::Pages:
        pagesOption_->setChecked(true);
        break;
    case RangeKind::All:
        allOption_->setChecked(true);
        break;
    }
    if (o.range.kind == RangeKind::Words) {
        wordToBox_->setValue(o.range.to);
        wordFromBox_->setValue(o.range.from);
    } else {
        // Words from the one on show to the end of the dictionary, unless told otherwise.
        wordToBox_->setValue(store.lastIndex);
        wordFromBox_->setValue(std::clamp(store.currentIndex, 0, store.lastIndex));
    }
    if (o.range.kind == RangeKind::Pages) {
        pageFromBox_->setRange(1, std::max(o.range.to, 1));
        pageToBox_->setRange(1, std::max(o.range.to, 1));
        pageToBox_->setValue(o.range.to);
        pageFromBox_->setValue(o.range.from);
        pagesKnown_ = true;
    }

    signsCheck_->setChecked(o.fields.signs);
    gardinerCheck_->setChecked(o.fields.gardiner);
    transliterationCheck_->setChecked(o.fields.transliteration);
    meaningCheck_->setChecked(o.fields.meaning);
    commentCheck_->setChecked(o.fields.comment);
    numberCheck_->setChecked(o.fields.number);
    (o.columns == 2 ? twoColumnsOption_ : oneColumnOption_)->setChecked(true);
    marginTopBox_->setValue(o.margins.top);
    marginBottomBox_->setValue(o.margins.bottom);
    marginLeftBox_->setValue(o.margins.left);
    marginRightBox_->setValue(o.margins.right);
    int spacing = 0;
    for (int i = 0; i < lineSpacingCombo_->count(); ++i)
        if (std::abs(lineSpacingCombo_->itemData(i).toDouble() - o.lineSpacing) <
            std::abs(lineSpacingCombo_->itemData(spacing).toDouble() - o.lineSpacing))
            spacing = i;
    lineSpacingCombo_->setCurrentIndex(spacing);

    const int q = app_.settings.printQuality;
    QAbstractButton* b = quality_->button(-q);
    (b ? b : quality_->button(0))->setChecked(true);
    syncEnabled();
}

PrintOptions PrintOptionsDialog::options() const {
    PrintOptions o;
    o.printer = printerCombo_->currentData().toString().toStdString();
    o.paper = paperCombo_->currentData().toString().toStdString();
    o.landscape = orientationCombo_->currentIndex() == 1;
    o.copies = copiesBox_->value();
    if (currentWordOption_->isChecked())
        o.range = {RangeKind::CurrentWord, 0, 0};
    else if (wordsOption_->isChecked())
        o.range = {RangeKind::Words, wordFromBox_->value(), wordToBox_->value()};
    else if (pagesOption_->isChecked())
        o.range = {RangeKind::Pages, pageFromBox_->value(), pageToBox_->value()};
    else
        o.range = {RangeKind::All, 0, 0};
    o.fields.signs = signsCheck_->isChecked();
    o.fields.gardiner = gardinerCheck_->isChecked();
    o.fields.transliteration = transliterationCheck_->isChecked();
    o.fields.meaning = meaningCheck_->isChecked();
    o.fields.comment = commentCheck_->isChecked();
    o.fields.number = numberCheck_->isChecked();
    o.columns = twoColumnsOption_->isChecked() ? 2 : 1;
    o.margins = {marginLeftBox_->value(), marginTopBox_->value(), marginRightBox_->value(),
                 marginBottomBox_->value()};
    o.lineSpacing = lineSpacingCombo_->currentData().toDouble();
    return o;
}

int PrintOptionsDialog::quality() const {
    const int id = quality_->checkedId();
    return id > 0 ? -id : 0;
}

std::vector<int> PrintOptionsDialog::wordsToLayOut() const {
    return wordsInRange(options().range, app_.store);
}

std::pair<int, int> PrintOptionsDialog::pagesToPrint() const {
    if (!document_) return {0, -1};
    return pagesInRange(options().range, document_->pageCount());
}

QString PrintOptionsDialog::problem() const {
    if (app_.store.isEmpty()) return tr("The dictionary has no words to print.");
    const PrintOptions o = options();
    if (!o.fields.any()) return tr("Choose at least one thing to print.");
    if (document_ && !document_->fits())
        return tr("The margins leave too little room for the words.");
    if (o.range.kind == RangeKind::CurrentWord && wordsInRange(o.range, app_.store).empty())
        return tr("There is no word on show.");
    return {};
}

void PrintOptionsDialog::scheduleRefresh() {
    syncEnabled();
    timer_->start();
}

void PrintOptionsDialog::syncEnabled() {
    const bool pdf = printerCombo_->currentData().toString() == QLatin1String(PdfPrinterName);
    copiesBox_->setEnabled(!pdf);
    if (pdf) copiesBox_->setValue(1);
    wordFromBox_->setEnabled(wordsOption_->isChecked());
    wordToBox_->setEnabled(wordsOption_->isChecked());
    pageFromBox_->setEnabled(pagesOption_->isChecked());
    pageToBox_->setEnabled(pagesOption_->isChecked());
    const bool empty = app_.store.isEmpty();
    for (QRadioButton* r : {allOption_, currentWordOption_, wordsOption_, pagesOption_})
        r->setEnabled(!empty);
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
                : std::make_shared<const std::vector<PrintWord>>(collectWords(app_, words));
        document_ = std::make_unique<PrintDocument>(
            std::move(collected), o, documentTitle(app_.store.header, app_.store.dictionaryName));
        if (slow) QApplication::restoreOverrideCursor();
        laidOutWords_ = words;
        laidOutOptions_ = o;
    }
    const int count = document_->pageCount();
    if (o.range.kind == RangeKind::Pages || o.range.kind == RangeKind::All) {
        // The whole dictionary is laid out: its pages are the ones a page range counts.
        const QSignalBlocker a(pageFromBox_), b(pageToBox_);
        const bool wasAll = pageToBox_->value() == pageToBox_->maximum();
        pageFromBox_->setRange(1, std::max(count, 1));
        pageToBox_->setRange(1, std::max(count, 1));
        if (!pagesKnown_ || wasAll) pageToBox_->setValue(count);
        pagesKnown_ = true;
        pageCountLabel_->setText(count == 1 ? tr("of 1 page") : tr("of %1 pages").arg(count));
    } else {
        pageCountLabel_->clear(); // the whole dictionary's pages are not counted for this choice
    }
    const auto [first, last] = pagesInRange(options().range, count);
    preview_->setDocument(document_.get(), first, last);
    showPreviewPage(preview_->currentPage());

    const QString why = problem();
    statusLabel_->setText(why);
    printButton_->setEnabled(why.isEmpty() && first <= last);
}

void PrintOptionsDialog::showPreviewPage(int page) {
    const int count = document_ ? document_->pageCount() : 0;
    if (page < 0) {
        previewPageLabel_->setText(tr("No pages"));
    } else {
        const int sheets = preview_->lastPage() - preview_->firstPage() + 1;
        QString text = tr("Page %1 of %2").arg(page + 1).arg(count);
        if (sheets != count)
            text += tr(" (printing %1 page%2)").arg(sheets).arg(sheets == 1 ? "" : "s");
        previewPageLabel_->setText(text);
    }
    previousPageButton_->setEnabled(page > preview_->firstPage());
    nextPageButton_->setEnabled(page >= 0 && page < preview_->lastPage());
}

void PrintOptionsDialog::accept() {
    refresh();
    if (!printButton_->isEnabled()) return;
    pdfFile_.reset();
    if (options().printer == PdfPrinterName) {
        auto file =
            app_.dialogs.saveFile("PDF files (*.pdf)|*.pdf", proposedPdfFile(document_->title()));
        if (!file) return; // the dialog stays open: the user may choose another printer
        if (file->extension().empty()) file->replace_extension(".pdf");
        pdfFile_ = *file;
    }
    app_.settings.printQuality = quality();
    QDialog::accept();
}

} // namespace nebkaro
