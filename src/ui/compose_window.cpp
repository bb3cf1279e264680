#include "ui/compose_window.h"

#include "display/qstring_qt.h"
#include "display/zoom.h"

#include "core/guarded.h"
#include "ui/screen_fit.h"
#include "ui/sign_pixmap.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>

#include <QShortcut>
#include <QWheelEvent>
#include <cmath>

#include <functional>

namespace nebkaro::ui {

namespace {
QRect rectPx(double left, double top, double width, double height) {
    return QRect(px(left), px(top), px(width), px(height));
}
} // namespace

// One sign image of the canvas: dragged with any mouse button, double-clicked to choose a
// sign, the Delete key to remove it.
class GlyphPicture : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> pressed;
    std::function<void()> doubleClicked;
    // Where the image was dropped, and whether it moved at all.
    std::function<void(QPoint, bool)> dropped;
    std::function<void(int)> keyDown;

protected:
    void mousePressEvent(QMouseEvent* e) override {
        dragging_ = true;
        pressGlobal_ = e->globalPosition().toPoint();
        startPos_ = pos();
        setFocus(Qt::MouseFocusReason);
        if (pressed) pressed();
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        if (dragging_) move(startPos_ + (e->globalPosition().toPoint() - pressGlobal_));
    }
    void mouseReleaseEvent(QMouseEvent*) override {
        if (!dragging_) return;
        dragging_ = false;
        if (dropped) dropped(pos(), pos() != startPos_);
    }
    void mouseDoubleClickEvent(QMouseEvent*) override {
        dragging_ = false;
        if (doubleClicked) doubleClicked();
    }
    void keyPressEvent(QKeyEvent* e) override {
        if (keyDown) keyDown(e->key() == Qt::Key_Delete ? Composer::DeleteKeyCode : 0);
    }

private:
    bool dragging_ = false;
    QPoint pressGlobal_;
    QPoint startPos_;
};

ComposeWindow::ComposeWindow(App& app, QWidget* parent)
    : QMainWindow(parent), app_(app), model_(app) {
    setObjectName("Compose");
    setWindowTitle("Compose");
    if (parent) setWindowModality(Qt::WindowModal);

    buildMenu();
    buildCanvas();
    buildEntry();
    buildLibraryChoice();
    buildSignPictures();
    buildFooter();

    load();
    resize(px(ComposeGeometry::MinWidth),
           px(ComposeGeometry::DesignHeight) + menuBar()->sizeHint().height());
}

void ComposeWindow::buildMenu() {
    QMenu* libraryMenu = menuBar()->addMenu("Library");
    libraryMenu->setObjectName("mnuLibrary");
    basicAction_ = libraryMenu->addAction("Basic");
    basicAction_->setObjectName("mnuBasic");
    basicAction_->setCheckable(true);
    extendedAction_ = libraryMenu->addAction("Extended");
    extendedAction_->setObjectName("mnuExtended");
    extendedAction_->setCheckable(true);
    connect(basicAction_, &QAction::triggered, this,
            [this] { command([&] { model_.basicMenuChosen(); }); });
    connect(extendedAction_, &QAction::triggered, this,
            [this] { command([&] { model_.extendedMenuChosen(); }); });
    // The same zoom keys as the word view's.
    const std::pair<const char*, int> zoomKeys[] = {
        {"Ctrl++", 1}, {"Ctrl+=", 1}, {"Ctrl+-", -1}, {"Ctrl+0", 0}};
    for (const auto& [keys, step] : zoomKeys) {
        auto* sc = new QShortcut(QKeySequence(QString::fromLatin1(keys)), this);
        connect(sc, &QShortcut::activated, this, [this, step = step] { zoom(step); });
    }
}

void ComposeWindow::buildCanvas() {
    // The canvas scrolls when the signs need more room than the screen leaves the window.
    scroll_ = new QScrollArea(this);
    scroll_->setObjectName("scrCanvas");
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(false);
    canvas_ = new QWidget;
    canvas_->resize(px(ComposeGeometry::MinWidth), px(ComposeGeometry::DesignHeight));
    scroll_->setWidget(canvas_);
    scroll_->viewport()->installEventFilter(this);
    setCentralWidget(scroll_);
}

void ComposeWindow::buildEntry() {
    codeLineLabel_ = new QLabel("MdC:", canvas_);
    codeLineLabel_->setObjectName("lblMdC");
    codeLineBox_ = new QLineEdit(canvas_);
    codeLineBox_->setObjectName("txtMdC");
    codeLineBox_->setToolTip("Codes or phonetic values: \"-\" or a blank between groups, \":\" "
                             "stacks, \"*\" sets side by side");
    getButton_ = new QPushButton("Get", canvas_);
    getButton_->setObjectName("cmdGet");
    getButton_->setToolTip("Place the signs in one row");
    arrangeButton_ = new QPushButton("Arrange", canvas_);
    arrangeButton_->setObjectName("cmdArrange");
    arrangeButton_->setToolTip("Place the signs in groups: \":\" stacks, \"*\" sets side by side, "
                               "\"-\" starts a new group");
    connect(getButton_, &QPushButton::clicked, this, [this] {
        command([&] { model_.getSigns(); });
        growForSigns();
    });
    connect(codeLineBox_, &QLineEdit::returnPressed, getButton_, &QPushButton::click);
    connect(arrangeButton_, &QPushButton::clicked, this, [this] {
        command([&] { model_.arrange(); });
        growForSigns();
    });
}

void ComposeWindow::buildLibraryChoice() {
    frame1_ = new QGroupBox("Library", canvas_);
    frame1_->setObjectName("Frame1");
    frame1_->setToolTip("Select Basic or Extended Library");
    basicOption_ = new QRadioButton("Basic", frame1_);
    basicOption_->setObjectName("OptBasic");
    basicOption_->setToolTip("Select Basic Library");
    extendedOption_ = new QRadioButton("Extended", frame1_);
    extendedOption_->setObjectName("OptExtended");
    extendedOption_->setToolTip("Select Extended Library");
    basicOption_->setGeometry(rectPx(150, 300, 1000, 300));
    extendedOption_->setGeometry(rectPx(1260, 300, 1350, 300));
    connect(basicOption_, &QRadioButton::clicked, this,
            [this] { command([&] { model_.basicOptionClicked(); }); });
    connect(extendedOption_, &QRadioButton::clicked, this,
            [this] { command([&] { model_.extendedOptionClicked(); }); });

    delLastButton_ = new QPushButton("Delete Last", canvas_);
    delLastButton_->setObjectName("cmdDelLast");
    connect(delLastButton_, &QPushButton::clicked, this,
            [this] { command([&] { model_.deleteLast(); }); });

    debugLbl_ = new QLabel(canvas_);
    debugLbl_->setObjectName("Debuglbl");
    debugLbl_->hide(); // the separators it reads back are no help to the user

    composeShp_ = new QFrame(canvas_);
    composeShp_->setObjectName("ComposeShp");
    composeShp_->setFrameShape(QFrame::Box);
    composeShp_->setFrameShadow(QFrame::Plain);
}

void ComposeWindow::buildSignPictures() {
    for (int i = 0; i < Composer::Slots; ++i) {
        auto* pic = new GlyphPicture(canvas_);
        pic->setObjectName(QString("GlyphPic%1").arg(i));
        pic->setToolTip("Double-Click to choose a Glyph");
        pic->setAutoFillBackground(true);
        pic->setAlignment(Qt::AlignCenter);
        pic->setFocusPolicy(Qt::ClickFocus);
        pic->pressed = [this, i] { model_.imageClicked(i); };
        pic->doubleClicked = [this, i] {
            // While the browser is open the composer waits for it: nothing here may change
            // the composition under the choice that is about to come back.
            choosing_ = true;
            setEnabled(false);
            command([&] { model_.chooseSign(i); });
            setEnabled(true);
            choosing_ = false;
        };
        pic->dropped = [this, i](QPoint at, bool moved) { dropSign(i, at, moved); };
        pic->keyDown = [this, i](int key) { command([&] { model_.keyPressed(i, key); }); };
        glyphPic_[static_cast<std::size_t>(i)] = pic;
    }
}

void ComposeWindow::dropSign(int i, QPoint at, bool moved) {
    command([&] {
        const CanvasImage& image = model_.images[static_cast<std::size_t>(i)];
        // Released where it was pressed: the place is taken unchanged, half twips
        // included, rather than as the pixel it is drawn on.
        // A sign dropped on the zoomed canvas lands where it would stand at 100 %.
        const Rect& shp = model_.geometry.canvasFrame;
        const double k = clampZoom(app_.settings.wordZoom) / 100.0;
        const double cx = shp.left + shp.width / 2.0, cy = shp.top + shp.height / 2.0;
        if (moved)
            model_.moveSign(i, static_cast<int>(std::lround(cx + (twips(at.x()) - cx) / k)),
                            static_cast<int>(std::lround(cy + (twips(at.y()) - cy) / k)));
        else
            model_.moveSign(i, image.left, image.top);
    });
}

void ComposeWindow::buildFooter() {
    auto* temPic = new QLabel(canvas_);
    temPic->setObjectName("TemPic");
    temPic->hide();

    gardinerLbl_ = new QLabel(canvas_);
    gardinerLbl_->setObjectName("Gardinerlbl");
    richGardinerLbl_ = new QLabel(canvas_);
    richGardinerLbl_->setObjectName("RichGardinerLbl");
    status_ = new QLabel(canvas_);
    status_->setObjectName("lblStatus");
    okCmd_ = new QPushButton("OK", canvas_);
    okCmd_->setObjectName("OkCmd");
    cancelButton_ = new QPushButton("Cancel", canvas_);
    cancelButton_->setObjectName("cmdCancel");
    connect(okCmd_, &QPushButton::clicked, this, [this] {
        bool done = false;
        command([&] { done = model_.accept(); });
        if (done) hide();
    });
    connect(cancelButton_, &QPushButton::clicked, this, [this] {
        command([&] { model_.cancel(); });
        hide();
    });
}

ComposeWindow::~ComposeWindow() = default;

void ComposeWindow::load() {
    canvasNeed_ = {};
    command([&] { model_.open(); });
    growForSigns();
}

template <typename F> void ComposeWindow::command(F&& f) {
    readText();
    const bool ending = app_.endRequested;
    runGuarded(app_, f);
    // Without its sign list the program cannot go on.
    if (app_.endRequested && !ending) QCoreApplication::exit(1);
    refresh();
}

void ComposeWindow::readText() {
    model_.codeLine = codeLineBox_->text().toStdString();
}

void ComposeWindow::placeControls() {
    const ComposeGeometry& g = model_.geometry;
    codeLineLabel_->setGeometry(rectPx(120, 165, 450, 255));
    codeLineBox_->setGeometry(rectPx(600, 120, g.codeLineWidth, 345));
    getButton_->setGeometry(rectPx(g.getButtonLeft, 105, 780, 375));
    arrangeButton_->setGeometry(rectPx(g.getButtonLeft, 525, 780, 375));
    frame1_->setGeometry(rectPx(120, 480, 2700, 690));
    delLastButton_->setGeometry(rectPx(3000, 630, 1300, 375));
    debugLbl_->setGeometry(rectPx(4450, 690, g.getButtonLeft - 4570, 255));
    const Rect& shp = g.canvasFrame;
    composeShp_->setGeometry(rectPx(shp.left, shp.top, shp.width, shp.height));
    const int bottom = shp.top + shp.height;
    gardinerLbl_->setGeometry(rectPx(250, bottom + 90, g.windowWidth - 500, 255));
    richGardinerLbl_->setGeometry(rectPx(250, bottom + 375, g.windowWidth - 500, 255));
    status_->setGeometry(rectPx(250, bottom + 720, g.windowWidth - 2660, 255));
    okCmd_->setGeometry(rectPx(g.windowWidth - 2160, bottom + 660, 900, 375));
    cancelButton_->setGeometry(rectPx(g.windowWidth - 1140, bottom + 660, 900, 375));
}

void ComposeWindow::refresh() {
    if (codeLineBox_->text().toStdString() != model_.codeLine)
        codeLineBox_->setText(qs(model_.codeLine));
    gardinerLbl_->setText(qs(model_.gardinerLabel));
    richGardinerLbl_->setText(qs(model_.richGardinerLabel));
    status_->setText(qs(model_.status));
    basicOption_->setChecked(model_.basicChosen);
    extendedOption_->setChecked(!model_.basicChosen);
    basicAction_->setChecked(model_.basicChecked);
    extendedAction_->setChecked(model_.extendedChecked);
    placeControls();
    const QColor buttonFace = palette().color(QPalette::Button);
    const QColor workspace = palette().color(QPalette::Mid);
    const int zoom = clampZoom(app_.settings.wordZoom);
    for (int i = 0; i < Composer::Slots; ++i) {
        const CanvasImage& image = model_.images[static_cast<std::size_t>(i)];
        GlyphPicture* pic = glyphPic_[static_cast<std::size_t>(i)];
        QPalette pal = pic->palette();
        pal.setColor(QPalette::Window,
                     image.background == SlotBackground::ButtonFace ? buttonFace : workspace);
        pic->setPalette(pal);
        // A sign grows about the canvas centre; places keep their half twips.
        const Rect& shp = model_.geometry.canvasFrame;
        const double k = zoom / 100.0;
        const double cx = shp.left + shp.width / 2.0, cy = shp.top + shp.height / 2.0;
        if (image.hasPicture) {
            pic->setPixmap(signPixmap(image.picture, zoom / 100.0, pic->devicePixelRatioF()));
            pic->setFrameShape(QFrame::NoFrame);
        } else {
            pic->clear();
            pic->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        }
        const QRect r = rectPx(cx + (image.left - cx) * k, cy + (image.top - cy) * k,
                               image.width * k, image.height * k);
        placeSignCut(pic, r, composeShp_->geometry(), zoom != MinZoom);
        pic->setVisible(image.visible);
    }
}

void ComposeWindow::zoom(int step) {
    int& z = app_.settings.wordZoom;
    z = step > 0 ? zoomedIn(z) : step < 0 ? zoomedOut(z) : MinZoom;
    refresh();
}

void ComposeWindow::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier) || event->angleDelta().y() == 0) {
        QMainWindow::wheelEvent(event);
        return;
    }
    zoom(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

bool ComposeWindow::run() {
    show();
    fitOnScreen(this);
    raise();
    activateWindow();
    QEventLoop loop;
    connect(this, &ComposeWindow::hidden, &loop, &QEventLoop::quit);
    if (isVisible()) loop.exec();
    return app_.store.composeAccepted;
}

void ComposeWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sizeCanvas();
}

bool ComposeWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == scroll_->viewport() && event->type() == QEvent::Resize) sizeCanvas();
    return QMainWindow::eventFilter(watched, event);
}

void ComposeWindow::sizeCanvas() {
    const QSize room = scroll_->viewport()->size().expandedTo(canvasNeed_);
    if (canvas_->size() != room) canvas_->resize(room);
    model_.resize(twips(canvas_->width()), twips(canvas_->height()));
    placeControls();
}

void ComposeWindow::growForSigns() {
    double left = 0, top = 0, right = 0, bottom = 0;
    bool any = false;
    for (int k = 0; k <= model_.firstFreeSlot && k < Composer::Slots; ++k) {
        const CanvasImage& im = model_.images[static_cast<std::size_t>(k)];
        if (!im.visible || !im.hasPicture) continue;
        left = any ? std::min(left, im.left) : im.left;
        top = any ? std::min(top, im.top) : im.top;
        right = std::max(any ? right : im.left + im.width, im.left + im.width);
        bottom = std::max(any ? bottom : im.top + im.height, im.top + im.height);
        any = true;
    }
    if (!any) return;
    // The room kept between the signs and the frame, and what lies around the frame.
    constexpr int Margin = 240;
    const ComposeGeometry before = model_.geometry;
    const Rect& f = before.canvasFrame;
    const bool wide = left < f.left || right > f.left + f.width;
    const bool tall = top < f.top || bottom > f.top + f.height;
    if (!wide && !tall) return;
    const int width = wide ? static_cast<int>(std::ceil(right - left)) + 2 * Margin +
                                 (before.windowWidth - f.width)
                           : before.windowWidth;
    const int height = tall ? static_cast<int>(std::ceil(bottom - top)) + 2 * Margin +
                                  (before.windowHeight - f.height)
                            : before.windowHeight;
    model_.resize(std::max(width, before.windowWidth), std::max(height, before.windowHeight));
    const Rect& g = model_.geometry.canvasFrame;
    const double dx = wide ? g.left + (g.width - (right - left)) / 2 - left : 0;
    const double dy = tall ? g.top + (g.height - (bottom - top)) / 2 - top : 0;
    for (int k = 0; k <= model_.firstFreeSlot && k < Composer::Slots; ++k) {
        const CanvasImage& im = model_.images[static_cast<std::size_t>(k)];
        if (im.visible && im.hasPicture) model_.moveSign(k, im.left + dx, im.top + dy);
    }
    canvasNeed_ = QSize(px(model_.geometry.windowWidth), px(model_.geometry.windowHeight));
    // The window grows by what the canvas gained; the screen's room bounds it.
    const QSize gain = canvasNeed_ - scroll_->viewport()->size();
    resize(size() + gain.expandedTo(QSize(0, 0)));
    if (isVisible()) fitOnScreen(this);
    sizeCanvas();
    refresh();
}

void ComposeWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        command([&] { model_.activate(); });
}

void ComposeWindow::closeEvent(QCloseEvent* event) {
    if (choosing_) {
        event->ignore();
        return;
    }
    // Closing the window is Cancel.
    command([&] { model_.cancel(); });
    QMainWindow::closeEvent(event);
}

void ComposeWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    emit hidden();
}

} // namespace nebkaro::ui
