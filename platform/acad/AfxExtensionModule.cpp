#include "platform/acad/AfxExtensionModule.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<CDynLinkLibrary *> &Chain() {
  static std::vector<CDynLinkLibrary *> chain;
  return chain;
}

bool &FailNext() {
  static bool fail = false;
  return fail;
}

}  // namespace

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE &state, HINSTANCE instance) {
  if (FailNext()) {
    FailNext() = false;
    return false;
  }
  if (!instance) return false;
  state.bInitialized = true;
  state.hModule = instance;
  state.hResource = instance;
  return true;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE &state, bool all) {
  std::vector<CDynLinkLibrary *> doomed;
  for (CDynLinkLibrary *link : Chain())
    if (all || (state.hModule && link->m_hModule == state.hModule)) doomed.push_back(link);
  // Each link takes itself out of the chain as it is deleted.
  for (CDynLinkLibrary *link : doomed) delete link;
  state = AFX_EXTENSION_MODULE();
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE &state, bool system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(system) {
  Chain().push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
  auto &chain = Chain();
  chain.erase(std::remove(chain.begin(), chain.end(), this), chain.end());
}

namespace tolv {

int LinkedModuleCount() { return static_cast<int>(Chain().size()); }

bool IsModuleLinked(HINSTANCE instance) {
  for (CDynLinkLibrary *link : Chain())
    if (link->m_hModule == instance) return true;
  return false;
}

void FailNextExtensionModuleInit() { FailNext() = true; }

}  // namespace tolv
