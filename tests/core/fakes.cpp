#include "fakes.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace nebkaro::testing {

namespace fs = std::filesystem;

TempDir::TempDir() {
    static std::atomic<int> counter{0};
    path_ = fs::temp_directory_path() /
            ("nebkaro-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    fs::remove_all(path_);
    fs::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    // Folders made read-only by a test must become writable again to be removed.
    for (auto it = fs::recursive_directory_iterator(path_, ec);
         it != fs::recursive_directory_iterator(); ++it)
        fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(path_, ec);
}

fs::path TempDir::write(const std::string& relative, const std::string& bytes) const {
    auto p = path_ / relative;
    fs::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
    return p;
}

std::string readFile(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace nebkaro::testing
