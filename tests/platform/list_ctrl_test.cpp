// The list control: a table of items and subitems kept through list-view
// messages.
#include <gtest/gtest.h>

#include <string>

#include "platform/mfc/CListCtrl.h"

namespace {

TEST(ListCtrl, StartsEmpty) {
  CListCtrl list;
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_EQ(list.GetColumnCount(), 0);
  EXPECT_EQ(list.GetItemText(0, 0), CString(L""));
}

TEST(ListCtrl, InsertedItemsTakeTheirIndexAndAnIndexPastTheEndAppends) {
  CListCtrl list;
  EXPECT_EQ(list.InsertItem(0, L"b"), 0);
  EXPECT_EQ(list.InsertItem(0, L"a"), 0);
  EXPECT_EQ(list.InsertItem(99, L"c"), 2);
  EXPECT_EQ(list.InsertItem(-1, L"x"), -1);
  ASSERT_EQ(list.GetItemCount(), 3);
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"a"));
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"b"));
  EXPECT_EQ(list.GetItemText(2, 0), CString(L"c"));
}

TEST(ListCtrl, InsertWithoutTheTextMaskLeavesTheLabelEmpty) {
  CListCtrl list;
  LVITEMW item{};
  item.iItem = 0;
  item.pszText = const_cast<wchar_t *>(L"ignored");
  EXPECT_EQ(list.InsertItem(&item), 0);
  EXPECT_EQ(list.GetItemText(0, 0), CString(L""));
  item.iSubItem = 1;
  EXPECT_EQ(list.InsertItem(&item), -1);
  EXPECT_EQ(list.InsertItem(nullptr), -1);
}

TEST(ListCtrl, SubitemTextNeedsItsColumn) {
  CListCtrl list;
  list.InsertItem(0, L"row");
  EXPECT_TRUE(list.SetItemText(0, 0, L"label"));
  EXPECT_FALSE(list.SetItemText(0, 1, L"no column yet"));
  list.InsertColumn(0, L"name");
  list.InsertColumn(1, L"value");
  EXPECT_TRUE(list.SetItemText(0, 1, L"42"));
  EXPECT_FALSE(list.SetItemText(1, 0, L"no such row"));
  EXPECT_FALSE(list.SetItemText(0, -1, L"bad"));
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"label"));
  EXPECT_EQ(list.GetItemText(0, 1), CString(L"42"));
  EXPECT_EQ(list.GetItemText(0, 5), CString(L""));
}

TEST(ListCtrl, LongTextComesBackWhole) {
  CListCtrl list;
  std::wstring text(5000, L'x');
  list.InsertItem(0, text.c_str());
  EXPECT_EQ(list.GetItemText(0, 0).GetLength(), 5000);
}

TEST(ListCtrl, ColumnsMoveTheirCellsAlong) {
  CListCtrl list;
  list.InsertColumn(0, L"a");
  list.InsertColumn(1, L"c");
  list.InsertItem(0, L"A");
  list.SetItemText(0, 1, L"C");
  EXPECT_EQ(list.InsertColumn(1, L"b"), 1);
  EXPECT_EQ(list.GetColumnCount(), 3);
  EXPECT_EQ(list.GetItemText(0, 2), CString(L"C"));
  EXPECT_EQ(list.GetItemText(0, 1), CString(L""));
  EXPECT_TRUE(list.DeleteColumn(1));
  EXPECT_EQ(list.GetItemText(0, 1), CString(L"C"));
  EXPECT_FALSE(list.DeleteColumn(7));
  EXPECT_TRUE(list.DeleteColumn(0));
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"A"));
}

TEST(ListCtrl, LabelStaysInColumnZeroWhenAColumnGoesFirst) {
  CListCtrl list;
  list.InsertColumn(0, L"name");
  list.InsertColumn(1, L"value");
  list.InsertItem(0, L"A");
  list.SetItemText(0, 1, L"1");
  list.InsertColumn(0, L"first");
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"A"));
  EXPECT_EQ(list.GetItemText(0, 2), CString(L"1"));
}

TEST(ListCtrl, DeleteItemAndDeleteAll) {
  CListCtrl list;
  list.InsertItem(0, L"a");
  list.InsertItem(1, L"b");
  list.InsertItem(2, L"c");
  EXPECT_TRUE(list.DeleteItem(1));
  EXPECT_FALSE(list.DeleteItem(5));
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"c"));
  EXPECT_TRUE(list.DeleteAllItems());
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST(ListCtrl, MessagesSentDirectlyActOnTheSameTable) {
  CListCtrl list;
  list.InsertColumn(0, L"a");
  list.InsertColumn(1, L"b");
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = static_cast<int>(list.SendMessage(4100));
  item.pszText = const_cast<wchar_t *>(L"");
  EXPECT_EQ(list.SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0);
  LVITEMW text{};
  text.iSubItem = 1;
  text.pszText = const_cast<wchar_t *>(L"sent");
  EXPECT_EQ(list.SendMessage(LVM_SETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&text)), 1);
  EXPECT_EQ(list.GetItemText(0, 1), CString(L"sent"));
  wchar_t buffer[3];
  LVITEMW get{};
  get.iSubItem = 1;
  get.pszText = buffer;
  get.cchTextMax = 3;
  EXPECT_EQ(list.SendMessage(LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&get)), 2);
  EXPECT_EQ(std::wstring(buffer), L"se");
  EXPECT_EQ(list.SendMessage(4105), 1);
  EXPECT_EQ(list.SendMessage(4100), 0);
  EXPECT_EQ(list.SendMessage(0x7777), 0);
}

}  // namespace
