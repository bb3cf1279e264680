#include "display/sign_outlines_qt.h"
#include "core/twips.h"

#include "core/library_direction.h"

#include <QFile>
#include <QHash>
#include <QMutex>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QString>

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

namespace nebkaro {

namespace {

// The pictures' ink was darkened so that the font's thin lines come out black; a thin stroke
// around the outline gives the same weight.
constexpr double InkStroke = 0.45;
// How far (pixels) a picture may differ from its outline's box and still be the font's
// picture of that sign: the crop is to the ink, with one pixel of margin, and the
// anti-aliased edge may add a pixel.
constexpr double PictureTolerance = 2.5;

// The glyph outlines of a TrueType font: enough of the format to read the simple glyphs of
// one font through its Unicode (format 12) character map.
class TrueTypeOutlines {
public:
    explicit TrueTypeOutlines(QByteArray data) : data_(std::move(data)) { parse(); }
    bool ok() const { return ok_; }
    int unitsPerEm() const { return unitsPerEm_; }

    // In font units, y up; empty for a character without a glyph or a glyph that is not a
    // simple one.
    QPainterPath outline(char32_t c) const {
        const std::optional<std::uint32_t> glyph = glyphFor(c);
        if (!glyph || *glyph >= glyphCount_) return {};
        const std::uint32_t start = loca(*glyph), end = loca(*glyph + 1);
        if (end <= start || glyf_ + end > size()) return {};
        return simpleGlyph(glyf_ + start, glyf_ + end);
    }

private:
    std::size_t size() const { return static_cast<std::size_t>(data_.size()); }
    std::uint8_t u8(std::size_t at) const {
        return at < size() ? static_cast<std::uint8_t>(data_[static_cast<qsizetype>(at)]) : 0;
    }
    std::uint16_t u16(std::size_t at) const {
        return static_cast<std::uint16_t>(u8(at) << 8 | u8(at + 1));
    }
    // Font tables keep signed values as 16-bit two's complement: the wrap is the decoding.
    std::int16_t s16(std::size_t at) const { return static_cast<std::int16_t>(u16(at)); }
    std::uint32_t u32(std::size_t at) const {
        return static_cast<std::uint32_t>(u16(at)) << 16 | u16(at + 2);
    }

    void parse() {
        if (size() < 12) return;
        std::map<std::string, std::size_t> tables;
        const int count = u16(4);
        for (int i = 0; i < count; ++i) {
            const std::size_t rec = 12 + 16 * static_cast<std::size_t>(i);
            const std::string tag(data_.constData() + rec, 4);
            tables[tag] = u32(rec + 8);
        }
        for (const char* t : {"head", "maxp", "loca", "glyf", "cmap"})
            if (!tables.count(t) || tables[t] >= size()) return;
        const std::size_t head = tables["head"];
        unitsPerEm_ = u16(head + 18);
        longLoca_ = s16(head + 50) == 1;
        glyphCount_ = u16(tables["maxp"] + 4);
        loca_ = tables["loca"];
        glyf_ = tables["glyf"];
        const std::size_t cmap = tables["cmap"];
        const int subtables = u16(cmap + 2);
        for (int i = 0; i < subtables; ++i) {
            const std::size_t rec = cmap + 4 + 8 * static_cast<std::size_t>(i);
            const std::size_t sub = cmap + u32(rec + 4);
            if (u16(rec) == 3 && u16(rec + 2) == 10 && u16(sub) == 12) cmap12_ = sub;
        }
        ok_ = cmap12_ != 0 && unitsPerEm_ > 0;
    }

    std::optional<std::uint32_t> glyphFor(char32_t c) const {
        const std::uint32_t groups = u32(cmap12_ + 12);
        std::uint32_t lo = 0, hi = groups;
        while (lo < hi) {
            const std::uint32_t mid = (lo + hi) / 2;
            const std::size_t g = cmap12_ + 16 + 12 * static_cast<std::size_t>(mid);
            if (c < u32(g))
                hi = mid;
            else if (c > u32(g + 4))
                lo = mid + 1;
            else
                return u32(g + 8) + (c - u32(g));
        }
        return std::nullopt;
    }

    std::uint32_t loca(std::uint32_t glyph) const {
        return longLoca_ ? u32(loca_ + 4 * std::size_t{glyph})
                         : 2u * u16(loca_ + 2 * std::size_t{glyph});
    }

    QPainterPath simpleGlyph(std::size_t at, std::size_t end) const {
        const int contours = s16(at);
        if (contours <= 0) return {};
        std::vector<int> ends(static_cast<std::size_t>(contours));
        for (int i = 0; i < contours; ++i)
            ends[static_cast<std::size_t>(i)] = u16(at + 10 + 2 * static_cast<std::size_t>(i));
        const int points = ends.back() + 1;
        std::size_t p = at + 10 + 2 * static_cast<std::size_t>(contours);
        p += 2 + u16(p); // instructions
        std::vector<std::uint8_t> flags;
        flags.reserve(static_cast<std::size_t>(points));
        while (static_cast<int>(flags.size()) < points && p < end) {
            const std::uint8_t f = u8(p++);
            flags.push_back(f);
            if (f & 8) {
                for (int r = u8(p++); r > 0 && static_cast<int>(flags.size()) < points; --r)
                    flags.push_back(f);
            }
        }
        if (static_cast<int>(flags.size()) < points) return {};
        std::vector<QPointF> pts(static_cast<std::size_t>(points));
        auto coords = [&](int shortBit, int sameBit, bool isX) {
            int v = 0;
            for (int i = 0; i < points; ++i) {
                const std::uint8_t f = flags[static_cast<std::size_t>(i)];
                if (f & shortBit) {
                    const int d = u8(p++);
                    v += (f & sameBit) ? d : -d;
                } else if (!(f & sameBit)) {
                    v += s16(p);
                    p += 2;
                }
                QPointF& q = pts[static_cast<std::size_t>(i)];
                (isX ? q.rx() : q.ry()) = v;
            }
        };
        coords(2, 16, true);
        coords(4, 32, false);
        if (p > end) return {};
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        int first = 0;
        for (int e : ends) {
            const int n = e - first + 1;
            if (n < 2 || e >= points) {
                first = e + 1;
                continue;
            }
            auto pt = [&](int k) { return pts[static_cast<std::size_t>(first + (k % n))]; };
            auto on = [&](int k) { return flags[static_cast<std::size_t>(first + (k % n))] & 1; };
            // Start on a point on the curve (or between two control points).
            int s = 0;
            while (s < n && !on(s)) ++s;
            QPointF start = s < n ? pt(s) : (pt(0) + pt(1)) / 2;
            if (s == n) s = 0;
            path.moveTo(start);
            std::optional<QPointF> control;
            for (int k = 1; k <= n; ++k) {
                const QPointF q = pt(s + k);
                if (on(s + k)) {
                    if (control)
                        path.quadTo(*control, q);
                    else
                        path.lineTo(q);
                    control.reset();
                } else {
                    if (control) path.quadTo(*control, (*control + q) / 2);
                    control = q;
                }
            }
            if (control) path.quadTo(*control, start);
            path.closeSubpath();
            first = e + 1;
        }
        return path;
    }

    QByteArray data_;
    bool ok_ = false;
    bool longLoca_ = false;
    int unitsPerEm_ = 0;
    std::uint32_t glyphCount_ = 0;
    std::size_t loca_ = 0, glyf_ = 0, cmap12_ = 0;
};

// One program folder's font, table and outlines drawn so far.
struct OutlineSource {
    std::unique_ptr<TrueTypeOutlines> font;
    std::unordered_map<std::string, char32_t> glyphs;
    // By code and direction, in picture pixels, the ink's box at the origin.
    QHash<QString, QPainterPath> paths;
};

std::unordered_map<std::string, char32_t> readGlyphTable(const QString& file) {
    std::unordered_map<std::string, char32_t> table;
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly)) return table;
    while (!f.atEnd()) {
        const QByteArray line = f.readLine().trimmed();
        const QList<QByteArray> parts = line.split(',');
        if (parts.size() != 2) continue;
        const QByteArray code = parts[0].mid(1, parts[0].size() - 2);
        bool ok = false;
        const uint cp = parts[1].mid(1, parts[1].size() - 2).toUInt(&ok, 16);
        if (ok && !code.isEmpty()) table.emplace(code.toStdString(), static_cast<char32_t>(cp));
    }
    return table;
}

OutlineSource& sourceFor(const std::filesystem::path& home) {
    static std::map<std::filesystem::path, OutlineSource> sources;
    auto it = sources.find(home);
    if (it != sources.end()) return it->second;
    OutlineSource s;
    QFile font(QString::fromStdString((home / "Fonts" / "Aegyptus.ttf").string()));
    if (font.open(QIODevice::ReadOnly)) {
        auto outlines = std::make_unique<TrueTypeOutlines>(font.readAll());
        if (outlines->ok()) {
            s.font = std::move(outlines);
            s.glyphs = readGlyphTable(
                QString::fromStdString((home / "Lists" / "SignGlyphs.csv").string()));
        }
    }
    return sources.emplace(home, std::move(s)).first->second;
}

QMutex& outlineLock() {
    static QMutex m;
    return m;
}

bool isPaper(const QPainter& painter) {
    const QPaintEngine* e = painter.paintEngine();
    if (!e) return false;
    switch (e->type()) {
    case QPaintEngine::Pdf:
    case QPaintEngine::SVG:
    case QPaintEngine::Picture:
    case QPaintEngine::Windows:
        return true;
    default:
        return false;
    }
}

void paintOutline(QPainter& painter, const QPainterPath& outline, const QRectF& box,
                  double pictureWidth, double pictureHeight) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(box, Qt::white);
    painter.translate(box.topLeft());
    painter.scale(box.width() / pictureWidth, box.height() / pictureHeight);
    QPen pen(Qt::black, InkStroke);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::black);
    painter.drawPath(outline);
    painter.restore();
}

void paintMissing(QPainter& painter, const QRectF& box) {
    painter.save();
    painter.setPen(QPen(Qt::gray, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace

QPainterPath signOutline(const SignPicture& picture) {
    if (!picture.ok || picture.width <= 0 || picture.height <= 0) return {};
    const std::filesystem::path& file = picture.file;
    const std::filesystem::path directionFolder = file.parent_path().parent_path();
    const std::filesystem::path home = directionFolder.parent_path().parent_path();
    const std::string code = file.stem().string();
    const bool right = directionFolder.filename() == directionName(Direction::Right);
    const QString key =
        QString::fromStdString(code) + (right ? QLatin1Char('R') : QLatin1Char('L'));

    QMutexLocker lock(&outlineLock());
    OutlineSource& source = sourceFor(home);
    if (!source.font) return {};
    QPainterPath ink;
    if (const auto cached = source.paths.constFind(key); cached != source.paths.cend()) {
        ink = *cached;
    } else {
        const auto glyph = source.glyphs.find(code);
        if (glyph != source.glyphs.end()) {
            const double k = PicturePixelsPerEm / source.font->unitsPerEm();
            QTransform t;
            t.scale(right ? -k : k, -k); // font units are y up; Right pictures are mirrored
            ink = t.map(source.font->outline(glyph->second));
            ink.translate(-ink.boundingRect().topLeft());
        }
        source.paths.insert(key, ink);
    }
    if (ink.isEmpty()) return {};
    // The picture is the ink cropped with a margin: a picture of another size is not the
    // font's picture of this sign.
    const double w = toPixels(picture.width), h = toPixels(picture.height);
    const QRectF inkBox = ink.boundingRect();
    if (std::abs(inkBox.width() + 2 - w) > PictureTolerance ||
        std::abs(inkBox.height() + 2 - h) > PictureTolerance)
        return {};
    return ink.translated((w - inkBox.width()) / 2, (h - inkBox.height()) / 2);
}

bool paintSignOutline(QPainter& painter, const SignPicture& picture, const QRectF& box) {
    const QPainterPath outline = signOutline(picture);
    if (outline.isEmpty()) return false;
    paintOutline(painter, outline, box, toPixels(picture.width), toPixels(picture.height));
    return true;
}

double signInkStroke() {
    return InkStroke;
}

QString svgPathData(const QPainterPath& outline) {
    QString d;
    auto num = [](double v) { return QString::number(v, 'f', 2); };
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element e = outline.elementAt(i);
        if (e.isMoveTo()) {
            d += QStringLiteral("M%1 %2").arg(num(e.x), num(e.y));
        } else if (e.isLineTo()) {
            d += QStringLiteral("L%1 %2").arg(num(e.x), num(e.y));
        } else if (e.isCurveTo() && i + 2 < outline.elementCount()) {
            const QPainterPath::Element c2 = outline.elementAt(i + 1);
            const QPainterPath::Element to = outline.elementAt(i + 2);
            d += QStringLiteral("C%1 %2 %3 %4 %5 %6")
                     .arg(num(e.x), num(e.y), num(c2.x), num(c2.y), num(to.x), num(to.y));
            i += 2;
        }
    }
    return d;
}

void paintSign(QPainter& painter, const SignPicture& picture, const QRectF& box) {
    const double w = toPixels(picture.width), h = toPixels(picture.height);
    const QTransform& t = painter.deviceTransform();
    const double scale = std::max(std::hypot(t.m11(), t.m12()) * box.width() / std::max(w, 1.0),
                                  std::hypot(t.m21(), t.m22()) * box.height() / std::max(h, 1.0));
    if (isPaper(painter) || scale > 1.01) {
        const QPainterPath outline = signOutline(picture);
        if (!outline.isEmpty()) {
            paintOutline(painter, outline, box, w, h);
            return;
        }
    }
    QImage image;
    if (picture.ok) image.load(QString::fromStdString(picture.file.string()));
    if (image.isNull()) {
        paintMissing(painter, box);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(box, image);
    painter.restore();
}

QImage signImage(const SignPicture& picture, double scale) {
    const double w = toPixels(picture.width), h = toPixels(picture.height);
    const QSize size(std::max(1, static_cast<int>(std::lround(w * scale))),
                     std::max(1, static_cast<int>(std::lround(h * scale))));
    if (scale <= 1.01) {
        QImage image;
        if (picture.ok && image.load(QString::fromStdString(picture.file.string())))
            return image.size() == size
                       ? image
                       : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSign(painter, picture, QRectF(QPointF(0, 0), QSizeF(size)));
    return image;
}

} // namespace nebkaro
