// The public interface of the TolvDataBase module: everything a sibling
// module of the add-on may use, together with the host and framework types
// that interface is written in.
#pragma once

#include "platform/windows/WinCrt.h"
#include "platform/mfc/CString.h"
#include "module/EntryPoint.h"

// The container family.
#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"

// The typed dictionary.
#include "dictionary/KyDtDict.h"

// The settings and the history data.
#include "settings/SystemConfig.h"
#include "settings/HistoryData.h"

// The project: item tree, project file, project database.
#include "project/KyDtPrj.h"

// The block, equipment and word libraries.
#include "library/KyDtLibrary.h"

// The user-interface definition.
#include "uiconfig/KyDtUI.h"

// The exported global objects and pointers, and the hooks' answers.
#include "module/ModuleGlobals.h"
#include "module/EntityHooks.h"

// Hatch pattern files, and the list control their lines are shown in.
#include "platform/mfc/CListCtrl.h"
#include "platform/mfc/CStdioFile.h"
#include "patterns/KyPats.h"

// Selection sets of the platform module.
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"

// The drawing standards.
#include "standards/KyDtStandards.h"

// The language switch and the language tools.
#include "language/Language.h"
