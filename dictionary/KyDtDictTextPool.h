// Shares the attribute texts of a tree being read, from XML or the archive
// form.
//
// Every item of a settings or language file carries the same few
// attribute keys, and some attributes ("element_type") take a handful of
// values over and over. Read one by one, each would get a buffer of its own
// in every item; through the pool, equal texts share one buffer (CString
// copies share), which is most of the memory of a large tree's bags.
//
// Values are pooled per key while that pays: a key whose values keep
// differing (names, local names) stops being tried after a few misses, so
// unique texts cost one comparison run, not a growing table.
//
// The pool is active on the reading thread while a scope lives; readers of
// item headers ask for it and fall back to plain copies without one.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/mfc/CString.h"

class KyDtDictTextPool {
 public:
  KyDtDictTextPool();
  ~KyDtDictTextPool();
  KyDtDictTextPool(const KyDtDictTextPool &) = delete;
  KyDtDictTextPool &operator=(const KyDtDictTextPool &) = delete;

  // The key as a shared string. `position` is where the attribute stands in
  // its element: files list their attributes in the same order on every
  // element, so the key last seen there is tried first.
  const CString &Key(std::int32_t position, std::wstring_view key);
  // The value of the key that Key gave last, shared when it was seen lately.
  CString Value(std::wstring_view value);

  // Strings for a reader to read a key and a value into before asking for
  // the shared ones: kept from item to item, they cost no allocation once
  // they have grown to the longest text.
  CString &KeyBuffer() { return keyBuffer_; }
  CString &ValueBuffer() { return valueBuffer_; }

  // The pool of the reading on this thread, or null.
  static KyDtDictTextPool *Active();

  // Makes a pool active on this thread for its lifetime, unless one is
  // already (an inner reading shares the outer one's pool).
  class Scope {
   public:
    Scope();
    ~Scope();
    Scope(const Scope &) = delete;
    Scope &operator=(const Scope &) = delete;

   private:
    std::unique_ptr<KyDtDictTextPool> own_;
  };

 private:
  struct Entry;
  Entry &Find(std::wstring_view key);
  // The pooled text equal to `value` for the current key, or null; a miss
  // counts towards giving the key up.
  const CString *Lookup(std::wstring_view value);
  void Remember(const CString &value);

  std::vector<std::unique_ptr<Entry>> entries_;
  std::unique_ptr<Entry> overflow_;
  std::vector<Entry *> byPosition_;
  Entry *current_ = nullptr;
  CString keyBuffer_;
  CString valueBuffer_;
};
