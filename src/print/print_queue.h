#pragma once
// The page being collected: Print 1 puts the word on show onto it, Form Feed prints it and
// starts a new one, as with a printer that has a sheet in it. The words wait here, as they
// were when they were added, until the sheet is printed.
#include "core/dictionary_store.h"
#include "core/ports.h"

#include <string>
#include <vector>

namespace nebkaro::print {

struct QueuedWord {
    int index = 0;
    WordRecord record;
};

class PrintQueue {
public:
    void add(QueuedWord word) { words_.push_back(std::move(word)); }
    const std::vector<QueuedWord>& words() const { return words_; }
    int waiting() const { return static_cast<int>(words_.size()); }
    // The number the next sheet carries in its footer: sheets count from 1 for the session.
    int sheetNumber() const { return sheet_; }
    // The sheet was printed (on as many pages as it took): the words leave the queue and
    // the next sheet is numbered on.
    void sheetPrinted(int pages = 1) {
        words_.clear();
        sheet_ += pages;
    }
    // The words are dropped without printing (the user chose not to print them).
    void discard() { words_.clear(); }

private:
    std::vector<QueuedWord> words_;
    int sheet_ = 1;
};

// The status bar's line for the words waiting; empty when none waits.
std::string waitingStatusText(int waiting);

// Whether the sheet must go out before a word is added: the waiting words and the new one
// (heights in that order) would not fit on one page. An empty sheet never needs feeding, even
// for a word too tall for it.
bool sheetFullWith(const std::vector<int>& heightsWithNew, int columns, int columnHeight, int gap);

enum class WaitingWordsChoice { NothingWaiting, Print, Discard, Cancel };

// Quitting with words waiting on the page being collected: asks whether to print them first
// (Yes, No, Cancel). No question when nothing waits.
WaitingWordsChoice askAboutWaitingWords(Dialogs& dialogs, int waiting);
std::string waitingWordsQuestion(int waiting);

} // namespace nebkaro::print
