#include "core/app.h"
#include "core/guarded.h"
#include "core/preferences.h"

#include "ui/preferences_dialog.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace nebkaro {

namespace {
QRadioButton* option(QWidget* parent, QLayout* layout, const char* name, const char* caption,
                     bool checked) {
    auto* b = new QRadioButton(QLatin1String(caption), parent);
    b->setObjectName(QLatin1String(name));
    b->setChecked(checked);
    layout->addWidget(b);
    return b;
}

QGroupBox* frame(QWidget* parent, const char* name, const char* caption) {
    auto* g = new QGroupBox(QLatin1String(caption), parent);
    g->setObjectName(QLatin1String(name));
    new QVBoxLayout(g);
    return g;
}
} // namespace

PreferencesDialog::PreferencesDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName(QStringLiteral("Preferences"));
    setWindowTitle(QStringLiteral("Preferences"));
    const Settings& s = app.settings;

    auto* library = frame(this, "fraLibrary", "Library");
    const bool basic = s.library == Library::Basic;
    basic_ = option(library, library->layout(), "optBasic", "Basic", basic);
    option(library, library->layout(), "optExtended", "Extended", !basic);

    auto* direction = frame(this, "fraDirection", "Direction");
    const bool left = s.direction == Direction::Left;
    left_ = option(direction, direction->layout(), "optLeft", "Left", left);
    option(direction, direction->layout(), "optRight", "Right", !left);

    // The draft button stores 0, not -1.
    auto* quality = frame(this, "fraPrintQuality", "Print Quality");
    const std::pair<const char*, int> qualities[] = {
        {"Draft", 0}, {"Low", -2}, {"Medium", -3}, {"High", -4}};
    for (auto [caption, value] : qualities) {
        const QString name = QStringLiteral("opt") + QLatin1String(caption);
        auto* b = option(quality, quality->layout(), name.toLatin1().constData(), caption,
                         s.printQuality == value);
        connect(b, &QRadioButton::clicked, this,
                [&app, v = value] { app.settings.printQuality = v; });
    }

    auto* showAbout = new QCheckBox(QStringLiteral("Show About Screeen"), this);
    showAbout->setObjectName(QStringLiteral("chkShowAbout"));
    showAbout->setChecked(s.showAbout);
    connect(showAbout, &QCheckBox::toggled, this, [&app](bool on) { app.settings.showAbout = on; });
    auto* showInfo = new QCheckBox(QStringLiteral("Show Dictionary Info"), this);
    showInfo->setObjectName(QStringLiteral("chkShowInfo"));
    showInfo->setChecked(s.showDictionaryInfo);
    connect(showInfo, &QCheckBox::toggled, this,
            [&app](bool on) { app.settings.showDictionaryInfo = on; });

    auto* save = new QPushButton(QStringLiteral("Save"), this);
    save->setObjectName(QStringLiteral("cmdSave"));
    connect(save, &QPushButton::clicked, this, &PreferencesDialog::save);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &PreferencesDialog::confirm);

    auto* frames = new QHBoxLayout;
    frames->addWidget(library);
    frames->addWidget(direction);
    frames->addWidget(quality);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(frames);
    layout->addWidget(showAbout);
    layout->addWidget(showInfo);
    layout->addLayout(buttons);
}

void PreferencesDialog::confirm() {
    // A sign list that cannot be read ends the program; the main window sees it on return.
    applyPreferences(app_, basic_->isChecked() ? Library::Basic : Library::Extended,
                     left_->isChecked() ? Direction::Left : Direction::Right);
    accept();
}

void PreferencesDialog::save() {
    runGuarded(app_, [this] { writeSettingsFile(app_, settingsPath(app_.userFolder())); });
}

} // namespace nebkaro
