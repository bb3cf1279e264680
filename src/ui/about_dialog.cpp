#include "core/app.h"

#include "ui/about_dialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace nebkaro {

namespace {
QLabel* label(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QLatin1String(name));
    l->setAlignment(Qt::AlignCenter);
    l->setWordWrap(true);
    return l;
}
} // namespace

AboutDialog::AboutDialog(App& app, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("About"));
    setWindowTitle(QStringLiteral("About Nebkaro"));

    auto* title = label(this, "lblTitle", QStringLiteral("Nebkaro"));
    QFont big = title->font();
    big.setPointSizeF(big.pointSizeF() * 2.2);
    big.setBold(true);
    title->setFont(big);
    auto* subtitle = label(
        this, "lblSubtitle",
        QStringLiteral("Flash cards and a computerised dictionary of Egyptian hieroglyphics"));
    auto* author = label(this, "lblAuthor",
                         QStringLiteral("Written by the Nebkaro developers. The sign pictures are "
                                        "drawn from the Aegyptus font by George Douros."));
    auto* contact =
        label(this, "lblContact",
              QStringLiteral("Your dictionaries, settings and saved pictures are kept in the "
                             "folder:\n") +
                  QString::fromStdString(app.userFolder().string()));
    contact->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* version = label(this, "lblVersion",
                          QStringLiteral("Version: ") + QString::fromStdString(versionText()));

    auto* show = new QCheckBox(QStringLiteral("Show this again (may chage in Preferences)"), this);
    show->setObjectName(QStringLiteral("chkShowAbout"));
    show->setChecked(app.settings.showAbout);
    connect(show, &QCheckBox::toggled, this, [&app](bool on) { app.settings.showAbout = on; });

    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(subtitle);
    layout->addSpacing(12);
    layout->addWidget(author);
    layout->addWidget(contact);
    layout->addWidget(version);
    layout->addSpacing(12);
    layout->addWidget(show, 0, Qt::AlignHCenter);
    layout->addWidget(ok, 0, Qt::AlignHCenter);
    setMinimumWidth(420);
}

} // namespace nebkaro
