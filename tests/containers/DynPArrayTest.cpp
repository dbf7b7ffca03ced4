// The owning array of pointers KyDynPArray<T>: ownership of every pointee,
// null slots, the pointee sorts and searches.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Keys;
using kytest::Tracked;

namespace {

class DynPArray : public kytest::CountingTest {};

void FillKeys(KyDynPArray<Tracked> &a, std::vector<int> const &keys) {
  for (int k : keys) a.Append(k < 0 ? nullptr : new Tracked(k));
}

int CompareTracked(Tracked const &a, Tracked const &b) { return a.key - b.key; }

}  // namespace

template class KyDynPArray<Tracked>;

TEST_F(DynPArray, DestructorDeletesEveryPointeeOnce) {
  {
    KyDynPArray<Tracked> a;
    FillKeys(a, {1, -1, 2, 3});
    EXPECT_EQ(Tracked::Alive(), 3);
  }
  EXPECT_EQ(Tracked::Alive(), 0);
}

TEST_F(DynPArray, ReleaseCurDeletesOnceAndKeepsANullSlot) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3});
  a.MoveTo(1);
  a.ReleaseCur();
  a.ReleaseCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a.GetDataNum(), 2);
  EXPECT_TRUE(a.IsEmptyData(1));
  EXPECT_TRUE(a.IsEmptyData(3));
  EXPECT_FALSE(a.IsEmptyData(0));
  a.MoveTo(5);
  a.ReleaseCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  a.Release(0);
  EXPECT_EQ(Keys(a), (std::vector<int>{-1, -1, 3}));
}

TEST_F(DynPArray, TakeOffLeavesANullSlotBehind) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3});
  a.MoveTo(-1);
  EXPECT_EQ(a.TakeOffCur(), nullptr);
  Tracked *head = a.TakeOffHead();
  Tracked *tail = a.TakeOffTail();
  Tracked *mid = a.TakeOff(1);
  ASSERT_NE(head, nullptr);
  EXPECT_EQ(head->key, 1);
  EXPECT_EQ(tail->key, 3);
  EXPECT_EQ(mid->key, 2);
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a.GetDataNum(), 0);
  EXPECT_EQ(Tracked::destroyed, 0);
  delete head;
  delete tail;
  delete mid;
}

TEST_F(DynPArray, DelCurInTheMiddleKeepsTheLastPointeeAlive) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3, 4});
  a.MoveTo(1);
  a.DelCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 3, 4}));
  a.DelTail();
  EXPECT_EQ(Tracked::destroyed, 2);
  a.DelHead();
  EXPECT_EQ(Keys(a), (std::vector<int>{3}));
  EXPECT_EQ(a.GetCur(), -1);
}

TEST_F(DynPArray, ShrinkingDeletesTheDroppedPointeesAndGrowingAddsNulls) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3, 4});
  a.ReAllocate(2);
  EXPECT_EQ(Tracked::destroyed, 2);
  a.ReAllocate(4);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 2, -1, -1}));
  a.SetLength(1, true);
  EXPECT_EQ(Tracked::destroyed, 3);
  EXPECT_EQ(a.GetSpaceSize(), 1);
  a.SetLength(3, true);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, -1, -1}));
  a.SetLength(3, false);
  EXPECT_EQ(Tracked::destroyed, 4);
  EXPECT_EQ(Keys(a), (std::vector<int>{-1, -1, -1}));
  a.SetLength(6, false);
  EXPECT_EQ(Keys(a), (std::vector<int>{-1, -1, -1, -1, -1, -1}));
}

TEST_F(DynPArray, ResetDeletesAllAndKeepsTheBuffer) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3});
  a.Reset();
  EXPECT_EQ(Tracked::Alive(), 0);
  EXPECT_EQ(a.GetLength(), 0);
  EXPECT_EQ(a.GetCur(), -1);
  EXPECT_EQ(a.GetSpaceSize(), 11);
}

TEST_F(DynPArray, PlaceInReusesTheLowestNullSlotOrAppends) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, -1, 3, -1});
  EXPECT_EQ(a.PlaceIn(new Tracked(7)), 1);
  EXPECT_EQ(a.PlaceIn(new Tracked(8)), 3);
  EXPECT_EQ(a.PlaceIn(new Tracked(9)), 4);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 7, 3, 8, 9}));
}

TEST_F(DynPArray, FindDelOfAPointerRemovesThatSlotOnly) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 2});
  Tracked *second = a.GetAt(2);
  EXPECT_EQ(a.FindDel(second), 1);
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 2}));
  Tracked stranger(2);
  EXPECT_EQ(a.FindDel(&stranger), 0);
}

TEST_F(DynPArray, FindDataDelDeletesEveryEqualPointee) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {2, 1, 2, 2, 3});
  EXPECT_EQ(a.FindDataDel(Tracked(2)), 3);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 3}));
}

TEST_F(DynPArray, FindDataSkipsNullsAndTheQueueFormCollectsAll) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {-1, 5, 6, 5});
  EXPECT_EQ(a.FindData(Tracked(5)), 1);
  EXPECT_EQ(a.FindData(Tracked(5), 2), 3);
  EXPECT_EQ(a.FindData(Tracked(9)), -1);
  KyListQuene<std::int32_t> q;
  EXPECT_EQ(a.FindData(Tracked(5), q), 2);
  std::int32_t v = 0;
  EXPECT_TRUE(q.Pop(v));
  EXPECT_EQ(v, 1);
  EXPECT_TRUE(q.Pop(v));
  EXPECT_EQ(v, 3);
}

TEST_F(DynPArray, BinarySearchesOnThePointees) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {10, 20, 30});
  EXPECT_EQ(a.BFindData(Tracked(20)), 1);
  EXPECT_EQ(a.BFindData(Tracked(25)), -1);
  EXPECT_FALSE(a.BFindDataTo(Tracked(25)));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_FALSE(a.BFindDataTo(Tracked(35)));
  EXPECT_EQ(a.GetCur(), 3);
  EXPECT_TRUE(a.BFindDataTo(Tracked(10)));
  EXPECT_EQ(a.GetCur(), 0);
}

TEST_F(DynPArray, SortIntoTakesOrRefusesOwnership) {
  KyDynPArray<Tracked> a;
  Tracked *five = new Tracked(5, 0);
  EXPECT_TRUE(a.SortInto(five, false));
  EXPECT_TRUE(a.SortInto(new Tracked(1), false));
  Tracked *again = new Tracked(5, 1);
  EXPECT_FALSE(a.SortInto(again, false));
  EXPECT_EQ(a.GetLength(), 2);
  EXPECT_TRUE(a.SortInto(again, true));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 5, 5}));
  EXPECT_EQ(a.GetAt(2)->tag, 1);
}

TEST_F(DynPArray, SortOnThePointeesBothWaysAndByCallback) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {3, 1, 2});
  a.Sort(true);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 2, 3}));
  a.Sort(false);
  EXPECT_EQ(Keys(a), (std::vector<int>{3, 2, 1}));
  a.Sort(CompareTracked);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(Tracked::destroyed, 0);
}

TEST_F(DynPArray, SortExSinksNullSlotsToTheTail) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {-1, 3, -1, 1});
  a.SortEx(true);
  EXPECT_EQ(Keys(a), (std::vector<int>{1, 3, -1, -1}));
  KyDynPArray<Tracked> b;
  FillKeys(b, {-1, 1, 4, -1, 2});
  b.SortEx(false);
  EXPECT_EQ(Keys(b), (std::vector<int>{4, 2, 1, -1, -1}));
}

TEST_F(DynPArray, MoveKeepsThePointeeAlive) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2, 3, 4});
  EXPECT_TRUE(a.Move(0, 3));
  EXPECT_EQ(Keys(a), (std::vector<int>{2, 3, 1, 4}));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_TRUE(a.Move(3, 1));
  EXPECT_EQ(Keys(a), (std::vector<int>{2, 4, 3, 1}));
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_FALSE(a.Move(2, 3));
  EXPECT_EQ(Tracked::destroyed, 0);
}

TEST_F(DynPArray, EqualityComparesThePointees) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, -1, 3});
  KyDynPArray<Tracked> b;
  FillKeys(b, {1, -1, 3});
  EXPECT_TRUE(a == b);
  b.Release(2);
  EXPECT_TRUE(a != b);
  KyDynPArray<Tracked> c;
  FillKeys(c, {1, -1, 4});
  EXPECT_FALSE(a == c);
}

TEST_F(DynPArray, AccessThroughThePointer) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2});
  a.MoveTo(1);
  EXPECT_EQ(a.GetCurPData().key, 2);
  EXPECT_EQ(a.GetPData(0).key, 1);
  EXPECT_EQ(a(0).key, 1);
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_FALSE(a.IsCurEmpty());
  a.MoveTo(2);
  EXPECT_TRUE(a.IsCurEmpty());
}

TEST_F(DynPArray, CopiesShareThePointees) {
  KyDynPArray<Tracked> a;
  FillKeys(a, {1, 2});
  KyDynPArray<Tracked> copy(a);
  EXPECT_EQ(copy.GetAt(0), a.GetAt(0));
  EXPECT_EQ(copy.GetAt(1), a.GetAt(1));
  // Only one of the two may delete: the copy hands its buffer back unread.
  delete[] copy.Detach();
  KyDynPArray<Tracked> target;
  FillKeys(target, {7, 8, 9});
  target = a;
  // Assignment empties the target first, deleting its own pointees.
  EXPECT_EQ(Tracked::destroyed, 3);
  EXPECT_EQ(target.GetAt(1), a.GetAt(1));
  delete[] target.Detach();
}
