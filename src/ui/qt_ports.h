#pragma once
// The desktop as the logic sees it (core/ports.h), made of Qt: message and input boxes, file
// dialogs, the clipboard and the event loop.
//
// An unattended run (--screenshot) never shows a dialog: messages go to the standard error and
// are answered with their first button, and file and input dialogs count as cancelled.
#include "core/ports.h"

#include <QString>
#include <QStringList>

class QMessageBox;

#include <optional>
#include <string>

namespace nebkaro {

// "Name (*.x)|*.x|Other (*.y;*.z)|*.y;*.z" as Qt's name filters: "Name (*.x)",
// "Other (*.y *.z)". Descriptions are trimmed; "*.*" is every file.
QStringList qtNameFilters(const std::string& filter);

// Makes a message box at least as wide as its title needs on the title bar: a short text
// under a long title would otherwise leave the title cut ("Phon… ound").
void widenForTitle(QMessageBox& box);

class QtDialogs : public Dialogs {
public:
    enum class Mode { Interactive, Unattended };

    Answer message(const std::string& text, const std::string& title, Buttons buttons,
                   Icon icon) override;
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override;
    std::optional<std::filesystem::path> openFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override;
    std::optional<std::filesystem::path> saveFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override;
    void beep() override;

    // Shared by every QtDialogs, like the message boxes they stand for.
    static void setMode(Mode mode);
    static Mode mode();
};

class QtClipboard : public Clipboard {
public:
    void clear() override;
    void setText(const std::string& text) override;
    std::string text() override;
    void setImagePng(const std::vector<std::uint8_t>& png) override;
};

class QtEventPump : public EventPump {
public:
    void yield() override;
};

} // namespace nebkaro
