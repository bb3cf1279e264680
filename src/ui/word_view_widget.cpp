#include "ui/word_view_widget.h"

#include "display/main_layout.h"
#include "display/qstring_qt.h"
#include "display/word_view_events.h"
#include "display/zoom.h"
#include "ui/letter_column.h"
#include "ui/sign_pixmap.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace nebkaro {

using ui::px;

namespace {

// The boxes' left edge and height, and the tops of richGardiner, gardiner, transliteration,
// meaning and comment (each box's caption stands 240 twips above it).
constexpr int FieldLeft = 400;
constexpr int BoxHeight = 330;
constexpr int FieldTop[5] = {3960, 4620, 5280, 5940, 6600};

QRect pixelRect(int left, int top, int width, int height) {
    return {px(left), px(top), px(width), px(height)};
}

QRect pixelRect(const QRect& twips) {
    return pixelRect(twips.x(), twips.y(), twips.width(), twips.height());
}

// Mouse buttons as the word view counts them: left 1, right 2, middle 4.
int buttonCode(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return RightButton;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

// Where the design puts a command button, in twips: the navigation row beside txtNumber, then
// three rows under the fields. Buttons it does not name are placed by the caller.
std::optional<QRect> designPlace(std::string_view name) {
    static constexpr std::pair<std::string_view, std::array<int, 4>> navigation[] = {
        {"cmdFirst", {400, 3240, 660, 390}}, {"cmdPrev", {1120, 3240, 660, 390}},
        {"cmdGo", {2800, 3240, 540, 390}},   {"cmdNext", {3400, 3240, 660, 390}},
        {"cmdLast", {4120, 3240, 660, 390}}, {"cmdRandom", {4840, 3240, 960, 390}},
    };
    static constexpr const char* rows[3][6] = {
        {"NewCmd", "cmdEdit", "cmdStore", "cmdDelete", "Duplicatecmd", "cmdFlip"},
        {"cmdSearch", "cmdSearchNext", "cmdSearchPrevious", "cmdSort", "cmdTransTable", nullptr},
        {"CmdLoad", "cmdSave", "CmdSaveAs", "cmdPreferences", "cmdAbout", "cmdQuit"},
    };
    for (const auto& [n, r] : navigation)
        if (name == n) return QRect(r[0], r[1], r[2], r[3]);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 6; ++c)
            if (rows[r][c] && name == rows[r][c])
                return QRect(400 + c * 1050, 7140 + r * 450, 990, 390);
    return std::nullopt;
}

} // namespace

WordViewWidget::WordViewWidget(App& app, QWidget* parent) : QWidget(parent), app_(app) {
    setObjectName(QStringLiteral("MainSurface"));
    buildDisplayArea();
    buildFields();
    buildHideSwitches();
    buildNavigation();
    buildButtons();
}

// ---------------------------------------------------------------------------------- building

void WordViewWidget::buildDisplayArea() {
    dispArea_ = new QFrame(this);
    dispArea_->setObjectName(QStringLiteral("DispAreaShp"));
    dispArea_->setFrameStyle(QFrame::Box | QFrame::Plain);
    dispArea_->setLineWidth(1);
    dispArea_->setAutoFillBackground(true);
    QPalette white = dispArea_->palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, QColor(120, 120, 120));
    dispArea_->setPalette(white);
    // The display area takes the focus when clicked, so that its own keys (Home, End, Del,
    // copy and paste of words) reach it while the text boxes keep theirs.
    dispArea_->setFocusPolicy(Qt::ClickFocus);
    dispArea_->installEventFilter(this);

    for (int i = 0; i < GlyphTable::Slots; ++i) {
        auto* l = new QLabel(this);
        l->setObjectName(QStringLiteral("mainGlyphPic%1").arg(i));
        l->setAlignment(Qt::AlignCenter);
        l->hide();
        l->installEventFilter(this);
        glyphs_[static_cast<std::size_t>(i)] = l;
    }
}

void WordViewWidget::buildFields() {
    auto label = [this](const char* name, const char* caption, int top) {
        auto* l = new QLabel(QLatin1String(caption), this);
        l->setObjectName(QLatin1String(name));
        fixed_.emplace_back(l, QRect(FieldLeft, top - 240, 3000, 240));
    };
    // Fields: a caption, then the box under it; the hide switch of the box in the margin on
    // the right. Widths follow the window (layoutControls); tops are the design's.
    label("Label1", "Enriched Notation", FieldTop[0]);
    label("Label2", "Gardiner's Notation", FieldTop[1]);
    label("Label3", "Translitteration", FieldTop[2]);
    label("Label4", "Meaning", FieldTop[3]);
    label("Commentlbl", "Comment", FieldTop[4]);
    auto* hideLabel = new QLabel(QStringLiteral("Hide"), this);
    hideLabel->setObjectName(QStringLiteral("Label5"));
    hideLabel->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);

    richGardiner_ = new QLabel(this);
    richGardiner_->setObjectName(QStringLiteral("RichGardinerlbl"));
    richGardiner_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    richGardiner_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    richGardiner_->setTextFormat(Qt::PlainText);

    const char* boxNames[4] = {"GardinerTxt", "TransLitTxt", "MeaningTxt", "CommentTxt"};
    const char* boxTips[4] = {"Displays the Gardiner's Notation",
                              "Transliteration of the word displayed", "Meaning of the word",
                              nullptr};
    for (int i = 0; i < 4; ++i) {
        auto* e = new QLineEdit(this);
        e->setObjectName(QLatin1String(boxNames[i]));
        if (boxTips[i]) e->setToolTip(QLatin1String(boxTips[i]));
        const TextBox box = static_cast<TextBox>(i);
        connect(e, &QLineEdit::textEdited, this, [this, box, e](const QString& text) {
            textBoxChanged(app_, box, text.toStdString());
            showKeptText(e, text, QString::fromStdString(textOf(app_.view, box)));
        });
        e->installEventFilter(this);
        boxes_[static_cast<std::size_t>(i)] = e;
    }
    // The transliteration is typed in plain letters and shown in their scholarly forms.
    QFont translit(QStringLiteral("Transliteration"));
    translit.setPointSizeF(boxes_[1]->font().pointSizeF() * 1.25);
    boxes_[1]->setFont(translit);
}

void WordViewWidget::buildHideSwitches() {
    const char* hideNames[5] = {"ChkHideEnriched", "ChkHideGardiner", "ChkHideTrans",
                                "ChkHideMeaning", "ChkHideComment"};
    const char* hideTips[5] = {nullptr, "Hide the Gardiner's notation", "Hide the transliteration",
                               "Hide the Meaning", "Hide the comment"};
    for (int i = 0; i < 5; ++i) {
        auto* c = new QCheckBox(this);
        c->setObjectName(QLatin1String(hideNames[i]));
        if (hideTips[i]) c->setToolTip(QLatin1String(hideTips[i]));
        c->setChecked(app_.view.hidden[static_cast<std::size_t>(i)]);
        connect(c, &QCheckBox::toggled, this, [this, i](bool on) {
            app_.view.hidden[static_cast<std::size_t>(i)] = on;
            Q_EMIT viewChanged();
        });
        hide_[static_cast<std::size_t>(i)] = c;
    }
}

void WordViewWidget::buildNavigation() {
    number_ = new QLineEdit(this);
    number_->setObjectName(QStringLiteral("txtNumber"));
    number_->setAlignment(Qt::AlignRight);
    connect(number_, &QLineEdit::textEdited, this,
            [this](const QString& t) { app_.view.wordNumber = t.toStdString(); });
    connect(number_, &QLineEdit::returnPressed, this, [this] {
        if (commandAvailable(app_, CommandId::Go)) Q_EMIT commandRequested(CommandId::Go);
    });

    counter_ = new QLabel(this);
    counter_->setObjectName(QStringLiteral("lblCounter"));
    counter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    counter_->setToolTip(QStringLiteral("Passes left of the sort"));
    fixed_.emplace_back(counter_, QRect(5900, 3240, 660, 390));

    progressTrack_ = new QFrame(this);
    progressTrack_->setObjectName(QStringLiteral("fraProgress"));
    progressTrack_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    progressTrack_->setToolTip(QStringLiteral("Where the word on show lies in the dictionary"));
    progress_ = new QFrame(progressTrack_);
    progress_->setObjectName(QStringLiteral("shpProgress"));
    progress_->setAutoFillBackground(true);
    QPalette bar = progress_->palette();
    bar.setColor(QPalette::Window, bar.color(QPalette::Highlight));
    progress_->setPalette(bar);
    fixed_.emplace_back(number_, QRect(1840, 3240, 900, 390));
}

void WordViewWidget::buildButtons() {
    int spare = 5; // buttons the design does not place go after the second row's
    for (const ViewButton& b : wordViewButtons()) {
        auto* button = new QPushButton(latin1(b.caption), this);
        button->setObjectName(latin1(b.objectName));
        button->setToolTip(latin1(b.toolTip));
        button->setAutoDefault(false);
        const CommandId id = b.command;
        connect(button, &QPushButton::clicked, this, [this, id] { Q_EMIT commandRequested(id); });
        buttons_.emplace_back(button, id);
        if (b.objectName == "cmdTransGuess") {
            // Placed beside transliteration, in the narrow room the design leaves it.
            QFont small = button->font();
            small.setPointSizeF(small.pointSizeF() * 0.9);
            button->setFont(small);
            continue;
        }
        if (const auto r = designPlace(b.objectName))
            fixed_.emplace_back(button, *r);
        else
            fixed_.emplace_back(button, QRect(400 + (spare++) * 1050, 7590, 990, 390));
    }
}

// ---------------------------------------------------------------------------- showing the view

void WordViewWidget::showView() {
    const WordView& v = app_.view;
    auto setText = [](QLineEdit* e, const std::string& s) {
        const QString t = QString::fromStdString(s);
        if (e->text() != t) {
            const QSignalBlocker block(e);
            e->setText(t);
        }
    };
    setText(boxes_[0], v.gardiner);
    setText(boxes_[1], v.transliteration);
    setText(boxes_[2], v.meaning);
    setText(boxes_[3], v.comment);
    setText(number_, v.wordNumber);
    richGardiner_->setText(QString::fromStdString(v.richGardiner));
    // A long layout runs past the box.
    richGardiner_->setToolTip(QString::fromStdString(v.richGardiner));

    for (int i = 0; i < 5; ++i) {
        const QSignalBlocker block(hide_[static_cast<std::size_t>(i)]);
        hide_[static_cast<std::size_t>(i)]->setChecked(v.hidden[static_cast<std::size_t>(i)]);
    }
    richGardiner_->setVisible(!v.hidden[0]);
    for (int i = 0; i < 4; ++i)
        boxes_[static_cast<std::size_t>(i)]->setVisible(!v.hidden[static_cast<std::size_t>(i + 1)]);

    // The bar starts 200 twips into its track and is empty with one word or none.
    progressPixels_ = -1;
    progress_->setGeometry(px(200), 2, px(v.progressWidth), std::max(1, px(120) - 4));
    progress_->setVisible(v.progressWidth > 0);
    counter_->clear();
}

void WordViewWidget::setProgress(float fraction) {
    const int track = px(app_.view.geometry.progressContainerWidth - 400);
    const int length = static_cast<int>(std::lround(std::clamp(fraction, 0.0f, 1.0f) * track));
    if (length == progressPixels_) return;
    progressPixels_ = length;
    progress_->setGeometry(px(200), 2, length, std::max(1, px(120) - 4));
    progress_->setVisible(length > 0);
    progress_->repaint();
}

void WordViewWidget::showCounter(int value) {
    // The passes left of a long sort; the count goes when the sorted word is drawn.
    counter_->setText(QString::number(value));
}

void WordViewWidget::layoutControls() {
    const WordView& v = app_.view;
    if (toolBar_) toolBar_->setGeometry(0, 0, window()->width(), px(480));
    const Rect& a = v.geometry.displayArea;
    const int extra = extraHeight();
    dispArea_->setGeometry(pixelRect(a.left, a.top, a.width, a.height).adjusted(0, 0, 0, extra));
    progressTrack_->setGeometry(pixelRect(a.left, 3060, v.geometry.progressContainerWidth, 120));
    for (const auto& [widget, r] : fixed_) widget->setGeometry(pixelRect(r));
    layoutFields();
    // Everything below the display area moves down by the height it gained.
    if (extra > 0) {
        const int below = px(a.top + a.height);
        for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (child == dispArea_ || child == toolBar_ || isWordPicture(child)) continue;
            if (child->y() >= below) child->move(child->x(), child->y() + extra);
        }
    }
    showGlyphs();
}

void WordViewWidget::layoutFields() {
    const int w = app_.view.windowWidth;
    const MainLayout l = mainLayoutFor(w);
    richGardiner_->setGeometry(pixelRect(FieldLeft, FieldTop[0], l.textWidth, BoxHeight));
    boxes_[0]->setGeometry(pixelRect(FieldLeft, FieldTop[1], l.textWidth, BoxHeight));
    boxes_[1]->setGeometry(pixelRect(FieldLeft, FieldTop[2], l.translitWidth, BoxHeight));
    boxes_[2]->setGeometry(pixelRect(FieldLeft, FieldTop[3], l.textWidth, BoxHeight));
    boxes_[3]->setGeometry(pixelRect(FieldLeft, FieldTop[4], l.textWidth, BoxHeight));
    if (auto* guess = findChild<QPushButton*>(QStringLiteral("cmdTransGuess")))
        guess->setGeometry(pixelRect(FieldLeft + l.guessLeftOffset, FieldTop[2], 590, BoxHeight));
    for (int i = 0; i < 5; ++i)
        hide_[static_cast<std::size_t>(i)]->setGeometry(
            pixelRect(w - 290, FieldTop[i] + 30, 270, 270));
    if (auto* hideLabel = findChild<QLabel*>(QStringLiteral("Label5")))
        hideLabel->setGeometry(pixelRect(w - 400, FieldTop[0] - 240, 400, 240));
}

int WordViewWidget::extraHeight() const {
    return std::max(0, height() - px(DesignHeight));
}

bool WordViewWidget::isWordPicture(QObject* object) const {
    return std::find(glyphs_.begin(), glyphs_.end(), object) != glyphs_.end();
}

QPixmap WordViewWidget::glyphPixmap(const GlyphImage& img, int zoom, double dpr) {
    if (!img.picture.ok) return {};
    // Drawn for the screen's own pixels at the zoom, sharp on a scaled screen.
    const QString file = QString::fromStdString(img.picture.file.string());
    const QString key =
        file + QLatin1Char('@') + QString::number(dpr) + QLatin1Char('x') + QString::number(zoom);
    auto it = pixmaps_.find(key);
    if (it == pixmaps_.end()) {
        // A picture that cannot be read stays a null pixmap: an empty framed square.
        const bool readable = !QPixmap(file).isNull();
        it = pixmaps_.insert(key,
                             readable ? ui::signPixmap(img.picture, zoom / 100.0, dpr) : QPixmap());
    }
    return *it;
}

void WordViewWidget::showGlyphs() {
    const WordView& v = app_.view;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        QLabel* l = glyphs_[static_cast<std::size_t>(i)];
        const GlyphImage& img = v.mainGlyphPic[static_cast<std::size_t>(i)];
        if (!img.visible) {
            l->hide();
            continue;
        }
        const int zoom = clampZoom(app_.settings.wordZoom);
        const QPixmap pm = glyphPixmap(img, zoom, l->devicePixelRatioF());
        const Rect& area = v.geometry.displayArea;
        const Rect box =
            zoomedBox({img.left, img.top, img.picture.width, img.picture.height}, area, zoom);
        // The word stays centred in an area that grew with the window.
        QRect r(px(box.left), px(box.top) + extraHeight() / 2, px(box.width), px(box.height));
        // An unreadable picture is an empty framed square; Show Borders frames every sign,
        // the frame standing just outside the picture.
        const bool framed = pm.isNull() || v.showBorders;
        if (!pm.isNull()) {
            r.setSize(pm.deviceIndependentSize().toSize());
            l->setPixmap(pm);
        } else {
            l->clear();
        }
        l->setFrameStyle(framed ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
        l->setLineWidth(1);
        if (framed && !pm.isNull()) r.adjust(-1, -1, 1, 1);
        ui::placeSignCut(l, r, dispArea_->geometry(), zoom != MinZoom);
        l->show();
        l->raise();
    }
}

// ------------------------------------------------------------------------------------ events

void WordViewWidget::mousePressEvent(QMouseEvent* e) {
    // The display area's right-click menu is an event of the view itself.
    const QPoint at = e->position().toPoint();
    const int x = ui::twips(at.x()), y = ui::twips(at.y());
    if (app_.view.geometry.displayArea.contains(x, y)) dispArea_->setFocus(Qt::MouseFocusReason);
    if (opensFieldMenu(app_.view, buttonCode(e->button()), x, y))
        Q_EMIT fieldMenuRequested(e->globalPosition().toPoint());
}

void WordViewWidget::mouseDoubleClickEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton && commandAvailable(app_, CommandId::EditWord))
        Q_EMIT commandRequested(CommandId::EditWord);
}

void WordViewWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The view follows the height the scroll area gives it.
    if (!window()->isMinimized()) layoutControls();
}

bool WordViewWidget::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    // The wheel with Ctrl over the word zooms it.
    if (type == QEvent::Wheel && (watched == dispArea_ || isWordPicture(watched))) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() & Qt::ControlModifier) {
            const int turn = wheel->angleDelta().y();
            if (turn != 0 && !QApplication::activeModalWidget())
                Q_EMIT commandRequested(turn > 0 ? CommandId::ZoomIn : CommandId::ZoomOut);
            return true;
        }
    }
    if (type == QEvent::FocusIn || type == QEvent::FocusOut) {
        const auto it = std::find(boxes_.begin(), boxes_.end(), watched);
        if (it != boxes_.end())
            boxFocusChanged(static_cast<int>(it - boxes_.begin()), type == QEvent::FocusIn,
                            static_cast<QFocusEvent*>(event)->reason());
    }
    return QWidget::eventFilter(watched, event);
}

void WordViewWidget::boxFocusChanged(int index, bool focusIn, Qt::FocusReason reason) {
    const TextBox box = static_cast<TextBox>(index);
    // A menu or another window taking the focus for a while does not move it within the
    // window: the box neither leaves nor is entered again when it comes back.
    const bool passing = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
                         reason == Qt::MenuBarFocusReason;
    if (focusIn) {
        if (passing && focusedBox_ == index) return;
        focusedBox_ = index;
        textBoxGotFocus(app_, box);
    } else {
        if (passing) return;
        focusedBox_ = -1;
        textBoxLostFocus(app_, box);
    }
}

} // namespace nebkaro
