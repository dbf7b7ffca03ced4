// The UI configuration at start and stop: the bundled file, the section
// pointers, the settings copied to the sibling modules.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

#include "UiTestSupport.h"
#include "containers/KyDynArray.h"
#include "module/ModuleGlobals.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/SupportFiles.h"

namespace {

std::string BundledFile() {
  return tolvtest::ReadFileBytes(std::filesystem::path(TOLV_SOURCE_DIR) / "share" / "support" / "UIConfig.xml");
}

KyDtUIDirectory *const *const kSectionPointers[] = {
    &g_pAllCommandDef, &g_pAllSwitchDef, &g_pAllControlDef, &g_pAllMenuDef,
    &g_pContextMenuDef, &g_pScreenMenuDef, &g_pStatusBarDef, &g_pShortCmds, &g_pHotKeys};

class UiStartup : public UiTest {
 protected:
  void SetUp() override {
    ::unsetenv("TOLV_SUPPORT_PATH");
    tolv::SetMainDirectory(dir_.wide());
    tolv::ResetUiSettings();
    tolv::SetMessageBoxSink([this](const std::wstring &text, unsigned) {
      boxes_.push_back(text);
      return 1;
    });
  }
  void TearDown() override {
    tolv::SetMessageBoxSink(nullptr);
    tolv::SetMainDirectory(L"");
    tolv::ResetUiSettings();
    // The module's config empty again, and no pointer into it.
    WriteFile("UIConfig.xml", Document(""));
    LoadUIConfig();
    std::remove((dir_.str() + "/UIConfig.xml").c_str());
  }
  std::vector<std::wstring> boxes_;
};

TEST_F(UiStartup, BundledFileFillsEverySectionAndBindsEveryReference) {
  WriteFile("UIConfig.xml", BundledFile());
  LoadUIConfig();
  EXPECT_TRUE(commandLine().empty());
  for (auto *pointer : kSectionPointers) EXPECT_NE(*pointer, nullptr);
  EXPECT_NE(g_pProjectBoxDef, nullptr);
  EXPECT_NE(g_pToolBoxDef, nullptr);
  ASSERT_NE(g_pUiDictionary, nullptr);
  EXPECT_EQ(g_pAccelerate, nullptr);
  EXPECT_NE(g_dbCfgUI.GetDwgLibMenuDef(), nullptr);
  EXPECT_NE(g_dbCfgUI.GetEquipLibMenuDef(), nullptr);
  EXPECT_NE(g_dbCfgUI.GetScaleMenuDef(), nullptr);
  EXPECT_GE(g_pAllCommandDef->GetChildNum(), 250);
  KyDynArray<KyDtUIItem *> all;
  g_dbCfgUI.GetAllSubItem(all);
  int references = 0;
  for (int i = 0; i < all.GetLength(); ++i) {
    if (!all[i]->IsReference()) continue;
    ++references;
    EXPECT_NE(static_cast<KyDtUIReference *>(all[i])->GetReferencedItem(), nullptr)
        << CString(static_cast<KyDtUIReference *>(all[i])->GetReferencedItemName()).str().size();
  }
  EXPECT_GT(references, 300);
  // Every hot key and short command runs a command that is defined.
  for (KyDtUIDirectory *section : {g_pHotKeys, g_pShortCmds}) {
    for (KyDtUIItem *const *slot = section->GetFirst(); slot; slot = section->GetNext(slot)) {
      auto *shortCut = static_cast<KyDtUIShortCut *>(*slot);
      EXPECT_NE(g_pAllCommandDef->FindItemByValue(shortCut->GetCommand()), nullptr);
    }
  }
}

TEST_F(UiStartup, BundledFileCopiesItsSettingsToTheSiblingModules) {
  WriteFile("UIConfig.xml", BundledFile());
  LoadUIConfig();
  EXPECT_EQ(g_nColorInPlaceGround, 16777215);
  EXPECT_EQ(g_nColorInPlaceText, 0);
  EXPECT_EQ(g_nDynEditFontHeight, 18);
  EXPECT_EQ(g_bDynInput, 1);
  EXPECT_EQ(g_iMaxDynDimNum, 5);
  EXPECT_DOUBLE_EQ(g_dDiameter, 150.0);
  EXPECT_EQ(g_nColor, 2);
  EXPECT_DOUBLE_EQ(g_dScaleUnitAngle, 15.0);
  EXPECT_DOUBLE_EQ(g_dTextUnitAngle, 45.0);
  EXPECT_EQ(g_bDrawScaleLine, 1);
  EXPECT_EQ(g_bScaleTextSnap, 0);
  EXPECT_TRUE(g_bEnableHotKey);
}

TEST_F(UiStartup, BundledFileReadSavedReadAndSavedAgainIsByteIdentical) {
  std::wstring path = WriteFile("UIConfig.xml", BundledFile());
  KyDtUIConfig first;
  ASSERT_TRUE(first.ReadFromXML(path.c_str()));
  ASSERT_TRUE(first.SaveToXML(path.c_str()));
  const std::string once = ReadFile("UIConfig.xml");
  KyDtUIConfig second;
  ASSERT_TRUE(second.ReadFromXML(path.c_str()));
  ASSERT_TRUE(second.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("UIConfig.xml"), once);
  // The bundled file is kept in the form the module writes.
  EXPECT_EQ(once, BundledFile());
}

TEST_F(UiStartup, AForwardReferenceInACopyOfTheBundledFileIsPrinted) {
  std::string text = BundledFile();
  // A menu entry at the top, before any command is defined.
  const std::string root = "<TolvUIConfig localname=\"SenvarArch UI配置\">\n";
  size_t at = text.find(root);
  ASSERT_NE(at, std::string::npos);
  text.insert(at + root.size(), "\t<Directory name=\"EARLY\">\n\t\t<Reference>WALL</Reference>\n\t</Directory>\n");
  WriteFile("UIConfig.xml", text);
  LoadUIConfig();
  EXPECT_EQ(commandLine(), UnboundMessage(L"WALL"));
  auto *early = static_cast<KyDtUIDirectory *>(g_dbCfgUI.FindNamedItem(L"EARLY"));
  ASSERT_NE(early, nullptr);
  EXPECT_EQ(static_cast<KyDtUIReference *>(early->GetAt(0))->GetReferencedItem(), nullptr);
}

TEST_F(UiStartup, MissingFileLeavesTheSectionsNullAndTheSettingsAsTheyWere) {
  WriteFile("UIConfig.xml", BundledFile());
  LoadUIConfig();
  ASSERT_NE(g_pAllCommandDef, nullptr);
  // As at a first start: an empty tree and an empty map.
  WriteFile("UIConfig.xml", Document(""));
  LoadUIConfig();
  std::filesystem::remove(dir_.path() / "UIConfig.xml");
  tolv::ResetUiSettings();
  LoadUIConfig();
  for (auto *pointer : kSectionPointers) EXPECT_EQ(*pointer, nullptr);
  EXPECT_EQ(g_pToolBoxDef, nullptr);
  EXPECT_EQ(g_pProjectBoxDef, nullptr);
  EXPECT_EQ(g_pUiDictionary, nullptr);
  EXPECT_EQ(g_iMaxDynDimNum, 4);
  EXPECT_TRUE(commandLine().empty());
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(UiStartup, SettingsSectionsThatAreMissingLeaveTheirTargets) {
  WriteFile("UIConfig.xml", Document("<TolvDictionary name=\"COMMON_DICT\">"
                                     "<Directory name=\"DYN_PARAM\"><Bool name=\"DYN_INPUT\">FALSE</Bool>"
                                     "<String name=\"DYN_MAXDIMNUM\">9</String></Directory>"
                                     "<Bool name=\"USE_CMD_HOTKEY\">FALSE</Bool></TolvDictionary>"));
  LoadUIConfig();
  ASSERT_NE(g_pUiDictionary, nullptr);
  EXPECT_EQ(g_bDynInput, 0);
  // A value of the wrong kind leaves the target.
  EXPECT_EQ(g_iMaxDynDimNum, 4);
  EXPECT_FALSE(g_bEnableHotKey);
  EXPECT_EQ(g_nDynEditFontHeight, 16);
  EXPECT_DOUBLE_EQ(g_dDiameter, 120.0);
}

TEST_F(UiStartup, AMissingDynamicInputKeepsTheFlag) {
  g_bDynInput = 0;
  WriteFile("UIConfig.xml", Document("<TolvDictionary name=\"COMMON_DICT\"/>"));
  LoadUIConfig();
  EXPECT_EQ(g_bDynInput, 0);
  g_bDynInput = 1;
  LoadUIConfig();
  EXPECT_EQ(g_bDynInput, 1);
}

TEST_F(UiStartup, ACommonDictOfAnotherKindIsNoDictionary) {
  WriteFile("UIConfig.xml", Document("<Directory name=\"COMMON_DICT\"/>"));
  LoadUIConfig();
  EXPECT_EQ(g_pUiDictionary, nullptr);
}

TEST_F(UiStartup, SaveWritesTheFileBack) {
  WriteFile("UIConfig.xml", BundledFile());
  LoadUIConfig();
  auto *wall = g_dbCfgUI.FindNamedItem(L"WALL");
  ASSERT_NE(wall, nullptr);
  wall->SetTitle(L"画墙");
  SaveUIConfig();
  EXPECT_TRUE(boxes_.empty());
  EXPECT_NE(ReadFile("UIConfig.xml").find("title=\"画墙\""), std::string::npos);
}

TEST_F(UiStartup, SaveWithoutTheFileShowsTheMessage) {
  SaveUIConfig();
  ASSERT_EQ(boxes_.size(), 1u);
  EXPECT_EQ(boxes_[0], L"\n保存数据文件失败！未找到UIConfig.xml!");
  EXPECT_FALSE(std::filesystem::exists(dir_.path() / "UIConfig.xml"));
}

TEST_F(UiStartup, LoadingTenTimesKeepsOneTree) {
  WriteFile("UIConfig.xml", BundledFile());
  for (int i = 0; i < 10; ++i) {
    LoadUIConfig();
    ASSERT_NE(g_pAllCommandDef, nullptr);
    ASSERT_NE(g_pAllCommandDef->FindItemByValue(L"KyWall"), nullptr);
    SaveUIConfig();
  }
  EXPECT_EQ(ReadFile("UIConfig.xml"), BundledFile());
  EXPECT_TRUE(commandLine().empty());
  EXPECT_GT(KyDtUIFreeDetachedItems(), 0);
}

}  // namespace
