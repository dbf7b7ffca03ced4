// The module's start and stop, in their fixed order.
#pragma once

// Registers the commands, reads the settings, the UI definition and the
// history data, starts the language switch and installs the hooks.
void ModuleStart();

// Removes the commands and writes the settings, the UI definition and the
// history data back.
void ModuleStop();
