// The project item tree: attributes of each kind, the reader's dispatch,
// comparison, lookups, and hostile input.
#include <gtest/gtest.h>

#include <string>

#include "project/ProjectTestUtil.h"

using prjtest::Document;
using prjtest::FirstChild;

namespace {

const char *kHead = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

std::string Wrap(const std::string &inner) { return std::string(kHead) + "<TolvProject>" + inner + "</TolvProject>"; }

}  // namespace

TEST(ProjectFloorXml, WithoutExtentReadsFlagFalseAndWritesNoExtent) {
  tolvtest::ScratchDir dir("prj_floor_noext");
  auto doc = Document(dir, "a.xml", Wrap("<Floor name=\"1F.dwg\" number=\"1\" height=\"3300\" ptbase=\"1,2,3\"/>"));
  ASSERT_TRUE(doc);
  auto node = FirstChild(*doc);
  KyDtProjectFloor floor;
  floor << node;
  EXPECT_FALSE(floor.m_bHasExtent);
  EXPECT_EQ(floor.m_dHeight, 3300.0);
  EXPECT_EQ(floor.m_dBaseX, 1.0);
  EXPECT_EQ(floor.m_dBaseY, 2.0);
  EXPECT_EQ(floor.m_dBaseZ, 3.0);
  floor.m_bHasExtent = false;
  auto doc2 = Document(dir, "b.xml", Wrap("<Floor/>"));
  auto out = FirstChild(*doc2);
  floor >> out;
  EXPECT_FALSE(out->IsAttributeExist(L"extent"));
  EXPECT_STREQ(out->GetAttributeValue(L"ptbase"), L"1,2,3");
  EXPECT_STREQ(out->GetAttributeValue(L"height"), L"3300");
  EXPECT_STREQ(out->GetAttributeValue(L"number"), L"1");
}

TEST(ProjectFloorXml, ExtentIsTwoCornersAndWritesBackTheSame) {
  tolvtest::ScratchDir dir("prj_floor_ext");
  auto doc = Document(dir, "a.xml", Wrap("<Floor name=\"1F.dwg\" extent=\"1,2,3,4\"/>"));
  auto node = FirstChild(*doc);
  KyDtProjectFloor floor;
  floor << node;
  ASSERT_TRUE(floor.m_bHasExtent);
  EXPECT_EQ(floor.m_extent.GetXExtend().min, 1.0);
  EXPECT_EQ(floor.m_extent.GetXExtend().max, 3.0);
  EXPECT_EQ(floor.m_extent.GetYExtend().min, 2.0);
  EXPECT_EQ(floor.m_extent.GetYExtend().max, 4.0);
  auto doc2 = Document(dir, "b.xml", Wrap("<Floor/>"));
  auto out = FirstChild(*doc2);
  floor >> out;
  EXPECT_STREQ(out->GetAttributeValue(L"extent"), L"1,2,3,4");
}

TEST(ProjectFloorXml, PtbaseWithoutCommaChangesNothingAndOneCommaSetsXOnly) {
  tolvtest::ScratchDir dir("prj_floor_pt");
  auto doc = Document(dir, "a.xml", Wrap("<Floor ptbase=\"5\"/><Floor ptbase=\"5,6\"/><Floor ptbase=\"1,2,3,4\"/>"));
  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  _auto_ptr<KyUtXMLDOMNodes> children = root->GetChildrenNodes();
  KyDtProjectFloor a;
  a.m_dBaseX = a.m_dBaseY = a.m_dBaseZ = 9.0;
  auto n0 = children->GetItem(0);
  a << n0;
  EXPECT_EQ(a.m_dBaseX, 9.0);
  EXPECT_EQ(a.m_dBaseY, 9.0);
  EXPECT_EQ(a.m_dBaseZ, 9.0);
  KyDtProjectFloor b;
  b.m_dBaseY = b.m_dBaseZ = 9.0;
  auto n1 = children->GetItem(1);
  b << n1;
  EXPECT_EQ(b.m_dBaseX, 5.0);
  EXPECT_EQ(b.m_dBaseY, 9.0);
  EXPECT_EQ(b.m_dBaseZ, 9.0);
  // z is read from the whole rest: "3,4" gives 3.
  KyDtProjectFloor c;
  auto n2 = children->GetItem(2);
  c << n2;
  EXPECT_EQ(c.m_dBaseZ, 3.0);
}

TEST(ProjectFloorXml, ShortExtentLeavesMissingNumbersZero) {
  tolvtest::ScratchDir dir("prj_floor_short");
  auto doc = Document(dir, "a.xml", Wrap("<Floor extent=\"7,8\"/><Floor extent=\"1,2,3,4,5\"/>"));
  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  _auto_ptr<KyUtXMLDOMNodes> children = root->GetChildrenNodes();
  KyDtProjectFloor a;
  auto n0 = children->GetItem(0);
  a << n0;
  EXPECT_TRUE(a.m_bHasExtent);
  EXPECT_EQ(a.m_extent.GetXExtend().min, 7.0);
  EXPECT_EQ(a.m_extent.GetYExtend().min, 0.0);
  EXPECT_EQ(a.m_extent.GetXExtend().max, 0.0);
  EXPECT_EQ(a.m_extent.GetYExtend().max, 0.0);
  KyDtProjectFloor b;
  auto n1 = children->GetItem(1);
  b << n1;
  EXPECT_EQ(b.m_extent.GetYExtend().max, 4.0);
}

TEST(ProjectFloorXml, AbsurdNumbersReadWithoutHarm) {
  tolvtest::ScratchDir dir("prj_floor_absurd");
  std::string commas(10000, ',');
  std::string longName(100000, 'N');
  auto doc = Document(dir, "a.xml",
                      Wrap("<Floor name=\"" + longName + "\" ptbase=\"" + commas + "\" height=\"1e999\" extent=\"" +
                           commas + "\"/><Floor height=\"nan\" ptbase=\"nan,nan,nan\"/>"));
  ASSERT_TRUE(doc);
  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  _auto_ptr<KyUtXMLDOMNodes> children = root->GetChildrenNodes();
  KyDtProjectFloor a;
  auto n0 = children->GetItem(0);
  a << n0;
  EXPECT_EQ(a.m_strName.GetLength(), 100000);
  EXPECT_EQ(a.m_dBaseX, 0.0);
  EXPECT_EQ(a.m_dBaseZ, 0.0);
  EXPECT_TRUE(std::isinf(a.m_dHeight));
  EXPECT_TRUE(a.m_bHasExtent);
  EXPECT_EQ(a.m_extent.GetYExtend().max, 0.0);
  KyDtProjectFloor b;
  auto n1 = children->GetItem(1);
  b << n1;
  EXPECT_TRUE(std::isnan(b.m_dHeight));
  // NaN is never exactly equal, so such a floor isn't the same as itself.
  EXPECT_FALSE(b.IsSameWith(&b));
}

TEST(ProjectItemXml, UnknownElementComesBackAsItemWithNameAndLocalNameOnly) {
  tolvtest::ScratchDir dir("prj_unknown");
  auto doc = Document(dir, "a.xml",
                      Wrap("<Directory name=\"D\"><Sheet name=\"S\" localname=\"L\" size=\"A1\"><Inner/></Sheet>"
                           "</Directory>"));
  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  KyDtProject project;
  project << root;
  auto *directory = static_cast<KyDtProjectDirectoryItem *>(project.FindChildItem(L"D"));
  ASSERT_NE(directory, nullptr);
  KyDtProjectItem *item = directory->GetAt(0);
  EXPECT_TRUE(item->IsKindOf(L"Item"));
  EXPECT_EQ(item->m_strLocalName.Compare(L"L"), 0);
  project >> root;
  doc->Save(nullptr);
  std::string text = tolvtest::ReadFileBytes(dir.path() / "a.xml");
  EXPECT_NE(text.find("<Item name=\"S\" localname=\"L\""), std::string::npos) << text;
  EXPECT_EQ(text.find("Sheet"), std::string::npos);
  EXPECT_EQ(text.find("size="), std::string::npos);
  EXPECT_EQ(text.find("Inner"), std::string::npos);
}

TEST(ProjectItemXml, ReaderMakesEachKnownKindInFileOrder) {
  tolvtest::ScratchDir dir("prj_kinds");
  auto doc = Document(dir, "a.xml",
                      Wrap("<Directory name=\"D\"/><File name=\"f.dwg\"/><Floor name=\"g.dwg\"/>"
                           "<TolvProject name=\"inner\"/><TolvDictionary name=\"S\"><Int name=\"N\">4</Int>"
                           "</TolvDictionary><floor name=\"x\"/>"));
  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  KyDtProject project;
  project << root;
  ASSERT_EQ(project.GetLength(), 6);
  const wchar_t *kinds[] = {L"Directory", L"File", L"Floor", L"TolvProject", L"TolvDictionary", L"Item"};
  for (int i = 0; i < 6; ++i) EXPECT_TRUE(project.GetAt(i)->IsKindOf(kinds[i])) << i;
  // A subclass is not of the kind of its base.
  EXPECT_FALSE(project.GetAt(2)->IsKindOf(L"File"));
  EXPECT_FALSE(project.GetAt(3)->IsKindOf(L"Directory"));
  long n = 0;
  ASSERT_NE(project.FindDict(L"S"), nullptr);
  EXPECT_TRUE(project.FindDict(L"S")->GetValue(L"N", n));
  EXPECT_EQ(n, 4);
}

TEST(ProjectItemXml, EveryKindSurvivesWriteAndRead) {
  tolvtest::ScratchDir dir("prj_roundtrip");
  auto doc = Document(dir, "a.xml", Wrap(""));
  KyDtProject project(L"P");
  project.m_strLocalName = L"本项目";
  auto *directory = new KyDtProjectDirectoryItem(L"D");
  directory->m_strLocalName = L"目录";
  directory->Append(new KyDtProjectFile(L"a.dwg"));
  project.Append(directory);
  auto *floor = new KyDtProjectFloor(L"1F.dwg");
  floor->m_strNumber = L"2-5";
  floor->m_dHeight = 3300.5;
  floor->m_dBaseX = -1.25;
  floor->m_dBaseY = 1e-7;
  floor->m_dBaseZ = 123456;
  floor->m_bHasExtent = true;
  floor->m_extent = KyGeExtent2d(-10, -20, 30, 40);
  project.Append(floor);
  auto *dict = new KyDtProjectDict(L"SET");
  dict->m_dict.m_strName = L"SET";
  dict->m_dict.SetValue(L"A\\B", 2.5);
  project.Append(dict);
  project.Append(new KyDtProjectItem(L"plain"));
  auto *nested = new KyDtProject(L"N");
  nested->Append(new KyDtProjectFile(L"n.dwg"));
  project.Append(nested);

  _auto_ptr<KyUtXMLDOMNode> root = doc->GetRoot();
  project >> root;
  ASSERT_TRUE(doc->Save(nullptr));
  KyDtProject back;
  ASSERT_TRUE(back.ReadFromXML(dir.wide("a.xml").c_str()));
  // A dictionary read from a file carries its attributes in its bag too,
  // so the tree made in memory is compared child by child, the dictionary
  // by its value; then a save and a second read give the same tree.
  double value = 0;
  ASSERT_NE(back.FindDict(L"SET"), nullptr);
  EXPECT_TRUE(back.FindDict(L"SET")->GetValue(L"A\\B", value));
  EXPECT_EQ(value, 2.5);
  ASSERT_TRUE(back.SaveToXML(dir.wide("a.xml").c_str()));
  KyDtProject again;
  ASSERT_TRUE(again.ReadFromXML(dir.wide("a.xml").c_str()));
  EXPECT_TRUE(again.IsSameWith(&back));
  EXPECT_TRUE(back.IsSameWith(&again));
  EXPECT_EQ(back.m_strLocalName.Compare(L"本项目"), 0);
  auto *f = static_cast<KyDtProjectFloor *>(back.GetAt(1));
  EXPECT_EQ(f->m_strName.Compare(L"1F.dwg"), 0);
  EXPECT_EQ(f->m_dHeight, 3300.5);
  EXPECT_EQ(f->m_dBaseX, -1.25);
  EXPECT_EQ(f->m_dBaseY, 1e-7);
  EXPECT_EQ(f->m_extent.GetYExtend().max, 40.0);
  EXPECT_TRUE(back.GetAt(3)->IsKindOf(L"Item"));
  for (int i : {0, 1, 3, 4}) EXPECT_TRUE(back.GetAt(i)->IsSameWith(project.GetAt(i))) << i;
  EXPECT_EQ(static_cast<KyDtProject *>(back.GetAt(4))->GetLength(), 1);
}

TEST(ProjectFloorXml, NumbersAreWrittenWithSixSignificantDigits) {
  tolvtest::ScratchDir dir("prj_floor_lg");
  auto doc = prjtest::Document(dir, "a.xml", Wrap("<Floor/>"));
  auto node = FirstChild(*doc);
  KyDtProjectFloor floor;
  floor.m_dHeight = 12345678;
  floor.m_dBaseX = 0.5;
  floor.m_dBaseY = -1e-7;
  floor >> node;
  EXPECT_STREQ(node->GetAttributeValue(L"height"), L"1.23457e+07");
  EXPECT_STREQ(node->GetAttributeValue(L"ptbase"), L"0.5,-1e-07,0");
  KyDtProjectFloor back;
  back << node;
  EXPECT_EQ(back.m_dHeight, 12345700.0);
  EXPECT_FALSE(back.IsSameWith(&floor));
}

TEST(ProjectItemSame, FloorsWithOtherFilesButEqualDataAreTheSame) {
  KyDtProjectFloor a(L"A.dwg"), b(L"B.dwg");
  a.m_strNumber = L"2-5";
  b.m_strNumber = L"2-5";
  a.m_dHeight = b.m_dHeight = 3000;
  EXPECT_TRUE(a.IsSameWith(&b));
  b.m_strNumber = L"2~5";
  EXPECT_FALSE(a.IsSameWith(&b));
  b.m_strNumber = L"2-5";
  b.m_bHasExtent = true;
  EXPECT_FALSE(a.IsSameWith(&b));
  b.m_bHasExtent = false;
  // The extent counts even without the flag.
  b.m_extent.GetXExtend().max = 1;
  EXPECT_FALSE(a.IsSameWith(&b));
  EXPECT_FALSE(a.IsSameWith(nullptr));
  KyDtProjectFile file(L"A.dwg");
  EXPECT_FALSE(a.IsSameWith(&file));
  EXPECT_FALSE(file.IsSameWith(&a));
}

TEST(ProjectItemSame, ItemsAndFilesCompareNamesWithoutCase) {
  KyDtProjectFile a(L"Plan.DWG"), b(L"plan.dwg"), c(L"other.dwg");
  EXPECT_TRUE(a.IsSameWith(&b));
  EXPECT_FALSE(a.IsSameWith(&c));
  KyDtProjectItem i(L"x"), j(L"X");
  EXPECT_TRUE(i.IsSameWith(&j));
  EXPECT_FALSE(i.IsSameWith(&a));
}

TEST(ProjectItemSame, DictionariesCompareContentNotNames) {
  KyDtProjectDict a(L"A"), b(L"B");
  a.m_dict.SetValue(L"K", 1L);
  b.m_dict.SetValue(L"K", 1L);
  EXPECT_TRUE(a.IsSameWith(&b)) << "the item names don't count";
  b.m_dict.m_strName = L"own";
  EXPECT_FALSE(a.IsSameWith(&b)) << "the dictionary's own name is part of its content";
  b.m_dict.m_strName = a.m_dict.m_strName;
  b.m_dict.SetValue(L"K", 2L);
  EXPECT_FALSE(a.IsSameWith(&b));
  EXPECT_FALSE(a.IsSameWith(nullptr));
}

TEST(ProjectItemSame, DirectoriesCompareNamesCountsAndChildrenPassingNulls) {
  KyDtProjectDirectoryItem a(L"D"), b(L"d");
  EXPECT_TRUE(a.IsSameWith(&b));
  a.Append(new KyDtProjectFile(L"x.dwg"));
  EXPECT_FALSE(a.IsSameWith(&b));
  b.Append(new KyDtProjectFile(L"X.DWG"));
  EXPECT_TRUE(a.IsSameWith(&b));
  a.Append(nullptr);
  b.Append(new KyDtProjectFile(L"anything.dwg"));
  EXPECT_TRUE(a.IsSameWith(&b)) << "a pair with a null is passed over";
  KyDtProjectDirectoryItem c(L"E");
  EXPECT_FALSE(c.IsSameWith(&a));
  KyDtProject p(L"D");
  EXPECT_FALSE(p.IsSameWith(&a));
  EXPECT_FALSE(a.IsSameWith(nullptr));
}

TEST(ProjectItemLookup, FindChildItemIsCaseSensitiveWhileComparisonsAreNot) {
  KyDtProjectDirectoryItem d(L"D");
  d.Append(new KyDtProjectFile(L"Plan.dwg"));
  d.Append(new KyDtProjectFile(L"plan.dwg"));
  EXPECT_EQ(d.FindChildItem(L"plan.dwg"), d.GetAt(1));
  EXPECT_EQ(d.GetCur(), 1);
  EXPECT_EQ(d.FindChildItem(L"PLAN.DWG"), nullptr);
  EXPECT_TRUE(*d.GetAt(0) == *d.GetAt(1));
  EXPECT_TRUE(d.GetAt(0)->IsSameWith(d.GetAt(1)));
  KyDtProjectFile a(L"a"), b(L"B");
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_TRUE(a != b);
}

TEST(ProjectItemLookup, FindChildItemLooksOneLevelDeep) {
  KyDtProjectDirectoryItem d(L"D");
  auto *inner = new KyDtProjectDirectoryItem(L"I");
  inner->Append(new KyDtProjectFile(L"deep.dwg"));
  d.Append(inner);
  EXPECT_EQ(d.FindChildItem(L"deep.dwg"), nullptr);
  EXPECT_EQ(d.FindChildItem(L"I"), inner);
}

TEST(ProjectItemKinds, NoClassIsAParentItemAndDisplayNamesPreferTheLocalName) {
  KyDtProjectDirectoryItem d;
  KyDtProject p;
  KyDtProjectFile f;
  KyDtProjectFloor g;
  KyDtProjectDict h;
  KyDtProjectItem i;
  EXPECT_FALSE(d.IsParentItem());
  EXPECT_FALSE(p.IsParentItem());
  EXPECT_FALSE(f.IsParentItem());
  EXPECT_FALSE(g.IsParentItem());
  EXPECT_FALSE(h.IsParentItem());
  EXPECT_FALSE(i.IsParentItem());
  EXPECT_EQ(d.GetTypeName().Compare(L"Directory"), 0);
  EXPECT_EQ(p.GetTypeName().Compare(L"TolvProject"), 0);
  EXPECT_EQ(f.GetTypeName().Compare(L"File"), 0);
  EXPECT_EQ(g.GetTypeName().Compare(L"Floor"), 0);
  EXPECT_EQ(h.GetTypeName().Compare(L"TolvDictionary"), 0);
  EXPECT_EQ(i.GetTypeName().Compare(L"Item"), 0);
  KyDtProjectItem named(L"n.dwg");
  EXPECT_EQ(named.GetDisplayName().Compare(L"n.dwg"), 0);
  named.m_strLocalName = L"一层";
  EXPECT_EQ(named.GetDisplayName().Compare(L"一层"), 0);
  EXPECT_TRUE(KyDtProjectItem(nullptr).m_strName.IsEmpty());
}

TEST(ProjectItemKinds, NewFloorIsAllZero) {
  KyDtProjectFloor f;
  EXPECT_TRUE(f.m_strNumber.IsEmpty());
  EXPECT_EQ(f.m_dHeight, 0.0);
  EXPECT_EQ(f.m_dBaseX + f.m_dBaseY + f.m_dBaseZ, 0.0);
  EXPECT_FALSE(f.m_bHasExtent);
  EXPECT_EQ(f.m_extent.GetXExtend().min, 0.0);
  EXPECT_EQ(f.m_extent.GetYExtend().max, 0.0);
}

TEST(ProjectItemKinds, FloorIncludesByItsExtentEvenWithoutTheFlag) {
  KyDtProjectFloor f;
  f.m_extent = KyGeExtent2d(0, 0, 10, 5);
  EXPECT_TRUE(f.IsInclude(KyGePoint(10, 5)));
  EXPECT_FALSE(f.IsInclude(KyGePoint(11, 5)));
  EXPECT_TRUE(f.IsInclude(KyGeExtent2d(1, 1, 9, 4)));
  EXPECT_FALSE(f.IsInclude(KyGeExtent2d(1, 1, 9, 6)));
}

TEST(ProjectItemCopy, DictCopyIsIndependentAndFloorCopiesFields) {
  KyDtProjectDict a(L"S");
  a.m_dict.SetValue(L"K", 1L);
  KyDtProjectDict b(a);
  b.m_dict.SetValue(L"K", 2L);
  long k = 0;
  a.m_dict.GetValue(L"K", k);
  EXPECT_EQ(k, 1);
  KyDtProjectFloor f(L"x.dwg");
  f.m_strNumber = L"3";
  f.m_bHasExtent = true;
  KyDtProjectFloor g(f);
  EXPECT_TRUE(g.IsSameWith(&f));
}

TEST(ProjectItemDepth, TenThousandNestedDirectoriesReadCompareWriteAndFree) {
  tolvtest::ScratchDir dir("prj_deep");
  const int depth = 10000;
  std::string xml = std::string(kHead) + "<TolvProject><Directory name=\"DWG_SET\">";
  for (int i = 0; i < depth; ++i) xml += "<Directory name=\"d\">";
  xml += "<File name=\"deep.dwg\"/>";
  for (int i = 0; i < depth; ++i) xml += "</Directory>";
  xml += "</Directory></TolvProject>";
  tolvtest::WriteFileBytes(dir.path() / "deep.xml", xml);
  std::wstring path = prjtest::SystemPath(dir, "deep.xml");
  KyDtProject a;
  ASSERT_TRUE(a.ReadFromXML(path.c_str()));
  KyDList<CString> files;
  ASSERT_TRUE(a.GetDwgSetFiles(files));
  ASSERT_EQ(files.GetLength(), 1);
  EXPECT_NE(files.GetAt(0).Find(L"deep.dwg"), -1);
  KyDtProject b;
  ASSERT_TRUE(b.ReadFromXML(path.c_str()));
  EXPECT_TRUE(a.IsSameWith(&b));
  ASSERT_TRUE(a.SaveToXML(path.c_str()));
  KyDtProject c;
  ASSERT_TRUE(c.ReadFromXML(path.c_str()));
  EXPECT_TRUE(c.IsSameWith(&b));
  c.Reset();
  EXPECT_EQ(c.GetLength(), 0);
}
