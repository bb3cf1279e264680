#include "core/files.h"

#include "core/errors.h"
#include "core/text.h"
#include "core/twips.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <random>
#include <sstream>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace nebkaro {

fs::path resolveCaseBlind(const fs::path& path) {
    std::error_code ec;
    if (fs::exists(path, ec)) return path;
    fs::path parent = path.parent_path();
    if (parent.empty() || parent == path) return path;
    fs::path dir = resolveCaseBlind(parent);
    if (!fs::is_directory(dir, ec)) return path;
    const std::string want = text::upper(path.filename().string());
    for (const auto& entry : fs::directory_iterator(dir, ec)) {
        if (text::upper(entry.path().filename().string()) == want) return entry.path();
    }
    return dir / path.filename();
}

namespace {
int errorForErrno(int e, const fs::path& path) {
    switch (e) {
    case ENOENT: {
        std::error_code ec;
        auto parent = path.parent_path();
        if (!parent.empty() && !fs::is_directory(parent, ec)) return PathNotFound;
        return FileNotFound;
    }
    case ENOTDIR:
        return PathNotFound;
    case ENOSPC:
    case EDQUOT:
        return DiskFull;
    default:
        return PathFileAccess;
    }
}

std::string quoted(const fs::path& path) {
    return "'" + path.string() + "'";
}

// A write error that says which file and why.
[[noreturn]] void writeFailed(int e, const fs::path& path) {
    const int number = errorForErrno(e, path);
    switch (number) {
    case PathNotFound:
    case FileNotFound:
        throw RunError(PathNotFound,
                       "Path not found: the folder of " + quoted(path) + " does not exist");
    case DiskFull:
        throw RunError(DiskFull, "Disk full: " + quoted(path) + " could not be written");
    default:
        if (e == EACCES || e == EPERM || e == EROFS)
            throw RunError(PathFileAccess,
                           "Path/File access error: " + quoted(path) + " may be 'Read Only'");
        throw RunError(PathFileAccess,
                       "Path/File access error: " + quoted(path) + ": " + std::strerror(e));
    }
}

[[noreturn]] void notRegular(const fs::path& path) {
    throw RunError(PathFileAccess,
                   quoted(path) + " is not a regular file (a folder, a device or a pipe)");
}
} // namespace

void preferHugePages(const void* memory, std::size_t size) {
    constexpr std::uintptr_t huge = std::uintptr_t{1} << 21;
    if (size < 2 * huge) return;
    const auto at = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t from = (at + huge - 1) & ~(huge - 1);
    const std::uintptr_t to = (at + size) & ~(huge - 1);
    // Only advice: where the system has no huge pages, nothing changes.
    if (to > from) ::madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
}

std::string readFileBytes(const fs::path& path, std::uintmax_t limit) {
    // The kind of file is known before it is opened: opening a pipe for reading would wait
    // for a writer.
    struct stat st;
    if (::stat(path.c_str(), &st) != 0) throw RunError(errorForErrno(errno, path));
    if (!S_ISREG(st.st_mode)) notRegular(path);
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) throw RunError(errorForErrno(errno, path));
    auto fail = [&](RunError e) {
        ::close(fd);
        throw e;
    };
    // Replaced by something else between the look and the opening.
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        notRegular(path);
    }
    const auto tooLarge = [&] {
        return RunError(PathFileAccess, quoted(path) + " is larger than " +
                                            std::to_string(limit >> 20) +
                                            " MB, more than the program reads");
    };
    if (static_cast<std::uintmax_t>(st.st_size) > limit) fail(tooLarge());
    // One byte more than the file holds, so that the read that finds its end needs no larger
    // buffer: the dictionary's text is kept as read, and a doubled buffer would stay with it.
    std::string data;
    data.reserve(static_cast<std::size_t>(st.st_size) + 1);
    preferHugePages(data.data(), data.capacity());
    data.resize(static_cast<std::size_t>(st.st_size) + 1);
    std::size_t done = 0;
    // A file that grows meanwhile is read on, up to the limit.
    for (;;) {
        if (done == data.size()) {
            if (done > limit) fail(tooLarge());
            data.resize(static_cast<std::size_t>(
                std::min<std::uintmax_t>(std::max<std::size_t>(done * 2, 1 << 16), limit + 1)));
        }
        const ssize_t n = ::read(fd, data.data() + done, data.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            fail(RunError(PathFileAccess));
        }
        if (n == 0) break;
        done += static_cast<std::size_t>(n);
    }
    ::close(fd);
    data.resize(done);
    if (done > limit) throw tooLarge();
    // A file that grew while it was read leaves room to spare.
    if (data.capacity() > done + done / 8 + 64) data.shrink_to_fit();
    return data;
}

fs::path saveTarget(const fs::path& path) {
    fs::path p = path;
    // Each link is resolved against its own folder; a loop ends as the system would end it.
    for (int hops = 0;; ++hops) {
        struct stat st;
        if (::lstat(p.c_str(), &st) != 0) return p; // nothing there yet: a new file
        if (S_ISLNK(st.st_mode)) {
            if (hops == 40) throw RunError(PathFileAccess, quoted(path) + ": too many links");
            std::error_code ec;
            const fs::path to = fs::read_symlink(p, ec);
            if (ec) writeFailed(ec.value(), path);
            p = to.is_absolute() ? to : p.parent_path() / to;
            continue;
        }
        if (!S_ISREG(st.st_mode)) notRegular(path);
        return p;
    }
}

std::string temporaryNamePattern(const std::string& fileName, long pid) {
    return "." + fileName + ".nebkaro-" + std::to_string(pid) + "-XXXXXX";
}

namespace {
// The process id in a name made from temporaryNamePattern, or 0 when the name is not one.
long temporaryNamePid(const std::string& name) {
    if (name.size() < 2 || name[0] != '.') return 0;
    const std::size_t tag = name.rfind(".nebkaro-");
    if (tag == std::string::npos || tag == 0) return 0;
    const std::size_t digits = tag + 9;
    const std::size_t dash = name.find('-', digits);
    if (dash == std::string::npos || dash == digits || name.size() - dash - 1 != 6) return 0;
    long pid = 0;
    for (std::size_t i = digits; i < dash; ++i) {
        if (name[i] < '0' || name[i] > '9' || dash - digits > 9) return 0;
        pid = pid * 10 + (name[i] - '0');
    }
    for (std::size_t i = dash + 1; i < name.size(); ++i)
        if (!std::isalnum(static_cast<unsigned char>(name[i]))) return 0;
    return pid;
}

bool processRuns(long pid) {
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

// Removes from dir the temporary files of our saves whose writing process no longer runs
// (their names carry the writer's process id); another running save's file stays.
void removeStaleTemporaries(const fs::path& dir) {
    std::error_code ec;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const long pid = temporaryNamePid(it->path().filename().string());
        if (pid <= 0 || pid == static_cast<long>(::getpid()) || processRuns(pid)) continue;
        struct stat st;
        if (::lstat(it->path().c_str(), &st) == 0 && S_ISREG(st.st_mode))
            ::unlink(it->path().c_str());
    }
}
} // namespace

void AtomicFileWriter::write(const fs::path& requested, const std::string& bytes) {
    const fs::path path = saveTarget(requested);
    fs::path dir = path.parent_path();
    if (dir.empty()) dir = ".";
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) writeFailed(ENOENT, path);
    removeStaleTemporaries(dir);
    const std::string tmpl =
        (dir / temporaryNamePattern(path.filename().string(), static_cast<long>(::getpid())))
            .string();
    std::vector<char> name(tmpl.begin(), tmpl.end());
    name.push_back('\0');
    int fd = mkstemp(name.data());
    if (fd < 0) writeFailed(errno, path);
    const fs::path tmp(name.data());
    auto fail = [&](int e) {
        ::close(fd);
        ::unlink(tmp.c_str());
        writeFailed(e, path);
    };
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (w < 0) {
            if (errno == EINTR) continue;
            fail(errno);
        }
        done += static_cast<std::size_t>(w);
    }
    if (::fsync(fd) != 0 && errno != EINVAL) fail(errno);
    // Keep the permissions of the file being replaced, if any.
    struct stat st;
    if (::stat(path.c_str(), &st) == 0) {
        if (::access(path.c_str(), W_OK) != 0) fail(EACCES);
        ::fchmod(fd, st.st_mode & 07777);
    } else {
        ::fchmod(fd, 0644);
    }
    if (::close(fd) != 0) {
        int e = errno;
        ::unlink(tmp.c_str());
        writeFailed(e, path);
    }
    if (::rename(tmp.c_str(), path.c_str()) != 0) {
        int e = errno;
        ::unlink(tmp.c_str());
        writeFailed(e, path);
    }
}

namespace {

// A sign code that can name a picture file: not empty, no path separators, no control
// characters, not starting with a dot. Anything else never reaches the file system.
bool isCodeShaped(const std::string& code) {
    if (code.empty() || code.size() > 64 || code[0] == '.') return false;
    for (unsigned char c : code)
        if (c < 0x20 || c == 0x7F || c == '/' || c == '\\') return false;
    return true;
}

// The natural size of a GIF read from its header (logical screen width and height), in
// pixels; false when the bytes are not a GIF.
bool gifSize(const std::string& bytes, int& width, int& height) {
    if (bytes.size() < 10 ||
        (bytes.compare(0, 6, "GIF87a") != 0 && bytes.compare(0, 6, "GIF89a") != 0))
        return false;
    auto u = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    width = u(6) | (u(7) << 8);
    height = u(8) | (u(9) << 8);
    return width > 0 && height > 0;
}
} // namespace

fs::path signPicturePath(const fs::path& home, Library library, Direction direction,
                         const std::string& code) {
    std::string first;
    if (!code.empty()) {
        std::u32string u = text::toU32(code);
        first = text::toUtf8(u.substr(0, 1));
    }
    return home / libraryName(library) / directionName(direction) / first / (code + ".GIF");
}

void FolderSignPictures::rememberPictures(bool on) {
    remember_ = on;
    if (!on) remembered_.clear();
}

const SignPicture& FolderSignPictures::rememberedPicture(Library library, Direction direction,
                                                         const std::string& code) {
    key_.assign(libraryLetter(library)).append(directionLetter(direction)).append(code);
    if (const auto it = remembered_.find(key_); it != remembered_.end()) return it->second;
    return remembered_.emplace(key_, readPicture(library, direction, code)).first->second;
}

SignPicture FolderSignPictures::picture(Library library, Direction direction,
                                        const std::string& code) {
    if (remember_) return rememberedPicture(library, direction, code);
    return readPicture(library, direction, code);
}

SignPicture FolderSignPictures::readPicture(Library library, Direction direction,
                                            const std::string& code) const {
    SignPicture p;
    if (!isCodeShaped(code)) {
        // Shown as missing, under a name that points nowhere.
        p.file = home_ / libraryName(library) / directionName(direction) / "?.GIF";
        p.width = p.height = EmptySlotSize;
        return p;
    }
    p.file = resolveCaseBlind(signPicturePath(home_, library, direction, code));
    p.width = p.height = EmptySlotSize;
    int w = 0, h = 0;
    std::string head;
    struct stat st;
    // Only a regular file is opened: a pipe named like a picture would hold the window.
    if (::stat(p.file.c_str(), &st) == 0 && S_ISREG(st.st_mode)) {
        const int fd = ::open(p.file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (fd >= 0) {
            char buf[16];
            const ssize_t n = ::read(fd, buf, sizeof buf);
            ::close(fd);
            if (n > 0) head.assign(buf, static_cast<std::size_t>(n));
        }
    }
    if (gifSize(head, w, h)) {
        p.width = w * TwipsPerPixel;
        p.height = h * TwipsPerPixel;
        p.ok = true;
    }
    return p;
}

} // namespace nebkaro
