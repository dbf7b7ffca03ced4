#include "language/LanguageModuleKey.h"

#include "platform/windows/ResourceModule.h"

CString LanguageFileKey(const CString &fileName) {
  CString key = fileName;
  key.MakeUpper();
  int point = key.Find(L'.');
  if (point >= 0) key = key.Left(point);
  int last = key.GetLength() - 1;
  if (last >= 0 && key[last] >= L'0' && key[last] <= L'9') key.Delete(last);
  return key;
}

CString LanguageModuleKey(const CString &modulePath) {
  int slash = modulePath.ReverseFind(L'\\');
  if (slash < 1) return CString();
  return LanguageFileKey(modulePath.Mid(slash + 1));
}

CString LanguageModuleKey(HINSTANCE module) {
  wchar_t path[1024];
  if (!::GetModuleFileNameW(module, path, 1024)) return CString();
  return LanguageModuleKey(CString(path));
}
