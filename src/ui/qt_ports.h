#pragma once
// The desktop as the logic sees it (core/ports.h), made of Qt: message and input boxes, file
// dialogs, the clipboard and the event loop.
//
// Tests and unattended runs never show a dialog: in Scripted mode every prompt is recorded
// and answered from queues the test fills (a question nobody prepared an answer for is
// recorded as unexpected and answered Cancel or No); in Unattended mode (the --screenshot run)
// messages go to the standard error and are answered with their first button, and file and
// input dialogs count as cancelled.
#include "core/ports.h"

#include <QString>
#include <QStringList>

class QMessageBox;

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace nebkaro {

// "Name (*.x)|*.x|Other (*.y;*.z)|*.y;*.z" as Qt's name filters: "Name (*.x)",
// "Other (*.y *.z)". Descriptions are trimmed; "*.*" is every file.
QStringList qtNameFilters(const std::string& filter);

// Makes a message box at least as wide as its title needs on the title bar: a short text
// under a long title would otherwise leave the title cut ("Phon… ound").
void widenForTitle(QMessageBox& box);

class QtDialogs : public Dialogs {
public:
    enum class Mode { Interactive, Scripted, Unattended };
    struct Prompt {
        std::string kind;  // "message", "input", "open", "save"
        std::string text;  // message text, input prompt, or the proposed file
        std::string title; // title, or the filter of a file dialog
        Buttons buttons = Buttons::OK;
        Icon icon = Icon::None;
    };

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
    static void pushAnswer(Answer answer);
    static void pushFile(std::optional<std::filesystem::path> file);
    static void pushInput(std::optional<std::string> text);
    // Prompts recorded in Scripted mode, and the questions that had no answer ready.
    static const std::vector<Prompt>& prompts();
    static const std::vector<std::string>& unexpected();
    static int beeps();
    // Empties the queues and the records.
    static void reset();

private:
    static std::optional<std::filesystem::path> scriptedFile(const char* kind,
                                                             const std::string& filter,
                                                             const std::filesystem::path& proposed);
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
