// KyPatData: one data line of a hatch pattern, "angle, x, y, dx, dy[, dash
// ...]". Each comma-separated field is kept as the text it was, spaces and
// all, so that an untouched line is written back unchanged; only Scale reads
// the numbers.
#pragma once

#include "containers/KyDList.h"
#include "platform/mfc/CString.h"

class CListCtrl;
class CStdioFile;

class KyPatData : public KyDList<CString> {
 public:
  KyPatData() = default;

  // Replaces the fields with the pieces of the line between its commas.
  void operator<<(CString const &line);
  // CheckLength, then the fields joined by commas and a line end.
  void operator>>(CStdioFile &file);

  // The host refuses data lines longer than 80 characters. A longer line is
  // marked with ";;?" in front (a comment to the host, so the line can be
  // found) and the user is told; a line still too long is marked again on
  // every later write.
  void CheckLength();
  // Multiplies every field but the angle by factor; see KyPatData.cpp for
  // the formatting.
  void Scale(double factor);
  // Adds a row to the list control: fields 0 to 6 in columns 0 to 6.
  void AppendListCtrl(CListCtrl &list);

  // The length of the line as it would be written.
  int GetWrittenLength() const;
  // The fields joined by commas.
  CString GetLine() const;

  // Data lines have no order of their own.
  bool operator<(KyPatData const &) const { return false; }
  bool operator>(KyPatData const &) const { return false; }
};
