// The export and replace tools.
#include "LanguageFixture.h"
#include "TestModules.h"

using langtest::LanguageTest;

namespace {

std::wstring Local(KyDtDictionary &package, const wchar_t *path) {
  KyDtDictItem *item = package.FindItem(path);
  return item ? item->m_strLocalName.str() : L"<missing>";
}

std::wstring Attribute(KyDtDictionary &package, const wchar_t *path, const wchar_t *key) {
  KyDtDictItem *item = package.FindItem(path);
  return item ? item->GetAttributeValue(key).str() : L"<missing>";
}

}  // namespace

class ToolsTest : public LanguageTest {
 protected:
  ToolsTest() {
    root_ = tolv::ToSystemPath(dir_.str());
    std::filesystem::create_directories(dir_.path() / "modules");
    std::filesystem::create_directories(dir_.path() / "src" / "TolvUiModel" / "sub");
    std::filesystem::create_directories(dir_.path() / "src" / "Other");
    langtest::WriteBytes(dir_.path() / "modules" / "TolvUiModel.arx", langtest::SampleModule());
    langtest::WriteText(dir_.path() / "modules" / "acad.rx",
                        L"  TolvUiModel.arx\n"
                        L"TolvLoader.arx\n"
                        L";TolvObject.arx\n"
                        L"TolvSkipped.arx ; commented\n"
                        L"acad.lsp\n"
                        L"TolvMissing.arx.bak\n");
    context_.package = &package_;
    context_.moduleListPath = (root_ + L"\\modules\\acad.rx").c_str();
    context_.sourceRoot = (root_ + L"\\src").c_str();
    context_.packagePath = (root_ + L"\\out\\TolvLanguage.xml").c_str();
    std::filesystem::create_directories(dir_.path() / "out");
  }

  void WriteSource(const std::string &relative, const std::wstring &text) {
    langtest::WriteText(dir_.path() / "src" / relative, text);
  }

  std::wstring root_;
  KyDtDictionary package_;
  LanguageToolContext context_;
};

TEST_F(ToolsTest, ModuleListSkipsCommentsTheLoaderAndLinesWithoutArx) {
  CStringArray modules;
  bool opened = false;
  tolv::ReadModuleList(context_.moduleListPath, modules, opened);
  ASSERT_TRUE(opened);
  ASSERT_EQ(modules.GetSize(), 3);
  EXPECT_EQ(modules[0], CString(L"TOLVUIMODEL.ARX"));
  // Cut behind the first ".ARX".
  EXPECT_EQ(modules[1], CString(L"TOLVMISSING.ARX"));
  EXPECT_EQ(modules[2], CString(L"TOLVCOMCTRL9.DLL"));
}

TEST_F(ToolsTest, ModuleResourcesAreExportedFromTheChineseTemplates) {
  ExportModule(context_, (root_ + L"\\modules\\TolvUiModel.arx").c_str());
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\DIALOG\\101"), L"墙设置");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\DIALOG\\101", L"element_type"), L"DIALOG");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\DIALOG\\101\\确定"), L"确定");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\DIALOG\\101\\确定", L"element_type"), L"BUTTON");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\DIALOG\\101\\墙高", L"element_type"), L"STATIC");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\DIALOG\\101\\左;中;右", L"element_type"), L"COMBOBOX");
  // Edit controls and empty texts are passed over.
  EXPECT_EQ(package_.FindDict(L"TOLVUIMODEL\\DIALOG\\101")->GetLength(), 3);
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\MENU\\200", L"element_type"), L"MENU");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\MENU\\200"), L"200");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\MENU\\200\\文件", L"element_type"), L"MENUPOPUP");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\MENU\\200\\文件\\打开"), L"打开");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\MENU\\200\\文件\\路径#设置"), L"路径\\设置");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\MENU\\200\\帮助", L"element_type"), L"MENUITEM");
  EXPECT_EQ(package_.FindDict(L"TOLVUIMODEL\\MENU\\200\\文件")->GetLength(), 2);
  // String 17 loses its line feed; ids follow the block.
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\STRING\\17"), L"墙体名称");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\STRING\\18"), L"柱子");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\STRING\\18", L"element_type"), L"STRING");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\TOOLBAR\\300", L"element_type"), L"TOOLBAR");
  EXPECT_NE(package_.FindDict(L"TOLVUIMODEL\\CODESTRING"), nullptr);
  EXPECT_EQ(tolv::LiveWindowCount(), 0);
}

TEST_F(ToolsTest, ModuleThatDoesNotLoadKeepsItsEmptySections) {
  ExportModule(context_, (root_ + L"\\modules\\TolvMissing8.arx").c_str());
  KyDtDictionary *module = package_.FindDict(L"TOLVMISSING");
  ASSERT_NE(module, nullptr);
  EXPECT_EQ(module->GetLength(), 5);
  EXPECT_EQ(package_.FindDict(L"TOLVMISSING\\DIALOG")->GetLength(), 0);
}

TEST_F(ToolsTest, LiteralsWithChineseAreExportedWithoutQuotes) {
  ExportModule(context_, L"C:\\TolvUiModel.arx");
  ExportLineStrings(context_, L"  acutPrintf(_T(\"\\n墙体\")); CString s = \"plain text\";");
  ExportLineStrings(context_, L"  MessageBox('单引号'); x = \"路径\\\\文件\"; y = \"回车\\r\\n换行\";");
  KyDtDictionary *codes = package_.FindDict(L"TOLVUIMODEL\\CODESTRING");
  ASSERT_NE(codes, nullptr);
  EXPECT_EQ(codes->GetLength(), 4);
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\CODESTRING\\\n墙体"), L"\n墙体");
  EXPECT_EQ(Attribute(package_, L"TOLVUIMODEL\\CODESTRING\\\n墙体", L"element_type"), L"CODESTRING");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\CODESTRING\\单引号"), L"单引号");
  // A doubled backslash is "#" in the name; the local name keeps it.
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\CODESTRING\\路径#文件"), L"路径\\\\文件");
  EXPECT_EQ(Local(package_, L"TOLVUIMODEL\\CODESTRING\\回车\r\n换行"), L"回车\r\n换行");
  EXPECT_EQ(package_.FindItem(L"TOLVUIMODEL\\CODESTRING\\plain text"), nullptr);
}

TEST_F(ToolsTest, SourceWalkTakesTolvFoldersAndCppFilesOnly) {
  ExportModule(context_, L"C:\\TolvUiModel.arx");
  WriteSource("TolvUiModel/Wall.cpp", L"a = _T(\"墙\");\nb = \"no chinese\";\n");
  WriteSource("TolvUiModel/Wall.CPP", L"a = _T(\"大写\");\n");
  WriteSource("TolvUiModel/Wall.backup.cpp", L"a = _T(\"两个点\");\n");
  WriteSource("TolvUiModel/Wall.h", L"a = _T(\"头文件\");\n");
  WriteSource("TolvUiModel/sub/Deep.cpp", L"a = _T(\"子目录\");\n");
  WriteSource("Other/Other.cpp", L"a = _T(\"别的\");\n");
  ExportCodeStrings(context_, context_.sourceRoot);
  KyDtDictionary *codes = package_.FindDict(L"TOLVUIMODEL\\CODESTRING");
  ASSERT_NE(codes, nullptr);
  EXPECT_NE(codes->FindItem(L"墙"), nullptr);
  EXPECT_NE(codes->FindItem(L"大写"), nullptr);
  EXPECT_EQ(codes->FindItem(L"两个点"), nullptr);
  EXPECT_EQ(codes->FindItem(L"头文件"), nullptr);
  // "sub" has no "Tolv" in its name and "Other" isn't a module's folder.
  EXPECT_EQ(codes->FindItem(L"子目录"), nullptr);
  EXPECT_EQ(codes->FindItem(L"别的"), nullptr);
  EXPECT_EQ(codes->GetLength(), 2);
}

TEST_F(ToolsTest, MergeDropsWhatLeftTheSourcesAndKeepsTranslations) {
  KyDtDictionary fresh, old;
  fresh.SetValue(L"M\\CODESTRING\\甲", CString(L""));
  fresh.SetValue(L"M\\CODESTRING\\新", CString(L""));
  fresh.FindItem(L"M\\CODESTRING\\甲")->m_strLocalName = L"甲";
  fresh.FindItem(L"M\\CODESTRING\\新")->m_strLocalName = L"新";
  old.SetValue(L"M\\CODESTRING\\甲", CString(L""));
  old.SetValue(L"M\\CODESTRING\\旧", CString(L""));
  old.SetValue(L"GONE\\X", CString(L""));
  old.FindItem(L"M\\CODESTRING\\甲")->m_strLocalName = L"First";
  LanguageToolContext context;
  MergePackages(context, &fresh, &old);
  EXPECT_EQ(old.FindItem(L"M\\CODESTRING\\甲")->m_strLocalName, CString(L"First"));
  EXPECT_EQ(old.FindItem(L"M\\CODESTRING\\旧"), nullptr);
  EXPECT_EQ(old.FindItem(L"GONE"), nullptr);
  ASSERT_NE(old.FindItem(L"M\\CODESTRING\\新"), nullptr);
  EXPECT_EQ(old.FindItem(L"M\\CODESTRING\\新")->m_strLocalName, CString(L"新"));
  // The fresh export is not changed by the merge.
  EXPECT_EQ(fresh.FindDict(L"M\\CODESTRING")->GetLength(), 2);
}

TEST_F(ToolsTest, MergeLeavesItemsOfAnotherKindAsTheyAre) {
  KyDtDictionary fresh, old;
  fresh.SetValue(L"M\\A\\X", CString(L""));
  old.SetValue(L"M\\A", CString(L"value"));
  LanguageToolContext context;
  MergePackages(context, &fresh, &old);
  KyDtDictItem *a = old.FindItem(L"M\\A");
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(a->GetType(), KyDtDictItem::DT_STRING);
}

TEST_F(ToolsTest, ExportWithoutAPackageSavesTheFreshExportToThePackagePath) {
  WriteSource("TolvUiModel/Wall.cpp", L"a = _T(\"墙\");\n");
  ExportLanguage(context_);
  EXPECT_NE(printed_.find(L"\n导出完毕,数据已存入"), std::wstring::npos);
  EXPECT_NE(printed_.find(context_.packagePath.str()), std::wstring::npos);
  KyDtDictionary saved;
  ASSERT_TRUE(saved.ReadFromXML(context_.packagePath));
  EXPECT_EQ(saved.m_strName, CString(L"TOLV_LANGUAUE_PACKAGE"));
  EXPECT_EQ(saved.m_strLocalName, CString(L"SenvarCAD Arch Language Package-English"));
  EXPECT_EQ(Local(saved, L"TOLVUIMODEL\\DIALOG\\101"), L"墙设置");
  EXPECT_EQ(Local(saved, L"TOLVUIMODEL\\CODESTRING\\墙"), L"墙");
  EXPECT_NE(saved.FindDict(L"TOLVCOMCTRL"), nullptr);
  EXPECT_NE(saved.FindDict(L"TOLVMISSING"), nullptr);
}

TEST_F(ToolsTest, ExportMergesIntoThePackageFoundAndSavesItThere) {
  langtest::WriteText(dir_.path() / "TolvLanguage.xml",
                      langtest::Package(L"<Directory name=\"TOLVUIMODEL\" localname=\"TOLVUIMODEL\">"
                                        L"<Directory name=\"DIALOG\" localname=\"DIALOG\">"
                                        L"<Directory name=\"101\" localname=\"Wall settings\" element_type=\"DIALOG\">"
                                        L"<String name=\"确定\" localname=\"OK\" element_type=\"BUTTON\"/>"
                                        L"<String name=\"取消\" localname=\"Cancel\" element_type=\"BUTTON\"/>"
                                        L"</Directory></Directory></Directory>\n"));
  ExportLanguage(context_);
  EXPECT_FALSE(std::filesystem::exists(dir_.path() / "out" / "TolvLanguage.xml"));
  KyDtDictionary merged;
  ASSERT_TRUE(merged.ReadFromXML((root_ + L"\\TolvLanguage.xml").c_str()));
  EXPECT_EQ(Local(merged, L"TOLVUIMODEL\\DIALOG\\101"), L"Wall settings");
  EXPECT_EQ(Local(merged, L"TOLVUIMODEL\\DIALOG\\101\\确定"), L"OK");
  EXPECT_EQ(merged.FindItem(L"TOLVUIMODEL\\DIALOG\\101\\取消"), nullptr);
  EXPECT_EQ(Local(merged, L"TOLVUIMODEL\\DIALOG\\101\\墙高"), L"墙高");
  EXPECT_NE(merged.FindItem(L"TOLVUIMODEL\\MENU\\200"), nullptr);
}

TEST_F(ToolsTest, UnreadableModuleListStopsWithAMessageBox) {
  std::wstring shown;
  auto old = tolv::SetMessageBoxSink([&](const std::wstring &text, unsigned) {
    shown = text;
    return IDOK;
  });
  context_.moduleListPath = L"C:\\nowhere\\acad.rx";
  ExportLanguage(context_);
  tolv::SetMessageBoxSink(old);
  EXPECT_EQ(shown, L"打开C:\\nowhere\\acad.rx出错!");
  EXPECT_FALSE(std::filesystem::exists(dir_.path() / "out" / "TolvLanguage.xml"));
}

TEST_F(ToolsTest, NullPackageDoesNothing) {
  context_.package = nullptr;
  ExportLanguage(context_);
  EXPECT_TRUE(printed_.empty());
}

TEST_F(ToolsTest, ReplaceListsLinesWithTheLiteralsTurnedIntoTL) {
  WriteSource("TolvUiModel/Wall.cpp",
              L"a = _T(\"墙\") + _T(\"柱\");\nb = \"plain\";\nc = _t(\"small\");\n");
  WriteSource("TolvUiModel/sub/Deep.cpp", L"d = _T(\"deep\");\n");
  const std::string before = tolvtest::ReadFileBytes(dir_.path() / "src" / "TolvUiModel" / "Wall.cpp");
  ReplaceLanguage(context_);
  EXPECT_EQ(printed_, L"\na = _TL(\"墙\") + _TL(\"柱\");\nc = _TL(\"small\");\n替换完成\n替换完成");
  EXPECT_EQ(tolvtest::ReadFileBytes(dir_.path() / "src" / "TolvUiModel" / "Wall.cpp"), before);
}

TEST_F(ToolsTest, ToolPathsComeFromSetIni) {
  langtest::WriteText(dir_.path() / "Set.ini",
                      L"[system]\nlanguage=Eng\n[LanguageTools]\nPackage=D:\\p.xml\nSourceRoot=D:\\src\n");
  LanguageToolContext context;
  LoadLanguageToolPaths(context);
  EXPECT_EQ(context.packagePath, CString(L"D:\\p.xml"));
  EXPECT_EQ(context.sourceRoot, CString(L"D:\\src"));
  EXPECT_EQ(context.moduleListPath, CString(L"E:\\Tolv\\Orlan\\安装源\\R18\\acad.rx"));
}

TEST_F(ToolsTest, ExportedPackageTranslatesTheModuleItCameFrom) {
  // Export, fill the local names from the English resources, translate.
  ExportModule(context_, (root_ + L"\\modules\\TolvUiModel.arx").c_str());
  package_.FindItem(L"TOLVUIMODEL\\DIALOG\\101")->m_strLocalName = L"Wall settings";
  package_.FindItem(L"TOLVUIMODEL\\DIALOG\\101\\确定")->m_strLocalName = L"OK";
  package_.FindItem(L"TOLVUIMODEL\\DIALOG\\101\\左;中;右")->m_strLocalName = L"Left;Centre;Right";
  package_.FindItem(L"TOLVUIMODEL\\MENU\\200\\文件")->m_strLocalName = L"File";
  package_.FindItem(L"TOLVUIMODEL\\MENU\\200\\文件\\打开")->m_strLocalName = L"Open";
  package_.FindItem(L"TOLVUIMODEL\\STRING\\18")->m_strLocalName = L"Column";
  ASSERT_TRUE(package_.SaveToXML((root_ + L"\\TolvLanguage.xml").c_str()));
  langtest::WriteText(dir_.path() / "Set.ini", L"[system]\nlanguage=Eng\n");
  InitLanguage();
  ASSERT_NE(g_pTolvLangSwitch, nullptr);
  HMODULE module = LoadLibraryW((root_ + L"\\modules\\TolvUiModel.arx").c_str());
  ASSERT_NE(module, nullptr);
  KyDtDictionary *own = nullptr;
  {
    KyUtPushResource current(module, own);
    ASSERT_NE(own, nullptr);
    CDialog dialog;
    ASSERT_TRUE(dialog.Create(101u));
    g_pTolvLangSwitch->TranslateDialog(&dialog);
    CString caption;
    dialog.GetWindowText(caption);
    EXPECT_EQ(caption, CString(L"Wall settings"));
    wchar_t text[64];
    GetWindowTextW(GetDlgItem(dialog.m_hWnd, 1), text, 64);
    EXPECT_EQ(std::wstring(text), L"OK");
    SendMessageW(GetDlgItem(dialog.m_hWnd, 4), CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text));
    EXPECT_EQ(std::wstring(text), L"Centre");
    dialog.DestroyWindow();
    // On a machine of another code page the entries read as Latin-1 and
    // are repaired before the lookup.
    tolv::SetAnsiCodePage(1252);
    CDialog western;
    ASSERT_TRUE(western.Create(101u));
    SendMessageW(GetDlgItem(western.m_hWnd, 4), CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
    EXPECT_EQ(std::wstring(text), L"\xD7\xF3");
    g_pTolvLangSwitch->TranslateDialog(&western);
    SendMessageW(GetDlgItem(western.m_hWnd, 4), CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
    EXPECT_EQ(std::wstring(text), L"Left");
    western.DestroyWindow();
    tolv::SetAnsiCodePage(0);
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(200));
    g_pTolvLangSwitch->TranslateMenu(200, &menu);
    CString item;
    menu.GetMenuString(0, item, MF_BYPOSITION);
    EXPECT_EQ(item, CString(L"File"));
    menu.GetSubMenu(0)->GetMenuString(0, item, MF_BYPOSITION);
    EXPECT_EQ(item, CString(L"Open"));
    EXPECT_EQ(g_pTolvLangSwitch->LoadLangString(18), CString(L"Column"));
  }
  FreeLibrary(module);
}

TEST_F(ToolsTest, ModuleListWithOddLinesKeepsOnlyArxNames) {
  std::string odd = "\n   \n\t\tTolvA.arx\r\n" + std::string(100000, 'x') + ".arx\n" +
                    std::string("\xff\xfe\x00garbage.ARX.dll\n", 19) + "tolvloader.arx\n.arx\nTolvB.arx;\n";
  tolvtest::WriteFileBytes(dir_.path() / "modules" / "odd.rx", odd);
  CStringArray modules;
  bool opened = false;
  tolv::ReadModuleList((root_ + L"\\modules\\odd.rx").c_str(), modules, opened);
  ASSERT_TRUE(opened);
  ASSERT_EQ(modules.GetSize(), 5);
  // Leading blanks go; tabs are blanks too.
  EXPECT_EQ(modules[0], CString(L"TOLVA.ARX"));
  EXPECT_EQ(modules[1].GetLength(), 100004);
  EXPECT_EQ(modules[2].Right(11), CString(L"GARBAGE.ARX"));
  EXPECT_EQ(modules[3], CString(L".ARX"));
  EXPECT_EQ(modules[4], CString(L"TOLVCOMCTRL9.DLL"));
  // The export passes over every name that does not load.
  context_.moduleListPath = (root_ + L"\\modules\\odd.rx").c_str();
  ExportLanguage(context_);
  EXPECT_NE(printed_.find(L"导出完毕"), std::wstring::npos);
}
