// Saving through a file opened with modeCreate: the old file is replaced
// whole on success and survives every failure, and no temporary stays.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/mfc/CArchive.h"
#include "platform/mfc/CFile.h"
#include "support/TestSupport.h"

namespace fs = std::filesystem;

namespace {

constexpr UINT kSaveMode = CFile::modeCreate | CFile::modeWrite;
static_assert(kSaveMode == 0x1001);

std::vector<std::string> Entries(const fs::path &folder) {
  std::vector<std::string> names;
  for (const auto &entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// Lowers the process's file-size limit while alive. Root is bound by it too,
// which makes it the way to make a write fail under any user.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    rlimit lowered = old_;
    lowered.rlim_cur = bytes;
    if (old_.rlim_max != RLIM_INFINITY && bytes > old_.rlim_max) lowered.rlim_cur = old_.rlim_max;
    ok_ = ::setrlimit(RLIMIT_FSIZE, &lowered) == 0;
  }
  ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &old_); }
  bool ok() const { return ok_; }

 private:
  rlimit old_{};
  bool ok_ = false;
};

constexpr rlim_t kLimit = 64 * 1024;
const std::string kOld = "the old content, which must survive";

// Saves `size` bytes through an archive, as a dictionary save does.
void SaveThroughArchive(const std::wstring &path, std::size_t size) {
  CFile file;
  if (!file.Open(path.c_str(), kSaveMode)) throw std::runtime_error("open failed");
  file.SetLength(0);
  file.Flush();
  CArchive ar(&file, CArchive::store, 4096);
  std::string chunk(1000, 'n');
  for (std::size_t done = 0; done < size; done += chunk.size()) {
    std::size_t n = std::min(chunk.size(), size - done);
    ar.Write(chunk.data(), static_cast<UINT>(n));
  }
  ar.Flush();
  ar.Close();
  file.Close();
}

}  // namespace

TEST(CFileSave, SaveOverAnExistingFileReplacesItEntirely) {
  tolvtest::ScratchDir dir("save_replace");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", std::string(5000, 'o'));
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("d.dat").c_str(), kSaveMode));
  EXPECT_EQ(file.GetLength(), 0u);
  file.SetLength(0);
  file.Flush();
  file.Write("short", 5);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), "short");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, TargetKeepsItsOldContentUntilClose) {
  tolvtest::ScratchDir dir("save_until_close");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("d.dat").c_str(), kSaveMode));
  file.Write("new", 3);
  file.Flush();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()).size(), 2u);  // the target and the temporary beside it
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), "new");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, NewFileAppearsOnlyOnClose) {
  tolvtest::ScratchDir dir("save_new");
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("n.dat").c_str(), kSaveMode));
  file.Write("x", 1);
  EXPECT_FALSE(fs::exists(dir.path() / "n.dat"));
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "n.dat"), "x");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"n.dat"});
}

TEST(CFileSave, OldPermissionsAreKept) {
  tolvtest::ScratchDir dir("save_mode");
  fs::path p = dir.path() / "m.dat";
  tolvtest::WriteFileBytes(p, kOld);
  ::chmod(p.c_str(), 0640);
  SaveThroughArchive(dir.wide("m.dat"), 10);
  struct stat st {};
  ASSERT_EQ(::stat(p.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
}

TEST(CFileSave, SaveThroughASymbolicLinkReplacesTheFileItPointsAt) {
  tolvtest::ScratchDir dir("save_link");
  tolvtest::WriteFileBytes(dir.path() / "real.dat", kOld);
  fs::create_symlink(dir.path() / "real.dat", dir.path() / "link.dat");
  SaveThroughArchive(dir.wide("link.dat"), 1000);
  EXPECT_TRUE(fs::is_symlink(dir.path() / "link.dat"));
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "real.dat"), std::string(1000, 'n'));
  EXPECT_EQ(Entries(dir.path()), (std::vector<std::string>{"link.dat", "real.dat"}));
}

TEST(CFileSave, DestroyingAnOpenFileInTheNormalFlowCommits) {
  tolvtest::ScratchDir dir("save_dtor");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  {
    CFile file(dir.wide("d.dat").c_str(), kSaveMode);
    file.Write("kept", 4);
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), "kept");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, AbortKeepsTheOldFile) {
  tolvtest::ScratchDir dir("save_abort");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  CFile file(dir.wide("d.dat").c_str(), kSaveMode);
  file.Write("lost", 4);
  file.Abort();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, FailedWriteThrowsDiskFullAndKeepsTheOldFile) {
  tolvtest::ScratchDir dir("save_fsize");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  {
    FileSizeLimit limit(kLimit);
    ASSERT_TRUE(limit.ok());
    CFile file;
    ASSERT_TRUE(file.Open(dir.wide("d.dat").c_str(), kSaveMode));
    std::string chunk(16 * 1024, 'z');
    int cause = -1;
    try {
      for (int i = 0; i < 16; ++i) file.Write(chunk.data(), static_cast<UINT>(chunk.size()));
    } catch (const CFileException &e) {
      cause = e.m_cause;
    }
    EXPECT_EQ(cause, CFileException::diskFull);
    // The save can't succeed any more: Close reports it and discards.
    cause = -1;
    try {
      file.Close();
    } catch (const CFileException &e) {
      cause = e.m_cause;
    }
    EXPECT_EQ(cause, CFileException::diskFull);
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, FailedWriteCaughtThenDestroyedKeepsTheOldFile) {
  tolvtest::ScratchDir dir("save_fsize_dtor");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  {
    FileSizeLimit limit(kLimit);
    ASSERT_TRUE(limit.ok());
    CFile file(dir.wide("d.dat").c_str(), kSaveMode);
    std::string big(kLimit * 2, 'z');
    EXPECT_THROW(file.Write(big.data(), static_cast<UINT>(big.size())), CFileException);
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, ExceptionEscapingAnArchiveSaveKeepsTheOldFile) {
  tolvtest::ScratchDir dir("save_escape");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  {
    FileSizeLimit limit(kLimit);
    ASSERT_TRUE(limit.ok());
    EXPECT_THROW(SaveThroughArchive(dir.wide("d.dat"), kLimit * 4), CFileException);
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});

  // And the same save within the limit goes through.
  SaveThroughArchive(dir.wide("d.dat"), kLimit * 4);
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat").size(), kLimit * 4);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, OtherExceptionUnwindingPastAnOpenFileDiscardsTheSave) {
  tolvtest::ScratchDir dir("save_unwind");
  tolvtest::WriteFileBytes(dir.path() / "d.dat", kOld);
  try {
    CFile file(dir.wide("d.dat").c_str(), kSaveMode);
    file.Write("half", 4);
    throw std::runtime_error("the caller gave up");
  } catch (const std::runtime_error &) {
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, FailedCloseThrowsAndRemovesTheTemporary) {
  tolvtest::ScratchDir dir("save_close_fail");
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("t.dat").c_str(), kSaveMode));
  file.Write("data", 4);
  // Something takes the target's place meanwhile: a folder that isn't empty.
  fs::create_directory(dir.path() / "t.dat");
  tolvtest::WriteFileBytes(dir.path() / "t.dat" / "inside", "i");
  EXPECT_THROW(file.Close(), CFileException);
  EXPECT_FALSE(file.IsOpen());
  EXPECT_TRUE(fs::is_directory(dir.path() / "t.dat"));
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "t.dat" / "inside"), "i");
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"t.dat"});
}

TEST(CFileSave, ReadOnlyFolderRefusesTheSaveAndKeepsTheOldFile) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "running as root, which writes into read-only folders; "
                    "the file-size-limit tests cover failed saves instead";
  }
  tolvtest::ScratchDir dir("save_readonly");
  fs::create_directory(dir.path() / "ro");
  tolvtest::WriteFileBytes(dir.path() / "ro" / "d.dat", kOld);
  ::chmod((dir.path() / "ro").c_str(), 0555);
  CFile file;
  CFileException error;
  EXPECT_FALSE(file.Open(dir.wide("ro/d.dat").c_str(), kSaveMode, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  ::chmod((dir.path() / "ro").c_str(), 0755);
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "ro" / "d.dat"), kOld);
  EXPECT_EQ(Entries(dir.path() / "ro"), std::vector<std::string>{"d.dat"});
}

TEST(CFileSave, ReadOnlyTargetFileRefusesTheSave) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "running as root, for whom every file is writable";
  }
  tolvtest::ScratchDir dir("save_readonly_file");
  fs::path p = dir.path() / "d.dat";
  tolvtest::WriteFileBytes(p, kOld);
  ::chmod(p.c_str(), 0444);
  CFile file;
  CFileException error;
  EXPECT_FALSE(file.Open(dir.wide("d.dat").c_str(), kSaveMode, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  EXPECT_FALSE(file.Open(dir.wide("d.dat").c_str(), kSaveMode | CFile::modeNoTruncate, &error));
  EXPECT_TRUE(file.Open(dir.wide("d.dat").c_str(), CFile::modeRead));
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(p), kOld);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"d.dat"});
}
