// The index of the named map by hash: one flat table, probed linearly.
// Reading a document binds tens of thousands of references; a node-based
// hash map costs several cache misses per lookup (bucket, node, key), this
// table one slot and the key's text. Keys are views of text owned elsewhere
// (the ordered map's keys), which must outlive their entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <functional>
#include <string_view>
#include <vector>

class KyDtUIItem;

class KyDtUINameIndex {
 public:
  KyDtUIItem *Find(std::wstring_view key) const {
    if (slots_.empty()) return nullptr;
    const std::size_t hash = Hash(key);
    for (std::size_t i = hash & Mask();; i = (i + 1) & Mask()) {
      const Slot &slot = slots_[i];
      if (!slot.used) return nullptr;
      if (Matches(slot, hash, key)) return slot.item;
    }
  }

  // The key must not be in the index yet.
  void Insert(std::wstring_view key, KyDtUIItem *item) {
    // At most half full, so that probes stay short.
    if ((count_ + 1) * 2 > slots_.size()) Grow();
    const std::size_t hash = Hash(key);
    std::size_t i = hash & Mask();
    while (slots_[i].used) i = (i + 1) & Mask();
    slots_[i] = Slot{hash, key.data(), item, static_cast<std::uint32_t>(key.size()), 1};
    ++count_;
  }

  void Erase(std::wstring_view key) {
    if (slots_.empty()) return;
    const std::size_t hash = Hash(key);
    std::size_t hole = hash & Mask();
    for (;; hole = (hole + 1) & Mask()) {
      if (!slots_[hole].used) return;
      if (Matches(slots_[hole], hash, key)) break;
    }
    // Moves back every later slot of the run whose home does not lie
    // between the hole and it, so that no probe meets a gap too early.
    for (std::size_t next = (hole + 1) & Mask(); slots_[next].used; next = (next + 1) & Mask()) {
      const std::size_t home = slots_[next].hash & Mask();
      const bool between = hole <= next ? (hole < home && home <= next) : (hole < home || home <= next);
      if (between) continue;
      slots_[hole] = slots_[next];
      hole = next;
    }
    slots_[hole] = Slot{};
    --count_;
  }

  void Clear() {
    slots_.clear();
    count_ = 0;
  }

 private:
  struct Slot {
    std::size_t hash = 0;
    const wchar_t *chars = nullptr;
    KyDtUIItem *item = nullptr;
    std::uint32_t length = 0;
    std::uint32_t used = 0;
  };

  static std::size_t Hash(std::wstring_view key) { return std::hash<std::wstring_view>()(key); }
  static bool Matches(const Slot &slot, std::size_t hash, std::wstring_view key) {
    return slot.hash == hash && slot.length == key.size() &&
           std::wmemcmp(slot.chars, key.data(), key.size()) == 0;
  }
  std::size_t Mask() const { return slots_.size() - 1; }

  void Grow() {
    std::vector<Slot> old;
    old.swap(slots_);
    slots_.assign(old.empty() ? 64 : old.size() * 2, Slot{});
    for (const Slot &slot : old) {
      if (!slot.used) continue;
      std::size_t i = slot.hash & Mask();
      while (slots_[i].used) i = (i + 1) & Mask();
      slots_[i] = slot;
    }
  }

  std::vector<Slot> slots_;
  std::size_t count_ = 0;
};
