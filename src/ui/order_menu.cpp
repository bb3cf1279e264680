#include "ui/order_menu.h"

#include <QMenu>
#include <QMenuBar>

namespace nebkaro {

OrderMenu addOrderMenu(QWidget* window) {
    OrderMenu m;
    m.bar = new QMenuBar(window);
    QMenu* order = m.bar->addMenu(QStringLiteral("&Order"));
    order->setObjectName(QStringLiteral("mnuOrder"));
    m.egyptAction = order->addAction(QStringLiteral("&Egyptological"));
    m.egyptAction->setObjectName(QStringLiteral("mnuEgypt"));
    m.latinAction = order->addAction(QStringLiteral("&Alphabetical"));
    m.latinAction->setObjectName(QStringLiteral("mnuLatin"));
    for (QAction* a : {m.egyptAction, m.latinAction}) a->setCheckable(true);
    return m;
}

} // namespace nebkaro
