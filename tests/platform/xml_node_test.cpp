// Element handles: names, text, attributes, children, and the lists and
// holders that carry them.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

#include "containers/KyArray.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "support/TestSupport.h"

namespace {

// A document opened from the given text, kept in a scratch folder.
class XmlNodeTest : public ::testing::Test {
 protected:
  XmlNodeTest() : dir_("xml_node") {}

  _auto_ptr<KyUtXMLDOMNode> OpenText(const std::string &xml) {
    tolvtest::WriteFileBytes(dir_.path() / "doc.xml", xml);
    EXPECT_TRUE(file_.Open(dir_.wide("doc.xml").c_str()));
    return file_.GetRoot();
  }

  _auto_ptr<KyUtXMLDOMNode> NewRoot(const wchar_t *name) {
    KyArray<std::pair<CString, CString>> none(0);
    EXPECT_TRUE(file_.CreateNewXMLDoc(dir_.wide("new.xml").c_str(), L"version='1.0' encoding='utf-8'", name, none));
    return file_.GetRoot();
  }

  // Saves and opens the document again, giving the new root.
  _auto_ptr<KyUtXMLDOMNode> Reload() {
    EXPECT_TRUE(file_.Save(dir_.wide("round.xml").c_str()));
    EXPECT_TRUE(file_.Open(dir_.wide("round.xml").c_str()));
    return file_.GetRoot();
  }

  tolvtest::ScratchDir dir_;
  KyUtXMLDOMFile file_;
};

TEST_F(XmlNodeTest, NameAndTextOfTheRoot) {
  auto root = OpenText("<Root>hello</Root>");
  ASSERT_TRUE(root);
  EXPECT_STREQ(root->GetNodeName(), L"Root");
  EXPECT_STREQ(root->GetNodeValue(), L"hello");
}

TEST_F(XmlNodeTest, ValueIsEmptyNotNullWithoutText) {
  auto root = OpenText("<Root><Child/></Root>");
  const wchar_t *v = root->GetNodeValue();
  ASSERT_NE(v, nullptr);
  EXPECT_STREQ(v, L"");
}

TEST_F(XmlNodeTest, ValueJoinsTextAndCdataButNotChildElements) {
  auto root = OpenText("<a>x<![CDATA[y<]]>z<b>inner</b>w<!--c--></a>");
  EXPECT_STREQ(root->GetNodeValue(), L"xy<zw");
}

TEST_F(XmlNodeTest, EntitiesAreDecoded) {
  auto root = OpenText("<a>&lt;&amp;&gt;&quot;&apos;&#x4E2D;&#25991;</a>");
  EXPECT_STREQ(root->GetNodeValue(), L"<&>\"'中文");
}

TEST_F(XmlNodeTest, SetNodeValueReplacesTextAndKeepsChildElements) {
  auto root = OpenText("<a>old<b/>tail</a>");
  EXPECT_TRUE(root->SetNodeValue(L"new"));
  EXPECT_STREQ(root->GetNodeValue(), L"new");
  auto children = root->GetChildrenNodes();
  ASSERT_EQ(children->GetCount(), 1);
  EXPECT_STREQ(children->GetItem(0)->GetNodeName(), L"b");
}

TEST_F(XmlNodeTest, SetNodeValueEmptyOrNullClearsTheText) {
  auto root = OpenText("<a>old</a>");
  EXPECT_TRUE(root->SetNodeValue(L""));
  EXPECT_STREQ(root->GetNodeValue(), L"");
  root->SetNodeValue(L"x");
  EXPECT_TRUE(root->SetNodeValue(static_cast<const wchar_t *>(nullptr)));
  EXPECT_STREQ(root->GetNodeValue(), L"");
}

TEST_F(XmlNodeTest, SetNodeValueIntWritesDecimal) {
  auto root = NewRoot(L"R");
  auto n = root->AppendNode(L"Int", L"", L"", L"");
  EXPECT_TRUE(n->SetNodeValue(-42));
  EXPECT_STREQ(n->GetNodeValue(), L"-42");
  EXPECT_TRUE(n->SetNodeValue(INT_MIN));
  EXPECT_STREQ(n->GetNodeValue(), L"-2147483648");
  EXPECT_TRUE(n->SetNodeValue(INT_MAX));
  EXPECT_STREQ(n->GetNodeValue(), L"2147483647");
  EXPECT_TRUE(n->SetNodeValue(0));
  EXPECT_STREQ(n->GetNodeValue(), L"0");
}

TEST_F(XmlNodeTest, SetNodeValueDoubleWritesTheShortestForm) {
  auto root = NewRoot(L"R");
  auto n = root->AppendNode(L"Double", L"", L"", L"");
  n->SetNodeValue(0.1);
  EXPECT_STREQ(n->GetNodeValue(), L"0.1");
  n->SetNodeValue(2.5);
  EXPECT_STREQ(n->GetNodeValue(), L"2.5");
  n->SetNodeValue(100.0);
  EXPECT_STREQ(n->GetNodeValue(), L"100");
  n->SetNodeValue(123456.789);
  EXPECT_STREQ(n->GetNodeValue(), L"123456.789");
}

TEST_F(XmlNodeTest, AttributesKeepDocumentOrderAndAreIndexable) {
  auto root = OpenText("<a zeta='1' alpha='2' mid='3' b='4'/>");
  ASSERT_EQ(root->GetAttributeNum(), 4);
  EXPECT_STREQ(root->GetAttributeName(0), L"zeta");
  EXPECT_STREQ(root->GetAttributeName(1), L"alpha");
  EXPECT_STREQ(root->GetAttributeName(2), L"mid");
  EXPECT_STREQ(root->GetAttributeName(3), L"b");
  EXPECT_STREQ(root->GetAttributeValue(L"alpha"), L"2");
  EXPECT_STREQ(root->GetAttributeValue(root->GetAttributeName(3)), L"4");
}

TEST_F(XmlNodeTest, AttributeOrderSurvivesASave) {
  auto root = OpenText("<a zeta='1' alpha='2' mid='3'/>");
  root->SetAttributeValue(L"new", L"4");
  root = Reload();
  ASSERT_EQ(root->GetAttributeNum(), 4);
  EXPECT_STREQ(root->GetAttributeName(0), L"zeta");
  EXPECT_STREQ(root->GetAttributeName(1), L"alpha");
  EXPECT_STREQ(root->GetAttributeName(2), L"mid");
  EXPECT_STREQ(root->GetAttributeName(3), L"new");
}

TEST_F(XmlNodeTest, AttributeNameOutOfRangeIsEmptyText) {
  auto root = OpenText("<a x='1'/>");
  for (int index : {-1, 1, 1000}) {
    const wchar_t *name = root->GetAttributeName(index);
    ASSERT_NE(name, nullptr);
    EXPECT_STREQ(name, L"");
  }
}

TEST_F(XmlNodeTest, AbsentAttributeGivesEmptyTextNeverNull) {
  auto root = OpenText("<a x='1'/>");
  const wchar_t *v = root->GetAttributeValue(L"missing");
  ASSERT_NE(v, nullptr);
  EXPECT_STREQ(v, L"");
  const wchar_t *n = root->GetAttributeValue(nullptr);
  ASSERT_NE(n, nullptr);
  EXPECT_STREQ(n, L"");
  EXPECT_TRUE(CString(v).IsEmpty());
}

TEST_F(XmlNodeTest, AttributeNamesAreCaseSensitive) {
  auto root = OpenText("<a Name='upper' name='lower'/>");
  EXPECT_STREQ(root->GetAttributeValue(L"Name"), L"upper");
  EXPECT_STREQ(root->GetAttributeValue(L"name"), L"lower");
  EXPECT_FALSE(root->IsAttributeExist(L"NAME"));
}

TEST_F(XmlNodeTest, SetAttributeValueChangesInPlaceOrAppends) {
  auto root = OpenText("<a x='1' y='2'/>");
  EXPECT_TRUE(root->SetAttributeValue(L"x", L"changed"));
  EXPECT_TRUE(root->SetAttributeValue(L"z", L"3"));
  ASSERT_EQ(root->GetAttributeNum(), 3);
  EXPECT_STREQ(root->GetAttributeName(0), L"x");
  EXPECT_STREQ(root->GetAttributeValue(L"x"), L"changed");
  EXPECT_STREQ(root->GetAttributeName(2), L"z");
  EXPECT_STREQ(root->GetAttributeValue(L"z"), L"3");
}

TEST_F(XmlNodeTest, SetAttributeValueRefusesNamesXmlCannotHold) {
  auto root = NewRoot(L"R");
  EXPECT_FALSE(root->SetAttributeValue(L"", L"v"));
  EXPECT_FALSE(root->SetAttributeValue(nullptr, L"v"));
  EXPECT_FALSE(root->SetAttributeValue(L"two words", L"v"));
  EXPECT_FALSE(root->SetAttributeValue(L"1st", L"v"));
  EXPECT_FALSE(root->SetAttributeValue(L"a<b", L"v"));
  EXPECT_EQ(root->GetAttributeNum(), 0);
  EXPECT_TRUE(root->SetAttributeValue(L"ok_name-1.x", L"v"));
  EXPECT_TRUE(root->SetAttributeValue(L"名称", L"v"));
  EXPECT_EQ(root->GetAttributeNum(), 2);
}

TEST_F(XmlNodeTest, SetAttributeValueWithNullValueStoresEmpty) {
  auto root = NewRoot(L"R");
  EXPECT_TRUE(root->SetAttributeValue(L"a", nullptr));
  EXPECT_TRUE(root->IsAttributeExist(L"a"));
  EXPECT_STREQ(root->GetAttributeValue(L"a"), L"");
}

TEST_F(XmlNodeTest, IsAttributeExist) {
  auto root = OpenText("<a x='' y='1'/>");
  EXPECT_TRUE(root->IsAttributeExist(L"x"));
  EXPECT_TRUE(root->IsAttributeExist(L"y"));
  EXPECT_FALSE(root->IsAttributeExist(L"z"));
  EXPECT_FALSE(root->IsAttributeExist(nullptr));
}

TEST_F(XmlNodeTest, SpecialCharactersInTextAndAttributesRoundTrip) {
  auto root = NewRoot(L"R");
  const wchar_t *tricky = L"a<b>&c\"d'e]]>f\tg\nh";
  auto n = root->AppendNode(L"String", tricky, L"attr", tricky);
  ASSERT_TRUE(n);
  root = Reload();
  auto child = root->GetChildrenNodes()->GetItem(0);
  ASSERT_TRUE(child);
  EXPECT_STREQ(child->GetNodeValue(), tricky);
  EXPECT_STREQ(child->GetAttributeValue(L"attr"), tricky);
}

TEST_F(XmlNodeTest, BlankAndPaddedTextRoundTrip) {
  auto root = NewRoot(L"R");
  const wchar_t *texts[] = {L" ", L"\t\n ", L"  padded  ", L"\nline\n"};
  for (const wchar_t *t : texts) root->AppendNode(L"String", t, L"name", L"");
  root = Reload();
  KyUtXMLDOMNodeArray kids;
  kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_STREQ(kids->GetItem(i)->GetNodeValue(), texts[i]) << i;
  // The indentation between elements is not taken as the parent's text.
  EXPECT_STREQ(root->GetNodeValue(), L"");
}

TEST_F(XmlNodeTest, ReturnedTextStaysValidWhileTheHandleLives) {
  auto root = OpenText("<a first='1' second='2'>text</a>");
  const wchar_t *name0 = root->GetAttributeName(0);
  const wchar_t *name1 = root->GetAttributeName(1);
  const wchar_t *value0 = root->GetAttributeValue(name0);
  const wchar_t *value1 = root->GetAttributeValue(name1);
  const wchar_t *text = root->GetNodeValue();
  const wchar_t *tag = root->GetNodeName();
  // Changes to the element don't disturb what was handed out before.
  root->SetNodeValue(L"other text");
  root->SetAttributeValue(L"first", L"changed");
  for (int i = 0; i < 100; ++i) root->SetAttributeValue((L"extra" + std::to_wstring(i)).c_str(), L"v");
  EXPECT_STREQ(root->GetNodeValue(), L"other text");
  EXPECT_STREQ(root->GetAttributeValue(L"first"), L"changed");
  EXPECT_STREQ(name0, L"first");
  EXPECT_STREQ(name1, L"second");
  EXPECT_STREQ(value0, L"1");
  EXPECT_STREQ(value1, L"2");
  EXPECT_STREQ(text, L"text");
  EXPECT_STREQ(tag, L"a");
}

TEST_F(XmlNodeTest, AppendNodeWithOneAttribute) {
  auto root = NewRoot(L"R");
  auto n = root->AppendNode(L"Item", L"body", L"name", L"first");
  ASSERT_TRUE(n);
  EXPECT_STREQ(n->GetNodeName(), L"Item");
  EXPECT_STREQ(n->GetNodeValue(), L"body");
  ASSERT_EQ(n->GetAttributeNum(), 1);
  EXPECT_STREQ(n->GetAttributeName(0), L"name");
  EXPECT_STREQ(n->GetAttributeValue(L"name"), L"first");
}

TEST_F(XmlNodeTest, AppendNodeWithEmptyAttributeNameAddsNoAttribute) {
  auto root = NewRoot(L"R");
  auto a = root->AppendNode(L"Item", L"", L"", L"ignored");
  ASSERT_TRUE(a);
  EXPECT_EQ(a->GetAttributeNum(), 0);
  auto b = root->AppendNode(L"Item", nullptr, nullptr, nullptr);
  ASSERT_TRUE(b);
  EXPECT_EQ(b->GetAttributeNum(), 0);
  EXPECT_STREQ(b->GetNodeValue(), L"");
}

TEST_F(XmlNodeTest, AppendNodeWithEmptyNameValueStillWritesTheAttribute) {
  // A dictionary entry with an empty name is still written with "name".
  auto root = NewRoot(L"R");
  auto n = root->AppendNode(L"String", L"", L"name", L"");
  ASSERT_TRUE(n);
  EXPECT_TRUE(n->IsAttributeExist(L"name"));
  EXPECT_STREQ(n->GetAttributeValue(L"name"), L"");
}

TEST_F(XmlNodeTest, AppendNodeWithAttributeArrays) {
  auto root = NewRoot(L"R");
  CStringArray names, values;
  names.Add(L"c");
  values.Add(L"3");
  names.Add(L"a");
  values.Add(L"1");
  names.Add(L"");
  values.Add(L"skipped");
  names.Add(L"b");
  values.Add(L"2");
  auto n = root->AppendNode(L"Item", names, values, L"text");
  ASSERT_TRUE(n);
  EXPECT_STREQ(n->GetNodeValue(), L"text");
  ASSERT_EQ(n->GetAttributeNum(), 3);
  EXPECT_STREQ(n->GetAttributeName(0), L"c");
  EXPECT_STREQ(n->GetAttributeName(1), L"a");
  EXPECT_STREQ(n->GetAttributeName(2), L"b");
  EXPECT_STREQ(n->GetAttributeValue(L"b"), L"2");
}

TEST_F(XmlNodeTest, AppendNodePutsChildrenAtTheEnd) {
  auto root = OpenText("<R><first/></R>");
  root->AppendNode(L"second", L"", L"", L"");
  root->AppendNode(L"third", L"", L"", L"");
  auto kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 3);
  EXPECT_STREQ(kids->GetItem(0)->GetNodeName(), L"first");
  EXPECT_STREQ(kids->GetItem(1)->GetNodeName(), L"second");
  EXPECT_STREQ(kids->GetItem(2)->GetNodeName(), L"third");
}

TEST_F(XmlNodeTest, AppendNodeRefusesATagXmlCannotHold) {
  auto root = NewRoot(L"R");
  EXPECT_FALSE(root->AppendNode(L"", L"", L"", L""));
  EXPECT_FALSE(root->AppendNode(nullptr, L"", L"", L""));
  EXPECT_FALSE(root->AppendNode(L"has space", L"", L"", L""));
  EXPECT_FALSE(root->AppendNode(L"Item", L"", L"bad name", L"v"));
  EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 0);
}

TEST_F(XmlNodeTest, ChildrenAreElementsOnly) {
  auto root = OpenText(
      "<R>text before<!-- a comment --><?pi some data?><A/>between<![CDATA[cdata]]>"
      "<B><Inner/></B><!-- another --><?other?>after<C>c text</C>tail</R>");
  auto kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 3);
  EXPECT_STREQ(kids->GetItem(0)->GetNodeName(), L"A");
  EXPECT_STREQ(kids->GetItem(1)->GetNodeName(), L"B");
  EXPECT_STREQ(kids->GetItem(2)->GetNodeName(), L"C");
  EXPECT_STREQ(kids->GetItem(2)->GetNodeValue(), L"c text");
}

TEST_F(XmlNodeTest, ChildrenOfALeafAreAnEmptyList) {
  auto root = OpenText("<R>only text</R>");
  auto kids = root->GetChildrenNodes();
  ASSERT_TRUE(kids);
  EXPECT_EQ(kids->GetCount(), 0);
  EXPECT_FALSE(kids->GetItem(0));
}

TEST_F(XmlNodeTest, ListItemOutOfRangeIsEmpty) {
  auto root = OpenText("<R><A/><B/></R>");
  auto kids = root->GetChildrenNodes();
  EXPECT_FALSE(kids->GetItem(-1));
  EXPECT_FALSE(kids->GetItem(2));
  EXPECT_TRUE(kids->GetItem(1));
}

TEST_F(XmlNodeTest, NodeArrayTakesTheListOver) {
  auto root = OpenText("<R><A/><B/><C/></R>");
  _auto_ptr<KyUtXMLDOMNodes> list = root->GetChildrenNodes();
  KyUtXMLDOMNodeArray array;
  EXPECT_EQ(array->GetCount(), 0);
  EXPECT_FALSE(array->GetItem(0));
  array = list;
  EXPECT_FALSE(list);
  EXPECT_EQ(array.operator->(), &array);
  ASSERT_EQ(array->GetCount(), 3);
  EXPECT_STREQ(array->GetItem(0)->GetNodeName(), L"A");
  EXPECT_STREQ(array->GetItem(2)->GetNodeName(), L"C");
  EXPECT_FALSE(array->GetItem(3));
  EXPECT_FALSE(array->GetItem(-1));
}

TEST_F(XmlNodeTest, NodeArrayTakesATemporaryAndReplacesItsList) {
  auto root = OpenText("<R><A/><B/></R>");
  KyUtXMLDOMNodeArray array;
  array = root->GetChildrenNodes();
  EXPECT_EQ(array->GetCount(), 2);
  auto a = array->GetItem(0);
  array = a->GetChildrenNodes();
  EXPECT_EQ(array->GetCount(), 0);
}

TEST_F(XmlNodeTest, WalkingTheTreeThroughHandles) {
  auto root = OpenText("<R><A><A1/><A2/></A><B><B1>x</B1></B></R>");
  KyUtXMLDOMNodeArray top;
  top = root->GetChildrenNodes();
  std::wstring seen;
  for (int i = 0; i < top->GetCount(); ++i) {
    _auto_ptr<KyUtXMLDOMNode> child = top->GetItem(i);
    seen += child->GetNodeName();
    KyUtXMLDOMNodeArray inner;
    inner = child->GetChildrenNodes();
    for (int j = 0; j < inner->GetCount(); ++j) seen += std::wstring(L"/") + inner->GetItem(j)->GetNodeName();
    seen += L";";
  }
  EXPECT_EQ(seen, L"A/A1/A2;B/B1;");
}

TEST_F(XmlNodeTest, DeletingAHandleLeavesTheElement) {
  auto root = OpenText("<R/>");
  {
    _auto_ptr<KyUtXMLDOMNode> child = root->AppendNode(L"Kept", L"v", L"", L"");
    ASSERT_TRUE(child);
  }
  auto kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 1);
  kids.reset();
  EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 1);
  EXPECT_STREQ(root->GetChildrenNodes()->GetItem(0)->GetNodeValue(), L"v");
}

TEST_F(XmlNodeTest, DeleteChildrenNodesRemovesElementsAndKeepsText) {
  auto root = OpenText("<R>keep<A><A1/></A><B/><!--note--></R>");
  EXPECT_TRUE(root->DeleteChildrenNodes());
  EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 0);
  EXPECT_STREQ(root->GetNodeValue(), L"keep");
  root = Reload();
  EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 0);
  EXPECT_STREQ(root->GetNodeValue(), L"keep");
}

TEST_F(XmlNodeTest, DeleteChildrenNodesThenWriteAgain) {
  auto root = OpenText("<R><Old/></R>");
  root->DeleteChildrenNodes();
  root->AppendNode(L"New", L"1", L"name", L"n");
  root = Reload();
  auto kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 1);
  EXPECT_STREQ(kids->GetItem(0)->GetNodeName(), L"New");
  EXPECT_STREQ(kids->GetItem(0)->GetAttributeValue(L"name"), L"n");
}

TEST_F(XmlNodeTest, ElementNamesAreCaseSensitive) {
  auto root = OpenText("<R><Int/><int/></R>");
  auto kids = root->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 2);
  EXPECT_STREQ(kids->GetItem(0)->GetNodeName(), L"Int");
  EXPECT_STREQ(kids->GetItem(1)->GetNodeName(), L"int");
}

}  // namespace
