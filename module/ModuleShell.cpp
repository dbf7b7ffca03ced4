#include "module/ModuleShell.h"

#include "language/LanguageStart.h"
#include "module/EntityHooks.h"
#include "module/ModuleCommands.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/dbobject/KyDbHooks.h"
#include "settings/HistoryData.h"
#include "settings/SystemConfig.h"
#include "standards/KyDtLayerFunctions.h"
#include "uiconfig/KyDtUIFactory.h"
#include "uiconfig/KyDtUIStartup.h"

void ModuleStart() {
  KyDefineCommand(kModuleCommandGroup, g_moduleCommands, kModuleCommandCount, 0);

  // The UI element classes must stand before the UI definition is read.
  RegisterUIElementFactories();

  LoadConfig();

  LoadUIConfig();

  LoadHistoryData();

  // After all three documents are read.
  InitLanguage();

  g_KyGetLabelListMethod = KyDtGetOpeningLabels;
  g_KyGetLayerIdMethod = KyDtGetEntityLayerId;
  g_KyGetLayerIdMethod1 = KyDtInitLayer;
}

void ModuleStop() {
  if (AcEdCommandStack *commands =
          AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))) {
    commands->removeGroup(kModuleCommandGroup);
  }
  SaveConfig();

  SaveUIConfig();

  SaveHistoryData();
  // The hooks stay and the dictionaries keep their content: both go only
  // when the module is unloaded.
}
