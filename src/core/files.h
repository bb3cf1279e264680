#pragma once
// File access shared by the dictionary, settings and list readers.
#include "core/ports.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>

namespace nebkaro {

// The path itself when it exists; otherwise a file of the same name in a different letter
// case in the same folder (folder names too, level by level), otherwise the path unchanged.
std::filesystem::path resolveCaseBlind(const std::filesystem::path& path);

// The most a file the program reads may hold: a full dictionary is far smaller.
inline constexpr std::uintmax_t MaxReadBytes = 256u << 20;

// Asks the system to back the untouched memory [memory, memory + size) with huge pages, if it
// has them: filling a large buffer then takes a few page faults instead of one per 4 KB,
// which cost more than reading a dictionary. For buffers of 4 MB and more.
void preferHugePages(const void* memory, std::size_t size);

// Whole file as bytes; throws RunError FileNotFound / PathNotFound / PathFileAccess. Only a
// regular file is read (a pipe, device or folder is refused at once, without waiting on it),
// and only up to limit bytes.
std::string readFileBytes(const std::filesystem::path& path, std::uintmax_t limit = MaxReadBytes);

// The file a save to path writes: a symbolic link is followed to its target (which need not
// exist yet). Throws RunError PathFileAccess, naming the file, when something other than a
// regular file stands there.
std::filesystem::path saveTarget(const std::filesystem::path& path);

// Temporary file in the same folder, flushed, then renamed over the old one; through a
// symbolic link to its target. Temporary files that a killed save left in that folder are
// removed first. Errors name the file.
class AtomicFileWriter : public FileWriter {
public:
    void write(const std::filesystem::path& path, const std::string& bytes) override;
};

// The temporary name pattern of a save to file by process pid, before mkstemp fills XXXXXX.
std::string temporaryNamePattern(const std::string& fileName, long pid);

// Sign pictures from the program folder: <home>/<library>/<direction>/<first letter>/<code>.GIF
class FolderSignPictures : public SignPictures {
public:
    explicit FolderSignPictures(std::filesystem::path home) : home_(std::move(home)) {}
    SignPicture picture(Library library, Direction direction, const std::string& code) override;
    void rememberPictures(bool on) override;
    static constexpr int EmptySlotSize = 612;

private:
    SignPicture readPicture(Library library, Direction direction, const std::string& code) const;
    std::filesystem::path home_;
    const SignPicture& rememberedPicture(Library library, Direction direction,
                                         const std::string& code);
    bool remember_ = false;
    std::string key_; // the look-up key, its buffer kept between look-ups
    std::unordered_map<std::string, SignPicture> remembered_;
};

// <home>/<library>/<direction>/<first character of the code>/<code>.GIF, before the
// case-blind look-up.
std::filesystem::path signPicturePath(const std::filesystem::path& home, Library library,
                                      Direction direction, const std::string& code);

} // namespace nebkaro
