#include "platform/utility/SupportFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <vector>

#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

std::wstring &MainOverride() {
  static std::wstring folder;
  return folder;
}

bool IsRegularFile(const std::string &posix) {
  struct stat st;
  return ::stat(posix.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

CString WithClosingBackslash(std::wstring folder) {
  for (auto &c : folder)
    if (c == L'/') c = L'\\';
  if (folder.empty() || folder.back() != L'\\') folder += L'\\';
  return CString(folder);
}

// The file name as the disk spells it, for a name found without case.
std::wstring DiskName(const std::string &posix) {
  size_t slash = posix.rfind('/');
  return tolv::FromUtf8(slash == std::string::npos ? posix : posix.substr(slash + 1));
}

bool LookIn(const CString &folder, const wchar_t *name, CString &path) {
  CString candidate = folder + name;
  std::string posix = tolv::MapPath(candidate.GetString());
  if (!IsRegularFile(posix)) return false;
  path = folder + CString(DiskName(posix));
  return true;
}

}  // namespace

namespace tolv {
void SetMainDirectory(const std::wstring &folder) { MainOverride() = folder; }
}  // namespace tolv

CString GetMainDirectory() {
  if (!MainOverride().empty()) return WithClosingBackslash(MainOverride());
  if (const char *env = std::getenv("TOLV_MAIN_DIR"); env && *env)
    return WithClosingBackslash(tolv::FromUtf8(env));
  char buf[PATH_MAX];
  if (::getcwd(buf, sizeof buf)) return WithClosingBackslash(tolv::FromUtf8(buf));
  return CString(L".\\");
}

bool FindFile(const wchar_t *name, CString &path) {
  if (!name || !*name) return false;
  CString bare(name);
  if (bare.FindOneOf(L"\\/") >= 0) {
    std::string posix = tolv::MapPath(name);
    if (!IsRegularFile(posix)) return false;
    path = bare;
    return true;
  }
  if (const char *env = std::getenv("TOLV_SUPPORT_PATH"); env && *env) {
    CStringArray folders;
    CutStrToArr(CString(tolv::FromUtf8(env)), L";", folders);
    for (int i = 0; i < folders.GetSize(); ++i)
      if (LookIn(WithClosingBackslash(folders[i].str()), name, path)) return true;
  }
  CString main = GetMainDirectory();
  return LookIn(main, name, path) || LookIn(main + L"Support\\", name, path);
}

int CutStrToArr(const CString &text, const CString &separators, CStringArray &pieces) {
  pieces.RemoveAll();
  const std::wstring_view t = text.view();
  size_t start = 0;
  while (start <= t.size()) {
    size_t end = separators.IsEmpty() ? std::wstring::npos : t.find_first_of(separators.view(), start);
    if (end == std::wstring::npos) end = t.size();
    if (end > start) pieces.Add(CString(t.substr(start, end - start)));
    start = end + 1;
  }
  return pieces.GetSize();
}
