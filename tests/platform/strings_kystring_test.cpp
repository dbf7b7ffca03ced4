// KyStringA (narrow code page 936 text) and KyStringW (inclusive ranges),
// including the steps of the floor-number reading that rest on them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/base/KyStringA.h"
#include "platform/base/KyStringW.h"

namespace {

TEST(KyStringANarrow, ChineseRoundTrip) {
  KyStringA a(L"中文名称");
  EXPECT_EQ(a.GetLength(), 8);  // two bytes a character in code page 936
  EXPECT_STREQ(a.GetString(), "\xD6\xD0\xCE\xC4\xC3\xFB\xB3\xC6");
  EXPECT_EQ(a.ToWide().str(), L"中文名称");
}

TEST(KyStringANarrow, MixedAsciiAndChinese) {
  KyStringA a(CString(L"A1楼层-2"));
  EXPECT_EQ(a.GetLength(), 8);
  EXPECT_EQ(a[0], 'A');
  EXPECT_EQ(a[1], '1');
  EXPECT_EQ(a.ToWide().str(), L"A1楼层-2");
  EXPECT_EQ(std::strcmp(a, "A1\xC2\xA5\xB2\xE3-2"), 0);
}

TEST(KyStringANarrow, CharacterOutsideTheCodePageBecomesQuestionMark) {
  // Hangul, Thai and characters beyond the BMP have no place in 936.
  EXPECT_STREQ(KyStringA(L"a\xD55C" L"b").GetString(), "a?b");
  EXPECT_STREQ(KyStringA(L"\x0E01").GetString(), "?");
  EXPECT_STREQ(KyStringA(L"x\U0001F600y").GetString(), "x?y");
  EXPECT_EQ(KyStringA(L"中\xD55C文").ToWide().str(), L"中?文");
}

TEST(KyStringANarrow, EuroSignHasItsCodePage936Byte) {
  // Code page 936 as the home platform has it keeps the euro sign at 0x80.
  KyStringA a(L"€");
  EXPECT_STREQ(a.GetString(), "\x80");
  EXPECT_EQ(a.ToWide().str(), L"€");
}

TEST(KyStringANarrow, NarrowSourceIsKeptAsItIs) {
  KyStringA a("\xD6\xD0x");
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a.ToWide().str(), L"中x");
  EXPECT_TRUE(KyStringA(static_cast<const char *>(nullptr)).IsEmpty());
  EXPECT_TRUE(KyStringA(static_cast<const wchar_t *>(nullptr)).IsEmpty());
  EXPECT_TRUE(KyStringA(L"a") == KyStringA("a"));
}

TEST(KyStringWReplace, RemovesBlanksOverTheWholeText) {
  KyStringW s(L"2 - 5");
  EXPECT_EQ(s.Replace(L" ", L"", 0, -1), 2);
  EXPECT_STREQ(s.GetString(), L"2-5");
  KyStringW t(L" 1 0 ");
  EXPECT_EQ(t.Replace(L" ", L"", 0, -1), 3);
  EXPECT_STREQ(t.GetString(), L"10");
  KyStringW none(L"12");
  EXPECT_EQ(none.Replace(L" ", L"", 0, -1), 0);
  EXPECT_STREQ(none.GetString(), L"12");
  KyStringW empty;
  EXPECT_EQ(empty.Replace(L" ", L"", 0, -1), 0);
  EXPECT_TRUE(empty.IsEmpty());
  KyStringW blanks(L"   ");
  EXPECT_EQ(blanks.Replace(L" ", L"", 0, -1), 3);
  EXPECT_TRUE(blanks.IsEmpty());
}

TEST(KyStringWReplace, OnlyInsideTheRange) {
  KyStringW s(L"a-a-a-a");
  EXPECT_EQ(s.Replace(L"a", L"b", 2, 4), 2);
  EXPECT_STREQ(s.GetString(), L"a-b-b-a");
  // An occurrence that runs past `to` isn't replaced.
  KyStringW t(L"abab");
  EXPECT_EQ(t.Replace(L"ab", L"X", 0, 2), 1);
  EXPECT_STREQ(t.GetString(), L"Xab");
  KyStringW u(L"中文中文");
  EXPECT_EQ(u.Replace(L"中", L"[中]"), 2);
  EXPECT_STREQ(u.GetString(), L"[中]文[中]文");
  KyStringW v(L"abc");
  EXPECT_EQ(v.Replace(L"", L"x"), 0);
  EXPECT_EQ(v.Replace(L"b", nullptr), 1);
  EXPECT_STREQ(v.GetString(), L"ac");
  EXPECT_EQ(v.Replace(L"a", L"z", 5, 9), 0);
  EXPECT_STREQ(v.GetString(), L"ac");
}

TEST(KyStringWFind, SeparatorsOfFloorNumbers) {
  KyStringW range(L"2-5");
  EXPECT_EQ(range.Find(L",", 0, -1), -1);
  EXPECT_EQ(range.Find(L"~", 0, -1), -1);
  EXPECT_EQ(range.Find(L"-", 0, -1), 1);
  EXPECT_EQ(KyStringW(L"2~5").Find(L"~", 0, -1), 1);
  EXPECT_EQ(KyStringW(L"2,5").Find(L",", 0, -1), 1);
  EXPECT_EQ(KyStringW(L"12,13").Find(L",", 0, -1), 2);
  // A leading minus is found at 0, which the floor grammar doesn't count.
  EXPECT_EQ(KyStringW(L"-2--1").Find(L"-", 0, -1), 0);
  EXPECT_EQ(KyStringW(L"10-12").Find(L"-", 0, -1), 2);
  EXPECT_EQ(KyStringW(L"").Find(L"-", 0, -1), -1);
}

TEST(KyStringWFind, BoundsAreInclusive) {
  KyStringW s(L"ab-cd-ef");
  EXPECT_EQ(s.Find(L"-"), 2);
  EXPECT_EQ(s.Find(L"-", 3), 5);
  EXPECT_EQ(s.Find(L"-", 3, 5), 5);
  EXPECT_EQ(s.Find(L"-", 3, 4), -1);
  EXPECT_EQ(s.Find(L"cd", 0, 4), 3);
  EXPECT_EQ(s.Find(L"cd", 0, 3), -1);  // "cd" would end past index 3
  EXPECT_EQ(s.Find(L"-", 6, 2), -1);
  EXPECT_EQ(s.Find(L"-", 100), -1);
  EXPECT_EQ(s.Find(L"-", -5, -1), 2);
  EXPECT_EQ(s.Find(L"x"), -1);
  EXPECT_EQ(s.Find(nullptr), -1);
}

TEST(KyStringWMid, InclusiveRanges) {
  KyStringW s(L"2-5");
  EXPECT_STREQ(s.Mid(0, 0).GetString(), L"2");
  EXPECT_STREQ(s.Mid(2, 2).GetString(), L"5");
  EXPECT_STREQ(s.Mid(0, 2).GetString(), L"2-5");
  KyStringW t(L"10-12");
  // With the separator taken at index 1: first is Mid(0, 0), last Mid(2, 4).
  EXPECT_STREQ(t.Mid(0, 0).GetString(), L"1");
  EXPECT_STREQ(t.Mid(2, 4).GetString(), L"-12");
  KyStringW u(L"12,13");
  EXPECT_STREQ(u.Mid(2, 4).GetString(), L",13");
  KyStringW v(L"-2--1");
  EXPECT_STREQ(v.Mid(1, 4).GetString(), L"2--1");
  // A `to` past the end stops at the end; an empty range gives empty text.
  EXPECT_STREQ(s.Mid(1, 100).GetString(), L"-5");
  EXPECT_STREQ(s.Mid(2, 1).GetString(), L"");
  EXPECT_STREQ(s.Mid(5, 9).GetString(), L"");
  EXPECT_STREQ(KyStringW(L"中文名称").Mid(1, 2).GetString(), L"文名");
}

TEST(KyStringWIsIntNumber, SignsDigitsAndEmpty) {
  EXPECT_TRUE(KyStringW(L"3").IsIntNumber());
  EXPECT_TRUE(KyStringW(L"-12").IsIntNumber());
  EXPECT_TRUE(KyStringW(L"+2").IsIntNumber());
  EXPECT_TRUE(KyStringW(L"007").IsIntNumber());
  EXPECT_FALSE(KyStringW(L",13").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"-").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"+").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"2--1").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"1.5").IsIntNumber());
  EXPECT_FALSE(KyStringW(L" 1").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"1a").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"--1").IsIntNumber());
  EXPECT_FALSE(KyStringW(L"一").IsIntNumber());
}

// The floor-number reading as the project document performs it, step by
// step, on this library's operations: blanks out, separator test that only
// records whether one was found after index 0, then the fixed split at 1.
struct FloorReading {
  bool ok = false;
  bool isRange = false;
  std::wstring first, last;
};

bool AllDigits(const KyStringW &text) {
  for (int i = 0; i < text.GetLength(); ++i) {
    wchar_t c = text[i];
    if (i == 0 && (c == L'-' || c == L'+')) continue;
    if (c < L'0' || c > L'9') return false;
  }
  return true;
}

FloorReading ReadFloor(KyStringW text) {
  FloorReading r;
  text.Replace(L" ", L"", 0, -1);
  int p = (text.Find(L",", 0, -1) > 0 || text.Find(L"~", 0, -1) > 0 || text.Find(L"-", 0, -1) > 0) ? 1 : 0;
  if (AllDigits(text)) {
    r.ok = true;
    return r;
  }
  if (p >= text.GetLength() - 1) return r;
  KyStringW first = text.Mid(0, p - 1), last = text.Mid(p + 1, text.GetLength() - 1);
  r.first = first.GetString();
  r.last = last.GetString();
  if (!first.IsIntNumber() || !last.IsIntNumber()) return r;
  r.ok = r.isRange = true;
  return r;
}

TEST(KyStringWFloorNumbers, ExamplesOfTheGrammar) {
  for (const wchar_t *single : {L"3", L"-1", L"+2", L""}) {
    FloorReading r = ReadFloor(KyStringW(single));
    EXPECT_TRUE(r.ok) << "text: " << testing::PrintToString(std::wstring(single));
    EXPECT_FALSE(r.isRange);
  }
  for (const wchar_t *range : {L"2-5", L"2~5", L"2,5", L"2 - 5"}) {
    FloorReading r = ReadFloor(KyStringW(range));
    EXPECT_TRUE(r.ok && r.isRange);
    EXPECT_EQ(r.first, L"2");
    EXPECT_EQ(r.last, L"5");
  }
  FloorReading twelve = ReadFloor(KyStringW(L"1-12"));
  EXPECT_TRUE(twelve.isRange);
  EXPECT_EQ(twelve.last, L"12");

  FloorReading tenToTwelve = ReadFloor(KyStringW(L"10-12"));
  EXPECT_TRUE(tenToTwelve.isRange);
  EXPECT_EQ(tenToTwelve.first, L"1");
  EXPECT_EQ(tenToTwelve.last, L"-12");

  FloorReading comma = ReadFloor(KyStringW(L"12,13"));
  EXPECT_FALSE(comma.ok);
  EXPECT_EQ(comma.last, L",13");

  FloorReading negative = ReadFloor(KyStringW(L"-2--1"));
  EXPECT_FALSE(negative.ok);
  EXPECT_EQ(negative.last, L"2--1");

  EXPECT_FALSE(ReadFloor(KyStringW(L"a")).ok);
}

TEST(KyStringWConversions, ToAndFromCString) {
  KyStringW w(CString(L"楼层"));
  CString back = w;
  EXPECT_EQ(back.str(), L"楼层");
  EXPECT_TRUE(KyStringW(L"a") == KyStringW(std::wstring(L"a")));
  EXPECT_TRUE(KyStringW(L"a") != KyStringW(L"b"));
  EXPECT_TRUE(KyStringW(L"a") < KyStringW(L"b"));
  EXPECT_TRUE(KyStringW(L"b") > KyStringW(L"a"));
  EXPECT_TRUE(KyStringW(static_cast<const wchar_t *>(nullptr)).IsEmpty());
}

}  // namespace
