#include "ui/sign_pixmap.h"

#include "core/twips.h"
#include "display/sign_outlines_qt.h"

#include <QPainter>
#include <QRegion>
#include <QString>
#include <QWidget>

#include <cmath>

namespace nebkaro::ui {

QPixmap signPixmap(const SignPicture& picture, double scale, double devicePixelRatio) {
    if (picture.ok) {
        QPixmap p(QString::fromStdString(picture.file.string()));
        if (!p.isNull()) {
            const double pixels = scale * devicePixelRatio;
            // Larger than the picture: drawn from the sign's outline (or its picture smoothly
            // scaled) at the screen's own pixels.
            if (pixels > 1.01 || pixels < 0.99) {
                p = QPixmap::fromImage(signImage(picture, pixels));
                p.setDevicePixelRatio(devicePixelRatio);
            }
            return p;
        }
    }
    const int w = std::max(1, static_cast<int>(std::lround(toPixels(picture.width) * scale)));
    const int h = std::max(1, static_cast<int>(std::lround(toPixels(picture.height) * scale)));
    QPixmap empty(w, h);
    empty.fill(Qt::transparent);
    QPainter painter(&empty);
    painter.setPen(QPen(Qt::gray, 1, Qt::DashLine));
    painter.drawRect(0, 0, w - 1, h - 1);
    return empty;
}

void placeSignCut(QWidget* picture, const QRect& at, const QRect& frame, bool zoomed) {
    picture->setGeometry(at);
    const QRect inside = frame.adjusted(1, 1, -1, -1);
    if (!zoomed || inside.contains(at))
        picture->clearMask();
    else
        picture->setMask(QRegion(inside.intersected(at).translated(-at.topLeft())));
}

} // namespace nebkaro::ui
