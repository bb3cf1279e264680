#pragma once
// A small program folder for the printing tests: sign pictures written as GIF bytes, a
// dictionary of a few dozen words, an App over scripted ports, and pdftotext to read back
// what was printed.
#include "core/app.h"
#include "core/files.h"
#include "core/quiet_ports.h"

#include <QDir>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <cmath>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace printtest {

using namespace nebkaro;

// A GIF of w x h pixels with a four-colour palette: 0 white, 1 black, 2 dark red, 3
// transparent. The image data is LZW with a clear code before every second pixel, which
// keeps every code three bits wide: large, but valid for every decoder.
inline std::string gifBytes(int w, int h, const std::function<int(int, int)>& colour) {
    std::string out = "GIF89a";
    auto u16 = [&](int v) {
        out += static_cast<char>(v & 0xFF);
        out += static_cast<char>((v >> 8) & 0xFF);
    };
    u16(w);
    u16(h);
    out += static_cast<char>(0x91); // global colour table of 4 entries
    out += '\0';
    out += '\0';
    const unsigned char palette[12] = {255, 255, 255, 0, 0, 0, 140, 20, 20, 0, 200, 0};
    out.append(reinterpret_cast<const char*>(palette), 12);
    const unsigned char control[] = {0x21, 0xF9, 0x04, 0x01, 0, 0, 3, 0}; // 3 is transparent
    out.append(reinterpret_cast<const char*>(control), sizeof control);
    out += static_cast<char>(0x2C);
    u16(0);
    u16(0);
    u16(w);
    u16(h);
    out += '\0';
    out += static_cast<char>(2); // minimum code size

    std::string data;
    unsigned bits = 0;
    int count = 0;
    auto put = [&](unsigned code) {
        bits |= code << count;
        count += 3;
        while (count >= 8) {
            data += static_cast<char>(bits & 0xFF);
            bits >>= 8;
            count -= 8;
        }
    };
    int n = 0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (n++ % 2 == 0) put(4); // clear
            put(static_cast<unsigned>(colour(x, y) & 3));
        }
    put(5); // end of information
    if (count > 0) data += static_cast<char>(bits & 0xFF);
    for (std::size_t i = 0; i < data.size(); i += 255) {
        const std::size_t len = std::min<std::size_t>(255, data.size() - i);
        out += static_cast<char>(len);
        out.append(data, i, len);
    }
    out += '\0';
    out += static_cast<char>(0x3B);
    return out;
}

// Shapes that look enough like their signs to be told apart in a printed page.
inline std::function<int(int, int)> shapeOf(const std::string& code, int w, int h) {
    const double cx = (w - 1) / 2.0, cy = (h - 1) / 2.0;
    if (code == "N5") // sun: a ring with a dot
        return [=](int x, int y) {
            const double r = std::hypot(x - cx, y - cy);
            return r < 3 ? 2 : (r > cx - 4 && r <= cx) ? 1 : 3;
        };
    if (code == "N35") // water: a zigzag line
        return [=](int x, int y) {
            return std::abs(y - (2 + (x % 8 < 4 ? x % 4 : 3 - x % 4))) < 1 ? 1 : 3;
        };
    if (code == "X1") // bread: a half disc
        return [=](int x, int y) {
            return (y >= cy && std::hypot(x - cx, (y - h) * 2.0) < cx) ? 1 : 3;
        };
    if (code == "Z1") // stroke
        return [=](int x, int) { return std::abs(x - cx) < 2 ? 1 : 3; };
    if (code == "D21") // mouth: an outlined ellipse
        return [=](int x, int y) {
            const double e = std::hypot((x - cx) / cx, (y - cy) / cy);
            return e <= 1 ? (e > 0.75 ? 1 : 0) : 3;
        };
    // Anything else: a framed box with a diagonal, in red.
    return [=](int x, int y) {
        if (x == 0 || y == 0 || x == w - 1 || y == h - 1) return 1;
        return std::abs(x * h - y * w) < w + h ? 2 : 0;
    };
}

// Dialogs that answer from queues and record every prompt.
struct Prompts : Dialogs {
    std::vector<std::string> asked; // "message: text", "save: proposed"
    std::deque<Answer> answers;
    std::deque<std::optional<std::filesystem::path>> files;

    Answer message(const std::string& text, const std::string&, Buttons b, Icon) override {
        asked.push_back("message: " + text);
        if (b == Buttons::OK) return Answer::OK;
        if (answers.empty()) return Answer::Cancel;
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::string> input(const std::string& p, const std::string&,
                                     const std::string&) override {
        asked.push_back("input: " + p);
        return std::nullopt;
    }
    std::optional<std::filesystem::path> openFile(const std::string&,
                                                  const std::filesystem::path& p) override {
        asked.push_back("open: " + p.string());
        return std::nullopt;
    }
    std::optional<std::filesystem::path> saveFile(const std::string& filter,
                                                  const std::filesystem::path& p) override {
        asked.push_back("save: " + p.filename().string() + " " + filter);
        if (files.empty()) return std::nullopt;
        auto f = files.front();
        files.pop_front();
        return f;
    }
    void beep() override { asked.push_back("beep"); }
};

struct StatusWindows : Windows {
    std::vector<std::string> status;
    void showStatus(const std::string& s) override { status.push_back(s); }
};

struct Sign {
    const char* code;
    int w, h; // pixels
};
inline const Sign Signs[] = {{"A1", 28, 40}, {"G17", 34, 40}, {"N5", 26, 26},  {"N35", 40, 8},
                             {"X1", 28, 14}, {"Z1", 8, 36},   {"D21", 30, 14}, {"M17", 12, 40}};

// A word of the test dictionary: meanings are unique words that pdftotext can find.
struct TestWord {
    const char* layout;
    const char* gardiner;
    const char* translit;
    const char* meaning;
    const char* comment;
};
inline const TestWord Words[] = {
    {"G17(0,0) - M17(510,0) ", "G17-M17", "mi", "likewise", "preposition"},
    {"N5(0,0) - Z1(390,0) ", "N5:Z1", "ra", "sunshine", "the sun god"},
    {"N35(0,0) ", "N35", "n", "belonging", "genitive"},
    {"X1(0,0) - D21(0,210) ", "X1:D21", "t", "breadloaf", "a loaf of bread"},
    {"D21(0,0) - N35(0,210) - A1(450,0) ", "D21:N35-A1", "rn", "namesake", "with a man"},
    {"A1(0,0) - Z1(420,0) ", "A1-Z1", "s", "gentleman", "determinative"},
    {"M17(0,0) - N35(180,150) - X1(180,300) ", "M17-N35:X1", "int", "valley", "a valley"},
    {"UNKNOWN(0,0) - N5(612,0) ", "Q99-N5", "xx", "mysterious", "missing picture"},
};

// The program folder and an App over it with the given number of words (cycling through
// Words, meanings numbered from the second round: "likewise", ..., "likewise2").
struct Fixture {
    QTemporaryDir dir;
    Prompts dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    std::unique_ptr<FolderSignPictures> pictures;
    AtomicFileWriter files;
    StatusWindows windows;
    std::unique_ptr<App> app;

    explicit Fixture(int wordCount = 24) {
        const std::filesystem::path home = dir.path().toStdString();
        for (const Direction direction : {Direction::Left, Direction::Right})
            for (const Sign& s : Signs) {
                const auto file = signPicturePath(home, Library::Basic, direction, s.code);
                std::filesystem::create_directories(file.parent_path());
                std::ofstream(file, std::ios::binary)
                    << gifBytes(s.w, s.h, shapeOf(s.code, s.w, s.h));
            }
        pictures = std::make_unique<FolderSignPictures>(home);
        app = std::make_unique<App>(dialogs, clipboard, events, *pictures, files);
        app->home = home;
        app->windows = &windows;
        app->store.dictionaryName = "Starter.nkd";
        for (int i = 0; i < wordCount; ++i) app->store.setRow(i, record(i));
        app->store.lastIndex = std::max(wordCount - 1, 0);
        app->store.currentIndex = 0;
    }

    static std::string meaningOf(int i) {
        const int n = static_cast<int>(std::size(Words));
        std::string m = Words[i % n].meaning;
        if (i >= n) m += std::to_string(i / n + 1);
        return m;
    }
    static WordRecord record(int i) {
        const TestWord& w = Words[i % static_cast<int>(std::size(Words))];
        return {"L", "B", w.layout, w.gardiner, w.translit, meaningOf(i), w.comment};
    }
    std::filesystem::path file(const std::string& name) const {
        return std::filesystem::path(dir.path().toStdString()) / name;
    }
};

// The text of a PDF as pdftotext reads it (pages parted by form feeds); extra arguments
// before the file name, e.g. a crop box.
inline QString pdfText(const std::filesystem::path& pdf, QStringList extra = {}) {
    QProcess p;
    extra << QString::fromStdString(pdf.string()) << QStringLiteral("-");
    p.start(QStringLiteral("pdftotext"), extra);
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

inline int pdfPageCount(const std::filesystem::path& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {QString::fromStdString(pdf.string())});
    p.waitForFinished(60000);
    for (const QString& line : QString::fromUtf8(p.readAllStandardOutput()).split('\n'))
        if (line.startsWith(QLatin1String("Pages:"))) return line.mid(6).trimmed().toInt();
    return -1;
}

// Pixel widths of the images placed in the PDF, as pdfimages lists them (their soft masks
// left out).
inline std::vector<int> pdfImageWidths(const std::filesystem::path& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdfimages"),
            {QStringLiteral("-list"), QString::fromStdString(pdf.string())});
    p.waitForFinished(60000);
    const QStringList lines =
        QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    std::vector<int> widths;
    for (const QString& line : lines.mid(2)) { // two heading lines
        const QStringList cols = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (cols.size() > 3 && cols[2] == QLatin1String("image")) widths.push_back(cols[3].toInt());
    }
    return widths;
}

inline int pdfImageCount(const std::filesystem::path& pdf) {
    return static_cast<int>(pdfImageWidths(pdf).size());
}

} // namespace printtest
