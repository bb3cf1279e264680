// The small windows and the Qt side of the ports: file filters, message boxes, the dictionary
// information dialog, About, Preferences and the progress dialog.
#include "harness.h"
#include "ui/about_dialog.h"
#include "ui/cancel_dialog.h"
#include "ui/header_dialog.h"
#include "ui/preferences_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using namespace nebkaro;
using namespace nebkaro::uitest;

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
        Program c;
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
        Program c;
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
        Program c(false); // no settings file yet
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

    void progressDialogCancelSetsTheFlagAndHides() {
        Program f;
        CancelDialog d(f.app);
        d.showWith("Flipping Started");
        QCOMPARE(child<QLabel>(&d, "lblProcess")->text(), QString("Flipping Started"));
        child<QPushButton>(&d, "CancelButton")->click();
        QVERIFY(f.app.sortCancelled && !d.isVisible());
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
