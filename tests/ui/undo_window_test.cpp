// Every change to the dictionary in memory can be taken back and done again from the Edit
// menu: the main window driven by its controls' names, every question answered from a script.
#include "harness.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

// Eight words, so that a shuffle cannot give the same order back by chance; word 3's signs
// stand out of reading order for Sort Gardiner.
QByteArray dictionary() {
    QByteArray d = "\"Test words\",\"Tester\",\"1 May 2024\",\"\",\"\",\"\",\"\"\r\n";
    const char* rows[] = {
        "\"L\",\"B\",\"A1(0,0) - G17(330,0) \",\"A1-G17\",\"im\",\"who\",\"first\"",
        "\"L\",\"B\",\"N35(0,0) - N35(0,150) \",\"N35:N35\",\"nn\",\"we\",\"\"",
        "\"R\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"chick\",\"third\"",
        "\"L\",\"B\",\"G17(330,0) - A1(0,0) \",\"G17-A1\",\"mi\",\"apart\",\"fourth\"",
        "\"L\",\"B\",\"G43(0,0) \",\"G43\",\"u\",\"bird\",\"a\"",
        "\"L\",\"B\",\"N35(0,0) \",\"N35\",\"n\",\"of\",\"b\"",
        "\"R\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"I\",\"c\"",
        "\"L\",\"B\",\"G17(0,0) \",\"G17\",\"m\",\"in\",\"d\"",
    };
    for (const char* r : rows) d += QByteArray(r) + "\r\n";
    return d;
}

struct Snapshot {
    std::vector<WordRecord> rows;
    DictionaryHeader header;
    bool operator==(const Snapshot&) const = default;
};

Snapshot snap(const App& app) {
    Snapshot s{{}, app.store.header};
    for (int w = 0; w <= app.store.lastIndex; ++w) s.rows.push_back(app.store.row(w));
    return s;
}

void sortBy(const char* option) {
    whenOpen(QStringLiteral("Sort"), [option](QWidget* d) {
        choose(d, option);
        QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("cmdOk")), Qt::LeftButton);
    });
}

} // namespace

class UndoWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:

    void everyKindOfChangeIsUndoneAndRedone() {
        struct Step {
            const char* name; // as the Edit menu names it
            std::function<void(Program&)> run;
        };
        const std::vector<Step> steps = {
            {"Store word 0",
             [](Program& p) {
                 auto* e = p.find<QLineEdit>("MeaningTxt");
                 e->setFocus();
                 QTest::keyClicks(e, QStringLiteral(" else"));
                 p.click("cmdStore");
             }},
            {"Delete word 1",
             [](Program& p) {
                 p.click("cmdNext");
                 p.answer(Answer::Yes);
                 p.click("cmdDelete");
             }},
            {"Duplicate word 0", [](Program& p) { p.click("Duplicatecmd"); }},
            {"Cut word 0", [](Program& p) { p.action("cmdCut")->trigger(); }},
            {"Paste word 1",
             [](Program& p) {
                 QApplication::clipboard()->setText(QStringLiteral("L|B|A1(0,0) |A1|i|pasted|"));
                 p.action("mnuPaste")->trigger();
             }},
            {"Flip word 0", [](Program& p) { p.click("cmdFlip"); }},
            {"Flip All Invert",
             [](Program& p) {
                 p.answer(Answer::OK);
                 p.action("mnuAllFlip2")->trigger();
             }},
            {"Sort by Meaning",
             [](Program& p) {
                 sortBy("optMeaning");
                 p.answer(Answer::Yes); // proceed
                 p.answer(Answer::OK);  // done
                 p.action("mnuSort")->trigger();
             }},
            {"Sort by Comment",
             [](Program& p) {
                 sortBy("optComment");
                 p.answer(Answer::OK); // done
                 p.click("cmdSort");
             }},
            {"Shuffle",
             [](Program& p) {
                 p.answer(Answer::Yes);
                 p.action("mnuShuffle")->trigger();
             }},
            {"Sort Gardiner",
             [](Program& p) {
                 p.dialogs.inputs.push_back(std::string("20"));
                 p.action("mnuSortGardiner")->trigger();
             }},
            {"Merge",
             [](Program& p) {
                 p.folder.write("Dictionaries/More.nkd",
                                "\"Other\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"
                                "\"L\",\"B\",\"N35(0,0) \",\"N35\",\"n\",\"water\",\"\"\r\n");
                 p.answerFile(std::filesystem::path(
                     p.folder.file(QStringLiteral("Dictionaries/More.nkd")).toStdString()));
                 p.action("mnuMerge")->trigger();
             }},
        };
        for (const Step& s : steps) {
            Program p;
            p.folder.write("Dictionaries/Words.nkd", dictionary());
            QVERIFY(p.startAndShow());
            QAction* undo = p.action("mnuUndo");
            QAction* redo = p.action("mnuRedo");
            QVERIFY(!undo->isEnabled());
            const Snapshot before = snap(p.app);
            s.run(p);
            const Snapshot after = snap(p.app);
            QVERIFY2(after != before, s.name);
            QCOMPARE(undo->text(), QStringLiteral("&Undo ") + QLatin1String(s.name));
            QVERIFY(p.app.store.isChanged);

            undo->trigger();
            QVERIFY2(snap(p.app) == before, s.name);
            QVERIFY2(!p.app.store.isChanged, s.name); // as the file on disk
            QCOMPARE(redo->text(), QStringLiteral("&Redo ") + QLatin1String(s.name));

            redo->trigger();
            QVERIFY2(snap(p.app) == after, s.name);
            QVERIFY(p.app.store.isChanged);
            // The word on show is the dictionary's own: the boxes show what is stored.
            QVERIFY(!p.app.wordEdited(p.app));
        }
    }

    void theKeysTakeStepsAndOpeningADictionaryForgetsThem() {
        Program p;
        p.folder.write("Dictionaries/Words.nkd", dictionary());
        QVERIFY(p.startAndShow());
        p.click("Duplicatecmd");
        QCOMPARE(p.app.store.lastIndex, 8);
        p.window->setFocus();
        QTest::keyClick(p.window.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p.app.store.lastIndex, 7);
        QTest::keyClick(p.window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(p.app.store.lastIndex, 8);
        QVERIFY(p.action("mnuUndo")->isEnabled());
        p.answer(Answer::No); // do not save
        p.answerFile(std::filesystem::path(
            p.folder.file(QStringLiteral("Dictionaries/Words.nkd")).toStdString()));
        p.action("mnuOpen")->trigger();
        QVERIFY(!p.action("mnuUndo")->isEnabled());
        QCOMPARE(p.action("mnuUndo")->text(), QStringLiteral("&Undo"));
    }
};

QTEST_MAIN(UndoWindowTest)
#include "undo_window_test.moc"
