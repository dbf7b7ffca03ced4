// Element handles whose memory is kept and reused: texts stay put while a
// handle lives however many others come and go, handles may end on another
// thread than the one that made them, and long or non-ASCII texts read back
// exactly.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

class XmlHandleReuseTest : public ::testing::Test {
 protected:
  XmlHandleReuseTest() : dir_("xml_handle_reuse") {}

  _auto_ptr<KyUtXMLDOMNode> OpenText(const std::string &xml) {
    tolvtest::WriteFileBytes(dir_.path() / "doc.xml", xml);
    EXPECT_TRUE(file_.Open(dir_.wide("doc.xml").c_str()));
    return file_.GetRoot();
  }

  bool Opens(const std::string &xml) {
    tolvtest::WriteFileBytes(dir_.path() / "check.xml", xml);
    KyUtXMLDOMFile other;
    return other.Open(dir_.wide("check.xml").c_str());
  }

  tolvtest::ScratchDir dir_;
  KyUtXMLDOMFile file_;
};

// A document of `count` items, each with a name, a label and a text of its
// own, the label growing with the index.
std::string Items(int count) {
  std::string xml = "<root>";
  for (int i = 0; i < count; ++i) {
    xml += "<item name=\"n" + std::to_string(i) + "\" label=\"" + std::string(static_cast<std::size_t>(i % 50), 'x') +
           std::to_string(i) + "\">text " + std::to_string(i) + "</item>";
  }
  return xml + "</root>";
}

std::wstring Label(int i) { return std::wstring(static_cast<std::size_t>(i % 50), L'x') + std::to_wstring(i); }

struct Read {
  _auto_ptr<KyUtXMLDOMNode> handle;
  const wchar_t *name = nullptr;
  const wchar_t *label = nullptr;
  const wchar_t *text = nullptr;
};

Read ReadItem(KyUtXMLDOMNodeArray &items, int i) {
  Read read;
  read.handle = items->GetItem(i);
  read.name = read.handle->GetAttributeValue(L"name");
  read.label = read.handle->GetAttributeValue(L"label");
  read.text = read.handle->GetNodeValue();
  return read;
}

void ExpectItem(const Read &read, int i) {
  EXPECT_EQ(std::wstring(read.name), L"n" + std::to_wstring(i));
  EXPECT_EQ(std::wstring(read.label), Label(i));
  EXPECT_EQ(std::wstring(read.text), L"text " + std::to_wstring(i));
}

TEST_F(XmlHandleReuseTest, TextsOfLiveHandlesSurviveHandlesComingAndGoing) {
  _auto_ptr<KyUtXMLDOMNode> root = OpenText(Items(300));
  KyUtXMLDOMNodeArray items;
  items = root->GetChildrenNodes();
  ASSERT_EQ(items->GetCount(), 300);

  // Every handle alive at once, far more than any thread keeps for reuse.
  std::vector<Read> all;
  for (int i = 0; i < 300; ++i) all.push_back(ReadItem(items, i));
  // Drop every other one, then take many short-lived handles, which reuse
  // the dropped handles' memory.
  for (int i = 0; i < 300; i += 2) all[static_cast<std::size_t>(i)].handle.reset(nullptr);
  for (int round = 0; round < 3; ++round)
    for (int i = 0; i < 300; ++i) ExpectItem(ReadItem(items, i), i);
  for (int i = 1; i < 300; i += 2) ExpectItem(all[static_cast<std::size_t>(i)], i);
}

TEST_F(XmlHandleReuseTest, ReusedHandleStartsClean) {
  _auto_ptr<KyUtXMLDOMNode> root = OpenText("<root><a x=\"1\" y=\"2\" z=\"3\">one</a><b q=\"9\"/></root>");
  KyUtXMLDOMNodeArray items;
  items = root->GetChildrenNodes();
  {
    _auto_ptr<KyUtXMLDOMNode> a = items->GetItem(0);
    ASSERT_EQ(a->GetAttributeNum(), 3);
    EXPECT_STREQ(a->GetAttributeName(2), L"z");
    EXPECT_STREQ(a->GetAttributeValue(a->GetAttributeName(2)), L"3");
  }
  // Most likely the memory of the handle just dropped: nothing of `a` shows.
  _auto_ptr<KyUtXMLDOMNode> b = items->GetItem(1);
  EXPECT_STREQ(b->GetNodeName(), L"b");
  EXPECT_EQ(b->GetAttributeNum(), 1);
  EXPECT_STREQ(b->GetAttributeName(0), L"q");
  EXPECT_STREQ(b->GetAttributeName(1), L"");
  EXPECT_STREQ(b->GetAttributeValue(L"z"), L"");
  EXPECT_STREQ(b->GetNodeValue(), L"");
}

TEST_F(XmlHandleReuseTest, LongTextsStayValidTogether) {
  std::string longAscii(5000, 'a');
  std::string longMixed;
  for (int i = 0; i < 900; ++i) longMixed += "\xE4\xB8\xAD;z";  // U+4E2D, ';', 'z'
  _auto_ptr<KyUtXMLDOMNode> root =
      OpenText("<root><e one=\"" + longAscii + "\" two=\"" + longMixed + "\">" + longAscii + "b</e><f v=\"s\"/></root>");
  std::wstring wideMixed;
  for (int i = 0; i < 900; ++i) wideMixed += L"\x4E2D;z";

  KyUtXMLDOMNodeArray items;
  items = root->GetChildrenNodes();
  for (int round = 0; round < 3; ++round) {
    _auto_ptr<KyUtXMLDOMNode> e = items->GetItem(0);
    const wchar_t *one = e->GetAttributeValue(L"one");
    const wchar_t *two = e->GetAttributeValue(L"two");
    const wchar_t *text = e->GetNodeValue();
    // Many short texts after the long ones, on the same handle.
    std::vector<const wchar_t *> names;
    for (int i = 0; i < 400; ++i) names.push_back(e->GetNodeName());
    EXPECT_EQ(std::wstring(one), std::wstring(5000, L'a'));
    EXPECT_EQ(std::wstring(two), wideMixed);
    EXPECT_EQ(std::wstring(text), std::wstring(5000, L'a') + L"b");
    for (const wchar_t *name : names) EXPECT_STREQ(name, L"e");
    // A handle taking over this one's memory reads its own short texts.
    e.reset(nullptr);
    _auto_ptr<KyUtXMLDOMNode> f = items->GetItem(1);
    EXPECT_STREQ(f->GetAttributeValue(L"v"), L"s");
  }
}

TEST_F(XmlHandleReuseTest, TextsOfEveryLengthAndMixReadBack) {
  _auto_ptr<KyUtXMLDOMNode> root = OpenText("<root/>");
  // ASCII of every length up to past two vector blocks, with one character
  // from beyond ASCII at each place in turn, or none.
  const wchar_t others[] = {L'\x00E9', L'\x4E2D', static_cast<wchar_t>(0x1F600)};
  for (int length = 0; length <= 40; ++length) {
    for (int at = -1; at < length; ++at) {
      std::wstring text;
      for (int i = 0; i < length; ++i)
        text += i == at ? others[static_cast<std::size_t>(i) % 3] : static_cast<wchar_t>(L'a' + i % 26);
      ASSERT_TRUE(root->SetAttributeValue(L"v", text.c_str()));
      ASSERT_TRUE(root->SetNodeValue(text.c_str()));
      EXPECT_EQ(std::wstring(root->GetAttributeValue(L"v")), text) << length << " " << at;
      EXPECT_EQ(std::wstring(root->GetNodeValue()), text) << length << " " << at;
    }
  }
}

TEST_F(XmlHandleReuseTest, BrokenUtf8ReadsAsTheConverterGivesIt) {
  // A stray continuation byte, a lead byte cut short, and an encoded
  // surrogate, each after a run of ASCII long enough for block widening.
  const std::string broken[] = {"abcdefghijklmnopq\x80rst", "abcdefghijklmnop\xE4\xB8", "abcdefgh\xED\xA0\x80xyz",
                                "ab\xC3(", "\xF5\x80\x80\x80zz"};
  for (const std::string &bytes : broken) {
    _auto_ptr<KyUtXMLDOMNode> root = OpenText("<root v=\"" + bytes + "\">" + bytes + "</root>");
    ASSERT_TRUE(root);
    EXPECT_EQ(std::wstring(root->GetAttributeValue(L"v")), tolv::FromUtf8(bytes));
    EXPECT_EQ(std::wstring(root->GetNodeValue()), tolv::FromUtf8(bytes));
  }
}

TEST_F(XmlHandleReuseTest, HandlesEndOnAnotherThread) {
  _auto_ptr<KyUtXMLDOMNode> root = OpenText(Items(100));
  KyUtXMLDOMNodeArray items;
  items = root->GetChildrenNodes();

  // Made on worker threads that then end, read and dropped here.
  std::vector<Read> fromWorkers(100);
  std::vector<std::thread> workers;
  for (int w = 0; w < 4; ++w) {
    workers.emplace_back([&, w] {
      for (int i = w; i < 100; i += 4) fromWorkers[static_cast<std::size_t>(i)] = ReadItem(items, i);
      // Some handles made and dropped here too, so that the thread keeps
      // memory when it ends.
      for (int i = 0; i < 50; ++i) ReadItem(items, i);
    });
  }
  for (std::thread &t : workers) t.join();
  for (int i = 0; i < 100; ++i) ExpectItem(fromWorkers[static_cast<std::size_t>(i)], i);
  fromWorkers.clear();

  // Made here, dropped on worker threads while this thread makes more.
  std::vector<Read> fromHere;
  for (int i = 0; i < 100; ++i) fromHere.push_back(ReadItem(items, i));
  std::vector<Read> firstHalf(std::make_move_iterator(fromHere.begin()), std::make_move_iterator(fromHere.begin() + 50));
  std::vector<Read> secondHalf(std::make_move_iterator(fromHere.begin() + 50), std::make_move_iterator(fromHere.end()));
  std::thread a([&firstHalf] {
    for (int i = 0; i < 50; ++i) ExpectItem(firstHalf[static_cast<std::size_t>(i)], i);
    firstHalf.clear();
  });
  std::thread b([&secondHalf] {
    for (int i = 0; i < 50; ++i) ExpectItem(secondHalf[static_cast<std::size_t>(i)], i + 50);
    secondHalf.clear();
  });
  for (int i = 0; i < 100; ++i) ExpectItem(ReadItem(items, i), i);
  a.join();
  b.join();
}

TEST_F(XmlHandleReuseTest, RepeatedAttributeFoundAmongMany) {
  std::string attributes;
  for (int i = 0; i < 20; ++i) attributes += " a" + std::to_string(i) + "=\"1\"";
  EXPECT_TRUE(Opens("<root" + attributes + "/>"));
  // Past the pairwise check's reach, and within it.
  EXPECT_FALSE(Opens("<root" + attributes + " a3=\"2\"/>"));
  EXPECT_FALSE(Opens("<root><c" + attributes + " a19=\"2\"/></root>"));
  EXPECT_FALSE(Opens("<root><c a=\"1\" b=\"2\" a=\"3\"/></root>"));
  EXPECT_TRUE(Opens("<root><c a=\"1\" ab=\"2\" b=\"3\"/></root>"));
}

}  // namespace
