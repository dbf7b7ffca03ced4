// Feeds arbitrary bytes to the dictionary's archive reader. A stream that
// ends early must end in the end-of-file exception; nothing may crash, hang,
// leak or take memory out of proportion to the input.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "FuzzSeeds.h"
#include "dictionary/KyDtDict.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/CArchive.h"
#include "platform/mfc/CMemFile.h"

std::vector<std::string> FuzzTargetSeeds() { return ArchiveSeeds(); }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  // Unresolved references print a line each; keep the output quiet.
  static const bool quiet = [] {
    tolv::SetCommandLineSink([](const std::wstring &) {});
    return true;
  }();
  (void)quiet;
  std::vector<BYTE> copy(data, data + size);
  CMemFile file(copy.data(), static_cast<UINT>(copy.size()));
  KyDtDictionary dict;
  try {
    CArchive ar(&file, CArchive::load);
    std::int32_t autoSort = 0;
    ar >> autoSort;
    dict.SetAutoSort(autoSort);
    std::int32_t kind = 0;
    ar >> kind;
    dict << ar;
    dict.TranslateRef();
  } catch (const CArchiveException &) {
    // The only failure a damaged stream may give.
  }
  return 0;
}
