// The object module's makers of layers, line types, styles, units and
// materials, driven the way the data layer drives them.
#include <gtest/gtest.h>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/dbobject/KyDbDrawUnit.h"
#include "platform/dbobject/KyDbLayerMakers.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "platform/dbobject/LinetypeFile.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "support/TestSupport.h"

using acadtest::NameOf;

namespace {

// The bundled support folder is the main directory of these tests.
class Makers : public testing::Test {
 protected:
  void SetUp() override { tolv::SetMainDirectory(tolv::ToSystemPath(TOLV_SOURCE_DIR "/share/support")); }
  void TearDown() override {
    tolv::SetMainDirectory(L"");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }
};

AcDbObjectId MakeTextStyleWithColor(AcDbDatabase &db, const wchar_t *name, int color) {
  auto *record = new AcDbTextStyleTableRecord;
  record->setName(name);
  record->setFileName(L"simplex.shx");
  record->setBigFontFileName(L"hztxt.shx");
  record->setXScale(0.75);
  AcDbObjectId id = AddTextStyle(record, 0, &db);
  if (id.isNull()) {
    delete record;
    return id;
  }
  resbuf *xdata = acutBuildList(1001, L"_MRV", 1040, 0.8, 1040, 0.7, 1070, color, 0);
  AssureRegApp(L"_MRV", &db);
  EXPECT_EQ(record->setXData(xdata), Acad::eOk);
  acutRelRb(xdata);
  record->close();
  return id;
}

}  // namespace

TEST_F(Makers, LayerLookupAnswersNullForAMissingLayer) {
  AcDbDatabase db;
  EXPECT_TRUE(GetLayerIdFromString(L"WALL", &db).isNull());
  EXPECT_TRUE(GetLayerIdFromString(L"", &db).isNull());
  EXPECT_TRUE(GetLayerIdFromString(nullptr, &db).isNull());
  EXPECT_EQ(GetLayerIdFromString(L"0", &db), db.clayer());
}

TEST_F(Makers, InitLayerMakesTheLayerWithItsColourOnce) {
  AcDbDatabase db;
  AcDbObjectId id = InitLayer(L"WALL", 1, &db);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(GetLayerIdFromString(L"wall", &db), id);
  AcDbLayerTableRecord *layer = nullptr;
  ASSERT_EQ(acdbOpenObject(layer, id, AcDb::kForRead), Acad::eOk);  // left closed
  EXPECT_EQ(layer->color().colorIndex(), 1);
  layer->close();
  // A second call answers the layer as it stands, colour and all.
  EXPECT_EQ(InitLayer(L"WALL", 5, &db), id);
  ASSERT_EQ(acdbOpenObject(layer, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(layer->color().colorIndex(), 1);
  layer->close();
  AcDbObjectId odd = InitLayer(L"ODD", 0, &db);
  ASSERT_EQ(acdbOpenObject(layer, odd, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(layer->color().colorIndex(), 7);
  layer->close();
  EXPECT_TRUE(InitLayer(L"BAD|NAME", 1, &db).isNull());
  EXPECT_TRUE(InitLayer(L"", 1, &db).isNull());
}

TEST_F(Makers, NullDatabaseMeansTheWorkingOne) {
  AcDbDatabase db;
  acdbHostApplicationServices()->setWorkingDatabase(&db);
  AcDbObjectId id = InitLayer(L"AXIS", 2, nullptr);
  EXPECT_EQ(id.database(), &db);
  EXPECT_EQ(GetLayerIdFromString(L"AXIS", nullptr), id);
  EXPECT_EQ(InitLineType(L"CENTER", nullptr).database(), &db);
  EXPECT_EQ(AssureRegApp(L"_MRV", nullptr).database(), &db);
}

TEST_F(Makers, InitLineTypeComesFromTheBundledFile) {
  AcDbDatabase db;
  AcDbObjectId id = InitLineType(L"dashed", &db);
  ASSERT_FALSE(id.isNull());
  AcDbLinetypeTableRecord *lt = nullptr;
  ASSERT_EQ(acdbOpenObject(lt, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(NameOf(id), L"DASHED");
  const ACHAR *comments = nullptr;
  lt->comments(comments);
  EXPECT_STREQ(comments, L"Dashed __ __ __ __ __ __");
  ASSERT_EQ(lt->numDashes(), 2);
  EXPECT_DOUBLE_EQ(lt->dashLengthAt(0), 12.0);
  EXPECT_DOUBLE_EQ(lt->dashLengthAt(1), -6.0);
  EXPECT_DOUBLE_EQ(lt->patternLength(), 18.0);
  lt->close();
  EXPECT_EQ(InitLineType(L"DASHED", &db), id);
  EXPECT_EQ(InitLineType(L"CONTINUOUS", &db), db.continuousLinetype());
  EXPECT_TRUE(InitLineType(L"NO_SUCH_LINETYPE", &db).isNull());
}

TEST_F(Makers, InitLineTypeWithoutTheFileAnswersNull) {
  tolvtest::ScratchDir empty("makers_nolin");
  tolv::SetMainDirectory(empty.wide());
  AcDbDatabase db;
  EXPECT_TRUE(InitLineType(L"DASHED", &db).isNull());
  EXPECT_EQ(InitLineType(L"Continuous", &db), db.continuousLinetype());
}

TEST_F(Makers, LinetypeFileReaderSkipsComplexPartsAndComments) {
  auto defs = tolv::ParseLinetypeText(
      L";; comment\n*PLAIN,Plain\nA,1.5,-0.5,0\n*GAS,Gas line ----GAS----\n"
      L"A,12.7,-5.08,[\"GAS\",STANDARD,S=2.54,R=0.0,X=-2.54,Y=-1.27],-6.35\r\n*NOPATTERN,Nothing\n");
  ASSERT_EQ(defs.size(), 3u);
  EXPECT_EQ(defs[0].name, L"PLAIN");
  EXPECT_EQ(defs[0].dashes, (std::vector<double>{1.5, -0.5, 0.0}));
  EXPECT_DOUBLE_EQ(defs[0].patternLength, 2.0);
  EXPECT_EQ(defs[1].description, L"Gas line ----GAS----");
  EXPECT_EQ(defs[1].dashes, (std::vector<double>{12.7, -5.08, -6.35}));
  EXPECT_TRUE(defs[2].dashes.empty());
}

TEST_F(Makers, LayerIsStyledAfterItsLineTypeIsHad) {
  // The data layer's order: make the layer, get the line type, then open
  // the layer for write to set line type and weight.
  AcDbDatabase db;
  AcDbObjectId layerId = InitLayer(L"WALL-HIDDEN", 3, &db);
  AcDbObjectId ltId = InitLineType(L"HIDDEN", &db);
  ASSERT_FALSE(ltId.isNull());
  AcDbObject *obj = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(obj, layerId, AcDb::kForWrite), Acad::eOk);
  auto *layer = AcDbLayerTableRecord::cast(obj);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->setLinetypeObjectId(ltId), Acad::eOk);
  EXPECT_EQ(layer->setLineWeight(AcDb::kLnWt030), Acad::eOk);
  EXPECT_EQ(obj->close(), Acad::eOk);
  AcDbLayerTableRecord *back = nullptr;
  ASSERT_EQ(acdbOpenObject(back, layerId, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(back->linetypeObjectId(), ltId);
  EXPECT_EQ(back->lineWeight(), AcDb::kLnWt030);
  back->close();
}

TEST_F(Makers, TextStyleKeepsItsExtendedDataAndReadsBack) {
  AcDbDatabase db;
  EXPECT_TRUE(GetTextStyleId(L"TOLV_DIM", &db).isNull());
  AcDbObjectId id = MakeTextStyleWithColor(db, L"TOLV_DIM", 3);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(GetTextStyleId(L"tolv_dim", &db), id);
  // Reading the colour back as the data layer does: 1001, 1040, 1040, 1070.
  AcDbTextStyleTableRecord *style = nullptr;
  ASSERT_EQ(acdbOpenObject(style, id, AcDb::kForRead), Acad::eOk);
  resbuf *xdata = style->xData(L"_MRV");
  style->close();
  ASSERT_NE(xdata, nullptr);
  const resbuf *rb = xdata;
  EXPECT_EQ(rb->restype, 1001);
  rb = rb->rbnext;
  ASSERT_NE(rb, nullptr);
  EXPECT_EQ(rb->restype, 1040);
  EXPECT_DOUBLE_EQ(rb->resval.rreal, 0.8);
  rb = rb->rbnext;
  ASSERT_NE(rb, nullptr);
  EXPECT_EQ(rb->restype, 1040);
  rb = rb->rbnext;
  ASSERT_NE(rb, nullptr);
  EXPECT_EQ(rb->restype, 1070);
  EXPECT_EQ(rb->resval.rint, 3);
  acutRelRb(xdata);
}

TEST_F(Makers, AddTextStyleRefusesADuplicateAndLeavesTheRecordToItsMaker) {
  AcDbDatabase db;
  auto *record = new AcDbTextStyleTableRecord;
  record->setName(L"Standard");
  EXPECT_TRUE(AddTextStyle(record, 1, &db).isNull());
  EXPECT_TRUE(record->isNewObject());
  delete record;
  auto *closed = new AcDbTextStyleTableRecord;
  closed->setName(L"CLOSED");
  AcDbObjectId id = AddTextStyle(closed, 1, &db);
  ASSERT_FALSE(id.isNull());
  EXPECT_FALSE(closed->isWriteEnabled());
}

TEST_F(Makers, AssureRegAppRegistersOnce) {
  AcDbDatabase db;
  AcDbObjectId first = AssureRegApp(L"_MRV", &db);
  ASSERT_FALSE(first.isNull());
  EXPECT_EQ(AssureRegApp(L"_mrv", &db), first);
  EXPECT_TRUE(AssureRegApp(L"", &db).isNull());
}

TEST_F(Makers, DimensionStyleIsAddedClosed) {
  AcDbDatabase db;
  EXPECT_TRUE(GetDimStyleId(L"DIM(mm-M)", &db).isNull());
  auto *record = new AcDbDimStyleTableRecord;
  record->setDimblk(L"_OBLIQUE");
  record->setName(L"DIM(mm-M)");
  record->setDimlfac(0.001);
  AcDbObjectId id = AddDimStyle(record, 1, &db);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(GetDimStyleId(L"dim(MM-m)", &db), id);
  AcDbDimStyleTableRecord *back = nullptr;
  ASSERT_EQ(acdbOpenObject(back, id, AcDb::kForWrite), Acad::eOk);  // it was closed
  EXPECT_DOUBLE_EQ(back->dimlfac(), 0.001);
  EXPECT_EQ(NameOf(back->dimblk()), L"_OBLIQUE");
  back->close();
}

TEST_F(Makers, DrawingAndDimensionUnits) {
  AcDbDatabase db;
  EXPECT_EQ(KyDbGetDrawUnit(&db), 0);
  EXPECT_EQ(KyDbGetDimUnit(&db), 0);
  ASSERT_TRUE(KyDbSetDimUnit(1, &db));
  EXPECT_EQ(KyDbGetDrawUnit(&db), 0);
  EXPECT_EQ(KyDbGetDimUnit(&db), 1);
  ASSERT_TRUE(KyDbSetDrawUnit(1, &db));
  EXPECT_EQ(db.insunits(), AcDb::kUnitsMeters);
  EXPECT_EQ(KyDbGetDrawUnit(&db), 1);
  ASSERT_TRUE(KyDbSetDimUnit(0, &db));
  EXPECT_EQ(KyDbGetDimUnit(&db), 0);
  EXPECT_FALSE(KyDbSetDimUnit(2, &db));
  // Without a dimension unit of its own, a drawing dimensions in its unit.
  AcDbDatabase metres;
  KyDbSetDrawUnit(1, &metres);
  EXPECT_EQ(KyDbGetDimUnit(&metres), 1);
}

TEST_F(Makers, SystemMaterialsStandInTheAddOnsDictionary) {
  AcDbDatabase db;
  ASSERT_TRUE(InitAecSysMaterial(&db));
  AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForRead, &db);
  ASSERT_NE(dict, nullptr);
  EXPECT_FALSE(dict->isWriteEnabled());
  int count = 0;
  for (const wchar_t *const *name = KyDbSystemMaterialNames(); *name; ++name, ++count) {
    EXPECT_TRUE(dict->has(*name));
  }
  EXPECT_EQ(dict->numEntries(), static_cast<Adesk::UInt32>(count));
  AcDbObject *obj = nullptr;
  ASSERT_EQ(dict->getAt(L"钢筋混凝土", obj, AcDb::kForRead), Acad::eOk);
  auto *concrete = KyDbMaterial::cast(obj);
  ASSERT_NE(concrete, nullptr);
  EXPECT_STREQ(concrete->GetName(), L"钢筋混凝土");
  EXPECT_STREQ(concrete->GetPatternName(), L"AR-CONC");
  EXPECT_EQ(concrete->GetPriority(), 90);
  obj->close();
  dict->close();
  // The dictionary stands under a key of the add-on's own.
  AcDbDictionary *nod = nullptr;
  ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(nod->has(kTolvMaterialDictionaryKey));
  EXPECT_NE(std::wstring(kTolvMaterialDictionaryKey).rfind(L"ACAD_", 0), 0u);
  nod->close();
  // A second start makes no second material.
  ASSERT_TRUE(InitAecSysMaterial(&db));
  dict = GetAecMaterialDictionary(AcDb::kForRead, &db);
  EXPECT_EQ(dict->numEntries(), static_cast<Adesk::UInt32>(count));
  dict->close();
}

TEST_F(Makers, AMaterialOfAnyNameIsAddedTheWayTheDataLayerDoesIt) {
  AcDbDatabase db;
  auto initMaterial = [&](const wchar_t *name) {
    InitAecSysMaterial(&db);
    AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForRead, &db);
    if (!dict) return AcDbObjectId();
    AcDbObjectId id;
    Acad::ErrorStatus es = dict->getAt(name, id);
    if (es == Acad::eKeyNotFound && dict->upgradeOpen() == Acad::eOk) {
      auto *material = new KyDbMaterial;
      InitMaterialData(name, material);
      if (dict->setAt(name, material, id) != Acad::eOk) {
        delete material;
        id.setNull();
      } else {
        material->close();
      }
    }
    dict->close();
    return id;
  };
  AcDbObjectId made = initMaterial(L"花岗岩");
  ASSERT_FALSE(made.isNull());
  EXPECT_EQ(initMaterial(L"花岗岩"), made);
  KyDbMaterial *material = nullptr;
  ASSERT_EQ(acdbOpenObject(material, made, AcDb::kForRead), Acad::eOk);
  EXPECT_STREQ(material->GetName(), L"花岗岩");
  EXPECT_STREQ(material->GetPatternName(), L"SOLID");
  EXPECT_EQ(material->GetPriority(), 0);
  material->close();
  KyDbMaterial scratch;
  EXPECT_TRUE(InitMaterialData(L"钢", &scratch));
  EXPECT_STREQ(scratch.GetPatternName(), L"STEEL");
  EXPECT_FALSE(InitMaterialData(L"unknown", &scratch));
  EXPECT_FALSE(InitMaterialData(L"x", nullptr));
}

TEST_F(Makers, MaterialDictionaryIsNullWhenTheDrawingCannotTakeIt) {
  AcDbDatabase db;
  AcDbDictionary *nod = nullptr;
  ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(GetAecMaterialDictionary(AcDb::kForRead, &db), nullptr);  // its parent is busy
  EXPECT_FALSE(InitAecSysMaterial(&db));
  nod->close();
  AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForWrite, &db);
  ASSERT_NE(dict, nullptr);
  EXPECT_TRUE(dict->isWriteEnabled());
  dict->close();
}
