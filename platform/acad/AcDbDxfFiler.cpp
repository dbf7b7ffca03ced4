#include "platform/acad/AcDbDxfFiler.h"

namespace tolv {

DxfKind DxfKindOfCode(int c) {
  if (IsDxfPointerCode(c)) return DxfKind::kId;
  if ((c >= 10 && c <= 59) || (c >= 110 && c <= 149) || (c >= 210 && c <= 239) || (c >= 460 && c <= 469) ||
      (c >= 1010 && c <= 1059)) {
    return DxfKind::kReal;
  }
  if ((c >= 60 && c <= 99) || (c >= 160 && c <= 179) || (c >= 270 && c <= 299) || (c >= 370 && c <= 389) ||
      (c >= 400 && c <= 409) || (c >= 420 && c <= 429) || (c >= 440 && c <= 459) || (c >= 1060 && c <= 1071) ||
      (c >= -5 && c <= -1)) {
    return DxfKind::kInt;
  }
  return DxfKind::kText;
}

DxfTag DxfTag::Text(int code, std::wstring value) {
  DxfTag t;
  t.code = code;
  t.text = std::move(value);
  return t;
}

DxfTag DxfTag::Real(int code, double value) {
  DxfTag t;
  t.code = code;
  t.real = value;
  return t;
}

DxfTag DxfTag::Int(int code, std::int64_t value) {
  DxfTag t;
  t.code = code;
  t.integer = value;
  return t;
}

DxfTag DxfTag::Id(int code, AcDbObjectId value) {
  DxfTag t;
  t.code = code;
  t.id = value;
  return t;
}

}  // namespace tolv

Acad::ErrorStatus AcDbDxfFiler::writeString(int code, const ACHAR *text) {
  if (tolv::DxfKindOfCode(code) != tolv::DxfKind::kText) return Acad::eInvalidDxfCode;
  tags_.push_back(tolv::DxfTag::Text(code, text ? text : L""));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writeDouble(int code, double value) {
  if (tolv::DxfKindOfCode(code) != tolv::DxfKind::kReal) return Acad::eInvalidDxfCode;
  tags_.push_back(tolv::DxfTag::Real(code, value));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writeInt64(int code, Adesk::Int64 value) {
  if (tolv::DxfKindOfCode(code) != tolv::DxfKind::kInt) return Acad::eInvalidDxfCode;
  tags_.push_back(tolv::DxfTag::Int(code, value));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writeObjectId(int code, AcDbObjectId id) {
  if (!tolv::IsDxfPointerCode(code)) return Acad::eInvalidDxfCode;
  if (!id.isNull()) tags_.push_back(tolv::DxfTag::Id(code, id));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writePoint3d(int code, const AcGePoint3d &p) {
  if (tolv::DxfKindOfCode(code) != tolv::DxfKind::kReal) return Acad::eInvalidDxfCode;
  tags_.push_back(tolv::DxfTag::Real(code, p.x));
  tags_.push_back(tolv::DxfTag::Real(code + 10, p.y));
  tags_.push_back(tolv::DxfTag::Real(code + 20, p.z));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writePoint2d(int code, double x, double y) {
  if (tolv::DxfKindOfCode(code) != tolv::DxfKind::kReal) return Acad::eInvalidDxfCode;
  tags_.push_back(tolv::DxfTag::Real(code, x));
  tags_.push_back(tolv::DxfTag::Real(code + 10, y));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDxfFiler::writeTag(const tolv::DxfTag &tag) {
  if (tolv::IsDxfPointerCode(tag.code) && tag.id.isNull()) return Acad::eOk;
  tags_.push_back(tag);
  return Acad::eOk;
}

bool AcDbDxfFiler::readTag(tolv::DxfTag &tag) {
  if (atEOF()) return false;
  tag = tags_[pos_++];
  return true;
}

bool AcDbDxfFiler::atSubclassData(const ACHAR *name) {
  const tolv::DxfTag *t = peek();
  if (!t || t->code != 100 || !name || t->text != name) return false;
  ++pos_;
  return true;
}

AcGePoint3d AcDbDxfFiler::readPointAfter(const tolv::DxfTag &x) {
  AcGePoint3d p(x.real, 0.0, 0.0);
  const tolv::DxfTag *t = peek();
  if (t && t->code == x.code + 10) {
    p.y = t->real;
    ++pos_;
    t = peek();
    if (t && t->code == x.code + 20) {
      p.z = t->real;
      ++pos_;
    }
  }
  return p;
}
