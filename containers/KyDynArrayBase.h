// KyDynArrayBase<T>: the root of every container of the system. It fixes one
// vocabulary of length, one built-in cursor and element operations, and
// implements everything that can be said in those words: search, binary
// search, sorted insertion, slicing and comparison. The arrays (KyDynArray.h)
// and the cursor lists (KyList.h) fill in the storage, so code written
// against this class runs on both and a copy between any two members works.
//
// Indices, lengths and counts are 32-bit signed and 0-based; -1 means "not
// found" and "cursor outside". Range errors are the caller's: nothing here
// checks an index unless its description says so.
#pragma once

#include <cstdint>

#include "containers/KyQuene.h"

template <class T>
class KyArray;

template <class T>
class KyDynArrayBase {
 public:
  KyDynArrayBase() : m_nLength(0), m_nCur(-1) {}
  KyDynArrayBase(KyDynArrayBase const &) = default;

  // ---- The virtual operations, in the order of the virtual table. ----

  // Makes the length n (arrays may keep spare space, lists only grow).
  virtual void ReAllocate(std::int32_t n) = 0;
  virtual ~KyDynArrayBase() {}
  virtual void SetLength(std::int32_t n, bool keep) = 0;
  virtual void Reset() {
    while (m_nLength > 0) DelTail();
  }
  virtual T &GetCurData() = 0;
  virtual void SetCurData(T const &x) = 0;
  virtual void MoveToFirst() { m_nCur = 0; }
  virtual void MoveToNext() { ++m_nCur; }
  virtual void MoveToPre() { --m_nCur; }
  virtual void MoveToLast() { m_nCur = m_nLength - 1; }
  // Unchecked: any value is stored.
  virtual void MoveTo(std::int32_t i) { m_nCur = i; }
  // Writing past the end grows the container, and every use moves the cursor.
  virtual T &operator[](std::int32_t i) {
    if (i >= m_nLength) ReAllocate(i + 1);
    MoveTo(i);
    return GetCurData();
  }
  virtual T const *GetFirst() const = 0;
  virtual T const *GetNext(T const *p) const = 0;
  virtual T const *GetPre(T const *p) const = 0;
  virtual T const *GetLast() const = 0;
  virtual T &GetAt(std::int32_t i) const = 0;
  virtual void InsertCur(T const &x) = 0;
  virtual void Insert(std::int32_t i, T const &x) {
    MoveTo(i);
    InsertCur(x);
  }
  virtual void InsertHead(T const &x) {
    MoveToFirst();
    InsertCur(x);
  }
  virtual std::int32_t Append(T const &x) {
    MoveTo(m_nLength);
    InsertCur(x);
    return m_nCur;
  }
  virtual void DelCur() = 0;
  virtual void Sort(int (*compare)(T const &, T const &)) = 0;
  virtual void Sort(bool ascending) = 0;
  // Takes element i to the gap before index j; false when that changes nothing.
  virtual bool Move(std::int32_t i, std::int32_t j) {
    if (i == j || i == j - 1) return false;
    MoveTo(i);
    T element = GetCurData();
    Insert(j, element);
    if (i <= j) {
      Del(i);
      MoveTo(j - 1);
    } else {
      Del(i + 1);
      MoveTo(j);
    }
    return true;
  }

  // ---- Length and cursor state. ----

  std::int32_t GetLength() const { return m_nLength; }
  std::int32_t GetMaxIndex() const { return m_nLength - 1; }
  std::int32_t GetCur() const { return m_nCur; }
  bool IsEmpty() const { return m_nLength == 0; }
  bool IsValidIndex(std::int32_t i) const { return i >= 0 && i < m_nLength; }
  bool IsBegin() const { return m_nCur < 0; }
  bool IsEnd() const { return m_nCur >= m_nLength; }
  bool IsOut() const { return IsBegin() || IsEnd(); }

  // Read access without cursor move or growth; unchecked.
  T &operator[](std::int32_t i) const { return GetAt(i); }
  // Checked access: null for an invalid index.
  T *GetTo(std::int32_t i) const { return IsValidIndex(i) ? &GetAt(i) : nullptr; }

  // ---- Removal and size. ----

  void Del(std::int32_t i) {
    MoveTo(i);
    DelCur();
  }
  void DelHead() {
    MoveToFirst();
    DelCur();
  }
  void DelTail() {
    MoveToLast();
    DelCur();
  }
  void IncreaseSize(std::int32_t n) { ReAllocate(m_nLength + n); }
  // A list never shrinks through ReAllocate, so on a list this does nothing.
  void DecreaseSize(std::int32_t n) { ReAllocate(m_nLength - n); }

  // ---- Whole-container edits. ----

  // Leaves the cursor out.
  void SetAll(T const &x) {
    MoveToFirst();
    while (!IsOut()) {
      SetCurData(x);
      MoveToNext();
    }
  }
  // The cursor ends on i.
  void Exchange(std::int32_t i, std::int32_t j) {
    T first = (*this)[i];
    T second = (*this)[j];
    (*this)[j] = first;
    (*this)[i] = second;
  }
  // Reverses elements i..j; j = -1 means the last index.
  void Reverse(std::int32_t i = 0, std::int32_t j = -1) {
    if (j == -1) j = m_nLength - 1;
    for (std::int32_t k = 0; k < (j - i + 1) / 2; ++k) Exchange(i + k, j - k);
  }

  // Element-by-element copy; a pointer element copies the pointer.
  void DeepCopy(KyDynArrayBase<T> const &other) {
    SetLength(other.GetLength(), false);
    MoveToFirst();
    T const *p = other.GetFirst();
    while (!IsOut() && p) {
      SetCurData(*p);
      MoveToNext();
      p = other.GetNext(p);
    }
  }
  void DeepCopy(KyArray<T> const &other) {
    SetLength(other.GetLength(), false);
    MoveToFirst();
    std::int32_t k = 0;
    while (!IsOut() && k < other.GetLength()) {
      SetCurData(other.GetDataBuffer()[k++]);
      MoveToNext();
    }
  }

  // Copies only length and cursor; the derived classes copy their storage.
  KyDynArrayBase &operator=(KyDynArrayBase const &other) {
    m_nLength = other.m_nLength;
    m_nCur = other.m_nCur;
    return *this;
  }

  KyDynArrayBase &operator<<(T const &x) {
    Append(x);
    return *this;
  }
  // Appends all of other. Goes through SetLength, which on an array is an
  // exact fit, so each use reallocates.
  KyDynArrayBase &operator<<(KyDynArrayBase<T> const &other) {
    std::int32_t n = m_nLength;
    SetLength(n + other.GetLength(), true);
    MoveTo(n);
    T const *p = other.GetFirst();
    while (!IsOut() && p) {
      SetCurData(*p);
      MoveToNext();
      p = other.GetNext(p);
    }
    return *this;
  }
  KyDynArrayBase &operator<<(KyArray<T> const &other) {
    std::int32_t n = m_nLength;
    SetLength(n + other.GetLength(), true);
    MoveTo(n);
    std::int32_t k = 0;
    while (!IsOut() && k < other.GetLength()) {
      SetCurData(other.GetDataBuffer()[k++]);
      MoveToNext();
    }
    return *this;
  }

  // ---- Slices; the range must exist. ----

  void Left(std::int32_t n, KyDynArrayBase<T> &out) const { CopyRange(0, n, out); }
  // j is inclusive.
  void Mid(std::int32_t i, std::int32_t j, KyDynArrayBase<T> &out) const { CopyRange(i, j - i + 1, out); }
  void Right(std::int32_t n, KyDynArrayBase<T> &out) const { CopyRange(m_nLength - n, n, out); }

  // ---- Comparison. ----

  bool operator==(KyDynArrayBase<T> const &other) const {
    if (m_nLength != other.GetLength()) return false;
    T const *p = GetFirst();
    T const *q = other.GetFirst();
    while (p && q) {
      if (*p != *q) return false;
      p = GetNext(p);
      q = other.GetNext(q);
    }
    return true;
  }
  bool operator!=(KyDynArrayBase<T> const &other) const { return !(*this == other); }
  // Only the lengths count; the elements play no part.
  bool operator<(KyDynArrayBase<T> const &other) const { return m_nLength < other.GetLength(); }
  bool operator>(KyDynArrayBase<T> const &other) const { return m_nLength > other.GetLength(); }

  // ---- Search. ----

  // Index of the first element equal to x in start..end, or -1. An end below
  // 0 or at or above the length means the last index.
  std::int32_t Find(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    if (end < 0 || end >= m_nLength) end = m_nLength - 1;
    if (start > end) return -1;
    T const *p = &GetAt(start);
    for (std::int32_t i = start; i <= end && p; ++i, p = GetNext(p)) {
      if (*p == x) return i;
    }
    return -1;
  }
  // Pushes every matching index on out and returns out's count, which
  // includes what out held before. Only an end of -1 or one at or above the
  // length means the last index.
  std::int32_t Find(T const &x, KyQuene<std::int32_t> &out, std::int32_t start = 0,
                    std::int32_t end = -1) const {
    if (end == -1 || end >= m_nLength) end = m_nLength - 1;
    if (start <= end) {
      T const *p = &GetAt(start);
      for (std::int32_t i = start; i <= end && p; ++i, p = GetNext(p)) {
        if (*p == x) out.Push(i);
      }
    }
    return out.GetCount();
  }
  // True with the cursor on the first match at or after start; false with
  // the cursor out.
  bool FindTo(T const &x, std::int32_t start = 0) {
    MoveTo(start);
    while (!IsOut()) {
      if (GetCurData() == x) return true;
      MoveToNext();
    }
    return false;
  }
  std::int32_t FindOrAppend(T const &x) {
    std::int32_t i = Find(x, 0, -1);
    if (i >= 0) return i;
    return Append(x);
  }
  void FindOrInsertHead(T const &x) {
    if (Find(x, 0, -1) < 0) InsertHead(x);
  }
  // Deletes every element equal to x; returns how many.
  std::int32_t FindDel(T const &x) {
    std::int32_t count = 0;
    MoveToFirst();
    while (!IsOut()) {
      if (GetCurData() == x) {
        DelCur();
        ++count;
      }
      MoveToNext();
    }
    return count;
  }

  // Binary search of a container sorted ascending: the index of a match or -1.
  std::int32_t BFind(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    if (end < 0 || end >= m_nLength) end = m_nLength - 1;
    if (start > end) return -1;
    if (x < GetAt(start) || x > GetAt(end)) return -1;
    while (start <= end) {
      std::int32_t mid = (start + end) / 2;
      T const &e = GetAt(mid);
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
  // Binary search with the cursor. On a false return the cursor stands
  // where x belongs: InsertCur there keeps the order.
  bool BFindTo(T const &x, std::int32_t start = 0, std::int32_t end = -1) {
    if (end < 0 || end >= m_nLength) end = m_nLength - 1;
    if (m_nLength == 0) {
      MoveTo(0);
      return false;
    }
    MoveTo(start);
    if (x < GetCurData()) return false;
    MoveTo(end);
    if (x > GetCurData()) {
      MoveToNext();
      return false;
    }
    while (start < end) {
      std::int32_t mid = (start + end) / 2;
      MoveTo(mid);
      if (x > GetCurData()) {
        start = mid + 1;
      } else if (x < GetCurData()) {
        end = mid - 1;
      } else {
        return true;
      }
    }
    // The last probe overshot: the cursor is on an element greater than x.
    if (start != end) return false;
    MoveTo(start);
    if (x > GetCurData()) {
      MoveToNext();
      return false;
    }
    return !(x < GetCurData());
  }
  // Inserts x in sorted position; an equal element goes behind its equals.
  // False (nothing changed) when x is present and equals are not allowed.
  bool SortInto(T const &x, bool allowEqual) {
    bool found = BFindTo(x, 0, -1);
    if (found && !allowEqual) return false;
    if (found) {
      MoveToNext();
      while (!IsOut() && GetCurData() == x) MoveToNext();
    }
    InsertCur(x);
    return true;
  }

 protected:
  std::int32_t m_nLength;
  std::int32_t m_nCur;

 private:
  void CopyRange(std::int32_t first, std::int32_t n, KyDynArrayBase<T> &out) const {
    out.SetLength(n, false);
    out.MoveToFirst();
    T const *p = n > 0 ? &GetAt(first) : nullptr;
    for (std::int32_t k = 0; k < n && p; ++k) {
      out.SetCurData(*p);
      out.MoveToNext();
      p = GetNext(p);
    }
  }
};
