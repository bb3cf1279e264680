#pragma once
// About: the program's title and version, and the switch that shows it at start-up.
#include <QDialog>

namespace nebkaro {

struct App;

class AboutDialog : public QDialog {
    Q_OBJECT
public:
    AboutDialog(App& app, QWidget* parent = nullptr);
};

} // namespace nebkaro
