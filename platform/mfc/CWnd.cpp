#include "platform/mfc/CWnd.h"

#include <unordered_map>

namespace {

std::unordered_map<HWND, CWnd *> &PermanentMap() {
  static std::unordered_map<HWND, CWnd *> map;
  return map;
}

CString BoxText(HWND window, UINT lengthMessage, UINT textMessage, int index) {
  LRESULT length = SendMessageW(window, lengthMessage, static_cast<WPARAM>(index), 0);
  if (length < 0) return CString();
  CString text;
  wchar_t *buffer = text.GetBuffer(static_cast<int>(length) + 1);
  SendMessageW(window, textMessage, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer));
  text.ReleaseBuffer(static_cast<int>(length));
  return text;
}

}  // namespace

CWnd::~CWnd() {
  if (m_hWnd) {
    PermanentMap().erase(m_hWnd);
    ::DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
  }
}

CWnd *CWnd::FromHandlePermanent(HWND window) {
  auto it = PermanentMap().find(window);
  return it == PermanentMap().end() ? nullptr : it->second;
}

bool CWnd::Attach(HWND window) {
  if (m_hWnd || !::IsWindow(window)) return false;
  m_hWnd = window;
  PermanentMap()[window] = this;
  return true;
}

HWND CWnd::Detach() {
  HWND window = m_hWnd;
  if (window) PermanentMap().erase(window);
  m_hWnd = nullptr;
  return window;
}

bool CWnd::CreateEx(DWORD exStyle, const wchar_t *className, const wchar_t *text, DWORD style,
                    CWnd *parent, UINT id) {
  HWND window = ::CreateWindowExW(exStyle, className, text, style, 0, 0, 0, 0, parent ? parent->m_hWnd : nullptr,
                                  reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(id)), nullptr, nullptr);
  return window && Attach(window);
}

bool CWnd::DestroyWindow() {
  HWND window = Detach();
  return window && ::DestroyWindow(window);
}

void CWnd::SetWindowText(const wchar_t *text) { ::SetWindowTextW(m_hWnd, text); }

void CWnd::GetWindowText(CString &text) const {
  int length = ::GetWindowTextLengthW(m_hWnd);
  wchar_t *buffer = text.GetBuffer(length + 1);
  ::GetWindowTextW(m_hWnd, buffer, length + 1);
  text.ReleaseBuffer(length);
}

CString CWnd::GetClassName() const {
  wchar_t name[256];
  int n = ::GetClassNameW(m_hWnd, name, 256);
  return CString(name, n);
}

int CWnd::GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

int CComboBox::GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
int CComboBox::GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
int CComboBox::SetCurSel(int index) { return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index))); }
void CComboBox::GetLBText(int index, CString &text) const { text = BoxText(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, index); }
int CComboBox::AddString(const wchar_t *text) {
  return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}
int CComboBox::InsertString(int index, const wchar_t *text) {
  return static_cast<int>(SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}
int CComboBox::DeleteString(UINT index) { return static_cast<int>(SendMessage(CB_DELETESTRING, index)); }
void CComboBox::ResetContent() { SendMessage(CB_RESETCONTENT); }

int CListBox::GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
int CListBox::GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
int CListBox::SetCurSel(int index) { return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index))); }
void CListBox::GetText(int index, CString &text) const { text = BoxText(m_hWnd, LB_GETTEXTLEN, LB_GETTEXT, index); }
int CListBox::AddString(const wchar_t *text) {
  return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}
int CListBox::InsertString(int index, const wchar_t *text) {
  return static_cast<int>(SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}
int CListBox::DeleteString(UINT index) { return static_cast<int>(SendMessage(LB_DELETESTRING, index)); }
void CListBox::ResetContent() { SendMessage(LB_RESETCONTENT); }
