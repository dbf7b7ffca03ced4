#include "platform/mfc/CMenu.h"

#include <memory>
#include <unordered_map>

#include "platform/mfc/AfxModuleState.h"
#include "platform/windows/ResourceModule.h"

namespace {

// The framework's objects for handles it was asked about; they hold the
// handle without owning it.
struct DetachAndDelete {
  void operator()(CMenu *menu) const {
    menu->Detach();
    delete menu;
  }
};
using HandleObject = std::unique_ptr<CMenu, DetachAndDelete>;

std::unordered_map<HMENU, HandleObject> &HandleMap() {
  static std::unordered_map<HMENU, HandleObject> map;
  return map;
}

}  // namespace

CMenu::~CMenu() {
  if (m_hMenu) ::DestroyMenu(m_hMenu);
}

CMenu *CMenu::FromHandle(HMENU menu) {
  if (!menu) return nullptr;
  auto &slot = HandleMap()[menu];
  if (!slot) slot.reset(new CMenu);
  slot->m_hMenu = menu;
  return slot.get();
}

bool CMenu::LoadMenu(UINT id) {
  if (m_hMenu) return false;
  m_hMenu = ::LoadMenuW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id));
  return m_hMenu != nullptr;
}

bool CMenu::CreateMenu() { return !m_hMenu && (m_hMenu = ::CreateMenu()) != nullptr; }
bool CMenu::CreatePopupMenu() { return !m_hMenu && (m_hMenu = ::CreatePopupMenu()) != nullptr; }

bool CMenu::Attach(HMENU menu) {
  if (m_hMenu || !menu) return false;
  m_hMenu = menu;
  return true;
}

HMENU CMenu::Detach() {
  HMENU menu = m_hMenu;
  m_hMenu = nullptr;
  return menu;
}

bool CMenu::DestroyMenu() {
  HMENU menu = Detach();
  return menu && ::DestroyMenu(menu);
}

int CMenu::GetMenuString(UINT position, CString &text, UINT flags) const {
  int length = ::GetMenuStringW(m_hMenu, position, nullptr, 0, flags);
  wchar_t *buffer = text.GetBuffer(length + 1);
  int n = ::GetMenuStringW(m_hMenu, position, buffer, length + 1, flags);
  text.ReleaseBuffer(n);
  return n;
}

CMenu *CMenu::GetSubMenu(int position) const { return FromHandle(::GetSubMenu(m_hMenu, position)); }

bool CMenu::AppendMenu(UINT flags, UINT_PTR idOrSubMenu, const wchar_t *text) {
  return ::AppendMenuW(m_hMenu, flags, idOrSubMenu, text) != FALSE;
}

bool CMenu::ModifyMenu(UINT position, UINT flags, UINT_PTR idOrSubMenu, const wchar_t *text) {
  return ::ModifyMenuW(m_hMenu, position, flags, idOrSubMenu, text) != FALSE;
}
