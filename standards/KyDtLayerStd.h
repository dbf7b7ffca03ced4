// A view onto one layer standard: a dictionary below "LAYER" with the
// fields from which keys are assembled ("LAYER_FIELD_DEF") and whole keys
// ("ASSEMBLY_LAYER_DEF"). It owns nothing and is made on the stack for each
// query.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "standards/KyDtLayerDef.h"

class AcDbDatabase;
class KyDtDictionary;

class KyDtLayerStd {
 public:
  explicit KyDtLayerStd(KyDtDictionary *standard = nullptr) : m_pStd(standard) {}

  KyDtDictionary *GetFieldDict() const;
  KyDtDictionary *GetAssemblyDict() const;

  // Finds `def.key` among the string items of a dictionary tree (depth
  // first, sub-dictionaries only group) and fills `def` from the item.
  // Moves the list cursors of the dictionaries it walks. False, and `def`
  // untouched, when nothing matches.
  static bool FindLayer(KyDtDictionary *dict, KyDtLayerDef &def);
  // Builds `def` from the fields of the hyphen-separated parts of
  // `def.key`; false, and `def` untouched, when a part is not a field.
  bool AssembleLayer(KyDtLayerDef &def) const;
  // The full resolution of `def.key`: assembled from fields, corrected by
  // an entry of the whole key.
  bool GetLayerDef(KyDtLayerDef &def) const;

  AcDbObjectId InitLayer(const wchar_t *key, AcDbDatabase *db) const;

  KyDtDictionary *GetDict() const { return m_pStd; }

 private:
  KyDtDictionary *m_pStd;
};
