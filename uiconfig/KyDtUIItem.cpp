#include "uiconfig/KyDtUIItem.h"

#include <cwchar>

#include "platform/utility/KyUtXMLDOMNode.h"
#include "uiconfig/KyDtUIReference.h"
#include "uiconfig/KyDtUITreeDisposal.h"

#pragma GCC diagnostic push
// The item's own delete destroys it by its class: see the header.
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
void KyDtUIDeleteItem(KyDtUIItem *item) { delete item; }
#pragma GCC diagnostic pop

KyDtUIItem *KyDtUIItem::NewItem() { return new KyDtUIItem; }

void KyDtUIItem::operator delete(KyDtUIItem *item, std::destroying_delete_t) {
  tolv::uiconfig::DetachChildren(item);
  tolv::uiconfig::DestroyItem(item);
}

bool KyDtUIItem::IsKindOf(const wchar_t *className) const {
  return className && std::wcscmp(GetClassName(), className) == 0;
}

CString KyDtUIItem::GetLocalName() const {
  if (m_strLocalName.IsEmpty()) return CString(GetClassName());
  return m_strLocalName;
}

KyDtUIItem *KyDtUIItem::GetTrueItem() {
  if (IsReference()) return static_cast<KyDtUIReference *>(this)->GetReferencedItem();
  return this;
}

const KyDtUIItem *KyDtUIItem::GetTrueItem() const {
  if (IsReference()) return static_cast<const KyDtUIReference *>(this)->GetReferencedItem();
  return this;
}

// A bound reference's target is never a reference itself (chains are
// followed to their end), so these go at most one level down.
CString KyDtUIItem::GetTrueData() const {
  if (IsReference()) return GetTrueItem()->GetTrueData();
  return m_strData;
}

CString KyDtUIItem::GetTrueTitle() const {
  if (!m_strTitle.IsEmpty()) return m_strTitle;
  if (IsReference()) return GetTrueItem()->GetTrueTitle();
  return GetLocalName();
}

CString KyDtUIItem::GetTrueComment() const {
  if (!m_strComment.IsEmpty()) return m_strComment;
  if (IsReference()) return GetTrueItem()->GetTrueComment();
  return m_strLocalName;
}

CString KyDtUIItem::GetTrueBitmapID() const {
  if (!m_strName.IsEmpty()) return m_strName;
  if (IsReference()) return GetTrueItem()->GetTrueBitmapID();
  return CString();
}

namespace {

// Most attributes of an element are absent: an empty text is no copy.
void ReadInto(CString &field, const wchar_t *text) {
  if (*text) {
    field = text;
  } else if (!field.IsEmpty()) {
    field.Empty();
  }
}

void WriteIfSet(_auto_ptr<KyUtXMLDOMNode> &node, const wchar_t *attribute, const CString &value) {
  if (!value.IsEmpty()) node->SetAttributeValue(attribute, value);
}

}  // namespace

void KyDtUIItem::ReadItemFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadInto(m_strName, node->GetAttributeValue(L"name"));
  ReadInto(m_strLocalName, node->GetAttributeValue(L"localname"));
  ReadInto(m_strTitle, node->GetAttributeValue(L"title"));
  ReadInto(m_strComment, node->GetAttributeValue(L"comment"));
  ReadInto(m_strData, node->GetNodeValue());
}

void KyDtUIItem::WriteItemFields(_auto_ptr<KyUtXMLDOMNode> &node) const {
  WriteIfSet(node, L"name", m_strName);
  WriteIfSet(node, L"localname", m_strLocalName);
  WriteIfSet(node, L"title", m_strTitle);
  WriteIfSet(node, L"comment", m_strComment);
}

void KyDtUIItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteItemFields(node);
  node->SetNodeValue(m_strData.GetString());
}

void KyDtUIItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) { ReadItemFields(node); }
