#include "display/word_picture_qt.h"

#include "core/twips.h"
#include "display/sign_outlines_qt.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace nebkaro {

namespace {

QSize pixelSize(const WordPicture& picture) {
    // A part of a pixel still needs the whole pixel.
    return {std::max(1, static_cast<int>(std::ceil(toPixels(picture.width)))),
            std::max(1, static_cast<int>(std::ceil(toPixels(picture.height))))};
}
} // namespace

int twipsToPixels(double twips) {
    return static_cast<int>(std::lround(toPixels(twips)));
}

void paintWordPicture(QPainter& painter, const WordPicture& picture) {
    for (const PlacedPicture& p : picture.pictures) {
        // Signs stand on whole pixels at 100 %, as the word view places them.
        const QPointF at(twipsToPixels(p.x), twipsToPixels(p.y));
        paintSign(painter, p.picture,
                  QRectF(at, QSizeF(toPixels(p.picture.width), toPixels(p.picture.height))));
    }
}

QImage wordPictureImage(const WordPicture& picture, double scale) {
    scale = std::clamp(scale, 1.0, MaxPictureScale);
    const QSize base = pixelSize(picture);
    QImage image(std::max(1, static_cast<int>(std::lround(base.width() * scale))),
                 std::max(1, static_cast<int>(std::lround(base.height() * scale))),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paintWordPicture(painter, picture);
    painter.end();
    return image;
}

QByteArray wordPicturePng(const WordPicture& picture, double scale) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    wordPictureImage(picture, scale).save(&buffer, "PNG");
    return bytes;
}

QByteArray wordPictureSvg(const WordPicture& picture, double scale) {
    // Drawn from the same placed pictures, in pixels: signs with an outline as paths, others
    // embedded as their pictures. The scale only sets the drawing's size.
    scale = std::clamp(scale, 1.0, MaxPictureScale);
    const QSize size = pixelSize(picture);
    QByteArray svg = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                    "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"%3\" "
                                    "height=\"%4\" viewBox=\"0 0 %1 %2\">\n"
                                    "<title>Nebkaro word</title>\n"
                                    "<rect width=\"%1\" height=\"%2\" fill=\"#ffffff\"/>\n")
                         .arg(size.width())
                         .arg(size.height())
                         .arg(std::lround(size.width() * scale))
                         .arg(std::lround(size.height() * scale))
                         .toUtf8();
    for (const PlacedPicture& p : picture.pictures) {
        const int x = twipsToPixels(p.x), y = twipsToPixels(p.y);
        const QPainterPath outline = signOutline(p.picture);
        if (!outline.isEmpty()) {
            svg += QStringLiteral("<g transform=\"translate(%1 %2)\"><rect width=\"%3\" "
                                  "height=\"%4\" fill=\"#ffffff\"/><path d=\"%5\" fill=\"#000000\" "
                                  "stroke=\"#000000\" stroke-width=\"%6\" "
                                  "stroke-linejoin=\"round\"/></g>\n")
                       .arg(x)
                       .arg(y)
                       .arg(toPixels(p.picture.width))
                       .arg(toPixels(p.picture.height))
                       .arg(svgPathData(outline))
                       .arg(signInkStroke())
                       .toUtf8();
            continue;
        }
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

bool saveWordPicture(const WordPicture& picture, const QString& file, ImageFormat format,
                     double scale) {
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) return false;
    bool written = false;
    switch (format) {
    case ImageFormat::Svg: {
        const QByteArray svg = wordPictureSvg(picture, scale);
        written = out.write(svg) == svg.size();
        break;
    }
    case ImageFormat::Png:
        written = wordPictureImage(picture, scale).save(&out, "PNG");
        break;
    case ImageFormat::Bmp:
        written = wordPictureImage(picture, scale).save(&out, "BMP");
        break;
    }
    if (!written) {
        out.cancelWriting();
        return false;
    }
    return out.commit();
}

} // namespace nebkaro
