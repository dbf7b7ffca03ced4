// The XML form of a directory and everything below it. A directory's
// element holds one child element per child item, named by its class;
// the reader makes items by element name and appends each child once it is
// read in full, so a directory's children are registered before it.
//
// Both directions keep their own stack of open directories instead of
// recursing, because a document may nest deeper than the call stack allows.
#include <cwchar>
#include <string>
#include <vector>

#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/utility/KyUtXMLDOMNodes.h"
#include "uiconfig/KyDtUIDirectory.h"
#include "uiconfig/KyDtUIFactory.h"

struct KyDtUITreeStreams {
  static void Read(KyDtUIDirectory &root, _auto_ptr<KyUtXMLDOMNode> &rootNode);
  static void Write(KyDtUIDirectory &root, _auto_ptr<KyUtXMLDOMNode> &rootNode);
};

namespace {

struct ReadFrame {
  KyDtUIDirectory *directory;
  _auto_ptr<KyUtXMLDOMNode> node;
  _auto_ptr<KyUtXMLDOMNodes> children;
  int next = 0;
};

// The maker of the last element name met. Siblings mostly share one element
// name, so most elements are told by one comparison instead of a map search.
// Kept for one read only: the factory map may change between reads.
class LastFactory {
 public:
  KyDtUINewItemFn Find(const wchar_t *name) {
    if (!name) return nullptr;
    if (known_ && name_ == name) return make_;
    make_ = FindUIElementFactory(name);
    name_.assign(name);
    known_ = true;
    return make_;
  }

 private:
  std::wstring name_;
  KyDtUINewItemFn make_ = nullptr;
  bool known_ = false;
};

struct WriteFrame {
  KyDtUIDirectory *directory;
  _auto_ptr<KyUtXMLDOMNode> node;
  KyDtUIItem *const *next;
};

}  // namespace

void KyDtUITreeStreams::Read(KyDtUIDirectory &root, _auto_ptr<KyUtXMLDOMNode> &rootNode) {
  if (!rootNode) return;
  // The head of a directory: its item fields, then its old children go.
  auto open = [](KyDtUIDirectory &directory, _auto_ptr<KyUtXMLDOMNode> &node) {
    directory.ReadItemFields(node);
    directory.Reset();
    return node->GetChildrenNodes();
  };
  LastFactory factory;
  std::vector<ReadFrame> stack;
  stack.push_back({&root, _auto_ptr<KyUtXMLDOMNode>(), open(root, rootNode)});
  while (!stack.empty()) {
    ReadFrame &top = stack.back();
    int count = top.children ? top.children->GetCount() : 0;
    if (top.next >= count) {
      // The directory is complete: its own attributes, then it joins its
      // parent (the root joins nothing).
      KyDtUIDirectory *done = top.directory;
      _auto_ptr<KyUtXMLDOMNode> node = top.node;
      stack.pop_back();
      if (stack.empty()) {
        done->ReadTailFields(rootNode);
      } else {
        done->ReadTailFields(node);
        stack.back().directory->Append(done);
      }
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> child = top.children->GetItem(top.next++);
    if (!child) continue;
    KyDtUINewItemFn make = factory.Find(child->GetNodeName());
    if (!make) continue;  // an element of no known class is skipped
    KyDtUIItem *item = make();
    if (!item) continue;
    if (item->IsDirectory()) {
      auto *directory = static_cast<KyDtUIDirectory *>(item);
      _auto_ptr<KyUtXMLDOMNodes> grandChildren = open(*directory, child);
      stack.push_back({directory, child, grandChildren});
    } else {
      *item << child;
      top.directory->Append(item);
    }
  }
}

void KyDtUITreeStreams::Write(KyDtUIDirectory &root, _auto_ptr<KyUtXMLDOMNode> &rootNode) {
  if (!rootNode) return;
  auto open = [](KyDtUIDirectory &directory, _auto_ptr<KyUtXMLDOMNode> &node) {
    node->DeleteChildrenNodes();
    directory.WriteItemFields(node);
  };
  open(root, rootNode);
  std::vector<WriteFrame> stack;
  stack.push_back({&root, _auto_ptr<KyUtXMLDOMNode>(), root.GetFirst()});
  while (!stack.empty()) {
    WriteFrame &top = stack.back();
    if (!top.next) {
      KyDtUIDirectory *done = top.directory;
      _auto_ptr<KyUtXMLDOMNode> node = top.node;
      stack.pop_back();
      done->WriteTailFields(stack.empty() ? rootNode : node);
      continue;
    }
    KyDtUIItem *item = *top.next;
    top.next = top.directory->GetNext(top.next);
    if (!item) continue;
    _auto_ptr<KyUtXMLDOMNode> child = top.node ? top.node->AppendNode(item->GetClassName(), L"", L"", L"")
                                               : rootNode->AppendNode(item->GetClassName(), L"", L"", L"");
    if (!child) continue;
    if (auto *directory = dynamic_cast<KyDtUIDirectory *>(item)) {
      open(*directory, child);
      stack.push_back({directory, child, directory->GetFirst()});
    } else {
      *item >> child;
    }
  }
}

void KyDtUIDirectory::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) { KyDtUITreeStreams::Read(*this, node); }

void KyDtUIDirectory::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) { KyDtUITreeStreams::Write(*this, node); }
