// Drawings saved as DXF and read back, the ".DWG" sibling rule, blocks made
// from other drawings, and files that are no drawing at all.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbXrecord.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

using acadtest::AddLayer;
using acadtest::AddLine;
using acadtest::NameOf;

namespace {

// A drawing with something of every kind the database models.
void FillDrawing(AcDbDatabase &db) {
  AcDbObjectId wall = AddLayer(db, L"墙-WALL", 1);
  AcDbLinetypeTable *ltypes = nullptr;
  ASSERT_EQ(db.getLinetypeTable(ltypes, AcDb::kForWrite), Acad::eOk);
  auto *dashed = new AcDbLinetypeTableRecord;
  dashed->setName(L"DASHED");
  dashed->setComments(L"Dashed __ __");
  dashed->setNumDashes(2);
  dashed->setDashLengthAt(0, 12.0);
  dashed->setDashLengthAt(1, -6.0);
  dashed->setPatternLength(18.0);
  AcDbObjectId dashedId;
  ASSERT_EQ(ltypes->add(dashedId, dashed), Acad::eOk);
  dashed->close();
  ltypes->close();
  AcDbLayerTableRecord *layer = nullptr;
  ASSERT_EQ(acdbOpenObject(layer, wall, AcDb::kForWrite), Acad::eOk);
  layer->setLinetypeObjectId(dashedId);
  layer->setLineWeight(AcDb::kLnWt050);
  layer->close();

  auto *style = new AcDbTextStyleTableRecord;
  style->setName(L"TOLV_TEXT");
  style->setFileName(L"simplex.shx");
  style->setBigFontFileName(L"hztxt.shx");
  style->setXScale(0.7);
  AcDbObjectId styleId = AddTextStyle(style, 0, &db);
  ASSERT_FALSE(styleId.isNull());
  AssureRegApp(L"_MRV", &db);
  resbuf *xdata = acutBuildList(1001, L"_MRV", 1040, 0.8, 1040, 0.7, 1070, 3, 1000, L"中文", 0);
  ASSERT_EQ(style->setXData(xdata), Acad::eOk);
  acutRelRb(xdata);
  style->close();

  auto *dim = new AcDbDimStyleTableRecord;
  dim->setDimblk(L"_ARCHTICK");
  dim->setName(L"DIM(100-M)");
  dim->setDimtxsty(styleId);
  dim->setDimlfac(100.0);
  dim->setDimdec(2);
  dim->setDimpost(L"m");
  dim->setDimtad(3);
  AcCmColor green;
  green.setColorIndex(3);
  dim->setDimclrt(green);
  ASSERT_FALSE(AddDimStyle(dim, 1, &db).isNull());

  AddLine(db, db.modelSpaceId(), AcGePoint3d(0, 0, 0), AcGePoint3d(3600, 0, 0), L"墙-WALL");
  AcDbBlockTableRecord *ms = nullptr;
  ASSERT_EQ(acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
  auto *circle = new AcDbCircle(AcGePoint3d(100, 200, 0), 50);
  circle->setColorIndex(5);
  ASSERT_EQ(ms->appendAcDbEntity(circle), Acad::eOk);
  circle->close();
  ms->close();
  ASSERT_TRUE(InitAecSysMaterial(&db));
}

std::string Text(const AcDbDatabase &db) {
  std::string text;
  EXPECT_EQ(db.dxfOutToText(text), Acad::eOk);
  return text;
}

}  // namespace

TEST(DxfFile, SavedDrawingReadsBackWithEverythingItHeld) {
  AcDbDatabase db;
  FillDrawing(db);
  tolvtest::ScratchDir dir("dxf_roundtrip");
  ASSERT_EQ(db.saveAs(dir.wide("drawing.dxf").c_str()), Acad::eOk);
  const ACHAR *saved = nullptr;
  db.getFilename(saved);
  EXPECT_EQ(std::wstring(saved), dir.wide("drawing.dxf"));

  AcDbDatabase back(false, false);
  ASSERT_EQ(back.readDwgFile(dir.wide("drawing.dxf").c_str()), Acad::eOk);
  AcDbObjectId wall = acadtest::AddLayer(back, L"SCRATCH", 2);  // the database takes new records
  EXPECT_FALSE(wall.isNull());
  AcDbLayerTable *layers = nullptr;
  ASSERT_EQ(back.getLayerTable(layers, AcDb::kForRead), Acad::eOk);
  AcDbLayerTableRecord *layer = nullptr;
  ASSERT_EQ(layers->getAt(L"墙-WALL", layer, AcDb::kForRead), Acad::eOk);
  layers->close();
  EXPECT_EQ(layer->color().colorIndex(), 1);
  EXPECT_EQ(layer->lineWeight(), AcDb::kLnWt050);
  EXPECT_EQ(NameOf(layer->linetypeObjectId()), L"DASHED");
  layer->close();

  AcDbObjectId styleId = GetTextStyleId(L"TOLV_TEXT", &back);
  AcDbTextStyleTableRecord *style = nullptr;
  ASSERT_EQ(acdbOpenObject(style, styleId, AcDb::kForRead), Acad::eOk);
  const ACHAR *font = nullptr;
  style->bigFontFileName(font);
  EXPECT_STREQ(font, L"hztxt.shx");
  EXPECT_DOUBLE_EQ(style->xScale(), 0.7);
  resbuf *xdata = style->xData(L"_MRV");
  style->close();
  ASSERT_NE(xdata, nullptr);
  EXPECT_DOUBLE_EQ(xdata->rbnext->resval.rreal, 0.8);
  EXPECT_EQ(xdata->rbnext->rbnext->rbnext->resval.rint, 3);
  EXPECT_STREQ(xdata->rbnext->rbnext->rbnext->rbnext->resval.rstring, L"中文");
  acutRelRb(xdata);

  AcDbDimStyleTableRecord *dim = nullptr;
  ASSERT_EQ(acdbOpenObject(dim, GetDimStyleId(L"DIM(100-M)", &back), AcDb::kForRead), Acad::eOk);
  EXPECT_DOUBLE_EQ(dim->dimlfac(), 100.0);
  EXPECT_EQ(dim->dimdec(), 2);
  EXPECT_EQ(dim->dimtad(), 3);
  EXPECT_STREQ(dim->dimpost(), L"m");
  EXPECT_EQ(dim->dimclrt().colorIndex(), 3);
  EXPECT_EQ(dim->dimtxsty(), styleId);
  EXPECT_EQ(NameOf(dim->dimblk()), L"_ARCHTICK");
  dim->close();

  AcDbBlockTableRecord *ms = nullptr;
  ASSERT_EQ(acdbOpenObject(ms, back.modelSpaceId(), AcDb::kForRead), Acad::eOk);
  std::vector<AcDbObjectId> ids = ms->entityIds();
  ms->close();
  ASSERT_EQ(ids.size(), 2u);
  AcDbLine *line = nullptr;
  ASSERT_EQ(acdbOpenObject(line, ids[0], AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(3600, 0, 0)));
  EXPECT_EQ(NameOf(line->layerId()), L"墙-WALL");
  line->close();
  AcDbCircle *circle = nullptr;
  ASSERT_EQ(acdbOpenObject(circle, ids[1], AcDb::kForRead), Acad::eOk);
  EXPECT_DOUBLE_EQ(circle->radius(), 50.0);
  EXPECT_EQ(circle->colorIndex(), 5);
  circle->close();

  AcDbDictionary *materials = GetAecMaterialDictionary(AcDb::kForRead, &back);
  ASSERT_NE(materials, nullptr);
  AcDbObject *obj = nullptr;
  ASSERT_EQ(materials->getAt(L"钢", obj, AcDb::kForRead), Acad::eOk);
  ASSERT_NE(KyDbMaterial::cast(obj), nullptr);
  EXPECT_STREQ(KyDbMaterial::cast(obj)->GetPatternName(), L"STEEL");
  obj->close();
  materials->close();
}

TEST(DxfFile, ASecondSaveOfAReadDrawingIsTheSameFile) {
  AcDbDatabase db;
  FillDrawing(db);
  std::string first = Text(db);
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(first), Acad::eOk);
  EXPECT_EQ(Text(back), first);  // handles and owners are kept
}

TEST(DxfFile, TheFileIsTextOfRelease2000InCodePage936WithHandles) {
  AcDbDatabase db;
  FillDrawing(db);
  // A character that code page 936 lacks.
  ASSERT_EQ(tolv::ToGbk(L"\u0627"), "?");
  acadtest::AddLayer(db, L"ARABIC-\u0627", 1);
  std::string text = Text(db);
  EXPECT_NE(text.find("$ACADVER\n  1\nAC1015\n"), std::string::npos);
  EXPECT_NE(text.find("$DWGCODEPAGE\n  3\nANSI_936\n"), std::string::npos);
  EXPECT_NE(text.find("$HANDSEED"), std::string::npos);
  EXPECT_NE(text.find("  2\n" + tolv::ToGbk(L"墙-WALL") + "\n"), std::string::npos);
  EXPECT_NE(text.find("  2\nARABIC-\\U+0627\n"), std::string::npos);
  EXPECT_EQ(text.find('\0'), std::string::npos);
  for (const char *section : {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}) {
    EXPECT_NE(text.find(std::string("  2\n") + section + "\n"), std::string::npos) << section;
  }
  EXPECT_NE(text.find("TOLVMATERIAL\n  2\nKyDbMaterial\n  3\nTolvDbObject"), std::string::npos);
  EXPECT_EQ(text.substr(text.size() - 8), "  0\nEOF\n");
}

TEST(DxfFile, ReadDwgFileTakesTheDxfSiblingOfADwgName) {
  AcDbDatabase db;
  AddLayer(db, L"SIBLING", 4);
  tolvtest::ScratchDir dir("dxf_sibling");
  ASSERT_EQ(db.saveAs(dir.wide("block.dxf").c_str()), Acad::eOk);
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.readDwgFile(dir.wide("BLOCK.DWG").c_str(), 64, false, nullptr), Acad::eOk);
  AcDbLayerTable *layers = nullptr;
  back.getLayerTable(layers, AcDb::kForRead);
  EXPECT_TRUE(layers->has(L"SIBLING"));
  layers->close();

  // A ".DWG" that is DXF text itself is read as it is.
  AcDbDatabase other;
  AddLayer(other, L"ITSELF", 5);
  ASSERT_EQ(other.dxfOut(dir.wide("self.DWG").c_str()), Acad::eOk);
  AcDbDatabase self(false, false);
  ASSERT_EQ(self.readDwgFile(dir.wide("self.DWG").c_str()), Acad::eOk);
  self.getLayerTable(layers, AcDb::kForRead);
  EXPECT_TRUE(layers->has(L"ITSELF"));
  layers->close();

  // A binary drawing is passed over for its sibling.
  tolvtest::WriteFileBytes(dir.path() / "bin.dwg", std::string("AC1015\0\0\x01\x02garbage", 17));
  ASSERT_EQ(db.dxfOut(dir.wide("bin.dxf").c_str()), Acad::eOk);
  AcDbDatabase fromBinary(false, false);
  EXPECT_EQ(fromBinary.readDwgFile(dir.wide("bin.dwg").c_str()), Acad::eOk);

  AcDbDatabase none(false, false);
  EXPECT_EQ(none.readDwgFile(dir.wide("missing.DWG").c_str()), Acad::eFileNotFound);
  EXPECT_EQ(none.readDwgFile(nullptr), Acad::eInvalidInput);
  AcDbDatabase full;
  EXPECT_EQ(full.readDwgFile(dir.wide("block.dxf").c_str()), Acad::eAlreadyInDb);
}

TEST(DxfFile, InsertMakesADrawingABlockOfTheGivenName) {
  AcDbDatabase source;
  AcDbObjectId frame = AddLayer(source, L"FRAME", 4);
  AddLayer(source, L"0-SHARED", 6);
  AddLine(source, source.modelSpaceId(), AcGePoint3d(0, 0, 0), AcGePoint3d(900, 0, 0), L"FRAME");
  AddLine(source, source.modelSpaceId(), AcGePoint3d(0, 0, 0), AcGePoint3d(0, 2100, 0), L"0-SHARED");
  (void)frame;

  AcDbDatabase target;
  AddLayer(target, L"0-SHARED", 1);  // the target's own stays as it is
  AcDbObjectId blockId;
  ASSERT_EQ(target.insert(blockId, L"DOOR$M0921", &source, false), Acad::eOk);
  EXPECT_EQ(NameOf(blockId), L"DOOR$M0921");
  AcDbBlockTable *blocks = nullptr;
  ASSERT_EQ(target.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
  AcDbObjectId found;
  EXPECT_EQ(blocks->getAt(L"DOOR$M0921", found, false), Acad::eOk);
  EXPECT_EQ(found, blockId);
  blocks->close();

  AcDbBlockTableRecord *block = nullptr;
  ASSERT_EQ(acdbOpenObject(block, blockId, AcDb::kForRead), Acad::eOk);
  std::vector<AcDbObjectId> ids = block->entityIds();
  block->close();
  ASSERT_EQ(ids.size(), 2u);
  AcDbLine *line = nullptr;
  ASSERT_EQ(acdbOpenObject(line, ids[0], AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(line->database(), &target);
  EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(900, 0, 0)));
  EXPECT_EQ(NameOf(line->layerId()), L"FRAME");
  EXPECT_EQ(line->layerId().database(), &target);
  line->close();
  AcDbLayerTableRecord *shared = nullptr;
  AcDbLayerTable *layers = nullptr;
  target.getLayerTable(layers, AcDb::kForRead);
  ASSERT_EQ(layers->getAt(L"0-SHARED", shared, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(shared->color().colorIndex(), 1);
  shared->close();
  layers->close();

  AcDbObjectId again;
  EXPECT_EQ(target.insert(again, L"DOOR$M0921", &source, false), Acad::eDuplicateRecordName);
  EXPECT_EQ(target.insert(again, L"", &source, false), Acad::eInvalidInput);
  EXPECT_EQ(target.insert(again, L"X", nullptr, false), Acad::eInvalidInput);
  EXPECT_EQ(target.insert(again, L"X", &target, false), Acad::eSelfReference);
  // The result saves and reads back.
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(Text(target)), Acad::eOk);
  ASSERT_EQ(back.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(blocks->has(L"DOOR$M0921"));
  blocks->close();
}

std::string Hex(AcDbObjectId id) {
  wchar_t buffer[32];
  id.handle().getIntoAsciiBuffer(buffer, 32);
  std::string out;
  for (const wchar_t *p = buffer; *p; ++p) out += static_cast<char>(*p);
  return out;
}

void InsertBefore(std::string &text, const std::string &marker, const std::string &what) {
  std::size_t at = text.find(marker);
  ASSERT_NE(at, std::string::npos) << marker;
  text.insert(at, what);
}

TEST(DxfFile, EntitiesAndObjectsNotModelledAreCarriedThrough) {
  AcDbDatabase db;
  std::string text = Text(db);
  std::string ellipse = "  0\nELLIPSE\n  5\nA000\n330\n" + Hex(db.modelSpaceId()) +
                        "\n100\nAcDbEntity\n  8\n0\n 62\n2\n100\nAcDbEllipse\n 10\n1.0\n 20\n2.0\n 30\n0.0\n"
                        " 11\n5.0\n 21\n0.0\n 31\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n 40\n0.5\n 41\n0.0\n"
                        " 42\n6.283185307179586\n1001\nACME\n1000\nkept\n";
  InsertBefore(text, "  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n", ellipse);
  std::string thing = "  0\nACME_THING\n  5\nA001\n330\n" + Hex(db.namedObjectsDictionaryId()) +
                      "\n100\nAcmeThing\n  1\nhello\n 40\n2.5\n340\n" + Hex(db.clayer()) + "\n";
  InsertBefore(text, "  0\nENDSEC\n  0\nEOF\n", thing);
  InsertBefore(text, "  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n",
               "  0\nCLASS\n  1\nACME_THING\n  2\nAcmeThing\n  3\nACME\n 90\n0\n280\n0\n281\n0\n");

  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(text), Acad::eOk);
  AcDbBlockTableRecord *ms = nullptr;
  ASSERT_EQ(acdbOpenObject(ms, back.modelSpaceId(), AcDb::kForRead), Acad::eOk);
  std::vector<AcDbObjectId> ids = ms->entityIds();
  ms->close();
  ASSERT_EQ(ids.size(), 1u);
  AcDbEntity *ent = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(ent, ids[0], AcDb::kForRead), Acad::eOk);
  auto *carried = tolv::CarriedEntity::cast(ent);
  ASSERT_NE(carried, nullptr);
  EXPECT_EQ(carried->dxfName(), L"ELLIPSE");
  EXPECT_EQ(ent->colorIndex(), 2);
  resbuf *xdata = ent->xData(L"ACME");
  ASSERT_NE(xdata, nullptr);  // the application was registered on reading
  acutRelRb(xdata);
  ent->close();

  std::string again = Text(back);
  EXPECT_NE(again.find("  0\nELLIPSE\n  5\nA000\n"), std::string::npos);
  EXPECT_NE(again.find("100\nAcDbEllipse\n 10\n1.0\n 20\n2.0\n"), std::string::npos);
  EXPECT_NE(again.find(" 42\n6.283185307179586\n1001\nACME\n1000\nkept\n"), std::string::npos);
  EXPECT_NE(again.find("  0\nACME_THING\n  5\nA001\n"), std::string::npos);
  EXPECT_NE(again.find("  1\nhello\n 40\n2.5\n340\n" + Hex(back.clayer()) + "\n"), std::string::npos);
  EXPECT_NE(again.find("  1\nACME_THING\n  2\nAcmeThing\n  3\nACME\n"), std::string::npos);
  AcDbRegAppTable *apps = nullptr;
  back.getRegAppTable(apps, AcDb::kForRead);
  EXPECT_TRUE(apps->has(L"ACME"));
  apps->close();
}

TEST(DxfFile, TruncatedDrawingsFailToRead) {
  AcDbDatabase db;
  FillDrawing(db);
  std::string text = Text(db);
  ASSERT_GT(text.size(), 1000u);
  for (std::size_t cut = 0; cut + 9 < text.size(); cut += text.size() / 97 + 1) {
    AcDbDatabase back(false, false);
    EXPECT_EQ(back.dxfInFromText(text.substr(0, cut)), Acad::eDxfReadAborted) << "cut at " << cut;
  }
  // Nothing of a failed read is kept: the same database reads a good file.
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(text.substr(0, text.size() / 2)), Acad::eDxfReadAborted);
  EXPECT_EQ(back.dxfInFromText(text), Acad::eOk);
}

TEST(DxfFile, GarbageFailsToRead) {
  const std::string cases[] = {
      "",
      "hello world\n",
      "  0\nSECTION\n",
      "  0\nSECTION\n  2\nHEADER\n  0\nENDSEC\n",
      "  x\nSECTION\n  0\nEOF\n",
      "999999\nSECTION\n  0\nEOF\n",
      "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\nnot-a-number\n  0\nENDSEC\n  0\nEOF\n",
      "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 62\n1.5x\n  0\nENDSEC\n  0\nEOF\n",
      "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nX\n  0\nENDSEC\n  0\nEOF\n",
      "  0\nSECTION\n  2\nBLOCKS\n  0\nLINE\n  0\nENDSEC\n  0\nEOF\n",
      "  0\nLINE\n  0\nEOF\n",
      "AutoCAD Binary DXF\r\n\x1a\0garbage",
      std::string("AC1015\0\0\0\0", 10),
      "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n",  // no EOF
  };
  for (const std::string &bad : cases) {
    AcDbDatabase back(false, false);
    EXPECT_EQ(back.dxfInFromText(bad), Acad::eDxfReadAborted) << testing::PrintToString(bad);
  }
  tolvtest::ScratchDir dir("dxf_garbage");
  tolvtest::WriteFileBytes(dir.path() / "junk.dwg", "this is no drawing\n");
  AcDbDatabase back(false, false);
  EXPECT_EQ(back.readDwgFile(dir.wide("junk.dwg").c_str()), Acad::eDxfReadAborted);
}

TEST(DxfFile, DamagedDrawingsNeverCrashTheReader) {
  AcDbDatabase db;
  FillDrawing(db);
  std::string text = Text(db);
  std::mt19937 random(20240611);
  int read = 0;
  for (int round = 0; round < 300; ++round) {
    std::string damaged = text;
    int changes = 1 + static_cast<int>(random() % 8);
    for (int i = 0; i < changes; ++i) {
      std::size_t at = random() % damaged.size();
      switch (random() % 4) {
        case 0: damaged[at] = static_cast<char>(random() % 256); break;
        case 1: damaged.erase(at, random() % 40); break;
        case 2: damaged.insert(at, std::string(random() % 20, static_cast<char>('0' + random() % 10))); break;
        default: damaged.insert(at, "\n"); break;
      }
      if (damaged.empty()) damaged = "x";
    }
    AcDbDatabase back(false, false);
    Acad::ErrorStatus es = back.dxfInFromText(damaged);
    ASSERT_TRUE(es == Acad::eOk || es == Acad::eDxfReadAborted);
    if (es == Acad::eOk) {
      ++read;
      std::string again;
      EXPECT_EQ(back.dxfOutToText(again), Acad::eOk);  // what was read can be written
    }
  }
  RecordProperty("damaged_files_read", read);
}

TEST(DxfFile, SavingRefusesWhileAnObjectIsOpenForWrite) {
  AcDbDatabase db;
  AcDbObjectId id = AddLayer(db, L"OPEN", 1);
  AcDbObject *obj = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(obj, id, AcDb::kForWrite), Acad::eOk);
  std::string text;
  EXPECT_EQ(db.dxfOutToText(text), Acad::eWasOpenForWrite);
  obj->close();
  EXPECT_EQ(db.dxfOutToText(text), Acad::eOk);
  tolvtest::ScratchDir dir("dxf_unwritable");
  EXPECT_EQ(db.saveAs(dir.wide("no/such/folder/x.dxf").c_str()), Acad::eFileAccessErr);
}

TEST(DxfFile, AbsurdHandlesAreReplacedByFreshOnes) {
  AcDbDatabase db;
  AcDbObjectId id = AddLayer(db, L"HUGE", 1);
  std::string text = Text(db);
  std::string handle = "  5\n" + Hex(id) + "\n";
  std::size_t at = text.find(handle);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, handle.size(), "  5\nFFFFFFFFFFFFFFFF\n");
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(text), Acad::eOk);
  AcDbLayerTable *layers = nullptr;
  back.getLayerTable(layers, AcDb::kForRead);
  AcDbObjectId layer;
  EXPECT_EQ(layers->getAt(L"HUGE", layer), Acad::eOk);
  layers->close();
  EXPECT_FALSE(layer.handle().isNull());
  EXPECT_LT(layer.handle().value(), 0x100000u);
  acadtest::AddLayer(back, L"AFTER", 2);  // new objects still get handles
  std::string again = Text(back);
  EXPECT_EQ(again.find("FFFFFFFFFFFFFFFF"), std::string::npos);
  EXPECT_EQ(again.find("  5\n0\n"), std::string::npos);
}

TEST(DxfFile, DeeplyNestedDictionariesWriteAndReadWithoutRecursion) {
  AcDbDatabase db;
  AcDbObjectId parent = db.namedObjectsDictionaryId();
  const int depth = 20000;
  for (int i = 0; i < depth; ++i) {
    AcDbDictionary *dict = nullptr;
    ASSERT_EQ(acdbOpenObject(dict, parent, AcDb::kForWrite), Acad::eOk);
    auto *child = new AcDbDictionary;
    AcDbObjectId childId;
    ASSERT_EQ(dict->setAt(i == 0 ? L"TOLV_DEEP" : L"D", child, childId), Acad::eOk);
    child->close();
    dict->close();
    parent = childId;
  }
  std::string text = Text(db);
  AcDbDatabase back(false, false);
  ASSERT_EQ(back.dxfInFromText(text), Acad::eOk);
  AcDbDictionary *nod = nullptr;
  ASSERT_EQ(back.getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
  AcDbObjectId id;
  EXPECT_EQ(nod->getAt(L"TOLV_DEEP", id), Acad::eOk);
  nod->close();
  int levels = 1;
  while (true) {
    AcDbDictionary *dict = nullptr;
    ASSERT_EQ(acdbOpenObject(dict, id, AcDb::kForRead), Acad::eOk);
    AcDbObjectId next;
    Acad::ErrorStatus es = dict->getAt(L"D", next);
    dict->close();
    if (es != Acad::eOk) break;
    id = next;
    ++levels;
  }
  EXPECT_EQ(levels, depth);
}
