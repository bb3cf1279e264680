#include "ui/main_window.h"

#include "bulk/bulk_commands.h"
#include "bulk/search.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/startup.h"
#include "core/text.h"
#include "core/twips.h"
#include "display/image_export.h"
#include "display/main_layout.h"
#include "display/qstring_qt.h"
#include "display/unicode_text.h"
#include "display/word_picture_qt.h"
#include "display/word_view_events.h"
#include "display/zoom.h"
#include "editing/commands.h"
#include "translit/guess.h"
#include "ui/about_dialog.h"
#include "ui/cancel_dialog.h"
#include "ui/compose_window.h"
#include "ui/exchange_commands.h"
#include "ui/header_dialog.h"
#include "ui/help_window.h"
#include "ui/letter_column.h"
#include "ui/lookup_window.h"
#include "ui/preferences_dialog.h"
#include "ui/screen_fit.h"
#include "ui/search_tools.h"
#include "ui/sign_pixmap.h"
#include "ui/sort_dialog.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFocusEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QShortcutEvent>
#include <QStatusBar>
#include <QTemporaryFile>
#include <QToolButton>
#include <QUrl>
#include <QWheelEvent>

#include <cmath>

namespace nebkaro {

namespace {

// The design of the word view, in twips: the boxes' left edge and height, and the tops of
// RichGardinerlbl, GardinerTxt, TransLitTxt, MeaningTxt and CommentTxt (each box's caption
// stands 240 twips above it).
constexpr int FieldLeft = 400;
constexpr int BoxHeight = 330;
constexpr int FieldTop[5] = {3960, 4620, 5280, 5940, 6600};

int px(int twips) {
    return static_cast<int>(std::lround(twips / static_cast<double>(TwipsPerPixel)));
}

QRect pixelRect(int left, int top, int width, int height) {
    return {px(left), px(top), px(width), px(height)};
}

// Key codes as the word view counts them: Ctrl 17, Shift 16, Alt 18; letters and digits
// keep their codes, which are the same in both worlds.
int keyCode(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Control:
        return KeyControl;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Alt:
        return 18;
    default:
        return qtKey;
    }
}

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

// The window's surface (its client area): the display area's right-click menu and the double
// click that edits the word are events of the surface itself.
class WordSurface : public QWidget {
public:
    WordSurface(MainWindow* main) : QWidget(main), main_(main) {}

protected:
    void mousePressEvent(QMouseEvent* e) override {
        main_->surfaceMousePress(buttonCode(e->button()), e->position().toPoint(),
                                 e->globalPosition().toPoint());
    }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton) main_->surfaceDoubleClick();
    }

private:
    MainWindow* main_;
};

template <typename Fn> void MainWindow::guarded(Fn fn) {
    try {
        fn();
    } catch (const RunError& e) {
        app_.dialogs.message(e.report(), "", Buttons::OK, Icon::Critical);
    } catch (const ProgramFileError& e) {
        app_.dialogs.message(e.message(), "", Buttons::OK, Icon::Critical);
        app_.requestEnd(1);
    } catch (const std::exception& e) {
        app_.dialogs.message(std::string("The command could not be completed: ") + e.what(), "",
                             Buttons::OK, Icon::Critical);
    }
}

MainWindow::MainWindow(App& app, Options options)
    : app_(app), options_(options), previousWindows_(app.windows) {
    setObjectName(QStringLiteral("Main"));
    setWindowTitle(QStringLiteral("Nebkaro"));
    app_.windows = this;
    lookup_ = std::make_unique<ui::LookupHost>(app_);
    tools_ = new SearchTools(app_, this);
    exchange_ = new ExchangeCommands(app_, *tools_, this);
    connect(exchange_, &ExchangeCommands::changed, this, [this] { wordViewChanged(); });
    surface_ = new WordSurface(this);
    surface_->setObjectName(QStringLiteral("MainSurface"));
    // On a screen too small for the whole word view (a large screen scale) the view scrolls
    // rather than being cut off; a taller window gives the display area the extra height.
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("MainScroll"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(surface_);
    setCentralWidget(scroll);
    buildToolBar();
    buildWordView();
    installHandlers();
    buildMenus();
    buildShortcuts();
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    setMinimumWidth(px(MainGeometry::MinWidth));
    surface_->setMinimumHeight(px(SurfaceHeight));
    const int whole =
        px(SurfaceHeight) + menuBar()->sizeHint().height() + statusBar()->sizeHint().height();
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
    layoutControls();
}

MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
    for (const QString& f : paintFiles_) QFile::remove(f);
    for (CommandId id : installed_) InstallCommandHandler(app_, id, nullptr);
    lookup_.reset();
    if (app_.windows == this) app_.windows = previousWindows_;
}

bool MainWindow::startUp(const std::string& commandLine) {
    bool ok = false;
    guarded([&] { ok = StartUp(app_, commandLine); });
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
    for (const ToolButton& t : ToolBar()) {
        auto* b = new QToolButton(toolbar_);
        b->setObjectName(latin1(t.objectName));
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

void MainWindow::buildWordView() {
    WordView& v = app_.view;

    dispArea_ = new QFrame(surface_);
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

    for (int i = 0; i < GlyphTable::Slots; ++i) {
        auto* l = new QLabel(surface_);
        l->setObjectName(QStringLiteral("mainGlyphPic%1").arg(i));
        l->setAlignment(Qt::AlignCenter);
        l->hide();
        glyphs_[static_cast<std::size_t>(i)] = l;
    }

    auto label = [this](const char* name, const char* caption, int left, int top) {
        auto* l = new QLabel(QLatin1String(caption), surface_);
        l->setObjectName(QLatin1String(name));
        fixed_.emplace_back(l, QRect(left, top, 3000, 240));
        return l;
    };
    // Fields: a caption, then the box under it; the hide switch of the box in the margin on
    // the right. Widths follow the window (layoutControls); tops are the design's.
    label("Label1", "Enriched Notation", FieldLeft, FieldTop[0] - 240);
    label("Label2", "Gardiner's Notation", FieldLeft, FieldTop[1] - 240);
    label("Label3", "Translitteration", FieldLeft, FieldTop[2] - 240);
    label("Label4", "Meaning", FieldLeft, FieldTop[3] - 240);
    label("Commentlbl", "Comment", FieldLeft, FieldTop[4] - 240);
    auto* hideLabel = new QLabel(QStringLiteral("Hide"), surface_);
    hideLabel->setObjectName(QStringLiteral("Label5"));
    hideLabel->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);

    richGardiner_ = new QLabel(surface_);
    richGardiner_->setObjectName(QStringLiteral("RichGardinerlbl"));
    richGardiner_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    richGardiner_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    richGardiner_->setTextFormat(Qt::PlainText);

    const char* boxNames[4] = {"GardinerTxt", "TransLitTxt", "MeaningTxt", "CommentTxt"};
    const char* boxTips[4] = {"Displays the Gardiner's Notation",
                              "Transliteration of the word displayed", "Meaning of the word",
                              nullptr};
    for (int i = 0; i < 4; ++i) {
        auto* e = new QLineEdit(surface_);
        e->setObjectName(QLatin1String(boxNames[i]));
        if (boxTips[i]) e->setToolTip(QLatin1String(boxTips[i]));
        const TextBox box = static_cast<TextBox>(i);
        connect(e, &QLineEdit::textEdited, this, [this, box, e](const QString& text) {
            TextBoxChanged(app_, box, text.toStdString());
            showKeptText(e, text, qs(textOf(app_.view, box)));
        });
        boxes_[static_cast<std::size_t>(i)] = e;
    }
    // The transliteration is typed in plain letters and shown in their scholarly forms.
    QFont translit(QStringLiteral("Transliteration"));
    translit.setPointSizeF(boxes_[1]->font().pointSizeF() * 1.25);
    boxes_[1]->setFont(translit);

    const char* hideNames[5] = {"ChkHideEnriched", "ChkHideGardiner", "ChkHideTrans",
                                "ChkHideMeaning", "ChkHideComment"};
    const char* hideTips[5] = {nullptr, "Hide the Gardiner's notation", "Hide the transliteration",
                               "Hide the Meaning", "Hide the comment"};
    for (int i = 0; i < 5; ++i) {
        auto* c = new QCheckBox(surface_);
        c->setObjectName(QLatin1String(hideNames[i]));
        if (hideTips[i]) c->setToolTip(QLatin1String(hideTips[i]));
        c->setChecked(v.hidden[static_cast<std::size_t>(i)]);
        connect(c, &QCheckBox::toggled, this, [this, i](bool on) {
            app_.view.hidden[static_cast<std::size_t>(i)] = on;
            wordViewChanged();
        });
        hide_[static_cast<std::size_t>(i)] = c;
    }

    number_ = new QLineEdit(surface_);
    number_->setObjectName(QStringLiteral("txtNumber"));
    number_->setAlignment(Qt::AlignRight);
    connect(number_, &QLineEdit::textEdited, this,
            [this](const QString& t) { app_.view.txtNumber = t.toStdString(); });
    connect(number_, &QLineEdit::returnPressed, this, [this] {
        if (CommandAvailable(app_, CommandId::Go)) runCommand(CommandId::Go);
    });

    counter_ = new QLabel(surface_);
    counter_->setObjectName(QStringLiteral("lblCounter"));
    counter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    counter_->setToolTip(QStringLiteral("Passes left of the sort"));
    fixed_.emplace_back(counter_, QRect(5900, 3240, 660, 390));

    progressTrack_ = new QFrame(surface_);
    progressTrack_->setObjectName(QStringLiteral("fraProgress"));
    progressTrack_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    progressTrack_->setToolTip(QStringLiteral("Where the word on show lies in the dictionary"));
    progress_ = new QFrame(progressTrack_);
    progress_->setObjectName(QStringLiteral("shpProgress"));
    progress_->setAutoFillBackground(true);
    QPalette bar = progress_->palette();
    bar.setColor(QPalette::Window, bar.color(QPalette::Highlight));
    progress_->setPalette(bar);

    // The buttons beside the word, in rows under the fields.
    const std::pair<const char*, QRect> navigation[] = {
        {"cmdFirst", {400, 3240, 660, 390}}, {"cmdPrev", {1120, 3240, 660, 390}},
        {"cmdGo", {2800, 3240, 540, 390}},   {"cmdNext", {3400, 3240, 660, 390}},
        {"cmdLast", {4120, 3240, 660, 390}}, {"cmdRandom", {4840, 3240, 960, 390}},
    };
    fixed_.emplace_back(number_, QRect(1840, 3240, 900, 390));
    const char* rows[3][6] = {
        {"NewCmd", "cmdEdit", "cmdStore", "cmdDelete", "Duplicatecmd", "cmdFlip"},
        {"cmdSearch", "cmdSearchNext", "cmdSearchPrevious", "cmdSort", "cmdTransTable", nullptr},
        {"CmdLoad", "cmdSave", "CmdSaveAs", "cmdPreferences", "cmdAbout", "cmdQuit"},
    };
    auto designPlace = [&](const std::string_view name) -> std::optional<QRect> {
        for (const auto& [n, r] : navigation)
            if (name == n) return r;
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 6; ++c)
                if (rows[r][c] && name == rows[r][c])
                    return QRect(400 + c * 1050, 7140 + r * 450, 990, 390);
        return std::nullopt;
    };
    int spare = 5; // buttons the design does not place go after the second row's
    for (const ViewButton& b : WordViewButtons()) {
        auto* button = new QPushButton(latin1(b.caption), surface_);
        button->setObjectName(latin1(b.objectName));
        button->setToolTip(latin1(b.toolTip));
        button->setAutoDefault(false);
        const CommandId id = b.command;
        connect(button, &QPushButton::clicked, this, [this, id] { runCommand(id); });
        buttons_.emplace_back(button, id);
        if (b.objectName == "cmdTransGuess") {
            // Placed beside TransLitTxt, in the narrow room the design leaves it.
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

QAction* MainWindow::commandAction(const MenuItem& item, QMenu* menu) {
    auto* a = new QAction(qs(item.caption), this);
    a->setObjectName(qs(item.objectName));
    a->setCheckable(item.checkable);
    if (item.command) {
        const CommandId id = *item.command;
        connect(a, &QAction::triggered, this, [this, id] { runCommand(id); });
        actions_.emplace_back(a, id);
        // The menu shows the command's keys. The window's shortcuts handle the keys; the
        // action's own shortcut acts only inside its open menu, so a key never runs twice.
        QList<QKeySequence> keys;
        for (const Shortcut& s : ShortcutsOf(id)) keys << QKeySequence(latin1(s.keys));
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
        // Copy as Unicode goes with the other ways a word's signs leave the program.
        if (child.objectName == "mnuCopyToPaint") {
            auto* a = new QAction(QStringLiteral("Copy as &Unicode"), this);
            a->setObjectName(QStringLiteral("mnuCopyUnicode"));
            a->setToolTip(QStringLiteral("Copy the signs of the word as Unicode hieroglyphs"));
            connect(a, &QAction::triggered, this, [this] {
                guarded([this] { copyAsUnicode(); });
                wordViewChanged();
            });
            m->addAction(a);
            exchange_->addWordItems(m);
        }
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
    for (const MenuItem& top : MenuBar()) {
        QMenu* m = buildMenu(top, nullptr);
        menuBar()->addMenu(m);
    }
    popup_ = buildMenu(PopupMenu(), nullptr);
}

void MainWindow::buildShortcuts() {
    for (const Shortcut& s : Shortcuts()) {
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
            if (CommandAvailable(app_, id)) runCommand(id);
        });
    }
}

void MainWindow::installHandlers() {
    // The commands whose code lives outside the editing library, as this program provides
    // them.
    const std::pair<CommandId, std::function<void(App&)>> handlers[] = {
        {CommandId::ShowBorders, [](App& a) { ToggleShowBorders(a.view); }},
        {CommandId::CopyWordImage, [this](App&) { copyImage(); }},
        {CommandId::SaveWordImage, [this](App&) { saveImage(); }},
        {CommandId::PasteImageToPaint, [this](App&) { pasteToPaint(); }},
        {CommandId::Options, [this](App&) { showPreferences(); }},
        {CommandId::AboutProgram, [this](App&) { showAbout(); }},
        {CommandId::Find, FindCommand},
        {CommandId::FindNext, FindNextCommand},
        {CommandId::FindPrevious, FindPreviousCommand},
        {CommandId::SortButton, SortCommand},
        {CommandId::SortMenu, MenuSortCommand},
        {CommandId::SortGardiner, SortGardinerCommand},
        {CommandId::Shuffle, ShuffleCommand},
        {CommandId::FlipAllLeft, [](App& a) { FlipAllCommand(a, 0); }},
        {CommandId::FlipAllRight, [](App& a) { FlipAllCommand(a, 1); }},
        {CommandId::FlipAllInvert, [](App& a) { FlipAllCommand(a, 2); }},
        {CommandId::Typewriter, [this](App&) { tools_->showTypewriterBesideMain(); }},
        {CommandId::TransTable, [this](App&) { tools_->showTransTable(); }},
        {CommandId::TransGuess, TransGuess},
        {CommandId::Help, [this](App&) { showHelp(); }},
        {CommandId::PrintDictionary, [this](App& a) { printing_.printDictionaryDialog(a, this); }},
        {CommandId::PrintMultiple, [this](App& a) { printing_.printMultipleDialog(a, this); }},
        {CommandId::PrintWord, [this](App& a) { printing_.addCurrentWordToPage(a, this); }},
        {CommandId::FormFeed, [this](App& a) { printing_.formFeed(a, this); }},
        // Words collected for a page are not dropped unasked on the way out.
        {CommandId::Quit,
         [this](App& a) {
             if (printing_.confirmQuit(a, this)) QuitCommand(a);
         }},
    };
    for (const auto& [id, handler] : handlers) {
        InstallCommandHandler(app_, id, handler);
        installed_.insert(id);
    }
}

// ---------------------------------------------------------------------------- showing the view

void MainWindow::layoutControls() {
    const WordView& v = app_.view;
    const int w = v.windowWidth;
    toolbar_->setGeometry(0, 0, width(), px(480));
    const Rect& a = v.geometry.DispAreaShp;
    const int extra = extraHeight();
    dispArea_->setGeometry(pixelRect(a.left, a.top, a.width, a.height).adjusted(0, 0, 0, extra));
    progressTrack_->setGeometry(pixelRect(a.left, 3060, v.geometry.progressContainerWidth, 120));
    for (const auto& [widget, r] : fixed_)
        widget->setGeometry(pixelRect(r.x(), r.y(), r.width(), r.height()));

    const MainLayout l = MainLayoutFor(w);
    richGardiner_->setGeometry(pixelRect(FieldLeft, FieldTop[0], l.textWidth, BoxHeight));
    boxes_[0]->setGeometry(pixelRect(FieldLeft, FieldTop[1], l.textWidth, BoxHeight));
    boxes_[1]->setGeometry(pixelRect(FieldLeft, FieldTop[2], l.translitWidth, BoxHeight));
    boxes_[2]->setGeometry(pixelRect(FieldLeft, FieldTop[3], l.textWidth, BoxHeight));
    boxes_[3]->setGeometry(pixelRect(FieldLeft, FieldTop[4], l.textWidth, BoxHeight));
    if (auto* guess = surface_->findChild<QPushButton*>(QStringLiteral("cmdTransGuess")))
        guess->setGeometry(pixelRect(FieldLeft + l.guessLeftOffset, FieldTop[2], 590, BoxHeight));
    for (int i = 0; i < 5; ++i)
        hide_[static_cast<std::size_t>(i)]->setGeometry(
            pixelRect(w - 290, FieldTop[i] + 30, 270, 270));
    if (auto* hideLabel = surface_->findChild<QLabel*>(QStringLiteral("Label5")))
        hideLabel->setGeometry(pixelRect(w - 400, FieldTop[0] - 240, 400, 240));
    // Everything below the display area moves down by the height it gained.
    if (extra > 0) {
        const int below = px(a.top + a.height);
        for (QWidget* child : surface_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (child == dispArea_ || child == toolbar_ ||
                std::find(glyphs_.begin(), glyphs_.end(), child) != glyphs_.end())
                continue;
            if (child->y() >= below) child->move(child->x(), child->y() + extra);
        }
    }
    showGlyphs();
}

int MainWindow::extraHeight() const {
    return std::max(0, surface_->height() - px(SurfaceHeight));
}

void MainWindow::showGlyphs() {
    const WordView& v = app_.view;
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        QLabel* l = glyphs_[static_cast<std::size_t>(i)];
        const GlyphImage& img = v.mainGlyphPic[static_cast<std::size_t>(i)];
        if (!img.visible) {
            l->hide();
            continue;
        }
        // Drawn for the screen's own pixels at the zoom, sharp on a scaled screen.
        const int zoom = ClampZoom(app_.settings.wordZoom);
        const double dpr = l->devicePixelRatioF();
        const QString file = QString::fromStdString(img.picture.file.string());
        const QString key = file + QLatin1Char('@') + QString::number(dpr) + QLatin1Char('x') +
                            QString::number(zoom);
        QPixmap pm;
        if (img.picture.ok) {
            auto it = pixmaps_.find(key);
            if (it == pixmaps_.end()) {
                // A picture that cannot be read stays a null pixmap: an empty framed square.
                const bool readable = !QPixmap(file).isNull();
                it = pixmaps_.insert(key, readable ? ui::signPixmap(img.picture, zoom / 100.0, dpr)
                                                   : QPixmap());
            }
            pm = *it;
        }
        const Rect& area = v.geometry.DispAreaShp;
        const Rect box =
            ZoomedBox({img.left, img.top, img.picture.width, img.picture.height}, area, zoom);
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

void MainWindow::refreshAvailability() {
    for (const auto& [a, id] : actions_) {
        a->setEnabled(CommandAvailable(app_, id));
        if (id == CommandId::Undo || id == CommandId::Redo)
            a->setText(qs(CurrentCaption(app_, id, id == CommandId::Undo ? "&Undo" : "&Redo")));
    }
    for (const auto& [b, id] : buttons_) b->setEnabled(CommandAvailable(app_, id));
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
    ResizeWordView(v, (width() - scrollBarRoom_) * TwipsPerPixel);

    auto setText = [](QLineEdit* e, const std::string& s) {
        const QString t = qs(s);
        if (e->text() != t) {
            const QSignalBlocker block(e);
            e->setText(t);
        }
    };
    setText(boxes_[0], v.GardinerTxt);
    setText(boxes_[1], v.TransLitTxt);
    setText(boxes_[2], v.MeaningTxt);
    setText(boxes_[3], v.CommentTxt);
    setText(number_, v.txtNumber);
    richGardiner_->setText(qs(v.RichGardinerlbl));
    richGardiner_->setToolTip(qs(v.RichGardinerlbl)); // a long layout runs past the box

    for (int i = 0; i < 5; ++i) {
        const QSignalBlocker block(hide_[static_cast<std::size_t>(i)]);
        hide_[static_cast<std::size_t>(i)]->setChecked(v.hidden[static_cast<std::size_t>(i)]);
    }
    richGardiner_->setVisible(!v.hidden[0]);
    for (int i = 0; i < 4; ++i)
        boxes_[static_cast<std::size_t>(i)]->setVisible(!v.hidden[static_cast<std::size_t>(i + 1)]);
    if (showBorders_) {
        const QSignalBlocker block(showBorders_);
        showBorders_->setChecked(v.showBorders);
    }

    // The bar starts 200 twips into its track and is empty with one word or none.
    progressPixels_ = -1;
    progress_->setGeometry(px(200), 2, px(v.progressWidth), std::max(1, px(120) - 4));
    progress_->setVisible(v.progressWidth > 0);

    counter_->clear();
    // The line naming a missing picture, or why the signs could not be drawn, goes with the
    // word that had it.
    if (!v.missingPictures.empty() || !v.drawProblem.empty()) {
        pictureMessage_ = statusBar()->currentMessage();
    } else if (!pictureMessage_.isEmpty()) {
        if (statusBar()->currentMessage() == pictureMessage_) statusBar()->clearMessage();
        pictureMessage_.clear();
    }
    refreshAvailability();
    layoutControls();
}

void MainWindow::setCaption(const std::string& caption) {
    setWindowTitle(qs(caption));
}

void MainWindow::showHeaderDialog(const DictionaryHeader& boxes) {
    if (options_.unattended) return;
    HeaderDialog dialog(app_, boxes, this);
    dialog.exec();
}

void MainWindow::showAboutModal() {
    if (options_.unattended) return;
    AboutDialog dialog(app_, this);
    dialog.exec();
}

void MainWindow::unloadBrowser() {
    // The sign-list browser is built for one library; the next opening builds it afresh.
    lookup_->unload();
}

bool MainWindow::chooseSignFromBrowser() {
    return lookup_->chooseSign();
}

void MainWindow::showTypewriter() {
    // Asked for by the sign browser: the typewriter goes beside it.
    if (lookup_->isLoaded())
        tools_->showTypewriterBeside(lookup_->window());
    else
        tools_->showTypewriterBesideMain();
}

void MainWindow::runComposer() {
    // One composer window; every New and Edit loads it afresh (the first load is its
    // construction), so it starts empty or from the word on show.
    if (!composer_)
        composer_ = new ui::ComposeWindow(app_, this);
    else
        composer_->load();
    if (!app_.endRequested) composer_->run();
}

void MainWindow::setProgress(float fraction) {
    const int track = px(app_.view.geometry.progressContainerWidth - 400);
    const int length = static_cast<int>(std::lround(std::clamp(fraction, 0.0f, 1.0f) * track));
    if (length == progressPixels_) return;
    progressPixels_ = length;
    progress_->setGeometry(px(200), 2, length, std::max(1, px(120) - 4));
    progress_->setVisible(length > 0);
    progress_->repaint();
}

void MainWindow::showSearchDialogAndWait() {
    tools_->showSearchDialogAndWait();
}

namespace {
// The line edit of another window that a typewriter target names.
QLineEdit* targetBox(QWidget* window, TypewriterTarget target) {
    if (!window || !window->isVisible()) return nullptr;
    return window->findChild<QLineEdit*>(target == TypewriterTarget::ComposerMdC
                                             ? QStringLiteral("txtMdC")
                                             : QStringLiteral("txtTrans"));
}
} // namespace

std::string* MainWindow::typewriterText(TypewriterTarget target) {
    std::string* text = nullptr;
    QWidget* window = nullptr;
    if (target == TypewriterTarget::ComposerMdC && composer_) {
        window = composer_;
        text = &composer_->model().txtMdC;
    } else if (target == TypewriterTarget::BrowserTrans && lookup_->isLoaded()) {
        window = lookup_->window();
        text = &lookup_->window()->model().txtTrans;
    }
    QLineEdit* box = targetBox(window, target);
    if (!box) return nullptr;
    // What the user typed by hand counts too: the typewriter appends to the box as it stands.
    *text = box->text().toStdString();
    return text;
}

void MainWindow::typewriterTextChanged(TypewriterTarget target) {
    switch (target) {
    case TypewriterTarget::MainTransLit:
        wordViewChanged();
        return;
    case TypewriterTarget::SearchText:
        tools_->typewriterTextChanged(target);
        return;
    case TypewriterTarget::ComposerMdC:
        if (QLineEdit* box = composer_ ? targetBox(composer_, target) : nullptr)
            box->setText(qs(composer_->model().txtMdC));
        return;
    case TypewriterTarget::BrowserTrans:
        if (QLineEdit* box = lookup_->isLoaded() ? targetBox(lookup_->window(), target) : nullptr)
            box->setText(qs(lookup_->window()->model().txtTrans));
        return;
    case TypewriterTarget::None:
        return;
    }
}

void MainWindow::showSortDialog() {
    if (!sort_) sort_ = new SortDialog(app_, this);
    sort_->showModal();
}

void MainWindow::showProgress(const std::string& text) {
    if (!progressDialog_) progressDialog_ = new CancelDialog(app_, this);
    progressDialog_->showWith(text);
}

void MainWindow::hideProgress() {
    if (progressDialog_) progressDialog_->hide();
}

void MainWindow::setPrinterDefaults() {
    printing_.setDefaults(app_);
}

void MainWindow::showCounter(int value) {
    // The passes left of a long sort; the count goes when the sorted word is drawn.
    counter_->setText(QString::number(value));
}

void MainWindow::showStatus(const std::string& text) {
    statusBar()->showMessage(qs(text));
}

// ------------------------------------------------------------------------------------ events

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    // The word view follows the height the scroll area gives it.
    if (type == QEvent::Resize && watched == surface_ && !isMinimized()) layoutControls();
    // The wheel with Ctrl over the word zooms it.
    if (type == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        const bool overWord = watched == dispArea_ ||
                              std::find(glyphs_.begin(), glyphs_.end(), watched) != glyphs_.end();
        if (overWord && (wheel->modifiers() & Qt::ControlModifier)) {
            const int turn = wheel->angleDelta().y();
            if (turn != 0 && !QApplication::activeModalWidget())
                runCommand(turn > 0 ? CommandId::ZoomIn : CommandId::ZoomOut);
            return true;
        }
    }
    if (type == QEvent::Shortcut) {
        // A shortcut takes its key before the window sees it; the window still counts it as
        // the key pressed last, so that only Ctrl directly followed by G or M toggles a box.
        auto* sc = qobject_cast<QShortcut*>(watched);
        auto* w = sc ? qobject_cast<QWidget*>(sc->parent()) : nullptr;
        const QKeySequence keys = static_cast<QShortcutEvent*>(event)->key();
        if (w && w->window() == this && !keys.isEmpty())
            WindowKeyDown(app_.view, keyCode(keys[keys.count() - 1].key()));
        // While the menu bar has the focus, a menu item's keys and the window's shortcut are
        // both in reach and Qt calls the key ambiguous: it still runs its command, once.
        if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            std::optional<CommandId> id;
            for (const auto& [a, c] : actions_)
                if (a == watched) id = c;
            for (const auto& [k, c] : shortcuts_)
                if (k == watched) id = c;
            if (id) {
                if (!QApplication::activeModalWidget() && CommandAvailable(app_, *id))
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
            if (WindowKeyDown(app_.view, keyCode(key->key()))) wordViewChanged();
        }
    } else if (type == QEvent::FocusIn || type == QEvent::FocusOut) {
        for (int i = 0; i < 4; ++i) {
            if (watched != boxes_[static_cast<std::size_t>(i)]) continue;
            const TextBox box = static_cast<TextBox>(i);
            // A menu or another window taking the focus for a while does not move it within
            // the window: the box neither leaves nor is entered again when it comes back.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            const bool passing = reason == Qt::PopupFocusReason ||
                                 reason == Qt::ActiveWindowFocusReason ||
                                 reason == Qt::MenuBarFocusReason;
            if (type == QEvent::FocusIn) {
                if (passing && focusedBox_ == i) break;
                focusedBox_ = i;
                TextBoxGotFocus(app_, box);
            } else {
                if (passing) break;
                focusedBox_ = -1;
                TextBoxLostFocus(app_, box);
            }
            break;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::surfaceMousePress(int button, QPoint at, QPoint global) {
    const int x = at.x() * TwipsPerPixel, y = at.y() * TwipsPerPixel;
    if (app_.view.geometry.DispAreaShp.contains(x, y)) dispArea_->setFocus(Qt::MouseFocusReason);
    if (OpensFieldMenu(app_.view, button, x, y)) popup_->popup(global);
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

void MainWindow::surfaceDoubleClick() {
    if (CommandAvailable(app_, CommandId::EditWord)) runCommand(CommandId::EditWord);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (isMinimized()) return;
    // A width this window did not ask for is the user's (or the screen's, when it is narrow).
    if (!isMaximized() && !isFullScreen() && width() != requestedWidth_) userWidth_ = width();
    ResizeWordView(app_.view, (width() - scrollBarRoom_) * TwipsPerPixel);
    layoutControls();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (ending_) {
        event->accept();
        return;
    }
    bool close = true;
    guarded([&] { close = printing_.confirmQuit(app_, this) && CloseMainWindow(app_); });
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
    const bool ran = RunCommand(app_, id);
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
    const QByteArray png = WordPicturePng(app_.view.TemPic, app_.settings.pictureScale);
    app_.clipboard.clear();
    app_.clipboard.setImagePng(std::vector<std::uint8_t>(png.begin(), png.end()));
}

void MainWindow::saveImage() {
    const auto file = app_.dialogs.saveFile(ImageSaveFilter, ProposedImagePath(app_));
    if (!file || file->empty()) return;
    // A picture that cannot be written is not an error of the dictionary: the status bar
    // says so and nothing else happens.
    const QString name = QString::fromStdString(file->string());
    if (SaveWordPicture(app_.view.TemPic, name, ImageFormatFor(*file), app_.settings.pictureScale))
        statusBar()->showMessage(QStringLiteral("Picture saved: ") + name);
    else
        statusBar()->showMessage(QStringLiteral("The picture could not be saved: ") + name);
}

void MainWindow::pasteToPaint() {
    // The desktop's own picture program opens a PNG of the word; the file stays in the
    // temporary folder while that program may read it, and goes when this program ends.
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/nebkaro-word-XXXXXX.png"));
    file.setAutoRemove(false);
    bool opened = false;
    if (file.open()) {
        file.write(WordPicturePng(app_.view.TemPic));
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
    const UnicodeWord w = UnicodeWordText(app_);
    if (w.text.empty() && w.missing.empty()) {
        app_.dialogs.message("The word on show has no signs to copy.", "Copy as Unicode",
                             Buttons::OK, Icon::Exclamation);
        return;
    }
    if (!w.text.empty()) {
        app_.clipboard.clear();
        app_.clipboard.setText(text::toUtf8(w.text));
    }
    if (!w.missing.empty()) {
        std::string list;
        for (const std::string& code : w.missing) list += (list.empty() ? "" : ", ") + code;
        const std::string what =
            w.text.empty()
                ? "No sign of the word is in the Unicode block of Egyptian hieroglyphs, so "
                  "nothing was copied:"
                : "These signs are not in the Unicode block of Egyptian hieroglyphs and were "
                  "left out of the copy:";
        app_.dialogs.message(what + "\r\n" + list, "Copy as Unicode", Buttons::OK,
                             Icon::Exclamation);
    }
}

void MainWindow::showPreferences() {
    PreferencesDialog dialog(app_, this);
    dialog.exec();
}

void MainWindow::showHelp() {
    if (!help_) help_ = new HelpWindow(app_.home, this);
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
