// _TL: how every built-in text of the module reaches the user. The text is
// its own key in the language package.
#pragma once

#include "platform/mfc/CString.h"

// The text in the language in force: with this module current, the code
// string of its table in the package. While no language switch is
// installed (the home language, or before the language start-up has run)
// this is the text itself.
CString _TL(const wchar_t *text);
