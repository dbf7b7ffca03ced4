// The text file: UTF-8 lines with or without a byte-order mark, LF and
// CR LF ends, and UTF-8 output.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/mfc/CStdioFile.h"
#include "support/TestSupport.h"

namespace fs = std::filesystem;

namespace {

// Every line ReadString gives for a file of `bytes`.
std::vector<std::wstring> Lines(const std::string &bytes) {
  tolvtest::ScratchDir dir("stdio_lines");
  tolvtest::WriteFileBytes(dir.path() / "t.txt", bytes);
  CStdioFile file;
  EXPECT_TRUE(file.Open(dir.wide("t.txt").c_str(), CFile::modeRead | CFile::typeText));
  std::vector<std::wstring> lines;
  CString line = L"preset";
  while (file.ReadString(line)) lines.push_back(line.str());
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_FALSE(file.ReadString(line));  // and stays at the end
  file.Close();
  return lines;
}

using Wide = std::vector<std::wstring>;

}  // namespace

TEST(CStdioFileRead, Utf8LinesWithoutByteOrderMark) {
  EXPECT_EQ(Lines("\xE7\xAC\xAC\xE4\xB8\x80\xE8\xA1\x8C\nsecond\n"), (Wide{L"\x7B2C\x4E00\x884C", L"second"}));
}

TEST(CStdioFileRead, ByteOrderMarkIsSkipped) {
  EXPECT_EQ(Lines("\xEF\xBB\xBF" "abc\r\ndef"), (Wide{L"abc", L"def"}));
  EXPECT_EQ(Lines("\xEF\xBB\xBF"), Wide{});
  EXPECT_EQ(Lines("\xEF\xBB\xBF\n"), Wide{L""});
}

TEST(CStdioFileRead, OnlyALeadingByteOrderMarkIsSkipped) {
  EXPECT_EQ(Lines("a\n\xEF\xBB\xBF" "b\n"), (Wide{L"a", L"\xFEFF" L"b"}));
}

TEST(CStdioFileRead, CrLfAndLfEndsAndEmptyLines) {
  EXPECT_EQ(Lines("a\r\n\r\nb\n\nc"), (Wide{L"a", L"", L"b", L"", L"c"}));
  EXPECT_EQ(Lines("one\r\n"), Wide{L"one"});
  EXPECT_EQ(Lines("\n"), Wide{L""});
}

TEST(CStdioFileRead, EmptyFileHasNoLines) { EXPECT_EQ(Lines(""), Wide{}); }

TEST(CStdioFileRead, CrLfSplitAcrossReadChunksIsOneLineEnd) {
  std::string first(65535, 'x');
  std::vector<std::wstring> lines = Lines(first + "\r\ny\r\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], std::wstring(65535, L'x'));
  EXPECT_EQ(lines[1], L"y");
}

TEST(CStdioFileRead, LongLinesAndManyLinesReadWhole) {
  std::string bytes;
  for (int i = 0; i < 5000; ++i) bytes += std::string(static_cast<std::size_t>(i % 97), 'a') + "\n";
  std::vector<std::wstring> lines = Lines(bytes);
  ASSERT_EQ(lines.size(), 5000u);
  for (int i = 0; i < 5000; ++i) ASSERT_EQ(lines[static_cast<std::size_t>(i)].size(), static_cast<std::size_t>(i % 97));
}

TEST(CStdioFileRead, InvalidUtf8BecomesReplacementCharacters) {
  std::vector<std::wstring> lines = Lines("a\xFF" "b\n");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0], L"a\xFFFD" L"b");
}

TEST(CStdioFileRead, PositionFollowsTheLinesTaken) {
  tolvtest::ScratchDir dir("stdio_position");
  tolvtest::WriteFileBytes(dir.path() / "t.txt", "\xEF\xBB\xBF" "ab\r\ncd\nrest");
  CStdioFile file(dir.wide("t.txt").c_str(), CFile::modeRead);
  CString line;
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, CString(L"ab"));
  EXPECT_EQ(file.GetPosition(), 7u);
  char two[2];
  EXPECT_EQ(file.Read(two, 2), 2u);
  EXPECT_EQ(std::string(two, 2), "cd");
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, CString(L""));
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, CString(L"rest"));
  EXPECT_EQ(file.GetPosition(), file.GetLength());
  file.SeekToBegin();
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, CString(L"ab"));
}

TEST(CStdioFileRead, MissingFileFailsToOpenAndTheConstructorThrows) {
  tolvtest::ScratchDir dir("stdio_missing");
  CStdioFile file;
  CFileException error;
  EXPECT_FALSE(file.Open(dir.wide("none.txt").c_str(), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  EXPECT_THROW(CStdioFile(dir.wide("none.txt").c_str(), CFile::modeRead), CFileException);
}

TEST(CStdioFileWrite, TextModeWritesUtf8WithCrLf) {
  tolvtest::ScratchDir dir("stdio_write");
  {
    CStdioFile file;
    ASSERT_TRUE(file.Open(dir.wide("out.pat").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText));
    file.WriteString(L"*\x4E2D\x6587,desc");
    file.WriteString(L"\n");
    file.WriteString(L"45, 0,0, 0,.125\n");
    file.WriteString(L"kept\r\n");
    file.Close();
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "out.pat"),
            "*\xE4\xB8\xAD\xE6\x96\x87,desc\r\n45, 0,0, 0,.125\r\nkept\r\n");
  std::vector<std::wstring> lines;
  CStdioFile file(dir.wide("out.pat").c_str(), CFile::modeRead);
  CString line;
  while (file.ReadString(line)) lines.push_back(line.str());
  EXPECT_EQ(lines, (Wide{L"*\x4E2D\x6587,desc", L"45, 0,0, 0,.125", L"kept"}));
}

TEST(CStdioFileWrite, BinaryModeWritesLineEndsAsGiven) {
  tolvtest::ScratchDir dir("stdio_binary");
  CStdioFile file(dir.wide("b.txt").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
  file.WriteString(L"a\nb\n");
  file.WriteString(nullptr);
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "b.txt"), "a\nb\n");
}

TEST(CStdioFileWrite, WritingIsASaveThatReplacesTheFileOnClose) {
  tolvtest::ScratchDir dir("stdio_save");
  tolvtest::WriteFileBytes(dir.path() / "p.pat", "old\n");
  CStdioFile file(dir.wide("p.pat").c_str(), CFile::modeCreate | CFile::modeWrite);
  file.WriteString(L"new\n");
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "p.pat"), "old\n");
  file.Close();
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "p.pat"), "new\r\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator()), 1);
}

TEST(CStdioFileWrite, ReadingAWriteOnlyTextFileThrows) {
  tolvtest::ScratchDir dir("stdio_writeonly");
  CStdioFile file(dir.wide("w.txt").c_str(), CFile::modeCreate | CFile::modeWrite);
  CString line;
  EXPECT_THROW(file.ReadString(line), CFileException);
  file.Abort();
  EXPECT_FALSE(fs::exists(dir.path() / "w.txt"));
}
