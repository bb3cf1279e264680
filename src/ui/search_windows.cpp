#include "core/app.h"
#include "core/guarded.h"
#include "core/twips.h"
#include "translit/trans_table.h"
#include "translit/typewriter.h"

#include "ui/search_windows.h"

#include "ui/search_dialog.h"
#include "ui/trans_table_window.h"
#include "ui/typewriter_window.h"

#include "ui/screen_fit.h"

#include <QEventLoop>
#include <QLineEdit>
#include <QWidget>

namespace nebkaro {

SearchWindows::SearchWindows(App& app, QWidget* mainWindow)
    : QObject(mainWindow), app_(app), main_(mainWindow) {}

SearchWindows::~SearchWindows() {
    delete typewriter_.data();
}

SearchDialog* SearchWindows::searchDialog() const {
    return search_;
}
TypewriterWindow* SearchWindows::typewriter() const {
    return typewriter_;
}
TransTableWindow* SearchWindows::transTable() const {
    return table_;
}

SearchDialog* SearchWindows::ensureSearchDialog() {
    if (!search_) {
        search_ = new SearchDialog(app_, main_);
        connect(search_, &SearchDialog::typewriterRequested, this,
                [this] { showTypewriterBeside(search_); });
    }
    return search_;
}

void SearchWindows::showSearchDialogAndWait() {
    SearchDialog* d = ensureSearchDialog();
    d->refresh();
    d->show();
    fitOnScreen(d);
    d->raise();
    d->activateWindow();
    if (auto* box = d->findChild<QLineEdit*>(QStringLiteral("txtSearch"))) box->setFocus();
    if (!app_.search.visible) return;
    QEventLoop loop;
    connect(d, &SearchDialog::left, &loop, &QEventLoop::quit);
    connect(d, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

void SearchWindows::typewriterTextChanged(TypewriterTarget target) {
    if (target == TypewriterTarget::SearchText && search_) search_->refresh();
}

TypewriterWindow* SearchWindows::ensureTypewriter() {
    if (!typewriter_) {
        // A window of its own, not the main window's: the composer holds the main window
        // while it is open, and the typewriter must still type into the composer's code line
        // and the sign browser's box then.
        typewriter_ = new TypewriterWindow(app_, nullptr);
        connect(typewriter_, &TypewriterWindow::typed, this, [this](TypewriterTarget t) {
            typewriterTextChanged(t);
            Q_EMIT typed(t);
        });
    }
    return typewriter_;
}

void SearchWindows::showTypewriterBesideMain() {
    TypewriterWindow* t = ensureTypewriter();
    const bool first = !t->isVisible();
    t->show();
    t->raise();
    const QRect m = main_->frameGeometry();
    if (first) t->move(t->frameGeometry().x(), m.y());
    runGuarded(app_, [&] {
        const int left = typewriterLeftBesideMain(m.x() * TwipsPerPixel, m.width() * TwipsPerPixel,
                                                  t->frameGeometry().width() * TwipsPerPixel);
        t->move(left / TwipsPerPixel, t->frameGeometry().y());
    });
    fitOnScreen(t);
}

void SearchWindows::showTypewriterBeside(QWidget* caller) {
    if (!caller) return;
    TypewriterWindow* t = ensureTypewriter();
    t->show();
    t->raise();
    const QRect c = caller->frameGeometry();
    const QRect screen = screenRoom(caller);
    const int left = typewriterLeftBeside(c.x() * TwipsPerPixel, c.width() * TwipsPerPixel,
                                          t->frameGeometry().width() * TwipsPerPixel,
                                          (screen.x() + screen.width()) * TwipsPerPixel);
    t->move(left / TwipsPerPixel, c.y());
    fitOnScreen(t);
}

void SearchWindows::showTransTable() {
    if (!table_) table_ = new TransTableWindow(main_);
    table_->show();
    table_->raise();
    const QRect m = main_->frameGeometry();
    const int top = transTableTop(m.y() * TwipsPerPixel, m.height() * TwipsPerPixel,
                                  table_->frameGeometry().height() * TwipsPerPixel);
    table_->move(m.x(), top / TwipsPerPixel);
    fitOnScreen(table_);
}

} // namespace nebkaro
