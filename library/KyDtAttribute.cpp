#include "library/KyDtAttribute.h"

bool KyDtAttribute::operator==(const KyDtAttribute &other) const {
  return m_strName.Compare(other.m_strName) == 0 && m_strValue.Compare(other.m_strValue) == 0;
}

bool KyDtAttribute::operator>(const KyDtAttribute &other) const {
  const int byName = m_strName.Compare(other.m_strName);
  if (byName != 0) return byName > 0;
  return m_strValue.Compare(other.m_strValue) > 0;
}
