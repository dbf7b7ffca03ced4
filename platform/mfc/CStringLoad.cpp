#include "platform/mfc/AfxModuleState.h"
#include "platform/mfc/CString.h"
#include "platform/windows/ResourceModule.h"

bool CString::LoadString(unsigned int id) {
  // Most strings are short; a full buffer means the text may go on, and an
  // entry holds at most 65535 characters.
  for (int size : {512, 65536}) {
    std::wstring buffer(static_cast<std::size_t>(size), L'\0');
    const int n = ::LoadStringW(AfxGetResourceHandle(), id, buffer.data(), size);
    if (n <= 0) return false;
    if (n < size - 1 || size == 65536) {
      *this = CString(buffer.c_str(), n);
      return true;
    }
  }
  return false;
}
