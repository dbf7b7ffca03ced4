// KyXList<E>: a doubly linked list with a sparse index table, so that MoveTo
// (and with it operator[]) costs about one group instead of a walk from an
// end. Entry g of the table is the node at index g * G, G being the group
// size; every change of the list keeps the table true.
//
// Two limits are kept as they are. DetachAfterCur truncates the table to
// length / G entries, so the entry of a last partial group is dropped and
// later insertions append their entries one position too early: detach only
// at a multiple of G. And a copy takes the source's table as it stands, so
// its entries address the source's nodes; a copy must not be positioned with
// MoveTo once the source has changed or gone.
#pragma once

#include <cstdint>

#include "containers/KyDList.h"
#include "containers/KyDynArrayImpl.h"

template <class E>
class KyXList : public KyDList<E> {
  using Base = KyDList<E>;

 public:
  using Node = KyListNode<E>;

  explicit KyXList(std::int32_t length = 0, std::int32_t groupSize = 25, std::int32_t allocUnit = 100)
      : Base(length), m_arrGroup(0, allocUnit), m_nGroupSize(groupSize) {
    UpdateGroup(0);
  }
  KyXList(KyXList const &other) : Base(other), m_arrGroup(other.m_arrGroup), m_nGroupSize(other.m_nGroupSize) {}
  KyXList &operator=(KyXList const &other) {
    this->DeepCopy(other);
    m_arrGroup = other.m_arrGroup;
    m_nGroupSize = other.m_nGroupSize;
    return *this;
  }
  KyXList &operator=(KyDynArrayBase<E> const &other) {
    this->DeepCopy(other);
    return *this;
  }

  std::int32_t GetGroupSize() const { return m_nGroupSize; }

  // Appends table entries for the groups from `from` on; entries before it
  // are expected to stand.
  void UpdateGroup(std::int32_t from) {
    for (std::int32_t i = from * m_nGroupSize; i < this->m_nLength; i += m_nGroupSize) {
      Base::MoveTo(i);
      m_arrGroup.Append(this->m_pCurNode);
    }
  }

  void Reset() override {
    m_arrGroup.Reset();
    Base::Reset();
  }
  // Jumps to the indexed node of i's group, then walks at most one group.
  void MoveTo(std::int32_t i) override {
    std::int32_t g = i / m_nGroupSize;
    if (m_arrGroup.IsValidIndex(g)) this->SetCursor(m_arrGroup.GetAt(g), g * m_nGroupSize);
    Base::MoveTo(i);
  }
  void DelCur() override {
    if (this->m_nLength % m_nGroupSize == 1) m_arrGroup.DelTail();
    // Every indexed node at or behind the cursor moves up one place.
    for (std::int32_t g = FirstGroupFrom(this->m_nCur); g < m_arrGroup.GetLength(); ++g) {
      Node *&entry = m_arrGroup.GetAt(g);
      entry = entry->next;
    }
    Base::DelCur();
  }
  void InsertAfterCur(E const &x) override {
    Base::InsertAfterCur(x);
    // Every indexed node at or behind the new element moved back one place.
    for (std::int32_t g = FirstGroupFrom(this->m_nCur); g < m_arrGroup.GetLength(); ++g) {
      Node *&entry = m_arrGroup.GetAt(g);
      entry = this->D(entry)->prev;
    }
    if (this->m_nLength % m_nGroupSize == 1) m_arrGroup.Append(this->m_pTail);
  }
  void DetachAfterCur() override {
    Base::DetachAfterCur();
    m_arrGroup.ReAllocate(this->m_nLength / m_nGroupSize);
  }
  std::int32_t Conbine(KyList<E> &other, std::int32_t i = 0) override {
    Base::Conbine(other, i);
    UpdateGroup(m_arrGroup.GetLength());
    return this->m_nLength;
  }
  void ReverseList() override {
    m_arrGroup.Reset();
    Base::ReverseList();
    UpdateGroup(0);
  }
  void Rotate(std::int32_t i, std::int32_t j) override {
    m_arrGroup.Reset();
    Base::Rotate(i, j);
    UpdateGroup(0);
  }

 protected:
  // The first group whose indexed node lies at or after index c.
  std::int32_t FirstGroupFrom(std::int32_t c) const { return c == 0 ? 0 : (c - 1) / m_nGroupSize + 1; }

  KyDynArray<Node *> m_arrGroup;
  std::int32_t m_nGroupSize;
};
