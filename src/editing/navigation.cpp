#include "editing/navigation.h"

#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/text.h"
#include "editing/word_editing.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <random>

namespace nebkaro {

namespace {

bool wordPending(const DictionaryStore& store) {
    return store.newWordPending || store.editPending;
}

// Moving on: an unfinished word may go into the file, with the whole dictionary. Whatever
// the answer, the unfinished word is no longer pending.
void offerSave(App& app) {
    if (wordPending(app.store) &&
        app.dialogs.message("Do you want to save the current item?", "SAVE?", Buttons::YesNo,
                            Icon::Question) == Answer::Yes)
        SaveDictionary(app);
    DropPendingWord(app);
}

// Moving back: an unfinished word may go into the dictionary in memory.
void offerStore(App& app) {
    if (wordPending(app.store) &&
        app.dialogs.message("Do you want to store the current item?", "", Buttons::YesNo,
                            Icon::Question) == Answer::Yes)
        Store(app);
    DropPendingWord(app);
}

} // namespace

void First(App& app) {
    app.store.currentIndex = 0;
    app.renderWord(app);
}

void Last(App& app) {
    app.store.currentIndex = app.store.lastIndex;
    app.renderWord(app);
}

void Next(App& app) {
    offerSave(app);
    DictionaryStore& store = app.store;
    store.currentIndex += 1;
    if (store.currentIndex > store.lastIndex) store.currentIndex = store.lastIndex;
    app.renderWord(app);
}

void Previous(App& app) {
    offerStore(app);
    DictionaryStore& store = app.store;
    store.currentIndex -= 1;
    if (store.currentIndex < 0) store.currentIndex = 0;
    app.renderWord(app);
}

bool Go(App& app, const std::string& text) {
    std::int32_t index = 0;
    try {
        index = text::toLong(text);
    } catch (const RunError&) {
        const std::string shown = text::trim(text);
        const std::string range =
            app.store.lastIndex >= 0
                ? "Type a word number from 0 to " + std::to_string(app.store.lastIndex) + "."
                : "The dictionary has no words.";
        app.dialogs.message((shown.empty() ? std::string("No word number was typed.")
                                           : "'" + shown + "' is not a word number.") +
                                "\r\n" + range,
                            "Go", Buttons::OK, Icon::Exclamation);
        return false;
    }
    app.store.currentIndex = index;
    app.renderWord(app);
    return true;
}

double RandomDraw(std::uint64_t seed) {
    std::mt19937_64 generator(seed);
    // The top 53 bits as a fraction: exactly uniform in [0, 1), never 1.
    return static_cast<double>(generator() >> 11) * 0x1.0p-53;
}

int RandomIndex(int lastIndex, double r) {
    int index = static_cast<int>(std::trunc(static_cast<double>(lastIndex) * r));
    if (index > lastIndex) index = lastIndex;
    return index;
}

std::uint64_t TimeOfDaySeed() {
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

void Random(App& app) {
    offerSave(app);
    const std::uint64_t seed = app.randomSeed ? app.randomSeed() : TimeOfDaySeed();
    DictionaryStore& store = app.store;
    store.currentIndex = RandomIndex(store.lastIndex, RandomDraw(seed));
    app.renderWord(app);
}

} // namespace nebkaro
