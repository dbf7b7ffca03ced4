// KyArray<T>: a small fixed array with no spare capacity and no cursor; the
// buffer always has exactly the length, so every insertion or removal
// reallocates. Ky2dArray<T> is an array of such rows.
#pragma once

#include <cstdint>

#include "containers/KyDynArrayBase.h"
#include "containers/KyQuene.h"
#include "containers/KyRankSort.h"

template <class T>
class KyArray {
 public:
  // n above 0: a buffer of n default elements; otherwise empty.
  explicit KyArray(std::int32_t n = 0) : m_pData(nullptr), m_nLength(0) {
    if (n > 0) {
      m_pData = new T[n]();
      m_nLength = n;
    }
  }
  KyArray(KyArray const &other) : m_pData(nullptr), m_nLength(0) { CopyFrom(other); }
  KyArray(KyDynArrayBase<T> const &other) : m_pData(nullptr), m_nLength(0) { CopyFrom(other); }
  KyArray &operator=(KyArray const &other) {
    CopyFrom(other);
    return *this;
  }
  KyArray &operator=(KyDynArrayBase<T> const &other) {
    CopyFrom(other);
    return *this;
  }
  virtual ~KyArray() { delete[] m_pData; }

  std::int32_t GetLength() const { return m_nLength; }
  std::int32_t GetMaxIndex() const { return m_nLength - 1; }
  bool IsEmpty() const { return m_nLength == 0; }
  bool IsValidIndex(std::int32_t i) const { return i >= 0 && i < m_nLength; }
  T *GetDataBuffer() const { return m_pData; }

  // Unchecked, and unlike the containers of KyDynArrayBase never grows.
  T &operator[](std::int32_t i) { return m_pData[i]; }
  T const &operator[](std::int32_t i) const { return m_pData[i]; }
  T &GetAt(std::int32_t i) const { return m_pData[i]; }
  void SetAt(std::int32_t i, T const &x) { m_pData[i] = x; }
  void SetAll(T const &x) {
    for (std::int32_t i = 0; i < m_nLength; ++i) m_pData[i] = x;
  }

  // An exact new buffer of n default elements; with keep the first
  // min(n, length) elements are carried over. n at or below 0 frees it.
  void ReAllocate(std::int32_t n, bool keep = true) {
    if (n == m_nLength) return;
    if (n <= 0) {
      Reset();
      return;
    }
    T *fresh = new T[n]();
    if (keep) {
      std::int32_t carried = n < m_nLength ? n : m_nLength;
      for (std::int32_t i = 0; i < carried; ++i) fresh[i] = m_pData[i];
    }
    delete[] m_pData;
    m_pData = fresh;
    m_nLength = n;
  }
  void Reset() {
    delete[] m_pData;
    m_pData = nullptr;
    m_nLength = 0;
  }

  void Insert(std::int32_t i, T const &x) {
    T *fresh = new T[m_nLength + 1]();
    for (std::int32_t k = 0; k < i; ++k) fresh[k] = m_pData[k];
    fresh[i] = x;
    for (std::int32_t k = i; k < m_nLength; ++k) fresh[k + 1] = m_pData[k];
    delete[] m_pData;
    m_pData = fresh;
    ++m_nLength;
  }
  std::int32_t Append(T const &x) {
    Insert(m_nLength, x);
    return m_nLength - 1;
  }
  void InsertHead(T const &x) { Insert(0, x); }
  void Del(std::int32_t i) {
    T *fresh = m_nLength > 1 ? new T[m_nLength - 1]() : nullptr;
    for (std::int32_t k = 0, d = 0; k < m_nLength; ++k) {
      if (k != i) fresh[d++] = m_pData[k];
    }
    delete[] m_pData;
    m_pData = fresh;
    --m_nLength;
  }
  void DelHead() { Del(0); }
  void DelTail() { Del(m_nLength - 1); }

  std::int32_t Find(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    if (end < 0 || end >= m_nLength) end = m_nLength - 1;
    for (std::int32_t i = start; i <= end; ++i) {
      if (m_pData[i] == x) return i;
    }
    return -1;
  }
  // Pushes every matching index; returns the count of out.
  std::int32_t Find(T const &x, KyQuene<std::int32_t> &out, std::int32_t start = 0,
                    std::int32_t end = -1) const {
    if (end == -1 || end >= m_nLength) end = m_nLength - 1;
    for (std::int32_t i = start; i <= end; ++i) {
      if (m_pData[i] == x) out.Push(i);
    }
    return out.GetCount();
  }
  // Deletes every element equal to x; returns how many.
  std::int32_t FindDel(T const &x) {
    std::int32_t count = 0;
    for (std::int32_t i = 0; i < m_nLength;) {
      if (m_pData[i] == x) {
        Del(i);
        ++count;
      } else {
        ++i;
      }
    }
    return count;
  }
  std::int32_t FindOrAppend(T const &x) {
    std::int32_t i = Find(x, 0, -1);
    return i >= 0 ? i : Append(x);
  }
  void FindOrInsertHead(T const &x) {
    if (Find(x, 0, -1) < 0) InsertHead(x);
  }
  std::int32_t BFind(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    if (end < 0 || end >= m_nLength) end = m_nLength - 1;
    if (start > end) return -1;
    if (x < m_pData[start] || x > m_pData[end]) return -1;
    while (start <= end) {
      std::int32_t mid = (start + end) / 2;
      if (x > m_pData[mid]) {
        start = mid + 1;
      } else if (x < m_pData[mid]) {
        end = mid - 1;
      } else {
        return mid;
      }
    }
    return -1;
  }
  void Reverse(std::int32_t i = 0, std::int32_t j = -1) {
    if (j == -1) j = m_nLength - 1;
    for (std::int32_t k = 0; k < (j - i + 1) / 2; ++k) {
      T held = m_pData[i + k];
      m_pData[i + k] = m_pData[j - k];
      m_pData[j - k] = held;
    }
  }

  bool operator==(KyArray const &other) const {
    if (m_nLength != other.m_nLength) return false;
    for (std::int32_t i = 0; i < m_nLength; ++i) {
      if (m_pData[i] != other.m_pData[i]) return false;
    }
    return true;
  }
  bool operator!=(KyArray const &other) const { return !(*this == other); }
  // Only the lengths count.
  bool operator<(KyArray const &other) const { return m_nLength < other.m_nLength; }
  bool operator>(KyArray const &other) const { return m_nLength > other.m_nLength; }

  void Sort(int (*compare)(T const &, T const &)) {
    T *a = m_pData;
    kycontainers::RankSort(a, m_nLength, [a, compare](std::int32_t i, std::int32_t j) {
      return compare(a[i], a[j]) > 0;
    });
  }
  // True sorts ascending.
  void Sort(bool ascending) {
    T *a = m_pData;
    kycontainers::RankSort(a, m_nLength, [a, ascending](std::int32_t i, std::int32_t j) {
      return ascending ? a[i] > a[j] : a[j] > a[i];
    });
  }

 protected:
  T *m_pData;
  std::int32_t m_nLength;

 private:
  void CopyFrom(KyArray const &other) {
    T *fresh = other.m_nLength > 0 ? new T[other.m_nLength]() : nullptr;
    for (std::int32_t i = 0; i < other.m_nLength; ++i) fresh[i] = other.m_pData[i];
    delete[] m_pData;
    m_pData = fresh;
    m_nLength = other.m_nLength > 0 ? other.m_nLength : 0;
  }
  void CopyFrom(KyDynArrayBase<T> const &other) {
    std::int32_t n = other.GetLength();
    T *fresh = n > 0 ? new T[n]() : nullptr;
    std::int32_t k = 0;
    for (T const *p = other.GetFirst(); p && k < n; p = other.GetNext(p)) fresh[k++] = *p;
    delete[] m_pData;
    m_pData = fresh;
    m_nLength = n > 0 ? n : 0;
  }
};

// A grid: an array of rows, each row a KyArray<T>.
template <class T>
class Ky2dArray : public KyArray<KyArray<T>> {
 public:
  explicit Ky2dArray(std::int32_t rows = 0, std::int32_t columns = 0) : KyArray<KyArray<T>>(rows) {
    for (std::int32_t r = 0; r < this->m_nLength; ++r) this->m_pData[r].ReAllocate(columns, false);
  }

  void ReAllocate(std::int32_t rows, std::int32_t columns, bool keep) {
    KyArray<KyArray<T>>::ReAllocate(rows, keep);
    for (std::int32_t r = 0; r < this->m_nLength; ++r) this->m_pData[r].ReAllocate(columns, keep);
  }
  // Sets every cell.
  void SetAll(T const &x) {
    for (std::int32_t r = 0; r < this->m_nLength; ++r) this->m_pData[r].SetAll(x);
  }
};
