#include "ui/sign_pixmap.h"

#include <QPainter>
#include <QString>

namespace nebkaro::ui {

QPixmap signPixmap(const SignPicture& picture) {
    if (picture.ok) {
        QPixmap p(QString::fromStdString(picture.file.string()));
        if (!p.isNull()) return p;
    }
    const int w = std::max(1, px(picture.width));
    const int h = std::max(1, px(picture.height));
    QPixmap empty(w, h);
    empty.fill(Qt::transparent);
    QPainter painter(&empty);
    painter.setPen(QPen(Qt::gray, 1, Qt::DashLine));
    painter.drawRect(0, 0, w - 1, h - 1);
    return empty;
}

} // namespace nebkaro::ui
