#include "fakes.h"
#include "print/print_queue.h"

#include <gtest/gtest.h>

using namespace nebkaro;
using namespace nebkaro::print;
using namespace nebkaro::testing;

TEST(PrintQueue, TheSheetGoesOutOnlyWhenTheNextWordWouldNotFit) {
    struct Case {
        const char* name;
        std::vector<int> heights; // waiting words, then the new one
        int columns;
        bool full;
    };
    const Case cases[] = {
        {"first word", {400}, 1, false},
        {"a first word too tall for any sheet", {9000}, 1, false},
        {"fits below", {400, 400}, 1, false},
        {"does not fit below", {400, 400, 400}, 1, true},
        {"fits in the second column", {400, 400, 400}, 2, false},
        {"both columns full", {400, 400, 400, 400, 400}, 2, true},
        {"a tall word after a short one", {100, 9000}, 1, true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(sheetFullWith(c.heights, c.columns, 1000, 100), c.full) << c.name;
}

// The status line and the question on quitting count the waiting words.
TEST(PrintQueue, QuittingAsksOnlyWhenWordsWait) {
    const std::tuple<int, std::optional<Answer>, WaitingWordsChoice, const char*> cases[] = {
        {0, std::nullopt, WaitingWordsChoice::NothingWaiting, ""},
        {1, Answer::Yes, WaitingWordsChoice::Print, "1 word waits"},
        {3, Answer::No, WaitingWordsChoice::Discard, "3 words wait"},
        {3, Answer::Cancel, WaitingWordsChoice::Cancel, "3 words wait"},
    };
    for (const auto& [waiting, answer, choice, words] : cases) {
        ScriptedDialogs d;
        if (answer) d.answers.push_back(*answer);
        EXPECT_EQ(askAboutWaitingWords(d, waiting), choice);
        EXPECT_EQ(waitingStatusText(waiting),
                  answer ? std::string(words) + " to be printed (Form Feed prints the page)" : "");
        EXPECT_EQ(d.prompts.size(), answer ? 1u : 0u);
        for (const auto& prompt : d.prompts) EXPECT_EQ(prompt.buttons, Buttons::YesNoCancel);
    }
    EXPECT_EQ(waitingWordsQuestion(1), "1 word waits to be printed on the page being collected.\n"
                                       "Do you want to print it before quitting?");
    EXPECT_EQ(waitingWordsQuestion(3), "3 words wait to be printed on the page being collected.\n"
                                       "Do you want to print them before quitting?");
}
