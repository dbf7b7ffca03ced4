// MFC's menu object over a menu handle.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/windows/WinMenu.h"

class CMenu {
 public:
  CMenu() = default;
  // Destroys the menu it still holds, as MFC does.
  virtual ~CMenu();
  CMenu(const CMenu &) = delete;
  CMenu &operator=(const CMenu &) = delete;

  // A menu object for a handle that stays valid while the handle does; the
  // object is kept by the framework and never destroys the menu.
  static CMenu *FromHandle(HMENU menu);

  // The menu `id` of the current resource module.
  bool LoadMenu(UINT id);
  bool CreateMenu();
  bool CreatePopupMenu();
  bool Attach(HMENU menu);
  HMENU Detach();
  bool DestroyMenu();
  HMENU GetSafeHmenu() const { return m_hMenu; }

  int GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }
  UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
  int GetMenuString(UINT position, CString &text, UINT flags) const;
  CMenu *GetSubMenu(int position) const;
  bool AppendMenu(UINT flags, UINT_PTR idOrSubMenu = 0, const wchar_t *text = nullptr);
  bool ModifyMenu(UINT position, UINT flags, UINT_PTR idOrSubMenu = 0, const wchar_t *text = nullptr);

  HMENU m_hMenu = nullptr;
};
