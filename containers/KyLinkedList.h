// KyList<T>: the singly linked cursor list.
//
// The nodes form a ring through next: sentinel, first, ..., tail, sentinel.
// The sentinel lives from construction to destruction and stands for the
// cursor index -1, which is at once before the first element and after the
// last: moving forward off the tail lands on -1, and moving backward from -1
// lands on the tail. That wrap is what lets InsertCur append once the cursor
// has run off the end.
//
// Nearly every operation is a move of the single built-in cursor followed by
// an act at the cursor, so even a lookup mutates the list; GetFirst, GetNext,
// GetPre, GetLast and GetAt are the ways to read a list that is in use.
// Each element is one node of its own; nothing is allocated in blocks.
#pragma once

#include <cstdint>

#include "containers/KyDynArrayBase.h"
#include "containers/KyListNode.h"

template <class Self, class T>
struct KyOwnedListOps;

template <class T>
class KyList : public KyDynArrayBase<T> {
 public:
  using Node = KyListNode<T>;

  // Built empty, then grown to n default elements.
  explicit KyList(std::int32_t n = 0) {
    InitSentinel(new Node);
    ReAllocate(n);
  }
  KyList(KyList const &other) {
    InitSentinel(new Node);
    this->DeepCopy(other);
  }
  KyList(KyDynArrayBase<T> const &other) {
    InitSentinel(new Node);
    this->DeepCopy(other);
  }
  // No test for self-assignment.
  KyList &operator=(KyList const &other) {
    this->DeepCopy(other);
    return *this;
  }
  KyList &operator=(KyDynArrayBase<T> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  ~KyList() override {
    if (m_pHead) {
      Reset();
      delete m_pHead;
      m_pHead = nullptr;
    }
  }

  // ---- Length. ----

  // Appends default values up to n; a smaller n leaves the list alone.
  void ReAllocate(std::int32_t n) override {
    if (n <= this->m_nLength) return;
    Node *node = m_pCurNode;
    std::int32_t index = this->m_nCur;
    while (this->m_nLength < n) Append(T());
    m_pCurNode = node;
    this->m_nCur = index;
  }
  // Truncates from the tail or grows; the flag is not consulted.
  void SetLength(std::int32_t n, bool keep) override {
    if (n <= this->m_nLength) {
      while (this->m_nLength > n) this->DelTail();
    } else {
      ReAllocate(n);
    }
  }
  void Reset() override {
    Node *node = m_pHead->next;
    while (node != m_pHead) {
      Node *next = node->next;
      delete node;
      node = next;
    }
    m_pHead->next = m_pHead;
    m_pTail = m_pHead;
    m_pCurNode = m_pHead;
    this->m_nLength = 0;
    this->m_nCur = -1;
  }

  // ---- Element access. ----

  // Unchecked: at -1 this is the sentinel's value.
  T &GetCurData() override { return m_pCurNode->data; }
  Node *GetCurPos() const { return m_pCurNode; }
  void SetCurData(T const &x) override { m_pCurNode->data = x; }
  T const *GetFirst() const override { return this->m_nLength > 0 ? &m_pHead->next->data : nullptr; }
  T const *GetLast() const override { return this->m_nLength > 0 ? &m_pTail->data : nullptr; }
  T const *GetNext(T const *p) const override {
    if (!p || p == &m_pTail->data) return nullptr;
    return &NodeOf(p)->next->data;
  }
  // Without back links: the cursor node when p follows it, else a scan from
  // the sentinel of at most length steps.
  T const *GetPre(T const *p) const override {
    if (!p || this->m_nLength == 0 || p == &m_pHead->next->data) return nullptr;
    Node const *target = NodeOf(p);
    if (m_pCurNode->next == target) return &m_pCurNode->data;
    Node const *node = m_pHead;
    for (std::int32_t k = 0; k < this->m_nLength; ++k, node = node->next) {
      if (node->next == target) return &node->data;
    }
    return nullptr;
  }
  // Starts from the cursor when i lies ahead of it, else from the sentinel.
  T &GetAt(std::int32_t i) const override {
    Node *node;
    std::int32_t k;
    if (i >= this->m_nCur) {
      node = m_pCurNode;
      k = this->m_nCur;
    } else {
      node = m_pHead;
      k = -1;
    }
    for (; k < i; ++k) node = node->next;
    return node->data;
  }

  // ---- Cursor moves. ----

  void MoveToFirst() override {
    if (this->m_nLength > 0) {
      m_pCurNode = m_pHead->next;
      this->m_nCur = 0;
    } else {
      m_pCurNode = m_pHead;
      this->m_nCur = -1;
    }
  }
  void MoveToLast() override {
    m_pCurNode = m_pTail;
    this->m_nCur = this->m_nLength - 1;
  }
  void MoveToNext() override {
    m_pCurNode = m_pCurNode->next;
    ++this->m_nCur;
    if (m_pCurNode == m_pHead) this->m_nCur = -1;
  }
  // No back links: a walk from the head, except for the wrap from -1.
  void MoveToPre() override {
    if (this->m_nCur == -1) {
      MoveToLast();
    } else {
      MoveTo(this->m_nCur - 1);
    }
  }
  void MoveTo(std::int32_t i) override {
    if (i < 0 || i >= this->m_nLength) {
      m_pCurNode = m_pHead;
      this->m_nCur = -1;
      return;
    }
    if (i == this->m_nLength - 1) {
      MoveToLast();
      return;
    }
    if (i < this->m_nCur) MoveToFirst();
    while (this->m_nCur != i) MoveToNext();
  }

  // ---- Insertion and deletion; every insertion leaves the cursor on the
  // new element. ----

  // Before the cursor's element; with the cursor out this appends.
  void InsertCur(T const &x) override {
    MoveToPre();
    InsertAfterCur(x);
  }
  // An index above the length reaches the sentinel and so inserts at the
  // head, not at the tail.
  void Insert(std::int32_t i, T const &x) override {
    MoveTo(i - 1);
    InsertAfterCur(x);
  }
  void InsertHead(T const &x) override {
    MoveTo(-1);
    InsertAfterCur(x);
  }
  std::int32_t Append(T const &x) override {
    MoveToLast();
    InsertAfterCur(x);
    return this->m_nLength - 1;
  }
  // The cursor lands on the predecessor (-1 for the first), so DelCur
  // followed by MoveToNext continues a scan. The cursor must be on an
  // element: at -1 this would unlink the sentinel.
  void DelCur() override {
    Node *node = m_pCurNode;
    MoveToPre();
    m_pCurNode->next = node->next;
    if (node == m_pTail) m_pTail = m_pCurNode;
    delete node;
    --this->m_nLength;
  }

  // An insertion sort scanning from the head; stable, quadratic. A moved
  // element gets a new node, so element pointers taken before are invalid
  // after. The cursor is out when it returns.
  void Sort(int (*compare)(T const &, T const &)) override {
    ForwardInsertionSort([compare](T const &e, T const &x) { return compare(e, x) > 0; });
  }
  // True sorts ascending.
  void Sort(bool ascending) override {
    ForwardInsertionSort([ascending](T const &e, T const &x) { return ascending ? e > x : e < x; });
  }

  // ---- Virtual operations that the lists add. ----

  // Inserts after the cursor node; with the cursor at -1 this puts the
  // element at the head.
  virtual void InsertAfterCur(T const &x) {
    Node *node = new Node(x);
    node->next = m_pCurNode->next;
    m_pCurNode->next = node;
    ++this->m_nLength;
    ++this->m_nCur;
    if (m_pCurNode == m_pTail) m_pTail = node;
    m_pCurNode = node;
  }
  // Cuts the chain after the cursor. The nodes cut off are neither freed nor
  // counted: they belong to whoever holds a pointer to them.
  virtual void DetachAfterCur() {
    m_pTail = m_pCurNode;
    m_pTail->next = m_pHead;
    this->m_nLength = this->m_nCur + 1;
  }
  // Splices the elements of other from index i to its end onto this tail,
  // without copying. Returns the new length; an i out of range for other
  // leaves both lists alone.
  virtual std::int32_t Conbine(KyList<T> &other, std::int32_t i = 0) {
    if (i < 0 || i >= other.GetLength()) return this->m_nLength;
    Node *cursor = m_pCurNode;
    std::int32_t index = this->m_nCur;
    other.MoveTo(i);
    m_pTail->next = other.GetCurPos();
    other.MoveToLast();
    m_pTail = other.GetCurPos();
    this->m_nLength += other.GetLength() - i;
    other.DetachAfter(i - 1);
    m_pTail->next = m_pHead;
    m_pCurNode = cursor;
    this->m_nCur = index;
    return this->m_nLength;
  }
  // Relinks in reverse order. The cursor keeps its node and its index, which
  // then no longer fit each other until the caller moves the cursor.
  virtual void ReverseList() {
    if (this->m_nLength < 2) return;
    Node *first = m_pHead->next;
    Node *previous = m_pHead;
    Node *node = first;
    for (std::int32_t k = 0; k < this->m_nLength; ++k) {
      Node *next = node->next;
      node->next = previous;
      previous = node;
      node = next;
    }
    m_pHead->next = previous;
    m_pTail = first;
  }
  // Rotates the ring so that the element at i ends at j. The list must not be
  // empty and i, j must be valid indices. The cursor ends on the new first.
  virtual void Rotate(std::int32_t i, std::int32_t j) {
    if (i == j) return;
    std::int32_t length = this->m_nLength;
    std::int32_t f = (i - j + length) % length;
    std::int32_t l = (f + length - 1) % length;
    MoveTo(l);
    Node *newTail = m_pCurNode;
    MoveTo(f);
    m_pTail->next = m_pHead->next;
    m_pHead->next = m_pCurNode;
    this->m_nCur = 0;
    m_pTail = newTail;
    m_pTail->next = m_pHead;
  }

  // ---- Non-virtual helpers built on the above. ----

  // Empties the list and leaves all its nodes to the caller.
  void Detach() {
    m_pCurNode = m_pHead;
    this->m_nCur = -1;
    DetachAfterCur();
  }
  void DetachAfter(std::int32_t i) {
    MoveTo(i);
    DetachAfterCur();
  }
  // Moves the elements from i on to the end of other.
  std::int32_t SplitAt(std::int32_t i, KyList<T> &other) {
    MoveTo(i);
    return other.Conbine(*this, this->m_nCur);
  }
  std::int32_t SplitAtCur(KyList<T> &other) { return other.Conbine(*this, this->m_nCur); }

 protected:
  template <class Self, class U>
  friend struct KyOwnedListOps;

  // For the two-link list, which brings its own sentinel.
  struct NoSentinel {};
  explicit KyList(NoSentinel) : m_pCurNode(nullptr), m_pHead(nullptr), m_pTail(nullptr) {}

  void InitSentinel(Node *sentinel) {
    m_pHead = sentinel;
    m_pHead->next = m_pHead;
    m_pTail = m_pHead;
    m_pCurNode = m_pHead;
    this->m_nLength = 0;
    this->m_nCur = -1;
  }
  void SetCursor(Node *node, std::int32_t index) {
    m_pCurNode = node;
    this->m_nCur = index;
  }
  static Node *NodeOf(T const *p) { return reinterpret_cast<Node *>(const_cast<T *>(p)); }

  Node *m_pCurNode;
  Node *m_pHead;
  Node *m_pTail;

 private:
  // For each element from the second on: walk from the head to the first
  // element that must follow it, and move it there.
  template <class MustFollow>
  void ForwardInsertionSort(MustFollow mustFollow) {
    if (this->m_nLength < 2) return;
    MoveToFirst();
    MoveToNext();
    while (this->m_nCur >= 0) {
      T local = m_pCurNode->data;
      std::int32_t index = this->m_nCur;
      Node *node = m_pCurNode;
      MoveToFirst();
      Node *predNode = m_pHead;
      std::int32_t predIndex = -1;
      while (this->m_nCur < index) {
        if (mustFollow(m_pCurNode->data, local)) {
          SetCursor(predNode, predIndex);
          InsertAfterCur(local);
          SetCursor(node, index + 1);
          DelCur();
        } else {
          predNode = m_pCurNode;
          predIndex = this->m_nCur;
          MoveToNext();
        }
      }
      MoveToNext();
    }
  }
};
