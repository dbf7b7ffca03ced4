// The host's point and vector in the plane: two doubles.
#pragma once

#include <cmath>

class AcGeVector2d {
 public:
  AcGeVector2d() = default;
  constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}
  double length() const { return std::sqrt(x * x + y * y); }
  AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
  AcGeVector2d operator+(const AcGeVector2d &v) const { return {x + v.x, y + v.y}; }
  AcGeVector2d operator-(const AcGeVector2d &v) const { return {x - v.x, y - v.y}; }

  double x = 0.0;
  double y = 0.0;
};

class AcGePoint2d {
 public:
  AcGePoint2d() = default;
  constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}
  static const AcGePoint2d kOrigin;
  AcGePoint2d operator+(const AcGeVector2d &v) const { return {x + v.x, y + v.y}; }
  AcGeVector2d operator-(const AcGePoint2d &p) const { return {x - p.x, y - p.y}; }
  double distanceTo(const AcGePoint2d &p) const { return (*this - p).length(); }
  bool isEqualTo(const AcGePoint2d &p, double tol = 1e-10) const {
    return std::fabs(x - p.x) <= tol && std::fabs(y - p.y) <= tol;
  }
  bool operator==(const AcGePoint2d &p) const { return isEqualTo(p); }

  double x = 0.0;
  double y = 0.0;
};

inline const AcGePoint2d AcGePoint2d::kOrigin{0.0, 0.0};
