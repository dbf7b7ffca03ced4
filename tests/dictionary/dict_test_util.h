// Helpers of the dictionary tests: archive bytes of an item, captured
// command-line output, child lists by name, and an item that counts its
// own instances.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "dictionary/KyDtDict.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/CArchive.h"
#include "platform/mfc/CMemFile.h"
#include "support/TestSupport.h"

namespace dicttest {

// The archive form of an item, kind first.
inline std::string ArchiveBytes(KyDtDictItem &item) {
  CMemFile file(1024);
  {
    CArchive ar(&file, CArchive::store, 4096);
    item >> ar;
    ar.Close();
  }
  const auto length = static_cast<std::size_t>(file.GetLength());
  BYTE *bytes = file.Detach();
  std::string out(reinterpret_cast<const char *>(bytes), length);
  std::free(bytes);
  return out;
}

// Reads an item form from bytes into `item`, taking the kind number first.
inline void ReadArchiveBytes(KyDtDictItem &item, const std::string &bytes) {
  CMemFile file(1024);
  file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
  file.Seek(0, CFile::begin);
  CArchive ar(&file, CArchive::load, 4096);
  std::int32_t kind = 0;
  ar >> kind;
  item << ar;
}

// The names of the children in list order, walked without the cursor.
inline std::vector<std::wstring> ChildNames(const KyDtDictionary &dict) {
  std::vector<std::wstring> names;
  for (KyDtDictItem *const *slot = dict.GetFirst(); slot != nullptr; slot = dict.GetNext(slot)) {
    names.push_back(*slot != nullptr ? (*slot)->m_strName.str() : L"<null>");
  }
  return names;
}

// The child at an index, without moving the cursor.
inline KyDtDictItem *ChildAt(const KyDtDictionary &dict, std::int32_t index) { return dict.GetAt(index); }

// Everything acutPrintf prints while the object lives.
class CapturedCommandLine {
 public:
  CapturedCommandLine() {
    old_ = tolv::SetCommandLineSink([this](const std::wstring &text) { pieces_.push_back(text); });
  }
  ~CapturedCommandLine() { tolv::SetCommandLineSink(old_); }
  std::wstring Text() const {
    std::wstring all;
    for (const auto &piece : pieces_) all += piece;
    return all;
  }
  const std::vector<std::wstring> &Pieces() const { return pieces_; }

 private:
  tolv::CommandLineSink old_;
  std::vector<std::wstring> pieces_;
};

// An item that counts how many of its kind are alive, to see subtrees go.
class CountedItem : public KyDtDictItem {
 public:
  explicit CountedItem(const wchar_t *name) : KyDtDictItem(name) { ++alive; }
  ~CountedItem() override { --alive; }
  static inline int alive = 0;
};

// Builds a UTF-8 XML file from its text.
inline void WriteText(const std::filesystem::path &path, const std::string &utf8) {
  tolvtest::WriteFileBytes(path, utf8);
}

}  // namespace dicttest
