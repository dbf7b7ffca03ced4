#include <cwchar>

#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"
#include "platform/platform/KyAdsSpace.h"
#include "platform/windows/WinCrt.h"
#include "standards/KyDtLayerFunctions.h"
#include "uiconfig/KyDtContextFilter.h"
#include "uiconfig/KyDtUIDirectories.h"
#include "uiconfig/KyDtUIStartup.h"

namespace tolv::uiconfig {
namespace {

// Neither a code nor a type yet: the next token is a code.
constexpr int kMarker = 5000;
constexpr int kLayerCode = 8;

// A layer filter in layer keys, as a menu is written, made into one in
// layer names of the current standard. Keys that don't resolve stand for
// themselves.
CString LayerNames(const CString &keys) { return KyDtGetLayerNameEx(keys); }

// One buffer for a code and its value token, or null.
resbuf *BuildBuffer(int code, int type, const CString &token) {
  const int restype = code == 0 ? RTDXF0 : code;
  switch (type) {
    case RTREAL:
      return acutBuildList(restype, _wtof(token), 0);
    case RTSHORT:
      return acutBuildList(restype, _wtoi(token), 0);
    case RTLONG:
      return acutBuildList(restype, static_cast<std::int32_t>(_wtoi(token)), 0);
    case RTSTR: {
      // The quotes go, whatever they are.
      CString text = token.GetLength() >= 2 ? token.Mid(1, token.GetLength() - 2) : CString();
      if (code == kLayerCode) text = LayerNames(text);
      return acutBuildList(restype, text.GetString(), 0);
    }
    default:
      return nullptr;
  }
}

}  // namespace

void BuildContextFilter(const CString &filter, KyAdsRBList &list) {
  const int length = filter.GetLength();
  int p = 0;
  int code = kMarker;
  int type = kMarker;
  while (p < length) {
    int e = -1;
    if (type == RTSTR && p + 1 <= length) {
      int quote = filter.Find(L'\'', p + 1);
      if (quote >= 0) e = quote + 1;
    }
    if (e < 0) {
      e = filter.Find(L',', p);
      if (e < 0) e = length;
    }
    CString token = e > p ? filter.Mid(p, e - p) : CString();
    if (code == kMarker) {
      code = _wtoi(token);
      type = CodeToType(code);
    } else {
      list.Append(BuildBuffer(code, type, token));
      code = kMarker;
      type = kMarker;
    }
    p = e + 1;
  }
}

}  // namespace tolv::uiconfig

bool KyDtUIMenuDef::IsMatch(const KyAdsEntSet &set) const {
  if (m_strFilter.IsEmpty()) return false;
  KyAdsRBList list;
  tolv::uiconfig::BuildContextFilter(m_strFilter, list);
  return set.IsMatch(list);
}

KyDtUIDirectory *KyDtGetContextMenu(const KyAdsEntSet &set) {
  if (!g_pContextMenuDef) return nullptr;
  if (set.GetLength() == 0) {
    const wchar_t *name = IsCurrentPaperSpace(nullptr) ? L"MENU_COMMON_PSPACE" : L"MENU_COMMON_MSPACE";
    KyDtUIItem *menu = g_pContextMenuDef->GetUIItem(name);
    return menu && menu->IsKindOf(L"MenuDef") ? static_cast<KyDtUIDirectory *>(menu) : nullptr;
  }
  // No context menu is offered while a viewport is selected.
  for (std::int32_t i = 0; i < set.GetLength(); ++i) {
    AcDbEntity *entity = nullptr;
    if (acdbOpenAcDbEntity(entity, set[i].GetObjectId(), AcDb::kForRead) != Acad::eOk) continue;
    const bool viewport = entity->isKindOf(AcDbViewport::desc());
    entity->close();
    if (viewport) return nullptr;
  }
  for (KyDtUIItem *const *slot = g_pContextMenuDef->GetFirst(); slot; slot = g_pContextMenuDef->GetNext(slot)) {
    KyDtUIItem *child = *slot;
    if (child && child->IsKindOf(L"MenuDef") && static_cast<KyDtUIMenuDef *>(child)->IsMatch(set)) {
      return static_cast<KyDtUIDirectory *>(child);
    }
  }
  return nullptr;
}
