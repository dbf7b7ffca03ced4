// The wide C runtime functions with the home platform's behaviour.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <climits>
#include <cstdint>
#include <string>

#include "platform/windows/WinCrt.h"
#include "support/TestSupport.h"

namespace {

struct IntCase {
  const wchar_t *text;
  int expected;
};

TEST(CrtWtoi, Table) {
  const IntCase cases[] = {
      {L"12", 12},
      {L" 12abc", 12},
      {L"abc", 0},
      {L"", 0},
      {L"-0x10", 0},
      {L"0x10", 0},
      {L"  +7", 7},
      {L"\t\n-3", -3},
      {L"- 3", 0},
      {L"+-3", 0},
      {L"1e3", 1},
      {L"3.9", 3},
      {L"-3.9", -3},
      {L"007", 7},
      {L"12 34", 12},
      {L"2147483647", INT_MAX},
      {L"-2147483648", INT_MIN},
      {L"2147483648", INT_MAX},
      {L"-2147483649", INT_MIN},
      {L"99999999999999999999999", INT_MAX},
      {L"-99999999999999999999999", INT_MIN},
      {L"中1", 0},
  };
  for (const auto &c : cases)
    EXPECT_EQ(_wtoi(c.text), c.expected) << testing::PrintToString(std::wstring(c.text));
  EXPECT_EQ(_wtoi(nullptr), 0);
}

TEST(CrtWtoi, OverflowClampsWhateverTheDigitsThatFollow) {
  // Twenty digits exceed 64 bits; the result must still clamp, never wrap.
  EXPECT_EQ(_wtoi(L"-92233720368547758080"), INT_MIN);
  EXPECT_EQ(_wtoi(L"92233720368547758080"), INT_MAX);
  EXPECT_EQ(_wtoi(L"20000000000000000000"), INT_MAX);
  EXPECT_EQ(_wtoi(L"-18446744073709551616"), INT_MIN);
}

TEST(CrtWtoi64, Table) {
  EXPECT_EQ(_wtoi64(L" 1234567890123x"), 1234567890123LL);
  EXPECT_EQ(_wtoi64(L"-42"), -42);
  EXPECT_EQ(_wtoi64(L"abc"), 0);
  EXPECT_EQ(_wtoi64(L"9223372036854775807"), LLONG_MAX);
  EXPECT_EQ(_wtoi64(L"-9223372036854775808"), LLONG_MIN);
  EXPECT_EQ(_wtoi64(L"9223372036854775808"), LLONG_MAX);
  EXPECT_EQ(_wtoi64(L"-9223372036854775809"), LLONG_MIN);
  EXPECT_EQ(_wtoi64(L"20000000000000000000"), LLONG_MAX);
  EXPECT_EQ(_wtoi64(L"-92233720368547758080"), LLONG_MIN);
  EXPECT_EQ(_wtoi64(L"18446744073709551616"), LLONG_MAX);
  EXPECT_EQ(_wtoi64(L"123456789012345678901234567890"), LLONG_MAX);
  EXPECT_EQ(_wtoi64(nullptr), 0);
}

struct DoubleCase {
  const wchar_t *text;
  double expected;
};

TEST(CrtWtof, Table) {
  const DoubleCase cases[] = {
      {L"1e3", 1000.0},  {L"1E3", 1000.0},   {L" 2.5", 2.5},    {L"\t-0.25xyz", -0.25},
      {L"abc", 0.0},     {L"", 0.0},         {L"  +7", 7.0},    {L".5", 0.5},
      {L"5.", 5.0},      {L"1.5e-2", 0.015}, {L"3,5", 3.0},     {L"1e", 1.0},
      {L"-", 0.0},       {L"1234567", 1234567.0},
  };
  for (const auto &c : cases)
    EXPECT_DOUBLE_EQ(_wtof(c.text), c.expected) << testing::PrintToString(std::wstring(c.text));
  EXPECT_EQ(_wtof(nullptr), 0.0);
}

TEST(CrtCompare, NoCaseOrdinal) {
  EXPECT_EQ(_wcsicmp(L"Config.XML", L"config.xml"), 0);
  EXPECT_LT(_wcsicmp(L"abc", L"ABD"), 0);
  EXPECT_GT(_wcsicmp(L"abd", L"ABC"), 0);
  EXPECT_LT(_wcsicmp(L"ab", L"ABC"), 0);
  EXPECT_GT(_wcsicmp(L"abc", L"AB"), 0);
  EXPECT_EQ(_wcsicmp(L"", L""), 0);
  // Letters fold to lower case before the compare: '_' is below 'a'.
  EXPECT_LT(_wcsicmp(L"_", L"A"), 0);
  EXPECT_EQ(_wcsicmp(L"楼层A", L"楼层a"), 0);
  EXPECT_NE(_wcsicmp(L"楼", L"层"), 0);
}

TEST(CrtCompare, NoCaseLimitedCount) {
  EXPECT_EQ(_wcsnicmp(L"ABCdef", L"abcXYZ", 3), 0);
  EXPECT_NE(_wcsnicmp(L"ABCdef", L"abcXYZ", 4), 0);
  EXPECT_EQ(_wcsnicmp(L"ab", L"AB", 10), 0);
  EXPECT_LT(_wcsnicmp(L"a", L"AB", 10), 0);
  EXPECT_EQ(_wcsnicmp(L"x", L"y", 0), 0);
}

TEST(CrtCase, UpperAndLowerInPlace) {
  wchar_t text[] = L"aBc中-z";
  EXPECT_EQ(_wcsupr(text), text);
  EXPECT_STREQ(text, L"ABC中-Z");
  EXPECT_EQ(_wcslwr(text), text);
  EXPECT_STREQ(text, L"abc中-z");
  EXPECT_EQ(_wcsupr(nullptr), nullptr);
}

TEST(CrtAccess, ExistenceAndModes) {
  tolvtest::ScratchDir dir("crt_access");
  tolvtest::WriteFileBytes(dir.path() / "Present.txt", "x");
  EXPECT_EQ(_waccess(dir.wide("Present.txt").c_str(), 0), 0);
  EXPECT_EQ(_waccess(dir.wide("Present.txt").c_str(), 4), 0);
  EXPECT_EQ(_waccess(dir.wide("Present.txt").c_str(), 6), 0);
  // The name is matched without case, as on the home platform.
  EXPECT_EQ(_waccess(dir.wide("PRESENT.TXT").c_str(), 0), 0);
  EXPECT_EQ(_waccess(dir.wide("absent.txt").c_str(), 0), -1);
  EXPECT_EQ(_waccess(dir.wide().c_str(), 0), 0);
  EXPECT_EQ(_waccess(nullptr, 0), -1);
  // Backslashes are folder separators.
  std::wstring back = dir.wide("Present.txt");
  for (auto &c : back)
    if (c == L'/') c = L'\\';
  EXPECT_EQ(_waccess(back.c_str(), 0), 0);
}

}  // namespace
