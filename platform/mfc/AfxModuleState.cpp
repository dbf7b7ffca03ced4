#include "platform/mfc/AfxModuleState.h"

AFX_MODULE_STATE *AfxGetModuleState() {
  static AFX_MODULE_STATE state;
  return &state;
}

HINSTANCE AfxGetResourceHandle() { return AfxGetModuleState()->m_hCurrentResourceHandle; }

void AfxSetResourceHandle(HINSTANCE resource) { AfxGetModuleState()->m_hCurrentResourceHandle = resource; }
