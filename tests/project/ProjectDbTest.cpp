// The project database: binding, reading and saving, the family of named
// children for every owner, references, base points, handles and heights.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/acad/AcutPrintf.h"
#include "platform/utility/SupportFiles.h"
#include "project/ProjectTestUtil.h"

using prjtest::SystemPath;

namespace {

const char *kEmptyDb = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary/>\n";

// A bound database on an empty file in `dir`.
void OpenEmpty(KyDtProjectDb &db, const tolvtest::ScratchDir &dir, const std::string &name = "p.orpx") {
  tolvtest::WriteFileBytes(dir.path() / name, kEmptyDb);
  ASSERT_TRUE(db.ReadFromXML(SystemPath(dir, name).c_str()));
}

template <class T>
std::wstring NameOf(T *proxy) {
  return proxy ? proxy->Dict()->m_strName.str() : L"<null>";
}

}  // namespace

TEST(ProjectDbBind, BindAddsTheFivePartsInOrder) {
  KyDtProjectDb db;
  EXPECT_EQ(db.Models().Dict(), nullptr);
  ASSERT_TRUE(db.BindDict());
  ASSERT_EQ(db.GetLength(), 5);
  const wchar_t *keys[] = {L"MODELS", L"VIEWS", L"DRAWINGS", L"FILES", L"SETTINGS"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(db.GetAt(i)->m_strName.Compare(keys[i]), 0);
  EXPECT_EQ(db.Models().Dict(), db.FindDict(L"MODELS"));
  EXPECT_EQ(db.Views()->m_strName.Compare(L"VIEWS"), 0);
  EXPECT_EQ(db.Settings().Dict(), db.FindDict(L"SETTINGS"));
  // The owners of groups bind "GROUP" too.
  EXPECT_NE(db.FindDict(L"VIEWS\\GROUP"), nullptr);
  EXPECT_NE(db.FindDict(L"DRAWINGS\\GROUP"), nullptr);
  EXPECT_NE(db.FindDict(L"FILES\\GROUP"), nullptr);
  EXPECT_EQ(db.Views().GroupDef().Dict(), db.FindDict(L"VIEWS\\GROUP"));
  // Binding again finds what is there.
  ASSERT_TRUE(db.BindDict());
  EXPECT_EQ(db.GetLength(), 5);
}

TEST(ProjectDbBind, FailsWhenAValueHoldsAPartsName) {
  KyDtProjectDb db;
  db.SetValue(L"VIEWS", 1L);
  EXPECT_FALSE(db.BindDict());
  EXPECT_NE(db.Models().Dict(), nullptr);
  EXPECT_EQ(db.Views().Dict(), nullptr);
}

TEST(ProjectDbFile, ReadingAFileWithoutSettingsAddsItAndTheSaveWritesIt) {
  tolvtest::ScratchDir dir("prjdb_settings");
  tolvtest::WriteFileBytes(dir.path() / "p.orpx",
                           "<?xml version=\"1.0\"?><TolvDictionary><Directory name=\"MODELS\"/></TolvDictionary>");
  KyDtProjectDb db;
  std::wstring path = SystemPath(dir, "p.orpx");
  ASSERT_TRUE(db.ReadFromXML(path.c_str()));
  EXPECT_NE(db.FindDict(L"SETTINGS"), nullptr);
  EXPECT_EQ(db.GetProjectFile().str(), path);
  ASSERT_TRUE(db.Save());
  std::string text = tolvtest::ReadFileBytes(dir.path() / "p.orpx");
  EXPECT_NE(text.find("name=\"SETTINGS\""), std::string::npos) << text;
  EXPECT_NE(text.find("name=\"DRAWINGS\""), std::string::npos);
}

TEST(ProjectDbFile, FailedReadKeepsThePath) {
  tolvtest::ScratchDir dir("prjdb_badread");
  KyDtProjectDb db;
  OpenEmpty(db, dir);
  CString before = db.GetProjectFile();
  EXPECT_FALSE(db.ReadFromXML(SystemPath(dir, "missing.orpx").c_str()));
  tolvtest::WriteFileBytes(dir.path() / "other.xml", "<TolvProject/>");
  EXPECT_FALSE(db.ReadFromXML(SystemPath(dir, "other.xml").c_str()));
  tolvtest::WriteFileBytes(dir.path() / "broken.xml", "<TolvDictionary><Directory>");
  EXPECT_FALSE(db.ReadFromXML(SystemPath(dir, "broken.xml").c_str()));
  EXPECT_EQ(db.GetProjectFile().Compare(before), 0);
}

TEST(ProjectDbFile, SaveToXmlStoresThePathAndPathOperationsUseIt) {
  tolvtest::ScratchDir dir("prjdb_saveas");
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  CString name = L"keep";
  EXPECT_FALSE(db.GetProjectName(name));
  EXPECT_EQ(name.Compare(L"keep"), 0);
  std::wstring path = SystemPath(dir, "Tower.orpx");
  ASSERT_TRUE(db.SaveToXML(path.c_str()));
  EXPECT_EQ(db.GetProjectFile().str(), path);
  ASSERT_TRUE(db.GetProjectName(name));
  EXPECT_EQ(name.Compare(L"Tower.orpx"), 0);
  CString folder;
  ASSERT_TRUE(db.GetProjectDirectory(folder));
  EXPECT_EQ(db.GetDwgFullName(L"A\\1F").Compare(folder + L"A\\1F.dwg"), 0);
  EXPECT_EQ(db.GetDwgRelativeName(folder + L"A\\1F.dwg").Compare(L"A\\1F"), 0);
  EXPECT_EQ(db.GetDwgFullName(L"E:\\X\\1F").Compare(L"E:\\X\\1F.dwg"), 0);
}

TEST(ProjectDbFile, ResetForgetsThePathAndTheTree) {
  tolvtest::ScratchDir dir("prjdb_reset");
  KyDtProjectDb db;
  OpenEmpty(db, dir);
  db.Reset();
  EXPECT_TRUE(db.GetProjectFile().IsEmpty());
  EXPECT_EQ(db.GetLength(), 0);
  ASSERT_TRUE(db.BindDict());
  EXPECT_EQ(db.GetLength(), 5);
}

TEST(ProjectDbInitialize, WithoutATemplateGivesFalseAndLeavesThePathEmpty) {
  tolvtest::ScratchDir dir("prjdb_notemplate");
  tolv::SetMainDirectory(tolv::ToSystemPath(dir.str()) + L"\\");
  KyDtProjectDb db;
  EXPECT_FALSE(db.Initialize());
  EXPECT_TRUE(db.GetProjectFile().IsEmpty());
  tolv::SetMainDirectory(L"");
}

TEST(ProjectDbInitialize, ReadsTheTemplateAndSaveWritesItBack) {
  tolvtest::ScratchDir dir("prjdb_template");
  std::filesystem::create_directories(dir.path() / "Support");
  tolvtest::WriteFileBytes(dir.path() / "Support" / "template.orpx", kEmptyDb);
  tolv::SetMainDirectory(tolv::ToSystemPath(dir.str()) + L"\\");
  KyDtProjectDb db;
  ASSERT_TRUE(db.Initialize());
  EXPECT_NE(db.GetProjectFile().Find(L"template.orpx"), -1);
  ASSERT_TRUE(db.Save());
  tolv::SetMainDirectory(L"");
  KyDtProjectDb back;
  ASSERT_TRUE(back.ReadFromXML(SystemPath(dir, "Support/template.orpx").c_str()));
  EXPECT_NE(back.FindDict(L"FILES\\GROUP"), nullptr);
}

TEST(ProjectDbModels, RegionsGetAddDelGetAllAndTheMainRegion) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  KyDtProjectModels &models = db.Models();
  EXPECT_EQ(models.GetRegion(L"0"), nullptr);
  EXPECT_EQ(models.MainRegion(), nullptr);
  std::unique_ptr<KyDtProjectRegion> a(models.AddRegion(L"0"));
  std::unique_ptr<KyDtProjectRegion> b(models.AddRegion(L"0"));
  ASSERT_TRUE(a && b);
  EXPECT_EQ(a->Dict(), b->Dict()) << "two proxies on one dictionary";
  EXPECT_TRUE(a->Dict()->IsClassOf(L"Region"));
  std::unique_ptr<KyDtProjectRegion> main(models.MainRegion());
  ASSERT_TRUE(main);
  EXPECT_EQ(main->Dict(), a->Dict());
  std::unique_ptr<KyDtProjectRegion> east(models.AddRegion(L"EAST"));
  models.CSFile();
  models->FindOrAddDict(L"OTHER");
  KyPDList<KyDtProjectRegion> all;
  models.GetAllRegion(all);
  ASSERT_EQ(all.GetLength(), 2);
  EXPECT_EQ(NameOf(all.GetAt(0)), L"0");
  EXPECT_EQ(NameOf(all.GetAt(1)), L"EAST");
  models.DelRegion(L"EAST");
  EXPECT_EQ(models.GetRegion(L"EAST"), nullptr);
  KyPDList<KyDtProjectRegion> rest;
  models.GetAllRegion(rest);
  EXPECT_EQ(rest.GetLength(), 1);
}

TEST(ProjectDbModels, AddOfAnExistingChildSetsItsClassAgain) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  KyDtDictionary *plain = db.Models()->FindOrAddDict(L"R");
  KyPDList<KyDtProjectRegion> none;
  db.Models().GetAllRegion(none);
  EXPECT_EQ(none.GetLength(), 0) << "a dictionary of no class isn't a region";
  std::unique_ptr<KyDtProjectRegion> r(db.Models().AddRegion(L"R"));
  EXPECT_EQ(r->Dict(), plain);
  EXPECT_TRUE(plain->IsClassOf(L"Region"));
  // A value standing at the name can't be added.
  db.Models()->SetValue(L"V", 1L);
  EXPECT_EQ(db.Models().AddRegion(L"V"), nullptr);
  EXPECT_EQ(db.Models().GetRegion(L"V"), nullptr);
}

TEST(ProjectDbModels, CsFileIsMadeOnAskingAndNullOverAnotherKind) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  EXPECT_EQ(db.Models()->FindItem(L"CS_FILE"), nullptr);
  KyDtDictReferenceItem *ref = db.Models().CSFile();
  ASSERT_NE(ref, nullptr);
  EXPECT_EQ(db.Models().CSFile(), ref);
  EXPECT_EQ(ref->GetType(), KyDtDictItem::DT_REFERENCE);
  KyDtProjectDb other;
  ASSERT_TRUE(other.BindDict());
  other.Models()->SetValue(L"CS_FILE", L"text");
  EXPECT_EQ(other.Models().CSFile(), nullptr);
}

TEST(ProjectDbFloors, GetOfUnknownIsNullAndAddCreatesFloorsOnTheWay) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  EXPECT_EQ(region->GetFloor(L"1F"), nullptr);
  EXPECT_EQ(region->Dict()->FindDict(L"FLOORS"), nullptr);
  KyPDList<KyDtPrjFloor> none;
  region->GetAllFloor(none);
  EXPECT_EQ(none.GetLength(), 0);
  std::unique_ptr<KyDtPrjFloor> floor(region->AddFloor(L"1F"));
  ASSERT_TRUE(floor);
  EXPECT_NE(region->Dict()->FindDict(L"FLOORS"), nullptr);
  EXPECT_TRUE(floor->Dict()->IsClassOf(L"Floor"));
  EXPECT_EQ(floor->FloorModel().Dict(), floor->Dict()->FindDict(L"FLOOR_MODEL"));
  std::unique_ptr<KyDtPrjFloor> again(region->GetFloor(L"1F"));
  EXPECT_EQ(again->Dict(), floor->Dict());
  std::unique_ptr<KyDtPrjFloor> second(region->AddFloor(L"2F"));
  KyPDList<KyDtPrjFloor> all;
  region->GetAllFloor(all);
  ASSERT_EQ(all.GetLength(), 2);
  EXPECT_EQ(NameOf(all.GetAt(1)), L"2F");
  region->DelFloor(L"1F");
  EXPECT_EQ(region->GetFloor(L"1F"), nullptr);
}

TEST(ProjectDbFloors, GetOfAFloorWithoutModelAddsTheModel) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  KyDtDictionary *raw = db.Models()->FindOrAddDict(L"0\\FLOORS\\1F");
  raw->SetClassName(L"Floor");
  std::unique_ptr<KyDtProjectRegion> region(db.Models().GetRegion(L"0"));
  ASSERT_TRUE(region);
  EXPECT_EQ(raw->FindDict(L"FLOOR_MODEL"), nullptr);
  std::unique_ptr<KyDtPrjFloor> floor(region->GetFloor(L"1F"));
  EXPECT_NE(raw->FindDict(L"FLOOR_MODEL"), nullptr);
}

TEST(ProjectDbFloors, SubFloorsGetAddDelGetAllRecursively) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  std::unique_ptr<KyDtPrjFloor> floor(region->AddFloor(L"1F"));
  EXPECT_EQ(floor->GetSubFloor(L"M"), nullptr);
  std::unique_ptr<KyDtPrjFloor> mezzanine(floor->AddSubFloor(L"M"));
  ASSERT_TRUE(mezzanine);
  EXPECT_TRUE(mezzanine->Dict()->IsClassOf(L"SubFloor"));
  EXPECT_NE(floor->Dict()->FindDict(L"SUB_FLOORS\\M\\FLOOR_MODEL"), nullptr);
  std::unique_ptr<KyDtPrjFloor> inner(mezzanine->AddSubFloor(L"M2"));
  ASSERT_TRUE(inner);
  EXPECT_NE(db.FindDict(L"MODELS\\0\\FLOORS\\1F\\SUB_FLOORS\\M\\SUB_FLOORS\\M2"), nullptr);
  floor->Dict()->FindOrAddDict(L"SUB_FLOORS\\plain");
  std::unique_ptr<KyDtPrjFloor> other(floor->AddSubFloor(L"N"));
  KyPDList<KyDtPrjFloor> all;
  floor->GetAllSubFloor(all);
  ASSERT_EQ(all.GetLength(), 2);
  EXPECT_EQ(NameOf(all.GetAt(0)), L"M");
  EXPECT_EQ(NameOf(all.GetAt(1)), L"N");
  // A floor isn't a sub-floor: GetAllFloor doesn't see them, nor the other way.
  KyPDList<KyDtPrjFloor> floors;
  region->GetAllFloor(floors);
  EXPECT_EQ(floors.GetLength(), 1);
  floor->DelSubFloor(L"M");
  EXPECT_EQ(floor->GetSubFloor(L"M"), nullptr);
}

TEST(ProjectDbFloors, HeightDefaultsTo3000WithoutCreatingTheKey) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  std::unique_ptr<KyDtPrjFloor> floor(region->AddFloor(L"1F"));
  EXPECT_EQ(floor->GetHeight(), 3000.0);
  EXPECT_EQ(floor->Dict()->FindItem(L"FLOOR_HEIGHT"), nullptr);
  floor->SetHeight(3300);
  EXPECT_EQ(floor->GetHeight(), 3300.0);
  // A height of another kind reads as the default.
  std::unique_ptr<KyDtPrjFloor> odd(region->AddFloor(L"2F"));
  odd->Dict()->SetValue(L"FLOOR_HEIGHT", L"high");
  EXPECT_EQ(odd->GetHeight(), 3000.0);
}

TEST(ProjectDbFloors, FloorViewReferenceIsMadeOnAsking) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  std::unique_ptr<KyDtPrjFloor> floor(region->AddFloor(L"1F"));
  KyDtDictReferenceItem *view = floor->FloorModel().FloorView();
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(floor->Dict()->FindItem(L"FLOOR_MODEL\\FLOOR_VIEW"), view);
}

TEST(ProjectDbRegions, BasePointAndOutlineHandle) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  AcGePoint3d origin = region->GetBasePoint();
  EXPECT_EQ(origin.x + origin.y + origin.z, 0.0);
  EXPECT_EQ(region->Dict()->FindItem(L"BASE"), nullptr);
  region->SetBasePoint(AcGePoint3d(100, -200, 3.5));
  AcGePoint3d p = region->GetBasePoint();
  EXPECT_EQ(p.x, 100.0);
  EXPECT_EQ(p.y, -200.0);
  EXPECT_EQ(p.z, 3.5);
  EXPECT_TRUE(region->Dict()->FindDict(L"BASE")->IsClassOf(L"Point"));
  EXPECT_TRUE(region->GetRegionOutlineHandle().IsEmpty());
  region->SetRegionOutlineHandle(L"2F5");
  EXPECT_EQ(region->GetRegionOutlineHandle().Compare(L"2F5"), 0);
}

TEST(ProjectDbFamilies, ViewsDrawingsFilesGetAddDelGetAllSkipGroup) {
  KyDtProjectDb db;
  ASSERT_TRUE(db.BindDict());
  std::unique_ptr<KyDtProjectView> v1(db.Views().AddView(L"PLAN-1"));
  std::unique_ptr<KyDtProjectView> v2(db.Views().AddView(L"SECTION-A"));
  db.Views()->FindOrAddDict(L"NOT_A_VIEW")->SetClassName(L"Drawing");
  db.Views()->SetValue(L"COUNT", 2L);
  EXPECT_TRUE(v1->Dict()->IsClassOf(L"View"));
  EXPECT_NE(v1->Dict()->FindDict(L"VIEW_MODEL"), nullptr);
  KyPDList<KyDtProjectView> views;
  db.Views().GetAllView(views);
  ASSERT_EQ(views.GetLength(), 2);
  EXPECT_EQ(NameOf(views.GetAt(0)), L"PLAN-1");
  EXPECT_EQ(NameOf(views.GetAt(1)), L"SECTION-A");
  // The proxies stay in their order when the list is sorted.
  views.Sort(true);
  EXPECT_EQ(NameOf(views.GetAt(0)), L"PLAN-1");
  std::unique_ptr<KyDtProjectView> found(db.Views().GetView(L"SECTION-A"));
  EXPECT_EQ(found->Dict(), v2->Dict());
  db.Views().DelView(L"PLAN-1");
  EXPECT_EQ(db.Views().GetView(L"PLAN-1"), nullptr);
  EXPECT_EQ(db.Views().GetView(L"missing"), nullptr);

  std::unique_ptr<KyDtProjectDrawing> d(db.Drawings().AddDrawing(L"A-101"));
  EXPECT_TRUE(d->Dict()->IsClassOf(L"Drawing"));
  KyPDList<KyDtProjectDrawing> drawings;
  db.Drawings().GetAllDrawing(drawings);
  ASSERT_EQ(drawings.GetLength(), 1);
  std::unique_ptr<KyDtProjectDrawing> dFound(db.Drawings().GetDrawing(L"A-101"));
  EXPECT_EQ(dFound->Dict(), d->Dict());
  db.Drawings().DelDrawing(L"A-101");
  EXPECT_EQ(db.Drawings().GetDrawing(L"A-101"), nullptr);

  std::unique_ptr<KyDtPrjFile> f(db.Files().AddFile(L"1F"));
  EXPECT_TRUE(f->Dict()->IsClassOf(L"File"));
  KyPDList<KyDtPrjFile> files;
  db.Files().GetAllFile(files);
  ASSERT_EQ(files.GetLength(), 1);
  std::unique_ptr<KyDtPrjFile> fFound(db.Files().GetFile(L"1F"));
  EXPECT_EQ(fFound->Dict(), f->Dict());
  db.Files().DelFile(L"1F");
  EXPECT_EQ(db.Files().GetFile(L"1F"), nullptr);
  KyPDList<KyDtPrjFile> noFiles;
  db.Files().GetAllFile(noFiles);
  EXPECT_EQ(noFiles.GetLength(), 0);
}

TEST(ProjectDbReferences, ReferencesSurviveASaveAndResolveAfterReading) {
  tolvtest::ScratchDir dir("prjdb_refs");
  KyDtProjectDb db;
  OpenEmpty(db, dir);
  std::unique_ptr<KyDtProjectView> view(db.Views().AddView(L"PLAN-1"));
  std::unique_ptr<KyDtPrjFile> file(db.Files().AddFile(L"1F"));
  std::unique_ptr<KyDtProjectRegion> region(db.Models().AddRegion(L"0"));
  std::unique_ptr<KyDtPrjFloor> floor(region->AddFloor(L"1F"));
  floor->Dict()->SetRef(L"FLOOR_MODEL\\FLOOR_VIEW", L"VIEWS\\PLAN-1");
  view->Dict()->SetRef(L"FILE", L"FILES\\1F");
  ASSERT_TRUE(db.Save());
  KyDtProjectDb back;
  ASSERT_TRUE(back.ReadFromXML(db.GetProjectFile()));
  std::unique_ptr<KyDtProjectRegion> r(back.Models().MainRegion());
  std::unique_ptr<KyDtPrjFloor> f(r->GetFloor(L"1F"));
  KyDtDictReferenceItem *ref = f->FloorModel().FloorView();
  ASSERT_NE(ref, nullptr);
  ASSERT_NE(ref->GetItemRef(), nullptr);
  EXPECT_EQ(ref->GetItemRef()->m_strName.Compare(L"PLAN-1"), 0);
  // Saved and read again, the database reads back the same.
  ASSERT_TRUE(back.Save());
  KyDtProjectDb again;
  ASSERT_TRUE(again.ReadFromXML(back.GetProjectFile()));
  EXPECT_EQ(again.CompareWith(back), 0);
}

TEST(ProjectDbBadInput, ReferencesPointingNowhereAtThemselvesOrInACircleReadCleanly) {
  tolvtest::ScratchDir dir("prjdb_badrefs");
  tolvtest::WriteFileBytes(
      dir.path() / "p.orpx",
      "<?xml version=\"1.0\"?><TolvDictionary><Directory name=\"MODELS\">"
      "<Reference name=\"CS_FILE\">FILES\\NOWHERE</Reference>"
      "<Region name=\"0\"><Directory name=\"FLOORS\"><Floor name=\"1F\"><Directory name=\"FLOOR_MODEL\">"
      "<Reference name=\"FLOOR_VIEW\">MODELS\\0\\FLOORS\\1F\\FLOOR_MODEL\\FLOOR_VIEW</Reference>"
      "</Directory></Floor></Directory></Region></Directory>"
      "<Directory name=\"VIEWS\"><View name=\"A\"><Reference name=\"FILE\">VIEWS\\B\\FILE</Reference></View>"
      "<View name=\"B\"><Reference name=\"FILE\">VIEWS\\A\\FILE</Reference></View></Directory>"
      "</TolvDictionary>");
  KyDtProjectDb db;
  tolv::CommandLineSink old = tolv::SetCommandLineSink([](const std::wstring &) {});
  bool read = db.ReadFromXML(SystemPath(dir, "p.orpx").c_str());
  tolv::SetCommandLineSink(old);
  ASSERT_TRUE(read);
  ASSERT_NE(db.Models().CSFile(), nullptr);
  EXPECT_EQ(db.Models().CSFile()->GetItemRef(), nullptr);
  std::unique_ptr<KyDtProjectRegion> region(db.Models().MainRegion());
  std::unique_ptr<KyDtPrjFloor> floor(region->GetFloor(L"1F"));
  KyDtDictReferenceItem *self = floor->FloorModel().FloorView();
  EXPECT_EQ(self->GetItemRef(), self);
  std::unique_ptr<KyDtProjectView> a(db.Views().GetView(L"A"));
  std::unique_ptr<KyDtProjectView> b(db.Views().GetView(L"B"));
  EXPECT_EQ(a->File()->GetItemRef(), b->File());
  EXPECT_EQ(b->File()->GetItemRef(), a->File());
  ASSERT_TRUE(db.Save());
}

TEST(ProjectDbBadInput, DeeplyNestedSubFloorsAndAbsurdTextsReadSaveAndFree) {
  tolvtest::ScratchDir dir("prjdb_deep");
  const int depth = 3000;
  std::string xml = "<?xml version=\"1.0\"?><TolvDictionary><Directory name=\"MODELS\"><Region name=\"0\">"
                    "<Directory name=\"FLOORS\"><Floor name=\"" + std::string(100000, 'F') + "\">"
                    "<Double name=\"FLOOR_HEIGHT\">1e999</Double>";
  for (int i = 0; i < depth; ++i) xml += "<Directory name=\"SUB_FLOORS\"><SubFloor name=\"S\">";
  for (int i = 0; i < depth; ++i) xml += "</SubFloor></Directory>";
  xml += "</Floor></Directory></Region></Directory></TolvDictionary>";
  tolvtest::WriteFileBytes(dir.path() / "deep.orpx", xml);
  KyDtProjectDb db;
  ASSERT_TRUE(db.ReadFromXML(SystemPath(dir, "deep.orpx").c_str()));
  std::unique_ptr<KyDtProjectRegion> region(db.Models().MainRegion());
  KyPDList<KyDtPrjFloor> floors;
  region->GetAllFloor(floors);
  ASSERT_EQ(floors.GetLength(), 1);
  EXPECT_TRUE(std::isinf(floors.GetAt(0)->GetHeight()));
  EXPECT_EQ(floors.GetAt(0)->Dict()->m_strName.GetLength(), 100000);
  // Walk down by proxies, each step one sub-floor deeper.
  std::unique_ptr<KyDtPrjFloor> current(region->GetFloor(floors.GetAt(0)->Dict()->m_strName));
  int reached = 0;
  while (KyDtPrjFloor *next = current->GetSubFloor(L"S")) {
    current.reset(next);
    ++reached;
  }
  EXPECT_EQ(reached, depth);
  ASSERT_TRUE(db.Save());
}
