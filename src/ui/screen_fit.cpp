#include "ui/screen_fit.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QMargins>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace nebkaro {

namespace {

const QWidget* mainWindow() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("Main") && w->isVisible()) return w;
    return nullptr;
}

// The frame the window manager puts around the window. Until the window has been framed
// once, a title bar and thin borders are assumed, so that a window placed before it shows
// does not lose its title bar above the screen.
QMargins frameOf(const QWidget* w) {
    const QRect frame = w->frameGeometry();
    const QRect inner = w->geometry();
    if (frame != inner)
        return {inner.left() - frame.left(), inner.top() - frame.top(),
                frame.right() - inner.right(), frame.bottom() - inner.bottom()};
    if (QGuiApplication::platformName() != QLatin1String("offscreen")) return {4, 30, 4, 4};
    return {};
}

// Fits each window as it is shown. The fitting waits for the event loop: whoever showed the
// window places it right after show(), and the fitting must come after that placement. It is
// done again a moment later, once the window manager has framed and placed the window.
class ShowWatch : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            auto* w = static_cast<QWidget*>(watched);
            if (fitsOnShow(w)) {
                QTimer::singleShot(0, w, [w] { fitOnScreen(w); });
                QTimer::singleShot(200, w, [w] {
                    if (w->isVisible()) fitOnScreen(w);
                });
            }
        }
        return false;
    }
};

} // namespace

void keepWindowsOnScreen(QObject* owner) {
    qApp->installEventFilter(new ShowWatch(owner));
}

QRect screenRoom(const QWidget* window) {
    const QWidget* anchor = mainWindow();
    const QScreen* screen = anchor ? anchor->screen() : nullptr;
    if (!screen && window) screen = window->screen();
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
}

bool fitsOnShow(const QWidget* window) {
    if (!window || !window->isWindow()) return false;
    const Qt::WindowType type = window->windowType();
    return type == Qt::Window || type == Qt::Dialog || type == Qt::Tool;
}

void fitOnScreen(QWidget* window) {
    if (!window || !window->isWindow() || window->isMaximized() || window->isFullScreen()) return;
    const QRect room = screenRoom(window);
    const QMargins m = frameOf(window);
    const QSize most(room.width() - m.left() - m.right(), room.height() - m.top() - m.bottom());
    QSize size = window->size();
    if (size.width() > most.width() || size.height() > most.height()) {
        size = size.boundedTo(most).expandedTo(window->minimumSize());
        window->resize(size);
        size = window->size();
    }
    // Where the whole frame goes: inside the room, or at its top left when it is too big.
    const QSize outer(size.width() + m.left() + m.right(), size.height() + m.top() + m.bottom());
    const QPoint at = window->geometry().topLeft() - QPoint(m.left(), m.top());
    const int x = std::max(room.left(), std::min(at.x(), room.right() + 1 - outer.width()));
    const int y = std::max(room.top(), std::min(at.y(), room.bottom() + 1 - outer.height()));
    if (QPoint(x, y) != at) window->move(x, y);
}

} // namespace nebkaro
