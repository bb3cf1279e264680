#pragma once
// The sign list of the chosen library, the phonetic and classic-order tables, and the order
// of Gardiner codes.
#include "core/library_direction.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace nebkaro {

struct SignLists {
    static constexpr int MaxSigns = 7000;
    static constexpr int MaxPhoneticRows = 501;

    // Entries 1..signCount; index 0 unused.
    std::vector<std::string> signCodes = std::vector<std::string>(MaxSigns + 1);
    int signCount = 0;
    // Entries before "A1": the monoliterals.
    int preambleCount = 0;
    // Row k is the character with code k + 63 ('?', '@', 'A'..'Z'); column 1 = how many codes
    // begin with it, column 2 = index of the first; column 0 is the browser's.
    std::array<std::array<int, 3>, 28> categoryTable{};

    // Rows by character code 0..255; column 0 encodes, column 1 decodes.
    std::array<std::array<std::string, 2>, 256> trans2Code{};

    // Rows 0..phoneticLast: column 0 Gardiner code, column 1 phonetic value.
    std::vector<std::array<std::string, 2>> phonetic =
        std::vector<std::array<std::string, 2>>(MaxPhoneticRows);
    int phoneticLast = -1;

    // Looks up a code in signCodes 1..signCount (exact); 0 when absent.
    int findSign(const std::string& code) const;
    // First Phonetic row whose column `column` equals value; -1 when none.
    int findPhonetic(int column, const std::string& value) const;
};

// Each throws ProgramFileError (naming the file) when the file cannot be read or is malformed.
void loadSignList(SignLists& lists, const std::filesystem::path& home, Library library);
void loadTrans2Code(SignLists& lists, const std::filesystem::path& home);
void loadPhonetic(SignLists& lists, const std::filesystem::path& home);

// The same from text already read, for tests and tools; errors as RunError.
void parseSignList(SignLists& lists, const std::string& text);
void parseTrans2Code(SignLists& lists, const std::string& text);
void parsePhonetic(SignLists& lists, const std::string& text);

// True when a sorts after b in Gardiner order: codes by category, number and variant, part
// after part; a notation that is the beginning of another sorts first; parts without a number
// compare as text. Both may be rewritten in place (blanks removed, ":" and "*" turned into
// "-") when their first characters agree. A total order: it never fails.
bool gardinerGreater(std::string& a, std::string& b);

} // namespace nebkaro
