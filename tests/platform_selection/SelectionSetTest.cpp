// Selection sets: members, copies, union, filters by type, layer, colour
// and the entities' own values, and the filter lists they are built from.
#include <gtest/gtest.h>

#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"

namespace {

resbuf *TypeBuffer(const wchar_t *pattern) {
  resbuf *rb = acutNewRb(0);
  rb->resval.rstring = tolv::DupRbText(pattern);
  return rb;
}

class SelectionSetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    AddLayer(L"墙-WALL", 1);
    AddLayer(L"门窗-DOOR", 4);
    line1_ = AddEntity(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(3600, 0, 0)), L"墙-WALL", 256);
    line2_ = AddEntity(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 2400, 0)), L"门窗-DOOR", 3);
    circle_ = AddEntity(new AcDbCircle(AcGePoint3d(100, 200, 0), 50), L"门窗-DOOR", 5);
  }

  void AddLayer(const wchar_t *name, int color) {
    AcDbLayerTable *table = nullptr;
    ASSERT_EQ(db_.getLayerTable(table, AcDb::kForWrite), Acad::eOk);
    auto *layer = new AcDbLayerTableRecord;
    layer->setName(name);
    AcCmColor c;
    c.setColorIndex(static_cast<Adesk::UInt16>(color));
    layer->setColor(c);
    ASSERT_EQ(table->add(layer), Acad::eOk);
    layer->close();
    table->close();
  }

  AcDbObjectId AddEntity(AcDbEntity *entity, const wchar_t *layer, int color) {
    AcDbBlockTableRecord *ms = nullptr;
    EXPECT_EQ(acdbOpenObject(ms, db_.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(ms->appendAcDbEntity(id, entity), Acad::eOk);
    EXPECT_EQ(entity->setLayer(layer), Acad::eOk);
    entity->setColorIndex(static_cast<Adesk::UInt16>(color));
    entity->close();
    ms->close();
    return id;
  }

  KyAdsEntSet ModelSpace() {
    KyAdsEntSet set;
    set.AddBlock(db_.modelSpaceId());
    return set;
  }

  AcDbDatabase db_;
  AcDbObjectId line1_, line2_, circle_;
};

TEST_F(SelectionSetTest, GathersModelSpaceInOrderEachEntityOnce) {
  KyAdsEntSet set = ModelSpace();
  ASSERT_EQ(set.GetLength(), 3);
  EXPECT_EQ(set[0].GetObjectId(), line1_);
  EXPECT_EQ(set[1].GetObjectId(), line2_);
  EXPECT_EQ(set[2].GetObjectId(), circle_);
  EXPECT_EQ(set.AddBlock(db_.modelSpaceId()), 0);
  EXPECT_FALSE(set.Add(line1_));
  EXPECT_FALSE(set.Add(AcDbObjectId()));
  EXPECT_EQ(set.GetLength(), 3);
}

TEST_F(SelectionSetTest, ConstructorKeepsItsMode) {
  KyAdsEntSet working(2);
  EXPECT_EQ(working.GetMode(), KyAdsEntSet::kWorking);
  EXPECT_TRUE(working.IsEmpty());
  EXPECT_EQ(working.GetLength(), 0);
}

TEST_F(SelectionSetTest, CopyIsIndependentOfItsOriginal) {
  KyAdsEntSet set = ModelSpace();
  KyAdsEntSet copy(2);
  copy += set;
  resbuf *filter = acutBuildList(RTDXF0, L"CIRCLE", 0);
  EXPECT_EQ(copy.Filter(filter), 1);
  acutRelRb(filter);
  EXPECT_EQ(copy[0].GetObjectId(), circle_);
  EXPECT_EQ(set.GetLength(), 3);

  KyAdsEntSet assigned = set;
  assigned.RemoveAll();
  EXPECT_EQ(set.GetLength(), 3);
}

TEST_F(SelectionSetTest, UnionAddsOnlyNewMembers) {
  KyAdsEntSet a;
  a.Add(line1_);
  a.Add(circle_);
  KyAdsEntSet b;
  b.Add(circle_);
  b.Add(line2_);
  a += b;
  ASSERT_EQ(a.GetLength(), 3);
  EXPECT_EQ(a[2].GetObjectId(), line2_);
  a += a;
  EXPECT_EQ(a.GetLength(), 3);
}

TEST_F(SelectionSetTest, MemberOpensForReadAndAsItsClass) {
  KyAdsEntSet set = ModelSpace();
  AcDbEntity *entity = nullptr;
  ASSERT_EQ(set[2].Open(entity), Acad::eOk);
  EXPECT_TRUE(entity->isKindOf(AcDbCircle::desc()));
  entity->close();
  AcDbLine *line = nullptr;
  EXPECT_EQ(set[2].Open(line), Acad::eNotThatKindOfClass);
  EXPECT_EQ(line, nullptr);
  ASSERT_EQ(set[0].Open(line), Acad::eOk);
  EXPECT_DOUBLE_EQ(line->endPoint().x, 3600.0);
  line->close();
}

TEST_F(SelectionSetTest, FilterByTypeNameTakesWildcardsWithoutCase) {
  KyAdsEntSet set = ModelSpace();
  KyAdsRBList list(acutBuildList(RTDXF0, L"line", 0));
  EXPECT_EQ(set.Filter(list), 2);
  EXPECT_EQ(set[0].GetObjectId(), line1_);
  EXPECT_EQ(set[1].GetObjectId(), line2_);

  KyAdsEntSet all = ModelSpace();
  // Group 0 ends an acutBuildList, so a buffer of code 0 is made alone.
  KyAdsRBList either(TypeBuffer(L"LINE,CIRCLE"));
  EXPECT_EQ(all.Filter(either), 3);
  KyAdsRBList none(TypeBuffer(L"ARC"));
  EXPECT_EQ(all.Filter(none), 0);
  EXPECT_TRUE(all.IsEmpty());
  EXPECT_FALSE(all.Contains(line1_));
}

TEST_F(SelectionSetTest, FilterByLayerPatternAndColour) {
  KyAdsEntSet set = ModelSpace();
  KyAdsRBList list(acutBuildList(8, L"*-door", 62, 5, 0));
  EXPECT_EQ(set.Filter(list), 1);
  EXPECT_EQ(set[0].GetObjectId(), circle_);

  KyAdsEntSet bylayer = ModelSpace();
  KyAdsRBList byLayerColour(acutBuildList(62, 256, 0));
  EXPECT_EQ(bylayer.Filter(byLayerColour), 1);
  EXPECT_EQ(bylayer[0].GetObjectId(), line1_);
}

TEST_F(SelectionSetTest, FilterByTheEntitysOwnValues) {
  KyAdsEntSet set = ModelSpace();
  KyAdsRBList radius(acutBuildList(40, 50.0, 0));
  EXPECT_EQ(set.Filter(radius), 1);
  EXPECT_EQ(set[0].GetObjectId(), circle_);

  KyAdsEntSet ends = ModelSpace();
  const double end[3] = {0, 2400, 0};
  KyAdsRBList endPoint(acutBuildList(11, end, 0));
  EXPECT_EQ(ends.Filter(endPoint), 1);
  EXPECT_EQ(ends[0].GetObjectId(), line2_);
}

TEST_F(SelectionSetTest, NullFilterKeepsEveryMember) {
  KyAdsEntSet set = ModelSpace();
  EXPECT_EQ(set.Filter(static_cast<const resbuf *>(nullptr)), 3);
}

TEST_F(SelectionSetTest, ErasedMemberIsDroppedByFilter) {
  KyAdsEntSet set = ModelSpace();
  AcDbObject *obj = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(obj, line1_, AcDb::kForWrite), Acad::eOk);
  ASSERT_EQ(obj->erase(), Acad::eOk);
  obj->close();
  KyAdsRBList list(acutBuildList(RTDXF0, L"*", 0));
  EXPECT_EQ(set.Filter(list), 2);
}

TEST_F(SelectionSetTest, IsMatchWhenEveryMemberAnswers) {
  KyAdsEntSet set = ModelSpace();
  KyAdsRBList anyType(acutBuildList(RTDXF0, L"LINE,CIRCLE", 0));
  EXPECT_TRUE(set.IsMatch(anyType));
  KyAdsRBList lines(acutBuildList(RTDXF0, L"LINE", 0));
  EXPECT_FALSE(set.IsMatch(lines));
  KyAdsRBList doorLayer(acutBuildList(8, L"门窗-*", 0));
  EXPECT_FALSE(set.IsMatch(doorLayer));
  set.Remove(line1_);
  EXPECT_TRUE(set.IsMatch(doorLayer));
  EXPECT_EQ(set.GetLength(), 2);
}

TEST_F(SelectionSetTest, IsMatchOfEmptyListAndEmptySet) {
  KyAdsEntSet set = ModelSpace();
  KyAdsRBList empty;
  EXPECT_TRUE(set.IsMatch(empty));
  KyAdsEntSet none;
  EXPECT_FALSE(none.IsMatch(empty));
}

TEST(RBListTest, AppendChainsAndSkipsNull) {
  KyAdsRBList list;
  EXPECT_TRUE(list.IsEmpty());
  list.Append(acutBuildList(RTDXF0, L"LINE", 0));
  list.Append(nullptr);
  list.Append(acutBuildList(8, L"A", 62, 1, 0));
  ASSERT_EQ(list.GetLength(), 3);
  const resbuf *rb = list.GetHead();
  EXPECT_EQ(rb->restype, RTDXF0);
  EXPECT_STREQ(rb->resval.rstring, L"LINE");
  EXPECT_EQ(rb->rbnext->restype, 8);
  EXPECT_EQ(rb->rbnext->rbnext->resval.rint, 1);

  KyAdsRBList copy = list;
  copy.RemoveAll();
  EXPECT_EQ(list.GetLength(), 3);
  resbuf *chain = list.Detach();
  EXPECT_TRUE(list.IsEmpty());
  acutRelRb(chain);
}

TEST(RBListTest, CodeToTypeByGroupCodeRanges) {
  EXPECT_EQ(CodeToType(0), RTSTR);
  EXPECT_EQ(CodeToType(8), RTSTR);
  EXPECT_EQ(CodeToType(10), RT3DPOINT);
  EXPECT_EQ(CodeToType(40), RTREAL);
  EXPECT_EQ(CodeToType(62), RTSHORT);
  EXPECT_EQ(CodeToType(70), RTSHORT);
  EXPECT_EQ(CodeToType(90), RTLONG);
  EXPECT_EQ(CodeToType(330), RTENAME);
  EXPECT_EQ(CodeToType(1000), RTSTR);
  EXPECT_EQ(CodeToType(1071), RTLONG);
  EXPECT_EQ(CodeToType(RTDXF0), RTDXF0);
  EXPECT_EQ(CodeToType(RTSTR), RTSTR);
  EXPECT_EQ(CodeToType(80), RTNONE);
  EXPECT_EQ(CodeToType(-7), RTNONE);
}

}  // namespace
