#pragma once
// The one dictionary in memory: a fixed table of 100,001 words of seven text fields, the
// index of the last word and of the word on show, the header and the unsaved-work flags.
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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

// A span of a loaded dictionary's text: where one field's value lies in it.
struct TextSpan {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
};

// One row of the table. A row read from a file is seven spans into that file's text, which
// the store keeps whole (a word costs a few bytes, not seven allocations); the first time the
// row is asked for as strings or changed, it gets its own seven strings and keeps them.
class StoredRow {
public:
    StoredRow() = default;
    StoredRow(WordRecord record) : own_(std::make_unique<WordRecord>(std::move(record))) {}
    StoredRow(const std::string* text, const std::array<TextSpan, FieldCount>& spans)
        : text_(text), spans_(spans) {}
    StoredRow(const StoredRow& o)
        : text_(o.text_), spans_(o.spans_),
          own_(o.own_ ? std::make_unique<WordRecord>(*o.own_) : nullptr) {}
    StoredRow(StoredRow&&) noexcept = default;
    StoredRow& operator=(const StoredRow& o) {
        if (this != &o) *this = StoredRow(o);
        return *this;
    }
    StoredRow& operator=(StoredRow&&) noexcept = default;

    std::string_view view(int f) const {
        if (own_) return (*own_)[static_cast<std::size_t>(f)];
        if (!text_) return {};
        const TextSpan s = spans_[static_cast<std::size_t>(f)];
        return std::string_view(text_->data() + s.offset, s.length);
    }
    // The row's own strings, made from the spans the first time.
    WordRecord& record() {
        if (!own_) {
            auto r = std::make_unique<WordRecord>();
            for (int f = 0; f < FieldCount; ++f) (*r)[static_cast<std::size_t>(f)] = view(f);
            own_ = std::move(r);
            text_ = nullptr;
        }
        return *own_;
    }

private:
    const std::string* text_ = nullptr;
    std::array<TextSpan, FieldCount> spans_{};
    std::unique_ptr<WordRecord> own_;
};

// A dictionary's text with its words as rows of spans into it, as the file reader leaves them.
struct PackedWords {
    std::shared_ptr<const std::string> text;
    std::vector<StoredRow> rows;
    std::size_t size() const { return rows.size(); }
    std::string_view view(std::size_t w, int f) const { return rows[w].view(f); }
};

class DictionaryStore {
public:
    static constexpr int MaxWordIndex = 100000;

    // Bounds: w in 0..MaxWordIndex, f in 0..6; anything else is SubscriptOutOfRange.
    // The reference stays valid until that row is changed or the store cleared.
    const std::string& field(int w, int f) const;
    // The same text without making the row's strings: for walks over the whole dictionary.
    std::string_view view(int w, int f) const;
    void setField(int w, int f, std::string value);
    // A whole row; rows not yet written read as seven empty texts.
    const WordRecord& row(int w) const;
    void setRow(int w, WordRecord record);
    void swapRows(int a, int b);
    // Rows 0..n-1 of a file's words, from row `start` on (rows already there are replaced);
    // the store keeps the text they point into.
    void adoptWords(PackedWords words, int start);
    // Rows 0..order.size()-1 rearranged: entry k is the old index of the row that goes to k.
    void permuteRows(const std::vector<int>& order);
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

    // Bulk access for row moves: rows 0..n-1 as a vector (allocating them).
    std::vector<StoredRow>& rowsForBulk(int n);

private:
    void check(int w, int f) const;
    StoredRow& ensure(int w);
    // Rows turn into strings when asked for them as strings, hence mutable.
    mutable std::vector<StoredRow> rows_;
    std::vector<std::shared_ptr<const std::string>> texts_;
};

class StoreFull : public std::exception {
public:
    const char* what() const noexcept override {
        return "The dictionary is full: it holds 100,001 words, and no more can be stored.";
    }
};

} // namespace nebkaro
