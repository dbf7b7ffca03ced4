// MFC's file in memory. The memory comes from malloc, so a buffer handed out
// by Detach is released with free().
//
// A memory file made with a growth step owns its buffer and grows it as
// writes need. Attach takes a caller's buffer:
//  - with a growth step of 0 the buffer is used as it is, at its full size,
//    and is never grown or freed; a write past its end throws
//    CFileException diskFull;
//  - with a growth step above 0 the buffer must come from malloc; the file
//    starts empty, takes the buffer over and reallocates and frees it.
#pragma once

#include <cstddef>

#include "platform/mfc/CFile.h"

class CMemFile : public CFile {
 public:
  explicit CMemFile(UINT growBytes = 1024);
  CMemFile(BYTE *buffer, UINT bufferSize, UINT growBytes = 0);
  ~CMemFile() override;

  void Attach(BYTE *buffer, UINT bufferSize, UINT growBytes = 0);
  // Gives the buffer to the caller (who frees it with free()) and leaves the
  // file empty. Read GetLength first: the buffer may be larger than the data.
  BYTE *Detach();

  // A memory file has no name on the disk.
  bool Open(const wchar_t *fileName, UINT openFlags, CFileException *error = nullptr) override;
  UINT Read(void *buffer, UINT count) override;
  void Write(const void *buffer, UINT count) override;
  ULONGLONG Seek(LONGLONG offset, UINT from) override;
  ULONGLONG GetLength() const override;
  void SetLength(ULONGLONG newLength) override;
  ULONGLONG GetPosition() const override;
  void Flush() override {}
  // Releases an owned buffer and empties the file.
  void Close() override;
  void Abort() override { Close(); }
  bool IsOpen() const override { return true; }

 private:
  // Makes room for `size` bytes; the bytes between the old and new size are
  // zeroed by the caller.
  void Reserve(std::size_t size);
  void Release() noexcept;

  BYTE *buffer_ = nullptr;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
  std::size_t position_ = 0;
  std::size_t growBytes_ = 1024;
  bool owned_ = true;
};
