// A polyline of the plane: a chain of vertices whose segments are straight
// or circular arcs, by a bulge per vertex (the segment that starts there).
#pragma once

#include <vector>

#include "platform/geometry/KyGeMLine2d.h"

class KyGePolyline2d : public KyGeMLine2d {
 public:
  KyGePolyline2d() = default;
  explicit KyGePolyline2d(std::vector<AcGePoint2d> vertices, bool closed = false);

  void AddVertex(const AcGePoint2d &p, double bulge = 0.0);
  double GetBulge(int i) const;
  void SetBulge(int i, double bulge);

  // Takes the vertices, bulges and closure of another polyline.
  void CopyFrom(const KyGePolyline2d &other);

  bool GetSegment(int i, KyGeSegment2d &segment) const override;

 private:
  std::vector<double> m_bulges;  // one per vertex
};
