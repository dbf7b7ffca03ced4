// The error of an archive, with MFC's cause numbers. Thrown by value (see
// CException.h): catch `const CArchiveException &` and look at m_cause.
#pragma once

#include "platform/mfc/CException.h"
#include "platform/mfc/CString.h"

class CArchiveException : public CException {
 public:
  enum {
    none = 0,
    genericException = 1,
    readOnly = 2,   // a write to a loading archive
    endOfFile = 3,  // the stream ended before the value did
    writeOnly = 4,  // a read from a storing archive
    badIndex = 5,
    badClass = 6,
    badSchema = 7,
  };

  explicit CArchiveException(int cause = none, const wchar_t *fileName = nullptr)
      : m_cause(cause), m_strFileName(fileName) {}

  bool GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext = nullptr) const override;
  const char *what() const noexcept override;

  int m_cause;
  CString m_strFileName;
};

// Throws CArchiveException(cause, fileName).
[[noreturn]] void AfxThrowArchiveException(int cause, const wchar_t *fileName = nullptr);
