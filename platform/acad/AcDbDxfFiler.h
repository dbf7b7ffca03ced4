// The stream of group codes and values through which a database class
// writes its fields to a drawing file and reads them back (dxfOutFields,
// dxfInFields). Values that point at other objects travel as object ids;
// the database turns them into handles of the file and back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/acad/AcAdesk.h"
#include "platform/acad/AcDbObjectId.h"
#include "platform/acad/AcGePoint3d.h"
#include "platform/acad/AcadErrorStatus.h"

namespace tolv {

// How the value of a group code is kept, by the ranges of the DXF format.
enum class DxfKind { kText, kReal, kInt, kId };
DxfKind DxfKindOfCode(int code);
// Group codes that hold a pointer to another object of the drawing.
inline bool IsDxfPointerCode(int code) {
  return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || (code >= 480 && code <= 481);
}

struct DxfTag {
  int code = 0;
  std::wstring text;  // kText
  double real = 0.0;  // kReal
  std::int64_t integer = 0;  // kInt
  AcDbObjectId id;    // kId

  static DxfTag Text(int code, std::wstring value);
  static DxfTag Real(int code, double value);
  static DxfTag Int(int code, std::int64_t value);
  static DxfTag Id(int code, AcDbObjectId value);
};

}  // namespace tolv

class AcDbDxfFiler {
 public:
  AcDbDxfFiler() = default;
  explicit AcDbDxfFiler(std::vector<tolv::DxfTag> tags) : tags_(std::move(tags)) {}

  // Writing: each call appends one tag (a point appends two or three).
  Acad::ErrorStatus writeString(int code, const ACHAR *text);
  Acad::ErrorStatus writeString(int code, const std::wstring &text) { return writeString(code, text.c_str()); }
  Acad::ErrorStatus writeDouble(int code, double value);
  Acad::ErrorStatus writeInt16(int code, Adesk::Int16 value) { return writeInt64(code, value); }
  Acad::ErrorStatus writeInt32(int code, Adesk::Int32 value) { return writeInt64(code, value); }
  Acad::ErrorStatus writeInt64(int code, Adesk::Int64 value);
  Acad::ErrorStatus writeBool(int code, bool value) { return writeInt64(code, value ? 1 : 0); }
  // A null id writes nothing: the file has no pointer to nothing.
  Acad::ErrorStatus writeObjectId(int code, AcDbObjectId id);
  // x under `code`, y under code + 10, z under code + 20.
  Acad::ErrorStatus writePoint3d(int code, const AcGePoint3d &p);
  Acad::ErrorStatus writePoint2d(int code, double x, double y);
  Acad::ErrorStatus writeTag(const tolv::DxfTag &tag);

  // Reading, front to back.
  bool atEOF() const { return pos_ >= tags_.size(); }
  // The next tag without taking it; null at the end.
  const tolv::DxfTag *peek() const { return atEOF() ? nullptr : &tags_[pos_]; }
  bool readTag(tolv::DxfTag &tag);
  // Takes back the tag last read.
  void pushBackItem() {
    if (pos_ > 0) --pos_;
  }
  // True, and the marker is taken, when the next tag is the subclass marker
  // (group 100) of that name.
  bool atSubclassData(const ACHAR *name);
  // After the x of a point (tag `x`), takes its y and z when they follow.
  AcGePoint3d readPointAfter(const tolv::DxfTag &x);

  const std::vector<tolv::DxfTag> &tags() const { return tags_; }
  std::vector<tolv::DxfTag> &tags() { return tags_; }
  std::size_t position() const { return pos_; }

 private:
  std::vector<tolv::DxfTag> tags_;
  std::size_t pos_ = 0;
};
