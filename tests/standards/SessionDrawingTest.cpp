// The standards session of `make run` played by the host program on a
// copy of the bundled support folder: the labels it prints, and its drawing
// opened by an independent reader (Debian's python3-ezdxf), which must
// audit it clean and read back every layer, style and material it made.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "dictionary/KyDtDictionary.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

constexpr const char *kPython = "/usr/bin/python3";

std::string Quote(const std::string &s) {
  std::string out = "'";
  for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

int RunCommand(const std::string &command, std::string &output) {
  output.clear();
  FILE *pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return -1;
  char buffer[4096];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  const int status = ::pclose(pipe);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class SessionDrawingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(std::filesystem::path(TOLV_SOURCE_DIR) / "share/support", dir_.path() / "support",
                          std::filesystem::copy_options::recursive);
    drawing_ = (dir_.path() / "standards.dxf").string();
    const int rc = RunCommand(Quote(TOLV_HOST_PATH) + " host --main-dir " + Quote((dir_.path() / "support").string()) +
                           " --drawing " + Quote(drawing_) + " --save-on-quit --script " +
                           Quote(TOLV_SOURCE_DIR "/tools/scripts/standards.scr"),
                       session_);
    ASSERT_EQ(rc, 0) << session_;
  }

  tolvtest::ScratchDir dir_{"standards-session"};
  std::string drawing_;
  std::string session_;
};

TEST_F(SessionDrawingTest, OpeningsAreLabelledBySize) {
  for (const char *want : {"OPENING: label \"M0921\"", "OPENING: label \"M1021\"", "OPENING: label \"C1518\"",
                           "OPENING: label \"FM1021\"", "DORMER: label \"LC0912\"", "CORNERWIN: label \"DC2715\"",
                           "CORNERWIN: label \"DC4218\""}) {
    EXPECT_NE(session_.find(want), std::string::npos) << want << "\n" << session_;
  }
  EXPECT_NE(session_.find("LAYER DOOR-NUM: layer \"WINDOW_TEXT\", colour 3"), std::string::npos) << session_;
  EXPECT_NE(session_.find("LAYERNAME DOOR*-NUM: \"WINDOW_TEXT,DOOR*-NUMB\""), std::string::npos) << session_;
}

std::string Expectations() {
  std::string materials;
  for (const wchar_t *const *n = KyDbSystemMaterialNames(); *n; ++n) materials += "\"" + tolv::ToUtf8(*n) + "\", ";
  materials += "\"陶粒混凝土\"";
  const std::string common =
      "\"dimgap\": 1.0, \"dimexe\": 2.0, \"dimexo\": 2.0, \"dimscale\": 1.0, \"dimdli\": 0.0, \"dimtofl\": 1,"
      " \"dimtmove\": 2, \"dimtdec\": 0, \"dimaunit\": 0, \"dimadec\": 2, \"dimazin\": 2, \"dimtoh\": 0,"
      " \"dimtix\": 1, \"dimtih\": 0, \"dimdle\": 0.0";
  return std::string("{\n\"version\": \"AC1015\",\n") +
         "\"layers\": [{\"name\": \"WALL\", \"color\": 7, \"linetype\": \"Continuous\", \"lineweight\": 50},\n"
         " {\"name\": \"WALL-CONC\", \"color\": 8, \"linetype\": \"Continuous\", \"lineweight\": 70},\n"
         " {\"name\": \"WINDOW_TEXT\", \"color\": 3, \"linetype\": \"Continuous\", \"lineweight\": 13},\n"
         " {\"name\": \"AXIS\", \"color\": 1, \"linetype\": \"AXIS\", \"lineweight\": 13},\n"
         " {\"name\": \"COLU-HIDD\", \"color\": 8, \"linetype\": \"HIDDEN\", \"lineweight\": 13},\n"
         " {\"name\": \"DOOR\", \"color\": 4, \"linetype\": \"Continuous\", \"lineweight\": 25},\n"
         " {\"name\": \"WINDOW\", \"color\": 4, \"linetype\": \"Continuous\", \"lineweight\": 25}],\n"
         "\"styles\": [{\"name\": \"_TOLV_DIM\", \"font\": \"gbenor.shx\", \"bigfont\": \"gbcbig.shx\", \"width\": 0.7,"
         " \"xdata\": {\"_MRV\": [[1040, 1.0], [1040, 1.0], [1070, 3]]}},\n"
         " {\"name\": \"_TOLV_TITLE\", \"font\": \"gbeitc.shx\", \"bigfont\": \"gbcbig.shx\", \"width\": 0.8,"
         " \"xdata\": {\"_MRV\": [[1040, 1.2], [1040, 1.0], [1070, 2]]}},\n"
         " {\"name\": \"_TOLV_TEXT\", \"font\": \"gbenor.shx\", \"bigfont\": \"gbcbig.shx\", \"width\": 0.7,"
         " \"xdata\": {\"_MRV\": [[1040, 1.0], [1040, 1.0], [1070, 7]]}}],\n"
         "\"appids\": [\"ACAD\", \"_MRV\"],\n"
         "\"dimstyles\": [{\"name\": \"_TOLV_DIM(100)\", \"dimtxsty\": \"_TOLV_DIM\", \"dimblk\": \"_ARCHTICK\","
         " \"vars\": {" + common + ", \"dimtxt\": 2.5, \"dimasz\": 1.0, \"dimlfac\": 100.0, \"dimdec\": 0, \"dimtad\": 1,"
         " \"dimclrt\": 3}},\n"
         " {\"name\": \"_TOLV_DIM\", \"dimtxsty\": \"_TOLV_DIM\", \"dimblk\": \"_ARCHTICK\", \"vars\": {\"dimlfac\": 1.0,"
         " \"dimdec\": 0, \"dimtad\": 1, \"dimclrt\": 3}},\n"
         " {\"name\": \"_TOLV_ELEV\", \"dimtxsty\": \"_TOLV_TEXT\", \"dimblk\": \"_DOT\", \"vars\": {\"dimtxt\": 3.5,"
         " \"dimgap\": 0.8, \"dimdle\": 1.0, \"dimclrt\": 7, \"dimtad\": 1}},\n"
         " {\"name\": \"_TOLV_ARC(50)\", \"dimtxsty\": \"_TOLV_DIM\", \"dimblk\": \"_ARCHTICK\", \"vars\": {\"dimlfac\": 50.0,"
         " \"dimtad\": 3}},\n"
         " {\"name\": \"_TOLV_ANGLE\", \"dimtxsty\": \"_TOLV_DIM\", \"vars\": {\"dimlfac\": 1.0, \"dimtad\": 3,"
         " \"dimasz\": 2.5}},\n"
         " {\"name\": \"_TOLV_DIM_ARROW(mm-M)\", \"dimtxsty\": \"_TOLV_DIM\", \"vars\": {" + common +
         ", \"dimlfac\": 0.001, \"dimdec\": 2, \"dimpost\": \"<>m\", \"dimtad\": 1, \"dimclrt\": 3}},\n"
         " {\"name\": \"_TOLV_DIM_ARROW(100-M)\", \"dimtxsty\": \"_TOLV_DIM\", \"vars\": {\"dimlfac\": 100.0,"
         " \"dimdec\": 2, \"dimpost\": \"<>m\"}}],\n"
         "\"modelspace\": [\"TOLV_OPENING\", \"TOLV_OPENING\", \"TOLV_OPENING\", \"TOLV_OPENING\", \"TOLV_OPENING\","
         " \"TOLV_DORMER\", \"TOLV_CORNER_WIN\", \"TOLV_CORNER_WIN\"],\n"
         "\"dictionaries\": [{\"path\": [\"TOLV_MATERIALS\"], \"keys\": [" + materials + "],\n"
         " \"entries\": {\"砖\": {\"type\": \"TOLVMATERIAL\", \"tags\": {\"1\": \"砖\", \"2\": \"ANSI31\", \"62\": 1,"
         " \"90\": 60}},\n  \"陶粒混凝土\": {\"type\": \"TOLVMATERIAL\", \"tags\": {\"1\": \"陶粒混凝土\", \"2\": \"SOLID\"}}}}]\n}\n";
}

TEST_F(SessionDrawingTest, IndependentReaderAuditsCleanAndReadsEverythingBack) {
  if (::access(kPython, X_OK) != 0) {
    GTEST_SKIP() << "SKIPPED: " << kPython << " is missing, so the drawing can't be checked by ezdxf; "
                 << "install python3 and python3-ezdxf (make test does) to run this check";
  }
  ASSERT_EQ(::system((std::string(kPython) + " -c 'import ezdxf' 2>/dev/null").c_str()), 0)
      << "python3 is here but ezdxf is not: install python3-ezdxf (make test does)";
  tolvtest::WriteFileBytes(dir_.path() / "expect.json", Expectations());
  std::string out;
  const int rc = RunCommand(std::string(kPython) + " " + Quote(TOLV_SOURCE_DIR "/tests/acad/ezdxf_check.py") + " check " +
                         Quote(drawing_) + " " + Quote((dir_.path() / "expect.json").string()),
                     out);
  EXPECT_EQ(rc, 0) << out;
  EXPECT_NE(out.find("audit: 0 errors"), std::string::npos) << out;
  EXPECT_EQ(out.find("FAIL"), std::string::npos) << out;
}

}  // namespace
