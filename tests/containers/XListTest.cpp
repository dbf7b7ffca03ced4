// The indexed list KyXList<E>: its group table, kept true through every
// change, and the cost of positioning.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "containers/KyPDList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Items;
using kytest::Probed;
using kytest::ProbedX;
using kytest::RingIntact;
using kytest::TableTrue;

template class KyXList<int *>;

namespace {

// A pool whose addresses serve as the pointer elements of the lists.
int g_pool[1000];
int *P(int i) { return &g_pool[i]; }

// Counts the single steps that a positioning takes.
template <class L>
class StepCounting : public L {
 public:
  using L::L;
  void MoveToNext() override {
    ++steps;
    L::MoveToNext();
  }
  void MoveToPre() override {
    ++steps;
    L::MoveToPre();
  }
  int steps = 0;
};

using XList = ProbedX<KyXList<int *>>;

template <class L>
void AppendRange(L &list, int from, int to) {
  for (int i = from; i < to; ++i) list.Append(P(i));
}

std::vector<int *> Range(int from, int to) {
  std::vector<int *> out;
  for (int i = from; i < to; ++i) out.push_back(P(i));
  return out;
}

}  // namespace

TEST(XList, TwentySixElementsHoldTwoEntriesAndOneDeletionDropsOne) {
  XList list;
  AppendRange(list, 0, 26);
  EXPECT_EQ(list.GetGroupSize(), 25);
  EXPECT_EQ(list.Table().GetLength(), 2);
  EXPECT_TRUE(TableTrue(list));
  list.MoveTo(3);
  list.DelCur();
  EXPECT_EQ(list.Table().GetLength(), 1);
  EXPECT_TRUE(TableTrue(list));
  EXPECT_TRUE(RingIntact(list));
}

TEST(XList, TableUsesTheGivenAllocUnit) {
  XList list(0, 25, 7);
  list.Append(P(0));
  EXPECT_EQ(list.Table().GetAllocUnit(), 7);
  EXPECT_EQ(list.Table().GetSpaceSize(), 8);
}

TEST(XList, ConstructorLengthBuildsTheTable) {
  XList list(60, 25);
  EXPECT_EQ(list.GetLength(), 60);
  EXPECT_EQ(list.Table().GetLength(), 3);
  EXPECT_TRUE(TableTrue(list));
}

TEST(XList, MoveToSixtyStartsFromTheNodeAtFifty) {
  StepCounting<ProbedX<KyXList<int *>>> list;
  AppendRange(list, 0, 100);
  list.MoveTo(-1);
  list.steps = 0;
  list.MoveTo(60);
  EXPECT_EQ(list.steps, 10);
  EXPECT_EQ(list.GetCur(), 60);
  EXPECT_EQ(list.GetCurData(), P(60));
  // From anywhere, at most one group of steps.
  for (int from : {0, 99, 37, 74}) {
    for (int to = 0; to < 100; ++to) {
      list.MoveTo(from);
      list.steps = 0;
      list.MoveTo(to);
      ASSERT_EQ(list.GetCurData(), P(to));
      ASSERT_LT(list.steps, 25) << from << " to " << to;
    }
  }
  StepCounting<Probed<KyDList<int *>>> plain;
  AppendRange(plain, 0, 100);
  plain.MoveTo(0);
  plain.steps = 0;
  plain.MoveTo(60);
  EXPECT_EQ(plain.steps, 60);
}

TEST(XList, InsertionsAroundGroupBoundariesKeepTheTableTrue) {
  for (int at : {0, 1, 4, 5, 6, 9, 10, 11, 14, 15}) {
    XList list(0, 5);
    AppendRange(list, 0, 15);
    std::vector<int *> model = Range(0, 15);
    list.Insert(at, P(500));
    model.insert(model.begin() + at, P(500));
    EXPECT_EQ(Items(list), model) << at;
    EXPECT_TRUE(TableTrue(list)) << at;
    EXPECT_TRUE(RingIntact(list)) << at;
    list.MoveTo(at);
    list.InsertAfterCur(P(501));
    model.insert(model.begin() + at + 1, P(501));
    EXPECT_TRUE(TableTrue(list)) << at;
    for (int i = 0; i < list.GetLength(); ++i) {
      list.MoveTo(i);
      ASSERT_EQ(list.GetCurData(), model[i]) << at << " " << i;
    }
  }
}

TEST(XList, DeletionsAroundGroupBoundariesKeepTheTableTrue) {
  for (int at : {0, 1, 4, 5, 6, 9, 10, 14, 15}) {
    XList list(0, 5);
    AppendRange(list, 0, 16);
    std::vector<int *> model = Range(0, 16);
    list.Del(at);
    model.erase(model.begin() + at);
    EXPECT_EQ(Items(list), model) << at;
    EXPECT_TRUE(TableTrue(list)) << at;
    EXPECT_TRUE(RingIntact(list)) << at;
    for (int i = 0; i < list.GetLength(); ++i) {
      list.MoveTo(i);
      ASSERT_EQ(list.GetCurData(), model[i]) << at << " " << i;
    }
  }
}

TEST(XList, GroupSizeOneNeverGrowsItsTable) {
  XList list(3, 1);
  EXPECT_EQ(list.Table().GetLength(), 3);
  AppendRange(list, 10, 15);
  EXPECT_EQ(list.Table().GetLength(), 3);
  list.InsertHead(P(9));
  EXPECT_EQ(list.Table().GetLength(), 3);
  // Positioning stays right: the entries that exist still fit.
  std::vector<int *> model = {P(9), nullptr, nullptr, nullptr, P(10), P(11), P(12), P(13), P(14)};
  for (int i = 0; i < 9; ++i) {
    list.MoveTo(i);
    EXPECT_EQ(list.GetCurData(), model[i]) << i;
  }
  EXPECT_TRUE(RingIntact(list));
}

TEST(XList, DetachAfterCurTruncatesThePartialGroupEntry) {
  XList list(0, 5);
  AppendRange(list, 0, 12);
  list.MoveTo(6);
  auto *cut = list.GetCurPos()->next;
  list.DetachAfterCur();
  EXPECT_EQ(list.GetLength(), 7);
  // A true table would hold two entries; the truncating division keeps one.
  EXPECT_EQ(list.Table().GetLength(), 1);
  EXPECT_TRUE(RingIntact(list));
  for (int k = 0; k < 5; ++k) {
    auto *next = cut->next;
    delete static_cast<KyDListNode<int *> *>(cut);
    cut = next;
  }
  // Growing on from there appends the next entry too early: entry 1 lands
  // on the node at index 10 instead of 5.
  AppendRange(list, 7, 11);
  ASSERT_EQ(list.Table().GetLength(), 2);
  EXPECT_EQ(list.Table().GetAt(1)->data, P(10));
}

TEST(XList, DetachAtAMultipleOfTheGroupSizeKeepsTheTableTrue) {
  XList list(0, 5);
  AppendRange(list, 0, 12);
  list.MoveTo(9);
  auto *cut = list.GetCurPos()->next;
  list.DetachAfterCur();
  EXPECT_EQ(list.GetLength(), 10);
  EXPECT_TRUE(TableTrue(list));
  for (int k = 0; k < 2; ++k) {
    auto *next = cut->next;
    delete static_cast<KyDListNode<int *> *>(cut);
    cut = next;
  }
  AppendRange(list, 10, 13);
  EXPECT_TRUE(TableTrue(list));
}

TEST(XList, ConbineExtendsTheTable) {
  XList list(0, 5);
  AppendRange(list, 0, 7);
  Probed<KyDList<int *>> other;
  AppendRange(other, 100, 112);
  EXPECT_EQ(list.Conbine(other, 3), 16);
  EXPECT_TRUE(TableTrue(list));
  EXPECT_TRUE(RingIntact(list));
  EXPECT_TRUE(RingIntact(other));
  EXPECT_EQ(other.GetLength(), 3);
  for (int i = 0; i < 16; ++i) {
    list.MoveTo(i);
    EXPECT_EQ(list.GetCurData(), i < 7 ? P(i) : P(100 + i - 4));
  }
}

TEST(XList, ReverseAndRotateRebuildTheTable) {
  XList list(0, 4);
  AppendRange(list, 0, 11);
  list.MoveTo(2);
  list.ReverseList();
  EXPECT_TRUE(TableTrue(list));
  // Rebuilding positions the cursor, so index and node agree again.
  EXPECT_TRUE(RingIntact(list));
  std::vector<int *> model = Range(0, 11);
  std::reverse(model.begin(), model.end());
  EXPECT_EQ(Items(list), model);
  list.Rotate(7, 2);
  std::rotate(model.begin(), model.begin() + 5, model.end());
  EXPECT_EQ(Items(list), model);
  EXPECT_TRUE(TableTrue(list));
  EXPECT_TRUE(RingIntact(list));
}

TEST(XList, SortAndMoveKeepTheTableTrue) {
  XList list(0, 3);
  int order[] = {5, 2, 9, 0, 7, 3, 8, 1, 6, 4};
  for (int i : order) list.Append(P(i));
  list.Sort(true);
  EXPECT_EQ(Items(list), Range(0, 10));
  EXPECT_TRUE(TableTrue(list));
  EXPECT_TRUE(list.Move(0, 10));
  EXPECT_TRUE(list.Move(8, 2));
  EXPECT_TRUE(TableTrue(list));
  EXPECT_TRUE(RingIntact(list));
  list.SetLength(4, false);
  EXPECT_TRUE(TableTrue(list));
  list.SetLength(9, false);
  EXPECT_TRUE(TableTrue(list));
  list.Reset();
  EXPECT_EQ(list.Table().GetLength(), 0);
  EXPECT_TRUE(RingIntact(list));
}

TEST(XList, CopyTakesTheSourceTableAsItStands) {
  XList source(0, 4);
  AppendRange(source, 0, 9);
  XList copy(source);
  EXPECT_EQ(Items(copy), Items(source));
  EXPECT_EQ(copy.GetGroupSize(), 4);
  ASSERT_EQ(copy.Table().GetLength(), 3);
  // The copied entries still address the nodes of the source.
  EXPECT_EQ(copy.Table().GetAt(1), source.Table().GetAt(1));
  EXPECT_EQ(copy.Table().GetAllocUnit(), 10);
  XList assigned(0, 7);
  AppendRange(assigned, 50, 52);
  assigned = source;
  EXPECT_EQ(assigned.GetGroupSize(), 4);
  EXPECT_EQ(assigned.Table().GetAt(2), source.Table().GetAt(2));
  EXPECT_TRUE(RingIntact(copy));
  EXPECT_TRUE(RingIntact(assigned));
}
