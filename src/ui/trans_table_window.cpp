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
    mnuEgypt_ = orderMenu.mnuEgypt;
    mnuLatin_ = orderMenu.mnuLatin;
    connect(mnuEgypt_, &QAction::triggered, this, [this] {
        TransTableEgyptological(state_);
        refresh();
    });
    connect(mnuLatin_, &QAction::triggered, this, [this] {
        TransTableAlphabetical(state_);
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
    Label2_ = new LetterColumn(table);
    Label2_->setObjectName(QStringLiteral("Label2"));
    Label2_->setFont(LetterColumn::transliterationFont(16));
    Label1_ = new LetterColumn(table);
    Label1_->setObjectName(QStringLiteral("Label1"));
    QFont cambria(QStringLiteral("Cambria"));
    cambria.setPointSize(14);
    Label1_->setFont(cambria);

    auto* grid = new QGridLayout(table);
    grid->addWidget(Label3, 0, 0, Qt::AlignHCenter);
    grid->addWidget(Label4, 0, 1, Qt::AlignHCenter);
    grid->addWidget(Label2_, 1, 0);
    grid->addWidget(Label1_, 1, 1);
    auto* lblNote = new QLabel(QString::fromUtf8(TransTableNote), table);
    lblNote->setObjectName(QStringLiteral("lblNote"));
    lblNote->setWordWrap(true);
    grid->addWidget(lblNote, 2, 0, 1, 2);
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
    Label1_->setText(QString::fromStdString(state_.Label1));
    Label2_->setText(QString::fromStdString(state_.Label2));
    // One cell height for both columns, so each scholarly letter stands beside its plain one.
    const int cell = std::max(Label1_->naturalCellHeight(), Label2_->naturalCellHeight());
    Label1_->setCellHeight(cell);
    Label2_->setCellHeight(cell);
    mnuEgypt_->setChecked(state_.mnuEgyptChecked);
    mnuLatin_->setChecked(state_.mnuLatinChecked);
    setWindowTitle(QString::fromStdString(state_.caption));
}

} // namespace nebkaro
