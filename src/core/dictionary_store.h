#pragma once
// The one dictionary in memory: a fixed table of 100,001 words of seven text fields, the
// index of the last word and of the word on show, the header and the unsaved-work flags.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace nebkaro {

// Field numbers are the dictionary file's column order and never change.
enum Field : int {
    FieldDirection = 0,
    FieldLibrary = 1,
    FieldLayout = 2,
    FieldGardiner = 3,
    FieldTranslit = 4,
    FieldMeaning = 5,
    FieldComment = 6,
};
constexpr int FieldCount = 7;

using WordRecord = std::array<std::string, FieldCount>;
using DictionaryHeader = std::array<std::string, FieldCount>;

class DictionaryStore {
public:
    static constexpr int MaxWordIndex = 100000;

    // Bounds: w in 0..MaxWordIndex, f in 0..6; anything else is SubscriptOutOfRange.
    const std::string& field(int w, int f) const;
    void setField(int w, int f, std::string value);
    // A whole row; rows not yet written read as seven empty texts.
    const WordRecord& row(int w) const;
    void setRow(int w, WordRecord record);
    void swapRows(int a, int b);
    // Every cell becomes empty text; lastIndex, currentIndex and the header stay.
    void clear();
    // Rows actually held in memory (the table behaves as if all 100,001 existed).
    std::size_t allocatedRows() const { return rows_.size(); }

    // An empty dictionary is lastIndex 0 with row 0's Gardiner notation empty.
    bool isEmpty() const;
    int wordCount() const { return lastIndex + 1; }

    // The row a new word is stored into: row 0 of an empty dictionary, otherwise one past the
    // last word (lastIndex grows). currentIndex becomes that row. Throws StoreFull when the
    // table has no room.
    int takeRowForNewWord();
    // After a new dictionary's header-only file is written: the words are emptied and the
    // store starts again at word 0.
    void emptyAfterNewDictionary();

    int lastIndex = 0;
    std::int32_t currentIndex = 0;
    DictionaryHeader header{};
    bool hasHeader = false;

    bool isChanged = false;
    bool newWordPending = false;
    bool editPending = false;
    bool composeAccepted = false;

    std::string dictionaryPath;
    std::string dictionaryName = "Words.nkd";
    // No file holds this dictionary yet (the start-up load failed and none was opened):
    // Save asks where to save rather than write over the file that failed.
    bool untitled = false;
    std::string dictionariesFolder;

    // Bulk access for loaders and sorts: rows 0..n-1 as a vector (allocating them).
    std::vector<WordRecord>& rowsForBulk(int n);

private:
    void check(int w, int f) const;
    WordRecord& ensure(int w);
    std::vector<WordRecord> rows_;
};

class StoreFull : public std::exception {
public:
    const char* what() const noexcept override {
        return "The dictionary is full: it holds 100,001 words, and no more can be stored.";
    }
};

} // namespace nebkaro
