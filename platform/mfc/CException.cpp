#include "platform/mfc/CException.h"

bool CException::GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext) const {
  if (helpContext) *helpContext = 0;
  if (text && maxChars > 0) text[0] = L'\0';
  return false;
}

bool CException::CopyMessage(const std::wstring &message, wchar_t *text, unsigned maxChars) {
  if (!text || maxChars == 0) return false;
  std::size_t n = message.size() < maxChars - 1 ? message.size() : maxChars - 1;
  message.copy(text, n);
  text[n] = L'\0';
  return true;
}
