// Block definitions: names and paths both ways, preview images, and blocks
// loaded into drawings through the host's database.
#include <gtest/gtest.h>

#include "LibraryTestHelpers.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/utility/SupportFiles.h"

using libtest::WriteText;

namespace {

// Restores the main directory when the test ends.
struct MainDirectory {
  explicit MainDirectory(const std::wstring &folder) { tolv::SetMainDirectory(folder); }
  ~MainDirectory() { tolv::SetMainDirectory(L""); }
};

// A drawing with one line in model space, saved as DXF.
void SaveLineDrawing(const std::wstring &path, double length) {
  AcDbDatabase db;
  AcDbBlockTableRecord *ms = nullptr;
  ASSERT_EQ(acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
  auto *line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(length, 0, 0));
  ASSERT_EQ(ms->appendAcDbEntity(line), Acad::eOk);
  line->close();
  ms->close();
  ASSERT_EQ(db.saveAs(path.c_str()), Acad::eOk);
}

std::size_t EntityCount(AcDbObjectId blockId) {
  AcDbBlockTableRecord *block = nullptr;
  if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk) return 0;
  std::size_t n = block->entityIds().size();
  block->close();
  return n;
}

std::wstring BlockName(AcDbObjectId blockId) {
  AcDbBlockTableRecord *block = nullptr;
  if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk) return L"";
  const ACHAR *name = nullptr;
  block->getName(name);
  std::wstring out = name ? name : L"";
  block->close();
  return out;
}

}  // namespace

TEST(LibraryBlockDef, ConstructorStoresFieldsAndDefaultsTheRoot) {
  MainDirectory main(L"C:\\Tolv\\");
  KyDtLibBlockDef def(L"B", L"L", L"G", L"R\\");
  EXPECT_EQ(def.m_strRoot, CString(L"R\\"));
  EXPECT_EQ(def.m_strGroup, CString(L"G"));
  EXPECT_EQ(def.m_strLibrary, CString(L"L"));
  EXPECT_EQ(def.m_strBlock, CString(L"B"));
  EXPECT_EQ(KyDtLibBlockDef().m_strRoot, CString(L"C:\\Tolv\\DwgLib\\"));
  EXPECT_EQ(KyDtLibBlockDef(L"B", L"L", L"G", L"").m_strRoot, CString(L"C:\\Tolv\\DwgLib\\"));
}

TEST(LibraryBlockDef, ValidNeedsRootLibraryAndBlock) {
  EXPECT_TRUE(KyDtLibBlockDef(L"B", L"L", nullptr, L"R\\").IsValid());
  EXPECT_FALSE(KyDtLibBlockDef(L"B", nullptr, L"G", L"R\\").IsValid());
  EXPECT_FALSE(KyDtLibBlockDef(nullptr, L"L", L"G", L"R\\").IsValid());
  KyDtLibBlockDef noRoot(L"B", L"L");
  noRoot.m_strRoot.Empty();
  EXPECT_FALSE(noRoot.IsValid());
}

TEST(LibraryBlockDef, GettersJoinWithAndWithoutGroup) {
  KyDtLibBlockDef def(L"B", L"L", L"G", L"C:\\R\\");
  EXPECT_EQ(def.GetBlockName(), CString(L"G$L$B"));
  EXPECT_EQ(def.GetDmlFile(), CString(L"C:\\R\\G\\L.DML"));
  EXPECT_EQ(def.GetDmlsFile(), CString(L"C:\\R\\G\\LibGroup.DMLS"));
  EXPECT_EQ(def.GetDwgFile(), CString(L"C:\\R\\G\\L\\B.DWG"));
  KyDtLibBlockDef bare(L"B", L"L", nullptr, L"C:\\R\\");
  EXPECT_EQ(bare.GetBlockName(), CString(L"L$B"));
  EXPECT_EQ(bare.GetDmlFile(), CString(L"C:\\R\\L.DML"));
  EXPECT_EQ(bare.GetDmlsFile(), CString(L"C:\\R\\\\LibGroup.DMLS"));
  EXPECT_EQ(bare.GetDwgFile(), CString(L"C:\\R\\L\\B.DWG"));
}

TEST(LibraryBlockDef, BlockNameOfThreePartsIsUpperCasedAndJoinsBack) {
  KyDtLibBlockDef def;
  def.SetFromBlockName(L"g$l$b");
  EXPECT_EQ(def.m_strGroup, CString(L"G"));
  EXPECT_EQ(def.m_strLibrary, CString(L"L"));
  EXPECT_EQ(def.m_strBlock, CString(L"B"));
  EXPECT_EQ(def.GetBlockName(), CString(L"G$L$B"));
}

TEST(LibraryBlockDef, BlockNameOfFourPartsKeepsTheRestInTheGroup) {
  KyDtLibBlockDef def;
  def.SetFromBlockName(L"a$b$c$d");
  EXPECT_EQ(def.m_strBlock, CString(L"D"));
  EXPECT_EQ(def.m_strLibrary, CString(L"C"));
  EXPECT_EQ(def.m_strGroup, CString(L"A$B"));
}

TEST(LibraryBlockDef, BlockNameSetsOnlyWhatItFinds) {
  KyDtLibBlockDef def(L"old", L"oldlib", L"oldgroup", L"R\\");
  def.SetFromBlockName(L"door");
  EXPECT_EQ(def.m_strBlock, CString(L"DOOR"));
  EXPECT_EQ(def.m_strLibrary, CString(L"oldlib"));
  EXPECT_EQ(def.m_strGroup, CString(L"oldgroup"));
  def.SetFromBlockName(L"lib$door");
  EXPECT_EQ(def.m_strLibrary, CString(L"LIB"));
  EXPECT_EQ(def.m_strGroup, CString(L"oldgroup"));
}

TEST(LibraryBlockDef, BlockNamesOfOnlyDollarsGiveEmptyParts) {
  KyDtLibBlockDef def(L"x", L"y", L"z", L"R\\");
  def.SetFromBlockName(L"$");
  EXPECT_EQ(def.m_strBlock, CString());
  EXPECT_EQ(def.m_strLibrary, CString());
  EXPECT_EQ(def.m_strGroup, CString(L"z"));
  def.SetFromBlockName(L"$$$$");
  EXPECT_EQ(def.m_strGroup, CString(L"$$"));
  EXPECT_FALSE(def.IsValid());
  def.SetFromBlockName(L"");
  EXPECT_EQ(def.m_strBlock, CString());
  def.SetFromBlockName(nullptr);
  EXPECT_EQ(def.m_strBlock, CString());
}

TEST(LibraryBlockDef, DwgFileGivesRootWithBackslashAndPathBackInUpperCase) {
  KyDtLibBlockDef def;
  def.SetFromDwgFile(L"C:\\R\\G\\L\\B.dwg");
  EXPECT_EQ(def.m_strRoot, CString(L"C:\\R\\"));
  EXPECT_EQ(def.m_strGroup, CString(L"G"));
  EXPECT_EQ(def.m_strLibrary, CString(L"L"));
  EXPECT_EQ(def.m_strBlock, CString(L"B"));
  EXPECT_EQ(def.GetDwgFile(), CString(L"C:\\R\\G\\L\\B.DWG"));
  EXPECT_EQ(def.GetBlockName(), CString(L"G$L$B"));
}

TEST(LibraryBlockDef, DwgFileWithTooFewLevels) {
  KyDtLibBlockDef noSlash(L"x", L"y", L"z", L"R\\");
  noSlash.SetFromDwgFile(L"door.dwg");
  EXPECT_EQ(noSlash.m_strBlock, CString(L"DOOR"));
  EXPECT_EQ(noSlash.m_strLibrary, CString(L"y"));
  EXPECT_EQ(noSlash.m_strRoot, CString(L"R\\"));
  KyDtLibBlockDef two;
  two.SetFromDwgFile(L"lib\\door.DWG");
  EXPECT_EQ(two.m_strBlock, CString(L"DOOR"));
  EXPECT_EQ(two.m_strRoot, CString(L"LIB"));  // no closing "\": IsValid doesn't see it
  KyDtLibBlockDef three(nullptr, nullptr, nullptr, L"X\\");
  three.SetFromDwgFile(L"c:\\lib\\door.DWG");
  EXPECT_EQ(three.m_strLibrary, CString(L"LIB"));
  EXPECT_EQ(three.m_strRoot, CString(L"C:"));
  EXPECT_EQ(three.m_strGroup, CString());
  EXPECT_TRUE(three.IsValid());
}

TEST(LibraryBlockDef, DwgAnywhereCutsTheLastFourCharacters) {
  KyDtLibBlockDef def;
  def.SetFromDwgFile(L"C:\\R\\G\\L.DWG\\BLOCKXYZW");
  EXPECT_EQ(def.m_strBlock, CString(L"BLOCK"));
  EXPECT_EQ(def.m_strLibrary, CString(L"L.DWG"));
  KyDtLibBlockDef dxf;
  dxf.SetFromDwgFile(L"C:\\R\\G\\L\\B.dxf");
  EXPECT_EQ(dxf.m_strBlock, CString(L"B.DXF"));
}

// ---- Preview images ----

class LibraryImage : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = dir.wide() + L"\\G\\L\\";
    WriteText(dir.path() / "G/L/B.DWG", "drawing");
  }
  void Touch(const std::string &name) { WriteText(dir.path() / "G/L" / name, "x"); }
  tolvtest::ScratchDir dir{"lib_image"};
  std::wstring folder;
};

TEST_F(LibraryImage, DrawingItselfIsTheLastResort) {
  CString image;
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"B.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"B.dwg");
}

TEST_F(LibraryImage, OrderIsSlbJpgJpegBmp) {
  CString image;
  Touch("B.bmp");
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"B.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"B.bmp");
  Touch("B.jpeg");
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"B.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"B.jpeg");
  Touch("B.jpg");
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"B.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"B.jpg");
  Touch("B.slb");
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"B.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"B.slb");  // a slide wins over a jpg
}

TEST_F(LibraryImage, DxfNameGivesFalseEvenWithABmpBeside) {
  WriteText(dir.path() / "G/L/C.DXF", "drawing");
  WriteText(dir.path() / "G/L/C.bmp", "picture");
  CString image(L"preset");
  EXPECT_FALSE(KyDtGetBlkImage((folder + L"C.DXF").c_str(), image));
  EXPECT_EQ(image, CString(L"preset"));
}

TEST_F(LibraryImage, MissingEmptyOrShortNamesGiveFalse) {
  CString image;
  EXPECT_FALSE(KyDtGetBlkImage((folder + L"NONE.DWG").c_str(), image));
  EXPECT_FALSE(KyDtGetBlkImage(L"", image));
  EXPECT_FALSE(KyDtGetBlkImage(nullptr, image));
  EXPECT_FALSE(KyDtGetBlkImage(L"dwg", image));
  EXPECT_FALSE(KyDtGetBlkImage(folder.c_str(), image));
}

TEST_F(LibraryImage, DrawingStandingAsItsDxfSiblingIsFound) {
  WriteText(dir.path() / "G/L/S.dxf", "drawing");
  CString image;
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"S.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"S.dwg");
  WriteText(dir.path() / "G/L/S.jpg", "picture");
  ASSERT_TRUE(KyDtGetBlkImage((folder + L"S.DWG").c_str(), image));
  EXPECT_EQ(image.str(), folder + L"S.jpg");
}

TEST_F(LibraryImage, SystemBlockImageGoesThroughTheMainDirectory) {
  MainDirectory main(dir.wide() + L"\\");
  WriteText(dir.path() / "DwgLib/G/L/B.dxf", "drawing");
  WriteText(dir.path() / "DwgLib/G/L/B.bmp", "picture");
  CString image;
  ASSERT_TRUE(KyDtGetSysBlkImage(L"g$l$b", image));
  EXPECT_EQ(image, GetMainDirectory() + L"DwgLib\\G\\L\\B.bmp");
  EXPECT_FALSE(KyDtGetSysBlkImage(L"g$l$none", image));
  EXPECT_FALSE(KyDtGetSysBlkImage(L"$$$", image));
}

// ---- Blocks in drawings ----

TEST(LibraryLoadBlock, DrawingBecomesABlockNamedFromItsPath) {
  tolvtest::ScratchDir dir("lib_load");
  std::filesystem::create_directories(dir.path() / "G" / "L");
  SaveLineDrawing(dir.wide("G/L/B.dxf"), 500.0);
  AcDbDatabase db;
  const std::wstring dwg = dir.wide() + L"\\G\\L\\B.DWG";
  AcDbObjectId id = KyDtLoadBlock(dwg.c_str(), &db);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(BlockName(id), L"G$L$B");
  EXPECT_EQ(EntityCount(id), 1u);
}

TEST(LibraryLoadBlock, SecondLoadDoesNotReadTheFile) {
  tolvtest::ScratchDir dir("lib_load_twice");
  std::filesystem::create_directories(dir.path() / "G" / "L");
  SaveLineDrawing(dir.wide("G/L/B.dxf"), 500.0);
  AcDbDatabase db;
  const std::wstring dwg = dir.wide() + L"\\G\\L\\B.DWG";
  AcDbObjectId first = KyDtLoadBlock(dwg.c_str(), &db);
  ASSERT_FALSE(first.isNull());
  // The file is gone, and then garbage: the block stands as it was.
  std::filesystem::remove(dir.path() / "G/L/B.dxf");
  EXPECT_EQ(KyDtLoadBlock(dwg.c_str(), &db), first);
  WriteText(dir.path() / "G/L/B.dxf", "garbage");
  EXPECT_EQ(KyDtLoadBlock(dwg.c_str(), &db), first);
  EXPECT_EQ(EntityCount(first), 1u);
}

TEST(LibraryLoadBlock, ExistingBlockOfTheNameIsNeverReplaced) {
  tolvtest::ScratchDir dir("lib_load_existing");
  std::filesystem::create_directories(dir.path() / "G" / "L");
  SaveLineDrawing(dir.wide("G/L/B.dxf"), 500.0);
  AcDbDatabase db;
  AcDbBlockTable *table = nullptr;
  ASSERT_EQ(db.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
  auto *record = new AcDbBlockTableRecord;
  record->setName(L"G$L$B");
  AcDbObjectId mine;
  ASSERT_EQ(table->add(mine, record), Acad::eOk);
  record->close();
  table->close();
  EXPECT_EQ(KyDtLoadBlock((dir.wide() + L"\\G\\L\\B.DWG").c_str(), &db), mine);
  EXPECT_EQ(EntityCount(mine), 0u);
}

TEST(LibraryLoadBlock, MissingOrGarbageDrawingGivesNullAndNoBlock) {
  tolvtest::ScratchDir dir("lib_load_bad");
  WriteText(dir.path() / "G/L/BAD.dxf", std::string(5000, '\xff'));
  WriteText(dir.path() / "G/L/CUT.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\n");
  AcDbDatabase db;
  EXPECT_TRUE(KyDtLoadBlock((dir.wide() + L"\\G\\L\\NONE.DWG").c_str(), &db).isNull());
  EXPECT_TRUE(KyDtLoadBlock((dir.wide() + L"\\G\\L\\BAD.DWG").c_str(), &db).isNull());
  EXPECT_TRUE(KyDtLoadBlock((dir.wide() + L"\\G\\L\\CUT.DWG").c_str(), &db).isNull());
  EXPECT_TRUE(KyDtLoadBlock(L"", &db).isNull());
  EXPECT_TRUE(KyDtLoadBlock(L"\\", &db).isNull());
  AcDbBlockTable *table = nullptr;
  ASSERT_EQ(db.getBlockTable(table, AcDb::kForRead), Acad::eOk);
  AcDbObjectId id;
  EXPECT_NE(table->getAt(L"G$L$NONE", id), Acad::eOk);
  EXPECT_NE(table->getAt(L"G$L$BAD", id), Acad::eOk);
  table->close();
}

TEST(LibraryLoadBlock, NullDatabaseMeansTheWorkingOne) {
  tolvtest::ScratchDir dir("lib_load_working");
  std::filesystem::create_directories(dir.path() / "G" / "L");
  SaveLineDrawing(dir.wide("G/L/B.dxf"), 500.0);
  AcDbDatabase db;
  acdbHostApplicationServices()->setWorkingDatabase(&db);
  AcDbObjectId id = KyDtLoadBlock((dir.wide() + L"\\G\\L\\B.DWG").c_str(), nullptr);
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(id.database(), &db);
}

TEST(LibraryInitBlock, BlockNameFindsTheSystemLibrary) {
  tolvtest::ScratchDir dir("lib_init");
  MainDirectory main(dir.wide() + L"\\");
  std::filesystem::create_directories(dir.path() / "DwgLib" / "G" / "L");
  SaveLineDrawing(dir.wide("DwgLib/G/L/B.dxf"), 500.0);
  std::filesystem::create_directories(dir.path() / "DwgLib" / "LIB");
  SaveLineDrawing(dir.wide("DwgLib/LIB/X.dxf"), 100.0);
  AcDbDatabase db;
  AcDbObjectId id = KyDtInitBlock(L"g$l$b", &db);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(BlockName(id), L"G$L$B");
  EXPECT_EQ(KyDtInitBlock(L"G$L$B", &db), id);
  AcDbObjectId bare = KyDtInitBlock(L"lib$x", &db);
  ASSERT_FALSE(bare.isNull());
  // The drawing is found, but its name comes back from the path, where the
  // folder above the library stands in the group's place.
  EXPECT_EQ(BlockName(bare), L"DWGLIB$LIB$X");
  EXPECT_TRUE(KyDtInitBlock(L"$", &db).isNull());
  EXPECT_TRUE(KyDtInitBlock(L"$$$$", &db).isNull());
  EXPECT_TRUE(KyDtInitBlock(L"g$l$none", &db).isNull());
}
