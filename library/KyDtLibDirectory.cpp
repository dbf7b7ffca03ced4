// Library directories: reading, writing and copying whole trees.
#include "library/KyDtLibDirectory.h"

#include <cwchar>
#include <typeinfo>
#include <vector>

#include "platform/utility/KyUtXMLDOM.h"

namespace {

constexpr const wchar_t *kDirectoryTag = L"Directory";
constexpr const wchar_t *kItemTag = L"Item";

// A child the tree walks may handle in place of its own virtual operation:
// exactly a plain directory, whose operations are the ones below.
KyDtLibDirectory *AsPlainDirectory(KyDtLibItemBase *node) {
  return node != nullptr && typeid(*node) == typeid(KyDtLibDirectory) ? static_cast<KyDtLibDirectory *>(node)
                                                                       : nullptr;
}

// Moves every child out of the list, without freeing it, to the pending set.
void TakeChildren(KyDtLibDirectory &dir, std::vector<KyDtLibItemBase *> &pending) {
  while (dir.GetLength() > 0) {
    if (KyDtLibItemBase *child = dir.TakeOffTail()) pending.push_back(child);
  }
}

}  // namespace

KyDtLibDirectory::KyDtLibDirectory() = default;

KyDtLibDirectory::KyDtLibDirectory(const KyDtLibDirectory &other) : KyDtLibItemBase(other), KyPDList<KyDtLibItemBase>() {}

KyDtLibDirectory &KyDtLibDirectory::operator=(const KyDtLibDirectory &other) {
  KyDtLibItemBase::operator=(other);
  return *this;
}

KyDtLibDirectory::~KyDtLibDirectory() {
  // Frees nested directories one level at a time: each one is emptied
  // before it is deleted, so no destructor recurses.
  std::vector<KyDtLibItemBase *> pending;
  TakeChildren(*this, pending);
  while (!pending.empty()) {
    KyDtLibItemBase *node = pending.back();
    pending.pop_back();
    if (auto *dir = dynamic_cast<KyDtLibDirectory *>(node)) TakeChildren(*dir, pending);
    delete node;
  }
}

CString KyDtLibDirectory::GetXMLNodeName() const { return kDirectoryTag; }

bool KyDtLibDirectory::IsDirectory() const { return true; }

// ---- Reading ----

bool KyDtLibDirectory::ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  ReadBaseFromNode(*node);
  Reset();
  ReadChildrenFromNode(*node);
  return true;
}

void KyDtLibDirectory::ReadChildrenFromNode(KyUtXMLDOMNode &node) {
  struct Frame {
    KyDtLibDirectory *dir;
    _auto_ptr<KyUtXMLDOMNode> element;  // empty for the first, whose handle is the caller's
    KyUtXMLDOMNodeArray children;
    int index = 0;
    int count = 0;
  };
  std::vector<std::unique_ptr<Frame>> frames;
  auto push = [&frames](KyDtLibDirectory *dir, KyUtXMLDOMNode &element) {
    auto frame = std::make_unique<Frame>();
    frame->dir = dir;
    frame->children = element.GetChildrenNodes();
    frame->count = frame->children->GetCount();
    frames.push_back(std::move(frame));
  };
  push(this, node);
  while (!frames.empty()) {
    Frame &frame = *frames.back();
    if (frame.index >= frame.count) {
      frames.pop_back();
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> element = frame.children->GetItem(frame.index++);
    if (!element) continue;
    if (std::wcscmp(element->GetNodeName(), kDirectoryTag) == 0) {
      auto *dir = new KyDtLibDirectory;
      frame.dir->Append(dir);
      dir->ReadBaseFromNode(*element);
      KyUtXMLDOMNode &raw = *element;
      push(dir, raw);
      frames.back()->element = element;
    } else {
      auto *item = new KyDtLibItem;
      frame.dir->Append(item);
      item->ReadItemFromNode(*element);
    }
  }
}

// ---- Writing ----

bool KyDtLibDirectory::SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  node->DeleteChildrenNodes();
  SaveBaseToNode(*node);
  SaveChildrenToNode(*node);
  return true;
}

void KyDtLibDirectory::SaveChildrenToNode(KyUtXMLDOMNode &node) {
  struct Frame {
    KyDtLibDirectory *dir;
    KyUtXMLDOMNode *element;
    _auto_ptr<KyUtXMLDOMNode> owned;
  };
  std::vector<Frame> frames;
  frames.push_back({this, &node, _auto_ptr<KyUtXMLDOMNode>()});
  MoveToFirst();
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.dir->IsOut()) {
      frames.pop_back();
      continue;
    }
    KyDtLibItemBase *child = frame.dir->GetCurData();
    frame.dir->MoveToNext();
    if (child == nullptr) continue;
    _auto_ptr<KyUtXMLDOMNode> element = frame.element->AppendNode(child->GetXMLNodeName(), L"", L"", L"");
    // A node name that can't stand in XML gives no element to write into.
    if (!element) continue;
    if (KyDtLibDirectory *dir = AsPlainDirectory(child)) {
      dir->SaveBaseToNode(*element);
      KyUtXMLDOMNode *raw = element.get();
      frames.push_back({dir, raw, std::move(element)});
      dir->MoveToFirst();
    } else {
      child->SaveToNode(element);
    }
  }
}

bool KyDtLibDirectory::WriteChildNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!node) return false;
  struct Frame {
    KyDtLibDirectory *dir;
    KyUtXMLDOMNode *element;
    _auto_ptr<KyUtXMLDOMNode> owned;
  };
  std::vector<Frame> frames;
  frames.push_back({this, node.get(), _auto_ptr<KyUtXMLDOMNode>()});
  MoveToFirst();
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.dir->IsOut()) {
      frames.pop_back();
      continue;
    }
    KyDtLibItemBase *child = frame.dir->GetCurData();
    frame.dir->MoveToNext();
    if (child == nullptr) continue;
    const CString tag = child->GetXMLNodeName();
    if (tag.Compare(kDirectoryTag) == 0) {
      _auto_ptr<KyUtXMLDOMNode> element = frame.element->AppendNode(kDirectoryTag, L"", L"name", child->GetName());
      if (!element) return false;
      auto *dir = dynamic_cast<KyDtLibDirectory *>(child);
      if (dir == nullptr) continue;
      if (AsPlainDirectory(child) == nullptr) {
        if (!dir->WriteChildNode(element)) return false;
        continue;
      }
      KyUtXMLDOMNode *raw = element.get();
      frames.push_back({dir, raw, std::move(element)});
      dir->MoveToFirst();
    } else if (tag.Compare(kItemTag) == 0) {
      CStringArray names, values;
      names.Add(L"name");
      names.Add(L"file");
      values.Add(child->GetName());
      auto *item = dynamic_cast<KyDtLibItem *>(child);
      values.Add(item != nullptr ? item->GetDataFile() : CString());
      if (!frame.element->AppendNode(kItemTag, names, values, L"")) return false;
    }
  }
  return true;
}

// ---- Copying ----

KyDtLibItemBase *KyDtLibDirectory::Clone() {
  auto *copy = new KyDtLibDirectory;
  copy->CopyFrom(this);
  return copy;
}

void KyDtLibDirectory::CopyFrom(KyDtLibItemBase *other) {
  if (other == nullptr) return;
  CopyBaseFrom(*other);
  Reset();
  if (auto *source = dynamic_cast<KyDtLibDirectory *>(other); source != nullptr && source != this) {
    CopyChildrenFrom(*source);
  }
}

void KyDtLibDirectory::CopyChildrenFrom(KyDtLibDirectory &other) {
  struct Frame {
    KyDtLibDirectory *source;
    KyDtLibDirectory *target;
    KyDtLibItemBase *const *slot;
  };
  std::vector<Frame> frames;
  frames.push_back({&other, this, other.GetFirst()});
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.slot == nullptr) {
      frames.pop_back();
      continue;
    }
    KyDtLibItemBase *child = *frame.slot;
    frame.slot = frame.source->GetNext(frame.slot);
    if (KyDtLibDirectory *dir = AsPlainDirectory(child)) {
      auto *copy = new KyDtLibDirectory;
      frame.target->Append(copy);
      copy->CopyBaseFrom(*dir);
      frames.push_back({dir, copy, dir->GetFirst()});
    } else {
      frame.target->Append(child != nullptr ? child->Clone() : nullptr);
    }
  }
}

bool KyDtLibDirectory::CopyDirectoryFrom(KyDtLibDirectory &other) {
  Reset();
  m_strName = other.GetName();
  if (&other == this) return true;
  struct Frame {
    KyDtLibDirectory *source;
    KyDtLibDirectory *target;
    KyDtLibItemBase *const *slot;
  };
  std::vector<Frame> frames;
  frames.push_back({&other, this, other.GetFirst()});
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.slot == nullptr) {
      frames.pop_back();
      continue;
    }
    KyDtLibItemBase *child = *frame.slot;
    frame.slot = frame.source->GetNext(frame.slot);
    if (child == nullptr) continue;
    const CString tag = child->GetXMLNodeName();
    if (tag.Compare(kDirectoryTag) == 0) {
      auto *copy = new KyDtLibDirectory;
      copy->SetName(child->GetName());
      frame.target->Append(copy);
      auto *dir = dynamic_cast<KyDtLibDirectory *>(child);
      if (dir == nullptr) continue;
      if (AsPlainDirectory(child) == nullptr) {
        if (!copy->CopyDirectoryFrom(*dir)) return false;
        continue;
      }
      frames.push_back({dir, copy, dir->GetFirst()});
    } else if (tag.Compare(kItemTag) == 0) {
      auto *copy = new KyDtLibItem;
      copy->SetName(child->GetName());
      if (auto *item = dynamic_cast<KyDtLibItem *>(child)) copy->SetDataFile(item->GetDataFile());
      frame.target->Append(copy);
    }
  }
  return true;
}
