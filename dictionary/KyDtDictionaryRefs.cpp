// Reference items of a tree: resolution and removal.
#include <vector>

#include "containers/KyDList.h"
#include "containers/KyListQuene.h"
#include "dictionary/KyDtDictPath.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "platform/acad/AcutPrintf.h"

void KyDtDictionary::TranslateRef() {
  // Breadth first; every reference is gathered before the first is
  // resolved, since resolving moves the cursors of the tree.
  KyListQuene<KyDtDictionary *> queue(-1);
  KyDList<KyDtDictReferenceItem *> references;
  queue.Push(this);
  KyDtDictionary *dict = nullptr;
  while (queue.Pop(dict)) {
    for (KyDtDictItem *const *slot = dict->GetFirst(); slot != nullptr; slot = dict->GetNext(slot)) {
      KyDtDictItem *child = *slot;
      if (child == nullptr) continue;
      const int kind = child->GetType();
      if (kind == DT_DICT) {
        queue.Push(static_cast<KyDtDictionary *>(child));
      } else if (kind == DT_REFERENCE) {
        references.Append(static_cast<KyDtDictReferenceItem *>(child));
      }
    }
  }
  for (KyDtDictReferenceItem *const *slot = references.GetFirst(); slot != nullptr; slot = references.GetNext(slot)) {
    TranslateRef(*slot);
  }
}

void KyDtDictionary::TranslateRef(KyDtDictReferenceItem *reference) {
  KyDtDictPath path(reference->m_value);
  KyDtDictItem *target = FindItem(path);
  reference->m_pItemRef = target;
  if (target == nullptr && !reference->m_value.IsEmpty()) {
    acutPrintf(L"%s", L"\n无法解析的引用：");
    acutPrintf(L"%s", reference->m_value.GetString());
  }
}

std::int32_t KyDtDictionary::FindAndDelRef(const CString &target) {
  // Each dictionary is walked by its own cursor, from the first child; a
  // nested dictionary is walked in full before its parent moves on, as a
  // recursive walk would, but with an explicit stack.
  std::int32_t deleted = 0;
  struct Frame {
    KyDtDictionary *dict;
    bool started;
  };
  std::vector<Frame> frames{{this, false}};
  while (!frames.empty()) {
    Frame &frame = frames.back();
    KyDtDictionary *dict = frame.dict;
    if (!frame.started) {
      dict->MoveToFirst();
      frame.started = true;
    } else {
      dict->MoveToNext();
    }
    if (dict->GetCur() < 0) {
      frames.pop_back();
      continue;
    }
    KyDtDictItem *child = dict->GetCurData();
    if (child == nullptr) continue;
    const int kind = child->GetType();
    if (kind == DT_DICT) {
      frames.push_back({static_cast<KyDtDictionary *>(child), false});
    } else if (kind == DT_REFERENCE && static_cast<KyDtDictReferenceItem *>(child)->m_value.Compare(target) == 0) {
      // The cursor falls back to the predecessor (or out), and the next
      // step goes on with the item after the deleted one.
      dict->DelCur();
      ++deleted;
    }
  }
  return deleted;
}
