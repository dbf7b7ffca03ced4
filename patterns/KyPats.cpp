#include "patterns/KyPats.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>

#include "containers/KyArray.h"
#include "platform/mfc/CStdioFile.h"

namespace {

// Appends one entry read from a file. The array grows by its alloc unit,
// which for a file of a million comment lines would copy it every ten
// entries; the space doubles instead while a file is read.
void AppendRead(KyPats &pats, std::unique_ptr<KyPat> &entry) {
  const std::int32_t length = pats.GetLength();
  if (length == pats.GetSpaceSize()) {
    const std::int64_t wanted = std::max<std::int64_t>(16, 2 * static_cast<std::int64_t>(length));
    pats.SetSpaceSize(static_cast<std::int32_t>(std::min<std::int64_t>(wanted, INT32_MAX)));
  }
  pats.Append(entry.release());
}

}  // namespace

void KyPats::operator<<(CStdioFile &file) {
  // A read error passes through; the entry being filled is not lost then.
  auto current = std::make_unique<KyPat>();
  CString line;
  while (file.ReadString(line)) {
    if (!(*current << line)) {
      AppendRead(*this, current);
      current = std::make_unique<KyPat>();
      *current << line;
    }
  }
  // A head with no data at the end of the file is dropped.
  if (current->IsEmpty()) return;
  AppendRead(*this, current);
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
