#include "ui/print_preview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace nebkaro {

namespace {
constexpr int Border = 12;
}

PrintPreview::PrintPreview(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picPreview"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setToolTip(tr("The pages as they will print; the mouse wheel turns them"));
}

void PrintPreview::setDocument(const print::PrintDocument* doc, int first, int last) {
    doc_ = doc;
    first_ = first;
    last_ = doc ? std::min(last, doc->pageCount() - 1) : -1;
    imagePage_ = -1;
    const int before = page_;
    if (!doc_ || first_ > last_)
        page_ = -1;
    else
        page_ = std::clamp(page_ < 0 ? first_ : page_, first_, last_);
    update();
    if (page_ != before) emit pageChanged(page_);
}

void PrintPreview::showPage(int page) {
    if (!doc_ || first_ > last_) return;
    page = std::clamp(page, first_, last_);
    if (page == page_) return;
    page_ = page;
    update();
    emit pageChanged(page_);
}

QRect PrintPreview::pageRect() const {
    if (!doc_) return {};
    const auto& f = doc_->frame();
    const QRect room = rect().adjusted(Border, Border, -Border, -Border);
    if (room.isEmpty() || f.pageWidth <= 0 || f.pageHeight <= 0) return {};
    const double scale =
        std::min(room.width() / double(f.pageWidth), room.height() / double(f.pageHeight));
    const QSize size(std::max(1, int(f.pageWidth * scale)), std::max(1, int(f.pageHeight * scale)));
    return QRect(room.left() + (room.width() - size.width()) / 2,
                 room.top() + (room.height() - size.height()) / 2, size.width(), size.height());
}

void PrintPreview::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Dark));
    const QRect r = pageRect();
    if (page_ < 0 || r.isEmpty()) {
        p.setPen(palette().color(QPalette::BrightText));
        p.drawText(rect(), Qt::AlignCenter, tr("Nothing to print"));
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = r.size() * ratio;
    if (imagePage_ != page_ || imageSize_ != pixels) {
        const double dpi = pixels.width() * 1440.0 / doc_->frame().pageWidth;
        image_ = doc_->pageImage(page_, dpi);
        image_.setDevicePixelRatio(ratio);
        imagePage_ = page_;
        imageSize_ = pixels;
    }
    p.fillRect(r.translated(3, 3), QColor(0, 0, 0, 90));
    p.drawImage(r, image_);
    p.setPen(QColor(120, 120, 120));
    p.drawRect(r.adjusted(0, 0, -1, -1));
}

void PrintPreview::wheelEvent(QWheelEvent* event) {
    const int dy = event->angleDelta().y();
    if (dy < 0) nextPage();
    if (dy > 0) previousPage();
    event->accept();
}

void PrintPreview::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Right:
    case Qt::Key_Down:
        nextPage();
        break;
    case Qt::Key_PageUp:
    case Qt::Key_Left:
    case Qt::Key_Up:
        previousPage();
        break;
    case Qt::Key_Home:
        showPage(first_);
        break;
    case Qt::Key_End:
        showPage(last_);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace nebkaro
