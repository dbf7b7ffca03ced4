// Files that are not what a pattern file should be: each gives a clean
// result, without a crash, a hang or a huge allocation.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "PatternTestSupport.h"

namespace {

using pattest::ReadPats;
using pattest::WritePats;

TEST(PatternBadInput, EmptyFileGivesNoEntries) {
  KyPats pats;
  ReadPats(pats, "");
  EXPECT_EQ(pats.GetLength(), 0);
  EXPECT_EQ(WritePats(pats), "");
}

TEST(PatternBadInput, FileOfOnlyAHeadGivesNoEntries) {
  KyPats pats;
  ReadPats(pats, "*LONELY, no data\n");
  EXPECT_EQ(pats.GetLength(), 0);
}

TEST(PatternBadInput, FileOfOnlyCommentsKeepsAllButTheLast) {
  KyPats pats;
  ReadPats(pats, ";one\n;two\n;three\n");
  ASSERT_EQ(pats.GetLength(), 2);
  EXPECT_EQ(WritePats(pats), ";one\n;two\n");
}

TEST(PatternBadInput, LastLineWithoutNewlineIsRead) {
  KyPats pats;
  ReadPats(pats, "*NET, grid\n0,0,0,0,1\n90,0,0,0,1");
  ASSERT_EQ(pats.GetLength(), 1);
  EXPECT_EQ(pats.GetPData(0).m_lstData.GetLength(), 2);
  EXPECT_EQ(WritePats(pats), "*NET, grid\n0,0,0,0,1\n90,0,0,0,1\n");
}

TEST(PatternBadInput, HeadsWithoutDataAtTheEndLeaveOnlyTheLastOut) {
  KyPats pats;
  ReadPats(pats, "*NET, grid\n0,0,0,0,1\n*A,a\n*B,b\n*C,c");
  ASSERT_EQ(pats.GetLength(), 3);
  EXPECT_EQ(pats.Find(L"B"), 2);
  EXPECT_EQ(pats.Find(L"C"), -1);
}

TEST(PatternBadInput, BinaryFileReadsWritesAndScalesWithoutHarm) {
  std::mt19937 rng(7);
  std::string bytes;
  for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(rng());
  bytes += std::string("\0\0\0,\0\n*\xff\xfe,\x80\n", 13);
  pattest::MessageBoxes boxes;
  KyPats pats;
  ReadPats(pats, bytes);
  EXPECT_GT(pats.GetLength(), 0);
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) pats.GetPData(i).Scale(2.5);
  std::string out = WritePats(pats);
  EXPECT_FALSE(out.empty());
  KyPats again;
  ReadPats(again, out);
  EXPECT_GT(again.GetLength(), 0);
}

TEST(PatternBadInput, OneMegabyteHeadIsKeptWhole) {
  std::string head = "*BIG," + std::string(1 << 20, 'x');
  KyPats pats;
  ReadPats(pats, head + "\n0,0,0,0,1\n");
  ASSERT_EQ(pats.GetLength(), 1);
  EXPECT_EQ(pats.GetPData(0).m_strHead.GetLength(), static_cast<int>(head.size()));
  EXPECT_EQ(pats.Find(L"BIG"), 0);
  EXPECT_EQ(WritePats(pats), head + "\n0,0,0,0,1\n");
}

TEST(PatternBadInput, OneMegabyteDataLineIsMarkedOnce) {
  std::string line = "0,0,0,0," + std::string(1 << 20, '5');
  pattest::MessageBoxes boxes;
  KyPats pats;
  ReadPats(pats, "*BIG,x\n" + line + "\n");
  EXPECT_EQ(WritePats(pats), "*BIG,x\n;;?" + line + "\n");
  EXPECT_EQ(boxes.texts.size(), 1u);
  pats.GetPData(0).Scale(2);
  // A million fives read as a number overflow to infinity.
  EXPECT_EQ(pats.GetPData(0).m_lstData.GetPData(0).GetAt(4), CString(L"inf"));
}

TEST(PatternBadInput, HundredThousandFieldsInALine) {
  std::string line = "45";
  for (int i = 0; i < 100000; ++i) line += ",.5";
  pattest::MessageBoxes boxes;
  KyPats pats;
  ReadPats(pats, "*MANY,x\n" + line + "\n");
  KyPatData &data = pats.GetPData(0).m_lstData.GetPData(0);
  ASSERT_EQ(data.GetLength(), 100001);
  data.Scale(2);
  EXPECT_EQ(data.GetAt(1), CString(L"1"));
  EXPECT_EQ(data.GetAt(100000), CString(L"1"));
  std::string expected = "45";
  for (int i = 0; i < 100000; ++i) expected += ",1";
  EXPECT_EQ(WritePats(pats), "*MANY,x\n;;?" + expected + "\n");
  EXPECT_EQ(boxes.texts.size(), 1u);
}

TEST(PatternBadInput, LineOfOnlyCommasIsADataLineOfEmptyFields) {
  KyPats pats;
  ReadPats(pats, "*C,x\n" + std::string(100000, ',') + "\n");
  EXPECT_EQ(pats.GetPData(0).m_lstData.GetPData(0).GetLength(), 100001);
}

TEST(PatternBadInput, ExtremeNumbersScaleToTextWithoutCrash) {
  KyPats pats;
  ReadPats(pats, "*X,x\n0,1e308,nan,-0,inf,-1e308,1e-320,0x10,99999999999999999999\n");
  pats.GetPData(0).Scale(2);
  KyPatData &data = pats.GetPData(0).m_lstData.GetPData(0);
  EXPECT_EQ(data.GetAt(1), CString(L"inf"));
  EXPECT_NE(data.GetAt(2).Find(L"nan"), -1);
  EXPECT_EQ(data.GetAt(3), CString(L"-0"));
  EXPECT_EQ(data.GetAt(4), CString(L"inf"));
  EXPECT_EQ(data.GetAt(5), CString(L"-inf"));
  EXPECT_EQ(data.GetAt(6), CString(L"0"));
  EXPECT_EQ(data.GetAt(7), CString(L"32"));
  EXPECT_EQ(data.GetAt(8), CString(L"200000000000000000000"));
}

TEST(PatternBadInput, InvalidUtf8ReadsAsReplacementCharacters) {
  KyPats pats;
  ReadPats(pats, "*\xC0\xC1, bad\n0,0,0,0,1\n");
  ASSERT_EQ(pats.GetLength(), 1);
  EXPECT_EQ(pats.GetPData(0).FirstName(), CString(L"\xFFFD\xFFFD"));
}

TEST(PatternBadInput, ManyTinyEntries) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += ";c\n";
  KyPats pats;
  ReadPats(pats, text);
  EXPECT_EQ(pats.GetLength(), 19999);
}

}  // namespace

namespace {

TEST(PatternBadInput, BundledFileCutAnywhereReadsCleanly) {
  const std::string full = tolvtest::ReadFileBytes(std::string(TOLV_SOURCE_DIR) + "/share/support/tolv.pat");
  KyPats whole;
  pattest::ReadPats(whole, full);
  ASSERT_EQ(whole.GetLength(), 12);
  for (std::size_t cut = 0; cut < full.size(); cut += 13) {
    KyPats pats;
    pattest::ReadPats(pats, full.substr(0, cut));
    EXPECT_LE(pats.GetLength(), whole.GetLength()) << cut;
    // What was read is a prefix of the whole file's entries, the last one
    // perhaps cut short.
    for (std::int32_t i = 0; i + 1 < pats.GetLength(); ++i)
      EXPECT_EQ(pats.GetPData(i).m_strHead, whole.GetPData(i).m_strHead) << cut;
  }
}

}  // namespace
