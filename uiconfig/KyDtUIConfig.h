// KyDtUIConfig: the root of the UI tree and the object behind
// "UIConfig.xml", root element "TolvUIConfig". It keeps a map from item
// names to items, filled while a document is read, through which references
// bind and the standard sections are found at any depth.
#pragma once

#include <map>
#include <memory>
#include <string_view>

#include "uiconfig/KyDtUIDirectories.h"
#include "uiconfig/KyDtUIDirectory.h"
#include "uiconfig/KyDtUINameIndex.h"

class KyDtUIConfig : public KyDtUIDirectory {
 public:
  using NamedMap = std::map<CString, KyDtUIItem *>;

  KyDtUIConfig();
  // Shares the named map (and, as any directory copy, the children).
  KyDtUIConfig(const KyDtUIConfig &other) = default;
  KyDtUIConfig &operator=(const KyDtUIConfig &other) = default;
  // Frees the whole tree, however deep.
  ~KyDtUIConfig() override;

  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"TolvUIConfig"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  // The config being read, null at all other times.
  static KyDtUIConfig *g_pCurUICfg;

  // False for a file that can't be read or isn't XML, another root, or no
  // map; the tree is then as it was.
  bool ReadFromXML(const wchar_t *path);
  // Into the file if it exists (its root's attributes survive), else into a
  // new document. False when the file can't be read or has another root.
  bool SaveToXML(const wchar_t *path);

  // An existing name keeps its first item.
  void AddToNamedMap(CString name, KyDtUIItem *item);
  KyDtUIItem *FindNamedItem(CString name);
  void DelNamedMap(CString name);
  // The named item if it is a "TolvDictionary", else null.
  KyDtUIDictionary *GetDictionary(const wchar_t *name);
  // Null when there is no map (for readers that count on it).
  const NamedMap *GetNamedMap() const { return m_pNamedMap ? &m_pNamedMap->ordered : nullptr; }

  // The sections, found by name, each null unless of the exact kind.
  KyDtUIDirectory *GetAllCommandDef();
  KyDtUIDirectory *GetAllSwitchDef();
  KyDtUIDirectory *GetAllControlDef();
  KyDtUIDirectory *GetAllMenuDef();
  KyDtUIDirectory *GetContextMenuDef();
  KyDtUIDirectory *GetStatusBarDef();
  KyDtUIDirectory *GetHotKeyDef();
  KyDtUIDirectory *GetShortCmdDef();
  KyDtUIToolBoxDef *GetToolBoxDef();
  KyDtUIToolBoxDef *GetProjectBoxDef();
  KyDtUIMenuDef *GetScreenMenuDef();
  KyDtUIMenuDef *GetDwgLibMenuDef();
  KyDtUIMenuDef *GetEquipLibMenuDef();
  KyDtUIMenuDef *GetScaleMenuDef();

 protected:
  KyDtUIItem *FindSection(const wchar_t *name, const wchar_t *kind);

  // The map, and an index on it by hash: a document binds tens of thousands
  // of references at start, and the ordered map's nodes lie far apart. The
  // index's keys are views of the map's own keys.
  struct NamedMapWithIndex {
    NamedMap ordered;
    KyDtUINameIndex index;
  };
  std::shared_ptr<NamedMapWithIndex> m_pNamedMap;
};
