// Small helpers shared by the library tests.
#pragma once

#include <string>
#include <typeinfo>
#include <vector>

#include "TolvDataBase.h"
#include "support/TestSupport.h"

namespace libtest {

// The dynamic class of a node.
inline const std::type_info &TypeOf(const KyDtLibItemBase *node) { return typeid(*node); }

// The names of the nodes in order.
template <class T>
std::vector<std::wstring> NamesOf(const KyDynArrayBase<T *> &nodes) {
  std::vector<std::wstring> names;
  for (std::int32_t i = 0; i < nodes.GetLength(); ++i) names.push_back(nodes.GetAt(i)->GetName().str());
  return names;
}

// The names of a directory's children in order.
inline std::vector<std::wstring> ChildNames(const KyDtLibDirectory &dir) {
  std::vector<std::wstring> names;
  for (KyDtLibItemBase *const *slot = dir.GetFirst(); slot != nullptr; slot = dir.GetNext(slot)) {
    names.push_back(*slot != nullptr ? (*slot)->GetName().str() : L"(null)");
  }
  return names;
}

inline KyDtLibItem *AddItem(KyDtLibDirectory &dir, const wchar_t *name, const wchar_t *file = L"") {
  auto *item = new KyDtLibItem;
  item->SetName(name);
  item->SetDataFile(file);
  dir.Append(item);
  return item;
}

inline KyDtLibDirectory *AddDirectory(KyDtLibDirectory &dir, const wchar_t *name) {
  auto *sub = new KyDtLibDirectory;
  sub->SetName(name);
  dir.Append(sub);
  return sub;
}

// Every attribute of the node as "name=value;" in key order.
inline std::wstring AttributesOf(const KyDtLibItemBase &node) {
  std::wstring text;
  for (const auto &[key, value] : node.GetAttributeMap()) text += key.str() + L"=" + value.str() + L";";
  return text;
}

// The whole tree as text: node names, names, data files and attributes.
std::wstring Dump(const KyDtLibDirectory &dir);

// Writes UTF-8 text to a file.
inline void WriteText(const std::filesystem::path &path, const std::string &text) {
  std::filesystem::create_directories(path.parent_path());
  tolvtest::WriteFileBytes(path, text);
}

}  // namespace libtest
