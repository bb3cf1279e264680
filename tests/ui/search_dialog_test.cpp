// The Search dialog and the typewriter driven through their widgets, found by the names their
// controls have always had.
#include "bulk/search.h"
#include "bulk/search_dialog.h"
#include "core/sign_lists.h"
#include "harness.h"
#include "ui/search_dialog.h"
#include "ui/search_windows.h"
#include "ui/typewriter_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

using namespace nebkaro;
using namespace nebkaro::uitest;

class SearchWindowsTest : public QObject {
    Q_OBJECT

    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    testing::CountingEvents events;
    testing::FakeSignPictures pictures;
    testing::MemoryFileWriter writer;
    std::unique_ptr<App> app;
    std::unique_ptr<QWidget> mainWindow;
    std::unique_ptr<SearchWindows> tools;
    ScriptedWindows windows;
    std::string browserSign; // the sign the browser hands over next; empty: none
    std::vector<int> rendered;

    static std::vector<int> indices(const QAbstractItemModel* m) {
        std::vector<int> out;
        for (int r = 0; r < m->rowCount(); ++r) out.push_back(m->index(r, 0).data().toInt());
        return out;
    }

    static void doubleClickRow(QTableView* list, int row) {
        QTest::qWait(50); // laid out
        list->scrollTo(list->model()->index(row, 0));
        const QPoint cell = list->visualRect(list->model()->index(row, 2)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
    }

    // While Find waits for the dialog, the user acts.
    void whileFindWaits(std::function<void(SearchDialog*)> user) {
        QTimer::singleShot(0, this, [this, user] {
            QPointer<SearchDialog> d = tools->searchDialog();
            user(d);
            // A failed check returns early: let the waiting Find go on all the same.
            if (d && d->isVisible()) d->close();
        });
        findCommand(*app);
    }

private Q_SLOTS:
    void initTestCase() {
        const QString font = QStringLiteral(NEBKARO_DATA_DIR "/Fonts/Transliteration.ttf");
        if (QFile::exists(font)) QFontDatabase::addApplicationFont(font);
    }

    void init() {
        dialogs.reset();
        rendered.clear();
        app = std::make_unique<App>(dialogs, clipboard, events, pictures, writer);
        const char* meanings[] = {"the sun", "god, king", "godly god", "moon", "a god"};
        const char* translit[] = {"ra", "nTr", "nTrj", "iaH", "nTr"};
        for (int i = 0; i < 5; ++i) {
            app->store.setField(i, FieldGardiner, "G" + std::to_string(i + 1) + "a");
            app->store.setField(i, FieldTranslit, translit[i]);
            app->store.setField(i, FieldMeaning, meanings[i]);
        }
        app->store.lastIndex = 4;
        app->renderWord = [this](App& a) { rendered.push_back(a.store.currentIndex); };
        mainWindow = std::make_unique<QWidget>();
        mainWindow->setObjectName(QStringLiteral("Main"));
        mainWindow->setGeometry(200, 150, 400, 300);
        mainWindow->show();
        tools = std::make_unique<SearchWindows>(*app, mainWindow.get());
        windows.onSearchDialog = [this] { tools->showSearchDialogAndWait(); };
        windows.onTypewriterText = [this](TypewriterTarget t) { tools->typewriterTextChanged(t); };
        windows.chooseSign = [this] {
            app->chosenSign.code = browserSign;
            return !browserSign.empty();
        };
        app->windows = &windows;
    }

    void cleanup() {
        tools.reset();
        mainWindow.reset();
        app.reset();
    }

    void theTypewriterTypesIntoTheSearchBox() {
        whileFindWaits([this](SearchDialog* d) {
            child<QRadioButton>(d, "optTranslit")->click();
            QTest::mouseClick(child<QPushButton>(d, "cmdTypewriter"), Qt::LeftButton);
            TypewriterWindow* t = tools->typewriter();
            QVERIFY(t && t->isVisible());
            QTest::mouseClick(t->key(15), Qt::LeftButton); // A
            QTest::mouseClick(t->key(28), Qt::LeftButton); // H
            QTest::mouseClick(child<QPushButton>(t, "btnSpace"), Qt::LeftButton);
            QTest::mouseClick(child<QPushButton>(t, "btnBksp"), Qt::LeftButton);
            QCOMPARE(child<QLineEdit>(d, "txtSearch")->text(), QStringLiteral("AH"));
            child<QAction>(t, "mnuLatin")->trigger();
            QTest::mouseClick(child<QPushButton>(d, "cmdOk"), Qt::LeftButton);
        });
        // Accepted: the keys go to the main window's transliteration again.
        QCOMPARE(app->typewriterTarget, TypewriterTarget::MainTransLit);
        QTest::mouseClick(tools->typewriter()->key(16), Qt::LeftButton);
        QCOMPARE(app->view.transliteration, std::string("a")); // the Alphabetical keys stay
    }

    // Scholarly letters pasted are searched as their plain ones; Find All lists what Find would
    // find, and a double-click shows the word.
    void findAllListsWhatFindWouldFind() {
        whileFindWaits([this](SearchDialog* d) {
            child<QRadioButton>(d, "optTranslit")->click();
            QApplication::clipboard()->setText(QStringLiteral("nṯr"));
            child<QLineEdit>(d, "txtSearch")->paste();
            QTest::mouseClick(child<QPushButton>(d, "cmdFindAll"), Qt::LeftButton);
            auto* list = child<QTableView>(d, "lstFound");
            QAbstractItemModel* m = list->model();
            QCOMPARE(indices(m), (std::vector<int>{1, 2, 4}));
            QCOMPARE(m->data(m->index(1, 3)).toString(), QStringLiteral("nTrj"));
            QCOMPARE(m->data(m->index(1, 3), Qt::FontRole).value<QFont>().family(),
                     QStringLiteral("Transliteration"));
            QCOMPARE(child<QLabel>(d, "lblFound")->text(), QStringLiteral("3 words found"));
            doubleClickRow(list, 2);
            QCOMPARE(rendered, std::vector<int>{4});
            QTest::mouseClick(child<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        });
        // Find Previous goes on from the word shown, with the same criteria.
        findPreviousCommand(*app);
        QCOMPARE(rendered, (std::vector<int>{4, 2}));
        QVERIFY(dialogs.prompts.empty());
    }

    void signsListFollowsTheTypingWithPictures() {
        parsePhonetic(app->lists, "\"G17\",\"m\"\r\n\"D21\",\"r\"\r\n");
        const char* layouts[] = {"G17(0,0) - D21(300,0) ", "D21(0,0) ", "D21(0,0) - G17a(300,0) ",
                                 "X1(0,0) ", "G17(0,0) "};
        for (int i = 0; i < 5; ++i) app->store.setField(i, FieldLayout, layouts[i]);
        whileFindWaits([this](SearchDialog* d) {
            child<QRadioButton>(d, "optSigns")->click();
            auto* list = child<QTableView>(d, "lstFound");
            auto* label = child<QLabel>(d, "lblFound");
            auto* box = child<QLineEdit>(d, "txtSearch");
            QAbstractItemModel* m = list->model();
            // No Find All: the list follows what is typed.
            QTest::keyClicks(box, "r G17");
            QTRY_COMPARE(indices(m), (std::vector<int>{0}));
            child<QCheckBox>(d, "chkIgnoreVariants")->click();
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2}));
            QVERIFY(!m->index(0, 1).data(Qt::DecorationRole).value<QPixmap>().isNull());
            // A name that is no sign empties the list and says so, without a message box.
            QTest::keyClicks(box, " qqq");
            QTRY_COMPARE(label->text(),
                         QStringLiteral("qqq is neither a sign code nor a phonetic value"));
            QCOMPARE(m->rowCount(), 0);
            QVERIFY(dialogs.prompts.empty());
            // A sign picked in the sign list joins the typed ones.
            box->setText("m");
            browserSign = "D21";
            QTest::mouseClick(child<QPushButton>(d, "cmdPickSign"), Qt::LeftButton);
            QCOMPARE(box->text(), QStringLiteral("m D21"));
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2}));
            box->setText("m");
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2, 4}));
            doubleClickRow(list, 1);
            QCOMPARE(rendered, std::vector<int>{2});
            QTest::mouseClick(child<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        });
        // Find Next goes on with the signs.
        findNextCommand(*app);
        QCOMPARE(rendered, (std::vector<int>{2, 4}));
    }
};

QTEST_MAIN(SearchWindowsTest)
#include "search_dialog_test.moc"
