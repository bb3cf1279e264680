#include "editing/navigation.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"
#include "editing/word_editing.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <random>

namespace nebkaro {

void showFirstWord(App& app) {
    offerToStoreWord(app);
    app.store.currentIndex = 0;
    app.renderWord(app);
}

void showLastWord(App& app) {
    offerToStoreWord(app);
    app.store.currentIndex = app.store.lastIndex;
    app.renderWord(app);
}

void showNextWord(App& app) {
    offerToStoreWord(app);
    DictionaryStore& store = app.store;
    store.currentIndex += 1;
    if (store.currentIndex > store.lastIndex) store.currentIndex = store.lastIndex;
    app.renderWord(app);
}

void showPreviousWord(App& app) {
    offerToStoreWord(app);
    DictionaryStore& store = app.store;
    store.currentIndex -= 1;
    if (store.currentIndex < 0) store.currentIndex = 0;
    app.renderWord(app);
}

bool goToWord(App& app, const std::string& text) {
    const DictionaryStore& store = app.store;
    std::int32_t index = 0;
    bool number = true;
    try {
        index = text::toLong(text);
    } catch (const RunError&) {
        number = false;
    }
    // A number outside the dictionary would leave on screen a word that commands no longer
    // act on, or show a row that is no word: it is refused like text that is no number.
    if (!number || index < 0 || index > store.lastIndex) {
        const std::string shown = text::trim(text);
        const std::string range = store.lastIndex >= 0 ? "Type a word number from 0 to " +
                                                             std::to_string(store.lastIndex) + "."
                                                       : "The dictionary has no words.";
        const std::string what = shown.empty() ? std::string("No word number was typed.")
                                 : number      ? "There is no word " + shown + "."
                                               : "'" + shown + "' is not a word number.";
        app.dialogs.message(what + "\r\n" + range, "Go", Buttons::OK, Icon::Exclamation);
        return false;
    }
    offerToStoreWord(app);
    app.store.currentIndex = index;
    app.renderWord(app);
    return true;
}

double randomDraw(std::uint64_t seed) {
    std::mt19937_64 generator(seed);
    // The top 53 bits as a fraction: exactly uniform in [0, 1), never 1.
    return static_cast<double>(generator() >> 11) * 0x1.0p-53;
}

int randomIndex(int lastIndex, double r) {
    int index = static_cast<int>(std::trunc(static_cast<double>(lastIndex) * r));
    if (index > lastIndex) index = lastIndex;
    return index;
}

std::uint64_t timeOfDaySeed() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t t = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&t, &local);
    const auto ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() %
        1000;
    return (static_cast<std::uint64_t>(local.tm_hour) * 3600 +
            static_cast<std::uint64_t>(local.tm_min) * 60 +
            static_cast<std::uint64_t>(local.tm_sec)) *
               1000 +
           static_cast<std::uint64_t>(ms);
}

void showRandomWord(App& app) {
    offerToStoreWord(app);
    const std::uint64_t seed = app.randomSeed ? app.randomSeed() : timeOfDaySeed();
    DictionaryStore& store = app.store;
    store.currentIndex = randomIndex(store.lastIndex, randomDraw(seed));
    app.renderWord(app);
}

} // namespace nebkaro
