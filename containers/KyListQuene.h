// KyListQuene<T>: the queue interface on a singly linked list. The dictionary
// walks its tree breadth-first with one of these, built with no limit (-1).
#pragma once

#include <cstdint>

#include "containers/KyLinkedList.h"
#include "containers/KyQuene.h"

template <class T>
class KyListQuene : public KyQuene<T> {
 public:
  // A negative capacity means no limit.
  explicit KyListQuene(std::int32_t capacity = -1) : KyQuene<T>(capacity) {}

  void Clear() override { m_list.Reset(); }
  std::int32_t GetCount() const override { return m_list.GetLength(); }
  T &operator[](std::int32_t i) override { return m_list[i]; }
  bool GetHead(T &out) override {
    if (m_list.IsEmpty()) return false;
    m_list.MoveToFirst();
    out = m_list.GetCurData();
    return true;
  }
  bool GetTail(T &out) override {
    if (m_list.IsEmpty()) return false;
    m_list.MoveToLast();
    out = m_list.GetCurData();
    return true;
  }
  bool Push(T const &x) override {
    if (this->m_nCapacity >= 0 && GetCount() >= this->m_nCapacity) return false;
    m_list.Append(x);
    return true;
  }
  bool Pop(T &out) override {
    if (m_list.IsEmpty()) return false;
    m_list.MoveToFirst();
    out = m_list.GetCurData();
    m_list.DelCur();
    return true;
  }
  ~KyListQuene() override {}

 protected:
  KyList<T> m_list;
};
