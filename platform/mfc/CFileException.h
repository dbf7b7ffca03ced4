// The error of a file operation, with MFC's cause numbers. Thrown by value
// (see CException.h); Open reports it through its optional out-parameter
// instead of throwing.
#pragma once

#include "platform/mfc/CException.h"
#include "platform/mfc/CString.h"
#include "platform/mfc/MfcTypes.h"

class CFileException : public CException {
 public:
  enum {
    none = 0,
    genericException = 1,
    fileNotFound = 2,
    badPath = 3,
    tooManyOpenFiles = 4,
    accessDenied = 5,
    invalidFile = 6,
    removeCurrentDir = 7,
    directoryFull = 8,
    badSeek = 9,
    hardIO = 10,
    sharingViolation = 11,
    lockViolation = 12,
    diskFull = 13,
    endOfFile = 14,
  };

  explicit CFileException(int cause = none, LONG osError = -1, const wchar_t *fileName = nullptr)
      : m_cause(cause), m_lOsError(osError), m_strFileName(fileName) {}

  // The cause for a POSIX errno value.
  static int OsErrorToException(LONG osError);

  bool GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext = nullptr) const override;
  const char *what() const noexcept override;

  int m_cause;
  LONG m_lOsError;  // the errno value, or -1
  CString m_strFileName;
};

// Throws CFileException(cause, osError, fileName).
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = -1, const wchar_t *fileName = nullptr);
