#include "bulk/search_dialog.h"
#include "bulk/search.h"
#include "bulk/sign_search.h"
#include "core/app.h"
#include "core/errors.h"
#include "core/twips.h"
#include "display/qstring_qt.h"
#include "display/word_picture_qt.h"
#include "print/word_picture.h"

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
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

namespace nebkaro {

namespace {
template <class W> W* named(W* w, const char* name) {
    w->setObjectName(QString::fromLatin1(name));
    return w;
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
    return parent.isValid() ? 0 : 5;
}

QPixmap FoundWordsModel::picture(int w) const {
    const WordRecord& word = app_.store.row(w);
    auto it = pictures_.find(w);
    if (it != pictures_.end() && it->second.first == word[FieldLayout]) return it->second.second;
    QPixmap small;
    try {
        const QImage image = wordPictureImage(print::pictureOfRecord(app_.pictures, word));
        // Only ever shrunk: a one-sign word stays as sharp as its picture.
        small =
            QPixmap::fromImage(image.height() > PictureHeight
                                   ? image.scaledToHeight(PictureHeight, Qt::SmoothTransformation)
                                   : image);
    } catch (const RunError&) {
        // A layout that cannot be read has no picture; its texts still show.
    }
    // Only the rows on screen are drawn, so the cache stays small unless the user scrolls
    // through thousands of words; then it starts again.
    if (pictures_.size() > 2000) pictures_.clear();
    pictures_[w] = {word[FieldLayout], small};
    return small;
}

QVariant FoundWordsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const int w = wordAt(index.row());
    const int column = index.column();
    if (role == Qt::DisplayRole) {
        if (column == 0) return w;
        // The dictionary may have shrunk since the list was made.
        if (w > app_.store.lastIndex || column == 1) return {};
        static constexpr int fields[] = {0, 0, FieldGardiner, FieldTranslit, FieldMeaning};
        return qs(app_.store.field(w, fields[column]));
    }
    if (role == Qt::DecorationRole && column == 1 && w <= app_.store.lastIndex) return picture(w);
    if (role == Qt::FontRole && column == 3) return LetterColumn::transliterationFont(11);
    if (role == Qt::TextAlignmentRole && column == 0)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant FoundWordsModel::headerData(int section, Qt::Orientation o, int role) const {
    if (o != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const char* titles[] = {"Index", "Word", "Gardiner's notation", "Transliteration",
                                   "Meaning"};
    return QString::fromLatin1(titles[section]);
}

SearchDialog::SearchDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName(QStringLiteral("Search"));
    setWindowTitle(QStringLiteral("Search"));
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth((SearchDialogMinWidth + TwipsPerPixel - 1) / TwipsPerPixel);

    searchBox_ = named(new QLineEdit(this), "txtSearch");
    searchBox_->installEventFilter(this);

    QLayout* options = buildOptions();
    QLayout* buttons = buildButtons();
    auto* plainLetters = named(
        new QLabel(QStringLiteral("Wildcards: / = 0 or more characters; ? = any one character"),
                   this),
        "Label1");
    plainLetters->setWordWrap(true);

    buildFoundList();

    // The side margins add up to less than the 400 twips the search box leaves free.
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(13, 10, 13, 10);
    box->addWidget(searchBox_, 0, Qt::AlignLeft);
    box->addLayout(options);
    box->addWidget(plainLetters);
    box->addLayout(buttons);
    box->addWidget(foundLabel_);
    box->addWidget(foundList_, 1);

    connectEntries();
    connect(typewriterButton_, &QPushButton::clicked, this, &SearchDialog::typewriterRequested);
    connect(pickSignButton_, &QPushButton::clicked, this, &SearchDialog::pickSign);
    connect(okButton_, &QPushButton::clicked, this, &SearchDialog::ok);
    connect(cancelButton_, &QPushButton::clicked, this, &SearchDialog::cancel);
    connect(findAllButton_, &QPushButton::clicked, this, [this] { updateFound(false); });
    connect(foundList_, &QTableView::doubleClicked, this, &SearchDialog::showFound);

    if (!app_.search.loaded) searchDialogLoad(app_);
    refresh();
}

QLayout* SearchDialog::buildOptions() {
    optionsFrame_ = named(new QGroupBox(QStringLiteral("Search By:"), this), "Frame1");
    meaningOption_ = named(new QRadioButton(QStringLiteral("Meaning")), "optMeaning");
    translitOption_ = named(new QRadioButton(QStringLiteral("Transliteration")), "optTranslit");
    gardinerOption_ = named(new QRadioButton(QStringLiteral("Gardiner's notation")), "optGardiner");
    commentOption_ = named(new QRadioButton(QStringLiteral("Comment")), "optComment");
    signsOption_ = named(new QRadioButton(QStringLiteral("Signs")), "optSigns");
    signsOption_->setToolTip(QStringLiteral("Words written with all these signs, in any order: "
                                            "codes or phonetic values, such as G17 D21 or m r"));
    auto* frameBox = new QVBoxLayout(optionsFrame_);
    for (QRadioButton* o :
         {meaningOption_, translitOption_, gardinerOption_, commentOption_, signsOption_})
        frameBox->addWidget(o);

    exactCheck_ = named(new QCheckBox(QStringLiteral("Exact match"), this), "ChkExact");
    exactWordCheck_ = named(new QCheckBox(QStringLiteral("Exact word"), this), "chkExactWord");
    caseCheck_ = named(new QCheckBox(QStringLiteral("Case sensitive"), this), "chkCase");
    ignoreVariantsCheck_ =
        named(new QCheckBox(QStringLiteral("Ignore Variants"), this), "chkIgnoreVariants");
    ignoreVariantsCheck_->setToolTip(
        QStringLiteral("Consider variants same as base glyph: A1 = A1a = A1b etc."));

    auto* checks = new QVBoxLayout;
    for (QCheckBox* c : {exactCheck_, exactWordCheck_, caseCheck_, ignoreVariantsCheck_})
        checks->addWidget(c);
    checks->addStretch();
    auto* options = new QHBoxLayout;
    options->addWidget(optionsFrame_);
    options->addLayout(checks);
    return options;
}

QLayout* SearchDialog::buildButtons() {
    typewriterButton_ = named(new QPushButton(QStringLiteral("Typewriter"), this), "cmdTypewriter");
    typewriterButton_->setToolTip(QStringLiteral("Show Typewriter"));
    okButton_ = named(new QPushButton(QStringLiteral("OK"), this), "cmdOk");
    okButton_->setDefault(true);
    cancelButton_ = named(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel");
    findAllButton_ = named(new QPushButton(QStringLiteral("Find All"), this), "cmdFindAll");
    findAllButton_->setToolTip(QStringLiteral("List every word that matches"));
    pickSignButton_ = named(new QPushButton(QStringLiteral("Pick Sign..."), this), "cmdPickSign");
    pickSignButton_->setToolTip(QStringLiteral("Add a sign chosen in the sign list"));
    for (QPushButton* b : {typewriterButton_, cancelButton_, findAllButton_, pickSignButton_})
        b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(typewriterButton_);
    buttons->addWidget(pickSignButton_);
    buttons->addStretch();
    buttons->addWidget(findAllButton_);
    buttons->addWidget(okButton_);
    buttons->addWidget(cancelButton_);
    return buttons;
}

void SearchDialog::buildFoundList() {
    foundLabel_ = named(new QLabel(this), "lblFound");
    found_ = new FoundWordsModel(app_, this);
    foundList_ = named(new QTableView(this), "lstFound");
    foundList_->setModel(found_);
    foundList_->setSelectionBehavior(QAbstractItemView::SelectRows);
    foundList_->setSelectionMode(QAbstractItemView::SingleSelection);
    foundList_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    foundList_->verticalHeader()->hide();
    foundList_->horizontalHeader()->setStretchLastSection(true);
    foundList_->verticalHeader()->setDefaultSectionSize(FoundWordsModel::PictureHeight + 6);
    foundList_->setIconSize(QSize(400, FoundWordsModel::PictureHeight));
    // Fitting a column reads only the first rows, not a hundred thousand pictures.
    foundList_->horizontalHeader()->setResizeContentsPrecision(50);
    foundList_->setToolTip(QStringLiteral("Double-click a word to show it"));
    foundLabel_->hide();
    foundList_->hide();
}

void SearchDialog::connectEntries() {
    // The list follows the entries as soon as the typing leaves the event loop free: a
    // search of the whole dictionary takes a few milliseconds, and keys typed faster than
    // that are taken together.
    liveTimer_ = new QTimer(this);
    liveTimer_->setSingleShot(true);
    liveTimer_->setInterval(0);
    connect(liveTimer_, &QTimer::timeout, this, [this] { updateFound(true); });
    connect(searchBox_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (refreshing_) return;
        searchTextChanged(app_, t.toStdString());
        refreshing_ = true;
        showKeptText(searchBox_, t, qs(app_.search.searchText));
        refreshing_ = false;
        entriesChanged();
    });
    const std::pair<QRadioButton*, int> fields[] = {{meaningOption_, FieldMeaning},
                                                    {translitOption_, FieldTranslit},
                                                    {gardinerOption_, FieldGardiner},
                                                    {commentOption_, FieldComment},
                                                    {signsOption_, FieldLayout}};
    for (auto [button, field] : fields) {
        connect(button, &QRadioButton::toggled, this, [this, field = field](bool on) {
            if (on && !refreshing_) choose(field);
        });
    }
    connect(exactCheck_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        searchSetExact(app_, on);
        refresh();
        entriesChanged();
    });
    connect(exactWordCheck_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        searchSetExactWord(app_, on);
        refresh();
        entriesChanged();
    });
    connect(caseCheck_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        app_.search.caseChecked = on;
        entriesChanged();
    });
    connect(ignoreVariantsCheck_, &QCheckBox::toggled, this, [this](bool on) {
        if (refreshing_) return;
        app_.search.ignoreVariantsChecked = on;
        entriesChanged();
    });
}

void SearchDialog::refresh() {
    refreshing_ = true;
    const SearchDialogState& d = app_.search;
    const QString text = qs(d.searchText);
    if (searchBox_->text() != text) searchBox_->setText(text);
    meaningOption_->setChecked(d.option == FieldMeaning);
    translitOption_->setChecked(d.option == FieldTranslit);
    gardinerOption_->setChecked(d.option == FieldGardiner);
    commentOption_->setChecked(d.option == FieldComment);
    signsOption_->setChecked(d.option == FieldLayout);
    exactCheck_->setChecked(d.exactChecked);
    exactWordCheck_->setChecked(d.exactWordChecked);
    caseCheck_->setChecked(d.caseChecked);
    ignoreVariantsCheck_->setChecked(d.ignoreVariantsChecked);
    ignoreVariantsCheck_->setEnabled(d.ignoreVariantsEnabled);
    typewriterButton_->setEnabled(d.typewriterEnabled);
    pickSignButton_->setEnabled(d.option == FieldLayout);
    QPalette pal = searchBox_->palette();
    if (d.transliterationFont) {
        searchBox_->setFont(LetterColumn::transliterationFont(10));
        pal.setColor(QPalette::Text, QColor(0, 0, 255));
    } else {
        searchBox_->setFont(font());
        pal.setColor(QPalette::Text, QColor(0, 0, 0));
    }
    searchBox_->setPalette(pal);
    refreshing_ = false;
}

void SearchDialog::choose(int field) {
    searchChooseOption(app_, field);
    refresh();
    searchBox_->setFocus();
    entriesChanged();
}

void SearchDialog::entriesChanged() {
    // Typing into an empty list that was never asked for stays quiet until there is text.
    if (app_.search.searchText.empty() && foundList_->isHidden()) return;
    liveTimer_->start();
}

void SearchDialog::pickSign() {
    if (!app_.windows->chooseSignFromBrowser()) return;
    std::string& text = app_.search.searchText;
    if (!text.empty() && text.back() != ' ') text += ' ';
    text += app_.chosenSign.code;
    refresh();
    entriesChanged();
}

std::vector<int> SearchDialog::foundWords() const {
    return foundList_->isHidden() ? std::vector<int>{} : found_->words();
}

void SearchDialog::ok() {
    if (searchOk(app_)) hide();
}

void SearchDialog::cancel() {
    close();
}

void SearchDialog::closeEvent(QCloseEvent* e) {
    // Closed by its Cancel button, Escape or the window's close button: all are Cancel.
    if (app_.search.loaded) searchCancel(app_);
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
    const int wanted = searchDialogWidth(widthTwips);
    if (wanted != widthTwips) {
        resize((wanted + TwipsPerPixel - 1) / TwipsPerPixel, height());
        return;
    }
    searchBox_->setFixedWidth(
        static_cast<int>(std::lround(searchTextWidth(widthTwips) / double(TwipsPerPixel))));
}

bool SearchDialog::eventFilter(QObject* watched, QEvent* e) {
    if (watched == searchBox_ && e->type() == QEvent::FocusIn) searchTextFocused(app_);
    return QDialog::eventFilter(watched, e);
}

void SearchDialog::updateFound(bool live) {
    liveTimer_->stop();
    const SearchDialogState& d = app_.search;
    auto showList = [&](const QString& label) {
        foundLabel_->setText(label);
        const bool wasHidden = foundList_->isHidden();
        foundLabel_->show();
        foundList_->show();
        if (wasHidden) resize(std::max(width(), 640), height() + 260);
    };
    if (d.searchText.empty()) {
        if (!live) {
            app_.dialogs.message("You must write something in the search box", "Null String",
                                 Buttons::OK, Icon::Exclamation);
            return;
        }
        found_->setWords({});
        showList(QStringLiteral("Type something to search"));
        return;
    }
    try {
        if (d.option == FieldLayout) {
            const SignQueryReading r =
                readSignQuery(app_.lists, d.searchText, d.ignoreVariantsChecked);
            if (!r.unknown.empty()) {
                if (!live)
                    app_.dialogs.message(r.unknown + " was not found", "Phonetic Not Found",
                                         Buttons::OK, Icon::Exclamation);
                found_->setWords({});
                showList(qs(r.unknown + " is neither a sign code nor a phonetic value"));
                return;
            }
            found_->setWords(findAllBySigns(app_.store, r.query));
            foundCriteria_ = SearchCriteria{};
            foundCriteria_.pattern = signQueryText(r.query);
            foundCriteria_.caseSensitive = true;
            foundCriteria_.ignoreVariants = r.query.foldVariants;
        } else {
            const SearchCriteria c =
                prepareCriteria(d.searchText, d.exactChecked, d.exactWordChecked, d.caseChecked,
                                d.ignoreVariantsChecked);
            found_->setWords(findAll(app_.store, c, d.option));
            foundCriteria_ = c;
        }
        foundField_ = d.option;
    } catch (const RunError& e) {
        if (!live) app_.dialogs.message(e.report(), "", Buttons::OK, Icon::Critical);
        found_->setWords({});
        showList(qs(e.report()));
        return;
    }
    const int n = found_->rowCount();
    showList(n == 1 ? QStringLiteral("1 word found") : QStringLiteral("%1 words found").arg(n));
    // Columns are fitted once, when the list first has words, so that they do not jump while
    // the user types; the pictures get room for a few signs.
    if (!columnsFitted_ && n > 0) {
        columnsFitted_ = true;
        for (int column : {0, 2, 3}) foundList_->resizeColumnToContents(column);
        foundList_->setColumnWidth(1, 170);
    }
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
