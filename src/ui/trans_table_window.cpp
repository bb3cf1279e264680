#include "translit/trans_table.h"

#include "ui/trans_table_window.h"

#include "ui/letter_column.h"
#include "ui/order_menu.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace nebkaro {

TransTableWindow::TransTableWindow(QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmTransTable"));
    setAttribute(Qt::WA_DeleteOnClose);

    const OrderMenu orderMenu = addOrderMenu(this);
    egyptAction_ = orderMenu.egyptAction;
    latinAction_ = orderMenu.latinAction;
    connect(egyptAction_, &QAction::triggered, this, [this] {
        transTableEgyptological(state_);
        refresh();
    });
    connect(latinAction_, &QAction::triggered, this, [this] {
        transTableAlphabetical(state_);
        refresh();
    });

    // The letters scroll when the table is taller than the screen; the order menu stays.
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("scrTable"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* table = new QWidget(scroll);

    auto* Label3 = new QLabel(QStringLiteral("Transliteration"), table);
    Label3->setObjectName(QStringLiteral("Label3"));
    auto* Label4 = new QLabel(QStringLiteral("MdC equivalent"), table);
    Label4->setObjectName(QStringLiteral("Label4"));
    fontColumn_ = new LetterColumn(table);
    fontColumn_->setObjectName(QStringLiteral("Label2"));
    fontColumn_->setFont(LetterColumn::transliterationFont(16));
    plainColumn_ = new LetterColumn(table);
    plainColumn_->setObjectName(QStringLiteral("Label1"));
    QFont cambria(QStringLiteral("Cambria"));
    cambria.setPointSize(14);
    plainColumn_->setFont(cambria);

    auto* grid = new QGridLayout(table);
    grid->addWidget(Label3, 0, 0, Qt::AlignHCenter);
    grid->addWidget(Label4, 0, 1, Qt::AlignHCenter);
    grid->addWidget(fontColumn_, 1, 0);
    grid->addWidget(plainColumn_, 1, 1);
    auto* noteLabel = new QLabel(QString::fromUtf8(TransTableNote), table);
    noteLabel->setObjectName(QStringLiteral("lblNote"));
    noteLabel->setWordWrap(true);
    grid->addWidget(noteLabel, 2, 0, 1, 2);
    scroll->setWidget(table);
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setMenuBar(orderMenu.bar);
    box->addWidget(scroll);

    refresh();
    // The whole table when the screen has room for it (fitting it to the screen shortens it),
    // with room kept for the scroll bar that a shortened table shows.
    const QSize whole = table->sizeHint();
    resize(whole.width() + scroll->verticalScrollBar()->sizeHint().width(),
           whole.height() + orderMenu.bar->sizeHint().height());
}

void TransTableWindow::refresh() {
    plainColumn_->setText(QString::fromStdString(state_.plainLetters));
    fontColumn_->setText(QString::fromStdString(state_.fontLetters));
    // One cell height for both columns, so each scholarly letter stands beside its plain one.
    const int cell = std::max(plainColumn_->naturalCellHeight(), fontColumn_->naturalCellHeight());
    plainColumn_->setCellHeight(cell);
    fontColumn_->setCellHeight(cell);
    egyptAction_->setChecked(state_.egyptChecked);
    latinAction_->setChecked(state_.latinChecked);
    setWindowTitle(QString::fromStdString(state_.caption));
}

} // namespace nebkaro
