// Documents on disk: creating, opening, saving, and what a bad file or a
// failing disk does.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <string>
#include <utility>

#include "containers/KyArray.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;
using tolvtest::ReadFileBytes;
using tolvtest::ScratchDir;
using tolvtest::WriteFileBytes;

const char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>";

bool StartsWith(const std::string &s, const std::string &prefix) { return s.compare(0, prefix.size(), prefix) == 0; }

KyArray<std::pair<CString, CString>> Attributes(std::initializer_list<std::pair<const wchar_t *, const wchar_t *>> list) {
  KyArray<std::pair<CString, CString>> out(static_cast<std::int32_t>(list.size()));
  std::int32_t i = 0;
  for (const auto &[name, value] : list) out[i++] = std::make_pair(CString(name), CString(value));
  return out;
}

TEST(XmlFile, NewDocumentHasRootWithAttributesInOrder) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  auto attrs = Attributes({{L"localname", L"XML Dictionary"}, {L"autosort", L"FALSE"}, {L"a", L"1"}});
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("d.xml").c_str(), L"version='1.0' encoding='utf-8'", L"TolvDictionary", attrs));
  auto root = file.GetRoot();
  ASSERT_TRUE(root);
  EXPECT_STREQ(root->GetNodeName(), L"TolvDictionary");
  ASSERT_EQ(root->GetAttributeNum(), 3);
  EXPECT_STREQ(root->GetAttributeName(0), L"localname");
  EXPECT_STREQ(root->GetAttributeName(1), L"autosort");
  EXPECT_STREQ(root->GetAttributeName(2), L"a");
  EXPECT_STREQ(root->GetAttributeValue(L"localname"), L"XML Dictionary");
  EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 0);
}

TEST(XmlFile, CreateRemembersThePathAndWritesNothingYet) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  std::wstring path = dir.wide("later.xml");
  ASSERT_TRUE(file.CreateNewXMLDoc(path.c_str(), L"version='1.0' encoding='utf-8'", L"R", Attributes({})));
  EXPECT_STREQ(file.GetXMLFileName(), path.c_str());
  EXPECT_FALSE(fs::exists(dir.path() / "later.xml"));
  EXPECT_TRUE(file.Save(nullptr));
  EXPECT_TRUE(fs::exists(dir.path() / "later.xml"));
}

TEST(XmlFile, CreateRefusesARootNameXmlCannotHold) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  EXPECT_FALSE(file.CreateNewXMLDoc(dir.wide("x.xml").c_str(), L"version='1.0'", L"", Attributes({})));
  EXPECT_FALSE(file.CreateNewXMLDoc(dir.wide("x.xml").c_str(), L"version='1.0'", nullptr, Attributes({})));
  EXPECT_FALSE(file.CreateNewXMLDoc(dir.wide("x.xml").c_str(), L"version='1.0'", L"a b", Attributes({})));
  EXPECT_FALSE(file.CreateNewXMLDoc(dir.wide("x.xml").c_str(), L"version='1.0'", L"R", Attributes({{L"bad name", L"v"}})));
  EXPECT_FALSE(file.GetRoot());
  EXPECT_STREQ(file.GetXMLFileName(), L"");
}

TEST(XmlFile, SavedFileStartsWithTheDeclaration) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("d.xml").c_str(), L"version='1.0' encoding='utf-8'", L"R", Attributes({})));
  file.GetRoot()->AppendNode(L"Child", L"text", L"name", L"c");
  ASSERT_TRUE(file.Save(nullptr));
  std::string bytes = ReadFileBytes(dir.path() / "d.xml");
  EXPECT_TRUE(StartsWith(bytes, kDeclaration)) << bytes;
}

TEST(XmlFile, DeclarationIsWrittenEvenWhenTheOpenedFileHadNone) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "plain.xml", "<R><A/></R>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("plain.xml").c_str()));
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_TRUE(StartsWith(ReadFileBytes(dir.path() / "plain.xml"), kDeclaration));
}

TEST(XmlFile, DeclarationAlwaysNamesTheEncodingWritten) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "other.xml", "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><R/>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("other.xml").c_str()));
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_TRUE(StartsWith(ReadFileBytes(dir.path() / "other.xml"),
                         "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>"));

  KyUtXMLDOMFile created;
  ASSERT_TRUE(created.CreateNewXMLDoc(dir.wide("c.xml").c_str(), L"version='1.0' encoding='gb2312'", L"R", Attributes({})));
  ASSERT_TRUE(created.Save(nullptr));
  EXPECT_TRUE(StartsWith(ReadFileBytes(dir.path() / "c.xml"), kDeclaration));
}

TEST(XmlFile, SavedFileIsIndentedForPeople) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("d.xml").c_str(), L"version='1.0' encoding='utf-8'", L"R", Attributes({})));
  auto a = file.GetRoot()->AppendNode(L"A", L"", L"name", L"a");
  a->AppendNode(L"B", L"1", L"name", L"b");
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_EQ(ReadFileBytes(dir.path() / "d.xml"),
            std::string(kDeclaration) +
                "\n<R>\n\t<A name=\"a\">\n\t\t<B name=\"b\">1</B>\n\t</A>\n</R>\n");
}

TEST(XmlFile, SavingTwiceGivesIdenticalBytes) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("one.xml").c_str(), L"version='1.0' encoding='utf-8'", L"R",
                                   Attributes({{L"x", L"1"}})));
  auto root = file.GetRoot();
  for (int i = 0; i < 20; ++i) {
    auto n = root->AppendNode(L"Item", L"", L"name", std::to_wstring(i).c_str());
    n->SetNodeValue(i * 0.37);
    n->AppendNode(L"Sub", L"中文 & <text>", L"k", L"v\"q");
  }
  ASSERT_TRUE(file.Save(nullptr));
  std::string first = ReadFileBytes(dir.path() / "one.xml");
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_EQ(ReadFileBytes(dir.path() / "one.xml"), first);
  ASSERT_TRUE(file.Save(dir.wide("two.xml").c_str()));
  EXPECT_EQ(ReadFileBytes(dir.path() / "two.xml"), first);

  // And a file read back and saved again is unchanged too.
  KyUtXMLDOMFile again;
  ASSERT_TRUE(again.Open(dir.wide("two.xml").c_str()));
  ASSERT_TRUE(again.Save(nullptr));
  EXPECT_EQ(ReadFileBytes(dir.path() / "two.xml"), first);
}

TEST(XmlFile, SaveToAGivenPathKeepsTheRememberedOne) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  std::wstring path = dir.wide("main.xml");
  ASSERT_TRUE(file.CreateNewXMLDoc(path.c_str(), L"version='1.0'", L"R", Attributes({})));
  ASSERT_TRUE(file.Save(dir.wide("copy.xml").c_str()));
  EXPECT_TRUE(fs::exists(dir.path() / "copy.xml"));
  EXPECT_FALSE(fs::exists(dir.path() / "main.xml"));
  EXPECT_STREQ(file.GetXMLFileName(), path.c_str());
}

TEST(XmlFile, SaveWithoutADocumentOrPathFails) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile empty;
  EXPECT_FALSE(empty.GetRoot());
  EXPECT_FALSE(empty.Save(nullptr));
  EXPECT_FALSE(empty.Save(dir.wide("x.xml").c_str()));
  EXPECT_STREQ(empty.GetXMLFileName(), L"");

  KyUtXMLDOMFile noPath;
  ASSERT_TRUE(noPath.CreateNewXMLDoc(nullptr, L"version='1.0'", L"R", Attributes({})));
  EXPECT_FALSE(noPath.Save(nullptr));
  EXPECT_TRUE(noPath.Save(dir.wide("given.xml").c_str()));
}

TEST(XmlFile, SaveIntoAMissingFolderFails) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("no/such/folder/x.xml").c_str(), L"version='1.0'", L"R", Attributes({})));
  EXPECT_FALSE(file.Save(nullptr));
}

TEST(XmlFile, OpenRemembersThePath) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "a.xml", "<R/>");
  KyUtXMLDOMFile file;
  std::wstring path = dir.wide("a.xml");
  ASSERT_TRUE(file.Open(path.c_str()));
  EXPECT_STREQ(file.GetXMLFileName(), path.c_str());
}

TEST(XmlFile, MissingFileFailsToOpen) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  EXPECT_FALSE(file.Open(dir.wide("missing.xml").c_str()));
  EXPECT_FALSE(file.Open(nullptr));
  EXPECT_FALSE(file.Open(L""));
  EXPECT_FALSE(file.Open(dir.wide().c_str()));  // a folder
  EXPECT_FALSE(file.GetRoot());
  EXPECT_STREQ(file.GetXMLFileName(), L"");
}

TEST(XmlFile, MalformedFilesFailToOpen) {
  ScratchDir dir("xml_file");
  const char *bad[] = {
      "",
      "   \n",
      "just text",
      "<!-- only a comment -->",
      "<?xml version='1.0'?>",
      "<R>",
      "<R></r>",
      "<R><A></R>",
      "<R x=1/>",
      "<R x/>",
      "<R x='1' x='2'/>",
      "<R><A a='1' b='2' a='3'/></R>",
      "<R/><S/>",
      "<R/>trailing text",
      "leading text<R/>",
      "<R/><?xml version='1.0'?>",
      "<1R/>",
      "<R><![CDATA[open</R>",
      "<R><!-- open </R>",
      "\xEF\xBB\xBF",
  };
  for (const char *text : bad) {
    WriteFileBytes(dir.path() / "bad.xml", text);
    KyUtXMLDOMFile file;
    EXPECT_FALSE(file.Open(dir.wide("bad.xml").c_str())) << "accepted: " << text;
    EXPECT_FALSE(file.GetRoot());
  }
}

TEST(XmlFile, ManyAttributesWithOneRepeatedFailToOpen) {
  ScratchDir dir("xml_file");
  std::string xml = "<R";
  for (int i = 0; i < 100; ++i) xml += " a" + std::to_string(i) + "='v'";
  WriteFileBytes(dir.path() / "many.xml", xml + "/>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("many.xml").c_str()));
  EXPECT_EQ(file.GetRoot()->GetAttributeNum(), 100);
  WriteFileBytes(dir.path() / "dup.xml", xml + " a57='again'/>");
  EXPECT_FALSE(file.Open(dir.wide("dup.xml").c_str()));
}

TEST(XmlFile, FailedOpenKeepsTheDocumentAndPath) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "good.xml", "<Good a='1'/>");
  WriteFileBytes(dir.path() / "bad.xml", "<Bad>");
  KyUtXMLDOMFile file;
  std::wstring good = dir.wide("good.xml");
  ASSERT_TRUE(file.Open(good.c_str()));
  EXPECT_FALSE(file.Open(dir.wide("bad.xml").c_str()));
  EXPECT_FALSE(file.Open(dir.wide("missing.xml").c_str()));
  EXPECT_STREQ(file.GetXMLFileName(), good.c_str());
  ASSERT_TRUE(file.GetRoot());
  EXPECT_STREQ(file.GetRoot()->GetNodeName(), L"Good");
}

TEST(XmlFile, OpeningAgainReplacesTheDocument) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "one.xml", "<One/>");
  WriteFileBytes(dir.path() / "two.xml", "<Two/>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("one.xml").c_str()));
  ASSERT_TRUE(file.Open(dir.wide("two.xml").c_str()));
  EXPECT_STREQ(file.GetRoot()->GetNodeName(), L"Two");
  EXPECT_STREQ(file.GetXMLFileName(), dir.wide("two.xml").c_str());
}

TEST(XmlFile, ByteOrderMarkIsAccepted) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "bom.xml", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<R>\xE4\xB8\xAD</R>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("bom.xml").c_str()));
  EXPECT_STREQ(file.GetRoot()->GetNodeName(), L"R");
  EXPECT_STREQ(file.GetRoot()->GetNodeValue(), L"中");
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_TRUE(StartsWith(ReadFileBytes(dir.path() / "bom.xml"), kDeclaration));
}

TEST(XmlFile, ChineseTextAndAttributesRoundTrip) {
  ScratchDir dir("xml_file");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("zh.xml").c_str(), L"version='1.0' encoding='utf-8'", L"TolvDictionary",
                                   Attributes({{L"localname", L"XML字典"}})));
  auto root = file.GetRoot();
  root->AppendNode(L"String", L"墙体图层", L"name", L"墙");
  root->AppendNode(L"楼层", L"", L"comment", L"第一层 — 𠀀");
  ASSERT_TRUE(file.Save(nullptr));

  // UTF-8 on disk.
  std::string bytes = ReadFileBytes(dir.path() / "zh.xml");
  EXPECT_NE(bytes.find("\xE5\xA2\x99\xE4\xBD\x93\xE5\x9B\xBE\xE5\xB1\x82"), std::string::npos);

  KyUtXMLDOMFile back;
  ASSERT_TRUE(back.Open(dir.wide("zh.xml").c_str()));
  auto r = back.GetRoot();
  EXPECT_STREQ(r->GetAttributeValue(L"localname"), L"XML字典");
  auto kids = r->GetChildrenNodes();
  ASSERT_EQ(kids->GetCount(), 2);
  EXPECT_STREQ(kids->GetItem(0)->GetNodeValue(), L"墙体图层");
  EXPECT_STREQ(kids->GetItem(0)->GetAttributeValue(L"name"), L"墙");
  EXPECT_STREQ(kids->GetItem(1)->GetNodeName(), L"楼层");
  EXPECT_STREQ(kids->GetItem(1)->GetAttributeValue(L"comment"), L"第一层 — 𠀀");
}

TEST(XmlFile, CommentsAndInstructionsSurviveASave) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "c.xml", "<?xml version=\"1.0\"?>\n<!-- top note -->\n<R><!-- inner note --><?app hint?><A/></R>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("c.xml").c_str()));
  EXPECT_EQ(file.GetRoot()->GetChildrenNodes()->GetCount(), 1);
  ASSERT_TRUE(file.Save(nullptr));
  std::string bytes = ReadFileBytes(dir.path() / "c.xml");
  EXPECT_NE(bytes.find("<!-- top note -->"), std::string::npos);
  EXPECT_NE(bytes.find("<!-- inner note -->"), std::string::npos);
  EXPECT_NE(bytes.find("<?app hint?>"), std::string::npos);
}

TEST(XmlFile, IsFileExistChecksTheDisk) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "here.xml", "<R/>");
  fs::create_directory(dir.path() / "folder.xml");
  KyUtXMLDOMFile file;
  EXPECT_TRUE(file.IsFileExist(dir.wide("here.xml").c_str()));
  EXPECT_TRUE(file.IsFileExist(dir.wide("HERE.XML").c_str()));
  EXPECT_FALSE(file.IsFileExist(dir.wide("absent.xml").c_str()));
  EXPECT_FALSE(file.IsFileExist(dir.wide("folder.xml").c_str()));
  EXPECT_FALSE(file.IsFileExist(nullptr));
  EXPECT_FALSE(file.IsFileExist(L""));
}

TEST(XmlFile, PathsFallBackToAnyCase) {
  ScratchDir dir("xml_file");
  WriteFileBytes(dir.path() / "config.xml", "<Config v='1'/>");
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("CONFIG.XML").c_str()));
  EXPECT_STREQ(file.GetRoot()->GetAttributeValue(L"v"), L"1");
  file.GetRoot()->SetAttributeValue(L"v", L"2");
  // Saving through the same spelling lands on the existing file.
  ASSERT_TRUE(file.Save(nullptr));
  EXPECT_FALSE(fs::exists(dir.path() / "CONFIG.XML"));
  EXPECT_NE(ReadFileBytes(dir.path() / "config.xml").find("v=\"2\""), std::string::npos);
}

TEST(XmlFile, SystemStylePathsReachTheDisk) {
  ScratchDir dir("xml_file");
  fs::create_directory(dir.path() / "Sub");
  WriteFileBytes(dir.path() / "Sub" / "f.xml", "<R/>");
  std::wstring systemPath = dir.wide() + L"\\sub\\F.XML";
  for (auto &c : systemPath)
    if (c == L'/') c = L'\\';
  KyUtXMLDOMFile file;
  EXPECT_TRUE(file.IsFileExist(systemPath.c_str()));
  EXPECT_TRUE(file.Open(systemPath.c_str()));
}

// The file-size limit makes every write past a few bytes fail, as a full or
// read-only disk would; it is lifted again before any check can report.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &old_);
    rlimit lowered = old_;
    lowered.rlim_cur = bytes;
    ok_ = setrlimit(RLIMIT_FSIZE, &lowered) == 0;
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &old_); }
  bool ok() const { return ok_; }

 private:
  rlimit old_{};
  bool ok_ = false;
};

TEST(XmlFile, FailedSaveKeepsTheOldFile) {
  ScratchDir dir("xml_file");
  const std::string original = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<R old=\"yes\" />\n";
  WriteFileBytes(dir.path() / "keep.xml", original);
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("keep.xml").c_str()));
  auto root = file.GetRoot();
  for (int i = 0; i < 200; ++i) root->AppendNode(L"Item", L"a fairly long piece of text", L"name", L"n");
  bool saved = true;
  {
    FileSizeLimit limit(16);
    ASSERT_TRUE(limit.ok());
    saved = file.Save(nullptr);
  }
  EXPECT_FALSE(saved);
  EXPECT_EQ(ReadFileBytes(dir.path() / "keep.xml"), original);
  // No temporary file is left beside it.
  int entries = 0;
  for (const auto &e : fs::directory_iterator(dir.path())) {
    (void)e;
    ++entries;
  }
  EXPECT_EQ(entries, 1);
  // With the limit lifted the same document saves.
  EXPECT_TRUE(file.Save(nullptr));
  EXPECT_NE(ReadFileBytes(dir.path() / "keep.xml"), original);
}

}  // namespace
