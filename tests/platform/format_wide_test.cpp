// Wide printf-style formatting with the home platform's rules: in a wide
// format "%s" is wide and "%S" narrow (code page 936), "l" on an integer is
// 32 bits, "I64" is 64 bits, and "l" on a floating conversion changes nothing.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

#include "platform/mfc/CString.h"
#include "platform/windows/WideFormat.h"

namespace {

using tolv::FormatWide;

TEST(WideFormatIntegers, DecimalAndWidths) {
  EXPECT_EQ(FormatWide(L"%d", 42), L"42");
  EXPECT_EQ(FormatWide(L"%d", -42), L"-42");
  EXPECT_EQ(FormatWide(L"%i", 7), L"7");
  EXPECT_EQ(FormatWide(L"[%5d]", 42), L"[   42]");
  EXPECT_EQ(FormatWide(L"[%-5d]", 42), L"[42   ]");
  EXPECT_EQ(FormatWide(L"[%05d]", -42), L"[-0042]");
  EXPECT_EQ(FormatWide(L"[%+d]", 3), L"[+3]");
  EXPECT_EQ(FormatWide(L"[%*d]", 4, 1), L"[   1]");
  EXPECT_EQ(FormatWide(L"%u", 4000000000u), L"4000000000");
  EXPECT_EQ(FormatWide(L"%x %X %o", 255, 255, 8), L"ff FF 10");
  EXPECT_EQ(FormatWide(L"100%%"), L"100%");
}

TEST(WideFormatIntegers, LongIsThirtyTwoBits) {
  std::int32_t big = INT32_MAX, small = INT32_MIN;
  EXPECT_EQ(FormatWide(L"%ld", big), L"2147483647");
  EXPECT_EQ(FormatWide(L"%ld", small), L"-2147483648");
  EXPECT_EQ(FormatWide(L"%ld,%ld", std::int32_t(-1), std::int32_t(5)), L"-1,5");
  EXPECT_EQ(FormatWide(L"%lu", std::uint32_t(4294967295u)), L"4294967295");
  EXPECT_EQ(FormatWide(L"%lx", std::uint32_t(0xABCDu)), L"abcd");
}

TEST(WideFormatIntegers, SixtyFourBits) {
  std::int64_t v = 1234567890123LL;
  EXPECT_EQ(FormatWide(L"%I64d", v), L"1234567890123");
  EXPECT_EQ(FormatWide(L"%I64d", std::int64_t(INT64_MIN)), L"-9223372036854775808");
  EXPECT_EQ(FormatWide(L"%I64u", std::uint64_t(UINT64_MAX)), L"18446744073709551615");
  EXPECT_EQ(FormatWide(L"%I64X", std::uint64_t(0x1234ABCDEF0ull)), L"1234ABCDEF0");
  EXPECT_EQ(FormatWide(L"%lld|%d", v, 3), L"1234567890123|3");
  // An argument after a 64-bit one is still read from the right place.
  EXPECT_EQ(FormatWide(L"%I64d %s", v, L"x"), L"1234567890123 x");
}

TEST(WideFormatIntegers, OtherSizePrefixes) {
  EXPECT_EQ(FormatWide(L"%I32d", std::int32_t(-5)), L"-5");
  EXPECT_EQ(FormatWide(L"%Iu|%zu", std::size_t(1) << 40, std::size_t(7)), L"1099511627776|7");
  EXPECT_EQ(FormatWide(L"%hd", 70000), L"4464");  // short: the value wraps to 16 bits
  EXPECT_EQ(FormatWide(L"%#x", 255), L"0xff");
  EXPECT_EQ(FormatWide(L"[%.*f][%-*s]", 2, 3.14159, 3, L"a"), L"[3.14][a  ]");
}

TEST(WideFormatFloating, GeneralFixedAndLong) {
  EXPECT_EQ(FormatWide(L"%g", 1.5), L"1.5");
  EXPECT_EQ(FormatWide(L"%g", 0.1), L"0.1");
  EXPECT_EQ(FormatWide(L"%g", 100.0), L"100");
  // Six significant digits.
  EXPECT_EQ(FormatWide(L"%g", 1234567.0), L"1.23457e+06");
  EXPECT_EQ(FormatWide(L"%g", 123456.0), L"123456");
  EXPECT_EQ(FormatWide(L"%g", 0.0001), L"0.0001");
  EXPECT_EQ(FormatWide(L"%g", -2.5), L"-2.5");
  EXPECT_EQ(FormatWide(L"%lg", 0.25), L"0.25");
  EXPECT_EQ(FormatWide(L"%lg,%lg,%lg", 1.0, 2.5, -3.0), L"1,2.5,-3");
  EXPECT_EQ(FormatWide(L"%.10f", 1.5), L"1.5000000000");
  EXPECT_EQ(FormatWide(L"%.10f", 1.0 / 3.0), L"0.3333333333");
  EXPECT_EQ(FormatWide(L"%.10f", -0.5), L"-0.5000000000");
  EXPECT_EQ(FormatWide(L"%f", 2.0), L"2.000000");
  EXPECT_EQ(FormatWide(L"%.2lf", 3.14159), L"3.14");
  EXPECT_EQ(FormatWide(L"%e", 1500.0), L"1.500000e+03");
  EXPECT_EQ(FormatWide(L"%8.3f|", 3.14159), L"   3.142|");
}

TEST(WideFormatText, WideAndNarrowStrings) {
  EXPECT_EQ(FormatWide(L"%s", L"abc"), L"abc");
  EXPECT_EQ(FormatWide(L"<%s>", L"中文名称"), L"<中文名称>");
  EXPECT_EQ(FormatWide(L"%ls", L"名称"), L"名称");
  EXPECT_EQ(FormatWide(L"[%5s]", L"ab"), L"[   ab]");
  EXPECT_EQ(FormatWide(L"[%-4s]", L"中"), L"[中   ]");
  EXPECT_EQ(FormatWide(L"%.2s", L"中文名称"), L"中文");
  // "%S" and "%hs" take narrow text in code page 936.
  EXPECT_EQ(FormatWide(L"%S", "abc"), L"abc");
  EXPECT_EQ(FormatWide(L"%hs", "abc"), L"abc");
  EXPECT_EQ(FormatWide(L"%S!", "\xD6\xD0\xCE\xC4"), L"中文!");
  EXPECT_EQ(FormatWide(L"%hs|%s", "\xC3\xFB\xB3\xC6", L"x"), L"名称|x");
  EXPECT_EQ(FormatWide(L"%lS", L"wide"), L"wide");
}

TEST(WideFormatText, Characters) {
  EXPECT_EQ(FormatWide(L"%c", L'中'), L"中");
  EXPECT_EQ(FormatWide(L"%c%c", L'a', L'b'), L"ab");
  EXPECT_EQ(FormatWide(L"%C", 'A'), L"A");
  EXPECT_EQ(FormatWide(L"%hc", 'z'), L"z");
  EXPECT_EQ(FormatWide(L"%lc", L'文'), L"文");
}

TEST(WideFormatText, MixedArgumentsKeepTheirOrder) {
  EXPECT_EQ(FormatWide(L"%s=%d (%g) %S %ld", L"层", 3, 2.5, "n", std::int32_t(-7)),
            L"层=3 (2.5) n -7");
}

TEST(WideFormatText, NullFormatGivesEmpty) { EXPECT_EQ(FormatWide(nullptr), L""); }

TEST(WideFormatText, NullStringArgumentsPrintAsNull) {
  EXPECT_EQ(FormatWide(L"%s", static_cast<const wchar_t *>(nullptr)), L"(null)");
  EXPECT_EQ(FormatWide(L"%S", static_cast<const char *>(nullptr)), L"(null)");
}

TEST(WideFormatText, LiteralTextKeepsEveryCharacter) {
  EXPECT_EQ(FormatWide(L"中文 名称\t!"), L"中文 名称\t!");
  // A lone surrogate in the format or an argument passes unchanged.
  std::wstring odd(1, static_cast<wchar_t>(0xD800));
  EXPECT_EQ(FormatWide((L"a" + odd + L"%s").c_str(), odd.c_str()), L"a" + odd + odd);
}

TEST(WideFormatText, VeryLongResult) {
  std::wstring big(100000, L'中');
  big[0] = L'a';
  big[99999] = L'z';
  std::wstring out = FormatWide(L"<%s>", big.c_str());
  ASSERT_EQ(out.size(), 100002u);
  EXPECT_EQ(out.substr(1, 100000), big);
  EXPECT_EQ(out.front(), L'<');
  EXPECT_EQ(out.back(), L'>');
}

TEST(CStringFormat, EachConversion) {
  CString s;
  s.Format(L"%d", -12);
  EXPECT_EQ(s.str(), L"-12");
  s.Format(L"%ld", std::int32_t(123456789));
  EXPECT_EQ(s.str(), L"123456789");
  s.Format(L"%g", 1234567.0);
  EXPECT_EQ(s.str(), L"1.23457e+06");
  s.Format(L"%lg", 0.5);
  EXPECT_EQ(s.str(), L"0.5");
  s.Format(L"%s", L"中文名称");
  EXPECT_EQ(s.str(), L"中文名称");
  s.Format(L"%.10f", 2.25);
  EXPECT_EQ(s.str(), L"2.2500000000");
  s.Format(L"楼层%d-%d:%s", 2, 5, L"标准层");
  EXPECT_EQ(s.str(), L"楼层2-5:标准层");
}

TEST(CStringFormat, ReplacesOldTextAndAppendFormatAdds) {
  CString s(L"old text");
  s.Format(L"%d", 1);
  EXPECT_EQ(s.str(), L"1");
  s.AppendFormat(L",%s", L"二");
  s.AppendFormat(L",%g", 3.0);
  EXPECT_EQ(s.str(), L"1,二,3");
}

TEST(CStringFormat, ArgumentIsTheStringItself) {
  CString s(L"名称");
  s.Format(L"[%s]", static_cast<const wchar_t *>(s));
  EXPECT_EQ(s.str(), L"[名称]");
}

TEST(CStringFormat, HundredThousandCharacters) {
  std::wstring part(50000, L'x');
  CString s;
  s.Format(L"%s%s", part.c_str(), part.c_str());
  EXPECT_EQ(s.GetLength(), 100000);
  s.Format(L"%100000d", 7);
  ASSERT_EQ(s.GetLength(), 100000);
  EXPECT_EQ(s.GetAt(99999), L'7');
  EXPECT_EQ(s.GetAt(0), L' ');
}

}  // namespace
