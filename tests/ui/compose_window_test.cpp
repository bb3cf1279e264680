// The composer and the sign-list browser as a user drives them: typing a line, dragging a
// sign, choosing one from the browser, OK.
#include "core/files.h"
#include "core/sign_lists.h"
#include "ui/compose_window.h"
#include "ui/lookup_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace nebkaro;

namespace {

// A GIF of w x h pixels, white with a black border. The pixel codes are written 8 bits wide
// with a clear code often enough that the code width never grows, which every GIF reader
// decodes.
QByteArray gif(int w, int h) {
    QByteArray b("GIF89a");
    auto u16 = [&](int v) {
        b.append(char(v & 0xff));
        b.append(char((v >> 8) & 0xff));
    };
    u16(w);
    u16(h);
    b.append(char(0xF6)); // a global table of 128 colours
    b.append(char(0));
    b.append(char(0));
    for (int k = 0; k < 128; ++k) {
        const char c = k == 0 ? char(0xff) : char(0);
        b.append(c).append(c).append(c);
    }
    b.append(char(0x2C));
    u16(0);
    u16(0);
    u16(w);
    u16(h);
    b.append(char(0));
    b.append(char(7)); // minimum code size: 8-bit codes, clear 128, end 129
    QByteArray codes;
    int sinceClear = 0;
    codes.append(char(128));
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (sinceClear == 120) {
                codes.append(char(128));
                sinceClear = 0;
            }
            const bool border = x == 0 || y == 0 || x == w - 1 || y == h - 1;
            codes.append(char(border ? 1 : 0));
            ++sinceClear;
        }
    codes.append(char(129));
    for (int i = 0; i < codes.size(); i += 255) {
        const QByteArray block = codes.mid(i, 255);
        b.append(char(block.size()));
        b.append(block);
    }
    b.append(char(0));
    b.append(char(0x3B));
    return b;
}

class RecordingDialogs : public Dialogs {
public:
    QStringList messages;
    int beeps = 0;
    Answer message(const std::string& text, const std::string&, Buttons, Icon) override {
        messages << QString::fromStdString(text);
        return Answer::OK;
    }
    std::optional<std::string> input(const std::string&, const std::string&,
                                     const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> openFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> saveFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    void beep() override { ++beeps; }
};

class NoClipboard : public Clipboard {
public:
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
};

class NoEvents : public EventPump {
public:
    void yield() override {}
};

// The browser as the program provides it to the composer.
class BrowserWindows : public Windows {
public:
    explicit BrowserWindows(App& app) : lookup(app) {}
    ui::LookupHost lookup;
    int typewriters = 0;
    bool chooseSignFromBrowser() override { return lookup.chooseSign(); }
    void unloadBrowser() override { lookup.unload(); }
    void showTypewriter() override { ++typewriters; }
};

template <typename T> T* child(QWidget* w, const QString& name) {
    T* c = w->findChild<T*>(name);
    if (!c) qFatal("no control %s", qPrintable(name));
    return c;
}

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

    QTemporaryDir home_;
    RecordingDialogs dialogs_;
    NoClipboard clipboard_;
    NoEvents events_;
    std::unique_ptr<FolderSignPictures> pictures_;
    AtomicFileWriter writer_;
    std::unique_ptr<App> app_;
    std::unique_ptr<BrowserWindows> windows_;

    void write(const QString& relative, const QByteArray& bytes) {
        const QString path = home_.filePath(relative);
        QDir().mkpath(QFileInfo(path).path());
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }

    // Where a screenshot goes when NEBKARO_SCREENSHOTS names a folder.
    static void screenshot(QWidget* w, const char* name) {
        const QString dir = qEnvironmentVariable("NEBKARO_SCREENSHOTS");
        if (!dir.isEmpty()) w->grab().save(dir + "/" + name + ".png");
    }

private slots:
    void init() {
        QVERIFY(home_.isValid());
        const QByteArray list = "G1,M17,N35,X1\r\nA1\r\nD21\r\nG1,G17\r\nM17\r\nN35\r\nX1\r\n";
        write("Lists/BasicList.csv", list);
        write("Lists/Extendedlist.csv", list + "Z1\r\n");
        write("Lists/Phonetic.csv", "G17,m\r\nN35,n\r\nX1,t\r\nM17,i\r\nD21,r\r\nG1,A\r\n");
        const struct {
            const char* code;
            int w, h;
        } signs[] = {{"A1", 20, 40},  {"D21", 30, 15}, {"G1", 30, 40}, {"G17", 30, 40},
                     {"M17", 15, 40}, {"N35", 40, 10}, {"X1", 30, 15}};
        for (const char* library : {"Basic", "Extended"})
            for (const auto& s : signs)
                write(QString("%1/Left/%2/%3.GIF").arg(library).arg(s.code[0]).arg(s.code),
                      gif(s.w, s.h));
        pictures_ = std::make_unique<FolderSignPictures>(home_.path().toStdString());
        app_ = std::make_unique<App>(dialogs_, clipboard_, events_, *pictures_, writer_);
        app_->home = home_.path().toStdString();
        LoadSignList(app_->lists, app_->home, Library::Basic);
        LoadPhonetic(app_->lists, app_->home);
        windows_ = std::make_unique<BrowserWindows>(*app_);
        app_->windows = windows_.get();
        app_->store.newWordPending = true;
        dialogs_.messages.clear();
        dialogs_.beeps = 0;
    }

    void cleanup() {
        windows_.reset();
        app_.reset();
    }

    void composesAWordByTypingDraggingAndChoosing() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.objectName(), QString("Compose"));

        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), "A1 n:t");
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        QVERIFY(dialogs_.messages.isEmpty());
        for (int k = 0; k < 3; ++k)
            QVERIFY(child<QLabel>(&w, QString("GlyphPic%1").arg(k))->isVisible());
        auto* a1 = child<QLabel>(&w, "GlyphPic0");
        QCOMPARE(a1->pixmap().size(), QSize(20, 40));
        QCOMPARE(a1->size(), QSize(20, 40));
        QVERIFY(child<QLabel>(&w, "GlyphPic3")->isVisible());
        QVERIFY(!child<QLabel>(&w, "GlyphPic4")->isVisible());
        QVERIFY(!child<QLabel>(&w, "Debuglbl")->isVisible()); // no diagnostics for the user

        // The third sign, dragged 30 pixels down.
        auto* x1 = child<QLabel>(&w, "GlyphPic2");
        const QPoint before = x1->pos();
        drag(x1, QPoint(0, 30));
        QCOMPARE(x1->pos(), before + QPoint(0, 30));
        QCOMPARE(app_->glyphs[2].y, (before.y() + 30) * 15.0);

        // The empty slot, double-clicked: the browser opens; the user finds G17 and
        // double-clicks it.
        bool browserSeen = false;
        bool composerWaits = false;
        QTimer::singleShot(0, [&] {
            QWidget* lookup = windows_->lookup.window();
            browserSeen = lookup->isVisible();
            composerWaits = !w.isEnabled();
            screenshot(lookup, "lookup");
            QTest::keyClicks(child<QLineEdit>(lookup, "txtGlyph"), "g17");
            QTest::mouseClick(child<QPushButton>(lookup, "cmdGo"), Qt::LeftButton);
            QCOMPARE(child<QLabel>(lookup, "lblGlyph0")->text(), QString("G17"));
            doubleClick(child<QLabel>(lookup, "picGlyph0"));
        });
        doubleClick(child<QLabel>(&w, "GlyphPic3"));
        QVERIFY(browserSeen);
        QVERIFY(composerWaits);
        QVERIFY(w.isEnabled());
        QVERIFY(!windows_->lookup.window()->isVisible());
        QCOMPARE(app_->glyphs[3].code.value_or(""), std::string("G17"));
        QCOMPARE(child<QLabel>(&w, "GlyphPic3")->pixmap().size(), QSize(30, 40));
        QVERIFY(child<QLabel>(&w, "GlyphPic4")->isVisible());
        QCOMPARE(child<QLabel>(&w, "Gardinerlbl")->text(), QString("Gardiner: - G17"));
        screenshot(&w, "compose");

        QTest::mouseClick(child<QPushButton>(&w, "OkCmd"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QVERIFY(app_->store.composeAccepted);
        QCOMPARE(app_->layoutText,
                 std::string("A1(0,0) - N35(300,225) - G17(385,860) - X1(900,635) "));
        QCOMPARE(app_->composedGardiner, std::string("A1-N35-G17-X1"));
        QCOMPARE(child<QLabel>(&w, "RichGardinerLbl")->text(),
                 QString::fromStdString(app_->layoutText));
    }

    // Eighteen signs, wider together than the frame: the canvas grows so that every sign
    // stands inside the frame, each can be grabbed, and the word is the one typed.
    void eighteenTypedSignsAreAllReachableAndGrabbable() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QString line;
        for (int k = 0; k < 6; ++k) line += "G1 G17 N35 ";
        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), line);
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        const QRect frame = child<QFrame>(&w, "ComposeShp")->geometry();
        for (int k = 0; k < 18; ++k) {
            auto* pic = child<QLabel>(&w, QString("GlyphPic%1").arg(k));
            QVERIFY(pic->isVisible());
            QVERIFY2(frame.contains(pic->geometry()), qPrintable(pic->objectName()));
        }
        for (int k : {0, 17}) {
            auto* pic = child<QLabel>(&w, QString("GlyphPic%1").arg(k));
            const QPoint before = pic->pos();
            drag(pic, QPoint(0, 20));
            QCOMPARE(pic->pos(), before + QPoint(0, 20));
        }
        QTest::mouseClick(child<QPushButton>(&w, "OkCmd"), Qt::LeftButton);
        QCOMPARE(QString::fromStdString(app_->composedGardiner), line.trimmed().replace(' ', '-'));
    }

    void runWaitsUntilOkOrCancel() {
        ui::ComposeWindow w(*app_);
        QTimer::singleShot(0, [&] {
            QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), "A1 G17");
            QTest::keyClick(child<QLineEdit>(&w, "txtMdC"), Qt::Key_Return);
            QTest::mouseClick(child<QPushButton>(&w, "OkCmd"), Qt::LeftButton);
        });
        QVERIFY(w.run());
        QCOMPARE(app_->composedGardiner, std::string("A1-G17"));

        ui::ComposeWindow again(*app_);
        QTimer::singleShot(
            0, [&] { QTest::mouseClick(child<QPushButton>(&again, "cmdCancel"), Qt::LeftButton); });
        QVERIFY(!again.run());
        QCOMPARE(app_->composedGardiner, std::string(""));
    }

    void deleteKeyAndDeleteLastWorkOnTheCanvas() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClicks(child<QLineEdit>(&w, "txtMdC"), "A1 G17 D21");
        QTest::mouseClick(child<QPushButton>(&w, "cmdGet"), Qt::LeftButton);
        auto* second = child<QLabel>(&w, "GlyphPic1");
        const QPoint third = child<QLabel>(&w, "GlyphPic2")->pos();
        QTest::mouseClick(second, Qt::LeftButton);
        QTest::keyClick(second, Qt::Key_Delete);
        QCOMPARE(app_->glyphs[1].code.value_or(""), std::string("D21"));
        QCOMPARE(second->pos(), third);
        QCOMPARE(second->pixmap().size(), QSize(30, 15));
        QVERIFY(child<QLabel>(&w, "GlyphPic2")->isVisible());
        QVERIFY(child<QLabel>(&w, "GlyphPic2")->pixmap().isNull());
        QVERIFY(!child<QLabel>(&w, "GlyphPic3")->isVisible());
        QCOMPARE(child<QLabel>(&w, "Gardinerlbl")->text(), QString("Gardiner: - A1- D21"));
        // The first click of Delete Last takes the last sign left: image 2, the empty slot,
        // goes and image 1 becomes the empty slot.
        QTest::mouseClick(child<QPushButton>(&w, "cmdDelLast"), Qt::LeftButton);
        QVERIFY(!child<QLabel>(&w, "GlyphPic2")->isVisible());
        QVERIFY(second->pixmap().isNull());
        QCOMPARE(w.model().LastGlyph, 1);
        QCOMPARE(child<QLabel>(&w, "Gardinerlbl")->text(), QString("Gardiner: - A1"));
    }

    void theLibraryMenuSwitchesAndDropsTheBrowser() {
        ui::ComposeWindow w(*app_);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        windows_->lookup.window();
        QVERIFY(windows_->lookup.isLoaded());
        child<QAction>(&w, "mnuExtended")->trigger();
        QVERIFY(app_->settings.library == Library::Extended);
        QVERIFY(app_->extendedChosen);
        QCOMPARE(app_->lists.signCount, 12);
        QCOMPARE(dialogs_.beeps, 1);
        QVERIFY(!windows_->lookup.isLoaded());
        QVERIFY(child<QAction>(&w, "mnuExtended")->isChecked());
        QVERIFY(!child<QAction>(&w, "mnuBasic")->isChecked());
        QVERIFY2(child<QRadioButton>(&w, "OptBasic")->isChecked(), "the options stay");
        QTest::mouseClick(child<QRadioButton>(&w, "OptBasic"), Qt::LeftButton);
        QVERIFY(app_->settings.library == Library::Basic);
        QVERIFY2(child<QAction>(&w, "mnuExtended")->isChecked(), "the menu stays");
        QCOMPARE(dialogs_.beeps, 1);
    }

    void theBrowserPagesThroughTheList() {
        ui::LookupWindow* lookup = windows_->lookup.window();
        windows_->lookup.show();
        QVERIFY(QTest::qWaitForWindowExposed(lookup));
        auto* categories = child<QComboBox>(lookup, "cmbCategory");
        QCOMPARE(categories->count(), 27);
        QCOMPARE(categories->itemText(12), QString("L - Invertebrata and Lesser Animals "));
        QCOMPARE(categories->currentIndex(), 0);
        QCOMPARE(child<QLabel>(lookup, "lblLibrary")->text(), QString("Basic Library"));
        QCOMPARE(child<QLabel>(lookup, "lblGlyph3")->text(), QString("X1"));
        QVERIFY(!child<QLabel>(lookup, "picGlyph4")->isVisible());
        QCOMPARE(child<QLabel>(lookup, "picGlyph0")->toolTip(), QString("G1: A"));

        child<QCheckBox>(lookup, "chkShowTrans")->setChecked(true);
        QVERIFY(!child<QLabel>(lookup, "lblTranslit1")->isVisible());
        QTest::mouseClick(child<QPushButton>(lookup, "cmdNextCat"), Qt::LeftButton);
        QCOMPARE(child<QLabel>(lookup, "lblCategory")->text(),
                 QString("A - Man and his occupations"));
        QTest::mouseClick(child<QPushButton>(lookup, "cmdPrevcat"), Qt::LeftButton);
        QVERIFY(child<QLabel>(lookup, "lblTranslit1")->isVisible());
        QCOMPARE(child<QLabel>(lookup, "lblTranslit1")->text(), QString("i"));

        emit categories->activated(7);
        QCOMPARE(child<QLabel>(lookup, "lblGlyph1")->text(), QString("G17"));
        // What is typed stays in the box while the user pages on.
        QTest::keyClicks(child<QLineEdit>(lookup, "txtTrans"), "zz");
        QTest::mouseClick(child<QPushButton>(lookup, "cmdNext"), Qt::LeftButton);
        QCOMPARE(child<QLineEdit>(lookup, "txtTrans")->text(), QString("zz"));
        QTest::keyClick(child<QLineEdit>(lookup, "txtTrans"), Qt::Key_Return);
        QCOMPARE(dialogs_.messages, QStringList{"Hieroglyph not found"});

        QTest::mouseClick(child<QPushButton>(lookup, "cmdTypewriter"), Qt::LeftButton);
        QCOMPARE(windows_->typewriters, 1);
        QCOMPARE(app_->typewriterTarget, TypewriterTarget::BrowserTrans);
    }
};

QTEST_MAIN(ComposeWindowTest)
#include "compose_window_test.moc"
