#include "library/KyDtLibItem.h"

#include "platform/utility/KyUtXMLDOM.h"

KyDtLibItem::~KyDtLibItem() = default;

CString KyDtLibItem::GetXMLNodeName() const { return L"Item"; }

void KyDtLibItem::ReadItemFromNode(KyUtXMLDOMNode &node) {
  ReadBaseFromNode(node);
  // Shares the text of the "file" attribute.
  const KyDtLibAttributeMap &store = GetAttributeMap();
  auto it = store.find(L"file");
  m_strDataFile = it != store.end() && node.IsAttributeExist(L"file") ? it->second : CString();
}

void KyDtLibItem::SaveItemToNode(KyUtXMLDOMNode &node) const {
  SaveBaseToNode(node);
  node.SetAttributeValue(L"file", m_strDataFile);
}

bool KyDtLibItem::ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  ReadItemFromNode(*node);
  return true;
}

bool KyDtLibItem::SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  SaveItemToNode(*node);
  return true;
}

KyDtLibItemBase *KyDtLibItem::Clone() {
  auto *copy = new KyDtLibItem;
  copy->CopyFrom(this);
  return copy;
}

void KyDtLibItem::CopyFrom(KyDtLibItemBase *other) {
  if (!other) return;
  CopyBaseFrom(*other);
  // The data file only comes from an item; anything else keeps ours.
  if (auto *item = dynamic_cast<KyDtLibItem *>(other)) m_strDataFile = item->m_strDataFile;
}
