#include "patterns/KyPat.h"

#include "platform/mfc/CListCtrl.h"
#include "platform/mfc/CStdioFile.h"

bool KyPat::operator<<(CString const &line) {
  if (line.Find(L';') < 0 && line.Find(L'*') < 0) {
    if (line.Find(L',') < 0) return true;
    KyPatData *data = new KyPatData;
    *data << line;
    m_lstData.Append(data);
    return true;
  }
  if (!m_strHead.IsEmpty()) return false;
  m_strHead = line;
  return true;
}

void KyPat::operator>>(CStdioFile &file) {
  KyPatHead::operator>>(file);
  for (KyPatData *const *p = m_lstData.GetFirst(); p; p = m_lstData.GetNext(p)) {
    if (*p) **p >> file;
  }
}

void KyPat::Scale(double factor) {
  for (KyPatData *const *p = m_lstData.GetFirst(); p; p = m_lstData.GetNext(p)) {
    if (*p) (*p)->Scale(factor);
  }
}

void KyPat::Update(CListCtrl &list) {
  list.DeleteAllItems();
  for (KyPatData *const *p = m_lstData.GetFirst(); p; p = m_lstData.GetNext(p)) {
    if (*p) (*p)->AppendListCtrl(list);
  }
}
