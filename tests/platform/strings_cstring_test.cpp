// CString and CStringArray: the MFC subset the module relies on, including
// the clamping rules MFC applies to out-of-range indices and counts.
#include <gtest/gtest.h>

#include <cwchar>

#include "platform/mfc/CString.h"

namespace {

TEST(CStringConstruction, WideNarrowAndCharacterSources) {
  EXPECT_EQ(CString(L"abc").str(), L"abc");
  EXPECT_TRUE(CString(static_cast<const wchar_t *>(nullptr)).IsEmpty());
  EXPECT_EQ(CString(L"abcdef", 3).str(), L"abc");
  EXPECT_TRUE(CString(L"abc", -1).IsEmpty());
  EXPECT_EQ(CString(L'x').str(), L"x");
  EXPECT_EQ(CString(L'-', 4).str(), L"----");
  EXPECT_TRUE(CString(L'-', 0).IsEmpty());
  // Narrow text is code page 936: "中文" is D6 D0 CE C4 there.
  EXPECT_EQ(CString("\xD6\xD0\xCE\xC4").str(), L"中文");
  EXPECT_EQ(CString("ab\xD6\xD0\xCE\xC4", 4).str(), L"ab中");
  EXPECT_TRUE(CString(static_cast<const char *>(nullptr)).IsEmpty());
  CString s;
  s = "\xC3\xFB\xB3\xC6";  // "名称"
  EXPECT_EQ(s.str(), L"名称");
  s = L'z';
  EXPECT_EQ(s.str(), L"z");
  s = static_cast<const wchar_t *>(nullptr);
  EXPECT_TRUE(s.IsEmpty());
}

TEST(CStringAccess, LengthEmptyGetAtAndPointer) {
  CString s(L"中文ab");
  EXPECT_EQ(s.GetLength(), 4);
  EXPECT_FALSE(s.IsEmpty());
  EXPECT_EQ(s.GetAt(0), L'中');
  EXPECT_EQ(s[3], L'b');
  s.SetAt(3, L'c');
  EXPECT_EQ(std::wcscmp(static_cast<const wchar_t *>(s), L"中文ac"), 0);
  EXPECT_EQ(std::wcslen(s), 4u);
  s.Empty();
  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(s.GetLength(), 0);
  EXPECT_EQ(std::wcslen(s.GetString()), 0u);
}

TEST(CStringCompare, OrdinalAndNoCase) {
  EXPECT_EQ(CString(L"abc").Compare(L"abc"), 0);
  EXPECT_LT(CString(L"abc").Compare(L"abd"), 0);
  EXPECT_GT(CString(L"abc").Compare(L"ab"), 0);
  // Ordinal: lower-case letters sort after upper-case ones.
  EXPECT_GT(CString(L"a").Compare(L"B"), 0);
  EXPECT_LT(CString(L"").Compare(L"a"), 0);
  EXPECT_EQ(CString(L"").Compare(nullptr), 0);
  // Ordinal by code unit: 中 (U+4E2D) sorts before 文 (U+6587).
  EXPECT_LT(CString(L"中").Compare(L"文"), 0);

  EXPECT_EQ(CString(L"ABC").CompareNoCase(L"abc"), 0);
  EXPECT_LT(CString(L"abc").CompareNoCase(L"ABD"), 0);
  EXPECT_GT(CString(L"Config.XML").CompareNoCase(L"config.xm"), 0);
  // Case folding goes to lower case, so '_' (0x5F) sorts before letters.
  EXPECT_LT(CString(L"_").CompareNoCase(L"A"), 0);
  EXPECT_EQ(CString(L"名称A").CompareNoCase(L"名称a"), 0);
  EXPECT_NE(CString(L"名称").CompareNoCase(L"名"), 0);
}

TEST(CStringCompare, Operators) {
  CString a(L"abc"), b(L"abd");
  EXPECT_TRUE(a == L"abc");
  EXPECT_TRUE(L"abc" == a);
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_TRUE(a <= L"abc");
  EXPECT_TRUE(a >= L"abb");
  EXPECT_FALSE(a == L"ABC");
}

TEST(CStringCase, UpperAndLowerTouchOnlyAsciiLetters) {
  CString s(L"aBc中文-é");
  s.MakeUpper();
  EXPECT_EQ(s.str(), L"ABC中文-é");
  s.MakeLower();
  EXPECT_EQ(s.str(), L"abc中文-é");
  EXPECT_EQ(CString(L"abc").MakeReverse().str(), L"cba");
}

TEST(CStringFind, CharacterWithStart) {
  CString s(L"a,b,c");
  EXPECT_EQ(s.Find(L','), 1);
  EXPECT_EQ(s.Find(L',', 1), 1);
  EXPECT_EQ(s.Find(L',', 2), 3);
  EXPECT_EQ(s.Find(L',', 4), -1);
  EXPECT_EQ(s.Find(L'x'), -1);
  // A start at or past the end, or negative, finds nothing.
  EXPECT_EQ(s.Find(L'c', 5), -1);
  EXPECT_EQ(s.Find(L'c', 100), -1);
  EXPECT_EQ(s.Find(L'a', -1), -1);
  EXPECT_EQ(CString().Find(L'a'), -1);
}

TEST(CStringFind, TextWithStart) {
  CString s(L"楼层1-楼层2");
  EXPECT_EQ(s.Find(L"楼层"), 0);
  EXPECT_EQ(s.Find(L"楼层", 1), 4);
  EXPECT_EQ(s.Find(L"楼层", 5), -1);
  EXPECT_EQ(s.Find(L"2"), 6);
  EXPECT_EQ(s.Find(L"2", 6), 6);
  EXPECT_EQ(s.Find(L"2", 7), -1);
  EXPECT_EQ(s.Find(L"2", 100), -1);
  EXPECT_EQ(s.Find(L"楼", -1), -1);
  EXPECT_EQ(s.Find(static_cast<const wchar_t *>(nullptr)), -1);
  // An empty text is found at the start position, as the C library's
  // wcsstr finds it; a start past the end still finds nothing.
  EXPECT_EQ(s.Find(L""), 0);
  EXPECT_EQ(s.Find(L"", 3), 3);
  EXPECT_EQ(s.Find(L"", s.GetLength()), s.GetLength());
  EXPECT_EQ(s.Find(L"", s.GetLength() + 1), -1);
  EXPECT_EQ(s.Find(L"层2"), 5);
  EXPECT_EQ(s.Find(L"层3"), -1);
}

TEST(CStringFind, ReverseAndOneOf) {
  CString s(L"C:\\dir\\sub\\file.xml");
  EXPECT_EQ(s.ReverseFind(L'\\'), 10);
  EXPECT_EQ(s.ReverseFind(L'C'), 0);
  EXPECT_EQ(s.ReverseFind(L'?'), -1);
  EXPECT_EQ(CString().ReverseFind(L'a'), -1);
  EXPECT_EQ(s.ReverseFind(L"\\s"), 6);
  EXPECT_EQ(s.ReverseFind(L"zz"), -1);
  EXPECT_EQ(s.FindOneOf(L"/\\"), 2);
  EXPECT_EQ(s.FindOneOf(L"?*"), -1);
}

TEST(CStringSubstrings, LeftMidRightClampCounts) {
  CString s(L"abcdef");
  EXPECT_EQ(s.Left(2).str(), L"ab");
  EXPECT_EQ(s.Left(0).str(), L"");
  EXPECT_EQ(s.Left(-3).str(), L"");
  EXPECT_EQ(s.Left(100).str(), L"abcdef");

  EXPECT_EQ(s.Mid(2).str(), L"cdef");
  EXPECT_EQ(s.Mid(6).str(), L"");
  EXPECT_EQ(s.Mid(100).str(), L"");
  EXPECT_EQ(s.Mid(-2).str(), L"abcdef");
  EXPECT_EQ(s.Mid(1, 3).str(), L"bcd");
  EXPECT_EQ(s.Mid(4, 100).str(), L"ef");
  EXPECT_EQ(s.Mid(2, -1).str(), L"");
  EXPECT_EQ(s.Mid(2, 0).str(), L"");
  // A negative start counts as 0 and the count is kept.
  EXPECT_EQ(s.Mid(-2, 3).str(), L"abc");
  EXPECT_EQ(s.Mid(7, 2).str(), L"");

  EXPECT_EQ(s.Right(2).str(), L"ef");
  EXPECT_EQ(s.Right(0).str(), L"");
  EXPECT_EQ(s.Right(-1).str(), L"");
  EXPECT_EQ(s.Right(100).str(), L"abcdef");
  EXPECT_EQ(CString(L"中文名称").Right(2).str(), L"名称");
}

TEST(CStringSubstrings, SpanIncludingAndExcluding) {
  EXPECT_EQ(CString(L"123abc").SpanIncluding(L"0123456789").str(), L"123");
  EXPECT_EQ(CString(L"abc").SpanIncluding(L"0123456789").str(), L"");
  EXPECT_EQ(CString(L"key=value").SpanExcluding(L"=").str(), L"key");
  EXPECT_EQ(CString(L"key").SpanExcluding(L"=").str(), L"key");
}

TEST(CStringEdit, ReplaceText) {
  CString s(L"a-b-c");
  EXPECT_EQ(s.Replace(L"-", L"--"), 2);
  EXPECT_EQ(s.str(), L"a--b--c");
  EXPECT_EQ(s.Replace(L"--", L""), 2);
  EXPECT_EQ(s.str(), L"abc");
  EXPECT_EQ(s.Replace(L"b", nullptr), 1);
  EXPECT_EQ(s.str(), L"ac");
  // An empty or null old text replaces nothing.
  EXPECT_EQ(s.Replace(L"", L"x"), 0);
  EXPECT_EQ(s.Replace(nullptr, L"x"), 0);
  EXPECT_EQ(s.str(), L"ac");
  EXPECT_EQ(s.Replace(L"zz", L"y"), 0);
  EXPECT_EQ(s.str(), L"ac");
  // Occurrences don't overlap and the replacement is not searched again.
  CString t(L"aaa");
  EXPECT_EQ(t.Replace(L"aa", L"a"), 1);
  EXPECT_EQ(t.str(), L"aa");
  CString u(L"楼层 2 - 5");
  EXPECT_EQ(u.Replace(L" ", L""), 3);
  EXPECT_EQ(u.str(), L"楼层2-5");
}

TEST(CStringEdit, ReplaceCharacterAndRemove) {
  CString s(L"a\\b\\c");
  EXPECT_EQ(s.Replace(L'\\', L'/'), 2);
  EXPECT_EQ(s.str(), L"a/b/c");
  EXPECT_EQ(s.Replace(L'x', L'y'), 0);
  // Replacing a character by itself is no change and counts nothing.
  EXPECT_EQ(s.Replace(L'a', L'a'), 0);
  EXPECT_EQ(s.str(), L"a/b/c");
  EXPECT_EQ(s.Remove(L'/'), 2);
  EXPECT_EQ(s.str(), L"abc");
  EXPECT_EQ(s.Remove(L'/'), 0);
}

TEST(CStringEdit, InsertClampsIndex) {
  CString s(L"ac");
  EXPECT_EQ(s.Insert(1, L'b'), 3);
  EXPECT_EQ(s.str(), L"abc");
  EXPECT_EQ(s.Insert(-5, L'<'), 4);
  EXPECT_EQ(s.str(), L"<abc");
  EXPECT_EQ(s.Insert(100, L">"), 5);
  EXPECT_EQ(s.str(), L"<abc>");
  EXPECT_EQ(s.Insert(1, L"中文"), 7);
  EXPECT_EQ(s.str(), L"<中文abc>");
  EXPECT_EQ(s.Insert(0, static_cast<const wchar_t *>(nullptr)), 7);
}

TEST(CStringEdit, DeleteClampsRange) {
  CString s(L"abcdef");
  EXPECT_EQ(s.Delete(1), 5);
  EXPECT_EQ(s.str(), L"acdef");
  EXPECT_EQ(s.Delete(1, 2), 3);
  EXPECT_EQ(s.str(), L"aef");
  EXPECT_EQ(s.Delete(100), 3);
  EXPECT_EQ(s.Delete(3, 1), 3);
  EXPECT_EQ(s.Delete(1, -1), 3);
  EXPECT_EQ(s.str(), L"aef");
  EXPECT_EQ(s.Delete(1, 100), 1);
  EXPECT_EQ(s.str(), L"a");
  CString t(L"abcdef");
  EXPECT_EQ(t.Delete(-2, 2), 4);
  EXPECT_EQ(t.str(), L"cdef");
  EXPECT_EQ(t.Delete(0, 0), 4);
}

TEST(CStringTrim, BlanksOnEachSide) {
  CString s(L" \t\r\n a b \n\t ");
  EXPECT_EQ(CString(s).TrimLeft().str(), L"a b \n\t ");
  EXPECT_EQ(CString(s).TrimRight().str(), L" \t\r\n a b");
  EXPECT_EQ(s.Trim().str(), L"a b");
  EXPECT_EQ(CString(L"   ").Trim().str(), L"");
  EXPECT_EQ(CString(L"").Trim().str(), L"");
  EXPECT_EQ(CString(L"中文").Trim().str(), L"中文");
}

TEST(CStringTrim, UnicodeSpacesAreBlanks) {
  // The ideographic space of Chinese text and the no-break space are white
  // space to the home platform's character tests, so Trim removes them.
  EXPECT_EQ(CString(L"\x3000名称\x3000").Trim().str(), L"名称");
  EXPECT_EQ(CString(L"\x00A0x\x00A0").Trim().str(), L"x");
  EXPECT_EQ(CString(L"\x3000y").TrimLeft().str(), L"y");
  EXPECT_EQ(CString(L"y\x3000").TrimRight().str(), L"y");
}

TEST(CStringTrim, GivenCharacters) {
  EXPECT_EQ(CString(L"xxaxx").Trim(L'x').str(), L"a");
  EXPECT_EQ(CString(L"xxaxx").TrimLeft(L'x').str(), L"axx");
  EXPECT_EQ(CString(L"xxaxx").TrimRight(L'x').str(), L"xxa");
  EXPECT_EQ(CString(L"\"'a'\"").Trim(L"\"'").str(), L"a");
  EXPECT_EQ(CString(L"xyaxy").TrimLeft(L"yx").str(), L"axy");
  EXPECT_EQ(CString(L"xyaxy").TrimRight(L"yx").str(), L"xya");
  EXPECT_EQ(CString(L"xyx").Trim(L"xy").str(), L"");
  // Blanks are only removed when asked for.
  EXPECT_EQ(CString(L" xa ").Trim(L'x').str(), L" xa ");
}

TEST(CStringConcat, PlusAndPlusEquals) {
  CString a(L"中");
  CString b = a + L"文";
  EXPECT_EQ(b.str(), L"中文");
  EXPECT_EQ((L"<" + b).str(), L"<中文");
  EXPECT_EQ((b + L'>').str(), L"中文>");
  EXPECT_EQ((L'[' + b).str(), L"[中文");
  EXPECT_EQ((b + b).str(), L"中文中文");
  EXPECT_EQ((b + static_cast<const wchar_t *>(nullptr)).str(), L"中文");
  b += L"名称";
  b += L'!';
  b += CString(L"?");
  b += "\xC3\xFB";  // narrow 名
  b += static_cast<const wchar_t *>(nullptr);
  EXPECT_EQ(b.str(), L"中文名称!?名");
}

TEST(CStringBuffer, GetBufferAndReleaseBuffer) {
  CString s(L"ab");
  wchar_t *p = s.GetBuffer(10);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(p[0], L'a');
  std::wcscpy(p, L"中文名称");
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetLength(), 4);
  EXPECT_EQ(s.str(), L"中文名称");

  p = s.GetBuffer(0);
  p[1] = L'x';
  s.ReleaseBuffer(2);
  EXPECT_EQ(s.str(), L"中x");

  // The old text survives GetBuffer with a larger size.
  CString t(L"keep");
  t.GetBuffer(64);
  t.ReleaseBuffer();
  EXPECT_EQ(t.str(), L"keep");

  CString u;
  p = u.GetBufferSetLength(3);
  p[0] = L'x';
  p[1] = L'y';
  p[2] = L'z';
  u.ReleaseBuffer();
  EXPECT_EQ(u.str(), L"xyz");
}

TEST(CStringArrayOps, AddInsertRemoveGrow) {
  CStringArray a;
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_EQ(a.GetUpperBound(), -1);
  EXPECT_EQ(a.Add(L"one"), 0);
  EXPECT_EQ(a.Add(L"two"), 1);
  EXPECT_EQ(a.GetSize(), 2);
  EXPECT_EQ(a.GetCount(), 2);
  a.InsertAt(1, L"mid");
  EXPECT_EQ(a[1].str(), L"mid");
  a.InsertAt(0, L"z", 2);
  ASSERT_EQ(a.GetSize(), 5);
  EXPECT_EQ(a.GetAt(0).str(), L"z");
  EXPECT_EQ(a.GetAt(2).str(), L"one");
  a.RemoveAt(0, 2);
  EXPECT_EQ(a.GetSize(), 3);
  EXPECT_EQ(a[0].str(), L"one");
  a.RemoveAt(10);
  a.RemoveAt(1, 100);
  EXPECT_EQ(a.GetSize(), 1);
  a.SetAtGrow(3, L"four");
  EXPECT_EQ(a.GetSize(), 4);
  EXPECT_TRUE(a[2].IsEmpty());
  EXPECT_EQ(a[3].str(), L"four");
  a.SetAt(2, L"three");
  a.ElementAt(1) = L"two";
  CStringArray b;
  b.Add(L"x");
  EXPECT_EQ(b.Append(a), 1);
  EXPECT_EQ(b.GetSize(), 5);
  EXPECT_EQ(b[4].str(), L"four");
  CStringArray c;
  c.Copy(b);
  EXPECT_EQ(c.GetSize(), 5);
  c.SetSize(2);
  EXPECT_EQ(c.GetSize(), 2);
  c.RemoveAll();
  EXPECT_TRUE(c.IsEmpty());
}

}  // namespace
