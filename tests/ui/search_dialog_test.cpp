// The Search dialog and the typewriter driven through their widgets from the main window.
#include "harness.h"
#include "ui/typewriter_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

// Five words; G17 reads m, N35 reads n, and G17a is a variant of G17.
QByteArray searchWords() {
    QByteArray d = Header;
    for (const char* r :
         {"G17(0,0) - N35(300,0) \",\"G17-N35\",\"ra\",\"the sun",
          "N35(0,0) \",\"N35\",\"nTr\",\"god",
          "N35(0,0) - G17a(300,0) \",\"N35-G17a\",\"nTrj\",\"godly god",
          "G43(0,0) \",\"G43\",\"iaH\",\"moon", "G17(0,0) \",\"G17\",\"nTr\",\"a god"})
        d += "\"L\",\"B\",\"" + QByteArray(r) + "\",\"\"\r\n";
    return d;
}

std::vector<int> indices(const QAbstractItemModel* m) {
    std::vector<int> out;
    for (int r = 0; r < m->rowCount(); ++r) out.push_back(m->index(r, 0).data().toInt());
    return out;
}

void doubleClickRow(QTableView* list, int row) {
    QTest::qWait(50); // laid out
    list->scrollTo(list->model()->index(row, 0));
    const QPoint cell = list->visualRect(list->model()->index(row, 2)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
}

} // namespace

class SearchWindowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Program> p;

    // The user acts in the Search dialog the Search button opens.
    void inSearch(std::function<void(QWidget*)> user) {
        whenOpen(QStringLiteral("Search"), [user](QWidget* d) {
            user(d);
            if (d->isVisible()) d->close(); // a failed check returned early
        });
        p->click("cmdSearch");
    }
    int shown() const { return p->app.store.currentIndex; }

private Q_SLOTS:
    void init() {
        p = std::make_unique<Program>();
        p->folder.write("Dictionaries/Words.nkd", searchWords());
        QVERIFY(p->startAndShow());
    }
    void cleanup() { p.reset(); }

    void theTypewriterTypesIntoTheSearchBox() {
        inSearch([](QWidget* d) {
            choose(d, "optTranslit");
            clickButton(d, "cmdTypewriter");
            auto* t = qobject_cast<TypewriterWindow*>(shownWindow("frmTypewriter"));
            QVERIFY(t);
            QTest::mouseClick(t->key(15), Qt::LeftButton); // A
            QTest::mouseClick(t->key(28), Qt::LeftButton); // H
            clickButton(t, "btnSpace");
            clickButton(t, "btnBksp");
            QCOMPARE(child<QLineEdit>(d, "txtSearch")->text(), QStringLiteral("AH"));
            child<QAction>(t, "mnuLatin")->trigger();
            clickButton(d, "cmdOk");
        });
        // Accepted: the keys go to the main window's transliteration again.
        auto* t = qobject_cast<TypewriterWindow*>(shownWindow("frmTypewriter"));
        QTest::mouseClick(t->key(16), Qt::LeftButton);
        QCOMPARE(p->find<QLineEdit>("TransLitTxt")->text(), QStringLiteral("raa")); // Latin keys stay
    }

    // Scholarly letters pasted are searched as their plain ones; Find All lists what Find would
    // find, and a double-click shows the word.
    void findAllListsWhatFindWouldFind() {
        inSearch([this](QWidget* d) {
            choose(d, "optTranslit");
            QApplication::clipboard()->setText(QStringLiteral("nṯr"));
            child<QLineEdit>(d, "txtSearch")->paste();
            clickButton(d, "cmdFindAll");
            auto* list = child<QTableView>(d, "lstFound");
            QAbstractItemModel* m = list->model();
            QCOMPARE(indices(m), (std::vector<int>{1, 2, 4}));
            QCOMPARE(m->data(m->index(1, 3)).toString(), QStringLiteral("nTrj"));
            QCOMPARE(m->data(m->index(1, 3), Qt::FontRole).value<QFont>().family(),
                     QStringLiteral("Transliteration"));
            QCOMPARE(child<QLabel>(d, "lblFound")->text(), QStringLiteral("3 words found"));
            doubleClickRow(list, 2);
            QCOMPARE(shown(), 4);
            clickButton(d, "cmdCancel");
        });
        // Find Previous goes on from the word shown, with the same criteria.
        p->click("cmdSearchPrevious");
        QCOMPARE(shown(), 2);
        QVERIFY(p->dialogs.prompts.empty());
    }

    // No Find All: the list follows what is typed, narrowing with each sign.
    void signsListFollowsTheTypingWithPictures() {
        inSearch([this](QWidget* d) {
            choose(d, "optSigns");
            auto* list = child<QTableView>(d, "lstFound");
            auto* box = child<QLineEdit>(d, "txtSearch");
            QAbstractItemModel* m = list->model();
            QTest::keyClicks(box, "n G17");
            QTRY_COMPARE(indices(m), (std::vector<int>{0}));
            choose(d, "chkIgnoreVariants");
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2}));
            QVERIFY(!m->index(0, 1).data(Qt::DecorationRole).value<QPixmap>().isNull());
            // A name that is no sign empties the list and says so, without a message box.
            QTest::keyClicks(box, " qqq");
            QTRY_COMPARE(child<QLabel>(d, "lblFound")->text(),
                         QStringLiteral("qqq is neither a sign code nor a phonetic value"));
            QCOMPARE(m->rowCount(), 0);
            QVERIFY(p->dialogs.prompts.empty());
            // A sign picked in the sign list joins the typed ones.
            box->setText("m");
            whenOpen(QStringLiteral("Lookup"), [](QWidget* lookup) {
                QTest::keyClicks(child<QLineEdit>(lookup, "txtGlyph"), "n35");
                clickButton(lookup, "cmdGo");
                QTest::mouseDClick(child(lookup, "picGlyph0"), Qt::LeftButton);
            });
            clickButton(d, "cmdPickSign");
            QCOMPARE(box->text(), QStringLiteral("m N35"));
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2}));
            box->setText("m");
            QTRY_COMPARE(indices(m), (std::vector<int>{0, 2, 4}));
            doubleClickRow(list, 1);
            QCOMPARE(shown(), 2);
            clickButton(d, "cmdCancel");
        });
        // Find Next goes on with the signs.
        p->action("mnuFindNext")->trigger();
        QCOMPARE(shown(), 4);
    }
};

QTEST_MAIN(SearchWindowsTest)
#include "search_dialog_test.moc"
