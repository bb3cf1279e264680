// Guess over the starter dictionary with the shipped phonetic table: what a student sees when
// pressing Guess on the words the program comes with.
#include "core/dictionary_file.h"
#include "core/files.h"
#include "core/glyph_table.h"
#include "core/sign_lists.h"
#include "core/text.h"
#include "display/layout.h"
#include "translit/guess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace nebkaro;

namespace {

const std::filesystem::path kData = NEBKARO_DATA_DIR;

// Guess cannot write the blanks, dots and hyphens that separate the parts of a stored
// transliteration ("Hm.f", "nTr aA"), so those do not count against it.
std::string lettersOnly(const std::string& s) {
    std::string out;
    for (char c : s)
        if (c != ' ' && c != '.' && c != '-') out += c;
    return out;
}

} // namespace

TEST(ShippedGuess, GivesTheStoredTransliterationForFourStarterWordsInFive) {
    SignLists lists;
    loadPhonetic(lists, kData);
    const ParsedDictionary dict = readDictionaryText(
        text::decodeFileText(readFileBytes(kData / "Dictionaries" / "Words.nkd")), 100001);
    ASSERT_GE(dict.words.size(), 600u);

    std::size_t right = 0;
    std::string misses;
    for (const WordRecord& w : dict.words) {
        GlyphTable glyphs;
        parseLayoutString(w[FieldLayout], glyphs);
        const std::string guess = guessTransliteration(glyphs, lists);
        if (guess == lettersOnly(w[FieldTranslit]))
            ++right;
        else
            misses += w[FieldTranslit] + " -> " + guess + "\n";
    }
    // Misses are honest: a determinative with a sound of its own, a weak ending the writing
    // leaves out, a complement written before its sign. The share must not fall under 80 %.
    EXPECT_GE(right * 100, dict.words.size() * 80)
        << right << " of " << dict.words.size() << " right; misses:\n"
        << misses;
}
