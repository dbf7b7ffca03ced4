// `tolv project` on the sample project and on broken copies of it, and the
// project's host lines and "KyPrj" in a host session.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace fs = std::filesystem;

namespace {

class ProjectCommand : public ::testing::Test {
 protected:
  ProjectCommand() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "samples" / "riverside", sample(), fs::copy_options::recursive);
  }
  fs::path sample() const { return work_.path() / "riverside"; }
  std::string file(const std::string &name) const { return (sample() / name).string(); }
  HostRun Run(std::vector<std::string> args) {
    args.insert(args.begin(), "project");
    return RunHostProgram(args, work_.str());
  }
  // Replaces the first occurrence of `from` in the sample's file.
  void Edit(const std::string &name, const std::string &from, const std::string &to) {
    std::string text = tolvtest::ReadFileBytes(sample() / name);
    std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
    tolvtest::WriteFileBytes(sample() / name, text);
  }
  static bool Has(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

  tolvtest::ScratchDir work_{"project_cmd"};
};

}  // namespace

TEST_F(ProjectCommand, SampleShowsItsFloorsFilesAndCheck) {
  HostRun run = Run({file("Riverside.xml")});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Has(run.out, "Floor table, 6 rows")) << run.out;
  EXPECT_TRUE(Has(run.out, "2-5       3000      0,0,4500              0,0 to 42000,18000           STD.dwg"))
      << run.out;
  EXPECT_TRUE(Has(run.out, "Floor files, 5, each once:"));
  EXPECT_TRUE(Has(run.out, (sample() / "Details" / "Stairs" / "Stair-1.dwg").string()));
  EXPECT_FALSE(Has(run.out, "[missing]"));
  EXPECT_TRUE(Has(run.out, "Floor check: the floors connect"));
  EXPECT_EQ(Run({"--check", file("Riverside.xml")}).status, 0);
}

TEST_F(ProjectCommand, AGapFailsTheCheckWithItsMessage) {
  Edit("Riverside.xml", "number=\"10\"", "number=\"11\"");
  HostRun run = Run({"--check", file("Riverside.xml")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Has(run.out, "Floor check: \" 楼层号不连续!\"")) << run.out;
  EXPECT_TRUE(Has(run.err, "Riverside.xml: the floors don't connect")) << run.err;
  // Without --check the report is all.
  EXPECT_EQ(Run({file("Riverside.xml")}).status, 0);
}

TEST_F(ProjectCommand, ARepeatFailsTheCheckWithItsMessage) {
  Edit("Riverside.xml", "number=\"2-5\"", "number=\"1-5\"");
  HostRun run = Run({"--check", file("Riverside.xml")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Has(run.out, "Floor check: \" 楼层号重复!\"")) << run.out;
}

TEST_F(ProjectCommand, AnUnreadableFirstNumberPassesUnreported) {
  Edit("Riverside.xml", "number=\"-2\"", "number=\"B2\"");
  HostRun run = Run({"--check", file("Riverside.xml")});
  EXPECT_EQ(run.status, 0) << run.out;
  EXPECT_TRUE(Has(run.out, "Floor check: the floors connect"));
}

TEST_F(ProjectCommand, AFloorWhoseDrawingIsMissingIsMarked) {
  fs::remove(sample() / "RF.dxf");
  HostRun run = Run({"--check", file("Riverside.xml")});
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Has(run.out, (sample() / "RF.dwg").string() + "   [missing]")) << run.out;
  EXPECT_TRUE(Has(run.out, "1 missing on disk"));
}

TEST_F(ProjectCommand, UnreadableInputIsExitTwoNamingTheFile) {
  HostRun missing = Run({file("Nope.xml")});
  EXPECT_EQ(missing.status, 2);
  EXPECT_TRUE(Has(missing.err, "Nope.xml: no such file")) << missing.err;
  tolvtest::WriteFileBytes(sample() / "broken.xml", "<TolvProject><Directory></TolvProject>");
  HostRun broken = Run({file("broken.xml")});
  EXPECT_EQ(broken.status, 2);
  EXPECT_TRUE(Has(broken.err, "broken.xml: not a well-formed XML document")) << broken.err;
  HostRun other = Run({file("Riverside.orpx")});
  EXPECT_EQ(other.status, 2);
  EXPECT_TRUE(Has(other.err, "the root element is <TolvDictionary>, not <TolvProject>")) << other.err;
  HostRun otherDb = Run({"--db", file("Riverside.xml")});
  EXPECT_EQ(otherDb.status, 2);
  EXPECT_TRUE(Has(otherDb.err, "the root element is <TolvProject>, not <TolvDictionary>")) << otherDb.err;
}

TEST_F(ProjectCommand, UsageHelpAndBadUsage) {
  HostRun help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(Has(help.out, "usage: tolv project"));
  EXPECT_EQ(Run({}).status, 2);
  EXPECT_EQ(Run({"--frobnicate", file("Riverside.xml")}).status, 2);
  EXPECT_EQ(Run({file("Riverside.xml"), file("Riverside.xml")}).status, 2);
}

TEST_F(ProjectCommand, DatabaseTreeResolvesReferencesToNames) {
  HostRun run = Run({"--db", "--check", file("Riverside.orpx")});
  EXPECT_EQ(run.status, 0) << run.out;
  EXPECT_TRUE(Has(run.out, "region 0 (主楼)  base 0,0,0  outline 2A7")) << run.out;
  EXPECT_TRUE(Has(run.out, "sub-floor 1F-M (夹层)  height 2200  view -> PLAN-1F-M"));
  EXPECT_TRUE(Has(run.out, "view SECTION-A  scale 1:100  type SECTION  direction 0,1,0  up 0,0,1"));
  EXPECT_TRUE(Has(run.out, "sub-view 1 -> PLAN-1F-M"));
  EXPECT_TRUE(Has(run.out, "References pointing nowhere: 0"));
}

TEST_F(ProjectCommand, DanglingAndSelfReferencesAreMarked) {
  Edit("Riverside.orpx", "VIEWS\\PLAN-B2</Reference>", "VIEWS\\NOWHERE</Reference>");
  Edit("Riverside.orpx", "<Reference name=\"FLOOR_VIEW\">VIEWS\\PLAN-B1</Reference>",
       "<Reference name=\"FLOOR_VIEW\">MODELS\\0\\FLOORS\\B1\\FLOOR_MODEL\\FLOOR_VIEW</Reference>");
  HostRun run = Run({"--db", "--check", file("Riverside.orpx")});
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_TRUE(Has(run.out, "view -> VIEWS\\NOWHERE  [dangling]")) << run.out;
  EXPECT_TRUE(Has(run.out, "[points at itself]"));
  EXPECT_TRUE(Has(run.out, "References pointing nowhere: 2"));
  EXPECT_EQ(Run({"--db", file("Riverside.orpx")}).status, 0);
}

TEST_F(ProjectCommand, HostLinesReadTheProjectDrawItsFloorsAndKyPrjUpdatesTheTemplate) {
  fs::path support = work_.path() / "support";
  fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support, fs::copy_options::recursive);
  fs::path script = work_.path() / "project.scr";
  fs::path drawing = work_.path() / "floors.dxf";
  tolvtest::WriteFileBytes(script, "KyPrj\nPROJECT " + file("Riverside.xml") + "\nFLOORPLAN STD.dwg\nPROJECTDB " +
                                       file("Riverside.orpx") + "\nPROJECT " + file("Nope.xml") + "\nQUIT\n");
  HostRun run = RunHostProgram({"host", "--module", TOLV_MODULE_PATH, "--main-dir", support.string(), "--drawing",
                                drawing.string(), "--save-on-quit", "--script", script.string()},
                               work_.str());
  // The unreadable project file fails its line.
  EXPECT_EQ(run.status, 3) << run.out << run.err;
  EXPECT_TRUE(Has(run.out, "Project Riverside.xml: 6 floor rows, 5 floor drawings, 5 drawings in the set")) << run.out;
  EXPECT_TRUE(Has(run.out, "Floor check: the floors connect"));
  EXPECT_TRUE(Has(run.out, "FLOORPLAN: 2 floor outlines drawn"));
  EXPECT_TRUE(Has(run.out, "Project database: 2 regions, 7 floors, 11 views, 7 drawings"));
  EXPECT_TRUE(Has(run.out, "not a project file that can be read"));
  std::string dxf = tolvtest::ReadFileBytes(drawing);
  std::size_t lines = 0;
  for (std::size_t at = dxf.find("\nLINE\n"); at != std::string::npos; at = dxf.find("\nLINE\n", at + 1)) ++lines;
  EXPECT_EQ(lines, 8u);
  std::string templ = tolvtest::ReadFileBytes(support / "template.orpx");
  for (const char *part : {"name=\"DRAWINGS\"", "name=\"FILES\"", "name=\"SETTINGS\"", "name=\"GROUP\""}) {
    EXPECT_TRUE(Has(templ, part)) << part << "\n" << templ;
  }
}

TEST_F(ProjectCommand, AFailedFloorCheckInTheHostShowsItsMessageBox) {
  Edit("Riverside.xml", "number=\"10\"", "number=\"12\"");
  fs::path script = work_.path() / "gap.scr";
  tolvtest::WriteFileBytes(script, "PROJECT " + file("Riverside.xml") + "\nQUIT\n");
  HostRun run = RunHostProgram({"host", "--module", TOLV_MODULE_PATH, "--script", script.string()}, work_.str());
  EXPECT_TRUE(Has(run.out + run.err, "[message box]")) << run.out << run.err;
  EXPECT_TRUE(Has(run.out + run.err, "楼层号不连续!"));
  EXPECT_TRUE(Has(run.out, "Floor check: failed"));
}
