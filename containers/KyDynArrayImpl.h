// KyDynArray<T>: the growable array of the container family.
//
// The buffer comes from array new, so T must be default-constructible;
// elements move by assignment and a removed element stays in the buffer until
// the buffer is freed. The cursor is a free integer: MoveToNext from the last
// element gives the length, MoveToPre from the first gives -1.
//
// Two growth policies live side by side on purpose: ReAllocate grows
// additively by the alloc unit and keeps spare space, SetLength fits the
// buffer exactly.
#pragma once

#include <cstdint>

#include "containers/KyArray.h"
#include "containers/KyDynArrayBase.h"
#include "containers/KyRankSort.h"

template <class T>
class KyDynArray : public KyDynArrayBase<T> {
 public:
  // space is a capacity, not a length: the array starts empty either way.
  explicit KyDynArray(std::int32_t space = 0, std::int32_t allocUnit = 10)
      : m_pData(nullptr), m_nSpace(0), m_nAllocUnit(allocUnit) {
    if (space > 0) {
      m_pData = new T[space]();
      m_nSpace = space;
    }
  }
  // A copy starts from the default unit, whatever the source's unit is.
  KyDynArray(KyDynArray const &other) : m_pData(nullptr), m_nSpace(0), m_nAllocUnit(10) { this->DeepCopy(other); }
  KyDynArray(KyDynArrayBase<T> const &other) : m_pData(nullptr), m_nSpace(0), m_nAllocUnit(10) {
    this->DeepCopy(other);
  }
  // No test for self-assignment, as everywhere in the family.
  KyDynArray &operator=(KyDynArray const &other) {
    this->DeepCopy(other);
    return *this;
  }
  KyDynArray &operator=(KyDynArrayBase<T> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  ~KyDynArray() override { delete[] m_pData; }

  // Makes the length n. Grows the space to n plus the alloc unit when n
  // exceeds it; a smaller n only shortens the logical length.
  void ReAllocate(std::int32_t n) override {
    if (n > m_nSpace) {
      std::int32_t space = n + m_nAllocUnit;
      T *fresh = new T[space]();
      for (std::int32_t i = 0; i < this->m_nLength; ++i) fresh[i] = m_pData[i];
      delete[] m_pData;
      m_pData = fresh;
      m_nSpace = space;
    }
    this->m_nLength = n;
  }
  // Exact fit: length and space both become n. With n equal to the space no
  // buffer changes hands and the contents stay, even without keep.
  void SetLength(std::int32_t n, bool keep) override {
    if (n != m_nSpace) {
      T *fresh = n >= 1 ? new T[n]() : nullptr;
      if (m_pData && keep) {
        std::int32_t carried = n < this->m_nLength ? n : this->m_nLength;
        for (std::int32_t i = 0; i < carried; ++i) fresh[i] = m_pData[i];
      }
      delete[] m_pData;
      m_pData = fresh;
    }
    m_nSpace = n;
    this->m_nLength = n;
  }
  // The buffer and the space stay.
  void Reset() override {
    this->m_nLength = 0;
    this->m_nCur = -1;
  }
  T &GetCurData() override { return m_pData[this->m_nCur]; }
  void SetCurData(T const &x) override { m_pData[this->m_nCur] = x; }
  T const *GetFirst() const override { return this->m_nLength > 0 ? m_pData : nullptr; }
  T const *GetNext(T const *p) const override {
    if (!p || p == m_pData + (this->m_nLength - 1)) return nullptr;
    return p + 1;
  }
  T const *GetPre(T const *p) const override {
    if (!p || p == m_pData) return nullptr;
    return p - 1;
  }
  T const *GetLast() const override { return this->m_nLength > 0 ? m_pData + (this->m_nLength - 1) : nullptr; }
  T &GetAt(std::int32_t i) const override { return m_pData[i]; }
  // The new element takes the cursor's index. x must not refer into this
  // array, since growing may free the buffer.
  void InsertCur(T const &x) override {
    ReAllocate(this->m_nLength + 1);
    std::int32_t cur = this->m_nCur;
    // The cursor must be on an element or just past the end; the test only
    // tells the optimiser that the shifted range starts inside the buffer.
    if (cur >= 0) {
      for (std::int32_t k = this->m_nLength - 1; k > cur; --k) m_pData[k] = m_pData[k - 1];
    }
    m_pData[cur] = x;
  }
  // The cursor lands on the predecessor (-1 for the first), so DelCur
  // followed by MoveToNext continues a scan without skipping.
  void DelCur() override {
    for (std::int32_t k = this->m_nCur; k < this->m_nLength - 1; ++k) m_pData[k] = m_pData[k + 1];
    ReAllocate(this->m_nLength - 1);
    --this->m_nCur;
  }
  void Sort(int (*compare)(T const &, T const &)) override {
    T *a = m_pData;
    kycontainers::RankSort(a, this->m_nLength,
                           [a, compare](std::int32_t i, std::int32_t j) { return compare(a[i], a[j]) > 0; });
  }
  // True sorts ascending. Only operator> of T is used.
  void Sort(bool ascending) override {
    T *a = m_pData;
    kycontainers::RankSort(a, this->m_nLength, [a, ascending](std::int32_t i, std::int32_t j) {
      return ascending ? a[i] > a[j] : a[j] > a[i];
    });
  }

  std::int32_t GetSpaceSize() const { return m_nSpace; }
  std::int32_t GetAllocUnit() const { return m_nAllocUnit; }
  void SetAllocUnit(std::int32_t unit) { m_nAllocUnit = unit; }
  // Reserves exactly n elements; false (and nothing changes) below the length.
  bool SetSpaceSize(std::int32_t n) {
    if (n < this->m_nLength) return false;
    if (n == m_nSpace) return true;
    std::int32_t length = this->m_nLength;
    SetLength(n, true);
    this->m_nLength = length;
    return true;
  }

  // Takes over buffer as n elements; the old buffer is freed. The cursor
  // is left as it was.
  void Attach(std::int32_t n, T *buffer) {
    delete[] m_pData;
    m_pData = buffer;
    this->m_nLength = n;
    m_nSpace = n;
  }
  // Hands the buffer to the caller, who must array-delete it.
  T *Detach() {
    T *buffer = m_pData;
    m_pData = nullptr;
    this->m_nLength = 0;
    m_nSpace = 0;
    this->m_nCur = -1;
    return buffer;
  }

 protected:
  T *m_pData;
  std::int32_t m_nSpace;
  std::int32_t m_nAllocUnit;
};
