#include "platform/mfc/AfxModuleState.h"
#include "platform/mfc/CString.h"
#include "platform/windows/ResourceModule.h"

bool CString::LoadString(unsigned int id) {
  // A string-table entry holds at most 65535 characters.
  std::wstring buffer(65536, L'\0');
  int n = ::LoadStringW(AfxGetResourceHandle(), id, buffer.data(), static_cast<int>(buffer.size()));
  if (n <= 0) return false;
  *this = CString(buffer.c_str(), n);
  return true;
}
