// The symbol tables of a drawing and all their record classes.
#pragma once

#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDimStyleTableRecord.h"
#include "platform/acad/AcDbLayerTableRecord.h"
#include "platform/acad/AcDbLinetypeTableRecord.h"
#include "platform/acad/AcDbRegAppTableRecord.h"
#include "platform/acad/AcDbSymbolTable.h"
#include "platform/acad/AcDbTextStyleTableRecord.h"
#include "platform/acad/AcDbViewTableRecords.h"

#define TOLV_DECLARE_SYMBOL_TABLE(CLASS, RECORD, DXFNAME)                                      \
  class CLASS : public AcDbSymbolTable {                                                       \
   public:                                                                                     \
    ACRX_DECLARE_MEMBERS(CLASS);                                                               \
    const wchar_t *tableName() const override { return DXFNAME; }                              \
                                                                                               \
   protected:                                                                                  \
    bool acceptsRecord(const AcDbSymbolTableRecord *r) const override { return RECORD::cast(r); } \
    void recordAdded(AcDbSymbolTableRecord *record) override;                                  \
  };

TOLV_DECLARE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, L"BLOCK_RECORD")
TOLV_DECLARE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, L"LAYER")
TOLV_DECLARE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, L"LTYPE")
TOLV_DECLARE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, L"STYLE")
TOLV_DECLARE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, L"DIMSTYLE")
TOLV_DECLARE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, L"APPID")
TOLV_DECLARE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, L"VPORT")
TOLV_DECLARE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, L"VIEW")
TOLV_DECLARE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, L"UCS")

#undef TOLV_DECLARE_SYMBOL_TABLE
