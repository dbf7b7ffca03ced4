// KyDtProjectDictProxy: the base of the small objects that give one
// dictionary of the project database its named, typed operations.
//
// A proxy holds a pointer to its dictionary and never owns it; a copy
// copies the pointer. It stays valid as long as the dictionary does: after
// a deletion or a Reset of the database it dangles, and nothing tells it.
#pragma once

#include "dictionary/KyDtDictionary.h"

class KyDtProjectDictProxy {
 public:
  KyDtProjectDictProxy() = default;
  KyDtProjectDictProxy(const KyDtProjectDictProxy &) = default;
  KyDtProjectDictProxy &operator=(const KyDtProjectDictProxy &) = default;
  virtual ~KyDtProjectDictProxy() = default;

  // Stores the pointer; true. Proxies with parts of their own bind those
  // too, creating the dictionaries they need.
  virtual bool BindDict(KyDtDictionary *dict);
  virtual KyDtDictionary *operator->();

  KyDtDictionary *Dict() const { return m_pDict; }

  // Neither is ever true, so sorting a list of proxies keeps its order.
  bool operator<(const KyDtProjectDictProxy &) const { return false; }
  bool operator>(const KyDtProjectDictProxy &) const { return false; }
  // The same dictionary.
  bool operator==(const KyDtProjectDictProxy &other) const { return m_pDict == other.m_pDict; }
  bool operator!=(const KyDtProjectDictProxy &other) const { return m_pDict != other.m_pDict; }

 protected:
  KyDtDictionary *m_pDict = nullptr;
};
