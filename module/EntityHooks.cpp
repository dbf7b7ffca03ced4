#include "module/EntityHooks.h"

#include "containers/KyDList.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/dbobject/KyDbOpening.h"

const wchar_t *KyDtOpeningLabelKey(int kind) {
  switch (kind) {
    case KyDbOpening::kWindow:
    case KyDbOpening::kHighWindow:
      return L"WINDOW";
    case KyDbOpening::kHole:
      return L"HOLE";
    case KyDbOpening::kBayWindow:
      return L"PRO_WIN";
    case KyDbOpening::kBandWindow:
      return L"BAND_WIN";
    case KyDbOpening::kDoor:
    case KyDbOpening::kDoorWindow:
    default:
      // Kinds this version doesn't know are labelled as doors.
      return L"DOOR";
  }
}

void KyDtGetOpeningLabels(KyDList<CString> &labels, KyDbEntity *entity) {
  if (!entity || !entity->isKindOf(KyDbOpening::desc())) return;
  const int kind = static_cast<KyDbOpening *>(entity)->GetKind();

  KyDtDictionary *label = g_dictCfg.FindDict(L"LABEL");
  KyDtDictionary *opening = label ? label->FindDict(L"OPENING") : nullptr;
  KyDtDictionary *labelsOfKind = opening ? opening->FindDict(KyDtOpeningLabelKey(kind)) : nullptr;
  if (!labelsOfKind) return;
  // By index, not by the dictionary's cursor, so the walk doesn't disturb
  // anyone's lookups.
  for (std::int32_t i = 0; i < labelsOfKind->GetLength(); ++i) {
    labels.Append(labelsOfKind->GetAt(i)->m_strName);
  }
}
