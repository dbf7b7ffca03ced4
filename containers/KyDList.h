// KyDList<T>: the doubly linked cursor list. The ring also runs backwards
// through prev (the prev of the sentinel is the tail), which makes MoveToPre,
// GetPre and DelCur constant time. Everything that only follows next is
// inherited from KyList<T>.
#pragma once

#include <cstdint>

#include "containers/KyLinkedList.h"

template <class T>
class KyDList : public KyList<T> {
 public:
  using Node = KyListNode<T>;
  using DNode = KyDListNode<T>;

  explicit KyDList(std::int32_t n = 0) : KyList<T>(typename KyList<T>::NoSentinel()) {
    InitDSentinel();
    this->ReAllocate(n);
  }
  KyDList(KyDList const &other) : KyList<T>(typename KyList<T>::NoSentinel()) {
    InitDSentinel();
    this->DeepCopy(other);
  }
  KyDList(KyDynArrayBase<T> const &other) : KyList<T>(typename KyList<T>::NoSentinel()) {
    InitDSentinel();
    this->DeepCopy(other);
  }
  KyDList &operator=(KyDList const &other) {
    this->DeepCopy(other);
    return *this;
  }
  KyDList &operator=(KyDynArrayBase<T> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  // Frees the two-link nodes itself and clears head, so that ~KyList, which
  // would free them as one-link nodes, has nothing left to do.
  ~KyDList() override {
    if (this->m_pHead) {
      Reset();
      delete D(this->m_pHead);
      this->m_pHead = nullptr;
    }
  }

  void Reset() override {
    Node *node = this->m_pHead->next;
    while (node != this->m_pHead) {
      Node *next = node->next;
      delete D(node);
      node = next;
    }
    this->InitSentinel(this->m_pHead);
    D(this->m_pHead)->prev = D(this->m_pHead);
  }

  T const *GetPre(T const *p) const override {
    if (!p || this->m_nLength == 0 || p == &this->m_pHead->next->data) return nullptr;
    return &D(this->NodeOf(p))->prev->data;
  }
  // Walks from the cursor node, forward or backward as i lies.
  T &GetAt(std::int32_t i) const override {
    Node *node = this->m_pCurNode;
    std::int32_t k = this->m_nCur;
    for (; k < i; ++k) node = node->next;
    for (; k > i; --k) node = D(node)->prev;
    return node->data;
  }

  void MoveToPre() override {
    this->m_pCurNode = D(this->m_pCurNode)->prev;
    --this->m_nCur;
    // Stepping back from the sentinel lands on the tail.
    if (this->m_pCurNode == this->m_pTail) this->m_nCur = this->m_nLength - 1;
  }
  void MoveTo(std::int32_t i) override {
    if (i < 0 || i >= this->m_nLength) {
      this->SetCursor(this->m_pHead, -1);
    } else if (i == 0) {
      this->MoveToFirst();
    } else if (i == this->m_nLength - 1) {
      this->MoveToLast();
    } else {
      while (this->m_nCur < i) this->MoveToNext();
      while (this->m_nCur > i) MoveToPre();
    }
  }

  void DelCur() override {
    Node *node = this->m_pCurNode;
    MoveToPre();
    this->m_pCurNode->next = node->next;
    D(node->next)->prev = D(this->m_pCurNode);
    if (node == this->m_pTail) this->m_pTail = this->m_pCurNode;
    delete D(node);
    --this->m_nLength;
  }

  // Insertion sorts scanning backward from each element; stable, quadratic.
  // A moved element gets a new node. The cursor is out when they return.
  void Sort(int (*compare)(T const &, T const &)) override {
    BackwardInsertionSort([compare](T const &e, T const &x) { return compare(e, x) > 0; }, [] {});
  }
  void Sort(bool ascending) override {
    BackwardInsertionSort([ascending](T const &e, T const &x) { return ascending ? e > x : e < x; }, [] {});
  }

  void InsertAfterCur(T const &x) override {
    DNode *node = new DNode(x);
    DNode *cursor = D(this->m_pCurNode);
    node->next = cursor->next;
    node->prev = cursor;
    D(cursor->next)->prev = node;
    cursor->next = node;
    ++this->m_nLength;
    ++this->m_nCur;
    if (cursor == this->m_pTail) this->m_pTail = node;
    this->m_pCurNode = node;
  }
  void DetachAfterCur() override {
    KyList<T>::DetachAfterCur();
    D(this->m_pHead)->prev = D(this->m_pTail);
  }
  // other must in fact be a two-link list.
  std::int32_t Conbine(KyList<T> &other, std::int32_t i = 0) override {
    if (i < 0 || i >= other.GetLength()) return this->m_nLength;
    Node *cursor = this->m_pCurNode;
    std::int32_t index = this->m_nCur;
    other.MoveTo(i);
    DNode *first = D(other.GetCurPos());
    Node *oldTail = this->m_pTail;
    oldTail->next = first;
    other.MoveToLast();
    this->m_pTail = other.GetCurPos();
    this->m_nLength += other.GetLength() - i;
    // other may walk back through first while it cuts, so first keeps its
    // old prev until other is done.
    other.DetachAfter(i - 1);
    first->prev = D(oldTail);
    this->m_pTail->next = this->m_pHead;
    D(this->m_pHead)->prev = D(this->m_pTail);
    this->SetCursor(cursor, index);
    return this->m_nLength;
  }
  void ReverseList() override {
    if (this->m_nLength < 2) return;
    Node *first = this->m_pHead->next;
    Node *previous = this->m_pHead;
    Node *node = first;
    for (std::int32_t k = 0; k < this->m_nLength; ++k) {
      Node *next = node->next;
      node->next = previous;
      D(node)->prev = D(next);
      previous = node;
      node = next;
    }
    this->m_pHead->next = previous;
    D(this->m_pHead)->prev = D(first);
    this->m_pTail = first;
  }
  void Rotate(std::int32_t i, std::int32_t j) override {
    if (i == j) return;
    std::int32_t length = this->m_nLength;
    std::int32_t f = (i - j + length) % length;
    std::int32_t l = (f + length - 1) % length;
    MoveTo(l);
    Node *newTail = this->m_pCurNode;
    MoveTo(f);
    Node *oldFirst = this->m_pHead->next;
    this->m_pTail->next = oldFirst;
    D(oldFirst)->prev = D(this->m_pTail);
    this->m_pHead->next = this->m_pCurNode;
    D(this->m_pCurNode)->prev = D(this->m_pHead);
    this->m_nCur = 0;
    this->m_pTail = newTail;
    this->m_pTail->next = this->m_pHead;
    D(this->m_pHead)->prev = D(this->m_pTail);
  }

 protected:
  static DNode *D(Node *node) { return static_cast<DNode *>(node); }

  // For each element from the second on: if its predecessor must follow it,
  // walk back to the first element that need not, insert a copy after that
  // one and drop the old node. beforeDrop runs with the cursor on the old
  // node just before it is deleted (the owning lists clear the slot there).
  template <class MustFollow, class BeforeDrop>
  void BackwardInsertionSort(MustFollow mustFollow, BeforeDrop beforeDrop) {
    if (this->m_nLength < 2) return;
    this->MoveToFirst();
    this->MoveToNext();
    while (this->m_nCur >= 0) {
      T local = this->m_pCurNode->data;
      std::int32_t index = this->m_nCur;
      Node *node = this->m_pCurNode;
      this->MoveToPre();
      if (mustFollow(this->m_pCurNode->data, local)) {
        do {
          this->MoveToPre();
        } while (this->m_nCur >= 0 && mustFollow(this->m_pCurNode->data, local));
        this->InsertAfterCur(local);
        this->SetCursor(node, index + 1);
        beforeDrop();
        this->DelCur();
      } else {
        this->MoveToNext();
      }
      this->MoveToNext();
    }
  }

 private:
  void InitDSentinel() {
    DNode *sentinel = new DNode;
    this->InitSentinel(sentinel);
    sentinel->prev = sentinel;
  }
};
