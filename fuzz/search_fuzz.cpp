// The search's preparation of a pattern and of field values on any text: a field searched
// with "Exact match" for its own text is found, whatever the case and variant options.
#include "bulk/search.h"
#include "core/dictionary_store.h"
#include "core/errors.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    const int flags = data[0];
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const bool caseSensitive = flags & 1, ignoreVariants = flags & 2, exactWord = flags & 4;
    SearchCriteria c;
    try {
        c = prepareCriteria(text, exactWord ? 0 : 1, exactWord ? 1 : 0, caseSensitive ? 1 : 0,
                            ignoreVariants);
    } catch (const RunError& e) {
        FUZZ_CHECK(e.number() == InvalidPatternError);
        return 0;
    }
    DictionaryStore store;
    store.setField(0, FieldMeaning, text);
    store.lastIndex = 0;
    int found;
    try {
        found = findMatch(store, c, FieldMeaning, 0, 0, 1);
    } catch (const RunError& e) {
        FUZZ_CHECK(e.number() == InvalidPatternError);
        return 0;
    }
    if (text.find_first_of("*?/") == std::string::npos && !exactWord) FUZZ_CHECK(found == 0);
    return 0;
}
