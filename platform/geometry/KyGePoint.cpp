#include "platform/geometry/KyGePoint.h"

#include <cmath>

#include "platform/geometry/GeTolerance.h"

bool KyGePoint::IsEqualTo(const KyGePoint &other) const {
  return std::fabs(x - other.x) <= g_distZero && std::fabs(y - other.y) <= g_distZero &&
         std::fabs(z - other.z) <= g_distZero;
}
