// KyPats: a hatch pattern file in memory, its entries (patterns and
// comment-only entries) in file order. Reading and writing keep every head,
// comment and data line as text, so a file that is read and written back
// is the same file, less blank lines and a trailing head without data.
#pragma once

#include <cstdint>

#include "containers/KyDynPArray.h"
#include "patterns/KyPat.h"
#include "platform/mfc/CString.h"

class CStdioFile;

class KyPats : public KyDynPArray<KyPat> {
 public:
  KyPats() = default;

  // Reads the file to its end and appends its entries.
  void operator<<(CStdioFile &file);
  // Writes every entry in order.
  void operator>>(CStdioFile &file);

  // The index of the first entry whose first name is exactly name (given
  // without the "*"), or -1.
  std::int32_t Find(CString const &name);
};
