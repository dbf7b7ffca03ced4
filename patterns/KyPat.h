// KyPat: one entry of a pattern file: its head line and its data lines in
// file order. An entry whose head is a comment (it holds a ";") carries only
// that comment; it is kept so that a file written back has its comments in
// their places.
#pragma once

#include "containers/KyPDList.h"
#include "patterns/KyPatData.h"
#include "patterns/KyPatHead.h"
#include "platform/mfc/CString.h"

class CListCtrl;
class CStdioFile;

class KyPat : public KyPatHead {
 public:
  KyPat() = default;
  explicit KyPat(CString const &head) : KyPatHead(head) {}
  // The data lines are owned; an entry is not copied.
  KyPat(KyPat const &) = delete;
  KyPat &operator=(KyPat const &) = delete;

  // False for an entry that only carries a comment.
  bool IsPat() const { return m_strHead.Find(L';') < 0; }
  // No data lines.
  bool IsEmpty() const { return m_lstData.IsEmpty(); }

  // Takes the next line of the file. False when the line is a head or a
  // comment and this entry has its head already: the line begins the next
  // entry. Lines with neither a comma nor a head mark are ignored.
  bool operator<<(CString const &line);
  // The head, then every data line.
  void operator>>(CStdioFile &file);

  void Scale(double factor);
  // Shows the data lines in the list control, one row each.
  void Update(CListCtrl &list);

  // Equal by first name (the NAME of "*NAME,description").
  bool operator==(KyPat const &other) const { return FirstName().Compare(other.FirstName()) == 0; }
  bool operator!=(KyPat const &other) const { return !(*this == other); }
  // Ordered by the whole head texts.
  bool operator<(KyPat const &other) const { return m_strHead.Compare(other.m_strHead) < 0; }
  bool operator>(KyPat const &other) const { return m_strHead.Compare(other.m_strHead) > 0; }

  KyPDList<KyPatData> m_lstData;
};
