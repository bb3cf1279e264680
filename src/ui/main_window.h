#pragma once
// Main: the word view with its display area, text boxes, hide switches and buttons, the tool
// bar, the menus and the pop-up menu of the display area. The window holds no state of its
// own beyond its widgets: it shows App::view and forwards every event to the logic.
#include "core/app.h"
#include "ui/printing.h"

#include <QHash>
#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <QStringList>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QAbstractButton;
class QAction;
class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QShortcut;

namespace nebkaro {

enum class CommandId : int;
struct MenuItem;
class AboutDialog;
class ExchangeCommands;
class HelpWindow;
class CancelDialog;
class SearchTools;
class SortDialog;
namespace ui {
class ComposeWindow;
class LookupHost;
} // namespace ui
class WordSurface;

class MainWindow : public QMainWindow, public Windows {
    Q_OBJECT
public:
    struct Options {
        // The --screenshot run: the start-up About box and the dictionary information dialog
        // are not shown (as if closed at once), so that nothing waits for a user.
        bool unattended = false;
    };
    explicit MainWindow(App& app, Options options);
    explicit MainWindow(App& app) : MainWindow(app, Options{}) {}
    ~MainWindow() override;

    // The start-up sequence; false when the program is to end (app.endRequested, exitCode).
    bool startUp(const std::string& commandLine);

    // Runs a command as its controls do; false when the command is not available.
    bool runCommand(CommandId id);

    // Windows
    void wordViewChanged() override;
    void setCaption(const std::string& caption) override;
    void showHeaderDialog(const DictionaryHeader& boxes) override;
    void showAboutModal() override;
    void unloadBrowser() override;
    void showStatus(const std::string& text) override;
    void showSortDialog() override;
    void showProgress(const std::string& text) override;
    void hideProgress() override;
    void showCounter(int value) override;
    void setPrinterDefaults() override;
    void runComposer() override;
    bool chooseSignFromBrowser() override;
    void showTypewriter() override;
    void setProgress(float fraction) override;
    void showSearchDialogAndWait() override;
    std::string* typewriterText(TypewriterTarget target) override;
    void typewriterTextChanged(TypewriterTarget target) override;

Q_SIGNALS:
    // The program is to end with this status (Quit, a way out chosen at a question, or a
    // file it cannot work without). The window has closed without asking anything more.
    void programEnded(int exitCode);

public:
    // The design geometry in twips: the word view's height, from the tool bar to the buttons.
    static constexpr int SurfaceHeight = 8580;
    // Room left on the screen for the window's frame and title, in pixels.
    static constexpr int FrameAllowance = 40;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class WordSurface;
    void buildWordView();
    void buildToolBar();
    void buildMenus();
    void buildShortcuts();
    void installHandlers();
    QAction* commandAction(const MenuItem& item, QMenu* menu);
    QMenu* buildMenu(const MenuItem& item, QMenu* into);

    void layoutControls();
    void showGlyphs();
    // The height the display area gained over its design height in a taller window.
    int extraHeight() const;
    // The width of the scroll bar a screen too small for the view needs (0 otherwise).
    int scrollBarRoom_ = 0;
    void refreshAvailability();
    void surfaceMousePress(int button, QPoint at, QPoint global);
    void surfaceDoubleClick();

    // Commands of this window.
    void copyImage();
    void saveImage();
    void pasteToPaint();
    void copyAsUnicode();
    void showPreferences();
    void showAbout();
    void showHelp();

    // The program ends now, with app.exitCode, and nothing more is asked or written.
    void endProgram();
    void endIfRequested();

    App& app_;
    Options options_;
    Windows* previousWindows_;
    bool ending_ = false;

    WordSurface* surface_ = nullptr;
    QFrame* toolbar_ = nullptr;
    QFrame* dispArea_ = nullptr;
    std::array<QLabel*, GlyphTable::Slots> glyphs_{};
    QLabel* richGardiner_ = nullptr;
    std::array<QLineEdit*, 4> boxes_{}; // GardinerTxt, TransLitTxt, MeaningTxt, CommentTxt
    std::array<QCheckBox*, 5> hide_{};  // in HideBox order
    QLineEdit* number_ = nullptr;
    QFrame* progressTrack_ = nullptr;
    QFrame* progress_ = nullptr;
    QMenu* popup_ = nullptr;
    QAction* showBorders_ = nullptr;
    // The code each command had before this window provided its own, put back when it goes.
    std::map<CommandId, CommandHandler> installed_;
    std::vector<std::pair<QAction*, CommandId>> actions_;
    std::vector<std::pair<QShortcut*, CommandId>> shortcuts_;
    std::vector<std::pair<QAbstractButton*, CommandId>> buttons_;
    std::vector<std::pair<QWidget*, QRect>> fixed_; // controls placed by the design, in twips
    QHash<QString, QPixmap> pixmaps_;
    QPointer<AboutDialog> about_;
    QPointer<HelpWindow> help_;
    // Kept once made: the Sort dialog's choices live on between sorts.
    SortDialog* sort_ = nullptr;
    CancelDialog* progressDialog_ = nullptr;
    QLabel* counter_ = nullptr;
    // The other windows of the program, made when first needed.
    ui::ComposeWindow* composer_ = nullptr;
    std::unique_ptr<ui::LookupHost> lookup_;
    SearchTools* tools_ = nullptr;
    ExchangeCommands* exchange_ = nullptr;
    int progressPixels_ = -1; // the bar's length while a search runs
    // Print 1 collects words on a page until Form Feed; the options of the last print.
    Printing printing_;
    QString pictureMessage_; // the status line naming a missing picture, while it stands
    QStringList paintFiles_; // pictures handed to the desktop's picture program
    bool shown_ = false;
    // The width last asked for by the program, and the width the user gave the window by hand
    // (0 until then): the window is never narrower than that.
    int requestedWidth_ = -1;
    int userWidth_ = 0;
    // The text box that has the focus within the window (0..3 as boxes_), -1 for none.
    int focusedBox_ = -1;
};

} // namespace nebkaro
