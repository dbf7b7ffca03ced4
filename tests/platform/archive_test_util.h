// Helpers for the archive tests: bytes in, bytes out, through memory files.
#pragma once

#include <cstdlib>
#include <functional>
#include <string>

#include "platform/mfc/CArchive.h"
#include "platform/mfc/CMemFile.h"

namespace archivetest {

// The bytes written by `write` on a storing archive with the given buffer.
inline std::string Stored(const std::function<void(CArchive &)> &write, int bufferSize = 4096) {
  CMemFile file(1024);
  {
    CArchive ar(&file, CArchive::store, bufferSize);
    write(ar);
    ar.Close();
  }
  std::size_t length = static_cast<std::size_t>(file.GetLength());
  BYTE *data = file.Detach();
  std::string bytes(reinterpret_cast<const char *>(data), length);
  std::free(data);
  return bytes;
}

// A memory file holding `bytes`, positioned at the start.
inline void Fill(CMemFile &file, const std::string &bytes) {
  file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
  file.SeekToBegin();
}

// Runs `read` on a loading archive over `bytes`.
inline void Load(const std::string &bytes, const std::function<void(CArchive &)> &read, int bufferSize = 4096) {
  CMemFile file(1024);
  Fill(file, bytes);
  CArchive ar(&file, CArchive::load, bufferSize);
  read(ar);
  ar.Close();
}

// The cause of the CArchiveException that `action` throws, or -1 if none.
inline int ArchiveCause(const std::function<void()> &action) {
  try {
    action();
  } catch (const CArchiveException &e) {
    return e.m_cause;
  }
  return -1;
}

inline std::string Hex(const std::string &bytes) {
  static const char digits[] = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : bytes) {
    if (!out.empty()) out += ' ';
    out += digits[c >> 4];
    out += digits[c & 15];
  }
  return out;
}

}  // namespace archivetest
