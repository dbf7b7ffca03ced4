// Where the add-on keeps its support files, and the small text helper of the
// utility module.
//
// The main directory is, in this order: the folder set by
// tolv::SetMainDirectory, the environment variable TOLV_MAIN_DIR, or the
// current working folder. It is given in the system's form with a closing
// backslash.
//
// FindFile looks for a bare file name, in this order:
//   1. each folder of the environment variable TOLV_SUPPORT_PATH
//      (separated by ';'), in order;
//   2. the main directory;
//   3. the folder "Support" under the main directory.
// In each folder the name is matched exactly first, then without regard to
// case. A name that already holds a folder part is taken as it stands if
// that file exists.
#pragma once

#include <string>

#include "platform/mfc/CString.h"

CString GetMainDirectory();
bool FindFile(const wchar_t *name, CString &path);

// Cuts text at any of the separator characters into the array (cleared
// first); empty pieces are dropped. Gives the number of pieces.
int CutStrToArr(const CString &text, const CString &separators, CStringArray &pieces);

namespace tolv {
// Overrides the main directory; an empty text goes back to the default.
void SetMainDirectory(const std::wstring &folder);
}  // namespace tolv
