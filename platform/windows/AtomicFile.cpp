#include "platform/windows/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <vector>

namespace tolv {

namespace {

std::string FolderOf(const std::string &path) {
  size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

std::string NameOf(const std::string &path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool WriteAll(int fd, std::string_view bytes) {
  const char *p = bytes.data();
  size_t left = bytes.size();
  while (left > 0) {
    ssize_t n = ::write(fd, p, left);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    p += n;
    left -= static_cast<size_t>(n);
  }
  return true;
}

}  // namespace

bool WriteFileAtomically(const std::string &posixPath, std::string_view bytes) {
  if (posixPath.empty()) return false;
  // A write past a file-size limit must fail, not kill the host.
  static const bool ignoreSizeSignal = [] {
    std::signal(SIGXFSZ, SIG_IGN);
    return true;
  }();
  (void)ignoreSizeSignal;

  std::string tmpl = FolderOf(posixPath) + "/." + NameOf(posixPath) + ".tmpXXXXXX";
  std::vector<char> name(tmpl.begin(), tmpl.end());
  name.push_back('\0');
  int fd = ::mkstemp(name.data());
  if (fd < 0) return false;

  // Keep the old file's permissions, or the usual ones for a new file.
  struct stat st;
  mode_t mode = 0644;
  if (::stat(posixPath.c_str(), &st) == 0) {
    mode = st.st_mode & 07777;
  } else {
    mode_t mask = ::umask(0);
    ::umask(mask);
    mode = 0666 & ~mask;
  }
  ::fchmod(fd, mode);

  bool ok = WriteAll(fd, bytes) && ::fsync(fd) == 0;
  ok = (::close(fd) == 0) && ok;
  if (ok) ok = ::rename(name.data(), posixPath.c_str()) == 0;
  if (!ok) ::unlink(name.data());
  return ok;
}

bool ReadWholeFile(const std::string &posixPath, std::string &bytes) {
  int fd = ::open(posixPath.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  struct stat st;
  if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
    ::close(fd);
    return false;
  }
  bytes.clear();
  char buf[65536];
  for (;;) {
    ssize_t n = ::read(fd, buf, sizeof buf);
    if (n < 0) {
      if (errno == EINTR) continue;
      ::close(fd);
      return false;
    }
    if (n == 0) break;
    bytes.append(buf, static_cast<size_t>(n));
  }
  ::close(fd);
  return true;
}

}  // namespace tolv
