// Signs drawn from their outlines: every shipped sign has one that stands where its picture's
// ink stands, a picture the font did not make is drawn from itself, and a word keeps its layout
// at every scale it is exported at.
#include "display/sign_outlines_qt.h"
#include "display/word_picture_qt.h"
#include "harness.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <filesystem>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

const std::filesystem::path Data = NEBKARO_DATA_DIR;

// The box of the pixels darker than mid-grey.
QRect inkBox(const QImage& image) {
    QRect box;
    const QImage g = image.convertToFormat(QImage::Format_Grayscale8);
    for (int y = 0; y < g.height(); ++y)
        for (int x = 0; x < g.width(); ++x)
            if (qGray(g.pixel(x, y)) < 128) box |= QRect(x, y, 1, 1);
    return box;
}

// The part of the first picture's ink that the second one has ink on too.
double sharedInk(const QImage& a, const QImage& b) {
    int ink = 0, shared = 0;
    for (int y = 0; y < a.height() && y < b.height(); ++y)
        for (int x = 0; x < a.width() && x < b.width(); ++x) {
            if (qGray(a.pixel(x, y)) >= 128) continue;
            ++ink;
            shared += qGray(b.pixel(x, y)) < 200;
        }
    return ink ? static_cast<double>(shared) / ink : 0;
}

QImage onWhite(const QImage& sign) {
    QImage out(sign.size(), QImage::Format_RGB32);
    out.fill(Qt::white);
    QPainter(&out).drawImage(0, 0, sign);
    return out;
}

} // namespace

class SignOutlinesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyShippedSignHasAnOutlineWhereItsPictureHasInk() {
        QFile table(QString::fromStdString((Data / "Lists" / "SignGlyphs.csv").string()));
        QVERIFY(table.open(QIODevice::ReadOnly));
        FolderSignPictures pictures(Data);
        int checked = 0, compared = 0;
        while (!table.atEnd()) {
            const QByteArray line = table.readLine().trimmed();
            const std::string code = line.mid(1, line.indexOf(',') - 2).toStdString();
            for (const Library library : {Library::Basic, Library::Extended}) {
                for (const Direction direction : {Direction::Left, Direction::Right}) {
                    const SignPicture p = pictures.picture(library, direction, code);
                    if (!p.ok) continue;
                    ++checked;
                    QVERIFY2(!signOutline(p).isEmpty(),
                             (code + " " + libraryName(library)).c_str());
                    // At 100 % the outline covers the picture's ink, facing the same way.
                    if (checked % 97 != 0) continue;
                    ++compared;
                    QImage outline(p.width / 15, p.height / 15, QImage::Format_RGB32);
                    outline.fill(Qt::white);
                    QPainter painter(&outline);
                    QVERIFY(paintSignOutline(painter, p, QRectF(outline.rect())));
                    painter.end();
                    const QImage picture(QString::fromStdString(p.file.string()));
                    QVERIFY2(sharedInk(picture, outline) >= 0.75,
                             (code + " " + directionName(direction)).c_str());
                }
            }
        }
        QVERIFY(checked > 2 * 6000);
        QVERIFY(compared > 100);
    }

    void aPictureTheFontDidNotMakeIsDrawnFromItselfSmoothly() {
        ProgramFolder folder; // A1 and G17 there are pictures of other sizes than the font's
        QVERIFY(QDir().mkpath(folder.file(QStringLiteral("Fonts"))));
        QVERIFY(QFile::copy(QString::fromStdString((Data / "Fonts" / "Aegyptus.ttf").string()),
                            folder.file(QStringLiteral("Fonts/Aegyptus.ttf"))));
        folder.write("Lists/SignGlyphs.csv", "\"A1\",\"13000\"\r\n");
        folder.write("Basic/Left/Z/Z9.GIF", fixture("signs/10x10.gif")); // no glyph for Z9
        FolderSignPictures pictures(folder.path());
        for (const char* code : {"A1", "Z9"}) {
            const SignPicture p = pictures.picture(Library::Basic, Direction::Left, code);
            QVERIFY(p.ok);
            QVERIFY2(signOutline(p).isEmpty(), code);
            const QImage big = signImage(p, 4);
            QCOMPARE(big.size(), QSize(p.width / 15 * 4, p.height / 15 * 4));
        }
    }

    void aWordKeepsItsLayoutAtEveryScaleAndExportsAsPaths() {
        FolderSignPictures pictures(Data);
        WordPicture word;
        int x = 30;
        for (const char* code : {"A1", "G17", "N35"}) {
            PlacedPicture p;
            p.picture = pictures.picture(Library::Basic, Direction::Left, code);
            p.x = x;
            p.y = 30;
            x += p.picture.width + 45;
            word.pictures.push_back(p);
            word.width = x + 30;
            word.height = std::max(word.height, p.picture.height + 60);
        }
        const QRect one = inkBox(wordPictureImage(word, 1));
        for (double scale : {2.0, 3.0, 4.0, 8.0}) {
            const QImage image = wordPictureImage(word, scale);
            QCOMPARE(image.size(), wordPictureImage(word, 1).size() * scale);
            const QRect ink = inkBox(image);
            // The same box, scaled, to within the pixel the picture's crop may add.
            QVERIFY(std::abs(ink.left() - one.left() * scale) <= 1.5 * scale);
            QVERIFY(std::abs(ink.right() - one.right() * scale) <= 1.5 * scale);
            QVERIFY(std::abs(ink.top() - one.top() * scale) <= 1.5 * scale);
            QVERIFY(std::abs(ink.bottom() - one.bottom() * scale) <= 1.5 * scale);
        }
        const QByteArray svg = wordPictureSvg(word, 4);
        QCOMPARE(svg.count("<path "), 3);
        QCOMPARE(svg.count("<image "), 0);
        const QSize size = wordPictureImage(word, 1).size();
        QVERIFY(svg.contains(QStringLiteral("width=\"%1\" height=\"%2\" viewBox=\"0 0 %3 %4\"")
                                 .arg(size.width() * 4)
                                 .arg(size.height() * 4)
                                 .arg(size.width())
                                 .arg(size.height())
                                 .toUtf8()));
        QCOMPARE(onWhite(QImage::fromData(svg)).size(), size * 4);
    }
};

QTEST_MAIN(SignOutlinesTest)
#include "sign_outlines_test.moc"
