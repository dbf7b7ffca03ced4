#include "module/EntryPoint.h"

extern "C" {

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void *pkt) {
  // Every message is taken; the module never refuses one.
  (void)msg;
  (void)pkt;
  return AcRx::kRetOK;
}

int acrxGetApiVersion() { return kTolvHostApiVersion; }

}  // extern "C"
