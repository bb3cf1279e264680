#include "bulk/search_dialog.h"
#include "bulk/search.h"
#include "core/app.h"
#include "core/errors.h"

#include "ui/search_dialog.h"

#include "ui/letter_column.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include <cmath>

namespace nebkaro {

namespace {
constexpr int TwipsPerPixel = 15;
QString qs(const std::string& s) {
    return QString::fromStdString(s);
}
} // namespace

FoundWordsModel::FoundWordsModel(App& app, QObject* parent)
    : QAbstractTableModel(parent), app_(app) {}

void FoundWordsModel::setWords(std::vector<int> indices) {
    beginResetModel();
    words_ = std::move(indices);
    endResetModel();
}

int FoundWordsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(words_.size());
}

int FoundWordsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 4;
}

QVariant FoundWordsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const int w = wordAt(index.row());
    const int column = index.column();
    if (role == Qt::DisplayRole) {
        if (column == 0) return w;
        // The dictionary may have shrunk since the list was made.
        if (w > app_.store.lastIndex) return {};
        static constexpr int fields[] = {0, FieldGardiner, FieldTranslit, FieldMeaning};
        return qs(app_.store.field(w, fields[column]));
    }
    if (role == Qt::FontRole && column == 2) return LetterColumn::transliterationFont(11);
    if (role == Qt::TextAlignmentRole && column == 0)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant FoundWordsModel::headerData(int section, Qt::Orientation o, int role) const {
    if (o != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const char* titles[] = {"Index", "Gardiner's notation", "Transliteration", "Meaning"};
    return QString::fromLatin1(titles[section]);
}

SearchDialog::SearchDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName(QStringLiteral("Search"));
    setWindowTitle(QStringLiteral("Search"));
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth((SearchDialogMinWidth + TwipsPerPixel - 1) / TwipsPerPixel);

    auto named = [](QWidget* w, const char* name) {
        w->setObjectName(QString::fromLatin1(name));
        return w;
    };
    txtSearch_ = static_cast<QLineEdit*>(named(new QLineEdit(this), "txtSearch"));
    txtSearch_->installEventFilter(this);

    Frame1_ =
        static_cast<QGroupBox*>(named(new QGroupBox(QStringLiteral("Search By:"), this), "Frame1"));
    optMeaning_ = static_cast<QRadioButton*>(
        named(new QRadioButton(QStringLiteral("Meaning")), "optMeaning"));
    optTranslit_ = static_cast<QRadioButton*>(
        named(new QRadioButton(QStringLiteral("Transliteration")), "optTranslit"));
    optGardiner_ = static_cast<QRadioButton*>(
        named(new QRadioButton(QStringLiteral("Gardiner's notation")), "optGardiner"));
    optComment_ = static_cast<QRadioButton*>(
        named(new QRadioButton(QStringLiteral("Comment")), "optComment"));
    auto* frameBox = new QVBoxLayout(Frame1_);
    for (QRadioButton* o : {optMeaning_, optTranslit_, optGardiner_, optComment_})
        frameBox->addWidget(o);

    ChkExact_ = static_cast<QCheckBox*>(
        named(new QCheckBox(QStringLiteral("Exact match"), this), "ChkExact"));
    chkExactWord_ = static_cast<QCheckBox*>(
        named(new QCheckBox(QStringLiteral("Exact word"), this), "chkExactWord"));
    chkCase_ = static_cast<QCheckBox*>(
        named(new QCheckBox(QStringLiteral("Case sensitive"), this), "chkCase"));
    chkIgnoreVariants_ = static_cast<QCheckBox*>(
        named(new QCheckBox(QStringLiteral("Ignore Variants"), this), "chkIgnoreVariants"));
    chkIgnoreVariants_->setToolTip(
        QStringLiteral("Consider variants same as base glyph: A1 = A1a = A1b etc."));

    cmdTypewriter_ = static_cast<QPushButton*>(
        named(new QPushButton(QStringLiteral("Typewriter"), this), "cmdTypewriter"));
    cmdTypewriter_->setToolTip(QStringLiteral("Show Typewriter"));
    cmdOk_ = static_cast<QPushButton*>(named(new QPushButton(QStringLiteral("OK"), this), "cmdOk"));
    cmdOk_->setDefault(true);
    cmdCancel_ = static_cast<QPushButton*>(
        named(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel"));
    cmdFindAll_ = static_cast<QPushButton*>(
        named(new QPushButton(QStringLiteral("Find All"), this), "cmdFindAll"));
    cmdFindAll_->setToolTip(QStringLiteral("List every word that matches"));
    for (QPushButton* b : {cmdTypewriter_, cmdCancel_, cmdFindAll_}) b->setAutoDefault(false);

    auto* Label1 = static_cast<QLabel*>(named(
        new QLabel(QStringLiteral("Wildcards: / = 0 or more characters; ? = any one character"),
                   this),
        "Label1"));
    Label1->setWordWrap(true);

    lblFound_ = static_cast<QLabel*>(named(new QLabel(this), "lblFound"));
    found_ = new FoundWordsModel(app_, this);
    lstFound_ = static_cast<QTableView*>(named(new QTableView(this), "lstFound"));
    lstFound_->setModel(found_);
    lstFound_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstFound_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstFound_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstFound_->verticalHeader()->hide();
    lstFound_->horizontalHeader()->setStretchLastSection(true);
    lstFound_->setToolTip(QStringLiteral("Double-click a word to show it"));
    lblFound_->hide();
    lstFound_->hide();

    auto* checks = new QVBoxLayout;
    for (QCheckBox* c : {ChkExact_, chkExactWord_, chkCase_, chkIgnoreVariants_})
        checks->addWidget(c);
    checks->addStretch();
    auto* options = new QHBoxLayout;
    options->addWidget(Frame1_);
    options->addLayout(checks);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdTypewriter_);
    buttons->addStretch();
    buttons->addWidget(cmdFindAll_);
    buttons->addWidget(cmdOk_);
    buttons->addWidget(cmdCancel_);

    // The side margins add up to less than the 400 twips the search box leaves free.
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(13, 10, 13, 10);
    box->addWidget(txtSearch_, 0, Qt::AlignLeft);
    box->addLayout(options);
    box->addWidget(Label1);
    box->addLayout(buttons);
    box->addWidget(lblFound_);
    box->addWidget(lstFound_, 1);

    connect(txtSearch_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (!refreshing_) app_.search.txtSearch = t.toStdString();
    });
    const std::pair<QRadioButton*, int> fields[] = {{optMeaning_, FieldMeaning},
                                                    {optTranslit_, FieldTranslit},
                                                    {optGardiner_, FieldGardiner},
                                                    {optComment_, FieldComment}};
    for (auto [button, field] : fields) {
        connect(button, &QRadioButton::toggled, this, [this, field = field](bool on) {
            if (on && !refreshing_) choose(field);
        });
    }
    connect(ChkExact_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        SearchSetExact(app_, on ? 1 : 0);
        refresh();
    });
    connect(chkExactWord_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        SearchSetExactWord(app_, on ? 1 : 0);
        refresh();
    });
    connect(chkCase_, &QCheckBox::toggled, this, [this](bool on) {
        if (!refreshing_) app_.search.chkCase = on ? 1 : 0;
    });
    connect(chkIgnoreVariants_, &QCheckBox::toggled, this, [this](bool on) {
        if (!refreshing_) app_.search.chkIgnoreVariants = on ? 1 : 0;
    });
    connect(cmdTypewriter_, &QPushButton::clicked, this, &SearchDialog::typewriterRequested);
    connect(cmdOk_, &QPushButton::clicked, this, &SearchDialog::ok);
    connect(cmdCancel_, &QPushButton::clicked, this, &SearchDialog::cancel);
    connect(cmdFindAll_, &QPushButton::clicked, this, &SearchDialog::findAll);
    connect(lstFound_, &QTableView::doubleClicked, this, &SearchDialog::showFound);

    if (!app_.search.loaded) SearchDialogLoad(app_);
    refresh();
}

void SearchDialog::refresh() {
    refreshing_ = true;
    const SearchDialogState& d = app_.search;
    const QString text = qs(d.txtSearch);
    if (txtSearch_->text() != text) txtSearch_->setText(text);
    optMeaning_->setChecked(d.option == FieldMeaning);
    optTranslit_->setChecked(d.option == FieldTranslit);
    optGardiner_->setChecked(d.option == FieldGardiner);
    optComment_->setChecked(d.option == FieldComment);
    ChkExact_->setChecked(d.ChkExact == 1);
    chkExactWord_->setChecked(d.chkExactWord == 1);
    chkCase_->setChecked(d.chkCase == 1);
    chkIgnoreVariants_->setChecked(d.chkIgnoreVariants == 1);
    chkIgnoreVariants_->setEnabled(d.chkIgnoreVariantsEnabled);
    cmdTypewriter_->setEnabled(d.cmdTypewriterEnabled);
    QPalette pal = txtSearch_->palette();
    if (d.transliterationFont) {
        txtSearch_->setFont(LetterColumn::transliterationFont(10));
        pal.setColor(QPalette::Text, QColor(0, 0, 255));
    } else {
        txtSearch_->setFont(font());
        pal.setColor(QPalette::Text, QColor(0, 0, 0));
    }
    txtSearch_->setPalette(pal);
    refreshing_ = false;
}

void SearchDialog::choose(int field) {
    SearchChooseOption(app_, field);
    refresh();
    txtSearch_->setFocus();
}

void SearchDialog::ok() {
    if (SearchOk(app_)) hide();
}

void SearchDialog::cancel() {
    close();
}

void SearchDialog::closeEvent(QCloseEvent* e) {
    // Closed by its Cancel button, Escape or the window's close button: all are Cancel.
    if (app_.search.loaded) SearchCancel(app_);
    e->accept();
}

void SearchDialog::reject() {
    close();
}

void SearchDialog::hideEvent(QHideEvent* e) {
    QDialog::hideEvent(e);
    if (!e->spontaneous()) {
        app_.search.visible = false;
        Q_EMIT left();
    }
}

void SearchDialog::resizeEvent(QResizeEvent* e) {
    QDialog::resizeEvent(e);
    if (windowState() & Qt::WindowMinimized) return;
    const int widthTwips = width() * TwipsPerPixel;
    const int wanted = SearchDialogWidth(widthTwips);
    if (wanted != widthTwips) {
        resize((wanted + TwipsPerPixel - 1) / TwipsPerPixel, height());
        return;
    }
    txtSearch_->setFixedWidth(
        static_cast<int>(std::lround(SearchTextWidth(widthTwips) / double(TwipsPerPixel))));
}

bool SearchDialog::eventFilter(QObject* watched, QEvent* e) {
    if (watched == txtSearch_ && e->type() == QEvent::FocusIn) SearchTextFocused(app_);
    return QDialog::eventFilter(watched, e);
}

void SearchDialog::findAll() {
    const SearchDialogState& d = app_.search;
    if (d.txtSearch.empty()) {
        app_.dialogs.message("You must write something in the search box", "Null String",
                             Buttons::OK, Icon::Exclamation);
        return;
    }
    try {
        const SearchCriteria c = PrepareCriteria(d.txtSearch, d.ChkExact, d.chkExactWord, d.chkCase,
                                                 d.chkIgnoreVariants != 0);
        found_->setWords(FindAll(app_.store, c, d.option));
        foundCriteria_ = c;
        foundField_ = d.option;
    } catch (const RunError& e) {
        app_.dialogs.message(e.report(), "", Buttons::OK, Icon::Critical);
        return;
    }
    const int n = found_->rowCount();
    lblFound_->setText(n == 1 ? QStringLiteral("1 word found")
                              : QStringLiteral("%1 words found").arg(n));
    const bool wasHidden = lstFound_->isHidden();
    lblFound_->show();
    lstFound_->show();
    lstFound_->resizeColumnsToContents();
    if (wasHidden) resize(std::max(width(), 520), height() + 240);
}

void SearchDialog::showFound(const QModelIndex& index) {
    if (!index.isValid()) return;
    const int w = found_->wordAt(index.row());
    if (w > app_.store.lastIndex) return;
    // Find Next and Find Previous go on from here with the same criteria.
    app_.searchCriteria = foundCriteria_;
    app_.searchField = foundField_;
    app_.store.currentIndex = w;
    app_.renderWord(app_);
}

} // namespace nebkaro
