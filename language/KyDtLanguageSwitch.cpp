#include "language/KyDtLanguageSwitch.h"

#include <algorithm>
#include <cwchar>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/CDialog.h"
#include "platform/mfc/CMenu.h"
#include "platform/mfc/CWnd.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/CodePage.h"
#include "platform/windows/WinCrt.h"

namespace {

// The table of the dialog being translated, while its children are walked.
KyDtDictionary *g_pCurDialogLang = nullptr;

// Code strings are looked up for every text the add-on shows: each section
// gets an index by name on first use, made again when its length changes.
// A name stands for the first child that bears it, as a lookup by path.
struct CodeIndex {
  std::int32_t length = -1;
  std::unordered_map<std::wstring_view, KyDtDictItem *> byName;
};
std::unordered_map<const KyDtDictionary *, CodeIndex> g_codeIndexes;

KyDtDictItem *FindCode(KyDtDictionary *codes, const CString &key) {
  if (codes->IsAutoSort()) return codes->FindItem(key);
  CodeIndex &index = g_codeIndexes[codes];
  if (index.length != codes->GetLength()) {
    index.byName.clear();
    index.byName.reserve(static_cast<std::size_t>(codes->GetLength()));
    for (KyDtDictItem *const *slot = codes->GetFirst(); slot; slot = codes->GetNext(slot)) {
      if (*slot) index.byName.emplace((*slot)->m_strName.view(), *slot);
    }
    index.length = codes->GetLength();
  }
  auto found = index.byName.find(key.view());
  return found == index.byName.end() ? nullptr : found->second;
}

constexpr int kRepairBufferSize = 349;
constexpr int kWindowTextSize = 1024;

KyDtDictionary *AsDict(KyDtDictItem *item) {
  return (item && item->IsDict()) ? static_cast<KyDtDictionary *>(item) : nullptr;
}

CString Decimal(unsigned int id) {
  CString text;
  text.Format(L"%u", id);
  return text;
}

bool IsClass(HWND window, const wchar_t *name) {
  wchar_t className[256];
  ::GetClassNameW(window, className, 256);
  return _wcsicmp(className, name) == 0;
}

// The messages of one kind of box.
struct BoxKind {
  UINT getCount, getTextLen, getText, reset, add, getSel, setSel;
};
constexpr BoxKind kCombo{CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_RESETCONTENT,
                         CB_ADDSTRING, CB_GETCURSEL, CB_SETCURSEL};
constexpr BoxKind kList{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_RESETCONTENT,
                        LB_ADDSTRING, LB_GETCURSEL, LB_SETCURSEL};

CString EntryText(HWND window, const BoxKind &kind, int index) {
  LRESULT length = ::SendMessageW(window, kind.getTextLen, static_cast<WPARAM>(index), 0);
  if (length <= 0) return CString();
  CString text;
  wchar_t *buffer = text.GetBuffer(static_cast<int>(length) + 1);
  ::SendMessageW(window, kind.getText, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer));
  text.ReleaseBuffer(static_cast<int>(length));
  return text;
}

// The entries joined with ";"; false when there are none.
bool JoinEntries(HWND window, const BoxKind &kind, bool repair, CString &joined) {
  const int count = static_cast<int>(::SendMessageW(window, kind.getCount, 0, 0));
  if (count <= 0) return false;
  joined.Empty();
  for (int i = 0; i < count; ++i) {
    CString entry = EntryText(window, kind, i);
    if (repair) entry = tolv::RepairCodePage(entry);
    if (i > 0) joined += L';';
    joined += entry;
  }
  return true;
}

void FillEntries(HWND window, const BoxKind &kind, const CString &joined) {
  CStringArray pieces;
  CutStrToArr(joined, L";", pieces);
  for (int i = 0; i < pieces.GetSize(); ++i)
    ::SendMessageW(window, kind.add, 0, reinterpret_cast<LPARAM>(pieces[i].GetString()));
}

// A combo box or list box of a dialog: translated as a whole when the
// dialog's table holds its joined entries, otherwise left as it is.
void TranslateBox(HWND window, const BoxKind &kind, bool repair) {
  CString joined;
  if (!JoinEntries(window, kind, repair, joined) || !g_pCurDialogLang) return;
  KyDtDictItem *entry = g_pCurDialogLang->FindItem(joined);
  if (!entry) return;
  const LRESULT selection = ::SendMessageW(window, kind.getSel, 0, 0);
  ::SendMessageW(window, kind.reset, 0, 0);
  FillEntries(window, kind, entry->m_strLocalName);
  ::SendMessageW(window, kind.setSel, static_cast<WPARAM>(selection), 0);
}

BOOL TranslateChild(HWND window, LPARAM) {
  if (IsClass(window, L"ComboBox")) {
    TranslateBox(window, kCombo, true);
    return TRUE;
  }
  if (IsClass(window, L"ListBox")) {
    TranslateBox(window, kList, false);
    return TRUE;
  }
  // Edit controls hold what the user types, never a text of the program.
  if (dynamic_cast<CEdit *>(CWnd::FromHandlePermanent(window))) return TRUE;
  wchar_t text[kWindowTextSize];
  ::GetWindowTextW(window, text, kWindowTextSize);
  if (!g_pCurDialogLang) return TRUE;
  if (KyDtDictItem *entry = g_pCurDialogLang->FindItem(CString(text)))
    ::SetWindowTextW(window, entry->m_strLocalName);
  return TRUE;
}

}  // namespace

KyDtLanguageSwitch &TheLanguageSwitch() { return g_languageSwitch; }

void KyDtLanguageSwitch::ForgetIndexes() { g_codeIndexes.clear(); }

namespace tolv {

CString RepairCodePage(const CString &text) {
  if (::GetACP() == 936) return text;
  char narrow[kRepairBufferSize];
  wchar_t wide[kRepairBufferSize];
  // Longer texts are cut to what the buffers hold.
  const int length = std::min(text.GetLength(), kRepairBufferSize - 1);
  for (int i = 0; i < length; ++i) narrow[i] = static_cast<char>(text[i]);
  narrow[length] = '\0';
  int n = ::MultiByteToWideChar(936, 0, narrow, length, wide, kRepairBufferSize - 1);
  if (n < 0) n = 0;
  wide[n] = L'\0';
  return CString(wide, n);
}

}  // namespace tolv

void KyDtLanguageSwitch::TranslateDialog(CWnd *window) {
  if (!window || !window->GetSafeHwnd()) return;
  TranslateWindow(window);
}

namespace {

void TranslateMenuItems(HMENU menu, KyDtDictionary *table) {
  if (!::IsMenu(menu)) return;
  const int count = ::GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    const int length = ::GetMenuStringW(menu, static_cast<UINT>(i), nullptr, 0, MF_BYPOSITION);
    if (length <= 0) continue;
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 1);
    ::GetMenuStringW(menu, static_cast<UINT>(i), buffer.data(), length + 1, MF_BYPOSITION);
    CString text(buffer.data());
    text.Replace(L'\\', L'#');
    KyDtDictItem *entry = table->FindItem(text);
    if (!entry) continue;
    const UINT id = ::GetMenuItemID(menu, i);
    if (id == static_cast<UINT>(-1)) {
      // A popup: its own items first, then its text; it stays a popup.
      HMENU sub = ::GetSubMenu(menu, i);
      if (::GetMenuItemCount(sub) > 0)
        if (KyDtDictionary *subTable = AsDict(entry)) TranslateMenuItems(sub, subTable);
      ::ModifyMenuW(menu, static_cast<UINT>(i), MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(sub),
                    entry->m_strLocalName);
    } else {
      ::ModifyMenuW(menu, static_cast<UINT>(i), MF_BYPOSITION | MF_STRING, id, entry->m_strLocalName);
    }
  }
}

}  // namespace

void KyDtLanguageSwitch::TranslateMenu(unsigned int id, CMenu *menu) {
  if (!g_pCurModuleLang || !menu) return;
  if (KyDtDictionary *table = AsDict(g_pCurModuleLang->FindItem(L"MENU\\" + Decimal(id))))
    TranslateMenuItems(menu->GetSafeHmenu(), table);
}

void KyDtLanguageSwitch::TranslateToolBar(unsigned int) {}

CString KyDtLanguageSwitch::LoadLangString(unsigned int id) {
  if (!g_pCurModuleLang) {
    CString text;
    text.LoadString(id);
    return text;
  }
  KyDtDictItem *entry = g_pCurModuleLang->FindItem(L"STRING\\" + Decimal(id));
  return entry ? entry->m_strLocalName : CString();
}

const wchar_t *KyDtLanguageSwitch::TranslateCode(const wchar_t *text) {
  if (!g_pCurModuleLang || !text) return text;
  KyDtDictionary *codes = AsDict(g_pCurModuleLang->FindItem(L"CODESTRING"));
  if (!codes) return text;
  CString key(text);
  key.Replace(L'\\', L'#');
  // Line ends in order: 1 for a carriage return, 0 for a line feed.
  std::vector<char> lineEnds;
  if (key.Find(L'\r') >= 0) {
    for (int i = 0; i < key.GetLength(); ++i) {
      if (key[i] == L'\r') lineEnds.push_back(1);
      else if (key[i] == L'\n') lineEnds.push_back(0);
    }
    key.Replace(L'\r', L'\n');
  }
  KyDtDictItem *entry = FindCode(codes, key);
  if (!entry) return text;
  if (!lineEnds.empty()) {
    // The entry keeps its carriage returns from now on.
    CString &local = entry->m_strLocalName;
    std::size_t next = 0;
    for (int at = local.Find(L'\n', 1); at >= 0 && next < lineEnds.size(); at = local.Find(L'\n', at + 1)) {
      if (lineEnds[next++] == 1) local.SetAt(at, L'\r');
    }
  }
  return entry->m_strLocalName.GetString();
}

namespace {

CString LookUpText(KyDtDictionary *table, CString text) {
  text.Replace(L'\\', L'#');
  KyDtDictItem *entry = table ? table->FindItem(text) : nullptr;
  if (!entry) return text;
  CString local = entry->m_strLocalName;
  local.Replace(L'#', L'\\');
  return local;
}

}  // namespace

CString KyDtLanguageSwitch::TranslateObjectText(CString text) {
  if (!g_pCurModuleLang) return text;
  return LookUpText(g_pCurModuleObject, text);
}

CString KyDtLanguageSwitch::TranslateText(CString text) {
  if (!g_pCurModuleLang) return text;
  return LookUpText(g_pCurModuleLang, text);
}

KyDtDictItem *KyDtLanguageSwitch::FindModuleDict(const wchar_t *path) {
  return path ? g_curDictLang.FindItem(CString(path)) : nullptr;
}

void KyDtLanguageSwitch::TranslateListControl(unsigned int id, CWnd *window) {
  if (!g_pCurModuleLang || !window) return;
  KyDtDictionary *entry = AsDict(g_pCurModuleLang->FindItem(Decimal(id)));
  HWND handle = window->GetSafeHwnd();
  const BoxKind *kind = IsClass(handle, L"ComboBox") ? &kCombo : IsClass(handle, L"ListBox") ? &kList : nullptr;
  CString joined;
  if (!kind || !JoinEntries(handle, *kind, false, joined)) return;
  const LRESULT selection = ::SendMessageW(handle, kind->getSel, 0, 0);
  ::SendMessageW(handle, kind->reset, 0, 0);
  KyDtDictItem *translated = entry ? entry->FindItem(joined) : nullptr;
  if (!translated) return;
  FillEntries(handle, *kind, translated->m_strLocalName);
  ::SendMessageW(handle, kind->setSel, static_cast<WPARAM>(selection), 0);
}

void KyDtLanguageSwitch::TranslateRegisteredControls() {
  if (!g_pCurDialogLang) return;
  for (const auto &[key, control] : m_mapControls) {
    KyDtDictItem *entry = g_pCurDialogLang->FindItem(key);
    if (!entry || !control) continue;
    const CString type = entry->GetAttributeValue(L"ctrtype");
    const CString data = entry->GetAttributeValue(L"ctrlData");
    const BoxKind *kind = type.CompareNoCase(L"combox") == 0    ? &kCombo
                          : type.CompareNoCase(L"listbox") == 0 ? &kList
                                                                : nullptr;
    if (!kind) continue;
    ::SendMessageW(control->GetSafeHwnd(), kind->reset, 0, 0);
    FillEntries(control->GetSafeHwnd(), *kind, data);
  }
}

int KyDtLanguageSwitch::TranslateWindow(CWnd *window) {
  if (!window || !g_pCurModuleLang) return 0;
  KyDtDictionary *dialogs = AsDict(g_pCurModuleLang->FindItem(L"DIALOG"));
  if (!dialogs) return 0;
  CString key;
  if (const CDialog *dialog = dynamic_cast<const CDialog *>(window)) key = Decimal(dialog->GetTemplateId());
  KyDtDictItem *entry = dialogs->FindItem(key);
  g_pCurDialogLang = AsDict(entry);
  if (entry) {
    window->SetWindowText(entry->m_strLocalName);
  } else {
    acutPrintf(L"\nNULL DIALOG");
  }
  int result = ::EnumChildWindows(window->GetSafeHwnd(), TranslateChild, 0);
  TranslateRegisteredControls();
  g_pCurDialogLang = nullptr;
  return result;
}
