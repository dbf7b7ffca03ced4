#include "project/KyDtProjectDict.h"

#include "platform/utility/KyUtXMLDOMNode.h"

KyDtProjectDict::KyDtProjectDict(const KyDtProjectDict &other) : KyDtProjectItem(other) {
  m_dict.DeepCopy(other.m_dict);
}

KyDtProjectDict &KyDtProjectDict::operator=(const KyDtProjectDict &other) {
  if (this != &other) {
    KyDtProjectItem::operator=(other);
    m_dict.Reset();
    m_dict.DeepCopy(other.m_dict);
  }
  return *this;
}

KyDtProjectDict::~KyDtProjectDict() = default;

CString KyDtProjectDict::GetTypeName() const { return L"TolvDictionary"; }

void KyDtProjectDict::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtProjectItem::operator>>(node);
  m_dict >> node;
}

void KyDtProjectDict::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtProjectItem::operator<<(node);
  m_dict << node;
}

bool KyDtProjectDict::IsSameWith(const KyDtProjectItem *other) {
  if (!other || !other->IsKindOf(GetTypeName())) return false;
  return m_dict.CompareWith(static_cast<const KyDtProjectDict *>(other)->m_dict) == 0;
}
