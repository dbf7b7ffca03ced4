// The host program's document drawing: --drawing opens or creates it,
// SAVE and SAVEAS write it as DXF, and --save-on-quit saves it at the end.
#include <gtest/gtest.h>

#include <filesystem>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

class HostDrawing : public ::testing::Test {
 protected:
  HostDrawing() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
  }
  fs::path support() const { return work_.path() / "support"; }
  std::string Script(const std::string &text) {
    std::string path = (work_.path() / "drawing.scr").string();
    tolvtest::WriteFileBytes(path, text);
    return path;
  }
  HostRun Host(std::vector<std::string> args) {
    args.insert(args.begin(), {"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string()});
    return RunHostProgram(args, work_.str());
  }
  bool HasLine(const HostRun &run, const std::string &line) {
    for (const auto &l : run.lines)
      if (l == line) return true;
    return false;
  }

  tolvtest::ScratchDir work_{"host-drawing"};
};

TEST_F(HostDrawing, NewDrawingIsSavedUnderItsNameAndAsACopy) {
  const fs::path plan = work_.path() / "Plan.dxf";
  const fs::path copy = work_.path() / "copy.dxf";
  HostRun run = Host({"--drawing", plan.string(), "--script",
                      Script("SAVE\nSAVEAS " + copy.string() + "\nQUIT\n")});
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_TRUE(HasLine(run, "host: document 1 opened with the drawing " + plan.string())) << run.out;
  EXPECT_TRUE(HasLine(run, "host: drawing saved to " + plan.string())) << run.out;
  EXPECT_TRUE(HasLine(run, "host: drawing saved to " + copy.string())) << run.out;
  const std::string dxf = tolvtest::ReadFileBytes(plan);
  EXPECT_NE(dxf.find("AC1015"), std::string::npos);
  EXPECT_EQ(dxf.substr(dxf.size() - 4), "EOF\n");
  EXPECT_EQ(tolvtest::ReadFileBytes(copy), dxf);
}

TEST_F(HostDrawing, DwgNameIsSavedToItsDxfSiblingAndReadBackFromIt) {
  const fs::path dwg = work_.path() / "Tower.DWG";
  HostRun first = Host({"--drawing", dwg.string(), "--save-on-quit", "--script", Script("QUIT\n")});
  ASSERT_EQ(first.status, 0) << first.out << first.err;
  const fs::path sibling = work_.path() / "Tower.dxf";
  ASSERT_TRUE(fs::exists(sibling)) << first.out;
  EXPECT_FALSE(fs::exists(dwg));
  // Opened again under the ".DWG" name, the drawing comes from the sibling.
  HostRun second = Host({"--drawing", dwg.string(), "--script", Script("QUIT\n")});
  ASSERT_EQ(second.status, 0) << second.out << second.err;
  EXPECT_TRUE(HasLine(second, "host: document 1 opened with the drawing " + sibling.string())) << second.out;
}

TEST_F(HostDrawing, SaveWithoutANameAsksForSaveAs) {
  HostRun run = Host({"--script", Script("SAVE\nSAVEAS\nQUIT\n")});
  EXPECT_EQ(run.status, 3) << run.out;
  EXPECT_TRUE(HasLine(run, "host: the drawing has no name yet: use SAVEAS")) << run.out;
  EXPECT_TRUE(HasLine(run, "; error: SAVEAS needs a file name")) << run.out;
}

TEST_F(HostDrawing, UnreadableDrawingStopsTheSessionAndKeepsTheFile) {
  const fs::path bad = work_.path() / "broken.dxf";
  tolvtest::WriteFileBytes(bad, "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\nnot a number");
  HostRun run = Host({"--drawing", bad.string(), "--save-on-quit", "--script", Script("QUIT\n")});
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_EQ(tolvtest::ReadFileBytes(bad), "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\nnot a number");
  bool reported = false;
  for (const auto &l : run.lines) reported |= l.rfind("host: cannot open the drawing " + bad.string(), 0) == 0;
  EXPECT_TRUE(reported) << run.out;
}

}  // namespace
