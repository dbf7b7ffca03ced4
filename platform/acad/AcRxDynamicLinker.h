// The host's dynamic linker service, as far as a loaded application talks to
// it: an application declares whether it works with several open documents,
// and unlocks itself so that the host may unload it later.
//
// The host loads an application and gives it an application id, the `pkt`
// of its messages; the application answers with that id.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/acad/AcRxObject.h"

class AcRxDynamicLinker : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

  AcRxDynamicLinker();
  ~AcRxDynamicLinker() override;
  AcRxDynamicLinker(const AcRxDynamicLinker &) = delete;
  AcRxDynamicLinker &operator=(const AcRxDynamicLinker &) = delete;

  // Application side. False for an id the host didn't give out.
  bool registerAppMDIAware(void *appId);
  bool registerAppNotMDIAware(void *appId);
  bool unlockApplication(void *appId);
  bool lockApplication(void *appId);

  // Host side: a new application id for a module being loaded; it starts
  // locked and not declared as working with several documents.
  void *beginApplication(const wchar_t *name);
  // Forgets the id once the module is unloaded.
  void endApplication(void *appId);
  bool isApplicationKnown(void *appId) const;
  bool isApplicationLocked(void *appId) const;
  bool isAppMDIAware(void *appId) const;
  const wchar_t *applicationName(void *appId) const;

 private:
  struct Application;
  Application *find(void *appId) const;
  std::map<void *, std::unique_ptr<Application>> apps_;
};

// Lets the host unload the application later; false for an unknown id.
bool acrxUnlockApplication(void *appId);
bool acrxApplicationIsLocked(void *appId);
