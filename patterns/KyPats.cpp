#include "patterns/KyPats.h"

#include <memory>

#include "containers/KyArray.h"
#include "platform/mfc/CStdioFile.h"

void KyPats::operator<<(CStdioFile &file) {
  // A read error passes through; the entry being filled is not lost then.
  auto current = std::make_unique<KyPat>();
  CString line;
  while (file.ReadString(line)) {
    if (!(*current << line)) {
      Append(current.release());
      current = std::make_unique<KyPat>();
      *current << line;
    }
  }
  // A head with no data at the end of the file is dropped.
  if (current->IsEmpty()) return;
  Append(current.release());
}

void KyPats::operator>>(CStdioFile &file) {
  for (std::int32_t i = 0; i < GetLength(); ++i) {
    KyPat *pat = GetAt(i);
    if (pat) *pat >> file;
  }
}

std::int32_t KyPats::Find(CString const &name) {
  KyPat wanted(name);
  return FindData(wanted, 0, -1);
}

// The exported instantiations whose element type is the pattern.
template class KyDynArrayBase<KyPat *>;
template class KyDynArray<KyPat *>;
template class KyDynPArray<KyPat>;
template class KyArray<KyPat *>;
