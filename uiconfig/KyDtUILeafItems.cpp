#include "uiconfig/KyDtUILeafItems.h"

#include "platform/utility/KyUtXMLDOMNode.h"

namespace {

void WriteIfSet(_auto_ptr<KyUtXMLDOMNode> &node, const wchar_t *attribute, const CString &value) {
  if (!value.IsEmpty()) node->SetAttributeValue(attribute, value);
}

}  // namespace

KyDtUIItem *KyDtUISeparator::NewItem() { return new KyDtUISeparator; }
KyDtUIItem *KyDtUIControl::NewItem() { return new KyDtUIControl; }
KyDtUIItem *KyDtUICommandDef::NewItem() { return new KyDtUICommandDef; }
KyDtUIItem *KyDtUISwitchStatus::NewItem() { return new KyDtUISwitchStatus; }
KyDtUIItem *KyDtUIMenuItem::NewItem() { return new KyDtUIMenuItem; }
KyDtUIItem *KyDtUIShortCut::NewItem() { return new KyDtUIShortCut; }

void KyDtUIControl::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator>>(node);
  WriteIfSet(node, L"clsid", m_strClassID);
}

void KyDtUIControl::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator<<(node);
  m_strClassID = node->GetAttributeValue(L"clsid");
}

void KyDtUIMenuItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator>>(node);
  WriteIfSet(node, L"get", m_strGet);
  WriteIfSet(node, L"set", m_strSet);
}

void KyDtUIMenuItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator<<(node);
  m_strGet = node->GetAttributeValue(L"get");
  m_strSet = node->GetAttributeValue(L"set");
}

void KyDtUIShortCut::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator>>(node);
  WriteIfSet(node, L"command", m_strCommand);
}

void KyDtUIShortCut::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtUIItem::operator<<(node);
  m_strCommand = node->GetAttributeValue(L"command");
}
