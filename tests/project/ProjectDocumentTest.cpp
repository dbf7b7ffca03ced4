// The project document: reading and saving, paths, floor and drawing-set
// files, the floor number grammar and the floor check.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "project/ProjectTestUtil.h"

using prjtest::MessageCapture;
using prjtest::SystemPath;

namespace {

// A project bound to `path` without a file: read from a one-line project.
void Bind(KyDtProject &project, const tolvtest::ScratchDir &dir, const std::string &name, const std::string &body) {
  tolvtest::WriteFileBytes(dir.path() / name, "<?xml version=\"1.0\"?><TolvProject>" + body + "</TolvProject>");
  ASSERT_TRUE(project.ReadFromXML(SystemPath(dir, name).c_str()));
}

bool Connected(const std::vector<std::string> &numbers, std::vector<std::wstring> *messages = nullptr) {
  tolvtest::ScratchDir dir("prj_connect");
  tolvtest::WriteFileBytes(dir.path() / "p.xml", prjtest::FloorTableXml(numbers));
  KyDtProject project;
  EXPECT_TRUE(project.ReadFromXML(SystemPath(dir, "p.xml").c_str()));
  MessageCapture capture;
  bool result = project.IsConnectFloors(true);
  if (messages) *messages = capture.texts;
  return result;
}

struct Parsed {
  bool ok;
  bool isRange;
  std::wstring first;
  std::wstring last;
  std::wstring text;
};

Parsed Parse(const wchar_t *number) {
  KyStringW text(number), first(L"x"), last(L"y");
  bool isRange = true;
  bool ok = ParseFloorNumber(text, first, last, isRange);
  return {ok, isRange, first.GetString(), last.GetString(), text.GetString()};
}

}  // namespace

TEST(ProjectFile, ReadRejectsEmptyPathMissingFileMalformedXmlAndOtherRoots) {
  tolvtest::ScratchDir dir("prj_read_bad");
  KyDtProject project;
  Bind(project, dir, "good.xml", "<File name=\"a.dwg\"/>");
  std::wstring good = project.GetFileFullName().str();
  EXPECT_FALSE(project.ReadFromXML(L""));
  EXPECT_FALSE(project.ReadFromXML(nullptr));
  EXPECT_FALSE(project.ReadFromXML(SystemPath(dir, "missing.xml").c_str()));
  tolvtest::WriteFileBytes(dir.path() / "bad.xml", "<TolvProject><File name=\"a.dwg\"></TolvProject>");
  EXPECT_FALSE(project.ReadFromXML(SystemPath(dir, "bad.xml").c_str()));
  tolvtest::WriteFileBytes(dir.path() / "other.xml", "<TolvDictionary><File name=\"b.dwg\"/></TolvDictionary>");
  EXPECT_FALSE(project.ReadFromXML(SystemPath(dir, "other.xml").c_str()));
  tolvtest::WriteFileBytes(dir.path() / "lower.xml", "<tolvproject/>");
  EXPECT_FALSE(project.ReadFromXML(SystemPath(dir, "lower.xml").c_str()));
  // Nothing has changed.
  EXPECT_EQ(project.GetFileFullName().str(), good);
  ASSERT_EQ(project.GetLength(), 1);
  EXPECT_EQ(project.GetAt(0)->m_strName.Compare(L"a.dwg"), 0);
}

TEST(ProjectFile, SaveNeedsAnExistingReadableFileAndBindsIt) {
  tolvtest::ScratchDir dir("prj_save");
  KyDtProject project(L"P");
  project.Append(new KyDtProjectFile(L"a.dwg"));
  EXPECT_FALSE(project.SaveToXML(SystemPath(dir, "new.xml").c_str()));
  EXPECT_TRUE(project.IsEmptyProject());
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "new.xml"));
  // The root's name isn't tested: the tree goes into whatever is there.
  tolvtest::WriteFileBytes(dir.path() / "t.xml", "<Other><Old/></Other>");
  ASSERT_TRUE(project.SaveToXML(SystemPath(dir, "t.xml").c_str()));
  EXPECT_FALSE(project.IsEmptyProject());
  std::string text = tolvtest::ReadFileBytes(dir.path() / "t.xml");
  EXPECT_NE(text.find("<File name=\"a.dwg\""), std::string::npos) << text;
  EXPECT_EQ(text.find("Old"), std::string::npos);
}

TEST(ProjectFile, ResetForgetsThePathAndTheItems) {
  tolvtest::ScratchDir dir("prj_reset");
  KyDtProject project;
  Bind(project, dir, "p.xml", "<File name=\"a.dwg\"/>");
  EXPECT_FALSE(project.IsEmptyProject());
  project.Reset();
  EXPECT_TRUE(project.IsEmptyProject());
  EXPECT_EQ(project.GetLength(), 0);
}

TEST(ProjectPaths, NameFolderAndIs) {
  tolvtest::ScratchDir dir("prj_paths");
  KyDtProject project;
  CString name = L"keep", folder = L"keep";
  EXPECT_FALSE(project.GetProjectName(name));
  EXPECT_FALSE(project.GetFilePath(folder));
  EXPECT_EQ(name.Compare(L"keep"), 0);
  EXPECT_EQ(folder.Compare(L"keep"), 0);
  Bind(project, dir, "Tower.xml", "");
  ASSERT_TRUE(project.GetProjectName(name));
  EXPECT_EQ(name.Compare(L"Tower.xml"), 0);
  ASSERT_TRUE(project.GetFilePath(folder));
  EXPECT_EQ(folder.str(), SystemPath(dir, "Tower.xml").substr(0, folder.GetLength()));
  EXPECT_EQ(folder[folder.GetLength() - 1], L'\\');
  CString upper = project.GetFileFullName();
  upper.MakeUpper();
  EXPECT_TRUE(project.Is(upper));
  EXPECT_FALSE(project.Is(L"other"));
}

TEST(ProjectPaths, RelativeNameDropsTheProjectFolderWithoutCaseAndTheExtension) {
  // A project in d:\p\ (read from a file mapped there) .
  tolvtest::ScratchDir dir("prj_rel");
  std::filesystem::create_directories(dir.path() / "p");
  tolvtest::WriteFileBytes(dir.path() / "p" / "prj.xml", "<TolvProject/>");
  tolv::SetDriveMapping(L'd', dir.str());
  KyDtProject project;
  ASSERT_TRUE(project.ReadFromXML(L"d:\\p\\prj.xml"));
  tolv::SetDriveMapping(L'd', "");
  EXPECT_EQ(project.GetDwgRelativeName(L"D:\\P\\A\\1F.dwg").Compare(L"A\\1F"), 0);
  EXPECT_TRUE(project.GetDwgRelativeName(L"").IsEmpty());
  // Whatever the last four characters are, they go.
  EXPECT_EQ(project.GetDwgRelativeName(L"roof").Compare(L""), 0);
  EXPECT_EQ(project.GetDwgRelativeName(L"roofplan").Compare(L"roof"), 0);
  EXPECT_EQ(project.GetDwgRelativeName(L"x").Compare(L""), 0);
  EXPECT_EQ(project.GetDwgRelativeName(L"E:\\X\\1F.dxf").Compare(L"E:\\X\\1F"), 0);
}

TEST(ProjectPaths, FullNameAddsTheFolderUnlessAbsolute) {
  tolvtest::ScratchDir dir("prj_full");
  std::filesystem::create_directories(dir.path() / "p");
  tolvtest::WriteFileBytes(dir.path() / "p" / "prj.xml", "<TolvProject/>");
  tolv::SetDriveMapping(L'd', dir.str());
  KyDtProject project;
  ASSERT_TRUE(project.ReadFromXML(L"d:\\p\\prj.xml"));
  tolv::SetDriveMapping(L'd', "");
  EXPECT_EQ(project.GetDwgFullName(L"A\\1F").Compare(L"d:\\p\\A\\1F.dwg"), 0);
  EXPECT_EQ(project.GetDwgFullName(L"E:\\X\\1F").Compare(L"E:\\X\\1F.dwg"), 0);
  EXPECT_TRUE(project.GetDwgFullName(L"").IsEmpty());
  KyDtProject unbound;
  EXPECT_EQ(unbound.GetDwgFullName(L"A\\1F").Compare(L"A\\1F.dwg"), 0);
}

TEST(ProjectTables, FloorTableDwgSetAndDictionariesByKind) {
  tolvtest::ScratchDir dir("prj_tables");
  KyDtProject project;
  Bind(project, dir, "p.xml",
       "<Directory name=\"FLOOR_TABLE\"><Floor name=\"1.dwg\" number=\"1\"/><File name=\"x.dwg\"/>"
       "<Floor name=\"2.dwg\" number=\"2\"/></Directory><File name=\"DWG_SET\"/>"
       "<TolvDictionary name=\"S\"/><Directory name=\"D\"/>");
  ASSERT_NE(project.GetFloorTable(), nullptr);
  KyDList<KyDtProjectFloor *> floors;
  project.GetFloorTable(floors);
  ASSERT_EQ(floors.GetLength(), 2);
  EXPECT_EQ(floors.GetAt(1)->m_strNumber.Compare(L"2"), 0);
  EXPECT_EQ(project.GetDwgSet(), nullptr) << "DWG_SET is a file here, not a directory";
  KyDList<CString> files;
  EXPECT_FALSE(project.GetDwgSetFiles(files));
  EXPECT_FALSE(project.GetDwgSetFiles(files, nullptr));
  EXPECT_NE(project.FindDict(L"S"), nullptr);
  EXPECT_EQ(project.FindDict(L"D"), nullptr);
  EXPECT_EQ(project.FindDict(L"missing"), nullptr);
  KyDtProject empty;
  KyDList<KyDtProjectFloor *> none;
  empty.GetFloorTable(none);
  EXPECT_EQ(none.GetLength(), 0);
  EXPECT_FALSE(empty.GetFloorFiles(files));
}

TEST(ProjectFloorFiles, NamesDifferingInCaseGiveOneFileAtItsFirstPlace) {
  tolvtest::ScratchDir dir("prj_floorfiles");
  KyDtProject project;
  Bind(project, dir, "p.xml",
       "<Directory name=\"FLOOR_TABLE\"><Floor name=\"std.dwg\" number=\"1\"/><Floor name=\"roof.dwg\" number=\"2\"/>"
       "<Floor name=\"STD.DWG\" number=\"3\"/><File name=\"notafloor.dwg\"/></Directory>");
  KyDList<CString> files;
  files.Append(L"already.dwg");
  ASSERT_TRUE(project.GetFloorFiles(files));
  ASSERT_EQ(files.GetLength(), 3);
  CString folder;
  project.GetFilePath(folder);
  EXPECT_EQ(files.GetAt(1).Compare(folder + L"std.dwg"), 0);
  EXPECT_EQ(files.GetAt(2).Compare(folder + L"roof.dwg"), 0);
}

TEST(ProjectDwgSet, NestedDirectoriesDepthFirstAndEveryKindAsADrawing) {
  tolvtest::ScratchDir dir("prj_dwgset");
  KyDtProject project;
  Bind(project, dir, "p.xml",
       "<Directory name=\"DWG_SET\"><File name=\"a.dwg\"/><Directory name=\"sub\"><File name=\"sub\\b.dwg\"/>"
       "<Directory name=\"deeper\"><Floor name=\"sub\\deeper\\c.dwg\"/></Directory></Directory>"
       "<Other name=\"d.dwg\"/><File name=\"A.DWG\"/></Directory>");
  KyDList<CString> files;
  ASSERT_TRUE(project.GetDwgSetFiles(files));
  CString folder;
  project.GetFilePath(folder);
  ASSERT_EQ(files.GetLength(), 4);
  EXPECT_EQ(files.GetAt(0).Compare(folder + L"a.dwg"), 0);
  EXPECT_EQ(files.GetAt(1).Compare(folder + L"sub\\b.dwg"), 0);
  EXPECT_EQ(files.GetAt(2).Compare(folder + L"sub\\deeper\\c.dwg"), 0);
  EXPECT_EQ(files.GetAt(3).Compare(folder + L"d.dwg"), 0);
}

TEST(ProjectDwgSet, WithoutDwgSetIsFalseNotAnEmptySuccess) {
  tolvtest::ScratchDir dir("prj_nodwgset");
  KyDtProject project;
  Bind(project, dir, "p.xml", "<Directory name=\"FLOOR_TABLE\"/>");
  KyDList<CString> files;
  EXPECT_FALSE(project.GetDwgSetFiles(files));
  EXPECT_EQ(files.GetLength(), 0);
}

TEST(FloorNumberGrammar, EveryRowOfTheTable) {
  for (const wchar_t *single : {L"3", L"-1", L"+2", L""}) {
    Parsed p = Parse(single);
    EXPECT_TRUE(p.ok) << single;
    EXPECT_FALSE(p.isRange) << single;
    EXPECT_TRUE(p.first.empty() && p.last.empty()) << single;
  }
  for (const wchar_t *range : {L"2-5", L"2~5", L"2,5", L"2 - 5"}) {
    Parsed p = Parse(range);
    EXPECT_TRUE(p.ok && p.isRange) << range;
    EXPECT_EQ(p.first, L"2");
    EXPECT_EQ(p.last, L"5");
  }
  Parsed twelve = Parse(L"1-12");
  EXPECT_TRUE(twelve.ok && twelve.isRange);
  EXPECT_EQ(twelve.last, L"12");
  Parsed ten = Parse(L"10-12");
  EXPECT_TRUE(ten.ok && ten.isRange);
  EXPECT_EQ(ten.first, L"1");
  EXPECT_EQ(ten.last, L"-12");
  Parsed comma = Parse(L"12,13");
  EXPECT_FALSE(comma.ok);
  EXPECT_EQ(comma.first, L"1");
  EXPECT_EQ(comma.last, L",13");
  EXPECT_FALSE(Parse(L"-2--1").ok);
  EXPECT_FALSE(Parse(L"a").ok);
  EXPECT_FALSE(Parse(L"5-").ok);
  EXPECT_FALSE(Parse(L"B1").ok);
  // The blanks go from the caller's text.
  EXPECT_EQ(Parse(L" 2 - 5 ").text, L"2-5");
}

TEST(FloorConnection, EveryRowOfTheTableThroughTheCheck) {
  // Singles and runs in every form follow each other.
  EXPECT_TRUE(Connected({"-2", "-1", "1", "2-5", "6"}));
  EXPECT_TRUE(Connected({"1", "2~5", "6,7", "8 - 9", "+10"}));
  EXPECT_TRUE(Connected({"1-12", "13"}));
  // "10-12" is the run 1 to -12: after 9 it doesn't connect...
  EXPECT_FALSE(Connected({"9", "10-12"}));
  // ... and after 0 it does, ending at -12.
  EXPECT_TRUE(Connected({"0", "10-12", "-11"}));
  std::vector<std::wstring> messages;
  EXPECT_FALSE(Connected({"1", "12,13"}, &messages));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], L" 楼层号重复!");
  EXPECT_FALSE(Connected({"-3", "-2--1"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号重复!");
  EXPECT_FALSE(Connected({"1", "a"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号重复!");
}

TEST(FloorConnection, GapsRepeatsAndTheirMessages) {
  std::vector<std::wstring> messages;
  EXPECT_FALSE(Connected({"1", "3"}, &messages));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], L" 楼层号不连续!");
  EXPECT_FALSE(Connected({"1", "1"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号重复!");
  EXPECT_FALSE(Connected({"2-5", "5"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号重复!");
  EXPECT_FALSE(Connected({"2-5", "7-8"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号不连续!");
}

TEST(FloorConnection, StepOverZeroIsForSingleFloorsOnly) {
  EXPECT_TRUE(Connected({"-2", "-1", "1"}));
  std::vector<std::wstring> zero;
  EXPECT_FALSE(Connected({"-2", "-1", "0"}, &zero)) << "floor 0 doesn't follow -1";
  ASSERT_EQ(zero.size(), 1u);
  EXPECT_EQ(zero[0], L" 楼层号重复!");
  // The first number only sets the start: the step over 0 comes after it.
  EXPECT_TRUE(Connected({"-1", "0"}));
  std::vector<std::wstring> messages;
  // "5--1" is the run from 5 down to -1; after it comes 0, not 1.
  EXPECT_FALSE(Connected({"4", "5--1", "1"}, &messages));
  EXPECT_EQ(messages[0], L" 楼层号不连续!");
  EXPECT_TRUE(Connected({"4", "5--1", "0"}));
  // After the single floor -1 the working number is 0, so a run from 0
  // repeats it.
  EXPECT_FALSE(Connected({"-2", "-1", "0-2"}, &messages));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], L" 楼层号重复!");
}

TEST(FloorConnection, UnreadableFirstNumberEmptyTableAndUnnumberedFloorsPass) {
  std::vector<std::wstring> messages;
  EXPECT_TRUE(Connected({"x", "7", "3"}, &messages));
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(Connected({}));
  EXPECT_TRUE(Connected({"1", "", "2"}));
  KyDtProject noTable;
  EXPECT_TRUE(noTable.IsConnectFloors(true));
}

TEST(FloorConnection, WithoutMessagesShowsNothingAndStillFails) {
  tolvtest::ScratchDir dir("prj_quiet");
  tolvtest::WriteFileBytes(dir.path() / "p.xml", prjtest::FloorTableXml({"1", "3"}));
  KyDtProject project;
  ASSERT_TRUE(project.ReadFromXML(SystemPath(dir, "p.xml").c_str()));
  MessageCapture capture;
  EXPECT_FALSE(project.IsConnectFloors(false));
  EXPECT_TRUE(capture.texts.empty());
  EXPECT_FALSE(project.IsConnectFloors(true));
  ASSERT_EQ(capture.types.size(), 1u);
  EXPECT_EQ(capture.types[0], 16u);
}

TEST(FloorConnection, BlanksGoFromTheWorkingCopyOnly) {
  tolvtest::ScratchDir dir("prj_blanks");
  tolvtest::WriteFileBytes(dir.path() / "p.xml", prjtest::FloorTableXml({"1", "2 - 5", "6"}));
  KyDtProject project;
  ASSERT_TRUE(project.ReadFromXML(SystemPath(dir, "p.xml").c_str()));
  EXPECT_TRUE(project.IsConnectFloors(false));
  KyDList<KyDtProjectFloor *> floors;
  project.GetFloorTable(floors);
  EXPECT_EQ(floors.GetAt(1)->m_strNumber.Compare(L"2 - 5"), 0);
}

TEST(FloorConnection, NumbersAtTheEndOfTheIntRangeDontOverflow) {
  EXPECT_FALSE(Connected({"2147483647", "2147483647"}));
  EXPECT_FALSE(Connected({"99999999999", "1"}));
}
