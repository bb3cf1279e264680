#include "print/print_document_qt.h"

#include "display/qstring_qt.h"
#include "display/sign_outlines_qt.h"

#include <QColor>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPen>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace nebkaro::print {

namespace {

constexpr int TwipsPerPoint = 20;
// The word picture keeps this much white round its signs; on paper the signs line up with
// the text instead, and the space between words does the margin's work.
constexpr int PictureMargin = 32;
constexpr int PictureToTextGap = 90;
constexpr int HeaderGap = 220;
constexpr int NumberGap = 180;
// From this content width on (four inches) the text stands beside the signs, which may take
// up to this share of the width.
constexpr int SideBySideWidth = 4 * 1440;
constexpr double SignsShare = 0.45;
constexpr int SignsToTextGap = 300;
constexpr double SmallestPictureScale = 0.05;

QFont fontOf(const QString& family, double points, QFont::StyleHint hint, bool bold = false,
             bool italic = false) {
    QFont f(family);
    f.setStyleHint(hint);
    // Twips as pixels: the painter's scale makes them true points on every device.
    f.setPixelSize(static_cast<int>(std::lround(points * TwipsPerPoint)));
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setBold(bold);
    f.setItalic(italic);
    return f;
}

// Field text on paper: line breaks stay line breaks, carriage returns go.
QString paperText(const std::string& s) {
    QString t = qs(s);
    t.remove(QLatin1Char('\r'));
    t.replace(QLatin1Char('\n'), QChar::LineSeparator);
    return t;
}

struct Fonts {
    QFont number = fontOf(QStringLiteral("Sans Serif"), 8.5, QFont::SansSerif, true);
    QFont gardiner = fontOf(QStringLiteral("Sans Serif"), 9, QFont::SansSerif);
    QFont translit;
    QFont meaning = fontOf(QStringLiteral("Serif"), 11, QFont::Serif);
    QFont comment = fontOf(QStringLiteral("Serif"), 9.5, QFont::Serif, false, true);
    QFont title = fontOf(QStringLiteral("Sans Serif"), 9, QFont::SansSerif, true);
    QFont header = fontOf(QStringLiteral("Sans Serif"), 8.5, QFont::SansSerif);

    Fonts() {
        translit = hasTransliterationFont()
                       ? fontOf(QStringLiteral("Transliteration"), 12, QFont::Serif)
                       : fontOf(QStringLiteral("Serif"), 12, QFont::Serif);
    }
};

const QColor Ink(0, 0, 0);
const QColor Grey(90, 90, 90);
const QColor Rule(185, 185, 185);

// One text field of a word as it stands on paper.
struct TextPart {
    QString text;
    const QFont* font = nullptr;
    const QFontMetricsF* metrics = nullptr;
    QColor colour;
    double step = 0; // height of one line
    int lines = 0;
};

// Wraps text to width with the given line step; the layout is the same when measuring and
// when drawing, so a word takes on paper exactly the height it was given.
std::unique_ptr<QTextLayout> wrapText(const QString& text, const QFont& font, double width,
                                      double step) {
    auto layout = std::make_unique<QTextLayout>(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->beginLayout();
    double y = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += step;
    }
    layout->endLayout();
    return layout;
}

int lineCount(const QString& text, const QFont& font, const QFontMetricsF& metrics, double width) {
    // Most fields are one short line; only the others need the full text layout.
    if (!text.contains(QChar::LineSeparator) && metrics.horizontalAdvance(text) <= width) return 1;
    return wrapText(text, font, width, 1)->lineCount();
}

} // namespace

bool hasTransliterationFont() {
    return QFontDatabase::families().contains(QStringLiteral("Transliteration"));
}

QPageSize::PageSizeId qtPageSizeId(const std::string& paper) {
    if (paper == "Letter") return QPageSize::Letter;
    if (paper == "Legal") return QPageSize::Legal;
    if (paper == "A5") return QPageSize::A5;
    if (paper == "A3") return QPageSize::A3;
    return QPageSize::A4;
}

// How one word sits in its column: the number in a gutter on the left, the signs, then the
// text fields one under the other.
struct BlockLayout {
    double pictureScale = 1;
    double pictureHeight = 0; // on paper, twips, 0 when no signs are printed
    // Where the text starts, from the left of the block's content and from its top: under
    // the signs, or beside them in a wide column.
    double textX = 0;
    double textTop = 0;
    double textWidth = 0;
    std::vector<TextPart> parts;
    int height = 0;
};

// The drawn size of a word's signs, without the white margin its picture keeps round them.
double signsWidth(const WordPicture& p) {
    return std::max(p.width - 2 * PictureMargin, 1);
}
double signsHeight(const WordPicture& p) {
    return std::max(p.height - 2 * PictureMargin, 1);
}

struct PrintDocument::Impl {
    explicit Impl(std::shared_ptr<const std::vector<PrintWord>> w) : shared(std::move(w)) {}

    // The words may be shared with other layouts of them (the dialog's earlier choices).
    std::shared_ptr<const std::vector<PrintWord>> shared;
    const std::vector<PrintWord>& words = *shared;
    PrintOptions options;
    std::string title;
    Fonts fonts;
    PageFrame frame;
    int numberGutter = 0;
    double signsColumn = 0; // 0: text under the signs
    int gap = 0;
    double headerLine = 0;
    double footerLine = 0;
    std::vector<int> heights;
    std::vector<Page> pages;
    int firstNumber = 1;
    bool showTotal = true;

    mutable QHash<QString, QImage> originals;
    mutable QHash<QString, QImage> scaled;

    // Metrics of the fonts of the fields, measured once: a whole dictionary asks them
    // hundreds of thousands of times.
    struct Face {
        const QFont* font;
        QFontMetricsF metrics;
        double step;
    };
    std::vector<Face> faces;
    const Face& face(const QFont& f) const {
        for (const Face& x : faces)
            if (x.font == &f) return x;
        return faces.front();
    }
    double step(const QFont& f) const { return face(f).step; }
    int contentWidth() const { return frame.columnWidth - numberGutter; }

    BlockLayout layoutBlock(const PrintWord& w) const {
        BlockLayout b;
        const PrintFields& fields = options.fields;
        const double width = std::max(contentWidth(), 1);
        auto addText = [&](bool on, const std::string& value, const QFont& font,
                           const QColor& colour) {
            if (!on) return;
            QString t = paperText(value);
            if (t.trimmed().isEmpty()) return;
            const Face& x = face(font);
            b.parts.push_back(TextPart{t, &font, &x.metrics, colour, x.step, 0});
        };
        addText(fields.gardiner, w.record[FieldGardiner], fonts.gardiner, Grey);
        addText(fields.transliteration, w.record[FieldTranslit], fonts.translit, Ink);
        addText(fields.meaning, w.record[FieldMeaning], fonts.meaning, Ink);
        addText(fields.comment, w.record[FieldComment], fonts.comment, Ink);

        const bool signs = fields.signs && !w.picture.pictures.empty();
        const double signsW = signsWidth(w.picture);
        const double signsH = signsHeight(w.picture);
        const bool beside = signs && !b.parts.empty() && signsColumn > 0 && signsW <= signsColumn;
        b.textX = beside ? signsColumn + SignsToTextGap : 0;
        b.textWidth = std::max(width - b.textX, 1.0);
        double textHeight = 0;
        for (TextPart& p : b.parts) {
            p.lines = lineCount(p.text, *p.font, *p.metrics, b.textWidth);
            textHeight += p.lines * p.step;
        }

        double height = textHeight;
        if (signs) {
            // True size, unless the word is wider than its column or taller than it can be
            // with its text.
            double s = std::min(1.0, width / signsW);
            const double room =
                beside ? frame.columnHeight
                       : frame.columnHeight - textHeight - (b.parts.empty() ? 0 : PictureToTextGap);
            if (signsH * s > room) s = room / signsH;
            b.pictureScale = std::max(s, SmallestPictureScale);
            b.pictureHeight = signsH * b.pictureScale;
            if (beside) {
                height = std::max(textHeight, b.pictureHeight);
            } else {
                b.textTop = b.parts.empty() ? 0 : b.pictureHeight + PictureToTextGap;
                height = b.textTop + textHeight;
            }
        }
        if (fields.number) height = std::max(height, step(fonts.number));
        b.height = static_cast<int>(std::ceil(height));
        return b;
    }

    void layOut() {
        faces.clear();
        for (const QFont* f :
             {&fonts.number, &fonts.gardiner, &fonts.translit, &fonts.meaning, &fonts.comment}) {
            QFontMetricsF m(*f);
            faces.push_back({f, m, m.lineSpacing() * options.lineSpacing});
        }
        const double titleLine = QFontMetricsF(fonts.title).lineSpacing();
        headerLine = std::max(titleLine, QFontMetricsF(fonts.header).lineSpacing());
        footerLine = QFontMetricsF(fonts.header).lineSpacing();
        frame = framePage(options, static_cast<int>(std::ceil(headerLine)) + HeaderGap,
                          static_cast<int>(std::ceil(footerLine)) + HeaderGap);
        numberGutter = 0;
        if (options.fields.number) {
            // As wide as the longest number printed, so that the words line up on every page
            // and no room is lost on a short dictionary's numbers.
            int widest = 0;
            for (const PrintWord& w : words) widest = std::max(widest, w.index);
            const QString digits(QString::number(widest).size(), QLatin1Char('0'));
            numberGutter =
                static_cast<int>(std::ceil(QFontMetricsF(fonts.number).horizontalAdvance(digits))) +
                NumberGap;
        }
        gap = static_cast<int>(std::lround(0.8 * step(fonts.meaning)));
        // A wide column puts the text beside the signs, all words' text at one edge: as far
        // right as the widest word that takes no more than its share of the column.
        signsColumn = 0;
        if (options.fields.signs && contentWidth() >= SideBySideWidth) {
            const double share = contentWidth() * SignsShare;
            for (const PrintWord& w : words)
                if (!w.picture.pictures.empty() && signsWidth(w.picture) <= share)
                    signsColumn = std::max(signsColumn, signsWidth(w.picture));
        }
        heights.clear();
        pages.clear();
        if (!frame.usable() || !options.fields.any()) return;
        heights.reserve(words.size());
        for (const PrintWord& w : words) heights.push_back(layoutBlock(w).height);
        pages = paginate(heights, frame.columns, frame.columnHeight, gap);
    }

    const QImage& original(const QString& file) const {
        auto it = originals.find(file);
        if (it == originals.end()) {
            QImage img(file);
            if (!img.isNull()) img = img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
            if (originals.size() > 2000) originals.clear();
            it = originals.insert(file, img);
        }
        return *it;
    }

    // The sign's picture smoothly scaled to the pixels it covers on the device, so that a
    // coarse screen picture prints as well as the printer's resolution allows.
    QImage deviceImage(const QString& file, QSize pixels) const {
        const QImage& src = original(file);
        if (src.isNull() || pixels.isEmpty()) return {};
        if (src.size() == pixels) return src;
        const QString key = file + QLatin1Char('@') + QString::number(pixels.width()) +
                            QLatin1Char('x') + QString::number(pixels.height());
        auto it = scaled.find(key);
        if (it == scaled.end()) {
            if (scaled.size() > 2000) scaled.clear();
            it = scaled.insert(key,
                               src.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
        return *it;
    }

    void drawPicture(QPainter& p, const WordPicture& pic, double x, double y, double s, double kx,
                     double ky) const {
        for (const PlacedPicture& placed : pic.pictures) {
            const QRectF r(x + (placed.x - PictureMargin) * s, y + (placed.y - PictureMargin) * s,
                           placed.picture.width * s, placed.picture.height * s);
            // On paper a sign is its outline, sharp at the printer's resolution.
            if (paintSignOutline(p, placed.picture, r)) continue;
            QImage img;
            if (placed.picture.ok) {
                const QSize pixels(std::max(1, static_cast<int>(std::lround(r.width() * kx))),
                                   std::max(1, static_cast<int>(std::lround(r.height() * ky))));
                img = deviceImage(QString::fromStdString(placed.picture.file.string()), pixels);
            }
            if (!img.isNull()) {
                p.drawImage(r, img);
            } else {
                // A picture that cannot be read is an empty framed square, as on screen.
                p.save();
                p.setPen(QPen(Grey, 10));
                p.setBrush(Qt::NoBrush);
                p.drawRect(r.adjusted(5, 5, -5, -5));
                p.restore();
            }
        }
    }

    void drawBlock(QPainter& p, const PrintWord& w, double x, double y, double kx,
                   double ky) const {
        const BlockLayout b = layoutBlock(w);
        if (options.fields.number) {
            p.setFont(fonts.number);
            p.setPen(Grey);
            const QRectF r(x, y, numberGutter - NumberGap, step(fonts.number));
            p.drawText(r, Qt::AlignRight | Qt::AlignTop, QString::number(w.index));
        }
        const double cx = x + numberGutter;
        if (b.pictureHeight > 0) drawPicture(p, w.picture, cx, y, b.pictureScale, kx, ky);
        double ty = y + b.textTop;
        for (const TextPart& part : b.parts) {
            auto layout = wrapText(part.text, *part.font, b.textWidth, part.step);
            p.setPen(part.colour);
            layout->draw(&p, QPointF(cx + b.textX, ty));
            ty += part.lines * part.step;
        }
    }

    // "Words 3–17" for a page of words in dictionary order; nothing for words collected in
    // any order, where a first and a last number would mislead.
    std::string wordsGuide(const Page& placements) const {
        int previous = -1;
        for (const Placement& pl : placements) {
            const int index = words[static_cast<std::size_t>(pl.item)].index;
            if (index <= previous) return {};
            previous = index;
        }
        if (placements.empty()) return {};
        return pageWordsText(words[static_cast<std::size_t>(placements.front().item)].index,
                             previous);
    }

    void drawPage(QPainter& p, int page, double kx, double ky) const {
        if (page < 0 || page >= static_cast<int>(pages.size())) return;
        const Page& placements = pages[static_cast<std::size_t>(page)];
        p.save();
        p.scale(kx, ky);
        p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);

        // Header: the dictionary's name, the words on the page, and a rule under them.
        const double width = frame.right - frame.left;
        p.setPen(Ink);
        p.setFont(fonts.title);
        const QRectF headerRect(frame.left, frame.top, width, headerLine);
        p.drawText(headerRect, Qt::AlignLeft | Qt::AlignVCenter, qs(title));
        if (const std::string guide = wordsGuide(placements); !guide.empty()) {
            p.setFont(fonts.header);
            p.setPen(Grey);
            p.drawText(headerRect, Qt::AlignRight | Qt::AlignVCenter, qs(guide));
        }
        const double ruleY = frame.top + headerLine + HeaderGap / 3.0;
        p.setPen(QPen(Rule, 12));
        p.drawLine(QPointF(frame.left, ruleY), QPointF(frame.right, ruleY));

        // Footer: the page number, centred.
        p.setFont(fonts.header);
        p.setPen(Grey);
        const int total = showTotal ? firstNumber - 1 + static_cast<int>(pages.size()) : 0;
        p.drawText(QRectF(frame.left, frame.bottom - footerLine, width, footerLine),
                   Qt::AlignHCenter | Qt::AlignVCenter, qs(pageFooter(firstNumber + page, total)));

        // The words, each clipped to its column so that one too big for it stays there.
        for (std::size_t i = 0; i < placements.size(); ++i) {
            const Placement& pl = placements[i];
            const double x = frame.columnLeft(pl.column);
            const double y = frame.bodyTop + pl.top;
            if (pl.top > 0) {
                // A thin rule halfway between this word and the one above it.
                p.setClipping(false);
                p.setPen(QPen(Rule, 8));
                const double ry = y - gap / 2.0;
                p.drawLine(QPointF(x + numberGutter, ry), QPointF(x + frame.columnWidth, ry));
            }
            p.setClipRect(QRectF(x - PictureMargin, frame.bodyTop,
                                 frame.columnWidth + 2 * PictureMargin, frame.columnHeight));
            drawBlock(p, words[static_cast<std::size_t>(pl.item)], x, y, kx, ky);
        }
        p.restore();
    }
};

PrintDocument::PrintDocument(std::vector<PrintWord> words, PrintOptions options, std::string title)
    : PrintDocument(std::make_shared<const std::vector<PrintWord>>(std::move(words)),
                    std::move(options), std::move(title)) {}

PrintDocument::PrintDocument(std::shared_ptr<const std::vector<PrintWord>> words,
                             PrintOptions options, std::string title)
    : d(std::make_unique<Impl>(std::move(words))) {
    d->options = std::move(options);
    d->options.lineSpacing = std::clamp(d->options.lineSpacing, MinLineSpacing, MaxLineSpacing);
    d->title = std::move(title);
    d->layOut();
}

PrintDocument::~PrintDocument() = default;

const PrintOptions& PrintDocument::options() const {
    return d->options;
}
const std::string& PrintDocument::title() const {
    return d->title;
}
const std::shared_ptr<const std::vector<PrintWord>>& PrintDocument::sharedWords() const {
    return d->shared;
}
const std::vector<PrintWord>& PrintDocument::words() const {
    return d->words;
}
const PageFrame& PrintDocument::frame() const {
    return d->frame;
}
bool PrintDocument::fits() const {
    return d->frame.usable();
}
const std::vector<Page>& PrintDocument::pages() const {
    return d->pages;
}
int PrintDocument::pageCount() const {
    return static_cast<int>(d->pages.size());
}
const std::vector<int>& PrintDocument::blockHeights() const {
    return d->heights;
}
int PrintDocument::wordGap() const {
    return d->gap;
}

void PrintDocument::numberPages(int firstNumber, bool showTotal) {
    d->firstNumber = firstNumber;
    d->showTotal = showTotal;
}

void PrintDocument::drawPage(QPainter& painter, int page) const {
    const QPaintDevice* dev = painter.device();
    d->drawPage(painter, page, dev->logicalDpiX() / double(TwipsPerInch),
                dev->logicalDpiY() / double(TwipsPerInch));
}

QImage PrintDocument::pageImage(int page, double dpi) const {
    const double k = dpi / TwipsPerInch;
    QImage img(std::max(1, static_cast<int>(std::lround(d->frame.pageWidth * k))),
               std::max(1, static_cast<int>(std::lround(d->frame.pageHeight * k))),
               QImage::Format_RGB32);
    const int dpm = static_cast<int>(std::lround(dpi / 0.0254));
    img.setDotsPerMeterX(dpm);
    img.setDotsPerMeterY(dpm);
    img.fill(Qt::white);
    QPainter p(&img);
    d->drawPage(p, page, k, k);
    return img;
}

PrintDocument::Outcome PrintDocument::print(QPagedPaintDevice& device, int first, int last,
                                            const std::function<bool(int, int)>& progress) const {
    first = std::max(first, 0);
    last = std::min(last, pageCount() - 1);
    QPageLayout layout(QPageSize(qtPageSizeId(d->options.paper)),
                       d->options.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    layout.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(layout);
    QPainter painter;
    if (!painter.begin(&device)) return Outcome::Failed;
    const int total = std::max(last - first + 1, 0);
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage()) {
            painter.end();
            return Outcome::Failed;
        }
        drawPage(painter, page);
        if (progress && !progress(page - first + 1, total)) {
            painter.end();
            return Outcome::Cancelled;
        }
    }
    return painter.end() ? Outcome::Printed : Outcome::Failed;
}

} // namespace nebkaro::print
