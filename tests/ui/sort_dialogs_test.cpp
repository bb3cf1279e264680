// The "Sort by" dialog and the progress dialog, driven through their named controls.
#include "bulk/sort_dialog_model.h"
#include "harness.h"
#include "ui/cancel_dialog.h"
#include "ui/sort_dialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

struct QtEvents : EventPump {
    void yield() override { QCoreApplication::processEvents(); }
};

struct Fixture {
    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    QtEvents events;
    testing::FakeSignPictures pictures;
    testing::MemoryFileWriter files;
    App app{dialogs, clipboard, events, pictures, files};
};

} // namespace

class SortDialogsTest : public QObject {
    Q_OBJECT
private slots:
    // Meaning is chosen the first time, so that OK sorts at once; the choices stay for the
    // next time, Cancel and the frame give -1.
    void okGivesTheChosenFieldAndCancelMinusOne() {
        Fixture f;
        SortDialog d(f.app);
        QVERIFY(f.app.sortDialog.loaded);
        d.show();
        QVERIFY(child<QRadioButton>(&d, "optMeaning")->isChecked());
        child<QCheckBox>(&d, "chkCase")->click();
        child<QPushButton>(&d, "cmdOk")->click();
        QCOMPARE(f.app.sortDialog.sortField, 5);
        QVERIFY(f.app.sortDialog.caseSensitive);
        const std::pair<const char*, int> values[] = {
            {"optTranslit", 4}, {"optTrClass", 9}, {"optGardiner", 3}, {"optComment", 6}};
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
        QCOMPARE(f.app.sortDialog.sortField, -1);
        d.show();
        QVERIFY(child<QRadioButton>(&d, "optComment")->isChecked());
        QVERIFY(f.app.sortDialog.reverse);
        d.close();
        QCOMPARE(f.app.sortDialog.sortField, -1);
    }

    void theSortCommandsShowItModally() {
        Fixture f;
        SortDialog d(f.app);
        ScriptedWindows windows;
        windows.onSortDialog = [&d] { d.showModal(); };
        f.app.windows = &windows;
        QTimer::singleShot(0, [&] {
            QVERIFY(d.isModal() && d.isVisible());
            child<QRadioButton>(&d, "optGardiner")->click();
            child<QPushButton>(&d, "cmdOk")->click();
        });
        QCOMPARE(ShowSortDialog(f.app), 3);
        QVERIFY(!d.isVisible());
    }

    void progressDialogCancelSetsTheFlagAndHides() {
        Fixture f;
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

QTEST_MAIN(SortDialogsTest)
#include "sort_dialogs_test.moc"
