// The exported global objects, all in this one file so that they are built
// in the order written here and destroyed in the reverse order.
#include "module/ModuleGlobals.h"

#include "language/KyDtLanguageSwitch.h"
#include "module/ModuleState.h"
#include "project/KyDtPrj.h"
#include "uiconfig/KyDtUIConfig.h"
#include "uiconfig/KyDtUIFactory.h"

KyDtDictionary g_dictCfg;
KyDtDictionary g_dictHistoryData;
KyDtLanguageSwitch g_languageSwitch;
KyDtDictionary g_curDictLang;
KyDtProject g_curProject;
KyDtProjectDb g_curProjectDb;
KyDtUIConfig g_dbCfgUI;
KyDtUIFactoryMap g_mapUIFactory;

KyDtDictionary *g_pCurModuleComCtrl = nullptr;
KyDtDictionary *g_pCurModuleCommontool = nullptr;
KyDtDictionary *g_pCurModuleConvert = nullptr;
KyDtDictionary *g_pCurModuleDataBase = nullptr;
KyDtDictionary *g_pCurModuleDataManager = nullptr;
KyDtDictionary *g_pCurModuleElevation = nullptr;
KyDtDictionary *g_pCurModuleLoader = nullptr;
KyDtDictionary *g_pCurModuleLoadtool = nullptr;
KyDtDictionary *g_pCurModuleObjProp = nullptr;
KyDtDictionary *g_pCurModuleObject = nullptr;
KyDtDictionary *g_pCurModulePlatForm = nullptr;
KyDtDictionary *g_pCurModuleUiAnnotate = nullptr;
KyDtDictionary *g_pCurModuleUiBase = nullptr;
KyDtDictionary *g_pCurModuleUiCommonModel = nullptr;
KyDtDictionary *g_pCurModuleUiDimension = nullptr;
KyDtDictionary *g_pCurModuleUiGlobal = nullptr;
KyDtDictionary *g_pCurModuleUiHelpObj = nullptr;
KyDtDictionary *g_pCurModuleUiModel = nullptr;
KyDtDictionary *g_pCurModuleUiModelBase = nullptr;
KyDtDictionary *g_pCurModuleUiRoof = nullptr;
KyDtDictionary *g_pCurModuleUiSpace = nullptr;
KyDtDictionary *g_pCurModuleUiStair = nullptr;
KyDtDictionary *g_pCurModuleUtility = nullptr;

KyDtUIDirectory *g_pAllCommandDef = nullptr;
KyDtUIDirectory *g_pAllSwitchDef = nullptr;
KyDtUIDirectory *g_pAllControlDef = nullptr;
KyDtUIDirectory *g_pAllMenuDef = nullptr;
KyDtUIDirectory *g_pStatusBarDef = nullptr;
KyDtUIDirectory *g_pScreenMenuDef = nullptr;
KyDtUIDirectory *g_pContextMenuDef = nullptr;
KyDtUIDirectory *g_pAccelerate = nullptr;
KyDtUIDirectory *g_pHotKeys = nullptr;
KyDtUIDirectory *g_pShortCmds = nullptr;
KyDtUIToolBoxDef *g_pProjectBoxDef = nullptr;
KyDtUIToolBoxDef *g_pToolBoxDef = nullptr;
KyDtUIDictionary *g_pUiDictionary = nullptr;
// KyDtUIConfig::g_pCurUICfg, null at load, is defined with its class.

namespace {
// The file's attach step comes after the global objects.
[[maybe_unused]] const bool kAttached = AttachModule();
}  // namespace
