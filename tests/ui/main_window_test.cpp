// The main window driven by its controls' names, every message box answered from a script.
#include "core/sign_lists.h"
#include "core/text.h"
#include "display/render.h"
#include "editing/commands.h"
#include "main_program.h"
#include "ui/screen_fit.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QTimer>

#include <QCheckBox>
#include <QClipboard>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <functional>

#include <memory>

using namespace nebkaro;
using namespace nebkaro::uitest;

class MainWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { scriptDialogs(); }
    void cleanup() { verifyNoUnexpectedQuestion(); }

    void startUpWithASettingsFileShowsTheFirstWord() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        QVERIFY(QtDialogs::prompts().empty());
        QCOMPARE(p.window->windowTitle(),
                 QStringLiteral("Nebkaro Ver: 1.0.0    Dictionary: Words.nkd"));
        QCOMPARE(p.find<QLineEdit>("GardinerTxt")->text(), QStringLiteral("A1-G17"));
        QCOMPARE(p.find<QLineEdit>("TransLitTxt")->text(), QStringLiteral("im"));
        QCOMPARE(p.find<QLineEdit>("TransLitTxt")->font().family(),
                 QStringLiteral("Transliteration"));
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("who"));
        QCOMPARE(p.find<QLineEdit>("CommentTxt")->text(), QStringLiteral("first"));
        QCOMPARE(p.find<QLabel>("RichGardinerlbl")->text(),
                 QStringLiteral("A1(0,0) - G17(330,0) "));
        QCOMPARE(p.find<QLineEdit>("txtNumber")->text(), QStringLiteral("0"));
        // The two signs at their natural size, side by side and centred in the display area.
        auto* a1 = p.find<QLabel>("mainGlyphPic0");
        auto* g17 = p.find<QLabel>("mainGlyphPic1");
        QVERIFY(a1->isVisible() && g17->isVisible());
        QVERIFY(!p.find<QLabel>("mainGlyphPic2")->isVisible());
        QCOMPARE(a1->size(), QSize(20, 36));
        QCOMPARE(g17->size(), QSize(28, 40));
        QCOMPARE(g17->x() - a1->x(), 22); // 330 twips
        const QRect area = p.find<QFrame>("DispAreaShp")->geometry();
        const int wordCentre = (a1->x() + g17->geometry().right() + 1) / 2;
        QVERIFY(qAbs(wordCentre - area.center().x()) <= 1);
        QVERIFY(qAbs((g17->y() + 20) - area.center().y()) <= 1);
        // The first of three words: the progress bar is empty.
        QVERIFY(!p.find<QFrame>("shpProgress")->isVisible());
    }

    void startUpWithoutSettingsShowsNoticeAboutAndHeaderInOrder() {
        Program p;
        QStringList opened;
        whenModal(QStringLiteral("About"), [&](QWidget* about) {
            opened << about->objectName();
            QCOMPARE(about->findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
                     QStringLiteral("Version: 1.0.0"));
            QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("cmdOK")),
                              Qt::LeftButton);
            whenModal(QStringLiteral("frmHeader"), [&](QWidget* header) {
                opened << header->objectName();
                QCOMPARE(header->windowTitle(), p.folder.file("Dictionaries/Words.nkd"));
                QCOMPARE(header->findChild<QLineEdit*>(QStringLiteral("txtHeader0"))->text(),
                         QStringLiteral("Test words"));
                QTest::mouseClick(header->findChild<QPushButton*>(QStringLiteral("Command1")),
                                  Qt::LeftButton);
            });
        });
        QVERIFY(p.startAndShow());
        QCOMPARE(opened, (QStringList{"About", "frmHeader"}));
        QCOMPARE(messageTexts(),
                 std::vector<std::string>{"Settings file not found, applying default settings"});
        QCOMPARE(QtDialogs::prompts()[0].title, std::string("Settings not found"));
        QCOMPARE(QtDialogs::prompts()[0].icon, Icon::Exclamation);
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("who"));
        // Quitting with nothing to save asks nothing and writes the settings afresh.
        QVERIFY(!p.folder.exists("System/Settings.nks"));
        p.click("cmdQuit");
        QVERIFY(p.app.endRequested);
        QVERIFY(!p.window->isVisible());
        QCOMPARE(p.folder.read("System/Settings.nks"),
                 QByteArray("Nebkaro Settings: \r\n\r\nLibrary = Basic\r\nDirection = Left\r\n"
                            "Dictionary Name = Words.nkd\r\nShow About = True\r\n"
                            "Show Dictionary Info = True\r\n\r\n"));
    }

    void missingDictionaryAnsweredCancelEndsWithoutWriting() {
        Program p;
        p.folder.settings(false, false, "Gone.nkd");
        QtDialogs::pushAnswer(Answer::Cancel);
        QVERIFY(!p.window->startUp(""));
        QVERIFY(p.app.endRequested);
        QCOMPARE(p.app.exitCode, 0);
        QCOMPARE(QtDialogs::prompts().size(), std::size_t(1));
        const auto& q = QtDialogs::prompts()[0];
        QCOMPARE(q.text, "The dictionary: '" + p.folder.path() +
                             "/Dictionaries/Gone.nkd' was not found.\r\nClick 'OK' to load "
                             "another dictionary\r\nClick 'Cancel' to Quit");
        QCOMPARE(q.title, std::string("Dictionary Not Found"));
        QCOMPARE(q.buttons, Buttons::OKCancel);
        QCOMPARE(q.icon, Icon::Exclamation);
        QVERIFY(p.folder.read("System/Settings.nks").contains("Gone.nkd"));
    }

    void commandLineDictionaryWinsWithQuotesRemoved() {
        Program p;
        p.folder.settings(false, false, "Gone.nkd");
        p.folder.write("Other words.nkd",
                       "\"R\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"chick\",\"\"\r\n");
        QVERIFY(p.startAndShow("\"" + p.folder.path() + "/Other words.nkd\""));
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->text(), QStringLiteral("chick"));
        QVERIFY(p.window->windowTitle().endsWith(QStringLiteral("Dictionary: Other words.nkd")));
    }

    void headerDialogRefusesLAndKeepsTheHeader() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        bool refusedAndOpen = false;
        whenModal(QStringLiteral("frmHeader"), [&](QWidget* header) {
            auto* box0 = header->findChild<QLineEdit*>(QStringLiteral("txtHeader0"));
            auto* ok = header->findChild<QPushButton*>(QStringLiteral("Command1"));
            box0->setText(QStringLiteral("L"));
            QTest::mouseClick(ok, Qt::LeftButton);
            refusedAndOpen = header->isVisible() && box0->text().isEmpty();
            box0->setText(QStringLiteral("r")); // small letters are allowed
            QTest::mouseClick(ok, Qt::LeftButton);
        });
        p.action("mnuAboutDictionary")->trigger();
        QVERIFY(refusedAndOpen);
        QCOMPARE(messageTexts(), std::vector<std::string>{"First field cannot be 'L' or 'R'"});
        QCOMPARE(QtDialogs::prompts()[0].icon, Icon::Exclamation);
        QCOMPARE(p.app.store.header[0], std::string("r"));
        QCOMPARE(p.app.store.header[1], std::string("Tester"));
        QVERIFY(!p.app.store.isChanged);
    }

    void hideBoxesFollowClicksAndCtrlSequences() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        auto* gardiner = p.find<QLineEdit>("GardinerTxt");
        auto* meaning = p.find<QLineEdit>("MeaningTxt");
        const char* boxes[] = {"RichGardinerlbl", "GardinerTxt", "TransLitTxt", "MeaningTxt",
                               "CommentTxt"};
        const char* checks[] = {"ChkHideEnriched", "ChkHideGardiner", "ChkHideTrans",
                                "ChkHideMeaning", "ChkHideComment"};
        for (int i = 0; i < 5; ++i) {
            p.click(checks[i]);
            QVERIFY2(!p.find(boxes[i])->isVisible(), boxes[i]);
            p.click(checks[i]);
            QVERIFY2(p.find(boxes[i])->isVisible(), boxes[i]);
        }
        // Keys go to whatever has the focus; the window sees them first.
        p.find<QLineEdit>("CommentTxt")->setFocus();
        auto stroke = [](Qt::Key k) {
            QWidget* f = QApplication::focusWidget();
            QTest::keyPress(f, k);
            QTest::keyRelease(f, k);
        };
        stroke(Qt::Key_Control); // Ctrl and G as separate strokes
        stroke(Qt::Key_G);
        QVERIFY(!gardiner->isVisible());
        QVERIFY(p.find<QCheckBox>("ChkHideGardiner")->isChecked());
        stroke(Qt::Key_G); // G alone
        QVERIFY(!gardiner->isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_G, Qt::ControlModifier);
        QVERIFY(gardiner->isVisible());
        stroke(Qt::Key_Control); // Ctrl, another key, then M
        stroke(Qt::Key_A);
        stroke(Qt::Key_M);
        QVERIFY(meaning->isVisible());
        stroke(Qt::Key_Control);
        stroke(Qt::Key_M);
        QVERIFY(!meaning->isVisible());
        QVERIFY(p.find<QCheckBox>("ChkHideMeaning")->isChecked());
        // Hiding never touches the word.
        QCOMPARE(p.app.store.field(0, FieldMeaning), std::string("who"));
    }

    void typingAndLeavingABoxMarksTheWordEdited() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        auto* meaning = p.find<QLineEdit>("MeaningTxt");
        auto* comment = p.find<QLineEdit>("CommentTxt");
        meaning->setFocus();
        comment->setFocus(); // in and out without typing
        QVERIFY(!p.app.store.editPending);
        meaning->setFocus();
        QTest::keyClicks(meaning, "!");
        QCOMPARE(p.app.view.MeaningTxt, std::string("who!"));
        QVERIFY(!p.app.store.editPending);
        comment->setFocus();
        QVERIFY(p.app.store.editPending);
        QCOMPARE(p.app.store.field(0, FieldMeaning), std::string("who")); // until Store
    }

    void flipThenFlipTurnsTheWordAndBack() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        p.click("cmdFlip");
        QCOMPARE(p.app.store.field(0, FieldDirection), std::string("R"));
        QCOMPARE(p.find<QLabel>("RichGardinerlbl")->text(),
                 QStringLiteral("A1( 450, 0) - G17( 0, 0) "));
        QVERIFY(p.app.view.mainGlyphPic[0].picture.file.string().find("/Basic/Right/") !=
                std::string::npos);
        p.click("cmdFlip");
        QCOMPARE(p.app.store.field(0, FieldDirection), std::string("L"));
        QVERIFY(p.app.view.mainGlyphPic[0].picture.file.string().find("/Basic/Left/") !=
                std::string::npos);
        QCOMPARE(p.app.store.field(0, FieldLayout), std::string("A1( 0, 0) - G17( 330, 0) "));
        QVERIFY(p.app.store.isChanged);
        QVERIFY(!p.app.store.editPending);
        // Of the menu's direction items only Left marks the word as being edited.
        p.action("mnuRight")->trigger();
        QCOMPARE(p.app.store.field(0, FieldDirection), std::string("R"));
        QVERIFY(!p.app.store.editPending);
        p.action("mnuFlip")->trigger();
        QCOMPARE(p.app.store.field(0, FieldDirection), std::string("L"));
        QVERIFY(!p.app.store.editPending);
        p.action("mnuLeft")->trigger(); // already Left: nothing turns, but the flag is set
        QCOMPARE(p.app.store.field(0, FieldDirection), std::string("L"));
        QVERIFY(p.app.store.editPending);
    }

    void rightClickOpensThePopUpOnlyInsideTheDisplayArea() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        auto* surface = p.find<QWidget>("MainSurface");
        const QRect area = p.find<QFrame>("DispAreaShp")->geometry();
        auto* popup = p.find<QMenu>("mnuFieldEdit");
        QVERIFY(popup);
        QCOMPARE(popup->actions().size(), 6);
        QCOMPARE(popup->actions().back()->text(),
                 QStringLiteral("Copy transliteration as Unicode"));
        QTest::mouseClick(surface, Qt::RightButton, {}, QPoint(area.left() - 2, area.center().y()));
        QTest::mouseClick(surface, Qt::RightButton, {},
                          QPoint(area.center().x(), area.bottom() + 3));
        QVERIFY(!popup->isVisible());
        QTest::mouseClick(surface, Qt::LeftButton, {}, area.center());
        QVERIFY(!popup->isVisible());
        QTest::mouseClick(surface, Qt::RightButton, {}, area.center());
        QVERIFY(popup->isVisible());
        popup->close();
    }

    void resizingNeverGoesBelow6960TwipsAndAWidthGivenByHandStays() {
        Program p;
        p.folder.settings(false, false);
        p.folder.write("Dictionaries/Words.nkd",
                       "\"Test words\",\"Tester\",\"1 May 2024\",\"\",\"\",\"\",\"\"\r\n"
                       "\"L\",\"B\",\"A1(0,0) - G17(330,0) \",\"A1-G17\",\"im\",\"who\",\"\"\r\n"
                       "\"L\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"chick\",\"\"\r\n"
                       "\"L\",\"B\",\"N35(0,0) - N35(13500,0) \",\"N35-N35\",\"nn\",\"\",\"\"\r\n");
        QVERIFY(p.startAndShow());
        p.window->resize(300, p.window->height());
        QTRY_COMPARE(p.window->width(), 464);
        QCOMPARE(p.app.view.windowWidth, 6960);
        p.window->resize(700, p.window->height());
        QTRY_COMPARE(p.window->width(), 700);
        QCOMPARE(p.app.view.geometry.DispAreaShp.width, 700 * 15 - 500);
        QCOMPARE(p.find<QFrame>("DispAreaShp")->width(), (700 * 15 - 500 + 7) / 15);
        QCOMPARE(p.find<QLineEdit>("MeaningTxt")->width(), (700 * 15 - 800 + 7) / 15);
        QCOMPARE(p.find<QLineEdit>("TransLitTxt")->width(), (700 * 15 - 1400 + 7) / 15);
        // The word stays centred in the wider area.
        const QRect area = p.find<QFrame>("DispAreaShp")->geometry();
        auto* a1 = p.find<QLabel>("mainGlyphPic0");
        auto* g17 = p.find<QLabel>("mainGlyphPic1");
        QVERIFY(qAbs((a1->x() + g17->geometry().right() + 1) / 2 - area.center().x()) <= 1);
        // The next word keeps the width given by hand; a wider word widens the window, and
        // the next narrow word brings back the width given by hand.
        p.click("cmdNext");
        QCOMPARE(p.window->width(), 700);
        p.click("cmdNext");
        QVERIFY(p.window->width() > 900);
        p.click("cmdFirst");
        QCOMPARE(p.window->width(), 700);
    }

    void quitAnsweredCancelStaysAndWritesNoSettings() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        const QByteArray before = p.folder.read("System/Settings.nks");
        const QByteArray words = p.folder.read("Dictionaries/Words.nkd");
        p.app.settings.direction = Direction::Right; // would be written by any way out
        p.app.store.isChanged = true;
        QtDialogs::pushAnswer(Answer::Cancel);
        p.action("mnuQuit")->trigger();
        QCOMPARE(QtDialogs::prompts().back().text,
                 std::string("Do you want to save before quitting?"));
        QCOMPARE(QtDialogs::prompts().back().title, std::string("Quitting"));
        QCOMPARE(QtDialogs::prompts().back().buttons, Buttons::YesNoCancel);
        QVERIFY(p.window->isVisible());
        QVERIFY(!p.app.endRequested);
        QCOMPARE(p.folder.read("System/Settings.nks"), before);
        // No: the program ends without saving the words, and the settings are written.
        QSignalSpy ended(p.window.get(), &MainWindow::programEnded);
        QtDialogs::pushAnswer(Answer::No);
        p.click("cmdQuit");
        QVERIFY(p.app.endRequested);
        QCOMPARE(ended.count(), 1);
        QVERIFY(!p.window->isVisible());
        QVERIFY(p.folder.read("System/Settings.nks").contains("Direction = Right"));
        QCOMPARE(p.folder.read("Dictionaries/Words.nkd"), words);
    }

    void closingTheWindowAsksAndWritesSettings() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        QTest::keyClicks(p.find<QLineEdit>("MeaningTxt"), "!"); // an edit not yet stored
        QtDialogs::pushAnswer(Answer::No);
        QVERIFY(p.window->close());
        QCOMPARE(QtDialogs::prompts().back().buttons, Buttons::YesNoCancel);
        QCOMPARE(QtDialogs::prompts().back().icon, Icon::Question);
        QCOMPARE(QtDialogs::prompts().back().title, std::string());
        QVERIFY(p.app.endRequested);
        QVERIFY(p.folder.exists("System/Settings.nks"));
    }

    void saveImageProposesTheGardinerNameAndCancelWritesNothing() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        p.app.view.GardinerTxt = "A1:D21*X1";
        QtDialogs::pushFile(std::nullopt);
        p.action("mnuSaveGlyphImage")->trigger();
        QCOMPARE(QtDialogs::prompts().size(), std::size_t(1));
        QCOMPARE(QtDialogs::prompts()[0].kind, std::string("save"));
        QCOMPARE(QtDialogs::prompts()[0].text, p.folder.path() + "/Images/A1-D21-X1");
        QCOMPARE(QtDialogs::prompts()[0].title,
                 std::string("Pictures (*.bmp)|*.bmp|PNG Pictures (*.png)|*.png|SVG Drawings "
                             "(*.svg)|*.svg"));
        QVERIFY(QDir(p.folder.file("Images")).isEmpty());
        QVERIFY(p.window->statusBar()->currentMessage().isEmpty());
    }

    void savedAndCopiedPicturesHoldTheWordWithItsMargin() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        // A1 and G17: 330 + 420 = 750 twips wide, 600 high, and 32 twips on every side.
        const QSize expected((750 + 64 + 14) / 15, (600 + 64 + 14) / 15);
        const char* names[] = {"word.bmp", "word.png", "word.svg"};
        for (const char* name : names) {
            const QString file = p.folder.file(QStringLiteral("Images/") + QLatin1String(name));
            QtDialogs::pushFile(std::filesystem::path(file.toStdString()));
            p.action("mnuFieldSaveImage")->trigger();
            QImage saved(file);
            QVERIFY2(!saved.isNull(), name);
            QCOMPARE(saved.size(), expected);
        }
        QCOMPARE(p.folder.read("Images/word.bmp").left(2), QByteArray("BM"));
        QVERIFY(p.folder.read("Images/word.svg").contains("<svg"));
        p.click("cmdTool12"); // Copy Word Image
        QCOMPARE(QGuiApplication::clipboard()->image().size(), expected);
    }

    void copyAsUnicodeStacksAndReportsSignsOutsideTheBlock() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        auto* copy = p.action("mnuCopyUnicode");
        QVERIFY(copy);
        copy->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromUcs4(U"\U00013000\U00013153"));
        p.click("cmdNext");
        copy->trigger(); // N35 over N35
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString::fromUcs4(U"\U00013216\U00013430\U00013216"));
        QVERIFY(QtDialogs::prompts().empty());
        p.click("cmdLast");
        p.app.store.setField(1, FieldLayout, "N35(0,0) - Q99(0,150) ");
        p.click("cmdPrev");
        copy->trigger();
        QCOMPARE(messageTexts().size(), std::size_t(1));
        QVERIFY(messageTexts()[0].find("Q99") != std::string::npos);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromUcs4(U"\U00013216"));
    }

    void aMissingPictureIsAFramedSquareNamedInTheStatusBar() {
        Program p;
        p.folder.settings(false, false);
        p.folder.write("Dictionaries/Words.nkd",
                       "\"L\",\"B\",\"A1(0,0) - Q99(330,0) \",\"A1-Q99\",\"\",\"\",\"\"\r\n");
        QVERIFY(p.startAndShow());
        auto* missing = p.find<QLabel>("mainGlyphPic1");
        QVERIFY(missing->isVisible());
        QCOMPARE(missing->size(), QSize(41, 41)); // 612 twips
        QCOMPARE(missing->frameShape(), QFrame::Box);
        QVERIFY(p.window->statusBar()->currentMessage().contains(QStringLiteral("Q99.GIF")));
        QCOMPARE(p.find<QLabel>("mainGlyphPic0")->frameShape(), QFrame::NoFrame);
        p.action("mnuShowBorder")->trigger();
        QVERIFY(p.action("mnuShowBorder")->isChecked());
        QCOMPARE(p.find<QLabel>("mainGlyphPic0")->frameShape(), QFrame::Box);
        QCOMPARE(p.find<QLabel>("mainGlyphPic0")->size(), QSize(22, 38));
        p.action("mnuShowBorder")->trigger();
        QCOMPARE(p.find<QLabel>("mainGlyphPic0")->frameShape(), QFrame::NoFrame);
    }

    void preferencesOkTakesLibraryAndCancelKeepsIt() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        QCOMPARE(p.app.lists.signCount, 4);
        whenModal(QStringLiteral("Preferences"), [](QWidget* d) {
            choose(d, "optExtended");
            choose(d, "optHigh");
            QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("cmdCancel")),
                              Qt::LeftButton);
        });
        p.click("cmdPreferences");
        QVERIFY(p.app.settings.library == Library::Basic);
        QCOMPARE(p.app.settings.printQuality, -4); // taken at once
        whenModal(QStringLiteral("Preferences"), [](QWidget* d) {
            choose(d, "optExtended");
            choose(d, "optRight");
            QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        p.action("mnuOptions")->trigger();
        QVERIFY(p.app.settings.library == Library::Extended);
        QVERIFY(p.app.settings.direction == Direction::Right);
        QCOMPARE(p.app.lists.signCount, 5);
    }

    void longOperationsShowProgressAndCountPasses() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        Windows& port = *p.app.windows;
        port.showProgress("Sorting by Meaning");
        auto* progress = p.window->findChild<QWidget*>(QStringLiteral("frmCancelDialog"));
        QVERIFY(progress && progress->isVisible());
        QCOMPARE(progress->findChild<QLabel*>(QStringLiteral("lblProcess"))->text(),
                 QStringLiteral("Sorting by Meaning"));
        port.showCounter(7);
        QCOMPARE(p.find<QLabel>("lblCounter")->text(), QStringLiteral("7"));
        port.hideProgress();
        QVERIFY(!progress->isVisible());
        QVERIFY(!p.app.sortCancelled);
        p.click("cmdLast"); // the sorted word is drawn: the count has done its work
        QVERIFY(p.find<QLabel>("lblCounter")->text().isEmpty());
    }

    void aNewWordIsComposedShownAndStored() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        whenShown(QStringLiteral("Compose"), [](QWidget* compose) {
            compose->findChild<QLineEdit*>(QStringLiteral("txtMdC"))->setText("G17 N35");
            QTest::mouseClick(compose->findChild<QPushButton*>(QStringLiteral("cmdGet")),
                              Qt::LeftButton);
            QTest::mouseClick(compose->findChild<QPushButton*>(QStringLiteral("OkCmd")),
                              Qt::LeftButton);
        });
        p.click("NewCmd");
        QVERIFY(p.app.store.newWordPending);
        QCOMPARE(p.find<QLineEdit>("txtNumber")->text(), QStringLiteral("3"));
        QCOMPARE(p.find<QLineEdit>("GardinerTxt")->text(), QStringLiteral("G17-N35"));
        QVERIFY(p.find<QLineEdit>("MeaningTxt")->text().isEmpty());
        QVERIFY(p.find<QLabel>("mainGlyphPic0")->isVisible());
        QVERIFY(p.find<QLabel>("mainGlyphPic1")->isVisible());
        QVERIFY(!p.find<QLabel>("mainGlyphPic2")->isVisible());
        QTest::keyClicks(p.find<QLineEdit>("MeaningTxt"), "owl");
        p.click("cmdStore");
        QCOMPARE(p.app.store.lastIndex, 3);
        QCOMPARE(p.app.store.field(3, FieldMeaning), std::string("owl"));
        QCOMPARE(p.app.store.field(3, FieldGardiner), std::string("G17-N35"));
        QVERIFY(p.app.store.isChanged);
    }

    void headlineFeaturesWorkOnTheStarterDictionary() {
        Program p;
        for (const char* f : {"Dictionaries/Words.nkd", "Lists/BasicList.csv", "Lists/Phonetic.csv",
                              "Lists/Trans2Code.csv"}) {
            QFile shipped(QStringLiteral(NEBKARO_DATA_DIR "/") + QLatin1String(f));
            QVERIFY(shipped.open(QIODevice::ReadOnly));
            p.folder.write(QLatin1String(f), shipped.readAll());
        }
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        const int words = p.app.store.lastIndex + 1;
        QVERIFY(words > 200);

        // Sorting by Gardiner's notation: the dialog opens on Meaning, OK works at once.
        whenModal(QStringLiteral("Sort"), [](QWidget* sort) {
            QVERIFY(sort->findChild<QRadioButton*>(QStringLiteral("optMeaning"))->isChecked());
            choose(sort, "optGardiner");
            QTest::mouseClick(sort->findChild<QPushButton*>(QStringLiteral("cmdOk")),
                              Qt::LeftButton);
        });
        QtDialogs::pushAnswer(Answer::Yes); // Do you want to proceed?
        p.action("mnuSort")->trigger();
        QTRY_VERIFY(messageTexts().size() == 2);
        QVERIFY(messageTexts().back().rfind("Done in ", 0) == 0);
        for (int w = 0; w + 1 < words; ++w) {
            std::string a = text::upper(p.app.store.field(w, FieldGardiner));
            std::string b = text::upper(p.app.store.field(w + 1, FieldGardiner));
            QVERIFY2(!GardinerGreater(a, b), p.app.store.field(w, FieldGardiner).c_str());
        }

        // One sign is a word; facing right, the typed order is the reading order.
        const std::pair<const char*, bool> lines[] = {{"R8", true}, {"G17 X1 A2", false}};
        for (const auto& [line, left] : lines) {
            p.app.settings.direction = left ? Direction::Left : Direction::Right;
            whenShown(QStringLiteral("Compose"), [line = line](QWidget* compose) {
                compose->findChild<QLineEdit*>(QStringLiteral("txtMdC"))->setText(line);
                QTest::mouseClick(compose->findChild<QPushButton*>(QStringLiteral("cmdGet")),
                                  Qt::LeftButton);
                QVERIFY(!compose->findChild<QLabel*>(QStringLiteral("Debuglbl"))->isVisible());
                QTest::mouseClick(compose->findChild<QPushButton*>(QStringLiteral("OkCmd")),
                                  Qt::LeftButton);
            });
            p.click("NewCmd");
            QTRY_VERIFY(p.app.store.newWordPending);
            QCOMPARE(p.find<QLineEdit>("GardinerTxt")->text(),
                     QString(line).replace(QLatin1Char(' '), QLatin1Char('-')));
            p.click("cmdStore");
            QCOMPARE(p.app.store.field(p.app.store.lastIndex, FieldGardiner),
                     QString(line).replace(QLatin1Char(' '), QLatin1Char('-')).toStdString());
            // The bar shows the stored word at the end of the dictionary.
            const int full = ProgressWidth(p.app.view.geometry.progressContainerWidth,
                                           p.app.store.lastIndex, p.app.store.lastIndex);
            QVERIFY(qAbs(p.find<QFrame>("shpProgress")->width() - full / 15) <= 1);
        }

        // A word number outside the dictionary is refused with the range.
        auto* number = p.find<QLineEdit>("txtNumber");
        number->setFocus();
        number->selectAll();
        QTest::keyClicks(number, QString::number(words + 5));
        QTest::keyClick(number, Qt::Key_Return);
        QVERIFY(messageTexts().back().find("Type a word number from 0 to " +
                                           std::to_string(p.app.store.lastIndex)) !=
                std::string::npos);

        // Flip All's progress box says what it does and goes when the work ends.
        QtDialogs::pushAnswer(Answer::OK); // It may take a while
        p.action("mnuAllFlip2")->trigger();
        auto* progress = p.window->findChild<QWidget*>(QStringLiteral("frmCancelDialog"));
        QVERIFY(progress && !progress->isVisible());
        QCOMPARE(progress->windowTitle(), QStringLiteral("Flipping Started"));

        // Transliteration typed in scholarly letters is kept in plain ones, and copied back.
        auto* translit = p.find<QLineEdit>("TransLitTxt");
        translit->setFocus();
        translit->selectAll();
        QApplication::clipboard()->setText(QStringLiteral("nṯr ꜥꜣ"));
        translit->paste();
        QCOMPARE(translit->text(), QStringLiteral("nTr aA"));
        p.action("mnuCopyTranslitUnicode")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("nṯr ꜥꜣ"));
    }

    void guessAndTypewriterWriteIntoTheTransliteration() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        auto* translit = p.find<QLineEdit>("TransLitTxt");
        p.click("cmdTransGuess"); // A1 has no phonetic value, G17 is m
        QCOMPARE(translit->text(), QStringLiteral("m"));
        translit->setFocus();
        p.action("mnuTypewriter")->trigger();
        QWidget* typewriter = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String("frmTypewriter") && w->isVisible()) typewriter = w;
        QVERIFY(typewriter);
        auto* space = typewriter->findChild<QPushButton*>(QStringLiteral("btnSpace"));
        QVERIFY(space);
        QTest::mouseClick(space, Qt::LeftButton);
        QCOMPARE(translit->text(), QStringLiteral("m "));
        QCOMPARE(p.app.view.TransLitTxt, std::string("m "));
        QVERIFY(p.app.view.textChanged);
    }

    // F1: the shipped page, with every key and the plain-letter code.
    void f1OpensTheHelpPage() {
        Program p;
        p.folder.settings(false, false);
        QFile page(QStringLiteral(NEBKARO_DATA_DIR "/Help/index.html"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        p.folder.write("Help/index.html", page.readAll());
        QVERIFY(p.startAndShow());
        QTest::keyClick(p.window.get(), Qt::Key_F1);
        auto* help = p.find<QWidget>("Help");
        QVERIFY(help && help->isVisible());
        const QString text = help->findChild<QTextBrowser*>("txtHelp")->toPlainText();
        for (const char* part : {"Composing a word", "Ctrl+Shift+S", "Shift+F3", "i\xcc\xaf"})
            QVERIFY2(text.contains(QString::fromUtf8(part)), part);
    }

    // Every window, from every place that opens it, with the main window in a corner of the
    // screen: each lies wholly inside the screen's free room. With NEBKARO_SCREENSHOTS naming
    // a folder, the screen is saved as each window shows.
    void everyWindowOpensInsideTheScreen() {
        Program p;
        p.folder.settings(false, false);
        QFile page(QStringLiteral(NEBKARO_DATA_DIR "/Help/index.html"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        p.folder.write("Help/index.html", page.readAll());
        QVERIFY(p.startAndShow());
        const QRect room = screenRoom(p.window.get());
        QStringList outside;
        QString corner;
        auto top = [](const char* name) -> QWidget* {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->objectName() == QLatin1String(name) && w->isVisible()) return w;
            return nullptr;
        };
        auto check = [&](QWidget* w, const char* place) {
            // The fitting after show, and after the window manager framed the window.
            static_cast<void>(
                QTest::qWaitFor([&] { return !w || room.contains(w->frameGeometry()); }, 1000));
            const QString where = corner + QLatin1Char(' ') + QLatin1String(place);
            if (!w)
                outside << where + QStringLiteral(": not shown");
            else if (!room.contains(w->frameGeometry()))
                outside << where + QStringLiteral(": %1,%2 %3x%4")
                                       .arg(w->frameGeometry().x())
                                       .arg(w->frameGeometry().y())
                                       .arg(w->frameGeometry().width())
                                       .arg(w->frameGeometry().height());
            const QString dir = qEnvironmentVariable("NEBKARO_SCREENSHOTS");
            if (!dir.isEmpty()) {
                QTest::qWait(300); // drawn
                QGuiApplication::primaryScreen()->grabWindow(0).save(
                    dir + QLatin1Char('/') + QString(where).replace(QLatin1Char(' '), '-') +
                    QStringLiteral(".png"));
            }
        };
        auto closeTop = [&](const char* name) {
            if (QWidget* w = top(name)) w->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
        for (const QPoint at : {room.topLeft(), room.bottomRight()}) {
            corner =
                at == room.topLeft() ? QStringLiteral("top-left") : QStringLiteral("bottom-right");
            const QSize frame = p.window->frameGeometry().size();
            p.window->move(std::clamp(at.x() - (at == room.topLeft() ? 0 : frame.width() - 1),
                                      room.left(), room.right()),
                           std::clamp(at.y() - (at == room.topLeft() ? 0 : frame.height() - 1),
                                      room.top(), room.bottom()));
            QCoreApplication::processEvents();
            check(p.window.get(), "main window");

            p.action("mnuTypewriter")->trigger();
            check(top("frmTypewriter"), "typewriter from Tools");
            closeTop("frmTypewriter");
            p.click("cmdTool15");
            check(top("frmTypewriter"), "typewriter from the tool bar");
            closeTop("frmTypewriter");
            p.action("mnuTransTable")->trigger();
            check(top("frmTransTable"), "transliteration table from Tools");
            closeTop("frmTransTable");
            p.click("cmdTransTable");
            check(top("frmTransTable"), "transliteration table from its button");
            closeTop("frmTransTable");
            p.action("mnuHelp")->trigger();
            check(top("Help"), "help");
            closeTop("Help");
            p.click("cmdAbout");
            check(top("About"), "about");
            closeTop("About");

            whenShown(QStringLiteral("Search"), [&](QWidget* search) {
                check(search, "search");
                choose(search, "optTranslit"); // the field the typewriter types for
                QTest::mouseClick(search->findChild<QPushButton*>("cmdTypewriter"), Qt::LeftButton);
                check(top("frmTypewriter"), "typewriter from the search");
                closeTop("frmTypewriter");
                QTest::mouseClick(search->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
            });
            p.click("cmdSearch");

            whenShown(QStringLiteral("Compose"), [&](QWidget* compose) {
                check(compose, "composer");
                // Eighteen signs widen it.
                QTest::keyClicks(compose->findChild<QLineEdit*>("txtMdC"),
                                 QStringLiteral("A1 G17 G43 N35 A1 G17 G43 N35 A1 G17 G43 N35 A1 "
                                                "G17 G43 N35 A1 G17"));
                QTest::mouseClick(compose->findChild<QPushButton*>("cmdGet"), Qt::LeftButton);
                check(compose, "composer with eighteen signs");
                whenShown(QStringLiteral("Lookup"), [&](QWidget* lookup) {
                    check(lookup, "sign browser from the composer");
                    QTest::mouseClick(lookup->findChild<QPushButton*>("cmdTypewriter"),
                                      Qt::LeftButton);
                    check(top("frmTypewriter"), "typewriter from the sign browser");
                    closeTop("frmTypewriter");
                    lookup->close();
                });
                auto* slot = compose->findChild<QWidget*>("GlyphPic0");
                QTest::mouseDClick(slot, Qt::LeftButton);
                QTest::mouseClick(compose->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
            });
            p.click("NewCmd");

            const std::pair<const char*, const char*> modal[] = {
                {"Sort", "cmdSort"},
                {"Preferences", "cmdPreferences"},
                {"frmPrintOptions", "mnuPrintMultiple"},
                {"frmHeader", "mnuAboutDictionary"},
            };
            for (const auto& [name, from] : modal) {
                whenModal(QLatin1String(name), [&, name = name](QWidget* d) {
                    check(d, name);
                    d->close();
                });
                QtDialogs::pushAnswer(Answer::No); // a question to save first, if asked
                if (QAction* a = p.action(from))
                    a->trigger();
                else
                    p.click(from);
                QtDialogs::reset();
            }

            QtDialogs::setMode(QtDialogs::Mode::Interactive);
            QTimer::singleShot(0, [&] {
                QWidget* box = QApplication::activeModalWidget();
                check(box, "message box");
                box->close();
            });
            p.app.dialogs.message("The word number must be between 0 and 2", "Phonetic Not Found",
                                  Buttons::OK, Icon::Exclamation);
            QtDialogs::setMode(QtDialogs::Mode::Scripted);
        }
        QVERIFY2(outside.isEmpty(), qPrintable(outside.join(QLatin1String("; "))));
    }

    void wordsCollectedForPrintingAreNotDroppedUnaskedOnTheWayOut() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        p.action("mnuPrint1")->trigger();
        QCOMPARE(p.window->statusBar()->currentMessage(),
                 QStringLiteral("1 word waits to be printed (Form Feed prints the page)"));
        p.click("cmdNext"); // the line stays while the page waits
        QVERIFY(p.window->statusBar()->currentMessage().startsWith(QStringLiteral("1 word")));
        QtDialogs::pushAnswer(Answer::Cancel);
        p.click("cmdQuit");
        QVERIFY(!p.app.endRequested);
        QCOMPARE(QtDialogs::prompts().back().title, std::string("Quitting"));
        QVERIFY(QtDialogs::prompts().back().text.find("1 word waits") == 0);
        QtDialogs::pushAnswer(Answer::No); // drop the page, then quit
        p.click("cmdQuit");
        QVERIFY(p.app.endRequested);
    }

    void everyControlCarriesItsNameCaptionAndTip() {
        Program p;
        p.folder.settings(false, false);
        QVERIFY(p.startAndShow());
        for (int i = 0; i <= 20; ++i)
            QVERIFY(p.find<QLabel>(QStringLiteral("mainGlyphPic%1").arg(i).toLatin1()));
        for (int i = 0; i <= 19; ++i)
            QVERIFY(p.find<QToolButton>(QStringLiteral("cmdTool%1").arg(i).toLatin1()));
        QCOMPARE(p.find<QToolButton>("cmdTool16")->toolTip(),
                 QStringLiteral("Show Transliteration Table"));
        const std::pair<const char*, const char*> labels[] = {
            {"Label1", "Enriched Notation"}, {"Label2", "Gardiner's Notation"},
            {"Label3", "Translitteration"},  {"Label4", "Meaning"},
            {"Commentlbl", "Comment"},       {"Label5", "Hide"},
        };
        for (auto [name, caption] : labels)
            QCOMPARE(p.find<QLabel>(name)->text(), QLatin1String(caption));
        QCOMPARE(p.find<QCheckBox>("ChkHideTrans")->toolTip(),
                 QStringLiteral("Hide the transliteration"));
        QCOMPARE(p.find<QLineEdit>("GardinerTxt")->toolTip(),
                 QStringLiteral("Displays the Gardiner's Notation"));
        QCOMPARE(p.find<QPushButton>("cmdFlip")->toolTip(),
                 QStringLiteral("Invert the direction of the current Word"));
        const std::pair<const char*, const char*> menus[] = {
            {"mnuFile", "&File"},          {"mnuSaveAs", "Save &As"},
            {"mnuFindNext", "Find Ne&xt"}, {"mnuSortGardiner", "Sort &Gardiner"},
            {"mnuAllFlip2", "Invert"},     {"mnuAboutDictionary", "Dictionary"},
            {"mnuPaste", "Insert &Paste"}, {"mnuCopyToPaint", "Paste Glyph Image to MS Paint"},
        };
        for (auto [name, caption] : menus) {
            QAction* a = p.action(name);
            QVERIFY2(a, name);
            QCOMPARE(a->text(), QLatin1String(caption));
        }
        QCOMPARE(p.find<QMenu>("mnuChangeAllDir")->title(), QStringLiteral("Flip All"));
        // Menu items show their keys, and a key still runs its command once.
        const std::pair<const char*, const char*> keys[] = {
            {"mnuOpen", "Ctrl+O"}, {"mnuSaveAs", "Ctrl+Shift+S"}, {"mnuNew", "Ctrl+N"},
            {"mnuFindNext", "F3"}, {"mnuPaste", "Ctrl+V"},        {"mnuHelp", "F1"},
        };
        for (auto [name, key] : keys)
            QCOMPARE(p.action(name)->shortcut(), QKeySequence(QLatin1String(key)));
        int finds = 0;
        p.app.commands.provide(CommandId::Find, [&finds](App&) { ++finds; });
        QTest::keyClick(p.window.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(finds, 1);
        // With the menu bar in the focus (Alt, or Escape out of a menu) as well.
        p.window->menuBar()->setFocus();
        QTest::keyClick(p.window->menuBar(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(finds, 2);
        // A command whose code is not part of the program yet is offered but disabled.
        for (const auto& [a, id] : std::vector<std::pair<QAction*, CommandId>>{
                 {p.action("mnuOptions"), CommandId::Options},
                 {p.action("mnuPrint1"), CommandId::PrintWord}})
            QCOMPARE(a->isEnabled(), CommandAvailable(p.app, id));
        QVERIFY(p.action("mnuOptions")->isEnabled());
    }
    // Every tool-bar button and every menu item, one after the other, with questions answered
    // from a script: nothing throws, nothing waits for an answer nobody prepared, nothing hangs
    // (windows a command opens are closed as soon as they show), and the program stays up.
    void everyToolBarButtonAndMenuItemRunsWithScriptedAnswers() {
        Program p;
        p.folder.settings(false, false);
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
        auto script = [](int round) {
            QtDialogs::reset();
            const Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel, Answer::OK};
            for (int i = 0; i < 16; ++i) QtDialogs::pushAnswer(answers[(round + i) % 4]);
            for (int i = 0; i < 4; ++i) {
                QtDialogs::pushInput(round % 2 ? std::optional<std::string>("20") : std::nullopt);
                QtDialogs::pushFile(std::nullopt);
            }
        };
        std::vector<QObject*> controls;
        for (int i = 0; i <= 19; ++i)
            controls.push_back(p.find<QToolButton>(QStringLiteral("cmdTool%1").arg(i).toLatin1()));
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
            asked += static_cast<int>(QtDialogs::prompts().size());
            const auto& unexpected = QtDialogs::unexpected();
            QVERIFY2(unexpected.empty(),
                     qPrintable(c->objectName() + ": " +
                                QString::fromStdString(unexpected.empty() ? std::string()
                                                                          : unexpected.front())));
            QVERIFY2(!p.app.endRequested, qPrintable(c->objectName()));
            QVERIFY2(p.window->isVisible(), qPrintable(c->objectName()));
        }
        closer.stop();
        // Every control was offered and enabled, and the commands did ask their questions.
        QCOMPARE(triggered + nothingToTake, static_cast<int>(controls.size()) - 1);
        QVERIFY(asked > 20);
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
