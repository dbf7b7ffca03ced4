// Bad input: malformed and foreign XML, truncated and hostile archives,
// unknown kinds and nesting deeper than any call stack.
#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "dict_test_util.h"

using dicttest::ChildNames;

namespace {

std::string I32(std::int32_t value) {
  std::string out(4, '\0');
  for (int i = 0; i < 4; ++i) out[i] = static_cast<char>((static_cast<std::uint32_t>(value) >> (8 * i)) & 0xFF);
  return out;
}

std::string WideString(const std::wstring &text) {
  std::string out("\xFF\xFE\xFF", 3);
  out += static_cast<char>(text.size());
  for (wchar_t c : text) {
    out += static_cast<char>(c & 0xFF);
    out += static_cast<char>((c >> 8) & 0xFF);
  }
  return out;
}

const std::string kEmpty = WideString(L"");
// An item header without attributes: name, empty local name and comment.
std::string Header(std::int32_t kind, const std::wstring &name) {
  return I32(kind) + WideString(name) + kEmpty + kEmpty + I32(0);
}

class DictBadInput : public ::testing::Test {
 protected:
  DictBadInput() : dir_("dict_bad_input") {}
  std::wstring Path(const std::string &name) const { return dir_.wide(name); }
  void Write(const std::string &name, const std::string &bytes) { tolvtest::WriteFileBytes(dir_.path() / name, bytes); }

  // Reads an archive file; gives 1 for success, 0 for false, and the cause
  // of a CArchiveException as a negative number.
  int ReadArchive(KyDtDictionary &dict, const std::string &name) {
    try {
      return dict.Read(Path(name).c_str()) ? 1 : 0;
    } catch (const CArchiveException &e) {
      return -e.m_cause;
    }
  }

  // A real tree with every kind, some attributes and three levels.
  static void BuildTree(KyDtDictionary &dict) {
    dict.m_strName = L"根";
    dict.SetAttributeValue(L"version", L"1");
    dict.SetValue(L"设置\\精度", 3);
    dict.SetValue(L"设置\\比例", 0.25);
    dict.SetValue(L"设置\\子\\开关", true);
    dict.SetValue(L"设置\\子\\字", 'k');
    dict.SetValue(L"名称", CString(L"文字 text"));
    dict.SetRef(L"链接", L"设置\\精度");
    dict.FindItem(L"名称")->SetAttributeValue(L"element_type", L"STRING");
    dict.FindItem(L"名称")->m_strLocalName = L"Name";
    dict.FindOrAddDict(L"层")->SetClassName(L"Floor");
    auto *option = static_cast<KyDtDictOptionItem *>(dict.FindOrAddItem(L"选项", KyDtDictItem::DT_OPTION));
    option->Append(CString(L"甲"));
    option->Append(CString(L"乙"));
    option->m_nCurSel = 1;
    KyDynArray<CString> array;
    array.Append(CString(L"a"));
    array.Append(CString(L"b"));
    dict.SetValue(L"数组", array);
    dict.AppendItem(new KyDtDictItem(L"bare"));
  }

  tolvtest::ScratchDir dir_;
};

}  // namespace

// ---- XML ----

TEST_F(DictBadInput, MalformedXmlGivesFalseAndLeavesTheTree) {
  const std::string cases[] = {
      "",
      "\xEF\xBB\xBF",
      "<TolvDictionary>",
      "<TolvDictionary><Int name=\"a\">1</Int>",
      "<TolvDictionary><Int name=\"a\">1</String></TolvDictionary>",
      "<TolvDictionary><Int name=\"a>1</Int></TolvDictionary>",
      "<TolvDictionary></TolvDictionary><Extra/>",
      "<?xml version=\"1.0\"?>",
      "\x00\x01\x02\x03 binary",
      "<TolvDictionary><Int name=\"a\" name=\"b\">1<Int></TolvDictionary>",
      "<TolvDictionary><Int name=\"a\" 1</Int></TolvDictionary>",
  };
  KyDtDictionary dict;
  dict.SetValue(L"keep", 1);
  int index = 0;
  for (const std::string &text : cases) {
    const std::string name = "bad" + std::to_string(index++) + ".xml";
    Write(name, text);
    EXPECT_FALSE(dict.ReadFromXML(Path(name).c_str())) << name;
  }
  EXPECT_EQ(ChildNames(dict), std::vector<std::wstring>{L"keep"});
}

TEST_F(DictBadInput, AnotherRootGivesFalse) {
  Write("project.xml", "<?xml version=\"1.0\" encoding=\"utf-8\"?><TolvProject><Int name=\"a\">1</Int></TolvProject>");
  Write("lower.xml", "<tolvdictionary><Int name=\"a\">1</Int></tolvdictionary>");
  KyDtDictionary dict;
  dict.SetValue(L"keep", 1);
  EXPECT_FALSE(dict.ReadFromXML(Path("project.xml").c_str()));
  EXPECT_FALSE(dict.ReadFromXML(Path("lower.xml").c_str()));
  EXPECT_EQ(ChildNames(dict), std::vector<std::wstring>{L"keep"});
}

TEST_F(DictBadInput, OddButWellFormedXmlReadsAsSomething) {
  Write("odd.xml",
        "<TolvDictionary><!-- comment --><?pi x?>text<Int name=\"a\"><![CDATA[4]]>2</Int>"
        "<Directory><Directory><Int/></Directory></Directory><Option options=\";\"/></TolvDictionary>");
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Path("odd.xml").c_str()));
  ASSERT_EQ(dict.GetLength(), 3);  // comments and instructions are no items
  int value = 0;
  EXPECT_TRUE(dict.GetValue(L"a", value));
  EXPECT_EQ(value, 42);
}

TEST_F(DictBadInput, DeeplyNestedXmlIsReadWrittenAndFreedWithoutRecursion) {
  constexpr int kDepth = 100000;
  std::string text = "<TolvDictionary>";
  for (int i = 0; i < kDepth; ++i) text += "<D name=\"d\">";
  text += "<Int name=\"leaf\">7</Int>";
  for (int i = 0; i < kDepth; ++i) text += "</D>";
  text += "</TolvDictionary>";
  Write("deep.xml", text);
  KyDtDictionary dict;
  ASSERT_TRUE(dict.ReadFromXML(Path("deep.xml").c_str()));
  KyDtDictionary *level = &dict;
  int depth = 0;
  while (level->GetLength() == 1 && level->GetAt(0)->IsDict()) {
    level = static_cast<KyDtDictionary *>(level->GetAt(0));
    ++depth;
  }
  EXPECT_EQ(depth, kDepth);
  EXPECT_TRUE(level->IsClassOf(L"D"));
  ASSERT_EQ(level->GetLength(), 1);
  EXPECT_EQ(static_cast<KyDtDictLongItem *>(level->GetAt(0))->m_value, 7);
  // Archive form, compare and copy of the same depth.
  ASSERT_TRUE(dict.Save(Path("deep.dat").c_str()));
  KyDtDictionary back;
  ASSERT_TRUE(back.Read(Path("deep.dat").c_str()));
  EXPECT_EQ(back.CompareWith(dict), 0);
  std::unique_ptr<KyDtDictItem> clone(dict.Clone());
  EXPECT_EQ(clone->CompareWith(dict), 0);
  back.CopyData(dict);
  KyDList<KyDtDictItem *> found;
  dict.FindItem(L"name", L"leaf", found);
  EXPECT_EQ(found.GetLength(), 1);
  EXPECT_EQ(dict.FindAndDelRef(L"x"), 0);
  dict.TranslateRef();
}

TEST_F(DictBadInput, DeepTreesAreWrittenToXml) {
  // The XML writer indents each level, so the file grows with the square
  // of the depth; a few thousand levels show that nothing recurses.
  constexpr int kDepth = 3000;
  KyDtDictionary dict;
  KyDtDictionary *level = &dict;
  for (int i = 0; i < kDepth; ++i) {
    auto *child = new KyDtDictionary(L"d");
    level->AppendItem(child);
    level = child;
  }
  level->SetValue(L"leaf", 1);
  ASSERT_TRUE(dict.SaveToXML(Path("deep_out.xml").c_str()));
  KyDtDictionary back;
  ASSERT_TRUE(back.ReadFromXML(Path("deep_out.xml").c_str()));
  KyDtDictionary *walk = &back;
  int depth = 0;
  while (walk->GetLength() == 1 && walk->GetAt(0)->IsDict()) {
    walk = static_cast<KyDtDictionary *>(walk->GetAt(0));
    ++depth;
  }
  EXPECT_EQ(depth, kDepth);
  int leaf = 0;
  EXPECT_TRUE(walk->GetValue(L"leaf", leaf));
  EXPECT_EQ(leaf, 1);
}

// ---- Archives ----

TEST_F(DictBadInput, ArchiveTruncatedAtEveryOffsetEndsWithEndOfFile) {
  for (int sorted = 0; sorted <= 1; ++sorted) {
    KyDtDictionary tree;
    tree.SetAutoSort(sorted);
    BuildTree(tree);
    ASSERT_TRUE(tree.Save(Path("full.dat").c_str()));
    const std::string full = tolvtest::ReadFileBytes(dir_.path() / "full.dat");
    ASSERT_GT(full.size(), 200u);
    dicttest::CapturedCommandLine quiet;
    for (std::size_t length = 0; length < full.size(); ++length) {
      Write("cut.dat", full.substr(0, length));
      KyDtDictionary dict;
      dict.SetValue(L"old", 1);
      ASSERT_EQ(ReadArchive(dict, "cut.dat"), -CArchiveException::endOfFile) << "length " << length;
      // What was read so far stays in a usable tree.
      std::unique_ptr<KyDtDictItem> copy(dict.Clone());
      ASSERT_EQ(copy->CompareWith(dict), 0);
    }
    KyDtDictionary whole;
    ASSERT_EQ(ReadArchive(whole, "full.dat"), 1);
    EXPECT_EQ(whole.CompareWith(tree), 0);
  }
}

TEST_F(DictBadInput, TruncatedArchiveKeepsTheFlagHeaderAndChildrenReadSoFar) {
  KyDtDictionary tree(L"root");
  tree.SetAutoSort(1);
  tree.SetValue(L"b", 1);
  tree.SetValue(L"a", 2);
  tree.SetValue(L"c", 3);
  ASSERT_TRUE(tree.Save(Path("full.dat").c_str()));
  const std::string full = tolvtest::ReadFileBytes(dir_.path() / "full.dat");
  // Cut inside the last child's value.
  Write("cut.dat", full.substr(0, full.size() - 2));
  KyDtDictionary dict;
  ASSERT_EQ(ReadArchive(dict, "cut.dat"), -CArchiveException::endOfFile);
  EXPECT_EQ(dict.IsAutoSort(), 1);
  EXPECT_EQ(dict.m_strName, L"root");
  EXPECT_EQ(ChildNames(dict), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST_F(DictBadInput, HostileStringLengthsCostNothing) {
  const std::string lengths[] = {
      std::string("\xFF\xFE\xFF\xFF\xFE\xFF", 6),                                  // 2-byte form, 65534
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\xFF\xFF", 10),                 // 4-byte form
      std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x3F", 16),  // 8-byte form
      std::string("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x3F", 15),  // narrow, 8-byte form
  };
  int index = 0;
  for (const std::string &length : lengths) {
    // As the root's name, as an attribute value, and as a child's class name.
    const std::string asName = I32(0) + I32(0) + length + "abc";
    const std::string asAttribute = I32(0) + Header(0, L"r").substr(0, 4 + 6 + 8) + I32(1) + WideString(L"k") + length;
    const std::string asClass = I32(0) + Header(0, L"r") + kEmpty + I32(1) + Header(0, L"c") + length + "xx";
    for (const std::string &bytes : {asName, asAttribute, asClass}) {
      const std::string name = "hostile" + std::to_string(index++) + ".dat";
      Write(name, bytes);
      KyDtDictionary dict;
      EXPECT_EQ(ReadArchive(dict, name), -CArchiveException::endOfFile) << name;
    }
  }
}

TEST_F(DictBadInput, HostileCountsEndWithTheStream) {
  // A child count far beyond the children that follow.
  const std::string children = I32(0) + Header(0, L"r") + kEmpty + I32(0x7FFFFFFF) + Header(3, L"x") + I32(1);
  Write("children.dat", children);
  KyDtDictionary dict;
  EXPECT_EQ(ReadArchive(dict, "children.dat"), -CArchiveException::endOfFile);
  EXPECT_EQ(ChildNames(dict), std::vector<std::wstring>{L"x"});
  // The same for attributes and options.
  const std::string attributes = I32(0) + I32(0) + kEmpty + kEmpty + kEmpty + I32(0x7FFFFFFF) + kEmpty + kEmpty;
  Write("attributes.dat", attributes);
  KyDtDictionary dict2;
  EXPECT_EQ(ReadArchive(dict2, "attributes.dat"), -CArchiveException::endOfFile);
  const std::string options = I32(0) + Header(0, L"r") + kEmpty + I32(1) + Header(6, L"o") + I32(0x7FFFFFFF) + kEmpty;
  Write("options.dat", options);
  KyDtDictionary dict3;
  EXPECT_EQ(ReadArchive(dict3, "options.dat"), -CArchiveException::endOfFile);
  // Negative counts read as none.
  const std::string negative = I32(0) + Header(0, L"r") + kEmpty + I32(-5);
  Write("negative.dat", negative);
  KyDtDictionary dict4;
  dict4.SetValue(L"old", 1);
  EXPECT_EQ(ReadArchive(dict4, "negative.dat"), 1);
  EXPECT_EQ(dict4.GetLength(), 0);
  EXPECT_EQ(dict4.m_strName, L"r");
}

TEST_F(DictBadInput, UnknownKindStopsTheDictionarySilently) {
  for (std::int32_t kind : {8, -2, 99, static_cast<std::int32_t>(0x80000000)}) {
    const std::string bytes = I32(0) + Header(0, L"r") + kEmpty + I32(3) + Header(3, L"a") + I32(1) + I32(kind) +
                              Header(3, L"b") + I32(2);
    Write("kind.dat", bytes);
    KyDtDictionary dict;
    EXPECT_EQ(ReadArchive(dict, "kind.dat"), 1) << kind;
    EXPECT_EQ(ChildNames(dict), std::vector<std::wstring>{L"a"});
  }
}

TEST_F(DictBadInput, UnknownKindInANestedDictionaryMisleadsTheOuterLevels) {
  // The inner dictionary stops behind the 9; the root then reads the rest
  // of the inner data as its next child, which is nonsense.
  const std::string bytes = I32(0) + Header(0, L"r") + kEmpty + I32(2) +            //
                            Header(0, L"inner") + kEmpty + I32(2) + I32(9) +        //
                            Header(3, L"x") + I32(1) + Header(3, L"after") + I32(2);
  Write("nested.dat", bytes);
  KyDtDictionary dict;
  const int result = ReadArchive(dict, "nested.dat");
  EXPECT_TRUE(result == 1 || result == -CArchiveException::endOfFile) << result;
  ASSERT_GE(dict.GetLength(), 1);
  EXPECT_EQ(dict.GetAt(0)->m_strName, L"inner");
  EXPECT_EQ(static_cast<KyDtDictionary *>(dict.GetAt(0))->GetLength(), 0);
}

TEST_F(DictBadInput, KindOutsideTheRangeMakesNoItem) {
  EXPECT_EQ(CreateDictItem(-2), nullptr);
  EXPECT_EQ(CreateDictItem(8), nullptr);
  KyDtDictionary dict;
  EXPECT_EQ(dict.FindOrAddItem(L"x", static_cast<KyDtDictItem::DictDataType>(8)), nullptr);
  EXPECT_EQ(dict.FindOrAddItem(L"x", static_cast<KyDtDictItem::DictDataType>(-2)), nullptr);
  EXPECT_EQ(dict.GetLength(), 0);
}

TEST_F(DictBadInput, OtherContentReadsNonsenseUntilTheStreamEnds) {
  Write("text.dat", "This is just some text, not an archive at all. 这不是档案。");
  KyDtDictionary dict;
  const int result = ReadArchive(dict, "text.dat");
  EXPECT_TRUE(result == 1 || result == -CArchiveException::endOfFile);
}

TEST_F(DictBadInput, DeeplyNestedArchiveIsReadWithoutRecursion) {
  constexpr int kDepth = 100000;
  std::string bytes = I32(0);
  for (int i = 0; i < kDepth; ++i) bytes += Header(0, L"d") + kEmpty + I32(1);
  bytes += Header(3, L"leaf") + I32(5);
  Write("deep.dat", bytes);
  KyDtDictionary dict;
  ASSERT_EQ(ReadArchive(dict, "deep.dat"), 1);
  ASSERT_TRUE(dict.Save(Path("deep2.dat").c_str()));
  EXPECT_EQ(tolvtest::ReadFileBytes(dir_.path() / "deep2.dat"), bytes);
  // Cut off, the partial levels are freed on the way out.
  Write("deep_cut.dat", bytes.substr(0, bytes.size() - 3));
  KyDtDictionary partial;
  EXPECT_EQ(ReadArchive(partial, "deep_cut.dat"), -CArchiveException::endOfFile);
}

TEST_F(DictBadInput, RandomlyDamagedArchivesNeverCrash) {
  KyDtDictionary tree;
  BuildTree(tree);
  ASSERT_TRUE(tree.Save(Path("full.dat").c_str()));
  const std::string full = tolvtest::ReadFileBytes(dir_.path() / "full.dat");
  std::mt19937 random(20240611);
  dicttest::CapturedCommandLine quiet;
  int succeeded = 0;
  int ended = 0;
  for (int round = 0; round < 600; ++round) {
    std::string bytes = full;
    const int flips = 1 + static_cast<int>(random() % 4);
    for (int i = 0; i < flips; ++i) bytes[random() % bytes.size()] = static_cast<char>(random() & 0xFF);
    Write("damaged.dat", bytes);
    KyDtDictionary dict;
    const int result = ReadArchive(dict, "damaged.dat");
    ASSERT_TRUE(result == 1 || result == -CArchiveException::endOfFile) << result;
    (result == 1 ? succeeded : ended)++;
  }
  EXPECT_EQ(succeeded + ended, 600);
}
