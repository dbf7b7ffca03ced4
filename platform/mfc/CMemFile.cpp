#include "platform/mfc/CMemFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace {

// Keeps every size and position representable as a signed file offset.
constexpr std::size_t kMaxSize = static_cast<std::size_t>(std::numeric_limits<long long>::max() / 2);

}  // namespace

CMemFile::CMemFile(UINT growBytes) : growBytes_(growBytes) {}

CMemFile::CMemFile(BYTE *buffer, UINT bufferSize, UINT growBytes) { Attach(buffer, bufferSize, growBytes); }

CMemFile::~CMemFile() { Release(); }

void CMemFile::Release() noexcept {
  if (owned_) std::free(buffer_);
  buffer_ = nullptr;
  capacity_ = size_ = position_ = 0;
  owned_ = true;
}

void CMemFile::Attach(BYTE *buffer, UINT bufferSize, UINT growBytes) {
  Release();
  buffer_ = buffer;
  capacity_ = buffer ? bufferSize : 0;
  growBytes_ = growBytes;
  size_ = growBytes == 0 ? capacity_ : 0;
  position_ = 0;
  owned_ = growBytes != 0;
}

BYTE *CMemFile::Detach() {
  BYTE *buffer = buffer_;
  buffer_ = nullptr;
  capacity_ = size_ = position_ = 0;
  owned_ = true;
  if (growBytes_ == 0) growBytes_ = 1024;
  return buffer;
}

bool CMemFile::Open(const wchar_t *fileName, UINT, CFileException *error) {
  if (error) {
    error->m_cause = CFileException::genericException;
    error->m_lOsError = -1;
    error->m_strFileName = fileName;
  }
  return false;
}

void CMemFile::Reserve(std::size_t size) {
  if (size <= capacity_) return;
  if (growBytes_ == 0 || !owned_ || size > kMaxSize) throw CFileException(CFileException::diskFull, ENOSPC);
  // Double, to keep a long run of small writes linear, in whole growth steps.
  std::size_t wanted = capacity_ * 2 > size ? capacity_ * 2 : size;
  if (wanted > kMaxSize) wanted = size;
  std::size_t rounded = (wanted + growBytes_ - 1) / growBytes_ * growBytes_;
  if (rounded >= wanted) wanted = rounded;
  void *grown = std::realloc(buffer_, wanted);
  if (!grown) throw std::bad_alloc();
  buffer_ = static_cast<BYTE *>(grown);
  capacity_ = wanted;
}

UINT CMemFile::Read(void *buffer, UINT count) {
  if (position_ >= size_ || count == 0) return 0;
  std::size_t n = size_ - position_;
  if (n > count) n = count;
  std::memcpy(buffer, buffer_ + position_, n);
  position_ += n;
  return static_cast<UINT>(n);
}

void CMemFile::Write(const void *buffer, UINT count) {
  if (count == 0) return;
  if (position_ > kMaxSize - count) throw CFileException(CFileException::diskFull, EFBIG);
  std::size_t end = position_ + count;
  Reserve(end);
  // A write after a seek past the end leaves zeros in the gap.
  if (position_ > size_) std::memset(buffer_ + size_, 0, position_ - size_);
  std::memcpy(buffer_ + position_, buffer, count);
  position_ = end;
  if (end > size_) size_ = end;
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from) {
  long long base = from == begin ? 0
                   : from == current ? static_cast<long long>(position_)
                   : from == end ? static_cast<long long>(size_)
                                 : -1;
  if (base < 0) throw CFileException(CFileException::badSeek, EINVAL);
  long long at = 0;
  if (__builtin_add_overflow(base, offset, &at) || at < 0 || static_cast<unsigned long long>(at) > kMaxSize)
    throw CFileException(CFileException::badSeek, EINVAL);
  position_ = static_cast<std::size_t>(at);
  return static_cast<ULONGLONG>(at);
}

ULONGLONG CMemFile::GetLength() const { return size_; }

void CMemFile::SetLength(ULONGLONG newLength) {
  if (newLength > kMaxSize) throw CFileException(CFileException::diskFull, EFBIG);
  std::size_t length = static_cast<std::size_t>(newLength);
  Reserve(length);
  if (length > size_) std::memset(buffer_ + size_, 0, length - size_);
  size_ = length;
  if (position_ > size_) position_ = size_;
}

ULONGLONG CMemFile::GetPosition() const { return position_; }

void CMemFile::Close() {
  bool keepGrowing = growBytes_ != 0;
  Release();
  if (!keepGrowing) growBytes_ = 1024;
}
