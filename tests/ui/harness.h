#pragma once
// What the window tests share: a program folder made of checked-in sign pictures, the program
// on it with every question answered from a script, ways to find and drive widgets, and the
// poppler tools to read back what was printed.
#define NEBKARO_QT_TEST
#include "fakes.h"

#include "editing/word_editing.h"
#include "ui/main_window.h"
#include "ui/qt_ports.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace nebkaro::uitest {

using testing::MemoryClipboard;
using testing::ScriptedDialogs;
using testing::ScriptedWindows;

// The named widget, action or menu under w; a missing one ends the run, naming it.
template <typename T = QWidget> T* child(const QObject* w, const QString& name) {
    T* c = w->findChild<T*>(name);
    if (!c) qFatal("no %s", qPrintable(name));
    return c;
}

inline QByteArray fixture(const QString& relative) {
    QFile f(QStringLiteral(NEBKARO_FIXTURES "/") + relative);
    if (!f.open(QIODevice::ReadOnly)) qFatal("no fixture %s", qPrintable(relative));
    return f.readAll();
}

struct Sign {
    const char* code;
    int w, h; // pixels; the picture is tests/fixtures/signs/WxH.gif
};

inline const QByteArray Header = "\"Test words\",\"Tester\",\"1 May 2024\",\"\",\"\",\"\",\"\"\r\n";
inline const QByteArray Word0 =
    "\"L\",\"B\",\"A1(0,0) - G17(330,0) \",\"A1-G17\",\"im\",\"who\",\"first\"\r\n";
inline const QByteArray Word1 =
    "\"L\",\"B\",\"N35(0,0) - N35(0,150) \",\"N35:N35\",\"nn\",\"we\",\"\"\r\n";
inline const QByteArray Word2 = "\"R\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"chick\",\"third\"\r\n";

// A program folder of four signs (A1 is 20 x 36 pixels, 300 x 540 twips), their lists and a
// dictionary of three words.
class ProgramFolder {
public:
    ProgramFolder() {
        write("Lists/BasicList.csv", "\"G17\"\r\n\"A1\"\r\n\"G43\"\r\n\"N35\"\r\n");
        write("Lists/Extendedlist.csv", "\"G17\"\r\n\"A1\"\r\n\"A1a\"\r\n\"G43\"\r\n\"N35\"\r\n");
        write("Lists/Trans2Code.csv", QByteArray("\"x\",\"x\"\r\n").repeated(255 - 31 + 1));
        write("Lists/Phonetic.csv", "\"G17\",\"m\"\r\n\"N35\",\"n\"\r\n");
        write("Dictionaries/Words.nkd", Header + Word0 + Word1 + Word2);
        addSigns(Library::Basic,
                 {{"A1", 20, 36}, {"G17", 28, 40}, {"G43", 24, 38}, {"N35", 40, 6}});
        QDir(dir_.path()).mkpath(QStringLiteral("Images"));
    }

    void addSigns(Library library, const std::vector<Sign>& signs) const {
        for (const Direction direction : {Direction::Left, Direction::Right})
            for (const Sign& s : signs)
                write(QString::fromStdString(
                          signPicturePath({}, library, direction, s.code).string()),
                      fixture(QStringLiteral("signs/%1x%2.gif").arg(s.w).arg(s.h)));
    }
    std::string path() const { return dir_.path().toStdString(); }
    QString file(const QString& relative) const { return dir_.filePath(relative); }
    std::filesystem::path fsPath(const char* relative) const {
        return std::filesystem::path(path()) / relative;
    }
    void write(const QString& relative, const QByteArray& bytes) const {
        const QString p = dir_.filePath(relative);
        QDir().mkpath(QFileInfo(p).absolutePath());
        QFile f(p);
        if (!f.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(p));
        f.write(bytes);
    }
    QByteArray read(const char* relative) const {
        QFile f(dir_.filePath(QLatin1String(relative)));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    bool exists(const QString& relative) const { return QFile::exists(dir_.filePath(relative)); }

    void settings(const char* dictionary = "Words.nkd") const {
        write("System/Settings.nks",
              QByteArray("Nebkaro Settings: \r\n\r\nLibrary = Basic\r\n"
                         "Direction = Left\r\nDictionary Name = ") +
                  dictionary + "\r\nShow About = False\r\nShow Dictionary Info = False\r\n\r\n");
    }

private:
    QTemporaryDir dir_;
};

// The program's own event pump, with a hook a test runs at every pause of long work.
struct HookedEventPump : QtEventPump {
    std::function<void()> onYield;
    void yield() override {
        QtEventPump::yield();
        if (onYield) onYield();
    }
};

// The program on a fresh folder, started without its About box and dictionary information.
struct Program {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    QtClipboard clipboard;
    HookedEventPump events;
    FolderSignPictures pictures{folder.path()};
    AtomicFileWriter writer;
    App app{dialogs, clipboard, events, pictures, writer};
    std::unique_ptr<MainWindow> window;

    explicit Program(bool settings = true) {
        if (settings) folder.settings();
        app.home = folder.path();
        installEditing(app);
        window = std::make_unique<MainWindow>(app);
    }
    template <typename T = QWidget> T* find(const char* name) const {
        return child<T>(window.get(), QLatin1String(name));
    }
    QAction* action(const char* name) const { return find<QAction>(name); }
    void click(const char* name) const {
        auto* b = find<QAbstractButton>(name);
        QVERIFY2(b->isEnabled(), name);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    bool startAndShow() {
        if (!window->startUp({})) return false;
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get());
    }
    void answer(Answer a) { dialogs.answers.push_back(a); }
    void answerFile(std::optional<std::filesystem::path> f) { dialogs.files.push_back(f); }
};

// Radio buttons and check boxes take clicks on their box and caption only.
inline void choose(QWidget* dialog, const char* option) {
    auto* b = child<QAbstractButton>(dialog, QLatin1String(option));
    QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(6, b->height() / 2));
}

inline void clickButton(QWidget* parent, const char* name) {
    QTest::mouseClick(child<QAbstractButton>(parent, QLatin1String(name)), Qt::LeftButton);
}

inline QWidget* shownWindow(const QString& name) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && w->isVisible()) return w;
    return nullptr;
}

// Runs act on the window or dialog named name as soon as it is shown, from inside whatever
// event loop waits for it (a modal dialog's own). It must show within a few seconds.
inline void whenOpen(const QString& name, std::function<void(QWidget*)> act) {
    auto* timer = new QTimer;
    QElapsedTimer clock;
    clock.start();
    QObject::connect(timer, &QTimer::timeout, [=] {
        QWidget* w = shownWindow(name);
        if (!w && clock.elapsed() < 5000) return;
        timer->stop();
        timer->deleteLater();
        w ? act(w) : qWarning("no window %s was shown", qPrintable(name));
    });
    timer->start(10);
}

// The output of a poppler tool run on a PDF (pdftotext with "-" last, pdfinfo, pdfimages).
inline QString poppler(const char* tool, QStringList arguments) {
    QProcess p;
    p.start(QLatin1String(tool), arguments);
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

// The text of a PDF (pages parted by form feeds); extra arguments go before the file name.
inline QString pdfText(const std::filesystem::path& pdf, QStringList extra = {}) {
    return poppler("pdftotext", extra << QString::fromStdString(pdf.string()) << "-");
}

inline int pdfPageCount(const std::filesystem::path& pdf) {
    for (const QString& line :
         poppler("pdfinfo", {QString::fromStdString(pdf.string())}).split('\n'))
        if (line.startsWith(QLatin1String("Pages:"))) return line.mid(6).trimmed().toInt();
    return -1;
}

// Pixel widths of the pictures placed in the PDF (their soft masks left out).
inline std::vector<int> pdfImageWidths(const std::filesystem::path& pdf) {
    const QStringList lines = poppler("pdfimages", {"-list", QString::fromStdString(pdf.string())})
                                  .split('\n', Qt::SkipEmptyParts);
    std::vector<int> widths;
    for (const QString& line : lines.mid(2)) { // two heading lines
        const QStringList cols = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (cols.size() > 3 && cols[2] == QLatin1String("image")) widths.push_back(cols[3].toInt());
    }
    return widths;
}

} // namespace nebkaro::uitest
