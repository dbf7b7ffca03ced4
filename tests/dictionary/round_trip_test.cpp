// Whole trees through both stored forms: XML to tree to archive to tree to
// XML, unsorted and sorted.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "dict_test_util.h"
#include "platform/windows/TextCodec.h"

using dicttest::ChildNames;

namespace {

// A hand-written file with every kind, attributes, unnamed array elements,
// references, nested class-named dictionaries and Chinese names. Options
// are separated by blanks, as the writer does, so that the file is stable.
std::string EveryKindFile(bool sorted) {
  return std::string("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary name=\"工程\" localname=\"工程文件\" autosort=\"") +
         (sorted ? "TRUE" : "FALSE") +
         "\" version=\"2\">\n"
         "  <Bool name=\"开关\" comment=\"是否打开\">TRUE</Bool>\n"
         "  <Char name=\"字符\">x</Char>\n"
         "  <Int name=\"层数\" localname=\"楼层数\" unit=\"层\">12</Int>\n"
         "  <Double name=\"层高\">3.25</Double>\n"
         "  <String name=\"名称\" element_type=\"CODESTRING\" localname=\"Name\">办公楼 A\\B</String>\n"
         "  <Option name=\"标准\" options=\"国标 地标 企标\">地标</Option>\n"
         "  <Reference name=\"当前层\" hard=\"TRUE\">楼层\\一层</Reference>\n"
         "  <Reference name=\"悬空\">不存在\\路径</Reference>\n"
         "  <Directory name=\"数组\">\n"
         "    <String name=\"\">甲</String><String name=\"\">乙</String><String name=\"\">甲</String>\n"
         "    <Int name=\"\">1</Int><Int name=\"\">2</Int>\n"
         "  </Directory>\n"
         "  <Directory name=\"楼层\" localname=\"Floors\">\n"
         "    <Floor name=\"一层\" elevation=\"0\">\n"
         "      <Double name=\"标高\">0</Double>\n"
         "      <Region name=\"区域\"><String name=\"zone\">A</String><Reference name=\"back\">楼层\\二层</Reference></Region>\n"
         "    </Floor>\n"
         "    <Floor name=\"二层\" elevation=\"3000\"><Double name=\"标高\">3000</Double></Floor>\n"
         "    <Floor name=\"B1\"/>\n"
         "  </Directory>\n"
         "  <Int name=\"Zeta\">1</Int><Int name=\"alpha\">2</Int><Int name=\"中文\">3</Int><Int name=\"啊\">4</Int>\n"
         "</TolvDictionary>\n";
}

// Walks every dictionary of the tree, the root first.
void ForEachDict(KyDtDictionary &root, const std::function<void(KyDtDictionary &)> &visit) {
  std::vector<KyDtDictionary *> pending{&root};
  while (!pending.empty()) {
    KyDtDictionary *dict = pending.back();
    pending.pop_back();
    visit(*dict);
    for (KyDtDictItem *const *slot = dict->GetFirst(); slot != nullptr; slot = dict->GetNext(slot)) {
      if ((*slot)->IsDict()) pending.push_back(static_cast<KyDtDictionary *>(*slot));
    }
  }
}

// True when every dictionary's named children stand in ascending byte
// order of their code-page-936 names, unnamed ones first.
bool IsSortedByNarrowNames(KyDtDictionary &root) {
  bool sorted = true;
  ForEachDict(root, [&sorted](KyDtDictionary &dict) {
    std::string previous;
    bool first = true;
    for (KyDtDictItem *const *slot = dict.GetFirst(); slot != nullptr; slot = dict.GetNext(slot)) {
      const std::string narrow = tolv::ToGbk((*slot)->m_strName.str());
      if (!first && narrow < previous) sorted = false;
      previous = narrow;
      first = false;
    }
  });
  return sorted;
}

class DictRoundTrip : public ::testing::TestWithParam<bool> {
 protected:
  DictRoundTrip() : dir_("dict_round_trip") {}
  std::wstring Path(const std::string &name) const { return dir_.wide(name); }
  std::string Bytes(const std::string &name) const { return tolvtest::ReadFileBytes(dir_.path() / name); }
  tolvtest::ScratchDir dir_;
};

}  // namespace

TEST_P(DictRoundTrip, XmlToTreeToArchiveToTreeToXml) {
  const bool sorted = GetParam();
  dicttest::CapturedCommandLine output;
  dicttest::WriteText(dir_.path() / "source.xml", EveryKindFile(sorted));

  KyDtDictionary fromXml;
  ASSERT_TRUE(fromXml.ReadFromXML(Path("source.xml").c_str()));
  EXPECT_EQ(fromXml.IsAutoSort(), sorted ? 1 : 0);
  // Only the dangling reference is reported.
  EXPECT_EQ(output.Text(), L"\n无法解析的引用：不存在\\路径");
  if (sorted) {
    EXPECT_TRUE(IsSortedByNarrowNames(fromXml));
    ForEachDict(fromXml, [](KyDtDictionary &dict) { EXPECT_EQ(dict.IsAutoSort(), 1); });
  } else {
    const std::vector<std::wstring> fileOrder{L"开关", L"字符", L"层数", L"层高", L"名称", L"标准", L"当前层",
                                              L"悬空", L"数组", L"楼层", L"Zeta", L"alpha", L"中文", L"啊"};
    EXPECT_EQ(ChildNames(fromXml), fileOrder);
  }

  // Archive: exact both ways.
  ASSERT_TRUE(fromXml.Save(Path("tree.dat").c_str()));
  KyDtDictionary fromArchive;
  ASSERT_TRUE(fromArchive.Read(Path("tree.dat").c_str()));
  EXPECT_EQ(fromArchive.CompareWith(fromXml), 0);
  EXPECT_EQ(fromArchive.IsAutoSort(), sorted ? 1 : 0);
  EXPECT_EQ(ChildNames(fromArchive), ChildNames(fromXml));
  ASSERT_TRUE(fromArchive.Save(Path("tree2.dat").c_str()));
  EXPECT_EQ(Bytes("tree.dat"), Bytes("tree2.dat"));

  // References resolve into the tree that was read.
  auto *current = static_cast<KyDtDictReferenceItem *>(fromArchive.FindItem(L"当前层"));
  ASSERT_NE(current, nullptr);
  EXPECT_EQ(current->GetItemRef(), fromArchive.FindItem(L"楼层\\一层"));
  EXPECT_TRUE(current->IsHardReference());
  auto *back = static_cast<KyDtDictReferenceItem *>(fromArchive.FindItem(L"楼层\\一层\\区域\\back"));
  EXPECT_EQ(back->GetItemRef(), fromArchive.FindItem(L"楼层\\二层"));
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(fromArchive.FindItem(L"悬空"))->GetItemRef(), nullptr);

  // And out to XML again.
  ASSERT_TRUE(fromArchive.SaveToXML(Path("again.xml").c_str()));
  KyDtDictionary again;
  ASSERT_TRUE(again.ReadFromXML(Path("again.xml").c_str()));
  // A Char item written as its number reads back as the number's first
  // digit: 'x' is 120, so '1'. Everything else is identical.
  auto *character = static_cast<KyDtDictCharItem *>(again.FindItem(L"字符"));
  EXPECT_EQ(character->m_value, '1');
  EXPECT_NE(again.CompareWith(fromXml), 0);
  character->m_value = 'x';
  EXPECT_EQ(again.CompareWith(fromXml), 0);

  // The values themselves.
  CString name;
  EXPECT_TRUE(again.GetValue(L"名称", name));
  EXPECT_EQ(name, L"办公楼 A\\B");
  EXPECT_EQ(again.FindItem(L"名称")->m_strLocalName, L"Name");
  unsigned int standard = 0;
  EXPECT_TRUE(again.GetValue(L"标准", standard));
  EXPECT_EQ(standard, 1u);
  KyDynArray<CString> texts;
  EXPECT_TRUE(again.GetValue(L"数组", texts));
  ASSERT_EQ(texts.GetLength(), 3);
  EXPECT_EQ(texts[2], L"甲");
  KyDynArray<int> numbers;
  EXPECT_TRUE(again.GetValue(L"数组", numbers));
  EXPECT_EQ(numbers.GetLength(), 2);
  KyDtDictionary *floor = again.FindDict(L"楼层\\一层");
  ASSERT_NE(floor, nullptr);
  EXPECT_TRUE(floor->IsClassOf(L"Floor"));
  EXPECT_EQ(floor->GetAttributeValue(L"elevation"), L"0");
  EXPECT_TRUE(again.FindDict(L"楼层\\一层\\区域")->IsClassOf(L"Region"));
  EXPECT_EQ(again.GetAttributeValue(L"version"), L"2");
  if (sorted) {
    EXPECT_TRUE(IsSortedByNarrowNames(again));
  }

  // The file written from the re-read tree is the file written before.
  ASSERT_TRUE(again.SaveToXML(Path("third.xml").c_str()));
  EXPECT_EQ(Bytes("third.xml"), Bytes("again.xml"));
}

INSTANTIATE_TEST_SUITE_P(UnsortedAndSorted, DictRoundTrip, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool> &info) { return info.param ? "Sorted" : "Unsorted"; });

TEST(DictRoundTripCopies, DeepCopyAndCloneOfAFullTreeAreIdentical) {
  tolvtest::ScratchDir dir("dict_round_trip_copies");
  dicttest::WriteText(dir.path() / "source.xml", EveryKindFile(false));
  dicttest::CapturedCommandLine output;
  KyDtDictionary tree;
  ASSERT_TRUE(tree.ReadFromXML(dir.wide("source.xml").c_str()));
  std::unique_ptr<KyDtDictItem> clone(tree.Clone());
  EXPECT_EQ(clone->CompareWith(tree), 0);
  KyDtDictionary copy;
  copy.DeepCopy(tree);
  EXPECT_EQ(copy.CompareWith(tree), 0);
  // Copies hold no resolved pointers until they are translated.
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(copy.FindItem(L"当前层"))->GetItemRef(), nullptr);
  copy.TranslateRef();
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(copy.FindItem(L"当前层"))->GetItemRef(),
            copy.FindItem(L"楼层\\一层"));
}
