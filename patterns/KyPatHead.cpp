#include "patterns/KyPatHead.h"

#include "platform/mfc/CStdioFile.h"

CString KyPatHead::FirstName() const {
  if (m_strHead.IsEmpty() || m_strHead.GetAt(0) != L'*') return m_strHead;
  int comma = m_strHead.Find(L',');
  if (comma < 0) return m_strHead.Mid(1);
  return m_strHead.Mid(1, comma - 1);
}

void KyPatHead::operator>>(CStdioFile &file) const {
  file.WriteString(m_strHead);
  file.WriteString(L"\n");
}
