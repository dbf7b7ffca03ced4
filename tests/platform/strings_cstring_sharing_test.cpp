// Copies of a CString share one buffer until one of them changes; a change
// never shows through another copy.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/mfc/CString.h"

namespace {

TEST(CStringSharing, CopiesShareOneBuffer) {
  CString a(L"楼层平面");
  CString b = a;
  CString c;
  c = b;
  EXPECT_EQ(a.GetString(), b.GetString());
  EXPECT_EQ(a.GetString(), c.GetString());
  EXPECT_EQ(c, L"楼层平面");
}

TEST(CStringSharing, EmptyStringsAllUseTheOneEmptyText) {
  CString a;
  CString b(L"");
  CString c(static_cast<const wchar_t *>(nullptr));
  CString d(L"x");
  d.Empty();
  EXPECT_EQ(a.GetString(), b.GetString());
  EXPECT_EQ(a.GetString(), c.GetString());
  EXPECT_EQ(a.GetString(), d.GetString());
  EXPECT_EQ(*a.GetString(), L'\0');
}

TEST(CStringSharing, EveryChangeLeavesOtherCopiesAsTheyWere) {
  const CString original(L"  Alpha;Beta  ");
  auto check = [&original](const char *what, auto change) {
    CString copy = original;
    change(copy);
    EXPECT_EQ(original, L"  Alpha;Beta  ") << what;
    EXPECT_NE(copy.GetString(), original.GetString()) << what;
  };
  check("SetAt", [](CString &s) { s.SetAt(2, L'a'); });
  check("MakeUpper", [](CString &s) { s.MakeUpper(); });
  check("MakeLower", [](CString &s) { s.MakeLower(); });
  check("MakeReverse", [](CString &s) { s.MakeReverse(); });
  check("Replace char", [](CString &s) { s.Replace(L';', L','); });
  check("Replace text", [](CString &s) { s.Replace(L"Beta", L"Gamma"); });
  check("Remove", [](CString &s) { s.Remove(L' '); });
  check("Insert", [](CString &s) { s.Insert(0, L"x"); });
  check("Delete", [](CString &s) { s.Delete(0, 2); });
  check("Trim", [](CString &s) { s.Trim(); });
  check("TrimRight", [](CString &s) { s.TrimRight(); });
  check("append", [](CString &s) { s += L"!"; });
  check("Format", [](CString &s) { s.Format(L"%d", 7); });
  check("AppendFormat", [](CString &s) { s.AppendFormat(L"%d", 7); });
  check("GetBuffer", [](CString &s) {
    s.GetBuffer(0)[0] = L'#';
    s.ReleaseBuffer();
  });
  check("GetBufferSetLength", [](CString &s) { s.GetBufferSetLength(3); });
}

TEST(CStringSharing, AChangeThatChangesNothingKeepsTheSharedBuffer) {
  const CString original(L"abc");
  CString copy = original;
  EXPECT_EQ(copy.Replace(L'x', L'y'), 0);
  EXPECT_EQ(copy.Remove(L'x'), 0);
  copy.Trim();
  EXPECT_EQ(copy.GetString(), original.GetString());
}

TEST(CStringSharing, WholeStringPartsShareTheBuffer) {
  const CString s(L"abcdef");
  EXPECT_EQ(s.Left(6).GetString(), s.GetString());
  EXPECT_EQ(s.Mid(0).GetString(), s.GetString());
  EXPECT_EQ(s.Right(99).GetString(), s.GetString());
  EXPECT_EQ(s.Mid(1, 2), L"bc");
}

TEST(CStringSharing, AssignmentsFromItsOwnTextWork) {
  CString s(L"abcdef");
  CString &same = s;  // through another name, as code that can't tell would
  s = same;
  EXPECT_EQ(s, L"abcdef");
  s += s;
  EXPECT_EQ(s, L"abcdefabcdef");
  s = s.GetString() + 3;
  EXPECT_EQ(s, L"defabcdef");
  s.Insert(3, s.GetString());
  EXPECT_EQ(s, L"defdefabcdefabcdef");
  CString t(L"xyz");
  CString &sameT = t;
  t = std::move(sameT);
  EXPECT_EQ(t, L"xyz");
}

TEST(CStringSharing, MovedFromStringIsEmpty) {
  CString a(L"text");
  const wchar_t *buffer = a.GetString();
  CString b(std::move(a));
  EXPECT_EQ(b.GetString(), buffer);
  EXPECT_TRUE(a.IsEmpty());  // NOLINT: moved-from state is specified as empty here
  a = L"again";
  EXPECT_EQ(a, L"again");
}

TEST(CStringSharing, PieceByPieceAppendKeepsEveryPiece) {
  CString s;
  std::wstring expected;
  for (int i = 0; i < 5000; ++i) {
    const wchar_t piece = static_cast<wchar_t>(L'a' + i % 26);
    s += piece;
    expected += piece;
  }
  EXPECT_EQ(s.GetLength(), 5000);
  EXPECT_EQ(s.view(), expected);
}

TEST(CStringSharing, EmbeddedNullsCountInTheLength) {
  const wchar_t text[] = {L'a', L'\0', L'b'};
  CString s(text, 3);
  EXPECT_EQ(s.GetLength(), 3);
  CString copy = s;
  copy += L"c";
  EXPECT_EQ(copy.GetLength(), 4);
  EXPECT_EQ(copy.GetAt(3), L'c');
  EXPECT_EQ(s.GetLength(), 3);
}

TEST(CStringSharing, CopiesMadeAndDroppedOnManyThreadsKeepTheText) {
  const CString shared(L"共享的文字 shared text");
  std::vector<std::thread> threads;
  std::vector<int> good(4, 0);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&shared, &good, t] {
      for (int i = 0; i < 20000; ++i) {
        CString copy = shared;
        CString other(copy);
        if (i % 7 == 0) other += L"!";
        if (copy == shared) ++good[static_cast<std::size_t>(t)];
      }
    });
  }
  for (std::thread &thread : threads) thread.join();
  for (int count : good) EXPECT_EQ(count, 20000);
  EXPECT_EQ(shared, L"共享的文字 shared text");
}

}  // namespace

namespace {

TEST(CStringSharing, InsertingANullCharacterKeepsItInTheText) {
  CString s(L"ab");
  const CString copy = s;
  EXPECT_EQ(s.Insert(1, L'\0'), 3);
  EXPECT_EQ(s.GetAt(1), L'\0');
  EXPECT_EQ(s.GetAt(2), L'b');
  EXPECT_EQ(copy.GetLength(), 2);
}

}  // namespace
