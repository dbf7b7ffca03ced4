#include "project/KyDtProjectDictProxy.h"

bool KyDtProjectDictProxy::BindDict(KyDtDictionary *dict) {
  m_pDict = dict;
  return true;
}

KyDtDictionary *KyDtProjectDictProxy::operator->() { return m_pDict; }
