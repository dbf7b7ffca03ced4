// The kinds of UI directory: a switch with its states, a menu with its
// selection filter, a tool box, and the dictionary of UI settings.
#pragma once

#include "dictionary/KyDtDictionary.h"
#include "uiconfig/KyDtUIDirectory.h"

class KyAdsEntSet;

// A switch; its children are its states.
class KyDtUISwitchDef : public KyDtUIDirectory {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"SwitchDef"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  const CString &GetGetText() const { return m_strGet; }
  void SetGetText(const wchar_t *text) { m_strGet = text; }
  const CString &GetSetText() const { return m_strSet; }
  void SetSetText(const wchar_t *text) { m_strSet = text; }

 protected:
  void ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  CString m_strGet;
  CString m_strSet;
};

// A menu. Its filter says which selections it is the context menu of: a
// comma-separated list of group codes and values, e.g. `0,'LINE',8,'WALL'`.
class KyDtUIMenuDef : public KyDtUIDirectory {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"MenuDef"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  const CString &GetFilter() const { return m_strFilter; }
  void SetFilter(const wchar_t *filter) { m_strFilter = filter; }
  // Whether every entity of the selection passes the filter. An empty
  // filter never matches.
  bool IsMatch(const KyAdsEntSet &set) const;

 protected:
  void ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  CString m_strFilter;
};

// A tool box (or the project box).
class KyDtUIToolBoxDef : public KyDtUIDirectory {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"ToolBoxDef"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  bool IsAutoHide() const { return m_bAutoHide; }
  void SetAutoHide(bool autoHide) { m_bAutoHide = autoHide; }
  bool IsRight() const { return m_bRight; }
  void SetRight(bool right) { m_bRight = right; }
  bool IsVisible() const { return m_bVisible; }
  void SetVisible(bool visible) { m_bVisible = visible; }

 protected:
  // A document without "visible" reads as not visible.
  void ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  bool m_bAutoHide = false;
  bool m_bRight = false;
  bool m_bVisible = true;
};

// A directory that also carries a typed dictionary: the settings of the
// user interface. The element holds the dictionary's own form behind the
// directory's.
class KyDtUIDictionary : public KyDtUIDirectory {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"TolvDictionary"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }

  KyDtDictionary &GetDictionary() { return m_dict; }

 protected:
  void ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) override;
  KyDtDictionary m_dict;
};
