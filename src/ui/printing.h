#pragma once
// The printing commands of the main window: Print Dictionary and Print Multiple open the
// print options; Print 1 puts the word on show on the page being collected and Form Feed
// prints that page and starts a new one, as with a printer that has a sheet in it. One
// Printing lives as long as the main window; it remembers the last print options for the
// session (they are not part of the settings file).
#include "print/print_document_qt.h"
#include "print/print_layout.h"
#include "print/print_queue.h"

#include <filesystem>
#include <optional>
#include <string>

class QWidget;

namespace nebkaro {

struct App;

class Printing {
public:
    // Start-up: the system's default printer (the PDF file when no printer is installed), its
    // paper, and draft quality.
    void setDefaults(App& app);

    // The print options dialog, then the print. Print Dictionary opens it for the whole
    // dictionary, Print Multiple for words from the one on show to the last.
    void printDictionaryDialog(App& app, QWidget* parent,
                               print::RangeKind range = print::RangeKind::All);
    void printMultipleDialog(App& app, QWidget* parent) {
        printDictionaryDialog(app, parent, print::RangeKind::Words);
    }

    // Print 1 (and the word view's print buttons): the word on show joins the page being
    // collected; when it no longer fits, the full page is printed first.
    void addCurrentWordToPage(App& app, QWidget* parent = nullptr);
    // Form Feed: prints the collected page and starts a new one. False when nothing was
    // printed (nothing waited, the file dialog was cancelled, the printer failed).
    bool formFeed(App& app, QWidget* parent = nullptr);

    int wordsWaiting() const { return queue_.waiting(); }
    // The status bar's line about the collected page; empty when no word waits.
    std::string statusText() const { return print::waitingStatusText(queue_.waiting()); }

    // Quitting: with words waiting, asks whether to print them first (Yes prints, No drops
    // them). False when the program is to stay open: Cancel, or a print that did not happen.
    bool confirmQuit(App& app, QWidget* parent = nullptr);

    const print::PrintOptions& options() const { return options_; }
    void setOptions(const print::PrintOptions& o) { options_ = o; }
    const print::PrintQueue& queue() const { return queue_; }

private:
    // Prints pages first..last of doc on the chosen printer, or into pdf when given, with a
    // progress dialog for long jobs. Reports a failure to the user.
    print::PrintDocument::Outcome printPages(App& app, const print::PrintDocument& doc, int first,
                                             int last,
                                             const std::optional<std::filesystem::path>& pdf,
                                             QWidget* parent);
    print::PrintOptions options_;
    print::PrintQueue queue_;
};

} // namespace nebkaro
