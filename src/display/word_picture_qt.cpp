#include "display/word_picture_qt.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QSaveFile>

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
    // Drawn from the same placed pictures, in pixels, each sign embedded as it is drawn on
    // the screen.
    const QSize size = pixelSize(picture);
    QByteArray svg = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                    "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"%1\" "
                                    "height=\"%2\" viewBox=\"0 0 %1 %2\">\n"
                                    "<title>Nebkaro word</title>\n"
                                    "<rect width=\"%1\" height=\"%2\" fill=\"#ffffff\"/>\n")
                         .arg(size.width())
                         .arg(size.height())
                         .toUtf8();
    for (const PlacedPicture& p : picture.pictures) {
        const int x = twipsToPixels(p.x), y = twipsToPixels(p.y);
        QImage sign;
        if (p.picture.ok) sign.load(QString::fromStdString(p.picture.file.string()));
        if (sign.isNull()) {
            svg += QStringLiteral("<rect x=\"%1.5\" y=\"%2.5\" width=\"%3\" height=\"%4\" "
                                  "fill=\"none\" stroke=\"#808080\" stroke-width=\"1\"/>\n")
                       .arg(x)
                       .arg(y)
                       .arg(twipsToPixels(p.picture.width) - 1)
                       .arg(twipsToPixels(p.picture.height) - 1)
                       .toUtf8();
            continue;
        }
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        sign.save(&buffer, "PNG");
        svg += QStringLiteral("<image x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" "
                              "xlink:href=\"data:image/png;base64,")
                   .arg(x)
                   .arg(y)
                   .arg(sign.width())
                   .arg(sign.height())
                   .toUtf8();
        svg += png.toBase64();
        svg += "\"/>\n";
    }
    svg += "</svg>\n";
    return svg;
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
    case ImageFormat::Png:
        written = WordPictureImage(picture).save(&out, "PNG");
        break;
    case ImageFormat::Bmp:
        written = WordPictureImage(picture).save(&out, "BMP");
        break;
    }
    if (!written) {
        out.cancelWriting();
        return false;
    }
    return out.commit();
}

} // namespace nebkaro
