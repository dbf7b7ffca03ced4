#include "language/LanguageTools.h"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "language/LangTranslate.h"
#include "language/LanguageModuleKey.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/mfc/AfxModuleState.h"
#include "platform/mfc/CDialog.h"
#include "platform/mfc/CMenu.h"
#include "platform/mfc/CStdioFile.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/Profile.h"
#include "platform/windows/ResourceModule.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace {

// The module in work during an export, and its sections.
struct ExportState {
  KyDtDictionary *module = nullptr;
  KyDtDictionary *dialogs = nullptr;
  KyDtDictionary *menus = nullptr;
  KyDtDictionary *codes = nullptr;
  KyDtDictionary *strings = nullptr;
  KyDtDictionary *toolBars = nullptr;
  HMODULE instance = nullptr;
};
ExportState g_export;

const wchar_t *const kSections[] = {L"DIALOG", L"MENU", L"CODESTRING", L"STRING", L"TOOLBAR"};
// Source trees nest a few levels; a link that loops must not walk forever.
constexpr int kMaxSourceDepth = 32;

KyDtDictionary *AsDict(KyDtDictItem *item) {
  return (item && item->IsDict()) ? static_cast<KyDtDictionary *>(item) : nullptr;
}

// The child of that exact name; names may hold any character, so they are
// not read as paths here.
KyDtDictItem *FindChild(KyDtDictionary *parent, const CString &name) {
  if (!parent) return nullptr;
  for (KyDtDictItem *const *slot = parent->GetFirst(); slot; slot = parent->GetNext(slot)) {
    if (*slot && (*slot)->m_strName == name) return *slot;
  }
  return nullptr;
}

KyDtDictionary *AddDict(KyDtDictionary *parent, const CString &name, const CString &localName,
                        const wchar_t *elementType) {
  if (!parent) return nullptr;
  if (KyDtDictItem *existing = FindChild(parent, name)) return AsDict(existing);
  auto *dict = new KyDtDictionary(name, localName);
  if (elementType) dict->SetAttributeValue(L"element_type", elementType);
  if (!parent->AppendItem(dict)) {
    delete dict;
    return nullptr;
  }
  return dict;
}

// Adds a string item; one of the same name already there stays as it is.
void AddString(KyDtDictionary *parent, const CString &name, const CString &localName, const wchar_t *elementType) {
  if (!parent || name.IsEmpty() || FindChild(parent, name)) return;
  auto *item = new KyDtDictStringItem;
  item->m_strName = name;
  item->m_strLocalName = localName;
  item->SetAttributeValue(L"element_type", elementType);
  if (!parent->AppendItem(item)) delete item;
}

CString Decimal(unsigned int id) {
  CString text;
  text.Format(L"%u", id);
  return text;
}

CString ResourceKey(LPCWSTR name) { return IS_INTRESOURCE(name) ? Decimal(RESOURCE_ID(name)) : CString(name); }

CString UpperClassName(HWND window) {
  wchar_t name[256];
  ::GetClassNameW(window, name, 256);
  CString upper(name);
  upper.MakeUpper();
  return upper;
}

bool JoinBox(HWND window, UINT countMessage, UINT lengthMessage, UINT textMessage, CString &joined) {
  const int count = static_cast<int>(::SendMessageW(window, countMessage, 0, 0));
  if (count <= 0) return false;
  joined.Empty();
  for (int i = 0; i < count; ++i) {
    LRESULT length = ::SendMessageW(window, lengthMessage, static_cast<WPARAM>(i), 0);
    CString entry;
    if (length > 0) {
      wchar_t *buffer = entry.GetBuffer(static_cast<int>(length) + 1);
      ::SendMessageW(window, textMessage, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(buffer));
      entry.ReleaseBuffer(static_cast<int>(length));
    }
    if (i > 0) joined += L';';
    joined += entry;
  }
  return true;
}

BOOL ExportChild(HWND window, LPARAM param) {
  auto *dialog = reinterpret_cast<KyDtDictionary *>(param);
  const CString className = UpperClassName(window);
  if (className == L"EDIT") return TRUE;
  CString text;
  if (className == L"COMBOBOX") {
    if (!JoinBox(window, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, text)) return TRUE;
  } else if (className == L"LISTBOX") {
    if (!JoinBox(window, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, text)) return TRUE;
  } else {
    const int length = ::GetWindowTextLengthW(window);
    wchar_t *buffer = text.GetBuffer(length + 1);
    ::GetWindowTextW(window, buffer, length + 1);
    text.ReleaseBuffer(length);
  }
  if (text.IsEmpty()) return TRUE;
  AddString(dialog, text, text, className);
  return TRUE;
}

void ExportMenuItems(HMENU menu, KyDtDictionary *table) {
  const int count = ::GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    CString text;
    CMenu::FromHandle(menu)->GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
    CString name = text;
    name.Replace(L'\\', L'#');
    const UINT id = ::GetMenuItemID(menu, i);
    HMENU sub = ::GetSubMenu(menu, i);
    if (sub && ::GetMenuItemCount(sub) > 0) {
      if (KyDtDictionary *popup = AddDict(table, name, text, L"MENUPOPUP")) ExportMenuItems(sub, popup);
    } else if (id != 0) {
      AddString(table, name, text, L"MENUITEM");
    }
  }
}

void ExportDialog(LPCWSTR name) {
  CDialog dialog;
  const bool made = IS_INTRESOURCE(name) ? dialog.Create(RESOURCE_ID(name), nullptr) : dialog.Create(name, nullptr);
  if (!made) return;
  CString caption;
  dialog.GetWindowText(caption);
  if (KyDtDictionary *table = AddDict(g_export.dialogs, ResourceKey(name), caption, L"DIALOG"))
    ::EnumChildWindows(dialog.GetSafeHwnd(), ExportChild, reinterpret_cast<LPARAM>(table));
  dialog.DestroyWindow();
}

void ExportMenu(LPCWSTR name) {
  const CString key = ResourceKey(name);
  KyDtDictionary *table = AddDict(g_export.menus, key, key, L"MENU");
  HMENU menu = ::LoadMenuW(AfxGetResourceHandle(), name);
  if (table && menu) ExportMenuItems(menu, table);
  if (menu) ::DestroyMenu(menu);
}

void ExportStringBlock(HMODULE module, LPCWSTR name, WORD language) {
  if (!IS_INTRESOURCE(name)) return;
  HRSRC resource = ::FindResourceExW(module, RT_STRING, name, language);
  if (::SizeofResource(module, resource) < 32) return;
  const unsigned int block = RESOURCE_ID(name);
  for (unsigned int n = 0; n < 16; ++n) {
    const unsigned int id = (block - 1) * 16 + n;
    CString text;
    if (!text.LoadString(id) || text.IsEmpty()) continue;
    text.Remove(L'\n');
    AddString(g_export.strings, Decimal(id), text, L"STRING");
  }
}

// The entries of a folder in the order the home platform lists them.
struct DirEntry {
  std::wstring name;
  bool directory;
};

std::vector<DirEntry> ListFolder(const CString &directory) {
  std::vector<DirEntry> entries;
  std::error_code error;
  for (std::filesystem::directory_iterator it(tolv::MapPath(directory.view()), error), end; !error && it != end;
       it.increment(error)) {
    std::wstring name = tolv::FromUtf8(it->path().filename().string());
    if (name == L"." || name == L"..") continue;
    std::error_code kindError;
    entries.push_back({name, it->is_directory(kindError)});
  }
  std::sort(entries.begin(), entries.end(),
            [](const DirEntry &a, const DirEntry &b) { return _wcsicmp(a.name.c_str(), b.name.c_str()) < 0; });
  return entries;
}

// What follows the first point of a file name.
bool IsCppFile(const std::wstring &name) {
  std::size_t point = name.find(L'.');
  return point != std::wstring::npos && _wcsicmp(name.c_str() + point + 1, L"cpp") == 0;
}

// Walks the folders whose names hold "Tolv" and the "cpp" files in them.
template <typename OnFolder, typename OnLine, typename OnDone>
void WalkSources(const CString &directory, int depth, OnFolder onFolder, OnLine onLine, OnDone onDone) {
  if (depth > kMaxSourceDepth) return;
  for (const DirEntry &entry : ListFolder(directory)) {
    const CString path = directory + L"\\" + CString(entry.name);
    if (entry.directory) {
      if (entry.name.find(L"Tolv") == std::wstring::npos) continue;
      onFolder(CString(entry.name));
      WalkSources(path, depth + 1, onFolder, onLine, onDone);
    } else if (IsCppFile(entry.name)) {
      CStdioFile file;
      if (!file.Open(path, CFile::modeRead | CFile::typeText)) continue;
      CString line;
      while (file.ReadString(line)) onLine(line);
      file.Close();
    }
  }
  onDone();
}

const std::wregex &LiteralPattern() {
  static const std::wregex pattern(L"((\"[^\"]+\")|('[^']+'))", std::regex::ECMAScript | std::regex::icase);
  return pattern;
}

const std::wregex &ChinesePattern() {
  static const std::wregex pattern(L"[\u4E00-\u9FA5]+", std::regex::ECMAScript | std::regex::icase);
  return pattern;
}

const std::wregex &ReplacePattern() {
  static const std::wregex pattern(L"[_][T][(][\"]", std::regex::ECMAScript | std::regex::icase);
  return pattern;
}

void MergeDictionary(KyDtDictionary *target, KyDtDictionary *source, bool remove) {
  for (std::int32_t i = 0; i < source->GetLength();) {
    KyDtDictItem *item = source->GetAt(i);
    KyDtDictItem *match = item ? FindChild(target, item->m_strName) : nullptr;
    if (match) {
      if (match->GetType() == item->GetType() && item->IsDict())
        MergeDictionary(static_cast<KyDtDictionary *>(match), static_cast<KyDtDictionary *>(item), remove);
      ++i;
    } else if (remove) {
      source->Del(i);
    } else {
      if (item) {
        KyDtDictItem *copy = item->Clone();
        if (copy && !target->AppendItem(copy)) delete copy;
      }
      ++i;
    }
  }
}

// A bare file name of the load list lies beside the list.
CString ModulePath(const CString &listPath, const CString &fileName) {
  if (fileName.Find(L'\\') >= 0 || fileName.Find(L':') >= 0) return fileName;
  int slash = listPath.ReverseFind(L'\\');
  return slash < 0 ? fileName : listPath.Left(slash + 1) + fileName;
}

void SaveAndReport(KyDtDictionary *package, const CString &path) {
  if (package->SaveToXML(path)) acutPrintf(L"%s%s", _TL(L"\n导出完毕,数据已存入").GetString(), path.GetString());
}

}  // namespace

void LoadLanguageToolPaths(LanguageToolContext &context) {
  CString ini;
  if (!FindFile(L"Set.ini", ini)) return;
  struct Key {
    const wchar_t *name;
    CString *target;
  };
  for (const Key &key : {Key{L"Package", &context.packagePath}, Key{L"ModuleList", &context.moduleListPath},
                         Key{L"SourceRoot", &context.sourceRoot}}) {
    wchar_t value[1024] = {};
    if (::GetPrivateProfileStringW(L"LanguageTools", key.name, L"", value, 1024, ini) == 0) continue;
    // A relative path lies under the main directory.
    const CString path(value);
    const bool absolute = path.Find(L':') >= 0 || path[0] == L'\\';
    *key.target = absolute ? path : GetMainDirectory() + path;
  }
}

namespace tolv {

void ReadModuleList(const CString &listPath, CStringArray &modules, bool &opened) {
  modules.RemoveAll();
  CStdioFile file;
  opened = file.Open(listPath, CFile::modeRead | CFile::typeText);
  if (!opened) return;
  CString line;
  while (file.ReadString(line)) {
    line.MakeUpper();
    line.TrimLeft();
    if (line.Find(L';') >= 0) continue;
    const int arx = line.Find(L".ARX");
    if (arx < 0) continue;
    line = line.Left(arx + 4);
    if (line == L"TOLVLOADER.ARX") continue;
    modules.Add(line);
  }
  file.Close();
  modules.Add(L"TOLVCOMCTRL9.DLL");
}

}  // namespace tolv

void ExportLanguage(LanguageToolContext &context) {
  KyDtDictionary *package = context.package;
  if (!package) return;
  package->Reset();
  package->m_strName = L"TOLV_LANGUAUE_PACKAGE";
  package->m_strLocalName = L"SenvarCAD Arch Language Package-English";
  CStringArray modules;
  bool opened = false;
  tolv::ReadModuleList(context.moduleListPath, modules, opened);
  if (!opened) {
    AfxMessageBox(_TL(L"打开") + context.moduleListPath + _TL(L"出错!"));
    return;
  }
  for (int i = 0; i < modules.GetSize(); ++i) ExportModule(context, ModulePath(context.moduleListPath, modules[i]));
  ExportCodeStrings(context, context.sourceRoot);

  CString oldPath;
  KyDtDictionary old;
  if (!FindFile(L"TolvLanguage.xml", oldPath) || !old.ReadFromXML(oldPath)) {
    SaveAndReport(package, context.packagePath);
    return;
  }
  MergePackages(context, package, &old);
  SaveAndReport(&old, oldPath);
}

void ExportModule(LanguageToolContext &context, const CString &fileName) {
  const int slash = fileName.ReverseFind(L'\\');
  const CString key = LanguageFileKey(fileName.Mid(slash + 1));
  g_export = ExportState{};
  g_export.module = AddDict(context.package, key, key, nullptr);
  if (!g_export.module) return;
  KyDtDictionary **sections[] = {&g_export.dialogs, &g_export.menus, &g_export.codes, &g_export.strings,
                                 &g_export.toolBars};
  for (int i = 0; i < 5; ++i) *sections[i] = AddDict(g_export.module, kSections[i], kSections[i], nullptr);

  HMODULE module = ::LoadLibraryW(fileName);
  if (!module) return;
  g_export.instance = module;
  const HINSTANCE oldResource = AfxGetResourceHandle();
  AfxSetResourceHandle(module);
  ::EnumResourceTypesW(
      module,
      [](HMODULE m, LPWSTR type, LONG_PTR) -> BOOL {
        ::EnumResourceNamesW(
            m, type,
            [](HMODULE m2, LPCWSTR type2, LPWSTR name, LONG_PTR) -> BOOL {
              ::EnumResourceLanguagesW(m2, type2, name, ExportResource, 0);
              return TRUE;
            },
            0);
        return TRUE;
      },
      0);
  AfxSetResourceHandle(oldResource);
  ::FreeLibrary(module);
  g_export.instance = nullptr;
}

BOOL ExportResource(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language, LONG_PTR) {
  if (!IS_INTRESOURCE(type)) return TRUE;
  switch (RESOURCE_ID(type)) {
    case 5:
      ExportDialog(name);
      break;
    case 241: {
      const CString key = ResourceKey(name);
      AddDict(g_export.toolBars, key, key, L"TOOLBAR");
      break;
    }
    case 4:
      ExportMenu(name);
      break;
    case 6:
      ExportStringBlock(module, name, language);
      break;
    default:
      break;
  }
  return TRUE;
}

void ExportCodeStrings(LanguageToolContext &context, const CString &directory) {
  WalkSources(
      directory, 0,
      [&](const CString &folder) {
        CString key = folder;
        key.MakeUpper();
        g_export.module = AddDict(context.package, key, key, nullptr);
        g_export.codes = AsDict(FindChild(g_export.module, L"CODESTRING"));
      },
      [&](const CString &line) { ExportLineStrings(context, line); }, [] {});
}

void ExportLineStrings(LanguageToolContext &, const CString &line) {
  if (!g_export.module) return;
  const std::wstring text = line.str();
  for (std::wsregex_iterator it(text.begin(), text.end(), LiteralPattern()), end; it != end; ++it) {
    const std::wstring match = it->str();
    CString name(match.substr(1, match.size() - 2));
    name.Replace(L"\\n", L"\n");
    name.Replace(L"\\r", L"\r");
    const CString localName = name;
    name.Replace(L"\\\\", L"#");
    if (!g_export.codes || !std::regex_search(name.str(), ChinesePattern())) continue;
    KyDtDictItem *item = FindChild(g_export.codes, name);
    if (!item) {
      auto *added = new KyDtDictStringItem;
      added->m_strName = name;
      if (!g_export.codes->AppendItem(added)) {
        delete added;
        continue;
      }
      item = added;
    }
    item->m_strLocalName = localName;
    item->SetAttributeValue(L"element_type", L"CODESTRING");
  }
}

void MergePackages(LanguageToolContext &, KyDtDictionary *fresh, KyDtDictionary *old) {
  if (!fresh || !old) return;
  MergeDictionary(fresh, old, true);
  MergeDictionary(old, fresh, false);
}

void ReplaceLanguage(LanguageToolContext &context) {
  WalkSources(
      context.sourceRoot, 0, [](const CString &) {},
      [](const CString &line) {
        const std::wstring text = line.str();
        if (!std::regex_search(text, ReplacePattern())) return;
        const std::wstring replaced = std::regex_replace(text, ReplacePattern(), L"_TL(\"");
        acutPrintf(L"\n%s", replaced.c_str());
      },
      [] { acutPrintf(L"\n%s", _TL(L"替换完成").GetString()); });
}
