#include "platform/windows/PathMap.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cstdlib>
#include <map>

#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace tolv {

namespace {

std::map<wchar_t, std::string> &DriveMap() {
  static std::map<wchar_t, std::string> map;
  return map;
}

bool Exists(const std::string &p) {
  struct stat st;
  return ::lstat(p.c_str(), &st) == 0;
}

bool EqualNoCase(const std::string &a, const std::string &b) {
  std::wstring wa = FromUtf8(a), wb = FromUtf8(b);
  return _wcsicmp(wa.c_str(), wb.c_str()) == 0;
}

// The entry of `dir` whose name matches `name` ignoring case, or empty.
std::string FindNoCase(const std::string &dir, const std::string &name) {
  DIR *d = ::opendir(dir.empty() ? "." : dir.c_str());
  if (!d) return {};
  std::string found;
  while (dirent *e = ::readdir(d)) {
    if (EqualNoCase(e->d_name, name)) {
      found = e->d_name;
      break;
    }
  }
  ::closedir(d);
  return found;
}

std::string DriveRoot(wchar_t letter) {
  letter = FoldUpper(letter);
  auto it = DriveMap().find(letter);
  if (it != DriveMap().end()) return it->second;
  std::string var = "TOLV_DRIVE_";
  var += static_cast<char>(letter);
  if (const char *env = std::getenv(var.c_str())) return env;
  return {};
}

}  // namespace

void SetDriveMapping(wchar_t letter, const std::string &posixRoot) {
  letter = FoldUpper(letter);
  if (posixRoot.empty())
    DriveMap().erase(letter);
  else
    DriveMap()[letter] = posixRoot;
}

std::string MapPath(std::wstring_view systemPath) {
  std::wstring path(systemPath);
  for (auto &c : path)
    if (c == L'\\') c = L'/';

  std::string prefix;
  if (path.size() >= 2 && path[1] == L':' &&
      ((path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z'))) {
    prefix = DriveRoot(path[0]);
    path.erase(0, 2);
    if (!prefix.empty() && prefix.back() == '/') prefix.pop_back();
    if (path.empty() || path[0] != L'/') path.insert(path.begin(), L'/');
  }
  std::string mapped = prefix + ToUtf8(path);
  if (mapped.empty() || Exists(mapped)) return mapped;

  // Walk the components, replacing each missing one by a case-insensitive
  // match in its folder; once nothing matches, the rest stays as given.
  std::string out;
  size_t pos = 0;
  if (mapped[0] == '/') {
    out = "/";
    pos = 1;
  }
  bool resolving = true;
  while (pos <= mapped.size()) {
    size_t slash = mapped.find('/', pos);
    if (slash == std::string::npos) slash = mapped.size();
    std::string part = mapped.substr(pos, slash - pos);
    if (!part.empty()) {
      std::string candidate = out + part;
      if (resolving && part != "." && part != ".." && !Exists(candidate)) {
        std::string match = FindNoCase(out, part);
        if (match.empty())
          resolving = false;
        else
          candidate = out + match;
      }
      out = candidate;
      if (slash < mapped.size()) out += '/';
    } else if (slash < mapped.size() && !out.empty() && out.back() != '/') {
      out += '/';
    }
    pos = slash + 1;
  }
  return out;
}

std::wstring ToSystemPath(const std::string &posixPath) {
  std::wstring w = FromUtf8(posixPath);
  for (auto &c : w)
    if (c == L'/') c = L'\\';
  return w;
}

}  // namespace tolv
