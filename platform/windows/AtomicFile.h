// Saving a file so that a failure never loses the old one: the bytes go to a
// temporary file in the same folder, which then replaces the target by rename.
#pragma once

#include <string>
#include <string_view>

namespace tolv {

// Writes `bytes` to `posixPath` atomically. False when anything failed; the
// old file, if any, is then untouched and no temporary file is left behind.
bool WriteFileAtomically(const std::string &posixPath, std::string_view bytes);

// Reads a whole file; false if it can't be opened.
bool ReadWholeFile(const std::string &posixPath, std::string &bytes);

}  // namespace tolv
