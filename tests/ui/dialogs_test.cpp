// The small windows and the Qt side of the ports: file filters, unattended answers, the
// dictionary information dialog, About, Preferences, Sort, the progress dialog, and the
// word's picture.
#include "bulk/sort_dialog_model.h"
#include "display/word_picture_qt.h"
#include "harness.h"
#include "ui/about_dialog.h"
#include "ui/cancel_dialog.h"
#include "ui/header_dialog.h"
#include "ui/preferences_dialog.h"
#include "ui/qt_ports.h"
#include "ui/sort_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {
struct Context {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    QtClipboard clipboard;
    QtEventPump events;
    FolderSignPictures pictures{folder.path()};
    AtomicFileWriter writer;
    App app{dialogs, clipboard, events, pictures, writer};
    Context() {
        app.home = folder.path();
        app.store.dictionaryPath = folder.path() + "/Dictionaries/Words.nkd";
    }
};
} // namespace

class DialogsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fileFiltersBecomeQtNameFilters() {
        QCOMPARE(qtNameFilters("Dictionary (*.nkd)|*.nkd| Comma Separated Variables "
                               "(*.csv)|*.csv| All Files (*.*)|*.*"),
                 (QStringList{"Dictionary (*.nkd)", "Comma Separated Variables (*.csv)",
                              "All Files (*)"}));
        // The pattern part is what counts; a description without one gets it.
        QCOMPARE(qtNameFilters("Pictures|*.bmp;*.dib"), QStringList{"Pictures (*.bmp *.dib)"});
        QCOMPARE(qtNameFilters(""), QStringList{});
        QCOMPARE(qtNameFilters("Dangling"), QStringList{});
    }

    void unattendedDialogsTakeTheFirstButtonAndCancelFiles() {
        QtDialogs::setMode(QtDialogs::Mode::Unattended);
        QtDialogs d;
        QCOMPARE(d.message("Open another?", "", Buttons::YesNo, Icon::Question), Answer::Yes);
        QCOMPARE(d.message("Load?", "", Buttons::OKCancel, Icon::Exclamation), Answer::OK);
        QCOMPARE(d.openFile("F|*.f", "/x"), std::optional<std::filesystem::path>());
        QCOMPARE(d.input("?", "", ""), std::optional<std::string>());
        QtDialogs::setMode(QtDialogs::Mode::Interactive);
    }

    // A one-word text under a long title: the box is wide enough for the whole title.
    void messageBoxesAreWideEnoughForTheirTitles() {
        for (const char* title : {"Phonetic Not Found", ""}) {
            int width = 0, wanted = 0;
            QTimer::singleShot(0, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                QFont bold = box->font();
                bold.setBold(true);
                wanted = QFontMetrics(bold).horizontalAdvance(box->windowTitle()) + 100;
                width = box->width();
                box->button(QMessageBox::Ok)->click();
            });
            QtDialogs().message("X1", title, Buttons::OK, Icon::Exclamation);
            QVERIFY2(width >= wanted, title);
        }
    }

    void headerDialogRefusesEitherDirectionLetterButNotOthers_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("accepted");
        for (const char* v : {"L", "R"}) QTest::newRow(v) << QString(v) << false;
        for (const char* v : {"l", "LR", " L"}) QTest::newRow(v) << QString(v) << true;
    }
    void headerDialogRefusesEitherDirectionLetterButNotOthers() {
        QFETCH(QString, value);
        QFETCH(bool, accepted);
        Context c;
        c.app.store.header[0] = "kept";
        HeaderDialog dialog(c.app, c.app.store.header);
        dialog.show();
        child<QLineEdit>(&dialog, "txtHeader0")->setText(value);
        clickButton(&dialog, "Command1");
        QCOMPARE(dialog.isVisible(), !accepted);
        QCOMPARE(c.app.store.header[0], accepted ? value.toStdString() : std::string("kept"));
        QCOMPARE(c.dialogs.messages(),
                 accepted ? std::vector<std::string>{}
                          : std::vector<std::string>{"First field cannot be 'L' or 'R'"});
    }

    // The show-again switches take effect at once, even when the window is closed by its frame
    // (which drops the header's other changes).
    void showAgainSwitchesTakeEffectAtOnce() {
        Context c;
        HeaderDialog header(c.app, c.app.store.header);
        header.show();
        choose(&header, "chkShowInfo");
        child<QLineEdit>(&header, "txtHeader1")->setText("changed");
        header.reject();
        QVERIFY(!c.app.settings.showDictionaryInfo);
        QCOMPARE(c.app.store.header[1], std::string());
        AboutDialog about(c.app);
        about.show();
        choose(&about, "chkShowAbout");
        QVERIFY(!c.app.settings.showAbout);
    }

    void preferencesTakeQualityAtOnceAndSaveWritesTheConfirmedValues() {
        Context c;
        c.app.settings.printQuality = -3;
        PreferencesDialog prefs(c.app);
        prefs.show();
        QVERIFY(child<QAbstractButton>(&prefs, "optMedium")->isChecked());
        // The draft button stores 0.
        const std::pair<const char*, int> qualities[] = {
            {"optDraft", 0}, {"optLow", -2}, {"optHigh", -4}, {"optMedium", -3}};
        for (auto [name, value] : qualities) {
            choose(&prefs, name);
            QCOMPARE(c.app.settings.printQuality, value);
        }
        // The library chosen but not confirmed is not saved.
        choose(&prefs, "optExtended");
        clickButton(&prefs, "cmdSave");
        QVERIFY(c.folder.read("System/Settings.nks").contains("Library = Basic\r\n"));
        clickButton(&prefs, "cmdCancel");
        QVERIFY(c.app.settings.library == Library::Basic);
    }

    void wordPictureDrawsSignsInSlotOrderWithItsMargin() {
        ProgramFolder folder;
        // A black 2 x 2 picture and a white one drawn over it at the same place.
        QImage black(2, 2, QImage::Format_RGB32), white(2, 2, QImage::Format_RGB32);
        black.fill(Qt::black);
        white.fill(Qt::white);
        black.save(folder.file("black.png"));
        white.save(folder.file("white.png"));
        WordPicture pic;
        pic.width = 60 + 64;
        pic.height = 30 + 64;
        auto placed = [&](const char* file, int x, bool ok = true) {
            PlacedPicture p;
            p.picture.file = folder.file(QLatin1String(file)).toStdString();
            p.picture.width = p.picture.height = ok ? 30 : 45;
            p.picture.ok = ok;
            p.x = x + 32;
            p.y = 32;
            return p;
        };
        pic.pictures = {placed("black.png", 0), placed("white.png", 0), placed("black.png", 30),
                        placed("gone.png", 60, false)};
        const QImage image = wordPictureImage(pic);
        QCOMPARE(image.size(), QSize(9, 7)); // 124 x 94 twips, each part of a pixel counted
        QCOMPARE(image.pixelColor(2, 2), QColor(Qt::white)); // the later sign covers
        QCOMPARE(image.pixelColor(4, 2), QColor(Qt::black));
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white)); // margin
        // The unreadable picture is a frame of its slot's size (45 twips = 3 pixels).
        QVERIFY(image.pixelColor(6, 4) != QColor(Qt::white));
        QVERIFY(image.pixelColor(8, 2) != QColor(Qt::white));
        QCOMPARE(image.pixelColor(7, 3), QColor(Qt::white));
        const QByteArray svg = wordPictureSvg(pic);
        QCOMPARE(svg.count("<image "), 3);
        QCOMPARE(svg.count("<rect "), 2); // background and the empty frame
    }

    // Meaning is chosen the first time, so that OK sorts at once; the choices stay for the
    // next time, Cancel gives none.
    void sortOkGivesTheChosenFieldAndCancelNone() {
        Context f;
        SortDialog d(f.app);
        d.show();
        QVERIFY(child<QRadioButton>(&d, "optMeaning")->isChecked());
        child<QRadioButton>(&d, "optTrClass")->click();
        child<QCheckBox>(&d, "ChkReverse")->click();
        child<QPushButton>(&d, "cmdOk")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::Classic);
        QVERIFY(f.app.sortDialog.reverse && !d.isVisible());
        d.show();
        child<QPushButton>(&d, "cmdCancel")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
        QVERIFY(child<QRadioButton>(&d, "optTrClass")->isChecked());
    }

    void progressDialogCancelSetsTheFlagAndHides() {
        Context f;
        CancelDialog d(f.app);
        d.showWith("Flipping Started");
        QCOMPARE(child<QLabel>(&d, "lblProcess")->text(), QString("Flipping Started"));
        child<QPushButton>(&d, "CancelButton")->click();
        QVERIFY(f.app.sortCancelled && !d.isVisible());
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
