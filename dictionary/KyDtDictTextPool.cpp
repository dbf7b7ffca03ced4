#include "dictionary/KyDtDictTextPool.h"

namespace {

// Recent values kept per key, and how many misses in a row make a key stop
// trying: past that, its values are taken as unique.
constexpr std::size_t kRecentValues = 16;
constexpr std::int32_t kGiveUpAfterMisses = 32;
// Keys past this many are not pooled, so a hostile file with a new key on
// every element can't grow the pool or slow the search.
constexpr std::size_t kMaxKeys = 64;
constexpr std::int32_t kMaxPositions = 64;

thread_local KyDtDictTextPool *t_active = nullptr;

}  // namespace

struct KyDtDictTextPool::Entry {
  CString key;
  CString recent[kRecentValues];
  std::size_t used = 0;
  std::size_t next = 0;  // the slot the next new value takes
  std::int32_t missesInRow = 0;
  bool givenUp = false;
};

KyDtDictTextPool::KyDtDictTextPool() = default;
KyDtDictTextPool::~KyDtDictTextPool() = default;

KyDtDictTextPool *KyDtDictTextPool::Active() { return t_active; }

KyDtDictTextPool::Scope::Scope() {
  if (t_active != nullptr) return;
  own_ = std::make_unique<KyDtDictTextPool>();
  t_active = own_.get();
}

KyDtDictTextPool::Scope::~Scope() {
  if (own_ != nullptr) t_active = nullptr;
}

KyDtDictTextPool::Entry &KyDtDictTextPool::Find(std::wstring_view key) {
  for (const auto &entry : entries_)
    if (entry->key.view() == key) return *entry;
  if (entries_.size() >= kMaxKeys) {
    // Past the limit one spare entry takes each new key in turn and pools
    // nothing: such a key costs what a plain copy costs.
    if (!overflow_) {
      overflow_ = std::make_unique<Entry>();
      overflow_->givenUp = true;
    }
    overflow_->key = CString(key);
    return *overflow_;
  }
  entries_.push_back(std::make_unique<Entry>());
  entries_.back()->key = CString(key);
  return *entries_.back();
}

const CString &KyDtDictTextPool::Key(std::int32_t position, std::wstring_view key) {
  Entry *hint = nullptr;
  if (position >= 0 && position < static_cast<std::int32_t>(byPosition_.size()))
    hint = byPosition_[static_cast<std::size_t>(position)];
  if (hint == nullptr || hint->key.view() != key) {
    hint = &Find(key);
    if (position >= 0 && position < kMaxPositions) {
      if (static_cast<std::int32_t>(byPosition_.size()) <= position)
        byPosition_.resize(static_cast<std::size_t>(position) + 1, nullptr);
      byPosition_[static_cast<std::size_t>(position)] = hint;
    }
  }
  current_ = hint;
  return hint->key;
}

const CString *KyDtDictTextPool::Lookup(std::wstring_view value) {
  Entry *entry = current_;
  if (entry == nullptr || entry->givenUp) return nullptr;
  for (std::size_t i = 0; i < entry->used; ++i) {
    if (entry->recent[i].view() == value) {
      entry->missesInRow = 0;
      return &entry->recent[i];
    }
  }
  if (++entry->missesInRow >= kGiveUpAfterMisses) {
    entry->givenUp = true;
    for (CString &text : entry->recent) text.Empty();
    entry->used = 0;
  }
  return nullptr;
}

void KyDtDictTextPool::Remember(const CString &value) {
  Entry *entry = current_;
  if (entry == nullptr || entry->givenUp) return;
  entry->recent[entry->next] = value;
  entry->next = (entry->next + 1) % kRecentValues;
  if (entry->used < kRecentValues) ++entry->used;
}

CString KyDtDictTextPool::Value(std::wstring_view value) {
  if (const CString *pooled = Lookup(value)) return *pooled;
  CString text(value);
  Remember(text);
  return text;
}
