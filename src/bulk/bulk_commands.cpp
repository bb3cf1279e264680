#include "bulk/bulk_commands.h"

#include "bulk/reading_order.h"
#include "bulk/search.h"
#include "bulk/sort.h"
#include "bulk/sort_dialog_model.h"
#include "core/app.h"
#include "core/command_registry.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/guarded.h"
#include "core/text.h"
#include "display/render.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace nebkaro {

std::string formatSeconds(double seconds) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.3f", seconds);
    std::string s = buf;
    while (!s.empty() && s.back() == '0') s.pop_back();
    if (!s.empty() && s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s;
}

std::string formatThousands(long long n) {
    if (n == 0) return "";
    const bool negative = n < 0;
    std::string digits = std::to_string(negative ? -n : n);
    std::string out;
    const std::size_t first = digits.size() % 3 == 0 ? 3 : digits.size() % 3;
    out = digits.substr(0, first);
    for (std::size_t i = first; i < digits.size(); i += 3) {
        out += ',';
        out.append(digits, i, 3);
    }
    if (negative) out.insert(out.begin(), '-');
    return out;
}

namespace {

SortOrder chosenOrder(const App& app) {
    return {app.sortDialog.reverse, app.sortDialog.caseSensitive};
}

bool editInProgress(const App& app) {
    return app.wordEdited(app);
}

constexpr const char* SaveBeforeSorting = "Do you want to save before sorting?";

} // namespace

void shuffleDictionary(App& app, std::optional<std::uint64_t> seed) {
    DictionaryStore& store = app.store;
    const RandomSource rnd = seed ? seededRandom(*seed) : clockRandom();
    UndoStep step(app.history, store, "Shuffle", 0);
    shuffleRows(store, store.lastIndex, rnd);
    store.currentIndex = 0;
    store.isChanged = true;
    app.renderWord(app);
}

void flipAll(App& app, FlipMode mode) {
    DictionaryStore& store = app.store;
    app.sortCancelled = false;
    app.windows->showProgress("Flipping Started");
    const int remembered = store.currentIndex;
    const char* const name = mode == FlipMode::Left    ? "Flip All Left"
                             : mode == FlipMode::Right ? "Flip All Right"
                                                       : "Flip All Invert";
    UndoStep step(app.history, store, name, 0);
    const RememberedPictures once(app.pictures);
    try {
        for (int w = 0; w <= store.lastIndex; ++w) {
            store.currentIndex = w;
            app.renderWord(app);
            // The same change as the word's own direction commands: "Left" also marks the word
            // as being edited.
            setDirection(app, mode);
            if (mode == FlipMode::Left) store.editPending = true;
            app.renderWord(app);
            if (app.sortCancelled) break;
            app.events.yield();
        }
    } catch (...) {
        store.currentIndex = remembered;
        app.renderWord(app);
        app.windows->hideProgress();
        throw;
    }
    store.currentIndex = remembered;
    app.renderWord(app);
    // The dialog is modal: left on screen it would hold up the program.
    app.windows->hideProgress();
}

void sortCommand(App& app) {
    DictionaryStore& store = app.store;
    runGuarded(app, [&] {
        // One question covers both the word being edited and the dictionary's changes.
        const bool editing = editInProgress(app);
        if (editing || store.isChanged) {
            const Answer a =
                app.dialogs.message(SaveBeforeSorting, "", Buttons::YesNoCancel, Icon::None);
            if (a == Answer::Cancel) return;
            if (a == Answer::Yes) {
                if (editing) app.storeWord(app);
                saveDictionary(app);
            }
        }
        const SortField field = showSortDialog(app);
        if (field == SortField::None) return;
        toolbarSort(app, field, chosenOrder(app));
        app.dialogs.message("Done!", "DONE", Buttons::OK, Icon::Information);
    });
}

void menuSortCommand(App& app) {
    DictionaryStore& store = app.store;
    runGuarded(app, [&] {
        if (editInProgress(app) || store.isChanged) {
            const Answer a =
                app.dialogs.message(SaveBeforeSorting, "", Buttons::YesNoCancel, Icon::Question);
            if (a == Answer::Cancel) return;
            if (a == Answer::Yes) {
                app.storeWord(app);
                const bool saved = saveDictionary(app);
                store.newWordPending = false;
                store.editPending = false;
                store.composeAccepted = false;
                // A save that failed leaves the work unsaved, and the flag says so.
                if (saved) store.isChanged = false;
            }
        }
        const SortField field = showSortDialog(app);
        if (field == SortField::None) return;
        if (app.dialogs.message("Do you want to proceed?\r\nAction cannot be undone!", "",
                                Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
            return;
        const double seconds = menuSort(app, field, chosenOrder(app));
        app.dialogs.message("Done in " + formatSeconds(seconds) + " s", "DONE", Buttons::OK,
                            Icon::Information);
    });
}

void sortGardinerCommand(App& app) {
    const std::optional<std::string> answer =
        app.dialogs.input("How much % overlap do you want to allow?", "Choose Overlap", "20");
    if (!answer || answer->empty()) return;
    runGuarded(app, [&] {
        app.leaveWord(app);
        sortGardinerAll(app, text::leadingNumber(*answer));
    });
}

void shuffleCommand(App& app) {
    if (app.dialogs.message("Are you sure you want to shuffle the dictionary?\r\nThis cannot be "
                            "undone",
                            "Confirm", Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
        return;
    runGuarded(app, [&] {
        app.leaveWord(app);
        if (app.store.isChanged) {
            const Answer a = app.dialogs.message("Do you want so save the dictionary?", "Confirm",
                                                 Buttons::YesNoCancel, Icon::Question);
            if (a == Answer::Cancel) return;
            if (a == Answer::Yes) saveAsCommand(app);
        }
        shuffleDictionary(app);
    });
}

void flipAllCommand(App& app, FlipMode mode) {
    const std::string prompt =
        "It may take a while to flip " + formatThousands(app.store.lastIndex + 1) + " words";
    if (app.dialogs.message(prompt, "Warning", Buttons::OKCancel, Icon::Exclamation) ==
        Answer::Cancel)
        return;
    runGuarded(app, [&] {
        app.leaveWord(app);
        flipAll(app, mode);
    });
}

void registerBulkCommands(CommandRegistry& commands) {
    using C = CommandId;
    const Command rows[] = {
        {.id = C::Find,
         .name = "Find",
         .help = "Find words by their texts or signs",
         .keys = {{"Ctrl+F"}},
         .tool = ToolSlot{8, "Find Word", "edit-find", "Find"},
         .run = findCommand},
        {.id = C::FindNext,
         .name = "FindNext",
         .help = "Find the next word that matches",
         .keys = {{"F3"}},
         .tool = ToolSlot{9, "Find Next", "go-down", "FindNext"},
         .run = findNextCommand},
        {.id = C::FindPrevious,
         .name = "FindPrevious",
         .help = "Find the previous word that matches",
         .keys = {{"Shift+F3"}},
         .tool = ToolSlot{10, "Find Previous", "go-up", "FindPrevious"},
         .run = findPreviousCommand},
        {.id = C::SortButton,
         .name = "SortButton",
         .help = "Sort the dictionary",
         .tool = ToolSlot{14, "Sort Dictionary", "view-sort-ascending", "Sort"},
         .run = sortCommand},
        {.id = C::SortMenu,
         .name = "SortMenu",
         .help = "Sort the dictionary, with progress and Cancel",
         .run = menuSortCommand},
        {.id = C::SortGardiner,
         .name = "SortGardiner",
         .help = "Sort the dictionary by Gardiner's notation",
         .run = sortGardinerCommand},
        {.id = C::Shuffle,
         .name = "Shuffle",
         .help = "Put the words in a random order",
         .tool = ToolSlot{19, "Shuffle Dictionary", "media-playlist-shuffle", ""},
         .run = shuffleCommand},
        {.id = C::FlipAllLeft,
         .name = "FlipAllLeft",
         .help = "Make the signs of every word face left",
         .run = [](App& a) { flipAllCommand(a, FlipMode::Left); }},
        {.id = C::FlipAllRight,
         .name = "FlipAllRight",
         .help = "Make the signs of every word face right",
         .run = [](App& a) { flipAllCommand(a, FlipMode::Right); }},
        {.id = C::FlipAllInvert,
         .name = "FlipAllInvert",
         .help = "Turn the signs of every word",
         .run = [](App& a) { flipAllCommand(a, FlipMode::Invert); }},
    };
    for (const Command& c : rows) commands.add(c);
}

} // namespace nebkaro
