// `tolv pattern`: the listing, the check, scaling to a file and the SVG
// pictures, run as a person runs them.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "PatternTestSupport.h"

namespace fs = std::filesystem;

namespace {

struct Result {
  int status = -1;
  std::string out, err;
};

std::string Quote(const std::string &s) { return "'" + s + "'"; }

class PatternTool : public ::testing::Test {
 protected:
  Result Tolv(const std::string &args) {
    fs::path out = dir_.path() / "stdout.txt", err = dir_.path() / "stderr.txt";
    std::string command = Quote(TOLV_HOST_PATH) + " pattern " + args + " >" + Quote(out.string()) + " 2>" +
                          Quote(err.string());
    Result r;
    int raw = std::system(command.c_str());
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = tolvtest::ReadFileBytes(out);
    r.err = tolvtest::ReadFileBytes(err);
    return r;
  }
  std::string Write(const std::string &name, const std::string &bytes) {
    tolvtest::WriteFileBytes(dir_.path() / name, bytes);
    return (dir_.path() / name).string();
  }
  std::string Path(const std::string &name) { return (dir_.path() / name).string(); }

  tolvtest::ScratchDir dir_{"patterns-tool"};
};

const std::string kBundled = std::string(TOLV_SOURCE_DIR) + "/share/support/tolv.pat";

TEST_F(PatternTool, ListsTheBundledPatternFile) {
  Result r = Tolv(Quote(kBundled));
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("8 patterns, 4 comment-only entries"), std::string::npos) << r.out;
  for (const char *name : {"TOLV_WALL", "TOLV_CONCRETE", "TOLV_INSUL", "TOLV_BRICK", "TOLV_TILE300",
                           "TOLV_TILE300D", "TOLV_EARTH", "TOLV_GRAVEL"}) {
    EXPECT_NE(r.out.find(name), std::string::npos) << name;
  }
  EXPECT_NE(r.out.find("TOLV_EARTH          6     earth: groups of three short lines"), std::string::npos) << r.out;
  EXPECT_EQ(r.out.find("over 80"), std::string::npos);
  EXPECT_EQ(Tolv(Quote(kBundled) + " --check").status, 0);
}

TEST_F(PatternTool, MarksLinesOverEightyWithTheirLineNumbers) {
  std::string longLine = "0,0,0,0," + std::string(80, '1');
  std::string file = Write("long.pat", "; c\n\n*LONG, too long\n" + longLine + "\n0,0,0,0,1\n");
  Result r = Tolv(Quote(file));
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find(file + ":4: LONG: data line of 88 characters, over 80"), std::string::npos) << r.out;
  Result checked = Tolv(Quote(file) + " --check");
  EXPECT_EQ(checked.status, 1);
  EXPECT_NE(checked.out.find(":4: LONG"), std::string::npos);
}

TEST_F(PatternTool, MissingFileIsAnErrorNamingIt) {
  Result r = Tolv(Quote(Path("absent.pat")));
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("absent.pat"), std::string::npos) << r.err;
  EXPECT_TRUE(r.out.empty());
  Result folder = Tolv(Quote(dir_.str()));
  EXPECT_EQ(folder.status, 2);
  EXPECT_NE(folder.err.find("folder"), std::string::npos) << folder.err;
}

TEST_F(PatternTool, BadUsageExitsTwo) {
  std::string file = Write("a.pat", "*A,a\n0,0,0,0,1\n");
  EXPECT_EQ(Tolv("").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --frobnicate").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --scale 2").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --scale 0 --out x.pat").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --scale abc --out x.pat").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --svg x.svg").status, 2);
  EXPECT_EQ(Tolv(Quote(file) + " --name A").status, 2);
  Result r = Tolv(Quote(file) + " " + Quote(file));
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("usage"), std::string::npos);
}

TEST_F(PatternTool, HelpDescribesEveryOption) {
  Result r = Tolv("--help");
  EXPECT_EQ(r.status, 0);
  for (const char *word : {"--check", "--scale", "--out", "--name", "--svg", "--size", "--all", "Exit status"})
    EXPECT_NE(r.out.find(word), std::string::npos) << word;
}

TEST_F(PatternTool, ScalesEveryPatternIntoTheOutputFile) {
  std::string file = Write("in.pat", "; grid\n*NET, grid\n0, 0,0, 0,.125\n90, 0,0, 0,.125\n*D,d\n0,0,0,1,1,.5,-.5\n");
  Result r = Tolv(Quote(file) + " --scale 25.4 --out " + Quote(Path("out.pat")));
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(tolvtest::ReadFileBytes(Path("out.pat")),
            "; grid\n*NET, grid\n0,0,0,0,3.175\n90,0,0,0,3.175\n*D,d\n0,0,0,25.4,25.4,12.7,-12.7\n");
}

TEST_F(PatternTool, ScalingKeepsCrLfLineEnds) {
  std::string file = Write("crlf.pat", "*NET, grid\r\n0,0,0,0,1\r\n");
  EXPECT_EQ(Tolv(Quote(file) + " --scale 2 --out " + Quote(Path("out.pat"))).status, 0);
  EXPECT_EQ(tolvtest::ReadFileBytes(Path("out.pat")), "*NET, grid\r\n0,0,0,0,2\r\n");
}

TEST_F(PatternTool, ScalingThatMakesALineTooLongMarksItAndExitsOne) {
  std::string file = Write("in.pat", "*A,a\n0,.1,.1,.1,.1,.1,-.1,.1,-.1,.1,-.1,.1,-.1,.1,-.1\n");
  Result r = Tolv(Quote(file) + " --scale 0.333333 --out " + Quote(Path("out.pat")));
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("1 data line is over 80 characters"), std::string::npos) << r.err;
  EXPECT_EQ(tolvtest::ReadFileBytes(Path("out.pat")).rfind("*A,a\n;;?0,0.0333333,", 0), 0u);
}

// The elements of an SVG file, read back with python's xml.etree.
struct Svg {
  std::string size;
  std::vector<std::vector<double>> lines, dots;
  std::vector<std::string> texts;
};

bool ReadSvg(const std::string &file, Svg &svg) {
  std::string script = std::string(TOLV_SOURCE_DIR) + "/tests/patterns/svg_measure.py";
  std::string out = file + ".txt";
  if (std::system(("/usr/bin/python3 " + Quote(script) + " " + Quote(file) + " >" + Quote(out)).c_str()) != 0)
    return false;
  std::istringstream in(tolvtest::ReadFileBytes(out));
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    if (kind == "size") {
      svg.size = line.substr(5);
    } else if (kind == "line" || kind == "dot") {
      std::vector<double> v;
      for (double x; words >> x;) v.push_back(x);
      (kind == "line" ? svg.lines : svg.dots).push_back(v);
    } else if (kind == "text") {
      svg.texts.push_back(line.substr(5));
    }
  }
  return true;
}

TEST_F(PatternTool, DrawingOfDashesAndSolidLinesMeasuresAsThePatternSays) {
  // Horizontal lines 1 apart from y = 0.5, dashes 0.5 on and 0.5 off from
  // x = 0; vertical solid lines 2 apart from x = 0.25.
  std::string file = Write("t.pat", "*T, test\n0, 0,0.5, 0,1, 0.5,-0.5\n90, 0.25,0, 0,2\n");
  Result r = Tolv(Quote(file) + " --name T --svg " + Quote(Path("t.svg")) + " --extent 10 --size 300");
  ASSERT_EQ(r.status, 0) << r.err;
  Svg svg;
  ASSERT_TRUE(ReadSvg(Path("t.svg"), svg));
  EXPECT_EQ(svg.size, "300 300 0 0 10 10");
  std::set<double> rows, columns;
  int dashes = 0, solids = 0;
  for (const auto &l : svg.lines) {
    ASSERT_EQ(l.size(), 4u);
    double length = std::hypot(l[2] - l[0], l[3] - l[1]);
    if (std::fabs(l[1] - l[3]) < 1e-6) {
      ++dashes;
      EXPECT_NEAR(length, 0.5, 1e-6);
      EXPECT_NEAR(std::fmod(std::min(l[0], l[2]), 1.0), 0.0, 1e-6);
      rows.insert(std::round(l[1] * 100) / 100);
    } else {
      ++solids;
      EXPECT_NEAR(l[0], l[2], 1e-6);
      EXPECT_NEAR(length, 10, 1e-6);
      columns.insert(std::round(l[0] * 100) / 100);
    }
  }
  EXPECT_EQ(dashes, 100);
  EXPECT_EQ(solids, 5);
  EXPECT_EQ(rows, (std::set<double>{0.5, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5}));
  EXPECT_EQ(columns, (std::set<double>{0.25, 2.25, 4.25, 6.25, 8.25}));
  EXPECT_TRUE(svg.dots.empty());
}

TEST_F(PatternTool, DiagonalLinesCoverTheSquareByTheirSpacing) {
  std::string file = Write("d.pat", "*D, diagonal\n45, 0,0, 0,0.5\n");
  ASSERT_EQ(Tolv(Quote(file) + " --name D --svg " + Quote(Path("d.svg")) + " --extent 10").status, 0);
  Svg svg;
  ASSERT_TRUE(ReadSvg(Path("d.svg"), svg));
  double total = 0;
  for (const auto &l : svg.lines) {
    total += std::hypot(l[2] - l[0], l[3] - l[1]);
    EXPECT_NEAR(l[3] - l[1], l[2] - l[0], 1e-4);  // at 45 degrees
    for (double c : l) {
      EXPECT_GE(c, -1e-6);
      EXPECT_LE(c, 10 + 1e-6);
    }
  }
  // Lines 0.5 apart cover an area of 100 with 200 units of line, give or
  // take a line at the corners.
  EXPECT_NEAR(total, 200, 15);
  EXPECT_NEAR(static_cast<double>(svg.lines.size()), 10 * std::sqrt(2.0) / 0.5, 2);
}

TEST_F(PatternTool, DotsAreDrawnAsDots) {
  std::string file = Write("g.pat", "*G, gravel\n0, 0,0.5, 0,1, 0,-1\n");
  ASSERT_EQ(Tolv(Quote(file) + " --name G --svg " + Quote(Path("g.svg")) + " --extent 4.2").status, 0);
  Svg svg;
  ASSERT_TRUE(ReadSvg(Path("g.svg"), svg));
  EXPECT_TRUE(svg.lines.empty());
  EXPECT_EQ(svg.dots.size(), 4u * 5u);  // rows at y 0.5 to 3.5, dots at x 0 to 4
}

TEST_F(PatternTool, DrawingAMissingPatternExitsTwo) {
  Result r = Tolv(Quote(kBundled) + " --name NOPE --svg " + Quote(Path("n.svg")));
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("NOPE"), std::string::npos);
  EXPECT_FALSE(fs::exists(Path("n.svg")));
}

TEST_F(PatternTool, TooFineASpacingStopsTheDrawingEarly) {
  std::string file = Write("f.pat", "*F, fine\n0, 0,0, 0,1e-9\n");
  Result r = Tolv(Quote(file) + " --name F --svg " + Quote(Path("f.svg")) + " --extent 10");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("stops early"), std::string::npos) << r.out;
}

TEST_F(PatternTool, SheetShowsEveryPatternWithItsName) {
  Result r = Tolv(Quote(kBundled) + " --all --svg " + Quote(Path("sheet")));
  ASSERT_EQ(r.status, 0) << r.err;
  Svg svg;
  ASSERT_TRUE(ReadSvg(Path("sheet/tolv.svg"), svg));
  std::vector<std::string> expected = {"tolv.pat",     "TOLV_WALL",     "TOLV_CONCRETE", "TOLV_INSUL", "TOLV_BRICK",
                                       "TOLV_TILE300", "TOLV_TILE300D", "TOLV_EARTH",    "TOLV_GRAVEL"};
  EXPECT_EQ(svg.texts, expected);
  EXPECT_GT(svg.lines.size(), 100u);
  EXPECT_GT(svg.dots.size(), 10u);
}

}  // namespace
