// Signs drawn from their outlines: every shipped sign has one that stands where its picture's
// ink stands, and a word keeps its layout at every scale it is exported at.
#include "display/sign_outlines_qt.h"
#include "display/word_picture_qt.h"
#include "harness.h"
#include "print/word_picture.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <filesystem>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

const std::filesystem::path Data = NEBKARO_DATA_DIR;

bool inked(const QImage& image, int x, int y, int below = 128) {
    return qGray(image.pixel(x, y)) < below;
}

// The box of the pixels darker than mid-grey.
QRect inkBox(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (inked(image, x, y)) box |= QRect(x, y, 1, 1);
    return box;
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
            for (const Library library : {Library::Basic, Library::Extended})
                for (const Direction direction : {Direction::Left, Direction::Right}) {
                    const SignPicture p = pictures.picture(library, direction, code);
                    if (!p.ok) continue;
                    const std::string where =
                        code + " " + libraryName(library) + " " + directionName(direction);
                    QVERIFY2(!signOutline(p).isEmpty(), where.c_str());
                    // At 100 % the outline covers the picture's ink, facing the same way.
                    if (++checked % 97 != 0) continue;
                    ++compared;
                    QImage outline(p.width / 15, p.height / 15, QImage::Format_RGB32);
                    outline.fill(Qt::white);
                    QPainter painter(&outline);
                    QVERIFY(paintSignOutline(painter, p, QRectF(outline.rect())));
                    painter.end();
                    const QImage picture(QString::fromStdString(p.file.string()));
                    int ink = 0, shared = 0;
                    for (int y = 0; y < picture.height() && y < outline.height(); ++y)
                        for (int x = 0; x < picture.width() && x < outline.width(); ++x)
                            if (inked(picture, x, y)) {
                                ++ink;
                                shared += inked(outline, x, y, 200);
                            }
                    QVERIFY2(shared >= 0.75 * ink && ink > 0, where.c_str());
                }
        }
        QVERIFY(checked > 2 * 6000 && compared > 100);
    }

    // The ink of the word at 1x, scaled, is the ink at every scale, to within the pixel the
    // picture's crop may add; the SVG is paths at the scale's size.
    void aWordKeepsItsLayoutAtEveryScaleAndExportsAsPaths() {
        FolderSignPictures pictures(Data);
        const WordPicture word = print::pictureOfRecord(
            pictures, {"L", "B", "A1(0,0) - G17(600,0) - N35(1200,300) ", "", "", "", ""});
        const QImage one = wordPictureImage(word, 1);
        const QRect inkOne = inkBox(one);
        for (int scale : {2, 3, 8}) {
            const QImage image = wordPictureImage(word, scale);
            QCOMPARE(image.size(), one.size() * scale);
            const QRect ink = inkBox(image);
            for (auto [got, want] : {std::pair{ink.left(), inkOne.left()},
                                     {ink.right(), inkOne.right()},
                                     {ink.top(), inkOne.top()},
                                     {ink.bottom(), inkOne.bottom()}})
                QVERIFY(std::abs(got - want * scale) <= 1.5 * scale);
        }
        const QByteArray svg = wordPictureSvg(word, 4);
        QCOMPARE(svg.count("<path "), 3);
        QCOMPARE(svg.count("<image "), 0);
        QCOMPARE(QImage::fromData(svg).size(), one.size() * 4);
    }
};

QTEST_MAIN(SignOutlinesTest)
#include "sign_outlines_test.moc"
