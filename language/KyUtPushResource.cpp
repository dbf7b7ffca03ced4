#include "language/KyUtPushResource.h"

#include "dictionary/KyDtDictionary.h"
#include "language/LanguageModuleKey.h"
#include "platform/dbobject/TolvLanguageSwitch.h"
#include "platform/mfc/AfxModuleState.h"

KyDtDictionary *&ThisModuleLanguageTable() {
  static KyDtDictionary *table = nullptr;
  return table;
}

KyUtPushResource::KyUtPushResource(HINSTANCE instance) : KyUtPushResource(instance, ThisModuleLanguageTable()) {}

KyUtPushResource::KyUtPushResource(HINSTANCE instance, KyDtDictionary *&ownTable)
    : m_hOldResource(AfxGetModuleState()->m_hCurrentResourceHandle), m_pOldModuleLang(g_pCurModuleLang) {
  AfxGetModuleState()->m_hCurrentResourceHandle = instance;
  g_pCurModuleLang = ownTable;
  if (!g_pCurModuleLang && g_pTolvLangSwitch) {
    CString key = LanguageModuleKey(instance);
    KyDtDictItem *found = g_pTolvLangSwitch->FindModuleDict(key);
    ownTable = (found && found->IsDict()) ? static_cast<KyDtDictionary *>(found) : nullptr;
    g_pCurModuleLang = ownTable;
  }
}

KyUtPushResource::~KyUtPushResource() {
  AfxGetModuleState()->m_hCurrentResourceHandle = m_hOldResource;
  g_pCurModuleLang = m_pOldModuleLang;
}
