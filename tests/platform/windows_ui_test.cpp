// The window, menu and code-page stand-ins, and MFC's window and menu
// objects over them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TolvDataBase.h"

namespace {

std::wstring Text(HWND window) {
  wchar_t buffer[64];
  GetWindowTextW(window, buffer, 64);
  return buffer;
}

}  // namespace

TEST(WindowStandIn, ChildrenAreWalkedDepthFirstAndDestroyedWithTheirParent) {
  const int before = tolv::LiveWindowCount();
  HWND top = CreateWindowExW(0, L"#32770", L"顶层", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  HWND a = CreateWindowExW(0, L"Static", L"a", WS_CHILD, 0, 0, 0, 0, top, reinterpret_cast<HMENU>(1), nullptr, nullptr);
  CreateWindowExW(0, L"Static", L"a1", WS_CHILD, 0, 0, 0, 0, a, reinterpret_cast<HMENU>(11), nullptr, nullptr);
  CreateWindowExW(0, L"Button", L"b", WS_CHILD, 0, 0, 0, 0, top, reinterpret_cast<HMENU>(2), nullptr, nullptr);
  std::vector<std::wstring> seen;
  EXPECT_TRUE(EnumChildWindows(top, [](HWND w, LPARAM p) -> BOOL {
    reinterpret_cast<std::vector<std::wstring> *>(p)->push_back(Text(w));
    return TRUE;
  }, reinterpret_cast<LPARAM>(&seen)));
  EXPECT_EQ(seen, (std::vector<std::wstring>{L"a", L"a1", L"b"}));
  // A walk that is stopped answers FALSE, as one over no children.
  EXPECT_FALSE(EnumChildWindows(top, [](HWND, LPARAM) -> BOOL { return FALSE; }, 0));
  EXPECT_FALSE(EnumChildWindows(a == nullptr ? top : GetDlgItem(a, 11), [](HWND, LPARAM) -> BOOL { return TRUE; }, 0));
  EXPECT_EQ(GetDlgCtrlID(GetDlgItem(top, 2)), 2);
  EXPECT_EQ(GetParent(a), top);
  wchar_t name[16];
  GetClassNameW(GetDlgItem(top, 2), name, 16);
  EXPECT_EQ(std::wstring(name), L"Button");
  EXPECT_EQ(tolv::LiveWindowCount(), before + 4);
  EXPECT_TRUE(DestroyWindow(top));
  EXPECT_FALSE(IsWindow(a));
  EXPECT_EQ(tolv::LiveWindowCount(), before);
  EXPECT_FALSE(SetWindowTextW(a, L"gone"));
  EXPECT_EQ(CreateWindowExW(0, L"Static", L"", WS_CHILD, 0, 0, 0, 0, top, nullptr, nullptr, nullptr), nullptr);
}

TEST(WindowStandIn, TextIsCutToTheBuffer) {
  HWND w = CreateWindowExW(0, L"Static", L"墙体高度", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  wchar_t small[3];
  EXPECT_EQ(GetWindowTextW(w, small, 3), 2);
  EXPECT_EQ(std::wstring(small), L"墙体");
  EXPECT_EQ(GetWindowTextLengthW(w), 4);
  EXPECT_EQ(SendMessageW(w, WM_GETTEXTLENGTH, 0, 0), 4);
  SendMessageW(w, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Wall"));
  EXPECT_EQ(Text(w), L"Wall");
  DestroyWindow(w);
}

TEST(WindowStandIn, ComboBoxKeepsEntriesSelectionAndSortOrder) {
  CComboBox box;
  ASSERT_TRUE(box.CreateEx(0, L"combobox", L"", CBS_SORT, nullptr, 0));
  for (const wchar_t *s : {L"beta", L"Alpha", L"gamma"}) box.AddString(s);
  CString text;
  box.GetLBText(0, text);
  EXPECT_EQ(text, CString(L"Alpha"));
  EXPECT_EQ(box.GetCount(), 3);
  EXPECT_EQ(box.GetCurSel(), -1);
  EXPECT_EQ(box.SetCurSel(2), 2);
  EXPECT_EQ(box.SetCurSel(7), CB_ERR);
  EXPECT_EQ(box.GetCurSel(), -1);
  box.SetCurSel(2);
  box.DeleteString(0);
  EXPECT_EQ(box.GetCurSel(), 1);
  EXPECT_EQ(box.SendMessage(CB_GETLBTEXTLEN, 9), CB_ERR);
  box.ResetContent();
  EXPECT_EQ(box.GetCount(), 0);
  EXPECT_EQ(box.GetCurSel(), -1);
}

TEST(WindowStandIn, ListBoxAnswersItsOwnMessagesOnly) {
  CListBox list;
  ASSERT_TRUE(list.CreateEx(0, L"ListBox", L"", 0, nullptr, 0));
  list.AddString(L"甲");
  list.InsertString(0, L"乙");
  CString first;
  list.GetText(0, first);
  EXPECT_EQ(first, CString(L"乙"));
  // Combo-box messages mean nothing to a list box, and the reverse.
  EXPECT_EQ(list.SendMessage(CB_GETCOUNT), 0);
  EXPECT_EQ(list.GetCount(), 2);
  CWnd plain;
  plain.CreateEx(0, L"Static", L"x", 0, nullptr, 0);
  EXPECT_EQ(plain.SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"y")), 0);
  EXPECT_EQ(CWnd::FromHandlePermanent(plain.m_hWnd), &plain);
  EXPECT_EQ(plain.GetClassName(), CString(L"Static"));
}

TEST(MenuStandIn, PositionsIdsPopupsAndModify) {
  const int before = tolv::LiveMenuCount();
  CMenu menu;
  ASSERT_TRUE(menu.CreateMenu());
  HMENU popup = CreatePopupMenu();
  AppendMenuW(popup, MF_STRING, 11, L"打开");
  AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
  menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"文件");
  menu.AppendMenu(MF_STRING, 20, L"帮助");
  EXPECT_EQ(menu.GetMenuItemCount(), 2);
  EXPECT_EQ(menu.GetMenuItemID(0), static_cast<UINT>(-1));
  EXPECT_EQ(menu.GetMenuItemID(1), 20u);
  EXPECT_EQ(GetMenuItemID(popup, 1), 0u);
  EXPECT_EQ(menu.GetSubMenu(0)->m_hMenu, popup);
  EXPECT_EQ(menu.GetSubMenu(1), nullptr);
  CString text;
  EXPECT_EQ(menu.GetMenuString(20, text, MF_BYCOMMAND), 2);
  EXPECT_EQ(text, CString(L"帮助"));
  // A popup modified with its own sub-menu stays a popup.
  EXPECT_TRUE(menu.ModifyMenu(0, MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"File"));
  EXPECT_TRUE(IsMenu(popup));
  // Made a plain item, it loses the sub-menu.
  EXPECT_TRUE(menu.ModifyMenu(0, MF_BYPOSITION | MF_STRING, 30, L"Plain"));
  EXPECT_FALSE(IsMenu(popup));
  EXPECT_FALSE(menu.ModifyMenu(5, MF_BYPOSITION, 1, L"x"));
  EXPECT_EQ(GetMenuItemCount(popup), -1);
  menu.DestroyMenu();
  EXPECT_EQ(tolv::LiveMenuCount(), before);
}

TEST(CodePageStandIn, AnsiCodePageIs936UnlessSet) {
  EXPECT_EQ(GetACP(), 936u);
  tolv::SetAnsiCodePage(1252);
  EXPECT_EQ(GetACP(), 1252u);
  tolv::SetAnsiCodePage(0);
  EXPECT_EQ(GetACP(), 936u);
}

TEST(CodePageStandIn, MultiByteToWideCharDecodesGbkAndMeasures) {
  const char gbk[] = "\xC7\xBD\xCC\xE5";  // 墙体
  EXPECT_EQ(MultiByteToWideChar(936, 0, gbk, 4, nullptr, 0), 2);
  EXPECT_EQ(MultiByteToWideChar(936, 0, gbk, -1, nullptr, 0), 3);
  wchar_t wide[8] = {};
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, gbk, -1, wide, 8), 3);
  EXPECT_EQ(std::wstring(wide), L"墙体");
  wchar_t tiny[1];
  EXPECT_EQ(MultiByteToWideChar(936, 0, gbk, 4, tiny, 1), 0);
  EXPECT_EQ(MultiByteToWideChar(1234, 0, gbk, 4, wide, 8), 0);
  char back[8] = {};
  EXPECT_EQ(WideCharToMultiByte(936, 0, L"墙体", 2, back, 8, nullptr, nullptr), 4);
  EXPECT_EQ(std::string(back), std::string(gbk));
}
