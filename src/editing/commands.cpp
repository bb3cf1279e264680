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

// A change of direction needs a word to turn; the word is stored by SetDirection.
void turnWord(App& app, std::int16_t wanted, bool markEdited) {
    // The word turned is the stored word on show, not a new word that waits to be stored.
    if (app.store.newWordPending) OfferToStoreWord(app);
    if (!WordOnShow(app)) {
        ReportNoWordOnShow(app);
        return;
    }
    SetDirection(app, wanted);
    // Only Word > Flip > Left counts the word as being edited afterwards.
    if (markEdited) app.store.editPending = true;
    app.renderWord(app);
}

// The transliteration box as other programs and printed grammars write it: nTr aA gives
// nṯr ꜥꜣ.
void copyTranslitUnicode(App& app) {
    if (app.view.TransLitTxt.empty()) {
        app.dialogs.message("The word on show has no transliteration to copy.",
                            "Copy transliteration as Unicode", Buttons::OK, Icon::Exclamation);
        return;
    }
    app.clipboard.clear();
    app.clipboard.setText(ScholarlyFromPlain(app.view.TransLitTxt));
}

void merge(App& app) {
    // The word on show is left first, so that storing it is a step of its own.
    app.leaveWord(app);
    UndoStep step(app.history, app.store, "Merge", app.store.lastIndex + 1);
    MergeCommand(app);
}

std::vector<Command> fileCommands() {
    return {
        {C::NewDictionary,
         "NewDictionary",
         "Start a new, empty dictionary",
         {},
         ToolSlot{0, "New Dictionary", "document-new", "NewDic"},
         NewDictionaryCommand},
        {C::OpenDictionary,
         "OpenDictionary",
         "Open a dictionary file",
         {{"Ctrl+O"}},
         ToolSlot{1, "Open Dictionary", "document-open", "Open"},
         OpenCommand},
        {C::MergeDictionary,
         "MergeDictionary",
         "Add the words of another dictionary file to this one",
         {},
         {},
         merge},
        {C::SaveDictionary,
         "SaveDictionary",
         "Save the dictionary",
         {{"Ctrl+S"}},
         ToolSlot{2, "Save Dictionary", "document-save", "Save"},
         [](App& a) { SaveDictionary(a); }},
        {C::SaveDictionaryAs,
         "SaveDictionaryAs",
         "Save the dictionary under another name",
         {{"Ctrl+Shift+S"}},
         {},
         SaveAsCommand},
        // Printing is a window of its own; it provides these.
        {C::PrintDictionary,
         "PrintDictionary",
         "Print the dictionary, or some of its words",
         {},
         ToolSlot{3, "Print Dictionary", "document-print", "Print"}},
        {C::PrintWord, "PrintWord", "Put the word on show on the page being collected"},
        {C::FormFeed, "FormFeed", "Print the page of collected words"},
        {C::PrintMultiple, "PrintMultiple", "Print several words, chosen by their numbers"},
        {C::Quit, "Quit", "End the program", {{"Ctrl+Q"}}, {}, [](App& a) { QuitCommand(a); }},
    };
}

std::vector<Command> navigationCommands() {
    return {
        {C::First, "First", "Go to the first word", {{"Home", S::DisplayArea}}, {}, First},
        {C::Previous, "Previous", "Go to the previous word", {{"PgUp"}}, {}, Previous},
        {C::Next, "Next", "Go to the next word", {{"PgDown"}}, {}, Next},
        {C::Last, "Last", "Go to the last word", {{"End", S::DisplayArea}}, {}, Last},
        {C::Go,
         "Go",
         "Go to the word whose number is typed beside the button",
         {},
         {},
         [](App& a) { Go(a, a.view.txtNumber); }},
        {C::RandomWord,
         "RandomWord",
         "Show a word chosen at random",
         {},
         ToolSlot{11, "Random Word", "go-jump", "Random"},
         Random},
    };
}

std::vector<Command> wordCommands() {
    return {
        {C::NewWord,
         "NewWord",
         "Compose a new word after the last one",
         {{"Ctrl+N"}},
         ToolSlot{4, "New Word", "list-add", "New"},
         [](App& a) { New(a); }},
        {C::InsertWord, "InsertWord", "Compose a new word before the word on show", {}, {}, Insert},
        {C::EditWord,
         "EditWord",
         "Change the signs of the word on show in the composer",
         {},
         ToolSlot{5, "Edit Word", "accessories-text-editor", "Edit"},
         Edit},
        {C::StoreWord,
         "StoreWord",
         "Keep the edited texts of the word in the dictionary",
         {},
         {},
         StoreCommand},
        {C::DeleteWord,
         "DeleteWord",
         "Delete the word on show",
         {{"Del", S::DisplayArea}},
         ToolSlot{7, "Delete Word", "edit-delete", "Delete"},
         Delete},
        {C::DuplicateWord,
         "DuplicateWord",
         "Add a copy of the word on show",
         {},
         ToolSlot{6, "Duplicate Word", "edit-copy", "Duplicate"},
         Duplicate},
        {C::CutWord,
         "CutWord",
         "Copy the word on show and delete it",
         {{"Ctrl+X", S::DisplayArea}},
         {},
         Cut},
        {C::CopyWord, "CopyWord", "Copy the word on show", {{"Ctrl+C", S::DisplayArea}}, {}, Copy},
        {C::PasteWord,
         "PasteWord",
         "Insert the copied word before the word on show",
         {{"Ctrl+V", S::DisplayArea}},
         {},
         Paste},
    };
}

std::vector<Command> directionCommands() {
    return {
        // The Flip button redraws too: the user expects to see the word turned at once.
        {C::FlipWord,
         "FlipWord",
         "Turn the signs of the word to face the other way",
         {},
         {},
         [](App& a) { turnWord(a, 2, false); }},
        {C::DirectionLeft,
         "DirectionLeft",
         "Make the signs of the word face left",
         {},
         {},
         [](App& a) { turnWord(a, 0, true); }},
        {C::DirectionRight,
         "DirectionRight",
         "Make the signs of the word face right",
         {},
         {},
         [](App& a) { turnWord(a, 1, false); }},
        {C::DirectionInvert,
         "DirectionInvert",
         "Turn the signs of the word to face the other way",
         {},
         {},
         [](App& a) { turnWord(a, 2, false); }},
        {C::ShowBorders,
         "ShowBorders",
         "Frame every sign of the word",
         {},
         {},
         [](App& a) { ToggleShowBorders(a.view); }},
    };
}

// The picture and the texts of the word leave the program through the word view, which
// provides all but the transliteration.
std::vector<Command> pictureCommands() {
    return {
        {C::CopyWordImage,
         "CopyWordImage",
         "Copy the picture of the word",
         {},
         ToolSlot{12, "Copy Word Image", "insert-image", "CopyImage"}},
        {C::SaveWordImage,
         "SaveWordImage",
         "Save the picture of the word as a file",
         {},
         ToolSlot{13, "Save Word Image", "document-save-as", "SaveImage"}},
        {C::PasteImageToPaint, "PasteImageToPaint",
         "Open the picture of the word in the desktop's picture program"},
        {C::CopyTranslitUnicode,
         "CopyTranslitUnicode",
         "Copy the transliteration in scholarly letters",
         {},
         {},
         copyTranslitUnicode},
        // Goes with the exchange formats of the Word menu, which the help page leaves out.
        {C::CopyUnicode, "CopyUnicode", ""},
    };
}

std::vector<Command> windowCommands() {
    auto canUndo = [](const App& a) { return a.history.canUndo(); };
    auto canRedo = [](const App& a) { return a.history.canRedo(); };
    return {
        {C::Options,
         "Options",
         "Change the settings",
         {},
         ToolSlot{17, "Options", "preferences-system", "Options"}},
        {C::AboutProgram,
         "AboutProgram",
         "About the program",
         {},
         ToolSlot{18, "About", "help-about", "About"}},
        {C::AboutDictionary,
         "AboutDictionary",
         "The information about the dictionary",
         {},
         {},
         [](App& a) { a.windows->showHeaderDialog(a.store.header); }},
        {C::Help, "Help", "This page", {{"F1"}}},
        {C::Undo,
         "Undo",
         "Take back the last change to the dictionary",
         {{"Ctrl+Z"}},
         {},
         UndoCommand,
         canUndo},
        {C::Redo,
         "Redo",
         "Make again the change last taken back",
         {{"Ctrl+Shift+Z"}},
         {},
         RedoCommand,
         canRedo},
        {C::ZoomIn, "ZoomIn", "Draw the word larger", {{"Ctrl++"}, {"Ctrl+="}}, {}, ZoomIn},
        {C::ZoomOut, "ZoomOut", "Draw the word smaller", {{"Ctrl+-"}}, {}, ZoomOut},
        {C::ZoomReset,
         "ZoomReset",
         "Draw the word at its actual size",
         {{"Ctrl+0"}},
         {},
         ZoomReset},
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
