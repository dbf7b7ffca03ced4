#include "platform/geometry/KyGeExtent2d.h"

#include "platform/geometry/GeTolerance.h"

// Written as "not outside" would let a NaN in; this way a NaN on either
// side includes nothing.
bool KyGeExtent::IsInclude(double value) const {
  return value >= min - g_distZero && value <= max + g_distZero;
}

bool KyGeExtent::IsInclude(const KyGeExtent &other) const {
  return other.min <= other.max && IsInclude(other.min) && IsInclude(other.max);
}
