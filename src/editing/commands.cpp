#include "editing/commands.h"

#include "core/app.h"
#include "core/dictionary_file.h"
#include "core/startup.h"
#include "display/render.h"
#include "display/word_view_events.h"
#include "display/zoom.h"
#include "editing/navigation.h"
#include "editing/undo.h"
#include "editing/word_clipboard.h"
#include "editing/word_editing.h"
#include "translit/unicode_translit.h"

namespace nebkaro {

namespace {

using C = CommandId;
using S = ShortcutScope;

// A change of direction needs a word to turn; the word is stored by setDirection.
void turnWord(App& app, FlipMode mode, bool markEdited) {
    // The word turned is the stored word on show, not a new word that waits to be stored.
    if (app.store.newWordPending) offerToStoreWord(app);
    if (!wordOnShow(app)) {
        reportNoWordOnShow(app);
        return;
    }
    setDirection(app, mode);
    // Only Word > Flip > Left counts the word as being edited afterwards.
    if (markEdited) app.store.editPending = true;
    app.renderWord(app);
}

// The transliteration box as other programs and printed grammars write it: nTr aA gives
// nṯr ꜥꜣ.
void copyTranslitUnicode(App& app) {
    if (app.view.transliteration.empty()) {
        app.dialogs.message("The word on show has no transliteration to copy.",
                            "Copy transliteration as Unicode", Buttons::OK, Icon::Exclamation);
        return;
    }
    app.clipboard.clear();
    app.clipboard.setText(scholarlyFromPlain(app.view.transliteration));
}

void merge(App& app) {
    // The word on show is left first, so that storing it is a step of its own.
    app.leaveWord(app);
    UndoStep step(app.history, app.store, "Merge", app.store.lastIndex + 1);
    mergeCommand(app);
}

std::vector<Command> fileCommands() {
    return {
        {.id = C::NewDictionary,
         .name = "NewDictionary",
         .help = "Start a new, empty dictionary",
         .tool = ToolSlot{0, "New Dictionary", "document-new", "NewDic"},
         .run = newDictionaryCommand},
        {.id = C::OpenDictionary,
         .name = "OpenDictionary",
         .help = "Open a dictionary file",
         .keys = {{"Ctrl+O"}},
         .tool = ToolSlot{1, "Open Dictionary", "document-open", "Open"},
         .run = openCommand},
        {.id = C::MergeDictionary,
         .name = "MergeDictionary",
         .help = "Add the words of another dictionary file to this one",
         .run = merge},
        {.id = C::SaveDictionary,
         .name = "SaveDictionary",
         .help = "Save the dictionary",
         .keys = {{"Ctrl+S"}},
         .tool = ToolSlot{2, "Save Dictionary", "document-save", "Save"},
         .run = [](App& a) { saveDictionary(a); }},
        {.id = C::SaveDictionaryAs,
         .name = "SaveDictionaryAs",
         .help = "Save the dictionary under another name",
         .keys = {{"Ctrl+Shift+S"}},
         .run = saveAsCommand},
        // Printing is a window of its own; it provides these.
        {.id = C::PrintDictionary,
         .name = "PrintDictionary",
         .help = "Print the dictionary, or some of its words",
         .tool = ToolSlot{3, "Print Dictionary", "document-print", "Print"}},
        {.id = C::PrintWord,
         .name = "PrintWord",
         .help = "Put the word on show on the page being collected"},
        {.id = C::FormFeed, .name = "FormFeed", .help = "Print the page of collected words"},
        {.id = C::PrintMultiple,
         .name = "PrintMultiple",
         .help = "Print several words, chosen by their numbers"},
        {.id = C::Quit,
         .name = "Quit",
         .help = "End the program",
         .keys = {{"Ctrl+Q"}},
         .run = [](App& a) { quitCommand(a); }},
    };
}

std::vector<Command> navigationCommands() {
    return {
        {.id = C::First,
         .name = "First",
         .help = "Go to the first word",
         .keys = {{"Home", S::DisplayArea}},
         .run = showFirstWord},
        {.id = C::Previous,
         .name = "Previous",
         .help = "Go to the previous word",
         .keys = {{"PgUp"}},
         .run = showPreviousWord},
        {.id = C::Next,
         .name = "Next",
         .help = "Go to the next word",
         .keys = {{"PgDown"}},
         .run = showNextWord},
        {.id = C::Last,
         .name = "Last",
         .help = "Go to the last word",
         .keys = {{"End", S::DisplayArea}},
         .run = showLastWord},
        {.id = C::Go,
         .name = "Go",
         .help = "Go to the word whose number is typed beside the button",
         .run = [](App& a) { goToWord(a, a.view.wordNumber); }},
        {.id = C::RandomWord,
         .name = "RandomWord",
         .help = "Show a word chosen at random",
         .tool = ToolSlot{11, "Random Word", "go-jump", "Random"},
         .run = showRandomWord},
    };
}

std::vector<Command> wordCommands() {
    return {
        {.id = C::NewWord,
         .name = "NewWord",
         .help = "Compose a new word after the last one",
         .keys = {{"Ctrl+N"}},
         .tool = ToolSlot{4, "New Word", "list-add", "New"},
         .run = [](App& a) { newWord(a); }},
        {.id = C::InsertWord,
         .name = "InsertWord",
         .help = "Compose a new word before the word on show",
         .run = insertWord},
        {.id = C::EditWord,
         .name = "EditWord",
         .help = "Change the signs of the word on show in the composer",
         .tool = ToolSlot{5, "Edit Word", "accessories-text-editor", "Edit"},
         .run = editWord},
        {.id = C::StoreWord,
         .name = "StoreWord",
         .help = "Keep the edited texts of the word in the dictionary",
         .run = storeCommand},
        {.id = C::DeleteWord,
         .name = "DeleteWord",
         .help = "Delete the word on show",
         .keys = {{"Del", S::DisplayArea}},
         .tool = ToolSlot{7, "Delete Word", "edit-delete", "Delete"},
         .run = deleteWord},
        {.id = C::DuplicateWord,
         .name = "DuplicateWord",
         .help = "Add a copy of the word on show",
         .tool = ToolSlot{6, "Duplicate Word", "edit-copy", "Duplicate"},
         .run = duplicateWord},
        {.id = C::CutWord,
         .name = "CutWord",
         .help = "Copy the word on show and delete it",
         .keys = {{"Ctrl+X", S::DisplayArea}},
         .run = cutWord},
        {.id = C::CopyWord,
         .name = "CopyWord",
         .help = "Copy the word on show",
         .keys = {{"Ctrl+C", S::DisplayArea}},
         .run = copyWord},
        {.id = C::PasteWord,
         .name = "PasteWord",
         .help = "Insert the copied word before the word on show",
         .keys = {{"Ctrl+V", S::DisplayArea}},
         .run = pasteWord},
    };
}

std::vector<Command> directionCommands() {
    return {
        // The Flip button redraws too: the user expects to see the word turned at once.
        {.id = C::FlipWord,
         .name = "FlipWord",
         .help = "Turn the signs of the word to face the other way",
         .run = [](App& a) { turnWord(a, FlipMode::Invert, false); }},
        {.id = C::DirectionLeft,
         .name = "DirectionLeft",
         .help = "Make the signs of the word face left",
         .run = [](App& a) { turnWord(a, FlipMode::Left, true); }},
        {.id = C::DirectionRight,
         .name = "DirectionRight",
         .help = "Make the signs of the word face right",
         .run = [](App& a) { turnWord(a, FlipMode::Right, false); }},
        {.id = C::DirectionInvert,
         .name = "DirectionInvert",
         .help = "Turn the signs of the word to face the other way",
         .run = [](App& a) { turnWord(a, FlipMode::Invert, false); }},
        {.id = C::ShowBorders,
         .name = "ShowBorders",
         .help = "Frame every sign of the word",
         .run = [](App& a) { toggleShowBorders(a.view); }},
    };
}

// The picture and the texts of the word leave the program through the word view, which
// provides all but the transliteration.
std::vector<Command> pictureCommands() {
    return {
        {.id = C::CopyWordImage,
         .name = "CopyWordImage",
         .help = "Copy the picture of the word",
         .tool = ToolSlot{12, "Copy Word Image", "insert-image", "CopyImage"}},
        {.id = C::SaveWordImage,
         .name = "SaveWordImage",
         .help = "Save the picture of the word as a file",
         .tool = ToolSlot{13, "Save Word Image", "document-save-as", "SaveImage"}},
        {.id = C::PasteImageToPaint,
         .name = "PasteImageToPaint",
         .help = "Open the picture of the word in the desktop's picture program"},
        {.id = C::CopyTranslitUnicode,
         .name = "CopyTranslitUnicode",
         .help = "Copy the transliteration in scholarly letters",
         .run = copyTranslitUnicode},
        // Goes with the exchange formats of the Word menu, which the help page leaves out.
        {.id = C::CopyUnicode, .name = "CopyUnicode", .help = ""},
    };
}

std::vector<Command> windowCommands() {
    auto canUndo = [](const App& a) { return a.history.canUndo(); };
    auto canRedo = [](const App& a) { return a.history.canRedo(); };
    return {
        {.id = C::Options,
         .name = "Options",
         .help = "Change the settings",
         .tool = ToolSlot{17, "Options", "preferences-system", "Options"}},
        {.id = C::AboutProgram,
         .name = "AboutProgram",
         .help = "About the program",
         .tool = ToolSlot{18, "About", "help-about", "About"}},
        {.id = C::AboutDictionary,
         .name = "AboutDictionary",
         .help = "The information about the dictionary",
         .run = [](App& a) { a.windows->showHeaderDialog(a.store.header); }},
        {.id = C::Help, .name = "Help", .help = "This page", .keys = {{"F1"}}},
        {.id = C::Undo,
         .name = "Undo",
         .help = "Take back the last change to the dictionary",
         .keys = {{"Ctrl+Z"}},
         .run = undoCommand,
         .enabled = canUndo},
        {.id = C::Redo,
         .name = "Redo",
         .help = "Make again the change last taken back",
         .keys = {{"Ctrl+Shift+Z"}},
         .run = redoCommand,
         .enabled = canRedo},
        {.id = C::ZoomIn,
         .name = "ZoomIn",
         .help = "Draw the word larger",
         .keys = {{"Ctrl++"}, {"Ctrl+="}},
         .run = zoomIn},
        {.id = C::ZoomOut,
         .name = "ZoomOut",
         .help = "Draw the word smaller",
         .keys = {{"Ctrl+-"}},
         .run = zoomOut},
        {.id = C::ZoomReset,
         .name = "ZoomReset",
         .help = "Draw the word at its actual size",
         .keys = {{"Ctrl+0"}},
         .run = zoomReset},
    };
}

} // namespace

// No command takes Ctrl+G or Ctrl+M: Ctrl followed by G or M toggles the Gardiner and Meaning
// boxes.
void registerEditingCommands(CommandRegistry& commands) {
    for (auto* group : {fileCommands, navigationCommands, wordCommands, directionCommands,
                        pictureCommands, windowCommands})
        for (Command& c : group()) commands.add(std::move(c));
}

} // namespace nebkaro
