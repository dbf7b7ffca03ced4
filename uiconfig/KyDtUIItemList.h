// The owning list of UI items. It frees an item by a plain delete of a
// KyDtUIItem pointer, which the item class turns into the destruction of the
// item by its own class (see KyDtUIItem). The three places where the list
// deletes are given here so that they go through one function instead of
// through a delete the compiler takes for one on a class without a virtual
// destructor.
#pragma once

#include "containers/KyPDList.h"
#include "uiconfig/KyDtUIItem.h"

// `delete item`: for the list, and for callers whose compiler takes a delete
// of an item for one on a class without a virtual destructor.
void KyDtUIDeleteItem(KyDtUIItem *item);

template <>
inline void KyPDList<KyDtUIItem>::DelCur() {
  KyDtUIItem *p = this->GetCurPos()->data;
  if (p) KyDtUIDeleteItem(p);
  Base::DelCur();
}

template <>
inline void KyOwnedListOps<KyPDList<KyDtUIItem>, KyDtUIItem>::ReleaseCur(KyPDList<KyDtUIItem> &s) {
  if (s.IsOut()) return;
  KyDtUIItem *&slot = s.GetCurPos()->data;
  if (slot) {
    KyDtUIDeleteItem(slot);
    slot = nullptr;
  }
}

template <>
inline void KyOwnedListOps<KyPDList<KyDtUIItem>, KyDtUIItem>::ReleaseAll(KyPDList<KyDtUIItem> &s) {
  Node *sentinel = Sentinel(s);
  for (Node *node = sentinel->next; node != sentinel; node = node->next) {
    KyDtUIDeleteItem(node->data);
    node->data = nullptr;
  }
}
