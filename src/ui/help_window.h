#pragma once
// Help: the help page in a window of its own. The page is the shipped file Help/index.html
// of the program folder (or of the installed share folder), its lists of commands and letters
// made afresh from the program's own tables, so that they always say what this program does.
#include <QWidget>

#include <filesystem>

class QTextBrowser;

namespace nebkaro {

class CommandRegistry;

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    HelpWindow(const std::filesystem::path& home, const CommandRegistry& commands,
               QWidget* parent = nullptr);
    // The shipped page in the program folder or, installed, in the share folder beside the
    // executable's; empty when there is none (the window then shows the generated lists).
    static QString pageFile(const std::filesystem::path& home);

private:
    QTextBrowser* browser_;
};

} // namespace nebkaro
