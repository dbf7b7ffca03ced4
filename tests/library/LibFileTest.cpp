// Library files (".DML") and group files (".DMLS"): reading, writing, the
// structure writer, and bad input.
#include <gtest/gtest.h>

#include <typeinfo>

#include "LibraryTestHelpers.h"

using libtest::AddDirectory;
using libtest::AddItem;
using libtest::ChildNames;
using libtest::WriteText;
using Names = std::vector<std::wstring>;

namespace {

const char *kDoorLib =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<TolvDwgLib name=\"Doors\" nextfile=\"7\" readonly=\"TRUE\" mulitiview=\"TRUE\" owner=\"me\">\n"
    "  <Directory name=\"Single\" kind=\"leaf\">\n"
    "    <Item name=\"D0901\" file=\"D0901.DWG\" width=\"900\"/>\n"
    "    <Directory name=\"Empty\"/>\n"
    "  </Directory>\n"
    "  <Other name=\"odd\" file=\"odd.DWG\"/>\n"
    "  <Item name=\"D1201\" file=\"D1201.DWG\" width=\"1200\" desc=\"\xe5\x8f\x8c\xe6\x89\x87\xe9\x97\xa8\"/>\n"
    "</TolvDwgLib>\n";

std::string Text(const std::filesystem::path &p) { return tolvtest::ReadFileBytes(p); }

}  // namespace

TEST(LibraryFile, ReadsTreeAttributesAndFlags) {
  tolvtest::ScratchDir dir("lib_read");
  WriteText(dir.path() / "Doors.DML", kDoorLib);
  KyDtDwgLib lib;
  lib.SetFileName(dir.wide("Doors.DML").c_str());
  ASSERT_TRUE(lib.ReadFromXML());
  EXPECT_EQ(lib.GetName(), CString(L"Doors"));
  EXPECT_EQ(lib.GetNextFileIndex(), 7);
  EXPECT_TRUE(lib.IsReadOnly());
  EXPECT_TRUE(lib.IsMulitiView());
  EXPECT_EQ(lib.GetAttributeValue(L"owner"), CString(L"me"));
  EXPECT_EQ(libtest::Dump(lib),
            L"Directory Single {kind=leaf;name=Single;}\n"
            L"  Item D0901 [D0901.DWG] {file=D0901.DWG;name=D0901;width=900;}\n"
            L"  Directory Empty {name=Empty;}\n"
            L"Item odd [odd.DWG] {file=odd.DWG;name=odd;}\n"
            L"Item D1201 [D1201.DWG] {desc=\x53cc\x6247\x95e8;file=D1201.DWG;name=D1201;width=1200;}\n");
}

TEST(LibraryFile, WrongRootOrMissingOrMalformedLeavesTheLibraryAsItWas) {
  tolvtest::ScratchDir dir("lib_bad");
  WriteText(dir.path() / "Doors.DML", kDoorLib);
  WriteText(dir.path() / "bad.DML", "<TolvDwgLib name=\"x\"><Item name=\"a\"></TolvDwgLib>");
  KyDtLib plain;  // a "TolvDwgLib" file can't be read into a plain library
  plain.SetFileName(dir.wide("Doors.DML").c_str());
  AddItem(plain, L"kept");
  EXPECT_FALSE(plain.ReadFromXML());
  EXPECT_EQ(ChildNames(plain), Names{L"kept"});
  KyDtWordLib word;
  word.SetFileName(dir.wide("Doors.DML").c_str());
  EXPECT_FALSE(word.ReadFromXML());
  KyDtDwgLib missing;
  missing.SetFileName(dir.wide("none.DML").c_str());
  EXPECT_FALSE(missing.ReadFromXML());
  EXPECT_FALSE(missing.SaveToXML());
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "none.DML"));
  KyDtDwgLib malformed;
  malformed.SetFileName(dir.wide("bad.DML").c_str());
  AddItem(malformed, L"kept");
  EXPECT_FALSE(malformed.ReadFromXML());
  EXPECT_EQ(ChildNames(malformed), Names{L"kept"});
  KyDtDwgLib unnamed;
  EXPECT_FALSE(unnamed.ReadFromXML());
}

TEST(LibraryFile, SaveNeedsAnExistingFileWithTheRightRoot) {
  tolvtest::ScratchDir dir("lib_save_root");
  WriteText(dir.path() / "w.DML", "<TolvWordLib name=\"w\"/>");
  KyDtDwgLib lib;
  lib.SetFileName(dir.wide("w.DML").c_str());
  AddItem(lib, L"I");
  EXPECT_FALSE(lib.SaveToXML());
  EXPECT_EQ(Text(dir.path() / "w.DML"), "<TolvWordLib name=\"w\"/>");
}

TEST(LibraryFile, NewLibrarySavedAndReadBackHasNextFileOne) {
  tolvtest::ScratchDir dir("lib_new");
  WriteText(dir.path() / "n.DML", "<Library/>");
  KyDtLib lib;
  lib.SetFileName(dir.wide("n.DML").c_str());
  lib.SetName(L"New");
  EXPECT_EQ(lib.GetNextFileIndex(), 1);
  EXPECT_FALSE(lib.IsMulitiView());
  ASSERT_TRUE(lib.SaveToXML());
  const std::string text = Text(dir.path() / "n.DML");
  EXPECT_NE(text.find("nextfile=\"1\""), std::string::npos) << text;
  EXPECT_NE(text.find("mulitiview=\"FALSE\""), std::string::npos) << text;
  EXPECT_NE(text.find("readonly=\"FALSE\""), std::string::npos) << text;
  KyDtLib back;
  back.SetFileName(dir.wide("n.DML").c_str());
  back.SetNextFileIndex(99);
  ASSERT_TRUE(back.ReadFromXML());
  EXPECT_EQ(back.GetNextFileIndex(), 1);
  EXPECT_EQ(back.GetName(), CString(L"New"));
}

TEST(LibraryFile, FileWithoutNextFileKeepsTheCounter) {
  tolvtest::ScratchDir dir("lib_nonext");
  WriteText(dir.path() / "n.DML", "<Library name=\"x\" readonly=\"true\" mulitiview=\"TRUE\"/>");
  KyDtLib lib;
  lib.SetFileName(dir.wide("n.DML").c_str());
  lib.SetNextFileIndex(42);
  ASSERT_TRUE(lib.ReadFromXML());
  EXPECT_EQ(lib.GetNextFileIndex(), 42);
  EXPECT_FALSE(lib.IsReadOnly());  // "true" is not "TRUE"
  EXPECT_TRUE(lib.IsMulitiView());
}

TEST(LibraryFile, SavedReadAgainGivesTheSameTree) {
  tolvtest::ScratchDir dir("lib_roundtrip");
  WriteText(dir.path() / "Doors.DML", kDoorLib);
  KyDtDwgLib lib;
  lib.SetFileName(dir.wide("Doors.DML").c_str());
  ASSERT_TRUE(lib.ReadFromXML());
  lib.SetNextFileIndex(8);
  ASSERT_TRUE(lib.SaveToXML());
  const std::string first = Text(dir.path() / "Doors.DML");
  // The odd element is written back under an item's node name.
  EXPECT_EQ(first.find("<Other"), std::string::npos);
  KyDtDwgLib back;
  back.SetFileName(dir.wide("Doors.DML").c_str());
  ASSERT_TRUE(back.ReadFromXML());
  EXPECT_EQ(libtest::Dump(back), libtest::Dump(lib));
  EXPECT_EQ(back.GetNextFileIndex(), 8);
  // The field wins on writing; the read copy of "nextfile" in the store
  // stays as it was read.
  EXPECT_EQ(lib.GetAttributeValue(L"nextfile"), CString(L"7"));
  EXPECT_EQ(libtest::AttributesOf(back), L"mulitiview=TRUE;name=Doors;nextfile=8;owner=me;readonly=TRUE;");
  ASSERT_TRUE(back.SaveToXML());
  EXPECT_EQ(Text(dir.path() / "Doors.DML"), first);
}

TEST(LibraryNode, BaseReadKeepsEarlierAttributes) {
  tolvtest::ScratchDir dir("lib_node");
  WriteText(dir.path() / "x.xml", "<Node name=\"N\" a=\"1\"/>");
  KyUtXMLDOMFile doc;
  ASSERT_TRUE(doc.Open(dir.wide("x.xml").c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = doc.GetRoot();
  KyDtLibItemBase node;
  node.SetAttributeValue(L"old", L"stays");
  ASSERT_TRUE(node.ReadFromNode(root));
  EXPECT_EQ(libtest::AttributesOf(node), L"a=1;name=N;old=stays;");
  EXPECT_EQ(node.GetName(), CString(L"N"));
  _auto_ptr<KyUtXMLDOMNode> none;
  EXPECT_FALSE(node.ReadFromNode(none));
}

TEST(LibraryNode, SaveWritesAttributesInKeyOrderThenNameAndFile) {
  tolvtest::ScratchDir dir("lib_node_save");
  WriteText(dir.path() / "x.xml", "<Root/>");
  KyUtXMLDOMFile doc;
  ASSERT_TRUE(doc.Open(dir.wide("x.xml").c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = doc.GetRoot();
  KyDtLibItem item;
  item.SetName(L"I");
  item.SetDataFile(L"I.DWG");
  item.SetAttributeValue(L"z", L"1");
  item.SetAttributeValue(L"b", L"2");
  _auto_ptr<KyUtXMLDOMNode> element = root->AppendNode(L"Item", L"", L"", L"");
  ASSERT_TRUE(item.SaveToNode(element));
  ASSERT_TRUE(doc.Save(nullptr));
  EXPECT_NE(Text(dir.path() / "x.xml").find("<Item b=\"2\" z=\"1\" name=\"I\" file=\"I.DWG\""), std::string::npos)
      << Text(dir.path() / "x.xml");
}

TEST(LibraryDirectoryXml, SaveReplacesChildrenAndWriteChildNodeWritesStructureOnly) {
  tolvtest::ScratchDir dir("lib_struct");
  WriteText(dir.path() / "x.xml", "<Root><Stale/></Root>");
  KyUtXMLDOMFile doc;
  ASSERT_TRUE(doc.Open(dir.wide("x.xml").c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = doc.GetRoot();
  KyDtLibDirectory tree;
  tree.SetName(L"T");
  KyDtLibDirectory *d = AddDirectory(tree, L"D");
  d->SetAttributeValue(L"k", L"v");
  AddItem(*d, L"I", L"I.DWG")->SetAttributeValue(L"w", L"9");
  tree.Append(new KyDtLibItemBase);  // "Node": written by SaveToNode, passed over by WriteChildNode
  ASSERT_TRUE(tree.SaveToNode(root));
  _auto_ptr<KyUtXMLDOMNode> structure = root->AppendNode(L"Structure", L"", L"", L"");
  ASSERT_TRUE(tree.WriteChildNode(structure));
  ASSERT_TRUE(doc.Save(nullptr));
  const std::string text = Text(dir.path() / "x.xml");
  EXPECT_EQ(text.find("Stale"), std::string::npos);
  EXPECT_NE(text.find("<Directory k=\"v\" name=\"D\">"), std::string::npos) << text;
  EXPECT_NE(text.find("<Item w=\"9\" name=\"I\" file=\"I.DWG\""), std::string::npos) << text;
  EXPECT_NE(text.find("<Node name=\"\""), std::string::npos) << text;
  const std::string tail = text.substr(text.find("<Structure"));
  EXPECT_NE(tail.find("<Directory name=\"D\">"), std::string::npos) << tail;
  EXPECT_NE(tail.find("<Item name=\"I\" file=\"I.DWG\""), std::string::npos) << tail;
  EXPECT_EQ(tail.find("k=\"v\""), std::string::npos) << tail;
  EXPECT_EQ(tail.find("<Node"), std::string::npos) << tail;
  // A directory name that can't stand as an element name isn't the
  // problem: the name goes into an attribute.
  d->SetName(L"<&>");
  _auto_ptr<KyUtXMLDOMNode> again = root->AppendNode(L"Again", L"", L"", L"");
  EXPECT_TRUE(tree.WriteChildNode(again));
}

TEST(LibraryDirectoryXml, DeepNestingReadsSavesAndFreesWithoutStackOverflow) {
  tolvtest::ScratchDir dir("lib_deep");
  std::string xml = "<TolvDwgLib name=\"deep\">";
  const int depth = 10000;
  for (int i = 0; i < depth; ++i) xml += "<Directory name=\"d\">";
  xml += "<Item name=\"leaf\" file=\"leaf.DWG\" k=\"v\"/>";
  for (int i = 0; i < depth; ++i) xml += "</Directory>";
  xml += "</TolvDwgLib>";
  WriteText(dir.path() / "deep.DML", xml);
  KyDtDwgLib lib;
  lib.SetFileName(dir.wide("deep.DML").c_str());
  ASSERT_TRUE(lib.ReadFromXML());
  ASSERT_NE(lib.Find(L"leaf"), nullptr);
  EXPECT_NE(lib.FindItem(L"k", L"v"), nullptr);
  ASSERT_TRUE(lib.SaveToXML());
  KyDtDwgLib back;
  back.SetFileName(dir.wide("deep.DML").c_str());
  ASSERT_TRUE(back.ReadFromXML());
  EXPECT_NE(back.Find(L"leaf"), nullptr);
  KyDtLibDirectory shape;
  EXPECT_TRUE(shape.CopyDirectoryFrom(back));
  std::unique_ptr<KyDtLibItemBase> clone(back.Clone());
  EXPECT_NE(static_cast<KyDtLibDirectory &>(*clone).Find(L"leaf"), nullptr);
  _auto_ptr<KyUtXMLDOMNode> none;
  KyUtXMLDOMFile doc;
  WriteText(dir.path() / "s.xml", "<S/>");
  ASSERT_TRUE(doc.Open(dir.wide("s.xml").c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = doc.GetRoot();
  EXPECT_TRUE(back.WriteChildNode(root));
  EXPECT_FALSE(back.WriteChildNode(none));
}

TEST(LibraryDirectoryXml, HugeAttributeValuesRoundTrip) {
  tolvtest::ScratchDir dir("lib_huge");
  WriteText(dir.path() / "h.DML", "<Library/>");
  KyDtLib lib;
  lib.SetFileName(dir.wide("h.DML").c_str());
  const std::wstring big(100000, L'\x7a97');
  AddItem(lib, L"I")->SetAttributeValue(L"desc", big.c_str());
  ASSERT_TRUE(lib.SaveToXML());
  KyDtLib back;
  back.SetFileName(dir.wide("h.DML").c_str());
  ASSERT_TRUE(back.ReadFromXML());
  EXPECT_EQ(back.FindItem(L"desc", big.c_str())->GetAttributeValue(L"desc").str(), big);
}

// ---- Groups ----

namespace {

const char *kGroup =
    "<TolvDwgLibGroup name=\"Arch\" note=\"n\">\n"
    "  <TolvDwgLib>Doors.DML</TolvDwgLib>\n"
    "  <Whatever>Windows.DML</Whatever>\n"
    "  <TolvDwgLib>Missing.DML</TolvDwgLib>\n"
    "</TolvDwgLibGroup>\n";

}  // namespace

TEST(LibraryGroup, ChildrenOfAnyNameMakeLibrariesOfTheGroupsClass) {
  tolvtest::ScratchDir dir("group_read");
  WriteText(dir.path() / "LibGroup.DMLS", kGroup);
  KyDtDwgLibGroup group;
  const std::wstring folder = dir.wide() + L"\\";
  group.SetFileName((folder + L"LibGroup.DMLS").c_str());
  ASSERT_TRUE(group.ReadFromXML());
  EXPECT_EQ(group.GetName(), CString(L"Arch"));
  EXPECT_EQ(group.GetAttributeValue(L"note"), CString(L"n"));
  ASSERT_EQ(group.GetLength(), 3);
  for (std::int32_t i = 0; i < 3; ++i) EXPECT_EQ(libtest::TypeOf(group.GetAt(i)), typeid(KyDtDwgLib));
  EXPECT_EQ(group.GetAt(1)->GetFileName().str(), folder + L"Windows.DML");
  KyDtEquipLibGroup equip;
  EXPECT_EQ(libtest::TypeOf(std::unique_ptr<KyDtLib>(equip.NewLib()).get()), typeid(KyDtEquipLib));
  KyDtWordLibGroup word;
  EXPECT_EQ(libtest::TypeOf(std::unique_ptr<KyDtLib>(word.NewLib()).get()), typeid(KyDtWordLib));
  KyDmLibGroup plain;
  EXPECT_EQ(libtest::TypeOf(std::unique_ptr<KyDtLib>(plain.NewLib()).get()), typeid(KyDtLib));
}

TEST(LibraryGroup, NodeNamesOfEveryKind) {
  EXPECT_EQ(KyDtLibItemBase().GetXMLNodeName(), CString(L"Node"));
  EXPECT_EQ(KyDtLibItem().GetXMLNodeName(), CString(L"Item"));
  EXPECT_EQ(KyDtLibDirectory().GetXMLNodeName(), CString(L"Directory"));
  EXPECT_EQ(KyDtLib().GetXMLNodeName(), CString(L"Library"));
  EXPECT_EQ(KyDmLibGroup().GetXMLNodeName(), CString(L"LibraryGroup"));
  EXPECT_EQ(KyDtDwgLib().GetXMLNodeName(), CString(L"TolvDwgLib"));
  EXPECT_EQ(KyDtDwgLibGroup().GetXMLNodeName(), CString(L"TolvDwgLibGroup"));
  EXPECT_EQ(KyDtEquipLib().GetXMLNodeName(), CString(L"TolvEquipLib"));
  EXPECT_EQ(KyDtEquipLibGroup().GetXMLNodeName(), CString(L"TolvEquipLibGroup"));
  EXPECT_EQ(KyDtWordLib().GetXMLNodeName(), CString(L"TolvWordLib"));
  EXPECT_EQ(KyDtWordLibGroup().GetXMLNodeName(), CString(L"TolvWordLibGroup"));
}

TEST(LibraryGroup, TextWithBackslashIsAFullPathAsItStands) {
  tolvtest::ScratchDir dir("group_path");
  WriteText(dir.path() / "LibGroup.DMLS",
            "<TolvDwgLibGroup name=\"g\"><TolvDwgLib>E:\\Other\\Lib.DML</TolvDwgLib>"
            "<TolvDwgLib>sub\\Lib.DML</TolvDwgLib></TolvDwgLibGroup>");
  KyDtDwgLibGroup group;
  group.SetFileName((dir.wide() + L"\\LibGroup.DMLS").c_str());
  ASSERT_TRUE(group.ReadFromXML());
  ASSERT_EQ(group.GetLength(), 2);
  EXPECT_EQ(group.GetAt(0)->GetFileName(), CString(L"E:\\Other\\Lib.DML"));
  EXPECT_EQ(group.GetAt(1)->GetFileName(), CString(L"sub\\Lib.DML"));
}

TEST(LibraryGroup, AbsurdChildTextsGiveLibrariesThatFailCleanly) {
  tolvtest::ScratchDir dir("group_absurd");
  const std::string longText(100000, 'x');
  WriteText(dir.path() / "LibGroup.DMLS", "<TolvDwgLibGroup name=\"g\"><a></a><b>\\</b><c>" + longText +
                                              "</c><d>\\\\\\</d></TolvDwgLibGroup>");
  KyDtDwgLibGroup group;
  const std::wstring folder = dir.wide() + L"\\";
  group.SetFileName((folder + L"LibGroup.DMLS").c_str());
  ASSERT_TRUE(group.ReadFromXML());
  ASSERT_EQ(group.GetLength(), 4);
  EXPECT_EQ(group.GetAt(0)->GetFileName().str(), folder);  // empty text: the folder itself
  EXPECT_EQ(group.GetAt(1)->GetFileName(), CString(L"\\"));
  EXPECT_EQ(group.GetAt(2)->GetFileName().GetLength(), static_cast<int>(folder.size()) + 100000);
  group.ReadLibFromXML();  // none of them reads; none of them stops the others
  for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(group.GetAt(i)->GetLength(), 0);
  group.SaveLibToXML();
  ASSERT_TRUE(group.SaveToXML());
  KyDtDwgLibGroup back;
  back.SetFileName((folder + L"LibGroup.DMLS").c_str());
  ASSERT_TRUE(back.ReadFromXML());
  ASSERT_EQ(back.GetLength(), 4);
  EXPECT_EQ(back.GetAt(2)->GetFileName(), group.GetAt(2)->GetFileName());
}

TEST(LibraryGroup, ReadLibGoesOnAfterAMissingFile) {
  tolvtest::ScratchDir dir("group_libs");
  WriteText(dir.path() / "LibGroup.DMLS", kGroup);
  WriteText(dir.path() / "Doors.DML", kDoorLib);
  WriteText(dir.path() / "Windows.DML", "<TolvDwgLib name=\"Windows\"><Item name=\"C1515\" file=\"C1515.DWG\"/></TolvDwgLib>");
  KyDtDwgLibGroup group;
  group.SetFileName((dir.wide() + L"\\LibGroup.DMLS").c_str());
  ASSERT_TRUE(group.ReadFromXML());
  // Reading the group loads no library.
  EXPECT_EQ(group.GetAt(0)->GetLength(), 0);
  group.ReadLibFromXML();
  ASSERT_EQ(group.GetLength(), 3);
  EXPECT_EQ(group.GetAt(0)->GetName(), CString(L"Doors"));
  EXPECT_EQ(group.GetAt(1)->GetName(), CString(L"Windows"));
  EXPECT_NE(group.GetAt(1)->Find(L"C1515"), nullptr);
  EXPECT_EQ(group.GetAt(2)->GetLength(), 0);  // missing: stays, empty
}

TEST(LibraryGroup, SaveWritesLibrariesInTheFolderByFileNameInAnyCase) {
  tolvtest::ScratchDir dir("group_save");
  WriteText(dir.path() / "LibGroup.DMLS", "<TolvDwgLibGroup name=\"old\"><Stale/></TolvDwgLibGroup>");
  KyDtDwgLibGroup group;
  const std::wstring folder = dir.wide() + L"\\";
  group.SetFileName((folder + L"LibGroup.DMLS").c_str());
  group.SetName(L"Arch");
  CString upper(folder.c_str());
  upper.MakeUpper();
  auto add = [&group](const std::wstring &file) {
    KyDtLib *lib = group.NewLib();
    lib->SetFileName(file.c_str());
    group.Append(lib);
  };
  add(upper.str() + L"Doors.DML");   // the group's folder in other case
  add(L"E:\\Elsewhere\\Win.DML");    // another folder: the full path
  add(L"\\Root.DML");                // "\" at index 0: as it stands
  add(L"Bare.DML");                  // no "\": as it stands
  ASSERT_TRUE(group.SaveToXML());
  const std::string text = Text(dir.path() / "LibGroup.DMLS");
  EXPECT_EQ(text.find("Stale"), std::string::npos);
  EXPECT_NE(text.find("name=\"Arch\""), std::string::npos) << text;
  EXPECT_NE(text.find("<TolvDwgLib>Doors.DML</TolvDwgLib>"), std::string::npos) << text;
  EXPECT_NE(text.find("<TolvDwgLib>E:\\Elsewhere\\Win.DML</TolvDwgLib>"), std::string::npos) << text;
  EXPECT_NE(text.find("<TolvDwgLib>\\Root.DML</TolvDwgLib>"), std::string::npos) << text;
  EXPECT_NE(text.find("<TolvDwgLib>Bare.DML</TolvDwgLib>"), std::string::npos) << text;
  KyDtDwgLibGroup back;
  back.SetFileName((folder + L"LibGroup.DMLS").c_str());
  ASSERT_TRUE(back.ReadFromXML());
  ASSERT_EQ(back.GetLength(), 4);
  EXPECT_EQ(back.GetAt(0)->GetFileName().str(), folder + L"Doors.DML");
  EXPECT_EQ(back.GetAt(3)->GetFileName().str(), folder + L"Bare.DML");
}

TEST(LibraryGroup, ReadClearsAttributesAndWrongRootChangesNothing) {
  tolvtest::ScratchDir dir("group_root");
  WriteText(dir.path() / "LibGroup.DMLS", kGroup);
  WriteText(dir.path() / "Word.DMLS", "<TolvWordLibGroup name=\"w\"/>");
  KyDtDwgLibGroup group;
  group.SetAttributeValue(L"stale", L"x");
  group.SetFileName((dir.wide() + L"\\LibGroup.DMLS").c_str());
  ASSERT_TRUE(group.ReadFromXML());
  EXPECT_FALSE(group.HasAttribute(L"stale"));
  group.SetFileName((dir.wide() + L"\\Word.DMLS").c_str());
  EXPECT_FALSE(group.ReadFromXML());
  EXPECT_EQ(group.GetLength(), 3);
  EXPECT_FALSE(group.SaveToXML());
  KyDmLibGroup plain;
  plain.SetFileName((dir.wide() + L"\\LibGroup.DMLS").c_str());
  EXPECT_FALSE(plain.ReadFromXML());
}

TEST(LibraryGroup, FilePathIsUpToTheLastBackslash) {
  KyDtLib lib;
  EXPECT_EQ(lib.GetFilePath(), CString());
  lib.SetFileName(L"C:\\a\\b.DML");
  EXPECT_EQ(lib.GetFilePath(), CString(L"C:\\a\\"));
  lib.SetFileName(L"b.DML");
  EXPECT_EQ(lib.GetFilePath(), CString());
  KyDmLibGroup group;
  group.SetFileName(L"\\LibGroup.DMLS");
  EXPECT_EQ(group.GetFilePath(), CString(L"\\"));
}

TEST(LibraryFile, TruncatedFilesReadFalseOrAWholeTree) {
  tolvtest::ScratchDir dir("lib_truncated");
  const std::string whole =
      tolvtest::ReadFileBytes(std::filesystem::path(TOLV_SOURCE_DIR) / "share/support/DwgLib/ARCH/FURNITURE.DML");
  ASSERT_GT(whole.size(), 100u);
  int read = 0;
  for (std::size_t cut = 0; cut < whole.size(); cut += 7) {
    WriteText(dir.path() / "cut.DML", whole.substr(0, cut));
    KyDtDwgLib lib;
    lib.SetFileName(dir.wide("cut.DML").c_str());
    if (lib.ReadFromXML()) ++read;
    KyDtDwgLibGroup group;
    group.SetFileName(dir.wide("cut.DML").c_str());
    EXPECT_FALSE(group.ReadFromXML());
  }
  // Only a cut after the root's end tag leaves a readable file.
  EXPECT_LE(read, 1);
  WriteText(dir.path() / "cut.DML", whole);
  KyDtDwgLib lib;
  lib.SetFileName(dir.wide("cut.DML").c_str());
  EXPECT_TRUE(lib.ReadFromXML());
}

TEST(LibraryNode, ElementWithoutNameEmptiesTheNameFieldButKeepsTheOldAttribute) {
  tolvtest::ScratchDir dir("lib_noname");
  WriteText(dir.path() / "x.xml", "<Root><Item a=\"1\"/><Item name=\"B\" file=\"b.DWG\" a=\"2\"/></Root>");
  KyUtXMLDOMFile doc;
  ASSERT_TRUE(doc.Open(dir.wide("x.xml").c_str()));
  KyUtXMLDOMNodeArray children;
  children = doc.GetRoot()->GetChildrenNodes();
  KyDtLibItem item;
  item.SetName(L"old");
  item.SetDataFile(L"old.DWG");
  item.SetAttributeValue(L"name", L"stale");
  ASSERT_TRUE(item.ReadFromNode(children->GetItem(0)));
  EXPECT_EQ(item.GetName(), CString());
  EXPECT_EQ(item.GetDataFile(), CString());
  EXPECT_EQ(item.GetAttributeValue(L"name"), CString(L"stale"));
  // Two nodes read from one document keep values of their own.
  KyDtLibItem other;
  ASSERT_TRUE(other.ReadFromNode(children->GetItem(1)));
  other.SetAttributeValue(L"a", L"changed");
  EXPECT_EQ(item.GetAttributeValue(L"a"), CString(L"1"));
  EXPECT_EQ(other.GetName(), CString(L"B"));
  EXPECT_EQ(other.GetDataFile(), CString(L"b.DWG"));
  CString name = other.GetName();
  name.MakeLower();
  EXPECT_EQ(other.GetName(), CString(L"B"));
  EXPECT_EQ(other.GetAttributeValue(L"name"), CString(L"B"));
}
