// Text conversions between wide text and UTF-8, UTF-16 and code page 936.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/windows/TextCodec.h"

namespace {

using namespace tolv;

TEST(CodecUtf8, RoundTripsChineseAndSupplementary) {
  std::wstring text = L"名称 abc ü € \U0001F600";
  std::string bytes = ToUtf8(text);
  EXPECT_EQ(bytes, "\xE5\x90\x8D\xE7\xA7\xB0 abc \xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf8(bytes), text);
  EXPECT_EQ(FromUtf8(""), L"");
  EXPECT_EQ(ToUtf8(L""), "");
}

TEST(CodecUtf8, InvalidBytesBecomeReplacementCharacters) {
  EXPECT_EQ(FromUtf8("a\xFF" "b"), L"a\xFFFD" L"b");
  EXPECT_EQ(FromUtf8("\xC0\xAF"), L"\xFFFD\xFFFD");          // overlong
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\xFFFD\xFFFD\xFFFD");  // surrogate
  EXPECT_EQ(FromUtf8("\xE5\x90"), L"\xFFFD\xFFFD");          // cut short
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), L"\xFFFD\xFFFD\xFFFD\xFFFD");  // past U+10FFFF
  // A lone surrogate can't be written as UTF-8.
  EXPECT_EQ(ToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

TEST(CodecUtf16, SurrogatePairsJoinAndSplit) {
  std::u16string units = u"中a\U0001F600";
  ASSERT_EQ(units.size(), 4u);
  std::wstring wide = FromUtf16(units);
  EXPECT_EQ(wide, L"中a\U0001F600");
  EXPECT_EQ(ToUtf16(wide), units);
  // A lone surrogate stays as it is both ways.
  std::u16string lone = {0xD800, u'x'};
  std::wstring w = FromUtf16(lone);
  ASSERT_EQ(w.size(), 2u);
  EXPECT_EQ(static_cast<unsigned>(w[0]), 0xD800u);
  EXPECT_EQ(ToUtf16(w), lone);
}

TEST(CodecGbk, ChineseRoundTrip) {
  std::string gbk = ToGbk(L"中文名称");
  EXPECT_EQ(gbk, "\xD6\xD0\xCE\xC4\xC3\xFB\xB3\xC6");
  EXPECT_EQ(FromGbk(gbk), L"中文名称");
  EXPECT_EQ(ToGbk(L"楼层 -1"), "\xC2\xA5\xB2\xE3 -1");
  // Full-width forms and symbols of the code page.
  EXPECT_EQ(FromGbk(ToGbk(L"，。！（）【】１２３　")), L"，。！（）【】１２３　");
  // Characters added by GBK beyond GB 2312.
  EXPECT_EQ(FromGbk(ToGbk(L"丂亐")), L"丂亐");
}

TEST(CodecGbk, PunctuationFollowsTheWindowsTable) {
  // Where code page 936 departs from GB 2312's reference table, the Windows
  // form is the one the add-on's files were written in.
  EXPECT_EQ(FromGbk("\xA1\xA4"), L"\x00B7");  // middle dot, not katakana middle dot
  EXPECT_EQ(FromGbk("\xA1\xAA"), L"\x2014");  // em dash
  EXPECT_EQ(FromGbk("\xA8\x44"), L"\x2015");  // horizontal bar
  EXPECT_EQ(ToGbk(L"\x00B7\x2014"), "\xA1\xA4\xA1\xAA");
}

TEST(CodecGbk, AsciiPassesThrough) {
  std::wstring ascii;
  for (wchar_t c = 1; c < 0x80; ++c) ascii += c;
  std::string narrow = ToGbk(ascii);
  ASSERT_EQ(narrow.size(), ascii.size());
  for (size_t i = 0; i < ascii.size(); ++i) EXPECT_EQ(static_cast<wchar_t>(narrow[i]), ascii[i]);
  EXPECT_EQ(FromGbk(narrow), ascii);
}

TEST(CodecGbk, UnmappableCharactersBecomeQuestionMarks) {
  EXPECT_EQ(ToGbk(L"a\xD55C" L"b"), "a?b");       // Hangul
  EXPECT_EQ(ToGbk(L"\x0E01\x0E02"), "??");        // Thai
  EXPECT_EQ(ToGbk(L"\U0001F600"), "?");           // beyond the BMP: one mark
  EXPECT_EQ(ToGbk(L"中\xD55C文"), "\xD6\xD0?\xCE\xC4");
  // The euro sign has the single byte 0x80 in code page 936.
  EXPECT_EQ(ToGbk(L"€"), "\x80");
  EXPECT_EQ(FromGbk("\x80"), L"€");
}

TEST(CodecGbk, InvalidBytesBecomeQuestionMarks) {
  EXPECT_EQ(FromGbk("\xFF"), L"?");
  EXPECT_EQ(FromGbk("a\xD6"), L"a?");     // lead byte at the end
  EXPECT_EQ(FromGbk("\xD6\x7F" "b"), L"?\x7F" L"b");  // 0x7F is never a trail byte
  EXPECT_EQ(FromGbk("\xD6\xD0\xFF\xCE\xC4"), L"中?文");
}

TEST(CodecGbk, EveryDoubleByteCodeRoundTrips) {
  // Each code the code page decodes must encode back to itself, unless
  // another code of the page already stands for the same character.
  int decoded = 0;
  for (int lead = 0x81; lead <= 0xFE; ++lead) {
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      if (trail == 0x7F) continue;
      char in[2] = {static_cast<char>(lead), static_cast<char>(trail)};
      std::wstring w = FromGbk(std::string(in, 2));
      if (w == L"?" || w.size() != 1) continue;
      ++decoded;
      std::string back = ToGbk(w);
      ASSERT_EQ(back.size(), 2u) << std::hex << lead << " " << trail;
      EXPECT_EQ(FromGbk(back), w);
    }
  }
  // GBK holds some 21,886 characters; the table must be nearly all there.
  EXPECT_GT(decoded, 21000);
}

// A mix of ASCII, common Chinese, full-width punctuation and characters the
// code page lacks, to drive the comparison through every kind of byte.
std::wstring RandomText(std::mt19937 &rng) {
  static const std::wstring pool =
      L"aAzZ09 _-.~\x7F"
      L"中文名称楼层标准层一二三丁七万丈三上下不与丐丑专且丕世丘丙业丛东丝丞"
      L"，。！（）【】　"
      L"€\xD55C\x0E01\U0001F600\x00E9\x00FC\x0101";
  std::uniform_int_distribution<int> len(0, 8);
  std::uniform_int_distribution<size_t> pick(0, pool.size() - 1);
  std::wstring s;
  for (int n = len(rng); n > 0; --n) s += pool[pick(rng)];
  return s;
}

int Sign(int v) { return v < 0 ? -1 : (v > 0 ? 1 : 0); }

TEST(CodecCompareGbk, AgreesWithStrcmpOfTheNarrowForms) {
  std::mt19937 rng(936);
  for (int i = 0; i < 20000; ++i) {
    std::wstring a = RandomText(rng), b = RandomText(rng);
    if (i % 3 == 0) b = a + RandomText(rng);  // shared prefixes
    if (i % 7 == 0) b = a;
    int expected = Sign(std::strcmp(ToGbk(a).c_str(), ToGbk(b).c_str()));
    ASSERT_EQ(Sign(CompareGbk(a, b)), expected)
        << testing::PrintToString(a) << " vs " << testing::PrintToString(b);
    ASSERT_EQ(Sign(CompareGbk(b, a)), -expected);
  }
}

TEST(CodecCompareGbk, FixedCases) {
  EXPECT_EQ(CompareGbk(L"", L""), 0);
  EXPECT_LT(CompareGbk(L"", L"a"), 0);
  EXPECT_GT(CompareGbk(L"中", L""), 0);
  // In code page 936 every Chinese character sorts after every ASCII one.
  EXPECT_GT(CompareGbk(L"中", L"z"), 0);
  // By pinyin order of GB 2312: 啊 (B0A1) before 中 (D6D0).
  EXPECT_LT(CompareGbk(L"啊", L"中"), 0);
  // 中 (U+4E2D) is below 文 (U+6587) in Unicode but above it in 936 (D6D0 > CEC4).
  EXPECT_GT(CompareGbk(L"中", L"文"), 0);
  // Unmappable characters compare as '?'.
  EXPECT_EQ(CompareGbk(L"\xD55C", L"?"), 0);
  EXPECT_EQ(CompareGbk(L"a\U0001F600", L"a?"), 0);
  EXPECT_LT(CompareGbk(L"?", L"\x0E01" L"a"), 0);
  // The narrow form would end at an embedded null.
  EXPECT_EQ(CompareGbk(std::wstring(L"ab\0c", 4), L"ab"), 0);
  // The euro sign's single byte 0x80 sorts below any double-byte character.
  EXPECT_LT(CompareGbk(L"€", L"丂"), 0);
  EXPECT_GT(CompareGbk(L"€", L"\x7F"), 0);
}

TEST(CodecRobustness, RandomBytesDecodeWithoutGrowing) {
  std::mt19937 rng(65001);
  std::uniform_int_distribution<int> byte(0, 255), len(0, 64);
  for (int i = 0; i < 5000; ++i) {
    std::string bytes;
    for (int n = len(rng); n > 0; --n) bytes += static_cast<char>(byte(rng));
    std::wstring fromGbk = FromGbk(bytes), fromUtf8 = FromUtf8(bytes);
    // Each byte gives at most one character.
    ASSERT_LE(fromGbk.size(), bytes.size());
    ASSERT_LE(fromUtf8.size(), bytes.size());
    // Whatever was decoded encodes again to text of the same decoding.
    ASSERT_EQ(FromGbk(ToGbk(fromGbk)), fromGbk);
    ASSERT_EQ(FromUtf8(ToUtf8(fromUtf8)), fromUtf8);
  }
}

TEST(CodecCodePages, Constants) {
  EXPECT_EQ(kCodePageAnsi, 0u);
  EXPECT_EQ(kCodePageGbk, 936u);
  EXPECT_EQ(kCodePageUtf8, 65001u);
}

}  // namespace
