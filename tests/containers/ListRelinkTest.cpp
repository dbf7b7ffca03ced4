// The list-only operations that relink nodes instead of copying values:
// Conbine, the splits and detaches, ReverseList, Rotate, and the two
// insertion sorts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>
#include <type_traits>
#include <vector>

#include "containers/KyList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Fill;
using kytest::Items;
using kytest::Keyed;
using kytest::Probed;
using kytest::RingIntact;

namespace {

template <class L>
class Relink : public ::testing::Test {};

using ListTypes = ::testing::Types<Probed<KyList<int>>, Probed<KyDList<int>>>;

// Frees n nodes that a detach left to the caller, starting at first.
template <class L>
void FreeDetached(typename L::Node *first, std::int32_t n) {
  using Node = typename L::Node;
  Node *node = first;
  for (std::int32_t k = 0; k < n; ++k) {
    Node *next = node->next;
    if constexpr (std::is_base_of_v<KyDList<int>, L>) {
      delete static_cast<KyDListNode<int> *>(node);
    } else {
      delete node;
    }
    node = next;
  }
}

// The same list kind over another element type.
template <class L, class E>
struct Rebind;
template <class T, class E>
struct Rebind<Probed<KyList<T>>, E> {
  using type = Probed<KyList<E>>;
};
template <class T, class E>
struct Rebind<Probed<KyDList<T>>, E> {
  using type = Probed<KyDList<E>>;
};

int CompareInts(int const &a, int const &b) { return a < b ? -1 : (a > b ? 1 : 0); }
int CompareKeyedDescending(Keyed const &a, Keyed const &b) { return b.key - a.key; }

template <class L>
std::vector<void const *> NodeAddresses(L const &list) {
  std::vector<void const *> out;
  for (auto const *p = list.GetFirst(); p; p = list.GetNext(p)) out.push_back(p);
  return out;
}

}  // namespace

TYPED_TEST_SUITE(Relink, ListTypes);

TYPED_TEST(Relink, ConbineFromZeroTakesAllOfTheOtherList) {
  TypeParam list;
  Fill(list, {1, 2});
  list.MoveTo(0);
  TypeParam other;
  Fill(other, {3, 4, 5});
  EXPECT_EQ(list.Conbine(other, 0), 5);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 4, 5}));
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(other.GetLength(), 0);
  EXPECT_EQ(other.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
  EXPECT_TRUE(RingIntact(other));
  // Both stay usable.
  other.Append(6);
  list.Append(7);
  EXPECT_EQ(Items(other), (std::vector<int>{6}));
  EXPECT_EQ(*list.GetLast(), 7);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, ConbineAtTheOtherLengthDoesNothing) {
  TypeParam list;
  Fill(list, {1, 2});
  TypeParam other;
  Fill(other, {3, 4});
  other.MoveTo(0);
  EXPECT_EQ(list.Conbine(other, 2), 2);
  EXPECT_EQ(list.Conbine(other, -1), 2);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(Items(other), (std::vector<int>{3, 4}));
  EXPECT_EQ(other.GetCur(), 0);
}

TYPED_TEST(Relink, ConbineFromTheMiddleLeavesTheOtherCursorOnItsNewTail) {
  TypeParam list;
  TypeParam other;
  Fill(other, {1, 2, 3, 4});
  EXPECT_EQ(list.Conbine(other, 2), 2);
  EXPECT_EQ(Items(list), (std::vector<int>{3, 4}));
  EXPECT_EQ(Items(other), (std::vector<int>{1, 2}));
  EXPECT_EQ(other.GetCur(), 1);
  EXPECT_EQ(other.GetCurData(), 2);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
  EXPECT_TRUE(RingIntact(other));
}

TEST(Relink, ConbineBetweenDoublyLinkedListsKeepsPrevLinksBothWays) {
  Probed<KyDList<int>> list;
  Fill(list, {1, 2, 3});
  Probed<KyDList<int>> other;
  Fill(other, {4, 5, 6, 7});
  list.Conbine(other, 1);
  ASSERT_TRUE(RingIntact(list));
  ASSERT_TRUE(RingIntact(other));
  // Walk both lists backwards through prev from the sentinel.
  std::vector<int> backward;
  for (int const *p = list.GetLast(); p; p = list.GetPre(p)) backward.push_back(*p);
  EXPECT_EQ(backward, (std::vector<int>{7, 6, 5, 3, 2, 1}));
  backward.clear();
  for (int const *p = other.GetLast(); p; p = other.GetPre(p)) backward.push_back(*p);
  EXPECT_EQ(backward, (std::vector<int>{4}));
  list.MoveTo(-1);
  list.MoveToPre();
  EXPECT_EQ(list.GetCurData(), 7);
  list.MoveTo(3);
  list.MoveToPre();
  EXPECT_EQ(list.GetCurData(), 3);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 1);
  // A spliced node can be deleted through its prev link.
  list.MoveTo(3);
  list.DelCur();
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 6, 7}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, SplitAtMovesTheTailToTheOtherList) {
  TypeParam list;
  Fill(list, {1, 2, 3, 4, 5});
  TypeParam other;
  Fill(other, {0});
  EXPECT_EQ(list.SplitAt(2, other), 4);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(Items(other), (std::vector<int>{0, 3, 4, 5}));
  list.MoveTo(1);
  TypeParam third;
  EXPECT_EQ(list.SplitAtCur(third), 1);
  EXPECT_EQ(Items(list), (std::vector<int>{1}));
  EXPECT_EQ(Items(third), (std::vector<int>{2}));
  EXPECT_TRUE(RingIntact(list));
  EXPECT_TRUE(RingIntact(other));
  EXPECT_TRUE(RingIntact(third));
}

TYPED_TEST(Relink, DetachLeavesAllNodesToTheCaller) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  auto *first = list.Sentinel()->next;
  list.MoveTo(1);
  list.Detach();
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
  EXPECT_EQ(first->data, 1);
  FreeDetached<TypeParam>(first, 3);
  list.Append(4);
  EXPECT_EQ(Items(list), (std::vector<int>{4}));
}

TYPED_TEST(Relink, DetachAfterCutsTheChainBehindAnIndex) {
  TypeParam list;
  Fill(list, {1, 2, 3, 4, 5});
  list.MoveTo(2);
  auto *cut = list.GetCurPos();
  list.DetachAfter(1);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_TRUE(RingIntact(list));
  EXPECT_EQ(cut->data, 3);
  FreeDetached<TypeParam>(cut, 3);
}

TYPED_TEST(Relink, ReverseListKeepsTheCursorOnItsNodeUntilTheNextMove) {
  TypeParam list;
  Fill(list, {1, 2, 3, 4, 5});
  list.MoveTo(1);
  auto *node = list.GetCurPos();
  list.ReverseList();
  EXPECT_EQ(Items(list), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_EQ(list.GetCurPos(), node);
  EXPECT_EQ(list.GetCurData(), 2);
  EXPECT_EQ(*list.GetFirst(), 5);
  EXPECT_EQ(*list.GetLast(), 1);
  // A fresh move puts index and node back together.
  list.MoveTo(-1);
  list.MoveTo(1);
  EXPECT_EQ(list.GetCurData(), 4);
  EXPECT_TRUE(RingIntact(list));
  list.Append(0);
  EXPECT_EQ(Items(list), (std::vector<int>{5, 4, 3, 2, 1, 0}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, ReverseListOfFewerThanTwoElementsDoesNothing) {
  TypeParam list;
  list.ReverseList();
  EXPECT_TRUE(RingIntact(list));
  list.Append(1);
  list.ReverseList();
  EXPECT_EQ(Items(list), (std::vector<int>{1}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, RotateTwoToZero) {
  TypeParam list;
  Fill(list, {'a', 'b', 'c', 'd', 'e'});
  list.Rotate(2, 0);
  EXPECT_EQ(Items(list), (std::vector<int>{'c', 'd', 'e', 'a', 'b'}));
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(list.GetCurData(), 'c');
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, RotateWithNegativeAndWrappedOffsets) {
  TypeParam list;
  Fill(list, {0, 1, 2, 3, 4});
  // i below j: the offset i - j is negative and is brought up by the length.
  list.Rotate(0, 2);
  EXPECT_EQ(Items(list), (std::vector<int>{3, 4, 0, 1, 2}));
  EXPECT_TRUE(RingIntact(list));
  // i above j: i - j + length passes the length and wraps.
  list.Rotate(4, 1);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 4, 0}));
  EXPECT_EQ(list.GetCurData(), 1);
  EXPECT_TRUE(RingIntact(list));
  list.MoveTo(3);
  list.Rotate(3, 3);
  EXPECT_EQ(list.GetCur(), 3);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 4, 0}));
}

TYPED_TEST(Relink, RotateMatchesAModelForEveryPairOfIndices) {
  const int n = 6;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      TypeParam list;
      std::vector<int> model;
      for (int k = 0; k < n; ++k) {
        list.Append(k);
        model.push_back(k);
      }
      list.Rotate(i, j);
      if (i != j) {
        std::rotate(model.begin(), model.begin() + (i - j + n) % n, model.end());
        EXPECT_EQ(list.GetCur(), 0);
      }
      EXPECT_EQ(Items(list), model) << i << " to " << j;
      EXPECT_EQ(list.GetAt(j), i) << i << " to " << j;
      EXPECT_TRUE(RingIntact(list));
    }
  }
}

TYPED_TEST(Relink, SortOfEqualKeysMovesNoNode) {
  typename Rebind<TypeParam, Keyed>::type list;
  for (int t = 0; t < 6; ++t) list.Append(Keyed{4, t});
  std::vector<void const *> before = NodeAddresses(list);
  list.Sort(true);
  EXPECT_EQ(NodeAddresses(list), before);
  list.Sort(false);
  EXPECT_EQ(NodeAddresses(list), before);
  int t = 0;
  for (Keyed const &k : Items(list)) EXPECT_EQ(k.tag, t++);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, SortsAreStableAndLeaveTheCursorOut) {
  typename Rebind<TypeParam, Keyed>::type list;
  int keys[] = {3, 1, 2, 3, 1, 0, 2};
  for (int t = 0; t < 7; ++t) list.Append(Keyed{keys[t], t});
  list.MoveTo(2);
  list.Sort(true);
  EXPECT_EQ(list.GetCur(), -1);
  std::vector<int> tags;
  for (Keyed const &k : Items(list)) tags.push_back(k.tag);
  EXPECT_EQ(tags, (std::vector<int>{5, 1, 4, 2, 6, 0, 3}));
  EXPECT_TRUE(RingIntact(list));
  list.Sort(false);
  tags.clear();
  for (Keyed const &k : Items(list)) tags.push_back(k.tag);
  EXPECT_EQ(tags, (std::vector<int>{0, 3, 2, 6, 1, 4, 5}));
  list.Sort(CompareKeyedDescending);
  std::vector<int> again;
  for (Keyed const &k : Items(list)) again.push_back(k.tag);
  EXPECT_EQ(again, tags);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(Relink, SortsMatchAStableSortOnRandomData) {
  std::mt19937 rng(7);
  for (int round = 0; round < 40; ++round) {
    TypeParam list;
    std::vector<int> model;
    int n = static_cast<int>(rng() % 40);
    for (int k = 0; k < n; ++k) {
      int v = static_cast<int>(rng() % 10);
      list.Append(v);
      model.push_back(v);
    }
    bool ascending = round % 2 == 0;
    if (round % 4 < 2) {
      list.Sort(ascending);
    } else {
      list.Sort(CompareInts);
      ascending = true;
    }
    if (ascending) {
      std::stable_sort(model.begin(), model.end());
    } else {
      std::stable_sort(model.begin(), model.end(), std::greater<int>());
    }
    EXPECT_EQ(Items(list), model);
    ASSERT_TRUE(RingIntact(list));
  }
}

TYPED_TEST(Relink, SortOfOneElementLeavesTheCursorAlone) {
  TypeParam list;
  list.Append(1);
  list.MoveTo(0);
  list.Sort(true);
  EXPECT_EQ(list.GetCur(), 0);
}
