#include "platform/acad/AcRxDynamicLinker.h"

#include "platform/acad/AcRxRegistry.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

struct AcRxDynamicLinker::Application {
  std::wstring name;
  bool locked = true;
  bool mdiAware = false;
};

AcRxDynamicLinker::AcRxDynamicLinker() = default;
AcRxDynamicLinker::~AcRxDynamicLinker() = default;

AcRxDynamicLinker::Application *AcRxDynamicLinker::find(void *appId) const {
  auto it = apps_.find(appId);
  return it == apps_.end() ? nullptr : it->second.get();
}

bool AcRxDynamicLinker::registerAppMDIAware(void *appId) {
  Application *app = find(appId);
  if (!app) return false;
  app->mdiAware = true;
  return true;
}

bool AcRxDynamicLinker::registerAppNotMDIAware(void *appId) {
  Application *app = find(appId);
  if (!app) return false;
  app->mdiAware = false;
  return true;
}

bool AcRxDynamicLinker::unlockApplication(void *appId) {
  Application *app = find(appId);
  if (!app) return false;
  app->locked = false;
  return true;
}

bool AcRxDynamicLinker::lockApplication(void *appId) {
  Application *app = find(appId);
  if (!app) return false;
  app->locked = true;
  return true;
}

void *AcRxDynamicLinker::beginApplication(const wchar_t *name) {
  auto app = std::make_unique<Application>();
  app->name = name ? name : L"";
  // The record's address is the id: unique while the application is loaded.
  void *id = app.get();
  apps_[id] = std::move(app);
  return id;
}

void AcRxDynamicLinker::endApplication(void *appId) { apps_.erase(appId); }

bool AcRxDynamicLinker::isApplicationKnown(void *appId) const { return find(appId) != nullptr; }

bool AcRxDynamicLinker::isApplicationLocked(void *appId) const {
  Application *app = find(appId);
  return app && app->locked;
}

bool AcRxDynamicLinker::isAppMDIAware(void *appId) const {
  Application *app = find(appId);
  return app && app->mdiAware;
}

const wchar_t *AcRxDynamicLinker::applicationName(void *appId) const {
  Application *app = find(appId);
  return app ? app->name.c_str() : L"";
}

namespace {
AcRxDynamicLinker *Linker() { return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER)); }
}  // namespace

bool acrxUnlockApplication(void *appId) {
  AcRxDynamicLinker *linker = Linker();
  return linker && linker->unlockApplication(appId);
}

bool acrxApplicationIsLocked(void *appId) {
  AcRxDynamicLinker *linker = Linker();
  return linker && linker->isApplicationLocked(appId);
}
