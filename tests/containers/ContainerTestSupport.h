// Shared helpers of the container tests: an element type that counts its
// lives, a probe that opens the protected ring of a list for inspection, and
// the ring invariant check run after every step of the randomized tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"
#include "platform/mfc/CString.h"

namespace kytest {

// A heap element that counts constructions and destructions, so that a test
// can prove every pointee died exactly once. key orders and compares; tag
// tells equal keys apart to check stability.
struct Tracked {
  static inline int constructed = 0;
  static inline int destroyed = 0;
  static void ResetCounts() { constructed = destroyed = 0; }
  static int Alive() { return constructed - destroyed; }

  explicit Tracked(int k = 0, int t = 0) : key(k), tag(t) { ++constructed; }
  Tracked(Tracked const &other) : key(other.key), tag(other.tag) { ++constructed; }
  Tracked &operator=(Tracked const &) = default;
  virtual ~Tracked() { ++destroyed; }

  bool operator==(Tracked const &o) const { return key == o.key; }
  bool operator!=(Tracked const &o) const { return key != o.key; }
  bool operator>(Tracked const &o) const { return key > o.key; }
  bool operator<(Tracked const &o) const { return key < o.key; }

  int key;
  int tag;
};

// Resets the counters on entry and checks the balance on exit.
class CountingTest : public ::testing::Test {
 protected:
  void SetUp() override { Tracked::ResetCounts(); }
  void TearDown() override { EXPECT_EQ(Tracked::constructed, Tracked::destroyed) << "a pointee leaked"; }
};

// A value with a key for ordering and a tag that plays no part in any
// comparison, for the stability checks of the sorts.
struct Keyed {
  int key = 0;
  int tag = 0;
  bool operator==(Keyed const &o) const { return key == o.key; }
  bool operator!=(Keyed const &o) const { return key != o.key; }
  bool operator>(Keyed const &o) const { return key > o.key; }
  bool operator<(Keyed const &o) const { return key < o.key; }
};

// Opens the protected state of a list for the checks below.
template <class L>
class Probed : public L {
 public:
  using L::L;
  using L::operator=;
  using NodeType = typename L::Node;
  NodeType *Sentinel() const { return this->m_pHead; }
  NodeType *Tail() const { return this->m_pTail; }
  NodeType *CursorNode() const { return this->m_pCurNode; }
};

// Opens the index table of a KyXList.
template <class L>
class ProbedX : public Probed<L> {
 public:
  using Probed<L>::Probed;
  auto const &Table() const { return this->m_arrGroup; }
};

// Checks the ring: next and prev agree, tail and sentinel are consistent,
// the length is the number of element nodes, and the cursor index matches
// the cursor node.
template <class L>
::testing::AssertionResult RingIntact(Probed<L> const &list) {
  using Node = typename Probed<L>::NodeType;
  using E = std::remove_cvref_t<decltype(list.GetCurPos()->data)>;
  Node *sentinel = list.Sentinel();
  if (!sentinel) return ::testing::AssertionFailure() << "no sentinel";
  std::int32_t count = 0;
  Node *last = sentinel;
  Node *node = sentinel->next;
  while (node != sentinel) {
    if (!node) return ::testing::AssertionFailure() << "null next after " << count << " nodes";
    if constexpr (std::is_base_of_v<KyDList<E>, L>) {
      if (static_cast<KyDListNode<E> *>(node)->prev != last)
        return ::testing::AssertionFailure() << "prev of node " << count << " does not lead back";
    }
    last = node;
    node = node->next;
    if (++count > list.GetLength() + 1) return ::testing::AssertionFailure() << "ring longer than the length";
  }
  if constexpr (std::is_base_of_v<KyDList<E>, L>) {
    if (static_cast<KyDListNode<E> *>(sentinel)->prev != last)
      return ::testing::AssertionFailure() << "prev of the sentinel is not the tail";
  }
  if (count != list.GetLength())
    return ::testing::AssertionFailure() << "ring has " << count << " nodes, length says " << list.GetLength();
  if (list.Tail() != last) return ::testing::AssertionFailure() << "tail is not the last node of the ring";
  std::int32_t cur = list.GetCur();
  if (cur == -1) {
    if (list.CursorNode() != sentinel) return ::testing::AssertionFailure() << "cursor -1 off the sentinel";
  } else {
    if (cur < 0 || cur >= list.GetLength())
      return ::testing::AssertionFailure() << "cursor index " << cur << " out of range";
    Node *at = sentinel->next;
    for (std::int32_t k = 0; k < cur; ++k) at = at->next;
    if (at != list.CursorNode()) return ::testing::AssertionFailure() << "cursor index " << cur << " not on its node";
  }
  return ::testing::AssertionSuccess();
}

// The table of a KyXList is true: one entry per group, entry g on the node
// at index g * G.
template <class L>
::testing::AssertionResult TableTrue(ProbedX<L> const &list) {
  using Node = typename Probed<L>::NodeType;
  std::int32_t g = list.GetGroupSize();
  std::int32_t expected = (list.GetLength() + g - 1) / g;
  if (list.Table().GetLength() != expected)
    return ::testing::AssertionFailure() << "table has " << list.Table().GetLength() << " entries, expected "
                                         << expected << " for length " << list.GetLength();
  Node *node = list.Sentinel()->next;
  for (std::int32_t i = 0; i < list.GetLength(); ++i, node = node->next) {
    if (i % g == 0 && list.Table().GetAt(i / g) != node)
      return ::testing::AssertionFailure() << "entry " << i / g << " is not the node at " << i;
  }
  return ::testing::AssertionSuccess();
}

// The elements read through GetFirst/GetNext, which never move the cursor.
template <class C>
auto Items(C const &c) {
  using E = std::remove_cvref_t<decltype(*c.GetFirst())>;
  std::vector<E> out;
  for (E const *p = c.GetFirst(); p; p = c.GetNext(p)) out.push_back(*p);
  return out;
}

// Fills any container of the family by Append.
template <class C, class E>
void Fill(C &c, std::initializer_list<E> values) {
  for (E const &v : values) c.Append(v);
}

// The keys of the pointees of an owning container; -1 stands for a null slot.
template <class C>
std::vector<int> Keys(C const &c) {
  std::vector<int> out;
  for (auto const *p = c.GetFirst(); p; p = c.GetNext(p)) out.push_back(*p ? (*p)->key : -1);
  return out;
}

}  // namespace kytest
