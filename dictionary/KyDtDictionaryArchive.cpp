// The archive form of dictionaries: Save, Read and the archive reader and
// writer of a whole tree.
#include <cstdint>
#include <memory>
#include <typeinfo>
#include <vector>

#include "dictionary/KyDtDictChildCollector.h"
#include "dictionary/KyDtDictStreams.h"
#include "dictionary/KyDtDictTextPool.h"
#include "dictionary/KyDtDictionary.h"
#include "platform/mfc/CArchive.h"
#include "platform/mfc/CFile.h"

namespace {

constexpr int kArchiveBuffer = 4096;

bool IsPlainDictionary(const KyDtDictItem &item) { return typeid(item) == typeid(KyDtDictionary); }

std::int32_t CountChildren(const KyDtDictionary &dict) {
  std::int32_t count = 0;
  for (KyDtDictItem *const *slot = dict.GetFirst(); slot != nullptr; slot = dict.GetNext(slot)) {
    if (*slot != nullptr) ++count;
  }
  return count;
}

}  // namespace

void KyDtDictStreams::WriteArchive(KyDtDictionary &root, CArchive &ar) {
  struct Frame {
    KyDtDictionary *dict;
    KyDtDictItem *const *slot;
  };
  auto enter = [&ar](KyDtDictionary &dict) {
    dict.WriteHeader(ar);
    ar << dict.m_strClassName;
    ar << CountChildren(dict);
    return Frame{&dict, dict.GetFirst()};
  };
  std::vector<Frame> frames{enter(root)};
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.slot == nullptr) {
      frames.pop_back();
      continue;
    }
    KyDtDictItem *child = *frame.slot;
    frame.slot = frame.dict->GetNext(frame.slot);
    if (child == nullptr) continue;
    if (IsPlainDictionary(*child)) {
      frames.push_back(enter(*static_cast<KyDtDictionary *>(child)));
    } else {
      *child >> ar;
    }
  }
}

void KyDtDictStreams::ReadArchive(KyDtDictionary &root, CArchive &ar) {
  struct Frame {
    explicit Frame(KyDtDictionary *d) : dict(d), collector(*d) {}
    KyDtDictionary *dict;
    std::int32_t remaining = 0;
    KyDtDictChildCollector collector;
  };
  // The header, class name and child count of a dictionary; the count is
  // returned.
  auto readHead = [&ar](KyDtDictionary &dict) {
    dict.ReadHeader(ar);
    ar >> dict.m_strClassName;
    std::int32_t count = 0;
    ar >> count;
    return count;
  };
  KyDtDictTextPool::Scope pool;
  const std::int32_t rootCount = readHead(root);
  root.Reset();
  std::vector<std::unique_ptr<Frame>> frames;
  frames.push_back(std::make_unique<Frame>(&root));
  frames.back()->remaining = rootCount;
  try {
    while (!frames.empty()) {
      Frame &frame = *frames.back();
      if (frame.remaining <= 0) {
        frame.collector.Finish();
        KyDtDictionary *done = frame.dict;
        frames.pop_back();
        if (!frames.empty()) frames.back()->collector.Add(done);
        continue;
      }
      --frame.remaining;
      std::int32_t kind = 0;
      ar >> kind;
      std::unique_ptr<KyDtDictItem> item(CreateDictItem(kind));
      if (!item) {
        // An unknown kind ends this dictionary; the outer levels read on
        // from behind the number.
        frame.remaining = 0;
        continue;
      }
      if (kind != KyDtDictItem::DT_DICT) {
        *item << ar;
        frame.collector.Add(item.release());
        continue;
      }
      auto *dict = static_cast<KyDtDictionary *>(item.get());
      dict->m_nAutoSort = frame.dict->m_nAutoSort;
      const std::int32_t count = readHead(*dict);
      frames.push_back(std::make_unique<Frame>(dict));
      item.release();  // owned by its frame until its parent takes it
      frames.back()->remaining = count;
    }
  } catch (...) {
    // The children read so far stay; levels not yet handed to their
    // parents go.
    while (!frames.empty()) {
      Frame &frame = *frames.back();
      try {
        frame.collector.Finish();
      } catch (...) {
      }
      KyDtDictionary *dict = frame.dict;
      frames.pop_back();
      if (dict != &root) delete dict;
    }
    throw;
  }
}

void KyDtDictionary::operator>>(CArchive &ar) { KyDtDictStreams::WriteArchive(*this, ar); }

void KyDtDictionary::operator<<(CArchive &ar) { KyDtDictStreams::ReadArchive(*this, ar); }

bool KyDtDictionary::Save(const wchar_t *path) {
  CFile file;
  if (!file.Open(path, CFile::modeCreate | CFile::modeWrite)) return false;
  file.SetLength(0);
  file.Flush();
  CArchive ar(&file, CArchive::store, kArchiveBuffer);
  ar << m_nAutoSort;
  *this >> ar;
  ar.Flush();
  ar.Close();
  file.Close();
  return true;
}

bool KyDtDictionary::Read(const wchar_t *path) {
  CFile file;
  if (!file.Open(path, CFile::modeRead)) return false;
  CArchive ar(&file, CArchive::load, kArchiveBuffer);
  ar >> m_nAutoSort;
  std::int32_t kind = 0;
  ar >> kind;  // the root's kind number is not checked
  *this << ar;
  ar.Flush();
  ar.Close();
  file.Close();
  TranslateRef();
  return true;
}
