#include "ui/lookup_window.h"

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

LookupWindow::LookupWindow(App& app, QWidget* parent)
    : QWidget(parent, Qt::Window), app_(app), model_(app) {
    setObjectName("Lookup");
    setWindowTitle("Lookup");
    setFixedSize(px(BrowserGeometry::Width), px(BrowserGeometry::Height));

    buildCategoryRow();
    buildNavigation();
    buildSearchRow();
    buildOptionsRow();
    buildPage();

    command([&] { model_.Load(); });
}

void LookupWindow::buildCategoryRow() {
    cmbCategory_ = new QComboBox(this);
    cmbCategory_->setObjectName("cmbCategory");
    for (const std::string& name : SignBrowser::Categories()) cmbCategory_->addItem(qs(name));
    cmbCategory_->setGeometry(rectPx(120, 120, 4200, 345));
    connect(cmbCategory_, &QComboBox::activated, this,
            [this](int index) { command([&] { model_.cmbCategoryClick(index); }); });

    lblLibrary_ = new QLabel(this);
    lblLibrary_->setObjectName("lblLibrary");
    lblLibrary_->setGeometry(rectPx(4440, 150, 3240, 255));
    lblLibrary_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void LookupWindow::buildNavigation() {
    struct Nav {
        const char* name;
        const char* caption;
        const char* tip;
        void (SignBrowser::*run)();
    };
    const Nav navs[] = {
        {"cmdPrevcat", "< Category", "Previous category", &SignBrowser::cmdPrevcat},
        {"cmdFirst", "First", "First page", &SignBrowser::cmdFirst},
        {"cmdPrev", "Previous", "Previous page", &SignBrowser::cmdPrev},
        {"cmdNext", "Next", "Next page", &SignBrowser::cmdNext},
        {"cmdLast", "Last", "First page of the last category", &SignBrowser::cmdLast},
        {"cmdNextCat", "Category >", "Next category", &SignBrowser::cmdNextCat},
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

void LookupWindow::buildSearchRow() {
    auto* lblCode = new QLabel("Code", this);
    lblCode->setGeometry(rectPx(120, 1095, 570, 255));
    txtGlyph_ = new QLineEdit(this);
    txtGlyph_->setObjectName("txtGlyph");
    txtGlyph_->setGeometry(rectPx(690, 1050, 1400, 345));
    auto* cmdGo = new QPushButton("Go", this);
    cmdGo->setObjectName("cmdGo");
    cmdGo->setGeometry(rectPx(2150, 1035, 600, 375));

    auto* lblTrans = new QLabel("Transliteration", this);
    lblTrans->setObjectName("lblTrans");
    lblTrans->setGeometry(rectPx(2950, 1095, 1450, 255));
    txtTrans_ = new QLineEdit(this);
    txtTrans_->setObjectName("txtTrans");
    txtTrans_->setFont(QFont("Transliteration"));
    txtTrans_->setGeometry(rectPx(4450, 1050, 1500, 345));
    auto* cmdGoTrans = new QPushButton("Go", this);
    cmdGoTrans->setObjectName("cmdGoTrans");
    cmdGoTrans->setGeometry(rectPx(6010, 1035, 600, 375));

    // While one of the boxes is being typed in, Enter runs its own Go button.
    auto goCode = [this] { command([&] { model_.cmdGo(); }); };
    auto goTrans = [this] { command([&] { model_.cmdGoTrans(); }); };
    connect(cmdGo, &QPushButton::clicked, this, goCode);
    connect(txtGlyph_, &QLineEdit::returnPressed, this, goCode);
    connect(cmdGoTrans, &QPushButton::clicked, this, goTrans);
    connect(txtTrans_, &QLineEdit::returnPressed, this, goTrans);
}

void LookupWindow::buildOptionsRow() {
    chkShowTrans_ = new QCheckBox("Show transliteration", this);
    chkShowTrans_->setObjectName("chkShowTrans");
    chkShowTrans_->setGeometry(rectPx(120, 1500, 2400, 300));
    // Checking the box takes effect at the next painting of a page.
    connect(chkShowTrans_, &QCheckBox::toggled, this,
            [this](bool on) { model_.chkShowTrans = on; });

    auto* cmdTypewriter = new QPushButton("Typewriter", this);
    cmdTypewriter->setObjectName("cmdTypewriter");
    cmdTypewriter->setToolTip("Show Typewriter");
    cmdTypewriter->setGeometry(rectPx(2640, 1470, 1300, 375));
    connect(cmdTypewriter, &QPushButton::clicked, this,
            [this] { command([&] { model_.cmdTypewriter(); }); });

    lblCategory_ = new QLabel(this);
    lblCategory_->setObjectName("lblCategory");
    lblCategory_->setGeometry(rectPx(120, 1890, 7560, 270));
    QFont bold = lblCategory_->font();
    bold.setBold(true);
    lblCategory_->setFont(bold);
}

void LookupWindow::buildPage() {
    for (int i = 0; i < SignBrowser::PageSize; ++i) {
        auto* pic = new PagePicture(this);
        pic->setObjectName(QString("picGlyph%1").arg(i));
        pic->clicked = [this, i] { model_.PictureClicked(i); };
        pic->doubleClicked = [this, i] { choose(i); };
        picGlyph_[static_cast<std::size_t>(i)] = pic;

        auto* code = new QLabel(this);
        code->setObjectName(QString("lblGlyph%1").arg(i));
        code->setAlignment(Qt::AlignCenter);
        lblGlyph_[static_cast<std::size_t>(i)] = code;

        auto* translit = new QLabel("Trans", this);
        translit->setObjectName(QString("lblTranslit%1").arg(i));
        translit->setToolTip("Transliteration");
        translit->setAlignment(Qt::AlignCenter);
        translit->setFont(QFont("Transliteration"));
        translit->hide();
        lblTranslit_[static_cast<std::size_t>(i)] = translit;
    }
}

template <typename F> void LookupWindow::command(F&& f) {
    // The boxes hold what the user typed; the browser works on that.
    model_.txtGlyph = txtGlyph_->text().toStdString();
    model_.txtTrans = txtTrans_->text().toStdString();
    runGuarded(app_, f);
    refresh();
}

void LookupWindow::refresh() {
    lblLibrary_->setText(qs(model_.lblLibrary));
    lblCategory_->setText(qs(model_.lblCategory));
    cmbCategory_->setCurrentIndex(model_.cmbCategoryIndex);
    txtGlyph_->setText(qs(model_.txtGlyph));
    txtTrans_->setText(qs(model_.txtTrans));
    chkShowTrans_->setChecked(model_.chkShowTrans);
    const int labelHeight = px(BrowserGeometry::LabelHeight);
    for (int i = 0; i < SignBrowser::PageSize; ++i) {
        const BrowserPicture& p = model_.picGlyph[static_cast<std::size_t>(i)];
        QLabel* pic = picGlyph_[static_cast<std::size_t>(i)];
        QLabel* code = lblGlyph_[static_cast<std::size_t>(i)];
        QLabel* translit = lblTranslit_[static_cast<std::size_t>(i)];
        code->setText(qs(p.lblGlyph));
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
            translit->setText(qs(p.lblTranslit));
            const int w =
                std::max(translit->fontMetrics().horizontalAdvance(translit->text()) + 6, 20);
            translit->setGeometry(centre - w / 2, px(p.translitTop), w, labelHeight);
            translit->show();
        } else {
            translit->hide();
        }
    }
}

void LookupWindow::choose(int i) {
    if (!model_.Choose(i)) return;
    chose_ = true;
    hide();
}

void LookupWindow::showEvent(QShowEvent* event) {
    chose_ = false;
    QWidget::showEvent(event);
}

void LookupWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit hidden();
}

LookupHost::~LookupHost() {
    delete window_.data();
}

LookupWindow* LookupHost::window() {
    if (!window_) window_ = new LookupWindow(app_);
    return window_;
}

void LookupHost::show() {
    LookupWindow* w = window();
    w->show();
    fitOnScreen(w);
    w->raise();
    w->activateWindow();
}

bool LookupHost::chooseSign() {
    if (waiting_) {
        // Already waiting for this window: bring it forward rather than wait twice.
        show();
        return false;
    }
    show();
    QPointer<LookupWindow> w = window_;
    QEventLoop loop;
    QObject::connect(w, &LookupWindow::hidden, &loop, &QEventLoop::quit);
    QObject::connect(w, &QObject::destroyed, &loop, &QEventLoop::quit);
    waiting_ = true;
    if (w->isVisible()) loop.exec();
    waiting_ = false;
    return w && w->choseSign();
}

void LookupHost::unload() {
    if (!window_) return;
    window_->hide();
    window_->deleteLater();
    window_ = nullptr;
}

} // namespace nebkaro::ui
