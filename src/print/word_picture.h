#pragma once
// A word's picture computed from its fields alone, the way the word view draws it off screen
// (every sign at its natural size, 32 twips of margin round the group), so that any word of
// the dictionary can be printed without being put on show first.
#include "core/dictionary_store.h"
#include "core/ports.h"
#include "core/word_view.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace nebkaro {
struct App;
}

namespace nebkaro::print {

// The picture of a word with these fields: its signs from the word's library and direction,
// in slot order. Signs placed left of or above the word's origin move the group right or
// down so that nothing falls outside the picture. A word without signs is the bare 64 x 64
// margin. Throws RunError when the layout string cannot be read (as the word view would).
WordPicture pictureOfRecord(SignPictures& pictures, const WordRecord& word);
// The same for word `index` of the dictionary.
WordPicture pictureOfWord(App& app, int index);

// Remembers every picture asked for, so that laying out a whole dictionary reads each sign's
// file once rather than once per word that uses it.
class CachedSignPictures : public SignPictures {
public:
    explicit CachedSignPictures(SignPictures& source) : source_(source) {}
    SignPicture picture(Library library, Direction direction, const std::string& code) override;

private:
    SignPictures& source_;
    std::map<std::tuple<Library, Direction, std::string>, SignPicture> cache_;
};

// A word as it is printed: its number (index), its fields and its picture (without signs
// when the layout could not be read).
struct PrintWord {
    int index = 0;
    WordRecord record;
    WordPicture picture;
};

// The given words of the dictionary, ready to print. A word whose layout string cannot be
// read is printed without signs rather than stopping the whole job.
std::vector<PrintWord> collectWords(App& app, const std::vector<int>& indices);
PrintWord makePrintWord(SignPictures& pictures, int index, const WordRecord& word);

} // namespace nebkaro::print
