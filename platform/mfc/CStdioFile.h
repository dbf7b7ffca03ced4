// MFC's text file: lines of UTF-8 text.
//
// ReadString skips a UTF-8 byte-order mark at the start of the file and
// takes LF and CR LF as line ends (the end is not part of the line).
// WriteString writes UTF-8 without a byte-order mark; unless the file was
// opened with typeBinary, a "\n" not already preceded by "\r" is written as
// CR LF, as text files are on the home platform.
//
// Opening, saving and errors are those of CFile, from which this derives.
#pragma once

#include <string>

#include "platform/mfc/CFile.h"
#include "platform/mfc/CString.h"

class CStdioFile : public CFile {
 public:
  CStdioFile() = default;
  // Opens at once; throws CFileException when Open would give false.
  CStdioFile(const wchar_t *fileName, UINT openFlags);

  bool Open(const wchar_t *fileName, UINT openFlags, CFileException *error = nullptr) override;

  // The next line without its end; false at the end of the file when no
  // character is left. Invalid UTF-8 reads as U+FFFD.
  virtual bool ReadString(CString &line);
  virtual void WriteString(const wchar_t *text);

  UINT Read(void *buffer, UINT count) override;
  void Write(const void *buffer, UINT count) override;
  ULONGLONG Seek(LONGLONG offset, UINT from) override;
  ULONGLONG GetPosition() const override;
  void SetLength(ULONGLONG newLength) override;
  void Close() override;
  void Abort() override;

 private:
  // Hands the read-ahead back to the file, so that its position is ours.
  void DropReadAhead();
  // Tops up the read-ahead; false at the end of the file.
  bool Fill();
  std::size_t Unread() const { return ahead_.size() - aheadAt_; }

  std::string ahead_;       // bytes read from the file and not yet taken
  std::size_t aheadAt_ = 0;
  bool text_ = true;        // false for typeBinary
};
