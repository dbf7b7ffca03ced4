// Root of the MFC exception family.
//
// MFC throws heap pointers (`throw new CFileException`) that the catcher must
// Delete(). Here every exception is thrown BY VALUE and caught by reference:
//
//   try { ... } catch (const CArchiveException &e) { ... e.m_cause ... }
//
// Deriving from std::exception lets code that knows nothing of MFC still
// catch and report them.
#pragma once

#include <exception>
#include <string>

class CException : public std::exception {
 public:
  CException() = default;
  ~CException() override = default;

  // Writes a readable text of the error into `text` (at most `maxChars`
  // characters with the terminator). False if there is no text to give.
  virtual bool GetErrorMessage(wchar_t *text, unsigned maxChars, unsigned *helpContext = nullptr) const;

  // Kept for code written in MFC's style; a thrown value needs no deletion.
  void Delete() {}

  const char *what() const noexcept override { return "MFC exception"; }

 protected:
  // Copies `message` into the caller's buffer, cut to fit; false if there is
  // no room at all.
  static bool CopyMessage(const std::wstring &message, wchar_t *text, unsigned maxChars);
};
