// The host program end to end: it loads the module, runs a script against a
// support folder and stops the module, which saves the settings.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

std::string SystemForm(const fs::path &path) {
  std::string text = path.string();
  for (char &c : text) c = c == '/' ? '\\' : c;
  return text;
}

class HostProgram : public ::testing::Test {
 protected:
  HostProgram() { fs::create_directories(support()); }

  fs::path support() const { return work_.path() / "support"; }
  void CopyBundledSupport() {
    fs::remove_all(support());
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
  }
  std::string WriteScript(const std::string &text) {
    std::string path = (work_.path() / "session.scr").string();
    tolvtest::WriteFileBytes(path, text);
    return path;
  }
  HostRun Host(std::vector<std::string> args, const std::string &input = "") {
    args.insert(args.begin(), {"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string()});
    return RunHostProgram(args, work_.str(), input);
  }
  std::string Saved(const std::string &name) const { return tolvtest::ReadFileBytes(support() / name); }
  std::string Bundled(const std::string &name) const {
    return tolvtest::ReadFileBytes(fs::path(TOLV_SOURCE_DIR) / "share" / "support" / name);
  }

  tolvtest::ScratchDir work_{"host"};
};

using Lines = std::vector<std::string>;

TEST_F(HostProgram, ScriptRunsAgainstACopyOfTheSupportFolderAndTheStopSaves) {
  CopyBundledSupport();
  const std::string script = WriteScript(
      "; flips and steps\n"
      "(_KyGetAutoBreak)\n"
      "(_KySetAutoBreak)\n"
      "(_KySetDimAdjustMode)\n"
      "(_KySetDimAdjustMode)\n"
      "(_KySetLayerStd)\n"
      "(_KyGetLayerStd)\n"
      "\n"
      "KyPrj\n"
      "QUIT\n"
      "(_KySetRelateModify)\n");
  HostRun run = Host({"--script", script});
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_TRUE(run.err.empty()) << run.err;
  ASSERT_FALSE(run.lines.empty());
  EXPECT_EQ(run.lines[0].rfind("host: loaded ", 0), 0u) << run.lines[0];
  EXPECT_EQ(LinesFrom(run, "host: kInitAppMsg"),
            (Lines{"host: kInitAppMsg -> 0",
                   "host: the module is unlocked and works with several documents",
                   "host: document 1 opened",
                   "host: kLoadDwgMsg -> 0",
                   "Command: (_KyGetAutoBreak)", "1",
                   "Command: (_KySetAutoBreak)", "0",
                   "Command: (_KySetDimAdjustMode)", "1",
                   "Command: (_KySetDimAdjustMode)", "2",
                   "Command: (_KySetLayerStd)", "0",
                   "Command: (_KyGetLayerStd)", "0",
                   "Command: KyPrj",
                   "Command: QUIT",
                   "host: kUnloadDwgMsg -> 0",
                   "host: document 1 closed",
                   "host: kUnloadAppMsg -> 0",
                   "host: module unloaded"}));

  const std::string config = Saved("config.xml");
  EXPECT_NE(config.find("<Bool name=\"AUTO_BREAK\" localname=\"自动打断\">FALSE</Bool>"), std::string::npos);
  EXPECT_NE(config.find("options=\"不调整 移动文字 移动文字加引线\">移动文字加引线</Option>"), std::string::npos);
  EXPECT_NE(config.find("options=\"按图层标准 按当前图层\">按当前图层</Option>"), std::string::npos);
  // The line after QUIT was never read.
  EXPECT_NE(config.find("<Bool name=\"RELATE_MODIFY\" localname=\"关联修改\">TRUE</Bool>"), std::string::npos);
  // Everything else is as it was.
  std::string expected = Bundled("config.xml");
  for (auto [from, to] : {std::pair<std::string, std::string>{"\"自动打断\">TRUE<", "\"自动打断\">FALSE<"},
                          {"移动文字加引线\">不调整<", "移动文字加引线\">移动文字加引线<"},
                          {"按当前图层\">按图层标准<", "按当前图层\">按当前图层<"}}) {
    size_t at = expected.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    expected.replace(at, from.size(), to);
  }
  EXPECT_EQ(config, expected);
  // The history data go back with the export version.
  EXPECT_EQ(Saved("HistoryData.xml"), Bundled("HistoryData.xml"));
}

TEST_F(HostProgram, WithoutSettingsFilesTheMessagesAreShownAndNoFileIsMade) {
  const std::string script = WriteScript("(_KySetRelateModify)\n");
  HostRun run = Host({"--script", script});
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_EQ(LinesFrom(run, "host: loaded"),
            (Lines{run.lines.empty() ? "" : run.lines[0],
                   "",
                   "加载选项配置文件失败！未找到配置文件config.xml。",
                   "加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!",
                   "host: kInitAppMsg -> 0",
                   "host: the module is unlocked and works with several documents",
                   "host: document 1 opened",
                   "host: kLoadDwgMsg -> 0",
                   "Command: (_KySetRelateModify)", "0",
                   "host: kUnloadDwgMsg -> 0",
                   "host: document 1 closed",
                   "[message box] 保存选项配置文件失败！未找到文件config.xml!",
                   "[message box] 保存数据文件失败！未找到UIConfig.xml!",
                   "[message box] 保存历史数据文件失败！未找到历史数据记录文件HistoryData.xml!",
                   "host: kUnloadAppMsg -> 0",
                   "host: module unloaded"}));
  EXPECT_TRUE(fs::is_empty(support()));
}

TEST_F(HostProgram, StandardInputServesWhenNoScriptIsGivenAndItsEndQuits) {
  CopyBundledSupport();
  const std::string input = WriteScript("(_KySetAutoBreak)\n(_KyGetAutoBreak)");
  HostRun run = Host({}, input);
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_EQ(LinesFrom(run, "Command:"),
            (Lines{"Command: (_KySetAutoBreak)", "0", "Command: (_KyGetAutoBreak)", "0",
                   "host: kUnloadDwgMsg -> 0", "host: document 1 closed", "host: kUnloadAppMsg -> 0",
                   "host: module unloaded"}));
  EXPECT_NE(Saved("config.xml").find("\"自动打断\">FALSE</Bool>"), std::string::npos);
}

TEST_F(HostProgram, UnknownCommandsAndFunctionsAreReportedAndTheSessionGoesOn) {
  CopyBundledSupport();
  const std::string script = WriteScript(
      "NoSuchCommand\n(_KyNoSuchFunction)\n(_KySetAutoBreak 1)\n(_KySetAutoBreak\n()\n_kyprj\nkyexlang\n"
      "(_KySetAutoBreak)\nexit\n");
  HostRun run = Host({"--script", script});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(LinesFrom(run, "Command:"),
            (Lines{"Command: NoSuchCommand", "Unknown command \"NOSUCHCOMMAND\".",
                   "Command: (_KyNoSuchFunction)", "; error: no function definition: _KYNOSUCHFUNCTION",
                   "Command: (_KySetAutoBreak 1)",
                   "; error: too many arguments: this host passes none to external functions",
                   "Command: (_KySetAutoBreak", "; error: malformed list on input",
                   "Command: ()", "nil",
                   "Command: _kyprj",
                   "Command: kyexlang",
                   // The bundled Set.ini names a module list the support folder doesn't have.
                   "[message box] Opening " + SystemForm(support() / "modules" / "acad.rx") + " failed!",
                   "Command: (_KySetAutoBreak)", "0",
                   "Command: exit",
                   "host: kUnloadDwgMsg -> 0", "host: document 1 closed", "host: kUnloadAppMsg -> 0",
                   "host: module unloaded"}));
  EXPECT_NE(Saved("config.xml").find("\"自动打断\">FALSE</Bool>"), std::string::npos);
}

TEST_F(HostProgram, TwoCyclesInOneProcessReadWhatTheFirstSaved) {
  CopyBundledSupport();
  const std::string script = WriteScript("(_KyGetAutoBreak)\n(_KySetAutoBreak)\n");
  HostRun run = Host({"--script", script, "--cycles", "2"});
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_TRUE(run.err.empty()) << run.err;
  Lines results;
  for (size_t i = 0; i + 1 < run.lines.size(); ++i)
    if (run.lines[i].rfind("Command: (", 0) == 0) results.push_back(run.lines[i + 1]);
  EXPECT_EQ(results, (Lines{"1", "0", "0", "1"}));
  // Each cycle took the module out of the process again.
  int unloaded = 0;
  for (const std::string &line : run.lines) unloaded += line == "host: module unloaded";
  EXPECT_EQ(unloaded, 2);
  EXPECT_EQ(LinesFrom(run, "host: cycle 2 of 2").size(), LinesFrom(run, "host: cycle 1 of 2").size() / 2);
  EXPECT_EQ(Saved("config.xml"), Bundled("config.xml"));
}

TEST_F(HostProgram, MissingModuleIsReported) {
  HostRun run = RunHostProgram({"host", "--module", (work_.path() / "none.so").string(), "--main-dir",
                                support().string()},
                               work_.str());
  EXPECT_EQ(run.status, 1);
  ASSERT_FALSE(run.lines.empty());
  EXPECT_EQ(run.lines[0].rfind("host: cannot load ", 0), 0u) << run.out;
}

TEST_F(HostProgram, HelpExplainsTheCommandLine) {
  for (const Lines &args : {Lines{"--help"}, Lines{"host", "--help"}}) {
    HostRun run = RunHostProgram(args, work_.str());
    EXPECT_EQ(run.status, 0);
    for (const char *word : {"tolv host", "--module", "--main-dir", "--script", "--cycles", "(NAME)", "QUIT",
                             "kInitAppMsg", "kLoadDwgMsg", "kUnloadAppMsg", "[message box]", "Exit status"}) {
      EXPECT_NE(run.out.find(word), std::string::npos) << word;
    }
  }
}

TEST_F(HostProgram, WrongCommandLinesAreRefused) {
  for (const Lines &args : {Lines{}, Lines{"nothing"}, Lines{"host", "--bogus"}, Lines{"host", "--cycles", "0"}}) {
    HostRun run = RunHostProgram(args, work_.str());
    EXPECT_EQ(run.status, 2);
    EXPECT_FALSE(run.err.empty());
  }
}

}  // namespace
