// KyPatHead: the first line of a hatch pattern ("*NAME, description") or a
// comment line (";..."), kept exactly as it was read so that a file written
// back reads the same.
#pragma once

#include "platform/mfc/CString.h"

class CStdioFile;

class KyPatHead {
 public:
  KyPatHead() = default;
  explicit KyPatHead(CString const &head) : m_strHead(head) {}
  virtual ~KyPatHead() = default;

  bool IsEmpty() const { return m_strHead.IsEmpty(); }
  // For "*NAME,description" the NAME; for a line without a leading star
  // (a comment, or a head that lost its star) the whole text.
  CString FirstName() const;

  // Writes the text and a line end.
  void operator>>(CStdioFile &file) const;

  // Ordinal order of the whole head texts.
  bool operator<(KyPatHead const &other) const { return m_strHead.Compare(other.m_strHead) < 0; }
  bool operator>(KyPatHead const &other) const { return m_strHead.Compare(other.m_strHead) > 0; }

  CString m_strHead;
};
