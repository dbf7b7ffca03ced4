// `tolv layer` and the standards' host lines as their users meet them:
// readable answers, exit statuses, and bad input refused cleanly.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "support/TestSupport.h"

namespace {

std::string Quote(const std::string &s) {
  std::string out = "'";
  for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

int Tolv(const std::string &args, std::string &output, bool withErrors = true) {
  output.clear();
  FILE *pipe = ::popen((Quote(TOLV_HOST_PATH) + " " + args + (withErrors ? " 2>&1" : " 2>/dev/null")).c_str(), "r");
  if (!pipe) return -1;
  char buffer[4096];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  const int status = ::pclose(pipe);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

const std::string kSupport = Quote(TOLV_SOURCE_DIR "/share/support");

TEST(LayerCommandTest, ResolvesKeysAndSaysWhatGaveThem) {
  std::string out;
  ASSERT_EQ(Tolv("layer --main-dir " + kSupport + " WALL DOOR-NUM PUB_HATCH AXIS-HIDE", out), 0) << out;
  EXPECT_NE(out.find("standard TOLV"), std::string::npos) << out;
  EXPECT_NE(out.find("WALL: layer \"WALL\" (墙), colour 7, line type CONTINUOUS, line weight 50, line scale 1; "
                     "from its fields"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("DOOR-NUM: layer \"WINDOW_TEXT\""), std::string::npos) << out;
  EXPECT_NE(out.find("from both the key's entry and its fields"), std::string::npos) << out;
  EXPECT_NE(out.find("PUB_HATCH: layer \"PUB_HATCH\" (填充), colour 8"), std::string::npos) << out;
  EXPECT_NE(out.find("; from the key's entry"), std::string::npos) << out;
  EXPECT_NE(out.find("AXIS-HIDE: layer \"AXIS-HIDD\" (轴线-虚线), colour 8, line type HIDDEN, line weight 13, "
                     "line scale 50"),
            std::string::npos)
      << out;
}

TEST(LayerCommandTest, AnotherStandard) {
  std::string out;
  ASSERT_EQ(Tolv("layer --main-dir " + kSupport + " --std GB WALL-CONC", out), 0) << out;
  EXPECT_NE(out.find("WALL-CONC: layer \"墙-混凝土\""), std::string::npos) << out;
}

TEST(LayerCommandTest, UnresolvedKeyExitsOneNamingTheFile) {
  std::string out;
  EXPECT_EQ(Tolv("layer --main-dir " + kSupport + " WALL NOSUCH-KEY", out), 1);
  EXPECT_NE(out.find("WALL: layer"), std::string::npos) << out;
  EXPECT_NE(out.find("config.xml: key NOSUCH-KEY does not resolve in standard TOLV"), std::string::npos) << out;
}

TEST(LayerCommandTest, BadUsageAndUnreadableSettingsExitTwo) {
  tolvtest::ScratchDir dir("layer-command");
  std::string out;
  EXPECT_EQ(Tolv("layer WALL", out), 2);
  EXPECT_NE(out.find("usage: tolv layer"), std::string::npos) << out;
  EXPECT_EQ(Tolv("layer --main-dir " + kSupport, out), 2);
  EXPECT_EQ(Tolv("layer --main-dir " + kSupport + " --bogus WALL", out), 2);
  EXPECT_NE(out.find("unknown option --bogus"), std::string::npos) << out;
  EXPECT_EQ(Tolv("layer --main-dir " + Quote(dir.str()) + " WALL", out), 2);
  EXPECT_NE(out.find("config.xml: no such settings file"), std::string::npos) << out;
  tolvtest::WriteFileBytes(dir.path() / "config.xml", "<TolvDictionary><Directory name=\"LAYER\">");
  EXPECT_EQ(Tolv("layer --main-dir " + Quote(dir.str()) + " WALL", out), 2);
  EXPECT_NE(out.find("not a settings file"), std::string::npos) << out;
  tolvtest::WriteFileBytes(dir.path() / "config.xml", "<TolvDictionary><Int name=\"LAYER\">1</Int></TolvDictionary>");
  EXPECT_EQ(Tolv("layer --main-dir " + Quote(dir.str()) + " WALL", out), 2);
  EXPECT_NE(out.find("no layer standards"), std::string::npos) << out;
  EXPECT_EQ(Tolv("layer --main-dir " + kSupport + " --std NOPE WALL", out), 2);
  EXPECT_NE(out.find("unknown layer standard \"NOPE\" (standards: TOLV, GB)"), std::string::npos) << out;
  EXPECT_EQ(Tolv("layer --help", out), 0);
  EXPECT_NE(out.find("Exit status"), std::string::npos) << out;
}

TEST(StandardsHostLinesTest, BadLinesFailCleanly) {
  tolvtest::ScratchDir dir("standards-lines");
  std::filesystem::copy(std::filesystem::path(TOLV_SOURCE_DIR) / "share/support", dir.path() / "support",
                        std::filesystem::copy_options::recursive);
  tolvtest::WriteFileBytes(dir.path() / "bad.scr",
                           "LAYER\nLAYER NOSUCH\nDIMSTYLE LINEAR abc\nDIMSTYLE NOSUCH 0\nLINEARDIM\nANGLEDIM 3\n"
                           "MATERIAL\nMATERIAL \"\"\nOPENING 0 900\nOPENING x 900 2100\nOPENING 0 -1 2100\n"
                           "DORMER 900\nCORNERWIN 1200 1500\nCORNERWIN 1200,-3 1500\nCORNERWIN 1,2,3,4 1500\n"
                           "TEXTSTYLE NOSUCH\nDIMUNIT 7\nLAYERNAME [~\nOPENING 0 900 2100\nQUIT\n");
  std::string out;
  const int rc = Tolv("host --main-dir " + Quote((dir.path() / "support").string()) + " --script " +
                          Quote((dir.path() / "bad.scr").string()),
                      out);
  // The host ends normally and reports that lines failed.
  EXPECT_EQ(rc, 3) << out;
  for (const char *want : {"LAYER needs one key", "LAYER NOSUCH: the key does not resolve",
                           "DIMSTYLE needs a key and a scale", "DIMSTYLE NOSUCH: no such dimension style",
                           "LINEARDIM needs a scale", "ANGLEDIM takes nothing", "MATERIAL needs a name",
                           "OPENING needs a kind", "DORMER needs the width", "CORNERWIN needs two or three",
                           "TEXTSTYLE NOSUCH: no such text style", "DIMUNIT needs 0", "LAYERNAME [~: \"\"",
                           "OPENING: label \"M0921\""}) {
    EXPECT_NE(out.find(want), std::string::npos) << want << "\n" << out;
  }
}

}  // namespace
