// The growable array KyDynArray<T> and the operations of KyDynArrayBase<T>
// as they behave on it.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "containers/KyDynArray.h"
#include "platform/base/KyStringW.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Fill;
using kytest::Items;
using kytest::Keyed;

namespace {

// A queue backed by a list, to collect the indices of the searches.
using IndexQueue = KyListQuene<std::int32_t>;

std::vector<std::int32_t> Drain(IndexQueue &q) {
  std::vector<std::int32_t> out;
  std::int32_t v;
  while (q.Pop(v)) out.push_back(v);
  return out;
}

int CompareInts(int const &a, int const &b) { return a < b ? -1 : (a > b ? 1 : 0); }
int CompareIntsDescending(int const &a, int const &b) { return CompareInts(b, a); }
int CompareKeyed(Keyed const &a, Keyed const &b) { return a.key - b.key; }

}  // namespace

TEST(DynArray, NewArrayIsEmptyWithCursorOutAndDefaultUnit) {
  KyDynArray<double> a;
  EXPECT_EQ(a.GetLength(), 0);
  EXPECT_EQ(a.GetCur(), -1);
  EXPECT_EQ(a.GetSpaceSize(), 0);
  EXPECT_EQ(a.GetAllocUnit(), 10);
  EXPECT_EQ(a.GetFirst(), nullptr);
  EXPECT_EQ(a.GetLast(), nullptr);
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_TRUE(a.IsOut());
}

TEST(DynArray, ConstructorArgumentIsCapacityNotLength) {
  KyDynArray<int> a(7, 3);
  EXPECT_EQ(a.GetLength(), 0);
  EXPECT_EQ(a.GetSpaceSize(), 7);
  EXPECT_EQ(a.GetAllocUnit(), 3);
  KyDynArray<int> none(-4);
  EXPECT_EQ(none.GetSpaceSize(), 0);
}

TEST(DynArray, AppendGrowsSpaceAdditivelyByTheAllocUnit) {
  KyDynArray<double> a;
  a.Append(1.0);
  EXPECT_EQ(a.GetSpaceSize(), 11);
  for (int i = 2; i <= 11; ++i) a.Append(i);
  EXPECT_EQ(a.GetSpaceSize(), 11);
  a.Append(12.0);
  EXPECT_EQ(a.GetSpaceSize(), 22);
  EXPECT_EQ(a.GetLength(), 12);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(a.GetAt(i), i + 1.0);
}

TEST(DynArray, AppendReturnsTheNewIndexWithCursorOnIt) {
  KyDynArray<int> a;
  EXPECT_EQ(a.Append(5), 0);
  EXPECT_EQ(a.Append(6), 1);
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_EQ(a.GetCurData(), 6);
}

TEST(DynArray, IndexingPastTheEndGrowsAndMovesTheCursor) {
  KyDynArray<int> a;
  a[5] = 42;
  EXPECT_EQ(a.GetLength(), 6);
  EXPECT_EQ(a.GetCur(), 5);
  EXPECT_EQ(a.GetAt(5), 42);
  EXPECT_EQ(a.GetAt(0), 0);
  a[2];
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(a.GetLength(), 6);
}

TEST(DynArray, ConstIndexingNeitherMovesNorGrows) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.MoveTo(0);
  KyDynArray<int> const &c = a;
  EXPECT_EQ(c[2], 3);
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_EQ(a.GetTo(3), nullptr);
  EXPECT_EQ(a.GetTo(-1), nullptr);
  ASSERT_NE(a.GetTo(1), nullptr);
  EXPECT_EQ(*a.GetTo(1), 2);
}

TEST(DynArray, DeletingIndexZeroLeavesCursorBeforeTheFirst) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.Del(0);
  EXPECT_EQ(a.GetCur(), -1);
  a.MoveToNext();
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_EQ(a.GetCurData(), 2);
  EXPECT_EQ(Items(a), (std::vector<int>{2, 3}));
}

TEST(DynArray, DelCurLeavesCursorOnPredecessorAndKeepsTheBuffer) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 4});
  std::int32_t space = a.GetSpaceSize();
  a.MoveTo(2);
  a.DelCur();
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_EQ(a.GetCurData(), 2);
  EXPECT_EQ(a.GetSpaceSize(), space);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 4}));
}

TEST(DynArray, CursorRunsFreelyPastBothEnds) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.MoveToLast();
  a.MoveToNext();
  EXPECT_EQ(a.GetCur(), 3);
  EXPECT_TRUE(a.IsEnd());
  EXPECT_TRUE(a.IsOut());
  a.MoveToPre();
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(a.GetCurData(), 3);
  a.MoveToFirst();
  a.MoveToPre();
  EXPECT_EQ(a.GetCur(), -1);
  EXPECT_TRUE(a.IsBegin());
  a.MoveTo(17);
  EXPECT_EQ(a.GetCur(), 17);
}

TEST(DynArray, SetLengthToTheSpaceKeepsOldElementsEvenWithoutKeep) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  ASSERT_EQ(a.GetSpaceSize(), 11);
  a.SetLength(11, false);
  EXPECT_EQ(a.GetLength(), 11);
  EXPECT_EQ(a.GetAt(0), 1);
  EXPECT_EQ(a.GetAt(2), 3);
}

TEST(DynArray, SetLengthToAnotherSizeWithoutKeepGivesDefaultElements) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.SetLength(5, false);
  EXPECT_EQ(a.GetLength(), 5);
  EXPECT_EQ(a.GetSpaceSize(), 5);
  EXPECT_EQ(Items(a), (std::vector<int>{0, 0, 0, 0, 0}));
}

TEST(DynArray, SetLengthWithKeepIsAnExactFit) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.SetLength(4, true);
  EXPECT_EQ(a.GetSpaceSize(), 4);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 0}));
  a.SetLength(2, true);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2}));
  EXPECT_EQ(a.GetSpaceSize(), 2);
}

TEST(DynArray, SetLengthZeroFreesTheBufferWhileResetKeepsIt) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.SetLength(0, true);
  EXPECT_EQ(a.GetSpaceSize(), 0);
  EXPECT_EQ(a.GetFirst(), nullptr);
  int *buffer = a.Detach();
  EXPECT_EQ(buffer, nullptr);

  KyDynArray<int> b;
  Fill(b, {1, 2, 3});
  b.MoveTo(1);
  b.Reset();
  EXPECT_EQ(b.GetLength(), 0);
  EXPECT_EQ(b.GetCur(), -1);
  EXPECT_EQ(b.GetSpaceSize(), 11);
  int *kept = b.Detach();
  EXPECT_NE(kept, nullptr);
  delete[] kept;
}

TEST(DynArray, SetSpaceSizeBelowLengthChangesNothing) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  EXPECT_FALSE(a.SetSpaceSize(2));
  EXPECT_EQ(a.GetSpaceSize(), 11);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3}));
  EXPECT_TRUE(a.SetSpaceSize(11));
  EXPECT_TRUE(a.SetSpaceSize(50));
  EXPECT_EQ(a.GetSpaceSize(), 50);
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3}));
}

TEST(DynArray, DetachThenAttachRestoresElementsWithSpaceN) {
  KyDynArray<int> a;
  Fill(a, {4, 5, 6});
  ASSERT_EQ(a.GetSpaceSize(), 11);
  a.MoveTo(1);
  int *buffer = a.Detach();
  EXPECT_EQ(a.GetLength(), 0);
  EXPECT_EQ(a.GetSpaceSize(), 0);
  EXPECT_EQ(a.GetCur(), -1);
  a.MoveTo(2);
  a.Attach(3, buffer);
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a.GetSpaceSize(), 3);
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(Items(a), (std::vector<int>{4, 5, 6}));
}

TEST(DynArray, ReAllocateSmallerShortensTheLengthOnly) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 4});
  a.DecreaseSize(2);
  EXPECT_EQ(a.GetLength(), 2);
  EXPECT_EQ(a.GetSpaceSize(), 11);
  // The dropped elements stay in the buffer.
  a.IncreaseSize(2);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4}));
}

TEST(DynArray, InsertCurPutsTheElementAtTheCursorIndex) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 4});
  a.MoveTo(2);
  a.InsertCur(3);
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4}));
  a.MoveTo(4);
  a.InsertCur(5);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4, 5}));
  a.InsertHead(0);
  EXPECT_EQ(a.GetCur(), 0);
  a.Insert(3, 9);
  EXPECT_EQ(Items(a), (std::vector<int>{0, 1, 2, 9, 3, 4, 5}));
}

TEST(DynArray, SortAscendingIsStable) {
  KyDynArray<Keyed> a;
  Fill(a, {Keyed{2, 0}, Keyed{1, 1}, Keyed{2, 2}, Keyed{1, 3}});
  a.MoveTo(1);
  a.Sort(true);
  std::vector<Keyed> got = Items(a);
  ASSERT_EQ(got.size(), 4u);
  EXPECT_EQ(got[0].key, 1);
  EXPECT_EQ(got[0].tag, 1);
  EXPECT_EQ(got[1].key, 1);
  EXPECT_EQ(got[1].tag, 3);
  EXPECT_EQ(got[2].key, 2);
  EXPECT_EQ(got[2].tag, 0);
  EXPECT_EQ(got[3].key, 2);
  EXPECT_EQ(got[3].tag, 2);
  // The cursor stays at its index, on whatever element arrived there.
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_EQ(a.GetCurData().tag, 3);
}

TEST(DynArray, SortDescendingIsStable) {
  KyDynArray<Keyed> a;
  Fill(a, {Keyed{1, 0}, Keyed{3, 1}, Keyed{1, 2}, Keyed{3, 3}, Keyed{2, 4}});
  a.Sort(false);
  std::vector<int> tags;
  for (Keyed const &k : Items(a)) tags.push_back(k.tag);
  EXPECT_EQ(tags, (std::vector<int>{1, 3, 4, 0, 2}));
}

TEST(DynArray, RankSortWithCallbackAscendingAndDescending) {
  KyDynArray<int> a;
  Fill(a, {5, 3, 9, 1, 7, 3, 0, 8});
  a.Sort(CompareInts);
  EXPECT_EQ(Items(a), (std::vector<int>{0, 1, 3, 3, 5, 7, 8, 9}));
  a.Sort(CompareIntsDescending);
  EXPECT_EQ(Items(a), (std::vector<int>{9, 8, 7, 5, 3, 3, 1, 0}));

  KyDynArray<Keyed> k;
  Fill(k, {Keyed{2, 0}, Keyed{1, 1}, Keyed{2, 2}, Keyed{0, 3}, Keyed{1, 4}});
  k.Sort(CompareKeyed);
  std::vector<int> tags;
  for (Keyed const &e : Items(k)) tags.push_back(e.tag);
  EXPECT_EQ(tags, (std::vector<int>{3, 1, 4, 0, 2}));
}

TEST(DynArray, RankSortHandlesLongCyclesAndReversedInput) {
  KyDynArray<int> a;
  for (int i = 200; i > 0; --i) a.Append(i);
  a.Sort(true);
  for (int i = 0; i < 200; ++i) ASSERT_EQ(a.GetAt(i), i + 1);
  // A rotation is one single cycle of the permutation.
  KyDynArray<int> r;
  for (int i = 1; i < 100; ++i) r.Append(i);
  r.Append(0);
  r.Sort(true);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(r.GetAt(i), i);
}

TEST(DynArray, BinarySearchToLeavesTheCursorWhereTheValueBelongs) {
  KyDynArray<int> a;
  Fill(a, {10, 20});
  EXPECT_FALSE(a.BFindTo(15));
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_EQ(a.GetCurData(), 20);
  EXPECT_FALSE(a.BFindTo(25));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_FALSE(a.BFindTo(5));
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_EQ(a.GetCurData(), 10);
  EXPECT_TRUE(a.BFindTo(20));
  EXPECT_EQ(a.GetCur(), 1);
}

TEST(DynArray, BinarySearchToOnOneElement) {
  KyDynArray<int> a;
  a.Append(7);
  EXPECT_TRUE(a.BFindTo(7));
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_FALSE(a.BFindTo(3));
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_FALSE(a.BFindTo(9));
  EXPECT_EQ(a.GetCur(), 1);
}

TEST(DynArray, BinarySearchToOnAnEmptyArrayPointsAtIndexZero) {
  KyDynArray<int> a;
  EXPECT_FALSE(a.BFindTo(1));
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_EQ(a.BFind(1), -1);
}

TEST(DynArray, BinarySearchOnRunsOfEqualsFindsOneOfThem) {
  KyDynArray<int> a;
  Fill(a, {1, 3, 3, 3, 3, 3, 8});
  EXPECT_TRUE(a.BFindTo(3));
  EXPECT_EQ(a.GetCurData(), 3);
  EXPECT_GE(a.GetCur(), 1);
  EXPECT_LE(a.GetCur(), 5);
  std::int32_t i = a.BFind(3);
  EXPECT_GE(i, 1);
  EXPECT_LE(i, 5);
  KyDynArray<int> same;
  Fill(same, {4, 4, 4, 4});
  EXPECT_TRUE(same.BFindTo(4));
  EXPECT_EQ(same.GetCurData(), 4);
  EXPECT_FALSE(same.BFindTo(5));
  EXPECT_EQ(same.GetCur(), 4);
  EXPECT_FALSE(same.BFindTo(3));
  EXPECT_EQ(same.GetCur(), 0);
}

TEST(DynArray, BinarySearchEveryGapOfALongArray) {
  KyDynArray<int> a;
  for (int i = 0; i < 50; ++i) a.Append(2 * i + 1);
  for (int x = 0; x <= 100; ++x) {
    bool present = x % 2 == 1;
    EXPECT_EQ(a.BFindTo(x), present) << x;
    // The right place for x is just before the cursor.
    EXPECT_EQ(a.GetCur(), x / 2) << x;
    EXPECT_EQ(a.BFind(x), present ? x / 2 : -1) << x;
  }
  // A sub-range ignores what lies outside it.
  EXPECT_EQ(a.BFind(1, 10, 20), -1);
  EXPECT_EQ(a.BFind(25, 10, 20), 12);
}

TEST(DynArray, SortIntoWithThreeEqualsInsertsAfterTheThird) {
  KyDynArray<Keyed> a;
  Fill(a, {Keyed{1, 0}, Keyed{5, 1}, Keyed{5, 2}, Keyed{5, 3}, Keyed{9, 4}});
  EXPECT_TRUE(a.SortInto(Keyed{5, 99}, true));
  EXPECT_EQ(a.GetCur(), 4);
  std::vector<int> tags;
  for (Keyed const &k : Items(a)) tags.push_back(k.tag);
  EXPECT_EQ(tags, (std::vector<int>{0, 1, 2, 3, 99, 4}));
}

TEST(DynArray, SortIntoRefusesAnEqualUnlessAllowed) {
  KyDynArray<int> a;
  Fill(a, {1, 5, 9});
  EXPECT_FALSE(a.SortInto(5, false));
  EXPECT_EQ(a.GetLength(), 3);
}

TEST(DynArray, SortIntoAtBothEndsAndIntoEmpty) {
  KyDynArray<int> a;
  EXPECT_TRUE(a.SortInto(5, false));
  EXPECT_TRUE(a.SortInto(1, false));
  EXPECT_EQ(a.GetCur(), 0);
  EXPECT_TRUE(a.SortInto(9, false));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_TRUE(a.SortInto(9, true));
  EXPECT_EQ(a.GetCur(), 3);
  EXPECT_TRUE(a.SortInto(0, true));
  EXPECT_EQ(Items(a), (std::vector<int>{0, 1, 5, 9, 9}));
}

TEST(DynArray, MoveToTheSameGapReturnsFalse) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 4});
  EXPECT_FALSE(a.Move(1, 1));
  EXPECT_FALSE(a.Move(1, 2));
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4}));
}

TEST(DynArray, MoveForwardAndBackward) {
  KyDynArray<char> a;
  Fill(a, {'a', 'b', 'c', 'd'});
  EXPECT_TRUE(a.Move(0, 3));
  EXPECT_EQ(Items(a), (std::vector<char>{'b', 'c', 'a', 'd'}));
  EXPECT_EQ(a.GetCur(), 2);
  EXPECT_EQ(a.GetCurData(), 'a');

  KyDynArray<char> b;
  Fill(b, {'a', 'b', 'c', 'd'});
  EXPECT_TRUE(b.Move(3, 1));
  EXPECT_EQ(Items(b), (std::vector<char>{'a', 'd', 'b', 'c'}));
  EXPECT_EQ(b.GetCur(), 1);

  KyDynArray<char> c;
  Fill(c, {'a', 'b', 'c', 'd'});
  EXPECT_TRUE(c.Move(1, 4));
  EXPECT_EQ(Items(c), (std::vector<char>{'a', 'c', 'd', 'b'}));
  EXPECT_EQ(c.GetCur(), 3);
  EXPECT_TRUE(c.Move(3, 0));
  EXPECT_EQ(Items(c), (std::vector<char>{'b', 'a', 'c', 'd'}));
  EXPECT_EQ(c.GetCur(), 0);
}

TEST(DynArray, ComparisonByLengthOnlyForOrderAndByElementForEquality) {
  KyDynArray<int> one;
  one.Append(9);
  KyDynArray<int> two;
  Fill(two, {1, 2});
  EXPECT_TRUE(one < two);
  EXPECT_FALSE(one > two);
  EXPECT_TRUE(two > one);
  KyDynArray<int> three;
  Fill(three, {1, 2});
  EXPECT_TRUE(two == three);
  three[1] = 3;
  EXPECT_TRUE(two != three);
  EXPECT_FALSE(one == two);
}

TEST(DynArray, CopyTakesTheDefaultAllocUnit) {
  KyDynArray<int> a(0, 100);
  Fill(a, {1, 2, 3});
  KyDynArray<int> copy(a);
  EXPECT_EQ(copy.GetAllocUnit(), 10);
  EXPECT_EQ(Items(copy), (std::vector<int>{1, 2, 3}));
  KyDynArray<int> assigned;
  assigned = a;
  EXPECT_EQ(Items(assigned), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(a.GetAllocUnit(), 100);
}

TEST(DynArray, CopyFromAListWorksThroughTheRoot) {
  KyList<int> list;
  Fill(list, {3, 1, 4});
  KyDynArray<int> a(list);
  EXPECT_EQ(Items(a), (std::vector<int>{3, 1, 4}));
  KyDynArrayBase<int> const &root = list;
  KyDynArray<int> b;
  b = root;
  EXPECT_EQ(Items(b), (std::vector<int>{3, 1, 4}));
}

TEST(DynArray, RootAssignmentCopiesOnlyLengthAndCursor) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  KyDynArray<int> b;
  Fill(b, {7, 8, 9});
  b.MoveTo(0);
  static_cast<KyDynArrayBase<int> &>(b).KyDynArrayBase<int>::operator=(a);
  EXPECT_EQ(b.GetLength(), 3);
  EXPECT_EQ(b.GetCur(), 2);
  EXPECT_EQ(Items(b), (std::vector<int>{7, 8, 9}));
}

TEST(DynArray, StreamingAppendsElementsAndWholeContainers) {
  KyDynArray<int> a;
  a << 1 << 2;
  KyDynArray<int> more;
  Fill(more, {3, 4});
  a << more;
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4}));
  // Appending a container is an exact fit.
  EXPECT_EQ(a.GetSpaceSize(), 4);
  KyArray<int> fixed(2);
  fixed[0] = 5;
  fixed[1] = 6;
  a << fixed;
  EXPECT_EQ(Items(a), (std::vector<int>{1, 2, 3, 4, 5, 6}));
  KyList<int> list;
  list << a;
  EXPECT_EQ(Items(list), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST(DynArray, SlicesCopyTheirRanges) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 4, 5});
  KyDynArray<int> out;
  a.Left(2, out);
  EXPECT_EQ(Items(out), (std::vector<int>{1, 2}));
  a.Mid(1, 3, out);
  EXPECT_EQ(Items(out), (std::vector<int>{2, 3, 4}));
  a.Right(2, out);
  EXPECT_EQ(Items(out), (std::vector<int>{4, 5}));
  KyList<int> list;
  a.Mid(2, 4, list);
  EXPECT_EQ(Items(list), (std::vector<int>{3, 4, 5}));
}

TEST(DynArray, ExchangeEndsOnTheFirstIndexAndReverseSwapsARange) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 4, 5});
  a.Exchange(1, 3);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 4, 3, 2, 5}));
  EXPECT_EQ(a.GetCur(), 1);
  a.Reverse(0, -1);
  EXPECT_EQ(Items(a), (std::vector<int>{5, 2, 3, 4, 1}));
  a.Reverse(1, 3);
  EXPECT_EQ(Items(a), (std::vector<int>{5, 4, 3, 2, 1}));
}

TEST(DynArray, SetAllAssignsEveryElementAndLeavesCursorOut) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  a.SetAll(7);
  EXPECT_EQ(Items(a), (std::vector<int>{7, 7, 7}));
  EXPECT_TRUE(a.IsOut());
}

TEST(DynArray, FindWalksARangeWithoutMovingTheCursor) {
  KyDynArray<int> a;
  Fill(a, {4, 2, 4, 8, 4});
  a.MoveTo(1);
  EXPECT_EQ(a.Find(4), 0);
  EXPECT_EQ(a.Find(4, 1), 2);
  EXPECT_EQ(a.Find(4, 3, 3), -1);
  EXPECT_EQ(a.Find(4, 3, 99), 4);
  EXPECT_EQ(a.Find(9), -1);
  EXPECT_EQ(a.Find(4, 5), -1);
  EXPECT_EQ(a.GetCur(), 1);
}

TEST(DynArray, FindIntoAQueuePushesEveryMatchAndCountsWhatWasThere) {
  KyDynArray<int> a;
  Fill(a, {4, 2, 4, 8, 4});
  IndexQueue q;
  q.Push(100);
  EXPECT_EQ(a.Find(4, q), 4);
  EXPECT_EQ(Drain(q), (std::vector<std::int32_t>{100, 0, 2, 4}));
  // Only -1 stands for the end; another negative end is an empty range.
  EXPECT_EQ(a.Find(4, q, 0, -2), 0);
}

TEST(DynArray, FindToMovesTheCursorToTheMatchOrOut) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3, 2});
  EXPECT_TRUE(a.FindTo(2));
  EXPECT_EQ(a.GetCur(), 1);
  EXPECT_TRUE(a.FindTo(2, 2));
  EXPECT_EQ(a.GetCur(), 3);
  EXPECT_FALSE(a.FindTo(9));
  EXPECT_TRUE(a.IsOut());
}

TEST(DynArray, FindOrAppendAndFindOrInsertHead) {
  KyDynArray<int> a;
  Fill(a, {1, 2});
  EXPECT_EQ(a.FindOrAppend(2), 1);
  EXPECT_EQ(a.FindOrAppend(3), 2);
  a.FindOrInsertHead(1);
  a.FindOrInsertHead(0);
  EXPECT_EQ(Items(a), (std::vector<int>{0, 1, 2, 3}));
}

TEST(DynArray, FindDelRemovesEveryMatchIncludingNeighbours) {
  KyDynArray<int> a;
  Fill(a, {2, 2, 1, 2, 3, 2, 2});
  EXPECT_EQ(a.FindDel(2), 5);
  EXPECT_EQ(Items(a), (std::vector<int>{1, 3}));
  EXPECT_EQ(a.FindDel(9), 0);
}

TEST(DynArray, NeighbourAccessStopsAtBothEnds) {
  KyDynArray<int> a;
  Fill(a, {1, 2, 3});
  int const *first = a.GetFirst();
  int const *last = a.GetLast();
  EXPECT_EQ(*first, 1);
  EXPECT_EQ(*last, 3);
  EXPECT_EQ(a.GetPre(first), nullptr);
  EXPECT_EQ(a.GetNext(last), nullptr);
  EXPECT_EQ(*a.GetNext(first), 2);
  EXPECT_EQ(*a.GetPre(last), 2);
  EXPECT_EQ(a.GetNext(nullptr), nullptr);
  EXPECT_EQ(a.GetPre(nullptr), nullptr);
}

TEST(DynArray, RootResetDeletesFromTheTailOnAnyMember) {
  KyList<int> list;
  Fill(list, {1, 2, 3});
  KyDynArrayBase<int> &root = list;
  root.KyDynArrayBase<int>::Reset();
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
}

TEST(DynArray, WorksForTheBasicElementTypes) {
  KyDynArray<bool> flags;
  Fill(flags, {true, false, true});
  flags.Sort(true);
  EXPECT_EQ(Items(flags), (std::vector<bool>{false, true, true}));
  KyDynArray<CString> names;
  Fill(names, {CString(L"b"), CString(L"a"), CString(L"c")});
  names.Sort(true);
  EXPECT_EQ(names.BFind(CString(L"b")), 1);
  EXPECT_TRUE(names.GetAt(0) == CString(L"a"));
  KyList<KyStringW> wide;
  Fill(wide, {KyStringW(L"beta"), KyStringW(L"alpha")});
  wide.Sort(true);
  EXPECT_TRUE(wide.GetAt(0) == KyStringW(L"alpha"));
  EXPECT_EQ(wide.Find(KyStringW(L"beta")), 1);
}
