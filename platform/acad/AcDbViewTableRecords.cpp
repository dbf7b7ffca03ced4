#include "platform/acad/AcDbViewTableRecords.h"

#include "platform/acad/AcDbRegAppTableRecord.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbSymbolTableRecord, 0, 0, 0, VPORT, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbSymbolTableRecord, 0, 0, 0, VIEW, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, 0, 0, 0, UCS, ACAD)

AcDbRegAppTableRecord::AcDbRegAppTableRecord() = default;
AcDbViewportTableRecord::AcDbViewportTableRecord() = default;
AcDbViewTableRecord::AcDbViewTableRecord() = default;
AcDbUCSTableRecord::AcDbUCSTableRecord() = default;

void AcDbViewportTableRecord::setActiveDefaults() {
  using tolv::DxfTag;
  extras_ = {
      DxfTag::Real(10, 0.0),   DxfTag::Real(20, 0.0),    // lower left
      DxfTag::Real(11, 1.0),   DxfTag::Real(21, 1.0),    // upper right
      DxfTag::Real(12, 0.0),   DxfTag::Real(22, 0.0),    // view centre
      DxfTag::Real(13, 0.0),   DxfTag::Real(23, 0.0),    // snap base
      DxfTag::Real(14, 10.0),  DxfTag::Real(24, 10.0),   // snap spacing
      DxfTag::Real(15, 10.0),  DxfTag::Real(25, 10.0),   // grid spacing
      DxfTag::Real(16, 0.0),   DxfTag::Real(26, 0.0),    DxfTag::Real(36, 1.0),  // view direction
      DxfTag::Real(17, 0.0),   DxfTag::Real(27, 0.0),    DxfTag::Real(37, 0.0),  // view target
      DxfTag::Real(40, 1000.0), DxfTag::Real(41, 1.5),   DxfTag::Real(42, 50.0),
      DxfTag::Real(43, 0.0),   DxfTag::Real(44, 0.0),    DxfTag::Real(50, 0.0),  DxfTag::Real(51, 0.0),
      DxfTag::Int(71, 0),      DxfTag::Int(72, 1000),    DxfTag::Int(73, 1),     DxfTag::Int(74, 3),
      DxfTag::Int(75, 0),      DxfTag::Int(76, 0),       DxfTag::Int(77, 0),     DxfTag::Int(78, 0),
      DxfTag::Int(281, 0),     DxfTag::Int(65, 1),
      DxfTag::Real(110, 0.0),  DxfTag::Real(120, 0.0),   DxfTag::Real(130, 0.0),
      DxfTag::Real(111, 1.0),  DxfTag::Real(121, 0.0),   DxfTag::Real(131, 0.0),
      DxfTag::Real(112, 0.0),  DxfTag::Real(122, 1.0),   DxfTag::Real(132, 0.0),
      DxfTag::Int(79, 0),      DxfTag::Real(146, 0.0),
  };
}
