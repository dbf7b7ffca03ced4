// Reading XML shares equal attribute texts between items, and takes its own
// document apart as it goes, without either being visible in the tree.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "dict_test_util.h"
#include "platform/utility/KyUtXMLDOM.h"

namespace {

std::string Doc(const std::string &body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary>" + body + "</TolvDictionary>\n";
}

// A section of string items as a language file has them: the same keys on
// every element, a few element types, unique names and local names.
std::string Section(const std::string &name, int items) {
  static const char *const kTypes[] = {"STATIC", "BUTTON", "COMBOBOX", "EDIT", "LISTBOX"};
  std::string body = "<Directory name=\"" + name + "\" localname=\"" + name + "\">";
  for (int i = 0; i < items; ++i) {
    body += "<String name=\"名称" + std::to_string(i) + "\" element_type=\"" + kTypes[i % 5] +
            "\" localname=\"Local name " + std::to_string(i) + "\">text " + std::to_string(i) + "</String>";
  }
  return body + "</Directory>";
}

class DictXmlSharing : public ::testing::Test {
 protected:
  DictXmlSharing() : dir_("dict_xml_sharing") {}
  std::wstring Write(const std::string &text, const std::string &name = "in.xml") {
    dicttest::WriteText(dir_.path() / name, text);
    return dir_.wide(name);
  }
  tolvtest::ScratchDir dir_;
};

const CString &Bag(KyDtDictItem &item, const wchar_t *key) {
  static const CString kNone;
  auto it = item.m_pAttributes->find(CString(key));
  return it == item.m_pAttributes->end() ? kNone : it->second;
}

const CString &BagKey(KyDtDictItem &item, const wchar_t *key) {
  return item.m_pAttributes->find(CString(key))->first;
}

}  // namespace

TEST_F(DictXmlSharing, EqualKeysAndRepeatedValuesShareOneBufferAcrossItems) {
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Write(Doc(Section("A", 200))).c_str()));
  KyDtDictionary *section = dict.FindDict(L"A");
  ASSERT_NE(section, nullptr);
  KyDtDictItem *first = section->FindItem(CString(L"名称0"));
  KyDtDictItem *sixth = section->FindItem(CString(L"名称5"));
  KyDtDictItem *last = section->FindItem(CString(L"名称199"));
  ASSERT_TRUE(first && sixth && last);
  EXPECT_EQ(BagKey(*first, L"element_type").GetString(), BagKey(*last, L"element_type").GetString());
  EXPECT_EQ(BagKey(*first, L"localname").GetString(), BagKey(*last, L"localname").GetString());
  EXPECT_EQ(Bag(*first, L"element_type"), L"STATIC");
  EXPECT_EQ(Bag(*first, L"element_type").GetString(), Bag(*sixth, L"element_type").GetString());
  // The fields are the bag's texts, not copies of them.
  EXPECT_EQ(first->m_strName.GetString(), Bag(*first, L"name").GetString());
  EXPECT_EQ(first->m_strLocalName.GetString(), Bag(*first, L"localname").GetString());
}

TEST_F(DictXmlSharing, ChangingASharedTextChangesOneItemOnly) {
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Write(Doc(Section("A", 20))).c_str()));
  KyDtDictItem *first = dict.FindItem(CString(L"A\\名称0"));
  KyDtDictItem *sixth = dict.FindItem(CString(L"A\\名称5"));
  ASSERT_TRUE(first && sixth);
  (*first->m_pAttributes)[CString(L"element_type")].MakeLower();
  first->SetAttributeValue(L"localname", L"changed");
  EXPECT_EQ(first->GetAttributeValue(L"element_type"), L"static");
  EXPECT_EQ(sixth->GetAttributeValue(L"element_type"), L"STATIC");
  EXPECT_EQ(sixth->GetAttributeValue(L"localname"), L"Local name 5");
}

TEST_F(DictXmlSharing, UniqueValuesAllReadBackWhenSharingGivesUp) {
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Write(Doc(Section("A", 500))).c_str()));
  KyDtDictionary *section = dict.FindDict(L"A");
  ASSERT_EQ(section->GetLength(), 500);
  std::set<std::wstring> names;
  for (int i = 0; i < 500; ++i) {
    KyDtDictItem *item = section->GetAt(i);
    EXPECT_EQ(item->m_strName.str(), L"名称" + std::to_wstring(i));
    EXPECT_EQ(item->m_strLocalName.str(), L"Local name " + std::to_wstring(i));
    EXPECT_EQ(static_cast<KyDtDictStringItem *>(item)->m_value.str(), L"text " + std::to_wstring(i));
    names.insert(item->m_strName.str());
  }
  EXPECT_EQ(names.size(), 500u);
}

TEST_F(DictXmlSharing, ManyDistinctKeysAndShiftingOrdersReadExactly) {
  // Every element has keys of its own, in another order each time: more
  // keys than are ever shared, and no order to learn.
  std::string body;
  for (int i = 0; i < 150; ++i) {
    const std::string n = std::to_string(i);
    if (i % 2 == 0) {
      body += "<Int name=\"i" + n + "\" k" + n + "=\"v" + n + "\" common=\"c\">" + n + "</Int>";
    } else {
      body += "<Int common=\"c\" k" + n + "=\"v" + n + "\" name=\"i" + n + "\">" + n + "</Int>";
    }
  }
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Write(Doc(body)).c_str()));
  ASSERT_EQ(dict.GetLength(), 150);
  for (int i = 0; i < 150; ++i) {
    const std::wstring n = std::to_wstring(i);
    KyDtDictItem *item = dict.GetAt(i);
    EXPECT_EQ(item->m_strName.str(), L"i" + n);
    EXPECT_EQ(item->m_pAttributes->size(), 3u);
    EXPECT_EQ(item->GetAttributeValue((L"k" + n).c_str()).str(), L"v" + n);
    EXPECT_EQ(item->GetAttributeValue(L"common"), L"c");
    EXPECT_EQ(static_cast<KyDtDictLongItem *>(item)->m_value, i);
  }
}

TEST_F(DictXmlSharing, ReadingFromACallersElementLeavesItsDocumentWhole) {
  const std::wstring path = Write(Doc(Section("A", 30) + Section("B", 30)));
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(path.c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = file.GetRoot();
  KyDtDictionary dict;
  dict << root;
  EXPECT_EQ(dict.GetLength(), 2);
  KyUtXMLDOMNodeArray sections;
  sections = root->GetChildrenNodes();
  ASSERT_EQ(sections->GetCount(), 2);
  for (int i = 0; i < 2; ++i) {
    KyUtXMLDOMNodeArray items;
    items = sections->GetItem(i)->GetChildrenNodes();
    EXPECT_EQ(items->GetCount(), 30);
  }
}

TEST_F(DictXmlSharing, ReadFromXMLGivesTheTreeThatReadingTheElementGives) {
  const std::wstring path =
      Write(Doc(Section("A", 40) + "<Floor name=\"F\"><Directory name=\"In\">" + Section("C", 10) +
                "</Directory><Option name=\"o\" options=\"x y\">y</Option></Floor>"));
  KyDtDictionary fromFile;
  ASSERT_TRUE(fromFile.ReadFromXML(path.c_str()));
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(path.c_str()));
  _auto_ptr<KyUtXMLDOMNode> root = file.GetRoot();
  KyDtDictionary fromElement;
  fromElement << root;
  EXPECT_EQ(fromFile.CompareWith(fromElement), 0);
  EXPECT_NE(fromFile.FindItem(CString(L"F\\In\\C\\名称9")), nullptr);
}

TEST_F(DictXmlSharing, ArchiveReadSharesFieldsWithTheBagAndKeysAcrossItems) {
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Write(Doc(Section("A", 50))).c_str()));
  const std::wstring archive = dir_.wide("tree.dat");
  ASSERT_TRUE(dict.Save(archive.c_str()));
  KyDtDictionary back;
  ASSERT_TRUE(back.Read(archive.c_str()));
  EXPECT_EQ(back.CompareWith(dict), 0);
  KyDtDictItem *first = back.FindItem(CString(L"A\\名称0"));
  KyDtDictItem *last = back.FindItem(CString(L"A\\名称49"));
  ASSERT_TRUE(first && last);
  EXPECT_EQ(BagKey(*first, L"element_type").GetString(), BagKey(*last, L"element_type").GetString());
  EXPECT_EQ(first->m_strName.GetString(), Bag(*first, L"name").GetString());
  EXPECT_EQ(first->m_strLocalName.GetString(), Bag(*first, L"localname").GetString());
}

TEST_F(DictXmlSharing, ArchiveKeysAndValuesWithInnerNullsStayApartFromTheirPrefixes) {
  KyDtDictionary dict;
  for (int i = 0; i < 3; ++i) {
    auto *item = new KyDtDictStringItem();
    item->m_strName = CString(L"s") + static_cast<wchar_t>(L'0' + i);
    (*item->m_pAttributes)[CString(L"k")] = CString(L"v");
    (*item->m_pAttributes)[CString(L"k\0x", 3)] = CString(L"v\0y", 3);
    ASSERT_TRUE(dict.AppendItem(item));
  }
  const std::wstring archive = dir_.wide("nulls.dat");
  ASSERT_TRUE(dict.Save(archive.c_str()));
  KyDtDictionary back;
  ASSERT_TRUE(back.Read(archive.c_str()));
  EXPECT_EQ(back.CompareWith(dict), 0);
  for (int i = 0; i < 3; ++i) {
    KyDtDictItem *item = back.GetAt(i);
    ASSERT_EQ(item->m_pAttributes->size(), 2u);
    EXPECT_EQ(item->m_pAttributes->at(CString(L"k")).GetLength(), 1);
    EXPECT_EQ(item->m_pAttributes->at(CString(L"k\0x", 3)).GetLength(), 3);
  }
}
