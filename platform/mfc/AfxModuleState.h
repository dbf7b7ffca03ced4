// The framework's module state: which module's resources the framework
// loads from. A module makes itself current around the work that shows its
// own dialogs, menus and strings.
#pragma once

#include "platform/windows/WinTypes.h"

struct AFX_MODULE_STATE {
  HINSTANCE m_hCurrentInstanceHandle = nullptr;
  HINSTANCE m_hCurrentResourceHandle = nullptr;
};

// The one state of the process.
AFX_MODULE_STATE *AfxGetModuleState();
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE resource);
