// The printed page as drawn: nothing outside the margins, words that fit their columns
// whatever their size, and the heights that the fields and the line spacing give a word.
#include "print_fixture.h"

#include "print/print_document_qt.h"
#include "print/word_picture.h"

#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::uitest;

namespace {

PrintDocument documentOf(App& app, const PrintOptions& o) {
    return PrintDocument(CollectWords(app, WordsInRange(o.range, app.store)), o, "Starter");
}

// A word of signs stacked far taller than any page.
WordRecord towerWord() {
    std::string layout;
    for (int i = 0; i < 21; ++i) layout += "A1(0," + std::to_string(i * 700) + ") - ";
    layout.resize(layout.size() - 2);
    return {"L", "B", layout, "A1*21", "tower", "skyscraper", "taller than a page"};
}

} // namespace

class PrintDocumentTest : public QObject {
    Q_OBJECT
private slots:
    void nothingIsDrawnOutsideTheMargins();
    void everyWordFitsItsColumn();
    void eachFieldOffShortensTheWordsThatHaveIt();
    void lineSpacingSpreadsTheText();
    void aWideColumnPutsTheTextBesideTheSigns();
};

void PrintDocumentTest::nothingIsDrawnOutsideTheMargins() {
    Fixture f(30);
    f.app->store.setRow(3, towerWord());
    for (int columns : {1, 2})
        for (bool landscape : {false, true}) {
            PrintOptions o;
            o.columns = columns;
            o.landscape = landscape;
            o.margins = {30, 15, 10, 25};
            const PrintDocument doc = documentOf(*f.app, o);
            const double dpi = 40;
            const double k = dpi / 1440;
            const PageFrame& fr = doc.frame();
            for (int page = 0; page < doc.pageCount(); ++page) {
                const QImage img = doc.pageImage(page, dpi);
                QCOMPARE(img.width(), qRound(fr.pageWidth * k));
                int inked = 0;
                for (int y = 0; y < img.height(); ++y)
                    for (int x = 0; x < img.width(); ++x) {
                        if (img.pixel(x, y) == qRgb(255, 255, 255)) continue;
                        ++inked;
                        const bool inside = x >= fr.left * k - 2 && x <= fr.right * k + 1 &&
                                            y >= fr.top * k - 1 && y <= fr.bottom * k + 1;
                        QVERIFY2(inside, qPrintable(QStringLiteral("ink at %1,%2 of page %3, %4 %5")
                                                        .arg(x)
                                                        .arg(y)
                                                        .arg(page)
                                                        .arg(columns)
                                                        .arg(landscape)));
                    }
                QVERIFY(inked > 0);
            }
        }
}

void PrintDocumentTest::everyWordFitsItsColumn() {
    Fixture f(12);
    f.app->store.setRow(5, towerWord());
    WordRecord wide = Fixture::record(6);
    wide[FieldLayout].clear();
    for (int i = 0; i < 21; ++i) wide[FieldLayout] += "N35(" + std::to_string(i * 600) + ",0) - ";
    wide[FieldLayout].resize(wide[FieldLayout].size() - 2);
    f.app->store.setRow(6, wide);
    for (const char* paper : {"A4", "A5"})
        for (int columns : {1, 2}) {
            PrintOptions o;
            o.paper = paper;
            o.columns = columns;
            const PrintDocument doc = documentOf(*f.app, o);
            for (const Page& page : doc.pages())
                for (const Placement& p : page)
                    QVERIFY2(p.top + doc.blockHeights()[static_cast<std::size_t>(p.item)] <=
                                 doc.frame().columnHeight,
                             qPrintable(QStringLiteral("word %1 on %2, %3 columns")
                                            .arg(p.item)
                                            .arg(paper)
                                            .arg(columns)));
            // The tower is scaled down to its column; words that fit keep their true size.
            QVERIFY(doc.blockHeights()[5] <= doc.frame().columnHeight);
            QVERIFY(doc.blockHeights()[5] > doc.frame().columnHeight / 2);
        }
}

void PrintDocumentTest::eachFieldOffShortensTheWordsThatHaveIt() {
    Fixture f(3);
    WordRecord noComment = Fixture::record(2);
    noComment[FieldComment].clear();
    f.app->store.setRow(2, noComment);
    PrintOptions o;
    o.columns = 2; // text under the signs
    const std::vector<int> all = documentOf(*f.app, o).blockHeights();
    struct Case {
        const char* name;
        bool PrintFields::*flag;
        bool word2Has;
    };
    const Case cases[] = {{"signs", &PrintFields::signs, true},
                          {"gardiner", &PrintFields::gardiner, true},
                          {"transliteration", &PrintFields::transliteration, true},
                          {"meaning", &PrintFields::meaning, true},
                          {"comment", &PrintFields::comment, false}};
    for (const Case& c : cases) {
        PrintOptions off = o;
        off.fields.*(c.flag) = false;
        const std::vector<int> h = documentOf(*f.app, off).blockHeights();
        QVERIFY2(h[0] < all[0], c.name);
        QVERIFY2(h[1] < all[1], c.name);
        if (c.word2Has)
            QVERIFY2(h[2] < all[2], c.name);
        else
            QVERIFY2(h[2] == all[2], c.name);
    }
    // The number alone still gives each word a line.
    o.fields = {false, false, false, false, false, true};
    const PrintDocument numbers = documentOf(*f.app, o);
    for (int h : numbers.blockHeights()) QVERIFY(h > 0);
}

void PrintDocumentTest::lineSpacingSpreadsTheText() {
    Fixture f(20);
    PrintOptions o;
    o.fields.signs = false;
    const PrintDocument single = documentOf(*f.app, o);
    o.lineSpacing = 2;
    const PrintDocument twice = documentOf(*f.app, o);
    for (std::size_t i = 0; i < single.blockHeights().size(); ++i) {
        const int a = single.blockHeights()[i], b = twice.blockHeights()[i];
        QVERIFY(b >= 2 * a - 2 && b <= 2 * a + 2);
    }
    QVERIFY(twice.wordGap() > single.wordGap());
    QVERIFY(twice.pageCount() > single.pageCount());
    // Margins that leave no room leave no pages.
    o.margins.top = o.margins.bottom = 140;
    QVERIFY(!documentOf(*f.app, o).fits());
    QCOMPARE(documentOf(*f.app, o).pageCount(), 0);
}

void PrintDocumentTest::aWideColumnPutsTheTextBesideTheSigns() {
    Fixture f(4);
    PrintOptions o;
    const PrintDocument wide = documentOf(*f.app, o);
    o.columns = 2;
    const PrintDocument narrow = documentOf(*f.app, o);
    o.fields.signs = false;
    const PrintDocument text = documentOf(*f.app, o);
    for (std::size_t i = 0; i < 4; ++i) {
        QVERIFY(wide.blockHeights()[i] < narrow.blockHeights()[i]);
        // Beside the signs, a word is as tall as its text (every test sign is shorter).
        QCOMPARE(wide.blockHeights()[i], text.blockHeights()[i]);
    }
}

QTEST_MAIN(PrintDocumentTest)
#include "print_document_test.moc"
