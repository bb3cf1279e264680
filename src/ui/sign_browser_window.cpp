#include "ui/sign_browser_window.h"

#include "core/guarded.h"
#include "display/qstring_qt.h"
#include "ui/screen_fit.h"
#include "ui/sign_pixmap.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEventLoop>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <functional>

namespace nebkaro::ui {

namespace {

// A page picture: a click aims the typewriter, a double-click chooses the sign.
class PagePicture : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> clicked;
    std::function<void()> doubleClicked;

protected:
    void mousePressEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton && clicked) clicked();
        QLabel::mousePressEvent(e);
    }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton && doubleClicked) doubleClicked();
    }
};

QRect rectPx(int left, int top, int width, int height) {
    return QRect(px(left), px(top), px(width), px(height));
}

} // namespace

SignBrowserWindow::SignBrowserWindow(App& app, QWidget* parent)
    : QWidget(parent, Qt::Window), app_(app), model_(app) {
    setObjectName("Lookup");
    setWindowTitle("Lookup");
    setFixedSize(px(BrowserGeometry::Width), px(BrowserGeometry::Height));

    buildCategoryRow();
    buildNavigation();
    buildSearchRow();
    buildOptionsRow();
    buildPage();

    command([&] { model_.open(); });
}

void SignBrowserWindow::buildCategoryRow() {
    categoryCombo_ = new QComboBox(this);
    categoryCombo_->setObjectName("cmbCategory");
    for (const std::string& name : SignBrowser::categories()) categoryCombo_->addItem(qs(name));
    categoryCombo_->setGeometry(rectPx(120, 120, 4200, 345));
    connect(categoryCombo_, &QComboBox::activated, this,
            [this](int index) { command([&] { model_.showCategory(index); }); });

    libraryLabel_ = new QLabel(this);
    libraryLabel_->setObjectName("lblLibrary");
    libraryLabel_->setGeometry(rectPx(4440, 150, 3240, 255));
    libraryLabel_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void SignBrowserWindow::buildNavigation() {
    struct Nav {
        const char* name;
        const char* caption;
        const char* tip;
        void (SignBrowser::*run)();
    };
    const Nav navs[] = {
        {"cmdPrevcat", "< Category", "Previous category", &SignBrowser::showPreviousCategory},
        {"cmdFirst", "First", "First page", &SignBrowser::showFirstPage},
        {"cmdPrev", "Previous", "Previous page", &SignBrowser::showPreviousPage},
        {"cmdNext", "Next", "Next page", &SignBrowser::showNextPage},
        {"cmdLast", "Last", "First page of the last category", &SignBrowser::showLastPage},
        {"cmdNextCat", "Category >", "Next category", &SignBrowser::showNextCategory},
    };
    int left = 120;
    for (const Nav& n : navs) {
        auto* b = new QPushButton(n.caption, this);
        b->setObjectName(n.name);
        b->setToolTip(n.tip);
        b->setGeometry(rectPx(left, 570, 1200, 375));
        const auto run = n.run;
        connect(b, &QPushButton::clicked, this, [this, run] { command([&] { (model_.*run)(); }); });
        left += 1260;
    }
}

void SignBrowserWindow::buildSearchRow() {
    auto* codeLabel = new QLabel("Code", this);
    codeLabel->setGeometry(rectPx(120, 1095, 570, 255));
    glyphBox_ = new QLineEdit(this);
    glyphBox_->setObjectName("txtGlyph");
    glyphBox_->setGeometry(rectPx(690, 1050, 1400, 345));
    auto* goToCode = new QPushButton("Go", this);
    goToCode->setObjectName("cmdGo");
    goToCode->setGeometry(rectPx(2150, 1035, 600, 375));

    auto* transLabel = new QLabel("Transliteration", this);
    transLabel->setObjectName("lblTrans");
    transLabel->setGeometry(rectPx(2950, 1095, 1450, 255));
    transBox_ = new QLineEdit(this);
    transBox_->setObjectName("txtTrans");
    transBox_->setFont(QFont("Transliteration"));
    transBox_->setGeometry(rectPx(4450, 1050, 1500, 345));
    auto* goToTransliteration = new QPushButton("Go", this);
    goToTransliteration->setObjectName("cmdGoTrans");
    goToTransliteration->setGeometry(rectPx(6010, 1035, 600, 375));

    // While one of the boxes is being typed in, Enter runs its own Go button.
    auto goCode = [this] { command([&] { model_.goToCode(); }); };
    auto goTrans = [this] { command([&] { model_.goToTransliteration(); }); };
    connect(goToCode, &QPushButton::clicked, this, goCode);
    connect(glyphBox_, &QLineEdit::returnPressed, this, goCode);
    connect(goToTransliteration, &QPushButton::clicked, this, goTrans);
    connect(transBox_, &QLineEdit::returnPressed, this, goTrans);
}

void SignBrowserWindow::buildOptionsRow() {
    showTransCheck_ = new QCheckBox("Show transliteration", this);
    showTransCheck_->setObjectName("chkShowTrans");
    showTransCheck_->setGeometry(rectPx(120, 1500, 2400, 300));
    // Checking the box takes effect at the next painting of a page.
    connect(showTransCheck_, &QCheckBox::toggled, this,
            [this](bool on) { model_.showTransChecked = on; });

    auto* openTypewriter = new QPushButton("Typewriter", this);
    openTypewriter->setObjectName("cmdTypewriter");
    openTypewriter->setToolTip("Show Typewriter");
    openTypewriter->setGeometry(rectPx(2640, 1470, 1300, 375));
    connect(openTypewriter, &QPushButton::clicked, this,
            [this] { command([&] { model_.openTypewriter(); }); });

    categoryLabel_ = new QLabel(this);
    categoryLabel_->setObjectName("lblCategory");
    categoryLabel_->setGeometry(rectPx(120, 1890, 7560, 270));
    QFont bold = categoryLabel_->font();
    bold.setBold(true);
    categoryLabel_->setFont(bold);
}

void SignBrowserWindow::buildPage() {
    for (int i = 0; i < SignBrowser::PageSize; ++i) {
        auto* pic = new PagePicture(this);
        pic->setObjectName(QString("picGlyph%1").arg(i));
        pic->clicked = [this, i] { model_.pictureClicked(i); };
        pic->doubleClicked = [this, i] { choose(i); };
        glyphPictures_[static_cast<std::size_t>(i)] = pic;

        auto* code = new QLabel(this);
        code->setObjectName(QString("lblGlyph%1").arg(i));
        code->setAlignment(Qt::AlignCenter);
        glyphLabel_[static_cast<std::size_t>(i)] = code;

        auto* translit = new QLabel("Trans", this);
        translit->setObjectName(QString("lblTranslit%1").arg(i));
        translit->setToolTip("Transliteration");
        translit->setAlignment(Qt::AlignCenter);
        translit->setFont(QFont("Transliteration"));
        translit->hide();
        translitLabel_[static_cast<std::size_t>(i)] = translit;
    }
}

template <typename F> void SignBrowserWindow::command(F&& f) {
    // The boxes hold what the user typed; the browser works on that.
    model_.glyphText = glyphBox_->text().toStdString();
    model_.transText = transBox_->text().toStdString();
    runGuarded(app_, f);
    refresh();
}

void SignBrowserWindow::refresh() {
    libraryLabel_->setText(qs(model_.libraryLabel));
    categoryLabel_->setText(qs(model_.categoryLabel));
    categoryCombo_->setCurrentIndex(model_.categoryIndex);
    glyphBox_->setText(qs(model_.glyphText));
    transBox_->setText(qs(model_.transText));
    showTransCheck_->setChecked(model_.showTransChecked);
    const int labelHeight = px(BrowserGeometry::LabelHeight);
    for (int i = 0; i < SignBrowser::PageSize; ++i) {
        const BrowserPicture& p = model_.glyphPictures[static_cast<std::size_t>(i)];
        QLabel* pic = glyphPictures_[static_cast<std::size_t>(i)];
        QLabel* code = glyphLabel_[static_cast<std::size_t>(i)];
        QLabel* translit = translitLabel_[static_cast<std::size_t>(i)];
        code->setText(qs(p.glyphLabel));
        if (!p.visible) {
            pic->hide();
            pic->clear();
            code->hide();
            translit->hide();
            continue;
        }
        const QPixmap pixmap = signPixmap(p.picture, 1.0, pic->devicePixelRatioF());
        pic->setPixmap(pixmap);
        const QSize size = pixmap.deviceIndependentSize().toSize();
        pic->setGeometry(px(p.left), px(p.top), size.width(), size.height());
        pic->setToolTip(qs(p.tooltip));
        pic->show();
        const int centre = px(p.labelCentre);
        const int codeWidth = std::max(code->fontMetrics().horizontalAdvance(code->text()) + 6, 20);
        code->setGeometry(centre - codeWidth / 2, px(p.codeTop), codeWidth, labelHeight);
        code->show();
        if (p.translitVisible) {
            translit->setText(qs(p.translitLabel));
            const int w =
                std::max(translit->fontMetrics().horizontalAdvance(translit->text()) + 6, 20);
            translit->setGeometry(centre - w / 2, px(p.translitTop), w, labelHeight);
            translit->show();
        } else {
            translit->hide();
        }
    }
}

void SignBrowserWindow::choose(int i) {
    if (!model_.choose(i)) return;
    chose_ = true;
    hide();
}

void SignBrowserWindow::showEvent(QShowEvent* event) {
    chose_ = false;
    QWidget::showEvent(event);
}

void SignBrowserWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit hidden();
}

SignBrowserHost::~SignBrowserHost() {
    delete window_.data();
}

SignBrowserWindow* SignBrowserHost::window() {
    if (!window_) window_ = new SignBrowserWindow(app_);
    return window_;
}

void SignBrowserHost::show() {
    SignBrowserWindow* w = window();
    w->show();
    fitOnScreen(w);
    w->raise();
    w->activateWindow();
}

bool SignBrowserHost::chooseSign() {
    if (waiting_) {
        // Already waiting for this window: bring it forward rather than wait twice.
        show();
        return false;
    }
    show();
    QPointer<SignBrowserWindow> w = window_;
    QEventLoop loop;
    QObject::connect(w, &SignBrowserWindow::hidden, &loop, &QEventLoop::quit);
    QObject::connect(w, &QObject::destroyed, &loop, &QEventLoop::quit);
    waiting_ = true;
    if (w->isVisible()) loop.exec();
    waiting_ = false;
    return w && w->choseSign();
}

void SignBrowserHost::unload() {
    if (!window_) return;
    window_->hide();
    window_->deleteLater();
    window_ = nullptr;
}

} // namespace nebkaro::ui
