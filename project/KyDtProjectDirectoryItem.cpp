#include "project/KyDtProjectDirectoryItem.h"

#include <cwchar>
#include <utility>
#include <vector>

#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/utility/KyUtXMLDOMNodes.h"
#include "platform/windows/WinCrt.h"
#include "project/KyDtProject.h"
#include "project/KyDtProjectDict.h"
#include "project/KyDtProjectFloor.h"

namespace {

// A child that is a directory of this tree's own making, whose subtree the
// walks below take over instead of recursing into it.
KyDtProjectDirectoryItem *AsDirectory(KyDtProjectItem *item) {
  if (!item || !(item->IsKindOf(L"Directory") || item->IsKindOf(L"TolvProject"))) return nullptr;
  return dynamic_cast<KyDtProjectDirectoryItem *>(item);
}

}  // namespace

KyDtProjectItem *NewProjectItemFor(const wchar_t *elementName) {
  const wchar_t *name = elementName ? elementName : L"";
  // Tried in this order; the type names are the classes' own.
  if (std::wcscmp(name, L"Directory") == 0) return new KyDtProjectDirectoryItem;
  if (std::wcscmp(name, L"File") == 0) return new KyDtProjectFile;
  if (std::wcscmp(name, L"Floor") == 0) return new KyDtProjectFloor;
  if (std::wcscmp(name, L"TolvProject") == 0) return new KyDtProject;
  if (std::wcscmp(name, L"TolvDictionary") == 0) return new KyDtProjectDict;
  return new KyDtProjectItem;
}

KyDtProjectDirectoryItem::~KyDtProjectDirectoryItem() { FreeChildren(); }

CString KyDtProjectDirectoryItem::GetTypeName() const { return L"Directory"; }

void KyDtProjectDirectoryItem::FreeChildren() {
  std::vector<KyDtProjectItem *> pending;
  auto drain = [&pending](KyDtProjectDirectoryItem &directory) {
    while (directory.GetLength() > 0) {
      if (KyDtProjectItem *child = directory.TakeOffHead()) pending.push_back(child);
    }
  };
  drain(*this);
  while (!pending.empty()) {
    KyDtProjectItem *item = pending.back();
    pending.pop_back();
    if (auto *directory = dynamic_cast<KyDtProjectDirectoryItem *>(item)) drain(*directory);
    delete item;
  }
}

void KyDtProjectDirectoryItem::Reset() {
  FreeChildren();
  KyPDList<KyDtProjectItem>::Reset();
}

void KyDtProjectDirectoryItem::ReadOwnAttributes(_auto_ptr<KyUtXMLDOMNode> &node) {
  Reset();
  KyDtProjectItem::operator<<(node);
  m_strName = node->GetAttributeValue(L"name");
}

void KyDtProjectDirectoryItem::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  struct Frame {
    KyDtProjectDirectoryItem *directory;
    _auto_ptr<KyUtXMLDOMNodes> children;
    int next;
    int count;
  };
  std::vector<Frame> stack;
  auto enter = [&stack](KyDtProjectDirectoryItem *directory, _auto_ptr<KyUtXMLDOMNode> &element) {
    directory->ReadOwnAttributes(element);
    _auto_ptr<KyUtXMLDOMNodes> children = element->GetChildrenNodes();
    int count = children ? children->GetCount() : 0;
    stack.push_back(Frame{directory, std::move(children), 0, count});
  };
  enter(this, node);
  while (!stack.empty()) {
    Frame &frame = stack.back();
    if (frame.next >= frame.count) {
      stack.pop_back();
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> element = frame.children->GetItem(frame.next++);
    KyDtProjectDirectoryItem *parent = frame.directory;
    if (!element) continue;
    KyDtProjectItem *item = NewProjectItemFor(element->GetNodeName());
    parent->Append(item);
    if (KyDtProjectDirectoryItem *directory = AsDirectory(item)) {
      enter(directory, element);  // `frame` is not used after this
    } else {
      *item << element;
    }
  }
}

void KyDtProjectDirectoryItem::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  struct Frame {
    KyDtProjectDirectoryItem *directory;
    _auto_ptr<KyUtXMLDOMNode> owned;  // empty for the caller's element
    KyUtXMLDOMNode *element;
    KyDtProjectItem *const *next;
  };
  std::vector<Frame> stack;
  auto enter = [&stack](KyDtProjectDirectoryItem *directory, _auto_ptr<KyUtXMLDOMNode> &element,
                        bool own) {
    element->DeleteChildrenNodes();
    directory->KyDtProjectItem::operator>>(element);
    KyUtXMLDOMNode *raw = element.get();
    _auto_ptr<KyUtXMLDOMNode> owned;
    if (own) owned.reset(element.release());
    stack.push_back(Frame{directory, std::move(owned), raw, directory->GetFirst()});
  };
  enter(this, node, false);
  while (!stack.empty()) {
    Frame &frame = stack.back();
    if (!frame.next) {
      stack.pop_back();
      continue;
    }
    KyDtProjectItem *child = *frame.next;
    frame.next = frame.directory->GetNext(frame.next);
    if (!child) continue;
    _auto_ptr<KyUtXMLDOMNode> element =
        frame.element->AppendNode(child->GetTypeName(), L"", L"name", child->m_strName);
    if (!element) continue;
    if (KyDtProjectDirectoryItem *directory = AsDirectory(child)) {
      enter(directory, element, true);  // `frame` is not used after this
    } else {
      *child >> element;
    }
  }
}

bool KyDtProjectDirectoryItem::IsSameWith(const KyDtProjectItem *other) {
  std::vector<std::pair<KyDtProjectDirectoryItem *, const KyDtProjectDirectoryItem *>> pending;
  auto head = [](KyDtProjectDirectoryItem *a, const KyDtProjectItem *b) -> const KyDtProjectDirectoryItem * {
    if (!b || !b->IsKindOf(a->GetTypeName())) return nullptr;
    if (_wcsicmp(a->m_strName, b->m_strName) != 0) return nullptr;
    auto *directory = dynamic_cast<const KyDtProjectDirectoryItem *>(b);
    if (!directory || a->GetLength() != directory->GetLength()) return nullptr;
    return directory;
  };
  const KyDtProjectDirectoryItem *start = head(this, other);
  if (!start) return false;
  pending.emplace_back(this, start);
  while (!pending.empty()) {
    auto [a, b] = pending.back();
    pending.pop_back();
    KyDtProjectItem *const *pa = a->GetFirst();
    KyDtProjectItem *const *pb = b->GetFirst();
    for (; pa && pb; pa = a->GetNext(pa), pb = b->GetNext(pb)) {
      KyDtProjectItem *x = *pa;
      const KyDtProjectItem *y = *pb;
      if (!x || !y) continue;
      if (KyDtProjectDirectoryItem *directory = AsDirectory(x)) {
        const KyDtProjectDirectoryItem *match = head(directory, y);
        if (!match) return false;
        pending.emplace_back(directory, match);
      } else if (!x->IsSameWith(y)) {
        return false;
      }
    }
  }
  return true;
}

KyDtProjectItem *KyDtProjectDirectoryItem::FindChildItem(const wchar_t *name) {
  const wchar_t *wanted = name ? name : L"";
  MoveToFirst();
  while (!IsOut()) {
    KyDtProjectItem *item = GetCurData();
    if (item && item->m_strName.Compare(wanted) == 0) return item;
    MoveToNext();
  }
  return nullptr;
}
