#include "uiconfig/KyDtUIDirectories.h"

#include <cwchar>

#include "platform/utility/KyUtXMLDOMNode.h"

namespace {

void WriteIfSet(_auto_ptr<KyUtXMLDOMNode> &node, const wchar_t *attribute, const CString &value) {
  if (!value.IsEmpty()) node->SetAttributeValue(attribute, value);
}

bool IsTrue(_auto_ptr<KyUtXMLDOMNode> &node, const wchar_t *attribute) {
  return std::wcscmp(node->GetAttributeValue(attribute), L"TRUE") == 0;
}

const wchar_t *TrueOrFalse(bool value) { return value ? L"TRUE" : L"FALSE"; }

}  // namespace

KyDtUIItem *KyDtUISwitchDef::NewItem() { return new KyDtUISwitchDef; }
KyDtUIItem *KyDtUIMenuDef::NewItem() { return new KyDtUIMenuDef; }
KyDtUIItem *KyDtUIToolBoxDef::NewItem() { return new KyDtUIToolBoxDef; }
KyDtUIItem *KyDtUIDictionary::NewItem() { return new KyDtUIDictionary; }

void KyDtUISwitchDef::ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::ReadTailFields(node);
  m_strGet = node->GetAttributeValue(L"get");
  m_strSet = node->GetAttributeValue(L"set");
}

void KyDtUISwitchDef::WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::WriteTailFields(node);
  WriteIfSet(node, L"get", m_strGet);
  WriteIfSet(node, L"set", m_strSet);
}

void KyDtUIMenuDef::ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::ReadTailFields(node);
  m_strFilter = node->GetAttributeValue(L"filter");
}

void KyDtUIMenuDef::WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::WriteTailFields(node);
  WriteIfSet(node, L"filter", m_strFilter);
}

void KyDtUIToolBoxDef::ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::ReadTailFields(node);
  m_bAutoHide = IsTrue(node, L"autohide");
  m_bRight = IsTrue(node, L"right");
  m_bVisible = IsTrue(node, L"visible");
}

void KyDtUIToolBoxDef::WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::WriteTailFields(node);
  node->SetAttributeValue(L"autohide", TrueOrFalse(m_bAutoHide));
  node->SetAttributeValue(L"right", TrueOrFalse(m_bRight));
  node->SetAttributeValue(L"visible", TrueOrFalse(m_bVisible));
}

void KyDtUIDictionary::ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::ReadTailFields(node);
  m_dict << node;
}

void KyDtUIDictionary::WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIDirectory::WriteTailFields(node);
  m_dict >> node;
}
