// The XML form of dictionaries: ReadFromXML, SaveToXML and the element
// reader and writer of a whole tree.
#include <cstring>
#include <cwchar>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

#include "containers/KyArray.h"
#include "dictionary/KyDtDictChildCollector.h"
#include "dictionary/KyDtDictStreams.h"
#include "dictionary/KyDtDictTextPool.h"
#include "dictionary/KyDtDictionary.h"
#include "language/LangTranslate.h"
#include "platform/utility/KyUtXMLDOM.h"

namespace {

constexpr const wchar_t *kRootName = L"TolvDictionary";
constexpr const wchar_t *kDirectoryTag = L"Directory";

// The element name of each value kind; "Int" is the Long kind.
struct TagKind {
  const wchar_t *tag;
  int kind;
};
constexpr TagKind kValueTags[] = {
    {L"Bool", KyDtDictItem::DT_BOOL},     {L"Char", KyDtDictItem::DT_CHAR},
    {L"Int", KyDtDictItem::DT_LONG},      {L"Double", KyDtDictItem::DT_DOUBLE},
    {L"String", KyDtDictItem::DT_STRING}, {L"Option", KyDtDictItem::DT_OPTION},
    {L"Reference", KyDtDictItem::DT_REFERENCE},
};

// The kind an element stands for: a value kind, else a dictionary.
int KindOfTag(const wchar_t *tag) {
  for (const TagKind &entry : kValueTags) {
    if (std::wcscmp(entry.tag, tag) == 0) return entry.kind;
  }
  return KyDtDictItem::DT_DICT;
}

// The element name of an item, or null for a kind that has none.
const wchar_t *TagOfItem(const KyDtDictItem &item) {
  const int kind = item.GetType();
  if (kind == KyDtDictItem::DT_DICT) {
    const wchar_t *className = static_cast<const KyDtDictionary &>(item).GetClassNameW();
    return *className != L'\0' ? className : kDirectoryTag;
  }
  for (const TagKind &entry : kValueTags) {
    if (entry.kind == kind) return entry.tag;
  }
  return nullptr;
}

bool IsPlainDictionary(const KyDtDictItem &item) { return typeid(item) == typeid(KyDtDictionary); }

}  // namespace

// ---- Whole trees ----

void KyDtDictStreams::WriteXml(KyDtDictionary &root, _auto_ptr<KyUtXMLDOMNode> &node) {
  node->DeleteChildrenNodes();
  root.WriteHeader(node);
  struct Frame {
    KyDtDictionary *dict;
    KyUtXMLDOMNode *element;
    _auto_ptr<KyUtXMLDOMNode> owned;  // empty for the root, whose handle is the caller's
    KyDtDictItem *const *slot;
  };
  std::vector<Frame> frames;
  frames.push_back({&root, node.get(), _auto_ptr<KyUtXMLDOMNode>(), root.GetFirst()});
  while (!frames.empty()) {
    Frame &frame = frames.back();
    if (frame.slot == nullptr) {
      frames.pop_back();
      if (!frames.empty()) frames.back().slot = frames.back().dict->GetNext(frames.back().slot);
      continue;
    }
    KyDtDictItem *child = *frame.slot;
    const wchar_t *tag = child != nullptr ? TagOfItem(*child) : nullptr;
    if (tag != nullptr) {
      _auto_ptr<KyUtXMLDOMNode> element = frame.element->AppendNode(tag, L"", L"name", child->m_strName);
      // A class name that can't stand as an element name gives no element.
      if (element) {
        if (IsPlainDictionary(*child)) {
          auto *dict = static_cast<KyDtDictionary *>(child);
          dict->WriteHeader(element);
          KyUtXMLDOMNode *raw = element.get();
          frames.push_back({dict, raw, std::move(element), dict->GetFirst()});
          continue;  // the parent moves on when this frame is done
        }
        *child >> element;
      }
    }
    frame.slot = frame.dict->GetNext(frame.slot);
  }
}

std::int32_t KyDtDictStreams::ReadXml(KyDtDictionary &root, _auto_ptr<KyUtXMLDOMNode> &node, bool consume) {
  struct Frame {
    Frame(KyDtDictionary *d, KyUtXMLDOMNode &element) : dict(d), collector(*d) {
      children = element.GetChildrenNodes();
      count = children->GetCount();
      collector.Reserve(count);
    }
    KyDtDictionary *dict;
    // The dictionary's element, kept when its children are to be removed
    // once read; empty for the root, whose handle is the caller's.
    _auto_ptr<KyUtXMLDOMNode> element;
    KyUtXMLDOMNodeArray children;
    int index = 0;
    int count = 0;
    KyDtDictChildCollector collector;
  };
  KyDtDictTextPool::Scope pool;
  root.ReadHeader(node);
  root.Reset();
  std::vector<std::unique_ptr<Frame>> frames;
  frames.push_back(std::make_unique<Frame>(&root, *node));
  // Every item below is made here, values by kind and dictionaries as plain
  // ones, so this count misses none.
  std::int32_t references = 0;
  try {
    while (!frames.empty()) {
      Frame &frame = *frames.back();
      if (frame.index >= frame.count) {
        frame.collector.Finish();
        if (consume && frame.element) frame.element->DeleteChildrenNodes();
        KyDtDictionary *done = frame.dict;
        frames.pop_back();
        if (!frames.empty()) frames.back()->collector.Add(done);
        continue;
      }
      _auto_ptr<KyUtXMLDOMNode> element = frame.children->GetItem(frame.index++);
      if (!element) continue;
      const wchar_t *tag = element->GetNodeName();
      const int kind = KindOfTag(tag);
      if (kind != KyDtDictItem::DT_DICT) {
        if (kind == KyDtDictItem::DT_REFERENCE) ++references;
        std::unique_ptr<KyDtDictItem> item(CreateDictItem(kind));
        *item << element;
        frame.collector.Add(item.release());
        continue;
      }
      auto dict = std::make_unique<KyDtDictionary>();
      if (std::wcscmp(tag, kDirectoryTag) != 0) dict->m_strClassName = tag;
      dict->m_nAutoSort = frame.dict->m_nAutoSort;
      dict->ReadHeader(element);
      frames.push_back(std::make_unique<Frame>(dict.get(), *element));
      if (consume) frames.back()->element = element;
      dict.release();  // owned by its frame until its parent takes it
    }
  } catch (...) {
    // Keep what each level has read, and drop the levels not yet handed to
    // their parents.
    while (!frames.empty()) {
      Frame &frame = *frames.back();
      try {
        frame.collector.Finish();
      } catch (...) {
      }
      KyDtDictionary *dict = frame.dict;
      frames.pop_back();
      if (dict != &root) delete dict;
    }
    throw;
  }
  return references;
}

// ---- Dictionary operators and files ----

void KyDtDictionary::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) { KyDtDictStreams::WriteXml(*this, node); }

void KyDtDictionary::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) { KyDtDictStreams::ReadXml(*this, node); }

bool KyDtDictionary::ReadFromXML(const wchar_t *path) {
  KyUtXMLDOMFile document;
  if (!document.Open(path)) return false;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wcscmp(root->GetNodeName(), kRootName) != 0) return false;
  m_nAutoSort = CString(L"TRUE").Compare(root->GetAttributeValue(L"autosort")) == 0 ? 1 : 0;
  if (typeid(*this) != typeid(KyDtDictionary)) {
    // A derived class reads through its own operator.
    *this << root;
    TranslateRef();
    return true;
  }
  // Reading replaces every child, so with no reference read there is
  // nothing to resolve, and the walk over the whole tree is saved.
  // The document is this call's own, so it may be taken apart as it is read.
  if (KyDtDictStreams::ReadXml(*this, root, true) > 0) TranslateRef();
  return true;
}

bool KyDtDictionary::SaveToXML(const wchar_t *path) {
  KyUtXMLDOMFile document;
  if (document.IsFileExist(path)) {
    // The root's other attributes survive a save into an existing file.
    if (!document.Open(path)) return false;
  } else {
    KyArray<std::pair<CString, CString>> attributes(1);
    attributes[0] = {CString(L"localname"), _TL(L"XML Dictionary")};
    if (!document.CreateNewXMLDoc(path, L"version='1.0' encoding='utf-8'", kRootName, attributes)) return false;
  }
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || std::wcscmp(root->GetNodeName(), kRootName) != 0) return false;
  root->DeleteChildrenNodes();
  *this >> root;
  root->SetAttributeValue(L"autosort", m_nAutoSort != 0 ? L"TRUE" : L"FALSE");
  // A failed write still counts as saved: the tree is in the document.
  document.Save(nullptr);
  return true;
}
