// Makes a module current for the length of a scope: its resources are the
// ones the framework loads, and its language table the one translations use.
#pragma once

#include "platform/windows/WinTypes.h"

class KyDtDictionary;

class KyUtPushResource {
 public:
  // `ownTable` is the module's own pointer to its table, found through the
  // language switch on first use and kept from then on.
  KyUtPushResource(HINSTANCE instance, KyDtDictionary *&ownTable);
  // This module, with its own table.
  explicit KyUtPushResource(HINSTANCE instance);
  ~KyUtPushResource();
  KyUtPushResource(const KyUtPushResource &) = delete;
  KyUtPushResource &operator=(const KyUtPushResource &) = delete;

 private:
  HINSTANCE m_hOldResource;
  KyDtDictionary *m_pOldModuleLang;
};

// This module's own table pointer, which the language start-up forgets
// when it reads a package.
KyDtDictionary *&ThisModuleLanguageTable();
