// The history data at start and stop.
#include <gtest/gtest.h>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "settings/HistoryData.h"

namespace {

using HistoryData = ModuleHarness;

const wchar_t kExport[] = L"COMMON\\OUTPUT\\EXPORT";

std::string VersionFile(const std::string &element) {
  return DictionaryFile(ConfigNest(kExport, element));
}

TEST_F(HistoryData, LoadTakesTheExportVersion) {
  WriteSupportFile("HistoryData.xml", VersionFile("<Int name=\"VERSION\">6</Int>"));
  g_nExportMorvVer = 0;
  LoadHistoryData();
  EXPECT_EQ(g_nExportMorvVer, 6);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(HistoryData, StopWritesTheVersionBackFromTheSetting) {
  WriteSupportFile("HistoryData.xml", VersionFile("<Int name=\"VERSION\">6</Int>"));
  LoadHistoryData();
  g_nExportMorvVer = 3;
  SaveHistoryData();
  g_dictHistoryData.Reset();
  g_nExportMorvVer = 0;
  LoadHistoryData();
  EXPECT_EQ(g_nExportMorvVer, 3);
}

TEST_F(HistoryData, FileWithoutExportGroupIsSavedWithIt) {
  WriteHistory("<Directory name=\"OTHER\"><String name=\"LAST\">x</String></Directory>");
  g_nExportMorvVer = 5;
  LoadHistoryData();
  EXPECT_EQ(g_nExportMorvVer, 5);
  EXPECT_NE(g_dictHistoryData.FindDict(kExport), nullptr);
  SaveHistoryData();

  KyDtDictionary saved;
  ASSERT_TRUE(saved.ReadFromXML(support_.wide("HistoryData.xml").c_str()));
  int version = 0;
  EXPECT_TRUE(saved.GetValue(L"COMMON\\OUTPUT\\EXPORT\\VERSION", version));
  EXPECT_EQ(version, 5);
  // Other modules' entries go back whole.
  CString last;
  EXPECT_TRUE(saved.GetValue(L"OTHER\\LAST", last));
  EXPECT_EQ(last, L"x");
}

TEST_F(HistoryData, VersionStoredAsStringReadsAsMissingAndClashesAtStop) {
  WriteSupportFile("HistoryData.xml", VersionFile("<String name=\"VERSION\">5</String>"));
  g_nExportMorvVer = 9;
  LoadHistoryData();
  EXPECT_EQ(g_nExportMorvVer, 9);
  SaveHistoryData();
  // The String item stays where the version should be: the kinds clash and
  // no second VERSION appears.
  KyDtDictionary *exportDict = g_dictHistoryData.FindDict(kExport);
  ASSERT_NE(exportDict, nullptr);
  EXPECT_EQ(exportDict->GetLength(), 1);
  KyDtDictItem *version = exportDict->FindItem(L"VERSION");
  ASSERT_NE(version, nullptr);
  EXPECT_EQ(version->GetType(), KyDtDictItem::DT_STRING);
  int number = 0;
  EXPECT_FALSE(g_dictHistoryData.GetValue(L"COMMON\\OUTPUT\\EXPORT\\VERSION", number));
}

TEST_F(HistoryData, ReaderAndWriterLookForDifferentlySpelledFiles) {
  // Where the file system tells cases apart, both spellings can stand side
  // by side: the reader takes "HistoryData.xml", the writer "historydata.xml".
  WriteSupportFile("HistoryData.xml", VersionFile("<Int name=\"VERSION\">5</Int>"));
  WriteSupportFile("historydata.xml", VersionFile("<Int name=\"VERSION\">9</Int>"));
  const std::string readerFile = ReadSupportFile("HistoryData.xml");
  LoadHistoryData();
  EXPECT_EQ(g_nExportMorvVer, 5);
  g_nExportMorvVer = 4;
  SaveHistoryData();
  EXPECT_EQ(ReadSupportFile("HistoryData.xml"), readerFile);
  KyDtDictionary written;
  ASSERT_TRUE(written.ReadFromXML(support_.wide("historydata.xml").c_str()));
  int version = 0;
  EXPECT_TRUE(written.GetValue(L"COMMON\\OUTPUT\\EXPORT\\VERSION", version));
  EXPECT_EQ(version, 4);
}

TEST_F(HistoryData, MissingFileAtLoadIsReportedAndCreatesNothing) {
  g_nExportMorvVer = 6;
  LoadHistoryData();
  EXPECT_EQ(commandLine(), L"\n加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!");
  EXPECT_EQ(g_dictHistoryData.GetLength(), 0);
  EXPECT_EQ(g_nExportMorvVer, 6);
}

TEST_F(HistoryData, UnreadableFileAtLoadIsSilentAndGetsTheExportGroup) {
  WriteSupportFile("HistoryData.xml", "<TolvDictionary><Directory");
  g_nExportMorvVer = 6;
  LoadHistoryData();
  EXPECT_TRUE(commandLine().empty());
  EXPECT_EQ(g_nExportMorvVer, 6);
  EXPECT_NE(g_dictHistoryData.FindDict(kExport), nullptr);
}

TEST_F(HistoryData, MissingFileAtSaveShowsTheMessageAndKeepsTheValue) {
  g_nExportMorvVer = 8;
  SaveHistoryData();
  ASSERT_EQ(messageBoxes().size(), 1u);
  EXPECT_EQ(messageBoxes()[0], L"\n保存历史数据文件失败！未找到历史数据记录文件HistoryData.xml!");
  EXPECT_FALSE(SupportFileExists("HistoryData.xml"));
  EXPECT_FALSE(SupportFileExists("historydata.xml"));
  int version = 0;
  EXPECT_TRUE(g_dictHistoryData.GetValue(L"COMMON\\OUTPUT\\EXPORT\\VERSION", version));
  EXPECT_EQ(version, 8);
}

}  // namespace
