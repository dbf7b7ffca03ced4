// The XML form of dictionaries: reading, writing and the kinds' elements.
#include <gtest/gtest.h>

#include <memory>

#include "dict_test_util.h"
#include "language/LangTranslate.h"
#include "platform/utility/KyUtXMLDOM.h"

using dicttest::ChildNames;
using Names = std::vector<std::wstring>;

namespace {

std::string Doc(const std::string &rootAttributes, const std::string &body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary" + rootAttributes + ">" + body +
         "</TolvDictionary>\n";
}

class DictXml : public ::testing::Test {
 protected:
  DictXml() : dir_("dict_xml") {}

  // Writes the text to a file and reads it into `dict`.
  bool ReadText(KyDtDictionary &dict, const std::string &text, const std::string &name = "in.xml") {
    dicttest::WriteText(dir_.path() / name, text);
    return dict.ReadFromXML(dir_.wide(name).c_str());
  }
  std::wstring Path(const std::string &name) const { return dir_.wide(name); }
  std::string Bytes(const std::string &name) const { return tolvtest::ReadFileBytes(dir_.path() / name); }

  // The element of the first child of the saved file's root, for looking at
  // attributes one by one.
  struct Saved {
    KyUtXMLDOMFile file;
    _auto_ptr<KyUtXMLDOMNode> root;
  };
  std::unique_ptr<Saved> Reopen(const std::string &name) {
    auto saved = std::make_unique<Saved>();
    EXPECT_TRUE(saved->file.Open(Path(name).c_str()));
    saved->root = saved->file.GetRoot();
    return saved;
  }
  _auto_ptr<KyUtXMLDOMNode> Child(Saved &saved, int index) {
    KyUtXMLDOMNodeArray children;
    children = saved.root->GetChildrenNodes();
    return children->GetItem(index);
  }

  tolvtest::ScratchDir dir_;
};

}  // namespace

// ---- Root ----

TEST_F(DictXml, RootWithoutAutosortReadsUnsortedAndIsWrittenFalse) {
  KyDtDictionary dict;
  dict.SetAutoSort(1);
  ASSERT_TRUE(ReadText(dict, Doc("", "<Int name=\"b\">1</Int><Int name=\"a\">2</Int>")));
  EXPECT_EQ(dict.IsAutoSort(), 0);
  EXPECT_EQ(ChildNames(dict), (Names{L"b", L"a"}));
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(saved->root->GetAttributeValue(L"autosort")), L"FALSE");
}

TEST_F(DictXml, LowerCaseAutosortReadsAsOff) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc(" autosort=\"true\"", "<Int name=\"b\">1</Int><Int name=\"a\">2</Int>")));
  EXPECT_EQ(dict.IsAutoSort(), 0);
  EXPECT_EQ(ChildNames(dict), (Names{L"b", L"a"}));
}

TEST_F(DictXml, AutosortTrueSortsTheWholeTreeAsItArrives) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc(" autosort=\"TRUE\" localname=\"L\"",
                                 "<Int name=\"中\">1</Int><Int name=\"b\">2</Int><Int name=\"啊\">3</Int>"
                                 "<Directory name=\"d\" autosort=\"FALSE\"><Int name=\"y\">1</Int><Int name=\"x\">2</Int>"
                                 "</Directory><Int name=\"B\">4</Int>")));
  EXPECT_EQ(dict.IsAutoSort(), 1);
  EXPECT_EQ(ChildNames(dict), (Names{L"B", L"b", L"d", L"啊", L"中"}));
  KyDtDictionary *sub = dict.FindDict(L"d");
  ASSERT_NE(sub, nullptr);
  // The inner attribute has no effect beyond standing in the bag.
  EXPECT_EQ(sub->IsAutoSort(), 1);
  EXPECT_EQ(sub->GetAttributeValue(L"autosort"), L"FALSE");
  EXPECT_EQ(ChildNames(*sub), (Names{L"x", L"y"}));
  int value = 0;
  EXPECT_TRUE(dict.GetValue(L"啊", value));
  EXPECT_EQ(value, 3);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  KyDtDictionary again;
  ASSERT_TRUE(again.ReadFromXML(Path("out.xml").c_str()));
  EXPECT_EQ(again.IsAutoSort(), 1);
  EXPECT_EQ(again.CompareWith(dict), 0);
}

TEST_F(DictXml, RootHeaderAndOtherAttributesAreRead) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc(" name=\"root\" localname=\"根\" comment=\"c\" version=\"3\"", "")));
  EXPECT_EQ(dict.m_strName, L"root");
  EXPECT_EQ(dict.m_strLocalName, L"根");
  EXPECT_EQ(dict.m_strComment, L"c");
  EXPECT_EQ(dict.GetAttributeValue(L"version"), L"3");
  EXPECT_EQ(dict.GetAttributeValue(L"name"), L"root");
}

TEST_F(DictXml, ReadingReplacesChildrenAndTheBagKeepsOldEntries) {
  KyDtDictionary dict;
  dict.SetValue(L"old", 1);
  dict.SetAttributeValue(L"kept", L"yes");
  ASSERT_TRUE(ReadText(dict, Doc(" extra=\"1\"", "<Int name=\"new\">2</Int>")));
  EXPECT_EQ(ChildNames(dict), (Names{L"new"}));
  EXPECT_EQ(dict.GetAttributeValue(L"kept"), L"yes");
  EXPECT_EQ(dict.GetAttributeValue(L"extra"), L"1");
}

TEST_F(DictXml, MissingOrBrokenFilesAndOtherRootsLeaveTheDictionaryAsItWas) {
  KyDtDictionary dict;
  dict.SetAutoSort(1);
  dict.SetValue(L"keep", 1);
  EXPECT_FALSE(dict.ReadFromXML(Path("missing.xml").c_str()));
  EXPECT_FALSE(ReadText(dict, "<TolvDictionary><Int name=\"x\">1</Int>", "broken.xml"));
  EXPECT_FALSE(ReadText(dict, "<?xml version=\"1.0\"?><TolvProject><Int name=\"x\">1</Int></TolvProject>", "other.xml"));
  EXPECT_FALSE(ReadText(dict, "", "empty.xml"));
  EXPECT_FALSE(ReadText(dict, "not xml at all \x01\x02", "garbage.xml"));
  EXPECT_EQ(ChildNames(dict), (Names{L"keep"}));
  EXPECT_EQ(dict.IsAutoSort(), 1);
}

// ---- Elements ----

TEST_F(DictXml, EachElementNameGivesItsKind) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Bool name=\"b\">TRUE</Bool><Char name=\"c\">x</Char><Int name=\"i\">-12</Int>"
                                     "<Double name=\"d\">2.5</Double><String name=\"s\">文字</String>"
                                     "<Option name=\"o\" options=\"A B C\">B</Option>"
                                     "<Reference name=\"r\">s</Reference><Directory name=\"dir\"/>"
                                     "<Floor name=\"f\"/>")));
  const int kinds[] = {1, 2, 3, 4, 5, 6, 7, 0, 0};
  ASSERT_EQ(dict.GetLength(), 9);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(dict.GetAt(i)->GetType(), kinds[i]) << i;
  bool b = false;
  char c = 0;
  int i = 0;
  double d = 0;
  CString s;
  unsigned int o = 99;
  EXPECT_TRUE(dict.GetValue(L"b", b));
  EXPECT_TRUE(b);
  EXPECT_TRUE(dict.GetValue(L"c", c));
  EXPECT_EQ(c, 'x');
  EXPECT_TRUE(dict.GetValue(L"i", i));
  EXPECT_EQ(i, -12);
  EXPECT_TRUE(dict.GetValue(L"d", d));
  EXPECT_EQ(d, 2.5);
  EXPECT_TRUE(dict.GetValue(L"s", s));
  EXPECT_EQ(s, L"文字");
  EXPECT_TRUE(dict.GetValue(L"o", o));
  EXPECT_EQ(o, 1u);
  auto *reference = static_cast<KyDtDictReferenceItem *>(dict.FindItem(L"r"));
  EXPECT_EQ(reference->GetItemRef(), dict.FindItem(L"s"));  // resolved at the end of the read
}

TEST_F(DictXml, ElementAndAttributeNamesAreCaseSensitive) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<int name=\"i\" Name=\"other\">5</int>")));
  KyDtDictItem *item = dict.GetAt(0);
  EXPECT_TRUE(item->IsDict());
  EXPECT_TRUE(static_cast<KyDtDictionary *>(item)->IsClassOf(L"int"));
  EXPECT_EQ(item->m_strName, L"i");
  EXPECT_EQ(item->GetAttributeValue(L"Name"), L"other");
}

TEST_F(DictXml, ClassNamedElementRoundTrips) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Floor name=\"F1\"><Int name=\"h\">3000</Int></Floor>")));
  KyDtDictionary *floor = dict.FindDict(L"F1");
  ASSERT_NE(floor, nullptr);
  EXPECT_TRUE(floor->IsClassOf(L"Floor"));
  EXPECT_EQ(CString(floor->GetClassNameW()), L"Floor");
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(Child(*saved, 0)->GetNodeName()), L"Floor");
  KyDtDictionary plain;
  plain.FindOrAddDict(L"D");
  ASSERT_TRUE(plain.SaveToXML(Path("plain.xml").c_str()));
  auto plainSaved = Reopen("plain.xml");
  EXPECT_EQ(CString(Child(*plainSaved, 0)->GetNodeName()), L"Directory");
}

TEST_F(DictXml, DuplicateNamesKeepTheFirst) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Int name=\"n\">1</Int><Int name=\"m\">5</Int><Int name=\"n\">2</Int>"
                                     "<String name=\"n\">three</String>")));
  EXPECT_EQ(ChildNames(dict), (Names{L"n", L"m"}));
  int value = 0;
  EXPECT_TRUE(dict.GetValue(L"n", value));
  EXPECT_EQ(value, 1);
  // The last refusal leaves the cursor on the first namesake.
  EXPECT_EQ(dict.GetCur(), 0);
}

TEST_F(DictXml, DuplicateNamesInASortedFileKeepTheFirst) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc(" autosort=\"TRUE\"", "<Int name=\"n\">1</Int><Int name=\"a\">5</Int>"
                                                      "<Int name=\"n\">2</Int><String name=\"\">u1</String>"
                                                      "<String name=\"\">u2</String>")));
  EXPECT_EQ(ChildNames(dict), (Names{L"", L"", L"a", L"n"}));
  int value = 0;
  EXPECT_TRUE(dict.GetValue(L"n", value));
  EXPECT_EQ(value, 1);
  EXPECT_EQ(static_cast<KyDtDictStringItem *>(dict.GetAt(0))->m_value, L"u1");
  EXPECT_EQ(static_cast<KyDtDictStringItem *>(dict.GetAt(1))->m_value, L"u2");
}

TEST_F(DictXml, UnnamedStringsStayInOrderAndAreWrittenWithAnEmptyName) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Directory name=\"arr\"><String>a</String><String name=\"\">b</String>"
                                     "<String>a</String></Directory>")));
  KyDynArray<CString> values;
  ASSERT_TRUE(dict.GetValue(L"arr", values));
  ASSERT_EQ(values.GetLength(), 3);
  EXPECT_EQ(values[0], L"a");
  EXPECT_EQ(values[1], L"b");
  EXPECT_EQ(values[2], L"a");
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  KyUtXMLDOMNodeArray elements;
  elements = Child(*saved, 0)->GetChildrenNodes();
  ASSERT_EQ(elements->GetCount(), 3);
  for (int i = 0; i < 3; ++i) {
    _auto_ptr<KyUtXMLDOMNode> element = elements->GetItem(i);
    EXPECT_TRUE(element->IsAttributeExist(L"name"));
    EXPECT_EQ(CString(element->GetAttributeValue(L"name")), L"");
  }
}

TEST_F(DictXml, BoolTextMustBeTheUpperCaseWord) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Bool name=\"a\">True</Bool><Bool name=\"b\">TRUE</Bool><Bool name=\"c\"/>")));
  EXPECT_EQ(static_cast<KyDtDictBoolItem *>(dict.FindItem(L"a"))->m_value, 0);
  EXPECT_EQ(static_cast<KyDtDictBoolItem *>(dict.FindItem(L"b"))->m_value, 1);
  EXPECT_EQ(static_cast<KyDtDictBoolItem *>(dict.FindItem(L"c"))->m_value, 0);
}

TEST_F(DictXml, BoolIsWrittenTrueForAnyNonzeroNumber) {
  KyDtDictionary dict;
  dict.SetValue(L"b", true);
  static_cast<KyDtDictBoolItem *>(dict.FindItem(L"b"))->m_value = 7;
  dict.SetValue(L"f", false);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(Child(*saved, 0)->GetNodeValue()), L"TRUE");
  EXPECT_EQ(CString(Child(*saved, 1)->GetNodeValue()), L"FALSE");
}

TEST_F(DictXml, OptionTextNotAmongTheOptionsSelectsNothing) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Option name=\"o\" options=\"A B\">C</Option>"
                                     "<Option name=\"e\" options=\"\">A</Option><Option name=\"n\">A</Option>")));
  auto *o = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"o"));
  EXPECT_EQ(o->m_nCurSel, -1);
  EXPECT_EQ(o->GetLength(), 2);
  auto *e = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"e"));
  EXPECT_EQ(e->GetLength(), 0);
  EXPECT_EQ(e->m_nCurSel, -1);
  EXPECT_EQ(static_cast<KyDtDictOptionItem *>(dict.FindItem(L"n"))->GetLength(), 0);
}

TEST_F(DictXml, OptionSeparatorsDifferBetweenReadingAndWriting) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Option name=\"o\" options=\"A B;C D\">C D</Option>"
                                     "<Option name=\"p\" options=\"  x  y \">y</Option>"
                                     "<Option name=\"q\" options=\";;a;;b;\">b</Option>")));
  auto *o = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"o"));
  ASSERT_EQ(o->GetLength(), 2);
  EXPECT_EQ(o->GetAt(0), L"A B");
  EXPECT_EQ(o->GetAt(1), L"C D");
  EXPECT_EQ(o->m_nCurSel, 1);
  auto *p = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"p"));
  ASSERT_EQ(p->GetLength(), 2);  // empty pieces are dropped
  EXPECT_EQ(p->m_nCurSel, 1);
  auto *q = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"q"));
  ASSERT_EQ(q->GetLength(), 2);
  EXPECT_EQ(q->GetAt(1), L"b");
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(Child(*saved, 0)->GetAttributeValue(L"options")), L"A B C D");
  EXPECT_EQ(CString(Child(*saved, 0)->GetNodeValue()), L"C D");
  saved.reset();
  KyDtDictionary again;
  ASSERT_TRUE(again.ReadFromXML(Path("out.xml").c_str()));
  auto *o2 = static_cast<KyDtDictOptionItem *>(again.FindItem(L"o"));
  EXPECT_EQ(o2->GetLength(), 4);
  EXPECT_EQ(o2->m_nCurSel, -1);
}

TEST_F(DictXml, OptionWithoutASelectionWritesAnEmptyText) {
  KyDtDictionary dict;
  auto *option = static_cast<KyDtDictOptionItem *>(dict.FindOrAddItem(L"o", KyDtDictItem::DT_OPTION));
  option->Append(CString(L"A"));
  option->m_nCurSel = -1;
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(Child(*saved, 0)->GetNodeValue()), L"");
  EXPECT_EQ(CString(Child(*saved, 0)->GetAttributeValue(L"options")), L"A");
}

TEST_F(DictXml, CharIsReadAsTextAndWrittenAsItsNumber) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Char name=\"c\">x</Char><Char name=\"e\"></Char><Char name=\"z\">中</Char>")));
  auto *c = static_cast<KyDtDictCharItem *>(dict.FindItem(L"c"));
  EXPECT_EQ(c->m_value, 'x');
  // An empty text leaves the value as it was: a new item holds 0.
  EXPECT_EQ(static_cast<KyDtDictCharItem *>(dict.FindItem(L"e"))->m_value, 0);
  // The first byte of the narrow form: 中 is D6 D0.
  EXPECT_EQ(static_cast<unsigned char>(static_cast<KyDtDictCharItem *>(dict.FindItem(L"z"))->m_value), 0xD6);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  EXPECT_EQ(CString(Child(*saved, 0)->GetNodeValue()), L"120");
  EXPECT_EQ(CString(Child(*saved, 2)->GetNodeValue()), L"-42");  // signed
  saved.reset();
  KyDtDictionary again;
  ASSERT_TRUE(again.ReadFromXML(Path("out.xml").c_str()));
  EXPECT_EQ(static_cast<KyDtDictCharItem *>(again.FindItem(L"c"))->m_value, '1');
}

TEST_F(DictXml, NumbersThatDontParseReadAsZero) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Int name=\"i\">abc</Int><Double name=\"d\">x1</Double><Int name=\"j\"> 42x</Int>")));
  int i = -1;
  double d = -1;
  int j = 0;
  EXPECT_TRUE(dict.GetValue(L"i", i));
  EXPECT_EQ(i, 0);
  EXPECT_TRUE(dict.GetValue(L"d", d));
  EXPECT_EQ(d, 0.0);
  EXPECT_TRUE(dict.GetValue(L"j", j));
  EXPECT_EQ(j, 42);
}

TEST_F(DictXml, DoublesComeBackExactly) {
  KyDtDictionary dict;
  const double values[] = {0.1, 1.0 / 3.0, 1e-300, -2.5e17, 123456789.125};
  for (int i = 0; i < 5; ++i) {
    CString path;
    path.Format(L"d%d", i);
    dict.SetValue(path, values[i]);
  }
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  KyDtDictionary again;
  ASSERT_TRUE(again.ReadFromXML(Path("out.xml").c_str()));
  for (int i = 0; i < 5; ++i) {
    CString path;
    path.Format(L"d%d", i);
    double value = 0;
    EXPECT_TRUE(again.GetValue(path, value));
    EXPECT_EQ(value, values[i]);
  }
}

// ---- Header fields and the bag ----

TEST_F(DictXml, ReadingKeepsTheHeaderAttributesInTheBag) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<String name=\"s\" localname=\"本地\" comment=\"注释\" element_type=\"MENUITEM\">t</String>")));
  KyDtDictItem *item = dict.FindItem(L"s");
  EXPECT_EQ(item->m_strLocalName, L"本地");
  EXPECT_EQ(item->m_strComment, L"注释");
  EXPECT_EQ(item->GetAttributeValue(L"name"), L"s");
  EXPECT_EQ(item->GetAttributeValue(L"localname"), L"本地");
  EXPECT_EQ(item->GetAttributeValue(L"comment"), L"注释");
  EXPECT_EQ(item->GetAttributeValue(L"element_type"), L"MENUITEM");
}

TEST_F(DictXml, AnEmptiedCommentIsWrittenWithItsOldText) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Int name=\"n\" comment=\"old\" localname=\"ln\">1</Int>")));
  KyDtDictItem *item = dict.FindItem(L"n");
  item->m_strComment.Empty();
  item->m_strLocalName = L"new";
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  _auto_ptr<KyUtXMLDOMNode> element = Child(*saved, 0);
  EXPECT_EQ(CString(element->GetAttributeValue(L"comment")), L"old");
  EXPECT_EQ(CString(element->GetAttributeValue(L"localname")), L"new");
}

TEST_F(DictXml, WrittenElementsCarryBagFieldsAndName) {
  KyDtDictionary dict;
  dict.SetValue(L"v", 5);
  KyDtDictItem *item = dict.FindItem(L"v");
  item->m_strLocalName = L"本地";
  item->SetAttributeValue(L"zeta", L"z");
  item->SetAttributeValue(L"alpha", L"a");
  KyDtDictItem *unnamed = CreateDictItem(KyDtDictItem::DT_STRING);
  dict.AppendItem(unnamed);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  _auto_ptr<KyUtXMLDOMNode> element = Child(*saved, 0);
  EXPECT_EQ(CString(element->GetNodeName()), L"Int");
  EXPECT_EQ(CString(element->GetNodeValue()), L"5");
  EXPECT_EQ(CString(element->GetAttributeValue(L"name")), L"v");
  EXPECT_EQ(CString(element->GetAttributeValue(L"localname")), L"本地");
  EXPECT_EQ(CString(element->GetAttributeValue(L"alpha")), L"a");
  EXPECT_FALSE(element->IsAttributeExist(L"comment"));
  // "name" first, then the bag in key order, then the fields.
  ASSERT_EQ(element->GetAttributeNum(), 4);
  EXPECT_EQ(CString(element->GetAttributeName(0)), L"name");
  EXPECT_EQ(CString(element->GetAttributeName(1)), L"alpha");
  EXPECT_EQ(CString(element->GetAttributeName(2)), L"zeta");
  EXPECT_EQ(CString(element->GetAttributeName(3)), L"localname");
  _auto_ptr<KyUtXMLDOMNode> second = Child(*saved, 1);
  EXPECT_TRUE(second->IsAttributeExist(L"name"));
}

TEST_F(DictXml, BareItemsAreNotWritten) {
  KyDtDictionary dict;
  dict.AppendItem(CreateDictItem(KyDtDictItem::DT_NONE));
  dict.SetValue(L"n", 1);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  auto saved = Reopen("out.xml");
  KyUtXMLDOMNodeArray children;
  children = saved->root->GetChildrenNodes();
  ASSERT_EQ(children->GetCount(), 1);
  EXPECT_EQ(CString(children->GetItem(0)->GetNodeName()), L"Int");
}

// ---- Files ----

TEST_F(DictXml, NewFileHasTheDeclarationRootAndTranslatedLocalName) {
  KyDtDictionary dict;
  dict.SetValue(L"n", 1);
  ASSERT_TRUE(dict.SaveToXML(Path("new.xml").c_str()));
  const std::string bytes = Bytes("new.xml");
  EXPECT_EQ(bytes.rfind("<?xml", 0), 0u);
  EXPECT_NE(bytes.find("utf-8"), std::string::npos);
  auto saved = Reopen("new.xml");
  EXPECT_EQ(CString(saved->root->GetNodeName()), L"TolvDictionary");
  EXPECT_EQ(CString(saved->root->GetAttributeValue(L"localname")), _TL(L"XML Dictionary"));
  EXPECT_EQ(CString(saved->root->GetAttributeValue(L"localname")), L"XML Dictionary");
}

TEST_F(DictXml, SavingIntoAnExistingFileKeepsTheRootsOtherAttributes) {
  dicttest::WriteText(dir_.path() / "cfg.xml",
                      Doc(" version=\"7\" localname=\"配置\"", "<Int name=\"gone\">1</Int>"));
  KyDtDictionary dict;
  dict.SetValue(L"n", 2);
  ASSERT_TRUE(dict.SaveToXML(Path("cfg.xml").c_str()));
  auto saved = Reopen("cfg.xml");
  EXPECT_EQ(CString(saved->root->GetAttributeValue(L"version")), L"7");
  EXPECT_EQ(CString(saved->root->GetAttributeValue(L"localname")), L"配置");
  KyUtXMLDOMNodeArray children;
  children = saved->root->GetChildrenNodes();
  ASSERT_EQ(children->GetCount(), 1);
  EXPECT_EQ(CString(children->GetItem(0)->GetAttributeValue(L"name")), L"n");
}

TEST_F(DictXml, SavingIntoAFileOfAnotherRootOrAnUnreadableFileFails) {
  const std::string other = "<?xml version=\"1.0\"?><TolvProject a=\"1\"/>";
  dicttest::WriteText(dir_.path() / "other.xml", other);
  dicttest::WriteText(dir_.path() / "broken.xml", "<TolvDictionary>");
  KyDtDictionary dict;
  dict.SetValue(L"n", 2);
  EXPECT_FALSE(dict.SaveToXML(Path("other.xml").c_str()));
  EXPECT_EQ(Bytes("other.xml"), other);
  EXPECT_FALSE(dict.SaveToXML(Path("broken.xml").c_str()));
  EXPECT_EQ(Bytes("broken.xml"), "<TolvDictionary>");
}

TEST_F(DictXml, AFailedWriteAtTheEndStillReportsSuccess) {
  KyDtDictionary dict;
  dict.SetValue(L"n", 2);
  const std::wstring path = Path("no_such_folder/deeper/out.xml");
  EXPECT_TRUE(dict.SaveToXML(path.c_str()));
  EXPECT_FALSE(std::filesystem::exists(dir_.path() / "no_such_folder"));
}

TEST_F(DictXml, StreamOperatorsWorkOnAnyElement) {
  KyUtXMLDOMFile file;
  KyArray<std::pair<CString, CString>> none(0);
  ASSERT_TRUE(file.CreateNewXMLDoc(Path("x.xml").c_str(), L"version='1.0' encoding='utf-8'", L"Any", none));
  _auto_ptr<KyUtXMLDOMNode> root = file.GetRoot();
  _auto_ptr<KyUtXMLDOMNode> element = root->AppendNode(L"Int", L"", L"name", L"n");
  KyDtDictLongItem item;
  item.m_strName = L"n";
  item.m_value = 77;
  item >> element;
  EXPECT_EQ(CString(element->GetNodeValue()), L"77");
  KyDtDictLongItem back;
  back << element;
  EXPECT_EQ(back.m_value, 77);
  EXPECT_EQ(back.m_strName, L"n");
}

TEST_F(DictXml, UnresolvedReferencesArePrintedAndTheReadSucceeds) {
  dicttest::CapturedCommandLine output;
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc("", "<Reference name=\"r\">A\\B</Reference><Reference name=\"e\"></Reference>")));
  EXPECT_EQ(output.Text(), L"\n无法解析的引用：A\\B");
  ASSERT_EQ(output.Pieces().size(), 2u);
  EXPECT_EQ(output.Pieces()[0], L"\n无法解析的引用：");
  EXPECT_EQ(output.Pieces()[1], L"A\\B");
}

TEST_F(DictXml, SortedReadLeavesTheCursorWhereTheLastAppendWould) {
  KyDtDictionary dict;
  ASSERT_TRUE(ReadText(dict, Doc(" autosort=\"TRUE\"", "<Int name=\"c\">1</Int><Int name=\"a\">2</Int><Int name=\"b\">3</Int>")));
  EXPECT_EQ(dict.GetCur(), 1);  // on "b", the last to arrive
  ASSERT_TRUE(ReadText(dict, Doc(" autosort=\"TRUE\"", "<Int name=\"c\">1</Int><Int name=\"a\">2</Int><Int name=\"c\">3</Int>"),
                       "dup.xml"));
  EXPECT_EQ(dict.GetCur(), 1);  // refused: on the "c" already there
}

TEST_F(DictXml, AClassNameThatCantBeATagIsLeftOut) {
  KyDtDictionary dict;
  dict.FindOrAddDict(L"bad")->SetClassName(L"two words");
  dict.SetValue(L"good", 1);
  ASSERT_TRUE(dict.SaveToXML(Path("out.xml").c_str()));
  KyDtDictionary back;
  ASSERT_TRUE(back.ReadFromXML(Path("out.xml").c_str()));
  EXPECT_EQ(ChildNames(back), (Names{L"good"}));
}
