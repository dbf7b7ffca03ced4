// The 80-character limit of data lines: marking and the message.
#include <gtest/gtest.h>

#include <string>

#include "PatternTestSupport.h"

namespace {

const std::wstring kMessage =
    L"一个数据行的长度超过了80个字符,该行起始处已加上“;;?”标志,\t\t\t\t\t \n"
    L"请找到出现“;;?”标志的数据行，手动调整数据精度使长度不超过80个字符,\t\t\t\t\t \n"
    L"最后去掉“;;?”标志!";

// A data line of exactly n characters: "0,0,0,0,1,..." padded in the last field.
std::string LineOf(std::size_t n) {
  std::string line = "0,0,0,0,";
  line += std::string(n - line.size(), '1');
  return line;
}

TEST(PatternLength, LineOfEightyIsWrittenUnmarked) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*LONG,x\n" + LineOf(80) + "\n");
  EXPECT_EQ(pattest::WritePats(pats), "*LONG,x\n" + LineOf(80) + "\n");
  EXPECT_TRUE(boxes.texts.empty());
}

TEST(PatternLength, LineOfEightyOneIsMarkedAndTheUserTold) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*LONG,x\n" + LineOf(81) + "\n");
  EXPECT_EQ(pattest::WritePats(pats), "*LONG,x\n;;?" + LineOf(81) + "\n");
  ASSERT_EQ(boxes.texts.size(), 1u);
  EXPECT_EQ(boxes.texts[0], kMessage);
}

TEST(PatternLength, LengthCountsFieldsAndCommas) {
  KyPatData data;
  data << CString(L" 1 , 2 ,");
  EXPECT_EQ(data.GetWrittenLength(), 8);
}

TEST(PatternLength, EveryWriteMarksAnOverLongLineAgain) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*LONG,x\n" + LineOf(90) + "\n" + LineOf(20) + "\n");
  pattest::WritePats(pats);
  EXPECT_EQ(pattest::WritePats(pats), "*LONG,x\n;;?;;?" + LineOf(90) + "\n" + LineOf(20) + "\n");
  EXPECT_EQ(boxes.texts.size(), 2u);
}

TEST(PatternLength, EachOverLongLineGivesItsOwnMessage) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*A,x\n" + LineOf(100) + "\n*B,y\n" + LineOf(81) + "\n" + LineOf(200) + "\n");
  std::string out = pattest::WritePats(pats);
  EXPECT_EQ(boxes.texts.size(), 3u);
  EXPECT_EQ(out, "*A,x\n;;?" + LineOf(100) + "\n*B,y\n;;?" + LineOf(81) + "\n;;?" + LineOf(200) + "\n");
}

TEST(PatternLength, MarkedLineReadsBackAsAComment) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*LONG,x\n" + LineOf(81) + "\n0,0,0,0,1\n");
  KyPats again;
  pattest::ReadPats(again, pattest::WritePats(pats));
  ASSERT_EQ(again.GetLength(), 2);
  EXPECT_FALSE(again.GetPData(1).IsPat());
  EXPECT_TRUE(again.GetPData(0).IsEmpty());
}

TEST(PatternLength, ScalingThatLengthensALineIsCaughtAtTheWrite) {
  pattest::MessageBoxes boxes;
  KyPats pats;
  pattest::ReadPats(pats, "*A,x\n0,.1,.1,.1,.1,.1,-.1,.1,-.1,.1,-.1,.1,-.1,.1,-.1\n");
  pats.GetPData(0).Scale(1.0 / 3.0);
  std::string out = pattest::WritePats(pats);
  EXPECT_EQ(boxes.texts.size(), 1u);
  EXPECT_NE(out.find(";;?0,0.03333333,"), std::string::npos);
}

}  // namespace
