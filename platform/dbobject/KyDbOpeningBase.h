// What every opening set into a wall has: where it stands, its height and
// its label, with the label type the label was made for ("普通门", ...).
#pragma once

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcGePoint3d.h"
#include "platform/dbobject/KyDbEntity.h"

class KyDbOpeningBase : public KyDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(KyDbOpeningBase);

  KyDbOpeningBase();
  ~KyDbOpeningBase() override;

  const CString &GetLabel() const { return label_; }
  Acad::ErrorStatus SetLabel(const wchar_t *label);
  const CString &GetLabelType() const { return labelType_; }
  Acad::ErrorStatus SetLabelType(const wchar_t *type);
  // In drawing units.
  double GetHeight() const { return height_; }
  Acad::ErrorStatus SetHeight(double height);
  AcGePoint3d GetPosition() const { return position_; }
  Acad::ErrorStatus SetPosition(const AcGePoint3d &p);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 protected:
  // Takes one tag of the base's group; false for a tag of another group.
  bool readBaseTag(const tolv::DxfTag &tag);

 private:
  CString label_;
  CString labelType_;
  double height_ = 0.0;
  AcGePoint3d position_;
};
