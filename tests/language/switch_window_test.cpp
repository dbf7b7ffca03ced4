// Dialogs, their children, registered controls, list controls and menus.
#include "LanguageFixture.h"

using langtest::LanguageTest;

namespace {

const std::wstring kDialogs =
    L"<Directory name=\"TOLVUIMODEL\" localname=\"TOLVUIMODEL\">"
    L"<Directory name=\"DIALOG\" localname=\"DIALOG\">"
    L"<Directory name=\"101\" localname=\"Wall settings\" element_type=\"DIALOG\">"
    L"<String name=\"确定\" localname=\"OK\" element_type=\"BUTTON\"/>"
    L"<String name=\"墙高\" localname=\"Wall height\" element_type=\"STATIC\"/>"
    L"<String name=\"左;中;右\" localname=\"Left;Centre;Right\" element_type=\"COMBOBOX\"/>"
    L"<String name=\"砖;混凝土\" localname=\"Brick;Concrete\" element_type=\"LISTBOX\"/>"
    L"<String name=\"材料\" localname=\"\" ctrtype=\"Combox\" ctrlData=\"Steel;Wood\"/>"
    L"<String name=\"层\" localname=\"\" ctrtype=\"listbox\" ctrlData=\"One;Two;Three\"/>"
    L"<String name=\"别的\" localname=\"\" ctrtype=\"tree\" ctrlData=\"X;Y\"/>"
    L"</Directory></Directory>"
    L"<Directory name=\"MENU\" localname=\"MENU\">"
    L"<Directory name=\"200\" localname=\"200\" element_type=\"MENU\">"
    L"<Directory name=\"文件\" localname=\"File\" element_type=\"MENUPOPUP\">"
    L"<String name=\"打开\" localname=\"Open\" element_type=\"MENUITEM\"/>"
    L"<String name=\"路径#设置\" localname=\"Path\\Settings\" element_type=\"MENUITEM\"/>"
    L"</Directory>"
    L"<String name=\"帮助\" localname=\"Help\" element_type=\"MENUITEM\"/>"
    L"</Directory></Directory>"
    L"<Directory name=\"7\" localname=\"7\">"
    L"<String name=\"甲;乙\" localname=\"A;B\"/>"
    L"</Directory>"
    L"</Directory>\n";

std::vector<std::wstring> Entries(CComboBox &box) {
  std::vector<std::wstring> out;
  for (int i = 0; i < box.GetCount(); ++i) {
    CString text;
    box.GetLBText(i, text);
    out.push_back(text.str());
  }
  return out;
}

std::vector<std::wstring> Entries(CListBox &box) {
  std::vector<std::wstring> out;
  for (int i = 0; i < box.GetCount(); ++i) {
    CString text;
    box.GetText(i, text);
    out.push_back(text.str());
  }
  return out;
}

std::wstring Text(HWND window) {
  wchar_t buffer[256];
  GetWindowTextW(window, buffer, 256);
  return buffer;
}

}  // namespace

class DialogTest : public LanguageTest {
 protected:
  void SetUp() override {
    Start(L"Eng", kDialogs);
    Current(L"TOLVUIMODEL");
    HWND window = CreateWindowExW(0, L"#32770", L"墙设置", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    dialog_.AttachDialog(window, 101);
    ok_ = CreateWindowExW(0, L"Button", L"确定", WS_CHILD, 0, 0, 0, 0, window, reinterpret_cast<HMENU>(1), nullptr, nullptr);
    label_ = CreateWindowExW(0, L"Static", L"墙高", WS_CHILD, 0, 0, 0, 0, window, reinterpret_cast<HMENU>(2), nullptr, nullptr);
    other_ = CreateWindowExW(0, L"Static", L"未知", WS_CHILD, 0, 0, 0, 0, window, reinterpret_cast<HMENU>(3), nullptr, nullptr);
    combo_.CreateEx(0, L"COMBOBOX", L"", WS_CHILD, &dialog_, 4);
    for (const wchar_t *s : {L"左", L"中", L"右"}) combo_.AddString(s);
    combo_.SetCurSel(1);
    list_.CreateEx(0, L"ListBox", L"", WS_CHILD, &dialog_, 5);
    for (const wchar_t *s : {L"砖", L"混凝土"}) list_.AddString(s);
    list_.SetCurSel(0);
    edit_.CreateEx(0, L"Static", L"确定", WS_CHILD, &dialog_, 6);
  }
  void TearDown() override {
    edit_.Detach();
    combo_.Detach();
    list_.Detach();
    dialog_.DestroyWindow();
    EXPECT_EQ(tolv::LiveWindowCount(), 0);
  }

  CDialog dialog_;
  HWND ok_ = nullptr, label_ = nullptr, other_ = nullptr;
  CComboBox combo_;
  CListBox list_;
  CEdit edit_;
};

TEST_F(DialogTest, CaptionChildrenAndListsAreTranslated) {
  int result = TheLanguageSwitch().TranslateWindow(&dialog_);
  EXPECT_EQ(result, TRUE);
  CString caption;
  dialog_.GetWindowText(caption);
  EXPECT_EQ(caption, CString(L"Wall settings"));
  EXPECT_EQ(Text(ok_), L"OK");
  EXPECT_EQ(Text(label_), L"Wall height");
  EXPECT_EQ(Text(other_), L"未知");
  EXPECT_EQ(Entries(combo_), (std::vector<std::wstring>{L"Left", L"Centre", L"Right"}));
  EXPECT_EQ(combo_.GetCurSel(), 1);
  EXPECT_EQ(Entries(list_), (std::vector<std::wstring>{L"Brick", L"Concrete"}));
  EXPECT_EQ(list_.GetCurSel(), 0);
  // An edit control keeps what it holds, even a text of the table.
  CString typed;
  edit_.GetWindowText(typed);
  EXPECT_EQ(typed, CString(L"确定"));
  EXPECT_TRUE(printed_.empty());
}

TEST_F(DialogTest, DialogWithoutEntryPrintsNullDialogAndLeavesChildren) {
  dialog_.m_nIDHelp = 999;
  TheLanguageSwitch().TranslateWindow(&dialog_);
  EXPECT_EQ(printed_, L"\nNULL DIALOG");
  CString caption;
  dialog_.GetWindowText(caption);
  EXPECT_EQ(caption, CString(L"墙设置"));
  EXPECT_EQ(Text(ok_), L"确定");
  EXPECT_EQ(Entries(combo_), (std::vector<std::wstring>{L"左", L"中", L"右"}));
}

TEST_F(DialogTest, WindowThatIsNoDialogIsLookedUpUnderTheEmptyKey) {
  CWnd plain;
  plain.CreateEx(0, L"Static", L"确定", WS_POPUP, nullptr, 0);
  TheLanguageSwitch().TranslateDialog(&plain);
  EXPECT_EQ(printed_, L"\nNULL DIALOG");
}

TEST_F(DialogTest, ComboWithoutMatchingEntryStaysAsItIs) {
  combo_.AddString(L"外");
  TheLanguageSwitch().TranslateDialog(&dialog_);
  EXPECT_EQ(Entries(combo_), (std::vector<std::wstring>{L"左", L"中", L"右", L"外"}));
  EXPECT_EQ(combo_.GetCurSel(), 1);
}

TEST_F(DialogTest, NoPackageOrNoWindowDoesNothing) {
  g_pCurModuleLang = nullptr;
  EXPECT_EQ(TheLanguageSwitch().TranslateWindow(&dialog_), 0);
  EXPECT_EQ(Text(ok_), L"确定");
  EXPECT_EQ(TheLanguageSwitch().TranslateWindow(nullptr), 0);
  CWnd empty;
  TheLanguageSwitch().TranslateDialog(&empty);
  TheLanguageSwitch().TranslateDialog(nullptr);
  EXPECT_TRUE(printed_.empty());
}

TEST_F(DialogTest, RegisteredControlsAreFilledFromTheirEntries) {
  CComboBox material;
  material.CreateEx(0, L"ComboBox", L"", WS_CHILD, nullptr, 0);
  material.AddString(L"钢");
  CListBox floors;
  floors.CreateEx(0, L"ListBox", L"", WS_CHILD, nullptr, 0);
  CComboBox tree;
  tree.CreateEx(0, L"ComboBox", L"", WS_CHILD, nullptr, 0);
  tree.AddString(L"树");
  TheLanguageSwitch().RegisterControl(L"材料", &material);
  TheLanguageSwitch().RegisterControl(L"层", &floors);
  TheLanguageSwitch().RegisterControl(L"别的", &tree);
  TheLanguageSwitch().RegisterControl(L"没有", &tree);
  TheLanguageSwitch().TranslateDialog(&dialog_);
  EXPECT_EQ(Entries(material), (std::vector<std::wstring>{L"Steel", L"Wood"}));
  EXPECT_EQ(Entries(floors), (std::vector<std::wstring>{L"One", L"Two", L"Three"}));
  EXPECT_EQ(Entries(tree), (std::vector<std::wstring>{L"树"}));
  TheLanguageSwitch().ClearControls();
}

TEST_F(DialogTest, ComboEntriesOfAnotherCodePageAreReadAgainAsGbk) {
  tolv::SetAnsiCodePage(1252);
  combo_.ResetContent();
  // "左", "中", "右" as their GBK bytes, each byte one character.
  for (const char *gbk : {"\xD7\xF3", "\xD6\xD0", "\xD3\xD2"}) {
    std::wstring latin;
    for (const char *p = gbk; *p; ++p) latin.push_back(static_cast<unsigned char>(*p));
    combo_.AddString(latin.c_str());
  }
  TheLanguageSwitch().TranslateDialog(&dialog_);
  EXPECT_EQ(Entries(combo_), (std::vector<std::wstring>{L"Left", L"Centre", L"Right"}));
}

TEST(CodePageRepairTest, HomeCodePageLeavesTheTextAndOthersAreCutAt348Bytes) {
  tolv::SetAnsiCodePage(0);
  EXPECT_EQ(tolv::RepairCodePage(L"\xD7\xF3"), CString(L"\xD7\xF3"));
  tolv::SetAnsiCodePage(1252);
  EXPECT_EQ(tolv::RepairCodePage(L"\xD7\xF3"), CString(L"左"));
  std::wstring longText(1000, L'a');
  EXPECT_EQ(tolv::RepairCodePage(longText.c_str()).GetLength(), 348);
  tolv::SetAnsiCodePage(0);
}

TEST_F(DialogTest, ListControlIsTranslatedFromTheIdEntry) {
  CComboBox box;
  box.CreateEx(0, L"ComboBox", L"", WS_CHILD, nullptr, 0);
  box.AddString(L"甲");
  box.AddString(L"乙");
  box.SetCurSel(1);
  TheLanguageSwitch().TranslateListControl(7, &box);
  EXPECT_EQ(Entries(box), (std::vector<std::wstring>{L"A", L"B"}));
  EXPECT_EQ(box.GetCurSel(), 1);
}

TEST_F(DialogTest, ListControlWithoutTranslationIsLeftEmpty) {
  CListBox box;
  box.CreateEx(0, L"ListBox", L"", WS_CHILD, nullptr, 0);
  box.AddString(L"丙");
  TheLanguageSwitch().TranslateListControl(7, &box);
  EXPECT_EQ(box.GetCount(), 0);
  box.AddString(L"甲");
  box.AddString(L"乙");
  TheLanguageSwitch().TranslateListControl(8, &box);
  EXPECT_EQ(box.GetCount(), 0);
}

class MenuTest : public LanguageTest {
 protected:
  void SetUp() override {
    Start(L"Eng", kDialogs);
    Current(L"TOLVUIMODEL");
    menu_.CreateMenu();
    HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, 11, L"打开");
    AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, 12, L"路径\\设置");
    AppendMenuW(file, MF_STRING, 13, L"关闭");
    menu_.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"文件");
    menu_.AppendMenu(MF_STRING, 20, L"帮助");
  }
  CString Item(HMENU menu, UINT position) {
    CString text;
    CMenu::FromHandle(menu)->GetMenuString(position, text, MF_BYPOSITION);
    return text;
  }
  CMenu menu_;
};

TEST_F(MenuTest, ItemsAndPopupsAreTranslatedByPositionKeepingIds) {
  TheLanguageSwitch().TranslateMenu(200, &menu_);
  EXPECT_EQ(Item(menu_.m_hMenu, 0), CString(L"File"));
  EXPECT_EQ(Item(menu_.m_hMenu, 1), CString(L"Help"));
  EXPECT_EQ(menu_.GetMenuItemID(1), 20u);
  CMenu *file = menu_.GetSubMenu(0);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->GetMenuItemCount(), 4);
  EXPECT_EQ(Item(file->m_hMenu, 0), CString(L"Open"));
  EXPECT_EQ(file->GetMenuItemID(0), 11u);
  EXPECT_EQ(Item(file->m_hMenu, 2), CString(L"Path\\Settings"));
  EXPECT_EQ(Item(file->m_hMenu, 3), CString(L"关闭"));
  EXPECT_EQ(file->GetMenuItemID(3), 13u);
}

TEST_F(MenuTest, MenuWithoutEntryOrSwitchOffStaysAsItIs) {
  TheLanguageSwitch().TranslateMenu(201, &menu_);
  EXPECT_EQ(Item(menu_.m_hMenu, 0), CString(L"文件"));
  g_pCurModuleLang = nullptr;
  TheLanguageSwitch().TranslateMenu(200, &menu_);
  EXPECT_EQ(Item(menu_.m_hMenu, 0), CString(L"文件"));
  CMenu none;
  TheLanguageSwitch().TranslateMenu(200, &none);
}
