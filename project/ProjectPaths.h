// The path rules shared by the project file and the project database. Paths
// are the system's, with backslashes.
#pragma once

#include "platform/mfc/CString.h"

namespace tolv::project {

// The text behind the last backslash; false, leaving `name` alone, without one.
bool FileNameOf(const CString &path, CString &name);
// The text up to and including the last backslash; false, leaving `folder`
// alone, without one.
bool FolderOf(const CString &path, CString &folder);
// The name without a leading `folder` (matched without regard to case) and
// without its last four characters, which are taken to be the extension.
CString RelativeDrawingName(const CString &folder, CString name);
// `folder`, the name and ".dwg"; a name holding ":" is absolute and only
// gets ".dwg". An empty name stays empty.
CString FullDrawingName(const CString &folder, const CString &name);

}  // namespace tolv::project
