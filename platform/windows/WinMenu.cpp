#include "platform/windows/WinMenu.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <unordered_set>
#include <vector>

struct HMENU__ {
  struct Item {
    UINT flags = 0;
    UINT id = 0;
    HMENU subMenu = nullptr;
    std::wstring text;
  };
  bool popup = false;
  std::vector<Item> items;
};

namespace {

std::unordered_set<HMENU> &LiveMenus() {
  static std::unordered_set<HMENU> menus;
  return menus;
}

bool IsLive(HMENU menu) { return menu && LiveMenus().count(menu) != 0; }

HMENU NewMenu(bool popup) {
  HMENU menu = new HMENU__;
  menu->popup = popup;
  LiveMenus().insert(menu);
  return menu;
}

// The index of the item a position names, or -1.
int IndexOf(HMENU menu, UINT position, UINT flags) {
  if (flags & MF_BYPOSITION) {
    return position < menu->items.size() ? static_cast<int>(position) : -1;
  }
  for (std::size_t i = 0; i < menu->items.size(); ++i) {
    const auto &item = menu->items[i];
    if (!(item.flags & MF_POPUP) && item.id == position) return static_cast<int>(i);
  }
  return -1;
}

bool MakeItem(UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text, HMENU__::Item &item) {
  item.flags = flags & ~(MF_BYPOSITION | MF_END);
  if (flags & MF_POPUP) {
    HMENU sub = reinterpret_cast<HMENU>(idOrSubMenu);
    if (!IsLive(sub)) return false;
    item.subMenu = sub;
    item.id = static_cast<UINT>(-1);
  } else {
    item.id = static_cast<UINT>(idOrSubMenu);
  }
  if (!(flags & MF_SEPARATOR)) item.text = text ? text : L"";
  return true;
}

}  // namespace

HMENU CreateMenu() { return NewMenu(false); }
HMENU CreatePopupMenu() { return NewMenu(true); }

BOOL DestroyMenu(HMENU menu) {
  if (!IsLive(menu)) return FALSE;
  LiveMenus().erase(menu);
  for (auto &item : menu->items) {
    if (item.subMenu) DestroyMenu(item.subMenu);
  }
  delete menu;
  return TRUE;
}

BOOL IsMenu(HMENU menu) { return IsLive(menu) ? TRUE : FALSE; }

BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text) {
  return InsertMenuW(menu, static_cast<UINT>(-1), flags | MF_BYPOSITION, idOrSubMenu, text);
}

BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text) {
  if (!IsLive(menu)) return FALSE;
  HMENU__::Item item;
  if (!MakeItem(flags, idOrSubMenu, text, item)) return FALSE;
  int at = IndexOf(menu, position, flags);
  if (at < 0) at = static_cast<int>(menu->items.size());
  menu->items.insert(menu->items.begin() + at, std::move(item));
  return TRUE;
}

BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idOrSubMenu, LPCWSTR text) {
  if (!IsLive(menu)) return FALSE;
  int at = IndexOf(menu, position, flags);
  if (at < 0) return FALSE;
  HMENU__::Item item;
  if (!MakeItem(flags, idOrSubMenu, text, item)) return FALSE;
  HMENU old = menu->items[static_cast<std::size_t>(at)].subMenu;
  if (old && old != item.subMenu) DestroyMenu(old);
  menu->items[static_cast<std::size_t>(at)] = std::move(item);
  return TRUE;
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags) {
  if (!IsLive(menu)) return FALSE;
  int at = IndexOf(menu, position, flags);
  if (at < 0) return FALSE;
  // The sub-menu of a removed popup is not destroyed: its caller keeps it.
  menu->items.erase(menu->items.begin() + at);
  return TRUE;
}

int GetMenuItemCount(HMENU menu) { return IsLive(menu) ? static_cast<int>(menu->items.size()) : -1; }

int GetMenuStringW(HMENU menu, UINT position, LPWSTR buffer, int count, UINT flags) {
  if (!IsLive(menu)) return 0;
  int at = IndexOf(menu, position, flags);
  if (at < 0) return 0;
  const std::wstring &text = menu->items[static_cast<std::size_t>(at)].text;
  if (!buffer) return static_cast<int>(text.size());
  if (count <= 0) return 0;
  int n = std::min<int>(static_cast<int>(text.size()), count - 1);
  std::wmemcpy(buffer, text.data(), static_cast<std::size_t>(n));
  buffer[n] = L'\0';
  return n;
}

UINT GetMenuItemID(HMENU menu, int position) {
  if (!IsLive(menu) || position < 0 || static_cast<std::size_t>(position) >= menu->items.size())
    return static_cast<UINT>(-1);
  const auto &item = menu->items[static_cast<std::size_t>(position)];
  if (item.flags & MF_POPUP) return static_cast<UINT>(-1);
  return item.id;
}

HMENU GetSubMenu(HMENU menu, int position) {
  if (!IsLive(menu) || position < 0 || static_cast<std::size_t>(position) >= menu->items.size())
    return nullptr;
  return menu->items[static_cast<std::size_t>(position)].subMenu;
}

UINT GetMenuState(HMENU menu, UINT position, UINT flags) {
  if (!IsLive(menu)) return static_cast<UINT>(-1);
  int at = IndexOf(menu, position, flags);
  if (at < 0) return static_cast<UINT>(-1);
  const auto &item = menu->items[static_cast<std::size_t>(at)];
  if (item.subMenu) return (item.flags & 0xFF) | (static_cast<UINT>(item.subMenu->items.size()) << 8);
  return item.flags;
}

namespace tolv {
int LiveMenuCount() { return static_cast<int>(LiveMenus().size()); }
}  // namespace tolv
