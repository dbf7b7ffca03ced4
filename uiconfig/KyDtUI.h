// The user-interface definition: the item classes, the document and its
// sections, start-up and context menus.
#pragma once

#include "uiconfig/KyDtUIItem.h"
#include "uiconfig/KyDtUIDirectory.h"
#include "uiconfig/KyDtUIReference.h"
#include "uiconfig/KyDtUILeafItems.h"
#include "uiconfig/KyDtUIDirectories.h"
#include "uiconfig/KyDtUIConfig.h"
#include "uiconfig/KyDtUIFactory.h"
#include "uiconfig/KyDtUIStartup.h"
#include "uiconfig/KyDtContextFilter.h"

// The settings of the sibling modules that the UI dictionary fills.
#include "platform/dbobject/UiSettings.h"

// The selection sets a context menu is chosen for.
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"
#include "platform/platform/KyAdsSpace.h"
