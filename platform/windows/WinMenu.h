// Menus: an ordered list of items, each a text with a command id, a
// separator, or a popup that owns its sub-menu.
#pragma once

#include "platform/windows/WinTypes.h"

#define MF_STRING 0x0000u
#define MF_BYCOMMAND 0x0000u
#define MF_GRAYED 0x0001u
#define MF_DISABLED 0x0002u
#define MF_CHECKED 0x0008u
#define MF_POPUP 0x0010u
#define MF_MENUBARBREAK 0x0020u
#define MF_MENUBREAK 0x0040u
#define MF_END 0x0080u
#define MF_BYPOSITION 0x0400u
#define MF_SEPARATOR 0x0800u

HMENU CreateMenu();
HMENU CreatePopupMenu();
// Destroys the menu and every sub-menu it owns.
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);

// With MF_POPUP, `idOrSubMenu` is the sub-menu, which the menu then owns.
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text);
BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text);
// Replaces the item at `position` (an index with MF_BYPOSITION, otherwise a
// command id). A popup replaced by anything but the same sub-menu loses it.
BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text);
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);

// -1 for a menu that is not there.
int GetMenuItemCount(HMENU menu);
// Copies at most count - 1 characters; with a null buffer gives the length.
int GetMenuStringW(HMENU menu, UINT position, LPWSTR buffer, int count, UINT flags);
// The command id at a position; -1 (as UINT) for a popup or a bad position,
// 0 for a separator.
UINT GetMenuItemID(HMENU menu, int position);
// The sub-menu of the popup at a position, or null.
HMENU GetSubMenu(HMENU menu, int position);
// The flags of an item, or -1 (as UINT).
UINT GetMenuState(HMENU menu, UINT position, UINT flags);

namespace tolv {
int LiveMenuCount();
}  // namespace tolv
