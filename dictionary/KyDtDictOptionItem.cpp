#include "dictionary/KyDtDictOptionItem.h"

#include <string>
#include <string_view>

#include "platform/mfc/CArchive.h"
#include "platform/utility/KyUtXMLDOM.h"

namespace {

// The index of the first option equal to `text`, case-sensitive, or -1.
std::int32_t IndexOfOption(const KyList<CString> &options, const CString &text) {
  std::int32_t index = 0;
  for (const CString *p = options.GetFirst(); p != nullptr; p = options.GetNext(p), ++index) {
    if (p->Compare(text) == 0) return index;
  }
  return -1;
}

}  // namespace

CString KyDtDictOptionItem::GetSelString() const {
  if (m_nCurSel < 0 || m_nCurSel >= GetLength()) return CString();
  return GetAt(m_nCurSel);
}

void KyDtDictOptionItem::CopyData(const KyDtDictItem &source) {
  if (source.GetType() != GetType()) return;
  const auto &other = static_cast<const KyDtDictOptionItem &>(source);
  if (other.m_nCurSel < 0 || other.m_nCurSel >= other.GetLength()) return;
  const std::int32_t index = IndexOfOption(*this, other.GetAt(other.m_nCurSel));
  if (index >= 0) m_nCurSel = index;
}

void KyDtDictOptionItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  WriteHeader(node);
  std::wstring joined;
  for (const CString *p = GetFirst(); p != nullptr; p = GetNext(p)) {
    if (p != GetFirst()) joined += L' ';
    joined += p->str();
  }
  node->SetAttributeValue(L"options", joined.c_str());
  node->SetNodeValue(GetSelString().GetString());
}

void KyDtDictOptionItem::operator>>(CArchive &ar) {
  WriteHeader(ar);
  ar << static_cast<std::int32_t>(GetLength());
  for (const CString *p = GetFirst(); p != nullptr; p = GetNext(p)) ar << *p;
  ar << m_nCurSel;
}

void KyDtDictOptionItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  ReadHeader(node);
  const std::wstring_view text = node->GetAttributeValue(L"options");
  // Hand-written files separate by semicolons, written ones by blanks.
  const wchar_t separator = text.find(L';') != std::wstring_view::npos ? L';' : L' ';
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t end = text.find(separator, start);
    if (end == std::wstring_view::npos) end = text.size();
    if (end > start) Append(CString(text.substr(start, end - start)));
    start = end + 1;
  }
  m_nCurSel = IndexOfOption(*this, CString(node->GetNodeValue()));
}

void KyDtDictOptionItem::operator<<(CArchive &ar) {
  ReadHeader(ar);
  std::int32_t count = 0;
  ar >> count;
  Reset();
  // No room is taken ahead for a count read from the stream: each option
  // must be there before the next one is read.
  CString option;
  for (std::int32_t i = 0; i < count; ++i) {
    ar >> option;
    Append(option);
  }
  ar >> m_nCurSel;
}
