// The word view zooms about its centre by keys, menu and the wheel, keeps the zoom for the next
// run, and saves its picture at the chosen scale.
#include "harness.h"

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

using namespace nebkaro;
using namespace nebkaro::uitest;

class ZoomWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:

    void theWordGrowsAboutTheCentreOfItsArea() {
        Program p;
        QVERIFY(p.startAndShow());
        auto* a1 = p.find<QLabel>("mainGlyphPic0");
        auto* g17 = p.find<QLabel>("mainGlyphPic1");
        const QRect area = p.find<QFrame>("DispAreaShp")->geometry();
        auto check = [&](int percent) {
            QCOMPARE(p.app.settings.wordZoom, percent);
            QCOMPARE(a1->size(), QSize(20, 36) * (percent / 100.0));       // A1 is 20 x 36
            QVERIFY(qAbs(g17->x() - a1->x() - 22 * percent / 100.0) <= 1); // 330 twips apart
            const int centre = (a1->x() + g17->geometry().right() + 1) / 2;
            QVERIFY(qAbs(centre - area.center().x()) <= 1);
        };
        check(100);
        p.window->setFocus();
        QTest::keyClick(p.window.get(), Qt::Key_Plus, Qt::ControlModifier);
        QTest::keyClick(p.window.get(), Qt::Key_Plus, Qt::ControlModifier);
        check(150);
        for (int i = 0; i < 9; ++i) p.action("mnuZoomIn")->trigger();
        check(400);
        QTest::keyClick(p.window.get(), Qt::Key_Minus, Qt::ControlModifier);
        check(300);
        QTest::keyClick(p.window.get(), Qt::Key_0, Qt::ControlModifier);
        check(100);
        QWheelEvent wheel(QPointF(5, 5), p.window->mapToGlobal(QPoint(5, 5)), {}, {0, 120},
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(p.find<QFrame>("DispAreaShp"), &wheel);
        check(125);
        // Kept for the next run.
        p.answer(Answer::Yes);
        p.action("mnuQuit")->trigger();
        QVERIFY(p.folder.read("System/Settings.nks").contains("Word View Zoom = 125\r\n"));
    }

    void theWordAreaGrowsWithTheWindow() {
        Program p;
        QVERIFY(p.startAndShow());
        auto* area = p.find<QFrame>("DispAreaShp");
        auto* meaning = p.find<QLineEdit>("MeaningTxt");
        auto* a1 = p.find<QLabel>("mainGlyphPic0");
        const QRect before = area->geometry();
        const int meaningTop = meaning->y();
        p.window->resize(p.window->width(), p.window->height() + 100);
        QTRY_COMPARE(area->height(), before.height() + 100);
        QCOMPARE(meaning->y(), meaningTop + 100);
        QVERIFY(qAbs(a1->geometry().center().y() - area->geometry().center().y()) <= 3);
    }

    void thePictureIsSavedAtTheChosenScale() {
        Program p;
        QVERIFY(p.startAndShow());
        const QString one = p.folder.file(QStringLiteral("Images/one.png"));
        p.answerFile(std::filesystem::path(one.toStdString()));
        p.action("mnuSaveGlyphImage")->trigger();
        p.action("mnuPictureScale3")->trigger();
        const QString three = p.folder.file(QStringLiteral("Images/three.png"));
        p.answerFile(std::filesystem::path(three.toStdString()));
        p.action("mnuSaveGlyphImage")->trigger();
        QCOMPARE(QImage(three).size(), QImage(one).size() * 3);
    }
};

QTEST_MAIN(ZoomWindowTest)
#include "zoom_window_test.moc"
