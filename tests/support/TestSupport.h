// Helpers shared by the test programs: scratch folders and captured output.
#pragma once

#include <filesystem>
#include <string>

namespace tolvtest {

// A fresh empty folder under the build tree, removed when the object dies.
class ScratchDir {
 public:
  explicit ScratchDir(const std::string &tag);
  ~ScratchDir();
  ScratchDir(const ScratchDir &) = delete;
  ScratchDir &operator=(const ScratchDir &) = delete;

  const std::filesystem::path &path() const { return path_; }
  std::string str() const { return path_.string(); }
  // The POSIX path as a wide string, as the system's calls take it.
  std::wstring wide() const;
  std::wstring wide(const std::string &child) const;

 private:
  std::filesystem::path path_;
};

std::string ReadFileBytes(const std::filesystem::path &p);
void WriteFileBytes(const std::filesystem::path &p, const std::string &bytes);

}  // namespace tolvtest
