#include "core/files.h"

#include "core/errors.h"
#include "core/text.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <random>
#include <sstream>
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
} // namespace

std::string readFileBytes(const fs::path& path) {
    std::error_code ec;
    if (fs::is_directory(path, ec)) throw RunError(PathFileAccess);
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) throw RunError(errorForErrno(errno, path));
    std::string data;
    // One read of the whole file where its size is known; a file that grows meanwhile, or a
    // special file, is read on in blocks.
    struct stat st;
    if (::fstat(::fileno(f), &st) == 0 && st.st_size > 0) {
        data.resize(static_cast<std::size_t>(st.st_size));
        data.resize(std::fread(data.data(), 1, data.size(), f));
    }
    char buf[1 << 16];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) data.append(buf, n);
    bool bad = std::ferror(f);
    std::fclose(f);
    if (bad) throw RunError(PathFileAccess);
    return data;
}

void AtomicFileWriter::write(const fs::path& path, const std::string& bytes) {
    fs::path dir = path.parent_path();
    if (dir.empty()) dir = ".";
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) throw RunError(PathNotFound);
    if (fs::is_directory(path, ec)) throw RunError(PathFileAccess);
    std::string hidden = ".";
    hidden += path.filename().string();
    hidden += ".XXXXXX";
    const std::string tmpl = (dir / hidden).string();
    std::vector<char> name(tmpl.begin(), tmpl.end());
    name.push_back('\0');
    int fd = mkstemp(name.data());
    if (fd < 0) throw RunError(errorForErrno(errno, path));
    const fs::path tmp(name.data());
    auto fail = [&](int e) {
        ::close(fd);
        ::unlink(tmp.c_str());
        throw RunError(errorForErrno(e, path));
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
        throw RunError(errorForErrno(e, path));
    }
    if (::rename(tmp.c_str(), path.c_str()) != 0) {
        int e = errno;
        ::unlink(tmp.c_str());
        throw RunError(errorForErrno(e, path));
    }
}

bool gifSize(const std::string& bytes, int& width, int& height) {
    if (bytes.size() < 10 ||
        (bytes.compare(0, 6, "GIF87a") != 0 && bytes.compare(0, 6, "GIF89a") != 0))
        return false;
    auto u = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    width = u(6) | (u(7) << 8);
    height = u(8) | (u(9) << 8);
    return width > 0 && height > 0;
}

fs::path signPicturePath(const fs::path& home, const std::string& library,
                         const std::string& direction, const std::string& code) {
    std::string first;
    if (!code.empty()) {
        std::u32string u = text::toU32(code);
        first = text::toUtf8(u.substr(0, 1));
    }
    return home / library / direction / first / (code + ".GIF");
}

void FolderSignPictures::rememberPictures(bool on) {
    remember_ = on;
    if (!on) remembered_.clear();
}

SignPicture FolderSignPictures::picture(const std::string& library, const std::string& direction,
                                        const std::string& code) {
    std::string key;
    if (remember_) {
        key.reserve(library.size() + direction.size() + code.size() + 2);
        key.append(library).append(1, '/').append(direction).append(1, '/').append(code);
        if (const auto it = remembered_.find(key); it != remembered_.end()) return it->second;
    }
    SignPicture p = readPicture(library, direction, code);
    if (remember_) remembered_.emplace(std::move(key), p);
    return p;
}

SignPicture FolderSignPictures::readPicture(const std::string& library,
                                            const std::string& direction,
                                            const std::string& code) const {
    SignPicture p;
    p.file = resolveCaseBlind(signPicturePath(home_, library, direction, code));
    p.width = p.height = EmptySlotSize;
    int w = 0, h = 0;
    std::string head;
    if (std::FILE* f = std::fopen(p.file.c_str(), "rb")) {
        char buf[16];
        std::size_t n = std::fread(buf, 1, sizeof buf, f);
        std::fclose(f);
        head.assign(buf, n);
    }
    if (gifSize(head, w, h)) {
        p.width = w * 15;
        p.height = h * 15;
        p.ok = true;
    }
    return p;
}

} // namespace nebkaro
