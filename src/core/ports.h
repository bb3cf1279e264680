#pragma once
// The few things the logic asks of the desktop: questions and messages, files chosen by the
// user, the clipboard, a chance for the window system to breathe during long loops, and the
// size of a sign's picture. The program implements them with Qt; tests with scripted fakes.
#include "core/library_direction.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace nebkaro {

enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { OK, Cancel, Yes, No };

// An empty title means the program's own title, "Nebkaro".
struct Dialogs {
    virtual ~Dialogs() = default;
    virtual Answer message(const std::string& text, const std::string& title, Buttons buttons,
                           Icon icon) = 0;
    // nullopt when the user cancels.
    virtual std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                             const std::string& defaultText) = 0;
    // Filters are written the old way, "Name (*.ext)|*.ext|Other (*.x)|*.x". nullopt on cancel.
    virtual std::optional<std::filesystem::path>
    openFile(const std::string& filter, const std::filesystem::path& proposed) = 0;
    virtual std::optional<std::filesystem::path>
    saveFile(const std::string& filter, const std::filesystem::path& proposed) = 0;
    virtual void beep() = 0;
};

struct Clipboard {
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void setText(const std::string& text) = 0;
    virtual std::string text() = 0;
    // A picture, handed over as PNG bytes (the window puts it on the clipboard as an image).
    virtual void setImagePng(const std::vector<std::uint8_t>& png) = 0;
};

struct EventPump {
    virtual ~EventPump() = default;
    // Lets the window system process pending events (repaint, a Cancel click).
    virtual void yield() = 0;
};

// A picture's file name, shared by every copy: a word's signs are looked up and handed on
// for every word drawn, and a copy is then a count, not a path taken apart again.
class SignFile {
public:
    SignFile() = default;
    SignFile(std::filesystem::path path)
        : path_(std::make_shared<const std::filesystem::path>(std::move(path))) {}
    SignFile(const std::string& path) : SignFile(std::filesystem::path(path)) {}
    SignFile(const char* path) : SignFile(std::filesystem::path(path)) {}

    const std::filesystem::path& path() const { return path_ ? *path_ : none(); }
    operator const std::filesystem::path&() const { return path(); }
    std::string string() const { return path().string(); }
    const char* c_str() const { return path().c_str(); }
    std::filesystem::path filename() const { return path().filename(); }
    std::filesystem::path parent_path() const { return path().parent_path(); }
    std::filesystem::path stem() const { return path().stem(); }

    friend bool operator==(const SignFile& a, const SignFile& b) { return a.path() == b.path(); }
    friend bool operator==(const SignFile& a, const std::filesystem::path& b) {
        return a.path() == b;
    }
    friend bool operator==(const SignFile& a, const std::string& b) { return a.path() == b; }
    friend bool operator==(const SignFile& a, const char* b) { return a.path() == b; }
    friend std::ostream& operator<<(std::ostream& out, const SignFile& f) {
        return out << f.path();
    }

private:
    static const std::filesystem::path& none() {
        static const std::filesystem::path empty;
        return empty;
    }
    std::shared_ptr<const std::filesystem::path> path_;
};

// A sign's picture: its file and natural size in twips (pixels x 15). ok is false when the
// file is missing or is not a picture; the size is then that of an empty slot.
struct SignPicture {
    SignFile file;
    int width = 0;
    int height = 0;
    bool ok = false;
};

struct SignPictures {
    virtual ~SignPictures() = default;
    virtual SignPicture picture(Library library, Direction direction, const std::string& code) = 0;
    // While on, a picture asked for again may be the one found before: work over the whole
    // dictionary turns it on so that each sign's file is read once, not once per word.
    virtual void rememberPictures(bool on) { (void)on; }
};

// Remembering pictures for as long as the guard lives.
class RememberedPictures {
public:
    explicit RememberedPictures(SignPictures& p) : p_(p) { p_.rememberPictures(true); }
    ~RememberedPictures() { p_.rememberPictures(false); }
    RememberedPictures(const RememberedPictures&) = delete;
    RememberedPictures& operator=(const RememberedPictures&) = delete;

private:
    SignPictures& p_;
};

// Writes a whole file so that either the new contents or the old file survive.
struct FileWriter {
    virtual ~FileWriter() = default;
    // Throws RunError (PathNotFound, PathFileAccess, DiskFull, ...) on failure.
    virtual void write(const std::filesystem::path& path, const std::string& bytes) = 0;
};

} // namespace nebkaro
