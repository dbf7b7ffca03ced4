// An insert of a block: the block, an insertion point and a rotation
// (radians; degrees in the drawing file). The block is kept by name, as
// the drawing file keeps it, so an insert copied into another drawing
// refers to that drawing's block of the name.
#pragma once

#include <string>
#include <vector>

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcGePoint3d.h"

class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference);
  AcDbBlockReference();
  AcDbBlockReference(const AcGePoint3d &position, AcDbObjectId blockTableRecord);

  // The block of the name in the entity's database; null when there is none.
  AcDbObjectId blockTableRecord() const;
  // eInvalidInput when the id is no block table record.
  Acad::ErrorStatus setBlockTableRecord(AcDbObjectId blockId);
  const std::wstring &blockName() const { return name_; }
  AcGePoint3d position() const { return position_; }
  Acad::ErrorStatus setPosition(const AcGePoint3d &p);
  double rotation() const { return rotation_; }
  Acad::ErrorStatus setRotation(double angle);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  std::wstring name_;
  AcGePoint3d position_;
  double rotation_ = 0.0;
  std::vector<tolv::DxfTag> extras_;
};
