#include "LanguageFixture.h"

#include <fstream>

namespace langtest {

void WriteText(const std::filesystem::path &path, const std::wstring &text) {
  tolvtest::WriteFileBytes(path, tolv::ToUtf8(text));
}

std::wstring Package(const std::wstring &modules) {
  return L"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         L"<TolvDictionary autosort=\"FALSE\" name=\"TOLV_LANGUAUE_PACKAGE\" "
         L"localname=\"SenvarCAD Arch Language Package-English\">\n" +
         modules + L"</TolvDictionary>\n";
}

void ResetLanguageState() {
  g_pTolvLangSwitch = nullptr;
  g_pCurModuleLang = nullptr;
  g_strCurLanguage.Empty();
  ThisModuleLanguageTable() = nullptr;
  KyDtLanguageSwitch::ForgetIndexes();
  g_curDictLang.Reset();
  TheLanguageSwitch().ClearControls();
  tolv::SetAnsiCodePage(0);
  tolv::SetResourceLanguage(0);
  AfxSetResourceHandle(nullptr);
}

LanguageTest::LanguageTest() : dir_("language") {
  ResetLanguageState();
  tolv::SetMainDirectory(tolv::ToSystemPath(dir_.str()) + L"\\");
  oldSink_ = tolv::SetCommandLineSink([this](const std::wstring &text) { printed_ += text; });
}

LanguageTest::~LanguageTest() {
  tolv::SetCommandLineSink(oldSink_);
  ResetLanguageState();
  tolv::SetMainDirectory(L"");
}

void LanguageTest::Start(const std::wstring &language, const std::wstring &modulesXml) {
  WriteText(dir_.path() / "Set.ini", L"[system]\nlanguage=" + language + L"\n");
  WriteText(dir_.path() / "TolvLanguage.xml", Package(modulesXml));
  InitLanguage();
}

KyDtDictionary *LanguageTest::Current(const wchar_t *moduleKey) {
  KyDtDictItem *found = g_curDictLang.FindItem(moduleKey);
  g_pCurModuleLang = (found && found->IsDict()) ? static_cast<KyDtDictionary *>(found) : nullptr;
  return g_pCurModuleLang;
}

}  // namespace langtest
