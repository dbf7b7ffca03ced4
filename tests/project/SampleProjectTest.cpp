// The bundled sample project and template: read, saved, read again and the
// same; "KyPrj" bringing the template up to date.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "module/ModuleCommands.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/TextCodec.h"
#include "project/ProjectTestUtil.h"

namespace fs = std::filesystem;
using prjtest::SystemPath;

namespace {

fs::path Sample() { return fs::path(TOLV_SOURCE_DIR) / "share" / "samples" / "riverside"; }

// The sample's files copied into a scratch folder.
void CopySample(const tolvtest::ScratchDir &dir) {
  fs::copy(Sample(), dir.path(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
}

}  // namespace

TEST(SampleProject, ReadSavedAndReadAgainIsTheSame) {
  tolvtest::ScratchDir dir("sample_prj");
  CopySample(dir);
  KyDtProject first;
  ASSERT_TRUE(first.ReadFromXML(SystemPath(dir, "Riverside.xml").c_str()));
  EXPECT_TRUE(first.IsConnectFloors(false));
  KyDList<CString> floorFiles, setFiles;
  ASSERT_TRUE(first.GetFloorFiles(floorFiles));
  ASSERT_TRUE(first.GetDwgSetFiles(setFiles));
  EXPECT_EQ(floorFiles.GetLength(), 5) << "the standard floor drawing comes once";
  EXPECT_EQ(setFiles.GetLength(), 5);
  // Every drawing is there, as the DXF file the host stand-in reads.
  for (KyDList<CString> *list : {&floorFiles, &setFiles}) {
    for (const CString *p = list->GetFirst(); p; p = list->GetNext(p)) {
      fs::path dxf = tolv::MapPath(p->view());
      dxf.replace_extension(".dxf");
      EXPECT_TRUE(fs::exists(dxf)) << dxf;
    }
  }
  ASSERT_NE(first.FindDict(L"PROJECT_SETTINGS"), nullptr);
  ASSERT_TRUE(first.SaveToXML(SystemPath(dir, "Riverside.xml").c_str()));
  KyDtProject second;
  ASSERT_TRUE(second.ReadFromXML(SystemPath(dir, "Riverside.xml").c_str()));
  EXPECT_TRUE(second.IsSameWith(&first));
  EXPECT_TRUE(first.IsSameWith(&second));
  // The settings dictionary compares equal by its own rule too.
  EXPECT_EQ(second.FindDict(L"PROJECT_SETTINGS")->CompareWith(*first.FindDict(L"PROJECT_SETTINGS")), 0);
  // Saving an unchanged project again gives the same bytes.
  std::string once = tolvtest::ReadFileBytes(dir.path() / "Riverside.xml");
  ASSERT_TRUE(second.SaveToXML(SystemPath(dir, "Riverside.xml").c_str()));
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "Riverside.xml"), once);
}

TEST(SampleProjectDb, ReadSavedAndReadAgainIsTheSame) {
  tolvtest::ScratchDir dir("sample_db");
  CopySample(dir);
  KyDtProjectDb first;
  ASSERT_TRUE(first.ReadFromXML(SystemPath(dir, "Riverside.orpx").c_str()));
  ASSERT_TRUE(first.Save());
  KyDtProjectDb second;
  ASSERT_TRUE(second.ReadFromXML(SystemPath(dir, "Riverside.orpx").c_str()));
  EXPECT_EQ(second.CompareWith(first), 0);
  ASSERT_TRUE(second.Save());
  KyDtProjectDb third;
  ASSERT_TRUE(third.ReadFromXML(SystemPath(dir, "Riverside.orpx").c_str()));
  EXPECT_EQ(third.CompareWith(second), 0);
}

TEST(SampleProjectDb, PartsReferToEachOther) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.ReadFromXML(tolv::ToSystemPath((Sample() / "Riverside.orpx").string()).c_str()));
  KyPDList<KyDtProjectRegion> regions;
  db.Models().GetAllRegion(regions);
  ASSERT_EQ(regions.GetLength(), 2);
  std::unique_ptr<KyDtProjectRegion> main(db.Models().MainRegion());
  ASSERT_TRUE(main);
  KyPDList<KyDtPrjFloor> floors;
  main->GetAllFloor(floors);
  EXPECT_EQ(floors.GetLength(), 5);
  std::unique_ptr<KyDtPrjFloor> ground(main->GetFloor(L"1F"));
  EXPECT_EQ(ground->GetHeight(), 4500.0);
  KyPDList<KyDtPrjFloor> subs;
  ground->GetAllSubFloor(subs);
  ASSERT_EQ(subs.GetLength(), 1);
  KyDtDictItem *view = ground->FloorModel().FloorView()->GetItemRef();
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->m_strName.Compare(L"PLAN-1F"), 0);
  std::unique_ptr<KyDtProjectView> plan(db.Views().GetView(L"PLAN-1F"));
  KyDtDictItem *sheet = plan->Drawing()->GetItemRef();
  ASSERT_NE(sheet, nullptr);
  std::unique_ptr<KyDtProjectDrawing> drawing(db.Drawings().GetDrawing(sheet->m_strName));
  ASSERT_TRUE(drawing);
  ASSERT_GE(drawing->GetSubViewRefNum(), 1);
  EXPECT_EQ(drawing->GetViewRef(0)->GetItemRef(), plan->Dict());
  KyPDList<KyDtProjectView> views;
  db.Views().GetAllView(views);
  EXPECT_EQ(views.GetLength(), 11);
}

TEST(ProjectTemplateCommand, KyPrjBringsTheTemplateUpToDate) {
  tolvtest::ScratchDir dir("kyprj");
  fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support" / "template.orpx", dir.path() / "template.orpx");
  {
    KyDtDictionary before;
    ASSERT_TRUE(before.ReadFromXML(SystemPath(dir, "template.orpx").c_str()));
    EXPECT_EQ(before.FindDict(L"SETTINGS"), nullptr) << "the bundled template lacks parts";
  }
  tolv::SetMainDirectory(tolv::ToSystemPath(dir.str()) + L"\\");
  ASSERT_STREQ(g_moduleCommands[0].name, L"KyPrj");
  g_moduleCommands[0].function();
  tolv::SetMainDirectory(L"");
  KyDtDictionary after;
  ASSERT_TRUE(after.ReadFromXML(SystemPath(dir, "template.orpx").c_str()));
  for (const wchar_t *part : {L"MODELS", L"VIEWS", L"DRAWINGS", L"FILES", L"SETTINGS", L"VIEWS\\GROUP",
                              L"DRAWINGS\\GROUP", L"FILES\\GROUP", L"MODELS\\0\\FLOORS"}) {
    EXPECT_NE(after.FindDict(part), nullptr) << tolv::ToUtf8(part);
  }
  // What the template had is kept.
  EXPECT_NE(after.FindItem(L"MODELS\\CS_FILE"), nullptr);
  EXPECT_TRUE(after.FindDict(L"MODELS\\0")->IsClassOf(L"Region"));
  // A second run changes nothing more.
  std::string once = tolvtest::ReadFileBytes(dir.path() / "template.orpx");
  tolv::SetMainDirectory(tolv::ToSystemPath(dir.str()) + L"\\");
  g_moduleCommands[0].function();
  tolv::SetMainDirectory(L"");
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "template.orpx"), once);
}

TEST(ProjectTemplateCommand, WithoutATemplateNothingIsWritten) {
  tolvtest::ScratchDir dir("kyprj_none");
  tolv::SetMainDirectory(tolv::ToSystemPath(dir.str()) + L"\\");
  g_moduleCommands[0].function();
  tolv::SetMainDirectory(L"");
  EXPECT_TRUE(fs::is_empty(dir.path()));
}
