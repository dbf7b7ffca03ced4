// The Get, Add, Del and GetAll operations that every owner of named
// children in the project database shares: the children are dictionaries
// marked by their class name, under the owner's dictionary or one of its
// parts ("FLOORS", "SUB_FLOORS").
#pragma once

#include <cwchar>

#include "containers/KyPDList.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"

namespace tolv::project {

// A new proxy bound to `dict`, for the caller to delete.
template <class T>
T *BindNew(KyDtDictionary *dict) {
  T *proxy = new T;
  proxy->BindDict(dict);
  return proxy;
}

template <class T>
T *GetChild(KyDtDictionary *owner, const wchar_t *prefix, const wchar_t *name) {
  KyDtDictionary *dict = owner->FindDict(CString(prefix) + (name ? name : L""));
  return dict ? BindNew<T>(dict) : nullptr;
}

// An existing child is returned too, its class name set again.
template <class T>
T *AddChild(KyDtDictionary *owner, const wchar_t *prefix, const wchar_t *name, const wchar_t *className) {
  KyDtDictionary *dict = owner->FindOrAddDict(CString(prefix) + (name ? name : L""));
  if (!dict) return nullptr;
  dict->SetClassName(className);
  return BindNew<T>(dict);
}

inline void DelChild(KyDtDictionary *owner, const wchar_t *prefix, const wchar_t *name) {
  owner->FindAndDel(CString(prefix) + (name ? name : L""));
}

// Every child dictionary of `parent` of the class, in order; other items
// (such as "GROUP") are passed over. A null parent appends nothing.
template <class T>
void GetAllChildren(KyDtDictionary *parent, const wchar_t *className, KyPDList<T> &list) {
  if (!parent) return;
  parent->MoveToFirst();
  while (!parent->IsOut()) {
    KyDtDictItem *item = parent->GetCurData();
    if (item && item->GetType() == KyDtDictItem::DT_DICT) {
      auto *dict = static_cast<KyDtDictionary *>(item);
      if (std::wcscmp(dict->GetClassNameW(), className) == 0) list.Append(BindNew<T>(dict));
    }
    parent->MoveToNext();
  }
}

// The reference item at `key`, made when missing; null when another kind
// of item stands there.
inline KyDtDictReferenceItem *ReferenceAt(KyDtDictionary *dict, const wchar_t *key) {
  KyDtDictItem *item = dict->FindOrAddItem(key, KyDtDictItem::DT_REFERENCE);
  return item && item->GetType() == KyDtDictItem::DT_REFERENCE ? static_cast<KyDtDictReferenceItem *>(item) : nullptr;
}

// Reads "X", "Y" and "Z" of the dictionary at `path` into the three
// doubles; false, leaving them alone, when there is no dictionary there.
inline bool ReadXYZ(KyDtDictionary *owner, const wchar_t *path, double &x, double &y, double &z) {
  KyDtDictionary *dict = owner->FindDict(path);
  if (!dict) return false;
  dict->GetValue(L"X", x);
  dict->GetValue(L"Y", y);
  dict->GetValue(L"Z", z);
  return true;
}

// Makes the dictionary at `path` of the class and sets its "X", "Y", "Z".
inline void WriteXYZ(KyDtDictionary *owner, const wchar_t *path, const wchar_t *className, double x, double y,
                     double z) {
  KyDtDictionary *dict = owner->FindOrAddDict(path);
  if (!dict) return;
  dict->SetClassName(className);
  dict->SetValue(L"X", x);
  dict->SetValue(L"Y", y);
  dict->SetValue(L"Z", z);
}

}  // namespace tolv::project
