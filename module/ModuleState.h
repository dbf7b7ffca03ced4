// The module's private state: its framework record and its handles.
#pragma once

#include "platform/acad/AfxExtensionModule.h"

struct ModuleState {
  // Filled by AfxInitExtensionModule at start, cleared at stop.
  AFX_EXTENSION_MODULE extension;
  // Where the module is loaded; stored when the module is attached.
  HINSTANCE instance = nullptr;
  // The module whose resources the texts come from: this one, once its
  // framework record is set up.
  HINSTANCE resource = nullptr;
};

ModuleState &TheModuleState();

// The attach step of the file, run once the global objects stand: stores
// the instance handle. Gives true, as the attach always succeeds.
bool AttachModule();
