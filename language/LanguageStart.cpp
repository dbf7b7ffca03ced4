#include "language/LanguageStart.h"

#include "dictionary/KyDtDictionary.h"
#include "language/KyDtLanguageSwitch.h"
#include "language/KyUtPushResource.h"
#include "module/ModuleGlobals.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/Profile.h"

void InitLanguage() {
  CString path;
  if (!FindFile(L"Set.ini", path)) return;
  wchar_t language[20] = {};
  ::GetPrivateProfileStringW(L"system", L"language", L"", language, 20, path);
  if (language[0] == L'\0') return;
  g_strCurLanguage = language;
  if (g_strCurLanguage.Compare(L"Chs") == 0) return;
  if (!FindFile(L"TolvLanguage.xml", path)) return;
  // A table found in an earlier package would point into the old tree.
  ThisModuleLanguageTable() = nullptr;
  KyDtLanguageSwitch::ForgetIndexes();
  g_curDictLang.Reset();
  if (!g_curDictLang.ReadFromXML(path)) return;
  g_pTolvLangSwitch = &TheLanguageSwitch();
}
