// The language as the host and the `tolv lang` command show it: the module
// starts in English from the bundled support folder, its own messages come
// out translated, and the package tools read and write their files.
#include <gtest/gtest.h>

#include <filesystem>

#include "HostProcess.h"
#include "platform/windows/PeWriter.h"
#include "platform/windows/ResourceTemplates.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;

class LanguageLines : public ::testing::Test {
 protected:
  LanguageLines() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
  }
  fs::path support() const { return work_.path() / "support"; }
  HostRun Host(const std::string &script) {
    const std::string path = (work_.path() / "lines.scr").string();
    tolvtest::WriteFileBytes(path, script);
    return RunHostProgram({"host", "--module", TOLV_MODULE_PATH, "--main-dir", support().string(), "--script", path},
                          work_.str());
  }
  HostRun Lang(std::vector<std::string> args) {
    args.insert(args.begin(), "lang");
    return RunHostProgram(args, work_.str());
  }

  tolvtest::ScratchDir work_{"language-lines"};
};

TEST_F(LanguageLines, ModuleStartsInEnglishAndTranslatesItsOwnMessages) {
  fs::remove(support() / "HistoryData.xml");
  HostRun run = Host("LANG\nTL \\n加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!\nTL 没有的\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("Failed to load the history data: HistoryData.xml was not found!\n"), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("Language: Eng; package \"SenvarCAD Arch Language Package-English\" with 1 modules; "
                         "translation on"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("\\nFailed to load the history data"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\n没有的\n"), std::string::npos) << run.out;
}

TEST_F(LanguageLines, HomeLanguageShowsTheChineseMessages) {
  tolvtest::WriteFileBytes(support() / "Set.ini", "[system]\nlanguage=Chs\n");
  fs::remove(support() / "HistoryData.xml");
  HostRun run = Host("LANG\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("Language: Chs;"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("translation off"), std::string::npos) << run.out;
}

TEST_F(LanguageLines, ReplaceCommandListsTheSourceLines) {
  fs::create_directories(support() / "sources" / "TolvDataBase");
  tolvtest::WriteFileBytes(support() / "sources" / "TolvDataBase" / "Wall.cpp",
                           "acutPrintf(_T(\"\\n墙\"));\nint x = 0;\n");
  HostRun run = Host("KyReplaceLang\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("acutPrintf(_TL(\"\\n墙\"));"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("Listing done"), std::string::npos) << run.out;
}

TEST_F(LanguageLines, ExportCommandWithoutTheModuleListShowsTheMessage) {
  HostRun run = Host("KyExLang\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("[message box] Opening "), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("acad.rx failed!"), std::string::npos) << run.out;
}

TEST_F(LanguageLines, StatsCountTranslatedEntriesAndRefuseWhatIsNoPackage) {
  HostRun stats = Lang({"stats", (support() / "TolvLanguage.xml").string()});
  ASSERT_EQ(stats.status, 0) << stats.err;
  EXPECT_NE(stats.out.find("TOLVDATABASE/CODESTRING: 14 entries, 14 translated, 0 untranslated"), std::string::npos)
      << stats.out;
  tolvtest::WriteFileBytes(work_.path() / "bad.xml", "<NotADictionary/>");
  HostRun bad = Lang({"stats", (work_.path() / "bad.xml").string()});
  EXPECT_EQ(bad.status, 2);
  EXPECT_NE(bad.err.find("bad.xml: not a language package"), std::string::npos) << bad.err;
  HostRun missing = Lang({"stats", (work_.path() / "missing.xml").string()});
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("missing.xml: cannot be read"), std::string::npos) << missing.err;
  HostRun usage = Lang({});
  EXPECT_EQ(usage.status, 2);
  HostRun help = Lang({"stats", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("usage: tolv lang"), std::string::npos);
}

TEST_F(LanguageLines, ShowRefusesFilesThatAreNotModules) {
  tolvtest::WriteFileBytes(work_.path() / "text.dll", "plain text, no module");
  HostRun notPe = Lang({"show", (work_.path() / "text.dll").string(), "--strings"});
  EXPECT_EQ(notPe.status, 2);
  EXPECT_NE(notPe.err.find("text.dll: is not a Windows module"), std::string::npos) << notPe.err;
  tolvtest::WriteFileBytes(work_.path() / "short.dll", std::string("MZ\0\0", 4));
  HostRun truncated = Lang({"show", (work_.path() / "short.dll").string(), "--strings"});
  EXPECT_EQ(truncated.status, 2);
  EXPECT_NE(truncated.err.find("short.dll: is truncated"), std::string::npos) << truncated.err;
  HostRun missing = Lang({"show", (work_.path() / "none.dll").string(), "--menu", "1"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("none.dll: cannot be opened"), std::string::npos) << missing.err;
  HostRun twoKinds = Lang({"show", (work_.path() / "none.dll").string(), "--menu", "1", "--strings"});
  EXPECT_EQ(twoKinds.status, 2);
}

TEST_F(LanguageLines, ExportWritesAPackageAndMergeKeepsTranslations) {
  fs::create_directories(work_.path() / "src" / "TolvDataBase");
  tolvtest::WriteFileBytes(work_.path() / "src" / "TolvDataBase" / "A.cpp", "x = _T(\"墙体\"); y = _T(\"门\");\n");
  tolvtest::WriteFileBytes(work_.path() / "acad.rx", "TolvDataBase.arx\n");
  const std::string list = (work_.path() / "acad.rx").string(), src = (work_.path() / "src").string();
  const std::string out = (work_.path() / "fresh.xml").string();
  HostRun fresh = Lang({"export", "--modules", list, "--sources", src, "--out", out});
  ASSERT_EQ(fresh.status, 0) << fresh.err;
  EXPECT_NE(fresh.out.find("module (not loaded) "), std::string::npos) << fresh.out;
  HostRun stats = Lang({"stats", out});
  EXPECT_NE(stats.out.find("TOLVDATABASE/CODESTRING: 2 entries, 0 translated, 2 untranslated"), std::string::npos)
      << stats.out;
  // A translation of one entry, and one entry the sources no longer have.
  std::string text = tolvtest::ReadFileBytes(out);
  text.replace(text.find("localname=\"墙体\""), std::string("localname=\"墙体\"").size(), "localname=\"Wall\"");
  tolvtest::WriteFileBytes(work_.path() / "old.xml", text);
  tolvtest::WriteFileBytes(work_.path() / "src" / "TolvDataBase" / "A.cpp", "x = _T(\"墙体\"); z = _T(\"窗\");\n");
  const std::string merged = (work_.path() / "merged.xml").string();
  HostRun merge = Lang({"export", "--modules", list, "--sources", src, "--out", merged, "--merge",
                        (work_.path() / "old.xml").string()});
  ASSERT_EQ(merge.status, 0) << merge.err;
  const std::string result = tolvtest::ReadFileBytes(merged);
  EXPECT_NE(result.find("localname=\"Wall\""), std::string::npos) << result;
  EXPECT_NE(result.find("name=\"窗\""), std::string::npos) << result;
  EXPECT_EQ(result.find("name=\"门\""), std::string::npos) << result;
  HostRun noList = Lang({"export", "--modules", (work_.path() / "none.rx").string(), "--sources", src, "--out", out});
  EXPECT_EQ(noList.status, 2);
  EXPECT_NE(noList.err.find("none.rx: cannot be read"), std::string::npos) << noList.err;
}

}  // namespace

namespace {

// A module with one dialog in Chinese and English.
std::string BilingualModule() {
  auto dialog = [](const wchar_t *caption, const wchar_t *button, const wchar_t *label) {
    tolv::DialogTemplate d;
    d.style = 0x80C80080u;
    d.title = caption;
    tolv::DialogItemTemplate ok, text;
    ok.id = 1;
    ok.windowClass.id = 0x80;
    ok.title.text = button;
    text.id = 2;
    text.windowClass.id = 0x82;
    text.title.text = label;
    d.items = {ok, text};
    return tolv::WriteDialogTemplate(d);
  };
  tolv::ResName type, name;
  type.id = 5;
  name.id = 101;
  return tolv::WritePeImage({{type, name, 0x0804, dialog(L"墙设置", L"确定", L"墙高")},
                             {type, name, 0x0409, dialog(L"Wall settings", L"OK", L"Wall height")}});
}

}  // namespace

TEST_F(LanguageLines, ExportedAndFilledPackageTranslatesTheModulesDialog) {
  fs::create_directories(work_.path() / "mods");
  fs::create_directories(work_.path() / "src");
  tolvtest::WriteFileBytes(work_.path() / "mods" / "TolvSample.arx", BilingualModule());
  tolvtest::WriteFileBytes(work_.path() / "mods" / "acad.rx", "TolvSample.arx\n");
  const std::string list = (work_.path() / "mods" / "acad.rx").string();
  const std::string chinese = (work_.path() / "chinese.xml").string();
  HostRun exported = Lang({"export", "--modules", list, "--sources", (work_.path() / "src").string(), "--out", chinese});
  ASSERT_EQ(exported.status, 0) << exported.err;
  HostRun filled = Lang({"fill", chinese, "--modules", list, "--language", "0x0409", "--out",
                         (support() / "TolvLanguage.xml").string()});
  ASSERT_EQ(filled.status, 0) << filled.err;
  EXPECT_NE(filled.out.find("1 dialogs, 2 controls"), std::string::npos) << filled.out;
  HostRun run = Host("LANGDIALOG " + (work_.path() / "mods" / "TolvSample.arx").string() + " 101\n");
  ASSERT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("DIALOG 101 \"Wall settings\"\n  Button \"OK\"\n  Static \"Wall height\""), std::string::npos)
      << run.out;
  HostRun missing = Host("LANGDIALOG " + (work_.path() / "mods" / "TolvSample.arx").string() + " 102\n");
  EXPECT_EQ(missing.status, 3);
  EXPECT_NE(missing.out.find("no dialog 102"), std::string::npos) << missing.out;
  HostRun bad = Lang({"fill", chinese, "--modules", list, "--out", chinese});
  EXPECT_EQ(bad.status, 2);
}
