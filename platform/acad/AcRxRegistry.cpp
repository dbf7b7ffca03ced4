#include "platform/acad/AcRxRegistry.h"

#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxDynamicLinker.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

AcRxObject *AcRxDictionary::at(const wchar_t *key) const {
  if (!key) return nullptr;
  auto it = entries_.find(key);
  return it == entries_.end() ? nullptr : it->second;
}

AcRxObject *AcRxDictionary::atPut(const wchar_t *key, AcRxObject *object) {
  if (!key) return nullptr;
  AcRxObject *&slot = entries_[key];
  AcRxObject *old = slot;
  slot = object;
  return old;
}

AcRxObject *AcRxDictionary::remove(const wchar_t *key) {
  if (!key) return nullptr;
  auto it = entries_.find(key);
  if (it == entries_.end()) return nullptr;
  AcRxObject *old = it->second;
  entries_.erase(it);
  return old;
}

namespace {

// The registry and its built-in services live as long as the process; they
// are built together on first use so that the services are always there.
struct SystemServices {
  AcRxDictionary registry;
  AcRxDynamicLinker linker;
  AcEdCommandStack commands;
  SystemServices() {
    registry.atPut(ACRX_DYNAMIC_LINKER, &linker);
    registry.atPut(ACRX_COMMAND_DOCK, &commands);
  }
};

}  // namespace

AcRxDictionary *acrxSysRegistry() {
  static SystemServices services;
  return &services.registry;
}
