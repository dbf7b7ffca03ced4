// The binary disk file: opening, reading, writing, seeking, paths and errors.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "platform/mfc/CFile.h"
#include "support/TestSupport.h"

namespace fs = std::filesystem;

namespace {

int FileCause(const std::function<void()> &action) {
  try {
    action();
  } catch (const CFileException &e) {
    return e.m_cause;
  }
  return -1;
}

std::string ReadAll(CFile &file) {
  std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
  file.SeekToBegin();
  bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
  return bytes;
}

ino_t Inode(const fs::path &p) {
  struct stat st {};
  ::stat(p.c_str(), &st);
  return st.st_ino;
}

// The path with every slash turned into a backslash, as the system writes it.
std::wstring Backslashed(std::wstring path) {
  std::replace(path.begin(), path.end(), L'/', L'\\');
  return path;
}

}  // namespace

TEST(CFileOpen, MissingFileGivesFalseAndFileNotFound) {
  tolvtest::ScratchDir dir("file_open");
  std::wstring path = dir.wide("missing.bin");
  CFile file;
  CFileException error;
  EXPECT_FALSE(file.Open(path.c_str(), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  EXPECT_EQ(error.m_strFileName, CString(path));
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(file.Open(path.c_str(), CFile::modeRead));  // without an error object
}

TEST(CFileOpen, ConstructorThrowsWhatOpenWouldReport) {
  tolvtest::ScratchDir dir("file_ctor");
  std::wstring path = dir.wide("missing.bin");
  EXPECT_EQ(FileCause([&] { CFile file(path.c_str(), CFile::modeRead); }), CFileException::fileNotFound);
  tolvtest::WriteFileBytes(dir.path() / "here.bin", "abc");
  CFile file(dir.wide("here.bin").c_str(), CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary);
  EXPECT_EQ(ReadAll(file), "abc");
}

TEST(CFileOpen, FoldersEmptyNamesAndBadModesAreRefused) {
  tolvtest::ScratchDir dir("file_refuse");
  fs::create_directory(dir.path() / "sub");
  CFile file;
  CFileException error;
  EXPECT_FALSE(file.Open(dir.wide("sub").c_str(), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  EXPECT_FALSE(file.Open(dir.wide("sub").c_str(), CFile::modeCreate | CFile::modeWrite, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  EXPECT_FALSE(file.Open(L"", CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::badPath);
  EXPECT_FALSE(file.Open(nullptr, CFile::modeRead, &error));
  tolvtest::WriteFileBytes(dir.path() / "a.bin", "a");
  EXPECT_FALSE(file.Open(dir.wide("a.bin").c_str(), 0x3, &error));
  EXPECT_FALSE(file.Open(dir.wide("nofolder/a.bin").c_str(), CFile::modeCreate | CFile::modeWrite, &error));
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator()), 2);
}

TEST(CFileOpen, SystemPathsWithBackslashesAndOtherCaseAreMapped) {
  tolvtest::ScratchDir dir("file_paths");
  fs::create_directory(dir.path() / "Data");
  tolvtest::WriteFileBytes(dir.path() / "Data" / "Sample.BIN", "mapped");
  CFile file;
  std::wstring path = Backslashed(dir.wide("data/sample.bin"));
  ASSERT_TRUE(file.Open(path.c_str(), CFile::modeRead));
  EXPECT_EQ(ReadAll(file), "mapped");
  EXPECT_EQ(file.GetFilePath(), CString(path));
  EXPECT_EQ(file.GetFileName(), CString(L"sample.bin"));
  file.Close();

  // A save through a mapped path lands on the existing file.
  ASSERT_TRUE(file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite));
  file.Write("new", 3);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "Data" / "Sample.BIN"), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.path() / "Data"), fs::directory_iterator()), 1);
}

TEST(CFileAccess, ReadWriteSeekLengthAndPositionInPlace) {
  tolvtest::ScratchDir dir("file_rw");
  fs::path p = dir.path() / "data.bin";
  tolvtest::WriteFileBytes(p, "0123456789");
  ino_t before = Inode(p);

  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("data.bin").c_str(), CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 10u);
  EXPECT_EQ(file.GetPosition(), 0u);
  EXPECT_EQ(file.Seek(3, CFile::begin), 3u);
  char two[2];
  EXPECT_EQ(file.Read(two, 2), 2u);
  EXPECT_EQ(std::string(two, 2), "34");
  EXPECT_EQ(file.GetPosition(), 5u);
  EXPECT_EQ(file.Seek(-1, CFile::current), 4u);
  EXPECT_EQ(file.Seek(-2, CFile::end), 8u);
  file.Write("xy", 2);
  EXPECT_EQ(file.GetPosition(), 10u);
  char rest[8];
  EXPECT_EQ(file.Read(rest, 8), 0u);  // at the end
  EXPECT_EQ(file.SeekToEnd(), 10u);
  file.SetLength(4);
  EXPECT_EQ(file.GetLength(), 4u);
  file.SetLength(6);
  file.Flush();
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(p), std::string("0123\0\0", 6));
  EXPECT_EQ(Inode(p), before);  // edited in place
}

TEST(CFileAccess, ShortReadAtTheEndGivesTheBytesThereAre) {
  tolvtest::ScratchDir dir("file_short");
  tolvtest::WriteFileBytes(dir.path() / "s.bin", "abc");
  CFile file(dir.wide("s.bin").c_str(), CFile::modeRead);
  char buffer[16];
  EXPECT_EQ(file.Read(buffer, 16), 3u);
  EXPECT_EQ(file.Read(buffer, 16), 0u);
}

TEST(CFileAccess, SeekBeforeTheStartThrowsBadSeek) {
  tolvtest::ScratchDir dir("file_seek");
  tolvtest::WriteFileBytes(dir.path() / "s.bin", "abc");
  CFile file(dir.wide("s.bin").c_str(), CFile::modeRead);
  EXPECT_EQ(FileCause([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
  EXPECT_EQ(FileCause([&] { file.Seek(-4, CFile::end); }), CFileException::badSeek);
  EXPECT_EQ(FileCause([&] { file.Seek(0, 7); }), CFileException::badSeek);
  EXPECT_EQ(file.Seek(10, CFile::begin), 10u);  // past the end is allowed
}

TEST(CFileAccess, ReadingAWriteOnlyFileAndWritingAReadOnlyOneThrowAccessDenied) {
  tolvtest::ScratchDir dir("file_denied");
  tolvtest::WriteFileBytes(dir.path() / "a.bin", "abc");
  char buffer[4];
  {
    CFile file(dir.wide("a.bin").c_str(), CFile::modeWrite);
    EXPECT_EQ(FileCause([&] { file.Read(buffer, 4); }), CFileException::accessDenied);
  }
  {
    CFile file(dir.wide("a.bin").c_str(), CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(FileCause([&] { file.Read(buffer, 4); }), CFileException::accessDenied);
    file.Abort();
  }
  CFile file(dir.wide("a.bin").c_str(), CFile::modeRead);
  EXPECT_EQ(FileCause([&] { file.Write("x", 1); }), CFileException::accessDenied);
  EXPECT_EQ(FileCause([&] { file.SetLength(0); }), CFileException::accessDenied);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "a.bin"), "abc");
}

TEST(CFileAccess, ClosedFileThrowsInvalidFile) {
  CFile file;
  char buffer[1];
  EXPECT_EQ(FileCause([&] { file.Read(buffer, 1); }), CFileException::invalidFile);
  EXPECT_EQ(FileCause([&] { file.Write("x", 1); }), CFileException::invalidFile);
  EXPECT_EQ(FileCause([&] { file.GetLength(); }), CFileException::invalidFile);
  file.Close();  // nothing to close
  file.Abort();
}

TEST(CFileAccess, NoTruncateKeepsTheContentAndAppends) {
  tolvtest::ScratchDir dir("file_append");
  tolvtest::WriteFileBytes(dir.path() / "log.txt", "first;");
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("log.txt").c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 6u);
  EXPECT_EQ(file.GetPosition(), 0u);
  file.SeekToEnd();
  file.Write("second;", 7);
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "log.txt"), "first;");  // not yet
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "log.txt"), "first;second;");

  // Without an old file it starts empty.
  ASSERT_TRUE(file.Open(dir.wide("new.txt").c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite));
  EXPECT_EQ(file.GetLength(), 0u);
  file.Write("n", 1);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "new.txt"), "n");
}

TEST(CFileAccess, OpenCommitsAFileThatIsStillOpen) {
  tolvtest::ScratchDir dir("file_reopen");
  CFile file;
  ASSERT_TRUE(file.Open(dir.wide("one.txt").c_str(), CFile::modeCreate | CFile::modeWrite));
  file.Write("1", 1);
  ASSERT_TRUE(file.Open(dir.wide("two.txt").c_str(), CFile::modeCreate | CFile::modeWrite));
  file.Write("2", 1);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "one.txt"), "1");
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "two.txt"), "2");
}

TEST(CFileAccess, ExceptionTextNamesTheCauseAndFile) {
  CFileException e(CFileException::diskFull, 28, L"E:\\x.dat");
  wchar_t text[64];
  EXPECT_TRUE(e.GetErrorMessage(text, 64));
  EXPECT_EQ(std::wstring(text), L"disk full: E:\\x.dat");
  EXPECT_TRUE(e.GetErrorMessage(text, 5));
  EXPECT_EQ(std::wstring(text), L"disk");
  EXPECT_FALSE(e.GetErrorMessage(text, 0));
  EXPECT_STREQ(e.what(), "disk full");
  EXPECT_EQ(CFileException::OsErrorToException(2), CFileException::fileNotFound);
}
