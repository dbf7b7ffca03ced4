#include "platform/geometry/KyGeMLine2d.h"

int KyGeMLine2d::GetSegNum() const {
  const int n = GetVertexNum();
  if (n < 2) return 0;
  return m_closed ? n : n - 1;
}

bool KyGeMLine2d::GetSegment(int i, KyGeSegment2d &segment) const {
  if (i < 0 || i >= GetSegNum()) return false;
  const int next = (i + 1) % GetVertexNum();
  segment = KyGeSegment2d(GetVertex(i), GetVertex(next));
  return true;
}

double KyGeMLine2d::Length() const {
  double total = 0.0;
  KyGeSegment2d segment;
  for (int i = 0; i < GetSegNum(); ++i) {
    if (GetSegment(i, segment)) total += segment.Length();
  }
  return total;
}
