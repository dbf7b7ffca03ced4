#include "platform/mfc/CArchiveException.h"

#include <string>

namespace {

const char *CauseText(int cause) {
  switch (cause) {
    case CArchiveException::none: return "no error";
    case CArchiveException::readOnly: return "write to an archive opened for loading";
    case CArchiveException::endOfFile: return "unexpected end of archive";
    case CArchiveException::writeOnly: return "read from an archive opened for storing";
    case CArchiveException::badIndex: return "invalid archive format";
    case CArchiveException::badClass: return "unexpected object type in archive";
    case CArchiveException::badSchema: return "unsupported object version in archive";
    default: return "archive error";
  }
}

}  // namespace

bool CArchiveException::GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext) const {
  if (helpContext) *helpContext = 0;
  std::string cause = CauseText(m_cause);
  std::wstring message(cause.begin(), cause.end());
  if (!m_strFileName.IsEmpty()) message += L": " + m_strFileName.str();
  return CopyMessage(message, text, maxChars);
}

const char *CArchiveException::what() const noexcept { return CauseText(m_cause); }

void AfxThrowArchiveException(int cause, const wchar_t *fileName) { throw CArchiveException(cause, fileName); }
