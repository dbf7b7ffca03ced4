#include "platform/mfc/CStdioFile.h"

#include <cstring>

#include "platform/windows/TextCodec.h"

namespace {

constexpr std::size_t kChunk = 1 << 16;
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

}  // namespace

CStdioFile::CStdioFile(const wchar_t *fileName, UINT openFlags) {
  CFileException error;
  if (!Open(fileName, openFlags, &error)) throw error;
}

bool CStdioFile::Open(const wchar_t *fileName, UINT openFlags, CFileException *error) {
  ahead_.clear();
  aheadAt_ = 0;
  text_ = (openFlags & typeBinary) == 0;
  return CFile::Open(fileName, openFlags, error);
}

void CStdioFile::DropReadAhead() {
  std::size_t unread = Unread();
  ahead_.clear();
  aheadAt_ = 0;
  if (unread > 0) CFile::Seek(-static_cast<LONGLONG>(unread), current);
}

bool CStdioFile::Fill() {
  if (aheadAt_ > 0) {
    ahead_.erase(0, aheadAt_);
    aheadAt_ = 0;
  }
  std::size_t had = ahead_.size();
  ahead_.resize(had + kChunk);
  UINT n = CFile::Read(ahead_.data() + had, static_cast<UINT>(kChunk));
  ahead_.resize(had + n);
  return n > 0;
}

bool CStdioFile::ReadString(CString &line) {
  RequireOpen();
  if (GetPosition() == 0) {
    while (Unread() < 3 && Fill()) {
    }
    if (Unread() >= 3 && std::memcmp(ahead_.data() + aheadAt_, kByteOrderMark, 3) == 0) aheadAt_ += 3;
  }

  std::string bytes;
  bool any = false;
  for (;;) {
    if (Unread() == 0 && !Fill()) break;
    any = true;
    const char *start = ahead_.data() + aheadAt_;
    const void *newline = std::memchr(start, '\n', Unread());
    if (newline) {
      std::size_t n = static_cast<const char *>(newline) - start;
      bytes.append(start, n);
      aheadAt_ += n + 1;
      if (!bytes.empty() && bytes.back() == '\r') bytes.pop_back();
      line = CString(tolv::FromUtf8(bytes));
      return true;
    }
    bytes.append(start, Unread());
    aheadAt_ = ahead_.size();
  }
  if (!any) {
    line.Empty();
    return false;
  }
  line = CString(tolv::FromUtf8(bytes));
  return true;
}

void CStdioFile::WriteString(const wchar_t *text) {
  if (!text) return;
  std::string bytes = tolv::ToUtf8(text);
  if (text_) {
    std::string translated;
    translated.reserve(bytes.size() + bytes.size() / 16);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r')) translated += '\r';
      translated += bytes[i];
    }
    bytes.swap(translated);
  }
  // Written in pieces a 32-bit count can carry.
  std::size_t done = 0;
  while (done < bytes.size()) {
    std::size_t n = bytes.size() - done;
    if (n > (1u << 30)) n = 1u << 30;
    Write(bytes.data() + done, static_cast<UINT>(n));
    done += n;
  }
}

UINT CStdioFile::Read(void *buffer, UINT count) {
  RequireOpen();
  std::size_t fromAhead = Unread() < count ? Unread() : count;
  if (fromAhead > 0) {
    std::memcpy(buffer, ahead_.data() + aheadAt_, fromAhead);
    aheadAt_ += fromAhead;
  }
  if (fromAhead == count) return count;
  return static_cast<UINT>(fromAhead) +
         CFile::Read(static_cast<char *>(buffer) + fromAhead, count - static_cast<UINT>(fromAhead));
}

void CStdioFile::Write(const void *buffer, UINT count) {
  RequireOpen();
  DropReadAhead();
  CFile::Write(buffer, count);
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from) {
  RequireOpen();
  DropReadAhead();
  return CFile::Seek(offset, from);
}

ULONGLONG CStdioFile::GetPosition() const { return CFile::GetPosition() - Unread(); }

void CStdioFile::SetLength(ULONGLONG newLength) {
  RequireOpen();
  DropReadAhead();
  CFile::SetLength(newLength);
}

void CStdioFile::Close() {
  ahead_.clear();
  aheadAt_ = 0;
  CFile::Close();
}

void CStdioFile::Abort() {
  ahead_.clear();
  aheadAt_ = 0;
  CFile::Abort();
}
