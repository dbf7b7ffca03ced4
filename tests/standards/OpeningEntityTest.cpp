// The opening entities of the object module: sizes, polylines, and their
// survival through a drawing file.
#include <gtest/gtest.h>

#include <memory>

#include "StandardsFixture.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/dbobject/KyDbCornerWin.h"
#include "platform/dbobject/KyDbDormer.h"
#include "platform/dbobject/KyDbOpening.h"
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"

namespace {

class OpeningEntityTest : public StandardsTest {
 protected:
  AcDbObjectId Append(AcDbDatabase &db, AcDbEntity *entity) {
    AcDbBlockTableRecord *ms = nullptr;
    EXPECT_EQ(acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(ms->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    ms->close();
    return id;
  }
};

TEST(PolylineTest, SegmentsAndLengths) {
  KyGePolyline2d line({AcGePoint2d(0, 0), AcGePoint2d(1200, 0), AcGePoint2d(1200, 1500)});
  EXPECT_EQ(line.GetSegNum(), 2);
  EXPECT_DOUBLE_EQ(line.Length(), 2700.0);
  KyGeSegment2d seg;
  ASSERT_TRUE(line.GetSegment(1, seg));
  EXPECT_DOUBLE_EQ(seg.Length(), 1500.0);
  EXPECT_FALSE(line.GetSegment(2, seg));
  EXPECT_FALSE(line.GetSegment(-1, seg));
  line.SetClosed(true);
  EXPECT_EQ(line.GetSegNum(), 3);
  KyGePolyline2d copy;
  copy.CopyFrom(line);
  EXPECT_TRUE(copy.IsClosed());
  EXPECT_EQ(copy.GetVertexNum(), 3);
  EXPECT_EQ(KyGePolyline2d().GetSegNum(), 0);
}

TEST(PolylineTest, ArcSegmentLength) {
  // A half circle of radius 500: bulge 1.
  KyGePolyline2d line;
  line.AddVertex(AcGePoint2d(0, 0), 1.0);
  line.AddVertex(AcGePoint2d(1000, 0));
  EXPECT_NEAR(line.Length(), 3.14159265358979 * 500.0, 1e-6);
}

TEST_F(OpeningEntityTest, CornerWindowLinesFromLegs) {
  KyDbCornerWin win;
  ASSERT_TRUE(win.SetFromLegs({1200, 1500}, 200));
  EXPECT_DOUBLE_EQ(win.GetWinLength(), 2700.0);
  std::unique_ptr<KyGePolyline2d> base(win.GetBaseLine());
  KyGePolyline2d *a = nullptr;
  KyGePolyline2d *b = nullptr;
  win.GetSideLines(a, b);
  std::unique_ptr<KyGePolyline2d> side1(a), side2(b);
  EXPECT_EQ(base->GetSegNum(), 2);
  EXPECT_NEAR(side1->Length(), 2500.0, 1e-9);  // inside the turn
  EXPECT_NEAR(side2->Length(), 2900.0, 1e-9);
  EXPECT_FALSE(win.SetFromLegs({}, 200));
  EXPECT_FALSE(win.SetFromLegs({1200, -5}, 200));
  EXPECT_FALSE(win.SetFromLegs({1200}, -1));
}

TEST_F(OpeningEntityTest, OpeningsSurviveADrawingFile) {
  auto *door = new KyDbOpening(KyDbOpening::kDoor, 900, 2100);
  door->SetLabel(L"M0921");
  door->SetLabelType(L"普通门");
  door->SetPosition(AcGePoint3d(100, 200, 0));
  door->SetStyle2d(db_.modelSpaceId());
  Append(db_, door);
  auto *dormer = new KyDbDormer;
  KyDormerPar par;
  par.windowWidth = 800;
  par.windowHeight = 1100;
  dormer->SetDormerPar(par);
  dormer->SetLabel(L"LC1");
  dormer->SetLabelType(L"老虎窗");
  Append(db_, dormer);
  auto *corner = new KyDbCornerWin;
  corner->SetFromLegs({1200, 1500, 600}, 240);
  corner->SetHeight(1500);
  corner->SetLabel(L"DC-(12+15+06)15");
  Append(db_, corner);

  std::string text;
  ASSERT_EQ(db_.dxfOutToText(text), Acad::eOk);
  EXPECT_NE(text.find("TOLV_OPENING"), std::string::npos);
  EXPECT_NE(text.find("TOLV_DORMER"), std::string::npos);
  EXPECT_NE(text.find("TOLV_CORNER_WIN"), std::string::npos);

  AcDbDatabase back(false, true);
  ASSERT_EQ(back.dxfInFromText(text), Acad::eOk);
  KyAdsEntSet set;
  set.AddBlock(back.modelSpaceId());
  ASSERT_EQ(set.GetLength(), 3);

  KyDbOpening *d = nullptr;
  ASSERT_EQ(set[0].Open(d), Acad::eOk);
  EXPECT_EQ(d->GetKind(), KyDbOpening::kDoor);
  EXPECT_DOUBLE_EQ(d->GetWidth(), 900);
  EXPECT_DOUBLE_EQ(d->GetHeight(), 2100);
  EXPECT_EQ(d->GetLabel().str(), L"M0921");
  EXPECT_EQ(d->GetLabelType().str(), L"普通门");
  EXPECT_DOUBLE_EQ(d->GetPosition().y, 200);
  EXPECT_EQ(d->GetStyle2d(), back.modelSpaceId());
  EXPECT_TRUE(d->GetStyle3d().isNull());
  d->close();

  KyDbDormer *m = nullptr;
  ASSERT_EQ(set[1].Open(m), Acad::eOk);
  EXPECT_DOUBLE_EQ(m->GetDormerPar().GetWindowWidth(), 800);
  EXPECT_DOUBLE_EQ(m->GetDormerPar().GetWindowHeight(), 1100);
  EXPECT_EQ(m->GetLabel().str(), L"LC1");
  m->close();

  KyDbCornerWin *c = nullptr;
  ASSERT_EQ(set[2].Open(c), Acad::eOk);
  EXPECT_DOUBLE_EQ(c->GetWinLength(), 3300);
  EXPECT_DOUBLE_EQ(c->GetHeight(), 1500);
  EXPECT_EQ(c->GetLabel().str(), L"DC-(12+15+06)15");
  KyGePolyline2d *a = nullptr;
  KyGePolyline2d *b = nullptr;
  c->GetSideLines(a, b);
  std::unique_ptr<KyGePolyline2d> side1(a), side2(b);
  EXPECT_EQ(side1->GetVertexNum(), 4);
  EXPECT_EQ(side2->GetVertexNum(), 4);
  c->close();

  // Selection by type name finds the read-back entities.
  KyAdsEntSet openings(2);
  openings += set;
  KyAdsRBList filter(acutBuildList(RTDXF0, L"TOLV_*", 1, L"M*", 0));
  EXPECT_EQ(openings.Filter(filter), 1);
}

TEST_F(OpeningEntityTest, HostileCornerWindowDataReadsCleanly) {
  std::string text;
  auto *corner = new KyDbCornerWin;
  corner->SetFromLegs({1200}, 240);
  Append(db_, corner);
  ASSERT_EQ(db_.dxfOutToText(text), Acad::eOk);
  // A count far beyond what follows reads only what is there.
  const std::string count = "\n 90\n2\n";
  const std::size_t at = text.find(count);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, count.size(), "\n 90\n2147483647\n");
  AcDbDatabase back(false, true);
  ASSERT_EQ(back.dxfInFromText(text), Acad::eOk);
  KyAdsEntSet set;
  set.AddBlock(back.modelSpaceId());
  ASSERT_EQ(set.GetLength(), 1);
  KyDbCornerWin *c = nullptr;
  ASSERT_EQ(set[0].Open(c), Acad::eOk);
  EXPECT_DOUBLE_EQ(c->GetWinLength(), 1200);
  c->close();
}

}  // namespace
