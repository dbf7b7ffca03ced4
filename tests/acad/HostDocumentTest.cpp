// The host's working database and its one open document.
#include <gtest/gtest.h>

#include <filesystem>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/HostDocument.h"
#include "support/TestSupport.h"

namespace {

class HostDocument : public testing::Test {
 protected:
  void TearDown() override {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    tolv::CloseDocument();
  }
};

bool HasLayer(AcDbDatabase *db, const wchar_t *name) {
  AcDbLayerTable *layers = nullptr;
  if (db->getLayerTable(layers, AcDb::kForRead) != Acad::eOk) return false;
  bool has = layers->has(name);
  layers->close();
  return has;
}

}  // namespace

TEST_F(HostDocument, TheWorkingDatabaseIsNeverNull) {
  tolv::CloseDocument();
  AcDbDatabase *working = acdbHostApplicationServices()->workingDatabase();
  ASSERT_NE(working, nullptr);
  EXPECT_EQ(working, tolv::Document());  // an empty new drawing, as the host shows one
  EXPECT_TRUE(HasLayer(working, L"0"));
  EXPECT_TRUE(tolv::DocumentPath().empty());
}

TEST_F(HostDocument, ASetDatabaseIsWorkingUntilResetOrGone) {
  AcDbDatabase *document = acdbHostApplicationServices()->workingDatabase();
  {
    AcDbDatabase mine;
    acdbHostApplicationServices()->setWorkingDatabase(&mine);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), &mine);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), document);
    acdbHostApplicationServices()->setWorkingDatabase(&mine);
  }
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), document);
}

TEST_F(HostDocument, OpenMakesANewDrawingWhenTheFileIsMissingAndSavesIt) {
  tolvtest::ScratchDir dir("host_doc_new");
  ASSERT_EQ(tolv::OpenDocument(dir.wide("plan.dxf")), Acad::eOk);
  AcDbDatabase *doc = acdbHostApplicationServices()->workingDatabase();
  EXPECT_EQ(doc, tolv::Document());
  EXPECT_EQ(tolv::DocumentPath(), dir.wide("plan.dxf"));
  acadtest::AddLayer(*doc, L"SAVED", 2);
  ASSERT_EQ(tolv::SaveDocument(), Acad::eOk);
  EXPECT_TRUE(std::filesystem::exists(dir.path() / "plan.dxf"));

  ASSERT_EQ(tolv::OpenDocument(dir.wide("plan.dxf")), Acad::eOk);
  EXPECT_TRUE(HasLayer(acdbHostApplicationServices()->workingDatabase(), L"SAVED"));
}

TEST_F(HostDocument, ADwgNameIsSavedToAndReadFromItsDxfSibling) {
  tolvtest::ScratchDir dir("host_doc_dwg");
  ASSERT_EQ(tolv::OpenDocument(dir.wide("PLAN.DWG")), Acad::eOk);
  EXPECT_EQ(tolv::DocumentPath(), dir.wide("PLAN.dxf"));
  acadtest::AddLayer(*tolv::Document(), L"SIBLING", 3);
  ASSERT_EQ(tolv::SaveDocument(), Acad::eOk);
  EXPECT_TRUE(std::filesystem::exists(dir.path() / "PLAN.dxf"));
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "PLAN.DWG"));
  tolv::CloseDocument();
  ASSERT_EQ(tolv::OpenDocument(dir.wide("PLAN.DWG")), Acad::eOk);
  EXPECT_TRUE(HasLayer(tolv::Document(), L"SIBLING"));
}

TEST_F(HostDocument, SaveAsMovesTheDocumentToTheNewName) {
  tolvtest::ScratchDir dir("host_doc_saveas");
  tolv::NewDocument();
  EXPECT_EQ(tolv::SaveDocument(), Acad::eInvalidInput);  // no name yet
  ASSERT_EQ(tolv::SaveDocumentAs(dir.wide("first.dxf")), Acad::eOk);
  EXPECT_EQ(tolv::DocumentPath(), dir.wide("first.dxf"));
  ASSERT_EQ(tolv::SaveDocumentAs(dir.wide("second.dwg")), Acad::eOk);
  EXPECT_EQ(tolv::DocumentPath(), dir.wide("second.dxf"));
  EXPECT_TRUE(std::filesystem::exists(dir.path() / "first.dxf"));
  EXPECT_TRUE(std::filesystem::exists(dir.path() / "second.dxf"));
  EXPECT_EQ(tolv::SaveDocumentAs(L""), Acad::eInvalidInput);
}

TEST_F(HostDocument, AnUnreadableFileLeavesTheOpenDocument) {
  tolvtest::ScratchDir dir("host_doc_bad");
  ASSERT_EQ(tolv::OpenDocument(dir.wide("good.dxf")), Acad::eOk);
  AcDbDatabase *good = tolv::Document();
  tolvtest::WriteFileBytes(dir.path() / "bad.dxf", "  0\nSECTION\n  2\nENTITIES\n");
  EXPECT_EQ(tolv::OpenDocument(dir.wide("bad.dxf")), Acad::eDxfReadAborted);
  EXPECT_EQ(tolv::Document(), good);
  EXPECT_EQ(tolv::DocumentPath(), dir.wide("good.dxf"));
  // The bad file is not overwritten by a save of the document.
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "bad.dxf"), "  0\nSECTION\n  2\nENTITIES\n");
}

TEST_F(HostDocument, SavePathRule) {
  EXPECT_EQ(tolv::DrawingSavePath(L"C:\\A\\B.DWG"), L"C:\\A\\B.dxf");
  EXPECT_EQ(tolv::DrawingSavePath(L"b.dwg"), L"b.dxf");
  EXPECT_EQ(tolv::DrawingSavePath(L"b.dxf"), L"b.dxf");
  EXPECT_EQ(tolv::DrawingSavePath(L"noext"), L"noext");
}
