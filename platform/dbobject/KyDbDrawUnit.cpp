#include "platform/dbobject/KyDbDrawUnit.h"

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbXrecord.h"
#include "platform/acad/AdsResbuf.h"

namespace {

constexpr const wchar_t *kDimUnitKey = L"TOLV_DIM_UNIT";

AcDbDatabase *Resolve(AcDbDatabase *db) { return db ? db : acdbHostApplicationServices()->workingDatabase(); }

}  // namespace

unsigned char KyDbGetDrawUnit(AcDbDatabase *db) {
  db = Resolve(db);
  return db && db->insunits() == AcDb::kUnitsMeters ? 1 : 0;
}

unsigned char KyDbGetDimUnit(AcDbDatabase *db) {
  db = Resolve(db);
  if (!db) return 0;
  unsigned char unit = KyDbGetDrawUnit(db);
  AcDbDictionary *nod = nullptr;
  if (db->getNamedObjectsDictionary(nod, AcDb::kForRead) != Acad::eOk) return unit;
  AcDbObject *obj = nullptr;
  if (nod->getAt(kDimUnitKey, obj, AcDb::kForRead) == Acad::eOk) {
    if (auto *xrec = AcDbXrecord::cast(obj)) {
      resbuf *data = nullptr;
      xrec->rbChain(&data);
      if (data && data->restype == 70 && (data->resval.rint == 0 || data->resval.rint == 1)) {
        unit = static_cast<unsigned char>(data->resval.rint);
      }
      acutRelRb(data);
    }
    obj->close();
  }
  nod->close();
  return unit;
}

bool KyDbSetDrawUnit(unsigned char unit, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || unit > 1) return false;
  return db->setInsunits(unit == 1 ? AcDb::kUnitsMeters : AcDb::kUnitsMillimeters) == Acad::eOk;
}

bool KyDbSetDimUnit(unsigned char unit, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || unit > 1) return false;
  resbuf *data = acutBuildList(70, static_cast<int>(unit), 0);
  if (!data) return false;
  bool ok = false;
  AcDbDictionary *nod = nullptr;
  if (db->getNamedObjectsDictionary(nod, AcDb::kForWrite) == Acad::eOk) {
    AcDbObject *obj = nullptr;
    if (nod->getAt(kDimUnitKey, obj, AcDb::kForWrite) == Acad::eOk) {
      if (auto *xrec = AcDbXrecord::cast(obj)) ok = xrec->setFromRbChain(*data) == Acad::eOk;
      obj->close();
    } else {
      auto *xrec = new AcDbXrecord;
      AcDbObjectId id;
      if (xrec->setFromRbChain(*data) == Acad::eOk && nod->setAt(kDimUnitKey, xrec, id) == Acad::eOk) {
        xrec->close();
        ok = true;
      } else {
        delete xrec;
      }
    }
    nod->close();
  }
  acutRelRb(data);
  return ok;
}
