#include "core/app.h"

#include "ui/cancel_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace nebkaro {

CancelDialog::CancelDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName("frmCancelDialog");
    setWindowTitle("Sorting Started");
    // Modal: while the work runs, its Cancel is the only thing that responds.
    setModal(true);
    process_ = new QLabel("Sorting Started", this);
    process_->setObjectName("lblProcess");
    auto* hint = new QLabel("Press \"Cancel\" to quit", this);
    hint->setObjectName("Label1");
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("CancelButton");
    connect(cancel, &QPushButton::clicked, this, &CancelDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(process_);
    layout->addWidget(hint);
    layout->addWidget(cancel, 0, Qt::AlignHCenter);
}

void CancelDialog::showWith(const std::string& text) {
    // The title names the work under way (sorting, flipping), as the label does.
    setWindowTitle(QString::fromStdString(text));
    process_->setText(QString::fromStdString(text));
    show();
    raise();
}

void CancelDialog::reject() {
    app_.sortCancelled = true;
    QDialog::reject();
}

} // namespace nebkaro
