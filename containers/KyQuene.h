// First-in first-out queue interface. The index searches of the containers
// fill a KyQuene<std::int32_t>; the dictionary walks its tree breadth-first
// through the list-backed form KyListQuene (KyListQuene.h).
#pragma once

#include <cstdint>

template <class T>
class KyQuene {
 public:
  // A negative capacity means no limit.
  explicit KyQuene(std::int32_t capacity = -1) : m_nCapacity(capacity) {}

  // The order of these declarations is the order of the virtual table.
  virtual void Clear() = 0;
  virtual std::int32_t GetCount() const = 0;
  virtual T &operator[](std::int32_t i) = 0;
  // Copies the oldest value into out; false when empty. Nothing is removed.
  virtual bool GetHead(T &out) = 0;
  // Copies the newest value into out; false when empty.
  virtual bool GetTail(T &out) = 0;
  // False when the queue is at its capacity.
  virtual bool Push(T const &x) = 0;
  // Removes the oldest value into out; false when empty.
  virtual bool Pop(T &out) = 0;
  virtual ~KyQuene() = 0;

 protected:
  std::int32_t m_nCapacity;
};

template <class T>
KyQuene<T>::~KyQuene() {}
