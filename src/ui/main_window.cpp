#include "ui/main_window.h"

#include "bulk/bulk_commands.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/guarded.h"
#include "core/startup.h"
#include "core/twips.h"
#include "display/image_export.h"
#include "display/qstring_qt.h"
#include "display/unicode_text.h"
#include "display/word_picture_qt.h"
#include "display/word_view_events.h"
#include "display/zoom.h"
#include "editing/commands.h"
#include "translit/translit_commands.h"
#include "ui/about_dialog.h"
#include "ui/compose_window.h"
#include "ui/exchange_commands.h"
#include "ui/help_window.h"
#include "ui/preferences_dialog.h"
#include "ui/screen_fit.h"
#include "ui/search_windows.h"
#include "ui/sign_browser_window.h"
#include "ui/word_view_widget.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QShortcutEvent>
#include <QStatusBar>
#include <QTemporaryFile>
#include <QToolButton>
#include <QUrl>

#include <cmath>

namespace nebkaro {

namespace {

int px(int twips) {
    return static_cast<int>(std::lround(twips / static_cast<double>(TwipsPerPixel)));
}

// Key codes as the word view counts them; letters and digits keep their codes, which are the
// same in both worlds.
int keyCode(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Control:
        return KeyControl;
    case Qt::Key_Shift:
        return KeyShift;
    case Qt::Key_Alt:
        return KeyAlt;
    default:
        return qtKey;
    }
}

// A picture for a tool button: the desktop's icon of that name (or its symbolic form), else
// the first letters of the button's tip drawn as a small badge.
QIcon toolIcon(std::string_view name, std::string_view tip) {
    const QString n = latin1(name);
    QIcon icon = QIcon::fromTheme(n);
    if (icon.isNull()) icon = QIcon::fromTheme(n + QStringLiteral("-symbolic"));
    if (!icon.isNull()) return icon;
    QString letters;
    for (const QString& w : latin1(tip).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        if (letters.size() < 2) letters += w.front().toUpper();
    QPixmap pm(32, 32);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(90, 90, 90), 2));
    p.drawRoundedRect(QRectF(2, 2, 28, 28), 5, 5);
    QFont f = p.font();
    f.setPixelSize(14);
    f.setBold(true);
    p.setFont(f);
    p.drawText(QRect(0, 0, 32, 32), Qt::AlignCenter, letters);
    return QIcon(pm);
}

} // namespace

MainWindow::MainWindow(App& app, Options options)
    : app_(app), options_(options), previousWindows_(app.windows) {
    setObjectName(QStringLiteral("Main"));
    setWindowTitle(QStringLiteral("Nebkaro"));
    app_.windows = this;
    lookup_ = std::make_unique<ui::SignBrowserHost>(app_);
    tools_ = new SearchWindows(app_, this);
    exchange_ = new ExchangeCommands(app_, *tools_, this);
    connect(exchange_, &ExchangeCommands::changed, this, [this] { wordViewChanged(); });
    surface_ = new WordViewWidget(app_, this);
    dispArea_ = surface_->displayArea();
    for (const auto& button : surface_->commandButtons()) buttons_.push_back(button);
    connect(surface_, &WordViewWidget::commandRequested, this, &MainWindow::runCommand);
    connect(surface_, &WordViewWidget::viewChanged, this, [this] { wordViewChanged(); });
    connect(surface_, &WordViewWidget::fieldMenuRequested, this,
            [this](QPoint global) { popup_->popup(global); });
    // On a screen too small for the whole word view (a large screen scale) the view scrolls
    // rather than being cut off; a taller window gives the display area the extra height.
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("MainScroll"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(surface_);
    setCentralWidget(scroll);
    installHandlers();
    buildToolBar();
    surface_->setToolBar(toolbar_);
    buildMenus();
    buildShortcuts();
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    setMinimumWidth(px(MainGeometry::MinWidth));
    surface_->setMinimumHeight(px(WordViewWidget::DesignHeight));
    const int whole = px(WordViewWidget::DesignHeight) + menuBar()->sizeHint().height() +
                      statusBar()->sizeHint().height();
    int height = whole;
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        height = std::min(whole, screen->availableGeometry().height() - FrameAllowance);
    // A view that scrolls keeps its scroll bar beside the view, not over its right edge.
    if (height < whole) {
        scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        scrollBarRoom_ = scroll->verticalScrollBar()->sizeHint().width();
        setMinimumWidth(px(MainGeometry::MinWidth) + scrollBarRoom_);
    }
    requestedWidth_ = px(app_.view.windowWidth) + scrollBarRoom_;
    resize(requestedWidth_, height);
    qApp->installEventFilter(this);
    keepWindowsOnScreen(this);
    refreshAvailability();
    surface_->layoutControls();
}

MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
    for (const QString& f : paintFiles_) QFile::remove(f);
    for (auto& [id, before] : installed_) app_.commands.provide(id, std::move(before));
    lookup_.reset();
    if (app_.windows == this) app_.windows = previousWindows_;
}

bool MainWindow::startUp(const std::string& commandLine) {
    bool ok = false;
    runGuarded(app_, [&] { ok = startProgram(app_, commandLine); });
    wordViewChanged();
    return ok && !app_.endRequested;
}

// ---------------------------------------------------------------------------------- building

void MainWindow::buildToolBar() {
    toolbar_ = new QFrame(surface_);
    toolbar_->setObjectName(QStringLiteral("fraToolbar"));
    toolbar_->setFrameShape(QFrame::NoFrame);
    auto* row = new QHBoxLayout(toolbar_);
    row->setContentsMargins(2, 3, 2, 3);
    row->setSpacing(0);
    for (const ToolButton& t : toolBarButtons(app_.commands)) {
        auto* b = new QToolButton(toolbar_);
        b->setObjectName(QString::fromStdString(t.objectName));
        b->setToolTip(latin1(t.toolTip));
        b->setIcon(toolIcon(t.icon, t.toolTip));
        b->setIconSize(QSize(16, 16));
        b->setAutoRaise(true);
        b->setFixedSize(22, 24);
        b->setFocusPolicy(Qt::NoFocus);
        const CommandId id = t.command;
        connect(b, &QToolButton::clicked, this, [this, id] { runCommand(id); });
        buttons_.emplace_back(b, id);
        row->addWidget(b);
    }
    row->addStretch();
}

QAction* MainWindow::commandAction(const MenuItem& item, QMenu* menu) {
    auto* a = new QAction(qs(item.caption), this);
    a->setObjectName(qs(item.objectName));
    a->setCheckable(item.checkable);
    if (!item.toolTip.empty()) a->setToolTip(qs(item.toolTip));
    if (item.command) {
        const CommandId id = *item.command;
        connect(a, &QAction::triggered, this, [this, id] { runCommand(id); });
        actions_.emplace_back(a, id);
        // The menu shows the command's keys. The window's shortcuts handle the keys; the
        // action's own shortcut acts only inside its open menu, so a key never runs twice.
        QList<QKeySequence> keys;
        if (const Command* c = app_.commands.find(id))
            for (const Key& k : c->keys) keys << QKeySequence(latin1(k.keys));
        a->setShortcuts(keys);
        a->setShortcutContext(Qt::WidgetShortcut);
        if (id == CommandId::ShowBorders) showBorders_ = a;
    }
    if (item.separatorBefore && !menu->isEmpty()) menu->addSeparator();
    menu->addAction(a);
    return a;
}

QMenu* MainWindow::buildMenu(const MenuItem& item, QMenu* into) {
    auto* m = into ? into->addMenu(qs(item.caption)) : new QMenu(qs(item.caption), this);
    m->setObjectName(qs(item.objectName));
    m->menuAction()->setObjectName(qs(item.objectName));
    for (const MenuItem& child : item.children) {
        if (!child.children.empty()) {
            if (child.separatorBefore && !m->isEmpty()) m->addSeparator();
            buildMenu(child, m);
        } else {
            commandAction(child, m);
        }
        if (child.objectName == "mnuCopyUnicode") exchange_->addWordItems(m);
        if (child.objectName == "mnuMerge") exchange_->addFileItems(m);
        // The scale Copy Glyph Image and Save Image draw the word at.
        if (child.objectName == "mnuZoomReset") {
            m->addSeparator();
            QMenu* scales = m->addMenu(QStringLiteral("Picture &Scale"));
            scales->setObjectName(QStringLiteral("mnuPictureScale"));
            auto* group = new QActionGroup(scales);
            for (int s = 1; s <= MaxPictureScaleSetting; ++s) {
                QAction* a = scales->addAction(QStringLiteral("%1\u00d7").arg(s));
                a->setObjectName(QStringLiteral("mnuPictureScale%1").arg(s));
                a->setCheckable(true);
                a->setChecked(app_.settings.pictureScale == s);
                group->addAction(a);
                connect(a, &QAction::triggered, this,
                        [this, s] { app_.settings.pictureScale = s; });
            }
            connect(scales, &QMenu::aboutToShow, this, [scales, this] {
                const QString on =
                    QStringLiteral("mnuPictureScale%1").arg(app_.settings.pictureScale);
                for (QAction* a : scales->actions()) a->setChecked(a->objectName() == on);
            });
        }
    }
    return m;
}

void MainWindow::buildMenus() {
    for (const MenuItem& top : menuBarItems()) {
        QMenu* m = buildMenu(top, nullptr);
        menuBar()->addMenu(m);
    }
    popup_ = buildMenu(popupMenuItems(), nullptr);
}

void MainWindow::buildShortcuts() {
    for (const Shortcut& s : allShortcuts(app_.commands)) {
        const bool area = s.scope == ShortcutScope::DisplayArea;
        auto* sc =
            new QShortcut(QKeySequence(latin1(s.keys)),
                          area ? static_cast<QWidget*>(dispArea_) : static_cast<QWidget*>(this));
        sc->setContext(area ? Qt::WidgetShortcut : Qt::WindowShortcut);
        const CommandId id = s.command;
        shortcuts_.emplace_back(sc, id);
        connect(sc, &QShortcut::activated, this, [this, id] {
            // A modal window (the composer, a dialog) holds the program: a key that reaches
            // this window behind it must not change the dictionary.
            if (QApplication::activeModalWidget()) return;
            if (commandAvailable(app_, id)) runCommand(id);
        });
    }
}

void MainWindow::installHandlers() {
    // Each part of the program registers its own commands; this window provides the code of
    // the commands whose work is a window of its own.
    registerEditingCommands(app_.commands);
    registerBulkCommands(app_.commands);
    registerTranslitCommands(app_.commands);
    const std::pair<CommandId, CommandHandler> handlers[] = {
        {CommandId::CopyWordImage, [this](App&) { copyImage(); }},
        {CommandId::SaveWordImage, [this](App&) { saveImage(); }},
        {CommandId::PasteImageToPaint, [this](App&) { pasteToPaint(); }},
        {CommandId::CopyUnicode, [this](App&) { copyAsUnicode(); }},
        {CommandId::Options, [this](App&) { showPreferences(); }},
        {CommandId::AboutProgram, [this](App&) { showAbout(); }},
        {CommandId::Typewriter, [this](App&) { tools_->showTypewriterBesideMain(); }},
        {CommandId::TransTable, [this](App&) { tools_->showTransTable(); }},
        {CommandId::Help, [this](App&) { showHelp(); }},
        {CommandId::PrintDictionary, [this](App& a) { printing_.printDictionaryDialog(a, this); }},
        {CommandId::PrintMultiple, [this](App& a) { printing_.printMultipleDialog(a, this); }},
        {CommandId::PrintWord, [this](App& a) { printing_.addCurrentWordToPage(a, this); }},
        {CommandId::FormFeed, [this](App& a) { printing_.formFeed(a, this); }},
        // Words collected for a page are not dropped unasked on the way out.
        {CommandId::Quit,
         [this](App& a) {
             if (printing_.confirmQuit(a, this)) quitCommand(a);
         }},
    };
    for (const auto& [id, handler] : handlers)
        installed_.emplace(id, app_.commands.provide(id, handler));
}

// ---------------------------------------------------------------------------- showing the view

void MainWindow::refreshAvailability() {
    for (const auto& [a, id] : actions_) {
        a->setEnabled(commandAvailable(app_, id));
        if (id == CommandId::Undo || id == CommandId::Redo)
            a->setText(qs(currentCaption(app_, id, id == CommandId::Undo ? "&Undo" : "&Redo")));
    }
    for (const auto& [b, id] : buttons_) b->setEnabled(commandAvailable(app_, id));
}

void MainWindow::wordViewChanged() {
    WordView& v = app_.view;
    // The renderer may ask for another width (a wide word, or back to 6960 twips); a width
    // the user gave the window by hand is kept, growing only for a wider word. The display
    // always follows the width the window really has.
    const int wanted = std::max(px(v.windowWidth) + scrollBarRoom_, userWidth_);
    if (wanted != width() && !isMaximized() && !isFullScreen()) {
        requestedWidth_ = wanted;
        resize(wanted, height());
    }
    resizeWordView(v, (width() - scrollBarRoom_) * TwipsPerPixel);

    surface_->showView();
    if (showBorders_) {
        const QSignalBlocker block(showBorders_);
        showBorders_->setChecked(v.showBorders);
    }
    // The line naming a missing picture, or why the signs could not be drawn, goes with the
    // word that had it.
    if (!v.missingPictures.empty() || !v.drawProblem.empty()) {
        pictureMessage_ = statusBar()->currentMessage();
    } else if (!pictureMessage_.isEmpty()) {
        if (statusBar()->currentMessage() == pictureMessage_) statusBar()->clearMessage();
        pictureMessage_.clear();
    }
    refreshAvailability();
    surface_->layoutControls();
}

// ------------------------------------------------------------------------------------ events

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::Shortcut) {
        // A shortcut takes its key before the window sees it; the window still counts it as
        // the key pressed last, so that only Ctrl directly followed by G or M toggles a box.
        auto* sc = qobject_cast<QShortcut*>(watched);
        auto* w = sc ? qobject_cast<QWidget*>(sc->parent()) : nullptr;
        const QKeySequence keys = static_cast<QShortcutEvent*>(event)->key();
        if (w && w->window() == this && !keys.isEmpty())
            windowKeyDown(app_.view, keyCode(keys[keys.count() - 1].key()));
        // While the menu bar has the focus, a menu item's keys and the window's shortcut are
        // both in reach and Qt calls the key ambiguous: it still runs its command, once.
        if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            std::optional<CommandId> id;
            for (const auto& [a, c] : actions_)
                if (a == watched) id = c;
            for (const auto& [k, c] : shortcuts_)
                if (k == watched) id = c;
            if (id) {
                if (!QApplication::activeModalWidget() && commandAvailable(app_, *id))
                    runCommand(*id);
                return true;
            }
        }
    } else if (type == QEvent::KeyPress) {
        // The window sees every key before its controls do, once per key: at the widget that
        // has the focus (or the window itself when none has).
        auto* w = qobject_cast<QWidget*>(watched);
        QWidget* focus = QApplication::focusWidget();
        const bool focusHere = focus && focus->window() == this;
        if (w && w->window() == this && (focusHere ? w == focus : w == this)) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (windowKeyDown(app_.view, keyCode(key->key()))) wordViewChanged();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The program opens with the word in front: the display area has the focus, so that its
    // keys work at once and no text box is entered before the user chooses one.
    if (!shown_) {
        shown_ = true;
        dispArea_->setFocus(Qt::OtherFocusReason);
    }
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (isMinimized()) return;
    // A width this window did not ask for is the user's (or the screen's, when it is narrow).
    if (!isMaximized() && !isFullScreen() && width() != requestedWidth_) userWidth_ = width();
    resizeWordView(app_.view, (width() - scrollBarRoom_) * TwipsPerPixel);
    surface_->layoutControls();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (ending_) {
        event->accept();
        return;
    }
    bool close = true;
    runGuarded(app_, [&] { close = printing_.confirmQuit(app_, this) && closeMainWindow(app_); });
    if (!close) {
        event->ignore();
        return;
    }
    event->accept();
    ending_ = true;
    Q_EMIT programEnded(app_.exitCode);
}

// ---------------------------------------------------------------------------------- commands

bool MainWindow::runCommand(CommandId id) {
    const bool ran = executeCommand(app_, id);
    endIfRequested();
    return ran;
}

void MainWindow::endIfRequested() {
    if (app_.endRequested) endProgram();
}

void MainWindow::endProgram() {
    ending_ = true;
    close();
    Q_EMIT programEnded(app_.exitCode);
}

void MainWindow::copyImage() {
    const QByteArray png = wordPicturePng(app_.view.picture, app_.settings.pictureScale);
    app_.clipboard.clear();
    app_.clipboard.setImagePng(std::vector<std::uint8_t>(png.begin(), png.end()));
}

void MainWindow::saveImage() {
    saveWordImage(app_, [this](const std::filesystem::path& file, ImageFormat format) {
        return saveWordPicture(app_.view.picture, QString::fromStdString(file.string()), format,
                               app_.settings.pictureScale);
    });
}

void MainWindow::pasteToPaint() {
    // The desktop's own picture program opens a PNG of the word; the file stays in the
    // temporary folder while that program may read it, and goes when this program ends.
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/nebkaro-word-XXXXXX.png"));
    file.setAutoRemove(false);
    bool opened = false;
    if (file.open()) {
        file.write(wordPicturePng(app_.view.picture));
        file.close();
        opened = QDesktopServices::openUrl(QUrl::fromLocalFile(file.fileName()));
        if (opened)
            paintFiles_.push_back(file.fileName());
        else
            file.remove();
    }
    if (!opened) app_.dialogs.message("Not yet implemented", "", Buttons::OK, Icon::Exclamation);
}

void MainWindow::copyAsUnicode() {
    copyWordAsUnicode(app_);
}

void MainWindow::showPreferences() {
    PreferencesDialog dialog(app_, this);
    dialog.exec();
}

void MainWindow::showHelp() {
    if (!help_) help_ = new HelpWindow(app_.home, app_.commands, this);
    help_->show();
    fitOnScreen(help_);
    help_->raise();
    help_->activateWindow();
}

void MainWindow::showAbout() {
    // From the menu the About box does not hold up the program.
    if (!about_) {
        about_ = new AboutDialog(app_, this);
        about_->setAttribute(Qt::WA_DeleteOnClose);
    }
    about_->show();
    about_->raise();
    about_->activateWindow();
}

} // namespace nebkaro
