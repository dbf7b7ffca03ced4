// A point of the add-on's geometry library: x, y and z, with z 0 for plan
// work.
#pragma once

class KyGePoint {
 public:
  KyGePoint() = default;
  KyGePoint(double xx, double yy, double zz = 0.0) : x(xx), y(yy), z(zz) {}

  // Within g_distZero on every axis.
  bool IsEqualTo(const KyGePoint &other) const;
  bool operator==(const KyGePoint &other) const { return IsEqualTo(other); }
  bool operator!=(const KyGePoint &other) const { return !IsEqualTo(other); }

  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};
