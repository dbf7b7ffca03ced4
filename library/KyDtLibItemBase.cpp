// Library nodes: the attribute store and the base reading and writing.
#include "library/KyDtLibItemBase.h"

#include <cwchar>
#include <mutex>
#include <string_view>
#include <unordered_map>

#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/WideFormat.h"
#include "platform/windows/WinCrt.h"

namespace {

// Attribute names repeat on every node of a library, so reading keeps each
// name once and every node's key shares its text (a CString copy shares).
// (One set for the module, not one per thread: an object of a thread's own
// with a destructor would keep the module from being unloaded.)
CString SharedKey(const wchar_t *name) {
  static std::mutex mutex;
  static std::unordered_map<std::wstring_view, CString> keys;
  std::lock_guard<std::mutex> lock(mutex);
  auto it = keys.find(std::wstring_view(name));
  if (it != keys.end()) return it->second;
  // A file with ever new names doesn't make the set grow without end.
  if (keys.size() >= 4096) keys.clear();
  CString key(name);
  keys.emplace(key.view(), key);
  return key;
}

}  // namespace

KyDtLibItemBase::KyDtLibItemBase() : m_pAttributes(std::make_shared<KyDtLibAttributeMap>()) {}

KyDtLibItemBase::~KyDtLibItemBase() = default;

CString KyDtLibItemBase::GetXMLNodeName() const { return L"Node"; }

bool KyDtLibItemBase::IsDirectory() const { return false; }

bool KyDtLibItemBase::HasAttribute(const wchar_t *name) const {
  return m_pAttributes->find(name ? name : L"") != m_pAttributes->end();
}

CString KyDtLibItemBase::GetAttributeValue(const wchar_t *name) const {
  auto it = m_pAttributes->find(name ? name : L"");
  return it == m_pAttributes->end() ? CString() : it->second;
}

void KyDtLibItemBase::GetAttributeValue(const wchar_t *name, int &value) const {
  value = _wtoi(GetAttributeValue(name));
}

void KyDtLibItemBase::GetAttributeValue(const wchar_t *name, double &value) const {
  value = _wtof(GetAttributeValue(name));
}

void KyDtLibItemBase::GetAttributeValue(const wchar_t *name, bool &value) const {
  value = std::wcscmp(GetAttributeValue(name), L"TRUE") == 0;
}

void KyDtLibItemBase::SetAttributeValue(const wchar_t *name, const wchar_t *value) {
  (*m_pAttributes)[CString(name)] = CString(value ? value : L"");
}

void KyDtLibItemBase::SetAttributeValue(const wchar_t *name, int value) {
  SetAttributeValue(name, tolv::FormatWide(L"%d", value).c_str());
}

void KyDtLibItemBase::SetAttributeValue(const wchar_t *name, double value) {
  SetAttributeValue(name, tolv::FormatWide(L"%g", value).c_str());
}

void KyDtLibItemBase::SetAttributeValue(const wchar_t *name, bool value) {
  SetAttributeValue(name, value ? L"TRUE" : L"FALSE");
}

void KyDtLibItemBase::GetAllAttribute(KyDtAttributeList &list) const {
  for (const auto &[key, value] : *m_pAttributes) list.Append(KyDtAttribute(key, value));
}

bool KyDtLibItemBase::IsMatch(const wchar_t *name, const wchar_t *value) const {
  auto it = m_pAttributes->find(name ? name : L"");
  if (it == m_pAttributes->end()) return false;
  if (value == nullptr) value = L"";
  if (std::wcscmp(value, L"*") == 0) return true;
  return it->second.Compare(value) == 0;
}

bool KyDtLibItemBase::IsMatch(const KyDtAttributeList &list) const {
  for (const KyDtAttribute *pair = list.GetFirst(); pair != nullptr; pair = list.GetNext(pair)) {
    if (!IsMatch(pair->m_strName, pair->m_strValue)) return false;
  }
  return true;
}

void KyDtLibItemBase::ReadBaseFromNode(KyUtXMLDOMNode &node) {
  const int count = node.GetAttributeNum();
  for (int i = 0; i < count; ++i) {
    const wchar_t *name = node.GetAttributeName(i);
    if (*name == L'\0') continue;
    m_pAttributes->insert_or_assign(SharedKey(name), CString(node.GetAttributeValue(name)));
  }
  // The name field shares the text of the "name" attribute.
  auto it = m_pAttributes->find(L"name");
  m_strName = it != m_pAttributes->end() && node.IsAttributeExist(L"name") ? it->second : CString();
}

void KyDtLibItemBase::SaveBaseToNode(KyUtXMLDOMNode &node) const {
  for (const auto &[key, value] : *m_pAttributes) node.SetAttributeValue(key, value);
  node.SetAttributeValue(L"name", m_strName);
}

void KyDtLibItemBase::CopyBaseFrom(const KyDtLibItemBase &other) {
  m_strName = other.m_strName;
  // Through a list first: `other` may share this store.
  KyDtAttributeList pairs;
  other.GetAllAttribute(pairs);
  m_pAttributes->clear();
  for (const KyDtAttribute *pair = pairs.GetFirst(); pair != nullptr; pair = pairs.GetNext(pair)) {
    SetAttributeValue(pair->m_strName, pair->m_strValue);
  }
}

bool KyDtLibItemBase::ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  ReadBaseFromNode(*node);
  return true;
}

bool KyDtLibItemBase::SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  SaveBaseToNode(*node);
  return true;
}

KyDtLibItemBase *KyDtLibItemBase::Clone() {
  auto *copy = new KyDtLibItemBase;
  copy->CopyFrom(this);
  return copy;
}

void KyDtLibItemBase::CopyFrom(KyDtLibItemBase *other) {
  if (other) CopyBaseFrom(*other);
}
