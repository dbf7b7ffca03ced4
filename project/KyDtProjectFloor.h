// KyDtProjectFloor: a drawing file that is one floor, or a run of floors,
// of the building: its number text, height, base point and plan extent.
#pragma once

#include "platform/geometry/KyGeExtent2d.h"
#include "platform/geometry/KyGePoint.h"
#include "project/KyDtProjectItem.h"

class KyDtProjectFloor : public KyDtProjectFile {
 public:
  // Empty number, zero height and base, no extent, an all-zero extent.
  KyDtProjectFloor(const wchar_t *name = nullptr) : KyDtProjectFile(name) {}

  CString GetTypeName() const override;
  // "number" (also when empty), "height", "ptbase", and "extent" only when
  // the floor has one; numbers in "%lg".
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // Never fails: what isn't there or isn't a number reads as 0, and a text
  // short of commas fills what its commas reach.
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // Same kind, numbers equal without regard to case, every double exactly
  // equal, the same extent flag and extent. The file names don't count.
  bool IsSameWith(const KyDtProjectItem *other) override;

  // The extent's own tests, with or without the extent flag.
  bool IsInclude(const KyGePoint &point) const { return m_extent.IsInclude(point); }
  bool IsInclude(const KyGeExtent2d &extent) const { return m_extent.IsInclude(extent); }

  // The floor number text: one floor ("3", "-1") or a run ("2-5").
  CString m_strNumber;
  double m_dHeight = 0.0;
  double m_dBaseX = 0.0;
  double m_dBaseY = 0.0;
  double m_dBaseZ = 0.0;
  // True when the element carries "extent".
  bool m_bHasExtent = false;
  KyGeExtent2d m_extent;
};
