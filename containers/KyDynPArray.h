// KyDynPArray<T>: the owning array of pointers. A slot may be null; the array
// deletes its pointees on removal, on shrinking and in its destructor.
//
// It speaks the interface of the owning list KyPDList, with deliberate
// differences: TakeOffCur leaves a null slot behind instead of removing it,
// FindDataDel dereferences every slot (the array must hold no null), the
// binary searches use both operator< and operator> of T, and operator==
// compares the pointees properly.
#pragma once

#include <cstdint>

#include "containers/KyDynArrayImpl.h"

template <class T>
class KyDynPArray : public KyDynArray<T *> {
  using Base = KyDynArray<T *>;

 public:
  explicit KyDynPArray(std::int32_t space = 0, std::int32_t allocUnit = 10) : Base(space, allocUnit) {}
  // Copies share the pointees; see the file comment of KyPDList.h.
  KyDynPArray(KyDynPArray const &other) : Base(other) {}
  KyDynPArray(KyDynArrayBase<T *> const &other) : Base(other) {}
  KyDynPArray &operator=(KyDynPArray const &other) {
    this->DeepCopy(other);
    return *this;
  }
  KyDynPArray &operator=(KyDynArrayBase<T *> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  ~KyDynPArray() override { ReleaseAll(); }

  using Base::Sort;

  // New slots are null; slots dropped by shrinking have their pointees
  // deleted first.
  void ReAllocate(std::int32_t n) override {
    std::int32_t length = this->m_nLength;
    if (n > length) {
      Base::ReAllocate(n);
      for (std::int32_t k = length; k < n; ++k) this->m_pData[k] = nullptr;
    } else if (n < length) {
      for (std::int32_t k = n; k < length; ++k) delete this->m_pData[k];
      Base::ReAllocate(n);
    }
  }
  void SetLength(std::int32_t n, bool keep) override {
    std::int32_t length = this->m_nLength;
    if (!keep) {
      ReleaseAll();
      Base::SetLength(n, false);
    } else if (n > length) {
      Base::SetLength(n, true);
      for (std::int32_t k = length; k < n; ++k) this->m_pData[k] = nullptr;
    } else if (n < length) {
      for (std::int32_t k = n; k < length; ++k) delete this->m_pData[k];
      Base::SetLength(n, true);
    }
  }
  void Reset() override {
    ReleaseAll();
    this->m_nLength = 0;
    this->m_nCur = -1;
  }
  // Deletes the pointee and removes the slot. The last pointer is parked
  // outside the buffer while the slots shift down, so that the shrinking
  // ReAllocate inside the array's DelCur finds a null there and deletes
  // nothing that is still held.
  void DelCur() override {
    ReleaseCur();
    std::int32_t last = this->m_nLength - 1;
    if (this->m_nCur < last) {
      T *parked = this->m_pData[last];
      this->m_pData[last] = nullptr;
      Base::DelCur();
      this->m_pData[this->m_nLength - 1] = parked;
    } else {
      Base::DelCur();
    }
  }
  // On the pointees: true compares *a[i] > *a[j], false *a[i] < *a[j]. No
  // guard against null slots; SortEx is the form that has one.
  void Sort(bool ascending) override {
    T **a = this->m_pData;
    kycontainers::RankSort(a, this->m_nLength, [a, ascending](std::int32_t i, std::int32_t j) {
      return ascending ? *a[i] > *a[j] : *a[i] < *a[j];
    });
  }
  // The pointer-safe move: the pointer is taken out of its old slot before
  // the slot is deleted, so the pointee survives.
  bool Move(std::int32_t i, std::int32_t j) override {
    if (i == j || i == j - 1) return false;
    this->MoveTo(i);
    T *p = this->GetCurData();
    this->SetCurData(nullptr);
    this->Insert(j, p);
    if (i <= j) {
      this->Del(i);
      this->MoveTo(j - 1);
    } else {
      this->Del(i + 1);
      this->MoveTo(j);
    }
    return true;
  }

  // ---- Virtual operations added behind the base's table. ----

  // Deletes the pointee at the cursor and leaves a null slot. Nothing
  // happens on a null slot or an out cursor.
  virtual void ReleaseCur() {
    if (this->IsOut()) return;
    T *&slot = this->m_pData[this->m_nCur];
    if (slot) {
      delete slot;
      slot = nullptr;
    }
  }
  // Hands the pointee at the cursor to the caller; the slot stays, null.
  // Null for an out cursor.
  virtual T *TakeOffCur() {
    if (this->IsOut()) return nullptr;
    T *p = this->m_pData[this->m_nCur];
    this->m_pData[this->m_nCur] = nullptr;
    return p;
  }
  // Sorts by a callback on the pointees; the array must hold no null.
  virtual void Sort(int (*compare)(T const &, T const &)) {
    T **a = this->m_pData;
    kycontainers::RankSort(a, this->m_nLength,
                           [a, compare](std::int32_t i, std::int32_t j) { return compare(*a[i], *a[j]) > 0; });
  }

  // ---- Access through the pointer; unchecked. ----

  T &GetCurPData() { return *this->GetCurData(); }
  T &GetPData(std::int32_t i) const { return *this->GetAt(i); }
  // Through operator[]: moves the cursor and grows the array if needed.
  T &operator()(std::int32_t i) { return *(*this)[i]; }
  bool IsCurEmpty() const { return this->IsOut() || this->m_pData[this->m_nCur] == nullptr; }
  bool IsEmptyData(std::int32_t i) const { return !this->IsValidIndex(i) || this->m_pData[i] == nullptr; }
  std::int32_t GetDataNum() const {
    std::int32_t n = 0;
    for (std::int32_t k = 0; k < this->m_nLength; ++k) {
      if (this->m_pData[k]) ++n;
    }
    return n;
  }

  // ---- Ownership. ----

  void Release(std::int32_t i) {
    this->MoveTo(i);
    ReleaseCur();
  }
  void ReleaseAll() {
    for (std::int32_t k = 0; k < this->m_nLength; ++k) {
      delete this->m_pData[k];
      this->m_pData[k] = nullptr;
    }
  }
  T *TakeOff(std::int32_t i) {
    this->MoveTo(i);
    return TakeOffCur();
  }
  T *TakeOffHead() {
    this->MoveToFirst();
    return TakeOffCur();
  }
  T *TakeOffTail() {
    this->MoveToLast();
    return TakeOffCur();
  }
  // Stores p in the lowest null slot, or behind the end; returns the index.
  std::int32_t PlaceIn(T *p) {
    std::int32_t i = 0;
    while (!IsEmptyData(i)) ++i;
    (*this)[i] = p;
    return i;
  }
  // Removes (and deletes) the first slot holding exactly p: 1, or 0 if none.
  std::int32_t FindDel(T *p) {
    std::int32_t i = this->Find(p, 0, -1);
    if (i < 0) return 0;
    this->Del(i);
    return 1;
  }

  // ---- Search through the pointees; null slots never match. ----

  std::int32_t FindData(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    NormaliseEnd(end);
    for (std::int32_t i = start; i <= end; ++i) {
      T *p = this->m_pData[i];
      if (p && *p == x) return i;
    }
    return -1;
  }
  // Pushes every match; returns the count of out.
  std::int32_t FindData(T const &x, KyQuene<std::int32_t> &out, std::int32_t start = 0,
                        std::int32_t end = -1) const {
    NormaliseEnd(end);
    for (std::int32_t i = start; i <= end; ++i) {
      T *p = this->m_pData[i];
      if (p && *p == x) out.Push(i);
    }
    return out.GetCount();
  }
  // Deletes every pointee equal to x and removes its slot. Every slot is
  // dereferenced: the array must hold no null.
  std::int32_t FindDataDel(T const &x) {
    std::int32_t count = 0;
    this->MoveToFirst();
    while (!this->IsOut()) {
      if (*this->GetCurData() == x) {
        DelCur();
        ++count;
      }
      this->MoveToNext();
    }
    return count;
  }
  std::int32_t BFindData(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    NormaliseEnd(end);
    if (start > end) return -1;
    if (x < *this->m_pData[start] || x > *this->m_pData[end]) return -1;
    while (start <= end) {
      std::int32_t mid = (start + end) / 2;
      T const &e = *this->m_pData[mid];
      if (x > e) {
        start = mid + 1;
      } else if (x < e) {
        end = mid - 1;
      } else {
        return mid;
      }
    }
    return -1;
  }
  bool BFindDataTo(T const &x, std::int32_t start = 0, std::int32_t end = -1) {
    NormaliseEnd(end);
    if (this->m_nLength == 0) {
      this->MoveTo(0);
      return false;
    }
    this->MoveTo(start);
    if (x < GetCurPData()) return false;
    this->MoveTo(end);
    if (x > GetCurPData()) {
      this->MoveToNext();
      return false;
    }
    while (start < end) {
      std::int32_t mid = (start + end) / 2;
      this->MoveTo(mid);
      if (x > GetCurPData()) {
        start = mid + 1;
      } else if (x < GetCurPData()) {
        end = mid - 1;
      } else {
        return true;
      }
    }
    if (start != end) return false;
    this->MoveTo(start);
    if (x > GetCurPData()) {
      this->MoveToNext();
      return false;
    }
    return !(x < GetCurPData());
  }
  // Takes p in sorted position behind its equals. When an equal pointee is
  // present and equals are not allowed, false: the caller still owns p.
  bool SortInto(T *p, bool allowEqual) {
    bool found = BFindDataTo(*p, 0, -1);
    if (found && !allowEqual) return false;
    if (found) {
      this->MoveToNext();
      while (!this->IsOut() && this->GetCurData() && *this->GetCurData() == *p) this->MoveToNext();
    }
    this->InsertCur(p);
    return true;
  }
  // Stable sort on the pointees with null slots sinking to the tail.
  void SortEx(bool ascending) {
    T **a = this->m_pData;
    kycontainers::RankSort(a, this->m_nLength, [a, ascending](std::int32_t i, std::int32_t j) {
      if (!a[j]) return false;
      if (!a[i]) return true;
      return ascending ? *a[i] > *a[j] : *a[i] < *a[j];
    });
  }

  // Same length, and each pair of slots both null or both set with equal
  // pointees.
  bool operator==(KyDynArrayBase<T *> const &other) const { return EqualTo(other); }
  bool operator!=(KyDynArrayBase<T *> const &other) const { return !EqualTo(other); }
  // Two arrays of this kind compare here, so the comparison has one best
  // reading whichever side stands first.
  bool operator==(KyDynPArray const &other) const { return EqualTo(other); }
  bool operator!=(KyDynPArray const &other) const { return !EqualTo(other); }

 private:
  bool EqualTo(KyDynArrayBase<T *> const &other) const {
    if (this->m_nLength != other.GetLength()) return false;
    T *const *q = other.GetFirst();
    for (std::int32_t k = 0; k < this->m_nLength && q; ++k, q = other.GetNext(q)) {
      T *p = this->m_pData[k];
      if (!p != !*q) return false;
      if (p && !(*p == **q)) return false;
    }
    return true;
  }

  void NormaliseEnd(std::int32_t &end) const {
    if (end < 0 || end >= this->m_nLength) end = this->m_nLength - 1;
  }
};
