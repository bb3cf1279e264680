#include "core/app.h"
#include "core/dictionary_file.h"

#include "ui/header_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace nebkaro {

HeaderDialog::HeaderDialog(App& app, const DictionaryHeader& boxes, QWidget* parent)
    : QDialog(parent), app_(app) {
    setObjectName(QStringLiteral("frmHeader"));
    setWindowTitle(QString::fromStdString(app.store.dictionaryPath));

    auto* heading = new QLabel(QStringLiteral("DICTIONARY INFO"), this);
    heading->setObjectName(QStringLiteral("lblHeading"));
    heading->setAlignment(Qt::AlignCenter);
    QFont bold = heading->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    heading->setFont(bold);

    auto* grid = new QGridLayout(this);
    grid->addWidget(heading, 0, 0, 1, 2);
    // Boxes 4 to 6 have no label: they are free text like the others.
    const char* labels[FieldCount] = {"Dictionary Name", "Author", "Modified", "e-mail",
                                      nullptr,           nullptr,  nullptr};
    const char* labelNames[FieldCount] = {"lblName", "lblAuthor", "lblModified", "lblEmail",
                                          nullptr,   nullptr,     nullptr};
    for (int i = 0; i < FieldCount; ++i) {
        auto* box = new QLineEdit(QString::fromStdString(boxes[static_cast<std::size_t>(i)]), this);
        box->setObjectName(QStringLiteral("txtHeader%1").arg(i));
        box->setMinimumWidth(320);
        boxes_[static_cast<std::size_t>(i)] = box;
        if (labels[i]) {
            auto* l = new QLabel(QLatin1String(labels[i]), this);
            l->setObjectName(QLatin1String(labelNames[i]));
            l->setBuddy(box);
            grid->addWidget(l, i + 1, 0);
        }
        grid->addWidget(box, i + 1, 1);
    }

    auto* show = new QCheckBox(QStringLiteral("Show this again (may chage in preferences)"), this);
    show->setObjectName(QStringLiteral("chkShowInfo"));
    show->setChecked(app.settings.showDictionaryInfo);
    connect(show, &QCheckBox::toggled, this,
            [&app](bool on) { app.settings.showDictionaryInfo = on; });
    grid->addWidget(show, FieldCount + 1, 0, 1, 2);

    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("Command1"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &HeaderDialog::confirm);
    grid->addWidget(ok, FieldCount + 2, 0, 1, 2, Qt::AlignHCenter);
}

void HeaderDialog::confirm() {
    DictionaryHeader values;
    for (int i = 0; i < FieldCount; ++i)
        values[static_cast<std::size_t>(i)] =
            boxes_[static_cast<std::size_t>(i)]->text().toStdString();
    if (confirmHeader(app_, values)) {
        accept();
        return;
    }
    // Refused: box 0 was emptied; the dialog stays open for another value.
    boxes_[0]->setText(QString::fromStdString(values[0]));
    boxes_[0]->setFocus();
}

} // namespace nebkaro
