// Nothing the user typed, stored or opened is lost: the main window driven as a user drives it,
// by its controls' names, with every question answered from a script.
//
// Clicks go through the window system's path, where a window held by a modal one takes none.
#define QTEST_QPA_MOUSE_HANDLING
#include "bulk/search.h"
#include "harness.h"

#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace nebkaro;
using namespace nebkaro::uitest;

class UnsavedWorkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Layouts the word view cannot draw: cut short, without a comma, a letter for a number, a
    // number past the picture's range, one sign more than the view holds. Saved, the word keeps
    // its own bytes.
    void aWordThatCannotBeDrawnIsSavedAsItWasRead_data() {
        QTest::addColumn<QByteArray>("layout");
        QByteArray many = QByteArray("A1(0,0) - ").repeated(22);
        many.chop(3);
        for (const QByteArray& l : {QByteArray("A1(0,0"), QByteArray("A1(0 0) "),
                                    QByteArray("A1(x,0) "), QByteArray("A1(40000,0) "), many + " "})
            QTest::newRow(l.left(12).constData()) << l;
    }
    void aWordThatCannotBeDrawnIsSavedAsItWasRead() {
        QFETCH(QByteArray, layout);
        Program p;
        const QByteArray bad =
            "\"L\",\"B\",\"" + layout + "\",\"A1\",\"ra\",\"bad one\",\"keep\"\r\n";
        p.folder.write("Dictionaries/Words.nkd", Header + Word0 + bad + Word2);
        QVERIFY(p.startAndShow());
        p.click("cmdNext");
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("bad one"));
        p.click("cmdSave");
        QCOMPARE(p.folder.read("Dictionaries/Words.nkd"), Header + Word0 + bad + Word2);
    }

    void aRefusedStartUpLoadLeavesAnUntitledDictionary() {
        Program p;
        const QByteArray damaged = Word0 + "\"L\",\"B\",\"G43(0,0) \",\"G4";
        p.folder.write("Dictionaries/Words.nkd", damaged);
        p.answer(Answer::No); // open another dictionary?
        QVERIFY(p.startAndShow());
        QVERIFY(p.window->windowTitle().endsWith(QStringLiteral("Untitled")));
        p.answerFile(std::nullopt);
        p.click("cmdSave"); // asks for a name
        // The remembered dictionary stays the one to try at the next start.
        p.click("cmdQuit");
        QVERIFY(p.folder.read("System/Settings.nks").contains("Dictionary Name = Words.nkd"));
        QCOMPARE(p.folder.read("Dictionaries/Words.nkd"), damaged);
    }

    // Whatever control leaves the word, one question; Yes stores in memory, No drops the edit.
    void everyWayOffAnEditedWordAsksToStoreIt() {
        Program p;
        QVERIFY(p.startAndShow());
        const char* ways[] = {"cmdNext", "cmdPrev",     "cmdFirst",  "cmdLast",
                              "cmdGo",   "cmdRandom",   "cmdTool11", "cmdSearchPrevious",
                              "Random",  "mnuFindNext", "PageDown",  "PageUp"};
        p.app.searchCriteria = prepareCriteria("", false, false, false, false); // all match
        int way = 0;
        for (const char* leave : ways) {
            const bool yes = way++ % 2 == 0;
            p.find<QLineEdit>("txtNumber")->setText(QStringLiteral("1"));
            p.app.view.wordNumber = "1";
            p.click("cmdGo");
            p.dialogs.reset();
            const std::string before = p.app.store.field(1, FieldMeaning);
            auto* meaning = p.find<QLineEdit>("MeaningTxt");
            meaning->setFocus();
            meaning->end(false);
            QTest::keyClicks(meaning, QStringLiteral("!"));
            p.answer(yes ? Answer::Yes : Answer::No);
            if (QByteArray(leave).startsWith("cmd"))
                p.click(leave);
            else if (QByteArray(leave).startsWith("Page"))
                QTest::keyClick(QApplication::focusWidget(),
                                leave[4] == 'D' ? Qt::Key_PageDown : Qt::Key_PageUp);
            else
                p.action(leave)->trigger();
            QVERIFY2(p.dialogs.prompts.size() == 1, leave);
            QCOMPARE(p.app.store.field(1, FieldMeaning), yes ? before + "!" : before);
        }
    }

    void replacingTheDictionaryOrClosingAsksToSaveAStoredChange() {
        Program p;
        QVERIFY(p.startAndShow());
        p.click("Duplicatecmd");
        const std::function<bool()> ways[] = {
            [&] { return p.click("CmdLoad"), true; }, [&] { return p.click("cmdTool0"), true; },
            [&] { return p.click("cmdQuit"), true; }, [&] { return !p.window->close(); }};
        for (const auto& way : ways) {
            p.dialogs.reset();
            p.answer(Answer::Cancel);
            QVERIFY(way());
            QCOMPARE(p.dialogs.prompts.size(), std::size_t(1));
            QCOMPARE(p.dialogs.prompts[0].buttons, Buttons::YesNoCancel);
            QCOMPARE(p.app.store.lastIndex, 3);
            QVERIFY(p.window->isVisible() && !p.app.endRequested);
        }
        // Yes saves the duplicate before the new dictionary empties the store.
        p.answer(Answer::Yes);
        p.answerFile(std::nullopt);
        whenOpen(QStringLiteral("frmHeader"), [](QWidget* d) { d->close(); });
        p.click("cmdTool0");
        QCOMPARE(p.folder.read("Dictionaries/Words.nkd").count("\"who\""), 2);
    }

    void onlyTheProgressDialogRespondsWhileASortRuns() {
        Program p;
        QByteArray words;
        for (int i = 0; i < 300; ++i)
            words += "\"L\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"m" +
                     QByteArray::number(997 * i % 300) + "\",\"\"\r\n";
        p.folder.write("Dictionaries/Words.nkd", words);
        QVERIFY(p.startAndShow());
        QString modal;
        p.events.onYield = [&] {
            if (!modal.isEmpty()) return;
            modal = QApplication::activeModalWidget()->objectName();
            p.answerFile(std::nullopt); // an Open that got through would take it
            QTest::mouseClick(p.find<QPushButton>("CmdLoad"), Qt::LeftButton);
        };
        whenOpen(QStringLiteral("Sort"), [](QWidget* d) {
            choose(d, "optMeaning");
            clickButton(d, "cmdOk");
        });
        p.answer(Answer::Yes); // proceed?
        p.action("mnuSort")->trigger();
        p.events.onYield = nullptr;
        QCOMPARE(modal, QStringLiteral("frmCancelDialog"));
        QCOMPARE(p.dialogs.files.size(), std::size_t(1)); // no Open took it
        QCOMPARE(p.app.store.field(0, FieldMeaning), std::string("m0"));
    }

    void keysBehindTheComposerDoNotReachTheDictionary() {
        Program p;
        QVERIFY(p.startAndShow());
        p.app.clipboard.setText("L|B|G43(0,0) |G43|w|pasted|");
        QShortcut* paste = nullptr;
        for (QShortcut* s : p.window->findChildren<QShortcut*>())
            if (s->key() == QKeySequence(QStringLiteral("Ctrl+V"))) paste = s;
        QVERIFY(paste);
        whenOpen(QStringLiteral("Compose"), [&](QWidget* compose) {
            Q_EMIT paste->activated(); // as when the window manager hands the key to Main
            compose->close();
        });
        p.click("NewCmd");
        QCOMPARE(p.app.store.lastIndex, 2);
    }

    // A pipe, a device or a folder is never replaced by a save.
    void savingRefusesASpecialFile() {
        Program p;
        QVERIFY(p.startAndShow());
        const auto pipe = p.folder.fsPath("Dictionaries/pipe.nkd");
        QCOMPARE(::mkfifo(pipe.c_str(), 0600), 0);
        for (const std::filesystem::path& to :
             {pipe, p.folder.fsPath("Dictionaries"), std::filesystem::path("/dev/null")}) {
            p.dialogs.reset();
            p.answerFile(to);
            p.click("CmdSaveAs");
            const auto shown = p.dialogs.messages();
            QVERIFY2(shown.size() == 1 && shown[0].find("not a regular file") != std::string::npos,
                     to.c_str());
        }
        QVERIFY(std::filesystem::is_fifo(pipe));
    }

    // Saving under a .csv name writes the .nkd beside it, which the file dialog never asked about.
    void aSaveAsksBeforeReplacingAnotherExistingFile() {
        Program p;
        p.folder.write("Other.nkd", "unrelated");
        QVERIFY(p.startAndShow());
        p.answerFile(p.folder.fsPath("Other.csv"));
        p.answer(Answer::No);
        p.click("CmdSaveAs");
        QCOMPARE(p.folder.read("Other.nkd"), QByteArray("unrelated"));
        p.answerFile(p.folder.fsPath("Other.csv"));
        p.answer(Answer::Yes);
        p.click("CmdSaveAs");
        QVERIFY(p.folder.read("Other.nkd").startsWith(Header));
        p.click("cmdSave"); // its own file now: no question
        QCOMPARE(p.dialogs.messages().size(), std::size_t(2));
    }

    // A killed save leaves its temporary file; the next save in the folder removes it, but
    // never the file of a save that is still running.
    void aSaveRemovesTheTemporaryFilesOfKilledSaves() {
        Program p;
        QVERIFY(p.startAndShow());
        const pid_t gone = ::fork();
        if (gone == 0) ::_exit(0);
        ::waitpid(gone, nullptr, 0);
        const auto temp = [&](long pid) {
            std::string name = temporaryNamePattern("Words.nkd", pid);
            name.replace(name.size() - 6, 6, "Ab12Cd");
            const QString relative = QStringLiteral("Dictionaries/") + QString::fromStdString(name);
            p.folder.write(relative, "half a dictionary");
            return relative;
        };
        const QString killed = temp(gone), running = temp(::getppid());
        p.folder.write("Dictionaries/.Words.nkd.Ab12Cd", "not ours"); // another program's
        p.click("cmdSave");
        QVERIFY(!p.folder.exists(killed) && p.folder.exists(running));
        QVERIFY(p.folder.exists("Dictionaries/.Words.nkd.Ab12Cd"));
    }

    // The settings name a dictionary inside the Dictionaries folder or by its full path.
    void aDictionaryOutsideTheFolderIsRememberedByItsFullPath() {
        Program first;
        first.folder.settings("../../outside/x.nkd");
        QVERIFY(first.startAndShow());
        QCOMPARE(first.dialogs.messages().size(), std::size_t(1)); // refused, Words.nkd opened
        QCOMPARE(first.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("who"));
        first.folder.write("Mine/Other.nkd", Word2);
        first.answerFile(first.folder.fsPath("Mine/Other.nkd"));
        first.click("CmdLoad");
        first.click("cmdQuit");
        Program next;
        next.folder.write("System/Settings.nks", first.folder.read("System/Settings.nks"));
        QVERIFY(next.startAndShow());
        QCOMPARE(next.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("chick"));
    }
};

QTEST_MAIN(UnsavedWorkTest)
#include "unsaved_work_test.moc"
