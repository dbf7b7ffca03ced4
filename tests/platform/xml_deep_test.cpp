// Pathologically nested documents: reading, walking, saving, clearing and
// freeing them must neither crash nor blow up.
#include <gtest/gtest.h>
#include <pthread.h>

#include <string>
#include <utility>

#include "containers/KyArray.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "support/TestSupport.h"

namespace {

constexpr int kDepth = 100000;

std::string Nested(int depth, bool closed) {
  std::string xml;
  xml.reserve(static_cast<std::size_t>(depth) * 7);
  for (int i = 0; i < depth; ++i) xml += "<a>";
  if (closed)
    for (int i = 0; i < depth; ++i) xml += "</a>";
  return xml;
}

// Runs the body on a thread with a 1 MB stack, the size of the host's main
// thread on its home platform, so that anything recursing once per level
// would overflow it.
template <class Body>
void OnSmallStack(Body body) {
  pthread_attr_t attr;
  pthread_attr_init(&attr);
  pthread_attr_setstacksize(&attr, 1 << 20);
  pthread_t thread;
  auto run = [](void *p) -> void * {
    (*static_cast<Body *>(p))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attr, run, &body), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attr);
}

// Follows the first child down as far as it goes.
int DepthOf(_auto_ptr<KyUtXMLDOMNode> node) {
  int depth = 0;
  while (node) {
    ++depth;
    _auto_ptr<KyUtXMLDOMNodes> kids = node->GetChildrenNodes();
    node = kids->GetItem(0);
  }
  return depth;
}

TEST(XmlDeep, HundredThousandNestedElementsOpenWalkSaveAndFree) {
  OnSmallStack([] {
    tolvtest::ScratchDir dir("xml_deep");
    tolvtest::WriteFileBytes(dir.path() / "deep.xml", Nested(kDepth, true));
    {
      KyUtXMLDOMFile file;
      ASSERT_TRUE(file.Open(dir.wide("deep.xml").c_str()));
      EXPECT_EQ(DepthOf(file.GetRoot()), kDepth);
      ASSERT_TRUE(file.Save(dir.wide("saved.xml").c_str()));
    }  // the document is freed here

    std::string saved = tolvtest::ReadFileBytes(dir.path() / "saved.xml");
    // Too deep to indent: the size stays linear in the element count.
    EXPECT_LT(saved.size(), static_cast<std::size_t>(kDepth) * 10);
    KyUtXMLDOMFile again;
    ASSERT_TRUE(again.Open(dir.wide("saved.xml").c_str()));
    EXPECT_EQ(DepthOf(again.GetRoot()), kDepth);
    ASSERT_TRUE(again.Save(nullptr));
    EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "saved.xml"), saved);
  });
}

TEST(XmlDeep, DeletingADeepSubtree) {
  OnSmallStack([] {
    tolvtest::ScratchDir dir("xml_deep");
    tolvtest::WriteFileBytes(dir.path() / "deep.xml", "<R>" + Nested(kDepth, true) + "<b/></R>");
    KyUtXMLDOMFile file;
    ASSERT_TRUE(file.Open(dir.wide("deep.xml").c_str()));
    auto root = file.GetRoot();
    EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 2);
    EXPECT_TRUE(root->DeleteChildrenNodes());
    EXPECT_EQ(root->GetChildrenNodes()->GetCount(), 0);
    ASSERT_TRUE(file.Save(nullptr));
    EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "deep.xml"),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<R />\n");
  });
}

TEST(XmlDeep, BuildingADeepTreeThroughHandles) {
  OnSmallStack([] {
    tolvtest::ScratchDir dir("xml_deep");
    KyUtXMLDOMFile file;
    KyArray<std::pair<CString, CString>> none(0);
    ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("built.xml").c_str(), L"version='1.0' encoding='utf-8'", L"R", none));
    _auto_ptr<KyUtXMLDOMNode> node = file.GetRoot();
    for (int i = 1; i < kDepth; ++i) node = node->AppendNode(L"a", L"", L"", L"");
    node->SetNodeValue(L"bottom");
    ASSERT_TRUE(file.Save(nullptr));
    KyUtXMLDOMFile back;
    ASSERT_TRUE(back.Open(dir.wide("built.xml").c_str()));
    EXPECT_EQ(DepthOf(back.GetRoot()), kDepth);
  });
}

TEST(XmlDeep, UnclosedDeepNestingFailsToOpen) {
  OnSmallStack([] {
    tolvtest::ScratchDir dir("xml_deep");
    tolvtest::WriteFileBytes(dir.path() / "open.xml", Nested(kDepth, false));
    KyUtXMLDOMFile file;
    EXPECT_FALSE(file.Open(dir.wide("open.xml").c_str()));
    EXPECT_FALSE(file.GetRoot());
  });
}

TEST(XmlDeep, ModeratelyDeepFilesStayIndented) {
  tolvtest::ScratchDir dir("xml_deep");
  tolvtest::WriteFileBytes(dir.path() / "mid.xml", Nested(40, true));
  KyUtXMLDOMFile file;
  ASSERT_TRUE(file.Open(dir.wide("mid.xml").c_str()));
  ASSERT_TRUE(file.Save(nullptr));
  std::string bytes = tolvtest::ReadFileBytes(dir.path() / "mid.xml");
  EXPECT_NE(bytes.find("\n" + std::string(39, '\t') + "<a />\n"), std::string::npos);
}

}  // namespace
