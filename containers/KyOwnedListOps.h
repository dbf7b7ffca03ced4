// The operations that the two owning lists, KyPDList<T> (on KyDList) and
// KyPXList<T> (on KyXList), share word for word. Each list forwards to these;
// they work through the list's virtual operations, so every change still goes
// through the list's own DelCur and InsertAfterCur (and so keeps the index
// table of a KyXList true).
#pragma once

#include <cstdint>

#include "containers/KyDynArrayBase.h"
#include "containers/KyLinkedList.h"
#include "containers/KyQuene.h"

template <class Self, class T>
struct KyOwnedListOps {
  using List = KyList<T *>;
  using Node = KyListNode<T *>;

  static Node *Sentinel(Self const &s) { return static_cast<List const &>(s).m_pHead; }
  static void SetCursor(Self &s, Node *node, std::int32_t index) { static_cast<List &>(s).SetCursor(node, index); }
  static void NormaliseEnd(Self const &s, std::int32_t &end) {
    if (end < 0 || end >= s.GetLength()) end = s.GetLength() - 1;
  }

  // Grows with null slots; the cursor stays where it was.
  static void ReAllocate(Self &s, std::int32_t n) {
    if (n <= s.GetLength()) return;
    Node *node = s.GetCurPos();
    std::int32_t index = s.GetCur();
    while (s.GetLength() < n) s.Append(nullptr);
    SetCursor(s, node, index);
  }

  static void ReleaseCur(Self &s) {
    if (s.IsOut()) return;
    T *&slot = s.GetCurPos()->data;
    if (slot) {
      delete slot;
      slot = nullptr;
    }
  }
  static void ReleaseAll(Self &s) {
    Node *sentinel = Sentinel(s);
    for (Node *node = sentinel->next; node != sentinel; node = node->next) {
      delete node->data;
      node->data = nullptr;
    }
  }
  // The caller owns the result; the slot is removed.
  static T *TakeOffCur(Self &s) {
    if (s.IsOut()) return nullptr;
    T *p = s.GetCurData();
    s.SetCurData(nullptr);
    s.DelCur();
    return p;
  }
  static bool IsCurEmpty(Self const &s) { return s.IsOut() || s.GetCurPos()->data == nullptr; }
  static bool IsEmptyData(Self const &s, std::int32_t i) { return !s.IsValidIndex(i) || s.GetAt(i) == nullptr; }
  static std::int32_t GetDataNum(Self const &s) {
    std::int32_t n = 0;
    for (T *const *p = s.GetFirst(); p; p = s.GetNext(p)) {
      if (*p) ++n;
    }
    return n;
  }
  // The lowest null slot, else a new slot at the tail.
  static std::int32_t PlaceIn(Self &s, T *p) {
    s.MoveToFirst();
    while (!IsCurEmpty(s)) s.MoveToNext();
    if (s.IsOut()) return s.Append(p);
    s.SetCurData(p);
    return s.GetCur();
  }
  static std::int32_t FindDel(Self &s, T *p) {
    std::int32_t i = s.Find(p, 0, -1);
    if (i < 0) return 0;
    s.Del(i);
    return 1;
  }

  static std::int32_t FindData(Self const &s, T const &x, std::int32_t start, std::int32_t end) {
    NormaliseEnd(s, end);
    if (start > end) return -1;
    T *const *p = &s.GetAt(start);
    for (std::int32_t i = start; i <= end && p; ++i, p = s.GetNext(p)) {
      if (*p && **p == x) return i;
    }
    return -1;
  }
  // Stops at the first match, unlike the index searches of the arrays.
  static std::int32_t FindData(Self const &s, T const &x, KyQuene<std::int32_t> &out, std::int32_t start,
                               std::int32_t end) {
    std::int32_t i = FindData(s, x, start, end);
    if (i >= 0) return out.Push(i) ? 1 : 0;
    return out.GetCount();
  }
  static bool FindDataTo(Self &s, T const &x, std::int32_t start, std::int32_t end) {
    NormaliseEnd(s, end);
    s.MoveTo(start);
    while (!s.IsOut() && s.GetCur() <= end) {
      T *p = s.GetCurData();
      if (p && *p == x) return true;
      s.MoveToNext();
    }
    return false;
  }
  static std::int32_t FindDataDel(Self &s, T const &x) {
    std::int32_t count = 0;
    s.MoveToFirst();
    while (!s.IsOut()) {
      T *p = s.GetCurData();
      if (p && *p == x) {
        s.DelCur();
        ++count;
      }
      s.MoveToNext();
    }
    return count;
  }

  // Binary searches with operator> alone: "a below b" is "b > a".
  static std::int32_t BFindData(Self const &s, T const &x, std::int32_t start, std::int32_t end) {
    NormaliseEnd(s, end);
    if (start > end) return -1;
    if (*s.GetAt(start) > x || x > *s.GetAt(end)) return -1;
    while (start <= end) {
      std::int32_t mid = (start + end) / 2;
      T const &e = *s.GetAt(mid);
      if (x > e) {
        start = mid + 1;
      } else if (e > x) {
        end = mid - 1;
      } else {
        return mid;
      }
    }
    return -1;
  }
  static bool BFindDataTo(Self &s, T const &x, std::int32_t start, std::int32_t end) {
    NormaliseEnd(s, end);
    if (s.GetLength() == 0) {
      s.MoveTo(0);
      return false;
    }
    s.MoveTo(start);
    if (*s.GetCurData() > x) return false;
    s.MoveTo(end);
    if (x > *s.GetCurData()) {
      s.MoveToNext();
      return false;
    }
    while (start < end) {
      std::int32_t mid = (start + end) / 2;
      s.MoveTo(mid);
      if (x > *s.GetCurData()) {
        start = mid + 1;
      } else if (*s.GetCurData() > x) {
        end = mid - 1;
      } else {
        return true;
      }
    }
    if (start != end) return false;
    s.MoveTo(start);
    if (x > *s.GetCurData()) {
      s.MoveToNext();
      return false;
    }
    return !(*s.GetCurData() > x);
  }
  static bool SortInto(Self &s, T *p, bool allowEqual) {
    bool found = BFindDataTo(s, *p, 0, -1);
    if (found && !allowEqual) return false;
    if (found) {
      s.MoveToNext();
      while (!s.IsOut() && s.GetCurData() && *s.GetCurData() == *p) s.MoveToNext();
    }
    s.InsertCur(p);
    return true;
  }
  static std::int32_t FindDataOrAppend(Self &s, T const &x) {
    std::int32_t i = FindData(s, x, 0, -1);
    if (i >= 0) return i;
    return s.Append(new T(x));
  }
  static void FindDataOrInsertHead(Self &s, T const &x) {
    if (FindData(s, x, 0, -1) < 0) s.InsertHead(new T(x));
  }

  // Equal only when both have the same length and every slot on both sides
  // is null: a pair of set slots makes the lists unequal even when the
  // pointees are equal. Callers must not compare filled lists.
  static bool Equal(Self const &s, KyDynArrayBase<T *> const &other) {
    if (s.GetLength() != other.GetLength()) return false;
    T *const *p = s.GetFirst();
    T *const *q = other.GetFirst();
    while (p && q) {
      if (*p && *q && **p != **q) return false;
      if (*p || *q) return false;
      p = s.GetNext(p);
      q = other.GetNext(q);
    }
    return true;
  }

  // The null-compacting sort: a stable backward insertion sort of the filled
  // slots; null slots are removed on the way and appended at the end. A list
  // whose slots are all null is not a permitted input.
  static void SortBool(Self &s, bool ascending) {
    if (s.GetLength() < 2) return;
    std::int32_t removed = 0;
    auto mustFollow = [ascending](T const &pred, T const &elem) { return ascending ? pred > elem : elem > pred; };
    s.MoveToFirst();
    while (IsCurEmpty(s)) {
      s.DelHead();
      ++removed;
      s.MoveToFirst();
    }
    s.MoveToNext();
    while (s.GetCur() >= 0) {
      T *p = s.GetCurData();
      if (!p) {
        s.DelCur();
        ++removed;
      } else {
        std::int32_t index = s.GetCur();
        Node *node = s.GetCurPos();
        s.MoveToPre();
        if (mustFollow(*s.GetCurData(), *p)) {
          do {
            s.MoveToPre();
          } while (s.GetCur() >= 0 && mustFollow(*s.GetCurData(), *p));
          s.InsertAfterCur(p);
          SetCursor(s, node, index + 1);
          // The pointee lives on in the new node.
          s.SetCurData(nullptr);
          s.DelCur();
        } else {
          s.MoveToNext();
        }
      }
      s.MoveToNext();
    }
    for (std::int32_t k = 0; k < removed; ++k) s.Append(nullptr);
  }

  // The pointer is taken out of its old slot before the slot is deleted.
  static bool Move(Self &s, std::int32_t i, std::int32_t j) {
    if (i == j || i == j - 1) return false;
    s.MoveTo(i);
    T *p = s.GetCurData();
    s.SetCurData(nullptr);
    s.Insert(j, p);
    if (i <= j) {
      s.Del(i);
      s.MoveTo(j - 1);
    } else {
      s.Del(i + 1);
      s.MoveTo(j);
    }
    return true;
  }
};
