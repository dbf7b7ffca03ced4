// Saving through a temporary file and a rename, so that a failed save never
// damages the file that was there.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/windows/AtomicFile.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Entries(const fs::path &dir) {
  std::vector<std::string> names;
  for (const auto &e : fs::directory_iterator(dir)) names.push_back(e.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// Lowers the file-size limit of the process for the life of the object.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    struct rlimit lowered = old_;
    lowered.rlim_cur = bytes;
    active_ = ::setrlimit(RLIMIT_FSIZE, &lowered) == 0;
  }
  ~FileSizeLimit() {
    if (active_) ::setrlimit(RLIMIT_FSIZE, &old_);
  }
  bool active() const { return active_; }

 private:
  struct rlimit old_ {};
  bool active_ = false;
};

TEST(AtomicSave, CreatesANewFile) {
  tolvtest::ScratchDir dir("atomic_new");
  std::string target = (dir.path() / "config.xml").string();
  ASSERT_TRUE(tolv::WriteFileAtomically(target, "<a/>"));
  EXPECT_EQ(tolvtest::ReadFileBytes(target), "<a/>");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"config.xml"});
}

TEST(AtomicSave, ReplacesTheOldFileAndKeepsItsPermissions) {
  tolvtest::ScratchDir dir("atomic_replace");
  fs::path target = dir.path() / "data.bin";
  tolvtest::WriteFileBytes(target, "old contents that are longer");
  ::chmod(target.c_str(), 0640);
  std::string bytes("new\0binary\xFF", 11);
  ASSERT_TRUE(tolv::WriteFileAtomically(target.string(), bytes));
  EXPECT_EQ(tolvtest::ReadFileBytes(target), bytes);
  struct stat st;
  ASSERT_EQ(::stat(target.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"data.bin"});
}

TEST(AtomicSave, EmptyContentGivesAnEmptyFile) {
  tolvtest::ScratchDir dir("atomic_empty");
  fs::path target = dir.path() / "e.txt";
  tolvtest::WriteFileBytes(target, "something");
  ASSERT_TRUE(tolv::WriteFileAtomically(target.string(), ""));
  EXPECT_EQ(fs::file_size(target), 0u);
}

TEST(AtomicSave, FailedWriteLeavesTheOldFileIntact) {
  tolvtest::ScratchDir dir("atomic_fsize");
  fs::path target = dir.path() / "project.xml";
  const std::string old = "<old>keep me</old>";
  tolvtest::WriteFileBytes(target, old);
  std::string big(200000, 'x');
  bool saved = true;
  {
    // Running as root, permissions don't stop a write; a file-size limit does.
    FileSizeLimit limit(4096);
    ASSERT_TRUE(limit.active());
    saved = tolv::WriteFileAtomically(target.string(), big);
  }
  EXPECT_FALSE(saved);
  EXPECT_EQ(tolvtest::ReadFileBytes(target), old);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"project.xml"});
  // With the limit gone the same save succeeds.
  ASSERT_TRUE(tolv::WriteFileAtomically(target.string(), big));
  EXPECT_EQ(fs::file_size(target), big.size());
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"project.xml"});
}

TEST(AtomicSave, ReadOnlyFolderLeavesTheOldFileIntact) {
  if (::geteuid() == 0)
    GTEST_SKIP() << "running as root, which writes into read-only folders; the failed-write "
                    "case is covered by the file-size-limit test";
  tolvtest::ScratchDir dir("atomic_readonly");
  fs::path folder = dir.path() / "locked";
  fs::create_directories(folder);
  fs::path target = folder / "a.xml";
  tolvtest::WriteFileBytes(target, "old");
  ::chmod(folder.c_str(), 0555);
  bool saved = tolv::WriteFileAtomically(target.string(), "new");
  ::chmod(folder.c_str(), 0755);
  EXPECT_FALSE(saved);
  EXPECT_EQ(tolvtest::ReadFileBytes(target), "old");
  EXPECT_EQ(Entries(folder), std::vector<std::string>{"a.xml"});
}

TEST(AtomicSave, MissingFolderOrEmptyPathFails) {
  tolvtest::ScratchDir dir("atomic_missing");
  EXPECT_FALSE(tolv::WriteFileAtomically((dir.path() / "no" / "such" / "f.xml").string(), "x"));
  EXPECT_FALSE(tolv::WriteFileAtomically("", "x"));
  EXPECT_TRUE(Entries(dir.path()).empty());
}

TEST(AtomicSave, TargetThatIsAFolderFailsWithoutLeftovers) {
  tolvtest::ScratchDir dir("atomic_dir");
  fs::create_directories(dir.path() / "folder");
  tolvtest::WriteFileBytes(dir.path() / "folder" / "inside", "x");
  EXPECT_FALSE(tolv::WriteFileAtomically((dir.path() / "folder").string(), "data"));
  EXPECT_TRUE(fs::is_directory(dir.path() / "folder"));
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "folder" / "inside"), "x");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"folder"});
}

TEST(AtomicRead, WholeFileOrFalse) {
  tolvtest::ScratchDir dir("atomic_read");
  std::string bytes(300000, '\0');
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31);
  tolvtest::WriteFileBytes(dir.path() / "big.bin", bytes);
  std::string read = "stale";
  ASSERT_TRUE(tolv::ReadWholeFile((dir.path() / "big.bin").string(), read));
  EXPECT_EQ(read, bytes);
  EXPECT_FALSE(tolv::ReadWholeFile((dir.path() / "absent").string(), read));
  EXPECT_FALSE(tolv::ReadWholeFile(dir.str(), read));
  tolvtest::WriteFileBytes(dir.path() / "empty", "");
  ASSERT_TRUE(tolv::ReadWholeFile((dir.path() / "empty").string(), read));
  EXPECT_TRUE(read.empty());
}

}  // namespace
