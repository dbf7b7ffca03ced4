// The UI items that hold no children: a separator, a control, a command
// definition, the state of a switch, a menu entry and a short cut.
#pragma once

#include "uiconfig/KyDtUIItem.h"

// A line between groups of a menu or a tool box.
class KyDtUISeparator : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"Separator"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
};

// A control of a tool box, made by its class id.
class KyDtUIControl : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"Control"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;

  const CString &GetClassID() const { return m_strClassID; }
  void SetClassID(const wchar_t *classID) { m_strClassID = classID; }

 protected:
  CString m_strClassID;
};

// A command of the add-on; the data is the command string.
class KyDtUICommandDef : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"CommandDef"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
};

// One state of a switch.
class KyDtUISwitchStatus : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"SwitchStatus"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
};

// A menu entry with the texts that read and set its state.
class KyDtUIMenuItem : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"MenuItem"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;

  const CString &GetGetText() const { return m_strGet; }
  void SetGetText(const wchar_t *text) { m_strGet = text; }
  const CString &GetSetText() const { return m_strSet; }
  void SetSetText(const wchar_t *text) { m_strSet = text; }

 protected:
  CString m_strGet;
  CString m_strSet;
};

// A hot key or a short command and the command it runs.
class KyDtUIShortCut : public KyDtUIItem {
 public:
  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"ShortCut"; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;

  const CString &GetCommand() const { return m_strCommand; }
  void SetCommand(const wchar_t *command) { m_strCommand = command; }

 protected:
  CString m_strCommand;
};
