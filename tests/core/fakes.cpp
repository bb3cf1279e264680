#include "fakes.h"

#include <atomic>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace nebkaro::testing {

TempDir::TempDir() {
    static std::atomic<int> counter{0};
    path_ = std::filesystem::temp_directory_path() /
            ("nebkaro-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    // Folders made read-only by a test must become writable again to be removed.
    for (auto it = std::filesystem::recursive_directory_iterator(path_, ec);
         it != std::filesystem::recursive_directory_iterator(); ++it)
        std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
}

std::filesystem::path TempDir::write(const std::string& relative, const std::string& bytes) const {
    auto p = path_ / relative;
    std::filesystem::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
    return p;
}

std::string readFile(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

} // namespace nebkaro::testing
