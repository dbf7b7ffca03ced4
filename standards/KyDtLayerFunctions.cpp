#include "standards/KyDtLayerFunctions.h"

#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcutWcMatch.h"
#include "platform/acad/AdsCodes.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbEntity.h"
#include "platform/utility/SupportFiles.h"
#include "standards/KyDtLayerCfg.h"

namespace {

bool ResolveKey(const CString &key, KyDtLayerDef &def) {
  def.key = key;
  return KyDtLayerCfg().GetLayerDef(def);
}

KyDtDictionary *AsDict(KyDtDictItem *item) {
  return item && item->IsDict() ? static_cast<KyDtDictionary *>(item) : nullptr;
}

// Appends "," and the value of every whole key below `dict` whose name
// matches the pattern. Walks by position, leaving the list cursors alone.
void CollectLayerMatches(const wchar_t *pattern, KyDtDictionary *dict, CString &list) {
  if (!dict) return;
  for (KyDtDictItem *const *p = dict->GetFirst(); p; p = dict->GetNext(p)) {
    KyDtDictItem *item = *p;
    if (!item) continue;
    if (item->IsDict()) {
      CollectLayerMatches(pattern, static_cast<KyDtDictionary *>(item), list);
      continue;
    }
    if (item->GetType() != KyDtDictItem::DT_STRING) continue;
    const CString &value = static_cast<KyDtDictStringItem *>(item)->m_value;
    if (value.IsEmpty() || acutWcMatch(item->m_strName, pattern) != RTNORM) continue;
    list += L",";
    list += value;
  }
}

// The whole keys of the current standard, found by plain lookups.
KyDtDictionary *CurrentAssemblyDict() {
  KyDtDictionary *layer = AsDict(g_dictCfg.FindItem(CString(L"LAYER")));
  if (!layer) return nullptr;
  KyDtDictItem *cur = layer->FindItem(CString(L"CUR_STD"));
  if (!cur || cur->GetType() != KyDtDictItem::DT_STRING) return nullptr;
  const CString &name = static_cast<KyDtDictStringItem *>(cur)->m_value;
  if (name.IsEmpty()) return nullptr;
  KyDtDictionary *standard = AsDict(layer->FindItem(name));
  return standard ? AsDict(standard->FindItem(CString(L"ASSEMBLY_LAYER_DEF"))) : nullptr;
}

CString ExpandLayerKey(const CString &pattern) {
  CStringArray pieces;
  CString result;
  if (CutStrToArr(pattern, L"*", pieces) == 0) {
    KyDtLayerDef def;
    result = ResolveKey(pattern, def) ? def.layerName : pattern;
  } else {
    for (int i = 0; i < pieces.GetSize(); ++i) {
      const CString &piece = pieces[i];
      bool front = false;
      bool back = false;
      if (piece.GetLength() > 1) {
        front = piece[0] == L'-';
        back = piece[piece.GetLength() - 1] == L'-';
      }
      KyDtLayerDef def;
      if (ResolveKey(piece, def)) {
        if (front) result += L"-";
        result += def.layerName;
        if (back) result += L"-";
      }
      if (i + 1 < pieces.GetSize()) result += L"*";
    }
  }
  CString list;
  CollectLayerMatches(pattern, CurrentAssemblyDict(), list);
  if (list.IsEmpty()) return result;
  if (list[0] == L',') list.Delete(0, 1);
  list += L",";
  list += result;
  return list;
}

AcDbDatabase *OrWorking(AcDbDatabase *db) {
  if (db) return db;
  AcDbHostApplicationServices *services = acdbHostApplicationServices();
  return services ? services->workingDatabase() : nullptr;
}

}  // namespace

CString KyDtGetLayerName(const wchar_t *key) {
  KyDtLayerDef def;
  return ResolveKey(CString(key), def) ? def.layerName : CString();
}

CString KyDtGetLayerNameEx(const wchar_t *keys) {
  const CString text(keys);
  CStringArray pieces;
  if (CutStrToArr(text, L",", pieces) == 0) return ExpandLayerKey(text);
  CString result;
  for (int i = 0; i < pieces.GetSize(); ++i) {
    if (i > 0) result += L",";
    result += ExpandLayerKey(pieces[i]);
  }
  return result;
}

double KyDtGetLayerLineScale(const wchar_t *key) {
  KyDtLayerDef def;
  return ResolveKey(CString(key), def) ? def.GetLineScale() : 1.0;
}

double KyDtGetLayerLineWeight(const wchar_t *key) {
  KyDtLayerDef def;
  return ResolveKey(CString(key), def) ? def.GetLineWeight() : 0.0;
}

AcDbObjectId KyDtInitLayer(const wchar_t *key, AcDbDatabase *db) {
  if (g_bUseLayerStd) return KyDtInitStdLayer(key, db);
  AcDbDatabase *target = OrWorking(db);
  return target ? target->clayer() : AcDbObjectId();
}

AcDbObjectId KyDtInitStdLayer(const wchar_t *key, AcDbDatabase *db) { return KyDtLayerCfg().InitLayer(key, db); }

AcDbObjectId KyDtGetEntityLayerId(KyDbEntity *entity) {
  if (!entity) return AcDbObjectId();
  return KyDtInitLayer(entity->GetLayerKey(), nullptr);
}
