#pragma once
// Preferences: library and direction (taken on OK), print quality and the two start-up
// switches (taken at once), and Save, which writes the settings file.
#include <QDialog>

class QRadioButton;

namespace nebkaro {

struct App;

class PreferencesDialog : public QDialog {
    Q_OBJECT
public:
    PreferencesDialog(App& app, QWidget* parent = nullptr);

private:
    void confirm();
    void save();
    App& app_;
    QRadioButton* basic_ = nullptr;
    QRadioButton* left_ = nullptr;
};

} // namespace nebkaro
