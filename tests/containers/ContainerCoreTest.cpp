// The slice of the containers that the dictionary stands on: the root's
// length and cursor, the ring of the owning list with the operations a
// dictionary calls, and the queue of its breadth-first walks.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "containers/KyPDList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Keys;
using kytest::Probed;
using kytest::RingIntact;
using kytest::Tracked;

namespace {

class ContainerCore : public kytest::CountingTest {};

// A named node as a dictionary keeps them: equality is by name.
struct Named {
  explicit Named(CString n) : name(n) {}
  virtual ~Named() = default;
  bool operator==(Named const &o) const { return name.Compare(o.name) == 0; }
  bool operator!=(Named const &o) const { return !(*this == o); }
  bool operator>(Named const &o) const { return name.Compare(o.name) > 0; }
  CString name;
};

}  // namespace

template class KyPDList<Named>;

TEST_F(ContainerCore, NewListHasNoElementAndMoveToFirstLeavesTheCursorOut) {
  Probed<KyPDList<Tracked>> list;
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToFirst();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(list.CursorNode(), list.Sentinel());
  EXPECT_EQ(list.Sentinel()->data, nullptr);
  EXPECT_TRUE(RingIntact(list));
}

TEST_F(ContainerCore, MoveToNextOffTheTailAndBackWithMoveToPre) {
  Probed<KyPDList<Tracked>> list;
  list.Append(new Tracked(1));
  list.Append(new Tracked(2));
  list.MoveToLast();
  EXPECT_EQ(list.GetCur(), 1);
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_EQ(list.GetCurPData().key, 2);
  EXPECT_TRUE(RingIntact(list));
}

TEST_F(ContainerCore, SortIntoWithAnEqualPresentRefusesAndDoesNotTakeIt) {
  Probed<KyPDList<Tracked>> list;
  EXPECT_TRUE(list.SortInto(new Tracked(3), false));
  EXPECT_TRUE(list.SortInto(new Tracked(7), false));
  Tracked *equal = new Tracked(3, 1);
  EXPECT_FALSE(list.SortInto(equal, false));
  EXPECT_EQ(list.GetLength(), 2);
  EXPECT_EQ(list.FindDel(equal), 0);
  EXPECT_TRUE(RingIntact(list));
  // Still the caller's to delete.
  delete equal;
  EXPECT_EQ(Tracked::destroyed, 1);
}

TEST_F(ContainerCore, DelCurOnTheFirstElementLeavesTheCursorOut) {
  Probed<KyPDList<Tracked>> list;
  list.Append(new Tracked(1));
  list.Append(new Tracked(2));
  list.MoveToFirst();
  list.DelCur();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(Keys(list), (std::vector<int>{2}));
  EXPECT_TRUE(RingIntact(list));
}

TEST_F(ContainerCore, InsertCurPlacesBeforeTheCursorOrAppendsWhenOut) {
  Probed<KyPDList<Tracked>> list;
  list.InsertCur(new Tracked(2));
  list.MoveTo(0);
  list.InsertCur(new Tracked(1));
  EXPECT_EQ(list.GetCur(), 0);
  list.MoveTo(-1);
  list.InsertCur(new Tracked(3));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2, 3}));
  list.Reset();
  EXPECT_EQ(Tracked::Alive(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TEST_F(ContainerCore, SortIntoPutsAnEqualBehindItsRun) {
  Probed<KyPDList<Tracked>> list;
  for (int k : {1, 4, 4, 4, 8}) list.Append(new Tracked(k, 0));
  EXPECT_TRUE(list.SortInto(new Tracked(4, 1), true));
  EXPECT_EQ(list.GetCur(), 4);
  EXPECT_EQ(list.GetCurPData().tag, 1);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 4, 4, 4, 4, 8}));
  EXPECT_TRUE(list.SortInto(new Tracked(8, 1), true));
  EXPECT_EQ(list.GetCur(), 6);
  EXPECT_TRUE(RingIntact(list));
}

TEST(ContainerCoreNamed, SearchByNameFindsTheFirstAndBinarySearchKeepsOrder) {
  KyPDList<Named> dict;
  for (wchar_t const *n : {L"ALPHA", L"DELTA", L"GAMMA"}) EXPECT_TRUE(dict.SortInto(new Named(n), false));
  EXPECT_TRUE(dict.SortInto(new Named(L"BETA"), false));
  Named *duplicate = new Named(L"BETA");
  EXPECT_FALSE(dict.SortInto(duplicate, false));
  delete duplicate;
  EXPECT_TRUE(dict.FindDataTo(Named(L"DELTA"), 0, -1));
  EXPECT_EQ(dict.GetCur(), 2);
  EXPECT_FALSE(dict.FindDataTo(Named(L"OMEGA"), 0, -1));
  EXPECT_EQ(dict.GetCur(), -1);
  EXPECT_TRUE(dict.BFindDataTo(Named(L"GAMMA"), 0, -1));
  EXPECT_EQ(dict.GetCur(), 3);
  EXPECT_FALSE(dict.BFindDataTo(Named(L"CHI"), 0, -1));
  EXPECT_EQ(dict.GetCurPData().name, CString(L"DELTA"));
  EXPECT_EQ(dict.FindDataDel(Named(L"ALPHA")), 1);
  EXPECT_EQ(dict.GetLength(), 3);
}

TEST(ContainerCoreQueue, BreadthFirstWalkThroughAListQueue) {
  // A small tree as parent -> children lists.
  std::vector<std::vector<int>> children = {{1, 2}, {3}, {4, 5}, {}, {}, {}};
  KyListQuene<std::int32_t> queue(-1);
  std::vector<std::int32_t> order;
  EXPECT_TRUE(queue.Push(0));
  std::int32_t node = -1;
  while (queue.Pop(node)) {
    order.push_back(node);
    for (int c : children[node]) EXPECT_TRUE(queue.Push(c));
  }
  EXPECT_EQ(order, (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(queue.GetCount(), 0);
  EXPECT_FALSE(queue.Pop(node));
}
