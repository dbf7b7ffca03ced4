// How the system's Windows-style paths reach the POSIX disk. Only code that
// touches the disk calls this; everything else keeps backslash paths.
//
//  - Backslashes become slashes.
//  - A drive prefix such as "E:" is dropped, unless a mapping is set for the
//    letter (SetDriveMapping, or the environment variable TOLV_DRIVE_E),
//    in which case the prefix is replaced by the mapped folder.
//  - When a component of the path does not exist under its exact name, a
//    case-insensitive match in its folder is taken, as on the home platform.
#pragma once

#include <string>
#include <string_view>

namespace tolv {

// The POSIX path, UTF-8 encoded, for a path of the system.
std::string MapPath(std::wstring_view systemPath);

// Sets (or, with an empty root, clears) the folder a drive letter stands for.
void SetDriveMapping(wchar_t letter, const std::string &posixRoot);

// The form a POSIX path takes inside the system: slashes become backslashes.
// Used where the command-line program takes paths in.
std::wstring ToSystemPath(const std::string &posixPath);

}  // namespace tolv
