// The nodes of the cursor lists. The element value stands first, so the
// address of a node is the address of its element: the element pointers that
// a list hands out (GetFirst, GetNext, ...) are node addresses and may be
// passed back in. A two-link node begins exactly like a one-link node, so
// every operation of KyList that only follows next runs unchanged on the
// nodes of a KyDList.
#pragma once

template <class T>
struct KyListNode {
  // The value is default-initialised: a pointer or int stays unset.
  KyListNode() : next(nullptr) {}
  explicit KyListNode(T const &value) : data(value), next(nullptr) {}

  T data;
  KyListNode *next;
};

template <class T>
struct KyDListNode : KyListNode<T> {
  KyDListNode() : prev(nullptr) {}
  explicit KyDListNode(T const &value) : KyListNode<T>(value), prev(nullptr) {}

  KyDListNode *prev;
};
