// The framework's extension-module calls, as the host process provides them
// to a loaded module: a module registers itself so that the framework finds
// its resources, and takes itself out again before it is unloaded.
//
// The framework keeps one chain of linked modules for the process; each
// CDynLinkLibrary is a link of it. AfxTermExtensionModule deletes the links
// of the module, so the module only creates them.
#pragma once

// A module's instance handle: the address at which the module is loaded.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__ *;

struct AFX_EXTENSION_MODULE {
  bool bInitialized = false;
  HINSTANCE hModule = nullptr;
  HINSTANCE hResource = nullptr;
};

// Fills the record for the module; false for a null instance (or when the
// host has been told to refuse, see tolv::FailNextExtensionModuleInit).
bool AfxInitExtensionModule(AFX_EXTENSION_MODULE &state, HINSTANCE instance);

// Deletes the links of this module from the chain (with `all`, every link)
// and clears the record.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE &state, bool all = false);

class CDynLinkLibrary {
 public:
  // Links the module of the record into the framework's chain.
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE &state, bool system = false);
  virtual ~CDynLinkLibrary();
  CDynLinkLibrary(const CDynLinkLibrary &) = delete;
  CDynLinkLibrary &operator=(const CDynLinkLibrary &) = delete;

  HINSTANCE m_hModule;
  HINSTANCE m_hResource;
  bool m_bSystem;
};

namespace tolv {
// The number of links in the chain, and whether a module is linked.
int LinkedModuleCount();
bool IsModuleLinked(HINSTANCE instance);
// Makes the next AfxInitExtensionModule fail, as it does on the home
// platform when the module's state can't be set up.
void FailNextExtensionModuleInit();
}  // namespace tolv
