// How the system's Windows-style paths reach the disk.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace {

using tolv::MapPath;
using tolv::SetDriveMapping;

std::wstring Backslashed(std::wstring path) {
  for (auto &c : path)
    if (c == L'/') c = L'\\';
  return path;
}

std::wstring Wide(const std::string &utf8) { return tolv::FromUtf8(utf8); }

// Clears a drive mapping however a test ends.
struct DriveMappingGuard {
  wchar_t letter;
  ~DriveMappingGuard() { SetDriveMapping(letter, ""); }
};

TEST(PathMapText, BackslashesBecomeSlashes) {
  EXPECT_EQ(MapPath(L"a\\b\\c.xml"), "a/b/c.xml");
  EXPECT_EQ(MapPath(L"\\no\\such\\root\\file"), "/no/such/root/file");
  EXPECT_EQ(MapPath(L""), "");
  EXPECT_EQ(MapPath(L"plain"), "plain");
}

TEST(PathMapText, ChineseNamesAreUtf8) {
  EXPECT_EQ(MapPath(L"\\nowhere\\楼层\\图纸.dwg"), "/nowhere/\xE6\xA5\xBC\xE5\xB1\x82/\xE5\x9B\xBE\xE7\xBA\xB8.dwg");
}

TEST(PathMapDrive, PrefixIsDroppedWithoutMapping) {
  SetDriveMapping(L'E', "");
  ASSERT_EQ(std::getenv("TOLV_DRIVE_E"), nullptr);
  EXPECT_EQ(MapPath(L"E:\\x"), "/x");
  EXPECT_EQ(MapPath(L"e:\\no_such_dir\\f.txt"), "/no_such_dir/f.txt");
  // A drive-relative form still lands at the root.
  EXPECT_EQ(MapPath(L"E:x"), "/x");
  EXPECT_EQ(MapPath(L"E:"), "/");
}

TEST(PathMapDrive, MappedThroughSetDriveMapping) {
  tolvtest::ScratchDir dir("path_drive");
  DriveMappingGuard guard{L'Q'};
  SetDriveMapping(L'q', dir.str());  // the letter is taken without case
  EXPECT_EQ(MapPath(L"Q:\\x\\y.txt"), dir.str() + "/x/y.txt");
  EXPECT_EQ(MapPath(L"q:\\x"), dir.str() + "/x");
  SetDriveMapping(L'Q', dir.str() + "/");  // a closing slash isn't doubled
  EXPECT_EQ(MapPath(L"Q:\\x"), dir.str() + "/x");
  SetDriveMapping(L'Q', "");
  EXPECT_EQ(MapPath(L"Q:\\x"), "/x");
}

TEST(PathMapDrive, MappedThroughEnvironment) {
  tolvtest::ScratchDir dir("path_env");
  ASSERT_EQ(std::getenv("TOLV_DRIVE_R"), nullptr);
  ::setenv("TOLV_DRIVE_R", dir.str().c_str(), 1);
  EXPECT_EQ(MapPath(L"R:\\data\\f.xml"), dir.str() + "/data/f.xml");
  EXPECT_EQ(MapPath(L"r:\\data"), dir.str() + "/data");
  // A mapping set in the program wins over the environment.
  {
    tolvtest::ScratchDir other("path_env_other");
    DriveMappingGuard guard{L'R'};
    SetDriveMapping(L'R', other.str());
    EXPECT_EQ(MapPath(L"R:\\f"), other.str() + "/f");
  }
  ::unsetenv("TOLV_DRIVE_R");
  EXPECT_EQ(MapPath(L"R:\\f"), "/f");
}

TEST(PathMapCase, ExactNamesAreKept) {
  tolvtest::ScratchDir dir("path_exact");
  std::filesystem::create_directories(dir.path() / "Sub");
  tolvtest::WriteFileBytes(dir.path() / "Sub" / "File.xml", "x");
  EXPECT_EQ(MapPath(Backslashed(dir.wide("Sub/File.xml"))), dir.str() + "/Sub/File.xml");
}

TEST(PathMapCase, MiddleAndLastComponentsMatchWithoutCase) {
  tolvtest::ScratchDir dir("path_case");
  std::filesystem::create_directories(dir.path() / "Support" / "Inner");
  tolvtest::WriteFileBytes(dir.path() / "Support" / "Inner" / "Config.XML", "x");
  std::string expected = dir.str() + "/Support/Inner/Config.XML";
  EXPECT_EQ(MapPath(Backslashed(dir.wide("support/Inner/Config.XML"))), expected);
  EXPECT_EQ(MapPath(Backslashed(dir.wide("Support/INNER/Config.XML"))), expected);
  EXPECT_EQ(MapPath(Backslashed(dir.wide("Support/Inner/config.xml"))), expected);
  EXPECT_EQ(MapPath(Backslashed(dir.wide("SUPPORT/inner/CONFIG.xml"))), expected);
}

TEST(PathMapCase, ChineseComponentsMatch) {
  tolvtest::ScratchDir dir("path_cn");
  std::filesystem::path folder = dir.path() / std::filesystem::u8path("\xE6\xA5\xBC\xE5\xB1\x82");
  std::filesystem::create_directories(folder);
  tolvtest::WriteFileBytes(folder / "A.txt", "x");
  EXPECT_EQ(MapPath(Wide(dir.str()) + L"\\楼层\\a.TXT"), folder.string() + "/A.txt");
}

TEST(PathMapCase, MissingComponentKeepsTheRestAsGiven) {
  tolvtest::ScratchDir dir("path_missing");
  std::filesystem::create_directories(dir.path() / "Real");
  // "real" resolves to "Real"; "NoSuch" exists in no case, so it and
  // everything after it stay as written.
  EXPECT_EQ(MapPath(Backslashed(dir.wide("real/NoSuch/Deeper/File.TXT"))),
            dir.str() + "/Real/NoSuch/Deeper/File.TXT");
  // A missing last component, as for a file about to be created.
  EXPECT_EQ(MapPath(Backslashed(dir.wide("REAL/New.xml"))), dir.str() + "/Real/New.xml");
}

TEST(PathMapCase, DotComponentsAndDoubleSeparators) {
  tolvtest::ScratchDir dir("path_dots");
  std::filesystem::create_directories(dir.path() / "A" / "B");
  EXPECT_EQ(MapPath(Backslashed(dir.wide("a/./b"))), dir.str() + "/A/./B");
  EXPECT_EQ(MapPath(Backslashed(dir.wide("a/../a/b"))), dir.str() + "/A/../A/B");
  EXPECT_EQ(MapPath(Backslashed(dir.wide("a//b"))), dir.str() + "/A/B");
}

TEST(PathMapCase, RelativePathsResolveFromTheWorkingFolder) {
  tolvtest::ScratchDir dir("path_rel");
  std::filesystem::create_directories(dir.path() / "Rel");
  tolvtest::WriteFileBytes(dir.path() / "Rel" / "X.txt", "x");
  auto old = std::filesystem::current_path();
  std::filesystem::current_path(dir.path());
  std::string mapped = MapPath(L"rel\\x.txt");
  std::filesystem::current_path(old);
  EXPECT_EQ(mapped, "Rel/X.txt");
}

TEST(PathMapSystemForm, SlashesBecomeBackslashes) {
  EXPECT_EQ(tolv::ToSystemPath("/tmp/a/b.xml"), L"\\tmp\\a\\b.xml");
  EXPECT_EQ(tolv::ToSystemPath("rel/\xE6\xA5\xBC\xE5\xB1\x82"), L"rel\\楼层");
  EXPECT_EQ(tolv::ToSystemPath(""), L"");
  // The two forms go back and forth.
  EXPECT_EQ(MapPath(tolv::ToSystemPath("/no/such/x")), "/no/such/x");
}

}  // namespace
