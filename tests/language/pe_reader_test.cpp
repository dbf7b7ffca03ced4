// The PE resource reader and the resource templates, on modules written
// here and on damaged ones.
#include <gtest/gtest.h>

#include "TestModules.h"
#include "platform/windows/PathMap.h"
#include "support/TestSupport.h"

namespace {

std::vector<std::uint8_t> Bytes(const std::string &s) { return std::vector<std::uint8_t>(s.begin(), s.end()); }

void Put32(std::string &s, std::size_t at, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) s[at + static_cast<std::size_t>(i)] = static_cast<char>((v >> (8 * i)) & 0xFF);
}

// The file offset of the resource section's start in a written module.
constexpr std::size_t kResourceStart = 0x200;
// Dialog, menu and strings in two languages, the dialog data in two, a tool bar.
constexpr std::size_t kSampleResources = 9;

}  // namespace

TEST(PeReaderTest, WrittenModuleReadsBackWithTypesNamesAndLanguages) {
  tolv::PeImage image;
  std::string error;
  ASSERT_TRUE(image.Parse(Bytes(langtest::SampleModule()), error)) << error;
  EXPECT_FALSE(image.Is64Bit());
  EXPECT_EQ(image.Machine(), 0x14C);
  ASSERT_EQ(image.Resources().size(), kSampleResources);
  EXPECT_EQ(image.DamagedEntries(), 0);
  // Types in number order, then names, then languages.
  const auto &r = image.Resources();
  EXPECT_EQ(r[0].type.id, 4);
  EXPECT_EQ(r[0].name.id, 200);
  EXPECT_EQ(r[0].language, 0x0409);
  EXPECT_EQ(r[1].language, 0x0804);
  EXPECT_EQ(r[2].type.id, 5);
  EXPECT_EQ(r[6].type.id, 240);
  EXPECT_EQ(r[8].type.id, 241);
  EXPECT_EQ(r[8].size, 12u);
}

TEST(PeReaderTest, NamedTypesAndNamesAreRead) {
  tolv::ResName type, name;
  type.text = L"MYTYPE";
  name.text = L"对话框";
  std::string bytes = tolv::WritePeImage({{type, name, 0, "abc"}});
  tolv::PeImage image;
  std::string error;
  ASSERT_TRUE(image.Parse(Bytes(bytes), error)) << error;
  ASSERT_EQ(image.Resources().size(), 1u);
  EXPECT_EQ(image.Resources()[0].type.text, L"MYTYPE");
  EXPECT_EQ(image.Resources()[0].name.text, L"对话框");
  EXPECT_EQ(image.Data(image.Resources()[0]), "abc");
}

TEST(PeReaderTest, NotAModuleGivesAReason) {
  tolv::PeImage image;
  std::string error;
  EXPECT_FALSE(image.Parse(Bytes("hello world"), error));
  EXPECT_NE(error.find("not a Windows module"), std::string::npos);
  EXPECT_FALSE(image.Parse({}, error));
  std::string noPe = langtest::SampleModule();
  noPe[0x40] = 'X';
  EXPECT_FALSE(image.Parse(Bytes(noPe), error));
  EXPECT_NE(error.find("no PE signature"), std::string::npos);
  EXPECT_FALSE(image.Load("/nonexistent/module.dll", error));
}

TEST(PeReaderTest, TruncatedAtEveryOffsetFailsOrLosesEntriesCleanly) {
  const std::string whole = langtest::SampleModule();
  for (std::size_t length = 0; length < whole.size(); length += (length < 0x400 ? 1 : 7)) {
    tolv::PeImage image;
    std::string error;
    if (image.Parse(Bytes(whole.substr(0, length)), error)) {
      // Whatever was read lies inside the bytes.
      for (const tolv::PeResource &r : image.Resources()) {
        EXPECT_LE(std::uint64_t{r.offset} + r.size, length);
      }
      EXPECT_LE(image.Resources().size(), kSampleResources);
    } else {
      EXPECT_FALSE(error.empty());
    }
  }
}

TEST(PeReaderTest, DirectoryThatPointsBackToItselfIsWalkedOnce) {
  std::string bytes = langtest::SampleModule();
  // The first type entry's directory becomes the root itself.
  Put32(bytes, kResourceStart + 16 + 4, 0x80000000u);
  tolv::PeImage image;
  std::string error;
  ASSERT_TRUE(image.Parse(Bytes(bytes), error)) << error;
  EXPECT_GE(image.DamagedEntries(), 1);
  EXPECT_LT(image.Resources().size(), kSampleResources);
}

TEST(PeReaderTest, EntriesPointingOutsideTheFileAreLeftOut) {
  std::string bytes = langtest::SampleModule();
  Put32(bytes, kResourceStart + 16 + 4, 0x80000000u | 0x7FFFFFF0u);
  tolv::PeImage image;
  std::string error;
  ASSERT_TRUE(image.Parse(Bytes(bytes), error)) << error;
  EXPECT_EQ(image.DamagedEntries(), 1);
  EXPECT_EQ(image.Resources().size(), kSampleResources - 2);  // the menu type is gone
}

TEST(PeReaderTest, AbsurdEntryCountIsRefused) {
  std::string bytes = langtest::SampleModule();
  bytes[kResourceStart + 14] = '\xFF';
  bytes[kResourceStart + 15] = '\xFF';
  tolv::PeImage image;
  std::string error;
  EXPECT_FALSE(image.Parse(Bytes(bytes), error));
}

TEST(PeReaderTest, AbsurdSectionCountIsRefused) {
  std::string bytes = langtest::SampleModule();
  bytes[0x46] = '\xFF';
  bytes[0x47] = '\x7F';
  tolv::PeImage image;
  std::string error;
  EXPECT_FALSE(image.Parse(Bytes(bytes), error));
}

TEST(ResourceTemplateTest, DialogTemplateRoundTripsWithFontAndControls) {
  std::string bytes = langtest::Dialog(L"墙设置", {{L"Button", L"确定", 1}, {L"MyClass", L"自定义", 70000 & 0xFFFF}});
  tolv::DialogTemplate d;
  ASSERT_TRUE(tolv::ParseDialogTemplate(bytes, d));
  EXPECT_FALSE(d.extended);
  EXPECT_EQ(d.title, L"墙设置");
  EXPECT_EQ(d.typeface, L"宋体");
  ASSERT_EQ(d.items.size(), 2u);
  EXPECT_EQ(d.items[0].ClassName(), L"Button");
  EXPECT_EQ(d.items[0].title.text, L"确定");
  EXPECT_EQ(d.items[1].ClassName(), L"MyClass");
  EXPECT_EQ(d.items[1].id, 70000u & 0xFFFF);
}

TEST(ResourceTemplateTest, ExtendedDialogIsRead) {
  // DLGTEMPLATEEX by hand: one button "OK" with a 32-bit id.
  std::string b;
  auto u16 = [&](std::uint32_t v) { b.push_back(char(v & 0xFF)); b.push_back(char((v >> 8) & 0xFF)); };
  auto u32 = [&](std::uint32_t v) { u16(v & 0xFFFF); u16(v >> 16); };
  auto text = [&](const std::wstring &t) { for (wchar_t c : t) u16(c); u16(0); };
  u16(1); u16(0xFFFF); u32(0); u32(0); u32(0x80C80048u);  // DS_SETFONT | DS_FIXEDSYS
  u16(1); u16(0); u16(0); u16(100); u16(50);
  u16(0); u16(0); text(L"Ex");
  u16(8); u16(400); b.push_back(0); b.push_back(1); text(L"MS Shell Dlg");
  while (b.size() % 4) b.push_back(0);
  u32(0); u32(0); u32(0x50010000u); u16(1); u16(2); u16(3); u16(4); u32(100000);
  u16(0xFFFF); u16(0x80); text(L"OK"); u16(0);
  tolv::DialogTemplate d;
  ASSERT_TRUE(tolv::ParseDialogTemplate(b, d));
  EXPECT_TRUE(d.extended);
  EXPECT_EQ(d.title, L"Ex");
  EXPECT_EQ(d.weight, 400);
  ASSERT_EQ(d.items.size(), 1u);
  EXPECT_EQ(d.items[0].id, 100000u);
  EXPECT_EQ(d.items[0].title.text, L"OK");
  // Cut anywhere, it fails cleanly.
  for (std::size_t n = 0; n < b.size(); ++n) EXPECT_FALSE(tolv::ParseDialogTemplate(b.substr(0, n), d));
}

TEST(ResourceTemplateTest, DialogWithAbsurdCountFailsWithoutReserving) {
  std::string bytes = langtest::Dialog(L"x", {{L"Button", L"a", 1}});
  bytes[8] = '\xFF';
  bytes[9] = '\xFF';
  tolv::DialogTemplate d;
  EXPECT_FALSE(tolv::ParseDialogTemplate(bytes, d));
}

TEST(ResourceTemplateTest, MenuWithoutEndFlagFails) {
  tolv::MenuTemplate m;
  tolv::MenuItemTemplate item;
  item.id = 1;
  item.text = L"打开";
  m.items = {item};
  std::string bytes = tolv::WriteMenuTemplate(m);
  ASSERT_TRUE(tolv::ParseMenuTemplate(bytes, m));
  bytes[4] = 0;  // the end flag of the only item
  EXPECT_FALSE(tolv::ParseMenuTemplate(bytes, m));
}

TEST(ResourceTemplateTest, DeeplyNestedMenuFails) {
  std::string b("\0\0\0\0", 4);
  for (int i = 0; i < 10000; ++i) b += std::string("\x90\x00" "a\0\0\0", 6);
  tolv::MenuTemplate m;
  EXPECT_FALSE(tolv::ParseMenuTemplate(b, m));
}

TEST(ResourceTemplateTest, StringBlockRunningPastTheEndFails) {
  std::array<std::wstring, 16> strings;
  strings[0] = L"墙";
  std::string bytes = tolv::WriteStringBlock(strings);
  ASSERT_TRUE(tolv::ParseStringBlock(bytes, strings));
  EXPECT_EQ(strings[0], L"墙");
  bytes[0] = '\xFF';
  EXPECT_FALSE(tolv::ParseStringBlock(bytes, strings));
  EXPECT_FALSE(tolv::ParseStringBlock(bytes.substr(0, 5), strings));
}

TEST(ResourceTemplateTest, ToolBarIsRead) {
  tolv::ToolBarTemplate t;
  ASSERT_TRUE(tolv::ParseToolBar(std::string("\x01\x00\x10\x00\x10\x00\x02\x00\x65\x00\x00\x00", 12), t));
  EXPECT_EQ(t.ids, (std::vector<std::uint16_t>{101, 0}));
  EXPECT_FALSE(tolv::ParseToolBar(std::string("\x01\x00\x10\x00\x10\x00\x09\x00", 8), t));
}

class ResourceModuleTest : public ::testing::Test {
 protected:
  ResourceModuleTest() : dir_("pe-module") {
    langtest::WriteBytes(dir_.path() / "TolvSample9.dll", langtest::SampleModule());
    path_ = tolv::ToSystemPath(dir_.str()) + L"\\TolvSample9.dll";
  }
  ~ResourceModuleTest() override { tolv::SetResourceLanguage(0); }
  tolvtest::ScratchDir dir_;
  std::wstring path_;
};

TEST_F(ResourceModuleTest, LoadsPicksTheChineseResourceAndEnumerates) {
  HMODULE module = LoadLibraryW(path_.c_str());
  ASSERT_NE(module, nullptr);
  wchar_t text[64];
  EXPECT_EQ(LoadStringW(module, 18, text, 64), 2);
  EXPECT_EQ(std::wstring(text), L"柱子");
  tolv::SetResourceLanguage(0x0409);
  EXPECT_EQ(LoadStringW(module, 18, text, 64), 6);
  EXPECT_EQ(std::wstring(text), L"Column");
  EXPECT_EQ(LoadStringW(module, 19, text, 64), 0);

  std::vector<int> types;
  EnumResourceTypesW(module, [](HMODULE, LPWSTR type, LONG_PTR p) -> BOOL {
    reinterpret_cast<std::vector<int> *>(p)->push_back(RESOURCE_ID(type));
    return TRUE;
  }, reinterpret_cast<LONG_PTR>(&types));
  EXPECT_EQ(types, (std::vector<int>{4, 5, 6, 240, 241}));
  std::vector<WORD> languages;
  EnumResourceLanguagesW(module, RT_DIALOG, MAKEINTRESOURCEW(101), [](HMODULE, LPCWSTR, LPCWSTR, WORD l, LONG_PTR p) -> BOOL {
    reinterpret_cast<std::vector<WORD> *>(p)->push_back(l);
    return TRUE;
  }, reinterpret_cast<LONG_PTR>(&languages));
  EXPECT_EQ(languages, (std::vector<WORD>{0x0409, 0x0804}));
  HRSRC found = FindResourceExW(module, RT_TOOLBAR, MAKEINTRESOURCEW(300), 0x0804);
  EXPECT_EQ(SizeofResource(module, found), 12u);
  EXPECT_EQ(FindResourceExW(module, RT_TOOLBAR, MAKEINTRESOURCEW(300), 0x0409), nullptr);
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_FALSE(FreeLibrary(module));
}

TEST_F(ResourceModuleTest, CreatedDialogIsItsTemplateWithControlsAsChildren) {
  HMODULE module = LoadLibraryW(path_.c_str());
  ASSERT_NE(module, nullptr);
  AfxSetResourceHandle(module);
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(101u));
  EXPECT_EQ(dialog.GetTemplateId(), 101u);
  CString caption;
  dialog.GetWindowText(caption);
  EXPECT_EQ(caption, CString(L"墙设置"));
  HWND ok = GetDlgItem(dialog.m_hWnd, 1);
  wchar_t text[32];
  GetWindowTextW(ok, text, 32);
  EXPECT_EQ(std::wstring(text), L"确定");
  GetClassNameW(GetDlgItem(dialog.m_hWnd, 4), text, 32);
  EXPECT_EQ(std::wstring(text), L"ComboBox");
  CDialog missing;
  EXPECT_FALSE(missing.Create(102u));
  dialog.DestroyWindow();
  CMenu menu;
  ASSERT_TRUE(menu.LoadMenu(200));
  EXPECT_EQ(menu.GetMenuItemCount(), 2);
  EXPECT_EQ(menu.GetSubMenu(0)->GetMenuItemCount(), 3);
  EXPECT_EQ(menu.GetSubMenu(0)->GetMenuItemID(1), 0u);
  menu.DestroyMenu();
  AfxSetResourceHandle(nullptr);
  FreeLibrary(module);
  EXPECT_EQ(tolv::LiveWindowCount(), 0);
  EXPECT_EQ(tolv::LiveMenuCount(), 0);
}

TEST_F(ResourceModuleTest, MissingOrForeignFileDoesNotLoad) {
  EXPECT_EQ(LoadLibraryW(L"C:\\none\\missing.dll"), nullptr);
  langtest::WriteBytes(dir_.path() / "text.dll", "not a module");
  EXPECT_EQ(LoadLibraryW((tolv::ToSystemPath(dir_.str()) + L"\\text.dll").c_str()), nullptr);
}

TEST(ResourceTemplateTest, DialogInitDataReadsRecordsAndRefusesOneRunningPastTheEnd) {
  std::string bytes = tolv::WriteDialogInit({{4, 0x0403, "abc"}, {5, 0x0401, std::string("x\0y", 3)}});
  std::vector<tolv::DialogInitRecord> records;
  ASSERT_TRUE(tolv::ParseDialogInit(bytes, records));
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0].control, 4);
  EXPECT_EQ(records[0].message, 0x0403);
  EXPECT_EQ(records[0].text, "abc");
  EXPECT_EQ(records[1].text, "x");
  // A length of 4 GB in the first record.
  bytes[4] = bytes[5] = bytes[6] = bytes[7] = '\xFF';
  EXPECT_FALSE(tolv::ParseDialogInit(bytes, records));
  // Without its closing zero the data ends with the bytes.
  EXPECT_TRUE(tolv::ParseDialogInit(tolv::WriteDialogInit({{4, 0x0403, "a"}}).substr(0, 10), records));
  EXPECT_EQ(records.size(), 1u);
}

TEST(PeReaderTest, FileAboveTheSizeLimitIsRefusedBeforeItIsRead) {
  tolvtest::ScratchDir dir("pe-large");
  langtest::WriteBytes(dir.path() / "big.dll", langtest::SampleModule());
  tolv::PeImage image;
  std::string error;
  EXPECT_FALSE(image.Load((dir.path() / "big.dll").string(), error, 100));
  EXPECT_NE(error.find("too large"), std::string::npos);
  EXPECT_TRUE(image.Load((dir.path() / "big.dll").string(), error));
}

TEST(ResourceLanguageTest, LoadFallsBackToNeutralThenEnglishThenTheFirst) {
  auto strings = [](const wchar_t *text) {
    std::array<std::wstring, 16> block;
    block[0] = text;
    return tolv::WriteStringBlock(block);
  };
  HMODULE neutral = tolv::CreateResourceModule(L"C:\\m\\a.dll", {{RT_STRING, MAKEINTRESOURCEW(1), 0x0411, strings(L"ja")},
                                                                 {RT_STRING, MAKEINTRESOURCEW(1), 0x0409, strings(L"en")},
                                                                 {RT_STRING, MAKEINTRESOURCEW(1), 0, strings(L"neutral")}});
  HMODULE english = tolv::CreateResourceModule(L"C:\\m\\b.dll", {{RT_STRING, MAKEINTRESOURCEW(1), 0x0411, strings(L"ja")},
                                                                 {RT_STRING, MAKEINTRESOURCEW(1), 0x0409, strings(L"en")}});
  HMODULE first = tolv::CreateResourceModule(L"C:\\m\\c.dll", {{RT_STRING, MAKEINTRESOURCEW(1), 0x0411, strings(L"ja")},
                                                               {RT_STRING, MAKEINTRESOURCEW(1), 0x0407, strings(L"de")}});
  wchar_t text[16];
  LoadStringW(neutral, 0, text, 16);
  EXPECT_EQ(std::wstring(text), L"neutral");
  LoadStringW(english, 0, text, 16);
  EXPECT_EQ(std::wstring(text), L"en");
  LoadStringW(first, 0, text, 16);
  EXPECT_EQ(std::wstring(text), L"ja");
  tolv::SetResourceLanguage(0x0407);
  LoadStringW(first, 0, text, 16);
  EXPECT_EQ(std::wstring(text), L"de");
  tolv::SetResourceLanguage(0);
  wchar_t path[64];
  GetModuleFileNameW(first, path, 64);
  EXPECT_EQ(std::wstring(path), L"C:\\m\\c.dll");
  for (HMODULE m : {neutral, english, first}) EXPECT_TRUE(FreeLibrary(m));
}
