#include "dictionary/KyDtDictStringItem.h"

#include "platform/mfc/CArchive.h"
#include "platform/utility/KyUtXMLDOM.h"

// ---- String ----

void KyDtDictStringItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  m_value = static_cast<const KyDtDictStringItem &>(source).m_value;
}

void KyDtDictStringItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  node->SetNodeValue(m_value.GetString());
}

void KyDtDictStringItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << m_value;
}

void KyDtDictStringItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  m_value = node->GetNodeValue();
}

void KyDtDictStringItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  ar >> m_value;
}

// ---- Reference ----

void KyDtDictReferenceItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  const auto &other = static_cast<const KyDtDictReferenceItem &>(source);
  m_value = other.m_value;
  m_pItemRef = other.m_pItemRef;
}

KyDtDictItem *KyDtDictReferenceItem::GetTrueItemRef() const {
  KyDtDictItem *target = m_pItemRef;
  while (target->GetType() == DT_REFERENCE) target = static_cast<KyDtDictReferenceItem *>(target)->m_pItemRef;
  return target;
}

void KyDtDictReferenceItem::SetHardReference(bool hard) { SetAttributeBoolValue(L"hard", hard); }

bool KyDtDictReferenceItem::IsHardReference() const { return GetAttributeBoolValue(L"hard"); }
