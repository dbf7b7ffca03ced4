// MFC's list control in report view: a table of rows, each an item (column
// 0) and its subitems (columns 1 on), under column headings.
//
// As on the home platform every operation is a list-view message sent to
// the control and handled in WindowProc, so code that sends the messages
// itself and code that calls the members see one table. There is no window:
// the table is the control's whole state, and tests read it back with the
// same members a dialog would use.
#pragma once

#include <vector>

#include "platform/mfc/CString.h"
#include "platform/mfc/MfcTypes.h"

// The list-view messages (wide forms).
constexpr UINT LVM_FIRST = 0x1000;
constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;     // 4100
constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;       // 4104
constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;   // 4105
constexpr UINT LVM_DELETECOLUMN = LVM_FIRST + 28;    // 4124
constexpr UINT LVM_INSERTITEMW = LVM_FIRST + 77;     // 4173
constexpr UINT LVM_INSERTCOLUMNW = LVM_FIRST + 97;   // 4193
constexpr UINT LVM_GETITEMTEXTW = LVM_FIRST + 115;   // 4211
constexpr UINT LVM_SETITEMTEXTW = LVM_FIRST + 116;   // 4212
constexpr UINT LVM_INSERTITEM = LVM_INSERTITEMW;
constexpr UINT LVM_INSERTCOLUMN = LVM_INSERTCOLUMNW;
constexpr UINT LVM_GETITEMTEXT = LVM_GETITEMTEXTW;
constexpr UINT LVM_SETITEMTEXT = LVM_SETITEMTEXTW;

// LVITEM.mask
constexpr UINT LVIF_TEXT = 0x0001;
// LVCOLUMN.mask and .fmt
constexpr UINT LVCF_FMT = 0x0001;
constexpr UINT LVCF_WIDTH = 0x0002;
constexpr UINT LVCF_TEXT = 0x0004;
constexpr UINT LVCF_SUBITEM = 0x0008;
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;

struct LVITEMW {
  UINT mask;
  int iItem;
  int iSubItem;
  UINT state;
  UINT stateMask;
  wchar_t *pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
};
using LVITEM = LVITEMW;

struct LVCOLUMNW {
  UINT mask;
  int fmt;
  int cx;
  wchar_t *pszText;
  int cchTextMax;
  int iSubItem;
};
using LVCOLUMN = LVCOLUMNW;

class CListCtrl {
 public:
  CListCtrl() = default;
  virtual ~CListCtrl() = default;
  CListCtrl(const CListCtrl &) = delete;
  CListCtrl &operator=(const CListCtrl &) = delete;

  // Hands the message to WindowProc and gives its result.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

  int GetItemCount() const;
  bool DeleteAllItems();
  bool DeleteItem(int item);
  // The index of the new item, or -1. An index past the end appends.
  int InsertItem(const LVITEMW *item);
  int InsertItem(int item, const wchar_t *text);
  // False for a missing item, or a subitem that has no column.
  bool SetItemText(int item, int subItem, const wchar_t *text);
  // Empty for a missing item or subitem.
  CString GetItemText(int item, int subItem) const;
  // The index of the new column, or -1. The item's label stays in column 0;
  // subitems from the new column on move one place right.
  int InsertColumn(int column, const wchar_t *heading, int format = LVCFMT_LEFT, int width = -1,
                   int subItem = -1);
  // A subitem column takes its cells with it; column 0 only its heading.
  bool DeleteColumn(int column);
  // The number of columns, as the header control tells it.
  int GetColumnCount() const { return static_cast<int>(headings_.size()); }

 protected:
  // Carries out one list-view message; an unknown message gives 0.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  int OnInsertItem(const LVITEMW *item);
  bool OnSetItemText(int item, const LVITEMW *text);
  int OnGetItemText(int item, LVITEMW *text) const;
  int OnInsertColumn(int column, const LVCOLUMNW *format);
  bool OnDeleteColumn(int column);
  bool IsItem(int item) const { return item >= 0 && item < static_cast<int>(rows_.size()); }

  std::vector<CString> headings_;
  // Cell k of a row is subitem k; a row holds cells up to its last set one.
  std::vector<std::vector<CString>> rows_;
};
