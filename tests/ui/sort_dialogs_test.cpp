// The "Sort by" dialog and the progress dialog, driven through their named controls.
#include "bulk/sort_dialog_model.h"
#include "core/app.h"
#include "core/quiet_ports.h"
#include "ui/cancel_dialog.h"
#include "ui/sort_dialog.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

using namespace nebkaro;

namespace {

struct QtEvents : EventPump {
    void yield() override { QCoreApplication::processEvents(); }
};
struct NoPictures : SignPictures {
    SignPicture picture(Library, Direction, const std::string&) override { return {}; }
};
struct NoFiles : FileWriter {
    void write(const std::filesystem::path&, const std::string&) override {}
};

// The program's window port as far as these dialogs go.
struct DialogWindows : Windows {
    SortDialog* sort = nullptr;
    void showSortDialog() override { sort->showModal(); }
};

struct Fixture {
    QuietDialogs dialogs;
    TextClipboard clipboard;
    QtEvents events;
    NoPictures pictures;
    NoFiles files;
    App app{dialogs, clipboard, events, pictures, files};
};

template <class T> T* child(QWidget& w, const char* name) {
    T* c = w.findChild<T*>(name);
    if (!c) qFatal("no control %s", name);
    return c;
}

} // namespace

class SortDialogsTest : public QObject {
    Q_OBJECT
private slots:
    void sortDialogShowsItsControls() {
        Fixture f;
        SortDialog d(f.app);
        QCOMPARE(d.objectName(), QString("Sort"));
        QCOMPARE(d.windowTitle(), QString("Sort by"));
        QCOMPARE(child<QGroupBox>(d, "Frame1")->title(), QString("Sort By:"));
        const std::pair<const char*, const char*> captions[] = {
            {"optMeaning", "Meaning"},
            {"optTranslit", "Transliteration (mdc)"},
            {"optTrClass", "Transliteration (classic)"},
            {"optGardiner", "Gardiner's notation"},
            {"optComment", "Comment"}};
        for (auto [name, caption] : captions) {
            QCOMPARE(child<QRadioButton>(d, name)->text(), QString(caption));
            // Meaning is chosen the first time, so that OK sorts at once.
            QCOMPARE(child<QRadioButton>(d, name)->isChecked(), name == std::string("optMeaning"));
        }
        QCOMPARE(child<QRadioButton>(d, "optTranslit")->toolTip(),
                 QString("A D H S T X a b d f g h i k q m n p r s t w x y z"));
        QCOMPARE(child<QRadioButton>(d, "optTrClass")->toolTip(),
                 QString("A i y a w b p f m n r h H x X z s S q k g t T d D"));
        QCOMPARE(child<QCheckBox>(d, "ChkReverse")->text(), QString("Reverse order"));
        QCOMPARE(child<QCheckBox>(d, "chkCase")->text(), QString("Case sensitive"));
        QCOMPARE(child<QPushButton>(d, "cmdCancel")->text(), QString("Cancel"));
        QVERIFY(f.app.sortDialog.loaded);
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
    }

    void okGivesTheChosenFieldAndCancelNone() {
        Fixture f;
        SortDialog d(f.app);
        const std::pair<const char*, SortField> values[] = {{"optMeaning", SortField::Meaning},
                                                            {"optTranslit", SortField::Translit},
                                                            {"optTrClass", SortField::Classic},
                                                            {"optGardiner", SortField::Gardiner},
                                                            {"optComment", SortField::Comment}};
        for (auto [name, value] : values) {
            d.show();
            child<QRadioButton>(d, name)->click();
            child<QPushButton>(d, "cmdOk")->click();
            QCOMPARE(f.app.sortDialog.sortField, value);
            QVERIFY(!d.isVisible());
        }
        d.show();
        child<QCheckBox>(d, "ChkReverse")->click();
        child<QPushButton>(d, "cmdCancel")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
        QVERIFY(!d.isVisible());
        // Hidden, not unloaded: the choices are still there next time.
        d.show();
        QVERIFY(child<QRadioButton>(d, "optComment")->isChecked());
        QVERIFY(child<QCheckBox>(d, "ChkReverse")->isChecked());
        QVERIFY(f.app.sortDialog.reverse);
        QVERIFY(!f.app.sortDialog.caseSensitive);
        d.close();
        QCOMPARE(f.app.sortDialog.sortField, SortField::None);
    }

    void okAtOnceSortsByMeaning() {
        Fixture f;
        SortDialog d(f.app);
        d.show();
        QVERIFY(child<QRadioButton>(d, "optMeaning")->isChecked());
        child<QCheckBox>(d, "chkCase")->click();
        child<QPushButton>(d, "cmdOk")->click();
        QCOMPARE(f.app.sortDialog.sortField, SortField::Meaning);
        QVERIFY(f.app.sortDialog.caseSensitive);
    }

    void theSortCommandsShowItModally() {
        Fixture f;
        SortDialog d(f.app);
        DialogWindows windows;
        windows.sort = &d;
        f.app.windows = &windows;
        QTimer::singleShot(0, [&] {
            QVERIFY(d.isModal() && d.isVisible());
            child<QRadioButton>(d, "optGardiner")->click();
            child<QPushButton>(d, "cmdOk")->click();
        });
        QCOMPARE(ShowSortDialog(f.app), SortField::Gardiner);
        QVERIFY(!d.isVisible());
    }

    void progressDialogCancelSetsTheFlagAndHides() {
        Fixture f;
        CancelDialog d(f.app);
        QCOMPARE(d.objectName(), QString("frmCancelDialog"));
        QCOMPARE(d.windowTitle(), QString("Sorting Started"));
        QCOMPARE(child<QLabel>(d, "lblProcess")->text(), QString("Sorting Started"));
        QCOMPARE(child<QLabel>(d, "Label1")->text(), QString("Press \"Cancel\" to quit"));
        d.showWith("Flipping Started");
        QVERIFY(d.isVisible());
        QCOMPARE(d.windowTitle(), QString("Flipping Started"));
        QVERIFY(d.isModal()); // while the work runs, only its Cancel responds
        QCOMPARE(child<QLabel>(d, "lblProcess")->text(), QString("Flipping Started"));
        QVERIFY(!f.app.sortCancelled);
        child<QPushButton>(d, "CancelButton")->click();
        QVERIFY(f.app.sortCancelled);
        QVERIFY(!d.isVisible());
    }
};

QTEST_MAIN(SortDialogsTest)
#include "sort_dialogs_test.moc"
