// The key under which a module's table stands in the language package,
// made from the module's file.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/windows/WinTypes.h"

// Upper case, the name after the last backslash, cut at the first point,
// without a last digit: "…\TolvComCtrl9.dll" gives "TOLVCOMCTRL". A path
// without a backslash after its first character gives an empty key.
CString LanguageModuleKey(const CString &modulePath);
// The same for a bare file name: "TolvComCtrl9.dll" gives "TOLVCOMCTRL".
CString LanguageFileKey(const CString &fileName);
// The key of a loaded module, from its file path.
CString LanguageModuleKey(HINSTANCE module);
