#include "module/EntryPoint.h"

#include "module/ModuleCommands.h"
#include "module/ModuleShell.h"
#include "module/ModuleState.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"

namespace {

void Start(void *appId) {
  ModuleState &state = TheModuleState();
  // Without the framework record the module runs on, only without its own
  // resources.
  if (AfxInitExtensionModule(state.extension, state.instance)) {
    state.resource = state.instance;
    // The framework's chain owns the link; AfxTermExtensionModule deletes it.
    new CDynLinkLibrary(state.extension);
  }
  acrxUnlockApplication(appId);
  if (AcRxDynamicLinker *linker =
          AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))) {
    linker->registerAppMDIAware(appId);
  }
  ModuleStart();
}

void Stop() {
  ModuleStop();
  AfxTermExtensionModule(TheModuleState().extension, false);
}

}  // namespace

extern "C" {

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void *pkt) {
  switch (msg) {
    case AcRx::kInitAppMsg:
      Start(pkt);
      break;
    case AcRx::kUnloadAppMsg:
      Stop();
      break;
    case AcRx::kLoadDwgMsg:
      KyDefineAdsFun(g_moduleLispFunctions, kModuleLispFunctionCount);
      break;
    case AcRx::kInvkSubrMsg:
      // The function hands its result to the interpreter itself.
      KyCallAdsFun(g_moduleLispFunctions, kModuleLispFunctionCount);
      break;
    case AcRx::kUnloadDwgMsg:
    default:
      break;
  }
  // No message is ever refused.
  return AcRx::kRetOK;
}

int acrxGetApiVersion() { return kTolvHostApiVersion; }

}  // extern "C"
