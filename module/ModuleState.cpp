#include "module/ModuleState.h"

#include <dlfcn.h>

namespace {
// Constant-initialized, so it is in place before any constructor runs.
ModuleState g_moduleState;
}  // namespace

ModuleState &TheModuleState() { return g_moduleState; }

bool AttachModule() {
  // The instance handle of a module is the address it is loaded at.
  Dl_info info{};
  if (::dladdr(reinterpret_cast<void *>(&TheModuleState), &info) && info.dli_fbase)
    g_moduleState.instance = static_cast<HINSTANCE>(info.dli_fbase);
  return true;
}
