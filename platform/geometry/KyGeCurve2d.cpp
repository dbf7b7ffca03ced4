#include "platform/geometry/KyGeCurve2d.h"

#include <cmath>

#include "platform/geometry/GeTolerance.h"

bool KyGeSegment2d::IsArc() const { return std::fabs(m_bulge) > g_fZero; }

double KyGeSegment2d::Length() const {
  const double chord = m_start.distanceTo(m_end);
  if (!IsArc() || chord <= g_fZero) return chord;
  // Included angle 4 atan(bulge); radius from the chord and half the angle.
  const double angle = 4.0 * std::atan(std::fabs(m_bulge));
  const double radius = chord / (2.0 * std::sin(angle / 2.0));
  return radius * angle;
}
