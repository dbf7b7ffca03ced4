// A circle by centre and radius.
#pragma once

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcGePoint3d.h"

class AcDbCircle : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCircle);
  AcDbCircle();
  AcDbCircle(const AcGePoint3d &center, double radius);

  AcGePoint3d center() const { return center_; }
  Acad::ErrorStatus setCenter(const AcGePoint3d &p);
  double radius() const { return radius_; }
  // The radius must be positive (eInvalidInput).
  Acad::ErrorStatus setRadius(double radius);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  AcGePoint3d center_;
  double radius_ = 1.0;
  std::vector<tolv::DxfTag> extras_;
};
