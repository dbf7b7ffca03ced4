// Result-buffer lists and the extended data that objects keep in them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "DbTestHelpers.h"
#include "platform/acad/AdsResbuf.h"

namespace {

int Length(const resbuf *rb) {
  int n = 0;
  for (; rb; rb = rb->rbnext) ++n;
  return n;
}

AcDbObjectId AddApp(AcDbDatabase &db, const wchar_t *name) {
  AcDbRegAppTable *table = nullptr;
  EXPECT_EQ(db.getRegAppTable(table, AcDb::kForWrite), Acad::eOk);
  auto *app = new AcDbRegAppTableRecord;
  app->setName(name);
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, app), Acad::eOk);
  app->close();
  table->close();
  return id;
}

}  // namespace

TEST(ResultBuffer, BuildListTakesTypedValuesInOrder) {
  const double point[3] = {1.0, 2.0, 3.0};
  resbuf *list = acutBuildList(RTSTR, L"墙", RTREAL, 2.5, RTSHORT, 7, RTLONG, 70000, RT3DPOINT, point, RTLB, RTLE,
                               1040, 0.75, 1070, 12, 1000, L"text", 1010, point, 0);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(Length(list), 11);
  const resbuf *rb = list;
  EXPECT_EQ(rb->restype, RTSTR);
  EXPECT_STREQ(rb->resval.rstring, L"墙");
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, RTREAL);
  EXPECT_DOUBLE_EQ(rb->resval.rreal, 2.5);
  rb = rb->rbnext;
  EXPECT_EQ(rb->resval.rint, 7);
  rb = rb->rbnext;
  EXPECT_EQ(rb->resval.rlong, 70000);
  rb = rb->rbnext;
  EXPECT_DOUBLE_EQ(rb->resval.rpoint[2], 3.0);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, RTLB);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, RTLE);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, 1040);
  EXPECT_DOUBLE_EQ(rb->resval.rreal, 0.75);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, 1070);
  EXPECT_EQ(rb->resval.rint, 12);
  rb = rb->rbnext->rbnext;
  EXPECT_EQ(rb->restype, 1010);
  EXPECT_DOUBLE_EQ(rb->resval.rpoint[1], 2.0);
  EXPECT_EQ(acutRelRb(list), RTNORM);
}

TEST(ResultBuffer, TextsAreCopiedAndOwnedByTheList) {
  std::wstring text = L"original";
  resbuf *list = acutBuildList(RTSTR, text.c_str(), RTDXF0, L"LINE", 0);
  text = L"changed";
  EXPECT_STREQ(list->resval.rstring, L"original");
  EXPECT_EQ(list->rbnext->restype, RTDXF0);
  EXPECT_STREQ(list->rbnext->resval.rstring, L"LINE");
  resbuf *copy = tolv::CopyRbChain(list);
  acutRelRb(list);
  EXPECT_STREQ(copy->resval.rstring, L"original");
  acutRelRb(copy);
  EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST(ResultBuffer, UnknownTypeGivesNoList) {
  EXPECT_EQ(acutBuildList(RTSTR, L"a", 5011, 1, 0), nullptr);
  EXPECT_EQ(acutBuildList(0), nullptr);
  resbuf *single = acutNewRb(RTSHORT);
  ASSERT_NE(single, nullptr);
  EXPECT_EQ(single->resval.rint, 0);
  EXPECT_EQ(single->rbnext, nullptr);
  acutRelRb(single);
}

TEST(ResultBuffer, ResultCodesAreTheHosts) {
  EXPECT_EQ(RTNORM, 5100);
  EXPECT_EQ(RTNONE, 5000);
  EXPECT_EQ(RTREAL, 5001);
  EXPECT_EQ(RTSHORT, 5003);
  EXPECT_EQ(RTSTR, 5005);
  EXPECT_EQ(RTLONG, 5010);
  EXPECT_EQ(RTDXF0, 5020);
}

TEST(ExtendedData, NeedsTheApplicationRegisteredFirst) {
  AcDbDatabase db;
  AcDbObjectId layerId = acadtest::AddLayer(db, L"WALL", 1);
  AcDbObject *layer = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(layer, layerId, AcDb::kForWrite), Acad::eOk);
  resbuf *data = acutBuildList(1001, L"_MRV", 1040, 0.8, 1040, 0.7, 1070, 3, 0);
  EXPECT_EQ(layer->setXData(data), Acad::eRegappIdNotFound);
  EXPECT_EQ(layer->xData(L"_MRV"), nullptr);
  AddApp(db, L"_MRV");
  EXPECT_EQ(layer->setXData(data), Acad::eOk);
  acutRelRb(data);
  layer->close();

  ASSERT_EQ(acdbOpenAcDbObject(layer, layerId, AcDb::kForRead), Acad::eOk);
  resbuf *back = layer->xData(L"_mrv");  // names compare without case
  layer->close();
  ASSERT_NE(back, nullptr);
  ASSERT_EQ(Length(back), 4);
  EXPECT_EQ(back->restype, 1001);
  EXPECT_STREQ(back->resval.rstring, L"_MRV");
  EXPECT_EQ(back->rbnext->restype, 1040);
  EXPECT_DOUBLE_EQ(back->rbnext->resval.rreal, 0.8);
  EXPECT_DOUBLE_EQ(back->rbnext->rbnext->resval.rreal, 0.7);
  EXPECT_EQ(back->rbnext->rbnext->rbnext->restype, 1070);
  EXPECT_EQ(back->rbnext->rbnext->rbnext->resval.rint, 3);
  acutRelRb(back);
}

TEST(ExtendedData, EachApplicationKeepsItsOwnAndCanBeReplacedOrRemoved) {
  AcDbDatabase db;
  AddApp(db, L"APP_A");
  AddApp(db, L"APP_B");
  AcDbObjectId layerId = acadtest::AddLayer(db, L"WALL", 1);
  AcDbObject *obj = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(obj, layerId, AcDb::kForWrite), Acad::eOk);
  resbuf *both = acutBuildList(1001, L"APP_A", 1000, L"first", 1001, L"APP_B", 1071, 123456, 0);
  ASSERT_EQ(obj->setXData(both), Acad::eOk);
  acutRelRb(both);
  resbuf *onlyB = acutBuildList(1001, L"APP_B", 1000, L"second", 0);
  ASSERT_EQ(obj->setXData(onlyB), Acad::eOk);  // A stays
  acutRelRb(onlyB);
  resbuf *a = obj->xData(L"APP_A");
  resbuf *b = obj->xData(L"APP_B");
  resbuf *all = obj->xData();
  ASSERT_NE(a, nullptr);
  ASSERT_NE(b, nullptr);
  EXPECT_STREQ(a->rbnext->resval.rstring, L"first");
  EXPECT_STREQ(b->rbnext->resval.rstring, L"second");
  EXPECT_EQ(Length(all), 4);
  acutRelRb(a);
  acutRelRb(b);
  acutRelRb(all);
  resbuf *removeA = acutBuildList(1001, L"APP_A", 0);
  ASSERT_EQ(obj->setXData(removeA), Acad::eOk);
  acutRelRb(removeA);
  EXPECT_EQ(obj->xData(L"APP_A"), nullptr);
  obj->close();
}

TEST(ExtendedData, RefusesListsThatAreNoExtendedData) {
  AcDbDatabase db;
  AddApp(db, L"APP");
  AcDbObjectId layerId = acadtest::AddLayer(db, L"WALL", 1);
  AcDbObject *obj = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(obj, layerId, AcDb::kForWrite), Acad::eOk);
  resbuf *noName = acutBuildList(1000, L"x", 0);
  EXPECT_EQ(obj->setXData(noName), Acad::eInvalidInput);
  acutRelRb(noName);
  resbuf *wrongCode = acutBuildList(1001, L"APP", 40, 1.0, 0);
  EXPECT_EQ(obj->setXData(wrongCode), Acad::eInvalidInput);
  acutRelRb(wrongCode);
  EXPECT_EQ(obj->setXData(nullptr), Acad::eInvalidInput);
  obj->close();
  ASSERT_EQ(acdbOpenAcDbObject(obj, layerId, AcDb::kForRead), Acad::eOk);
  resbuf *fine = acutBuildList(1001, L"APP", 1000, L"x", 0);
  EXPECT_EQ(obj->setXData(fine), Acad::eNotOpenForWrite);
  acutRelRb(fine);
  obj->close();
}
