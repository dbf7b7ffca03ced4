#include "platform/mfc/CListCtrl.h"

#include <algorithm>
#include <cwchar>

namespace {

// The text callback marker of LVITEM.pszText: no text is stored for it.
wchar_t *const kTextCallback = reinterpret_cast<wchar_t *>(static_cast<std::intptr_t>(-1));

CString TextOf(const wchar_t *text) {
  if (!text || text == kTextCallback) return CString();
  return CString(text);
}

}  // namespace

LRESULT CListCtrl::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return WindowProc(message, wParam, lParam);
}

LRESULT CListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  int index = static_cast<int>(static_cast<std::intptr_t>(wParam));
  switch (message) {
    case LVM_GETITEMCOUNT:
      return static_cast<LRESULT>(rows_.size());
    case LVM_DELETEALLITEMS:
      rows_.clear();
      return 1;
    case LVM_DELETEITEM:
      if (!IsItem(index)) return 0;
      rows_.erase(rows_.begin() + index);
      return 1;
    case LVM_INSERTITEMW:
      return OnInsertItem(reinterpret_cast<const LVITEMW *>(lParam));
    case LVM_SETITEMTEXTW:
      return OnSetItemText(index, reinterpret_cast<const LVITEMW *>(lParam)) ? 1 : 0;
    case LVM_GETITEMTEXTW:
      return OnGetItemText(index, reinterpret_cast<LVITEMW *>(lParam));
    case LVM_INSERTCOLUMNW:
      return OnInsertColumn(index, reinterpret_cast<const LVCOLUMNW *>(lParam));
    case LVM_DELETECOLUMN:
      return OnDeleteColumn(index) ? 1 : 0;
    default:
      return 0;
  }
}

int CListCtrl::OnInsertItem(const LVITEMW *item) {
  // An item is inserted whole; a subitem is set, never inserted.
  if (!item || item->iSubItem != 0 || item->iItem < 0) return -1;
  int at = std::min(item->iItem, static_cast<int>(rows_.size()));
  std::vector<CString> row(1);
  if (item->mask & LVIF_TEXT) row[0] = TextOf(item->pszText);
  rows_.insert(rows_.begin() + at, std::move(row));
  return at;
}

bool CListCtrl::OnSetItemText(int item, const LVITEMW *text) {
  if (!text || !IsItem(item)) return false;
  int sub = text->iSubItem;
  // Column 0 is the item's own label and exists without a heading.
  if (sub < 0 || (sub > 0 && sub >= GetColumnCount())) return false;
  std::vector<CString> &row = rows_[static_cast<std::size_t>(item)];
  if (static_cast<std::size_t>(sub) >= row.size()) row.resize(static_cast<std::size_t>(sub) + 1);
  row[static_cast<std::size_t>(sub)] = TextOf(text->pszText);
  return true;
}

int CListCtrl::OnGetItemText(int item, LVITEMW *text) const {
  if (!text || !text->pszText || text->cchTextMax <= 0) return 0;
  text->pszText[0] = L'\0';
  if (!IsItem(item) || text->iSubItem < 0) return 0;
  const std::vector<CString> &row = rows_[static_cast<std::size_t>(item)];
  if (static_cast<std::size_t>(text->iSubItem) >= row.size()) return 0;
  const CString &cell = row[static_cast<std::size_t>(text->iSubItem)];
  int n = std::min(cell.GetLength(), text->cchTextMax - 1);
  std::wmemcpy(text->pszText, cell.GetString(), static_cast<std::size_t>(n));
  text->pszText[n] = L'\0';
  return n;
}

int CListCtrl::OnInsertColumn(int column, const LVCOLUMNW *format) {
  if (!format || column < 0) return -1;
  int at = std::min(column, GetColumnCount());
  CString heading = (format->mask & LVCF_TEXT) ? TextOf(format->pszText) : CString();
  headings_.insert(headings_.begin() + at, heading);
  // The item's label stays in column 0; the subitems from the new column on
  // move along with their headings.
  const std::size_t from = static_cast<std::size_t>(std::max(at, 1));
  for (std::vector<CString> &row : rows_) {
    if (from < row.size()) row.insert(row.begin() + static_cast<long>(from), CString());
  }
  return at;
}

bool CListCtrl::OnDeleteColumn(int column) {
  if (column < 0 || column >= GetColumnCount()) return false;
  headings_.erase(headings_.begin() + column);
  // The labels stay; a subitem column takes its cells with it.
  if (column == 0) return true;
  for (std::vector<CString> &row : rows_) {
    if (static_cast<std::size_t>(column) < row.size()) row.erase(row.begin() + column);
  }
  return true;
}

int CListCtrl::GetItemCount() const {
  return static_cast<int>(const_cast<CListCtrl *>(this)->SendMessage(LVM_GETITEMCOUNT));
}

bool CListCtrl::DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS) != 0; }

bool CListCtrl::DeleteItem(int item) { return SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(item)) != 0; }

int CListCtrl::InsertItem(const LVITEMW *item) {
  return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

int CListCtrl::InsertItem(int item, const wchar_t *text) {
  LVITEMW lv{};
  lv.mask = LVIF_TEXT;
  lv.iItem = item;
  lv.pszText = const_cast<wchar_t *>(text ? text : L"");
  return InsertItem(&lv);
}

bool CListCtrl::SetItemText(int item, int subItem, const wchar_t *text) {
  LVITEMW lv{};
  lv.iSubItem = subItem;
  lv.pszText = const_cast<wchar_t *>(text);
  return SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&lv)) != 0;
}

CString CListCtrl::GetItemText(int item, int subItem) const {
  // Asks with a growing buffer until the text fits, as MFC does.
  std::vector<wchar_t> buffer(256);
  for (;;) {
    LVITEMW lv{};
    lv.iSubItem = subItem;
    lv.pszText = buffer.data();
    lv.cchTextMax = static_cast<int>(buffer.size());
    int n = static_cast<int>(const_cast<CListCtrl *>(this)->SendMessage(
        LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&lv)));
    if (n < lv.cchTextMax - 1) return CString(buffer.data(), n);
    buffer.resize(buffer.size() * 2);
  }
}

int CListCtrl::InsertColumn(int column, const wchar_t *heading, int format, int width, int subItem) {
  LVCOLUMNW lv{};
  lv.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
  lv.fmt = format;
  lv.cx = width;
  lv.pszText = const_cast<wchar_t *>(heading ? heading : L"");
  if (subItem >= 0) {
    lv.mask |= LVCF_SUBITEM;
    lv.iSubItem = subItem;
  }
  return static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&lv)));
}

bool CListCtrl::DeleteColumn(int column) {
  return SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(column)) != 0;
}
