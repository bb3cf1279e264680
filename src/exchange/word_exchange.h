#pragma once
// Words leaving the program for other tools, and coming in from them, as text: a UTF-8
// tab-separated table in Unicode, and lines of Manuel de Codage with their texts.
#include <string>
#include <vector>

namespace nebkaro {

struct App;

// The words to write: every word of the dictionary, or a list (the Find All results).
std::vector<int> allWords(const App& app);

struct ExportText {
    std::string text;
    // Words that could not be written whole ("word 12: its layout cannot be read").
    std::vector<std::string> problems;
};

// A header line, then one line per word: the hieroglyphs in Unicode with the format controls
// that stack and join them, the transliteration in scholarly letters, the Gardiner notation,
// the meaning and the comment. A value holding a tab, a line break or a double quote is put
// in double quotes, its quotes doubled, as spreadsheet programs read it.
ExportText exportTsv(App& app, const std::vector<int>& words);

// One line per word, "MdC TAB transliteration TAB meaning TAB comment", the transliteration
// in the plain letters the notation uses; what Import reads. Tabs and line breaks inside a
// value become blanks.
ExportText exportMdcLines(App& app, const std::vector<int>& words);

struct ImportReport {
    int added = 0;
    // "line 3: nfx was not found", in line order.
    std::vector<std::string> refused;
};

// Reads lines "MdC TAB transliteration TAB meaning [TAB comment]" and appends each as a new
// word laid out as Arrange lays out its notation, in the library and direction new words
// get. A line is refused, with the reason, when it has too few or too many fields, a sign
// that is neither in the sign list nor a phonetic value, a character the notation does not
// have, more signs than a word holds, a double quote (which the dictionary file cannot hold),
// or when the dictionary already has the same word or is full. Blank lines are skipped.
// Scholarly letters in the transliteration are stored as plain letters. The word on show
// stays the word on show.
ImportReport importMdcLines(App& app, const std::string& text);

// The report as the user reads it: how many words were added, then the refused lines.
std::string importReportText(const ImportReport& report);

} // namespace nebkaro
