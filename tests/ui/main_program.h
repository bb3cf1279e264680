#pragma once
// One program for a window test: its folder, the Qt ports, the App and the main window, every
// message box answered from a script.
#include "core/app.h"
#include "core/files.h"
#include "editing/word_editing.h"
#include "program_folder.h"
#include "ui/main_window.h"
#include "ui/qt_ports.h"

#include <QAbstractButton>
#include <QAction>
#include <QRadioButton>
#include <QTest>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nebkaro::uitest {

// The program's own event pump, with a hook a test runs at every pause of long work.
struct HookedEventPump : QtEventPump {
    std::function<void()> onYield;
    void yield() override {
        QtEventPump::yield();
        if (onYield) onYield();
    }
};

struct Program {
    ProgramFolder folder;
    QtDialogs dialogs;
    QtClipboard clipboard;
    HookedEventPump events;
    FolderSignPictures pictures{folder.path()};
    AtomicFileWriter writer;
    App app{dialogs, clipboard, events, pictures, writer};
    std::unique_ptr<MainWindow> window;

    Program() {
        app.home = folder.path();
        InstallEditing(app);
        window = std::make_unique<MainWindow>(app);
    }
    template <typename T = QWidget> T* find(const char* name) const {
        return window->findChild<T*>(QLatin1String(name));
    }
    QAction* action(const char* name) const { return find<QAction>(name); }
    void click(const char* name) const {
        auto* b = find<QAbstractButton>(name);
        QVERIFY2(b, name);
        QVERIFY2(b->isEnabled(), name);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    bool startAndShow(const std::string& commandLine = {}) {
        if (!window->startUp(commandLine)) return false;
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get());
    }
};

// Radio buttons take clicks on their circle and caption only.
inline void choose(QWidget* dialog, const char* option) {
    auto* b = dialog->findChild<QRadioButton*>(QLatin1String(option));
    QVERIFY2(b, option);
    QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(6, b->height() / 2));
}

// Every test starts with scripted answers and no question asked yet.
inline void scriptDialogs() {
    QtDialogs::setMode(QtDialogs::Mode::Scripted);
    QtDialogs::reset();
}

// A question the test did not expect is a failure, named in the log.
inline void verifyNoUnexpectedQuestion() {
    for (const std::string& q : QtDialogs::unexpected())
        qWarning("unexpected question: %s", q.c_str());
    QVERIFY(QtDialogs::unexpected().empty());
}

inline std::vector<std::string> messageTexts() {
    std::vector<std::string> out;
    for (const auto& p : QtDialogs::prompts())
        if (p.kind == "message") out.push_back(p.text);
    return out;
}

} // namespace nebkaro::uitest
