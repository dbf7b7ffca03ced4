// The module's messages: start, stop, documents, and what else the host sends.
#include <gtest/gtest.h>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "dictionary/KyDtDictionary.h"
#include "module/EntityHooks.h"
#include "module/ModuleGlobals.h"
#include "module/ModuleState.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/acad/AfxExtensionModule.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbHooks.h"
#include "platform/mfc/AfxMessage.h"

namespace {

using ModuleStartStop = ModuleHarness;

AcEdCommandStack *Commands() { return AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK)); }
AcRxDynamicLinker *Linker() { return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER)); }

TEST_F(ModuleStartStop, StartWithoutSettingsFilesLeavesTheSettingsEmptyAndTheModuleUp) {
  Start();
  EXPECT_EQ(g_dictCfg.GetLength(), 0);
  EXPECT_EQ(g_dictHistoryData.GetLength(), 0);
  EXPECT_EQ(g_KyGetLabelListMethod, &KyDtGetOpeningLabels);
  EXPECT_NE(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
  EXPECT_FALSE(Linker()->isApplicationLocked(appId()));
  EXPECT_TRUE(Linker()->isAppMDIAware(appId()));
  // Both files are reported, the settings first.
  EXPECT_EQ(commandLine(),
            L"\n加载选项配置文件失败！未找到配置文件config.xml。"
            L"\n加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!");
  EXPECT_TRUE(messageBoxes().empty());
}

TEST_F(ModuleStartStop, StartReadsBothFiles) {
  WriteConfig(ConfigNest(L"ADVANCE\\SYSTEM\\ENTITY", "<Bool name=\"AUTO_BREAK\">FALSE</Bool>"));
  WriteHistory(ConfigNest(L"COMMON\\OUTPUT\\EXPORT", "<Int name=\"VERSION\">6</Int>"));
  Start();
  EXPECT_FALSE(g_bAutoBreak);
  EXPECT_EQ(g_nExportMorvVer, 6);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(ModuleStartStop, StopWithoutSettingsFileShowsTheMessageAndGoesOnToTheHistory) {
  WriteHistory(ConfigNest(L"COMMON\\OUTPUT\\EXPORT", "<Int name=\"VERSION\">6</Int>"));
  Start();
  g_nExportMorvVer = 8;
  Stop();
  ASSERT_EQ(messageBoxes().size(), 1u);
  EXPECT_EQ(messageBoxes()[0], L"\n保存选项配置文件失败！未找到文件config.xml!");
  EXPECT_FALSE(SupportFileExists("config.xml"));
  KyDtDictionary saved;
  ASSERT_TRUE(saved.ReadFromXML(support_.wide("HistoryData.xml").c_str()));
  int version = 0;
  EXPECT_TRUE(saved.GetValue(L"COMMON\\OUTPUT\\EXPORT\\VERSION", version));
  EXPECT_EQ(version, 8);
}

TEST_F(ModuleStartStop, StartRegistersCommandsBeforeReadingAndInstallsHooksLast) {
  // Each message of the start shows how far it has come.
  std::vector<std::pair<bool, bool>> seen;  // commands registered, hook installed
  tolv::SetCommandLineSink([&](const std::wstring &) {
    seen.emplace_back(Commands()->lookupGlobalCmd(L"KyPrj") != nullptr, g_KyGetLabelListMethod != nullptr);
  });
  Start();
  ASSERT_EQ(seen.size(), 2u);  // the settings, then the history data
  EXPECT_EQ(seen[0], std::make_pair(true, false));
  EXPECT_EQ(seen[1], std::make_pair(true, false));
  EXPECT_NE(g_KyGetLabelListMethod, nullptr);
}

TEST_F(ModuleStartStop, StopRemovesCommandsThenSavesSettingsThenHistory) {
  WriteHistory(ConfigNest(L"COMMON\\OUTPUT\\EXPORT", "<Int name=\"VERSION\">6</Int>"));
  Start();
  g_nExportMorvVer = 8;
  bool commandsGoneAtSave = false;
  std::string historyAtSave;
  tolv::SetMessageBoxSink([&](const std::wstring &, unsigned) {
    commandsGoneAtSave = Commands()->lookupGlobalCmd(L"KyPrj") == nullptr;
    historyAtSave = ReadSupportFile("HistoryData.xml");
    return IDOK;
  });
  const std::string historyBefore = ReadSupportFile("HistoryData.xml");
  Stop();
  EXPECT_TRUE(commandsGoneAtSave);
  // The settings came first: the history data were still unsaved then.
  EXPECT_EQ(historyAtSave, historyBefore);
  EXPECT_NE(ReadSupportFile("HistoryData.xml"), historyBefore);
}

TEST_F(ModuleStartStop, StopRemovesTheCommandsAndKeepsHooksAndDictionaries) {
  WriteConfig("<Directory name=\"ADVANCE\"/>");
  Start();
  Stop();
  EXPECT_EQ(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
  EXPECT_EQ(g_KyGetLabelListMethod, &KyDtGetOpeningLabels);
  EXPECT_NE(g_dictCfg.FindDict(L"ADVANCE"), nullptr);
}

TEST_F(ModuleStartStop, StartLinksTheModuleIntoTheFrameworkAndStopTakesItOut) {
  const int before = tolv::LinkedModuleCount();
  Start();
  EXPECT_EQ(tolv::LinkedModuleCount(), before + 1);
  ASSERT_NE(TheModuleState().instance, nullptr);
  EXPECT_TRUE(tolv::IsModuleLinked(TheModuleState().instance));
  EXPECT_EQ(TheModuleState().resource, TheModuleState().instance);
  Stop();
  EXPECT_EQ(tolv::LinkedModuleCount(), before);
  EXPECT_FALSE(tolv::IsModuleLinked(TheModuleState().instance));
  EXPECT_FALSE(TheModuleState().extension.bInitialized);
}

TEST_F(ModuleStartStop, FailedFrameworkRecordEndsOnlyThatStep) {
  const int before = tolv::LinkedModuleCount();
  tolv::FailNextExtensionModuleInit();
  Start();  // still kRetOK
  EXPECT_EQ(tolv::LinkedModuleCount(), before);
  EXPECT_FALSE(Linker()->isApplicationLocked(appId()));
  EXPECT_TRUE(Linker()->isAppMDIAware(appId()));
  EXPECT_NE(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
  EXPECT_EQ(g_KyGetLabelListMethod, &KyDtGetOpeningLabels);
  Stop();
}

TEST_F(ModuleStartStop, UnloadDocumentMessageChangesNothing) {
  WriteConfig(ConfigNest(L"ADVANCE\\SYSTEM\\ENTITY", "<Bool name=\"AUTO_BREAK\">FALSE</Bool>"));
  Start();
  OpenDocument();
  const std::string before = ReadSupportFile("config.xml");
  const size_t functions = tolv::LispHost::Instance().Functions().size();
  const std::wstring printed = commandLine();
  EXPECT_EQ(Send(AcRx::kUnloadDwgMsg), AcRx::kRetOK);
  EXPECT_EQ(tolv::LispHost::Instance().Functions().size(), functions);
  EXPECT_NE(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
  EXPECT_FALSE(g_bAutoBreak);
  EXPECT_EQ(g_dictCfg.GetLength(), 1);
  EXPECT_EQ(ReadSupportFile("config.xml"), before);
  EXPECT_EQ(commandLine(), printed);
  EXPECT_TRUE(messageBoxes().empty());
}

TEST_F(ModuleStartStop, EveryOtherMessageIsTakenAndIgnored) {
  Start();
  const std::wstring printed = commandLine();
  for (AcRx::AppMsgCode msg : {AcRx::kNullMsg, AcRx::kCfgMsg, AcRx::kEndMsg, AcRx::kQuitMsg, AcRx::kSaveMsg,
                               AcRx::kPreQuitMsg, AcRx::kSuspendMsg, AcRx::kDependencyMsg, AcRx::kNoDependencyMsg,
                               AcRx::kOleUnloadAppMsg, AcRx::kInitDialogMsg, AcRx::kEndDialogMsg}) {
    EXPECT_EQ(Send(msg), AcRx::kRetOK);
  }
  EXPECT_EQ(commandLine(), printed);
  EXPECT_NE(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
}

TEST_F(ModuleStartStop, InvocationOutsideTheTableIsIgnored) {
  Start();
  OpenDocument();
  // A function number the module never defined: no row serves it.
  tolv::LispFunction stray{L"stray", 8, appId()};
  tolv::LispResult r = tolv::LispHost::Instance().Invoke(stray, [this] {
    EXPECT_EQ(Send(AcRx::kInvkSubrMsg), AcRx::kRetOK);
  });
  EXPECT_EQ(r.kind, tolv::LispResult::kNone);
  // Outside any invocation there is no function number at all.
  EXPECT_EQ(Send(AcRx::kInvkSubrMsg), AcRx::kRetOK);
}

TEST_F(ModuleStartStop, PointerFamiliesAreNullUntilTheirOwnersFillThem) {
  Start();
  for (KyDtDictionary *slot : {g_pCurModuleComCtrl, g_pCurModuleCommontool, g_pCurModuleConvert,
                               g_pCurModuleDataBase, g_pCurModuleDataManager, g_pCurModuleElevation,
                               g_pCurModuleLoader, g_pCurModuleLoadtool, g_pCurModuleObjProp,
                               g_pCurModuleObject, g_pCurModulePlatForm, g_pCurModuleUiAnnotate,
                               g_pCurModuleUiBase, g_pCurModuleUiCommonModel, g_pCurModuleUiDimension,
                               g_pCurModuleUiGlobal, g_pCurModuleUiHelpObj, g_pCurModuleUiModel,
                               g_pCurModuleUiModelBase, g_pCurModuleUiRoof, g_pCurModuleUiSpace,
                               g_pCurModuleUiStair, g_pCurModuleUtility}) {
    EXPECT_EQ(slot, nullptr);
  }
  for (KyDtUIDirectory *section : {g_pAllCommandDef, g_pAllSwitchDef, g_pAllControlDef, g_pAllMenuDef,
                                   g_pStatusBarDef, g_pScreenMenuDef, g_pContextMenuDef, g_pAccelerate,
                                   g_pHotKeys, g_pShortCmds}) {
    EXPECT_EQ(section, nullptr);
  }
  EXPECT_EQ(g_pProjectBoxDef, nullptr);
  EXPECT_EQ(g_pToolBoxDef, nullptr);
  EXPECT_EQ(g_pUiDictionary, nullptr);
}

}  // namespace
