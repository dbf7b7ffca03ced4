#include "module/ModuleShell.h"

#include "language/LanguageStart.h"
#include "module/EntityHooks.h"
#include "module/ModuleCommands.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/dbobject/KyDbHooks.h"
#include "settings/HistoryData.h"
#include "settings/SystemConfig.h"

void ModuleStart() {
  KyDefineCommand(kModuleCommandGroup, g_moduleCommands, kModuleCommandCount, 0);

  // AWAITS the UI configuration: register the UI element factories here.
  // They must stand before the UI definition is read.

  LoadConfig();

  // AWAITS the UI configuration: LoadUIConfig() here.

  LoadHistoryData();

  // After all three documents are read.
  InitLanguage();

  g_KyGetLabelListMethod = KyDtGetOpeningLabels;
  // AWAITS layer creation: g_KyGetLayerIdMethod (an entity's layer, that of
  // KyDtInitLayer(entity->GetLayerKey(), nullptr), the null id for a null
  // entity) and g_KyGetLayerIdMethod1 = KyDtInitLayer are stored here.
}

void ModuleStop() {
  if (AcEdCommandStack *commands =
          AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))) {
    commands->removeGroup(kModuleCommandGroup);
  }
  SaveConfig();

  // AWAITS the UI configuration: SaveUIConfig() here.

  SaveHistoryData();
  // The hooks stay and the dictionaries keep their content: both go only
  // when the module is unloaded.
}
