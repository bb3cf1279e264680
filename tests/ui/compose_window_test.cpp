// The composer and the sign-list browser as a user drives them from the main window: typing a
// line, dragging a sign, choosing one from the browser, OK.
#include "harness.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

void drag(QWidget* w, QPoint delta) {
    const QPointF local(5, 5);
    const QPointF global = w->mapToGlobal(local);
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent move(QEvent::MouseMove, local + delta, global + delta, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(w, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, local + delta, global + delta, Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

// A double-click as the mouse makes it: press, release, double-click, release.
void doubleClick(QWidget* w) {
    QTest::mouseClick(w, Qt::LeftButton);
    QTest::mouseDClick(w, Qt::LeftButton);
    QTest::mouseRelease(w, Qt::LeftButton);
}

QLabel* sign(QWidget* compose, int k) {
    return child<QLabel>(compose, QStringLiteral("GlyphPic%1").arg(k));
}

// The composer New opens, with the signs of line fetched.
void inComposer(Program& p, const char* line, std::function<void(QWidget*)> user) {
    whenOpen(QStringLiteral("Compose"), [line, user](QWidget* compose) {
        QTest::keyClicks(child<QLineEdit>(compose, "txtMdC"), QLatin1String(line));
        clickButton(compose, "cmdGet");
        user(compose);
        if (compose->isVisible()) clickButton(compose, "cmdCancel"); // a check failed
    });
    p.click("NewCmd");
}

} // namespace

class ComposeWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void composesAWordByTypingDraggingAndChoosing() {
        Program p;
        QVERIFY(p.startAndShow());
        inComposer(p, "A1 n:m", [&p](QWidget* w) {
            QCOMPARE(sign(w, 0)->size(), QSize(20, 36));
            QVERIFY(sign(w, 3)->isVisible()); // the empty slot
            QVERIFY(!sign(w, 4)->isVisible());
            QVERIFY(!child(w, "Debuglbl")->isVisible()); // no diagnostics for the user
            // The third sign, dragged 30 pixels down.
            const QPoint before = sign(w, 2)->pos();
            drag(sign(w, 2), QPoint(0, 30));
            QCOMPARE(sign(w, 2)->pos(), before + QPoint(0, 30));
            QCOMPARE(p.app.glyphs[2].y, (before.y() + 30) * 15.0);
            // The empty slot, double-clicked: the browser opens while the composer waits; the
            // user finds G43 and double-clicks it.
            bool composerWaits = false;
            whenOpen(QStringLiteral("Lookup"), [&](QWidget* lookup) {
                composerWaits = !w->isEnabled();
                QTest::keyClicks(child<QLineEdit>(lookup, "txtGlyph"), "g43");
                clickButton(lookup, "cmdGo");
                doubleClick(child(lookup, "picGlyph0"));
            });
            doubleClick(sign(w, 3));
            QVERIFY(composerWaits && w->isEnabled());
            QVERIFY(!shownWindow(QStringLiteral("Lookup")));
            QCOMPARE(sign(w, 3)->pixmap().size(), QSize(24, 38));
            QVERIFY(sign(w, 4)->isVisible());
            clickButton(w, "OkCmd");
        });
        QCOMPARE(p.find<QLabel>("RichGardinerlbl")->text(),
                 QStringLiteral("A1(0,0) - N35(300,225) - G43(370,830) - G17(900,425) "));
    }

    // Eighteen signs, wider together than the frame: the canvas grows so that every sign
    // stands inside the frame and each can be grabbed; the Delete key takes the sign clicked.
    void eighteenTypedSignsAreAllReachableAndGrabbable() {
        Program p;
        QVERIFY(p.startAndShow());
        inComposer(p, "A1 G17 G43 N35 A1 G17 G43 N35 A1 G17 G43 N35 A1 G17 G43 N35 A1 G17",
                   [&p](QWidget* w) {
                       const QRect frame = child<QFrame>(w, "ComposeShp")->geometry();
                       for (int k = 0; k < 18; ++k)
                           QVERIFY2(sign(w, k)->isVisible() &&
                                        frame.contains(sign(w, k)->geometry()),
                                    qPrintable(QString::number(k)));
                       const QPoint before = sign(w, 17)->pos();
                       drag(sign(w, 17), QPoint(0, 20));
                       QCOMPARE(sign(w, 17)->pos(), before + QPoint(0, 20));
                       QTest::mouseClick(sign(w, 0), Qt::LeftButton);
                       QTest::keyClick(sign(w, 0), Qt::Key_Delete);
                       QCOMPARE(p.app.glyphs[0].code.value_or(""), std::string("G17"));
                       clickButton(w, "cmdCancel");
                   });
    }
};

QTEST_MAIN(ComposeWindowTest)
#include "compose_window_test.moc"
