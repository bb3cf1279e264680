#include "core/settings.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/files.h"
#include "core/text.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace nebkaro {

std::string versionText() {
    return std::to_string(VersionMajor) + "." + std::to_string(VersionMinor) + "." +
           std::to_string(VersionRevision);
}

fs::path settingsPath(const fs::path& home) {
    return home / "System" / "Settings.nks";
}

std::string settingsText(const Settings& s, const std::string& dictionaryName) {
    std::string t = "Nebkaro Settings: \r\n\r\n";
    t += "Library = " + libraryName(s.library) + "\r\n";
    t += "Direction = " + directionName(s.direction) + "\r\n";
    t += "Dictionary Name = " + dictionaryName + "\r\n";
    t += std::string("Show About = ") + (s.showAbout ? "True" : "False") + "\r\n";
    t +=
        std::string("Show Dictionary Info = ") + (s.showDictionaryInfo ? "True" : "False") + "\r\n";
    if (s.wordZoom != 100) t += "Word View Zoom = " + std::to_string(s.wordZoom) + "\r\n";
    if (s.pictureScale != 1) t += "Word Picture Scale = " + std::to_string(s.pictureScale) + "\r\n";
    return t;
}

namespace {

// The whole file as text, empty when it cannot be read for any reason.
std::string readWholeFile(const fs::path& path) {
    try {
        return text::decodeFileText(readFileBytes(path, MaxSettingsBytes));
    } catch (const RunError&) {
        return {};
    }
}
} // namespace

std::string getSettingValue(const std::string& textValue, const std::string& key) {
    if (key.empty()) return {};
    // ASCII folding keeps byte offsets aligned with the original text; the keys are ASCII.
    auto fold = [](std::string v) {
        for (char& c : v)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        return v;
    };
    const std::size_t k = fold(textValue).find(fold(key));
    if (k == std::string::npos) return {};
    const std::size_t eq = textValue.find('=', k);
    if (eq == std::string::npos) return {};
    // Lines end in CR LF; a file edited on this system may have LF alone.
    std::size_t end = textValue.find('\n', eq);
    if (end == std::string::npos)
        end = textValue.size();
    else if (end > eq + 1 && textValue[end - 1] == '\r')
        --end;
    return text::trim(std::string_view(textValue).substr(eq + 1, end - eq - 1));
}

void applySettings(App& app, const fs::path& path) {
    Settings defaults;
    defaults.printQuality = app.settings.printQuality;
    app.settings = defaults;
    app.store.dictionaryName = "Words.nkd";
    const std::string t = readWholeFile(path);
    if (t.empty()) {
        app.dialogs.message("Settings file not found, applying default settings",
                            "Settings not found", Buttons::OK, Icon::Exclamation);
        return;
    }
    auto up = [&](const char* key) { return text::upper(getSettingValue(t, key)); };
    app.settings.library = libraryOfName(getSettingValue(t, "Library"));
    app.settings.direction = directionOfName(getSettingValue(t, "Direction"));
    app.store.dictionaryName = getSettingValue(t, "Dictionary Name");
    // A name is a file in the Dictionaries folder or a full path the user chose; a relative
    // name that climbs out of the folder was not written by this program.
    const fs::path named(app.store.dictionaryName);
    if (named.is_relative()) {
        for (const auto& part : named) {
            if (part != "..") continue;
            app.dialogs.message("The settings file names the dictionary '" +
                                    app.store.dictionaryName +
                                    "', outside the Dictionaries folder; Words.nkd is "
                                    "opened instead.",
                                "Settings", Buttons::OK, Icon::Exclamation);
            app.store.dictionaryName = "Words.nkd";
            break;
        }
    }
    const std::string about = up("Show About");
    app.settings.showAbout = !(about == "FALSE" || about == "NO");
    const std::string info = up("Show Dictionary Info");
    app.settings.showDictionaryInfo = !(info == "FALSE" || info == "NO");
    auto number = [&](const char* key, int fallback, int lo, int hi) {
        const std::string v = getSettingValue(t, key);
        if (v.empty() || v.size() > 6 || v.find_first_not_of("0123456789") != std::string::npos)
            return fallback;
        return std::clamp(std::stoi(v), lo, hi);
    };
    app.settings.wordZoom = number("Word View Zoom", 100, 100, 400);
    app.settings.pictureScale = number("Word Picture Scale", 1, 1, 8);
}

namespace {

// The dictionary as the settings file keeps it: its file name when it is in the Dictionaries
// folder, otherwise its full path.
std::string rememberedDictionaryName(const App& app) {
    const DictionaryStore& store = app.store;
    if (store.untitled || store.dictionaryPath.empty())
        return app.rememberedDictionary.empty() ? store.dictionaryName : app.rememberedDictionary;
    if (store.dictionariesFolder.empty()) return store.dictionaryName;
    std::error_code ec;
    const fs::path file = fs::absolute(fs::path(store.dictionaryPath), ec);
    if (fs::weakly_canonical(file.parent_path(), ec) ==
        fs::weakly_canonical(fs::path(store.dictionariesFolder), ec))
        return file.filename().string();
    return file.lexically_normal().string();
}
} // namespace

void writeSettingsFile(App& app, const fs::path& path) {
    const std::string t = settingsText(app.settings, rememberedDictionaryName(app)) + "\r\n";
    std::error_code ec;
    if (!fs::is_directory(path.parent_path(), ec)) fs::create_directories(path.parent_path(), ec);
    app.files.write(path, t);
}

} // namespace nebkaro
