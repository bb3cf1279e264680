#pragma once
// The ways words leave the program for other tools and come in from them, as the main window
// offers them: Copy as MdC on the Word menu, Import and the Export submenu on the File menu.
#include <QObject>

#include <string>
#include <vector>

class QMenu;
class QWidget;

namespace nebkaro {

struct App;
class SearchWindows;

class ExchangeCommands : public QObject {
    Q_OBJECT
public:
    ExchangeCommands(App& app, SearchWindows& tools, QWidget* window);

    // "Import..." (mnuImport) and the "Export" submenu (mnuExport) with its four formats.
    void addFileItems(QMenu* file);
    // "Copy as MdC" (mnuCopyMdc).
    void addWordItems(QMenu* word);

    enum class Format { Tsv, Html, Mdc, FlashCards };
    void copyAsMdc();
    void importLines();
    void exportWords(Format format);

Q_SIGNALS:
    // The dictionary or the word on show changed: the window shows it again.
    void changed();

private:
    // The whole dictionary, or the words of the Find All list when the user wants only those;
    // empty after Cancel.
    std::vector<int> wordsToExport(bool& cancelled);

    App& app_;
    SearchWindows& tools_;
    QWidget* window_;
};

} // namespace nebkaro
