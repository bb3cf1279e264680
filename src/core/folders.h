#pragma once
// Where the program finds its files. Installed, they live in two folders: the shipped,
// read-only part (sign pictures, lists, fonts, help, the starter dictionary and default
// settings) under <prefix>/share/nebkaro, and the user's part (System/Settings.nks,
// Dictionaries, Images) in the user's data folder. Run from the build folder or with --home,
// one folder is both.
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace nebkaro {

struct ProgramFolders {
    std::filesystem::path shipped; // read only
    std::filesystem::path user;    // settings, dictionaries, saved pictures
    bool separate() const { return shipped != user; }
};

// The folders for a program whose executable is in executableFolder. home is --home DIR.
// The build stages the shipped files beside the executables (a Lists folder there says so);
// otherwise the shipped files are at shippedFromExecutable (relative to the executable's
// folder, e.g. "../share/nebkaro") and the user's at $XDG_DATA_HOME/nebkaro, by default
// $HOME/.local/share/nebkaro. getenv reads the environment (tests pass their own).
ProgramFolders resolveFolders(const std::optional<std::filesystem::path>& home,
                              const std::filesystem::path& executableFolder,
                              const std::filesystem::path& shippedFromExecutable,
                              const std::function<std::optional<std::string>(const char*)>& getenv);

// The folder of the running executable.
std::filesystem::path executableFolder();

// Environment look-up through std::getenv; unset and empty both give nothing.
std::optional<std::string> environmentValue(const char* name);

// Makes the user's folders exist. When the user folder itself was missing it is created and
// given copies of the shipped default settings and starter dictionaries; a settings file that
// went missing later is copied again. Returns true when the user folder was created now.
// Throws std::filesystem::filesystem_error when it cannot be made.
bool prepareUserFolder(const ProgramFolders& folders);

} // namespace nebkaro
