// A layer: colour, line type, line weight and the on/frozen/locked state.
#pragma once

#include "platform/acad/AcCmColor.h"
#include "platform/acad/AcDbSymbolTable.h"

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
  AcDbLayerTableRecord();

  AcCmColor color() const { return color_; }
  // Colour 7 unless set; "by layer" and "by block" are refused (eInvalidInput).
  Acad::ErrorStatus setColor(const AcCmColor &color);
  AcDbObjectId linetypeObjectId() const { return linetypeId_; }
  Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
  AcDb::LineWeight lineWeight() const { return lineWeight_; }
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
  bool isOff() const { return off_; }
  Acad::ErrorStatus setIsOff(bool off);
  bool isFrozen() const { return (flags_ & 1) != 0; }
  Acad::ErrorStatus setIsFrozen(bool frozen);
  bool isLocked() const { return (flags_ & 4) != 0; }
  Acad::ErrorStatus setIsLocked(bool locked);
  bool isPlottable() const { return plottable_; }
  Acad::ErrorStatus setIsPlottable(bool plottable);

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbLayerTableRecord"; }
  void writeOwnFields(AcDbDxfFiler *filer) const override;
  bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer) override;

 private:
  AcCmColor color_;
  bool off_ = false;
  bool plottable_ = true;
  AcDbObjectId linetypeId_;
  AcDb::LineWeight lineWeight_ = AcDb::kLnWtByLwDefault;
};
