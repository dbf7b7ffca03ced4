// Typed access by path: GetValue, SetValue and SetRef, single and array.
#include <memory>
#include <type_traits>

#include "dictionary/KyDtDictOptionItem.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictValueItems.h"
#include "dictionary/KyDtDictionary.h"

namespace {

// The item at the path when it has the kind, else null.
template <class Item>
Item *FindOfKind(KyDtDictionary &dict, const CString &path, int kind) {
  KyDtDictItem *item = dict.FindItem(path);
  return (item != nullptr && item->GetType() == kind) ? static_cast<Item *>(item) : nullptr;
}

// A String or a Reference: both hold their text in the string item.
KyDtDictStringItem *FindText(KyDtDictionary &dict, const CString &path) {
  KyDtDictItem *item = dict.FindItem(path);
  if (item == nullptr) return nullptr;
  const int kind = item->GetType();
  return (kind == KyDtDictItem::DT_STRING || kind == KyDtDictItem::DT_REFERENCE) ? static_cast<KyDtDictStringItem *>(item)
                                                                                 : nullptr;
}

// Reads every child of the dictionary at the path that the reader accepts.
// `read` gives true and appends for a child of its kind.
template <class T, class Read>
bool GetArray(KyDtDictionary &dict, const CString &path, KyDynArrayBase<T> &values, Read read) {
  values.Reset();
  KyDtDictItem *found = dict.FindItem(path);
  if (found == nullptr || !found->IsDict()) return false;
  const auto &array = static_cast<const KyDtDictionary &>(*found);
  for (KyDtDictItem *const *slot = array.GetFirst(); slot != nullptr; slot = array.GetNext(slot)) {
    if (*slot != nullptr) read(**slot, values);
  }
  return true;
}

template <class T>
bool GetNumberArray(KyDtDictionary &dict, const CString &path, KyDynArrayBase<T> &values) {
  return GetArray(dict, path, values, [](const KyDtDictItem &item, KyDynArrayBase<T> &out) {
    switch (item.GetType()) {
      case KyDtDictItem::DT_LONG:
        if constexpr (!std::is_same_v<T, double> && !std::is_same_v<T, char> && !std::is_same_v<T, bool>) {
          out.Append(static_cast<T>(static_cast<const KyDtDictLongItem &>(item).m_value));
        }
        break;
      case KyDtDictItem::DT_DOUBLE:
        if constexpr (std::is_same_v<T, double>) out.Append(static_cast<const KyDtDictDoubleItem &>(item).m_value);
        break;
      case KyDtDictItem::DT_CHAR:
        if constexpr (std::is_same_v<T, char>) out.Append(static_cast<const KyDtDictCharItem &>(item).m_value);
        break;
      case KyDtDictItem::DT_BOOL:
        if constexpr (std::is_same_v<T, bool>) out.Append(static_cast<const KyDtDictBoolItem &>(item).m_value == 1);
        break;
      default:
        break;
    }
  });
}

template <class T>
bool GetTextArray(KyDtDictionary &dict, const CString &path, KyDynArrayBase<T> &values) {
  return GetArray(dict, path, values, [](const KyDtDictItem &item, KyDynArrayBase<T> &out) {
    const int kind = item.GetType();
    if (kind == KyDtDictItem::DT_STRING || kind == KyDtDictItem::DT_REFERENCE) {
      out.Append(T(static_cast<const KyDtDictStringItem &>(item).m_value));
    }
  });
}

// The item of the kind at the path, created when missing; null when the
// path is invalid, runs through a value item, or holds another kind.
template <class Item>
Item *FindOrAddOfKind(KyDtDictionary &dict, const CString &path, KyDtDictItem::DictDataType kind) {
  KyDtDictItem *item = dict.FindOrAddItem(path, kind);
  return (item != nullptr && item->GetType() == kind) ? static_cast<Item *>(item) : nullptr;
}

// Replaces the children of the dictionary at the path by one unnamed item
// per element. The list's own Append is used: array elements have no
// names to keep apart or to sort by.
template <class Item, class T, class Store>
bool SetArray(KyDtDictionary &dict, const CString &path, const KyDynArrayBase<T> &values, Store store) {
  KyDtDictionary *array = dict.FindOrAddDict(path);
  if (array == nullptr) return false;
  array->Reset();
  for (const T *value = values.GetFirst(); value != nullptr; value = values.GetNext(value)) {
    auto item = std::make_unique<Item>();
    store(*item, *value);
    array->Append(item.get());
    item.release();
  }
  return true;
}

}  // namespace

// ---- Single values ----

bool KyDtDictionary::GetValue(const CString &path, bool &value) {
  auto *item = FindOfKind<KyDtDictBoolItem>(*this, path, DT_BOOL);
  if (item == nullptr) return false;
  value = item->m_value == 1;
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, char &value) {
  auto *item = FindOfKind<KyDtDictCharItem>(*this, path, DT_CHAR);
  if (item == nullptr) return false;
  value = item->m_value;
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, long &value) {
  auto *item = FindOfKind<KyDtDictLongItem>(*this, path, DT_LONG);
  if (item == nullptr) return false;
  value = item->m_value;
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, int &value) {
  auto *item = FindOfKind<KyDtDictLongItem>(*this, path, DT_LONG);
  if (item == nullptr) return false;
  value = item->m_value;
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, unsigned int &value) {
  auto *item = FindOfKind<KyDtDictOptionItem>(*this, path, DT_OPTION);
  if (item == nullptr) return false;
  value = static_cast<unsigned int>(item->m_nCurSel);
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, double &value) {
  auto *item = FindOfKind<KyDtDictDoubleItem>(*this, path, DT_DOUBLE);
  if (item == nullptr) return false;
  value = item->m_value;
  return true;
}

bool KyDtDictionary::GetValue(const CString &path, CString &value) {
  KyDtDictStringItem *item = FindText(*this, path);
  if (item == nullptr) return false;
  value = item->m_value;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, bool value) {
  auto *item = FindOrAddOfKind<KyDtDictBoolItem>(*this, path, DT_BOOL);
  if (item == nullptr) return false;
  item->m_value = value ? 1 : 0;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, char value) {
  auto *item = FindOrAddOfKind<KyDtDictCharItem>(*this, path, DT_CHAR);
  if (item == nullptr) return false;
  item->m_value = value;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, long value) {
  auto *item = FindOrAddOfKind<KyDtDictLongItem>(*this, path, DT_LONG);
  if (item == nullptr) return false;
  item->m_value = static_cast<std::int32_t>(value);
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, int value) {
  auto *item = FindOrAddOfKind<KyDtDictLongItem>(*this, path, DT_LONG);
  if (item == nullptr) return false;
  item->m_value = value;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, unsigned int index) {
  auto *item = FindOrAddOfKind<KyDtDictOptionItem>(*this, path, DT_OPTION);
  if (item == nullptr) return false;
  // Compared as signed, as the selected index is.
  const auto signedIndex = static_cast<std::int32_t>(index);
  if (signedIndex < 0 || signedIndex >= item->GetLength()) return false;
  item->m_nCurSel = signedIndex;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, double value) {
  auto *item = FindOrAddOfKind<KyDtDictDoubleItem>(*this, path, DT_DOUBLE);
  if (item == nullptr) return false;
  item->m_value = value;
  return true;
}

bool KyDtDictionary::SetValue(const CString &path, const CString &value) {
  auto *item = FindOrAddOfKind<KyDtDictStringItem>(*this, path, DT_STRING);
  if (item == nullptr) return false;
  item->m_value = value;
  return true;
}

bool KyDtDictionary::SetRef(const CString &path, const CString &target) {
  auto *item = FindOrAddOfKind<KyDtDictReferenceItem>(*this, path, DT_REFERENCE);
  if (item == nullptr) return false;
  item->m_value = target;
  return true;
}

// ---- Arrays ----

bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<KyStringW> &values) {
  return GetTextArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<CString> &values) {
  return GetTextArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<double> &values) {
  return GetNumberArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<long> &values) {
  return GetNumberArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<int> &values) {
  return GetNumberArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<char> &values) {
  return GetNumberArray(*this, path, values);
}
bool KyDtDictionary::GetValue(const CString &path, KyDynArrayBase<bool> &values) {
  return GetNumberArray(*this, path, values);
}

bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<KyStringW> &values) {
  return SetArray<KyDtDictStringItem>(*this, path, values,
                                      [](KyDtDictStringItem &item, const KyStringW &v) { item.m_value = CString(v); });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<CString> &values) {
  return SetArray<KyDtDictStringItem>(*this, path, values,
                                      [](KyDtDictStringItem &item, const CString &v) { item.m_value = v; });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<double> &values) {
  return SetArray<KyDtDictDoubleItem>(*this, path, values,
                                      [](KyDtDictDoubleItem &item, const double &v) { item.m_value = v; });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<long> &values) {
  return SetArray<KyDtDictLongItem>(*this, path, values, [](KyDtDictLongItem &item, const long &v) {
    item.m_value = static_cast<std::int32_t>(v);
  });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<int> &values) {
  return SetArray<KyDtDictLongItem>(*this, path, values,
                                    [](KyDtDictLongItem &item, const int &v) { item.m_value = v; });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<char> &values) {
  return SetArray<KyDtDictCharItem>(*this, path, values,
                                    [](KyDtDictCharItem &item, const char &v) { item.m_value = v; });
}
bool KyDtDictionary::SetValue(const CString &path, const KyDynArrayBase<bool> &values) {
  return SetArray<KyDtDictBoolItem>(*this, path, values,
                                    [](KyDtDictBoolItem &item, const bool &v) { item.m_value = v ? 1 : 0; });
}

bool KyDtDictionary::SetRef(const CString &path, const KyDynArrayBase<KyStringW> &targets) {
  return SetArray<KyDtDictReferenceItem>(*this, path, targets,
                                         [](KyDtDictReferenceItem &item, const KyStringW &v) { item.m_value = CString(v); });
}
bool KyDtDictionary::SetRef(const CString &path, const KyDynArrayBase<CString> &targets) {
  return SetArray<KyDtDictReferenceItem>(*this, path, targets,
                                         [](KyDtDictReferenceItem &item, const CString &v) { item.m_value = v; });
}
