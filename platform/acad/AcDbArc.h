// A circular arc: centre, radius, and start and end angles in radians,
// counter-clockwise from the start (degrees in the drawing file).
#pragma once

#include <vector>

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcGePoint3d.h"

class AcDbArc : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbArc);
  AcDbArc();
  AcDbArc(const AcGePoint3d &center, double radius, double startAngle, double endAngle);

  AcGePoint3d center() const { return center_; }
  Acad::ErrorStatus setCenter(const AcGePoint3d &p);
  double radius() const { return radius_; }
  // The radius must be positive (eInvalidInput).
  Acad::ErrorStatus setRadius(double radius);
  double startAngle() const { return start_; }
  Acad::ErrorStatus setStartAngle(double angle);
  double endAngle() const { return end_; }
  Acad::ErrorStatus setEndAngle(double angle);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  AcGePoint3d center_;
  double radius_ = 1.0;
  double start_ = 0.0;
  double end_ = 0.0;
  std::vector<tolv::DxfTag> extras_;
};
