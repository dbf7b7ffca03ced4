#include "support/TestSupport.h"

#include <atomic>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace tolvtest {

namespace {
std::atomic<int> g_counter{0};

std::wstring Widen(const std::string &s) {
  // Scratch paths are ASCII; a byte-wise widening is exact for them.
  return std::wstring(s.begin(), s.end());
}
}  // namespace

ScratchDir::ScratchDir(const std::string &tag) {
  path_ = std::filesystem::path(TOLV_BINARY_DIR) / "scratch" /
          (tag + "." + std::to_string(::getpid()) + "." + std::to_string(g_counter++));
  std::filesystem::remove_all(path_);
  std::filesystem::create_directories(path_);
}

ScratchDir::~ScratchDir() {
  std::error_code ec;
  // A test may have made things read-only; make them removable again.
  for (auto it = std::filesystem::recursive_directory_iterator(path_, ec);
       !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
    std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
  }
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, ec);
  std::filesystem::remove_all(path_, ec);
}

std::wstring ScratchDir::wide() const { return Widen(path_.string()); }
std::wstring ScratchDir::wide(const std::string &child) const {
  return Widen((path_ / child).string());
}

std::string ReadFileBytes(const std::filesystem::path &p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void WriteFileBytes(const std::filesystem::path &p, const std::string &bytes) {
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace tolvtest
