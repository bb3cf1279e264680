#pragma once
// A small program folder made for one window test, and helpers to drive modal dialogs.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>

namespace nebkaro::uitest {

// A GIF whose picture is w x h pixels (the logical screen), with one white pixel drawn.
inline QByteArray gif(int w, int h) {
    QByteArray b("GIF89a");
    b += char(w & 0xff);
    b += char(w >> 8);
    b += char(h & 0xff);
    b += char(h >> 8);
    b += QByteArray::fromHex("800000"               // global colour table of two colours
                             "000000ffffff"         // black, white
                             "2c000000000100010000" // one 1 x 1 image at 0,0
                             "02024401003b");       // its LZW data, trailer
    return b;
}

class ProgramFolder {
public:
    ProgramFolder() {
        write("Lists/BasicList.csv", "\"G17\"\r\n\"A1\"\r\n\"G43\"\r\n\"N35\"\r\n");
        write("Lists/Extendedlist.csv", "\"G17\"\r\n\"A1\"\r\n\"A1a\"\r\n\"G43\"\r\n\"N35\"\r\n");
        QByteArray t2c;
        for (int i = 31; i <= 255; ++i) t2c += "\"x\",\"x\"\r\n";
        write("Lists/Trans2Code.csv", t2c);
        write("Lists/Phonetic.csv", "\"G17\",\"m\"\r\n\"N35\",\"n\"\r\n");
        write("Dictionaries/Words.nkd",
              "\"Test words\",\"Tester\",\"1 May 2024\",\"\",\"\",\"\",\"\"\r\n"
              "\"L\",\"B\",\"A1(0,0) - G17(330,0) \",\"A1-G17\",\"im\",\"who\",\"first\"\r\n"
              "\"L\",\"B\",\"N35(0,0) - N35(0,150) \",\"N35:N35\",\"nn\",\"we\",\"\"\r\n"
              "\"R\",\"B\",\"G43(0,0) \",\"G43\",\"w\",\"chick\",\"third\"\r\n");
        // Signs of every direction; A1 is 20 x 36 pixels (300 x 540 twips).
        for (const char* dir : {"Left", "Right"}) {
            const QString d = QStringLiteral("Basic/%1/").arg(QLatin1String(dir));
            write(d + "A/A1.GIF", gif(20, 36));
            write(d + "G/G17.GIF", gif(28, 40));
            write(d + "G/G43.GIF", gif(24, 38));
            write(d + "N/N35.GIF", gif(40, 6));
        }
        QDir(dir_.path()).mkpath(QStringLiteral("Images"));
    }

    std::string path() const { return dir_.path().toStdString(); }
    QString file(const QString& relative) const { return dir_.filePath(relative); }

    void write(const QString& relative, const QByteArray& bytes) const {
        const QString p = dir_.filePath(relative);
        QDir().mkpath(QFileInfo(p).absolutePath());
        QFile f(p);
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
    }
    void write(const char* relative, const QByteArray& bytes) const {
        write(QString::fromLatin1(relative), bytes);
    }
    QByteArray read(const QString& relative) const {
        QFile f(dir_.filePath(relative));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    bool exists(const QString& relative) const { return QFile::exists(dir_.filePath(relative)); }

    void settings(bool showAbout, bool showInfo, const char* dictionary = "Words.nkd") const {
        write("System/Settings.nks",
              QByteArray("Nebkaro Settings: \r\n\r\nLibrary = Basic\r\n"
                         "Direction = Left\r\nDictionary Name = ") +
                  dictionary + "\r\nShow About = " + (showAbout ? "True" : "False") +
                  "\r\nShow Dictionary Info = " + (showInfo ? "True" : "False") + "\r\n\r\n");
    }

private:
    QTemporaryDir dir_;
};

// Runs act on the modal dialog named name as soon as it is open (from inside its event loop).
// The dialog must open within a few seconds.
inline void whenModal(const QString& name, std::function<void(QWidget*)> act) {
    auto* timer = new QTimer;
    auto* clock = new QElapsedTimer;
    clock->start();
    QObject::connect(timer, &QTimer::timeout, [=] {
        QWidget* w = QApplication::activeModalWidget();
        if (w && w->objectName() == name) {
            timer->stop();
            timer->deleteLater();
            delete clock;
            act(w);
        } else if (clock->elapsed() > 5000) {
            timer->stop();
            timer->deleteLater();
            delete clock;
            qWarning("no modal %s opened", qPrintable(name));
        }
    });
    timer->start(10);
}

// Runs act on the top-level window named name as soon as it is shown (from inside whatever
// event loop waits for it).
inline void whenShown(const QString& name, std::function<void(QWidget*)> act) {
    auto* timer = new QTimer;
    auto* clock = new QElapsedTimer;
    clock->start();
    QObject::connect(timer, &QTimer::timeout, [=] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->objectName() == name && w->isVisible()) {
                timer->stop();
                timer->deleteLater();
                delete clock;
                act(w);
                return;
            }
        }
        if (clock->elapsed() > 5000) {
            timer->stop();
            timer->deleteLater();
            delete clock;
            qWarning("no window %s was shown", qPrintable(name));
        }
    });
    timer->start(10);
}

} // namespace nebkaro::uitest
