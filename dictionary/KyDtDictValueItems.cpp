#include "dictionary/KyDtDictValueItems.h"

#include "platform/base/KyStringA.h"
#include "platform/mfc/CArchive.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/WinCrt.h"

// ---- Bool ----

void KyDtDictBoolItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  m_value = static_cast<const KyDtDictBoolItem &>(source).m_value;
}

void KyDtDictBoolItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  node->SetNodeValue(m_value != 0 ? L"TRUE" : L"FALSE");
}

void KyDtDictBoolItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << m_value;
}

void KyDtDictBoolItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  const wchar_t *text = node->GetNodeValue();
  m_value = (text != nullptr && CString(L"TRUE").Compare(text) == 0) ? 1 : 0;
}

void KyDtDictBoolItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  ar >> m_value;
}

// ---- Char ----

void KyDtDictCharItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  m_value = static_cast<const KyDtDictCharItem &>(source).m_value;
}

void KyDtDictCharItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  const int number = static_cast<signed char>(m_value);
  node->SetNodeValue(number);
}

void KyDtDictCharItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << m_value;
}

void KyDtDictCharItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  const wchar_t *text = node->GetNodeValue();
  if (text == nullptr || *text == L'\0') return;
  KyStringA narrow(text);
  if (!narrow.IsEmpty()) m_value = narrow[0];
}

void KyDtDictCharItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  ar >> m_value;
}

// ---- Long ----

void KyDtDictLongItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  m_value = static_cast<const KyDtDictLongItem &>(source).m_value;
}

void KyDtDictLongItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  const int number = m_value;
  node->SetNodeValue(number);
}

void KyDtDictLongItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << m_value;
}

void KyDtDictLongItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  m_value = _wtoi(node->GetNodeValue());
}

void KyDtDictLongItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  ar >> m_value;
}

// ---- Double ----

void KyDtDictDoubleItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  m_value = static_cast<const KyDtDictDoubleItem &>(source).m_value;
}

void KyDtDictDoubleItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  node->SetNodeValue(m_value);
}

void KyDtDictDoubleItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << m_value;
}

void KyDtDictDoubleItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  m_value = _wtof(node->GetNodeValue());
}

void KyDtDictDoubleItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  ar >> m_value;
}
