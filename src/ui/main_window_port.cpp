// The main window as the logic's port to the windows: captions, status, progress, and the
// other windows of the program, made when first needed.
#include "ui/main_window.h"

#include "ui/about_dialog.h"
#include "ui/cancel_dialog.h"
#include "ui/compose_window.h"
#include "ui/header_dialog.h"
#include "ui/search_windows.h"
#include "ui/sign_browser_window.h"
#include "ui/sort_dialog.h"
#include "ui/word_view_widget.h"

#include <QLineEdit>
#include <QStatusBar>

namespace nebkaro {

void MainWindow::setCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption));
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
    surface_->setProgress(fraction);
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
        text = &composer_->model().codeLine;
    } else if (target == TypewriterTarget::BrowserTrans && lookup_->isLoaded()) {
        window = lookup_->window();
        text = &lookup_->window()->model().transText;
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
            box->setText(QString::fromStdString(composer_->model().codeLine));
        return;
    case TypewriterTarget::BrowserTrans:
        if (QLineEdit* box = lookup_->isLoaded() ? targetBox(lookup_->window(), target) : nullptr)
            box->setText(QString::fromStdString(lookup_->window()->model().transText));
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
    surface_->showCounter(value);
}

void MainWindow::showStatus(const std::string& text) {
    statusBar()->showMessage(QString::fromStdString(text));
}

} // namespace nebkaro
