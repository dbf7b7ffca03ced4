// The module's commands and Lisp functions as the host sees them.
#include <gtest/gtest.h>

#include <cstring>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "dictionary/KyDtDictOptionItem.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleCommands.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/dbobject/DbObjectSettings.h"

namespace {

class LispFunctions : public ModuleHarness {
 protected:
  void StartWithDocument() {
    Start();
    OpenDocument();
  }
  AcEdCommandStack *Commands() {
    return AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK));
  }
};

std::string Option(const std::string &key, const std::string &options, const std::string &selected) {
  return "<Option name=\"" + key + "\" options=\"" + options + "\">" + selected + "</Option>";
}

TEST_F(LispFunctions, EightFunctionsAreDefinedInEachDocument) {
  Start();
  const char *names[] = {"_KyGetLayerStd", "_KySetLayerStd", "_KyGetDimAdjustMode",
                         "_KySetDimAdjustMode", "_KyGetRelateModify", "_KySetRelateModify",
                         "_KyGetAutoBreak", "_KySetAutoBreak"};
  for (int doc = 0; doc < 2; ++doc) {
    OpenDocument();
    std::vector<tolv::LispFunction> fns = tolv::LispHost::Instance().Functions();
    ASSERT_EQ(fns.size(), 8u);
    for (int i = 0; i < 8; ++i) {
      EXPECT_EQ(fns[i].name, std::wstring(names[i], names[i] + std::strlen(names[i])));
      EXPECT_EQ(fns[i].code, i);
      EXPECT_EQ(fns[i].appId, appId());
    }
  }
}

TEST_F(LispFunctions, ReadersGiveTheSettings) {
  StartWithDocument();
  g_bUseLayerStd = true;
  g_nDimAdjust = 2;
  g_bUserRelateModify = false;
  g_bAutoBreak = true;
  EXPECT_EQ(InvokeInt(L"_KyGetLayerStd"), 1);
  EXPECT_EQ(InvokeInt(L"_KyGetDimAdjustMode"), 2);
  EXPECT_EQ(InvokeInt(L"_KyGetRelateModify"), 0);
  EXPECT_EQ(InvokeInt(L"_KyGetAutoBreak"), 1);
  // Lisp names don't care about case.
  EXPECT_EQ(InvokeInt(L"_kygetautobreak"), 1);
}

TEST_F(LispFunctions, DimAdjustModeStepsThroughThreeValuesBackToTheStart) {
  WriteConfig(ConfigNest(L"ADVANCE\\ENTITY\\DIMENSION", Option("ADJUST_MODE", "A B C", "A")));
  StartWithDocument();
  EXPECT_EQ(InvokeInt(L"_KyGetDimAdjustMode"), 0);
  EXPECT_EQ(InvokeInt(L"_KySetDimAdjustMode"), 1);
  EXPECT_EQ(InvokeInt(L"_KySetDimAdjustMode"), 2);
  EXPECT_EQ(InvokeInt(L"_KySetDimAdjustMode"), 0);
  EXPECT_EQ(InvokeInt(L"_KyGetDimAdjustMode"), 0);
  unsigned int stored = 99;
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\ENTITY\\DIMENSION\\ADJUST_MODE", stored));
  EXPECT_EQ(stored, 0u);
}

TEST_F(LispFunctions, DimAdjustModeSevenFromAFileWithManyOptionsStepsToTwo) {
  WriteConfig(ConfigNest(L"ADVANCE\\ENTITY\\DIMENSION", Option("ADJUST_MODE", "a b c d e f g h i", "h")));
  StartWithDocument();
  EXPECT_EQ(g_nDimAdjust, 7u);
  EXPECT_EQ(InvokeInt(L"_KySetDimAdjustMode"), 2);
  unsigned int stored = 99;
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\ENTITY\\DIMENSION\\ADJUST_MODE", stored));
  EXPECT_EQ(stored, 2u);
}

TEST_F(LispFunctions, AutoBreakTwiceRestoresTheFlagAndLeavesABoolItem) {
  WriteConfig("<Directory name=\"ADVANCE\"/>");
  StartWithDocument();
  const bool before = g_bAutoBreak;
  EXPECT_EQ(InvokeInt(L"_KySetAutoBreak"), before ? 0 : 1);
  EXPECT_EQ(InvokeInt(L"_KySetAutoBreak"), before ? 1 : 0);
  EXPECT_EQ(g_bAutoBreak, before);
  KyDtDictItem *item = g_dictCfg.FindItem(L"ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK");
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->GetType(), KyDtDictItem::DT_BOOL);
  bool stored = !before;
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK", stored));
  EXPECT_EQ(stored, before);
}

TEST_F(LispFunctions, RelateModifyWithoutSettingsFileStaysUnsaved) {
  StartWithDocument();
  const bool before = g_bUserRelateModify;
  EXPECT_EQ(InvokeInt(L"_KySetRelateModify"), before ? 0 : 1);
  bool stored = before;
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\SYSTEM\\ENTITY\\RELATE_MODIFY", stored));
  EXPECT_EQ(stored, !before);
  Stop();
  EXPECT_FALSE(SupportFileExists("config.xml"));
  ASSERT_FALSE(messageBoxes().empty());
  EXPECT_EQ(messageBoxes()[0], L"\n保存选项配置文件失败！未找到文件config.xml!");
}

TEST_F(LispFunctions, LayerStdFlipsTheSelectedOfTwoOptions) {
  WriteConfig(ConfigNest(L"ADVANCE\\SYSTEM\\ENTITY", Option("ENTITY_LAYER", "STANDARD CURRENT", "STANDARD")));
  StartWithDocument();
  ASSERT_TRUE(g_bUseLayerStd);
  unsigned int index = 99;
  EXPECT_EQ(InvokeInt(L"_KySetLayerStd"), 0);
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\SYSTEM\\ENTITY\\ENTITY_LAYER", index));
  EXPECT_EQ(index, 1u);
  EXPECT_EQ(InvokeInt(L"_KySetLayerStd"), 1);
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\SYSTEM\\ENTITY\\ENTITY_LAYER", index));
  EXPECT_EQ(index, 0u);
}

TEST_F(LispFunctions, RefusedStoreStillChangesTheSetting) {
  // No ENTITY_LAYER in the file: the setter makes an empty Option item,
  // which takes no index; the flag flips all the same.
  WriteConfig(ConfigNest(L"ADVANCE\\SYSTEM\\ENTITY", ""));
  StartWithDocument();
  ASSERT_TRUE(g_bUseLayerStd);
  EXPECT_EQ(InvokeInt(L"_KySetLayerStd"), 0);
  EXPECT_FALSE(g_bUseLayerStd);
  auto *option = dynamic_cast<KyDtDictOptionItem *>(g_dictCfg.FindItem(L"ADVANCE\\SYSTEM\\ENTITY\\ENTITY_LAYER"));
  ASSERT_NE(option, nullptr);
  EXPECT_EQ(option->GetLength(), 0);
}

TEST_F(LispFunctions, SetterWithAValueItemInTheWayChangesOnlyTheSetting) {
  WriteConfig("<String name=\"ADVANCE\">not a group</String>");
  StartWithDocument();
  const bool before = g_bAutoBreak;
  EXPECT_EQ(InvokeInt(L"_KySetAutoBreak"), before ? 0 : 1);
  EXPECT_EQ(g_dictCfg.GetLength(), 1);
  EXPECT_EQ(g_dictCfg.FindDict(L"ADVANCE"), nullptr);
}

TEST_F(LispFunctions, ChangeMadeByASetterSurvivesARestart) {
  WriteConfig(ConfigNest(L"ADVANCE\\SYSTEM\\ENTITY", "<Bool name=\"AUTO_BREAK\">TRUE</Bool>"));
  StartWithDocument();
  EXPECT_EQ(InvokeInt(L"_KySetAutoBreak"), 0);
  Stop();
  g_dictCfg.Reset();
  g_bAutoBreak = true;
  Start();
  EXPECT_FALSE(g_bAutoBreak);
}

TEST_F(LispFunctions, CommandsStandInTheirGroupInTableOrder) {
  Start();
  std::vector<const AcEdCommand *> cmds = Commands()->commandsOf(L"TolvDataBase");
  ASSERT_EQ(cmds.size(), 3u);
  EXPECT_STREQ(cmds[0]->globalName(), L"KyPrj");
  EXPECT_STREQ(cmds[1]->globalName(), L"KyExLang");
  EXPECT_STREQ(cmds[2]->globalName(), L"KyReplaceLang");
  for (const AcEdCommand *cmd : cmds) EXPECT_EQ(cmd->commandFlags(), ACRX_CMD_MODAL);
  Stop();
  EXPECT_TRUE(Commands()->commandsOf(L"TolvDataBase").empty());
  EXPECT_EQ(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
}

TEST_F(LispFunctions, ProjectCommandRunsQuietlyWhileTheProjectDatabaseIsMissing) {
  WriteConfig("<Directory name=\"ADVANCE\"/>");
  WriteHistory("");
  Start();
  AcEdCommand *cmd = Commands()->lookupGlobalCmd(L"kyprj");
  ASSERT_NE(cmd, nullptr);
  cmd->commandExecute();
  EXPECT_TRUE(commandLine().empty());
  EXPECT_TRUE(messageBoxes().empty());
}

}  // namespace
