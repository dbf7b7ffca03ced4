// A straight line from one point to another.
#pragma once

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcGePoint3d.h"

class AcDbLine : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLine);
  AcDbLine();
  AcDbLine(const AcGePoint3d &start, const AcGePoint3d &end);

  AcGePoint3d startPoint() const { return start_; }
  Acad::ErrorStatus setStartPoint(const AcGePoint3d &p);
  AcGePoint3d endPoint() const { return end_; }
  Acad::ErrorStatus setEndPoint(const AcGePoint3d &p);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  AcGePoint3d start_;
  AcGePoint3d end_;
  std::vector<tolv::DxfTag> extras_;
};
