#include "uiconfig/KyDtUIConfig.h"

#include <cwchar>
#include <utility>

#include "containers/KyArray.h"
#include "containers/KyPushVar.h"
#include "language/LangTranslate.h"
#include "module/ModuleGlobals.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "uiconfig/KyDtUITreeDisposal.h"

namespace {
const wchar_t kRootName[] = L"TolvUIConfig";
}  // namespace

KyDtUIConfig *KyDtUIConfig::g_pCurUICfg = nullptr;

KyDtUIConfig::KyDtUIConfig() : m_pNamedMap(std::make_shared<NamedMapWithIndex>()) {}

KyDtUIConfig::~KyDtUIConfig() {
  // Another copy may still share the children: only the last one frees them.
  if (m_pNamedMap.use_count() <= 1) tolv::uiconfig::DestroyChildren(this);
  // The module's own config goes when the module is unloaded: nobody can
  // hold a pointer into an old tree after that.
  if (this == &g_dbCfgUI) KyDtUIFreeDetachedItems();
}

KyDtUIItem *KyDtUIConfig::NewItem() { return new KyDtUIConfig; }

bool KyDtUIConfig::ReadFromXML(const wchar_t *path) {
  KyUtXMLDOMFile document;
  if (!path || !document.Open(path)) return false;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wcscmp(root->GetNodeName(), kRootName) != 0) return false;
  if (!m_pNamedMap) return false;
  m_pNamedMap->index.Clear();
  m_pNamedMap->ordered.clear();
  KyPushVar<KyDtUIConfig *> reading(g_pCurUICfg, this);
  *this << root;
  return true;
}

bool KyDtUIConfig::SaveToXML(const wchar_t *path) {
  if (!path) return false;
  KyUtXMLDOMFile document;
  if (document.IsFileExist(path)) {
    if (!document.Open(path)) return false;
  } else {
    KyArray<std::pair<CString, CString>> attributes(1);
    attributes[0] = {CString(L"localname"), _TL(L"SenvarArch UI配置")};
    if (!document.CreateNewXMLDoc(path, L"version='1.0' encoding='utf-8'", kRootName, attributes)) return false;
  }
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wcscmp(root->GetNodeName(), kRootName) != 0) return false;
  root->DeleteChildrenNodes();
  *this >> root;
  return document.Save(nullptr);
}

void KyDtUIConfig::AddToNamedMap(CString name, KyDtUIItem *item) {
  if (!m_pNamedMap) return;
  auto [at, added] = m_pNamedMap->ordered.emplace(std::move(name), item);
  if (added) m_pNamedMap->index.Insert(at->first.view(), item);
}

KyDtUIItem *KyDtUIConfig::FindNamedItem(CString name) {
  if (!m_pNamedMap) return nullptr;
  return m_pNamedMap->index.Find(name.view());
}

void KyDtUIConfig::DelNamedMap(CString name) {
  if (!m_pNamedMap) return;
  auto found = m_pNamedMap->ordered.find(name);
  if (found == m_pNamedMap->ordered.end()) return;
  m_pNamedMap->index.Erase(found->first.view());
  m_pNamedMap->ordered.erase(found);
}

KyDtUIItem *KyDtUIConfig::FindSection(const wchar_t *name, const wchar_t *kind) {
  KyDtUIItem *item = FindNamedItem(name);
  return item && item->IsKindOf(kind) ? item : nullptr;
}

KyDtUIDictionary *KyDtUIConfig::GetDictionary(const wchar_t *name) {
  return static_cast<KyDtUIDictionary *>(FindSection(name, KyDtUIDictionary::GetXMLNodeName()));
}

#define TOLV_UI_SECTION(getter, type, section, kind) \
  type *KyDtUIConfig::getter() { return static_cast<type *>(FindSection(section, kind)); }

TOLV_UI_SECTION(GetAllCommandDef, KyDtUIDirectory, L"ALL_COMMAND_DEF", L"Directory")
TOLV_UI_SECTION(GetAllSwitchDef, KyDtUIDirectory, L"ALL_SWITCH_DEF", L"Directory")
TOLV_UI_SECTION(GetAllControlDef, KyDtUIDirectory, L"ALL_CONTROL_DEF", L"Directory")
TOLV_UI_SECTION(GetAllMenuDef, KyDtUIDirectory, L"MENU", L"Directory")
TOLV_UI_SECTION(GetContextMenuDef, KyDtUIDirectory, L"MENU_CONTEXT", L"Directory")
TOLV_UI_SECTION(GetStatusBarDef, KyDtUIDirectory, L"STATUSBAR", L"Directory")
TOLV_UI_SECTION(GetHotKeyDef, KyDtUIDirectory, L"HOT_KEY", L"Directory")
TOLV_UI_SECTION(GetShortCmdDef, KyDtUIDirectory, L"SHORT_CMD", L"Directory")
TOLV_UI_SECTION(GetToolBoxDef, KyDtUIToolBoxDef, L"TOOLBOX", L"ToolBoxDef")
TOLV_UI_SECTION(GetProjectBoxDef, KyDtUIToolBoxDef, L"PROJECTBOX", L"ToolBoxDef")
TOLV_UI_SECTION(GetScreenMenuDef, KyDtUIMenuDef, L"MENU_SCREEN", L"MenuDef")
TOLV_UI_SECTION(GetDwgLibMenuDef, KyDtUIMenuDef, L"MENU_DWG_LIB", L"MenuDef")
TOLV_UI_SECTION(GetEquipLibMenuDef, KyDtUIMenuDef, L"MENU_EQUIP_LIB", L"MenuDef")
TOLV_UI_SECTION(GetScaleMenuDef, KyDtUIMenuDef, L"MENU_PRINT_SCALE", L"MenuDef")

#undef TOLV_UI_SECTION
