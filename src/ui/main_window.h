#pragma once
// Main: the word view (word_view_widget.h) under the tool bar, the menus, the pop-up menu of
// the display area and the window's keys. The window holds no state of its own beyond its
// widgets: it shows App::view and forwards every event to the logic. Its side as the logic's
// port to the windows is in main_window_port.cpp.
#include "core/app.h"
#include "ui/printing.h"

#include <QMainWindow>
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
class QFrame;
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
class SearchWindows;
class SortDialog;
namespace ui {
class ComposeWindow;
class SignBrowserHost;
} // namespace ui
class WordViewWidget;

class MainWindow : public QMainWindow, public WindowHost {
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

    // WindowHost
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
    // Room left on the screen for the window's frame and title, in pixels.
    static constexpr int FrameAllowance = 40;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildToolBar();
    void buildMenus();
    void buildShortcuts();
    void installHandlers();
    QAction* commandAction(const MenuItem& item, QMenu* menu);
    QMenu* buildMenu(const MenuItem& item, QMenu* into);

    // The width of the scroll bar a screen too small for the view needs (0 otherwise).
    int scrollBarRoom_ = 0;
    void refreshAvailability();

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
    WindowHost* previousWindows_;
    bool ending_ = false;

    WordViewWidget* surface_ = nullptr;
    QFrame* toolbar_ = nullptr;
    QFrame* dispArea_ = nullptr; // the word view's display area, home of its own keys
    QMenu* popup_ = nullptr;
    QAction* showBorders_ = nullptr;
    // The code each command had before this window provided its own, put back when it goes.
    std::map<CommandId, CommandHandler> installed_;
    std::vector<std::pair<QAction*, CommandId>> actions_;
    std::vector<std::pair<QShortcut*, CommandId>> shortcuts_;
    std::vector<std::pair<QAbstractButton*, CommandId>> buttons_;
    QPointer<AboutDialog> about_;
    QPointer<HelpWindow> help_;
    // Kept once made: the Sort dialog's choices live on between sorts.
    SortDialog* sort_ = nullptr;
    CancelDialog* progressDialog_ = nullptr;
    // The other windows of the program, made when first needed.
    ui::ComposeWindow* composer_ = nullptr;
    std::unique_ptr<ui::SignBrowserHost> lookup_;
    SearchWindows* tools_ = nullptr;
    ExchangeCommands* exchange_ = nullptr;
    // Print 1 collects words on a page until Form Feed; the options of the last print.
    Printing printing_;
    QString pictureMessage_; // the status line naming a missing picture, while it stands
    QStringList paintFiles_; // pictures handed to the desktop's picture program
    bool shown_ = false;
    // The width last asked for by the program, and the width the user gave the window by hand
    // (0 until then): the window is never narrower than that.
    int requestedWidth_ = -1;
    int userWidth_ = 0;
};

} // namespace nebkaro
