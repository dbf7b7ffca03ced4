// Reading INI files as the Windows profile functions do, in each encoding
// the add-on's files come in.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "platform/windows/Profile.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

// The language settings file as the add-on ships it, in wide text.
const wchar_t kSetIni[] =
    L"; language settings\r\n"
    L"[Language]\r\n"
    L"Current = 简体中文 \r\n"
    L"Package=\"TolvLanguage.xml\"\r\n"
    L"Quoted='  kept inside  '\r\n"
    L"Half=\"open\r\n"
    L"Empty=\r\n"
    L"Inline=1 ; not a comment\r\n"
    L"\r\n"
    L"[语言]\r\n"
    L"名称=中文名称\r\n"
    L"  Spaced Key   =   spaced value   \r\n";

std::string Utf16LeWithBom(const std::wstring &text) {
  std::string bytes = "\xFF\xFE";
  for (char16_t u : tolv::ToUtf16(text)) {
    bytes += static_cast<char>(u & 0xFF);
    bytes += static_cast<char>(u >> 8);
  }
  return bytes;
}

class IniFile {
 public:
  IniFile(const std::string &tag, const std::string &bytes) : dir_(tag) {
    tolvtest::WriteFileBytes(dir_.path() / "Set.ini", bytes);
  }
  std::wstring path() const { return dir_.wide("Set.ini"); }

  std::wstring Get(const wchar_t *section, const wchar_t *key, const wchar_t *def = L"<default>",
                   DWORD size = 256, DWORD *count = nullptr) const {
    std::vector<wchar_t> buf(size + 1, L'#');
    DWORD n = GetPrivateProfileStringW(section, key, def, buf.data(), size, path().c_str());
    if (count) *count = n;
    return std::wstring(buf.data(), n);
  }

 private:
  tolvtest::ScratchDir dir_;
};

void ExpectSetIniValues(const IniFile &ini) {
  EXPECT_EQ(ini.Get(L"Language", L"Current"), L"简体中文");
  EXPECT_EQ(ini.Get(L"Language", L"Package"), L"TolvLanguage.xml");
  EXPECT_EQ(ini.Get(L"Language", L"Quoted"), L"  kept inside  ");
  EXPECT_EQ(ini.Get(L"Language", L"Half"), L"\"open");
  EXPECT_EQ(ini.Get(L"Language", L"Empty"), L"");
  EXPECT_EQ(ini.Get(L"Language", L"Inline"), L"1 ; not a comment");
  EXPECT_EQ(ini.Get(L"语言", L"名称"), L"中文名称");
  EXPECT_EQ(ini.Get(L"语言", L"Spaced Key"), L"spaced value");
}

TEST(IniEncodings, Utf8WithoutBom) {
  IniFile ini("ini_utf8", tolv::ToUtf8(kSetIni));
  ExpectSetIniValues(ini);
}

TEST(IniEncodings, Utf8WithBom) {
  IniFile ini("ini_utf8bom", "\xEF\xBB\xBF" + tolv::ToUtf8(kSetIni));
  ExpectSetIniValues(ini);
  // The mark is not part of the first line.
  IniFile first("ini_utf8bom_first", "\xEF\xBB\xBF[A]\nk=v\n");
  EXPECT_EQ(first.Get(L"A", L"k"), L"v");
}

TEST(IniEncodings, Utf16LittleEndianWithBom) {
  IniFile ini("ini_utf16", Utf16LeWithBom(kSetIni));
  ExpectSetIniValues(ini);
}

TEST(IniEncodings, CodePage936) {
  IniFile ini("ini_gbk", tolv::ToGbk(kSetIni));
  ExpectSetIniValues(ini);
}

TEST(IniLookup, NamesCompareWithoutCase) {
  IniFile ini("ini_case", "[Language]\nCurrent=x\n");
  EXPECT_EQ(ini.Get(L"LANGUAGE", L"current"), L"x");
  EXPECT_EQ(ini.Get(L"language", L"CURRENT"), L"x");
}

TEST(IniLookup, FirstOfRepeatedKeysWins) {
  IniFile ini("ini_repeat", "[S]\nk=first\nk=second\n");
  EXPECT_EQ(ini.Get(L"S", L"k"), L"first");
}

TEST(IniLookup, KeysBeforeAnySectionAreIgnored) {
  IniFile ini("ini_orphan", "k=orphan\n[S]\nother=1\n");
  EXPECT_EQ(ini.Get(L"S", L"k"), L"<default>");
}

TEST(IniLookup, LinesEndedByLfOnlyAndLastLineWithoutEnd) {
  IniFile ini("ini_lf", "[S]\na=1\nb=2");
  EXPECT_EQ(ini.Get(L"S", L"a"), L"1");
  EXPECT_EQ(ini.Get(L"S", L"b"), L"2");
}

TEST(IniDefaults, MissingFileSectionOrKey) {
  IniFile ini("ini_default", "[S]\nk=v\n");
  EXPECT_EQ(ini.Get(L"S", L"nokey", L"dflt"), L"dflt");
  EXPECT_EQ(ini.Get(L"NoSection", L"k", L"dflt"), L"dflt");
  EXPECT_EQ(ini.Get(L"S", L"nokey", nullptr), L"");
  // Trailing blanks of the default are cut; leading ones stay.
  EXPECT_EQ(ini.Get(L"S", L"nokey", L"  d e  "), L"  d e");

  wchar_t buf[32];
  EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"none", buf, 32, L"/no/such/folder/Set.ini"), 4u);
  EXPECT_STREQ(buf, L"none");
  EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"none", buf, 32, nullptr), 4u);
  EXPECT_STREQ(buf, L"none");
}

TEST(IniTruncation, ValueCutToBufferSize) {
  IniFile ini("ini_trunc", "[S]\nk=abcdef\n");
  DWORD n = 0;
  EXPECT_EQ(ini.Get(L"S", L"k", L"", 4, &n), L"abc");
  EXPECT_EQ(n, 3u);
  wchar_t buf[4] = {L'#', L'#', L'#', L'#'};
  GetPrivateProfileStringW(L"S", L"k", L"", buf, 4, ini.path().c_str());
  EXPECT_EQ(buf[3], L'\0');
  EXPECT_EQ(ini.Get(L"S", L"k", L"", 7, &n), L"abcdef");
  EXPECT_EQ(n, 6u);
  EXPECT_EQ(ini.Get(L"S", L"k", L"", 1, &n), L"");
  EXPECT_EQ(n, 0u);
  // The default is cut the same way.
  EXPECT_EQ(ini.Get(L"S", L"none", L"0123456789", 5, &n), L"0123");
  EXPECT_EQ(n, 4u);
  EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"", nullptr, 10, ini.path().c_str()), 0u);
}

std::vector<std::wstring> SplitList(const std::wstring &all) {
  std::vector<std::wstring> names;
  size_t start = 0;
  while (start < all.size()) {
    size_t end = all.find(L'\0', start);
    if (end == std::wstring::npos) end = all.size();
    names.push_back(all.substr(start, end - start));
    start = end + 1;
  }
  return names;
}

TEST(IniLists, NullKeyListsTheKeysOfASection) {
  IniFile ini("ini_keys", tolv::ToUtf8(kSetIni));
  std::vector<wchar_t> buf(256, L'#');
  DWORD n = GetPrivateProfileStringW(L"语言", nullptr, L"x", buf.data(), 256, ini.path().c_str());
  std::wstring all(buf.data(), n);
  EXPECT_EQ(SplitList(all), (std::vector<std::wstring>{L"名称", L"Spaced Key"}));
  EXPECT_EQ(buf[n], L'\0');
  EXPECT_EQ(buf[n - 1], L'\0');
  // No such section: an empty list.
  n = GetPrivateProfileStringW(L"none", nullptr, L"x", buf.data(), 256, ini.path().c_str());
  EXPECT_EQ(n, 0u);
  EXPECT_EQ(buf[0], L'\0');
}

TEST(IniLists, NullSectionListsAllSections) {
  IniFile ini("ini_sections", Utf16LeWithBom(kSetIni));
  std::vector<wchar_t> buf(256, L'#');
  DWORD n = GetPrivateProfileStringW(nullptr, nullptr, L"x", buf.data(), 256, ini.path().c_str());
  EXPECT_EQ(SplitList(std::wstring(buf.data(), n)), (std::vector<std::wstring>{L"Language", L"语言"}));
  EXPECT_EQ(buf[n], L'\0');
}

TEST(IniLists, TruncatedListEndsWithTwoNulls) {
  IniFile ini("ini_list_trunc", "[S]\nalpha=1\nbeta=2\n");
  // "alpha\0beta\0" with its final null needs 12; 8 cuts it.
  wchar_t buf[8];
  DWORD n = GetPrivateProfileStringW(L"S", nullptr, L"", buf, 8, ini.path().c_str());
  EXPECT_EQ(n, 6u);
  EXPECT_EQ(std::wstring(buf, 6), std::wstring(L"alpha\0", 6));
  EXPECT_EQ(buf[6], L'\0');
  EXPECT_EQ(buf[7], L'\0');
}

TEST(IniRobustness, GarbageFilesGiveDefaultsOrWhatTheyHold) {
  std::mt19937 rng(936);
  std::uniform_int_distribution<int> byte(0, 255), len(0, 400);
  const char alphabet[] = "[]=;\"' \r\n\tab\xFF\xFE\xEF\xBB\xBF\xD6\xD0";
  std::uniform_int_distribution<size_t> pick(0, sizeof alphabet - 2);
  for (int i = 0; i < 300; ++i) {
    std::string bytes;
    for (int n = len(rng); n > 0; --n)
      bytes += (i % 2) ? static_cast<char>(byte(rng)) : alphabet[pick(rng)];
    IniFile ini("ini_garbage", bytes);
    DWORD n = 0;
    std::wstring v = ini.Get(L"a", L"b", L"dflt", 16, &n);
    ASSERT_LE(n, 15u);
    std::vector<wchar_t> buf(32, L'#');
    n = GetPrivateProfileStringW(nullptr, nullptr, L"", buf.data(), 32, ini.path().c_str());
    ASSERT_LE(n, 31u);  // size - 1 when the list fits, size - 2 when cut
    ASSERT_EQ(buf[n], L'\0');
  }
}

TEST(IniNumbers, IntegerValues) {
  IniFile ini("ini_int", "[S]\nn=42\nneg=-3\ntext=abc\nempty=\n");
  EXPECT_EQ(GetPrivateProfileIntW(L"S", L"n", 7, ini.path().c_str()), 42u);
  EXPECT_EQ(GetPrivateProfileIntW(L"S", L"missing", 7, ini.path().c_str()), 7u);
  EXPECT_EQ(GetPrivateProfileIntW(L"S", L"text", 7, ini.path().c_str()), 0u);
  EXPECT_EQ(static_cast<int>(GetPrivateProfileIntW(L"S", L"neg", 7, ini.path().c_str())), -3);
}

}  // namespace
