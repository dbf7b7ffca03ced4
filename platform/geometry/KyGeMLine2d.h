// A chain of straight segments through a list of vertices, open or closed.
#pragma once

#include <vector>

#include "platform/geometry/KyGeCurve2d.h"

class KyGeMLine2d : public KyGeCurve2d {
 public:
  KyGeMLine2d() = default;
  explicit KyGeMLine2d(std::vector<AcGePoint2d> vertices, bool closed = false)
      : m_vertices(std::move(vertices)), m_closed(closed) {}

  // Segments: one fewer than the vertices, or as many when closed; 0 for
  // fewer than two vertices.
  virtual int GetSegNum() const;
  int GetVertexNum() const { return static_cast<int>(m_vertices.size()); }
  const AcGePoint2d &GetVertex(int i) const { return m_vertices[static_cast<std::size_t>(i)]; }
  void AddVertex(const AcGePoint2d &p) { m_vertices.push_back(p); }
  bool IsClosed() const { return m_closed; }
  void SetClosed(bool closed) { m_closed = closed; }

  // The segment from vertex i to the next; false for an index outside.
  virtual bool GetSegment(int i, KyGeSegment2d &segment) const;
  double Length() const override;

 protected:
  std::vector<AcGePoint2d> m_vertices;
  bool m_closed = false;
};
