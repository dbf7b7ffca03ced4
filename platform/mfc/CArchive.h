// MFC's archive: a buffered binary stream over a CFile, storing or loading.
//
// The bytes are MFC's: integers little-endian in their natural widths
// (int, unsigned and LONG 4 bytes, short and WORD 2, char and BYTE 1,
// long long 8), float and double IEEE 754 in 4 and 8 bytes, wchar_t as one
// UTF-16 unit, CString as the wide form with its 0xFF 0xFE 0xFF marker and
// stepped length. The buffer size only decides how often the file is
// written; it never changes the bytes.
//
// `long` is 64 bits here but 32 on the home platform, and a bool has no
// single width in the system's streams; both are refused at compile time so
// that every caller names the width it means (std::int32_t, BYTE, ...).
//
// Errors throw CArchiveException by value:
//  - readOnly (2) for a write to a loading archive, writeOnly (4) for a read
//    from a storing one;
//  - endOfFile (3) when the stream ends before the value. A length read from
//    the stream is checked against the bytes left in the file before any
//    memory is taken for it, so a hostile length costs nothing.
// Errors of the file (CFileException) pass through.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/mfc/CArchiveException.h"
#include "platform/mfc/CFile.h"
#include "platform/mfc/CString.h"
#include "platform/mfc/MfcTypes.h"

class CArchive {
 public:
  enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

  // `buffer` is accepted for the signature's sake; the archive keeps its
  // own buffer of `bufferSize` bytes.
  CArchive(CFile *file, UINT mode, int bufferSize = 4096, void *buffer = nullptr);
  // Closes the archive (a storing one writes its buffer out) unless
  // bNoFlushOnDelete was given, or an exception is unwinding past it, in
  // which case the buffer is dropped. Errors can't leave a destructor and are
  // swallowed; a CFile save whose write failed is discarded on its own close.
  ~CArchive();
  CArchive(const CArchive &) = delete;
  CArchive &operator=(const CArchive &) = delete;

  bool IsLoading() const { return loading_; }
  bool IsStoring() const { return !loading_; }
  bool IsByteSwapping() const { return false; }
  bool IsBufferEmpty() const { return at_ == end_; }
  CFile *GetFile() const { return file_; }

  // Reads exactly `count` bytes or throws endOfFile; gives `count`.
  UINT Read(void *buffer, UINT count);
  void Write(const void *buffer, UINT count);
  // Storing: writes the buffer to the file. Loading: hands unread buffered
  // bytes back, so that the file stands right behind the last value read.
  void Flush();
  // Flushes and lets go of the file, which stays open.
  void Close();
  // Lets go of the file without flushing.
  void Abort();

  // The bytes a load may still take: buffered plus left in the file.
  ULONGLONG GetRemaining() const;

  CArchive &operator<<(BYTE value) { return WriteValue(value); }
  CArchive &operator<<(char value) { return WriteValue(static_cast<BYTE>(value)); }
  CArchive &operator<<(signed char value) { return WriteValue(static_cast<BYTE>(value)); }
  CArchive &operator<<(WORD value) { return WriteValue(value); }
  CArchive &operator<<(short value) { return WriteValue(static_cast<WORD>(value)); }
  CArchive &operator<<(wchar_t value) { return WriteValue(static_cast<WORD>(value)); }
  CArchive &operator<<(char16_t value) { return WriteValue(static_cast<WORD>(value)); }
  CArchive &operator<<(int value) { return WriteValue(static_cast<DWORD>(value)); }
  CArchive &operator<<(unsigned value) { return WriteValue(static_cast<DWORD>(value)); }
  CArchive &operator<<(long long value) { return WriteValue(static_cast<ULONGLONG>(value)); }
  CArchive &operator<<(unsigned long long value) { return WriteValue(value); }
  CArchive &operator<<(float value);
  CArchive &operator<<(double value);
  CArchive &operator<<(long) = delete;
  CArchive &operator<<(unsigned long) = delete;
  CArchive &operator<<(bool) = delete;

  CArchive &operator>>(BYTE &value) { return ReadValue(value); }
  CArchive &operator>>(char &value) { return ReadAs<BYTE>(value); }
  CArchive &operator>>(signed char &value) { return ReadAs<BYTE>(value); }
  CArchive &operator>>(WORD &value) { return ReadValue(value); }
  CArchive &operator>>(short &value) { return ReadAs<WORD>(value); }
  CArchive &operator>>(wchar_t &value) { return ReadAs<WORD>(value); }
  CArchive &operator>>(char16_t &value) { return ReadAs<WORD>(value); }
  CArchive &operator>>(int &value) { return ReadAs<DWORD>(value); }
  CArchive &operator>>(unsigned &value) { return ReadValue(value); }
  CArchive &operator>>(long long &value) { return ReadAs<ULONGLONG>(value); }
  CArchive &operator>>(unsigned long long &value) { return ReadValue(value); }
  CArchive &operator>>(float &value);
  CArchive &operator>>(double &value);
  CArchive &operator>>(long &) = delete;
  CArchive &operator>>(unsigned long &) = delete;
  CArchive &operator>>(bool &) = delete;

 private:
  template <typename T>
  CArchive &WriteValue(T value) {
    BYTE bytes[sizeof(T)];
    for (std::size_t i = 0; i < sizeof(T); ++i) bytes[i] = static_cast<BYTE>(value >> (8 * i));
    Write(bytes, sizeof(T));
    return *this;
  }
  template <typename T>
  CArchive &ReadValue(T &value) {
    BYTE bytes[sizeof(T)];
    Read(bytes, sizeof(T));
    T v = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) v = static_cast<T>(v | (static_cast<T>(bytes[i]) << (8 * i)));
    value = v;
    return *this;
  }
  template <typename Wire, typename T>
  CArchive &ReadAs(T &value) {
    Wire wire;
    ReadValue(wire);
    value = static_cast<T>(wire);
    return *this;
  }

  void RequireFile() const;
  void WriteBuffer();
  // Decodes strings straight from the buffer.
  friend CArchive &operator>>(CArchive &ar, CString &text);

  CFile *file_;
  bool loading_;
  bool noFlushOnDelete_;
  int uncaughtAtStart_;
  std::vector<BYTE> buffer_;
  std::size_t at_ = 0;   // next byte to take (load) or to fill (store)
  std::size_t end_ = 0;  // end of the loaded bytes (load)
};

// The wide string form: marker, stepped length in UTF-16 units, the units.
CArchive &operator<<(CArchive &ar, const CString &text);
CArchive &operator<<(CArchive &ar, const wchar_t *text);
// Reads the wide form or the narrow one (no marker; the bytes are code page
// 936). Throws endOfFile if the length is more than the stream holds.
CArchive &operator>>(CArchive &ar, CString &text);

// Writes the marker (for `unicode`) and the stepped length.
void AfxWriteStringLength(CArchive &ar, ULONGLONG length, bool unicode);
// Reads a marker if there is one and the stepped length; `charSize` becomes 2
// for the wide form, 1 for the narrow one.
ULONGLONG AfxReadStringLength(CArchive &ar, int &charSize);
