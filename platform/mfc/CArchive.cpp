#include "platform/mfc/CArchive.h"

#include <cstring>
#include <limits>
#include <new>
#include <exception>
#include <string>

#include "platform/windows/TextCodec.h"

namespace {

// The most one Read or Write call of a file takes at a time.
constexpr std::size_t kMaxPiece = std::size_t{1} << 30;

}  // namespace

CArchive::CArchive(CFile *file, UINT mode, int bufferSize, void *)
    : file_(file),
      loading_((mode & load) != 0),
      noFlushOnDelete_((mode & bNoFlushOnDelete) != 0),
      uncaughtAtStart_(std::uncaught_exceptions()),
      buffer_(static_cast<std::size_t>(bufferSize > 0 ? bufferSize : 4096)) {}

CArchive::~CArchive() {
  if (!file_) return;
  if (noFlushOnDelete_ || std::uncaught_exceptions() > uncaughtAtStart_) {
    Abort();
    return;
  }
  try {
    Close();
  } catch (...) {
    // A failed write has marked the file's save as failed; it reports on
    // its own close.
  }
}

void CArchive::RequireFile() const {
  if (!file_) AfxThrowArchiveException(CArchiveException::genericException);
}

ULONGLONG CArchive::GetRemaining() const {
  RequireFile();
  ULONGLONG buffered = end_ - at_;
  ULONGLONG length = file_->GetLength();
  ULONGLONG position = file_->GetPosition();
  return buffered + (length > position ? length - position : 0);
}

UINT CArchive::Read(void *buffer, UINT count) {
  if (!loading_) AfxThrowArchiveException(CArchiveException::writeOnly);
  RequireFile();
  if (count == 0) return 0;
  BYTE *out = static_cast<BYTE *>(buffer);
  std::size_t buffered = end_ - at_;
  if (buffered >= count) {
    std::memcpy(out, buffer_.data() + at_, count);
    at_ += count;
    return count;
  }
  // Refuse a read the stream can't satisfy before taking anything from it.
  if (GetRemaining() < count) AfxThrowArchiveException(CArchiveException::endOfFile);

  std::memcpy(out, buffer_.data() + at_, buffered);
  at_ = end_ = 0;
  std::size_t done = buffered;
  while (done < count) {
    std::size_t left = count - done;
    if (left >= buffer_.size()) {
      UINT n = file_->Read(out + done, static_cast<UINT>(left));
      if (n == 0) AfxThrowArchiveException(CArchiveException::endOfFile);
      done += n;
    } else {
      UINT n = file_->Read(buffer_.data(), static_cast<UINT>(buffer_.size()));
      if (n == 0) AfxThrowArchiveException(CArchiveException::endOfFile);
      end_ = n;
      std::size_t take = n < left ? n : left;
      std::memcpy(out + done, buffer_.data(), take);
      at_ = take;
      done += take;
    }
  }
  return count;
}

void CArchive::WriteBuffer() {
  std::size_t n = at_;
  // Emptied first: a failed write is not tried again by a later flush.
  at_ = 0;
  if (n > 0) file_->Write(buffer_.data(), static_cast<UINT>(n));
}

void CArchive::Write(const void *buffer, UINT count) {
  if (loading_) AfxThrowArchiveException(CArchiveException::readOnly);
  RequireFile();
  if (count == 0) return;
  if (count <= buffer_.size() - at_) {
    std::memcpy(buffer_.data() + at_, buffer, count);
    at_ += count;
    return;
  }
  WriteBuffer();
  if (count >= buffer_.size()) {
    file_->Write(buffer, count);
  } else {
    std::memcpy(buffer_.data(), buffer, count);
    at_ = count;
  }
}

void CArchive::Flush() {
  RequireFile();
  if (loading_) {
    std::size_t unread = end_ - at_;
    at_ = end_ = 0;
    if (unread > 0) file_->Seek(-static_cast<LONGLONG>(unread), CFile::current);
  } else {
    WriteBuffer();
  }
}

void CArchive::Close() {
  if (!file_) return;
  Flush();
  file_ = nullptr;
}

void CArchive::Abort() {
  file_ = nullptr;
  at_ = end_ = 0;
}

CArchive &CArchive::operator<<(float value) {
  std::uint32_t bits;
  static_assert(sizeof bits == sizeof value);
  std::memcpy(&bits, &value, sizeof bits);
  return WriteValue(bits);
}

CArchive &CArchive::operator<<(double value) {
  std::uint64_t bits;
  static_assert(sizeof bits == sizeof value);
  std::memcpy(&bits, &value, sizeof bits);
  return WriteValue(bits);
}

CArchive &CArchive::operator>>(float &value) {
  std::uint32_t bits;
  ReadValue(bits);
  std::memcpy(&value, &bits, sizeof value);
  return *this;
}

CArchive &CArchive::operator>>(double &value) {
  std::uint64_t bits;
  ReadValue(bits);
  std::memcpy(&value, &bits, sizeof value);
  return *this;
}

void AfxWriteStringLength(CArchive &ar, ULONGLONG length, bool unicode) {
  if (unicode) {
    ar << BYTE(0xFF);
    ar << WORD(0xFFFE);
  }
  if (length < 0xFF) {
    ar << static_cast<BYTE>(length);
    return;
  }
  ar << BYTE(0xFF);
  if (length < 0xFFFE) {
    ar << static_cast<WORD>(length);
    return;
  }
  ar << WORD(0xFFFF);
  if (length < 0xFFFFFFFFu) {
    ar << static_cast<DWORD>(length);
    return;
  }
  ar << DWORD(0xFFFFFFFFu);
  ar << length;
}

ULONGLONG AfxReadStringLength(CArchive &ar, int &charSize) {
  charSize = 1;
  BYTE byteLength;
  ar >> byteLength;
  if (byteLength < 0xFF) return byteLength;
  WORD wordLength;
  ar >> wordLength;
  if (wordLength == 0xFFFE) {
    // The wide marker; the length follows in the same steps.
    charSize = 2;
    ar >> byteLength;
    if (byteLength < 0xFF) return byteLength;
    ar >> wordLength;
  }
  if (wordLength < 0xFFFF) return wordLength;
  DWORD dwordLength;
  ar >> dwordLength;
  if (dwordLength < 0xFFFFFFFFu) return dwordLength;
  ULONGLONG longLength;
  ar >> longLength;
  return longLength;
}

CArchive &operator<<(CArchive &ar, const CString &text) {
  std::u16string units = tolv::ToUtf16(text.view());
  AfxWriteStringLength(ar, units.size(), true);
  // The units go out little-endian through a small buffer on the stack.
  constexpr std::size_t kChunkUnits = 1024;
  BYTE chunk[2 * kChunkUnits];
  for (std::size_t done = 0; done < units.size();) {
    const std::size_t n = units.size() - done < kChunkUnits ? units.size() - done : kChunkUnits;
    for (std::size_t i = 0; i < n; ++i) {
      chunk[2 * i] = static_cast<BYTE>(units[done + i] & 0xFF);
      chunk[2 * i + 1] = static_cast<BYTE>(units[done + i] >> 8);
    }
    ar.Write(chunk, static_cast<UINT>(2 * n));
    done += n;
  }
  return ar;
}

CArchive &operator<<(CArchive &ar, const wchar_t *text) { return ar << CString(text); }

namespace {

// Puts the little-endian UTF-16 units of `bytes` into the string, decoded
// straight into its own buffer: a pair of surrogates makes one character,
// any other unit one, as tolv::FromUtf16 reads them. Names and values are
// read by the hundred thousand, so no text in between is built, and a
// string that already has a buffer of its own large enough keeps it.
void AssignUtf16Bytes(CString &text, const BYTE *bytes, std::size_t units) {
  if (units >= static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  wchar_t *out = text.GetBuffer(static_cast<int>(units));
  std::size_t written = 0;
  for (std::size_t i = 0; i < units; ++i) {
    const char32_t u = bytes[2 * i] | (static_cast<char32_t>(bytes[2 * i + 1]) << 8);
    if (tolv::IsHighSurrogate(u) && i + 1 < units) {
      const char32_t next = bytes[2 * i + 2] | (static_cast<char32_t>(bytes[2 * i + 3]) << 8);
      if (tolv::IsLowSurrogate(next)) {
        out[written++] = tolv::JoinSurrogates(u, next);
        ++i;
        continue;
      }
    }
    out[written++] = static_cast<wchar_t>(u);
  }
  text.ReleaseBuffer(static_cast<int>(written));
}

void AssignFromBytes(CString &text, const BYTE *bytes, std::size_t length, int charSize) {
  if (charSize == 1) {
    text = CString(tolv::FromGbk(std::string_view(reinterpret_cast<const char *>(bytes), length)));
    return;
  }
  AssignUtf16Bytes(text, bytes, length);
}

}  // namespace

CArchive &operator>>(CArchive &ar, CString &text) {
  int charSize = 1;
  ULONGLONG length = AfxReadStringLength(ar, charSize);
  if (length == 0) {
    text.Empty();
    return ar;
  }
  // A string that lies whole in the buffer, as nearly every one does, is
  // decoded from there: the stream plainly holds it, and asking the file
  // how much is left would cost two system calls per string.
  const ULONGLONG buffered = ar.end_ - ar.at_;
  if (length <= buffered / static_cast<ULONGLONG>(charSize)) {
    const BYTE *bytes = ar.buffer_.data() + ar.at_;
    AssignFromBytes(text, bytes, static_cast<std::size_t>(length), charSize);
    ar.at_ += static_cast<std::size_t>(length) * static_cast<std::size_t>(charSize);
    return ar;
  }
  // Checked before anything is allocated for it.
  if (length > ar.GetRemaining() / static_cast<ULONGLONG>(charSize))
    AfxThrowArchiveException(CArchiveException::endOfFile);

  std::string bytes(static_cast<std::size_t>(length) * static_cast<std::size_t>(charSize), '\0');
  for (std::size_t done = 0; done < bytes.size();) {
    std::size_t n = bytes.size() - done < kMaxPiece ? bytes.size() - done : kMaxPiece;
    ar.Read(bytes.data() + done, static_cast<UINT>(n));
    done += n;
  }
  AssignFromBytes(text, reinterpret_cast<const BYTE *>(bytes.data()), static_cast<std::size_t>(length), charSize);
  return ar;
}
