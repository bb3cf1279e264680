#include "editing/word_editing.h"

#include "core/app.h"
#include "core/errors.h"
#include "display/render.h"
#include "editing/commands.h"
#include "editing/undo.h"
#include "editing/word_clipboard.h"

namespace nebkaro {

namespace {

// A row of the table the word view can be written into.
bool rowInTable(std::int32_t index) {
    return index >= 0 && index <= DictionaryStore::MaxWordIndex;
}

// The composer decides acceptance; a composer closed by other means than OK has not accepted.
void runComposer(App& app) {
    app.store.composeAccepted = false;
    app.windows->runComposer();
}

// Setting a box to a different text is a change of it, as typing would be.
void setBox(WordView& view, std::string& box, std::string value) {
    if (box == value) return;
    box = std::move(value);
    view.textChanged = true;
}

// Shows the signs the composer left in app.glyphs, centred in the display area as a drawn
// word is, with pictures from the given library and direction.
void showComposedWord(App& app, Library library, Direction direction) {
    WordView& view = app.view;
    view.missingPictures.clear();
    for (int i = 0; i < GlyphTable::Slots; ++i) {
        GlyphImage& image = view.mainGlyphPic[static_cast<std::size_t>(i)];
        const GlyphSlot& slot = app.glyphs[i];
        if (slot.used()) {
            image.picture = app.pictures.picture(library, direction, *slot.code);
            image.visible = true;
            if (!image.picture.ok) view.missingPictures.push_back(image.picture.file.string());
        } else {
            image = GlyphImage{};
        }
    }
    placeGlyphGroup(app);
    drawWordImage(app);
    setBox(view, view.gardiner, app.composedGardiner);
    view.richGardiner = app.layoutText;
}

// The library an edited word will be drawn from once stored: its own, or Extended once that
// library has been chosen in the composer.
Library storedLibrary(const App& app, const std::string& libraryField) {
    return app.extendedChosen ? Library::Extended : libraryOfLetter(libraryField);
}

} // namespace

void installEditing(App& app) {
    app.storeWord = [](App& a) { storeCurrentWord(a); };
    app.renderWord = [](App& a) { renderWord(a); };
    app.wordEdited = [](const App& a) { return wordHasUnsavedEdits(a); };
    app.leaveWord = [](App& a) { offerToStoreWord(a); };
    registerEditingCommands(app.commands);
}

bool dictionaryHasNoWords(const DictionaryStore& store) {
    return store.lastIndex < 0 || (store.isEmpty() && store.field(0, FieldDirection).empty());
}

bool wordOnShow(const App& app) {
    const DictionaryStore& store = app.store;
    return store.currentIndex >= 0 && store.currentIndex <= store.lastIndex &&
           !dictionaryHasNoWords(store);
}

bool wordHasUnsavedEdits(const App& app) {
    const DictionaryStore& store = app.store;
    if (store.newWordPending) return true;
    const WordView& v = app.view;
    // Boxes typed into on an empty dictionary hold a word to keep as much as any other.
    if (dictionaryHasNoWords(store))
        return !(v.gardiner.empty() && v.transliteration.empty() && v.meaning.empty() &&
                 v.comment.empty() && v.richGardiner.empty());
    if (store.currentIndex < 0 || store.currentIndex > store.lastIndex) return false;
    const WordRecord& word = store.row(store.currentIndex);
    return v.richGardiner != word[FieldLayout] || v.gardiner != word[FieldGardiner] ||
           v.transliteration != word[FieldTranslit] || v.meaning != word[FieldMeaning] ||
           v.comment != word[FieldComment];
}

void offerToStoreWord(App& app) {
    if (wordHasUnsavedEdits(app)) {
        if (app.dialogs.message(StoreWordQuestion, "", Buttons::YesNo, Icon::Question) ==
            Answer::Yes) {
            storeCurrentWord(app);
        } else {
            dropPendingWord(app);
            app.store.composeAccepted = false;
            app.renderWord(app);
        }
    }
    dropPendingWord(app);
}

void reportNoWordOnShow(App& app) {
    app.dialogs.message("No word of the dictionary is on show.", "", Buttons::OK,
                        Icon::Exclamation);
}

void dropPendingWord(App& app) {
    app.store.newWordPending = false;
    app.store.editPending = false;
    // An Insert whose word was given up must not make the next new word replace a word.
    app.insertPending = false;
}

bool storeCurrentWord(App& app) {
    DictionaryStore& store = app.store;
    int row = store.currentIndex;
    // Texts typed into the view of an empty dictionary become its first word; an empty view
    // there is no word at all.
    const bool firstWord = !store.newWordPending && dictionaryHasNoWords(store);
    if (firstWord && !wordHasUnsavedEdits(app)) return false;
    // The one row written: a new word's row (row 0 of an empty dictionary, else one past the
    // last word), or the row on show.
    const bool newRow = (store.newWordPending || firstWord) &&
                        (firstWord || !app.insertPending || !rowInTable(store.currentIndex));
    const int from = !newRow ? store.currentIndex : store.isEmpty() ? 0 : store.lastIndex + 1;
    UndoStep step(app.history, store, "Store word", from,
                  newRow && !store.isEmpty() ? from : from + 1);
    if (store.newWordPending || firstWord) {
        if (firstWord || !app.insertPending || !rowInTable(store.currentIndex)) {
            try {
                row = store.takeRowForNewWord();
            } catch (const StoreFull& e) {
                app.dialogs.message(e.what(), "", Buttons::OK, Icon::Exclamation);
                return false;
            }
        }
        store.setField(row, FieldDirection, directionLetter(app.settings.direction));
        store.setField(row, FieldLibrary, libraryLetter(app.settings.library));
    } else if (!rowInTable(row)) {
        return false; // nothing on show, nothing to store
    }
    step.rename("Store word " + std::to_string(row));
    if (app.extendedChosen) store.setField(row, FieldLibrary, libraryLetter(Library::Extended));
    const WordView& view = app.view;
    store.setField(row, FieldLayout, view.richGardiner);
    store.setField(row, FieldGardiner, view.gardiner);
    store.setField(row, FieldTranslit, view.transliteration);
    store.setField(row, FieldMeaning, view.meaning);
    store.setField(row, FieldComment, view.comment);
    store.newWordPending = false;
    store.editPending = false;
    app.insertPending = false;
    store.composeAccepted = false;
    store.isChanged = true;
    return true;
}

void storeCommand(App& app) {
    if (!app.store.newWordPending && !wordOnShow(app) && !wordHasUnsavedEdits(app)) {
        reportNoWordOnShow(app);
        return;
    }
    if (!storeCurrentWord(app)) return;
    // A new word lengthens the dictionary and stands at its end: the bar shows where.
    WordView& view = app.view;
    view.progressWidth = progressWidth(view.geometry.progressContainerWidth, app.store.currentIndex,
                                       app.store.lastIndex);
    app.windows->wordViewChanged();
}

void newWord(App& app, bool insert) {
    DictionaryStore& store = app.store;
    offerToStoreWord(app);
    // Set after the question, so that storing the unfinished word cannot use it.
    if (insert) app.insertPending = true;
    store.newWordPending = true;
    runComposer(app);
    if (!store.composeAccepted) {
        store.newWordPending = false;
        app.insertPending = false;
        return;
    }
    const Library library = app.extendedChosen ? Library::Extended : app.settings.library;
    showComposedWord(app, library, app.settings.direction);
    WordView& view = app.view;
    setBox(view, view.meaning, "");
    setBox(view, view.comment, "");
    setBox(view, view.transliteration, "");
    view.wordNumber = std::to_string(store.lastIndex + 1);
    app.windows->wordViewChanged();
}

void editWord(App& app) {
    DictionaryStore& store = app.store;
    // A new word on show is left for the stored one; texts typed into the word on show stay
    // in its boxes while its signs are recomposed.
    if (store.newWordPending) offerToStoreWord(app);
    if (!wordOnShow(app)) {
        reportNoWordOnShow(app);
        return;
    }
    store.newWordPending = false;
    store.editPending = true;
    runComposer(app);
    if (!store.composeAccepted) return;
    const WordRecord& word = store.row(store.currentIndex);
    showComposedWord(app, storedLibrary(app, word[FieldLibrary]),
                     directionOfLetter(word[FieldDirection]));
    app.windows->wordViewChanged();
}

void deleteWord(App& app) {
    DictionaryStore& store = app.store;
    // The word to delete must be the one on show, not a new word that waits to be stored.
    if (store.newWordPending) offerToStoreWord(app);
    if (!wordOnShow(app)) {
        reportNoWordOnShow(app);
        return;
    }
    if (!app.cutPending &&
        app.dialogs.message("Do you want to delete the current item?", "Confirm Delete",
                            Buttons::YesNo, Icon::Question) != Answer::Yes)
        return;
    const int current = store.currentIndex;
    const int last = store.lastIndex;
    UndoStep step(app.history, store, "Delete word " + std::to_string(current), current);
    if (current < last) {
        auto& rows = store.rowsForBulk(last + 1);
        const auto first = rows.begin() + current;
        std::move(first + 1, rows.begin() + last + 1, first);
        // The old last row keeps its word: it lies beyond the dictionary now and is written
        // over by the next new word.
        rows[static_cast<std::size_t>(last)] = rows[static_cast<std::size_t>(last - 1)];
    }
    store.lastIndex = last - 1;
    if (store.currentIndex > store.lastIndex) store.currentIndex = store.lastIndex;
    app.renderWord(app);
    store.isChanged = true;
}

void duplicateWord(App& app) {
    // The copy is of the word as stored: edits on show are stored first or given up.
    offerToStoreWord(app);
    if (!wordOnShow(app)) {
        reportNoWordOnShow(app);
        return;
    }
    DictionaryStore& store = app.store;
    UndoStep step(app.history, store, "Duplicate word " + std::to_string(store.currentIndex),
                  store.currentIndex);
    insertRow(app);
    store.setRow(store.currentIndex, store.row(store.currentIndex - 1));
    store.isChanged = true;
    app.renderWord(app);
}

} // namespace nebkaro
