// Code strings, texts and string resources through the switch.
#include "LanguageFixture.h"

using langtest::LanguageTest;

namespace {

// One module "TOLVUIMODEL" whose tables are given as XML.
std::wstring Module(const std::wstring &sections) {
  return L"<Directory name=\"TOLVUIMODEL\" localname=\"TOLVUIMODEL\">" + sections + L"</Directory>\n";
}

std::wstring Codes(const std::wstring &entries) {
  return L"<Directory name=\"CODESTRING\" localname=\"CODESTRING\">" + entries + L"</Directory>";
}

}  // namespace

class CodeStringTest : public LanguageTest {
 protected:
  // Builds the package in memory: names with control characters are kept
  // exactly, whatever the XML form makes of them.
  void StartWithCodes(std::initializer_list<std::pair<std::wstring, std::wstring>> entries) {
    Start(L"Eng", Module(Codes(L"")));
    KyDtDictionary *codes = g_curDictLang.FindDict(L"TOLVUIMODEL\\CODESTRING");
    ASSERT_NE(codes, nullptr);
    for (const auto &[name, local] : entries) {
      auto *item = new KyDtDictStringItem;
      item->m_strName = name.c_str();
      item->m_strLocalName = local.c_str();
      item->SetAttributeValue(L"element_type", L"CODESTRING");
      ASSERT_TRUE(codes->AppendItem(item));
    }
    Current(L"TOLVUIMODEL");
  }
  KyDtLanguageSwitch &switch_ = TheLanguageSwitch();
};

TEST_F(CodeStringTest, CarriageReturnLineFeedMatchesTheEntryStoredWithLineFeeds) {
  StartWithCodes({{L"第一行\n\n第二行", L"First\n\nSecond"}});
  std::wstring answer = switch_.TranslateCode(L"第一行\r\n第二行");
  EXPECT_EQ(answer, L"First\r\nSecond");
}

TEST_F(CodeStringTest, FewerLineEndsInTheTranslationUseTheFirstNotes) {
  StartWithCodes({{L"甲\n\n乙\n\n丙", L"A\n\nB"}});
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"甲\r\n乙\r\n丙")), L"A\r\nB");
}

TEST_F(CodeStringTest, MoreLineEndsInTheTranslationKeepTheRemainingLineFeeds) {
  StartWithCodes({{L"甲\n\n乙", L"A\n\nB\n\nC\nD"}});
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"甲\r\n乙")), L"A\r\nB\n\nC\nD");
}

TEST_F(CodeStringTest, LineFeedAtTheVeryStartIsNotCounted) {
  StartWithCodes({{L"\n\n甲", L"\n\nA"}});
  // Notes 1, 0: the walk starts at position 1, so the second line feed
  // takes the first note.
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"\r\n甲")), L"\n\rA");
}

TEST_F(CodeStringTest, TextWithoutCarriageReturnsIsLookedUpAsItStands) {
  StartWithCodes({{L"\n加载失败", L"\nLoading failed"}});
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"\n加载失败")), L"\nLoading failed");
}

TEST_F(CodeStringTest, BackslashIsLookedUpAsHashAndTheAnswerKeepsTheHash) {
  StartWithCodes({{L"路径#文件", L"Path#File"}});
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"路径\\文件")), L"Path#File");
}

TEST_F(CodeStringTest, MissAnswersTheSamePointer) {
  StartWithCodes({{L"甲", L"A"}});
  const wchar_t *text = L"没有";
  EXPECT_EQ(switch_.TranslateCode(text), text);
  g_pCurModuleLang = nullptr;
  const wchar_t *known = L"甲";
  EXPECT_EQ(switch_.TranslateCode(known), known);
}

TEST_F(CodeStringTest, AnswerPointsIntoThePackage) {
  StartWithCodes({{L"甲", L"A"}});
  const wchar_t *first = switch_.TranslateCode(L"甲");
  EXPECT_EQ(first, switch_.TranslateCode(L"甲"));
  EXPECT_EQ(first, g_curDictLang.FindItem(L"TOLVUIMODEL\\CODESTRING\\甲")->m_strLocalName.GetString());
}

TEST_F(LanguageTest, ModuleWithoutCodeStringsAnswersTheText) {
  Start(L"Eng", Module(L"<Directory name=\"STRING\" localname=\"STRING\"/>"));
  Current(L"TOLVUIMODEL");
  const wchar_t *text = L"甲";
  EXPECT_EQ(TheLanguageSwitch().TranslateCode(text), text);
}

TEST_F(LanguageTest, TextWithBackslashIsFoundUnderHashAndShownWithBackslash) {
  Start(L"Eng", Module(L"<String name=\"墙#柱\" localname=\"Wall#Column\"/>"));
  Current(L"TOLVUIMODEL");
  EXPECT_EQ(TheLanguageSwitch().TranslateText(L"墙\\柱"), CString(L"Wall\\Column"));
  // A miss answers the text with the hash in it.
  EXPECT_EQ(TheLanguageSwitch().TranslateText(L"门\\窗"), CString(L"门#窗"));
}

TEST_F(LanguageTest, TextLookupWithNoCurrentModuleAnswersTheText) {
  Start(L"Eng", Module(L"<String name=\"墙#柱\" localname=\"Wall#Column\"/>"));
  EXPECT_EQ(TheLanguageSwitch().TranslateText(L"墙\\柱"), CString(L"墙\\柱"));
  EXPECT_EQ(TheLanguageSwitch().TranslateObjectText(L"墙\\柱"), CString(L"墙\\柱"));
}

TEST_F(LanguageTest, ObjectTextIsLookedUpInTheObjectModulesTable) {
  Start(L"Eng", Module(L"<String name=\"墙\" localname=\"Wall (ui)\"/>") +
                    L"<Directory name=\"TOLVOBJECT\" localname=\"TOLVOBJECT\">"
                    L"<String name=\"墙\" localname=\"Wall\"/></Directory>\n");
  Current(L"TOLVUIMODEL");
  KyDtDictionary *saved = g_pCurModuleObject;
  g_pCurModuleObject = g_curDictLang.FindDict(L"TOLVOBJECT");
  EXPECT_EQ(TheLanguageSwitch().TranslateObjectText(L"墙"), CString(L"Wall"));
  EXPECT_EQ(TheLanguageSwitch().TranslateText(L"墙"), CString(L"Wall (ui)"));
  g_pCurModuleObject = nullptr;
  EXPECT_EQ(TheLanguageSwitch().TranslateObjectText(L"墙"), CString(L"墙"));
  g_pCurModuleObject = saved;
}

TEST_F(LanguageTest, FindModuleDictLooksInTheLoadedPackage) {
  Start(L"Eng", Module(L""));
  KyDtDictItem *found = TheLanguageSwitch().FindModuleDict(L"TOLVUIMODEL");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->IsDict());
  EXPECT_EQ(TheLanguageSwitch().FindModuleDict(L"TOLVNONE"), nullptr);
}

class StringResourceTest : public LanguageTest {
 protected:
  StringResourceTest() {
    std::array<std::wstring, 16> block;
    block[3] = L"墙体";  // id 16 * (2 - 1) + 3 = 19
    module_ = tolv::CreateResourceModule(L"C:\\Tolv\\TolvUiModel.arx",
                                         {{RT_STRING, MAKEINTRESOURCEW(2), 0x0804, tolv::WriteStringBlock(block)}});
    AfxSetResourceHandle(module_);
  }
  ~StringResourceTest() override { FreeLibrary(module_); }
  HMODULE module_;
};

TEST_F(StringResourceTest, HomeLanguageAnswersTheResource) {
  Start(L"Chs", Module(L"<Directory name=\"STRING\" localname=\"STRING\">"
                       L"<String name=\"19\" localname=\"Wall\"/></Directory>"));
  EXPECT_EQ(TheLanguageSwitch().LoadLangString(19), CString(L"墙体"));
  EXPECT_EQ(TheLanguageSwitch().LoadLangString(20), CString(L""));
  EXPECT_EQ(_TL(L"墙体"), CString(L"墙体"));
}

TEST_F(StringResourceTest, TranslatedStringComesFromThePackageOnly) {
  Start(L"Eng", Module(L"<Directory name=\"STRING\" localname=\"STRING\">"
                       L"<String name=\"19\" localname=\"Wall\"/></Directory>"));
  Current(L"TOLVUIMODEL");
  EXPECT_EQ(TheLanguageSwitch().LoadLangString(19), CString(L"Wall"));
  // An id the package lacks is empty, though the resource has text.
  EXPECT_EQ(TheLanguageSwitch().LoadLangString(3), CString(L""));
}

TEST_F(StringResourceTest, ModuleWithoutStringSectionGivesEmptyText) {
  Start(L"Eng", Module(L""));
  Current(L"TOLVUIMODEL");
  EXPECT_EQ(TheLanguageSwitch().LoadLangString(19), CString(L""));
}

TEST_F(StringResourceTest, CStringLoadStringReadsTheCurrentModule) {
  CString text(L"unchanged");
  EXPECT_TRUE(text.LoadString(19));
  EXPECT_EQ(text, CString(L"墙体"));
  CString missing(L"unchanged");
  EXPECT_FALSE(missing.LoadString(4000));
  EXPECT_EQ(missing, CString(L"unchanged"));
}

TEST_F(CodeStringTest, EntryAddedAfterALookupIsFoundAndTheFirstOfTwoNamesWins) {
  StartWithCodes({{L"甲", L"A"}});
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"甲")), L"A");
  KyDtDictionary *codes = g_curDictLang.FindDict(L"TOLVUIMODEL\\CODESTRING");
  auto *added = new KyDtDictStringItem;
  added->m_strName = L"乙";
  added->m_strLocalName = L"B";
  ASSERT_TRUE(codes->AppendItem(added));
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"乙")), L"B");
  // A second item of a name the section holds is refused by the section.
  auto *twin = new KyDtDictStringItem;
  twin->m_strName = L"甲";
  twin->m_strLocalName = L"A2";
  EXPECT_FALSE(codes->AppendItem(twin));
  delete twin;
  EXPECT_EQ(std::wstring(switch_.TranslateCode(L"甲")), L"A");
}

TEST_F(LanguageTest, PackageReadAgainIsLookedUpAfresh) {
  Start(L"Eng", Module(Codes(L"<String name=\"甲\" localname=\"First\"/>")));
  Current(L"TOLVUIMODEL");
  EXPECT_EQ(std::wstring(TheLanguageSwitch().TranslateCode(L"甲")), L"First");
  Start(L"Eng", Module(Codes(L"<String name=\"甲\" localname=\"Second\"/>")));
  Current(L"TOLVUIMODEL");
  EXPECT_EQ(std::wstring(TheLanguageSwitch().TranslateCode(L"甲")), L"Second");
}

TEST_F(LanguageTest, LongStringResourceIsLoadedWhole) {
  std::array<std::wstring, 16> block;
  block[0] = std::wstring(3000, L'墙');
  HMODULE module = tolv::CreateResourceModule(L"C:\\Tolv\\TolvLong.arx",
                                              {{RT_STRING, MAKEINTRESOURCEW(1), 0x0804, tolv::WriteStringBlock(block)}});
  AfxSetResourceHandle(module);
  CString text;
  EXPECT_TRUE(text.LoadString(0));
  EXPECT_EQ(text.GetLength(), 3000);
  AfxSetResourceHandle(nullptr);
  FreeLibrary(module);
}
