#include "WineCorpus.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace langtest {

namespace fs = std::filesystem;

const std::vector<std::string> kBilingualModules = {
    "comdlg32.dll", "cryptui.dll",  "shell32.dll", "user32.dll",    "comctl32.dll", "taskmgr.exe",
    "regedit.exe",  "winecfg.exe",  "wordpad.exe", "progman.exe",   "oleview.exe",  "notepad.exe",
    "winemine.exe", "winefile.exe", "winhlp32.exe"};

std::string WineModuleDir(std::string &why) {
  const fs::path cache = fs::path(TOLV_BINARY_DIR) / "wine-cache";
  const fs::path dir = cache / "root" / "usr" / "lib" / "x86_64-linux-gnu" / "wine" / "x86_64-windows";
  if (fs::exists(cache / "unpacked") && fs::exists(dir / "notepad.exe")) return dir.string();
  std::error_code error;
  fs::create_directories(cache, error);
  auto debs = [&] {
    std::vector<fs::path> found;
    for (const auto &entry : fs::directory_iterator(cache, error))
      if (entry.path().extension() == ".deb" && entry.path().filename().string().rfind("libwine_", 0) == 0)
        found.push_back(entry.path());
    return found;
  };
  if (debs().empty()) {
    const std::string fetch = "cd '" + cache.string() + "' && apt-get download libwine > download.log 2>&1";
    if (std::system(fetch.c_str()) != 0 || debs().empty()) {
      why = "libwine could not be downloaded with apt-get (see " + (cache / "download.log").string() + ")";
      return {};
    }
  }
  const fs::path staging = cache / "root.unpacking";
  fs::remove_all(staging, error);
  fs::remove_all(cache / "root", error);
  const std::string unpack = "dpkg-deb -x '" + debs().front().string() + "' '" + staging.string() + "'";
  if (std::system(unpack.c_str()) != 0) {
    why = "dpkg-deb could not unpack " + debs().front().string();
    return {};
  }
  fs::rename(staging, cache / "root", error);
  if (error || !fs::exists(dir / "notepad.exe")) {
    why = "the libwine package holds no x86_64-windows modules";
    return {};
  }
  std::ofstream((cache / "unpacked").string()) << "ok\n";
  return dir.string();
}

std::vector<std::string> WineModules(const std::string &dir) {
  std::vector<std::string> names;
  for (const auto &entry : fs::directory_iterator(dir)) {
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace langtest
