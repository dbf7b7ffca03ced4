// A dormer: a small roof with a window of its own, set on a pitched roof.
// Its label belongs to its window. In drawing files a dormer is an entity of
// type TOLV_DORMER.
#pragma once

#include "platform/acad/AcGePoint3d.h"
#include "platform/dbobject/KyDbEntity.h"

// The sizes of a dormer, in drawing units.
class KyDormerPar {
 public:
  double GetWindowWidth() const { return windowWidth; }
  double GetWindowHeight() const { return windowHeight; }

  double windowWidth = 900.0;
  double windowHeight = 1200.0;
  double width = 1500.0;       // of the dormer's front
  double depth = 1800.0;       // from the front back into the roof
  double roofSlope = 30.0;     // degrees
};

class KyDbDormer : public KyDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(KyDbDormer);

  KyDbDormer();
  ~KyDbDormer() override;

  const KyDormerPar &GetDormerPar() const { return par_; }
  Acad::ErrorStatus SetDormerPar(const KyDormerPar &par);
  const CString &GetLabel() const { return label_; }
  Acad::ErrorStatus SetLabel(const wchar_t *label);
  const CString &GetLabelType() const { return labelType_; }
  Acad::ErrorStatus SetLabelType(const wchar_t *type);
  AcGePoint3d GetPosition() const { return position_; }
  Acad::ErrorStatus SetPosition(const AcGePoint3d &p);

  CString GetLayerKey() const override;

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  KyDormerPar par_;
  CString label_;
  CString labelType_;
  AcGePoint3d position_;
};
