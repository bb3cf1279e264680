#include "core/startup.h"

#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/text.h"

namespace fs = std::filesystem;

namespace nebkaro {

namespace {
bool programFileMissing(App& app, const ProgramFileError& e) {
    app.dialogs.message(e.message(), "", Buttons::OK, Icon::Critical);
    app.requestEnd(1);
    return false;
}
} // namespace

bool startProgram(App& app, const std::string& commandLine) {
    applySettings(app, settingsPath(app.userFolder()));
    app.windows->setPrinterDefaults();
    try {
        loadSignList(app.lists, app.home, app.settings.library);
    } catch (const ProgramFileError& e) {
        return programFileMissing(app, e);
    }
    DictionaryStore& store = app.store;
    store.dictionariesFolder = (app.userFolder() / "Dictionaries").string() + "/";
    app.rememberedDictionary = store.dictionaryName;
    const fs::path named(store.dictionaryName);
    store.dictionaryPath =
        named.is_absolute() ? named.string() : store.dictionariesFolder + store.dictionaryName;
    store.dictionaryName = fs::path(store.dictionaryPath).filename().string();
    const std::string arg = text::removeAll(commandLine, '"');
    if (!arg.empty()) {
        store.dictionaryPath = arg;
        store.dictionaryName = fs::path(arg).filename().string();
    }
    if (app.settings.showAbout) app.windows->showAboutModal();
    app.mergeMode = false;
    // Until a load succeeds, the store holds no file's words: saving it over the file that
    // failed would destroy that file.
    store.untitled = true;
    const LoadOutcome outcome = loadDictionary(app);
    if (app.endRequested) return false;
    if (outcome == LoadOutcome::Failed &&
        app.dialogs.message("Do you want to open another dictionary?", "Dictionary Not Loaded",
                            Buttons::YesNo, Icon::Question) == Answer::Yes) {
        openDictionaryDialog(app);
        if (app.endRequested) return false;
    }
    if (store.untitled) {
        // Save proposes the Dictionaries folder; the remembered name stays for the next start.
        store.dictionaryPath = store.dictionariesFolder;
        app.windows->setCaption(captionText(app));
    }
    try {
        loadTrans2Code(app.lists, app.home);
        loadPhonetic(app.lists, app.home);
    } catch (const ProgramFileError& e) {
        return programFileMissing(app, e);
    }
    app.typewriterTarget = TypewriterTarget::MainTransLit;
    return true;
}

namespace {
void writeSettings(App& app) {
    try {
        writeSettingsFile(app, settingsPath(app.userFolder()));
    } catch (const RunError& e) {
        app.dialogs.message(e.report(), "", Buttons::OK, Icon::Critical);
    }
}
} // namespace

bool quitCommand(App& app) {
    const DictionaryStore& store = app.store;
    if (store.isChanged || app.wordEdited(app)) {
        const Answer a = app.dialogs.message("Do you want to save before quitting?", "Quitting",
                                             Buttons::YesNoCancel, Icon::Exclamation);
        if (a == Answer::Cancel) return false;
        // A save that failed keeps the program open: nothing is lost on the way out.
        if (a == Answer::Yes && !saveDictionary(app)) return false;
    }
    writeSettings(app);
    app.requestEnd(0);
    return true;
}

bool closeMainWindow(App& app) {
    const DictionaryStore& store = app.store;
    if (store.isChanged || app.wordEdited(app)) {
        // Cancel (and Escape) keeps the window open: closing by the frame is no reason to
        // lose work.
        const Answer a = app.dialogs.message("Do you want to save before quitting?", "",
                                             Buttons::YesNoCancel, Icon::Question);
        if (a == Answer::Cancel) return false;
        if (a == Answer::Yes) {
            app.storeWord(app);
            if (!saveDictionary(app)) return false;
        }
    }
    writeSettings(app);
    app.requestEnd(0);
    return true;
}

} // namespace nebkaro
