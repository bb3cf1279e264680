#pragma once
// The "Sort by" dialog (window Sort). Its controls mirror App::sortDialog: every change of an
// option or check box is written there at once, and showing the dialog sets the controls from
// it. OK and Cancel only hide the dialog, so the choices survive until the next sort.
#include <QDialog>

class QButtonGroup;
class QCheckBox;

namespace nebkaro {

struct App;

class SortDialog : public QDialog {
    Q_OBJECT
public:
    explicit SortDialog(App& app, QWidget* parent = nullptr);

    // Shows the dialog modally; afterwards App::sortDialog.sortField holds the choice.
    // WindowHost::showSortDialog of the program calls this.
    void showModal();

    void reject() override; // Cancel, Escape and the window's close button

protected:
    void showEvent(QShowEvent* event) override;

private:
    void syncFromState();
    void ok();

    App& app_;
    QButtonGroup* options_ = nullptr;
    QCheckBox* reverse_ = nullptr;
    QCheckBox* caseSensitive_ = nullptr;
};

} // namespace nebkaro
