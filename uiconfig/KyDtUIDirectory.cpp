#include "uiconfig/KyDtUIDirectory.h"

#include <cwchar>
#include <utility>
#include <vector>

#include "language/LangTranslate.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/windows/WinCrt.h"
#include "uiconfig/KyDtUIConfig.h"
#include "uiconfig/KyDtUIReference.h"

KyDtUIItem *KyDtUIDirectory::NewItem() { return new KyDtUIDirectory; }

std::int32_t KyDtUIDirectory::Append(KyDtUIItem *const &item) {
  std::int32_t index = KyPDList<KyDtUIItem>::Append(item);
  KyDtUIConfig *config = KyDtUIConfig::g_pCurUICfg;
  if (!config || !item) return index;
  if (!item->GetName().IsEmpty()) {
    // A named reference is registered like any item, and left unbound.
    config->AddToNamedMap(item->GetName(), item);
    return index;
  }
  if (!item->IsReference()) return index;
  auto *reference = static_cast<KyDtUIReference *>(item);
  if (KyDtUIItem *target = config->FindNamedItem(reference->GetReferencedItemName())) {
    reference->SetReferencedItem(target);
  } else {
    // Binding is done once, here: a target that comes later in the
    // document is never found.
    acutPrintf(L"%s", _TL(L"\nUIConfig.XML中引用错误<").GetString());
    acutPrintf(L"%s", reference->GetReferencedItemName().GetString());
    acutPrintf(L"%s", L">");
  }
  return index;
}

KyDtUIItem *KyDtUIDirectory::GetUIItem(const wchar_t *name) {
  if (!name) return nullptr;
  for (KyDtUIItem *const *slot = GetFirst(); slot; slot = GetNext(slot)) {
    if (*slot && std::wcscmp((*slot)->GetName(), name) == 0) return *slot;
  }
  return nullptr;
}

namespace {

// One directory of a walk: where its children stand and which comes next.
struct WalkFrame {
  KyDtUIDirectory *directory;
  KyDtUIItem *const *next;
};

// Preorder over the descendants of `root`; `visit` sees each item (null
// slots included) and answers whether to go below it when it is a
// directory.
template <class Visit>
void WalkPreorder(KyDtUIDirectory &root, Visit visit) {
  std::vector<WalkFrame> stack{{&root, root.GetFirst()}};
  while (!stack.empty()) {
    WalkFrame &top = stack.back();
    if (!top.next) {
      stack.pop_back();
      continue;
    }
    KyDtUIItem *item = *top.next;
    top.next = top.directory->GetNext(top.next);
    if (visit(item) && item && item->IsDirectory()) {
      auto *sub = static_cast<KyDtUIDirectory *>(item);
      stack.push_back({sub, sub->GetFirst()});
    }
  }
}

}  // namespace

void KyDtUIDirectory::GetAllSubItem(KyDynArrayBase<KyDtUIItem *> &items) {
  WalkPreorder(*this, [&items](KyDtUIItem *item) {
    items.Append(item);
    return true;
  });
}

std::int32_t KyDtUIDirectory::GetChildNum() {
  std::int32_t count = 0;
  WalkPreorder(*this, [&count](KyDtUIItem *) {
    ++count;
    return true;
  });
  return count;
}

KyDtUIItem *KyDtUIDirectory::FindItemByValue(const wchar_t *value) {
  if (!value) return nullptr;
  KyDtUIItem *found = nullptr;
  std::vector<WalkFrame> stack{{this, GetFirst()}};
  while (!stack.empty() && !found) {
    WalkFrame &top = stack.back();
    if (!top.next) {
      stack.pop_back();
      continue;
    }
    KyDtUIItem *item = *top.next;
    top.next = top.directory->GetNext(top.next);
    if (!item) continue;
    const wchar_t *kind = item->GetClassName();
    if (_wcsicmp(kind, L"Directory") == 0) {
      auto *sub = static_cast<KyDtUIDirectory *>(item);
      stack.push_back({sub, sub->GetFirst()});
    } else if (_wcsicmp(kind, L"CommandDef") == 0 && _wcsicmp(item->GetData(), value) == 0) {
      found = item;
    }
  }
  return found;
}

KyDtUIItem *KyDtUIDirectory::GetItemFromDFSId(unsigned int id) {
  // One frame per directory entered: the id sought in it and the counter of
  // items passed so far. Arithmetic is on the unsigned id, as given.
  struct Frame {
    KyDtUIDirectory *directory;
    KyDtUIItem *const *next;
    unsigned int id;
    unsigned int count;
    // The item being entered (to return it if its walk comes back empty).
    KyDtUIItem *entered;
  };
  std::vector<Frame> stack{{this, GetFirst(), id, 0u, nullptr}};
  KyDtUIItem *result = nullptr;
  bool returning = false;  // a nested walk has just ended with no result
  while (!stack.empty()) {
    Frame &top = stack.back();
    KyDtUIItem *item = nullptr;
    if (returning) {
      returning = false;
      item = top.entered;
      // A walk that found nothing counts as passed; the directory itself
      // may still be the one sought.
    } else {
      if (!top.next) {
        stack.pop_back();
        returning = true;
        continue;
      }
      item = *top.next;
      top.next = top.directory->GetNext(top.next);
      if (!item) {
        ++top.count;
        continue;
      }
      bool viaReference = item->IsReference();
      if (viaReference) {
        item = static_cast<KyDtUIReference *>(item)->GetReferencedItem();
        if (!item) {
          ++top.count;
          continue;
        }
      }
      if (item->IsDirectory() && !item->IsKindOf(L"SwitchDef")) {
        auto *sub = static_cast<KyDtUIDirectory *>(item);
        unsigned int r = top.id - top.count;
        std::int32_t n = sub->GetChildNum();
        // A reference back into a directory being walked would never end.
        bool circular = false;
        if (viaReference) {
          for (const Frame &frame : stack) circular = circular || frame.directory == sub;
        }
        if (circular) {
          // Counted as an unbound reference.
          ++top.count;
          continue;
        }
        if (static_cast<std::int32_t>(r) < n) {
          top.entered = item;
          stack.push_back({sub, sub->GetFirst(), r, 0u, nullptr});
          continue;
        }
        top.count += static_cast<unsigned int>(n);
      }
    }
    if (top.count == top.id) {
      result = item;
      break;
    }
    ++top.count;
  }
  return result;
}

void KyDtUIDirectory::SafeReset() {
  KyDtUIConfig *config = KyDtUIConfig::g_pCurUICfg;
  if (!config) {
    Reset();
    return;
  }
  std::vector<KyDtUIDirectory *> directories;
  WalkPreorder(*this, [&](KyDtUIItem *item) {
    if (!item) return false;
    if (item->IsDirectory()) directories.push_back(static_cast<KyDtUIDirectory *>(item));
    if (!item->GetName().IsEmpty()) config->DelNamedMap(item->GetName());
    return true;
  });
  // Deepest first, so that no list lets a child go with children of its own.
  for (auto it = directories.rbegin(); it != directories.rend(); ++it) (*it)->Reset();
  Reset();
}

void KyDtUIDirectory::ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  m_bMultiOpen = std::wcscmp(node->GetAttributeValue(L"multiopen"), L"TRUE") == 0;
  m_bOpened = std::wcscmp(node->GetAttributeValue(L"open"), L"TRUE") == 0;
  m_bUseScrollBar = std::wcscmp(node->GetAttributeValue(L"scrollbar"), L"TRUE") == 0;
  m_nDefaultWidth = _wtoi(node->GetAttributeValue(L"width"));
}

void KyDtUIDirectory::WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (m_bMultiOpen) node->SetAttributeValue(L"multiopen", L"TRUE");
  if (m_bOpened) node->SetAttributeValue(L"open", L"TRUE");
  if (m_bUseScrollBar) node->SetAttributeValue(L"scrollbar", L"TRUE");
  if (m_nDefaultWidth >= 1) {
    CString width;
    width.Format(L"%d", m_nDefaultWidth);
    node->SetAttributeValue(L"width", width);
  }
}
