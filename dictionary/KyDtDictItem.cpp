#include "dictionary/KyDtDictItem.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "dictionary/KyDtDictOptionItem.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictTextPool.h"
#include "dictionary/KyDtDictValueItems.h"
#include "dictionary/KyDtDictionary.h"
#include "platform/mfc/CArchive.h"
#include "platform/mfc/CMemFile.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace {

// The temporary archive forms of CompareWith and DeepCopy.
constexpr UINT kMemFileGrowth = 1024;
constexpr int kArchiveBuffer = 4096;

// The archive form of an item in a memory buffer of its own.
struct DetachedForm {
  ULONGLONG length = 0;
  BYTE *bytes = nullptr;
  ~DetachedForm() { std::free(bytes); }
};

// The bag keys of the three header fields, made once: the readers look
// them up for every element of a file.
struct HeaderKeys {
  CString name{L"name"};
  CString localName{L"localname"};
  CString comment{L"comment"};
};

const HeaderKeys &TheHeaderKeys() {
  static const HeaderKeys keys;
  return keys;
}

void WriteForm(const KyDtDictItem &item, DetachedForm &form) {
  CMemFile file(kMemFileGrowth);
  {
    CArchive ar(&file, CArchive::store, kArchiveBuffer);
    // Writing reads the item only; the operators are not const because the
    // kinds' signatures aren't.
    const_cast<KyDtDictItem &>(item) >> ar;
    ar.Flush();
    ar.Close();
  }
  form.length = file.GetLength();
  form.bytes = file.Detach();
}

}  // namespace

KyDtDictItem::KyDtDictItem(const wchar_t *name, const wchar_t *localName, const wchar_t *comment)
    : m_strName(name), m_strLocalName(localName), m_strComment(comment), m_pAttributes(new KyDtAttributeMap) {}

KyDtDictItem::KyDtDictItem(const KyDtDictItem &other)
    : m_strName(other.m_strName),
      m_strLocalName(other.m_strLocalName),
      m_strComment(other.m_strComment),
      m_pAttributes(other.m_pAttributes) {}

KyDtDictItem &KyDtDictItem::operator=(const KyDtDictItem &other) {
  m_strName = other.m_strName;
  m_strLocalName = other.m_strLocalName;
  m_strComment = other.m_strComment;
  m_pAttributes = other.m_pAttributes;
  return *this;
}

KyDtDictItem::~KyDtDictItem() { delete m_pAttributes; }

int KyDtDictItem::GetType() const { return DT_NONE; }

void KyDtDictItem::CopyData(const KyDtDictItem &) {}

void KyDtDictItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) { WriteHeader(node); }
void KyDtDictItem::operator>>(CArchive &ar) { WriteHeader(ar); }
void KyDtDictItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) { ReadHeader(node); }
void KyDtDictItem::operator<<(CArchive &ar) { ReadHeader(ar); }

// ---- Attributes ----

void KyDtDictItem::SetAttributeValue(const wchar_t *key, const wchar_t *value) {
  m_pAttributes->insert_or_assign(CString(key), CString(value));
}

CString KyDtDictItem::GetAttributeValue(const wchar_t *key) const {
  auto it = m_pAttributes->find(CString(key));
  return it == m_pAttributes->end() ? CString() : it->second;
}

void KyDtDictItem::SetAttributeBoolValue(const wchar_t *key, bool value) {
  SetAttributeValue(key, value ? L"TRUE" : L"FALSE");
}

bool KyDtDictItem::GetAttributeBoolValue(const wchar_t *key) const {
  auto it = m_pAttributes->find(CString(key));
  return it != m_pAttributes->end() && it->second.Compare(L"TRUE") == 0;
}

void KyDtDictItem::SetAttributeIntValue(const wchar_t *key, int value) {
  CString text;
  text.Format(L"%d", value);
  SetAttributeValue(key, text);
}

int KyDtDictItem::GetAttributeIntValue(const wchar_t *key) const { return _wtoi(GetAttributeValue(key)); }

void KyDtDictItem::SetAttributeDoubleValue(const wchar_t *key, double value) {
  CString text;
  text.Format(L"%g", value);
  SetAttributeValue(key, text);
}

double KyDtDictItem::GetAttributeDoubleValue(const wchar_t *key) const { return _wtof(GetAttributeValue(key)); }

bool KyDtDictItem::IsMatchAttribute(const wchar_t *key, const wchar_t *value) const {
  return GetAttributeValue(key).Compare(value) == 0;
}

void KyDtDictItem::GetAllAttribute(KyDList<CString> &keys, KyDList<CString> &values) {
  for (const auto &[key, value] : *m_pAttributes) {
    keys.Append(key);
    values.Append(value);
  }
}

// ---- Order and comparison ----

bool KyDtDictItem::operator>(const KyDtDictItem &other) const {
  return tolv::CompareGbk(m_strName.view(), other.m_strName.view()) > 0;
}

int KyDtDictItem::CompareWith(const KyDtDictItem &other) const {
  if (GetType() != other.GetType()) return -1;
  DetachedForm mine;
  DetachedForm theirs;
  WriteForm(*this, mine);
  WriteForm(other, theirs);
  if (mine.length != theirs.length) return -1;
  if ((mine.bytes == nullptr) != (theirs.bytes == nullptr)) return -1;
  if (mine.bytes == nullptr) return 0;
  return std::memcmp(mine.bytes, theirs.bytes, static_cast<std::size_t>(mine.length));
}

// ---- Copies ----

void KyDtDictItem::DeepCopy(const KyDtDictItem &source) {
  CMemFile file(kMemFileGrowth);
  {
    CArchive ar(&file, CArchive::store, kArchiveBuffer);
    const_cast<KyDtDictItem &>(source) >> ar;
    ar.Close();
  }
  file.Seek(0, CFile::begin);
  CArchive ar(&file, CArchive::load, kArchiveBuffer);
  std::int32_t kind = 0;
  ar >> kind;  // the form starts with the kind; the caller vouches for it
  *this << ar;
}

KyDtDictItem *KyDtDictItem::Clone() const {
  std::unique_ptr<KyDtDictItem> copy(CreateDictItem(GetType()));
  if (copy) copy->DeepCopy(*this);
  return copy.release();
}

KyDtDictItem *CreateDictItem(int type) {
  switch (type) {
    case KyDtDictItem::DT_NONE:
      return new KyDtDictItem();
    case KyDtDictItem::DT_DICT:
      return new KyDtDictionary();
    case KyDtDictItem::DT_BOOL:
      return new KyDtDictBoolItem();
    case KyDtDictItem::DT_CHAR:
      return new KyDtDictCharItem();
    case KyDtDictItem::DT_LONG:
      return new KyDtDictLongItem();
    case KyDtDictItem::DT_DOUBLE:
      return new KyDtDictDoubleItem();
    case KyDtDictItem::DT_STRING:
      return new KyDtDictStringItem();
    case KyDtDictItem::DT_OPTION:
      return new KyDtDictOptionItem();
    case KyDtDictItem::DT_REFERENCE:
      return new KyDtDictReferenceItem();
    default:
      return nullptr;
  }
}

// ---- The header in the two stored forms ----

void KyDtDictItem::WriteHeader(_auto_ptr<KyUtXMLDOMNode> &node) {
  for (const auto &[key, value] : *m_pAttributes) node->SetAttributeValue(key, value);
  // The fields go last, so they win over the bag's copies; an emptied field
  // leaves the bag's old text standing.
  if (!m_strName.IsEmpty()) node->SetAttributeValue(L"name", m_strName);
  if (!m_strLocalName.IsEmpty()) node->SetAttributeValue(L"localname", m_strLocalName);
  if (!m_strComment.IsEmpty()) node->SetAttributeValue(L"comment", m_strComment);
}

void KyDtDictItem::ReadHeader(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtDictTextPool *pool = KyDtDictTextPool::Active();
  const std::int32_t count = node->GetAttributeNum();
  for (std::int32_t i = 0; i < count; ++i) {
    const wchar_t *name = node->GetAttributeName(i);
    if (name == nullptr || *name == L'\0') continue;
    if (pool == nullptr) {
      SetAttributeValue(name, node->GetAttributeValue(name));
      continue;
    }
    const CString &key = pool->Key(i, name);
    m_pAttributes->insert_or_assign(key, pool->Value(std::wstring_view(node->GetAttributeValue(name))));
  }
  const HeaderKeys &keys = TheHeaderKeys();
  auto take = [this](const CString &key, CString &field) {
    auto it = m_pAttributes->find(key);
    if (it == m_pAttributes->end()) {
      field.Empty();
    } else {
      field = it->second;
    }
  };
  take(keys.name, m_strName);
  take(keys.localName, m_strLocalName);
  take(keys.comment, m_strComment);
}

void KyDtDictItem::WriteHeader(CArchive &ar) {
  ar << static_cast<std::int32_t>(GetType());
  ar << m_strName << m_strLocalName << m_strComment;
  ar << static_cast<std::int32_t>(m_pAttributes->size());
  for (const auto &[key, value] : *m_pAttributes) ar << key << value;
}

void KyDtDictItem::ReadHeader(CArchive &ar) {
  ar >> m_strName >> m_strLocalName >> m_strComment;
  std::int32_t count = 0;
  ar >> count;
  // A hostile count costs nothing: each pair needs bytes that a short
  // stream doesn't have, and the reader throws at its end.
  KyDtDictTextPool *pool = KyDtDictTextPool::Active();
  for (std::int32_t i = 0; i < count; ++i) {
    if (pool == nullptr) {
      CString key;
      CString value;
      ar >> key >> value;
      // Moved in: the text read is the text kept, with no copy.
      m_pAttributes->insert_or_assign(std::move(key), std::move(value));
      continue;
    }
    CString &key = pool->KeyBuffer();
    CString &value = pool->ValueBuffer();
    ar >> key >> value;
    const CString &shared = pool->Key(i, key.view());
    // The bag's copy of a header field, stored apart from the field, is
    // mostly the same text: then the two hold one buffer.
    const CString *field = HeaderField(shared);
    if (field != nullptr && field->view() == value.view()) {
      m_pAttributes->insert_or_assign(shared, *field);
    } else {
      m_pAttributes->insert_or_assign(shared, pool->Value(value.view()));
    }
  }
}

const CString *KyDtDictItem::HeaderField(const CString &key) const {
  const HeaderKeys &keys = TheHeaderKeys();
  if (key == keys.name) return &m_strName;
  if (key == keys.localName) return &m_strLocalName;
  if (key == keys.comment) return &m_strComment;
  return nullptr;
}
