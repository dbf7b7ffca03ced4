// The cursor lists KyList<T> and KyDList<T>: the ring with its sentinel, the
// wrap of the cursor at -1, insertion and deletion at the cursor.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "containers/KyList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Fill;
using kytest::Items;
using kytest::Probed;
using kytest::RingIntact;

template class KyList<char>;
template class KyDList<char>;
template class KyDList<int>;
template struct KyDListNode<int>;

namespace {

template <class L>
class BothLists : public ::testing::Test {};

using ListTypes = ::testing::Types<Probed<KyList<int>>, Probed<KyDList<int>>>;

}  // namespace

TYPED_TEST_SUITE(BothLists, ListTypes);

TYPED_TEST(BothLists, NewListIsEmptyWithCursorOut) {
  TypeParam list;
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(list.GetFirst(), nullptr);
  EXPECT_EQ(list.GetLast(), nullptr);
  EXPECT_TRUE(list.IsOut());
  EXPECT_EQ(list.Tail(), list.Sentinel());
  EXPECT_EQ(list.Sentinel()->next, list.Sentinel());
  list.MoveToFirst();
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToLast();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, ConstructorLengthAppendsDefaultValues) {
  TypeParam list(3);
  EXPECT_EQ(Items(list), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, MoveToNextWrapsThroughMinusOne) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveToLast();
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(list.CursorNode(), list.Sentinel());
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(list.GetCurData(), 1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, MoveToPreFromMinusOneLandsOnTheTail) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveTo(-1);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_EQ(list.GetCurData(), 3);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 1);
  list.MoveToFirst();
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, MoveToOutOfRangeGoesToTheSentinel) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  for (std::int32_t i : {-5, -1, 3, 100}) {
    list.MoveTo(1);
    list.MoveTo(i);
    EXPECT_EQ(list.GetCur(), -1) << i;
    EXPECT_TRUE(RingIntact(list));
  }
  for (std::int32_t i : {2, 0, 1, 1, 2, 0}) {
    list.MoveTo(i);
    EXPECT_EQ(list.GetCur(), i);
    EXPECT_EQ(list.GetCurData(), i + 1);
  }
}

TYPED_TEST(BothLists, InsertCurAtMinusOneAppends) {
  TypeParam list;
  Fill(list, {1, 2});
  list.MoveTo(-1);
  list.InsertCur(3);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, InsertCurPutsTheElementBeforeTheCursor) {
  TypeParam list;
  Fill(list, {1, 3});
  list.MoveTo(1);
  list.InsertCur(2);
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_EQ(list.GetCurData(), 2);
  list.MoveTo(0);
  list.InsertCur(0);
  EXPECT_EQ(Items(list), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, InsertAfterCurAtMinusOnePutsTheElementAtTheHead) {
  TypeParam list;
  Fill(list, {1, 2});
  list.MoveTo(-1);
  list.InsertAfterCur(0);
  EXPECT_EQ(Items(list), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(list.GetCur(), 0);
  list.MoveToLast();
  list.InsertAfterCur(3);
  EXPECT_EQ(list.GetCur(), 3);
  EXPECT_EQ(*list.GetLast(), 3);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, InsertAtTheLengthAppendsButPastItInsertsAtTheHead) {
  TypeParam list;
  Fill(list, {1, 2});
  list.Insert(2, 3);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  list.Insert(4, 0);
  EXPECT_EQ(Items(list), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 0);
  list.Insert(0, -1);
  list.Insert(2, 9);
  EXPECT_EQ(Items(list), (std::vector<int>{-1, 0, 9, 1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, InsertHeadAndAppend) {
  TypeParam list;
  EXPECT_EQ(list.Append(5), 0);
  list.InsertHead(4);
  EXPECT_EQ(list.Append(6), 2);
  EXPECT_EQ(Items(list), (std::vector<int>{4, 5, 6}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, DelCurOnTheOnlyElementEmptiesTheList) {
  TypeParam list;
  list.Append(1);
  list.MoveToFirst();
  list.DelCur();
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(list.Tail(), list.Sentinel());
  EXPECT_TRUE(RingIntact(list));
  list.Append(2);
  EXPECT_EQ(Items(list), (std::vector<int>{2}));
}

TYPED_TEST(BothLists, DelCurOnTheTailLeavesCursorOnTheNewTail) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveToLast();
  list.DelCur();
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_EQ(list.GetCurData(), 2);
  EXPECT_EQ(&list.GetCurData(), list.GetLast());
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, DelCurOnTheFirstLeavesCursorOut) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveToFirst();
  list.DelCur();
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToNext();
  EXPECT_EQ(list.GetCurData(), 2);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, DelCurThenMoveToNextContinuesAScan) {
  TypeParam list;
  Fill(list, {1, 2, 2, 3, 2});
  EXPECT_EQ(list.FindDel(2), 3);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 3}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, ReAllocateNeverShrinksButSetLengthTruncates) {
  TypeParam list;
  Fill(list, {1, 2, 3, 4});
  list.MoveTo(1);
  list.DecreaseSize(2);
  EXPECT_EQ(list.GetLength(), 4);
  list.ReAllocate(6);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 4, 0, 0}));
  EXPECT_EQ(list.GetCur(), 1);
  list.SetLength(3, true);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  list.SetLength(0, false);
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, ResetEmptiesAndTheListIsReusable) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveTo(1);
  list.Reset();
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(RingIntact(list));
  Fill(list, {4});
  EXPECT_EQ(Items(list), (std::vector<int>{4}));
}

TYPED_TEST(BothLists, ElementPointersAreNodeAddresses) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.MoveTo(1);
  EXPECT_EQ(static_cast<void *>(list.GetCurPos()), static_cast<void *>(&list.GetCurData()));
  int const *p = list.GetFirst();
  p = list.GetNext(p);
  EXPECT_EQ(p, &list.GetCurData());
  EXPECT_EQ(*list.GetPre(p), 1);
  EXPECT_EQ(list.GetPre(list.GetFirst()), nullptr);
  EXPECT_EQ(list.GetNext(list.GetLast()), nullptr);
  EXPECT_EQ(list.GetNext(nullptr), nullptr);
  EXPECT_EQ(list.GetPre(nullptr), nullptr);
  EXPECT_EQ(*list.GetPre(list.GetLast()), 2);
  EXPECT_EQ(list.GetCur(), 1);
}

TYPED_TEST(BothLists, GetAtReadsWithoutMovingTheCursor) {
  TypeParam list;
  Fill(list, {10, 11, 12, 13, 14});
  for (std::int32_t cur : {-1, 0, 2, 4}) {
    list.MoveTo(cur);
    for (std::int32_t i = 0; i < 5; ++i) EXPECT_EQ(list.GetAt(i), 10 + i);
    EXPECT_EQ(list.GetCur(), cur);
  }
}

TYPED_TEST(BothLists, IndexingMovesTheCursorAndGrowsPastTheEnd) {
  TypeParam list;
  Fill(list, {1, 2});
  list[4] = 5;
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 0, 0, 5}));
  EXPECT_EQ(list.GetCur(), 4);
  EXPECT_EQ(list[1], 2);
  EXPECT_EQ(list.GetCur(), 1);
  TypeParam const &c = list;
  EXPECT_EQ(c[3], 0);
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, CopiesAreDeepAndComeFromAnyMember) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  TypeParam copy(list);
  copy.MoveTo(0);
  copy.SetCurData(9);
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(Items(copy), (std::vector<int>{9, 2, 3}));
  KyDynArray<int> array;
  Fill(array, {7, 8});
  copy = array;
  EXPECT_EQ(Items(copy), (std::vector<int>{7, 8}));
  EXPECT_TRUE(copy == array);
  EXPECT_TRUE(RingIntact(copy));
}

TYPED_TEST(BothLists, SetAllLeavesTheCursorOut) {
  TypeParam list;
  Fill(list, {1, 2, 3});
  list.SetAll(4);
  EXPECT_EQ(Items(list), (std::vector<int>{4, 4, 4}));
  EXPECT_EQ(list.GetCur(), -1);
}

TYPED_TEST(BothLists, ExchangeAndReverseThroughIndexing) {
  TypeParam list;
  Fill(list, {1, 2, 3, 4, 5});
  list.Exchange(0, 4);
  EXPECT_EQ(list.GetCur(), 0);
  list.Reverse(1, 3);
  EXPECT_EQ(Items(list), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, MoveForwardAndBackward) {
  TypeParam list;
  Fill(list, {0, 1, 2, 3});
  EXPECT_TRUE(list.Move(0, 3));
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 0, 3}));
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_EQ(list.GetCurData(), 0);
  EXPECT_TRUE(list.Move(3, 1));
  EXPECT_EQ(Items(list), (std::vector<int>{1, 3, 2, 0}));
  EXPECT_EQ(list.GetCur(), 1);
  EXPECT_TRUE(list.Move(0, 4));
  EXPECT_EQ(Items(list), (std::vector<int>{3, 2, 0, 1}));
  EXPECT_EQ(list.GetCur(), 3);
  EXPECT_FALSE(list.Move(2, 3));
  EXPECT_FALSE(list.Move(2, 2));
  EXPECT_TRUE(RingIntact(list));
}

TYPED_TEST(BothLists, BinarySearchAndSortedInsertion) {
  TypeParam list;
  Fill(list, {10, 20});
  EXPECT_FALSE(list.BFindTo(15));
  EXPECT_EQ(list.GetCurData(), 20);
  EXPECT_FALSE(list.BFindTo(25));
  // Past the end of a list is the sentinel, and InsertCur there appends.
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(list.SortInto(25, false));
  EXPECT_TRUE(list.SortInto(5, false));
  EXPECT_TRUE(list.SortInto(15, false));
  EXPECT_FALSE(list.SortInto(15, false));
  EXPECT_EQ(Items(list), (std::vector<int>{5, 10, 15, 20, 25}));
  EXPECT_EQ(list.BFind(20), 3);
  TypeParam empty;
  EXPECT_FALSE(empty.BFindTo(1));
  EXPECT_EQ(empty.GetCur(), -1);
  EXPECT_TRUE(empty.SortInto(1, false));
  EXPECT_TRUE(RingIntact(list));
  EXPECT_TRUE(RingIntact(empty));
}

TEST(List, SinglyLinkedGetPreUsesTheCursorShortcutAndScans) {
  Probed<KyList<int>> list;
  Fill(list, {1, 2, 3, 4});
  list.MoveTo(1);
  int const *third = &list.GetAt(2);
  EXPECT_EQ(list.GetPre(third), &list.GetCurData());
  int const *fourth = &list.GetAt(3);
  EXPECT_EQ(*list.GetPre(fourth), 3);
  EXPECT_EQ(list.GetCur(), 1);
  int stranger = 0;
  EXPECT_EQ(list.GetPre(&stranger), nullptr);
}

TEST(List, WrapAtMinusOneHoldsForDoublyLinkedMoveToPre) {
  Probed<KyDList<int>> list;
  Fill(list, {1, 2, 3});
  list.MoveToFirst();
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_TRUE(RingIntact(list));
}

TEST(List, SentinelValueOfAValueListIsDefaultConstructed) {
  KyList<CString> list;
  Fill(list, {CString(L"a")});
  list.MoveTo(-1);
  // Reading at -1 reads the sentinel, which no correct use relies on.
  EXPECT_TRUE(list.GetCurData().IsEmpty());
}

TEST(List, NodeValueStandsFirst) {
  KyDListNode<int> node;
  EXPECT_EQ(static_cast<void *>(&node), static_cast<void *>(&node.data));
  KyListNode<CString> one;
  EXPECT_EQ(static_cast<void *>(&one), static_cast<void *>(&one.data));
  EXPECT_EQ(one.next, nullptr);
  EXPECT_EQ(node.prev, nullptr);
}
