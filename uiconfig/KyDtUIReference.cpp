#include "uiconfig/KyDtUIReference.h"

KyDtUIItem *KyDtUIReference::NewItem() { return new KyDtUIReference; }

KyDtUIItem *KyDtUIReference::GetReferencedItem() const {
  // Follows the chain to its end; the second walker, at half speed, meets
  // the first only when the chain runs in a circle.
  const KyDtUIItem *fast = m_pItem;
  const KyDtUIItem *slow = m_pItem;
  bool moveSlow = false;
  while (fast && fast->IsReference()) {
    fast = static_cast<const KyDtUIReference *>(fast)->m_pItem;
    if (moveSlow) {
      slow = static_cast<const KyDtUIReference *>(slow)->m_pItem;
      if (fast == slow) return nullptr;
    }
    moveSlow = !moveSlow;
  }
  return const_cast<KyDtUIItem *>(fast);
}

void KyDtUIReference::SetReferencedItem(KyDtUIItem *item) {
  if (m_pItem) m_pItem->DecreaseRef();
  m_pItem = item;
  if (m_pItem) m_pItem->AddRef();
}
