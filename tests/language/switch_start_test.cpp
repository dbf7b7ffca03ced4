// The language start-up and the translation call of the module's own texts.
#include "LanguageFixture.h"
#include "module/ModuleState.h"

using langtest::LanguageTest;

namespace {

const std::wstring kOwnModule =
    L"<Directory name=\"TOLVDATABASE\" localname=\"TOLVDATABASE\">"
    L"<Directory name=\"CODESTRING\" localname=\"CODESTRING\">"
    L"<String name=\"加载失败\" localname=\"Loading failed\" element_type=\"CODESTRING\"/>"
    L"</Directory></Directory>\n";

}  // namespace

TEST_F(LanguageTest, OwnModuleKeyIsTheLibraryNameAsAtHome) {
  EXPECT_EQ(LanguageModuleKey(TheModuleState().instance), CString(L"TOLVDATABASE"));
}

TEST_F(LanguageTest, EnglishPackageTranslatesTheModulesOwnTexts) {
  Start(L"Eng", kOwnModule);
  EXPECT_EQ(g_strCurLanguage, CString(L"Eng"));
  ASSERT_EQ(g_pTolvLangSwitch, &TheLanguageSwitch());
  EXPECT_EQ(_TL(L"加载失败"), CString(L"Loading failed"));
  // A text the package lacks stands.
  EXPECT_EQ(_TL(L"没有翻译"), CString(L"没有翻译"));
  // The module's table stays found, and the current one is given back.
  EXPECT_NE(ThisModuleLanguageTable(), nullptr);
  EXPECT_EQ(g_pCurModuleLang, nullptr);
}

TEST_F(LanguageTest, HomeLanguageLeavesTheSwitchOffAndTheTextsStanding) {
  Start(L"Chs", kOwnModule);
  EXPECT_EQ(g_strCurLanguage, CString(L"Chs"));
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
  EXPECT_EQ(_TL(L"加载失败"), CString(L"加载失败"));
  EXPECT_EQ(g_curDictLang.GetLength(), 0);
}

TEST_F(LanguageTest, SetIniWithoutTheKeyKeepsTheLanguageAndTheSwitchOff) {
  g_strCurLanguage = L"Before";
  langtest::WriteText(dir_.path() / "Set.ini", L"[system]\nother=1\n");
  langtest::WriteText(dir_.path() / "TolvLanguage.xml", langtest::Package(kOwnModule));
  InitLanguage();
  EXPECT_EQ(g_strCurLanguage, CString(L"Before"));
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
}

TEST_F(LanguageTest, MissingSetIniChangesNothing) {
  langtest::WriteText(dir_.path() / "TolvLanguage.xml", langtest::Package(kOwnModule));
  InitLanguage();
  EXPECT_TRUE(g_strCurLanguage.IsEmpty());
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
}

TEST_F(LanguageTest, MissingPackageKeepsTheLanguageWithTheSwitchOff) {
  langtest::WriteText(dir_.path() / "Set.ini", L"[system]\nlanguage=Eng\n");
  InitLanguage();
  EXPECT_EQ(g_strCurLanguage, CString(L"Eng"));
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
}

TEST_F(LanguageTest, MalformedPackageLeavesTheSwitchOff) {
  langtest::WriteText(dir_.path() / "Set.ini", L"[system]\nlanguage=Eng\n");
  langtest::WriteText(dir_.path() / "TolvLanguage.xml", L"<TolvDictionary><Directory name=\"A\">");
  InitLanguage();
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
  langtest::WriteText(dir_.path() / "TolvLanguage.xml", L"<NotADictionary/>");
  InitLanguage();
  EXPECT_EQ(g_pTolvLangSwitch, nullptr);
}

TEST_F(LanguageTest, LanguageNameIsReadIntoTwentyCharacters) {
  Start(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ", kOwnModule);
  EXPECT_EQ(g_strCurLanguage, CString(L"ABCDEFGHIJKLMNOPQRS"));
}

TEST_F(LanguageTest, PushResourceMakesAModuleCurrentAndGivesBothBack) {
  Start(L"Eng", kOwnModule + L"<Directory name=\"TOLVCOMCTRL\" localname=\"TOLVCOMCTRL\"/>\n");
  HMODULE comCtrl = tolv::CreateResourceModule(L"C:\\Tolv\\TolvComCtrl9.dll", {});
  HINSTANCE before = reinterpret_cast<HINSTANCE>(0x1000);
  AfxSetResourceHandle(before);
  KyDtDictionary *own = nullptr;
  {
    KyUtPushResource current(comCtrl, own);
    EXPECT_EQ(AfxGetResourceHandle(), comCtrl);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->m_strName, CString(L"TOLVCOMCTRL"));
    EXPECT_EQ(g_pCurModuleLang, own);
    {
      KyUtPushResource inner(TheModuleState().instance);
      EXPECT_EQ(g_pCurModuleLang, ThisModuleLanguageTable());
    }
    EXPECT_EQ(g_pCurModuleLang, own);
  }
  EXPECT_EQ(AfxGetResourceHandle(), before);
  EXPECT_EQ(g_pCurModuleLang, nullptr);
  FreeLibrary(comCtrl);
}

TEST(LanguageModuleKeyTest, KeyIsTheUpperCaseNameWithoutItsLastDigit) {
  EXPECT_EQ(LanguageModuleKey(CString(L"C:\\A\\TolvComCtrl9.dll")), CString(L"TOLVCOMCTRL"));
  EXPECT_EQ(LanguageModuleKey(CString(L"C:\\A\\TolvUiModel.arx")), CString(L"TOLVUIMODEL"));
  // Only one last digit goes, and the name is cut at its first point.
  EXPECT_EQ(LanguageModuleKey(CString(L"D:\\Tolv18.v2.arx")), CString(L"TOLV1"));
  // No backslash after the first character: no key.
  EXPECT_EQ(LanguageModuleKey(CString(L"TolvComCtrl9.dll")), CString(L""));
  EXPECT_EQ(LanguageModuleKey(CString(L"\\TolvComCtrl9.dll")), CString(L""));
  EXPECT_EQ(LanguageFileKey(CString(L"TolvObject.arx")), CString(L"TOLVOBJECT"));
}
