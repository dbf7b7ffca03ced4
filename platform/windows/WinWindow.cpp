#include "platform/windows/WinWindow.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/windows/WinCrt.h"

struct HWND__ {
  std::wstring className;
  std::wstring text;
  DWORD style = 0;
  DWORD exStyle = 0;
  int id = 0;
  HWND parent = nullptr;
  std::vector<HWND> children;
  // Combo boxes and list boxes only.
  std::vector<std::wstring> entries;
  int selection = -1;
};

namespace {

std::unordered_set<HWND> &LiveWindows() {
  static std::unordered_set<HWND> windows;
  return windows;
}

bool IsLive(HWND window) { return window && LiveWindows().count(window) != 0; }

bool IsClass(HWND window, const wchar_t *name) { return _wcsicmp(window->className.c_str(), name) == 0; }

int CopyOut(const std::wstring &text, LPWSTR buffer, int count) {
  if (!buffer || count <= 0) return 0;
  int n = std::min<int>(static_cast<int>(text.size()), count - 1);
  std::wmemcpy(buffer, text.data(), static_cast<std::size_t>(n));
  buffer[n] = L'\0';
  return n;
}

const wchar_t *TextArg(LPARAM lParam) {
  const wchar_t *text = reinterpret_cast<const wchar_t *>(lParam);
  return text ? text : L"";
}

// The entry messages, shared by both kinds of box: the codes differ only.
struct BoxMessages {
  UINT add, insert, remove, reset, setSel, getSel, getText, getTextLen, getCount;
  DWORD sortStyle;
};
constexpr BoxMessages kComboMessages{CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING,
                                     CB_RESETCONTENT, CB_SETCURSEL, CB_GETCURSEL,
                                     CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_GETCOUNT, CBS_SORT};
constexpr BoxMessages kListMessages{LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING,
                                    LB_RESETCONTENT, LB_SETCURSEL, LB_GETCURSEL,
                                    LB_GETTEXT, LB_GETTEXTLEN, LB_GETCOUNT, LBS_SORT};

bool BoxMessage(HWND w, const BoxMessages &m, UINT message, WPARAM wParam, LPARAM lParam,
                LRESULT &result) {
  const auto count = static_cast<LRESULT>(w->entries.size());
  const auto index = static_cast<LRESULT>(static_cast<INT_PTR>(wParam));
  if (message == m.add) {
    std::wstring text = TextArg(lParam);
    auto at = w->entries.end();
    if (w->style & m.sortStyle) {
      // Sorted boxes keep their entries in case-blind order.
      at = std::upper_bound(w->entries.begin(), w->entries.end(), text,
                            [](const std::wstring &a, const std::wstring &b) {
                              return _wcsicmp(a.c_str(), b.c_str()) < 0;
                            });
    }
    result = at - w->entries.begin();
    w->entries.insert(at, std::move(text));
  } else if (message == m.insert) {
    LRESULT at = index < 0 ? count : index;
    if (at > count) {
      result = -1;
    } else {
      w->entries.insert(w->entries.begin() + at, TextArg(lParam));
      result = at;
    }
  } else if (message == m.remove) {
    if (index < 0 || index >= count) {
      result = -1;
    } else {
      w->entries.erase(w->entries.begin() + index);
      if (w->selection == index) w->selection = -1;
      else if (w->selection > index) --w->selection;
      result = count - 1;
    }
  } else if (message == m.reset) {
    w->entries.clear();
    w->selection = -1;
    result = 0;
  } else if (message == m.setSel) {
    if (index < 0 || index >= count) {
      w->selection = -1;
      result = -1;
    } else {
      w->selection = static_cast<int>(index);
      result = index;
    }
  } else if (message == m.getSel) {
    result = w->selection;
  } else if (message == m.getText || message == m.getTextLen) {
    if (index < 0 || index >= count) {
      result = -1;
    } else {
      const std::wstring &entry = w->entries[static_cast<std::size_t>(index)];
      if (message == m.getText) {
        // As at home, the caller's buffer is taken to be large enough.
        if (wchar_t *out = reinterpret_cast<wchar_t *>(lParam)) {
          std::wmemcpy(out, entry.c_str(), entry.size() + 1);
        }
      }
      result = static_cast<LRESULT>(entry.size());
    }
  } else if (message == m.getCount) {
    result = count;
  } else {
    return false;
  }
  return true;
}

BOOL EnumChildren(HWND parent, WNDENUMPROC proc, LPARAM param, bool &any) {
  // A copy: the procedure may create or destroy windows.
  std::vector<HWND> children = parent->children;
  for (HWND child : children) {
    if (!IsLive(child)) continue;
    any = true;
    if (!proc(child, param)) return FALSE;
    if (IsLive(child) && !EnumChildren(child, proc, param, any)) return FALSE;
  }
  return TRUE;
}

}  // namespace

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int, int, int,
                     int, HWND parent, HMENU menuOrId, HINSTANCE, void *) {
  if (!className || !*className || (parent && !IsLive(parent))) return nullptr;
  HWND window = new HWND__;
  window->className = className;
  window->text = text ? text : L"";
  window->style = style;
  window->exStyle = exStyle;
  window->id = static_cast<int>(reinterpret_cast<std::uintptr_t>(menuOrId));
  window->parent = parent;
  if (parent) parent->children.push_back(window);
  LiveWindows().insert(window);
  return window;
}

BOOL DestroyWindow(HWND window) {
  if (!IsLive(window)) return FALSE;
  std::vector<HWND> children = window->children;
  for (HWND child : children) DestroyWindow(child);
  if (IsLive(window->parent)) {
    auto &siblings = window->parent->children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), window), siblings.end());
  }
  LiveWindows().erase(window);
  delete window;
  return TRUE;
}

BOOL IsWindow(HWND window) { return IsLive(window) ? TRUE : FALSE; }

int GetWindowTextW(HWND window, LPWSTR buffer, int count) {
  if (!IsLive(window)) {
    if (buffer && count > 0) buffer[0] = L'\0';
    return 0;
  }
  return CopyOut(window->text, buffer, count);
}

int GetWindowTextLengthW(HWND window) { return IsLive(window) ? static_cast<int>(window->text.size()) : 0; }

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
  if (!IsLive(window)) return FALSE;
  window->text = text ? text : L"";
  return TRUE;
}

int GetClassNameW(HWND window, LPWSTR buffer, int count) {
  return IsLive(window) ? CopyOut(window->className, buffer, count) : 0;
}

LONG GetWindowLongW(HWND window, int index) {
  if (!IsLive(window)) return 0;
  switch (index) {
    case GWL_STYLE: return static_cast<LONG>(window->style);
    case GWL_EXSTYLE: return static_cast<LONG>(window->exStyle);
    case GWL_ID: return window->id;
    default: return 0;
  }
}

HWND GetParent(HWND window) { return IsLive(window) ? window->parent : nullptr; }

HWND GetDlgItem(HWND dialog, int id) {
  if (!IsLive(dialog)) return nullptr;
  for (HWND child : dialog->children) {
    if (child->id == id) return child;
  }
  return nullptr;
}

int GetDlgCtrlID(HWND window) { return IsLive(window) ? window->id : 0; }

BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param) {
  if (!IsLive(parent) || !proc) return FALSE;
  bool any = false;
  BOOL finished = EnumChildren(parent, proc, param, any);
  return (finished && any) ? TRUE : FALSE;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!IsLive(window)) return 0;
  switch (message) {
    case WM_SETTEXT:
      window->text = TextArg(lParam);
      return TRUE;
    case WM_GETTEXT:
      return CopyOut(window->text, reinterpret_cast<wchar_t *>(lParam), static_cast<int>(wParam));
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(window->text.size());
    default:
      break;
  }
  LRESULT result = 0;
  if (IsClass(window, L"ComboBox") && BoxMessage(window, kComboMessages, message, wParam, lParam, result))
    return result;
  if (IsClass(window, L"ListBox") && BoxMessage(window, kListMessages, message, wParam, lParam, result))
    return result;
  return 0;
}

namespace tolv {
int LiveWindowCount() { return static_cast<int>(LiveWindows().size()); }
}  // namespace tolv
