// Heads, data lines and entries of a pattern file, one line at a time.
#include <gtest/gtest.h>

#include "PatternTestSupport.h"
#include "patterns/KyPat.h"

namespace {

KyPatData Line(const wchar_t *text) {
  KyPatData data;
  data << CString(text);
  return data;
}

TEST(PatternHead, FirstNameOfStarNameCommaDescriptionIsName) {
  EXPECT_EQ(KyPatHead(L"*NAME, a description").FirstName(), CString(L"NAME"));
}

TEST(PatternHead, FirstNameOfStarNameIsName) { EXPECT_EQ(KyPatHead(L"*NAME").FirstName(), CString(L"NAME")); }

TEST(PatternHead, FirstNameOfHeadWithoutStarIsTheWholeHead) {
  EXPECT_EQ(KyPatHead(L"; a comment, with a comma").FirstName(), CString(L"; a comment, with a comma"));
  EXPECT_EQ(KyPatHead(L"NAME,desc").FirstName(), CString(L"NAME,desc"));
}

TEST(PatternHead, FirstNameKeepsSpacesBeforeTheComma) {
  EXPECT_EQ(KyPatHead(L"*BRICK ,desc").FirstName(), CString(L"BRICK "));
  EXPECT_EQ(KyPatHead(L"*,nameless").FirstName(), CString(L""));
}

TEST(PatternHead, EmptyHeadIsEmptyAndNamesNothing) {
  KyPatHead head;
  EXPECT_TRUE(head.IsEmpty());
  EXPECT_EQ(head.FirstName(), CString(L""));
}

TEST(PatternHead, OrderIsOrdinalOrderOfTheWholeHead) {
  KyPatHead a(L"*A,x"), b(L"*A,y"), big(L"*a,x");
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_FALSE(a < a);
  EXPECT_TRUE(a < big);  // upper case sorts first
}

TEST(PatternData, SplitsAtEveryCommaWithoutTrimming) {
  KyPatData data = Line(L" 45, 0 ,,0.125,");
  ASSERT_EQ(data.GetLength(), 5);
  EXPECT_EQ(data.GetAt(0), CString(L" 45"));
  EXPECT_EQ(data.GetAt(1), CString(L" 0 "));
  EXPECT_EQ(data.GetAt(2), CString(L""));
  EXPECT_EQ(data.GetAt(3), CString(L"0.125"));
  EXPECT_EQ(data.GetAt(4), CString(L""));
  EXPECT_EQ(data.GetLine(), CString(L" 45, 0 ,,0.125,"));
}

TEST(PatternData, FillingAgainReplacesTheFields) {
  KyPatData data = Line(L"1,2,3,4,5,6,7");
  data << CString(L"9,8");
  ASSERT_EQ(data.GetLength(), 2);
  EXPECT_EQ(data.GetLine(), CString(L"9,8"));
}

TEST(PatternData, LineWithoutCommaIsOneField) {
  KyPatData data = Line(L"45");
  EXPECT_EQ(data.GetLength(), 1);
  EXPECT_EQ(data.GetWrittenLength(), 2);
}

TEST(PatternData, DataLinesHaveNoOrder) {
  KyPatData a = Line(L"0,0,0,0,1"), b = Line(L"90,0,0,0,1");
  EXPECT_FALSE(a < b);
  EXPECT_FALSE(a > b);
  EXPECT_FALSE(b < a);
}

TEST(PatternEntry, LineOfSpacesHasNoCommaAndIsIgnored) {
  KyPat pat;
  EXPECT_TRUE(pat << CString(L"      "));
  EXPECT_TRUE(pat.m_strHead.IsEmpty());
  EXPECT_TRUE(pat.IsEmpty());
  EXPECT_TRUE(pat << CString(L""));
  EXPECT_TRUE(pat.IsEmpty());
}

TEST(PatternEntry, FirstHeadLineIsStoredAndTheNextEndsTheEntry) {
  KyPat pat;
  EXPECT_TRUE(pat << CString(L"*ANSI31, ANSI Iron"));
  EXPECT_TRUE(pat << CString(L"45, 0,0, 0,.125"));
  EXPECT_FALSE(pat << CString(L"*ANSI32, ANSI Steel"));
  EXPECT_FALSE(pat << CString(L"; a comment"));
  EXPECT_EQ(pat.m_strHead, CString(L"*ANSI31, ANSI Iron"));
  ASSERT_EQ(pat.m_lstData.GetLength(), 1);
  EXPECT_EQ(pat.m_lstData.GetPData(0).GetLine(), CString(L"45, 0,0, 0,.125"));
}

TEST(PatternEntry, LineWithSemicolonOrStarIsAHeadEvenWithNumbers) {
  KyPat pat(L"*A,desc");
  EXPECT_FALSE(pat << CString(L"0,0,0,0,1 ; trailing comment"));
  EXPECT_FALSE(pat << CString(L"0,0,0,0,1*"));
  EXPECT_TRUE(pat.IsEmpty());
}

TEST(PatternEntry, DataBeforeAnyHeadIsKeptAndTheHeadStillTaken) {
  KyPat pat;
  EXPECT_TRUE(pat << CString(L"0,0,0,0,1"));
  EXPECT_TRUE(pat << CString(L"*LATE,head"));
  EXPECT_EQ(pat.m_strHead, CString(L"*LATE,head"));
  EXPECT_EQ(pat.m_lstData.GetLength(), 1);
}

TEST(PatternEntry, IsPatIsFalseForAHeadWithASemicolon) {
  EXPECT_TRUE(KyPat(L"*A, plain").IsPat());
  EXPECT_FALSE(KyPat(L";; comment").IsPat());
  EXPECT_FALSE(KyPat(L"*A, desc ; note").IsPat());
  EXPECT_TRUE(KyPat().IsPat());
}

TEST(PatternEntry, ConstructedFromATextHasThatHeadAndNoData) {
  KyPat pat(L"*NET,grid");
  EXPECT_EQ(pat.m_strHead, CString(L"*NET,grid"));
  EXPECT_TRUE(pat.IsEmpty());
  EXPECT_FALSE(static_cast<const KyPatHead &>(pat).IsEmpty());
}

TEST(PatternEntry, EqualByFirstNameOnly) {
  EXPECT_TRUE(KyPat(L"*NET,one") == KyPat(L"*NET,two"));
  EXPECT_TRUE(KyPat(L"*NET,one") == KyPat(L"NET"));
  EXPECT_FALSE(KyPat(L"*NET,one") == KyPat(L"*net,one"));
  EXPECT_FALSE(KyPat(L"*NET,one") == KyPat(L"*NET3,one"));
}

TEST(PatternEntry, OrderedByTheWholeHead) {
  KyPat a(L"*NET,one"), b(L"*NET,two");
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_FALSE(a > b);
  EXPECT_TRUE(a == b);  // equal names, ordered heads
}

TEST(PatternEntry, WritesHeadThenEachDataLine) {
  KyPats pats;
  KyPat *pat = new KyPat(L"*X, two lines");
  *pat << CString(L"0,0,0,0,1");
  *pat << CString(L"90, 0,0, 0,1, .5,-.5");
  pats.Append(pat);
  EXPECT_EQ(pattest::WritePats(pats), "*X, two lines\n0,0,0,0,1\n90, 0,0, 0,1, .5,-.5\n");
}

}  // namespace
