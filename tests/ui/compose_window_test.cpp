// The composer and the sign-list browser as a user drives them: typing a line, dragging a
// sign, choosing one from the browser, OK.
#include "core/sign_lists.h"
#include "harness.h"
#include "ui/compose_window.h"
#include "ui/sign_browser_window.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

const std::vector<Sign> ComposeSigns = {{"A1", 20, 40},  {"D21", 30, 15}, {"G1", 30, 40},
                                        {"G17", 30, 40}, {"M17", 15, 40}, {"N35", 40, 10},
                                        {"X1", 30, 15}};

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

} // namespace

class ComposeWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramFolder> folder_;
    ScriptedDialogs dialogs_;
    MemoryClipboard clipboard_;
    testing::CountingEvents events_;
    std::unique_ptr<FolderSignPictures> pictures_;
    AtomicFileWriter writer_;
    std::unique_ptr<App> app_;
    ScriptedWindows windows_;
    std::unique_ptr<ui::SignBrowserHost> lookup_; // the browser as the program gives it

private slots:
    void init() {
        folder_ = std::make_unique<ProgramFolder>();
        const QByteArray list = "G1,M17,N35,X1\r\nA1\r\nD21\r\nG1,G17\r\nM17\r\nN35\r\nX1\r\n";
        folder_->write("Lists/BasicList.csv", list);
        folder_->write("Lists/Extendedlist.csv", list + "Z1\r\n");
        folder_->write("Lists/Phonetic.csv",
                       "G17,m\r\nN35,n\r\nX1,t\r\nM17,i\r\nD21,r\r\nG1,A\r\n");
        for (const Library library : {Library::Basic, Library::Extended})
            folder_->addSigns(library, ComposeSigns);
        pictures_ = std::make_unique<FolderSignPictures>(folder_->path());
        app_ = std::make_unique<App>(dialogs_, clipboard_, events_, *pictures_, writer_);
        app_->home = folder_->path();
        loadSignList(app_->lists, app_->home, Library::Basic);
        loadPhonetic(app_->lists, app_->home);
        lookup_ = std::make_unique<ui::SignBrowserHost>(*app_);
        windows_.chooseSign = [this] { return lookup_->chooseSign(); };
        windows_.onUnloadBrowser = [this] { lookup_->unload(); };
        app_->windows = &windows_;
        app_->store.newWordPending = true;
        dialogs_.reset();
    }

    void cleanup() {
        lookup_.reset();
        app_.reset();
    }

    void composesAWordByTypingDraggingAndChoosing() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), "A1 n:t");
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        QCOMPARE(child<QLabel>(&w, "GlyphPic0")->size(), QSize(20, 40));
        QVERIFY(child<QLabel>(&w, "GlyphPic3")->isVisible()); // the empty slot
        QVERIFY(!child<QLabel>(&w, "GlyphPic4")->isVisible());
        QVERIFY(!child<QLabel>(&w, "Debuglbl")->isVisible()); // no diagnostics for the user

        // The third sign, dragged 30 pixels down.
        auto* x1 = child<QLabel>(&w, "GlyphPic2");
        const QPoint before = x1->pos();
        drag(x1, QPoint(0, 30));
        QCOMPARE(x1->pos(), before + QPoint(0, 30));
        QCOMPARE(app_->glyphs[2].y, (before.y() + 30) * 15.0);

        // The empty slot, double-clicked: the browser opens while the composer waits; the user
        // finds G17 and double-clicks it.
        bool composerWaits = false;
        QTimer::singleShot(0, [&] {
            QWidget* lookup = lookup_->window();
            composerWaits = lookup->isVisible() && !w.isEnabled();
            QTest::keyClicks(child<QLineEdit>(lookup, "txtGlyph"), "g17");
            QTest::mouseClick(child<QPushButton>(lookup, "cmdGo"), Qt::LeftButton);
            doubleClick(child<QLabel>(lookup, "picGlyph0"));
        });
        doubleClick(child<QLabel>(&w, "GlyphPic3"));
        QVERIFY(composerWaits);
        QVERIFY(w.isEnabled() && !lookup_->window()->isVisible());
        QCOMPARE(child<QLabel>(&w, "GlyphPic3")->pixmap().size(), QSize(30, 40));
        QVERIFY(child<QLabel>(&w, "GlyphPic4")->isVisible());

        QTest::mouseClick(child<QPushButton>(&w, "OkCmd"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(app_->layoutText,
                 std::string("A1(0,0) - N35(300,225) - G17(385,860) - X1(900,635) "));
    }

    // Eighteen signs, wider together than the frame: the canvas grows so that every sign
    // stands inside the frame and each can be grabbed.
    void eighteenTypedSignsAreAllReachableAndGrabbable() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), QString("G1 G17 N35 ").repeated(6));
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        const QRect frame = child<QFrame>(&w, "ComposeShp")->geometry();
        for (int k = 0; k < 18; ++k) {
            auto* pic = child<QLabel>(&w, QString("GlyphPic%1").arg(k));
            QVERIFY2(pic->isVisible() && frame.contains(pic->geometry()),
                     qPrintable(pic->objectName()));
        }
        auto* last = child<QLabel>(&w, "GlyphPic17");
        const QPoint before = last->pos();
        drag(last, QPoint(0, 20));
        QCOMPARE(last->pos(), before + QPoint(0, 20));
    }

    // The Delete key goes to the sign clicked last.
    void theDeleteKeyTakesTheClickedSign() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), "A1 G17 D21");
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        auto* second = child<QLabel>(&w, "GlyphPic1");
        QTest::mouseClick(second, Qt::LeftButton);
        QTest::keyClick(second, Qt::Key_Delete);
        QCOMPARE(app_->glyphs[1].code.value_or(""), std::string("D21"));
        QCOMPARE(second->pixmap().size(), QSize(30, 15));
        QCOMPARE(child<QLabel>(&w, "Gardinerlbl")->text(), QString("Gardiner: - A1- D21"));
    }
};

QTEST_MAIN(ComposeWindowTest)
#include "compose_window_test.moc"
