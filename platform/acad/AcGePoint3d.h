// The host's point and vector in space: three doubles.
#pragma once

#include <cmath>

class AcGeVector3d {
 public:
  AcGeVector3d() = default;
  constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  static const AcGeVector3d kIdentity;
  static const AcGeVector3d kXAxis;
  static const AcGeVector3d kYAxis;
  static const AcGeVector3d kZAxis;
  double length() const { return std::sqrt(x * x + y * y + z * z); }
  AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
  AcGeVector3d operator+(const AcGeVector3d &v) const { return {x + v.x, y + v.y, z + v.z}; }
  AcGeVector3d operator-(const AcGeVector3d &v) const { return {x - v.x, y - v.y, z - v.z}; }
  bool isEqualTo(const AcGeVector3d &v, double tol = 1e-10) const {
    return std::fabs(x - v.x) <= tol && std::fabs(y - v.y) <= tol && std::fabs(z - v.z) <= tol;
  }
  bool operator==(const AcGeVector3d &v) const { return isEqualTo(v); }
  double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  double &operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }

  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

class AcGePoint3d {
 public:
  AcGePoint3d() = default;
  constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  static const AcGePoint3d kOrigin;
  AcGePoint3d operator+(const AcGeVector3d &v) const { return {x + v.x, y + v.y, z + v.z}; }
  AcGePoint3d operator-(const AcGeVector3d &v) const { return {x - v.x, y - v.y, z - v.z}; }
  AcGeVector3d operator-(const AcGePoint3d &p) const { return {x - p.x, y - p.y, z - p.z}; }
  double distanceTo(const AcGePoint3d &p) const { return (*this - p).length(); }
  bool isEqualTo(const AcGePoint3d &p, double tol = 1e-10) const {
    return std::fabs(x - p.x) <= tol && std::fabs(y - p.y) <= tol && std::fabs(z - p.z) <= tol;
  }
  bool operator==(const AcGePoint3d &p) const { return isEqualTo(p); }
  double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  double &operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }

  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

// Constant-initialized, so a module that includes this header emits no
// initializer of its own for them (one that did would be pinned in the
// process by GCC's process-unique symbols).
inline const AcGePoint3d AcGePoint3d::kOrigin{0.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kIdentity{0.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};
