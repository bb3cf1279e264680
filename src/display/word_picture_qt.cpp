#include "display/word_picture_qt.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <cmath>

namespace nebkaro {

namespace {
constexpr double TwipsPerPixel = 15.0;

QSize pixelSize(const WordPicture& picture) {
    // A part of a pixel still needs the whole pixel.
    return {std::max(1, static_cast<int>(std::ceil(picture.width / TwipsPerPixel))),
            std::max(1, static_cast<int>(std::ceil(picture.height / TwipsPerPixel)))};
}
} // namespace

int twipsToPixels(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixel));
}

void PaintWordPicture(QPainter& painter, const WordPicture& picture) {
    for (const PlacedPicture& p : picture.pictures) {
        const QPoint at(twipsToPixels(p.x), twipsToPixels(p.y));
        QImage sign;
        if (p.picture.ok) sign.load(QString::fromStdString(p.picture.file.string()));
        if (!sign.isNull()) {
            painter.drawImage(at, sign);
            continue;
        }
        const QRect box(at, QSize(twipsToPixels(p.picture.width), twipsToPixels(p.picture.height)));
        painter.save();
        painter.setPen(QPen(Qt::gray, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box.adjusted(0, 0, -1, -1));
        painter.restore();
    }
}

QImage WordPictureImage(const WordPicture& picture) {
    QImage image(pixelSize(picture), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintWordPicture(painter, picture);
    painter.end();
    return image;
}

QByteArray WordPicturePng(const WordPicture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    WordPictureImage(picture).save(&buffer, "PNG");
    return bytes;
}

QByteArray WordPictureSvg(const WordPicture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const QSize size = pixelSize(picture);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setResolution(96);
    svg.setTitle(QStringLiteral("Nebkaro word"));
    QPainter painter(&svg);
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    PaintWordPicture(painter, picture);
    painter.end();
    return bytes;
}

bool SaveWordPicture(const WordPicture& picture, const QString& file, ImageFormat format) {
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) return false;
    bool written = false;
    switch (format) {
    case ImageFormat::Svg: {
        const QByteArray svg = WordPictureSvg(picture);
        written = out.write(svg) == svg.size();
        break;
    }
    case ImageFormat::Png: written = WordPictureImage(picture).save(&out, "PNG"); break;
    case ImageFormat::Bmp: written = WordPictureImage(picture).save(&out, "BMP"); break;
    }
    if (!written) {
        out.cancelWriting();
        return false;
    }
    return out.commit();
}

} // namespace nebkaro
