// The sibling module of the host program: its script lines reach the
// module's exported interface, and the subcommands of `tolv` come from it.
#include <gtest/gtest.h>

#include <filesystem>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

class SiblingLines : public ::testing::Test {
 protected:
  SiblingLines() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
  }
  fs::path support() const { return work_.path() / "support"; }
  HostRun Host(const std::string &script) {
    const std::string path = (work_.path() / "lines.scr").string();
    tolvtest::WriteFileBytes(path, script);
    return RunHostProgram({"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string(), "--script", path},
                          work_.str());
  }

  tolvtest::ScratchDir work_{"sibling"};
};

TEST_F(SiblingLines, SettingLineReadsTheLoadedSettingsThroughTheModule) {
  HostRun run = Host("SETTING ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK\n(_KySetAutoBreak)\n"
                     "setting ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  // The second read sees what the Lisp setter changed in the module.
  EXPECT_NE(run.out.find("ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK (Bool) = TRUE"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK (Bool) = FALSE"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("host: module unloaded\n"), std::string::npos) << run.out;
}

TEST_F(SiblingLines, DictionarySettingShowsItsItemCount) {
  HostRun run = Host("SETTING ADVANCE\n");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("ADVANCE (dictionary) = "), std::string::npos) << run.out;
}

TEST_F(SiblingLines, MissingSettingFailsTheLine) {
  HostRun run = Host("SETTING NO\\SUCH\\THING\nSETTING\n");
  EXPECT_EQ(run.status, 3) << run.out;
  EXPECT_NE(run.out.find("NO\\SUCH\\THING: no such setting"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("SETTING needs one path"), std::string::npos) << run.out;
}

TEST_F(SiblingLines, HelpListsTheSiblingLines) {
  HostRun run = Host("HELP\n");
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("SETTING PATH"), std::string::npos) << run.out;
}

TEST_F(SiblingLines, UnknownWordIsStillAnUnknownCommand) {
  HostRun run = Host("NOSUCHLINE 1 2\n");
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.out.find("Unknown command \"NOSUCHLINE 1 2\"."), std::string::npos) << run.out;
}

TEST_F(SiblingLines, ProgramHelpListsTheSiblingsLinesAndAnUnknownCommandIsUsage) {
  HostRun help = RunHostProgram({"--help"}, work_.str());
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("Script lines that call the module"), std::string::npos) << help.out;
  HostRun unknown = RunHostProgram({"no-such-command"}, work_.str());
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("unknown command 'no-such-command'"), std::string::npos) << unknown.err;
}

}  // namespace
