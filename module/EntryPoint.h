// The two exports the host looks for when it loads the module.
#pragma once

#include "platform/acad/AcRx.h"

extern "C" {
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void *pkt);
int acrxGetApiVersion();
}
