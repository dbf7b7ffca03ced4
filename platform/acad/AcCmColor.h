// A colour of the host, by its index: 0 is "by block", 256 "by layer",
// 1 to 255 the colours of the index palette.
#pragma once

#include "platform/acad/AcAdesk.h"
#include "platform/acad/AcadErrorStatus.h"

class AcCmColor {
 public:
  AcCmColor() = default;
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 index) {
    if (index > 256) return Acad::eInvalidInput;
    index_ = index;
    return Acad::eOk;
  }
  Adesk::UInt16 colorIndex() const { return index_; }
  bool isByLayer() const { return index_ == 256; }
  bool isByBlock() const { return index_ == 0; }
  void setByLayer() { index_ = 256; }
  void setByBlock() { index_ = 0; }
  friend bool operator==(const AcCmColor &a, const AcCmColor &b) { return a.index_ == b.index_; }
  friend bool operator!=(const AcCmColor &a, const AcCmColor &b) { return a.index_ != b.index_; }

 private:
  Adesk::UInt16 index_ = 256;
};
