#include "dictionary/KyDtDictionary.h"

#include <memory>
#include <typeinfo>
#include <vector>

#include "dictionary/KyDtDictPath.h"

namespace {

// Moves every child out of `dict` into `pending` without deleting any.
void TakeChildrenOut(KyDtDictionary &dict, std::vector<KyDtDictItem *> &pending) {
  while (dict.GetLength() > 0) pending.push_back(dict.TakeOffHead());
}

}  // namespace

KyDtDictionary::KyDtDictionary(const wchar_t *name, const wchar_t *localName) : KyDtDictItem(name, localName) {}

KyDtDictionary::KyDtDictionary(const KyDtDictionary &other)
    : KyDtDictItem(other),
      KyPDList<KyDtDictItem>(other),
      m_nAutoSort(other.m_nAutoSort),
      m_strClassName(other.m_strClassName) {}

KyDtDictionary &KyDtDictionary::operator=(const KyDtDictionary &other) {
  KyDtDictItem::operator=(other);
  KyPDList<KyDtDictItem>::operator=(other);
  m_nAutoSort = other.m_nAutoSort;
  m_strClassName = other.m_strClassName;
  return *this;
}

KyDtDictionary::~KyDtDictionary() {
  // Deleting children one by one would recurse once per level, and files
  // can nest deeper than the stack allows. Every dictionary below is
  // emptied into one work list first, so each delete is shallow.
  if (GetLength() == 0) return;
  std::vector<KyDtDictItem *> pending;
  TakeChildrenOut(*this, pending);
  while (!pending.empty()) {
    KyDtDictItem *item = pending.back();
    pending.pop_back();
    if (item != nullptr && item->IsDict()) TakeChildrenOut(*static_cast<KyDtDictionary *>(item), pending);
    delete item;
  }
}

void KyDtDictionary::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  // Nested plain dictionaries are handled here, level by level, instead of
  // by recursion; other kinds (and derived dictionaries) copy themselves.
  struct Job {
    KyDtDictionary *target;
    const KyDtDictionary *source;
  };
  std::vector<Job> jobs{{this, static_cast<const KyDtDictionary *>(&source)}};
  while (!jobs.empty()) {
    const Job job = jobs.back();
    jobs.pop_back();
    job.target->m_strClassName = job.source->m_strClassName;
    for (KyDtDictItem *const *slot = job.source->GetFirst(); slot != nullptr; slot = job.source->GetNext(slot)) {
      const KyDtDictItem *from = *slot;
      if (from == nullptr || !job.target->FindDataTo(*from, 0, -1)) continue;
      KyDtDictItem *to = job.target->GetCurData();
      if (typeid(*to) == typeid(KyDtDictionary) && from->GetType() == DT_DICT) {
        jobs.push_back({static_cast<KyDtDictionary *>(to), static_cast<const KyDtDictionary *>(from)});
      } else {
        to->CopyData(*from);
      }
    }
  }
}

// ---- Lookup ----

KyDtDictItem *KyDtDictionary::FindItem(const CString &path) {
  KyDtDictPath parsed(path);
  return FindItem(parsed);
}

KyDtDictItem *KyDtDictionary::FindItem(KyDtDictPath &path) {
  KyDtDictionary *dict = this;
  for (;;) {
    if (path.GetLength() == 0) return nullptr;
    path.MoveToFirst();
    const KyDtDictItem &segment = path.GetCurPData();
    const bool found = dict->m_nAutoSort != 0 ? dict->BFindDataTo(segment, 0, -1) : dict->FindDataTo(segment, 0, -1);
    if (!found) return nullptr;
    KyDtDictItem *item = dict->GetCurData();
    if (path.GetLength() == 1) return item;
    if (item == nullptr || !item->IsDict()) return nullptr;
    path.DelHead();
    dict = static_cast<KyDtDictionary *>(item);
  }
}

void KyDtDictionary::FindItem(const wchar_t *key, const wchar_t *value, KyDList<KyDtDictItem *> &found) {
  // Depth first without recursion: each frame remembers the child it
  // stands on, and a dictionary is tested when its frame is done.
  struct Frame {
    KyDtDictionary *dict;
    KyDtDictItem *const *slot;
  };
  std::vector<Frame> frames{{this, GetFirst()}};
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.slot == nullptr) {
      KyDtDictionary *done = frame.dict;
      frames.pop_back();
      if (frames.empty()) break;
      if (done->IsMatchAttribute(key, value)) found.Append(done);
      Frame &parent = frames.back();
      parent.slot = parent.dict->GetNext(parent.slot);
      continue;
    }
    KyDtDictItem *child = *frame.slot;
    if (child != nullptr && child->IsDict()) {
      auto *dict = static_cast<KyDtDictionary *>(child);
      frames.push_back({dict, dict->GetFirst()});
      continue;
    }
    if (child != nullptr && child->IsMatchAttribute(key, value)) found.Append(child);
    frame.slot = frame.dict->GetNext(frame.slot);
  }
}

KyDtDictionary *KyDtDictionary::FindDict(const CString &path) {
  KyDtDictItem *item = FindItem(path);
  return (item != nullptr && item->IsDict()) ? static_cast<KyDtDictionary *>(item) : nullptr;
}

// ---- Growth ----

KyDtDictionary *KyDtDictionary::FindOrAddDict(const CString &path) {
  KyDtDictPath parsed(path);
  if (!parsed.IsValid()) return nullptr;
  return FindOrAddDict(parsed);
}

KyDtDictionary *KyDtDictionary::FindOrAddDict(KyDtDictPath &path) {
  KyDtDictionary *dict = this;
  for (;;) {
    if (path.GetLength() == 0) return nullptr;
    path.MoveToFirst();
    auto fresh = std::make_unique<KyDtDictionary>(path.GetCurPData().m_strName);
    KyDtDictionary *next = nullptr;
    if (dict->AppendItem(fresh.get())) {
      next = fresh.release();
    } else {
      KyDtDictItem *existing = dict->GetCurData();
      if (existing == nullptr || !existing->IsDict()) return nullptr;
      next = static_cast<KyDtDictionary *>(existing);
    }
    path.DelHead();
    if (path.GetLength() == 0) return next;
    dict = next;
  }
}

KyDtDictItem *KyDtDictionary::FindOrAddItem(const CString &path, DictDataType type) {
  KyDtDictPath parsed(path);
  if (!parsed.IsValid()) return nullptr;
  KyDtDictionary *parent = this;
  CString name;
  parsed.MoveToLast();
  name = parsed.GetCurPData().m_strName;
  if (parsed.GetLength() > 1) {
    parsed.DelTail();
    parent = FindOrAddDict(parsed);
    if (parent == nullptr) return nullptr;
  }
  std::unique_ptr<KyDtDictItem> item(CreateDictItem(type));
  if (!item) return nullptr;
  item->m_strName = name;
  if (parent->AppendItem(item.get())) item.release();
  return parent->GetCurData();
}

bool KyDtDictionary::AppendItem(KyDtDictItem *item) {
  if (item == nullptr) return false;
  if (item->IsDict()) static_cast<KyDtDictionary *>(item)->m_nAutoSort = m_nAutoSort;
  if (m_nAutoSort != 0) return SortInto(item, item->m_strName.IsEmpty());
  if (!item->m_strName.IsEmpty() && FindDataTo(*item, 0, -1)) return false;
  Append(item);
  return true;
}

bool KyDtDictionary::AppendItem(const CString &path, KyDtDictItem *item) {
  KyDtDictItem *target = FindItem(path);
  if (target == nullptr || !target->IsDict()) return false;
  return static_cast<KyDtDictionary *>(target)->AppendItem(item);
}

bool KyDtDictionary::FindAndDel(const CString &path) {
  KyDtDictPath parsed(path);
  if (!parsed.IsValid()) return false;
  parsed.MoveToLast();
  const KyDtDictItem probe(parsed.GetCurPData().m_strName);
  KyDtDictionary *parent = this;
  if (parsed.GetLength() > 1) {
    parsed.DelTail();
    KyDtDictItem *found = FindItem(parsed);
    if (found == nullptr || !found->IsDict()) return false;
    parent = static_cast<KyDtDictionary *>(found);
  }
  return parent->FindDataDel(probe) > 0;
}
