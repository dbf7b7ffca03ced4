// The public interface of the TolvDataBase module: everything a sibling
// module of the add-on may use, together with the host and framework types
// that interface is written in.
#pragma once

#include "platform/windows/WinCrt.h"
#include "platform/mfc/CString.h"
#include "module/EntryPoint.h"
