#include "platform/windows/ResourceModule.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <map>
#include <memory>

#include "platform/windows/PathMap.h"
#include "platform/windows/PeImage.h"
#include "platform/windows/ResourceTemplates.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"
#include "platform/windows/WinMenu.h"
#include "platform/windows/WinWindow.h"

namespace {

struct LoadedModule {
  std::wstring fileName;
  tolv::PeImage image;
};

// The handle of a loaded module is the address of its record.
std::map<HMODULE, std::unique_ptr<LoadedModule>> &Modules() {
  static std::map<HMODULE, std::unique_ptr<LoadedModule>> modules;
  return modules;
}

LANGID g_resourceLanguage = 0x0804;

LoadedModule *Find(HMODULE module) {
  auto it = Modules().find(module);
  return it == Modules().end() ? nullptr : it->second.get();
}

HMODULE Register(std::unique_ptr<LoadedModule> loaded) {
  HMODULE handle = reinterpret_cast<HMODULE>(loaded.get());
  Modules()[handle] = std::move(loaded);
  return handle;
}

tolv::ResName NameOf(LPCWSTR name) {
  tolv::ResName r;
  if (IS_INTRESOURCE(name)) {
    r.id = RESOURCE_ID(name);
  } else if (name[0] == L'#') {
    // "#123" names the number 123, as at home.
    r.id = static_cast<std::uint16_t>(std::wcstoul(name + 1, nullptr, 10));
  } else {
    r.text = name;
    // Names are compared in upper case.
    for (wchar_t &c : r.text) c = (c >= L'a' && c <= L'z') ? wchar_t(c - 32) : c;
  }
  return r;
}

bool SameName(const tolv::ResName &a, const tolv::ResName &b) {
  if (a.IsId() || b.IsId()) return a.IsId() && b.IsId() && a.id == b.id;
  return _wcsicmp(a.text.c_str(), b.text.c_str()) == 0;
}

// The pointer form of a name for a callback: a number, or the text.
LPCWSTR PointerOf(const tolv::ResName &name) {
  return name.IsId() ? MAKEINTRESOURCEW(name.id) : name.text.c_str();
}

const tolv::PeResource *Pick(LoadedModule *m, const tolv::ResName &type, const tolv::ResName &name,
                             int language) {
  const tolv::PeResource *first = nullptr, *neutral = nullptr, *english = nullptr;
  for (const tolv::PeResource &r : m->image.Resources()) {
    if (!SameName(r.type, type) || !SameName(r.name, name)) continue;
    if (language >= 0) {
      if (r.language == language) return &r;
      continue;
    }
    if (r.language == g_resourceLanguage) return &r;
    if (!first) first = &r;
    if (!neutral && r.language == 0) neutral = &r;
    if (!english && r.language == 0x0409) english = &r;
  }
  return neutral ? neutral : english ? english : first;
}

std::string_view DataOf(HMODULE module, LPCWSTR name, LPCWSTR type) {
  LoadedModule *m = Find(module);
  if (!m) return {};
  const tolv::PeResource *r = Pick(m, NameOf(type), NameOf(name), -1);
  return r ? m->image.Data(*r) : std::string_view{};
}

HMENU BuildMenu(const std::vector<tolv::MenuItemTemplate> &items, HMENU menu) {
  for (const tolv::MenuItemTemplate &item : items) {
    if (item.popup) {
      HMENU sub = BuildMenu(item.items, CreatePopupMenu());
      AppendMenuW(menu, MF_POPUP | (item.flags & 0x0F), reinterpret_cast<UINT_PTR>(sub), item.text.c_str());
    } else if (item.text.empty() && item.id == 0) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else {
      AppendMenuW(menu, MF_STRING | (item.flags & 0x0F), item.id, item.text.c_str());
    }
  }
  return menu;
}

}  // namespace

HMODULE LoadLibraryW(LPCWSTR fileName) {
  if (!fileName || !*fileName) return nullptr;
  auto loaded = std::make_unique<LoadedModule>();
  loaded->fileName = fileName;
  std::string error;
  if (!loaded->image.Load(tolv::MapPath(fileName), error)) return nullptr;
  return Register(std::move(loaded));
}

BOOL FreeLibrary(HMODULE module) { return Modules().erase(module) ? TRUE : FALSE; }

DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size) {
  std::wstring name;
  if (LoadedModule *m = Find(module)) {
    name = m->fileName;
  } else {
    Dl_info info{};
    if (!module || !::dladdr(reinterpret_cast<void *>(module), &info) || !info.dli_fname) return 0;
    std::wstring path = tolv::ToSystemPath(info.dli_fname);
    // A shared library "libName.so" is the module "Name" of the home platform.
    std::size_t slash = path.rfind(L'\\');
    std::size_t base = slash == std::wstring::npos ? 0 : slash + 1;
    if (path.compare(base, 3, L"lib") == 0) path.erase(base, 3);
    name = path;
  }
  if (!buffer || size == 0) return 0;
  DWORD n = static_cast<DWORD>(std::min<std::size_t>(name.size(), size - 1));
  std::wmemcpy(buffer, name.data(), n);
  buffer[n] = L'\0';
  return n;
}

BOOL EnumResourceTypesW(HMODULE module, ENUMRESTYPEPROCW proc, LONG_PTR param) {
  LoadedModule *m = Find(module);
  if (!m || !proc) return FALSE;
  std::vector<tolv::ResName> seen;
  for (const tolv::PeResource &r : m->image.Resources()) {
    if (std::find(seen.begin(), seen.end(), r.type) != seen.end()) continue;
    seen.push_back(r.type);
  }
  for (tolv::ResName &type : seen) {
    if (!proc(module, const_cast<LPWSTR>(PointerOf(type)), param)) return FALSE;
  }
  return TRUE;
}

BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW proc, LONG_PTR param) {
  LoadedModule *m = Find(module);
  if (!m || !proc || !type) return FALSE;
  const tolv::ResName wanted = NameOf(type);
  std::vector<tolv::ResName> seen;
  for (const tolv::PeResource &r : m->image.Resources()) {
    if (!SameName(r.type, wanted) || std::find(seen.begin(), seen.end(), r.name) != seen.end()) continue;
    seen.push_back(r.name);
  }
  for (tolv::ResName &name : seen) {
    if (!proc(module, type, const_cast<LPWSTR>(PointerOf(name)), param)) return FALSE;
  }
  return TRUE;
}

BOOL EnumResourceLanguagesW(HMODULE module, LPCWSTR type, LPCWSTR name, ENUMRESLANGPROCW proc,
                            LONG_PTR param) {
  LoadedModule *m = Find(module);
  if (!m || !proc || !type || !name) return FALSE;
  const tolv::ResName wantedType = NameOf(type), wantedName = NameOf(name);
  std::vector<WORD> languages;
  for (const tolv::PeResource &r : m->image.Resources()) {
    if (SameName(r.type, wantedType) && SameName(r.name, wantedName)) languages.push_back(r.language);
  }
  for (WORD language : languages) {
    if (!proc(module, type, name, language, param)) return FALSE;
  }
  return TRUE;
}

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type) {
  LoadedModule *m = Find(module);
  if (!m || !name || !type) return nullptr;
  return reinterpret_cast<HRSRC>(const_cast<tolv::PeResource *>(Pick(m, NameOf(type), NameOf(name), -1)));
}

HRSRC FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language) {
  LoadedModule *m = Find(module);
  if (!m || !name || !type) return nullptr;
  return reinterpret_cast<HRSRC>(const_cast<tolv::PeResource *>(Pick(m, NameOf(type), NameOf(name), language)));
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource) {
  LoadedModule *m = Find(module);
  if (!m || !resource) return nullptr;
  const auto *r = reinterpret_cast<const tolv::PeResource *>(resource);
  return const_cast<char *>(m->image.Data(*r).data());
}

void *LockResource(HGLOBAL data) { return data; }

DWORD SizeofResource(HMODULE module, HRSRC resource) {
  if (!Find(module) || !resource) return 0;
  return reinterpret_cast<const tolv::PeResource *>(resource)->size;
}

int LoadStringW(HMODULE module, UINT id, LPWSTR buffer, int count) {
  if (!buffer || count <= 0) return 0;
  buffer[0] = L'\0';
  std::string_view block = DataOf(module, MAKEINTRESOURCEW((id >> 4) + 1), RT_STRING);
  std::array<std::wstring, 16> strings;
  if (block.empty() || !tolv::ParseStringBlock(block, strings)) return 0;
  const std::wstring &text = strings[id & 15];
  int n = std::min<int>(static_cast<int>(text.size()), count - 1);
  std::wmemcpy(buffer, text.data(), static_cast<std::size_t>(n));
  buffer[n] = L'\0';
  return n;
}

HMENU LoadMenuW(HMODULE module, LPCWSTR name) {
  std::string_view bytes = DataOf(module, name, RT_MENU);
  tolv::MenuTemplate menu;
  if (bytes.empty() || !tolv::ParseMenuTemplate(bytes, menu)) return nullptr;
  return BuildMenu(menu.items, CreateMenu());
}

HWND CreateDialogParamW(HMODULE module, LPCWSTR name, HWND parent, DLGPROC, LPARAM) {
  std::string_view bytes = DataOf(module, name, RT_DIALOG);
  tolv::DialogTemplate dialog;
  if (bytes.empty() || !tolv::ParseDialogTemplate(bytes, dialog)) return nullptr;
  return tolv::CreateDialogFromTemplate(dialog, parent);
}

namespace tolv {

void SetResourceLanguage(LANGID language) { g_resourceLanguage = language ? language : 0x0804; }
LANGID GetResourceLanguage() { return g_resourceLanguage; }

HMODULE CreateResourceModule(const std::wstring &fileName, const std::vector<RawResource> &resources) {
  auto loaded = std::make_unique<LoadedModule>();
  loaded->fileName = fileName;
  std::vector<std::uint8_t> bytes;
  std::vector<PeResource> list;
  for (const RawResource &raw : resources) {
    PeResource r;
    r.type = NameOf(raw.type);
    r.name = NameOf(raw.name);
    r.language = raw.language;
    r.offset = static_cast<std::uint32_t>(bytes.size());
    r.size = static_cast<std::uint32_t>(raw.bytes.size());
    bytes.insert(bytes.end(), raw.bytes.begin(), raw.bytes.end());
    list.push_back(std::move(r));
  }
  loaded->image.Adopt(std::move(bytes), std::move(list));
  return Register(std::move(loaded));
}

const PeImage *ModuleImage(HMODULE module) {
  LoadedModule *m = Find(module);
  return m ? &m->image : nullptr;
}

HWND CreateDialogFromTemplate(const DialogTemplate &dialog, HWND parent) {
  const std::wstring className = dialog.windowClass.IsId() ? std::wstring(L"#32770") : dialog.windowClass.text;
  HWND window = CreateWindowExW(dialog.exStyle, className.c_str(), dialog.title.c_str(), dialog.style,
                                dialog.x, dialog.y, dialog.cx, dialog.cy, parent, nullptr, nullptr, nullptr);
  if (!window) return nullptr;
  for (const DialogItemTemplate &item : dialog.items) {
    const std::wstring itemClass = item.ClassName();
    // A numbered title is an image's resource id, not text.
    const wchar_t *text = item.title.IsId() ? L"" : item.title.text.c_str();
    CreateWindowExW(item.exStyle, itemClass.c_str(), text, item.style, item.x, item.y, item.cx, item.cy,
                    window, reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(item.id)), nullptr, nullptr);
  }
  return window;
}

}  // namespace tolv
