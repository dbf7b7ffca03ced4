#include "LibraryTestHelpers.h"

#include <utility>

namespace libtest {

std::wstring Dump(const KyDtLibDirectory &root) {
  std::wstring out;
  std::vector<std::pair<const KyDtLibDirectory *, int>> stack{{&root, 0}};
  std::vector<KyDtLibItemBase *const *> slots{root.GetFirst()};
  while (!stack.empty()) {
    KyDtLibItemBase *const *slot = slots.back();
    if (slot == nullptr) {
      stack.pop_back();
      slots.pop_back();
      continue;
    }
    const int depth = stack.back().second;
    slots.back() = stack.back().first->GetNext(slot);
    KyDtLibItemBase *node = *slot;
    if (node == nullptr) continue;
    out += std::wstring(static_cast<std::size_t>(depth) * 2, L' ') + node->GetXMLNodeName().str() + L" " +
           node->GetName().str();
    if (auto *item = dynamic_cast<KyDtLibItem *>(node)) out += L" [" + item->GetDataFile().str() + L"]";
    out += L" {" + AttributesOf(*node) + L"}\n";
    if (auto *dir = dynamic_cast<KyDtLibDirectory *>(node)) {
      stack.emplace_back(dir, depth + 1);
      slots.push_back(dir->GetFirst());
    }
  }
  return out;
}

}  // namespace libtest
