#include "language/LangTranslate.h"

#include "language/KyUtPushResource.h"
#include "module/ModuleState.h"
#include "platform/dbobject/TolvLanguageSwitch.h"

CString _TL(const wchar_t *text) {
  KyUtPushResource current(TheModuleState().instance);
  if (!g_pTolvLangSwitch) return CString(text);
  return CString(g_pTolvLangSwitch->TranslateCode(text));
}
