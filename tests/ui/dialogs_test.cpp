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
        QCOMPARE(qtNameFilters("Pictures (*.bmp)|*.bmp"), QStringList{"Pictures (*.bmp)"});
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
        QtDialogs dialogs;
        for (const char* title : {"Phonetic Not Found", "Sorted", "Not Found", ""}) {
            int width = 0, wanted = 0;
            QTimer::singleShot(0, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                QVERIFY(box);
                QFont bold = box->font();
                bold.setBold(true);
                wanted = QFontMetrics(bold).horizontalAdvance(box->windowTitle()) + 100;
                width = box->width();
                box->button(QMessageBox::Ok)->click();
            });
            QCOMPARE(dialogs.message("X1", title, Buttons::OK, Icon::Exclamation), Answer::OK);
            QVERIFY2(width >= wanted, title);
        }
    }

    void headerDialogRefusesEitherDirectionLetterButNotOthers() {
        const std::pair<const char*, bool> cases[] = {{"L", false}, {"R", false}, {"l", true},
                                                      {"r", true},  {"LR", true}, {" L", true}};
        for (auto [value, accepted] : cases) {
            Context c;
            c.app.store.header[0] = "kept";
            HeaderDialog dialog(c.app, c.app.store.header);
            dialog.show();
            auto* box0 = dialog.findChild<QLineEdit*>(QStringLiteral("txtHeader0"));
            box0->setText(QLatin1String(value));
            clickButton(&dialog, "Command1");
            QCOMPARE(dialog.isVisible(), !accepted);
            QCOMPARE(c.app.store.header[0], accepted ? std::string(value) : std::string("kept"));
            QCOMPARE(box0->text(), accepted ? QLatin1String(value) : QString());
            QCOMPARE(c.dialogs.messages(),
                     accepted ? std::vector<std::string>{}
                              : std::vector<std::string>{"First field cannot be 'L' or 'R'"});
        }
    }

    void headerSwitchTakesEffectAtOnceEvenWhenClosedByTheFrame() {
        Context c;
        HeaderDialog dialog(c.app, c.app.store.header);
        dialog.show();
        QVERIFY(dialog.findChild<QCheckBox*>(QStringLiteral("chkShowInfo"))->isChecked());
        choose(&dialog, "chkShowInfo");
        dialog.findChild<QLineEdit*>(QStringLiteral("txtHeader1"))->setText("changed");
        dialog.reject();
        QVERIFY(!c.app.settings.showDictionaryInfo);
        QCOMPARE(c.app.store.header[1], std::string());
    }

    void aboutSwitchTakesEffectAtOnce() {
        Context c;
        AboutDialog about(c.app);
        about.show();
        QVERIFY(child<QCheckBox>(&about, "chkShowAbout")->isChecked());
        choose(&about, "chkShowAbout");
        QVERIFY(!c.app.settings.showAbout);
        clickButton(&about, "cmdOK");
        QVERIFY(!about.isVisible());
    }

    void preferencesShowTheCurrentValuesAndSaveWritesThem() {
        Context c;
        c.app.settings.direction = Direction::Right;
        c.app.settings.printQuality = -3;
        c.app.store.dictionaryName = "Mine.nkd";
        PreferencesDialog prefs(c.app);
        prefs.show();
        auto checked = [&](const char* name) {
            return prefs.findChild<QAbstractButton*>(QLatin1String(name))->isChecked();
        };
        QVERIFY(checked("optBasic") && checked("optRight") && checked("optMedium"));
        QVERIFY(checked("chkShowAbout") && checked("chkShowInfo"));
        // The draft button stores 0; each quality is taken at once.
        const std::pair<const char*, int> qualities[] = {
            {"optDraft", 0}, {"optLow", -2}, {"optHigh", -4}, {"optMedium", -3}};
        for (auto [name, value] : qualities) {
            choose(&prefs, name);
            QCOMPARE(c.app.settings.printQuality, value);
        }
        choose(&prefs, "chkShowInfo");
        QVERIFY(!c.app.settings.showDictionaryInfo);
        // Save writes the values as they stand; the library chosen but not confirmed is not
        // among them.
        choose(&prefs, "optExtended");
        clickButton(&prefs, "cmdSave");
        QCOMPARE(c.folder.read("System/Settings.nks"),
                 QByteArray("Nebkaro Settings: \r\n\r\nLibrary = Basic\r\nDirection = Right\r\n"
                            "Dictionary Name = Mine.nkd\r\nShow About = True\r\n"
                            "Show Dictionary Info = False\r\n\r\n"));
        QVERIFY(prefs.isVisible());
        clickButton(&prefs, "cmdCancel");
        QVERIFY(c.app.settings.library == Library::Basic);
        QVERIFY(c.app.settings.direction == Direction::Right);
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
        auto placed = [&](const char* file, int x, int y, bool ok = true) {
            PlacedPicture p;
            p.picture.file = folder.file(QLatin1String(file)).toStdString();
            p.picture.width = p.picture.height = ok ? 30 : 45;
            p.picture.ok = ok;
            p.x = x + 32;
            p.y = y + 32;
            return p;
        };
        pic.pictures = {placed("black.png", 0, 0), placed("white.png", 0, 0),
                        placed("black.png", 30, 0), placed("gone.png", 60, 0, false)};
        const QImage image = wordPictureImage(pic);
        QCOMPARE(image.size(), QSize(9, 7)); // 124 x 94 twips, each part of a pixel counted
        QCOMPARE(image.pixelColor(2, 2), QColor(Qt::white)); // the later sign covers
        QCOMPARE(image.pixelColor(3, 3), QColor(Qt::white));
        QCOMPARE(image.pixelColor(4, 2), QColor(Qt::black));
        QCOMPARE(image.pixelColor(5, 3), QColor(Qt::black));
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white)); // margin
        // The unreadable picture is a frame of its slot's size (45 twips = 3 pixels).
        QVERIFY(image.pixelColor(6, 4) != QColor(Qt::white));
        QVERIFY(image.pixelColor(8, 2) != QColor(Qt::white));
        QCOMPARE(image.pixelColor(7, 3), QColor(Qt::white));

        const QByteArray svg = wordPictureSvg(pic);
        QVERIFY(svg.startsWith("<?xml"));
        QVERIFY(svg.contains("width=\"9\" height=\"7\""));
        QCOMPARE(svg.count("<image "), 3);
        QCOMPARE(svg.count("<rect "), 2); // background and the empty frame
        const QString file = folder.file("w.svg");
        QVERIFY(saveWordPicture(pic, file, ImageFormat::Svg));
        QCOMPARE(QImage(file).size(), QSize(9, 7));
        QVERIFY(!saveWordPicture(pic, folder.file("no/such/folder/w.bmp"), ImageFormat::Bmp));
    }

    // Meaning is chosen the first time, so that OK sorts at once; the choices stay for the
    // next time, Cancel and the frame give none.
    void okGivesTheChosenFieldAndCancelNone() {
        Context f;
        SortDialog d(f.app);
        QVERIFY(f.app.sortDialog.loaded);
        d.show();
        QVERIFY(child<QRadioButton>(&d, "optMeaning")->isChecked());
        child<QCheckBox>(&d, "chkCase")->click();
        child<QPushButton>(&d, "cmdOk")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::Meaning);
        QVERIFY(f.app.sortDialog.caseSensitive);
        const std::pair<const char*, SortField> values[] = {{"optTranslit", SortField::Translit},
                                                            {"optTrClass", SortField::Classic},
                                                            {"optGardiner", SortField::Gardiner},
                                                            {"optComment", SortField::Comment}};
        for (auto [name, value] : values) {
            d.show();
            child<QRadioButton>(&d, name)->click();
            child<QPushButton>(&d, "cmdOk")->click();
            QCOMPARE(f.app.sortDialog.sortField, value);
            QVERIFY(!d.isVisible());
        }
        d.show();
        child<QCheckBox>(&d, "ChkReverse")->click();
        child<QPushButton>(&d, "cmdCancel")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
        d.show();
        QVERIFY(child<QRadioButton>(&d, "optComment")->isChecked());
        QVERIFY(f.app.sortDialog.reverse);
        d.close();
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
    }

    void theSortCommandsShowItModally() {
        Context f;
        SortDialog d(f.app);
        ScriptedWindows windows;
        windows.onSortDialog = [&d] { d.showModal(); };
        f.app.windows = &windows;
        QTimer::singleShot(0, [&] {
            QVERIFY(d.isModal() && d.isVisible());
            child<QRadioButton>(&d, "optGardiner")->click();
            child<QPushButton>(&d, "cmdOk")->click();
        });
        QCOMPARE(showSortDialog(f.app), SortField::Gardiner);
        QVERIFY(!d.isVisible());
    }

    void progressDialogCancelSetsTheFlagAndHides() {
        Context f;
        CancelDialog d(f.app);
        d.showWith("Flipping Started");
        QVERIFY(d.isVisible());
        QCOMPARE(d.windowTitle(), QString("Flipping Started"));
        QVERIFY(d.isModal()); // while the work runs, only its Cancel responds
        QCOMPARE(child<QLabel>(&d, "lblProcess")->text(), QString("Flipping Started"));
        QVERIFY(!f.app.sortCancelled);
        child<QPushButton>(&d, "CancelButton")->click();
        QVERIFY(f.app.sortCancelled);
        QVERIFY(!d.isVisible());
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
