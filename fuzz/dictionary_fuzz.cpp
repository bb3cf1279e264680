// The dictionary reader on any bytes: no crash, the packed reader the program loads with reads
// the same words as the plain one, and what the writer writes of what was read reads back to
// the same words whenever no value holds a quote or a line break.
#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/text.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text;
    ParsedDictionary d;
    try {
        // Text the program refuses to read (UTF-16) is refused here too.
        text = text::decodeFileText(std::string(reinterpret_cast<const char*>(data), size));
        d = readDictionaryText(text, 1000);
    } catch (const RunError&) {
        return 0;
    }
    const PackedDictionary packed = readDictionaryPacked(text, 1000);
    FUZZ_CHECK(packed.hasHeader == d.hasHeader && packed.header == d.header);
    FUZZ_CHECK(packed.stoppedEarly == d.stoppedEarly && packed.words.size() == d.words.size());
    for (std::size_t w = 0; w < d.words.size(); ++w)
        for (int f = 0; f < FieldCount; ++f)
            FUZZ_CHECK(packed.words.view(w, f) == d.words[w][static_cast<std::size_t>(f)]);
    auto writable = [](const std::string& v) {
        return v.find_first_of("\"\r\n") == std::string::npos;
    };
    for (const auto& v : d.header)
        if (!writable(v)) return 0;
    for (const auto& w : d.words)
        for (const auto& v : w)
            if (!writable(v)) return 0;
    DictionaryStore store;
    store.hasHeader = d.hasHeader;
    store.header = d.header;
    store.lastIndex = static_cast<int>(d.words.size()) - 1;
    for (int i = 0; i <= store.lastIndex; ++i)
        store.setRow(i, d.words[static_cast<std::size_t>(i)]);
    const std::string written = dictionaryFileText(store);
    if (written.empty()) return 0;
    const ParsedDictionary back = readDictionaryText(written, 1000);
    FUZZ_CHECK(back.hasHeader == d.hasHeader);
    FUZZ_CHECK(back.header == d.header);
    FUZZ_CHECK(back.words == d.words);
    FUZZ_CHECK(!back.stoppedEarly);
    return 0;
}
