// MFC's window objects over the window stand-ins: a CWnd is attached to one
// window handle; the kind of object (CDialog, CEdit, CComboBox, ...) is the
// C++ class, found again from a handle through the permanent map.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/windows/WinWindow.h"

class CWnd {
 public:
  CWnd() = default;
  // Destroys the window it still holds, as MFC does.
  virtual ~CWnd();
  CWnd(const CWnd &) = delete;
  CWnd &operator=(const CWnd &) = delete;

  // The object attached to a handle, or null.
  static CWnd *FromHandlePermanent(HWND window);

  HWND GetSafeHwnd() const { return m_hWnd; }
  // Attaches the object to an existing window; false when it already holds one.
  bool Attach(HWND window);
  HWND Detach();
  // Creates a child or top window of the class and attaches to it.
  bool CreateEx(DWORD exStyle, const wchar_t *className, const wchar_t *text, DWORD style,
                CWnd *parent, UINT id);
  virtual bool DestroyWindow();

  void SetWindowText(const wchar_t *text);
  void GetWindowText(CString &text) const;
  CString GetClassName() const;
  int GetDlgCtrlID() const;
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  HWND m_hWnd = nullptr;
};

class CEdit : public CWnd {};

class CComboBox : public CWnd {
 public:
  int GetCount() const;
  int GetCurSel() const;
  int SetCurSel(int index);
  void GetLBText(int index, CString &text) const;
  int AddString(const wchar_t *text);
  int InsertString(int index, const wchar_t *text);
  int DeleteString(UINT index);
  void ResetContent();
};

class CListBox : public CWnd {
 public:
  int GetCount() const;
  int GetCurSel() const;
  int SetCurSel(int index);
  void GetText(int index, CString &text) const;
  int AddString(const wchar_t *text);
  int InsertString(int index, const wchar_t *text);
  int DeleteString(UINT index);
  void ResetContent();
};
