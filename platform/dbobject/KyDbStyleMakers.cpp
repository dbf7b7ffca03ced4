#include "platform/dbobject/KyDbStyleMakers.h"

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbSymbolTables.h"

namespace {

AcDbDatabase *Resolve(AcDbDatabase *db) { return db ? db : acdbHostApplicationServices()->workingDatabase(); }

template <class Table>
AcDbObjectId Lookup(const wchar_t *name, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !name || !*name) return AcDbObjectId();
  Table *table = nullptr;
  if (db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return AcDbObjectId();
  AcDbObjectId id;
  table->getAt(name, id);
  table->close();
  return id;
}

template <class Table>
AcDbObjectId Add(AcDbSymbolTableRecord *record, int closeRecord, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !record) return AcDbObjectId();
  Table *table = nullptr;
  if (db->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) return AcDbObjectId();
  AcDbObjectId id;
  Acad::ErrorStatus es = table->add(id, record);
  table->close();
  if (es != Acad::eOk) return AcDbObjectId();
  if (closeRecord) record->close();
  return id;
}

}  // namespace

AcDbObjectId GetTextStyleId(const wchar_t *name, AcDbDatabase *db) { return Lookup<AcDbTextStyleTable>(name, db); }
AcDbObjectId GetDimStyleId(const wchar_t *name, AcDbDatabase *db) { return Lookup<AcDbDimStyleTable>(name, db); }

AcDbObjectId AddTextStyle(AcDbTextStyleTableRecord *record, int closeRecord, AcDbDatabase *db) {
  return Add<AcDbTextStyleTable>(record, closeRecord, db);
}

AcDbObjectId AddDimStyle(AcDbDimStyleTableRecord *record, int closeRecord, AcDbDatabase *db) {
  return Add<AcDbDimStyleTable>(record, closeRecord, db);
}

AcDbObjectId AssureRegApp(const wchar_t *name, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !name || !*name) return AcDbObjectId();
  AcDbObjectId id = Lookup<AcDbRegAppTable>(name, db);
  if (!id.isNull()) return id;
  auto *app = new AcDbRegAppTableRecord;
  if (app->setName(name) != Acad::eOk) {
    delete app;
    return AcDbObjectId();
  }
  id = Add<AcDbRegAppTable>(app, 1, db);
  if (id.isNull()) delete app;
  return id;
}
