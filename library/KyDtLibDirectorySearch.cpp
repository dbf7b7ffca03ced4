// Search of a library directory: by attribute (every form collects all
// matches first, then filters) and by item name.
#include <cwchar>
#include <vector>

#include "library/KyDtLibDirectory.h"

template <class Match>
void KyDtLibDirectory::Collect(const Match &match, KyDynArrayBase<KyDtLibItemBase *> &result) {
  // Depth first with the directories' own cursors: a child is tested, then,
  // if it is a directory, its content is walked before its next sibling.
  std::vector<KyDtLibDirectory *> stack{this};
  MoveToFirst();
  while (!stack.empty()) {
    KyDtLibDirectory *dir = stack.back();
    if (dir->IsOut()) {
      stack.pop_back();
      continue;
    }
    KyDtLibItemBase *child = dir->GetCurData();
    dir->MoveToNext();
    if (child == nullptr) continue;
    if (match(*child)) result.Append(child);
    if (child->IsDirectory()) {
      if (auto *sub = dynamic_cast<KyDtLibDirectory *>(child)) {
        stack.push_back(sub);
        sub->MoveToFirst();
      }
    }
  }
}

void KyDtLibDirectory::Find(const wchar_t *name, const wchar_t *value, KyDynArrayBase<KyDtLibItemBase *> &result) {
  Collect([name, value](const KyDtLibItemBase &node) { return node.IsMatch(name, value); }, result);
}

void KyDtLibDirectory::Find(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibItemBase *> &result) {
  Collect([&pairs](const KyDtLibItemBase &node) { return node.IsMatch(pairs); }, result);
}

namespace {

// The first collected node that passes the filter, as T.
template <class T, class Filter>
T *FirstOf(const KyDynArray<KyDtLibItemBase *> &found, const Filter &filter) {
  for (std::int32_t i = 0; i < found.GetLength(); ++i) {
    KyDtLibItemBase *node = found.GetAt(i);
    if (filter(*node)) return static_cast<T *>(node);
  }
  return nullptr;
}

template <class T, class Filter>
void AllOf(const KyDynArray<KyDtLibItemBase *> &found, const Filter &filter, KyDynArrayBase<T *> &result) {
  for (std::int32_t i = 0; i < found.GetLength(); ++i) {
    KyDtLibItemBase *node = found.GetAt(i);
    if (filter(*node)) result.Append(static_cast<T *>(node));
  }
}

// Directories by IsDirectory; a node that says it is one but isn't of the
// class is left out of the typed results.
bool IsDirectoryNode(const KyDtLibItemBase &node) {
  return node.IsDirectory() && dynamic_cast<const KyDtLibDirectory *>(&node) != nullptr;
}
bool IsItemNode(const KyDtLibItemBase &node) {
  return !node.IsDirectory() && dynamic_cast<const KyDtLibItem *>(&node) != nullptr;
}
bool AnyNode(const KyDtLibItemBase &) { return true; }

}  // namespace

KyDtLibItemBase *KyDtLibDirectory::Find(const wchar_t *name, const wchar_t *value) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(name, value, found);
  return FirstOf<KyDtLibItemBase>(found, AnyNode);
}

KyDtLibItemBase *KyDtLibDirectory::Find(const KyDtAttributeList &pairs) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(pairs, found);
  return FirstOf<KyDtLibItemBase>(found, AnyNode);
}

KyDtLibItem *KyDtLibDirectory::FindItem(const wchar_t *name, const wchar_t *value) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(name, value, found);
  return FirstOf<KyDtLibItem>(found, IsItemNode);
}

KyDtLibItem *KyDtLibDirectory::FindItem(const KyDtAttributeList &pairs) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(pairs, found);
  return FirstOf<KyDtLibItem>(found, IsItemNode);
}

KyDtLibDirectory *KyDtLibDirectory::FindDirectory(const wchar_t *name, const wchar_t *value) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(name, value, found);
  return FirstOf<KyDtLibDirectory>(found, IsDirectoryNode);
}

KyDtLibDirectory *KyDtLibDirectory::FindDirectory(const KyDtAttributeList &pairs) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(pairs, found);
  return FirstOf<KyDtLibDirectory>(found, IsDirectoryNode);
}

void KyDtLibDirectory::FindItem(const wchar_t *name, const wchar_t *value, KyDynArrayBase<KyDtLibItem *> &result) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(name, value, found);
  AllOf(found, IsItemNode, result);
}

void KyDtLibDirectory::FindItem(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibItem *> &result) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(pairs, found);
  AllOf(found, IsItemNode, result);
}

void KyDtLibDirectory::FindDirectory(const wchar_t *name, const wchar_t *value,
                                     KyDynArrayBase<KyDtLibDirectory *> &result) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(name, value, found);
  AllOf(found, IsDirectoryNode, result);
}

void KyDtLibDirectory::FindDirectory(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibDirectory *> &result) {
  KyDynArray<KyDtLibItemBase *> found;
  Find(pairs, found);
  AllOf(found, IsDirectoryNode, result);
}

KyDtLibItemBase *KyDtLibDirectory::Find(const wchar_t *name) {
  // Only children named exactly "Directory" are entered, and only those
  // named "Item" can be the result.
  std::vector<KyDtLibDirectory *> stack{this};
  MoveToFirst();
  while (!stack.empty()) {
    KyDtLibDirectory *dir = stack.back();
    if (dir->IsOut()) {
      stack.pop_back();
      continue;
    }
    KyDtLibItemBase *child = dir->GetCurData();
    dir->MoveToNext();
    if (child == nullptr) continue;
    const CString tag = child->GetXMLNodeName();
    if (tag.Compare(L"Directory") == 0) {
      if (auto *sub = dynamic_cast<KyDtLibDirectory *>(child)) {
        stack.push_back(sub);
        sub->MoveToFirst();
      }
    } else if (tag.Compare(L"Item") == 0 && child->GetName().Compare(name) == 0) {
      return child;
    }
  }
  return nullptr;
}
