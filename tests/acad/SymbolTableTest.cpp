// The symbol tables of a drawing and the fields of their records.
#include <gtest/gtest.h>

#include <memory>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AdsResbuf.h"

using acadtest::AddLayer;
using acadtest::NameOf;

TEST(SymbolTables, ANewDrawingHoldsTheHostsStandardRecords) {
  AcDbDatabase db;
  AcDbLayerTable *layers = nullptr;
  ASSERT_EQ(db.getSymbolTable(layers, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(layers->has(L"0"));
  layers->close();
  AcDbLinetypeTable *ltypes = nullptr;
  ASSERT_EQ(db.getLinetypeTable(ltypes, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(ltypes->has(L"ByLayer"));
  EXPECT_TRUE(ltypes->has(L"BYBLOCK"));
  EXPECT_TRUE(ltypes->has(L"continuous"));
  ltypes->close();
  EXPECT_EQ(NameOf(db.clayer()), L"0");
  EXPECT_EQ(NameOf(db.textstyle()), L"Standard");
  EXPECT_EQ(NameOf(db.dimstyle()), L"Standard");
  EXPECT_EQ(NameOf(db.modelSpaceId()), L"*Model_Space");
  EXPECT_EQ(NameOf(db.paperSpaceId()), L"*Paper_Space");
  EXPECT_EQ(db.currentSpaceId(), db.modelSpaceId());
  AcDbRegAppTable *apps = nullptr;
  ASSERT_EQ(db.getRegAppTable(apps, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(apps->has(L"ACAD"));
  apps->close();
}

TEST(SymbolTables, AnEmptyDatabaseHasNoTablesUntilAFileIsRead) {
  AcDbDatabase db(false, false);
  AcDbLayerTable *layers = nullptr;
  EXPECT_EQ(db.getLayerTable(layers, AcDb::kForRead), Acad::eNullObjectId);
  EXPECT_EQ(layers, nullptr);
  EXPECT_TRUE(db.clayer().isNull());
}

TEST(SymbolTables, GetAtFindsByNameWithoutCaseAndAnswersKeyNotFound) {
  AcDbDatabase db;
  AcDbObjectId wall = AddLayer(db, L"Wall", 1);
  AcDbLayerTable *table = nullptr;
  ASSERT_EQ(db.getLayerTable(table, AcDb::kForRead), Acad::eOk);
  AcDbObjectId id;
  EXPECT_EQ(table->getAt(L"WALL", id), Acad::eOk);
  EXPECT_EQ(id, wall);
  EXPECT_EQ(table->getAt(L"DOOR", id), Acad::eKeyNotFound);
  EXPECT_TRUE(id.isNull());
  AcDbLayerTableRecord *rec = nullptr;
  EXPECT_EQ(table->getAt(L"wall", rec, AcDb::kForRead), Acad::eOk);
  ASSERT_NE(rec, nullptr);
  const ACHAR *name = nullptr;
  rec->getName(name);
  EXPECT_STREQ(name, L"Wall");
  ACHAR *copy = nullptr;
  rec->getName(copy);
  EXPECT_STREQ(copy, L"Wall");
  acutDelString(copy);
  EXPECT_EQ(copy, nullptr);
  rec->close();
  EXPECT_TRUE(table->has(wall));
  table->close();
}

TEST(SymbolTables, AddRefusesDuplicatesBadNamesWrongKindsAndReadOnlyTables) {
  AcDbDatabase db;
  AddLayer(db, L"WALL", 1);
  AcDbLayerTable *table = nullptr;
  ASSERT_EQ(db.getLayerTable(table, AcDb::kForRead), Acad::eOk);
  auto layer = std::make_unique<AcDbLayerTableRecord>();
  layer->setName(L"NEW");
  EXPECT_EQ(table->add(layer.get()), Acad::eNotOpenForWrite);
  ASSERT_EQ(table->upgradeOpen(), Acad::eOk);
  auto dup = std::make_unique<AcDbLayerTableRecord>();
  dup->setName(L"wall");
  EXPECT_EQ(table->add(dup.get()), Acad::eDuplicateRecordName);
  auto nameless = std::make_unique<AcDbLayerTableRecord>();
  EXPECT_EQ(table->add(nameless.get()), Acad::eInvalidSymbolTableName);
  auto style = std::make_unique<AcDbTextStyleTableRecord>();
  style->setName(L"STYLE");
  EXPECT_EQ(table->add(style.get()), Acad::eWrongObjectType);
  EXPECT_EQ(layer->setName(L"A<B"), Acad::eInvalidSymbolTableName);
  EXPECT_EQ(layer->setName(L""), Acad::eInvalidSymbolTableName);
  EXPECT_EQ(layer->setName(L"墙-外(1)"), Acad::eOk);
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, layer.get()), Acad::eOk);
  AcDbLayerTableRecord *added = layer.release();
  added->close();
  table->close();
  // Renaming onto a name the table has is refused too.
  ASSERT_EQ(acdbOpenObject(added, id, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(added->setName(L"Wall"), Acad::eDuplicateRecordName);
  EXPECT_EQ(added->setName(L"WALL2"), Acad::eOk);
  added->close();
}

TEST(SymbolTables, LayerFields) {
  AcDbDatabase db;
  AcDbObjectId id = AddLayer(db, L"WALL", 3);
  AcDbLayerTableRecord *layer = nullptr;
  ASSERT_EQ(acdbOpenObject(layer, id, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(layer->color().colorIndex(), 3);
  EXPECT_EQ(layer->linetypeObjectId(), db.continuousLinetype());
  EXPECT_EQ(layer->lineWeight(), AcDb::kLnWtByLwDefault);
  AcCmColor byLayer;
  EXPECT_EQ(layer->setColor(byLayer), Acad::eInvalidInput);
  EXPECT_EQ(layer->setLineWeight(AcDb::kLnWt035), Acad::eOk);
  EXPECT_EQ(layer->setLineWeight(AcDb::kLnWtByLayer), Acad::eInvalidInput);
  EXPECT_EQ(layer->setLinetypeObjectId(db.byLayerLinetype()), Acad::eOk);
  EXPECT_EQ(layer->setLinetypeObjectId(id), Acad::eWrongObjectType);
  EXPECT_EQ(layer->setIsOff(true), Acad::eOk);
  EXPECT_EQ(layer->setIsFrozen(true), Acad::eOk);
  EXPECT_EQ(layer->setIsLocked(true), Acad::eOk);
  layer->close();
  ASSERT_EQ(acdbOpenObject(layer, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(layer->lineWeight(), AcDb::kLnWt035);
  EXPECT_EQ(layer->linetypeObjectId(), db.byLayerLinetype());
  EXPECT_TRUE(layer->isOff());
  EXPECT_TRUE(layer->isFrozen());
  EXPECT_TRUE(layer->isLocked());
  layer->close();
}

TEST(SymbolTables, CurrentLayerAndTextStyle) {
  AcDbDatabase db;
  AcDbObjectId wall = AddLayer(db, L"WALL", 1);
  EXPECT_EQ(db.setClayer(wall), Acad::eOk);
  EXPECT_EQ(db.clayer(), wall);
  EXPECT_EQ(db.setClayer(db.textstyle()), Acad::eWrongObjectType);
  EXPECT_EQ(db.setTextstyle(wall), Acad::eWrongObjectType);
  AcDbDatabase other;
  EXPECT_EQ(db.setClayer(other.clayer()), Acad::eWrongObjectType);
  EXPECT_EQ(db.clayer(), wall);
}

TEST(SymbolTables, TextStyleFields) {
  AcDbDatabase db;
  AcDbTextStyleTable *table = nullptr;
  ASSERT_EQ(db.getTextStyleTable(table, AcDb::kForWrite), Acad::eOk);
  auto *style = new AcDbTextStyleTableRecord;
  EXPECT_EQ(style->setName(L"TOLV_TEXT"), Acad::eOk);
  EXPECT_EQ(style->setFileName(L"simplex.shx"), Acad::eOk);
  EXPECT_EQ(style->setBigFontFileName(L"gbcbig.shx"), Acad::eOk);
  EXPECT_EQ(style->setXScale(0.7), Acad::eOk);
  EXPECT_EQ(style->setTextSize(-1.0), Acad::eInvalidInput);
  AcDbObjectId id;
  ASSERT_EQ(table->add(id, style), Acad::eOk);
  style->close();
  table->close();
  AcDbTextStyleTableRecord *back = nullptr;
  ASSERT_EQ(acdbOpenObject(back, id, AcDb::kForRead), Acad::eOk);
  const ACHAR *text = nullptr;
  back->fileName(text);
  EXPECT_STREQ(text, L"simplex.shx");
  back->bigFontFileName(text);
  EXPECT_STREQ(text, L"gbcbig.shx");
  EXPECT_DOUBLE_EQ(back->xScale(), 0.7);
  back->close();
}

TEST(SymbolTables, DimensionStyleSettersAndTheArrowBlock) {
  AcDbDatabase db;
  AcDbDimStyleTable *table = nullptr;
  ASSERT_EQ(db.getDimStyleTable(table, AcDb::kForWrite), Acad::eOk);
  auto *ds = new AcDbDimStyleTableRecord;
  EXPECT_EQ(ds->setDimblk(L"_ARCHTICK"), Acad::eOk);
  EXPECT_EQ(ds->setName(L"DIM(mm-M)"), Acad::eOk);
  EXPECT_EQ(ds->setDimgap(1.0), Acad::eOk);
  EXPECT_EQ(ds->setDimtxt(3.5), Acad::eOk);
  EXPECT_EQ(ds->setDimtxsty(db.textstyle()), Acad::eOk);
  EXPECT_EQ(ds->setDimtxsty(db.clayer()), Acad::eWrongObjectType);
  EXPECT_EQ(ds->setDimexe(2.0), Acad::eOk);
  EXPECT_EQ(ds->setDimexo(3.0), Acad::eOk);
  EXPECT_EQ(ds->setDimasz(1.5), Acad::eOk);
  EXPECT_EQ(ds->setDimscale(1.0), Acad::eOk);
  EXPECT_EQ(ds->setDimdli(0.0), Acad::eOk);
  EXPECT_EQ(ds->setDimtofl(true), Acad::eOk);
  EXPECT_EQ(ds->setDimtmove(2), Acad::eOk);
  EXPECT_EQ(ds->setDimtdec(0), Acad::eOk);
  EXPECT_EQ(ds->setDimdec(2), Acad::eOk);
  EXPECT_EQ(ds->setDimaunit(0), Acad::eOk);
  EXPECT_EQ(ds->setDimadec(2), Acad::eOk);
  EXPECT_EQ(ds->setDimazin(2), Acad::eOk);
  EXPECT_EQ(ds->setDimtoh(false), Acad::eOk);
  EXPECT_EQ(ds->setDimtad(1), Acad::eOk);
  EXPECT_EQ(ds->setDimtix(true), Acad::eOk);
  EXPECT_EQ(ds->setDimtih(false), Acad::eOk);
  EXPECT_EQ(ds->setDimdle(0.5), Acad::eOk);
  EXPECT_EQ(ds->setDimlfac(0.001), Acad::eOk);
  EXPECT_EQ(ds->setDimpost(L"m"), Acad::eOk);
  AcCmColor color;
  color.setColorIndex(3);
  EXPECT_EQ(ds->setDimclrt(color), Acad::eOk);
  EXPECT_TRUE(ds->dimblk().isNull());  // no database yet
  AcDbObjectId id;
  ASSERT_EQ(table->add(id, ds), Acad::eOk);
  ds->close();
  table->close();

  AcDbDimStyleTableRecord *back = nullptr;
  ASSERT_EQ(acdbOpenObject(back, id, AcDb::kForRead), Acad::eOk);
  EXPECT_DOUBLE_EQ(back->dimgap(), 1.0);
  EXPECT_DOUBLE_EQ(back->dimtxt(), 3.5);
  EXPECT_EQ(back->dimtxsty(), db.textstyle());
  EXPECT_DOUBLE_EQ(back->dimexe(), 2.0);
  EXPECT_DOUBLE_EQ(back->dimexo(), 3.0);
  EXPECT_DOUBLE_EQ(back->dimasz(), 1.5);
  EXPECT_TRUE(back->dimtofl());
  EXPECT_EQ(back->dimtmove(), 2);
  EXPECT_EQ(back->dimdec(), 2);
  EXPECT_EQ(back->dimadec(), 2);
  EXPECT_EQ(back->dimazin(), 2);
  EXPECT_FALSE(back->dimtoh());
  EXPECT_EQ(back->dimtad(), 1);
  EXPECT_TRUE(back->dimtix());
  EXPECT_FALSE(back->dimtih());
  EXPECT_DOUBLE_EQ(back->dimdle(), 0.5);
  EXPECT_DOUBLE_EQ(back->dimlfac(), 0.001);
  EXPECT_STREQ(back->dimpost(), L"m");
  EXPECT_EQ(back->dimclrt().colorIndex(), 3);
  EXPECT_STREQ(back->dimblkName(), L"_ARCHTICK");
  AcDbObjectId arrow = back->dimblk();
  back->close();
  ASSERT_FALSE(arrow.isNull());
  EXPECT_EQ(NameOf(arrow), L"_ARCHTICK");
  AcDbBlockTableRecord *block = nullptr;
  ASSERT_EQ(acdbOpenObject(block, arrow, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(block->entityIds().size(), 1u);  // the tick
  block->close();
}

TEST(SymbolTables, BlocksHoldTheirEntitiesInOrder) {
  AcDbDatabase db;
  AcDbBlockTable *table = nullptr;
  ASSERT_EQ(db.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
  auto *block = new AcDbBlockTableRecord;
  block->setName(L"DOOR$M0921");
  block->setOrigin(AcGePoint3d(5, 6, 0));
  AcDbObjectId blockId;
  ASSERT_EQ(table->add(blockId, block), Acad::eOk);
  table->close();
  auto *line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(900, 0, 0));
  auto *circle = new AcDbCircle(AcGePoint3d(450, 0, 0), 450);
  AcDbObjectId lineId, circleId;
  ASSERT_EQ(block->appendAcDbEntity(lineId, line), Acad::eOk);
  ASSERT_EQ(block->appendAcDbEntity(circleId, circle), Acad::eOk);
  EXPECT_EQ(block->appendAcDbEntity(line), Acad::eAlreadyInDb);
  EXPECT_EQ(line->layerId(), db.clayer());  // the database's defaults
  EXPECT_EQ(line->colorIndex(), 256);
  EXPECT_EQ(line->linetypeId(), db.byLayerLinetype());
  ACHAR *layerName = line->layer();
  EXPECT_STREQ(layerName, L"0");
  acutDelString(layerName);
  line->close();
  circle->close();
  block->close();

  ASSERT_EQ(acdbOpenObject(block, blockId, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(block->origin().isEqualTo(AcGePoint3d(5, 6, 0)));
  AcDbBlockTableRecordIterator *it = nullptr;
  ASSERT_EQ(block->newIterator(it), Acad::eOk);
  std::vector<AcDbObjectId> seen;
  for (; !it->done(); it->step()) {
    AcDbObjectId id;
    it->getEntityId(id);
    seen.push_back(id);
  }
  delete it;
  block->close();
  EXPECT_EQ(seen, (std::vector<AcDbObjectId>{lineId, circleId}));

  // A block not in a database takes no entities.
  AcDbBlockTableRecord loose;
  AcDbLine stray;
  EXPECT_EQ(loose.appendAcDbEntity(&stray), Acad::eWrongDatabase);
}

TEST(SymbolTables, IteratorWalksRecordsAndSkipsErasedOnes) {
  AcDbDatabase db;
  AddLayer(db, L"A", 1);
  AcDbObjectId b = AddLayer(db, L"B", 2);
  AddLayer(db, L"C", 3);
  AcDbLayerTableRecord *rec = nullptr;
  ASSERT_EQ(acdbOpenObject(rec, b, AcDb::kForWrite), Acad::eOk);
  rec->erase();
  rec->close();
  AcDbLayerTable *table = nullptr;
  ASSERT_EQ(db.getLayerTable(table, AcDb::kForRead), Acad::eOk);
  AcDbSymbolTableIterator *it = nullptr;
  table->newIterator(it);
  std::vector<std::wstring> names;
  for (; !it->done(); it->step()) {
    AcDbLayerTableRecord *layer = nullptr;
    ASSERT_EQ(it->getRecord(layer, AcDb::kForRead), Acad::eOk);
    const ACHAR *name = nullptr;
    layer->getName(name);
    names.push_back(name);
    layer->close();
  }
  delete it;
  EXPECT_FALSE(table->has(L"B"));
  AcDbObjectId erased;
  EXPECT_EQ(table->getAt(L"B", erased, true), Acad::eOk);
  EXPECT_EQ(erased, b);
  table->close();
  EXPECT_EQ(names, (std::vector<std::wstring>{L"0", L"A", L"C"}));
}

TEST(SymbolTables, EntityLayerByNameUsesTheEntitysDatabaseOrTheWorkingOne) {
  AcDbDatabase db;
  AddLayer(db, L"WALL", 1);
  acdbHostApplicationServices()->setWorkingDatabase(&db);
  AcDbLine line;
  EXPECT_EQ(line.setLayer(L"WALL"), Acad::eOk);
  EXPECT_EQ(line.setLayer(L"NOPE"), Acad::eKeyNotFound);
  EXPECT_EQ(line.setLinetype(L"Continuous"), Acad::eOk);
  EXPECT_EQ(line.setColorIndex(300), Acad::eInvalidInput);
  EXPECT_EQ(line.setLineWeight(AcDb::kLnWt050), Acad::eOk);
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  EXPECT_NE(acdbHostApplicationServices()->workingDatabase(), &db);
}
