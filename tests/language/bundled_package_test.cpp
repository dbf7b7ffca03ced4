// The language files bundled with the support folder.
#include "LanguageFixture.h"

using langtest::LanguageTest;

namespace {

void CopyBundled(const std::filesystem::path &to) {
  for (const char *name : {"Set.ini", "TolvLanguage.xml"})
    std::filesystem::copy_file(std::filesystem::path(TOLV_SOURCE_DIR) / "share" / "support" / name, to / name);
}

}  // namespace

TEST_F(LanguageTest, BundledSetIniStartsTheModuleInEnglish) {
  CopyBundled(dir_.path());
  InitLanguage();
  EXPECT_EQ(g_strCurLanguage, CString(L"Eng"));
  ASSERT_NE(g_pTolvLangSwitch, nullptr);
  EXPECT_EQ(_TL(L"\n加载选项配置文件失败！未找到配置文件config.xml。"),
            CString(L"\nFailed to load the options: config.xml was not found."));
  EXPECT_EQ(_TL(L"\n保存历史数据文件失败！未找到历史数据记录文件HistoryData.xml!"),
            CString(L"\nFailed to save the history data: HistoryData.xml was not found!"));
  EXPECT_EQ(_TL(L" 楼层号重复!"), CString(L" Floor number repeated!"));
  // Tabs and line feeds inside a key survive the XML form.
  const CString warning = _TL(
      L"一个数据行的长度超过了80个字符,该行起始处已加上“;;?”标志,\t\t\t\t\t \n请找到出现“;;?”标志的数据行，"
      L"手动调整数据精度使长度不超过80个字符,\t\t\t\t\t \n最后去掉“;;?”标志!");
  EXPECT_EQ(warning.Left(14), CString(L"A data line is"));
  EXPECT_NE(warning.Find(L"\t\t\t\t\t \nFind"), -1);
}

TEST_F(LanguageTest, BundledToolPathsAreReadFromSetIni) {
  CopyBundled(dir_.path());
  LanguageToolContext context;
  LoadLanguageToolPaths(context);
  const CString main = GetMainDirectory();
  EXPECT_EQ(context.packagePath, main + L"TolvLanguage.export.xml");
  EXPECT_EQ(context.moduleListPath, main + L"modules\\acad.rx");
  EXPECT_EQ(context.sourceRoot, main + L"sources");
}
