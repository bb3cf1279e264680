#pragma once
// The dictionary file: seven quoted, comma-separated fields per word, an optional first line
// of seven header values; and the Open, Merge, Save, Save As and New Dictionary commands.
#include "core/dictionary_store.h"
#include "core/ports.h"

#include <string>
#include <vector>

namespace nebkaro {

struct App;

inline constexpr const char* OpenFilter =
    "Dictionary (*.nkd)|*.nkd| Comma Separated Variables (*.csv)|*.csv| All Files (*.*)|*.*";
inline constexpr const char* SaveFilter =
    "Dictionary (*.nkd)|*.nkd|Comma Separated Variables (*.csv)|*.csv| All Files (*.*)|*.*";

struct ParsedDictionary {
    DictionaryHeader header{};
    bool hasHeader = false;
    std::vector<WordRecord> words;
    // A record whose direction is neither "R" nor "L" ended the reading.
    bool stoppedEarly = false;
    WordRecord stopRecord{};
    int stopLine = 0; // 1-based line where that record began
};

// Reads a whole file's text. At most maxWords words fit (more is SubscriptOutOfRange); a file
// that ends inside a record, or an empty one, is InputPastEnd.
ParsedDictionary readDictionaryText(const std::string& text, int maxWords);

// The same reading, keeping the text and the words as spans into it (what a load stores).
struct PackedDictionary {
    DictionaryHeader header{};
    bool hasHeader = false;
    PackedWords words;
    bool stoppedEarly = false;
    WordRecord stopRecord{};
    int stopLine = 0;
};
PackedDictionary readDictionaryPacked(std::string text, int maxWords);

// The writer's form: the header line when hasHeader, then rows 0..lastIndex.
std::string wordLine(const WordRecord& word);
std::string dictionaryFileText(const DictionaryStore& store, bool withWords = true);

// The first value the file format cannot hold (a double quote or a line break): -1 when none;
// otherwise the word index (-1 for the header is reported as header == true).
struct UnwritableValue {
    bool found = false;
    bool inHeader = false;
    int word = 0;
    int field = 0;
};
UnwritableValue findUnwritableValue(const DictionaryStore& store, bool withWords);

// The dictionary path with every ".csv" turned into ".nkd".
std::string nkdPath(const std::string& path);
// "Nebkaro Ver: 1.0.0    Dictionary: <name>"
std::string captionText(const App& app);

enum class LoadOutcome { Loaded, Failed, NotFound };
// Reads app.store.dictionaryPath into the store (appending when app.mergeMode). On failure the
// store is left exactly as it was and the user is told. A load that stopped early says so; the
// lines read as Windows-1252 are named in the status bar (convertedLinesText).
LoadOutcome loadDictionary(App& app);
class RunError;
// "Lines 3, 7 were not UTF-8 text and read as Windows-1252"
std::string convertedLinesText(const std::vector<int>& lines);
// Stores the word on show, then writes the store to dictionaryPath. True when written. An
// untitled dictionary asks where to save first. Replacing an existing file other than the one
// the dictionary came from, or the file a load stopped early in, asks Yes/No first.
bool saveDictionary(App& app);

// The dictionary information dialog's confirming button: refuses "R" and "L" as value 0
// (emptying box 0), otherwise copies the boxes into the header. True when accepted.
bool confirmHeader(App& app, DictionaryHeader& boxes);

// File menu commands.
void openCommand(App& app);          // mergeMode false, open dialog
void mergeCommand(App& app);         // mergeMode true, open dialog
void openDictionaryDialog(App& app); // the shared open dialog
void saveAsCommand(App& app);        // save dialog
void newDictionaryCommand(App& app); // newDictionaryMode true, save dialog
void saveDictionaryDialog(App& app); // the shared save dialog

} // namespace nebkaro
