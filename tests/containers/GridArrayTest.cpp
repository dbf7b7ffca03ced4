// The fixed array KyArray<T>, the grid Ky2dArray<T>, the scope saver
// KyPushVar<T>, the queues, and the search-tree shell.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Fill;
using kytest::Items;
using kytest::Keyed;

template class Ky2dArray<int>;
template class KyArray<KyArray<int>>;
template class KyPushVar<int *>;
template class KyBFindTree<int>;
template class KyListQuene<int *>;

namespace {

std::vector<int> ToVector(KyArray<int> const &a) {
  std::vector<int> out;
  for (std::int32_t i = 0; i < a.GetLength(); ++i) out.push_back(a[i]);
  return out;
}

KyArray<int> Make(std::vector<int> const &values) {
  KyArray<int> a;
  for (int v : values) a.Append(v);
  return a;
}

int CompareInts(int const &a, int const &b) { return a < b ? -1 : (a > b ? 1 : 0); }

}  // namespace

TEST(FixedArray, ConstructionGivesDefaultElementsOrNothing) {
  KyArray<int> a(3);
  EXPECT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a.GetMaxIndex(), 2);
  EXPECT_EQ(ToVector(a), (std::vector<int>{0, 0, 0}));
  KyArray<int> none;
  EXPECT_TRUE(none.IsEmpty());
  EXPECT_EQ(none.GetDataBuffer(), nullptr);
  KyArray<int> negative(-2);
  EXPECT_EQ(negative.GetLength(), 0);
  EXPECT_FALSE(a.IsValidIndex(3));
  EXPECT_TRUE(a.IsValidIndex(0));
}

TEST(FixedArray, ReAllocateWithKeepCarriesTheOldElements) {
  KyArray<int> a = Make({1, 2, 3});
  a.ReAllocate(5, true);
  EXPECT_EQ(ToVector(a), (std::vector<int>{1, 2, 3, 0, 0}));
  a.ReAllocate(2, true);
  EXPECT_EQ(ToVector(a), (std::vector<int>{1, 2}));
  a.ReAllocate(3, false);
  EXPECT_EQ(ToVector(a), (std::vector<int>{0, 0, 0}));
}

TEST(FixedArray, ReAllocateToZeroFreesTheBuffer) {
  KyArray<int> a = Make({1, 2, 3});
  a.ReAllocate(0, true);
  EXPECT_EQ(a.GetDataBuffer(), nullptr);
  EXPECT_EQ(a.GetLength(), 0);
  KyArray<int> b = Make({1});
  b.ReAllocate(-1, true);
  EXPECT_EQ(b.GetDataBuffer(), nullptr);
}

TEST(FixedArray, DeletingTheOnlyElementFreesTheBuffer) {
  KyArray<int> a = Make({7});
  a.Del(0);
  EXPECT_EQ(a.GetDataBuffer(), nullptr);
  EXPECT_EQ(a.GetLength(), 0);
}

TEST(FixedArray, IndexingNeverGrowsUnlikeTheGrowableContainers) {
  KyArray<int> a(2);
  a[1] = 5;
  EXPECT_EQ(a.GetLength(), 2);
  EXPECT_EQ(a.GetAt(1), 5);
  KyDynArray<int> grows;
  grows[1] = 5;
  EXPECT_EQ(grows.GetLength(), 2);
}

TEST(FixedArray, EveryInsertionAndDeletionIsAnExactReallocation) {
  KyArray<int> a = Make({2, 4});
  int *before = a.GetDataBuffer();
  a.Insert(1, 3);
  EXPECT_NE(a.GetDataBuffer(), before);
  a.InsertHead(1);
  EXPECT_EQ(a.Append(5), 4);
  EXPECT_EQ(ToVector(a), (std::vector<int>{1, 2, 3, 4, 5}));
  a.DelHead();
  a.DelTail();
  a.Del(1);
  EXPECT_EQ(ToVector(a), (std::vector<int>{2, 4}));
  a.Reset();
  EXPECT_EQ(a.GetDataBuffer(), nullptr);
}

TEST(FixedArray, SetAtAndSetAll) {
  KyArray<int> a(3);
  a.SetAt(1, 4);
  EXPECT_EQ(ToVector(a), (std::vector<int>{0, 4, 0}));
  a.SetAll(9);
  EXPECT_EQ(ToVector(a), (std::vector<int>{9, 9, 9}));
}

TEST(FixedArray, SearchesByIndex) {
  KyArray<int> a = Make({5, 3, 5, 1});
  EXPECT_EQ(a.Find(5), 0);
  EXPECT_EQ(a.Find(5, 1), 2);
  EXPECT_EQ(a.Find(5, 1, 1), -1);
  EXPECT_EQ(a.Find(8), -1);
  KyListQuene<std::int32_t> q;
  EXPECT_EQ(a.Find(5, q), 2);
  EXPECT_EQ(a.FindOrAppend(3), 1);
  EXPECT_EQ(a.FindOrAppend(8), 4);
  a.FindOrInsertHead(5);
  a.FindOrInsertHead(0);
  EXPECT_EQ(ToVector(a), (std::vector<int>{0, 5, 3, 5, 1, 8}));
  EXPECT_EQ(a.FindDel(5), 2);
  EXPECT_EQ(ToVector(a), (std::vector<int>{0, 3, 1, 8}));
  KyArray<int> sorted = Make({1, 3, 5, 7, 9});
  EXPECT_EQ(sorted.BFind(7), 3);
  EXPECT_EQ(sorted.BFind(4), -1);
  EXPECT_EQ(sorted.BFind(10), -1);
  EXPECT_EQ(sorted.BFind(1), 0);
}

TEST(FixedArray, RankSortsAndReverse) {
  KyArray<int> a = Make({4, 1, 3, 1, 2});
  a.Sort(true);
  EXPECT_EQ(ToVector(a), (std::vector<int>{1, 1, 2, 3, 4}));
  a.Sort(false);
  EXPECT_EQ(ToVector(a), (std::vector<int>{4, 3, 2, 1, 1}));
  a.Sort(CompareInts);
  EXPECT_EQ(ToVector(a), (std::vector<int>{1, 1, 2, 3, 4}));
  a.Reverse();
  EXPECT_EQ(ToVector(a), (std::vector<int>{4, 3, 2, 1, 1}));
  a.Reverse(1, 3);
  EXPECT_EQ(ToVector(a), (std::vector<int>{4, 1, 2, 3, 1}));
  KyArray<Keyed> k;
  for (int t = 0; t < 4; ++t) k.Append(Keyed{t % 2, t});
  k.Sort(true);
  EXPECT_EQ(k[0].tag, 0);
  EXPECT_EQ(k[1].tag, 2);
  EXPECT_EQ(k[2].tag, 1);
  EXPECT_EQ(k[3].tag, 3);
}

TEST(FixedArray, ComparisonAndCopies) {
  KyArray<int> a = Make({1, 2});
  KyArray<int> b(a);
  EXPECT_TRUE(a == b);
  b[1] = 3;
  EXPECT_TRUE(a != b);
  KyArray<int> longer = Make({0, 0, 0});
  EXPECT_TRUE(a < longer);
  EXPECT_FALSE(a > longer);
  b = longer;
  EXPECT_EQ(ToVector(b), (std::vector<int>{0, 0, 0}));
  KyList<int> list;
  Fill(list, {6, 7});
  KyArray<int> fromList(list);
  EXPECT_EQ(ToVector(fromList), (std::vector<int>{6, 7}));
  b = list;
  EXPECT_EQ(ToVector(b), (std::vector<int>{6, 7}));
  // And back into the growable family.
  KyDynArray<int> dyn;
  dyn.DeepCopy(a);
  EXPECT_EQ(Items(dyn), (std::vector<int>{1, 2}));
  KyDList<int> dlist;
  dlist.DeepCopy(a);
  EXPECT_EQ(Items(dlist), (std::vector<int>{1, 2}));
}

TEST(FixedArray, HoldsPairsForAttributeTables) {
  KyArray<std::pair<CString, CString>> attrs;
  attrs.Append({CString(L"name"), CString(L"wall")});
  attrs.Append({CString(L"layer"), CString(L"A-WALL")});
  EXPECT_EQ(attrs.GetLength(), 2);
  EXPECT_TRUE(attrs[1].second == CString(L"A-WALL"));
  EXPECT_EQ(attrs.Find(std::make_pair(CString(L"name"), CString(L"wall"))), 0);
}

TEST(Grid, RowsAndColumns) {
  Ky2dArray<int> g(2, 3);
  EXPECT_EQ(g.GetLength(), 2);
  EXPECT_EQ(g[0].GetLength(), 3);
  EXPECT_EQ(g[1].GetLength(), 3);
  g[1][2] = 7;
  g.ReAllocate(3, 4, true);
  EXPECT_EQ(g.GetLength(), 3);
  for (std::int32_t r = 0; r < 3; ++r) EXPECT_EQ(g[r].GetLength(), 4);
  EXPECT_EQ(g[1][2], 7);
  EXPECT_EQ(g[2][3], 0);
  g.SetAll(5);
  for (std::int32_t r = 0; r < 3; ++r)
    for (std::int32_t c = 0; c < 4; ++c) EXPECT_EQ(g[r][c], 5);
  g.ReAllocate(1, 2, false);
  EXPECT_EQ(g.GetLength(), 1);
  EXPECT_EQ(g[0].GetLength(), 2);
}

TEST(Grid, EmptyGrid) {
  Ky2dArray<int> g;
  EXPECT_TRUE(g.IsEmpty());
  Ky2dArray<int> copy(g);
  EXPECT_TRUE(copy.IsEmpty());
}

TEST(PushVar, RestoresTheOldValueAtTheEndOfTheScope) {
  int value = 1;
  {
    KyPushVar<int> push(value, 2);
    EXPECT_EQ(value, 2);
  }
  EXPECT_EQ(value, 1);
}

TEST(PushVar, RestoresTheOldValueWhenTheScopeEndsByAnException) {
  int first = 0;
  int second = 0;
  int *current = &first;
  try {
    KyPushVar<int *> push(current, &second);
    EXPECT_EQ(current, &second);
    throw std::runtime_error("leaving");
  } catch (std::runtime_error const &) {
  }
  EXPECT_EQ(current, &first);
}

TEST(PushVar, IsPolymorphicForItsDestructor) {
  EXPECT_TRUE(std::has_virtual_destructor_v<KyPushVar<int>>);
  EXPECT_TRUE(std::has_virtual_destructor_v<KyBFindTree<int>>);
  EXPECT_TRUE(std::has_virtual_destructor_v<KyArray<int>>);
  KyBFindTree<int> *tree = new KyBFindTree<int>;
  delete tree;
}

TEST(Queue, CapacityTwoRefusesAThirdPushUntilOnePop) {
  KyListQuene<std::int32_t> q(2);
  EXPECT_TRUE(q.Push(1));
  EXPECT_TRUE(q.Push(2));
  EXPECT_FALSE(q.Push(3));
  EXPECT_EQ(q.GetCount(), 2);
  std::int32_t v = 0;
  EXPECT_TRUE(q.Pop(v));
  EXPECT_EQ(v, 1);
  EXPECT_TRUE(q.Push(3));
  EXPECT_TRUE(q.Pop(v));
  EXPECT_EQ(v, 2);
  EXPECT_TRUE(q.Pop(v));
  EXPECT_EQ(v, 3);
  EXPECT_FALSE(q.Pop(v));
  EXPECT_EQ(v, 3);
}

TEST(Queue, HeadTailIndexAndClear) {
  KyListQuene<int *> q;
  int a = 1, b = 2, c = 3;
  int *out = nullptr;
  EXPECT_FALSE(q.GetHead(out));
  EXPECT_FALSE(q.GetTail(out));
  q.Push(&a);
  q.Push(&b);
  q.Push(&c);
  EXPECT_TRUE(q.GetHead(out));
  EXPECT_EQ(out, &a);
  EXPECT_TRUE(q.GetTail(out));
  EXPECT_EQ(out, &c);
  EXPECT_EQ(q.GetCount(), 3);
  EXPECT_EQ(q[1], &b);
  KyQuene<int *> &iface = q;
  iface.Clear();
  EXPECT_EQ(iface.GetCount(), 0);
  // Unlimited: a negative capacity.
  for (int k = 0; k < 1000; ++k) EXPECT_TRUE(q.Push(&a));
}
