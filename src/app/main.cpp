// Nebkaro: the dictionary of hieroglyphic words, as a desktop program.
//
//   nebkaro [--home DIR] [--screenshot FILE] [--version] [--help] [DICTIONARY]
//
// DICTIONARY replaces the remembered dictionary (double quotes are removed; the words of an
// unquoted path with blanks are joined again). --home names the program folder (System,
// Lists, Dictionaries, Images, Fonts and the sign pictures). Without it, the folder of the
// executable is the program folder when the build staged the shipped data there; an installed
// program reads its shipped files from <prefix>/share/nebkaro and keeps the user's settings,
// dictionaries and pictures in $XDG_DATA_HOME/nebkaro, made on the first start. --screenshot
// starts as usual but unattended: the About box and the dictionary information dialog are not
// shown, messages go to the standard error and are answered with their first button, file
// dialogs count as cancelled. Once the first word is drawn the main window is saved as a PNG
// picture and the program ends without asking or writing anything.
#include "core/app.h"
#include "core/errors.h"
#include "core/files.h"
#include "core/folders.h"
#include "editing/word_editing.h"
#include "ui/main_window.h"
#include "ui/qt_ports.h"

#include <QApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QIcon>
#include <QPixmap>
#include <QTimer>

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

using namespace nebkaro;

namespace {

struct CommandLine {
    QString home;
    QString screenshot;
    std::string dictionary;
    QString error;
};

CommandLine parse(const QStringList& args) {
    CommandLine c;
    QStringList rest;
    for (int i = 1; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == QLatin1String("--home") || a == QLatin1String("--screenshot")) {
            if (i + 1 >= args.size()) {
                c.error = a + QStringLiteral(" needs a value");
                return c;
            }
            (a == QLatin1String("--home") ? c.home : c.screenshot) = args[++i];
        } else {
            rest << a;
        }
    }
    c.dictionary = rest.join(QLatin1Char(' ')).toStdString();
    return c;
}

void usage(std::ostream& out) {
    out << "usage: nebkaro [--home DIR] [--screenshot FILE] [--version] [--help] [DICTIONARY]\n"
           "  DICTIONARY         a dictionary to open instead of the remembered one\n"
           "  --home DIR         one folder for the program's files and the user's (default:\n"
           "                     the executable's folder when it holds them, otherwise\n"
           "                     <prefix>/share/nebkaro and $XDG_DATA_HOME/nebkaro)\n"
           "  --screenshot FILE  start without waiting for anyone, save the main window as a\n"
           "                     PNG picture once the first word is drawn, and end\n"
           "  --version          print the version and end\n"
           "  --help             print this text and end\n";
}

// --help and --version, answered before Qt looks for a display: the exit status, or none
// when the program is to start.
std::optional<int> answerWithoutDisplay(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--help" || a == "-h") {
            usage(std::cout);
            return 0;
        }
        if (a == "--version") {
            std::cout << "nebkaro " << versionText() << "\n";
            return 0;
        }
    }
    return std::nullopt;
}

void loadTransliterationFont(const QString& home) {
    const QString font = home + QStringLiteral("/Fonts/Transliteration.ttf");
    // Read as every program file is read (a regular file, a size limit), then handed over.
    QByteArray fontBytes;
    try {
        const std::string bytes = readFileBytes(font.toStdString(), 32u << 20);
        fontBytes = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    } catch (const RunError&) {
    }
    if (QFontDatabase::addApplicationFontFromData(fontBytes) < 0)
        std::cerr << "nebkaro: the Transliteration font could not be loaded from "
                  << font.toStdString() << "; transliterations show in plain letters\n";
}

// An installed program's first start makes the user's folder with the starter dictionary.
void prepareUserFolder(Dialogs& dialogs, const ProgramFolders& folders) {
    try {
        if (prepareUserFolder(folders))
            dialogs.message("Your dictionaries, settings and saved pictures are kept in " +
                                folders.user.string() +
                                ". The starter dictionary has been copied there.",
                            "", Buttons::OK, Icon::Information);
    } catch (const std::filesystem::filesystem_error& e) {
        dialogs.message("The folder " + folders.user.string() +
                            " for your dictionaries and settings could not be made: " +
                            e.code().message() + ". Saving will not work.",
                        "", Buttons::OK, Icon::Exclamation);
    }
}

// The --screenshot run: the first word was drawn during start-up; once the event loop runs,
// the layout requests still queued are handled and the window is taken as it stands.
void saveWhenDrawn(MainWindow& window, const QString& screenshot) {
    QTimer::singleShot(0, &window, [&window, screenshot] {
        QCoreApplication::sendPostedEvents();
        const QString file = QFileInfo(screenshot).absoluteFilePath();
        if (!window.grab().save(file, "PNG")) {
            std::cerr << "nebkaro: the picture could not be written to " << file.toStdString()
                      << "\n";
            QCoreApplication::exit(1);
            return;
        }
        std::cout << "nebkaro: the main window was saved as " << file.toStdString() << "\n";
        QCoreApplication::exit(0);
    });
}

} // namespace

int main(int argc, char** argv) {
    // Help and version need no display: they are answered before Qt looks for one.
    if (const auto done = answerWithoutDisplay(argc, argv)) return *done;

    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Nebkaro"));
    QApplication::setApplicationVersion(QString::fromStdString(versionText()));
    QApplication::setDesktopFileName(QStringLiteral(NEBKARO_APP_ID));

    // Qt has taken its own options (-platform, -style ...) out of the arguments by now.
    const CommandLine options = parse(QApplication::arguments());
    if (!options.error.isEmpty()) {
        std::cerr << "nebkaro: " << options.error.toStdString() << "\n";
        usage(std::cerr);
        return 2;
    }

    std::optional<std::filesystem::path> homeOption;
    if (!options.home.isEmpty()) homeOption = options.home.toStdString();
    const ProgramFolders folders =
        resolveFolders(homeOption, executableFolder(), NEBKARO_SHIPPED_FROM_BIN, environmentValue);
    const QString home = QString::fromStdString(folders.shipped.string());

    loadTransliterationFont(home);
    // Desktops without an icon theme of their own still find the common one.
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(NEBKARO_APP_ID)));

    const bool screenshot = !options.screenshot.isEmpty();
    if (screenshot) QtDialogs::setMode(QtDialogs::Mode::Unattended);

    QtDialogs dialogs;
    QtClipboard clipboard;
    QtEventPump events;
    FolderSignPictures pictures(home.toStdString());
    AtomicFileWriter writer;
    App app(dialogs, clipboard, events, pictures, writer);
    app.home = folders.shipped;
    app.userHome = folders.user;
    installEditing(app);

    prepareUserFolder(dialogs, folders);

    MainWindow window(app, MainWindow::Options{screenshot});
    if (!window.startUp(options.dictionary)) {
        if (screenshot) std::cerr << "nebkaro: the program ended during start-up; no picture\n";
        return app.exitCode;
    }
    QObject::connect(&window, &MainWindow::programEnded, &qapp, &QCoreApplication::exit);
    window.show();

    if (screenshot) saveWhenDrawn(window, options.screenshot);
    return QApplication::exec();
}
