// The utility module's support-file search, main directory and text cutting.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

// Sets or clears an environment variable and puts the old value back.
class EnvVar {
 public:
  explicit EnvVar(const char *name) : name_(name) {
    if (const char *v = std::getenv(name)) old_ = v;
  }
  ~EnvVar() {
    if (old_) ::setenv(name_, old_->c_str(), 1);
    else ::unsetenv(name_);
  }
  void Set(const std::string &value) { ::setenv(name_, value.c_str(), 1); }
  void Clear() { ::unsetenv(name_); }

 private:
  const char *name_;
  std::optional<std::string> old_;
};

class SupportFilesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    supportPath_.Clear();
    mainDir_.Clear();
  }
  void TearDown() override { tolv::SetMainDirectory(L""); }

  static std::wstring Wide(const fs::path &p) { return tolv::FromUtf8(p.string()); }
  // What FindFile gave, as a path on this disk.
  static std::string OnDisk(const CString &found) { return tolv::MapPath(found.GetString()); }

  EnvVar supportPath_{"TOLV_SUPPORT_PATH"};
  EnvVar mainDir_{"TOLV_MAIN_DIR"};
};

TEST_F(SupportFilesTest, MainDirectoryHasTheSystemFormAndAClosingBackslash) {
  tolv::SetMainDirectory(L"/opt/tolv");
  EXPECT_EQ(GetMainDirectory().str(), L"\\opt\\tolv\\");
  tolv::SetMainDirectory(L"/opt/tolv/");
  EXPECT_EQ(GetMainDirectory().str(), L"\\opt\\tolv\\");
  tolv::SetMainDirectory(L"D:\\Tolv\\");
  EXPECT_EQ(GetMainDirectory().str(), L"D:\\Tolv\\");
}

TEST_F(SupportFilesTest, MainDirectoryFallsBackToEnvironmentThenWorkingFolder) {
  tolv::SetMainDirectory(L"");
  mainDir_.Set("/srv/\xE6\xA5\xBC");
  EXPECT_EQ(GetMainDirectory().str(), L"\\srv\\楼\\");
  mainDir_.Clear();
  std::wstring cwd = Wide(fs::current_path());
  for (auto &c : cwd)
    if (c == L'/') c = L'\\';
  if (cwd.back() != L'\\') cwd += L'\\';
  EXPECT_EQ(GetMainDirectory().str(), cwd);
  // The override wins over the environment.
  mainDir_.Set("/from/env");
  tolv::SetMainDirectory(L"/from/override");
  EXPECT_EQ(GetMainDirectory().str(), L"\\from\\override\\");
}

TEST_F(SupportFilesTest, SearchOrderSupportPathThenMainThenSupportFolder) {
  tolvtest::ScratchDir env1("support_env1"), env2("support_env2"), main("support_main");
  fs::create_directories(main.path() / "Support");
  tolvtest::WriteFileBytes(env2.path() / "config.xml", "env2");
  tolvtest::WriteFileBytes(main.path() / "config.xml", "main");
  tolvtest::WriteFileBytes(main.path() / "Support" / "config.xml", "support");
  tolv::SetMainDirectory(main.wide());
  supportPath_.Set(env1.str() + ";" + env2.str());

  CString path;
  ASSERT_TRUE(FindFile(L"config.xml", path));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "env2");
  EXPECT_TRUE(path.str().ends_with(L"\\config.xml"));

  // The first folder of the search path that has the file wins.
  tolvtest::WriteFileBytes(env1.path() / "config.xml", "env1");
  ASSERT_TRUE(FindFile(L"config.xml", path));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "env1");

  supportPath_.Clear();
  ASSERT_TRUE(FindFile(L"config.xml", path));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "main");
  EXPECT_EQ(path.str(), GetMainDirectory().str() + L"config.xml");

  fs::remove(main.path() / "config.xml");
  ASSERT_TRUE(FindFile(L"config.xml", path));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "support");
  EXPECT_EQ(path.str(), GetMainDirectory().str() + L"Support\\config.xml");

  fs::remove(main.path() / "Support" / "config.xml");
  EXPECT_FALSE(FindFile(L"config.xml", path));
}

TEST_F(SupportFilesTest, NameMatchesWithoutCaseAndGivesTheDiskSpelling) {
  tolvtest::ScratchDir main("support_case");
  fs::create_directories(main.path() / "support");
  tolvtest::WriteFileBytes(main.path() / "HistoryData.xml", "h");
  tolvtest::WriteFileBytes(main.path() / "support" / "UIConfig.xml", "u");
  tolv::SetMainDirectory(main.wide());
  CString path;
  ASSERT_TRUE(FindFile(L"historydata.xml", path));
  EXPECT_EQ(path.str(), GetMainDirectory().str() + L"HistoryData.xml");
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "h");
  // The "Support" folder itself is found in any case.
  ASSERT_TRUE(FindFile(L"uiconfig.XML", path));
  EXPECT_TRUE(path.str().ends_with(L"UIConfig.xml"));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "u");
}

TEST_F(SupportFilesTest, ChineseFileNames) {
  tolvtest::ScratchDir main("support_cn");
  tolvtest::WriteFileBytes(main.path() / fs::u8path("\xE6\xA8\xA1\xE6\x9D\xBF.orpx"), "t");
  tolv::SetMainDirectory(main.wide());
  CString path;
  ASSERT_TRUE(FindFile(L"模板.orpx", path));
  EXPECT_EQ(tolvtest::ReadFileBytes(OnDisk(path)), "t");
}

TEST_F(SupportFilesTest, FoldersAreNotFiles) {
  tolvtest::ScratchDir main("support_folder");
  fs::create_directories(main.path() / "Set.ini");
  tolv::SetMainDirectory(main.wide());
  CString path;
  EXPECT_FALSE(FindFile(L"Set.ini", path));
}

TEST_F(SupportFilesTest, NamesWithAFolderPartAreTakenAsTheyStand) {
  tolvtest::ScratchDir dir("support_full");
  tolvtest::WriteFileBytes(dir.path() / "a.xml", "a");
  tolv::SetMainDirectory(L"/no/such/main");
  CString path;
  std::wstring full = dir.wide("a.xml");
  ASSERT_TRUE(FindFile(full.c_str(), path));
  EXPECT_EQ(path.str(), full);
  EXPECT_FALSE(FindFile(dir.wide("b.xml").c_str(), path));
  EXPECT_FALSE(FindFile(L"", path));
  EXPECT_FALSE(FindFile(nullptr, path));
}

TEST(CutStrToArrPieces, EmptyTextGivesNoPieces) {
  CStringArray pieces;
  pieces.Add(L"stale");
  EXPECT_EQ(CutStrToArr(L"", L";", pieces), 0);
  EXPECT_EQ(pieces.GetSize(), 0);
}

TEST(CutStrToArrPieces, TextWithoutSeparatorIsOnePiece) {
  CStringArray pieces;
  EXPECT_EQ(CutStrToArr(L"中文名称", L";", pieces), 1);
  EXPECT_EQ(pieces[0].str(), L"中文名称");
  EXPECT_EQ(CutStrToArr(L"a;b", L"", pieces), 1);
  EXPECT_EQ(pieces[0].str(), L"a;b");
}

TEST(CutStrToArrPieces, CutsAtAnySeparatorAndDropsEmptyPieces) {
  CStringArray pieces;
  pieces.Add(L"stale");
  EXPECT_EQ(CutStrToArr(L"a;b;c", L";", pieces), 3);
  EXPECT_EQ(pieces[0].str(), L"a");
  EXPECT_EQ(pieces[2].str(), L"c");
  EXPECT_EQ(CutStrToArr(L";;a;;b;", L";", pieces), 2);
  EXPECT_EQ(pieces[0].str(), L"a");
  EXPECT_EQ(pieces[1].str(), L"b");
  EXPECT_EQ(CutStrToArr(L"x, y;z", L",; ", pieces), 3);
  EXPECT_EQ(pieces[1].str(), L"y");
  EXPECT_EQ(CutStrToArr(L"甲，乙，丙", L"，", pieces), 3);
  EXPECT_EQ(pieces[2].str(), L"丙");
  EXPECT_EQ(CutStrToArr(L";;;", L";", pieces), 0);
}

}  // namespace
