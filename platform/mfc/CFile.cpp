#include "platform/mfc/CFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <climits>
#include <cstdlib>
#include <exception>
#include <vector>

#include "platform/windows/PathMap.h"

namespace {

// A write past the process's file-size limit must fail with an error, not
// kill the host. A handler someone else installed is left alone.
void IgnoreFileSizeSignal() {
  static const bool done = [] {
    struct sigaction old {};
    if (::sigaction(SIGXFSZ, nullptr, &old) == 0 && old.sa_handler == SIG_DFL) std::signal(SIGXFSZ, SIG_IGN);
    return true;
  }();
  (void)done;
}

std::string FolderOf(const std::string &path) {
  std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

std::string NameOf(const std::string &path) {
  std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// A save through a symbolic link replaces the file it points at, not the link.
std::string ResolveLink(const std::string &path) {
  struct stat st;
  if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
  char *real = ::realpath(path.c_str(), nullptr);
  if (!real) return path;
  std::string resolved = real;
  std::free(real);
  return resolved;
}

// errno of the first failure, 0 on success.
int WriteAll(int fd, const char *p, std::size_t left) {
  while (left > 0) {
    ssize_t n = ::write(fd, p, left);
    if (n < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    if (n == 0) return ENOSPC;
    p += n;
    left -= static_cast<std::size_t>(n);
  }
  return 0;
}

int CopyContent(int from, int to) {
  std::vector<char> buffer(1 << 16);
  for (;;) {
    ssize_t n = ::read(from, buffer.data(), buffer.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    if (n == 0) return 0;
    if (int err = WriteAll(to, buffer.data(), static_cast<std::size_t>(n))) return err;
  }
}

}  // namespace

CFile::CFile() = default;

CFile::CFile(const wchar_t *fileName, UINT openFlags) {
  CFileException error;
  if (!Open(fileName, openFlags, &error)) throw error;
}

CFile::~CFile() {
  if (fd_ < 0) return;
  if (failedCause_ != 0 || std::uncaught_exceptions() > uncaughtAtOpen_) {
    Discard();
    return;
  }
  try {
    CFile::Close();
  } catch (...) {
    // Close has already removed the temporary; the old file stands.
  }
}

void CFile::ResetState() {
  fd_ = -1;
  readable_ = writable_ = false;
  path_.Empty();
  target_.clear();
  temporary_.clear();
  failedCause_ = 0;
  failedOsError_ = -1;
  uncaughtAtOpen_ = 0;
}

void CFile::Discard() noexcept {
  if (fd_ >= 0) ::close(fd_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
  ResetState();
}

bool CFile::Open(const wchar_t *fileName, UINT openFlags, CFileException *error) {
  if (fd_ >= 0) {
    try {
      CFile::Close();
    } catch (const CFileException &e) {
      if (error) *error = e;
      return false;
    }
  }
  ResetState();

  auto fail = [&](int cause, int osError) {
    if (error) {
      error->m_cause = cause;
      error->m_lOsError = osError;
      error->m_strFileName = fileName;
    }
    return false;
  };
  auto failOs = [&](int osError) { return fail(CFileException::OsErrorToException(osError), osError); };

  if (!fileName || !*fileName) return fail(CFileException::badPath, -1);
  UINT access = openFlags & 0x3;
  if (access == 0x3) return fail(CFileException::badPath, EINVAL);
  bool readable = access != modeWrite;
  bool writable = access != modeRead;
  std::string posix = tolv::MapPath(fileName);
  if (posix.empty()) return fail(CFileException::badPath, -1);

  int fd = -1;
  std::string target, temporary;
  if (openFlags & modeCreate) {
    IgnoreFileSizeSignal();
    target = ResolveLink(posix);
    struct stat st;
    bool exists = ::stat(target.c_str(), &st) == 0;
    if (exists && S_ISDIR(st.st_mode)) return failOs(EISDIR);
    // A read-only file is not replaced, as the home platform refuses to
    // open one for writing.
    if (exists && ::access(target.c_str(), W_OK) != 0) return failOs(errno);

    std::string pattern = FolderOf(target) + "/." + NameOf(target) + ".tmpXXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    fd = ::mkostemp(name.data(), O_CLOEXEC);
    if (fd < 0) return failOs(errno);
    temporary = name.data();

    // The new file keeps the old one's permissions, or gets the usual ones.
    mode_t mode;
    if (exists) {
      mode = st.st_mode & 07777;
    } else {
      mode_t mask = ::umask(0);
      ::umask(mask);
      mode = 0666 & ~mask;
    }
    ::fchmod(fd, mode);

    if ((openFlags & modeNoTruncate) && exists) {
      int old = ::open(target.c_str(), O_RDONLY | O_CLOEXEC);
      int err = old < 0 ? errno : CopyContent(old, fd);
      if (old >= 0) ::close(old);
      if (err == 0 && ::lseek(fd, 0, SEEK_SET) < 0) err = errno;
      if (err != 0) {
        ::close(fd);
        ::unlink(temporary.c_str());
        return failOs(err);
      }
    }
  } else {
    if (writable) IgnoreFileSizeSignal();
    int flags = (access == modeRead ? O_RDONLY : access == modeWrite ? O_WRONLY : O_RDWR) | O_CLOEXEC;
    fd = ::open(posix.c_str(), flags);
    if (fd < 0) return failOs(errno);
    struct stat st;
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
      ::close(fd);
      return failOs(EISDIR);
    }
  }

  fd_ = fd;
  readable_ = readable;
  writable_ = writable;
  path_ = fileName;
  target_ = std::move(target);
  temporary_ = std::move(temporary);
  uncaughtAtOpen_ = std::uncaught_exceptions();
  return true;
}

void CFile::ThrowOsError(int osError) const {
  throw CFileException(CFileException::OsErrorToException(osError), osError, path_.GetString());
}

void CFile::RequireOpen() const {
  if (fd_ < 0) throw CFileException(CFileException::invalidFile, -1, path_.GetString());
}

void CFile::FailWrite(int osError) {
  if (!temporary_.empty() && failedCause_ == 0) {
    failedCause_ = CFileException::OsErrorToException(osError);
    failedOsError_ = osError;
  }
  ThrowOsError(osError);
}

UINT CFile::Read(void *buffer, UINT count) {
  RequireOpen();
  if (!readable_) ThrowOsError(EBADF);
  char *p = static_cast<char *>(buffer);
  UINT done = 0;
  while (done < count) {
    ssize_t n = ::read(fd_, p + done, count - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      ThrowOsError(errno);
    }
    if (n == 0) break;
    done += static_cast<UINT>(n);
  }
  return done;
}

void CFile::Write(const void *buffer, UINT count) {
  RequireOpen();
  if (!writable_) ThrowOsError(EBADF);
  if (failedCause_ != 0) FailWrite(failedOsError_);
  if (int err = WriteAll(fd_, static_cast<const char *>(buffer), count)) FailWrite(err);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
  RequireOpen();
  int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : from == end ? SEEK_END : -1;
  if (whence < 0) throw CFileException(CFileException::badSeek, EINVAL, path_.GetString());
  off_t at = ::lseek(fd_, static_cast<off_t>(offset), whence);
  if (at < 0) throw CFileException(CFileException::badSeek, errno, path_.GetString());
  return static_cast<ULONGLONG>(at);
}

ULONGLONG CFile::GetLength() const {
  RequireOpen();
  struct stat st;
  if (::fstat(fd_, &st) != 0) ThrowOsError(errno);
  return static_cast<ULONGLONG>(st.st_size);
}

void CFile::SetLength(ULONGLONG newLength) {
  RequireOpen();
  if (!writable_) ThrowOsError(EBADF);
  if (newLength > static_cast<ULONGLONG>(LLONG_MAX)) FailWrite(EFBIG);
  if (::ftruncate(fd_, static_cast<off_t>(newLength)) != 0) FailWrite(errno);
}

ULONGLONG CFile::GetPosition() const {
  RequireOpen();
  off_t at = ::lseek(fd_, 0, SEEK_CUR);
  if (at < 0) throw CFileException(CFileException::badSeek, errno, path_.GetString());
  return static_cast<ULONGLONG>(at);
}

void CFile::Flush() {
  RequireOpen();
  if (!writable_) return;
  if (failedCause_ != 0) FailWrite(failedOsError_);
  if (::fsync(fd_) != 0 && errno != EINVAL) FailWrite(errno);
}

void CFile::Close() {
  if (fd_ < 0) return;
  CString path = path_;
  if (temporary_.empty()) {
    int rc = ::close(fd_);
    int err = errno;
    ResetState();
    if (rc != 0 && err != EINTR) {
      throw CFileException(CFileException::OsErrorToException(err), err, path.GetString());
    }
    return;
  }

  int cause = failedCause_;
  int osError = failedOsError_;
  auto note = [&](int err) {
    if (cause == 0) {
      cause = CFileException::OsErrorToException(err);
      osError = err;
    }
  };
  if (cause == 0 && ::fsync(fd_) != 0 && errno != EINVAL) note(errno);
  if (::close(fd_) != 0 && errno != EINTR) note(errno);
  fd_ = -1;
  if (cause == 0 && ::rename(temporary_.c_str(), target_.c_str()) != 0) note(errno);
  if (cause != 0) ::unlink(temporary_.c_str());
  ResetState();
  if (cause != 0) throw CFileException(cause, osError, path.GetString());
}

void CFile::Abort() {
  if (fd_ >= 0) Discard();
}

CString CFile::GetFilePath() const { return path_; }

CString CFile::GetFileName() const {
  int slash = path_.ReverseFind(L'\\');
  int other = path_.ReverseFind(L'/');
  if (other > slash) slash = other;
  return path_.Mid(slash + 1);
}
