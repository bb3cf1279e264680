#pragma once
// frmCancelDialog: the progress dialog of the long operations (menu sort, Flip All). It is
// shown modal without blocking the work that shows it: the work yields to it, and its Cancel
// sets App::sortCancelled, which the running loop sees after its next pause, and hides it.
#include <QDialog>

#include <string>

class QLabel;

namespace nebkaro {

struct App;

class CancelDialog : public QDialog {
    Q_OBJECT
public:
    explicit CancelDialog(App& app, QWidget* parent = nullptr);

    // WindowHost::showProgress and hideProgress of the program call these.
    void showWith(const std::string& text);

    void reject() override; // Cancel, Escape and the window's close button

private:
    App& app_;
    QLabel* process_ = nullptr;
};

} // namespace nebkaro
