// "UIConfig.xml": reading, binding in document order, the named map, the
// sections, and the XML form of every class.
#include <gtest/gtest.h>

#include "UiTestSupport.h"

namespace {

using UiDocument = UiTest;

const char kSections[] =
    "<Directory name=\"ALL_COMMAND_DEF\" localname=\"命令\">"
    "<CommandDef name=\"WALL\" title=\"墙体\" comment=\"绘制墙体\">KyWall</CommandDef>"
    "<CommandDef name=\"DOOR\" title=\"门\">KyDoor</CommandDef>"
    "</Directory>"
    "<Directory name=\"ALL_SWITCH_DEF\"><SwitchDef name=\"SW\" get=\"(getvar)\" set=\"(setvar)\">"
    "<SwitchStatus name=\"ON\">1</SwitchStatus><SwitchStatus name=\"OFF\">0</SwitchStatus></SwitchDef></Directory>"
    "<Directory name=\"ALL_CONTROL_DEF\"><Control name=\"LAYERS\" clsid=\"{1234}\"/></Directory>"
    "<Directory name=\"PARTS\"><Directory name=\"MENU\"><Reference>WALL</Reference><Separator/>"
    "<Reference title=\"开门\">DOOR</Reference></Directory></Directory>"
    "<Directory name=\"MENU_CONTEXT\"><MenuDef name=\"MENU_COMMON_MSPACE\"><Reference>WALL</Reference></MenuDef></Directory>"
    "<Directory name=\"STATUSBAR\"/>"
    "<Directory name=\"HOT_KEY\"><ShortCut name=\"F5\" command=\"KyWall\"/></Directory>"
    "<Directory name=\"SHORT_CMD\"><ShortCut name=\"QQ\" command=\"KyWall\"/></Directory>"
    "<ToolBoxDef name=\"TOOLBOX\" visible=\"TRUE\" autohide=\"FALSE\" right=\"TRUE\"><Reference>WALL</Reference></ToolBoxDef>"
    "<ToolBoxDef name=\"PROJECTBOX\" visible=\"TRUE\"/>"
    "<MenuDef name=\"MENU_SCREEN\"/><MenuDef name=\"MENU_DWG_LIB\"/><MenuDef name=\"MENU_EQUIP_LIB\"/>"
    "<MenuDef name=\"MENU_PRINT_SCALE\"/>"
    "<TolvDictionary name=\"COMMON_DICT\"><Directory name=\"DYN_PARAM\"><Int name=\"DYN_MAXDIMNUM\">6</Int>"
    "</Directory></TolvDictionary>";

TEST_F(UiDocument, EverySectionGetterAnswers) {
  KyDtUIConfig config;
  Read(config, kSections);
  EXPECT_TRUE(commandLine().empty()) << std::string(commandLine().begin(), commandLine().end()).size();
  ASSERT_NE(config.GetAllCommandDef(), nullptr);
  EXPECT_EQ(config.GetAllCommandDef()->GetLength(), 2);
  EXPECT_NE(config.GetAllSwitchDef(), nullptr);
  EXPECT_NE(config.GetAllControlDef(), nullptr);
  EXPECT_NE(config.GetAllMenuDef(), nullptr);
  EXPECT_NE(config.GetContextMenuDef(), nullptr);
  EXPECT_NE(config.GetStatusBarDef(), nullptr);
  EXPECT_NE(config.GetHotKeyDef(), nullptr);
  EXPECT_NE(config.GetShortCmdDef(), nullptr);
  EXPECT_NE(config.GetToolBoxDef(), nullptr);
  EXPECT_NE(config.GetProjectBoxDef(), nullptr);
  EXPECT_NE(config.GetScreenMenuDef(), nullptr);
  EXPECT_NE(config.GetDwgLibMenuDef(), nullptr);
  EXPECT_NE(config.GetEquipLibMenuDef(), nullptr);
  EXPECT_NE(config.GetScaleMenuDef(), nullptr);
  ASSERT_NE(config.GetDictionary(L"COMMON_DICT"), nullptr);
  int maxDims = 0;
  EXPECT_TRUE(config.GetDictionary(L"COMMON_DICT")->GetDictionary().GetValue(L"DYN_PARAM\\DYN_MAXDIMNUM", maxDims));
  EXPECT_EQ(maxDims, 6);
  EXPECT_EQ(config.GetDictionary(L"MENU"), nullptr);
}

TEST_F(UiDocument, ASectionOfAnotherElementGivesNull) {
  KyDtUIConfig config;
  Read(config,
       "<MenuDef name=\"MENU\"/><Directory name=\"TOOLBOX\"/><Directory name=\"MENU_SCREEN\"/>"
       "<ToolBoxDef name=\"ALL_COMMAND_DEF\"/>");
  EXPECT_EQ(config.GetAllMenuDef(), nullptr);
  EXPECT_EQ(config.GetToolBoxDef(), nullptr);
  EXPECT_EQ(config.GetScreenMenuDef(), nullptr);
  EXPECT_EQ(config.GetAllCommandDef(), nullptr);
  EXPECT_NE(config.FindNamedItem(L"MENU"), nullptr);
}

TEST_F(UiDocument, ReferencesBindToEarlierItemsAndCountThem) {
  KyDtUIConfig config;
  Read(config, kSections);
  KyDtUIDirectory *menu = config.GetAllMenuDef();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->GetLength(), 3);
  KyDtUIItem *wall = config.FindNamedItem(L"WALL");
  ASSERT_NE(wall, nullptr);
  auto *first = static_cast<KyDtUIReference *>(menu->GetAt(0));
  EXPECT_EQ(first->GetReferencedItem(), wall);
  // Three references name WALL: the menu, the context menu, the tool box.
  EXPECT_EQ(wall->GetRefCount(), 3);
  auto *door = static_cast<KyDtUIReference *>(menu->GetAt(2));
  EXPECT_EQ(CString(door->GetTrueTitle()), CString(L"开门"));
  EXPECT_EQ(CString(door->GetTrueCommand()), CString(L"KyDoor"));
}

TEST_F(UiDocument, AFindsASectionDeepInTheTree) {
  KyDtUIConfig config;
  Read(config, kSections);
  KyDtUIItem *menu = config.FindNamedItem(L"MENU");
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(config.GetAllMenuDef(), menu);
  EXPECT_EQ(config.GetUIItem(L"MENU"), nullptr);
}

TEST_F(UiDocument, AReferenceBeforeItsTargetPrintsAndStaysUnbound) {
  KyDtUIConfig config;
  Read(config,
       "<Directory name=\"MENU\"><Reference>LATER</Reference></Directory>"
       "<Directory name=\"ALL_COMMAND_DEF\"><CommandDef name=\"LATER\">KyLater</CommandDef></Directory>");
  EXPECT_EQ(commandLine(), UnboundMessage(L"LATER"));
  auto *reference = static_cast<KyDtUIReference *>(config.GetAllMenuDef()->GetAt(0));
  EXPECT_EQ(reference->GetReferencedItem(), nullptr);
  EXPECT_EQ(config.FindNamedItem(L"LATER")->GetRefCount(), 0);
}

TEST_F(UiDocument, AReferenceWithANameIsRegisteredNotBound) {
  KyDtUIConfig config;
  Read(config, "<CommandDef name=\"WALL\">KyWall</CommandDef><Reference name=\"MYWALL\">WALL</Reference>");
  auto *reference = static_cast<KyDtUIReference *>(config.FindNamedItem(L"MYWALL"));
  ASSERT_NE(reference, nullptr);
  EXPECT_TRUE(reference->IsReference());
  EXPECT_EQ(reference->GetReferencedItem(), nullptr);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(UiDocument, AReferenceToItselfOrToItsOwnDirectoryStaysUnbound) {
  KyDtUIConfig config;
  Read(config, "<Reference>SELF</Reference><Directory name=\"DIR\"><Reference>DIR</Reference></Directory>");
  EXPECT_EQ(commandLine(), UnboundMessage(L"SELF") + UnboundMessage(L"DIR"));
}

TEST_F(UiDocument, TwoItemsOfOneNameKeepTheFirstInTheMap) {
  KyDtUIConfig config;
  Read(config,
       "<CommandDef name=\"WALL\">KyFirst</CommandDef><CommandDef name=\"WALL\">KySecond</CommandDef>"
       "<Reference>WALL</Reference>");
  EXPECT_EQ(CString(config.FindNamedItem(L"WALL")->GetData()), CString(L"KyFirst"));
  auto *reference = static_cast<KyDtUIReference *>(config.GetAt(2));
  EXPECT_EQ(CString(reference->GetTrueCommand()), CString(L"KyFirst"));
}

TEST_F(UiDocument, ChildrenAreRegisteredBeforeTheirDirectory) {
  KyDtUIConfig config;
  // The inner item takes the name first, so the directory doesn't get it.
  Read(config, "<Directory name=\"SAME\"><CommandDef name=\"SAME\">KyInner</CommandDef></Directory>");
  EXPECT_TRUE(config.FindNamedItem(L"SAME")->IsKindOf(L"CommandDef"));
}

TEST_F(UiDocument, AnotherRootGivesFalseAndAnUnchangedMap) {
  KyDtUIConfig config;
  Read(config, "<CommandDef name=\"WALL\">KyWall</CommandDef>");
  std::wstring other = WriteFile("other.xml", "<TolvDictionary><Directory name=\"X\"/></TolvDictionary>");
  EXPECT_FALSE(config.ReadFromXML(other.c_str()));
  EXPECT_NE(config.FindNamedItem(L"WALL"), nullptr);
  EXPECT_EQ(config.GetLength(), 1);
}

TEST_F(UiDocument, MissingOrMalformedFileGivesFalseAndKeepsTheTree) {
  KyDtUIConfig config;
  Read(config, "<CommandDef name=\"WALL\">KyWall</CommandDef>");
  EXPECT_FALSE(config.ReadFromXML(dir_.wide("missing.xml").c_str()));
  std::wstring broken = WriteFile("broken.xml", "<TolvUIConfig><Directory name=\"A\">");
  EXPECT_FALSE(config.ReadFromXML(broken.c_str()));
  EXPECT_FALSE(config.ReadFromXML(nullptr));
  EXPECT_NE(config.FindNamedItem(L"WALL"), nullptr);
  EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
}

TEST_F(UiDocument, ReadingAgainReplacesTreeAndMap) {
  KyDtUIConfig config;
  Read(config, "<CommandDef name=\"OLD\">KyOld</CommandDef>");
  Read(config, "<CommandDef name=\"NEW\">KyNew</CommandDef>");
  EXPECT_EQ(config.FindNamedItem(L"OLD"), nullptr);
  EXPECT_NE(config.FindNamedItem(L"NEW"), nullptr);
  EXPECT_EQ(config.GetLength(), 1);
}

TEST_F(UiDocument, UnknownElementIsDroppedAndTheNextSaveLosesIt) {
  KyDtUIConfig config;
  Read(config, "<Gadget name=\"G\"><CommandDef name=\"INSIDE\">KyIn</CommandDef></Gadget>"
               "<CommandDef name=\"WALL\">KyWall</CommandDef>");
  EXPECT_EQ(config.GetLength(), 1);
  EXPECT_EQ(config.FindNamedItem(L"INSIDE"), nullptr);
  std::wstring path = dir_.wide("read.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("read.xml").find("Gadget"), std::string::npos);
  EXPECT_NE(ReadFile("read.xml").find("KyWall"), std::string::npos);
}

TEST_F(UiDocument, ToolBoxWithoutVisibleReadsAsNotVisible) {
  KyDtUIConfig config;
  Read(config, "<ToolBoxDef name=\"TOOLBOX\"/><ToolBoxDef name=\"SHOWN\" visible=\"TRUE\"/>"
               "<ToolBoxDef name=\"ODD\" visible=\"true\" autohide=\"TRUE\" right=\"TRUE\"/>");
  EXPECT_FALSE(config.GetToolBoxDef()->IsVisible());
  EXPECT_TRUE(static_cast<KyDtUIToolBoxDef *>(config.FindNamedItem(L"SHOWN"))->IsVisible());
  auto *odd = static_cast<KyDtUIToolBoxDef *>(config.FindNamedItem(L"ODD"));
  EXPECT_FALSE(odd->IsVisible());
  EXPECT_TRUE(odd->IsAutoHide());
  EXPECT_TRUE(odd->IsRight());
  // A new one is visible until a document says otherwise.
  EXPECT_TRUE(KyDtUIToolBoxDef().IsVisible());
}

TEST_F(UiDocument, DirectoryWithWidthZeroWritesNoWidth) {
  KyDtUIConfig config;
  auto *plain = new KyDtUIDirectory;
  plain->SetName(L"PLAIN");
  config.Append(plain);
  auto *wide = new KyDtUIDirectory;
  wide->SetName(L"WIDE");
  wide->SetDefaultWidth(1);
  wide->CanMultiOpen(true);
  wide->IsOpened(true);
  wide->IsUseScrollBar(true);
  config.Append(wide);
  std::wstring path = dir_.wide("width.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  std::string text = ReadFile("width.xml");
  EXPECT_NE(text.find("<Directory name=\"PLAIN\" />"), std::string::npos) << text;
  EXPECT_NE(text.find("<Directory name=\"WIDE\" multiopen=\"TRUE\" open=\"TRUE\" scrollbar=\"TRUE\" width=\"1\" />"),
            std::string::npos)
      << text;
  KyDtUIConfig back;
  ASSERT_TRUE(back.ReadFromXML(path.c_str()));
  auto *read = static_cast<KyDtUIDirectory *>(back.FindNamedItem(L"WIDE"));
  EXPECT_EQ(read->GetDefaultWidth(), 1);
  EXPECT_TRUE(read->CanMultiOpen() && read->IsOpened() && read->IsUseScrollBar());
}

TEST_F(UiDocument, NewFileStartsWithTheLocalNameAndSavingTwiceGivesTheSameFile) {
  KyDtUIConfig config;
  Read(config, kSections);
  std::wstring path = dir_.wide("saved.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  std::string first = ReadFile("saved.xml");
  // The root's local name is the config's own, read from the document.
  EXPECT_NE(first.find("<TolvUIConfig localname=\"UI\">"), std::string::npos) << first;
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("saved.xml"), first);
  KyDtUIConfig again;
  ASSERT_TRUE(again.ReadFromXML(path.c_str()));
  ASSERT_TRUE(again.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("saved.xml"), first);
}

TEST_F(UiDocument, ANewFileOfAConfigWithoutLocalNameGetsTheDefaultOne) {
  KyDtUIConfig config;
  std::wstring path = dir_.wide("fresh.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  EXPECT_NE(ReadFile("fresh.xml").find("<TolvUIConfig localname=\"SenvarArch UI配置\""), std::string::npos)
      << ReadFile("fresh.xml");
}

TEST_F(UiDocument, SavingIntoAnExistingFileKeepsTheRootsAttributes) {
  std::wstring path = WriteFile("keep.xml", "<TolvUIConfig localname=\"Mine\" version=\"7\"><Old/></TolvUIConfig>");
  KyDtUIConfig config;
  auto *command = new KyDtUICommandDef;
  command->SetName(L"WALL");
  command->SetData(L"KyWall");
  config.Append(command);
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  std::string text = ReadFile("keep.xml");
  EXPECT_NE(text.find("version=\"7\""), std::string::npos) << text;
  EXPECT_NE(text.find("<CommandDef name=\"WALL\">KyWall</CommandDef>"), std::string::npos) << text;
  EXPECT_EQ(text.find("<Old"), std::string::npos);
}

TEST_F(UiDocument, SavingIntoAFileWithAnotherRootFails) {
  std::wstring path = WriteFile("dict.xml", "<TolvDictionary/>");
  KyDtUIConfig config;
  EXPECT_FALSE(config.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("dict.xml"), "<TolvDictionary/>");
  std::wstring broken = WriteFile("broken.xml", "<TolvUIConfig>");
  EXPECT_FALSE(config.SaveToXML(broken.c_str()));
}

TEST_F(UiDocument, EveryClassReadsAndWritesItsAttributes) {
  const std::string body =
      "<UIItem name=\"I\" localname=\"L\" title=\"T\" comment=\"C\">data</UIItem>"
      "<Control name=\"CTL\" clsid=\"{ABC}\" />"
      "<CommandDef name=\"CMD\">KyCmd</CommandDef>"
      "<SwitchDef name=\"SW\" get=\"G\" set=\"S\"><SwitchStatus name=\"ST\">1</SwitchStatus></SwitchDef>"
      "<MenuItem name=\"MI\" get=\"MG\" set=\"MS\">KyMi</MenuItem>"
      "<MenuDef name=\"MD\" filter=\"0,'LINE'\"><Separator /></MenuDef>"
      "<ShortCut name=\"SC\" command=\"KyCmd\" />"
      "<Reference title=\"RT\">CMD</Reference>";
  KyDtUIConfig config;
  Read(config, body);
  auto *item = config.FindNamedItem(L"I");
  EXPECT_EQ(CString(item->GetLocalName()), CString(L"L"));
  EXPECT_EQ(CString(item->GetTitle()), CString(L"T"));
  EXPECT_EQ(CString(item->GetComment()), CString(L"C"));
  EXPECT_EQ(CString(item->GetData()), CString(L"data"));
  EXPECT_EQ(CString(static_cast<KyDtUIControl *>(config.FindNamedItem(L"CTL"))->GetClassID()), CString(L"{ABC}"));
  auto *sw = static_cast<KyDtUISwitchDef *>(config.FindNamedItem(L"SW"));
  EXPECT_EQ(CString(sw->GetGetText()), CString(L"G"));
  EXPECT_EQ(CString(sw->GetSetText()), CString(L"S"));
  EXPECT_EQ(sw->GetLength(), 1);
  auto *mi = static_cast<KyDtUIMenuItem *>(config.FindNamedItem(L"MI"));
  EXPECT_EQ(CString(mi->GetGetText()), CString(L"MG"));
  EXPECT_EQ(CString(mi->GetSetText()), CString(L"MS"));
  auto *md = static_cast<KyDtUIMenuDef *>(config.FindNamedItem(L"MD"));
  EXPECT_EQ(CString(md->GetFilter()), CString(L"0,'LINE'"));
  EXPECT_TRUE(md->GetAt(0)->IsKindOf(L"Separator"));
  EXPECT_EQ(CString(static_cast<KyDtUIShortCut *>(config.FindNamedItem(L"SC"))->GetCommand()), CString(L"KyCmd"));

  std::wstring path = dir_.wide("classes.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  std::string text = ReadFile("classes.xml");
  for (const char *expected :
       {"<UIItem name=\"I\" localname=\"L\" title=\"T\" comment=\"C\">data</UIItem>",
        "<Control name=\"CTL\" clsid=\"{ABC}\" />", "<CommandDef name=\"CMD\">KyCmd</CommandDef>",
        "<SwitchDef name=\"SW\" get=\"G\" set=\"S\">", "<SwitchStatus name=\"ST\">1</SwitchStatus>",
        "<MenuItem name=\"MI\" get=\"MG\" set=\"MS\">KyMi</MenuItem>", "<MenuDef name=\"MD\" filter=\"0,'LINE'\">",
        "<Separator />", "<ShortCut name=\"SC\" command=\"KyCmd\" />", "<Reference title=\"RT\">CMD</Reference>"}) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
  }
}

TEST_F(UiDocument, ToolBoxAlwaysWritesItsThreeFlags) {
  KyDtUIConfig config;
  Read(config, "<ToolBoxDef name=\"TB\"/>");
  std::wstring path = dir_.wide("tb.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  EXPECT_NE(ReadFile("tb.xml").find("<ToolBoxDef name=\"TB\" autohide=\"FALSE\" right=\"FALSE\" visible=\"FALSE\" />"),
            std::string::npos)
      << ReadFile("tb.xml");
}

TEST_F(UiDocument, DirectoriesWriteNoText) {
  KyDtUIConfig config;
  auto *directory = new KyDtUIDirectory;
  directory->SetName(L"D");
  directory->SetData(L"ignored");
  config.Append(directory);
  std::wstring path = dir_.wide("text.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  EXPECT_EQ(ReadFile("text.xml").find("ignored"), std::string::npos);
}

TEST_F(UiDocument, ReadingSetsTheCurrentConfigOnlyWhileItReads) {
  KyDtUIConfig config;
  EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
  Read(config, "<CommandDef name=\"A\">KyA</CommandDef>");
  EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
}

TEST_F(UiDocument, AnExceptionWhileReadingRestoresTheCurrentConfig) {
  // A maker that throws stands for an allocation failure in the middle.
  KyDtUINewItemFn saved = g_mapUIFactory[CString(L"Separator")];
  g_mapUIFactory[CString(L"Separator")] = []() -> KyDtUIItem * { throw std::bad_alloc(); };
  KyDtUIConfig config;
  std::wstring path = WriteFile("throw.xml", Document("<CommandDef name=\"A\">KyA</CommandDef><Separator/>"));
  EXPECT_THROW(config.ReadFromXML(path.c_str()), std::bad_alloc);
  g_mapUIFactory[CString(L"Separator")] = saved;
  EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
}

TEST_F(UiDocument, NamedMapOperations) {
  KyDtUIConfig config;
  KyDtUICommandDef a, b;
  config.AddToNamedMap(L"X", &a);
  config.AddToNamedMap(L"X", &b);
  EXPECT_EQ(config.FindNamedItem(L"X"), &a);
  config.DelNamedMap(L"X");
  EXPECT_EQ(config.FindNamedItem(L"X"), nullptr);
  config.DelNamedMap(L"missing");
  KyDtUIConfig copy(config);
  copy.AddToNamedMap(L"SHARED", &a);
  EXPECT_EQ(config.FindNamedItem(L"SHARED"), &a);
  copy.DelNamedMap(L"SHARED");
}

TEST_F(UiDocument, UIDictionaryKeepsItsDictionaryThroughASave) {
  KyDtUIConfig config;
  Read(config, kSections);
  std::wstring path = dir_.wide("dict.xml");
  ASSERT_TRUE(config.SaveToXML(path.c_str()));
  KyDtUIConfig back;
  ASSERT_TRUE(back.ReadFromXML(path.c_str()));
  int maxDims = 0;
  ASSERT_NE(back.GetDictionary(L"COMMON_DICT"), nullptr);
  EXPECT_TRUE(back.GetDictionary(L"COMMON_DICT")->GetDictionary().GetValue(L"DYN_PARAM\\DYN_MAXDIMNUM", maxDims));
  EXPECT_EQ(maxDims, 6);
}

}  // namespace
