#include "platform/dbobject/TolvLanguageSwitch.h"

#include "platform/mfc/AfxModuleState.h"

TolvLanguageSwitch *g_pTolvLangSwitch = nullptr;
KyDtDictionary *g_pCurModuleLang = nullptr;
CString g_strCurLanguage;

TolvLanguageSwitch::TolvLanguageSwitch() = default;

TolvLanguageSwitch::~TolvLanguageSwitch() {
  // A switch that goes away must not stay in force.
  if (g_pTolvLangSwitch == this) g_pTolvLangSwitch = nullptr;
}

void TolvLanguageSwitch::TranslateDialog(CWnd *) {}
void TolvLanguageSwitch::TranslateMenu(unsigned int, CMenu *) {}
void TolvLanguageSwitch::TranslateToolBar(unsigned int) {}
CString TolvLanguageSwitch::LoadLangString(unsigned int id) {
  CString text;
  text.LoadString(id);
  return text;
}
const wchar_t *TolvLanguageSwitch::TranslateCode(const wchar_t *text) { return text; }
CString TolvLanguageSwitch::TranslateObjectText(CString text) { return text; }
CString TolvLanguageSwitch::TranslateText(CString text) { return text; }
KyDtDictItem *TolvLanguageSwitch::FindModuleDict(const wchar_t *) { return nullptr; }
void TolvLanguageSwitch::TranslateListControl(unsigned int, CWnd *) {}
int TolvLanguageSwitch::TranslateWindow(CWnd *) { return 0; }
