// The settings reader on any text: no crash; and the writer's text reads back to the values.
#include "core/settings.h"
#include "core/text.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const char* key :
         {"Library", "Direction", "Dictionary Name", "Show About", "Show Dictionary Info", ""})
        (void)getSettingValue(text, key);
    if (size < 1) return 0;
    Settings s;
    s.library = data[0] & 1 ? Library::Basic : Library::Extended;
    s.direction = data[0] & 2 ? Direction::Left : Direction::Right;
    s.showAbout = data[0] & 4;
    s.showDictionaryInfo = data[0] & 8;
    std::string name = text::trim(text.substr(1));
    if (name.find_first_of("\r\n") != std::string::npos || name.find('\t') != std::string::npos)
        return 0;
    // A name holding another key would be found first; such names are not the reader's concern.
    const std::string upperName = text::upper(name);
    for (const char* key :
         {"LIBRARY", "DIRECTION", "SHOW ABOUT", "SHOW DICTIONARY INFO", "DICTIONARY NAME"})
        if (upperName.find(key) != std::string::npos) return 0;
    const std::string written = settingsText(s, name) + "\r\n";
    FUZZ_CHECK(getSettingValue(written, "Dictionary Name") == name);
    FUZZ_CHECK((text::upper(getSettingValue(written, "Library")) != "EXTENDED") ==
               (s.library == Library::Basic));
    FUZZ_CHECK((text::upper(getSettingValue(written, "Direction")) != "RIGHT") ==
               (s.direction == Direction::Left));
    return 0;
}
