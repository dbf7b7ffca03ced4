// The memory file: growth, seeking, attached buffers and Detach.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/mfc/CMemFile.h"

namespace {

int FileCause(const std::function<void()> &action) {
  try {
    action();
  } catch (const CFileException &e) {
    return e.m_cause;
  }
  return -1;
}

std::string Contents(CMemFile &file) {
  std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
  file.SeekToBegin();
  bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
  return bytes;
}

}  // namespace

TEST(CMemFile, WritesGrowPastTheGrowthStepAndReadBack) {
  CMemFile file(16);
  std::string expected;
  for (int i = 0; i < 200; ++i) {
    std::string piece = std::to_string(i) + ",";
    file.Write(piece.data(), static_cast<UINT>(piece.size()));
    expected += piece;
  }
  EXPECT_EQ(file.GetLength(), expected.size());
  EXPECT_EQ(file.GetPosition(), expected.size());
  EXPECT_EQ(Contents(file), expected);
  char more[4];
  EXPECT_EQ(file.Read(more, 4), 0u);
}

TEST(CMemFile, SeekFromBeginCurrentAndEnd) {
  CMemFile file;
  file.Write("0123456789", 10);
  EXPECT_EQ(file.Seek(2, CFile::begin), 2u);
  EXPECT_EQ(file.Seek(3, CFile::current), 5u);
  EXPECT_EQ(file.Seek(-1, CFile::end), 9u);
  char c = 0;
  EXPECT_EQ(file.Read(&c, 1), 1u);
  EXPECT_EQ(c, '9');
  EXPECT_EQ(FileCause([&] { file.Seek(-11, CFile::end); }), CFileException::badSeek);
  EXPECT_EQ(FileCause([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
  EXPECT_EQ(file.GetPosition(), 10u);  // a refused seek moves nothing
}

TEST(CMemFile, WriteAfterSeekingPastTheEndLeavesZeros) {
  CMemFile file;
  file.Write("ab", 2);
  file.Seek(5, CFile::begin);
  EXPECT_EQ(file.GetLength(), 2u);
  file.Write("z", 1);
  EXPECT_EQ(Contents(file), std::string("ab\0\0\0z", 6));
}

TEST(CMemFile, SetLengthCutsAndExtends) {
  CMemFile file;
  file.Write("abcdef", 6);
  file.SetLength(3);
  EXPECT_EQ(file.GetPosition(), 3u);
  EXPECT_EQ(Contents(file), "abc");
  file.SetLength(5);
  EXPECT_EQ(Contents(file), std::string("abc\0\0", 5));
}

TEST(CMemFile, DetachGivesTheBufferAndEmptiesTheFile) {
  CMemFile file(1024);
  file.Write("hello", 5);
  ASSERT_EQ(file.GetLength(), 5u);
  BYTE *data = file.Detach();
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(std::memcmp(data, "hello", 5), 0);
  std::free(data);
  EXPECT_EQ(file.GetLength(), 0u);
  EXPECT_EQ(file.GetPosition(), 0u);
  file.Write("again", 5);
  EXPECT_EQ(Contents(file), "again");
}

TEST(CMemFile, DetachOfAnUnusedFileGivesNull) {
  CMemFile file;
  EXPECT_EQ(file.Detach(), nullptr);
}

TEST(CMemFile, AttachedFixedBufferIsUsedInPlaceAndNeverGrows) {
  BYTE buffer[8];
  std::memcpy(buffer, "abcdefgh", 8);
  CMemFile file(buffer, 8);
  EXPECT_EQ(file.GetLength(), 8u);
  EXPECT_EQ(Contents(file), "abcdefgh");
  file.SeekToBegin();
  file.Write("XY", 2);
  EXPECT_EQ(std::memcmp(buffer, "XYcdefgh", 8), 0);
  file.SeekToEnd();
  EXPECT_EQ(FileCause([&] { file.Write("!", 1); }), CFileException::diskFull);
  EXPECT_EQ(file.GetLength(), 8u);
  EXPECT_EQ(file.Detach(), buffer);  // not freed: the caller owns it
}

TEST(CMemFile, AttachedGrowableBufferIsTakenOver) {
  BYTE *buffer = static_cast<BYTE *>(std::malloc(4));
  ASSERT_NE(buffer, nullptr);
  CMemFile file;
  file.Attach(buffer, 4, 16);
  EXPECT_EQ(file.GetLength(), 0u);
  std::string text(100, 'g');
  file.Write(text.data(), 100);
  EXPECT_EQ(Contents(file), text);
  // The destructor frees the grown buffer.
}

TEST(CMemFile, CloseEmptiesTheFileAndOpenIsRefused) {
  CMemFile file;
  file.Write("abc", 3);
  file.Flush();
  file.Close();
  EXPECT_EQ(file.GetLength(), 0u);
  CFileException error;
  EXPECT_FALSE(file.Open(L"x.bin", CFile::modeRead, &error));
  EXPECT_TRUE(file.IsOpen());
}
