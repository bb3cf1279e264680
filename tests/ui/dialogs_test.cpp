// The small windows and the Qt side of the ports: file filters, the dictionary information
// dialog, Preferences and the progress dialog.
#include "harness.h"
#include "ui/cancel_dialog.h"
#include "ui/header_dialog.h"
#include "ui/preferences_dialog.h"

#include <QLabel>
#include <QLineEdit>
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
