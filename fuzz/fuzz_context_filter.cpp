// Feeds arbitrary text to the selection-filter parser of the context menus,
// as a menu's "filter" attribute could hold it. Nothing may crash or hang.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "platform/platform/KyAdsRBList.h"
#include "platform/windows/TextCodec.h"
#include "uiconfig/KyDtContextFilter.h"

std::vector<std::string> FuzzTargetSeeds() {
  return {"0,'LINE'", "0,'LINE,LWPOLYLINE',8,'WALL*'", "62,1,40,2.5,90,7", "8,'A,B',0,'TEXT", ",,,,", "10,'1,2'",
          "99999,'x',-4,'y',0"};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const std::wstring text = tolv::FromUtf8(std::string(reinterpret_cast<const char *>(data), size));
  KyAdsRBList list;
  tolv::uiconfig::BuildContextFilter(CString(text.c_str()), list);
  (void)list.GetLength();
  return 0;
}
