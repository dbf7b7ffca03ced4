// The owning pointer: deletes what it holds, and hands its object on when
// copied or assigned, leaving the source empty.
#include <gtest/gtest.h>

#include "platform/utility/AutoPtr.h"

namespace {

struct Counted {
  explicit Counted(int *liveCount, int v = 0) : live(liveCount), value(v) { ++*live; }
  virtual ~Counted() { --*live; }
  int *live;
  int value;
};

struct DerivedCounted : Counted {
  using Counted::Counted;
};

_auto_ptr<Counted> MakeCounted(int *live, int value) { return _auto_ptr<Counted>(new Counted(live, value)); }

TEST(XmlAutoPtr, DeletesItsObjectWhenDestroyed) {
  int live = 0;
  {
    _auto_ptr<Counted> p(new Counted(&live));
    EXPECT_EQ(live, 1);
  }
  EXPECT_EQ(live, 0);
}

TEST(XmlAutoPtr, DefaultIsEmptyAndTestsFalse) {
  _auto_ptr<Counted> p;
  EXPECT_FALSE(p);
  EXPECT_EQ(p.get(), nullptr);
}

TEST(XmlAutoPtr, CopyConstructionMovesTheObjectAndEmptiesTheSource) {
  int live = 0;
  _auto_ptr<Counted> a(new Counted(&live, 7));
  Counted *raw = a.get();
  _auto_ptr<Counted> b(a);
  EXPECT_EQ(a.get(), nullptr);
  EXPECT_FALSE(a);
  EXPECT_EQ(b.get(), raw);
  EXPECT_EQ(b->value, 7);
  EXPECT_EQ(live, 1);
}

TEST(XmlAutoPtr, AssignmentMovesTheObjectAndDeletesTheOldTarget) {
  int live = 0;
  _auto_ptr<Counted> a(new Counted(&live, 1));
  _auto_ptr<Counted> b(new Counted(&live, 2));
  EXPECT_EQ(live, 2);
  b = a;
  EXPECT_EQ(live, 1);
  EXPECT_FALSE(a);
  ASSERT_TRUE(b);
  EXPECT_EQ(b->value, 1);
}

TEST(XmlAutoPtr, SelfAssignmentKeepsTheObject) {
  int live = 0;
  _auto_ptr<Counted> a(new Counted(&live, 3));
  _auto_ptr<Counted> &alias = a;
  a = alias;
  ASSERT_TRUE(a);
  EXPECT_EQ(a->value, 3);
  EXPECT_EQ(live, 1);
}

TEST(XmlAutoPtr, ReturnedByValueAndAssignedFromATemporary) {
  int live = 0;
  _auto_ptr<Counted> a = MakeCounted(&live, 4);
  EXPECT_EQ(a->value, 4);
  a = MakeCounted(&live, 5);
  EXPECT_EQ(a->value, 5);
  EXPECT_EQ(live, 1);
}

TEST(XmlAutoPtr, ReleaseGivesUpOwnership) {
  int live = 0;
  Counted *raw = nullptr;
  {
    _auto_ptr<Counted> a(new Counted(&live));
    raw = a.release();
    EXPECT_FALSE(a);
  }
  EXPECT_EQ(live, 1);
  delete raw;
  EXPECT_EQ(live, 0);
}

TEST(XmlAutoPtr, ResetDeletesTheOldObjectAndTakesTheNewOne) {
  int live = 0;
  _auto_ptr<Counted> a(new Counted(&live, 1));
  a.reset(new Counted(&live, 2));
  EXPECT_EQ(live, 1);
  EXPECT_EQ((*a).value, 2);
  a.reset(a.get());  // the same object is not deleted
  EXPECT_EQ(live, 1);
  a.reset();
  EXPECT_EQ(live, 0);
  EXPECT_FALSE(a);
}

TEST(XmlAutoPtr, DerivedPassesToBase) {
  int live = 0;
  _auto_ptr<DerivedCounted> d(new DerivedCounted(&live, 9));
  _auto_ptr<Counted> b(d);
  EXPECT_FALSE(d);
  EXPECT_EQ(b->value, 9);
  _auto_ptr<DerivedCounted> d2(new DerivedCounted(&live, 10));
  b = d2;
  EXPECT_FALSE(d2);
  EXPECT_EQ(b->value, 10);
  EXPECT_EQ(live, 1);
}

TEST(XmlAutoPtr, ConstPointerCannotBePassedOn) {
  // Taking the object from a const source would break the promise of const.
  EXPECT_FALSE((std::is_constructible_v<_auto_ptr<Counted>, const _auto_ptr<Counted> &>));
  EXPECT_FALSE((std::is_assignable_v<_auto_ptr<Counted> &, const _auto_ptr<Counted> &>));
  EXPECT_TRUE((std::is_constructible_v<_auto_ptr<Counted>, _auto_ptr<Counted> &>));
}

}  // namespace
