// A view onto the whole layer configuration: the dictionary "LAYER" of the
// system settings, holding one dictionary per standard and the name of the
// current one ("CUR_STD"). It owns nothing.
#pragma once

#include "containers/KyDynArray.h"
#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"
#include "standards/KyDtLayerStd.h"

class AcDbDatabase;
class KyDtDictionary;

class KyDtLayerCfg {
 public:
  // Finds "LAYER" in the system settings.
  KyDtLayerCfg();

  CString GetCurStdName() const;
  KyDtDictionary *GetLayerStd(const wchar_t *name) const;
  KyDtDictionary *GetCurLayerStd() const;
  // Appends every standard, in list order; the array is not cleared.
  void GetAllLayerStd(KyDynArray<KyDtDictionary *> &standards) const;
  // Resolves `def.key` in a standard (null: the current one).
  bool GetLayerDef(KyDtLayerDef &def, KyDtDictionary *standard = nullptr) const;
  AcDbObjectId InitLayer(const wchar_t *key, AcDbDatabase *db) const;

  KyDtDictionary *GetDict() const { return m_pCfg; }

 private:
  KyDtDictionary *m_pCfg;
};
