#include "dictionary/KyDtDictChildCollector.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "dictionary/KyDtDictionary.h"
#include "platform/windows/TextCodec.h"

namespace {

std::size_t HashName(const KyDtDictItem &item) { return std::hash<std::wstring_view>()(item.m_strName.view()); }

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
  if (table_.empty() || 2 * (named_ + 1) > static_cast<std::int32_t>(table_.size())) GrowTable();
  Slot &slot = Probe(*item);
  if (slot.item != nullptr) {
    // A namesake came first: the item is refused, and the cursor would
    // stand on the one already there.
    last_ = slot.item;
    lastIndex_ = slot.index;
    delete item;
    return;
  }
  AppendOwned(item);
  slot = {item, appended_};
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

KyDtDictChildCollector::Slot &KyDtDictChildCollector::Probe(const KyDtDictItem &item) {
  const std::size_t mask = table_.size() - 1;
  std::size_t i = HashName(item) & mask;
  while (table_[i].item != nullptr && table_[i].item->m_strName.view() != item.m_strName.view()) i = (i + 1) & mask;
  return table_[i];
}

void KyDtDictChildCollector::GrowTable() {
  std::vector<Slot> old;
  old.swap(table_);
  table_.assign(old.empty() ? 16 : old.size() * 2, Slot{nullptr, -1});
  for (const Slot &slot : old) {
    if (slot.item != nullptr) Probe(*slot.item) = slot;
  }
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
