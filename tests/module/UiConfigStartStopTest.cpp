// The UI configuration in the module's start and stop.
#include <gtest/gtest.h>

#include <filesystem>

#include "ModuleHarness.h"
#include "module/ModuleGlobals.h"
#include "uiconfig/KyDtUI.h"

namespace {

using UiConfigStartStop = ModuleHarness;

std::string BundledUiConfig() {
  return tolvtest::ReadFileBytes(std::filesystem::path(TOLV_SOURCE_DIR) / "share" / "support" / "UIConfig.xml");
}

TEST_F(UiConfigStartStop, StartReadsTheUiDefinitionAfterRegisteringTheElementClasses) {
  WriteSupportFile("UIConfig.xml", BundledUiConfig());
  Start();
  EXPECT_EQ(g_mapUIFactory.size(), 14u);
  ASSERT_NE(g_pAllCommandDef, nullptr);
  EXPECT_NE(g_pAllCommandDef->FindItemByValue(L"KyWall"), nullptr);
  EXPECT_NE(g_pContextMenuDef, nullptr);
  EXPECT_EQ(g_nDynEditFontHeight, 18);
  Stop();
  EXPECT_EQ(ReadSupportFile("UIConfig.xml"), BundledUiConfig());
}

TEST_F(UiConfigStartStop, StopWritesTheUiDefinitionBack) {
  WriteSupportFile("UIConfig.xml", BundledUiConfig());
  Start();
  g_dbCfgUI.FindNamedItem(L"WALL")->SetTitle(L"画墙体");
  Stop();
  EXPECT_NE(ReadSupportFile("UIConfig.xml").find("title=\"画墙体\""), std::string::npos);
}

TEST_F(UiConfigStartStop, StopWithoutTheUiFileShowsItsMessage) {
  std::filesystem::remove(support_.path() / "UIConfig.xml");
  Start();
  Stop();
  ASSERT_EQ(messageBoxes().size(), 3u);
  EXPECT_EQ(messageBoxes()[1], L"\n保存数据文件失败！未找到UIConfig.xml!");
}

TEST_F(UiConfigStartStop, StartedUsedAndStoppedTenTimes) {
  WriteSupportFile("UIConfig.xml", BundledUiConfig());
  for (int round = 0; round < 10; ++round) {
    Start();
    ASSERT_NE(g_pAllMenuDef, nullptr);
    KyAdsEntSet empty;
    KyDtUIDirectory *menu = KyDtGetContextMenu(empty);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->GetName(), CString(L"MENU_COMMON_MSPACE"));
    EXPECT_EQ(CString(g_dbCfgUI.FindNamedItem(L"SW_AUTO_BREAK")->GetTrueTitle()), CString(L"自动断墙"));
    Stop();
  }
  EXPECT_EQ(ReadSupportFile("UIConfig.xml"), BundledUiConfig());
}

}  // namespace
