// The owning pointer lists KyPDList<T> and KyPXList<T>: who deletes which
// pointee, null slots, the searches and sorts through the pointees. Every
// test counts constructions and destructions of the pointees, so a pointee
// deleted twice or never shows up.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "containers/KyPDList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Keys;
using kytest::Probed;
using kytest::ProbedX;
using kytest::RingIntact;
using kytest::TableTrue;
using kytest::Tracked;

template class KyPDList<Tracked>;
template class KyPXList<Tracked>;

namespace {

template <class L>
class OwningList : public kytest::CountingTest {};

using OwningTypes = ::testing::Types<Probed<KyPDList<Tracked>>, ProbedX<KyPXList<Tracked>>>;

template <class L>
void FillKeys(L &list, std::vector<int> const &keys) {
  for (int k : keys) list.Append(k < 0 ? nullptr : new Tracked(k));
}

// The ring, and for an indexed list its table as well.
template <class L>
::testing::AssertionResult Sound(L const &list) {
  auto ring = RingIntact(list);
  if (!ring) return ring;
  if (list.Sentinel()->data != nullptr) return ::testing::AssertionFailure() << "sentinel slot is set";
  if constexpr (requires { list.Table(); }) return TableTrue(list);
  return ::testing::AssertionSuccess();
}

int CompareTracked(Tracked const &a, Tracked const &b) { return a.key - b.key; }
int CompareByAddress(Tracked *const &a, Tracked *const &b) {
  std::less<Tracked *> before;
  return before(a, b) ? -1 : (before(b, a) ? 1 : 0);
}

}  // namespace

TYPED_TEST_SUITE(OwningList, OwningTypes);

TYPED_TEST(OwningList, NewListHoldsNullInItsSentinel) {
  TypeParam list;
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(Sound(list));
  TypeParam sized(3);
  EXPECT_EQ(Keys(sized), (std::vector<int>{-1, -1, -1}));
  EXPECT_EQ(sized.GetCur(), -1);
  EXPECT_TRUE(Sound(sized));
}

TYPED_TEST(OwningList, DestructorDeletesEveryPointeeOnce) {
  {
    TypeParam list;
    FillKeys(list, {1, -1, 2, 3});
    EXPECT_EQ(Tracked::Alive(), 3);
  }
  EXPECT_EQ(Tracked::Alive(), 0);
  EXPECT_EQ(Tracked::destroyed, 3);
}

TYPED_TEST(OwningList, TakeOffCurOnAnOutCursorReturnsNullAndChangesNothing) {
  TypeParam list;
  FillKeys(list, {1, 2});
  list.MoveTo(-1);
  EXPECT_EQ(list.TakeOffCur(), nullptr);
  EXPECT_EQ(list.GetLength(), 2);
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, TakeOffHandsThePointeeOverAndRemovesTheSlot) {
  TypeParam list;
  FillKeys(list, {1, 2, 3, 4});
  Tracked *second = list.TakeOff(1);
  EXPECT_EQ(second->key, 2);
  EXPECT_EQ(list.GetCur(), 0);
  Tracked *head = list.TakeOffHead();
  Tracked *tail = list.TakeOffTail();
  EXPECT_EQ(head->key, 1);
  EXPECT_EQ(tail->key, 4);
  EXPECT_EQ(Keys(list), (std::vector<int>{3}));
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_TRUE(Sound(list));
  delete second;
  delete head;
  delete tail;
}

TYPED_TEST(OwningList, ReleaseCurTwiceDeletesOnceAndKeepsTheSlot) {
  TypeParam list;
  FillKeys(list, {1, 2, 3});
  list.MoveTo(1);
  list.ReleaseCur();
  list.ReleaseCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(list.GetLength(), 3);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, -1, 3}));
  list.MoveTo(-1);
  list.ReleaseCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, GetDataNumCountsOnlyFilledSlots) {
  TypeParam list;
  FillKeys(list, {1, 2, 3});
  EXPECT_EQ(list.GetDataNum(), 3);
  list.MoveTo(0);
  list.ReleaseCur();
  EXPECT_EQ(list.GetDataNum(), 2);
  EXPECT_EQ(list.GetLength(), 3);
  list.Release(2);
  list.ReleaseAll();
  EXPECT_EQ(list.GetDataNum(), 0);
  EXPECT_EQ(list.GetLength(), 3);
  EXPECT_EQ(Tracked::destroyed, 3);
}

TYPED_TEST(OwningList, PlaceInReusesTheLowestNullSlotOrAppends) {
  TypeParam list;
  FillKeys(list, {1, -1, 3, -1});
  EXPECT_EQ(list.PlaceIn(new Tracked(7)), 1);
  EXPECT_EQ(list.PlaceIn(new Tracked(8)), 3);
  EXPECT_EQ(list.PlaceIn(new Tracked(9)), 4);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 7, 3, 8, 9}));
  TypeParam empty;
  EXPECT_EQ(empty.PlaceIn(new Tracked(1)), 0);
  EXPECT_TRUE(Sound(list));
  EXPECT_TRUE(Sound(empty));
}

TYPED_TEST(OwningList, FindDataOrAppendTwiceMakesOneElement) {
  TypeParam list;
  FillKeys(list, {1});
  Tracked five(5);
  EXPECT_EQ(list.FindDataOrAppend(five), 1);
  EXPECT_EQ(list.FindDataOrAppend(five), 1);
  EXPECT_EQ(list.GetLength(), 2);
  // The list owns a copy, not the caller's object.
  EXPECT_EQ(list.GetPData(1).key, 5);
  EXPECT_NE(&list.GetPData(1), &five);
  list.FindDataOrInsertHead(Tracked(0));
  list.FindDataOrInsertHead(Tracked(5));
  EXPECT_EQ(Keys(list), (std::vector<int>{0, 1, 5}));
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, FindDataWithAQueuePushesOnlyTheFirstMatch) {
  TypeParam list;
  FillKeys(list, {-1, 4, 2, 4});
  KyListQuene<std::int32_t> q;
  EXPECT_EQ(list.FindData(Tracked(4), q), 1);
  EXPECT_EQ(q.GetCount(), 1);
  std::int32_t first = -1;
  EXPECT_TRUE(q.GetHead(first));
  EXPECT_EQ(first, 1);
  // No match: the count of the queue as it stands.
  EXPECT_EQ(list.FindData(Tracked(9), q), 1);
}

TYPED_TEST(OwningList, FindDataWithAFullQueueReturnsZero) {
  TypeParam list;
  FillKeys(list, {4, 4});
  KyListQuene<std::int32_t> q(1);
  q.Push(99);
  EXPECT_EQ(list.FindData(Tracked(4), q), 0);
  EXPECT_EQ(q.GetCount(), 1);
}

TYPED_TEST(OwningList, FindDataSkipsNullSlotsAndHonoursTheRange) {
  TypeParam list;
  FillKeys(list, {-1, 3, -1, 3, 5});
  list.MoveTo(4);
  EXPECT_EQ(list.FindData(Tracked(3)), 1);
  EXPECT_EQ(list.FindData(Tracked(3), 2), 3);
  EXPECT_EQ(list.FindData(Tracked(3), 2, 2), -1);
  EXPECT_EQ(list.FindData(Tracked(7)), -1);
  EXPECT_EQ(list.GetCur(), 4);
}

TYPED_TEST(OwningList, EqualityHoldsOnlyForListsOfNullSlots) {
  TypeParam a;
  FillKeys(a, {1, 2, 3});
  TypeParam b;
  FillKeys(b, {1, 2, 3});
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a != b);
  TypeParam nulls(3);
  TypeParam otherNulls(3);
  EXPECT_TRUE(nulls == otherNulls);
  TypeParam e1;
  TypeParam e2;
  EXPECT_TRUE(e1 == e2);
  EXPECT_FALSE(nulls == e1);
}

TYPED_TEST(OwningList, SortMovesNullSlotsToTheTail) {
  TypeParam list;
  FillKeys(list, {3, -1, 1, -1, 2});
  list.Sort(true);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2, 3, -1, -1}));
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, SortWithNullsAtHeadMiddleAndTail) {
  TypeParam list;
  FillKeys(list, {-1, -1, 4, 2, -1, 9, 1, -1});
  list.Sort(true);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2, 4, 9, -1, -1, -1, -1}));
  EXPECT_TRUE(Sound(list));
  list.Sort(false);
  EXPECT_EQ(Keys(list), (std::vector<int>{9, 4, 2, 1, -1, -1, -1, -1}));
  EXPECT_EQ(Tracked::Alive(), 4);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, SortIsStableOnTheFilledSlots) {
  TypeParam list;
  int keys[] = {2, 1, 2, 1, 0};
  for (int t = 0; t < 5; ++t) list.Append(new Tracked(keys[t], t));
  list.Append(nullptr);
  list.Sort(true);
  std::vector<int> tags;
  for (Tracked *const *p = list.GetFirst(); p; p = list.GetNext(p)) tags.push_back(*p ? (*p)->tag : -1);
  EXPECT_EQ(tags, (std::vector<int>{4, 1, 3, 0, 2, -1}));
  EXPECT_EQ(list.GetCur(), 5);
}

TYPED_TEST(OwningList, SortByCallbacksKeepsEveryPointee) {
  TypeParam list;
  FillKeys(list, {5, 3, 8, 1});
  list.Sort(CompareTracked);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 3, 5, 8}));
  list.Sort(CompareByAddress);
  EXPECT_EQ(list.GetLength(), 4);
  Tracked *const *p = list.GetFirst();
  for (Tracked *const *q = list.GetNext(p); q; p = q, q = list.GetNext(q)) EXPECT_TRUE(std::less<Tracked *>()(*p, *q));
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, SortIntoRefusesAnEqualAndLeavesItWithTheCaller) {
  TypeParam list;
  EXPECT_TRUE(list.SortInto(new Tracked(5, 0), false));
  EXPECT_TRUE(list.SortInto(new Tracked(1, 0), false));
  EXPECT_TRUE(list.SortInto(new Tracked(9, 0), false));
  Tracked *duplicate = new Tracked(5, 1);
  EXPECT_FALSE(list.SortInto(duplicate, false));
  EXPECT_EQ(list.GetLength(), 3);
  EXPECT_EQ(list.FindDel(duplicate), 0);
  EXPECT_TRUE(list.SortInto(duplicate, true));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_EQ(list.GetCurPData().tag, 1);
  EXPECT_TRUE(list.SortInto(new Tracked(10, 0), true));
  EXPECT_EQ(list.GetCur(), 4);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 5, 5, 9, 10}));
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, BinarySearchesThroughThePointees) {
  TypeParam list;
  FillKeys(list, {10, 20, 30});
  EXPECT_EQ(list.BFindData(Tracked(30)), 2);
  EXPECT_EQ(list.BFindData(Tracked(5)), -1);
  EXPECT_FALSE(list.BFindDataTo(Tracked(15)));
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_FALSE(list.BFindDataTo(Tracked(35)));
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(list.BFindDataTo(Tracked(10)));
  EXPECT_EQ(list.GetCur(), 0);
}

TYPED_TEST(OwningList, DeletingOperationsDeleteTheirPointees) {
  TypeParam list;
  FillKeys(list, {1, 2, -1, 3, 4, 5, 6});
  list.MoveTo(1);
  list.DelCur();
  EXPECT_EQ(Tracked::destroyed, 1);
  list.Del(1);
  EXPECT_EQ(Tracked::destroyed, 1);
  list.DelHead();
  list.DelTail();
  EXPECT_EQ(Tracked::destroyed, 3);
  EXPECT_EQ(Keys(list), (std::vector<int>{3, 4, 5}));
  list.SetLength(1, false);
  EXPECT_EQ(Tracked::destroyed, 5);
  list.Reset();
  EXPECT_EQ(Tracked::destroyed, 6);
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, FindDelRemovesOnlyTheSlotOfThatAddress) {
  TypeParam list;
  FillKeys(list, {1, 2, 2});
  Tracked *third = list.GetAt(2);
  EXPECT_EQ(list.FindDel(third), 1);
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(list.FindDataDel(Tracked(2)), 1);
  list.Append(nullptr);
  list.Append(new Tracked(1));
  EXPECT_EQ(list.FindDataDel(Tracked(1)), 2);
  EXPECT_EQ(Keys(list), (std::vector<int>{-1}));
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, ReAllocateGrowsWithNullsAndKeepsTheCursor) {
  TypeParam list;
  FillKeys(list, {1, 2});
  list.MoveTo(0);
  list.ReAllocate(4);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2, -1, -1}));
  EXPECT_EQ(list.GetCur(), 0);
  list.ReAllocate(1);
  EXPECT_EQ(list.GetLength(), 4);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, SetCurDataDoesNotDeleteTheOldPointee) {
  TypeParam list;
  FillKeys(list, {1});
  list.MoveTo(0);
  Tracked *old = list.GetCurData();
  list.SetCurData(new Tracked(2));
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_EQ(list.GetCurPData().key, 2);
  delete old;
}

TYPED_TEST(OwningList, AccessThroughThePointer) {
  TypeParam list;
  FillKeys(list, {1, -1});
  list.MoveTo(0);
  EXPECT_EQ(list.GetCurPData().key, 1);
  EXPECT_EQ(list.GetPData(0).key, 1);
  EXPECT_FALSE(list.IsCurEmpty());
  EXPECT_TRUE(list.IsEmptyData(1));
  EXPECT_TRUE(list.IsEmptyData(2));
  EXPECT_FALSE(list.IsEmptyData(0));
  list.MoveTo(1);
  EXPECT_TRUE(list.IsCurEmpty());
  list.MoveTo(-1);
  EXPECT_TRUE(list.IsCurEmpty());
  // operator() moves the cursor and grows the list with null slots.
  list[3] = new Tracked(4);
  EXPECT_EQ(list(3).key, 4);
  EXPECT_EQ(list.GetCur(), 3);
  EXPECT_EQ(Keys(list), (std::vector<int>{1, -1, -1, 4}));
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, MoveKeepsEveryPointeeAlive) {
  TypeParam list;
  FillKeys(list, {0, 1, 2, 3});
  EXPECT_TRUE(list.Move(0, 3));
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 2, 0, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_TRUE(list.Move(3, 1));
  EXPECT_EQ(Keys(list), (std::vector<int>{1, 3, 2, 0}));
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_TRUE(list.Move(0, 4));
  EXPECT_EQ(Keys(list), (std::vector<int>{3, 2, 0, 1}));
  EXPECT_EQ(list.GetCur(), 3);
  EXPECT_FALSE(list.Move(1, 2));
  EXPECT_EQ(Tracked::destroyed, 0);
  EXPECT_TRUE(Sound(list));
}

TYPED_TEST(OwningList, CopiesShareThePointees) {
  TypeParam source;
  FillKeys(source, {1, 2});
  {
    TypeParam copy(source);
    EXPECT_EQ(copy.GetAt(0), source.GetAt(0));
    EXPECT_TRUE(RingIntact(copy));
    // Only one list may delete them: the copy gives its slots away unread.
    while (!copy.IsEmpty()) copy.TakeOffHead();
  }
  EXPECT_EQ(Tracked::destroyed, 0);
}

TYPED_TEST(OwningList, AssignmentOverwritesWithoutDeletingExceptWhatItDrops) {
  TypeParam source;
  FillKeys(source, {1, 2});
  TypeParam target;
  FillKeys(target, {7, 8, 9});
  Tracked *seven = target.GetAt(0);
  Tracked *eight = target.GetAt(1);
  target = source;
  // Shrinking from three to two deleted the third pointee only.
  EXPECT_EQ(Tracked::destroyed, 1);
  EXPECT_EQ(target.GetAt(0), source.GetAt(0));
  EXPECT_TRUE(RingIntact(target));
  delete seven;
  delete eight;
  while (!target.IsEmpty()) target.TakeOffTail();
}

TEST(OwningListOnly, FindDataToMovesTheCursorToTheFirstMatch) {
  kytest::Tracked::ResetCounts();
  {
    KyPDList<Tracked> list;
    FillKeys(list, {-1, 3, 5, 3});
    EXPECT_TRUE(list.FindDataTo(Tracked(3)));
    EXPECT_EQ(list.GetCur(), 1);
    EXPECT_TRUE(list.FindDataTo(Tracked(3), 2));
    EXPECT_EQ(list.GetCur(), 3);
    EXPECT_FALSE(list.FindDataTo(Tracked(5), 0, 1));
    EXPECT_EQ(list.GetCur(), 2);
    EXPECT_FALSE(list.FindDataTo(Tracked(8)));
    EXPECT_EQ(list.GetCur(), -1);
  }
  EXPECT_EQ(Tracked::Alive(), 0);
}

TEST(OwningListOnly, IndexedOwningListSetAllDoesNothing) {
  kytest::Tracked::ResetCounts();
  {
    KyPXList<Tracked> list;
    FillKeys(list, {1, 2});
    Tracked shared(9);
    list.SetAll(&shared);
    EXPECT_EQ(Keys(list), (std::vector<int>{1, 2}));
  }
  EXPECT_EQ(Tracked::Alive(), 0);
}

TEST(OwningListOnly, IndexedOwningListResetEmptiesTheTable) {
  kytest::Tracked::ResetCounts();
  {
    ProbedX<KyPXList<Tracked>> list(0, 2);
    FillKeys(list, {1, 2, 3, 4, 5});
    EXPECT_EQ(list.Table().GetLength(), 3);
    list.Reset();
    EXPECT_EQ(list.Table().GetLength(), 0);
    EXPECT_EQ(Tracked::Alive(), 0);
    FillKeys(list, {6, 7, 8});
    EXPECT_TRUE(Sound(list));
    ProbedX<KyPXList<Tracked>> sized(5, 2);
    EXPECT_EQ(Keys(sized), (std::vector<int>{-1, -1, -1, -1, -1}));
    EXPECT_TRUE(Sound(sized));
  }
  EXPECT_EQ(Tracked::Alive(), 0);
}
