// Debian's libwine: some 650 Windows modules built by people outside this
// project, many with Chinese and English dialogs, menus and string tables.
// Fetched once with `apt-get download` into the build tree and unpacked
// there with `dpkg-deb -x`; never installed.
#pragma once

#include <string>
#include <vector>

namespace langtest {

// The folder of the 64-bit PE modules, or empty with the reason.
std::string WineModuleDir(std::string &why);

// Module file names of the folder, sorted.
std::vector<std::string> WineModules(const std::string &dir);

// The modules whose dialogs and menus come in both Chinese and English.
extern const std::vector<std::string> kBilingualModules;

}  // namespace langtest
