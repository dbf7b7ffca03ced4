#include "project/KyDtProjectItem.h"

#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/windows/WinCrt.h"

KyDtProjectItem::KyDtProjectItem(const wchar_t *name) : m_strName(name ? name : L"") {}

KyDtProjectItem::~KyDtProjectItem() = default;

bool KyDtProjectItem::IsParentItem() const { return false; }

CString KyDtProjectItem::GetTypeName() const { return L"Item"; }

void KyDtProjectItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!m_strName.IsEmpty()) node->SetAttributeValue(L"name", m_strName);
  if (!m_strLocalName.IsEmpty()) node->SetAttributeValue(L"localname", m_strLocalName);
}

void KyDtProjectItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  m_strLocalName = node->GetAttributeValue(L"localname");
  m_strName = node->GetAttributeValue(L"name");
}

bool KyDtProjectItem::IsSameWith(const KyDtProjectItem *other) {
  if (!other->IsKindOf(GetTypeName())) return false;
  return _wcsicmp(m_strName, other->m_strName) == 0;
}

bool KyDtProjectItem::IsKindOf(const wchar_t *typeName) const {
  return GetTypeName().Compare(typeName ? typeName : L"") == 0;
}

CString KyDtProjectItem::GetDisplayName() const { return m_strLocalName.IsEmpty() ? m_strName : m_strLocalName; }

bool KyDtProjectItem::operator==(const KyDtProjectItem &other) const {
  return _wcsicmp(m_strName, other.m_strName) == 0;
}

bool KyDtProjectItem::operator<(const KyDtProjectItem &other) const {
  return _wcsicmp(m_strName, other.m_strName) < 0;
}

bool KyDtProjectItem::operator>(const KyDtProjectItem &other) const {
  return _wcsicmp(m_strName, other.m_strName) > 0;
}

CString KyDtProjectFile::GetTypeName() const { return L"File"; }
