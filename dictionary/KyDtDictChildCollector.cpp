#include "dictionary/KyDtDictChildCollector.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "dictionary/KyDtDictionary.h"
#include "platform/windows/TextCodec.h"

namespace {

// Bounds the table that Reserve builds before any child is there.
constexpr std::int32_t kMaxReserved = 1 << 16;

// A multiplicative hash over the characters, mixed at the end: names are
// short, and this costs a few cycles a character.
std::uint32_t HashName(const KyDtDictItem &item) {
  std::uint32_t h = 0x811C9DC5u;
  for (const wchar_t c : item.m_strName.view()) h = (h ^ static_cast<std::uint32_t>(c)) * 0x01000193u;
  h ^= h >> 15;
  h *= 0x2C1B3C6Du;
  h ^= h >> 12;
  return h;
}

int CompareNarrow(const KyDtDictItem *a, const KyDtDictItem *b) {
  return tolv::CompareGbk(a->m_strName.view(), b->m_strName.view());
}

}  // namespace

KyDtDictChildCollector::KyDtDictChildCollector(KyDtDictionary &dict)
    : dict_(dict), sorted_(dict.IsAutoSort() != 0) {}

KyDtDictChildCollector::~KyDtDictChildCollector() {
  for (KyDtDictItem *item : pending_) delete item;
}

void KyDtDictChildCollector::Add(KyDtDictItem *item) {
  if (item->IsDict()) static_cast<KyDtDictionary *>(item)->SetAutoSort(dict_.IsAutoSort());
  if (sorted_) {
    pending_.push_back(item);
    return;
  }
  AddUnsorted(item);
}

void KyDtDictChildCollector::AddUnsorted(KyDtDictItem *item) {
  if (item->m_strName.IsEmpty()) {
    AppendOwned(item);
    last_ = item;
    lastIndex_ = appended_++;
    return;
  }
  if (table_.empty() || 2 * (named_ + 1) > static_cast<std::int32_t>(table_.size()))
    GrowTable(table_.empty() ? 16 : table_.size() * 2);
  const std::uint32_t hash = HashName(*item);
  Slot &slot = Probe(*item, hash);
  if (slot.item != nullptr) {
    // A namesake came first: the item is refused, and the cursor would
    // stand on the one already there.
    last_ = slot.item;
    lastIndex_ = slot.index;
    delete item;
    return;
  }
  AppendOwned(item);
  slot = {item, appended_, hash};
  ++named_;
  last_ = item;
  lastIndex_ = appended_++;
}

void KyDtDictChildCollector::AppendOwned(KyDtDictItem *item) {
  try {
    dict_.Append(item);
  } catch (...) {
    delete item;
    throw;
  }
}

KyDtDictChildCollector::Slot &KyDtDictChildCollector::Probe(const KyDtDictItem &item, std::uint32_t hash) {
  const std::size_t mask = table_.size() - 1;
  std::size_t i = hash & mask;
  while (table_[i].item != nullptr &&
         (table_[i].hash != hash || table_[i].item->m_strName.view() != item.m_strName.view()))
    i = (i + 1) & mask;
  return table_[i];
}

void KyDtDictChildCollector::GrowTable(std::size_t size) {
  std::vector<Slot> old;
  old.swap(table_);
  table_.assign(size, Slot{nullptr, -1, 0});
  const std::size_t mask = size - 1;
  for (const Slot &slot : old) {
    if (slot.item == nullptr) continue;
    // Names in the table are unique: the first free slot is the place.
    std::size_t i = slot.hash & mask;
    while (table_[i].item != nullptr) i = (i + 1) & mask;
    table_[i] = slot;
  }
}

void KyDtDictChildCollector::Reserve(std::int32_t expected) {
  if (sorted_ || expected <= 0) return;
  const auto want = static_cast<std::size_t>(std::min(expected, kMaxReserved)) * 2;
  std::size_t size = 16;
  while (size < want) size *= 2;
  if (size > table_.size()) GrowTable(size);
}

void KyDtDictChildCollector::Finish() {
  if (sorted_) FinishSorted();
  if (last_ == nullptr) return;
  // The cursor where the last AppendItem leaves it.
  if (lastIndex_ == dict_.GetLength() - 1) {
    dict_.MoveToLast();
  } else {
    dict_.MoveTo(lastIndex_);
  }
}

void KyDtDictChildCollector::FinishSorted() {
  if (pending_.empty()) return;
  KyDtDictItem *lastArrived = pending_.back();
  std::stable_sort(pending_.begin(), pending_.end(),
                   [](const KyDtDictItem *a, const KyDtDictItem *b) { return CompareNarrow(a, b) < 0; });
  // Within a run of equal narrow names the first to arrive stands first.
  // Unnamed items all stay; of named ones only that first is taken.
  std::size_t kept = 0;
  KyDtDictItem *runHead = nullptr;
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    KyDtDictItem *item = pending_[i];
    pending_[i] = nullptr;
    if (runHead != nullptr && !item->m_strName.IsEmpty() && CompareNarrow(runHead, item) == 0) {
      if (item == lastArrived) lastArrived = runHead;
      delete item;
      continue;
    }
    runHead = item;
    pending_[kept++] = item;
  }
  pending_.resize(kept);
  // The list owns each item once it is appended; until then the item stays
  // in pending_, where the destructor finds it if an append fails.
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    dict_.Append(pending_[i]);
    if (pending_[i] == lastArrived) {
      last_ = pending_[i];
      lastIndex_ = static_cast<std::int32_t>(i);
    }
    pending_[i] = nullptr;
  }
  pending_.clear();
}
