#include "platform/dbobject/KyDbLayerMakers.h"

#include <string>
#include <vector>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/dbobject/LinetypeFile.h"
#include "platform/utility/SupportFiles.h"

namespace {

AcDbDatabase *Resolve(AcDbDatabase *db) { return db ? db : acdbHostApplicationServices()->workingDatabase(); }

}  // namespace

AcDbObjectId GetLayerIdFromString(const wchar_t *name, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !name || !*name) return AcDbObjectId();
  AcDbLayerTable *table = nullptr;
  if (db->getLayerTable(table, AcDb::kForRead) != Acad::eOk) return AcDbObjectId();
  AcDbObjectId id;
  table->getAt(name, id);
  table->close();
  return id;
}

AcDbObjectId InitLayer(const wchar_t *name, int color, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !name || !*name) return AcDbObjectId();
  AcDbObjectId existing = GetLayerIdFromString(name, db);
  if (!existing.isNull()) return existing;
  AcDbLayerTable *table = nullptr;
  if (db->getLayerTable(table, AcDb::kForWrite) != Acad::eOk) return AcDbObjectId();
  auto *layer = new AcDbLayerTableRecord;
  AcCmColor c;
  c.setColorIndex(static_cast<Adesk::UInt16>(color >= 1 && color <= 255 ? color : 7));
  AcDbObjectId id;
  if (layer->setName(name) != Acad::eOk || layer->setColor(c) != Acad::eOk || table->add(id, layer) != Acad::eOk) {
    delete layer;
    table->close();
    return AcDbObjectId();
  }
  layer->close();
  table->close();
  return id;
}

AcDbObjectId InitLineType(const wchar_t *name, AcDbDatabase *db) {
  db = Resolve(db);
  if (!db || !name || !*name) return AcDbObjectId();
  AcDbLinetypeTable *table = nullptr;
  if (db->getLinetypeTable(table, AcDb::kForRead) != Acad::eOk) return AcDbObjectId();
  AcDbObjectId id;
  if (table->getAt(name, id) == Acad::eOk) {
    table->close();
    return id;
  }
  table->close();

  CString path;
  if (!FindFile(L"tolv.lin", path)) return AcDbObjectId();
  tolv::LinetypeDefinition def;
  if (!tolv::FindLinetypeDefinition(path.GetString(), name, def)) return AcDbObjectId();

  if (db->getLinetypeTable(table, AcDb::kForWrite) != Acad::eOk) return AcDbObjectId();
  auto *record = new AcDbLinetypeTableRecord;
  bool ok = record->setName(def.name.c_str()) == Acad::eOk && record->setComments(def.description.c_str()) == Acad::eOk &&
            record->setNumDashes(static_cast<int>(def.dashes.size())) == Acad::eOk &&
            record->setPatternLength(def.patternLength) == Acad::eOk;
  for (std::size_t i = 0; ok && i < def.dashes.size(); ++i) {
    ok = record->setDashLengthAt(static_cast<int>(i), def.dashes[i]) == Acad::eOk;
  }
  if (!ok || table->add(id, record) != Acad::eOk) {
    delete record;
    table->close();
    return AcDbObjectId();
  }
  record->close();
  table->close();
  return id;
}
