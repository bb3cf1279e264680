#include "core/folders.h"

#include <cstdlib>

namespace fs = std::filesystem;

namespace nebkaro {

ProgramFolders
resolveFolders(const std::optional<fs::path>& home, const fs::path& executableFolder,
               const fs::path& shippedFromExecutable,
               const std::function<std::optional<std::string>(const char*)>& getenv) {
    if (home) {
        const fs::path one = fs::absolute(*home).lexically_normal();
        return {one, one};
    }
    std::error_code ec;
    if (fs::is_directory(executableFolder / "Lists", ec))
        return {executableFolder, executableFolder};
    ProgramFolders f;
    f.shipped = (executableFolder / shippedFromExecutable).lexically_normal();
    // A relative XDG_DATA_HOME is invalid and is to be ignored.
    const auto xdg = getenv("XDG_DATA_HOME");
    if (xdg && fs::path(*xdg).is_absolute()) {
        f.user = fs::path(*xdg) / "nebkaro";
    } else {
        const auto userHome = getenv("HOME");
        f.user = fs::path(userHome ? *userHome : fs::temp_directory_path().string()) / ".local" /
                 "share" / "nebkaro";
    }
    return f;
}

fs::path executableFolder() {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::current_path() : exe.parent_path();
}

std::optional<std::string> environmentValue(const char* name) {
    const char* v = std::getenv(name);
    if (!v || !*v) return std::nullopt;
    return std::string(v);
}

bool prepareUserFolder(const ProgramFolders& folders) {
    if (!folders.separate()) return false;
    const bool created = !fs::exists(folders.user);
    for (const char* sub : {"System", "Dictionaries", "Images"})
        fs::create_directories(folders.user / sub);
    const fs::path settings = fs::path("System") / "Settings.nks";
    std::error_code ec;
    if (!fs::exists(folders.user / settings) &&
        fs::is_regular_file(folders.shipped / settings, ec)) {
        fs::copy_file(folders.shipped / settings, folders.user / settings);
        // Installed files are read-only to the user; the copies are theirs to change.
        fs::permissions(folders.user / settings, fs::perms::owner_write, fs::perm_options::add);
    }
    if (created) {
        for (const auto& e : fs::directory_iterator(folders.shipped / "Dictionaries", ec)) {
            if (!e.is_regular_file()) continue;
            const fs::path to = folders.user / "Dictionaries" / e.path().filename();
            fs::copy_file(e.path(), to, fs::copy_options::skip_existing);
            fs::permissions(to, fs::perms::owner_write, fs::perm_options::add);
        }
    }
    return created;
}

} // namespace nebkaro
