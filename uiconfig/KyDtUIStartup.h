// The UI configuration at the module's start and stop, and the context
// menu chosen for a selection.
#pragma once

class KyAdsEntSet;
class KyDtUIDirectory;

// Reads "UIConfig.xml" (found as a support file) into g_dbCfgUI, fills the
// section pointers and copies the settings of the "COMMON_DICT" dictionary
// into the globals of the sibling modules. Never reports a failure.
void LoadUIConfig();
// Writes g_dbCfgUI back to "UIConfig.xml"; a message box when it is missing.
void SaveUIConfig();

// The context menu for the selection: for an empty selection the common
// menu of the current space, else the first menu of the context section
// whose filter the whole selection passes. Null when there is none or the
// selection holds a viewport.
KyDtUIDirectory *KyDtGetContextMenu(const KyAdsEntSet &set);
