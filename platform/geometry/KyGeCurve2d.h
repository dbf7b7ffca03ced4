// Curves of the plane: the base every planar curve of the geometry library
// shares, and the single segment (a straight piece or a circular arc) of
// which lines and polylines are made.
#pragma once

#include "platform/acad/AcGePoint2d.h"

class KyGeCurve2d {
 public:
  virtual ~KyGeCurve2d() = default;
  // The length along the curve.
  virtual double Length() const = 0;
};

// From a start to an end point; a bulge other than 0 makes it an arc whose
// bulge is the tangent of a quarter of its included angle (positive:
// counter-clockwise), as polylines of drawings store it.
class KyGeSegment2d : public KyGeCurve2d {
 public:
  KyGeSegment2d() = default;
  KyGeSegment2d(const AcGePoint2d &start, const AcGePoint2d &end, double bulge = 0.0)
      : m_start(start), m_end(end), m_bulge(bulge) {}

  double Length() const override;
  bool IsArc() const;

  AcGePoint2d m_start;
  AcGePoint2d m_end;
  double m_bulge = 0.0;
};
