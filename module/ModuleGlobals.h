// The exported global objects and pointers of the data layer: how every
// other module of the add-on reaches the settings, the history data, the
// language tables, the project and the user-interface definition.
//
// The objects are built when the module is loaded, in the order they are
// listed here, and destroyed in the reverse order when it is unloaded; they
// are empty until the start fills them. The pointers are null at load.
#pragma once

#include "dictionary/KyDtDictionary.h"

class KyDtUIDirectory;
class KyDtUIToolBoxDef;
class KyDtUIDictionary;
class KyDtUIConfig;

// The system settings, "config.xml".
extern KyDtDictionary g_dictCfg;
// The history data, "HistoryData.xml".
extern KyDtDictionary g_dictHistoryData;
// The language table in force.
extern KyDtDictionary g_curDictLang;

// One slot per module of the add-on for its language table.
extern KyDtDictionary *g_pCurModuleComCtrl;
extern KyDtDictionary *g_pCurModuleCommontool;
extern KyDtDictionary *g_pCurModuleConvert;
extern KyDtDictionary *g_pCurModuleDataBase;
extern KyDtDictionary *g_pCurModuleDataManager;
extern KyDtDictionary *g_pCurModuleElevation;
extern KyDtDictionary *g_pCurModuleLoader;
extern KyDtDictionary *g_pCurModuleLoadtool;
extern KyDtDictionary *g_pCurModuleObjProp;
extern KyDtDictionary *g_pCurModuleObject;
extern KyDtDictionary *g_pCurModulePlatForm;
extern KyDtDictionary *g_pCurModuleUiAnnotate;
extern KyDtDictionary *g_pCurModuleUiBase;
extern KyDtDictionary *g_pCurModuleUiCommonModel;
extern KyDtDictionary *g_pCurModuleUiDimension;
extern KyDtDictionary *g_pCurModuleUiGlobal;
extern KyDtDictionary *g_pCurModuleUiHelpObj;
extern KyDtDictionary *g_pCurModuleUiModel;
extern KyDtDictionary *g_pCurModuleUiModelBase;
extern KyDtDictionary *g_pCurModuleUiRoof;
extern KyDtDictionary *g_pCurModuleUiSpace;
extern KyDtDictionary *g_pCurModuleUiStair;
extern KyDtDictionary *g_pCurModuleUtility;

// The user-interface definition, "UIConfig.xml".
extern KyDtUIConfig g_dbCfgUI;

// The sections of the user-interface definition.
extern KyDtUIDirectory *g_pAllCommandDef;
extern KyDtUIDirectory *g_pAllSwitchDef;
extern KyDtUIDirectory *g_pAllControlDef;
extern KyDtUIDirectory *g_pAllMenuDef;
extern KyDtUIDirectory *g_pStatusBarDef;
extern KyDtUIDirectory *g_pScreenMenuDef;
extern KyDtUIDirectory *g_pContextMenuDef;
extern KyDtUIDirectory *g_pAccelerate;
extern KyDtUIDirectory *g_pHotKeys;
extern KyDtUIDirectory *g_pShortCmds;
extern KyDtUIToolBoxDef *g_pProjectBoxDef;
extern KyDtUIToolBoxDef *g_pToolBoxDef;
extern KyDtUIDictionary *g_pUiDictionary;
