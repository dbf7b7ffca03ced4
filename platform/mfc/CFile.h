// MFC's unbuffered binary file, on a POSIX descriptor.
//
// Paths are the system's (backslashes, drive letters) and go through
// tolv::MapPath on every disk access.
//
// Saving never loses the old file. A file opened with modeCreate is built in
// a temporary file beside the target, which replaces the target by rename
// when Close succeeds. If a write fails, if Close fails, if Abort is called
// or if the object dies while an exception unwinds past it, the temporary is
// removed and the old file stays as it was. With modeNoTruncate the old
// content is copied into the temporary first. A read-only target is refused
// (accessDenied), as on the home platform. Opening an existing file for
// writing without modeCreate edits it in place.
//
// Errors of Open give false (and fill the optional CFileException); errors
// of the other operations throw CFileException by value. A write beyond the
// process's file-size limit fails with diskFull instead of raising SIGXFSZ.
#pragma once

#include <string>

#include "platform/mfc/CFileException.h"
#include "platform/mfc/CString.h"
#include "platform/mfc/MfcTypes.h"

class CFile {
 public:
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,
    modeCreate = 0x1000,
    modeNoTruncate = 0x2000,
    typeText = 0x4000,
    typeBinary = 0x8000,
    osNoBuffer = 0x10000,
    osWriteThrough = 0x20000,
    osRandomAccess = 0x40000,
    osSequentialScan = 0x80000,
  };
  enum SeekPosition : UINT { begin = 0x0, current = 0x1, end = 0x2 };

  CFile();
  // Opens at once; throws CFileException when Open would give false.
  CFile(const wchar_t *fileName, UINT openFlags);
  // An open file is closed: committed in the normal flow (errors are then
  // swallowed, as a destructor can't report them), discarded when an
  // exception is unwinding past the object or a write has failed.
  virtual ~CFile();
  CFile(const CFile &) = delete;
  CFile &operator=(const CFile &) = delete;

  // Sharing flags, typeText/typeBinary and the os* hints are accepted and
  // have no effect. An open file is closed first.
  virtual bool Open(const wchar_t *fileName, UINT openFlags, CFileException *error = nullptr);

  // Bytes read; fewer than `count` only at the end of the file.
  virtual UINT Read(void *buffer, UINT count);
  virtual void Write(const void *buffer, UINT count);
  // The new position from the start. A position before the start throws
  // badSeek; one past the end is allowed, as on the home platform.
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  void SeekToBegin() { Seek(0, begin); }
  ULONGLONG SeekToEnd() { return Seek(0, end); }
  virtual ULONGLONG GetLength() const;
  virtual void SetLength(ULONGLONG newLength);
  virtual ULONGLONG GetPosition() const;
  // Puts the written bytes on the disk.
  virtual void Flush();
  // Closes; for a file opened with modeCreate this is when the target is
  // replaced. Does nothing on a closed file.
  virtual void Close();
  // Closes without reporting errors; a save in progress is abandoned.
  virtual void Abort();

  // The path as given to Open, and its last component.
  virtual CString GetFilePath() const;
  virtual CString GetFileName() const;

  // Whether the file can be used; a memory file always can.
  virtual bool IsOpen() const { return fd_ >= 0; }

 protected:
  // Throws CFileException for the errno value `osError` on this file.
  [[noreturn]] void ThrowOsError(int osError) const;
  // Throws when the file is not open.
  void RequireOpen() const;

 private:
  // Remembers that a save can no longer succeed, then throws.
  [[noreturn]] void FailWrite(int osError);
  void ResetState();
  // Closes the descriptor and, for a save, removes the temporary file.
  void Discard() noexcept;

  int fd_ = -1;
  bool readable_ = false;
  bool writable_ = false;
  CString path_;            // as given to Open
  std::string target_;      // the POSIX path of a save's target
  std::string temporary_;   // the POSIX path of a save's temporary; empty if none
  int failedCause_ = 0;     // set when a write of a save has failed
  int failedOsError_ = -1;
  int uncaughtAtOpen_ = 0;  // std::uncaught_exceptions() when opened
};
