#include "print/print_queue.h"

#include "print/print_layout.h"

namespace nebkaro::print {

std::string waitingStatusText(int waiting) {
    if (waiting <= 0) return {};
    if (waiting == 1) return "1 word waits to be printed (Form Feed prints the page)";
    return std::to_string(waiting) + " words wait to be printed (Form Feed prints the page)";
}

bool sheetFullWith(const std::vector<int>& heightsWithNew, int columns, int columnHeight, int gap) {
    if (heightsWithNew.size() < 2) return false;
    return paginate(heightsWithNew, columns, columnHeight, gap).size() > 1;
}

std::string waitingWordsQuestion(int waiting) {
    if (waiting == 1)
        return "1 word waits to be printed on the page being collected.\n"
               "Do you want to print it before quitting?";
    return std::to_string(waiting) + " words wait to be printed on the page being collected.\n"
                                     "Do you want to print them before quitting?";
}

WaitingWordsChoice askAboutWaitingWords(Dialogs& dialogs, int waiting) {
    if (waiting <= 0) return WaitingWordsChoice::NothingWaiting;
    switch (dialogs.message(waitingWordsQuestion(waiting), "Quitting", Buttons::YesNoCancel,
                            Icon::Question)) {
    case Answer::Yes:
        return WaitingWordsChoice::Print;
    case Answer::No:
        return WaitingWordsChoice::Discard;
    default:
        return WaitingWordsChoice::Cancel;
    }
}

} // namespace nebkaro::print
