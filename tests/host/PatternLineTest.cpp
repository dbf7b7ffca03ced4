// The PATTERN script line: a hatch pattern of a support file drawn into the
// document's drawing, read back from the saved DXF with ezdxf.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "HostProcess.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

class PatternLine : public ::testing::Test {
 protected:
  PatternLine() { fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive); }
  fs::path support() const { return work_.path() / "support"; }
  HostRun Host(const std::string &script) {
    std::string path = (work_.path() / "pattern.scr").string();
    tolvtest::WriteFileBytes(path, script);
    return RunHostProgram({"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string(), "--drawing",
                           drawing().string(), "--script", path},
                          work_.str());
  }
  fs::path drawing() const { return work_.path() / "patterns.dxf"; }
  bool HasLine(const HostRun &run, const std::string &line) {
    for (const auto &l : run.lines)
      if (l == line) return true;
    return false;
  }
  tolvtest::ScratchDir work_{"host-pattern"};
};

TEST_F(PatternLine, DrawsThePatternOverASquareIntoTheDrawing) {
  // Tiles 300 apart over a square of 1200 at (100,200): five lines each
  // way, and the four sides of the frame.
  HostRun run = Host("PATTERN tolv.pat TOLV_TILE300 100,200 1200\nSAVE\nQUIT\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_TRUE(HasLine(run, "TOLV_TILE300: 2 line families, 10 pieces drawn over a square of 1200 at 100,200"))
      << run.out;
  std::string check = "/usr/bin/python3 -c \"import ezdxf,sys; m=ezdxf.readfile(sys.argv[1]).modelspace(); "
                      "L=m.query('LINE'); "
                      "xs=sorted(round(e.dxf.start.x) for e in L if abs(e.dxf.start.x-e.dxf.end.x)<1e-6 and e.dxf.color==256); "
                      "sys.exit(0 if len(L)==14 and xs==[100,400,700,1000,1300] else 1)\" " +
                      drawing().string();
  if (std::system("/usr/bin/python3 -c 'import ezdxf' 2>/dev/null") != 0) GTEST_SKIP() << "python3-ezdxf is missing";
  EXPECT_EQ(std::system(check.c_str()), 0) << tolvtest::ReadFileBytes(drawing()).substr(0, 200);
}

TEST_F(PatternLine, MissingPatternOrFileFailsTheLine) {
  HostRun run = Host("PATTERN tolv.pat NOPE\nPATTERN absent.pat X\nPATTERN tolv.pat\nQUIT\n");
  EXPECT_NE(run.out.find("has no pattern NOPE"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("absent.pat not found"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("PATTERN needs a pattern file and a pattern name"), std::string::npos) << run.out;
}

}  // namespace
