// The system settings: "config.xml" held in g_dictCfg, and its projection
// onto the plain settings of the geometry library and the object modules.
#pragma once

// Start step: finds "config.xml" among the support files, reads it into
// g_dictCfg and copies the values it names into their settings. A missing
// file is reported on the command line and leaves everything as it was.
void LoadConfig();

// Stop step: writes g_dictCfg back to the "config.xml" that is found. No
// file is created: when none is found a message box says so.
void SaveConfig();
