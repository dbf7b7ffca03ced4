// Views and drawings of the project database.
#include <gtest/gtest.h>

#include <memory>

#include "project/ProjectTestUtil.h"

namespace {

struct Fixture {
  Fixture() {
    db.BindDict();
    view.reset(db.Views().AddView(L"PLAN-1"));
    drawing.reset(db.Drawings().AddDrawing(L"A-101"));
  }
  KyDtProjectDb db;
  std::unique_ptr<KyDtProjectView> view;
  std::unique_ptr<KyDtProjectDrawing> drawing;
};

}  // namespace

TEST(ProjectView, ScaleDefaultsTo100AndTextsToEmpty) {
  Fixture f;
  EXPECT_EQ(f.view->GetPrintScale(), 100.0);
  EXPECT_EQ(f.view->Dict()->FindItem(L"PRINT_SCALE"), nullptr);
  f.view->SetPrintScale(50);
  EXPECT_EQ(f.view->GetPrintScale(), 50.0);
  EXPECT_TRUE(f.view->GetViewType().IsEmpty());
  f.view->SetViewType(L"PLAN");
  EXPECT_EQ(f.view->GetViewType().Compare(L"PLAN"), 0);
  EXPECT_TRUE(f.view->GetViewFrameHandle().IsEmpty());
  f.view->SetViewFrameHandle(L"1A");
  EXPECT_EQ(f.view->GetViewFrameHandle().Compare(L"1A"), 0);
  // Getters created nothing.
  EXPECT_EQ(f.view->Dict()->FindItem(L"BASE"), nullptr);
}

TEST(ProjectView, BasePoint) {
  Fixture f;
  AcGePoint3d zero = f.view->GetBasePoint();
  EXPECT_EQ(zero.x + zero.y + zero.z, 0.0);
  f.view->SetBasePoint(AcGePoint3d(1, 2, 3));
  AcGePoint3d p = f.view->GetBasePoint();
  EXPECT_EQ(p.x, 1.0);
  EXPECT_EQ(p.y, 2.0);
  EXPECT_EQ(p.z, 3.0);
  EXPECT_TRUE(f.view->Dict()->FindDict(L"BASE")->IsClassOf(L"Point"));
}

TEST(ProjectView, SetViewDirectionStoresTheUpVectorAsTheViewVector) {
  Fixture f;
  f.view->SetViewDirection(AcGeVector3d(0, 0, 1), AcGeVector3d(0, 1, 0));
  AcGeVector3d view(9, 9, 9), up(7, 7, 7);
  f.view->GetViewDirection(view, up);
  EXPECT_EQ(view.x, 0.0);
  EXPECT_EQ(view.y, 1.0);
  EXPECT_EQ(view.z, 0.0);
  // "UP_VECTOR" was never written: the argument stays as it came.
  EXPECT_EQ(up.x, 7.0);
  EXPECT_EQ(up.y, 7.0);
  EXPECT_EQ(up.z, 7.0);
  EXPECT_EQ(f.view->Dict()->FindItem(L"VIEW_DIRECTION\\UP_VECTOR"), nullptr);
  EXPECT_TRUE(f.view->Dict()->FindDict(L"VIEW_DIRECTION\\VIEW_VECTOR")->IsClassOf(L"Vector"));
}

TEST(ProjectView, GetViewDirectionReadsAnUpVectorWrittenByOthers) {
  Fixture f;
  AcGeVector3d view(5, 5, 5), up(5, 5, 5);
  f.view->GetViewDirection(view, up);
  EXPECT_EQ(view.x, 5.0);
  EXPECT_EQ(up.z, 5.0);
  KyDtDictionary *upDict = f.view->Dict()->FindOrAddDict(L"VIEW_DIRECTION\\UP_VECTOR");
  upDict->SetValue(L"X", 0.0);
  upDict->SetValue(L"Y", 0.0);
  upDict->SetValue(L"Z", 1.0);
  f.view->GetViewDirection(view, up);
  EXPECT_EQ(up.z, 1.0);
  EXPECT_EQ(view.x, 5.0);
}

TEST(ProjectView, FileAndDrawingReferencesAreMadeOnAsking) {
  Fixture f;
  KyDtDictReferenceItem *file = f.view->File();
  KyDtDictReferenceItem *drawing = f.view->Drawing();
  ASSERT_NE(file, nullptr);
  ASSERT_NE(drawing, nullptr);
  EXPECT_NE(file, drawing);
  EXPECT_EQ(f.view->File(), file);
  f.view->Dict()->FindAndDel(L"DRAWING");
  f.view->Dict()->SetValue(L"DRAWING", 1.0);
  EXPECT_EQ(f.view->Drawing(), nullptr);
  EXPECT_NE(f.view->ViewModel().Dict(), nullptr);
}

TEST(ProjectDrawing, AddViewDefTwiceGivesTwoReferencesInOrder) {
  Fixture f;
  KyDtDictReferenceItem *first = f.drawing->AddViewDef();
  KyDtDictReferenceItem *second = f.drawing->AddViewDef();
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(f.drawing->GetSubViewRefNum(), 2);
  EXPECT_EQ(f.drawing->GetViewRef(0), first);
  EXPECT_EQ(f.drawing->GetViewRef(1), second);
  KyDList<KyDtDictReferenceItem *> all;
  f.drawing->GetAllSubViewRef(all);
  ASSERT_EQ(all.GetLength(), 2);
  EXPECT_EQ(all.GetAt(1), second);
}

TEST(ProjectDrawing, DelSubViewDefMovesTheNextForward) {
  Fixture f;
  f.drawing->AddViewDef();
  KyDtDictReferenceItem *second = f.drawing->AddViewDef();
  f.drawing->DelSubViewDef(0);
  EXPECT_EQ(f.drawing->GetSubViewRefNum(), 1);
  EXPECT_EQ(f.drawing->GetViewRef(0), second);
  f.drawing->ClearSubViewDef();
  EXPECT_EQ(f.drawing->GetSubViewRefNum(), 0);
}

TEST(ProjectDrawing, WithoutSubViewsNothingIsFoundOrChanged) {
  Fixture f;
  EXPECT_EQ(f.drawing->GetViewRef(0), nullptr);
  f.drawing->DelSubViewDef(0);
  f.drawing->ClearSubViewDef();
  KyDList<KyDtDictReferenceItem *> all;
  f.drawing->GetAllSubViewRef(all);
  EXPECT_EQ(all.GetLength(), 0);
  EXPECT_EQ(f.drawing->Dict()->FindItem(L"SUB_VIEWS"), nullptr);
  // Another kind in the list isn't a reference.
  f.drawing->AddViewDef();
  f.drawing->Dict()->FindDict(L"SUB_VIEWS")->AppendItem(CreateDictItem(KyDtDictItem::DT_LONG));
  EXPECT_EQ(f.drawing->GetViewRef(1), nullptr);
  f.drawing->GetAllSubViewRef(all);
  EXPECT_EQ(all.GetLength(), 1);
}

TEST(ProjectDrawing, FileReferenceAndFrameHandle) {
  Fixture f;
  ASSERT_NE(f.drawing->File(), nullptr);
  EXPECT_TRUE(f.drawing->GetDrawingFrameHandle().IsEmpty());
  f.drawing->SetDrawingFrameHandle(L"3C");
  EXPECT_EQ(f.drawing->GetDrawingFrameHandle().Compare(L"3C"), 0);
}

TEST(ProjectDrawing, SubViewsSurviveASaveInOrder) {
  tolvtest::ScratchDir dir("prj_subviews");
  Fixture f;
  std::unique_ptr<KyDtProjectView> second(f.db.Views().AddView(L"PLAN-2"));
  f.drawing->AddViewDef()->m_value = L"VIEWS\\PLAN-2";
  f.drawing->AddViewDef()->m_value = L"VIEWS\\PLAN-1";
  ASSERT_TRUE(f.db.SaveToXML(dir.wide("d.orpx").c_str()));
  KyDtProjectDb back;
  ASSERT_TRUE(back.ReadFromXML(dir.wide("d.orpx").c_str()));
  std::unique_ptr<KyDtProjectDrawing> d(back.Drawings().GetDrawing(L"A-101"));
  ASSERT_EQ(d->GetSubViewRefNum(), 2);
  ASSERT_NE(d->GetViewRef(0)->GetItemRef(), nullptr);
  EXPECT_EQ(d->GetViewRef(0)->GetItemRef()->m_strName.Compare(L"PLAN-2"), 0);
  EXPECT_EQ(d->GetViewRef(1)->GetItemRef()->m_strName.Compare(L"PLAN-1"), 0);
}
