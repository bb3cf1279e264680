#pragma once
// File access shared by the dictionary, settings and list readers.
#include "core/ports.h"

#include <filesystem>
#include <string>
#include <unordered_map>

namespace nebkaro {

// The path itself when it exists; otherwise a file of the same name in a different letter
// case in the same folder (folder names too, level by level), otherwise the path unchanged.
std::filesystem::path resolveCaseBlind(const std::filesystem::path& path);

// Whole file as bytes; throws RunError FileNotFound / PathNotFound / PathFileAccess.
std::string readFileBytes(const std::filesystem::path& path);

// Temporary file in the same folder, flushed, then renamed over the old one.
class AtomicFileWriter : public FileWriter {
public:
    void write(const std::filesystem::path& path, const std::string& bytes) override;
};

// The natural size of a GIF read from its header (logical screen width and height), in
// pixels; false when the bytes are not a GIF.
bool gifSize(const std::string& bytes, int& width, int& height);

// Sign pictures from the program folder: <home>/<library>/<direction>/<first letter>/<code>.GIF
class FolderSignPictures : public SignPictures {
public:
    explicit FolderSignPictures(std::filesystem::path home) : home_(std::move(home)) {}
    SignPicture picture(const std::string& library, const std::string& direction,
                        const std::string& code) override;
    void rememberPictures(bool on) override;
    static constexpr int EmptySlotSize = 612;

private:
    SignPicture readPicture(const std::string& library, const std::string& direction,
                            const std::string& code) const;
    std::filesystem::path home_;
    bool remember_ = false;
    std::unordered_map<std::string, SignPicture> remembered_;
};

// <home>/<library>/<direction>/<first character of the code>/<code>.GIF, before the
// case-blind look-up.
std::filesystem::path signPicturePath(const std::filesystem::path& home, const std::string& library,
                                      const std::string& direction, const std::string& code);

} // namespace nebkaro
