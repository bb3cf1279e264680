#pragma once
// The five choices that outlive a run, kept in <home>/System/Settings.nks.
#include "core/library_direction.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace nebkaro {

struct App;

struct Settings {
    Library library = Library::Basic;
    Direction direction = Direction::Left;
    bool showAbout = true;
    bool showDictionaryInfo = true;
    // Not kept in the file: draft 0, low -2, medium -3, high -4.
    int printQuality = 0;
    // The word view's zoom in per cent (100 to 400), and the scale (1 to 8) a word's
    // picture is copied and saved at. Written only when they are not the defaults, under
    // keys that readers which do not know them pass over.
    int wordZoom = 100;
    int pictureScale = 1;
};

// A settings file is a few lines; anything much larger is not one.
inline constexpr std::uintmax_t MaxSettingsBytes = 1u << 20;

std::filesystem::path settingsPath(const std::filesystem::path& home);

// The text written for the current values (without the final extra line end added on write).
std::string settingsText(const Settings& settings, const std::string& dictionaryName);
// Value of the first case-blind occurrence of key, from the "=" after it to the line end,
// trimmed; empty text when the key is absent.
std::string getSettingValue(const std::string& text, const std::string& key);
// Defaults, then the file's values; a missing or empty file gives a notice.
void applySettings(App& app, const std::filesystem::path& path);
// Writes the settings file, creating the System folder when it is missing.
void writeSettingsFile(App& app, const std::filesystem::path& path);

} // namespace nebkaro
