// A corner window: a band of glazing that runs round one or more corners
// of a wall. It is drawn along a base polyline (the wall's middle) between
// two side polylines (the wall's faces). In drawing files it is an entity of
// type TOLV_CORNER_WIN.
#pragma once

#include <vector>

#include "platform/dbobject/KyDbOpeningBase.h"
#include "platform/geometry/KyGePolyline2d.h"

class KyDbCornerWin : public KyDbOpeningBase {
 public:
  ACRX_DECLARE_MEMBERS(KyDbCornerWin);

  KyDbCornerWin();
  ~KyDbCornerWin() override;

  // Lays the window along legs that each turn a right angle to the left
  // from the last, starting at the origin along the x axis, in a wall of
  // that thickness: the base runs in the middle, the sides at half the
  // thickness to either side. False for no legs, a leg that is not
  // positive, or a thickness that is negative.
  bool SetFromLegs(const std::vector<double> &legs, double wallThickness);
  Acad::ErrorStatus SetLines(const KyGePolyline2d &base, const KyGePolyline2d &side1, const KyGePolyline2d &side2);

  // The developed length: that of the base polyline.
  double GetWinLength() const;
  // New copies for the caller to delete.
  virtual KyGePolyline2d *GetBaseLine() const;
  virtual void GetSideLines(KyGePolyline2d *&side1, KyGePolyline2d *&side2) const;

  CString GetLayerKey() const override;

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  KyGePolyline2d base_;
  KyGePolyline2d side1_;
  KyGePolyline2d side2_;
};
