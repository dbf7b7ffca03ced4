// Hostile and odd documents: deep nesting, long chains, unknown and empty
// elements, truncated files. Clean results, no crash, no stack overflow.
#include <gtest/gtest.h>

#include <string>

#include "UiTestSupport.h"
#include "containers/KyDynArray.h"

namespace {

using UiBadInput = UiTest;

std::string Nested(int depth, const std::string &inner) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += "<Directory name=\"D" + std::to_string(i) + "\">";
  text += inner;
  for (int i = 0; i < depth; ++i) text += "</Directory>";
  return text;
}

TEST_F(UiBadInput, DirectoriesNestedTenThousandDeepAreReadWalkedWrittenAndFreed) {
  const int depth = 10000;
  std::wstring path = WriteFile("deep.xml", Document(Nested(depth, "<CommandDef name=\"BOTTOM\">KyBottom</CommandDef>")));
  {
    KyDtUIConfig config;
    ASSERT_TRUE(config.ReadFromXML(path.c_str()));
    EXPECT_EQ(config.GetChildNum(), depth + 1);
    KyDtUIItem *bottom = config.FindNamedItem(L"BOTTOM");
    ASSERT_NE(bottom, nullptr);
    EXPECT_EQ(config.FindItemByValue(L"KyBottom"), bottom);
    EXPECT_EQ(config.GetItemFromDFSId(0), bottom);
    EXPECT_EQ(config.GetItemFromDFSId(depth), config.FindNamedItem(L"D0"));
    KyDynArray<KyDtUIItem *> all;
    config.GetAllSubItem(all);
    EXPECT_EQ(all.GetLength(), depth + 1);
    ASSERT_TRUE(config.SaveToXML(path.c_str()));
    KyDtUIConfig again;
    ASSERT_TRUE(again.ReadFromXML(path.c_str()));
    EXPECT_EQ(again.GetChildNum(), depth + 1);
    {
      KyPushVar<KyDtUIConfig *> reading(KyDtUIConfig::g_pCurUICfg, &again);
      again.SafeReset();
    }
    EXPECT_EQ(again.FindNamedItem(L"BOTTOM"), nullptr);
  }
  // Deleting the outer directory through a list lets the rest go at once.
  KyDtUIConfig config;
  ASSERT_TRUE(config.ReadFromXML(path.c_str()));
  config.Reset();
  EXPECT_EQ(KyDtUIFreeDetachedItems(), depth);
}

TEST_F(UiBadInput, TenThousandReferencesToOneCommandAllBind) {
  std::string body = "<CommandDef name=\"WALL\">KyWall</CommandDef><Directory name=\"MENU\">";
  for (int i = 0; i < 10000; ++i) body += "<Reference>WALL</Reference>";
  body += "</Directory>";
  KyDtUIConfig config;
  Read(config, body);
  EXPECT_EQ(config.FindNamedItem(L"WALL")->GetRefCount(), 10000);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(UiBadInput, AChainOfNamedReferencesIsRegisteredNotBound) {
  // Named references never bind, so a chain in a document stops at once.
  std::string body = "<CommandDef name=\"R0\">KyWall</CommandDef>";
  for (int i = 1; i < 10000; ++i) {
    body += "<Reference name=\"R" + std::to_string(i) + "\">R" + std::to_string(i - 1) + "</Reference>";
  }
  body += "<Reference>R9999</Reference>";
  KyDtUIConfig config;
  Read(config, body);
  auto *last = static_cast<KyDtUIReference *>(config.GetAt(config.GetLength() - 1));
  ASSERT_NE(last->GetDirectTarget(), nullptr);
  // Its target is an unbound reference: the chain ends unbound.
  EXPECT_EQ(last->GetReferencedItem(), nullptr);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(UiBadInput, UnknownEmptyAndTextOnlyElementsGiveACleanTree) {
  KyDtUIConfig config;
  Read(config,
       "text at the root<Unknown/><commanddef name=\"lower\">x</commanddef><CommandDef/>"
       "<Reference/><Reference></Reference><Directory><Unknown><CommandDef name=\"LOST\"/></Unknown></Directory>"
       "<!-- comment --><?pi data?><![CDATA[cdata]]>");
  EXPECT_EQ(config.GetLength(), 4);
  EXPECT_EQ(config.FindNamedItem(L"lower"), nullptr);
  EXPECT_EQ(config.FindNamedItem(L"LOST"), nullptr);
  // Two references to the empty name: nothing of that name was read.
  EXPECT_EQ(commandLine(), UnboundMessage(L"") + UnboundMessage(L""));
}

TEST_F(UiBadInput, HostileAttributesReadAsTheyStand) {
  KyDtUIConfig config;
  Read(config,
       "<Directory name=\"W\" width=\"99999999999999999999\" multiopen=\"yes\"/>"
       "<Directory name=\"N\" width=\"-5\"/><ToolBoxDef name=\"T\" visible=\"TRUE \"/>");
  auto *w = static_cast<KyDtUIDirectory *>(config.FindNamedItem(L"W"));
  EXPECT_FALSE(w->CanMultiOpen());
  EXPECT_EQ(static_cast<KyDtUIDirectory *>(config.FindNamedItem(L"N"))->GetDefaultWidth(), -5);
  EXPECT_FALSE(static_cast<KyDtUIToolBoxDef *>(config.FindNamedItem(L"T"))->IsVisible());
  std::wstring path = dir_.wide("hostile.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  // A negative width is not written.
  EXPECT_EQ(ReadFile("hostile.xml").find("width=\"-5\""), std::string::npos);
}

TEST_F(UiBadInput, TruncatedFilesGiveFalseAtEveryLength) {
  const std::string full = Document(
      "<Directory name=\"ALL_COMMAND_DEF\"><CommandDef name=\"WALL\" title=\"墙体\">KyWall</CommandDef></Directory>"
      "<Directory name=\"MENU\"><Reference>WALL</Reference></Directory>");
  KyDtUIConfig config;
  // Every cut before the final line end.
  for (size_t n = 0; n + 1 < full.size(); ++n) {
    std::wstring path = WriteFile("cut.xml", full.substr(0, n));
    bool read = config.ReadFromXML(path.c_str());
    // A file cut inside the closing root tag is not well-formed either.
    EXPECT_FALSE(read) << n;
    EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
  }
  std::wstring path = WriteFile("cut.xml", full);
  EXPECT_TRUE(config.ReadFromXML(path.c_str()));
}

TEST_F(UiBadInput, AnEmptyOrBinaryFileGivesFalse) {
  KyDtUIConfig config;
  EXPECT_FALSE(config.ReadFromXML(WriteFile("empty.xml", "").c_str()));
  EXPECT_FALSE(config.ReadFromXML(WriteFile("binary.xml", std::string("\0\1\2\3\xff\xfe", 6)).c_str()));
  EXPECT_FALSE(config.ReadFromXML(dir_.wide().c_str()));
}

TEST_F(UiBadInput, AFileWithARootOnlyEmptiesTheTree) {
  KyDtUIConfig config;
  Read(config, "<CommandDef name=\"A\">KyA</CommandDef>");
  std::wstring path = WriteFile("root.xml", "<TolvUIConfig/>");
  ASSERT_TRUE(config.ReadFromXML(path.c_str()));
  EXPECT_EQ(config.GetLength(), 0);
  EXPECT_EQ(config.FindNamedItem(L"A"), nullptr);
}

}  // namespace
