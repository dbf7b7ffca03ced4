#include "uiconfig/KyDtUITreeDisposal.h"

#include <new>
#include <typeinfo>
#include <vector>

#include "uiconfig/KyDtUIConfig.h"
#include "uiconfig/KyDtUIDirectories.h"
#include "uiconfig/KyDtUIDirectory.h"
#include "uiconfig/KyDtUILeafItems.h"
#include "uiconfig/KyDtUIReference.h"

// Each item is destroyed here by its exact class, found by its type, so a
// destructor that isn't virtual is the right one to call.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wdelete-non-abstract-non-virtual-dtor"
#endif

namespace tolv::uiconfig {
namespace {

// Made on first use and never destroyed by itself: lists may let items go
// while the module's global objects are being destroyed.
std::vector<KyDtUIItem *> *g_detached = nullptr;

template <class T>
bool DestroyAs(KyDtUIItem *item) {
  if (typeid(*item) != typeid(T)) return false;
  static_cast<T *>(item)->~T();
  // Every item class has KyDtUIItem as its first base, at the start of the
  // allocation.
  ::operator delete(static_cast<void *>(item));
  return true;
}

// Takes the children off a directory into `out`, leaving it empty.
void TakeChildren(KyDtUIDirectory *directory, std::vector<KyDtUIItem *> &out) {
  while (directory->GetLength() > 0) {
    if (KyDtUIItem *child = directory->TakeOffHead()) out.push_back(child);
  }
}

}  // namespace

void DetachChildren(KyDtUIItem *item) {
  auto *directory = dynamic_cast<KyDtUIDirectory *>(item);
  if (!directory || directory->GetLength() == 0) return;
  if (!g_detached) g_detached = new std::vector<KyDtUIItem *>;
  TakeChildren(directory, *g_detached);
}

void DestroyItem(KyDtUIItem *item) {
  if (!item) return;
  if (DestroyAs<KyDtUIItem>(item) || DestroyAs<KyDtUIReference>(item) || DestroyAs<KyDtUISeparator>(item) ||
      DestroyAs<KyDtUIControl>(item) || DestroyAs<KyDtUICommandDef>(item) ||
      DestroyAs<KyDtUISwitchStatus>(item) || DestroyAs<KyDtUIMenuItem>(item) ||
      DestroyAs<KyDtUIShortCut>(item) || DestroyAs<KyDtUIDirectory>(item) || DestroyAs<KyDtUISwitchDef>(item) ||
      DestroyAs<KyDtUIMenuDef>(item) || DestroyAs<KyDtUIToolBoxDef>(item) ||
      DestroyAs<KyDtUIDictionary>(item) || DestroyAs<KyDtUIConfig>(item)) {
    return;
  }
  // A class from elsewhere: only what every item has can be destroyed here.
  item->~KyDtUIItem();
  ::operator delete(static_cast<void *>(item));
}

void DestroyChildren(KyDtUIItem *item) {
  auto *directory = dynamic_cast<KyDtUIDirectory *>(item);
  if (!directory) return;
  std::vector<KyDtUIItem *> pending;
  TakeChildren(directory, pending);
  while (!pending.empty()) {
    KyDtUIItem *next = pending.back();
    pending.pop_back();
    if (auto *sub = dynamic_cast<KyDtUIDirectory *>(next)) TakeChildren(sub, pending);
    DestroyItem(next);
  }
}

void DestroyTree(KyDtUIItem *item) {
  if (!item) return;
  DestroyChildren(item);
  DestroyItem(item);
}

std::int32_t FreeDetached() {
  std::int32_t count = 0;
  while (g_detached) {
    std::vector<KyDtUIItem *> *batch = g_detached;
    g_detached = nullptr;
    for (KyDtUIItem *item : *batch) {
      if (auto *directory = dynamic_cast<KyDtUIDirectory *>(item)) count += directory->GetChildNum();
      DestroyTree(item);
      ++count;
    }
    delete batch;
  }
  return count;
}

}  // namespace tolv::uiconfig

std::int32_t KyDtUIFreeDetachedItems() { return tolv::uiconfig::FreeDetached(); }
