#include "platform/mfc/CFileException.h"

#include <cerrno>
#include <string>

namespace {

const char *CauseText(int cause) {
  switch (cause) {
    case CFileException::none: return "no error";
    case CFileException::fileNotFound: return "file not found";
    case CFileException::badPath: return "bad path";
    case CFileException::tooManyOpenFiles: return "too many open files";
    case CFileException::accessDenied: return "access denied";
    case CFileException::invalidFile: return "invalid file";
    case CFileException::removeCurrentDir: return "can't remove the current folder";
    case CFileException::directoryFull: return "folder full";
    case CFileException::badSeek: return "bad seek";
    case CFileException::hardIO: return "hardware I/O error";
    case CFileException::sharingViolation: return "sharing violation";
    case CFileException::lockViolation: return "lock violation";
    case CFileException::diskFull: return "disk full";
    case CFileException::endOfFile: return "end of file";
    default: return "file error";
  }
}

}  // namespace

int CFileException::OsErrorToException(LONG osError) {
  switch (osError) {
    case 0: return none;
    case ENOENT: return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL: return badPath;
    case EMFILE:
    case ENFILE: return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EBADF:
    case ETXTBSY:
    case EEXIST:
    case ENOTEMPTY: return accessDenied;
    case ENOSPC:
    case EFBIG:
    case EDQUOT: return diskFull;
    case EIO: return hardIO;
    case ESPIPE:
    case EOVERFLOW: return badSeek;
    case EBUSY: return sharingViolation;
    default: return genericException;
  }
}

bool CFileException::GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext) const {
  if (helpContext) *helpContext = 0;
  std::string cause = CauseText(m_cause);
  std::wstring message(cause.begin(), cause.end());
  if (!m_strFileName.IsEmpty()) message += L": " + m_strFileName.str();
  return CopyMessage(message, text, maxChars);
}

const char *CFileException::what() const noexcept { return CauseText(m_cause); }

void AfxThrowFileException(int cause, LONG osError, const wchar_t *fileName) {
  throw CFileException(cause, osError, fileName);
}
