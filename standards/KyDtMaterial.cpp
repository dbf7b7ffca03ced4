#include "standards/KyDtMaterial.h"

#include "platform/acad/AcDbDictionary.h"
#include "platform/dbobject/KyDbMaterial.h"

AcDbObjectId KyDtInitMaterial(const wchar_t *name, AcDbDatabase *db) {
  InitAecSysMaterial(db);
  if (!name || !*name) return AcDbObjectId();
  AcDbDictionary *dict = GetAecMaterialDictionary(AcDb::kForRead, db);
  if (!dict) return AcDbObjectId();
  AcDbObjectId id;
  const Acad::ErrorStatus es = dict->getAt(name, id);
  if (es == Acad::eKeyNotFound && dict->upgradeOpen() == Acad::eOk) {
    auto *material = new KyDbMaterial;
    InitMaterialData(name, material);
    AcDbObjectId newId;
    if (dict->setAt(name, material, newId) == Acad::eOk) {
      material->close();
      id = newId;
    } else {
      delete material;
      id = AcDbObjectId();
    }
  }
  dict->close();
  return id;
}
