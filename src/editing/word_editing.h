#pragma once
// Making and changing words. A word is composed (New, Edit) or typed into the word view's
// boxes and then exists only in the view; Store puts it into the dictionary in memory. Save
// (core) writes the dictionary file and stores the word on show first.
namespace nebkaro {

struct App;
class DictionaryStore;

// Makes Store the program's storeWord and renderWord its renderWord, and registers the
// editing commands.
void installEditing(App& app);

// Writes the word view into the dictionary: a new word into the row the dictionary gives it
// (or, after Insert, into the current row) with the direction and library of the settings,
// otherwise into the current word, which keeps its direction and library. Once the Extended
// library has been chosen in the composer, the word's library becomes "E". Clears the pending
// flags and marks the dictionary changed. With nothing on show (no new word and the current
// index outside the table) it stores nothing; a full dictionary is reported and nothing
// changes. Returns true when a word was stored.
bool storeCurrentWord(App& app);
// The Store button: Store (then the progress bar shows where the stored word stands), and a
// word when there is nothing to store.
void storeCommand(App& app);

// Opens the composer for a new word and shows the composed word with empty texts, numbered
// lastIndex + 1. The word enters the dictionary only with Store. With insert set, the stored
// word will replace the word on show (Insert).
void newWord(App& app, bool insert = false);
// Opens the composer on the word on show; on acceptance only its signs, Gardiner notation
// and layout change in the view.
void editWord(App& app);
// Removes the word on show (asking first unless a Cut runs it); the words after it move up.
void deleteWord(App& app);
// Opens a row after the word on show holding a copy of it, and shows the copy.
void duplicateWord(App& app);

// An unfinished new word or edit is given up (the guards' common end).
void dropPendingWord(App& app);

// The question every command asks before it leaves a word with unsaved edits.
inline constexpr const char* StoreWordQuestion = "Do you want to store the current word?";
// A new word waits to be stored, or the boxes on show differ from the stored word. Decided
// from the texts themselves: a box changed by the typewriter, Guess or a paste never had the
// focus, and a box that had it may hold the stored text again.
bool wordHasUnsavedEdits(const App& app);
// Before a command leaves the word on show: when it has unsaved edits, asks StoreWordQuestion
// (Yes and No); Yes stores it in memory, No shows the stored word again. Either way nothing
// is pending afterwards.
void offerToStoreWord(App& app);

// No word at all: a header-only file, the only word deleted, a new dictionary. A one-word
// dictionary whose word lacks a Gardiner notation still has that word.
bool dictionaryHasNoWords(const DictionaryStore& store);
// The word on show is a word of the dictionary: 0 <= currentIndex <= lastIndex, and the
// dictionary is not empty.
bool wordOnShow(const App& app);
// The message given when a command needs a word on show and there is none.
void reportNoWordOnShow(App& app);

} // namespace nebkaro
