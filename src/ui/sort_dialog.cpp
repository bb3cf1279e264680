#include "bulk/sort_dialog_model.h"
#include "core/app.h"

#include "ui/sort_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace nebkaro {

namespace {
// The options in the order the dialog lists them.
constexpr SortField ShownOrder[] = {SortField::Meaning, SortField::Translit, SortField::Classic,
                                    SortField::Gardiner, SortField::Comment};
} // namespace

SortDialog::SortDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName("Sort");
    setWindowTitle("Sort by");
    setModal(true);
    if (!app_.sortDialog.loaded) loadSortDialog(app_);

    auto* frame = new QGroupBox("Sort By:", this);
    frame->setObjectName("Frame1");
    auto* frameLayout = new QVBoxLayout(frame);
    options_ = new QButtonGroup(this);
    for (SortField value : ShownOrder) {
        for (const SortOption& o : SortOptions) {
            if (o.value != value) continue;
            auto* button = new QRadioButton(o.caption, frame);
            button->setObjectName(o.name);
            if (*o.toolTip) button->setToolTip(o.toolTip);
            options_->addButton(button, static_cast<int>(o.value));
            frameLayout->addWidget(button);
        }
    }
    connect(options_, &QButtonGroup::idToggled, this, [this](int id, bool on) {
        if (on) app_.sortDialog.option = static_cast<SortField>(id);
    });

    reverse_ = new QCheckBox("Reverse order", this);
    reverse_->setObjectName("ChkReverse");
    connect(reverse_, &QCheckBox::toggled, this, [this](bool on) { app_.sortDialog.reverse = on; });
    caseSensitive_ = new QCheckBox("Case sensitive", this);
    caseSensitive_->setObjectName("chkCase");
    connect(caseSensitive_, &QCheckBox::toggled, this,
            [this](bool on) { app_.sortDialog.caseSensitive = on; });

    auto* okButton = new QPushButton("OK", this);
    okButton->setObjectName("cmdOk");
    okButton->setDefault(true);
    connect(okButton, &QPushButton::clicked, this, &SortDialog::ok);
    auto* cancelButton = new QPushButton("Cancel", this);
    cancelButton->setObjectName("cmdCancel");
    connect(cancelButton, &QPushButton::clicked, this, &SortDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okButton);
    buttons->addWidget(cancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(reverse_);
    layout->addWidget(caseSensitive_);
    layout->addLayout(buttons);
    syncFromState();
}

void SortDialog::syncFromState() {
    const SortDialogState& s = app_.sortDialog;
    // An exclusive group cannot uncheck its last button; "none chosen" needs it open briefly.
    options_->setExclusive(false);
    for (QAbstractButton* b : options_->buttons())
        b->setChecked(options_->id(b) == static_cast<int>(s.option));
    options_->setExclusive(true);
    reverse_->setChecked(s.reverse);
    caseSensitive_->setChecked(s.caseSensitive);
}

void SortDialog::showEvent(QShowEvent* event) {
    syncFromState();
    QDialog::showEvent(event);
}

void SortDialog::showModal() {
    exec();
}

void SortDialog::ok() {
    sortDialogOk(app_);
    accept();
}

void SortDialog::reject() {
    sortDialogCancel(app_);
    QDialog::reject();
}

} // namespace nebkaro
