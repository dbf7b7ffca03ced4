// KyDtUIReference: an item that stands for another one (a menu entry that
// shows a command defined once in the command section). Its data is the
// target's name; the document reader binds it when it is appended.
#pragma once

#include "uiconfig/KyDtUIItem.h"

class KyDtUIReference : public KyDtUIItem {
 public:
  KyDtUIReference() = default;
  // Copies the pointer without touching the target's count.
  KyDtUIReference(const KyDtUIReference &other) = default;
  KyDtUIReference &operator=(const KyDtUIReference &other) = default;

  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"Reference"; }

  bool IsReference() const override { return true; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  const CString &GetReferencedItemName() const { return m_strData; }
  // The target; a chain of references is followed to its end. Null while
  // unbound, and for a chain that ends unbound or runs in a circle.
  KyDtUIItem *GetReferencedItem() const;
  // The old target's count goes down, the new one's up.
  void SetReferencedItem(KyDtUIItem *item);
  KyDtUIItem *operator->() const { return GetReferencedItem(); }
  // The pointer as it is stored, not followed.
  KyDtUIItem *GetDirectTarget() const { return m_pItem; }

 protected:
  KyDtUIItem *m_pItem = nullptr;
};
