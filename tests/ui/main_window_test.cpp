// The main window and the windows it opens, driven by their controls' names, every message box
// answered from a script; the small dialogs on their own.
#include "bulk/search_dialog.h"
#include "editing/commands.h"
#include "harness.h"
#include "ui/about_dialog.h"
#include "ui/cancel_dialog.h"
#include "ui/compose_window.h"
#include "ui/header_dialog.h"
#include "ui/preferences_dialog.h"
#include "ui/print_options_dialog.h"
#include "ui/screen_fit.h"
#include "ui/search_dialog.h"
#include "ui/sign_browser_window.h"
#include "ui/sort_dialog.h"
#include "ui/trans_table_window.h"
#include "ui/typewriter_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QToolButton>

using namespace nebkaro;
using namespace nebkaro::uitest;

namespace {

QString captionOf(const QObject* o) {
    if (auto* a = qobject_cast<const QAction*>(o))
        return a->text() +
               (a->shortcut().isEmpty() ? QString() : " [" + a->shortcut().toString() + "]");
    if (auto* m = qobject_cast<const QMenu*>(o)) return m->title();
    if (auto* b = qobject_cast<const QAbstractButton*>(o)) return b->text();
    if (auto* l = qobject_cast<const QLabel*>(o)) return l->text();
    if (auto* g = qobject_cast<const QGroupBox*>(o)) return g->title();
    if (auto* w = qobject_cast<const QWidget*>(o); w && w->isWindow()) return w->windowTitle();
    return {};
}

// One line per named control of a window: its class, name, caption, key and tip.
QStringList captions(const QWidget* window, const QString& home) {
    QStringList out;
    auto line = [&](const QObject* o) {
        QString l = QLatin1String(o->metaObject()->className()) + ' ' + o->objectName();
        if (const QString c = captionOf(o); !c.isEmpty()) l += " \"" + c + '"';
        if (auto* w = qobject_cast<const QWidget*>(o); w && !w->toolTip().isEmpty())
            l += " tip \"" + w->toolTip() + '"';
        out << l.replace(home, QStringLiteral("<home>")).replace('\n', QStringLiteral("\\n"));
    };
    line(window);
    for (const QObject* o : window->findChildren<QObject*>())
        if (!o->objectName().isEmpty() && !o->objectName().startsWith(QLatin1String("qt_")))
            line(o);
    return out;
}

std::vector<WordRecord> rows(const App& app) {
    std::vector<WordRecord> out;
    for (int w = 0; w <= app.store.lastIndex; ++w) out.push_back(app.store.row(w));
    return out;
}

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

void drag(QWidget* w, QPoint delta) {
    const QPointF local(5, 5);
    const QPointF global = w->mapToGlobal(local);
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent move(QEvent::MouseMove, local + delta, global + delta, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(w, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, local + delta, global + delta, Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

// A double-click as the mouse makes it: press, release, double-click, release.
void doubleClick(QWidget* w) {
    QTest::mouseClick(w, Qt::LeftButton);
    QTest::mouseDClick(w, Qt::LeftButton);
    QTest::mouseRelease(w, Qt::LeftButton);
}

QLabel* sign(QWidget* compose, int k) {
    return child<QLabel>(compose, QStringLiteral("GlyphPic%1").arg(k));
}

void getSigns(QWidget* compose, const char* line) {
    QTest::keyClicks(child<QLineEdit>(compose, "txtMdC"), QLatin1String(line));
    clickButton(compose, "cmdGet");
}

// The user acts in the window the button opens; a window a failed check left open is closed.
void inWindow(Program& p, const char* button, const char* name,
              std::function<void(QWidget*)> user) {
    whenOpen(QLatin1String(name), [user](QWidget* w) {
        user(w);
        if (w->isVisible()) w->close();
    });
    p.click(button);
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:

    void startUpWithoutSettingsShowsNoticeAboutAndHeaderInOrder() {
        Program p(false);
        QStringList opened;
        whenOpen(QStringLiteral("About"), [&](QWidget* about) {
            opened << about->objectName();
            clickButton(about, "cmdOK");
            whenOpen(QStringLiteral("frmHeader"), [&](QWidget* header) {
                opened << header->objectName();
                clickButton(header, "Command1");
            });
        });
        QVERIFY(p.startAndShow());
        QCOMPARE(opened, (QStringList{"About", "frmHeader"}));
        QCOMPARE(p.dialogs.messages(),
                 std::vector<std::string>{"Settings file not found, applying default settings"});
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("who"));
    }

    // Ctrl then G typed into whatever box has the focus hides the Gardiner box: the window sees
    // the keys first, but not the G after another shortcut took the Ctrl.
    void ctrlThenGFromAnyBoxHidesTheGardinerBox() {
        Program p;
        QVERIFY(p.startAndShow());
        auto* gardiner = p.find<QLineEdit>("GardinerTxt");
        p.find<QLineEdit>("CommentTxt")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Control); // Ctrl, then G
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_G);
        QVERIFY(!gardiner->isVisible() && p.find<QCheckBox>("ChkHideGardiner")->isChecked());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_G);
        QVERIFY(!gardiner->isVisible());
    }

    void resizingNeverGoesBelow6960TwipsAndAWidthGivenByHandStays() {
        Program p;
        p.folder.write(
            "Dictionaries/Words.nkd",
            Header + Word0 + Word2 +
                "\"L\",\"B\",\"N35(0,0) - N35(13500,0) \",\"N35-N35\",\"\",\"\",\"\"\r\n");
        QVERIFY(p.startAndShow());
        p.window->resize(300, p.window->height());
        QTRY_COMPARE(p.window->width(), 464); // 6960 twips
        p.window->resize(700, p.window->height());
        QTRY_COMPARE(p.window->width(), 700);
        QCOMPARE(p.find<QFrame>("DispAreaShp")->width(), 667); // 500 twips narrower
        // The next word keeps the width given by hand; a wider word widens the window, and
        // the next narrow word brings back the width given by hand.
        p.click("cmdNext");
        QCOMPARE(p.window->width(), 700);
        p.click("cmdNext");
        QVERIFY(p.window->width() > 900);
        p.click("cmdFirst");
        QCOMPARE(p.window->width(), 700);
    }

    // Every window, from every place that opens it, with the main window in a corner of the
    // screen: each lies wholly inside the screen's free room, and so does the composer's canvas.
    void everyWindowOpensInsideTheScreen() {
        Program p;
        p.folder.write("Help/index.html", "<p>Help</p>");
        QVERIFY(p.startAndShow());
        const QRect room = screenRoom(p.window.get());
        QStringList outside;
        auto check = [&](QWidget* w, const QString& place) {
            // The fitting after show, and after the window manager framed the window.
            static_cast<void>(
                QTest::qWaitFor([&] { return !w || room.contains(w->frameGeometry()); }, 1000));
            if (!w || !room.contains(w->frameGeometry())) outside << place;
        };
        const char* openers[] = {"mnuTypewriter",
                                 "frmTypewriter",
                                 "cmdTool15",
                                 "frmTypewriter",
                                 "mnuTransTable",
                                 "frmTransTable",
                                 "cmdTransTable",
                                 "frmTransTable",
                                 "mnuHelp",
                                 "Help",
                                 "cmdAbout",
                                 "About",
                                 "cmdSort",
                                 "Sort",
                                 "cmdPreferences",
                                 "Preferences",
                                 "mnuPrintMultiple",
                                 "frmPrintOptions",
                                 "mnuAboutDictionary",
                                 "frmHeader"};
        for (const bool topLeft : {true, false}) {
            const QSize frame = p.window->frameGeometry().size();
            p.window->move(topLeft ? room.topLeft()
                                   : room.bottomRight() - QPoint(frame.width(), frame.height()));
            QCoreApplication::processEvents();
            check(p.window.get(), "main window");
            for (std::size_t i = 0; i < std::size(openers); i += 2) {
                const char* from = openers[i];
                bool seen = false;
                whenOpen(QLatin1String(openers[i + 1]), [&](QWidget* w) {
                    check(w, QLatin1String(from));
                    w->close();
                    seen = true;
                });
                if (auto* a = p.window->findChild<QAction*>(QLatin1String(from)))
                    a->trigger();
                else
                    p.click(from);
                QTRY_VERIFY2(seen, from);
            }
            inWindow(p, "cmdSearch", "Search", [&](QWidget* search) {
                check(search, "search");
                choose(search, "optTranslit"); // the field the typewriter types for
                clickButton(search, "cmdTypewriter");
                check(shownWindow("frmTypewriter"), "typewriter from the search");
                shownWindow("frmTypewriter")->close();
            });
            inWindow(p, "NewCmd", "Compose", [&](QWidget* compose) {
                getSigns(compose,
                         "A1 G17 G43 N35 A1 G17 G43 N35 A1 G17 G43 N35 A1 G17 G43 N35 A1 G17");
                check(compose, "composer with eighteen signs");
                // Its canvas grows so that every sign stands inside the frame and can be grabbed.
                const QRect frame = child<QFrame>(compose, "ComposeShp")->geometry();
                for (int k = 0; k < 18; ++k)
                    if (!frame.contains(sign(compose, k)->geometry())) outside << "sign in frame";
                const QPoint before = sign(compose, 17)->pos();
                drag(sign(compose, 17), QPoint(0, 20));
                QCOMPARE(sign(compose, 17)->pos(), before + QPoint(0, 20));
                whenOpen(QStringLiteral("Lookup"), [&](QWidget* lookup) {
                    check(lookup, "sign browser");
                    lookup->close();
                });
                QTest::mouseDClick(sign(compose, 0), Qt::LeftButton);
            });
            QTimer::singleShot(0, [&] {
                QWidget* box = QApplication::activeModalWidget();
                check(box, "message box");
                box->close();
            });
            QtDialogs().message("The word number must be between 0 and 2", "Phonetic Not Found",
                                Buttons::OK, Icon::Exclamation);
        }
        QVERIFY2(outside.isEmpty(), qPrintable(outside.join(QLatin1String("; "))));
    }

    // Every window's named controls with their captions, keys and tips, as
    // tests/fixtures/captions.txt holds them; NEBKARO_UPDATE_CAPTIONS=1 writes the file afresh
    // after a deliberate change.
    void everyControlCarriesItsNameCaptionAndTip() {
        Program p;
        QVERIFY(p.startAndShow());
        searchDialogLoad(p.app);
        std::unique_ptr<QWidget> windows[] = {
            std::make_unique<AboutDialog>(p.app),
            std::make_unique<HeaderDialog>(p.app, p.app.store.header),
            std::make_unique<PreferencesDialog>(p.app),
            std::make_unique<SortDialog>(p.app),
            std::make_unique<CancelDialog>(p.app),
            std::make_unique<ui::ComposeWindow>(p.app),
            std::make_unique<ui::SignBrowserWindow>(p.app),
            std::make_unique<SearchDialog>(p.app),
            std::make_unique<TypewriterWindow>(p.app),
            std::make_unique<TransTableWindow>(),
            std::make_unique<PrintOptionsDialog>(p.app, print::PrintOptions{}),
        };
        const QString home = QString::fromStdString(p.folder.path());
        QStringList lines = captions(p.window.get(), home);
        for (const auto& w : windows) lines += captions(w.get(), home);
        if (qEnvironmentVariableIsSet("NEBKARO_UPDATE_CAPTIONS")) {
            QFile out(QStringLiteral(NEBKARO_FIXTURES "/captions.txt"));
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write((lines.join('\n') + '\n').toUtf8());
        }
        const QStringList golden = QString::fromUtf8(fixture(QStringLiteral("captions.txt")))
                                       .split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines, golden);
        // A menu key runs its command once, with the menu bar in the focus as well.
        int finds = 0;
        p.app.commands.provide(CommandId::Find, [&finds](App&) { ++finds; });
        QTest::keyClick(p.window.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(finds, 1);
        p.window->menuBar()->setFocus();
        QTest::keyClick(p.window->menuBar(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(finds, 2);
    }

    // Scholarly letters pasted are searched as their plain ones; Find All lists what Find would
    // find, and a double-click shows the word.
    void findAllListsWhatFindWouldFind() {
        Program p;
        p.folder.write("Dictionaries/Words.nkd", searchWords());
        QVERIFY(p.startAndShow());
        inWindow(p, "cmdSearch", "Search", [&p](QWidget* d) {
            choose(d, "optTranslit");
            QApplication::clipboard()->setText(QStringLiteral("nṯr"));
            child<QLineEdit>(d, "txtSearch")->paste();
            clickButton(d, "cmdFindAll");
            auto* list = child<QTableView>(d, "lstFound");
            QAbstractItemModel* m = list->model();
            QCOMPARE(indices(m), (std::vector<int>{1, 2, 4}));
            QCOMPARE(m->data(m->index(1, 3), Qt::FontRole).value<QFont>().family(),
                     QStringLiteral("Transliteration"));
            QCOMPARE(child<QLabel>(d, "lblFound")->text(), QStringLiteral("3 words found"));
            doubleClickRow(list, 2);
            QCOMPARE(p.app.store.currentIndex, 4);
            clickButton(d, "cmdCancel");
        });
        // Find Previous goes on from the word shown, with the same criteria.
        p.click("cmdSearchPrevious");
        QCOMPARE(p.app.store.currentIndex, 2);
        QVERIFY(p.dialogs.prompts.empty());
    }

    // No Find All: the list follows what is typed, narrowing with each sign.
    void signsListFollowsTheTypingWithPictures() {
        Program p;
        p.folder.write("Dictionaries/Words.nkd", searchWords());
        QVERIFY(p.startAndShow());
        inWindow(p, "cmdSearch", "Search", [&p](QWidget* d) {
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
            QVERIFY(p.dialogs.prompts.empty());
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
            doubleClickRow(list, 0);
            QCOMPARE(p.app.store.currentIndex, 0);
            clickButton(d, "cmdCancel");
        });
        // Find Next goes on with the signs.
        p.action("mnuFindNext")->trigger();
        QCOMPARE(p.app.store.currentIndex, 2);
    }

    void composesAWordByTypingDraggingAndChoosing() {
        Program p;
        QVERIFY(p.startAndShow());
        inWindow(p, "NewCmd", "Compose", [&p](QWidget* w) {
            getSigns(w, "A1 n:m");
            QCOMPARE(sign(w, 0)->size(), QSize(20, 36));
            QVERIFY(sign(w, 3)->isVisible() && !sign(w, 4)->isVisible()); // the empty slot
            // The third sign, dragged 30 pixels down.
            const QPoint before = sign(w, 2)->pos();
            drag(sign(w, 2), QPoint(0, 30));
            QCOMPARE(sign(w, 2)->pos(), before + QPoint(0, 30));
            QCOMPARE(p.app.glyphs[2].y, (before.y() + 30) * 15.0);
            // The empty slot, double-clicked: the browser opens while the composer waits; the
            // user finds G43 and double-clicks it.
            bool composerWaits = false;
            whenOpen(QStringLiteral("Lookup"), [&](QWidget* lookup) {
                composerWaits = !w->isEnabled();
                QTest::keyClicks(child<QLineEdit>(lookup, "txtGlyph"), "g43");
                clickButton(lookup, "cmdGo");
                doubleClick(child(lookup, "picGlyph0"));
            });
            doubleClick(sign(w, 3));
            QVERIFY(composerWaits && w->isEnabled());
            QCOMPARE(sign(w, 3)->pixmap().size(), QSize(24, 38));
            QVERIFY(sign(w, 4)->isVisible());
            // The Delete key takes the sign clicked last.
            QTest::mouseClick(sign(w, 1), Qt::LeftButton);
            QTest::keyClick(sign(w, 1), Qt::Key_Delete);
            QCOMPARE(p.app.glyphs[1].code.value_or(""), std::string("G17"));
            clickButton(w, "OkCmd");
        });
        QCOMPARE(p.find<QLabel>("RichGardinerlbl")->text(),
                 QStringLiteral("A1(0,0) - G43(370,830) - G17(900,425) "));
    }

    // Every tool-bar button and every menu item, one after the other, with questions answered
    // from a script: nothing throws, nothing waits for an answer nobody prepared, nothing hangs
    // (windows a command opens are closed as soon as they show), and the program stays up.
    void everyToolBarButtonAndMenuItemRunsWithScriptedAnswers() {
        Program p;
        QVERIFY(p.startAndShow());
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [&p] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                if (w == p.window.get() || !w->isVisible() || qobject_cast<QMenu*>(w)) continue;
                if (auto* d = qobject_cast<QDialog*>(w))
                    d->reject();
                else
                    w->hide();
            }
        });
        closer.start(20);
        auto script = [&p](int round) {
            p.dialogs.reset();
            const Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel, Answer::OK};
            for (int i = 0; i < 16; ++i) p.answer(answers[(round + i) % 4]);
            for (int i = 0; i < 4; ++i) {
                p.dialogs.inputs.push_back(round % 2 ? std::optional<std::string>("20")
                                                     : std::nullopt);
                p.answerFile(std::nullopt);
            }
        };
        std::vector<QObject*> controls;
        for (QToolButton* b : p.find("fraToolbar")->findChildren<QToolButton*>())
            controls.push_back(b);
        std::function<void(QMenu*)> collect = [&](QMenu* menu) {
            for (QAction* a : menu->actions()) {
                if (a->menu())
                    collect(a->menu());
                else if (!a->isSeparator())
                    controls.push_back(a);
            }
        };
        for (QAction* a : p.window->menuBar()->actions())
            if (a->menu()) collect(a->menu());
        QVERIFY(controls.size() > 60);
        int round = 0, triggered = 0, asked = 0, nothingToTake = 0;
        for (QObject* c : controls) {
            // Quitting ends the run; its questions have tests of their own.
            if (c->objectName() == QLatin1String("mnuQuit")) continue;
            // Undo and Redo are offered only when there is a step to take.
            if (auto* a = qobject_cast<QAction*>(c);
                a && !a->isEnabled() &&
                (a->objectName() == QLatin1String("mnuUndo") ||
                 a->objectName() == QLatin1String("mnuRedo"))) {
                ++nothingToTake;
                continue;
            }
            script(round++);
            if (auto* b = qobject_cast<QAbstractButton*>(c); b && b->isEnabled()) {
                b->click();
                ++triggered;
            } else if (auto* a = qobject_cast<QAction*>(c); a && a->isEnabled()) {
                a->trigger();
                ++triggered;
            }
            QTest::qWait(5);
            asked += static_cast<int>(p.dialogs.prompts.size());
            QVERIFY2(p.dialogs.unexpected.empty() && !p.app.endRequested && p.window->isVisible(),
                     qPrintable(c->objectName()));
        }
        closer.stop();
        // Every control was offered and enabled, and the commands did ask their questions.
        QCOMPARE(triggered + nothingToTake, static_cast<int>(controls.size()) - 1);
        QVERIFY(asked > 20);
    }

    // Every kind of change to the dictionary in memory, whatever window made it, is taken back
    // and done again from the Edit menu; opening a dictionary forgets the steps.
    void everyKindOfChangeIsUndoneAndRedone() {
        Program p;
        // Eight words, so that a shuffle cannot give the same order back by chance.
        p.folder.write("Dictionaries/Words.nkd", searchWords() + Word0 + Word1 + Word2);
        QVERIFY(p.startAndShow());
        std::vector<std::vector<WordRecord>> states{rows(p.app)};
        QTest::keyClicks(p.find<QLineEdit>("MeaningTxt"), QStringLiteral(" else"));
        p.click("cmdStore");
        states.push_back(rows(p.app));
        p.click("cmdNext");
        p.answer(Answer::Yes);
        p.click("cmdDelete");
        states.push_back(rows(p.app));
        whenOpen(QStringLiteral("Sort"), [](QWidget* d) {
            choose(d, "optComment");
            clickButton(d, "cmdOk");
        });
        p.answer(Answer::No); // do not save first
        p.answer(Answer::OK); // done
        p.click("cmdSort");
        states.push_back(rows(p.app));
        p.answer(Answer::Yes);
        p.answer(Answer::No); // do not save first
        p.action("mnuShuffle")->trigger();
        states.push_back(rows(p.app));
        QAction* undo = p.action("mnuUndo");
        QAction* redo = p.action("mnuRedo");
        const QString steps[] = {"Store word 0", "Delete word 1", "Sort by Comment", "Shuffle"};
        for (int i = 3; i >= 0; --i) {
            QVERIFY2(states[i + 1] != states[i], qPrintable(steps[i]));
            QCOMPARE(undo->text(), "&Undo " + steps[i]);
            undo->trigger();
            QVERIFY2(rows(p.app) == states[i], qPrintable(steps[i]));
        }
        QVERIFY(!undo->isEnabled() && !p.app.store.isChanged); // as the file on disk
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(redo->text(), "&Redo " + steps[i]);
            redo->trigger();
            QVERIFY2(rows(p.app) == states[i + 1], qPrintable(steps[i]));
        }
        p.answer(Answer::No); // do not save
        p.answerFile(p.folder.fsPath("Dictionaries/Words.nkd"));
        p.action("mnuOpen")->trigger();
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    }

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

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
