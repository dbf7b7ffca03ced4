// Ranges of the geometry library: KyGeExtent is one closed interval
// [min, max] on a line, KyGeExtent2d a plan rectangle as an X range and a
// Y range.
//
// Both ends are inclusive and compared with g_distZero, so a point on the
// border, or a rectangle sharing an edge, is inside. The fields are taken
// as given: an interval whose minimum lies above its maximum includes
// nothing.
#pragma once

#include "platform/geometry/KyGePoint.h"

class KyGeExtent {
 public:
  KyGeExtent() = default;
  KyGeExtent(double minimum, double maximum) : min(minimum), max(maximum) {}

  double GetLength() const { return max - min; }
  bool IsInclude(double value) const;
  bool IsInclude(const KyGeExtent &other) const;

  double min = 0.0;
  double max = 0.0;
};

class KyGeExtent2d {
 public:
  KyGeExtent2d() = default;
  KyGeExtent2d(double xMin, double yMin, double xMax, double yMax) : m_x(xMin, xMax), m_y(yMin, yMax) {}
  KyGeExtent2d(const KyGeExtent &x, const KyGeExtent &y) : m_x(x), m_y(y) {}

  KyGeExtent &GetXExtend() { return m_x; }
  const KyGeExtent &GetXExtend() const { return m_x; }
  KyGeExtent &GetYExtend() { return m_y; }
  const KyGeExtent &GetYExtend() const { return m_y; }

  bool IsInclude(double x, double y) const { return m_x.IsInclude(x) && m_y.IsInclude(y); }
  bool IsInclude(const KyGePoint &point) const { return IsInclude(point.x, point.y); }
  bool IsInclude(const KyGeExtent2d &other) const {
    return m_x.IsInclude(other.m_x) && m_y.IsInclude(other.m_y);
  }

 private:
  KyGeExtent m_x;
  KyGeExtent m_y;
};
