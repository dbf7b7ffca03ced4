#include "platform/geometry/KyGePolyline2d.h"

KyGePolyline2d::KyGePolyline2d(std::vector<AcGePoint2d> vertices, bool closed)
    : KyGeMLine2d(std::move(vertices), closed), m_bulges(m_vertices.size(), 0.0) {}

void KyGePolyline2d::AddVertex(const AcGePoint2d &p, double bulge) {
  m_vertices.push_back(p);
  m_bulges.push_back(bulge);
}

double KyGePolyline2d::GetBulge(int i) const {
  return i >= 0 && i < static_cast<int>(m_bulges.size()) ? m_bulges[static_cast<std::size_t>(i)] : 0.0;
}

void KyGePolyline2d::SetBulge(int i, double bulge) {
  if (i >= 0 && i < static_cast<int>(m_bulges.size())) m_bulges[static_cast<std::size_t>(i)] = bulge;
}

void KyGePolyline2d::CopyFrom(const KyGePolyline2d &other) {
  if (this == &other) return;
  m_vertices = other.m_vertices;
  m_bulges = other.m_bulges;
  m_closed = other.m_closed;
}

bool KyGePolyline2d::GetSegment(int i, KyGeSegment2d &segment) const {
  if (!KyGeMLine2d::GetSegment(i, segment)) return false;
  segment.m_bulge = GetBulge(i);
  return true;
}
