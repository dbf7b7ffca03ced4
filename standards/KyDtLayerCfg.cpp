#include "standards/KyDtLayerCfg.h"

#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"

KyDtLayerCfg::KyDtLayerCfg() : m_pCfg(nullptr) {
  KyDtDictItem *item = g_dictCfg.FindItem(CString(L"LAYER"));
  if (item && item->IsDict()) m_pCfg = static_cast<KyDtDictionary *>(item);
}

CString KyDtLayerCfg::GetCurStdName() const {
  if (!m_pCfg) return CString();
  CString name;
  m_pCfg->GetValue(CString(L"CUR_STD"), name);
  return name;
}

KyDtDictionary *KyDtLayerCfg::GetLayerStd(const wchar_t *name) const {
  if (!m_pCfg || !name) return nullptr;
  KyDtDictItem *item = m_pCfg->FindItem(CString(name));
  return item && item->IsDict() ? static_cast<KyDtDictionary *>(item) : nullptr;
}

KyDtDictionary *KyDtLayerCfg::GetCurLayerStd() const { return GetLayerStd(GetCurStdName()); }

void KyDtLayerCfg::GetAllLayerStd(KyDynArray<KyDtDictionary *> &standards) const {
  if (!m_pCfg) return;
  for (std::int32_t i = 0; i < m_pCfg->GetLength(); ++i) {
    KyDtDictItem *item = m_pCfg->GetAt(i);
    if (item && item->IsDict()) standards.Append(static_cast<KyDtDictionary *>(item));
  }
}

bool KyDtLayerCfg::GetLayerDef(KyDtLayerDef &def, KyDtDictionary *standard) const {
  return KyDtLayerStd(standard ? standard : GetCurLayerStd()).GetLayerDef(def);
}

AcDbObjectId KyDtLayerCfg::InitLayer(const wchar_t *key, AcDbDatabase *db) const {
  return KyDtLayerStd(GetCurLayerStd()).InitLayer(key, db);
}
