// The settings file at start and stop: the cases beyond single keys.
#include <gtest/gtest.h>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/morv/MorvSettings.h"
#include "settings/SystemConfig.h"

namespace {

using SystemConfig = ModuleHarness;

std::string Option(const std::string &key, const std::string &options, const std::string &selected) {
  return "<Option name=\"" + key + "\" options=\"" + options + "\">" + selected + "</Option>";
}

std::string Nest(const wchar_t *group, const std::string &inner) { return ConfigNest(group, inner); }

TEST_F(SystemConfig, PrecisionGroupWithoutDivideCircleGivesTheEighthOfPi) {
  g_dCircleMLinePreci = 1.0;
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\PRECISION", ""));
  LoadConfig();
  EXPECT_EQ(g_dCircleMLinePreci, 0.3926990817);
}

TEST_F(SystemConfig, DivideCircleStoredAsDoubleReadsAsMissing) {
  g_dCircleMLinePreci = 1.0;
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\PRECISION", "<Double name=\"DIVIDE_CIRCLE\">5</Double>"));
  LoadConfig();
  EXPECT_EQ(g_dCircleMLinePreci, 0.3926990817);
}

TEST_F(SystemConfig, DivideCircleTableHoldsTheStoredDecimals) {
  const double expected[] = {0.7853981634, 0.5235987756, 0.3926990817, 0.3141592654,
                             0.2617993878, 0.2243994753, 0.1963495409, 0.1745329252,
                             0.1308996939, 0.0981747705, 0.065449847};
  const std::string options = "4 6 8 10 12 14 16 18 24 32 48";
  const char *texts[] = {"4", "6", "8", "10", "12", "14", "16", "18", "24", "32", "48"};
  for (int i = 0; i < 11; ++i) {
    g_dictCfg.Reset();
    g_dCircleMLinePreci = 1.0;
    WriteConfig(Nest(L"ADVANCE\\SYSTEM\\PRECISION", Option("DIVIDE_CIRCLE", options, texts[i])));
    LoadConfig();
    EXPECT_EQ(g_dCircleMLinePreci, expected[i]) << "index " << i;
  }
}

TEST_F(SystemConfig, DivideCircleIndexPastTheTableOrUnselectedLeavesTheTolerance) {
  // Index 11 of twelve options, and an option text that isn't offered (-1).
  for (const char *selected : {"o11", "none"}) {
    g_dictCfg.Reset();
    g_dCircleMLinePreci = 1.0;
    WriteConfig(Nest(L"ADVANCE\\SYSTEM\\PRECISION",
                     Option("DIVIDE_CIRCLE", "o0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10 o11", selected)));
    LoadConfig();
    EXPECT_EQ(g_dCircleMLinePreci, 1.0) << selected;
  }
}

TEST_F(SystemConfig, SecondChoiceTurnsTheFirstChoiceFlagsOff) {
  g_bUseLayerStd = g_bUseQuickTextSize = g_bSingleLine = true;
  WriteConfig(Nest(L"ADVANCE",
                   ConfigNest(L"SYSTEM\\ENTITY", Option("ENTITY_LAYER", "STD CUR", "CUR")) +
                       ConfigNest(L"ENTITY",
                                  ConfigNest(L"TEXT_SHEET", Option("USE_QUICK_TEXT_SIZE", "Q P", "P")) +
                                      ConfigNest(L"CUT", Option("DUAL_STYLE", "S D", "D")))));
  LoadConfig();
  EXPECT_FALSE(g_bUseLayerStd);
  EXPECT_FALSE(g_bUseQuickTextSize);
  EXPECT_FALSE(g_bSingleLine);
}

TEST_F(SystemConfig, RoomWithoutDimAreaStillShowsTheArea) {
  g_nInitSpaceDispMode = 0;
  WriteConfig(Nest(L"ADVANCE\\DEFAULT\\ORLAN\\SPACE", "<Bool name=\"DIM_UNIT\">TRUE</Bool>"));
  LoadConfig();
  EXPECT_EQ(g_nInitSpaceDispMode, 1 | 2);
}

TEST_F(SystemConfig, RoomLabelBitsFollowTheNameAndCodeChoice) {
  const int expected[] = {0, 4, 8, 0};
  for (int choice = 0; choice < 4; ++choice) {
    g_dictCfg.Reset();
    g_nInitSpaceDispMode = 0xFF;
    WriteConfig(Nest(L"ADVANCE\\DEFAULT\\ORLAN\\SPACE",
                     Option("NAME_AND_CODE", "a b c d", std::string(1, char('a' + choice))) +
                         "<Bool name=\"DIM_AREA\">FALSE</Bool><Bool name=\"DIM_UNIT\">FALSE</Bool>"));
    LoadConfig();
    EXPECT_EQ(g_nInitSpaceDispMode, expected[choice]) << "choice " << choice;
  }
}

TEST_F(SystemConfig, ProxyTrueTurnsProxyGraphicsOn) {
  g_bSaveProxyGraph = 0;
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE", "<Bool name=\"PROXY\">TRUE</Bool>"));
  LoadConfig();
  EXPECT_EQ(g_bSaveProxyGraph, 1);
}

TEST_F(SystemConfig, MissingProxyKeepsOnlyAnExactOne) {
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE", ""));
  g_bSaveProxyGraph = 1;
  LoadConfig();
  EXPECT_EQ(g_bSaveProxyGraph, 1);
  g_dictCfg.Reset();
  g_bSaveProxyGraph = 2;
  LoadConfig();
  EXPECT_EQ(g_bSaveProxyGraph, 0);
}

TEST_F(SystemConfig, MorvVersionIsTouchedOnlyWhenItsGroupExists) {
  g_nSaveMorvVer = 99;
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY", ""));
  LoadConfig();
  EXPECT_EQ(g_nSaveMorvVer, 99);

  g_dictCfg.Reset();
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE", ""));
  LoadConfig();
  EXPECT_EQ(g_nSaveMorvVer, 7);
}

TEST_F(SystemConfig, MorvVersionChoicesMapNewestFirst) {
  const int expected[] = {8, 7, 6, 3, 3};
  for (int choice = 0; choice < 5; ++choice) {
    g_dictCfg.Reset();
    WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE",
                     Option("MORV_VERSION", "a b c d e", std::string(1, char('a' + choice)))));
    LoadConfig();
    EXPECT_EQ(g_nSaveMorvVer, expected[choice]) << "choice " << choice;
  }
}

TEST_F(SystemConfig, CircleTextStyleChoicesMapToTheOldStyleNumbers) {
  const int expected[] = {1, 0, 3, 3};
  for (int choice = 0; choice < 4; ++choice) {
    g_dictCfg.Reset();
    WriteConfig(Nest(L"ADVANCE\\DEFAULT\\COMMON\\TEXT\\CIRCLE_TEXT",
                     Option("STYLE", "a b c d", std::string(1, char('a' + choice)))));
    LoadConfig();
    EXPECT_EQ(g_nInitCircleTextOldStyle, expected[choice]) << "choice " << choice;
  }
}

TEST_F(SystemConfig, ViewportControlChoicesSetScaleAndAngle) {
  const bool scale[] = {false, true, true, false, false};
  const bool angle[] = {false, true, false, true, true};
  for (int choice = 0; choice < 5; ++choice) {
    g_dictCfg.Reset();
    WriteConfig(Nest(L"ADVANCE\\DEFAULT\\COMMON",
                     Option("VIEWPORT_CTRL", "a b c d e", std::string(1, char('a' + choice)))));
    LoadConfig();
    EXPECT_EQ(g_bInitByVPScale, scale[choice]) << "choice " << choice;
    EXPECT_EQ(g_bInitByVPAngle, angle[choice]) << "choice " << choice;
  }
}

TEST_F(SystemConfig, ChangedSettingIsNotWrittenBack) {
  WriteConfig(Nest(L"ADVANCE\\ENTITY\\TEXT_SHEET", Option("USE_QUICK_TEXT_SIZE", "QUICK EXACT", "QUICK")));
  LoadConfig();
  ASSERT_TRUE(g_bUseQuickTextSize);
  g_bUseQuickTextSize = false;  // as another module might
  SaveConfig();

  g_dictCfg.Reset();
  g_bUseQuickTextSize = false;
  LoadConfig();
  EXPECT_TRUE(g_bUseQuickTextSize);
  unsigned int index = 99;
  EXPECT_TRUE(g_dictCfg.GetValue(L"ADVANCE\\ENTITY\\TEXT_SHEET\\USE_QUICK_TEXT_SIZE", index));
  EXPECT_EQ(index, 0u);
}

TEST_F(SystemConfig, MissingFileIsReportedOnTheCommandLineAndChangesNothing) {
  g_fZero = 5.0;
  g_bUseLayerStd = false;
  LoadConfig();
  EXPECT_EQ(commandLine(), L"\n加载选项配置文件失败！未找到配置文件config.xml。");
  EXPECT_EQ(g_dictCfg.GetLength(), 0);
  EXPECT_EQ(g_fZero, 5.0);
  EXPECT_FALSE(g_bUseLayerStd);
  EXPECT_TRUE(messageBoxes().empty());
}

TEST_F(SystemConfig, UnreadableFileOrAnotherRootIsSilentAndChangesNothing) {
  for (const std::string &bytes :
       {std::string("<TolvDictionary><Directory name=\"ADVANCE\">"),  // cut short
        std::string("<?xml version=\"1.0\"?><Other><Directory name=\"ADVANCE\"/></Other>"),
        std::string("\xff\xfe not xml at all")}) {
    g_dictCfg.Reset();
    g_bUseLayerStd = false;
    WriteSupportFile("config.xml", bytes);
    LoadConfig();
    EXPECT_EQ(g_dictCfg.GetLength(), 0);
    EXPECT_FALSE(g_bUseLayerStd);
  }
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(SystemConfig, FileWithoutAdvanceReadsNothingIntoTheSettings) {
  WriteConfig("<Directory name=\"LABEL\"/>" + ConfigNest(L"SYSTEM\\PRECISION", "<Double name=\"FLOAT_PRECI\">7</Double>"));
  g_fZero = 1.0;
  g_bUseLayerStd = false;
  LoadConfig();
  EXPECT_EQ(g_fZero, 1.0);
  EXPECT_FALSE(g_bUseLayerStd);
  EXPECT_NE(g_dictCfg.FindDict(L"LABEL"), nullptr);
}

TEST_F(SystemConfig, AdvanceAsValueItemEndsTheWalk) {
  WriteConfig("<String name=\"ADVANCE\">x</String>");
  g_bUseLayerStd = false;
  LoadConfig();
  EXPECT_FALSE(g_bUseLayerStd);
}

TEST_F(SystemConfig, LoadingAddsNothingToTheDictionary) {
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE", ""));
  LoadConfig();
  // The defaults were applied, yet no key was created for them.
  EXPECT_EQ(g_nSaveMorvVer, 7);
  EXPECT_EQ(g_dictCfg.FindItem(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE\\MORV_VERSION"), nullptr);
  EXPECT_EQ(g_dictCfg.FindDict(L"ADVANCE\\SYSTEM\\ENTITY\\SAVE")->GetLength(), 0);
  EXPECT_EQ(g_dictCfg.FindItem(L"ADVANCE\\SYSTEM\\PRECISION"), nullptr);
}

TEST_F(SystemConfig, SaveWritesTheDictionaryBackToTheFileFound) {
  WriteConfig(Nest(L"ADVANCE\\SYSTEM\\ENTITY", "<Bool name=\"AUTO_BREAK\">TRUE</Bool>"));
  LoadConfig();
  g_dictCfg.SetValue(L"ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK", false);
  SaveConfig();
  EXPECT_TRUE(messageBoxes().empty());
  const std::string saved = ReadSupportFile("config.xml");
  EXPECT_NE(saved.find("FALSE</Bool>"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("TRUE</Bool>"), std::string::npos) << saved;
}

TEST_F(SystemConfig, SaveWithoutFileShowsTheMessageAndCreatesNone) {
  g_dictCfg.SetValue(L"ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK", true);
  SaveConfig();
  ASSERT_EQ(messageBoxes().size(), 1u);
  EXPECT_EQ(messageBoxes()[0], L"\n保存选项配置文件失败！未找到文件config.xml!");
  EXPECT_FALSE(SupportFileExists("config.xml"));
}

TEST_F(SystemConfig, FileIsFoundInTheSupportFolderWithoutRegardToCase) {
  std::filesystem::create_directories(support_.path() / "Support");
  tolvtest::WriteFileBytes(support_.path() / "Support" / "CONFIG.XML",
                           DictionaryFile(Nest(L"ADVANCE\\SYSTEM\\PRECISION",
                                               "<Double name=\"DIST_PRECI\">0.125</Double>")));
  LoadConfig();
  EXPECT_EQ(g_distZero, 0.125);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(SystemConfig, ShippedFileHoldsEveryKeyWithItsKind) {
  WriteSupportFile("config.xml",
                   tolvtest::ReadFileBytes(std::filesystem::path(TOLV_SOURCE_DIR) / "share/support/config.xml"));
  LoadConfig();
  EXPECT_TRUE(commandLine().empty());
  for (const ConfigRow &row : ConfigRows()) {
    KyDtDictItem *item = g_dictCfg.FindItem(row.group + L"\\" + row.key);
    ASSERT_NE(item, nullptr) << row.id;
    int kind = item->GetType();
    switch (row.kind) {
      case ConfigKind::kDouble: EXPECT_EQ(kind, KyDtDictItem::DT_DOUBLE) << row.id; break;
      case ConfigKind::kInt: EXPECT_EQ(kind, KyDtDictItem::DT_LONG) << row.id; break;
      case ConfigKind::kBool: EXPECT_EQ(kind, KyDtDictItem::DT_BOOL) << row.id; break;
      case ConfigKind::kIndex: {
        EXPECT_EQ(kind, KyDtDictItem::DT_OPTION) << row.id;
        unsigned int index = 0;
        EXPECT_TRUE(g_dictCfg.GetValue(row.group + L"\\" + row.key, index));
        EXPECT_LT(index, 1000u) << row.id << ": the selected text is one of the options";
        break;
      }
    }
  }
  // The shipped choices as the settings see them.
  EXPECT_EQ(g_dCircleMLinePreci, 0.3926990817);
  EXPECT_EQ(g_nSaveMorvVer, 7);
  EXPECT_TRUE(g_bUseLayerStd);
  EXPECT_EQ(g_nDimAdjust, 0u);
  EXPECT_EQ(g_nInitSpaceDispMode, 1);
  EXPECT_EQ(g_nInitSymbElevPrecision, 3);
  EXPECT_EQ(g_nInitSpaceAreaPrecision, 2);
}

}  // namespace
