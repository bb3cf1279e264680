#include "ui/order_menu.h"

#include <QMenu>
#include <QMenuBar>

namespace nebkaro {

OrderMenu addOrderMenu(QWidget* window) {
    OrderMenu m;
    m.bar = new QMenuBar(window);
    QMenu* order = m.bar->addMenu(QStringLiteral("&Order"));
    order->setObjectName(QStringLiteral("mnuOrder"));
    m.mnuEgypt = order->addAction(QStringLiteral("&Egyptological"));
    m.mnuEgypt->setObjectName(QStringLiteral("mnuEgypt"));
    m.mnuLatin = order->addAction(QStringLiteral("&Alphabetical"));
    m.mnuLatin->setObjectName(QStringLiteral("mnuLatin"));
    for (QAction* a : {m.mnuEgypt, m.mnuLatin}) a->setCheckable(true);
    return m;
}

} // namespace nebkaro
