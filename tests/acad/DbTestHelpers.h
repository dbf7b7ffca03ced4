// Small helpers shared by the drawing-database tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"

namespace acadtest {

// Adds a line to a block of the database and closes it; its id.
inline AcDbObjectId AddLine(AcDbDatabase &db, AcDbObjectId blockId, const AcGePoint3d &a, const AcGePoint3d &b,
                            const wchar_t *layer = nullptr) {
  AcDbBlockTableRecord *block = nullptr;
  EXPECT_EQ(acdbOpenObject(block, blockId, AcDb::kForWrite), Acad::eOk);
  if (!block) return AcDbObjectId();
  auto *line = new AcDbLine(a, b);
  AcDbObjectId id;
  EXPECT_EQ(block->appendAcDbEntity(id, line), Acad::eOk);
  // By name once the database holds it: a new entity looks names up in
  // the working database.
  if (layer) {
    EXPECT_EQ(line->setLayer(layer), Acad::eOk);
  }
  line->close();
  block->close();
  return id;
}

// Makes a layer with a colour and closes it; its id.
inline AcDbObjectId AddLayer(AcDbDatabase &db, const wchar_t *name, int color) {
  AcDbLayerTable *table = nullptr;
  EXPECT_EQ(db.getLayerTable(table, AcDb::kForWrite), Acad::eOk);
  if (!table) return AcDbObjectId();
  auto *layer = new AcDbLayerTableRecord;
  layer->setName(name);
  AcCmColor c;
  c.setColorIndex(static_cast<Adesk::UInt16>(color));
  layer->setColor(c);
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, layer), Acad::eOk);
  layer->close();
  table->close();
  return id;
}

inline std::wstring NameOf(AcDbObjectId id) {
  AcDbSymbolTableRecord *rec = nullptr;
  if (acdbOpenObject(rec, id, AcDb::kForRead) != Acad::eOk) return L"";
  const ACHAR *name = nullptr;
  rec->getName(name);
  std::wstring out = name;
  rec->close();
  return out;
}

}  // namespace acadtest
