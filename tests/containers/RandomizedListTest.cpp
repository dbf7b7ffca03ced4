// Randomized runs of thousands of list operations against a plain vector
// model. The indexed list KyXList runs in lockstep with a plain KyDList and
// must agree with it on contents and positioning after every step; every
// list's ring (and the index table) is checked after every step.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "containers/KyPDList.h"
#include "tests/containers/ContainerTestSupport.h"

using kytest::Items;
using kytest::Probed;
using kytest::ProbedX;
using kytest::RingIntact;
using kytest::TableTrue;

namespace {

int g_values[64];

enum OpKind {
  kAppend,
  kInsertCur,
  kInsert,
  kInsertHead,
  kInsertAfterCur,
  kDelCur,
  kDelHead,
  kDelTail,
  kMoveTo,
  kStepNext,
  kStepPre,
  kSetLength,
  kMove,
  kExchange,
  kSort,
  kReverse,
  kRotate,
  kConbine,
  kSplitAt,
  kDetachAfterCur,
  kFindDel,
  kFindTo,
  kReset,
  kOpCount
};

struct Op {
  OpKind kind;
  std::int32_t a = 0;
  std::int32_t b = 0;
  int *v = nullptr;
  std::vector<int *> others;  // contents of the companion list for Conbine
};

// The state every list must agree with.
struct Model {
  std::vector<int *> items;
  std::int32_t cur = -1;
  std::int32_t Len() const { return static_cast<std::int32_t>(items.size()); }
  void InsertAt(std::int32_t i, int *v) {
    items.insert(items.begin() + i, v);
    cur = i;
  }
};

// One list under test with its companion for Conbine and SplitAt. The
// companion of a doubly linked list must itself be doubly linked.
template <class L>
struct Subject {
  using E = int *;
  using Companion = std::conditional_t<std::is_base_of_v<KyDList<E>, L>, Probed<KyDList<E>>, Probed<KyList<E>>>;
  template <class... A>
  explicit Subject(A... args) : list(args...) {}
  L list;
  Companion other;
};

// Frees nodes that a detach left to the caller.
template <class L>
void FreeChain(typename L::Node *node, std::int32_t n) {
  for (std::int32_t k = 0; k < n; ++k) {
    auto *next = node->next;
    if constexpr (std::is_base_of_v<KyDList<int *>, L>) {
      delete static_cast<KyDListNode<int *> *>(node);
    } else {
      delete node;
    }
    node = next;
  }
}

class OpSource {
 public:
  OpSource(unsigned seed, std::int32_t groupSize) : rng_(seed), groupSize_(groupSize) {}

  Op Next(Model const &m) {
    std::int32_t len = m.Len();
    Op op;
    for (;;) {
      // Keep the lists in a useful size band: favour deletion when long.
      unsigned r = Uniform(100);
      if (len > 150 && r < 30) {
        op.kind = static_cast<OpKind>(kDelCur + Uniform(3));
      } else {
        op.kind = static_cast<OpKind>(Uniform(kOpCount));
      }
      op.v = &g_values[Uniform(64)];
      switch (op.kind) {
        case kInsertCur:
        case kInsertAfterCur:
          op.a = static_cast<std::int32_t>(Uniform(len + 1)) - 1;
          return op;
        case kInsert:
          op.a = static_cast<std::int32_t>(Uniform(len + 3));
          return op;
        case kDelCur:
        case kDelHead:
        case kDelTail:
          if (len == 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(len));
          return op;
        case kMoveTo:
          op.a = static_cast<std::int32_t>(Uniform(len + 4)) - 2;
          return op;
        case kStepNext:
        case kStepPre:
          op.a = static_cast<std::int32_t>(Uniform(len + 1)) - 1;
          op.b = static_cast<std::int32_t>(Uniform(4)) + 1;
          return op;
        case kSetLength:
          op.a = std::max<std::int32_t>(0, len + static_cast<std::int32_t>(Uniform(9)) - 5);
          return op;
        case kMove:
          if (len == 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(len));
          op.b = static_cast<std::int32_t>(Uniform(len + 1));
          return op;
        case kExchange:
          if (len == 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(len));
          op.b = static_cast<std::int32_t>(Uniform(len));
          return op;
        case kSort:
          // Quadratic: rare, and only on short lists.
          if (len > 60 || Uniform(8) != 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(2));
          return op;
        case kReverse:
          op.a = static_cast<std::int32_t>(Uniform(len + 1)) - 1;
          return op;
        case kRotate:
          if (len == 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(len));
          op.b = static_cast<std::int32_t>(Uniform(len));
          return op;
        case kConbine: {
          std::int32_t n = static_cast<std::int32_t>(Uniform(2 * groupSize_ + 3));
          for (std::int32_t k = 0; k < n; ++k) op.others.push_back(&g_values[Uniform(64)]);
          op.a = static_cast<std::int32_t>(Uniform(n + 1));
          return op;
        }
        case kSplitAt:
        case kDetachAfterCur: {
          // Only at a multiple of the group size, where the index table of a
          // KyXList stays true.
          std::int32_t groups = len / groupSize_;
          if (groups == 0) continue;
          op.a = static_cast<std::int32_t>(Uniform(groups + 1)) * groupSize_;
          if (op.a >= len) continue;
          return op;
        }
        case kReset:
          if (Uniform(20) != 0) continue;
          return op;
        default:
          op.a = len == 0 ? 0 : static_cast<std::int32_t>(Uniform(len));
          return op;
      }
    }
  }

 private:
  unsigned Uniform(unsigned n) { return n == 0 ? 0 : static_cast<unsigned>(rng_() % n); }
  std::mt19937 rng_;
  std::int32_t groupSize_;
};

void ApplyToModel(Model &m, Op const &op) {
  std::int32_t len = m.Len();
  switch (op.kind) {
    case kAppend:
      m.InsertAt(len, op.v);
      break;
    case kInsertCur:
      m.InsertAt(op.a < 0 ? len : op.a, op.v);
      break;
    case kInsert:
      // An index past the length inserts at the head.
      m.InsertAt(op.a > len ? 0 : op.a, op.v);
      break;
    case kInsertHead:
      m.InsertAt(0, op.v);
      break;
    case kInsertAfterCur:
      m.InsertAt(op.a + 1, op.v);
      break;
    case kDelCur:
    case kDelHead:
    case kDelTail: {
      std::int32_t i = op.kind == kDelCur ? op.a : (op.kind == kDelHead ? 0 : len - 1);
      m.items.erase(m.items.begin() + i);
      m.cur = i - 1;
      break;
    }
    case kMoveTo:
      m.cur = op.a >= 0 && op.a < len ? op.a : -1;
      break;
    case kStepNext:
      m.cur = op.a;
      for (std::int32_t k = 0; k < op.b; ++k) m.cur = m.cur + 1 >= len ? -1 : m.cur + 1;
      break;
    case kStepPre:
      m.cur = op.a;
      for (std::int32_t k = 0; k < op.b; ++k) m.cur = m.cur == -1 ? len - 1 : m.cur - 1;
      break;
    case kSetLength:
      if (op.a < len) {
        m.items.resize(op.a);
        m.cur = op.a - 1;
      } else {
        m.items.resize(op.a, nullptr);
      }
      break;
    case kMove: {
      std::int32_t i = op.a, j = op.b;
      if (i == j || i == j - 1) break;
      int *e = m.items[i];
      m.items.insert(m.items.begin() + j, e);
      if (i <= j) {
        m.items.erase(m.items.begin() + i);
        m.cur = j - 1;
      } else {
        m.items.erase(m.items.begin() + i + 1);
        m.cur = j;
      }
      break;
    }
    case kExchange:
      std::swap(m.items[op.a], m.items[op.b]);
      m.cur = op.a;
      break;
    case kSort:
      if (len < 2) break;
      if (op.a) {
        std::stable_sort(m.items.begin(), m.items.end(), std::less<int *>());
      } else {
        std::stable_sort(m.items.begin(), m.items.end(), std::greater<int *>());
      }
      m.cur = -1;
      break;
    case kReverse:
      std::reverse(m.items.begin(), m.items.end());
      m.cur = op.a;
      break;
    case kRotate:
      if (op.a != op.b) std::rotate(m.items.begin(), m.items.begin() + (op.a - op.b + len) % len, m.items.end());
      m.cur = 0;
      break;
    case kConbine:
      if (op.a < static_cast<std::int32_t>(op.others.size()))
        m.items.insert(m.items.end(), op.others.begin() + op.a, op.others.end());
      m.cur = -1;
      break;
    case kSplitAt:
      m.items.resize(op.a);
      m.cur = op.a - 1;
      break;
    case kDetachAfterCur:
      m.items.resize(op.a);
      m.cur = op.a - 1;
      break;
    case kFindDel:
      m.items.erase(std::remove(m.items.begin(), m.items.end(), op.v), m.items.end());
      m.cur = -1;
      break;
    case kFindTo: {
      auto it = std::find(m.items.begin() + op.a, m.items.end(), op.v);
      m.cur = it == m.items.end() ? -1 : static_cast<std::int32_t>(it - m.items.begin());
      break;
    }
    case kReset:
      m.items.clear();
      m.cur = -1;
      break;
    case kOpCount:
      break;
  }
}

// Applies op; returns what the split or conbine left in the companion.
template <class S>
std::vector<int *> Apply(S &s, Op const &op) {
  auto &list = s.list;
  std::int32_t len = list.GetLength();
  switch (op.kind) {
    case kAppend:
      list.Append(op.v);
      break;
    case kInsertCur:
      list.MoveTo(op.a);
      list.InsertCur(op.v);
      break;
    case kInsert:
      list.Insert(op.a, op.v);
      break;
    case kInsertHead:
      list.InsertHead(op.v);
      break;
    case kInsertAfterCur:
      list.MoveTo(op.a);
      list.InsertAfterCur(op.v);
      break;
    case kDelCur:
      list.MoveTo(op.a);
      list.DelCur();
      break;
    case kDelHead:
      list.DelHead();
      break;
    case kDelTail:
      list.DelTail();
      break;
    case kMoveTo:
      list.MoveTo(op.a);
      break;
    case kStepNext:
      list.MoveTo(op.a);
      for (std::int32_t k = 0; k < op.b; ++k) list.MoveToNext();
      break;
    case kStepPre:
      list.MoveTo(op.a);
      for (std::int32_t k = 0; k < op.b; ++k) list.MoveToPre();
      break;
    case kSetLength:
      list.SetLength(op.a, false);
      break;
    case kMove:
      list.Move(op.a, op.b);
      break;
    case kExchange:
      list.Exchange(op.a, op.b);
      break;
    case kSort:
      list.Sort(op.a != 0);
      break;
    case kReverse:
      list.ReverseList();
      // A reversal leaves the cursor index apart from its node until the
      // next move: go round through the sentinel to a fresh position.
      list.MoveTo(-1);
      list.MoveTo(op.a);
      break;
    case kRotate:
      list.Rotate(op.a, op.b);
      // The indexed list rebuilds its table and so moves the cursor.
      list.MoveTo(0);
      break;
    case kConbine: {
      s.other.Reset();
      for (int *v : op.others) s.other.Append(v);
      std::int32_t result = list.Conbine(s.other, op.a);
      EXPECT_EQ(result, list.GetLength());
      list.MoveTo(-1);
      return Items(s.other);
    }
    case kSplitAt:
      s.other.Reset();
      list.SplitAt(op.a, s.other);
      EXPECT_EQ(list.GetCur(), op.a - 1);
      return Items(s.other);
    case kDetachAfterCur: {
      list.MoveTo(op.a - 1);
      auto *cut = list.GetCurPos()->next;
      list.DetachAfterCur();
      FreeChain<decltype(s.list)>(cut, len - op.a);
      break;
    }
    case kFindDel:
      list.FindDel(op.v);
      break;
    case kFindTo:
      if (len > 0) list.FindTo(op.v, op.a);
      break;
    case kReset:
      list.Reset();
      break;
    case kOpCount:
      break;
  }
  return {};
}

template <class S>
::testing::AssertionResult AgreesWith(S const &s, Model const &m) {
  auto const &list = s.list;
  if (!RingIntact(list)) return RingIntact(list);
  if (list.GetLength() != m.Len()) return ::testing::AssertionFailure() << "length " << list.GetLength();
  if (Items(list) != m.items) return ::testing::AssertionFailure() << "contents differ";
  if (list.GetCur() != m.cur)
    return ::testing::AssertionFailure() << "cursor " << list.GetCur() << ", model " << m.cur;
  if (m.cur >= 0 && list.GetCurPos()->data != m.items[m.cur]) return ::testing::AssertionFailure() << "cursor data";
  if (!RingIntact(s.other)) return ::testing::AssertionFailure() << "companion: " << RingIntact(s.other).message();
  return ::testing::AssertionSuccess();
}

const char *Name(OpKind k) {
  static const char *names[] = {"Append", "InsertCur", "Insert",   "InsertHead", "InsertAfterCur", "DelCur",
                                "DelHead", "DelTail",  "MoveTo",   "StepNext",   "StepPre",        "SetLength",
                                "Move",    "Exchange", "Sort",     "Reverse",    "Rotate",         "Conbine",
                                "SplitAt", "Detach",   "FindDel",  "FindTo",     "Reset"};
  return names[k];
}

// Positions by operator[] and GetAt across the whole list, comparing the
// indexed list with the plain one.
template <class X, class D>
::testing::AssertionResult PositionsAgree(X &x, D &d, std::mt19937 &rng) {
  std::int32_t len = x.GetLength();
  for (int probe = 0; probe < 8 && len > 0; ++probe) {
    std::int32_t i = static_cast<std::int32_t>(rng() % len);
    if (x[i] != d[i]) return ::testing::AssertionFailure() << "operator[] at " << i;
    if (x.GetCur() != i || d.GetCur() != i) return ::testing::AssertionFailure() << "cursor after operator[]";
    std::int32_t j = static_cast<std::int32_t>(rng() % len);
    if (x.GetAt(j) != d.GetAt(j)) return ::testing::AssertionFailure() << "GetAt at " << j;
  }
  return ::testing::AssertionSuccess();
}

void RunIndexedAgainstPlain(unsigned seed, std::int32_t groupSize, int steps) {
  Subject<ProbedX<KyXList<int *>>> x(0, groupSize);
  Subject<Probed<KyDList<int *>>> d;
  Model m;
  OpSource source(seed, groupSize);
  std::mt19937 probeRng(seed + 1);
  std::vector<int> seen(kOpCount, 0);
  std::int32_t longest = 0;
  for (int step = 0; step < steps; ++step) {
    Op op = source.Next(m);
    ++seen[op.kind];
    longest = std::max(longest, m.Len());
    std::vector<int *> leftX = Apply(x, op);
    std::vector<int *> leftD = Apply(d, op);
    ApplyToModel(m, op);
    std::string where = "step " + std::to_string(step) + " " + Name(op.kind) + " a=" + std::to_string(op.a) +
                        " b=" + std::to_string(op.b);
    ASSERT_EQ(leftX, leftD) << where;
    ASSERT_TRUE(AgreesWith(x, m)) << where;
    ASSERT_TRUE(AgreesWith(d, m)) << where;
    ASSERT_TRUE(TableTrue(x.list)) << where;
    if (step % 7 == 0) {
      ASSERT_TRUE(PositionsAgree(x.list, d.list, probeRng)) << where;
      m.cur = x.list.GetCur();
      ASSERT_TRUE(TableTrue(x.list)) << where;
    }
  }
  // The run must have exercised every operation on lists of several groups.
  for (int k = 0; k < kOpCount; ++k) EXPECT_GT(seen[k], 0) << Name(static_cast<OpKind>(k));
  EXPECT_GT(longest, 4 * groupSize);
}

template <class L>
void RunAgainstModel(unsigned seed, int steps) {
  Subject<L> s;
  Model m;
  OpSource source(seed, 4);
  for (int step = 0; step < steps; ++step) {
    Op op = source.Next(m);
    Apply(s, op);
    ApplyToModel(m, op);
    ASSERT_TRUE(AgreesWith(s, m)) << "step " << step << " " << Name(op.kind) << " a=" << op.a << " b=" << op.b;
  }
}

}  // namespace

TEST(RandomizedLists, IndexedListAgreesWithPlainListGroupSizeThree) { RunIndexedAgainstPlain(11, 3, 4000); }

TEST(RandomizedLists, IndexedListAgreesWithPlainListGroupSizeFive) { RunIndexedAgainstPlain(23, 5, 4000); }

TEST(RandomizedLists, IndexedListAgreesWithPlainListDefaultGroupSize) { RunIndexedAgainstPlain(37, 25, 4000); }

TEST(RandomizedLists, IndexedListAgreesWithPlainListGroupSizeTwo) { RunIndexedAgainstPlain(41, 2, 3000); }

TEST(RandomizedLists, DoublyLinkedListFollowsTheModel) { RunAgainstModel<Probed<KyDList<int *>>>(5, 5000); }

TEST(RandomizedLists, SinglyLinkedListFollowsTheModel) { RunAgainstModel<Probed<KyList<int *>>>(9, 3000); }
