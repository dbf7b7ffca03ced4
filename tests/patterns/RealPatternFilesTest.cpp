// Pattern files nobody here wrote: the hatch patterns of ezdxf (written out
// as pattern files by Debian's python3-ezdxf) and the pattern file of
// Debian's freecad-common package (fetched into a cache under the build
// tree, never installed). Each is read and written back, found by name, and
// scaled as ezdxf scales it.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "PatternTestSupport.h"

namespace fs = std::filesystem;

namespace {

const std::string kScript = std::string(TOLV_SOURCE_DIR) + "/tests/patterns/ezdxf_patterns.py";
const fs::path kCache = fs::path(TOLV_BINARY_DIR) / "pattern-data";

int RunCommand(const std::string &command) { return std::system(command.c_str()); }
std::string Quote(const std::string &s) { return "'" + s + "'"; }

bool HaveEzdxf() { return RunCommand("/usr/bin/python3 -c 'import ezdxf' >/dev/null 2>&1") == 0; }

std::vector<std::string> SplitLines(const std::string &text) {
  std::vector<std::string> lines;
  std::string line;
  std::istringstream in(text);
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

bool IsHeadLine(const std::string &line) {
  return line.find(';') != std::string::npos || line.find('*') != std::string::npos;
}

// What a read and write gives for a file: the same lines less those with no
// comma and no head mark, less a last head that has no data, with every
// data line over 80 characters marked.
std::string ExpectedRewrite(const std::string &text, int *marked) {
  std::vector<std::string> kept;
  bool lastIsHead = false;
  for (const std::string &line : SplitLines(text)) {
    if (IsHeadLine(line)) {
      kept.push_back(line);
      lastIsHead = true;
    } else if (line.find(',') != std::string::npos) {
      kept.push_back(line.size() > 80 ? ";;?" + line : line);
      if (line.size() > 80) ++*marked;
      lastIsHead = false;
    }
  }
  // The last entry has no data when the file ends in a head or comment.
  if (lastIsHead) kept.pop_back();
  std::string out;
  for (const std::string &line : kept) out += line + "\n";
  return out;
}

std::vector<std::string> HeadNames(const std::string &text) {
  std::vector<std::string> names;
  for (const std::string &line : SplitLines(text)) {
    if (line.empty() || line[0] != '*' || line.find(';') != std::string::npos) continue;
    names.push_back(line.substr(1, line.find(',') == std::string::npos ? std::string::npos : line.find(',') - 1));
  }
  return names;
}

// Every data line of the patterns, as written fields.
std::vector<std::vector<std::string>> DataFields(const KyPats &pats) {
  std::vector<std::vector<std::string>> out;
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) {
    const KyPat &pat = pats.GetPData(i);
    for (KyPatData *const *p = pat.m_lstData.GetFirst(); p; p = pat.m_lstData.GetNext(p)) {
      std::vector<std::string> fields;
      for (const CString *f = (*p)->GetFirst(); f; f = (*p)->GetNext(f)) fields.push_back(pattest::Narrow(*f));
      out.push_back(fields);
    }
  }
  return out;
}

// The largest error the ten-character rule allows for a field as written:
// one unit of its last decimal place, as the text is cut, not rounded.
double Allowed(const std::string &field) {
  std::size_t point = field.find('.');
  int decimals = point == std::string::npos ? 0 : static_cast<int>(field.size() - point - 1);
  return std::pow(10.0, -decimals) + 1e-9;
}

// Reads the file, checks the round trip and Find, and compares scaling by
// 2, 0.5 and 25.4 with ezdxf's.
void CheckRealFile(const fs::path &file, std::size_t expectedNames) {
  SCOPED_TRACE(file.string());
  const std::string original = tolvtest::ReadFileBytes(file);
  pattest::MessageBoxes boxes;

  KyPats pats;
  pattest::ReadPats(pats, original);
  int marked = 0;
  std::string expected = ExpectedRewrite(original, &marked);
  EXPECT_EQ(pattest::WritePats(pats), expected);
  EXPECT_EQ(boxes.texts.size(), static_cast<std::size_t>(marked));

  std::vector<std::string> names = HeadNames(original);
  EXPECT_EQ(names.size(), expectedNames);
  for (const std::string &name : names) {
    std::int32_t at = pats.Find(CString(name.c_str()));
    ASSERT_GE(at, 0) << name;
    EXPECT_EQ(pattest::Narrow(pats.GetPData(at).FirstName()), name);
  }

  if (!HaveEzdxf()) {
    GTEST_SKIP() << "python3-ezdxf is not installed: scaling not compared with ezdxf's";
  }
  tolvtest::ScratchDir dir("patterns-real-scale");
  for (double factor : {2.0, 0.5, 25.4}) {
    SCOPED_TRACE(factor);
    KyPats scaled;
    pattest::ReadPats(scaled, original);
    for (std::int32_t i = 0; i < scaled.GetLength(); ++i) scaled.GetPData(i).Scale(factor);
    fs::path out = dir.path() / "ezdxf-scaled.txt";
    std::ostringstream f;
    f.precision(17);
    f << factor;
    ASSERT_EQ(RunCommand("/usr/bin/python3 " + Quote(kScript) + " scale " + Quote(file.string()) + " " + f.str() + " " +
                  Quote(out.string())),
              0);
    std::vector<std::string> reference = SplitLines(tolvtest::ReadFileBytes(out));
    std::vector<std::vector<std::string>> ours = DataFields(scaled);
    ASSERT_EQ(ours.size(), reference.size());
    std::size_t compared = 0;
    for (std::size_t k = 0; k < ours.size(); ++k) {
      std::vector<std::string> theirs;
      std::istringstream in(reference[k]);
      for (std::string v; std::getline(in, v, ',');) theirs.push_back(v);
      ASSERT_EQ(ours[k].size(), theirs.size()) << "data line " << k;
      for (std::size_t c = 0; c < theirs.size(); ++c) {
        const std::string &mine = ours[k][c];
        EXPECT_LE(mine.size(), c == 0 ? 1000u : 10u) << mine;
        double a = std::strtod(mine.c_str(), nullptr), b = std::strtod(theirs[c].c_str(), nullptr);
        EXPECT_NEAR(a, b, Allowed(mine)) << "data line " << k << " field " << c << ": " << mine << " vs "
                                         << theirs[c];
        ++compared;
      }
    }
    EXPECT_GT(compared, 0u);
  }
}

class EzdxfPatterns : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HaveEzdxf()) GTEST_SKIP() << "python3-ezdxf is not installed (/usr/bin/python3 -c 'import ezdxf' failed)";
    ASSERT_EQ(RunCommand("/usr/bin/python3 " + Quote(kScript) + " write " + Quote(dir_.str())), 0);
  }
  tolvtest::ScratchDir dir_{"patterns-ezdxf"};
};

TEST_F(EzdxfPatterns, IsoPatternsReadWriteFindAndScaleAsEzdxf) { CheckRealFile(dir_.path() / "iso.pat", 172); }

TEST_F(EzdxfPatterns, ImperialPatternsReadWriteFindAndScaleAsEzdxf) {
  CheckRealFile(dir_.path() / "imperial.pat", 172);
}

TEST_F(EzdxfPatterns, LongLinesOfTheRealFilesAreMarked) {
  int marked = 0;
  for (const char *name : {"iso.pat", "imperial.pat"}) ExpectedRewrite(tolvtest::ReadFileBytes(dir_.path() / name), &marked);
  EXPECT_GT(marked, 0) << "the generated files no longer hold a line over 80 characters";
}

// The pattern file of FreeCAD's TechDraw workbench.
fs::path FreecadPatternFile() {
  fs::path file = kCache / "freecad-common/usr/share/freecad/Mod/TechDraw/PAT/FCPAT.pat";
  if (fs::exists(file)) return file;
  std::string script = std::string(TOLV_SOURCE_DIR) + "/tests/patterns/fetch_pattern_package.sh";
  if (RunCommand(Quote(script) + " " + Quote(kCache.string()) + " freecad-common") != 0) return {};
  return fs::exists(file) ? file : fs::path();
}

TEST(FreecadPatterns, PatternFileReadsWritesFindsAndScalesAsEzdxf) {
  fs::path file = FreecadPatternFile();
  if (file.empty()) GTEST_SKIP() << "freecad-common could not be fetched with apt-get download into " << kCache;
  CheckRealFile(file, 8);
}

TEST(FreecadPatterns, OnlyBlankLinesAreLostOnTheWayBack) {
  fs::path file = FreecadPatternFile();
  if (file.empty()) GTEST_SKIP() << "freecad-common could not be fetched with apt-get download into " << kCache;
  const std::string original = tolvtest::ReadFileBytes(file);
  KyPats pats;
  pattest::ReadPats(pats, original);
  std::string kept;
  for (const std::string &line : SplitLines(original)) {
    if (!line.empty()) kept += line + "\n";
  }
  EXPECT_EQ(pattest::WritePats(pats), kept);
  EXPECT_EQ(pats.GetPData(0).m_strHead, CString(L"; standard PAT patterns"));
  EXPECT_FALSE(pats.GetPData(0).IsPat());
}

}  // namespace
