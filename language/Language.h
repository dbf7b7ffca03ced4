// The language switch and its tools, with the framework and Windows
// stand-ins they are written in: what a sibling module includes to have
// its dialogs, menus and texts translated.
#pragma once

#include "platform/windows/WinTypes.h"
#include "platform/windows/WinWindow.h"
#include "platform/windows/WinMenu.h"
#include "platform/windows/CodePage.h"
#include "platform/windows/ResourceModule.h"
#include "platform/windows/ResourceTemplates.h"
#include "platform/windows/PeImage.h"
#include "platform/windows/PeWriter.h"
#include "platform/mfc/AfxModuleState.h"
#include "platform/mfc/CWnd.h"
#include "platform/mfc/CDialog.h"
#include "platform/mfc/CMenu.h"
#include "platform/dbobject/TolvLanguageSwitch.h"

#include "language/KyDtLanguageSwitch.h"
#include "language/KyUtPushResource.h"
#include "language/LangTranslate.h"
#include "language/LanguageModuleKey.h"
#include "language/LanguageStart.h"
#include "language/LanguageTools.h"
