#include "lang/LangFill.h"

#include "TolvDataBase.h"

namespace tolv::lang {

namespace {

template <typename Parsed, typename Parse>
bool ReadTemplate(HMODULE module, LPCWSTR type, unsigned id, WORD language, Parse parse, Parsed &parsed) {
  HRSRC r = language ? FindResourceExW(module, type, MAKEINTRESOURCEW(id), language)
                     : FindResourceW(module, MAKEINTRESOURCEW(id), type);
  if (!r) return false;
  std::string_view bytes(static_cast<const char *>(LockResource(LoadResource(module, r))), SizeofResource(module, r));
  return parse(bytes, parsed);
}

bool SameControls(const DialogTemplate &a, const DialogTemplate &b) {
  if (a.items.size() != b.items.size()) return false;
  for (std::size_t i = 0; i < a.items.size(); ++i)
    if (a.items[i].ClassName() != b.items[i].ClassName() || a.items[i].id != b.items[i].id) return false;
  return true;
}

bool SameShape(const std::vector<MenuItemTemplate> &a, const std::vector<MenuItemTemplate> &b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i].popup != b[i].popup || (a[i].popup && !SameShape(a[i].items, b[i].items))) return false;
  return true;
}

KyDtDictItem *Child(KyDtDictionary *dict, const std::wstring &name) {
  if (!dict) return nullptr;
  for (KyDtDictItem *const *slot = dict->GetFirst(); slot; slot = dict->GetNext(slot))
    if (*slot && (*slot)->m_strName == CString(name.c_str())) return *slot;
  return nullptr;
}

void FillMenu(KyDtDictionary *table, const std::vector<MenuItemTemplate> &source,
              const std::vector<MenuItemTemplate> &target, FillCount &count) {
  for (std::size_t i = 0; i < source.size(); ++i) {
    std::wstring name = source[i].text;
    for (wchar_t &c : name) c = c == L'\\' ? L'#' : c;
    KyDtDictItem *entry = Child(table, name);
    if (!entry || name.empty()) continue;
    entry->m_strLocalName = target[i].text.c_str();
    ++count.menuItems;
    if (source[i].popup && entry->IsDict())
      FillMenu(static_cast<KyDtDictionary *>(entry), source[i].items, target[i].items, count);
  }
}

}  // namespace

FillCount FillFromResources(KyDtDictionary &package, const std::wstring &modulePath, unsigned short language) {
  FillCount count;
  const CString key = LanguageModuleKey(CString(modulePath.c_str()));
  KyDtDictionary *table = package.FindDict(key);
  HMODULE module = LoadLibraryW(modulePath.c_str());
  if (!table || !module) {
    if (module) FreeLibrary(module);
    return count;
  }
  // The source texts are those the export read: the preferred language's.
  if (KyDtDictionary *dialogs = table->FindDict(L"DIALOG")) {
    for (KyDtDictItem *const *slot = dialogs->GetFirst(); slot; slot = dialogs->GetNext(slot)) {
      if (!*slot || !(*slot)->IsDict()) continue;
      auto *dialog = static_cast<KyDtDictionary *>(*slot);
      const unsigned id = static_cast<unsigned>(_wtoi(dialog->m_strName));
      DialogTemplate source, target;
      if (!ReadTemplate(module, RT_DIALOG, id, 0, ParseDialogTemplate, source) ||
          !ReadTemplate(module, RT_DIALOG, id, language, ParseDialogTemplate, target))
        continue;
      dialog->m_strLocalName = target.title.c_str();
      ++count.dialogs;
      const bool same = SameControls(source, target);
      for (std::size_t i = 0; i < source.items.size(); ++i) {
        const DialogItemTemplate *pair = same ? &target.items[i] : nullptr;
        for (std::size_t j = 0; !pair && j < target.items.size(); ++j)
          if (target.items[j].id == source.items[i].id) pair = &target.items[j];
        if (!pair || source.items[i].title.IsId() || pair->title.IsId()) continue;
        if (KyDtDictItem *entry = Child(dialog, source.items[i].title.text)) {
          entry->m_strLocalName = pair->title.text.c_str();
          ++count.controls;
        }
      }
    }
  }
  if (KyDtDictionary *menus = table->FindDict(L"MENU")) {
    for (KyDtDictItem *const *slot = menus->GetFirst(); slot; slot = menus->GetNext(slot)) {
      if (!*slot || !(*slot)->IsDict()) continue;
      const unsigned id = static_cast<unsigned>(_wtoi((*slot)->m_strName));
      MenuTemplate source, target;
      if (ReadTemplate(module, RT_MENU, id, 0, ParseMenuTemplate, source) &&
          ReadTemplate(module, RT_MENU, id, language, ParseMenuTemplate, target) && SameShape(source.items, target.items))
        FillMenu(static_cast<KyDtDictionary *>(*slot), source.items, target.items, count);
    }
  }
  if (KyDtDictionary *strings = table->FindDict(L"STRING")) {
    const LANGID preferred = GetResourceLanguage();
    SetResourceLanguage(language);
    for (KyDtDictItem *const *slot = strings->GetFirst(); slot; slot = strings->GetNext(slot)) {
      wchar_t text[4096];
      if (*slot && LoadStringW(module, static_cast<UINT>(_wtoi((*slot)->m_strName)), text, 4096) > 0) {
        CString translated(text);
        translated.Remove(L'\n');
        (*slot)->m_strLocalName = translated;
        ++count.strings;
      }
    }
    SetResourceLanguage(preferred);
  }
  FreeLibrary(module);
  return count;
}

}  // namespace tolv::lang
